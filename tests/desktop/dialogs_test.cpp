// The project dialog, the conversion form, and the arrangement of child windows.
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTreeWidget>

#include "desktop/desktop_test.h"
#include "shell/projects.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class DialogsTest : public DesktopTest {
 protected:
  /// Makes the tree's item of this name the current one.
  static void Pick(QWidget& dialog, const QString& name) {
    auto* const tree = Child<QTreeWidget>(&dialog, "tree");
    const QList<QTreeWidgetItem*> items = tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_FALSE(items.isEmpty()) << name.toStdString();
    items.front()->setExpanded(true);
    tree->setCurrentItem(items.front());
  }
  static std::string Box(QWidget& dialog, const char* name) {
    return FromQt(Child<QLineEdit>(&dialog, name)->text());
  }
};

TEST_F(DialogsTest, APickedLeafFillsTheBoxesAndThePanel) {
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Pick(dialog, QStringLiteral("例題－１.zor"));
    EXPECT_EQ(Box(dialog, "project"), "例題－１");
    EXPECT_EQ(Box(dialog, "dataPath"), DefaultDataPath);
    Pick(dialog, QStringLiteral("格子梁.inp"));
    EXPECT_EQ(Box(dialog, "model"), "格子梁");
    const std::string panel = FromQt(Child<QLabel>(&dialog, "information")->text());
    EXPECT_THAT(panel, StartsWith("格子梁.inp\n"));
    EXPECT_THAT(panel, HasSubstr("平面格子解析\n"));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(1)");
  EXPECT_FALSE(ModelIsOpen);
}

TEST_F(DialogsTest, ATypedNameShowsWhatIsKnownOfIt) {
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    auto* const model = Child<QLineEdit>(&dialog, "model");
    model->setText(QStringLiteral("連続梁x"));
    QTest::keyClick(model, Qt::Key_End);
    QTest::keyClick(model, Qt::Key_Backspace);
    const auto* const panel = Child<QLabel>(&dialog, "information");
    EXPECT_TRUE(QTest::qWaitFor([panel] { return panel->text().startsWith(QStringLiteral("連続梁.inp")); }));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(1)");
}

TEST_F(DialogsTest, AnEmptyModelNameIsToldAndTheDialogStays) {
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("モデル名は省略できません！！！"), QStringLiteral("OK"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    EXPECT_TRUE(dialog.isVisible());
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(1)");
}

TEST_F(DialogsTest, ACancelledSaveAsLeavesTheFolderAsItWas) {
  OpenSample(QStringLiteral("連続梁"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "heading")->text()), "〔名前を付けて保存〕");
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("新規"));
    Child<QLineEdit>(&dialog, "model")->setText(QStringLiteral("写し"));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(3)");
  EXPECT_FALSE(FolderExists(DefaultDataPath + "新規.zor"));
  EXPECT_TRUE(ModelIsOpen);
}

TEST_F(DialogsTest, AnOldModelIsPickedConvertedAndOpened) {
  const std::string old = Documents() + "旧/門型/";
  MakeFolder(old);
  ReplaceTextFile(old + "ft077", "旧モデル\r\n");
  ReplaceTextFile(old + "ft001", "2\r\n1,0,0,1,1,1\r\n2,4,0,0,0,0\r\n");
  ReplaceTextFile(old + "ft002", "1\r\n1,1,2,0,0,1,0\r\n");
  Script().Expect(QStringLiteral("ToZOR2"), [](QWidget& dialog) {
    EXPECT_FALSE(Child<QPushButton>(&dialog, "convert")->isEnabled());
    Click(dialog, "pickOld");
  });
  const QString documents = ToQt(Documents());
  Script().Expect(QStringLiteral("frmProject"), [documents](QWidget& dialog) {
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "heading")->text()), "〔Ｖｅｒ１．０〕");
    Child<QLineEdit>(&dialog, "dataPath")->setText(documents);
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("旧"));
    Child<QLineEdit>(&dialog, "model")->setText(QStringLiteral("門型"));
    Click(dialog, "ok");
  });
  Script().Expect(QStringLiteral("ToZOR2"), [](QWidget& dialog) { Click(dialog, "pickTarget"); });
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "heading")->text()), "〔変換後〕");
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    Child<QLineEdit>(&dialog, "model")->setText(QStringLiteral("門型"));
    Click(dialog, "ok");
  });
  Script().Expect(QStringLiteral("ToZOR2"), [old](QWidget& dialog) {
    EXPECT_EQ(Box(dialog, "old"), old);
    Click(dialog, "convert");
  });
  Choose("mnuFileItem(7)");
  EXPECT_TRUE(FileExists(Sample("門型.inp")));
  EXPECT_THAT(Caption(), HasSubstr("<< 例題－１.zor/門型.inp >>"));
}

TEST_F(DialogsTest, TiledFormsStandBesideTheInputMenu) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  Choose("mnuAnalysisStatic(2)");
  const QRect menu = OpenForm("frmInputMenu")->parentWidget()->geometry();
  Choose("mnuWindowItem(1)");
  const QRect reader = OpenForm("frmKakuninText")->parentWidget()->geometry();
  const QRect preview = OpenForm("frmPrnText")->parentWidget()->geometry();
  EXPECT_EQ(OpenForm("frmInputMenu")->parentWidget()->geometry(), menu);
  EXPECT_EQ(reader.left(), menu.right() + 1);
  EXPECT_EQ(preview.left(), reader.left());
  EXPECT_FALSE(reader.intersects(preview));
  Choose("mnuWindowItem(2)");
  EXPECT_EQ(OpenForm("frmKakuninText")->parentWidget()->geometry().top(),
            OpenForm("frmPrnText")->parentWidget()->geometry().top());
}

TEST_F(DialogsTest, UnsavedChangesStandInTheStatusBarAndAreAskedAbout) {
  OpenSample(QStringLiteral("連続梁"));
  EXPECT_EQ(FromQt(Child<QLabel>(&Window(), "statusSaved")->text()), "保存済み");
  ModelChanged = true;
  Window().Refresh();
  EXPECT_EQ(FromQt(Child<QLabel>(&Window(), "statusSaved")->text()), "未保存");
  Script().ExpectBox(QStringLiteral("入力中のモデルを保存してよろしいですか？"),
                     QStringLiteral("キャンセル"));
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Window().isVisible());
}

}  // namespace
}  // namespace zorlan::test

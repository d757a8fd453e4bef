// Title, subtitle, control data, units, and the number dialog, by keys and clicks.
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include "desktop/desktop_test.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

constexpr const char* kTitle = "mnuDataItem(0)";
constexpr const char* kSubTitle = "mnuDataItem(1)";
constexpr const char* kControl = "mnuDataItem(2)";
constexpr const char* kUnit = "mnuDataItem(3)";
constexpr const char* kNewModel = "mnuFileItem(0)";

class OneRowFormsTest : public DesktopTest {
 protected:
  static std::string Table(const char* key) {
    const std::string path = WorkPath + key;
    return FileExists(path) ? ReadTextFile(path) : "(none)";
  }
  Form* Open(const char* entry, const char* form) {
    Choose(entry);
    EXPECT_NE(OpenForm(form), nullptr);
    return OpenForm(form);
  }
  static QComboBox* Combo(Form* form, const char* name) { return Child<QComboBox>(form, name); }
  /// What an input method brings.
  static void Commit(QWidget* widget, const QString& text) {
    widget->setFocus();
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(widget, &event);
  }
  /// The window itself isn't active behind a box here, where no window manager gives it back.
  static bool GetsFocus(const QWidget* widget) { return widget->window()->focusWidget() == widget; }
  static std::string Note(Form* form, const char* name) { return FromQt(Child<QLabel>(form, name)->text()); }
};

TEST_F(OneRowFormsTest, ATitleIsTypedThroughAnInputMethodAndCommittedByEnter) {
  Choose(kNewModel);
  Form* const form = Open(kTitle, "InpTITL");
  auto* const title = Child<QLineEdit>(form, "title");
  EXPECT_TRUE(title->hasFocus());
  Commit(title, QStringLiteral("二層ラーメン "));
  QTest::keyClicks(title, "A-1");
  EXPECT_EQ(Note(form, "width"), "半角 16 / 72 文字");
  QTest::keyClick(title, Qt::Key_Return);
  EXPECT_EQ(OpenForm("InpTITL"), nullptr);
  EXPECT_EQ(Table("TITL"), "二層ラーメン A-1\r\n");
  EXPECT_TRUE(ModelChanged);
}

TEST_F(OneRowFormsTest, ATooLongTitleIsToldAndStays) {
  Choose(kNewModel);
  Form* const form = Open(kSubTitle, "InpSUBT");
  auto* const title = Child<QLineEdit>(form, "title");
  QTest::keyClicks(title, QString(73, QLatin1Char('x')));
  Script().ExpectBox(QStringLiteral("タイトルは半角７２文字以内で入力して下さい！！！"),
                     QStringLiteral("OK"));
  QTest::keyClick(title, Qt::Key_Escape);
  ASSERT_EQ(OpenForm("InpSUBT"), form);
  EXPECT_EQ(Table("SUBT"), "(none)");
  EXPECT_TRUE(GetsFocus(title));
  QTest::keyClick(title, Qt::Key_Backspace);
  Click(*form, "close");
  EXPECT_EQ(Table("SUBT"), std::string(72, 'x') + "\r\n");
}

TEST_F(OneRowFormsTest, ATitleLeftAsItWasIsNotWritten) {
  OpenSample(QStringLiteral("連続梁"));
  const std::string before = Table("TITL");
  QTest::keyClick(Child<QLineEdit>(Open(kTitle, "InpTITL"), "title"), Qt::Key_Escape);
  EXPECT_EQ(OpenForm("InpTITL"), nullptr);
  EXPECT_EQ(Table("TITL"), before);
  EXPECT_FALSE(ModelChanged);
}

TEST_F(OneRowFormsTest, ATitleThatCannotBeWrittenIsToldAndStays) {
  OpenSample(QStringLiteral("連続梁"));
  Form* const form = Open(kTitle, "InpTITL");
  Type(Child<QLineEdit>(form, "title"), QStringLiteral("x"));
  const std::string work = WorkPath;
  WorkPath = work + "TITL/";  // a file is no folder
  Script().ExpectBox(QStringLiteral("TITL"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());
  WorkPath = work;
  EXPECT_EQ(OpenForm("InpTITL"), form);
  EXPECT_TRUE(form->CloseForm());
}

TEST_F(OneRowFormsTest, ANewModelsControlDataAreEnteredByKeys) {
  Choose(kNewModel);
  Form* const form = Open(kControl, "InpCONT");
  QWidget* at = Combo(form, "model");
  EXPECT_TRUE(at->hasFocus());
  QTest::keyClick(at, Qt::Key_Down);  // the second model
  QTest::keyClick(at, Qt::Key_Tab);
  at = Combo(form, "loadCases");
  EXPECT_TRUE(at->hasFocus());
  QTest::keyClick(at, Qt::Key_Down);
  QTest::keyClick(at, Qt::Key_Down);
  QTest::keyClick(at, Qt::Key_Tab);
  QTest::keyClick(Combo(form, "list"), Qt::Key_Down);
  QTest::keyClick(Combo(form, "list"), Qt::Key_Return);
  EXPECT_EQ(OpenForm("InpCONT"), nullptr);
  EXPECT_EQ(Table("CONT"), "2,3,1,0\r\n");
  EXPECT_EQ(InpModel.MaxLoadCase, 3);
  EXPECT_TRUE(ModelChanged);
}

TEST_F(OneRowFormsTest, ControlDataAreWrittenOnTheirFirstCloseEvenAsTheyStand) {
  Choose(kNewModel);
  Open(kControl, "InpCONT")->CloseForm();
  EXPECT_EQ(Table("CONT"), "1,1,0,0\r\n");
  ModelChanged = false;
  Open(kControl, "InpCONT")->CloseForm();
  EXPECT_FALSE(ModelChanged);
}

TEST_F(OneRowFormsTest, ADropDownLeftEmptyIsToldByItsTitle) {
  OpenSample(QStringLiteral("連続梁"));
  ReplaceTextFile(WorkPath + "CONT", "9,1,0,0\r\n");
  Form* const form = Open(kControl, "InpCONT");
  EXPECT_EQ(Combo(form, "model")->currentIndex(), -1);
  Script().ExpectBox(QStringLiteral("解析モデル番号の入力は省略できません！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm()) << "untouched";
  Combo(form, "list")->setFocus();
  QTest::keyClick(Combo(form, "list"), Qt::Key_Down);
  Script().ExpectBox(QStringLiteral("解析モデル番号の入力は省略できません！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());
  EXPECT_TRUE(GetsFocus(Combo(form, "model")));
  EXPECT_EQ(Table("CONT"), "9,1,0,0\r\n");
  QTest::keyClick(Combo(form, "model"), Qt::Key_Down);
  EXPECT_TRUE(form->CloseForm());
  EXPECT_EQ(Table("CONT"), "1,1,1,0\r\n");
}

TEST_F(OneRowFormsTest, ThePlaneGridTurnsTheRollersOffAndSaysWhatItDoesNotTake) {
  Choose(kNewModel);
  Form* const form = Open(kControl, "InpCONT");
  EXPECT_EQ(Note(form, "modelNote"), "傾斜ローラ有りの場合は、フレーム倍率データは扱いません");
  EXPECT_EQ(Note(form, "loadNote"), "");
  Combo(form, "rollers")->setFocus();
  QTest::keyClick(Combo(form, "rollers"), Qt::Key_Down);
  EXPECT_EQ(Note(form, "loadNote"), "傾斜ローラ有りの場合は、剛性割増データは扱いません");
  Combo(form, "model")->setFocus();
  QTest::keyClick(Combo(form, "model"), Qt::Key_End);
  EXPECT_FALSE(Combo(form, "rollers")->isEnabled());
  EXPECT_EQ(Combo(form, "rollers")->currentIndex(), 0);
  EXPECT_EQ(Note(form, "loadNote"), "");
  EXPECT_EQ(Note(form, "modelNote"),
            "平面格子梁解析の時は、傾斜ローラデータ、および\n強制変位データは扱いません");
  EXPECT_EQ(InpModel.ModelCode, kPlaneGrid);  // menus and forms follow at once
}

TEST_F(OneRowFormsTest, AnotherNumberOfCasesDropsResultsAtOnceAndElementLoadsOnCommit) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  ASSERT_TRUE(FileExists(AnalysisPath + "FT031"));
  Form* const form = Open(kControl, "InpCONT");
  auto* const cases = Combo(form, "loadCases");
  const std::string before = Table("ELOD");
  cases->setFocus();
  QTest::keyClick(cases, Qt::Key_Home);
  EXPECT_FALSE(FileExists(AnalysisPath + "FT031"));
  EXPECT_FALSE(FileExists(AnalysisPath + "FT022A"));
  EXPECT_EQ(Note(form, "dropped"), "荷重ケースの数が変わったため、解析結果を削除しました");
  EXPECT_EQ(Table("ELOD"), before);
  EXPECT_TRUE(form->CloseForm());
  const std::string after = Table("ELOD");
  EXPECT_TRUE(before.starts_with(after) || after == "(none)");
  EXPECT_EQ(after.find("\n2,"), std::string::npos);
  Script().ExpectBox(QStringLiteral("再計算を行ってから、断面算定を行ってください"), QStringLiteral("OK"));
  Choose("mnuDesignS");  // it stays on until the next look at the results
}

TEST_F(OneRowFormsTest, AnotherNumberOfCasesClosesTheOpenElementLoads) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  ReplaceTextFile(WorkPath + "ELOD", "1,1,2,0,0,1,0\r\n2,1,3,0,0,1,0\r\n1,1,9,0,0,1,0\r\n");
  Choose("mnuLoad(1)");
  auto* const grid = Child<QTableView>(OpenForm("InpELOD"), "grid");
  grid->setCurrentIndex(grid->model()->index(0, 2));
  QTest::keyClicks(grid, "9");
  QTest::keyClicks(Window().focusWidget(), "9");
  QTest::keyClick(Window().focusWidget(), Qt::Key_Return);
  Form* const form = Open(kControl, "InpCONT");
  auto* const cases = Combo(form, "loadCases");
  cases->setFocus();
  QTest::keyClick(cases, Qt::Key_Home);
  Script().ExpectBox(QStringLiteral("荷重タイプが入力範囲外です"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());  // its bad row comes first
  EXPECT_NE(OpenForm("InpELOD"), nullptr);
  grid->setCurrentIndex(grid->model()->index(0, 2));
  QTest::keyClicks(grid, "0");
  QTest::keyClick(Window().focusWidget(), Qt::Key_Return);
  Script().ExpectBox(QStringLiteral("荷重ケースが範囲外のデータが 1 行あります"), QStringLiteral("はい"));
  EXPECT_TRUE(form->CloseForm());
  EXPECT_EQ(OpenForm("InpELOD"), nullptr);
  EXPECT_EQ(OpenForm("InpCONT"), nullptr);
  EXPECT_EQ(Table("CONT").substr(0, 4), "1,1,");
  EXPECT_EQ(Table("ELOD"), "1,1,2,0,0,1,0\r\n1,1,9,0,0,1,0\r\n");
}

TEST_F(OneRowFormsTest, AControlFormLeftAloneKeepsTheResults) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  Form* const form = Open(kControl, "InpCONT");
  auto* const list = Combo(form, "list");
  list->setFocus();
  QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
  EXPECT_TRUE(form->CloseForm());
  EXPECT_TRUE(FileExists(AnalysisPath + "FT031"));
}

TEST_F(OneRowFormsTest, UnitsAreChosenByKeys) {
  Choose(kNewModel);
  Form* const form = Open(kUnit, "InpUNIT");
  auto* const si = Child<QRadioButton>(form, "input1");
  EXPECT_TRUE(si->hasFocus());
  QTest::keyClick(si, Qt::Key_Left);
  EXPECT_TRUE(Child<QRadioButton>(form, "input0")->isChecked());
  EXPECT_EQ(InpModel.InUnit, 0);
  auto* const output = Child<QRadioButton>(form, "output1");
  output->setFocus();
  QTest::keyClick(output, Qt::Key_Left);
  auto* const force = Combo(form, "force");
  EXPECT_EQ(force->currentText(), QStringLiteral(" T（軸力、せん断力） ,  T・M（モーメント）"));
  auto* const factor = Child<QLineEdit>(form, "factor");
  Type(factor, QStringLiteral("0"));
  force->setFocus();
  QTest::keyClick(force, Qt::Key_Down);
  EXPECT_EQ(force->currentText(), QStringLiteral("kg（軸力、せん断力） , kg・M（モーメント）"));
  QTest::keyClick(force, Qt::Key_Return);
  EXPECT_EQ(OpenForm("InpUNIT"), nullptr);
  EXPECT_EQ(Table("UNIT"), "0,0,9.80665,1\r\n");
}

TEST_F(OneRowFormsTest, AUnitLeftEmptyAndAFactorThatIsNoneAreTold) {
  OpenSample(QStringLiteral("連続梁"));
  ReplaceTextFile(WorkPath + "UNIT", "1,1,9.8,7\r\n");
  Form* const form = Open(kUnit, "InpUNIT");
  Script().ExpectBox(QStringLiteral("力の単位の入力は省略できません！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm()) << "untouched";
  Type(Child<QLineEdit>(form, "factor"), QStringLiteral("-9.8"));
  Script().ExpectBox(QStringLiteral("力の単位の入力は省略できません！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());
  EXPECT_TRUE(GetsFocus(Combo(form, "force")));
  QTest::keyClick(Combo(form, "force"), Qt::Key_Down);
  Script().ExpectBox(QStringLiteral("ＳＩ単位変換係数が入力範囲外です！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());
  EXPECT_EQ(Table("UNIT"), "1,1,9.8,7\r\n");
  Child<QLineEdit>(form, "factor")->clear();
  Script().ExpectBox(QStringLiteral("ＳＩ単位変換係数の入力は省略できません！！！"), QStringLiteral("OK"));
  EXPECT_FALSE(form->CloseForm());
  Type(Child<QLineEdit>(form, "factor"), QStringLiteral("9.8"));
  EXPECT_TRUE(form->CloseForm());
  EXPECT_EQ(Table("UNIT"), "1,1,9.8,0\r\n");
}

TEST_F(OneRowFormsTest, ANumberBoxTakesItsMaskAloneHoweverTheTextComes) {
  Choose(kNewModel);
  auto* const factor = Child<QLineEdit>(Open(kUnit, "InpUNIT"), "factor");
  Type(factor, QStringLiteral("9x.8"));
  EXPECT_EQ(factor->text(), QStringLiteral("9.8"));
  factor->clear();
  Commit(factor, QStringLiteral("９．８１あ"));
  EXPECT_EQ(factor->text(), QStringLiteral("9.81"));
  QGuiApplication::clipboard()->setText(QStringLiteral("1,2\n"));
  factor->clear();
  QTest::keyClick(factor, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(factor->text(), QStringLiteral("12"));
}

TEST_F(OneRowFormsTest, AnOpenFormComesToTheFrontInsteadOfASecondOne) {
  Choose(kNewModel);
  Form* const form = Open(kTitle, "InpTITL");
  Open(kControl, "InpCONT");
  EXPECT_EQ(Open(kTitle, "InpTITL"), form);
  EXPECT_TRUE(Child<QLineEdit>(form, "title")->hasFocus());
}

TEST_F(OneRowFormsTest, TheNumberDialogTakesNothingButANumber) {
  Script().Expect(QStringLiteral("AddNum"), [](QWidget& dialog) {
    auto* const number = Child<QLineEdit>(&dialog, "number");
    const auto* const ok = Child<QPushButton>(&dialog, "ok");
    for (const char* const text : {"-", ".", "e", "1-2", "1e", "1e999"}) {
      number->setText(QString::fromLatin1(text));
      EXPECT_FALSE(ok->isEnabled()) << text;
    }
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    number->setText(QStringLiteral("-.5e1"));
    EXPECT_TRUE(ok->isEnabled());
    QTest::keyClick(number, Qt::Key_Return);
  });
  EXPECT_EQ(TheWindows().addNum("Add"), "-.5e1");
}

TEST_F(OneRowFormsTest, TheNumberDialogAnswersItsNumberOrItsWordForCancel) {
  Script().Expect(QStringLiteral("AddNum"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), "加算");
    EXPECT_FALSE(Child<QPushButton>(&dialog, "ok")->isEnabled());
    auto* const number = Child<QLineEdit>(&dialog, "number");
    EXPECT_TRUE(number->hasFocus());
    QTest::keyClicks(number, "-1.5e2z");
    QTest::keyClick(number, Qt::Key_Return);
  });
  EXPECT_EQ(TheWindows().addNum("Add"), "-1.5e2");
  Script().Expect(QStringLiteral("AddNum"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), "一括代入");
    QTest::keyClicks(Child<QLineEdit>(&dialog, "number"), "3");
    QTest::keyClick(Child<QLineEdit>(&dialog, "number"), Qt::Key_Escape);
  });
  EXPECT_EQ(TheWindows().addNum(""), "Abote");
}

}  // namespace
}  // namespace zorlan::test

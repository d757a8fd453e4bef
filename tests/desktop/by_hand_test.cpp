// Small things that a hand on the keyboard meets: which button Return presses, where the keys go, what a key
// chooses.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTableView>

#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/section_list.h"
#include "desktop/table_form_test.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;

class ByHandTest : public TableFormTest {
 protected:
  QMdiSubWindow* FrameOf(const char* form) {
    return qobject_cast<QMdiSubWindow*>(OpenForm(form)->parentWidget());
  }
  Model* Figure() { return qobject_cast<Model*>(OpenForm("Model")); }
  static void Settle() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
  /// Tab, until a widget of this name has the focus.
  static void WalkTo(const char* name) {
    for (int i = 0; i < 40; ++i) {
      QWidget* const at = QApplication::focusWidget();
      ASSERT_NE(at, nullptr);
      if (at->objectName() == QLatin1String(name)) return;
      QTest::keyClick(at, Qt::Key_Tab);
    }
    ADD_FAILURE() << "Tab never comes to " << name;
  }
};

// One column and one beam, fixed at the foot.
constexpr const char* kFrameByHand =
    "@NODE\n1,0,0,1,1,1\n2,0,4,0,0,0\n3,6,4,0,0,0\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n"
    "@SECT\n1,2,401,200,9,16,0,1,2100,810\n@PLOD\n1,3,0,-1,0\n";

TEST_F(ByHandTest, ReturnInABoxIsOkEvenBehindALookAtCancel) {
  OpenSample(QStringLiteral("連続梁"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    WalkTo("model");
    WalkTo("cancel");
    WalkTo("model");
    Type(Child<QLineEdit>(&dialog, "model"), QStringLiteral("copy"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  });
  Choose("mnuFileItem(3)");
  EXPECT_TRUE(FileExists(Sample("copy.inp")));
}

TEST_F(ByHandTest, ReturnOnCancelCancels) {
  OpenSample(QStringLiteral("連続梁"));
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Type(Child<QLineEdit>(&dialog, "model"), QStringLiteral("copy"));
    WalkTo("cancel");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  });
  Choose("mnuFileItem(3)");
  EXPECT_FALSE(FileExists(Sample("copy.inp")));
}

TEST_F(ByHandTest, TypedSizesStayWhenTabPassesTheListOfSections) {
  OpenModel("1,1,0,0", kFrameByHand);
  OpenTable("mnuDataItem(6)", "InpSECT");
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    WalkTo("search");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("H-5"));
    WalkTo("choices");
    WalkTo("P2");
    EXPECT_EQ(FromQt(Child<QLineEdit>(&dialog, "P1")->text()), "401");
    EXPECT_EQ(FromQt(Child<QLineEdit>(&dialog, "P4")->text()), "16");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  });
  Press(Qt::Key_F4);
  EXPECT_EQ(Cell(1, 3) + " " + Cell(1, 4) + " " + Cell(1, 5) + " " + Cell(1, 6), "401 200 9 16");
}

TEST_F(ByHandTest, DownInTheListOfSectionsTakesTheFirstAndThenTheNext) {
  SectionList list;
  list.ShowChoices(SteelChoices(SteelFamily::H));
  list.show();
  list.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
  QStringList picks;
  QObject::connect(&list, &SectionList::picked, [&](const std::string& name) { picks += ToQt(name); });
  QTableView* const table = list.Table();
  table->setFocus();
  EXPECT_EQ(list.Chosen(), "");
  QTest::keyClick(table, Qt::Key_Down);
  EXPECT_EQ(table->currentIndex().row(), 0);
  QTest::keyClick(table, Qt::Key_Down);
  EXPECT_EQ(table->currentIndex().row(), 1);
  EXPECT_EQ(picks.size(), 2);
  EXPECT_EQ(FromQt(picks.back()), list.Chosen());
}

TEST_F(ByHandTest, ATableThatChangesItsSizeKeepsTheKeys) {
  OpenModel("1,1,0,0", kFrameByHand);
  OpenNodes();
  Press(Qt::Key_Right);
  for (const auto change : {&QMdiSubWindow::showMaximized, &QMdiSubWindow::showNormal,
                            &QMdiSubWindow::showMinimized, &QMdiSubWindow::showNormal}) {
    (FrameOf("InpNODE")->*change)();
    Settle();
    if (!FrameOf("InpNODE")->isMinimized()) {
      EXPECT_TRUE(Table().View().hasFocus());
    }
  }
  Write("7");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "7") << "the first key counts";
}

TEST_F(ByHandTest, AFigureThatComesBackTakesTheKeys) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  FrameOf("Model")->showMaximized();
  Settle();
  EXPECT_TRUE(Figure()->View().hasFocus());
  Press(Qt::Key_N);
  Press(Qt::Key_Return);
  Settle();
  ASSERT_NE(OpenForm("InpNODE"), nullptr);
  Press(Qt::Key_Escape);
  ASSERT_TRUE(QTest::qWaitFor([&] { return OpenForm("InpNODE") == nullptr; }));
  Settle();
  EXPECT_TRUE(Figure()->View().hasFocus()) << FromQt(Focus()->objectName());
  FrameOf("Model")->showNormal();
  Settle();
  EXPECT_TRUE(Figure()->View().hasFocus());
}

TEST_F(ByHandTest, ATypingBoxThatAnotherTableClosedLeavesTheKeysToItsGrid) {
  OpenModel("1,1,0,0", kFrameByHand);
  OpenNodes();
  Write("9");
  TableWindow& nodes = Table();
  OpenTable("mnuDataItem(5)", "InpELEM");
  Settle();
  EXPECT_FALSE(nodes.View().IsBoxOpen());
  EXPECT_EQ(nodes.Editor().Text({1, 1, 1}), "9");
  Window().Forms().activatePreviousSubWindow();
  while (Window().Forms().activeSubWindow() != nodes.parentWidget())
    Window().Forms().activatePreviousSubWindow();
  Settle();
  EXPECT_TRUE(nodes.View().hasFocus()) << FromQt(Focus()->objectName());
  Press(Qt::Key_Right);
  Write("42");
  Press(Qt::Key_Return);
  EXPECT_EQ(nodes.Editor().Text({1, 1, 2}), "42");
}

TEST_F(ByHandTest, ABoxWithTheKeysHasThemAgainWhenItsFormComesBack) {
  OpenModel("1,1,0,0", kFrameByHand);
  Choose("mnuDataItem(2)");
  QWidget* const cases = Child<QComboBox>(OpenForm("InpCONT"), "loadCases");
  cases->setFocus();
  OpenNodes();
  Window().Forms().setActiveSubWindow(FrameOf("InpCONT"));
  Settle();
  EXPECT_TRUE(cases->hasFocus());
}

TEST_F(ByHandTest, ADigitChoosesTheNumberOfLoadCasesThatItNames) {
  OpenModel("1,1,0,0", kFrameByHand);
  Choose("mnuDataItem(2)");
  auto* const cases = Child<QComboBox>(OpenForm("InpCONT"), "loadCases");
  cases->setFocus();
  const auto choose = [&](const char* keys) {
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(cases, QString::fromLatin1(keys));
    return FromQt(cases->currentText());
  };
  EXPECT_EQ(choose("2"), "2");
  EXPECT_EQ(choose("2"), "2") << "again the same";
  EXPECT_EQ(choose("12"), "12");
  EXPECT_EQ(choose("1"), "1");
  EXPECT_EQ(choose("20"), "20");
  EXPECT_EQ(choose("3"), "3");
  EXPECT_EQ(choose("x"), "3");
  auto* const model = Child<QComboBox>(OpenForm("InpCONT"), "model");
  QTest::keyClicks(model, QStringLiteral("2"));
  EXPECT_EQ(model->currentIndex(), 1) << "the beginning of an entry will do";
}

}  // namespace
}  // namespace zorlan::test

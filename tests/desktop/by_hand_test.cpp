// Small things that a hand on the keyboard meets: which button Return presses, where the keys go, what a key
// chooses.
#include <QComboBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusTipEvent>
#include <QTableView>
#include <QToolButton>

#include "desktop/boxes.h"
#include "desktop/figure_view.h"
#include "desktop/model.h"
#include "desktop/prn_text.h"
#include "desktop/section_list.h"
#include "desktop/table_form_test.h"
#include "forms/typing.h"
#include "shell/settings.h"
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

TEST_F(ByHandTest, TheStatusBarCutsTheKindOfModelFirstAndLeavesRoomForAMessage) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  const auto cut = [&](const char* name) {
    auto* const label = Child<QLabel>(&Window(), name);
    return label->width() < label->sizeHint().width();
  };
  for (const int width : {1200, 1000, 800, 640}) {
    Window().resize(width, 500);
    Settle();
    EXPECT_EQ(Window().width(), width);
    const QWidget* const fields = Child<QLabel>(&Window(), "statusModel")->parentWidget();
    EXPECT_GE(fields->mapTo(&Window(), QPoint(0, 0)).x(), 200) << width;
    EXPECT_FALSE(cut("statusSaved")) << width;
    EXPECT_FALSE(cut("statusResults")) << width;
    if (width >= 1200) {
      EXPECT_FALSE(cut("statusKind")) << width;
    }
    if (width >= 800) {
      EXPECT_FALSE(cut("statusUnits")) << width;
    }
  }
  EXPECT_TRUE(cut("statusKind"));
}

TEST_F(ByHandTest, AHintGoesWhenAnotherFormTakesTheKeys) {
  OpenModel("1,1,0,0", kFrameByHand);
  Window().Forms().BringToFront(Figure());
  Figure()->View().setFocus();
  Settle();
  ASSERT_THAT(Status(), HasSubstr("次の節点"));
  Choose("mnuDataItem(0)");
  Settle();
  EXPECT_EQ(Status(), "");
  QStatusTipEvent hover(Figure()->View().statusTip());
  QCoreApplication::sendEvent(&Figure()->View(), &hover);
  ASSERT_THAT(Status(), HasSubstr("次の節点"));
  Choose("mnuDataItem(1)");
  Settle();
  EXPECT_EQ(Status(), "") << "nor one of what is under the mouse";
  OpenNodes();
  Settle();
  for (int column = 1; column <= 6; ++column) {
    Table().View().GoTo({1, 1, column});
    const TableEditor& nodes = Table().Editor();
    const std::string tip = TipLine(CellTip(nodes.Form(), nodes.Setting(), column, nodes.View(1, 1)));
    EXPECT_EQ(Status(), tip.empty() ? std::string(MaskHint(nodes.ColumnAt(column).mask)) : tip);
  }
}

TEST_F(ByHandTest, TheCellsThatABoxAsksAboutStayToBeSeen) {
  OpenModel("1,1,0,0", kFrameByHand);
  OpenNodes();
  Table().View().Select({1, 1, 3, 2});
  Window().Forms().BringToFront(Figure());
  Settle();
  ASSERT_FALSE(Table().View().hasFocus());
  const QRect cell = Table().View().visualRect(Table().View().model()->index(1, 1));
  const QColor shown = Table().View().viewport()->grab().toImage().pixelColor(cell.topLeft() + QPoint(3, 3));
  EXPECT_LT(shown.lightness(), 220) << "a fifth of black on white";
  EXPECT_GT(shown.lightness(), 180);
}

TEST_F(ByHandTest, ALimitOfTheRangeIsTakenInFullWidthToo) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Script().Expect(QStringLiteral("SetLimit1"), [](QWidget& dialog) {
    auto* const box = Child<QLineEdit>(&dialog, "xLower");
    box->setFocus();
    box->clear();
    for (const QChar key : QStringLiteral("－１．５")) {
      QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, key);
      QCoreApplication::sendEvent(box, &press);
    }
    EXPECT_EQ(FromQt(box->text()), "-1.5");
    QTest::keyClick(box, Qt::Key_Return);
  });
  Figure()->Use(Tool::Range);
  EXPECT_EQ(Figure()->View().TheFigure().range.xLower, -1.5);
}

TEST_F(ByHandTest, UndoIsOfferedWhereThereIsAStepAndTakesBackAPickOfTheFigure) {
  OpenModel("1,1,0,0", kFrameByHand);
  OpenTable("mnuLoad(1)", "InpELOD");
  EXPECT_FALSE(Entry("mnuUndo")->isEnabled());
  Window().Forms().BringToFront(Figure());
  Settle();
  EXPECT_FALSE(Entry("mnuUndo")->isEnabled());
  Figure()->findChild<QAction*>(QStringLiteral("figure-pick"))->trigger();
  QTest::keyClick(&Figure()->View(), Qt::Key_M);
  QTest::keyClick(&Figure()->View(), Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "1");
  ASSERT_TRUE(Entry("mnuUndo")->isEnabled());
  EXPECT_FALSE(Entry("mnuRedo")->isEnabled());
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 1), "");
  EXPECT_FALSE(Entry("mnuUndo")->isEnabled());
  ASSERT_TRUE(Entry("mnuRedo")->isEnabled());
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 1), "1");
}

TEST_F(ByHandTest, EscInTheSearchOfAListingLeadsBackToItsText) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  Settle();
  Press(Qt::Key_F, Qt::ControlModifier);
  ASSERT_EQ(Focus()->objectName(), QStringLiteral("search"));
  Press(Qt::Key_Escape);
  Settle();
  ASSERT_NE(OpenForm("frmKakuninText"), nullptr);
  EXPECT_EQ(Focus()->objectName(), QStringLiteral("text"));
  Press(Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return OpenForm("frmKakuninText") == nullptr; }));
}

TEST_F(ByHandTest, TheToolsOfANarrowFigureGoOnInASecondLine) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  Window().Forms().BringToFront(Figure());
  Figure()->ShowFigure(kMomentFigure, Model::Asked::Yes);
  for (const int width : {1000, 420, 320}) {
    FrameOf("Model")->showNormal();
    FrameOf("Model")->resize(width, 500);
    Settle();
    for (const QToolButton* const button : Figure()->findChildren<QToolButton*>()) {
      const QRect place(button->mapTo(Figure(), QPoint(0, 0)), button->size());
      EXPECT_TRUE(button->isVisible() && Figure()->rect().contains(place)) << FromQt(button->text()) << width;
    }
    const auto* const cases = Child<QComboBox>(Figure(), "loadCase");
    EXPECT_TRUE(Figure()->rect().contains(QRect(cases->mapTo(Figure(), QPoint(0, 0)), cases->size())));
  }
}

TEST_F(ByHandTest, APreviewInBlackAndWhiteHasNoColours) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  const auto colours = [&] {
    auto* const pages = Child<QWidget>(OpenForm("frmPrnText"), "pages");
    const QImage shown = pages->grab().toImage();
    int coloured = 0;
    for (int y = 30; y < shown.height() - 30; ++y)
      for (int x = 30; x < shown.width() - 30; ++x)
        if (shown.pixelColor(x, y).hsvSaturation() > 40) ++coloured;
    return coloured;
  };
  PrinterSettings.colourMode = kColour;
  Figure()->Use(Tool::Print);
  ASSERT_NE(OpenForm("frmPrnText"), nullptr);
  Settle();
  EXPECT_GT(colours(), 0);
  PrinterSettings.colourMode = kMonochrome;
  PrinterSettings.name = "";
  qobject_cast<frmPrnText*>(OpenForm("frmPrnText"))->LayOut();
  Settle();
  EXPECT_GT(colours(), 0) << "there is no printer";
  PrinterSettings.name = "LP-1";
  qobject_cast<frmPrnText*>(OpenForm("frmPrnText"))->LayOut();
  Settle();
  EXPECT_EQ(colours(), 0);
}

TEST_F(ByHandTest, TheInputListGoesByTheNameOfItsModel) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuFileItem(9)");
  Form* const preview = OpenForm("frmPrnText");
  ASSERT_NE(preview, nullptr);
  EXPECT_EQ(FromQt(preview->windowTitle()), "印刷プレビュー　入力ファイル　鉄骨ラーメン");
  Script().Expect(QStringLiteral("QFileDialog"), [](QWidget& dialog) {
    const QStringList files = static_cast<QFileDialog&>(dialog).selectedFiles();
    EXPECT_EQ(FromQt(files.value(0)), DefaultDataPath + "例題－１.zor/鉄骨ラーメン_入力.pdf");
    static_cast<QDialog&>(dialog).reject();
  });
  Click(*preview, "pdf");
}

TEST_F(ByHandTest, TheMessagesOfACheckAreSavedBesideTheModel) {
  OpenModel("1,1,0,0", "@NODE\n1,0,0,1,1,1\n@ELEM\n1,1,9,0,0,1\n");
  Choose("mnuTestNodeCheck");
  ASSERT_NE(OpenForm("frmKakuninText"), nullptr);
  Script().Expect(QStringLiteral("QFileDialog"), [](QWidget& dialog) {
    const QStringList files = static_cast<QFileDialog&>(dialog).selectedFiles();
    EXPECT_EQ(FromQt(files.value(0)), DefaultDataPath + "test.zor/InputErr.txt");
    static_cast<QDialog&>(dialog).reject();
  });
  Click(*OpenForm("frmKakuninText"), "save");
}

TEST_F(ByHandTest, ABackupBeginsAtTheProjectInHand) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Script().Expect(QStringLiteral("frmFolder"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(Child<QLineEdit>(&dialog, "folder")->text()), DefaultDataPath + "例題－１.zor/");
    static_cast<QDialog&>(dialog).reject();
  });
  Choose("mnuProjectItem(0)");
}

TEST_F(ByHandTest, AMnemonicPressedAgainGoesOnToTheNextMenuThatHasIt) {
  const auto title = [] {
    const auto* const menu = qobject_cast<const QMenu*>(QApplication::activePopupWidget());
    return menu == nullptr ? std::string() : FromQt(menu->title());
  };
  const auto press = [](QWidget* widget) { QTest::keyClick(widget, Qt::Key_A, Qt::AltModifier); };
  press(&Window());
  ASSERT_EQ(title(), "解析(&A)");
  press(QApplication::activePopupWidget());
  EXPECT_EQ(title(), "断面算定(&A)");
  press(QApplication::activePopupWidget());
  EXPECT_EQ(title(), "解析(&A)");
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_F(ByHandTest, TheButtonsOfABoxAreWordsAlone) {
  Script().Expect(QStringLiteral("文"), [](QWidget& box) {
    for (const QAbstractButton* const button : static_cast<QMessageBox&>(box).buttons())
      EXPECT_TRUE(button->icon().isNull()) << FromQt(button->text());
    static_cast<QDialog&>(box).reject();
  });
  AskBox("文", "題", Buttons::YesNoCancel);
}

}  // namespace
}  // namespace zorlan::test

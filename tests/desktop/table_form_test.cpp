// The table form by keys: typing, moving, clipboard, undo, tabs, closing.
#include "desktop/table_form_test.h"

#include <filesystem>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>

#include "base/fault.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;

TEST_F(TableFormTest, TypingReplacesEnterGoesDownAndTabRight) {
  OpenModel("1,2,0,0");
  OpenNodes();
  EXPECT_EQ(FromQt(Table().windowTitle()), "節点データ");
  Write("12");
  EXPECT_EQ(Table().View().OpenedBox()->objectName(), QStringLiteral("InputBox"));
  EXPECT_EQ(Cell(1, 1), "") << "until the box is left";
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "12");
  EXPECT_EQ(At(), (CellPlace{1, 2, 1}));
  Press(Qt::Key_Return, Qt::ShiftModifier);
  Write("7");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Cell(1, 1), "7");
  EXPECT_EQ(At(), (CellPlace{1, 1, 2}));
  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(At(), (CellPlace{1, 1, 1}));
  Press(Qt::Key_End);
  EXPECT_EQ(At(), (CellPlace{1, 1, 6}));
  Press(Qt::Key_Tab);
  EXPECT_EQ(At(), (CellPlace{1, 2, 1})) << "Tab runs on in the next row";
}

TEST_F(TableFormTest, TheFilterSwallowsWhatTheMaskRefusesWithASoftHint) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Write("1-a.5");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Cell(1, 1), "15");
  Write("x");
  EXPECT_FALSE(Table().View().IsBoxOpen());
  EXPECT_THAT(Status(), HasSubstr("数値（数字　－　．　Ｅ）を入力します"));
  Write("-1.5E3--");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "-1.5E3--") << "the filter tests the character and not the text";
}

TEST_F(TableFormTest, F2EditsInsideTheTextAndEscGivesItUp) {
  OpenModel("1,2,0,0", "@NODE\n1,125,0,0,0,0\n");
  OpenNodes();
  Press(Qt::Key_Right);
  Press(Qt::Key_F2);
  EXPECT_EQ(Table().View().OpenedBox()->objectName(), QStringLiteral("InputEditBox"));
  Press(Qt::Key_Left);
  Press(Qt::Key_Backspace);
  Write("3");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "135");
  Press(Qt::Key_Up);
  Write("9");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Cell(1, 2), "135");
  EXPECT_NE(OpenForm("InpNODE"), nullptr) << "Esc closes the box first";
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Down);
  EXPECT_EQ(Cell(1, 2), "13") << "Backspace removes the last character of the cell's text";
}

TEST_F(TableFormTest, LeavingTheBoxStoresItsText) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Write("5");
  Press(Qt::Key_Right);
  EXPECT_EQ(Cell(1, 1), "5");
  EXPECT_EQ(At(), (CellPlace{1, 1, 2}));
  Write("6");
  Child<QPushButton>(&Table(), "redraw")->setFocus();
  EXPECT_EQ(Cell(1, 2), "6");
}

TEST_F(TableFormTest, CtrlAndArrowsJumpToTheEdgeOfData) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,0,0,0\n2,0,0,0,0,0\n3,0,0,0,0,0\n");
  OpenNodes();
  Press(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(At(), (CellPlace{1, 3, 1}));
  Press(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(At(), (CellPlace{1, 3, 6}));
  Press(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(At(), (CellPlace{1, 1, 1}));
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(At(), (CellPlace{1, 3, 6}));
  Press(Qt::Key_PageDown);
  EXPECT_GT(At().row, 10);
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Table().View().Selected(), (CellRange{1, 1, 3, 6}));
}

TEST_F(TableFormTest, DeleteEmptiesTheSelectionAndUndoBringsItBackInOneStep) {
  OpenModel("1,2,0,0", "@NODE\n1,5,6,0,0,0\n2,7,8,0,0,0\n");
  OpenNodes();
  Press(Qt::Key_Right);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(Table().View().Selected(), (CellRange{1, 2, 2, 3}));
  Press(Qt::Key_Delete);
  EXPECT_EQ(Cell(1, 2) + Cell(1, 3) + Cell(2, 2) + Cell(2, 3), "");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2) + Cell(1, 3) + Cell(2, 2) + Cell(2, 3), "5678");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 3), "");
}

TEST_F(TableFormTest, ASelectionGrowsFromWhereItBeganInAnyDirection) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Table().View().GoTo({1, 5, 3});
  for (int i = 0; i < 2; ++i) Press(Qt::Key_Up, Qt::ShiftModifier);
  Press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Table().View().Selected(), (CellRange{3, 2, 5, 3}));
  for (int i = 0; i < 3; ++i) Press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Table().View().Selected(), (CellRange{5, 2, 6, 3}));
}

TEST_F(TableFormTest, AWholeColumnIsItsRowsInUse) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,0,0,0\n2,0,0,0,0,0\n");
  OpenNodes();
  const QHeaderView* const columns = Table().View().horizontalHeader();
  QTest::mouseClick(columns->viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(columns->sectionViewportPosition(1) + 20, columns->height() / 2));
  EXPECT_EQ(Table().View().Selected(), (CellRange{1, 2, 2, 2}));
  const QHeaderView* const rows = Table().View().verticalHeader();
  QTest::mouseClick(rows->viewport(), Qt::LeftButton, Qt::NoModifier,
                    QPoint(rows->width() / 2, rows->sectionViewportPosition(1) + 8));
  EXPECT_EQ(Table().View().Selected(), (CellRange{2, 1, 2, 6}));
}

TEST_F(TableFormTest, AShiftClickSelectsUpToTheCell) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Press(Qt::Key_Down);
  const QRect cell = Table().View().visualRect(Table().View().model()->index(4, 2));
  QTest::mouseClick(Table().View().viewport(), Qt::LeftButton, Qt::ShiftModifier, cell.center());
  EXPECT_EQ(Table().View().Selected(), (CellRange{2, 1, 5, 3}));
}

TEST_F(TableFormTest, ASpreadsheetsTextIsPastedAndCopied) {
  OpenModel("1,2,0,0");
  OpenNodes();
  SetClipboard("1\t0\t1,234.5\r\n2\t６\t-3\r\n");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 3), "1234.5");
  EXPECT_EQ(Cell(2, 2), "6");
  EXPECT_EQ(Cell(3, 1), "");
  EXPECT_EQ(Table().View().Selected(), (CellRange{1, 1, 2, 3}));
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "1\t0\t1234.5\r2\t6\t-3");
  Press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 3), "");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(2, 3), "-3");
  Table().View().GoTo({1, 4, 6});
  SetClipboard("1\t1\t1");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(4, 6), "1");
  EXPECT_THAT(Status(), HasSubstr("2 個のデータは貼り付けられませんでした"));
}

TEST_F(TableFormTest, TheClipboardKeysWorkOnTheBoxWhileItIsOpen) {
  OpenModel("1,2,0,0", "@NODE\n1,25,0,0,0,0\n");
  OpenNodes();
  Press(Qt::Key_Right);
  Press(Qt::Key_F2);
  SetClipboard("３\r\n4");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(FromQt(Table().View().OpenedBox()->text()), "2534");
  Press(Qt::Key_A, Qt::ControlModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Clipboard(), "2534");
  Choose("mnuEditItem(2)");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 2), "2534");
}

TEST_F(TableFormTest, TheEditMenuInsertsDeletesAddsAndAssigns) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,0,0,0\n2,6,0,0,0,0\n");
  OpenNodes();
  const WindowsKept kept;
  ShellWindows windows = TheWindows();
  windows.addNum = [](std::string_view mode) { return mode == "Add" ? "1.5" : "1"; };
  InstallWindows(windows);
  Press(Qt::Key_Down);
  Choose("mnuEditItem(3)");
  EXPECT_EQ(Cell(2, 1) + Cell(3, 1), "2");
  Choose("mnuEditItem(4)");
  EXPECT_EQ(Cell(2, 1), "2");
  Table().View().Select({1, 2, 2, 3});
  Choose("mnuEditItem(6)");
  EXPECT_EQ(Cell(1, 2) + " " + Cell(2, 2) + " " + Cell(2, 3), "1.5 7.5 1.5");
  Table().View().Select({1, 4, 2, 6});
  Choose("mnuEditItem(5)");
  EXPECT_EQ(Cell(1, 4) + Cell(1, 5) + Cell(2, 6), "111");
  windows.addNum = [](std::string_view) { return "Abote"; };
  InstallWindows(windows);
  Choose("mnuEditItem(5)");
  EXPECT_EQ(Cell(1, 4), "1");
  for (int i = 0; i < 4; ++i) Choose("mnuUndo");
  EXPECT_EQ(Cell(2, 2), "6");
}

TEST_F(TableFormTest, TheGridsOwnMenuHasTheEditCommands) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,0,0,0\n2,6,0,0,0,0\n");
  OpenNodes();
  for (QAction* const entry : Table().View().actions())
    if (entry->text().contains(QStringLiteral("行削除"))) entry->trigger();
  EXPECT_EQ(Cell(1, 1), "2");
}

/// What an input method sends when a composition grows and when it is confirmed.
void Compose(const char* preedit, const char* committed) {
  QInputMethodEvent event(QString::fromUtf8(preedit), {});
  event.setCommitString(QString::fromUtf8(committed));
  QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
}

TEST_F(TableFormTest, AnInputMethodOpensTheBoxAndItsDigitsAreNarrowed) {
  OpenModel("1,2,0,0");
  OpenTable("mnuDataItem(6)", "InpSECT");
  EXPECT_TRUE(Table().View().testAttribute(Qt::WA_InputMethodEnabled));
  Compose("１", "");
  ASSERT_TRUE(Table().View().IsBoxOpen());
  Compose("", "１２");
  EXPECT_EQ(FromQt(Table().View().OpenedBox()->text()), "12");
  Compose("", "あ");
  EXPECT_EQ(FromQt(Table().View().OpenedBox()->text()), "12") << "no name in a number column";
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "12");
  Table().View().GoTo({1, 1, 11});
  Compose("すぎ", "");
  ASSERT_TRUE(Table().View().IsBoxOpen());
  Compose("", "杉");
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 11), "杉");
  Compose("", "あ");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Cell(2, 11), "");
}

TEST_F(TableFormTest, ARefusedCompositionLeavesNoBoxBehind) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Compose("", "あ");
  EXPECT_FALSE(Table().View().IsBoxOpen());
  EXPECT_THAT(Status(), HasSubstr("数字だけを入力します"));
}

TEST_F(TableFormTest, ACompositionThatComesToNothingLeavesTheCellAsItWas) {
  for (const char* const committed : {"あ", ""}) {  // refused, and cancelled
    OpenModel("1,2,0,0", "@NODE\n7,1,2,0,0,0\n");
    OpenNodes();
    Compose("あ", "");
    EXPECT_TRUE(Table().View().IsBoxOpen());
    Compose("", committed);
    EXPECT_FALSE(Table().View().IsBoxOpen());
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(1, 1), "7");
    EXPECT_FALSE(Table().Editor().Changed());
  }
}

TEST_F(TableFormTest, ACompositionThatIsBrokenOffByAClickLeavesTheCellAsItWas) {
  OpenModel("1,2,0,0", "@NODE\n7,1,2,0,0,0\n");
  OpenNodes();
  Compose("あ", "");
  Table().View().GoTo({1, 2, 1});
  EXPECT_FALSE(Table().View().IsBoxOpen());
  EXPECT_EQ(Cell(1, 1), "7");
  EXPECT_FALSE(Table().Editor().Changed());
}

TEST_F(TableFormTest, ATextThatWasTypedAndRemovedAgainEmptiesTheCell) {
  OpenModel("1,2,0,0", "@NODE\n7,1,2,0,0,0\n");
  OpenNodes();
  Write("5");
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Return);
  EXPECT_EQ(Cell(1, 1), "");
}

TEST_F(TableFormTest, TabsAreReachedByKeysAndKeepTheirCells) {
  OpenModel("1,3,0,0", "@PLOD\n2,5,1,0,0\n1,4,0,1,0\n");
  OpenTable("mnuLoad(0)", "InpPLOD");
  auto* const tabs = Child<QTabBar>(&Table(), "tabs");
  ASSERT_EQ(tabs->count(), 3);
  EXPECT_EQ(FromQt(tabs->tabText(2)), "ケース3");
  Press(Qt::Key_Right);
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(tabs->currentIndex(), 1);
  EXPECT_EQ(FromQt(Table().View().model()->index(0, 0).data().toString()), "5");
  Write("7");
  Press(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 1, 2), "7");
  EXPECT_EQ(At(), (CellPlace{1, 1, 2}));
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(tabs->currentIndex(), 1) << "undo shows what it undoes";
  EXPECT_EQ(Cell(1, 1, 2), "5");
  EXPECT_TRUE(Table().CloseForm());
  EXPECT_EQ(TableFile("PLOD"), "1,4,0,1,0\r\n2,5,1,0,0\r\n");
}

TEST_F(TableFormTest, TheBoxOfGroupsAddsAndRemovesPages) {
  OpenModel("2,1,0,0", "@DISP\n1,1,2\n2,3\n");
  OpenTable("mnuDataItem(12)", "InpDISP");
  auto* const tabs = Child<QTabBar>(&Table(), "tabs");
  ASSERT_EQ(tabs->count(), 2);
  EXPECT_EQ(FromQt(tabs->tabText(1)), "グループ2");
  Press(Qt::Key_G, Qt::ControlModifier);
  Write("4");
  Press(Qt::Key_Return);
  EXPECT_EQ(tabs->count(), 4);
  Child<QSpinBox>(&Table(), "groups")->setValue(1);
  EXPECT_EQ(tabs->count(), 1);
  Choose("mnuUndo");
  Choose("mnuUndo");
  EXPECT_EQ(tabs->count(), 2);
  EXPECT_EQ(Cell(1, 1, 2), "3");
  EXPECT_EQ(Child<QSpinBox>(&Table(), "groups")->value(), 2);
  Child<QSpinBox>(&Table(), "groups")->setValue(1000);
  EXPECT_EQ(tabs->count(), 1000);
}

TEST_F(TableFormTest, ARefusedRowIsShownInTheMiddleWithItsCellSelected) {
  OpenModel("1,2,0,0");
  OpenNodes();
  QString rows;
  for (int i = 1; i <= 400; ++i)
    rows += QString::number(i) + QStringLiteral("\t0\t0\t0\t0\t%1\r\n").arg(i == 200 ? 3 : 0);
  QApplication::clipboard()->setText(rows);
  Press(Qt::Key_V, Qt::ControlModifier);
  Script().ExpectBox(QStringLiteral("０：自由　１：拘束　２：バネ支持  のみ入力可能です！！！"),
                     QStringLiteral("OK"));
  Table().CloseForm();
  EXPECT_NE(OpenForm("InpNODE"), nullptr);
  EXPECT_THAT(FromQt(Script().Seen().back()), HasSubstr("節点データ|"));
  EXPECT_EQ(Script().Seen().size(), 1) << "the message is shown once";
  EXPECT_EQ(At(), (CellPlace{1, 200, 6}));
  const int y = Table().View().visualRect(Table().View().currentIndex()).center().y();
  const int height = Table().View().viewport()->height();
  EXPECT_GT(y, height / 4);
  EXPECT_LT(y, height * 3 / 4);
  EXPECT_EQ(TableFile("NODE"), "(none)");
  Write("1");
  Press(Qt::Key_Return);
  Press(Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(OpenForm("InpNODE"), nullptr);
  EXPECT_THAT(TableFile("NODE"), HasSubstr("200,0,0,0,0,1\r\n"));
  EXPECT_TRUE(ModelChanged);
}

TEST_F(TableFormTest, AFormWithNoKeyTypedClosesWithoutAChange) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n");
  OpenNodes();
  Press(Qt::Key_Down);
  Press(Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(OpenForm("InpNODE"), nullptr);
  EXPECT_FALSE(ModelChanged);
}

TEST_F(TableFormTest, ASavingWithABadRowStops) {
  OpenModel("1,2,0,0", "@RIGD\n1,0.1,0.1\n");
  OpenTable("mnuDataItem(10)", "InpRIGD");
  Press(Qt::Key_Right);
  Write("0.95");
  Script().ExpectBox(QStringLiteral("λｉ＋λｊ＜１！！！"), QStringLiteral("OK"));
  Choose("mnuFileItem(2)");
  EXPECT_NE(OpenForm("InpRIGD"), nullptr);
  EXPECT_THAT(ReadTextFile(DefaultDataPath + "test.zor/m.inp"), HasSubstr("1,0.1,0.1"));
}

TEST_F(TableFormTest, TheRedrawButtonHandsTheRowsToTheFigure) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n");
  std::vector<TypedTable> drawn;
  const WindowsKept kept;
  ShellWindows windows = TheWindows();
  windows.drawTyped = [&](const std::vector<TypedTable>& tables) { drawn = tables; };
  InstallWindows(windows);
  OpenNodes();
  Press(Qt::Key_End, Qt::ControlModifier);
  Press(Qt::Key_Return);
  Press(Qt::Key_Home);
  TypeRow("3 6 4");
  OpenTable("mnuDataItem(5)", "InpELEM");
  ReplaceBytes(ListingPath(), "listing");
  Click(Table(), "redraw");
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].key, "ELEM");
  EXPECT_EQ(drawn[1].key, "NODE");
  ASSERT_EQ(drawn[1].rows.size(), 3U) << "new nodes are seen before they are saved";
  EXPECT_EQ(drawn[1].rows[2].cells, (std::vector<std::string>{"3", "6", "4"}));
  EXPECT_FALSE(FileExists(ListingPath()));
  EXPECT_EQ(TableFile("NODE"), "1,0,0,1,1,1\r\n2,6,0,0,0,0\r\n") << "the button writes nothing";
}

TEST_F(TableFormTest, ARedrawLooksAtTheListingAloneAndLeavesTheEntriesOfTheResults) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n@ELEM\n1,1,2,0,0,1\n");
  Results = {.forces = true, .steelDesign = true, .listing = true};
  OpenNodes();
  Click(Table(), "redraw");
  EXPECT_TRUE(Results.forces && Results.steelDesign && Results.listing);
  OpenTable("mnuDataItem(5)", "InpELEM");
  Click(Table(), "redraw");
  EXPECT_TRUE(Results.forces && Results.steelDesign);
  EXPECT_FALSE(Results.listing);
}

TEST_F(TableFormTest, AFigureThatCannotBeDrawnHoldsNoFormWhoseTableIsWritten) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n");
  const WindowsKept kept;
  ShellWindows windows = TheWindows();
  windows.drawTyped = [](const std::vector<TypedTable>&) { throw Fault("描けません"); };
  InstallWindows(windows);
  OpenNodes();
  Write("2");
  Script().ExpectBox(QStringLiteral("描けません"), QStringLiteral("OK"));
  Table().CloseForm();
  EXPECT_EQ(OpenForm("InpNODE"), nullptr);
  EXPECT_EQ(TableFile("NODE"), "2,0,0,1,1,1\r\n");
}

TEST_F(TableFormTest, TheSectionButtonWorksOnTheCurrentRow) {
  OpenModel("1,2,0,0", "@SECT\n1,1,30,60,0,0,1,210,90\n");
  const WindowsKept kept;
  ShellWindows windows = TheWindows();
  windows.sectionEntry = [](std::vector<std::string>& cells) {
    EXPECT_EQ(cells[2], "30");
    cells[1] = "2";
    cells[2] = "400";
    return true;
  };
  InstallWindows(windows);
  OpenTable("mnuDataItem(6)", "InpSECT");
  Press(Qt::Key_F4);
  EXPECT_EQ(Cell(1, 2) + " " + Cell(1, 3), "2 400");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Cell(1, 2) + " " + Cell(1, 3), "1 30");
}

TEST_F(TableFormTest, PickedNodesGoToTheFormInFront) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n5,6,0,0,0,0\n");
  EXPECT_FALSE(TheWindows().takeNodes({5}));
  OpenNodes();
  EXPECT_TRUE(TheWindows().takeNodes({5}));
  EXPECT_EQ(At(), (CellPlace{1, 2, 1}));
  OpenTable("mnuDataItem(5)", "InpELEM");
  EXPECT_TRUE(TheWindows().takeNodes({1}));
  EXPECT_TRUE(TheWindows().takeNodes({5}));
  EXPECT_EQ(Cell(1, 1) + Cell(1, 2) + Cell(1, 3), "115");
  Table().View().GoTo({1, kGridRows, 1});
  Script().ExpectBox(QStringLiteral("選択された節点が多く、全ての節点を定義することが出来ません！！！"),
                     QStringLiteral("OK"));
  TheWindows().takeNodes({1, 5, 1});
}

TEST_F(TableFormTest, ARowIsFoundByItsNumber) {
  OpenModel("1,2,0,0", "@PLOD\n1,4,0,1,0\n2,5,1,0,0\n2,8,1,0,0\n");
  EXPECT_TRUE(TheWindows().showRow("PLOD", 2, 8));
  auto* const form = qobject_cast<TableWindow*>(OpenForm("InpPLOD"));
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->View().Current(), (CellPlace{2, 2, 1}));
  EXPECT_FALSE(TheWindows().showRow("PLOD", 2, 4));
  EXPECT_FALSE(TheWindows().showRow("PLOD", 3, 4));
  EXPECT_FALSE(TheWindows().showRow("TITL", 1, 1));
}

TEST_F(TableFormTest, AMessageOfTheCheckLeadsToItsRow) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n@PLOD\n1,1,1,0,0\n2,2,1,0,0\n2,8,1,0,0\n");
  Press(Qt::Key_F9);
  ASSERT_NE(OpenForm("frmKakuninText"), nullptr);
  Press(Qt::Key_Return);
  auto* const form = qobject_cast<TableWindow*>(OpenForm("InpPLOD"));
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->View().Current(), (CellPlace{2, 2, 1}));
  EXPECT_TRUE(form->View().hasFocus());
}

TEST_F(TableFormTest, CodeColumnsAreExplainedInStatusBarAndToolTip) {
  OpenModel("1,2,0,0");
  OpenNodes();
  Table().View().GoTo({1, 1, 4});
  EXPECT_THAT(Status(), HasSubstr("バネ支持：２"));
  EXPECT_THAT(FromQt(Table().View().model()->index(0, 3).data(Qt::ToolTipRole).toString()),
              HasSubstr("　　　　　バネ支持   ：２"));
}

TEST_F(TableFormTest, TheNearestFaultIsOneKeyAway) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n3,6,0,9,0,0\n");
  OpenNodes();
  Press(Qt::Key_F8);
  EXPECT_EQ(At(), (CellPlace{1, 3, 4}));
  EXPECT_EQ(Status(), "０：自由　１：拘束　２：バネ支持  のみ入力可能です");
  Write("0");
  Press(Qt::Key_Return);
  Press(Qt::Key_F8);
  EXPECT_EQ(Status(), "誤りのある行はありません");
}

TEST_F(TableFormTest, WhatTheGridCannotShowIsToldAboveIt) {
  OpenModel("1,1,0,0", "@PLOD\n1,4,0,1,0\n2,5,1,0,0\n");
  OpenTable("mnuLoad(0)", "InpPLOD");
  auto* const notice = Child<QLabel>(&Table(), "notice");
  EXPECT_TRUE(notice->isVisible());
  EXPECT_EQ(FromQt(notice->text()), "荷重ケースが範囲外のデータが 1 行あります");
  Write("9");
  Script().Expect(QStringLiteral("保存すると失われます"),
                  [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });  // Enter loses nothing
  Table().CloseForm();
  EXPECT_NE(OpenForm("InpPLOD"), nullptr);
  EXPECT_THAT(TableFile("PLOD"), HasSubstr("2,5,1,0,0"));
  Script().ExpectBox(QStringLiteral("保存すると失われます"), QStringLiteral("はい"));
  Table().CloseForm();
  EXPECT_EQ(TableFile("PLOD"), "1,9,0,1,0\r\n");
}

TEST_F(TableFormTest, OpenFormsFollowTheControlData) {
  OpenModel("1,1,0,0", "@NODE\n1,0,0,4,4,0,30\n");
  OpenNodes();
  EXPECT_EQ(Table().View().model()->columnCount(), 6);
  InpModel.RollerFlag = 1;
  TheWindows().followControl();
  EXPECT_EQ(Table().View().model()->columnCount(), 7);
  EXPECT_EQ(Cell(1, 7), "30");
}

TEST_F(TableFormTest, ATableThatCannotBeReadAnewIsToldWithItsColumnsInPlace) {
  OpenModel("1,1,0,1", "@NODE\n1,0,0,4,4,0,30\n");
  OpenNodes();
  QAbstractItemModel* const model = Table().View().model();
  ASSERT_EQ(model->columnCount(), 7);
  int resets = 0;
  QObject::connect(model, &QAbstractItemModel::modelReset, [&] { ++resets; });
  std::filesystem::remove(WorkPath + "NODE");
  std::filesystem::create_symlink("/proc/self/mem", WorkPath + "NODE");  // a file that gives a read error
  InpModel.RollerFlag = 0;
  int resetsBeforeTheBox = 0;
  Script().Expect(QStringLiteral("NODE"), [&](QWidget& box) {
    resetsBeforeTheBox = resets;
    EXPECT_FALSE(model->headerData(6, Qt::Horizontal).isValid());
    box.close();
  });
  TheWindows().followControl();
  EXPECT_EQ(resetsBeforeTheBox, 1);
  EXPECT_EQ(model->columnCount(), 6);
}

TEST_F(TableFormTest, FormsForDifferentTablesStandOpenTogether) {
  OpenModel("1,2,0,0", "@NODE\n1,0,0,1,1,1\n@ELEM\n1,1,2,0,0,1\n");
  OpenNodes();
  Write("2");
  OpenTable("mnuDataItem(5)", "InpELEM");
  Write("3");
  EXPECT_TRUE(TheWindows().closeForm("InpELEM"));
  EXPECT_TRUE(TheWindows().closeForm("InpNODE"));
  EXPECT_EQ(TableFile("NODE"), "2,0,0,1,1,1\r\n");
  EXPECT_EQ(TableFile("ELEM"), "3,1,2,0,0,1\r\n");
}

}  // namespace
}  // namespace zorlan::test

// A table through its form: loading, committing, and the bytes that stand in the file.
#include "forms/table_editor.h"

#include <random>

#include "forms/form_test.h"

namespace zorlan::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using TableEditorTest = FormTest;

struct CommitCase {
  const char* form;
  FormSetting setting;
  const char* rows;  // typed on page 2 where the form has pages
  const char* file;
};
const CommitCase kCommits[] = {
    {"InpNODE", kFrame, "1\t0\t0\t1\t1\t1\r2\t.5\t-.25", "1,0,0,1,1,1\n2,.5,-.25\n"},
    {"InpNODE", kFrameWithRollers, "1\t0\t0\t4\t4\t0\t30", "1,0,0,4,4,0,30\n"},
    {"InpELEM", kFrame, "1\t1\t2\t\t\t1\r2\t2\t3\t1\t0\t1\t2", "1,1,2,0,0,1\n2,2,3,1,0,1,2\n"},
    {"InpSECT", kFrame, "1\t1\t30\t60\t\t\t1\t210\t90\t\tすぎ", "1,1,30,60,0,0,1,210,90,0,すぎ\n"},
    {"InpSECT", kFrame, "1\t0\t100\t2000\t\t80\t2\t2100\t810", "1,0,100,2000,0,80,1.0,2100,810\n"},
    {"InpPLOD", kFrame, "3\t\t-1", "2,3,0,-1\n"},
    {"InpELOD", kFrame, "1\t-2.5", "2,1,-2.5,0,0,1.0\n"},
    {"InpCLOD", kFrame, "1\t-1\t2\t1\t1\t1\t1", "2,1,-1,2,1,1,1,1\n"},
    {"InpTLOD", kFrame, "1\t30\t20\t-5\t0.000012\t20", "2,1,30,20,-5,0.000012,20\n"},
    {"InpRIGD", kFrame, "1\t0.1\t0.2", "1,0.1,0.2\n"},
    {"InpSPRG", kFrame, "1\t\t50", "1,0,50\n"},
    {"InpSPEC", kFrame, "1\t2\t0.5", "1,2,0.5\n"},
    {"InpDISP", kFrame, "1\r2\r3", "2,1\n2,2\n2,3\n"},
    {"InpALFA", kFrame, "0\t6\t1.5", "0,6,1.5\n"},
};

TEST_F(TableEditorTest, TheCommitOfEachFormWritesItsTable) {
  for (const CommitCase& c : kCommits) {
    ModelChanged = false;
    TableEditor editor = Open(c.form, c.setting);
    const bool paged = editor.Form().pages != Pages::None;
    if (editor.Form().pages == Pages::Groups) editor.SetPageCount(2);
    Fill(editor, c.rows, paged ? 2 : 1);
    answers = {Answer::Yes};  // to rows that are too short for the analysis
    EXPECT_EQ(Commit(editor), CommitEnd::Written) << c.form;
    EXPECT_EQ(Table(TableKey(editor.Form())), c.file) << c.form;
    EXPECT_TRUE(ModelChanged) << c.form;
    EXPECT_FALSE(editor.Changed()) << c.form;
    RemoveFile(WorkPath + TableKey(editor.Form()));
  }
  EXPECT_THAT(told, Each(HasSubstr("項目が足りないため")));
}

TEST_F(TableEditorTest, AFormWithNoKeyTypedWritesNothing) {
  WriteTable("NODE", "1,.5,0,0,0,0,\n");
  TableEditor editor = Open("InpNODE");
  EXPECT_EQ(Commit(editor), CommitEnd::Nothing);
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(Table("NODE"), "1,.5,0,0,0,0,\n");
}

TEST_F(TableEditorTest, WithAllRowsEmptiedTheTableHasNoFile) {
  WriteTable("NODE", "1,0,0,1,1,1\n");
  TableEditor editor = Open("InpNODE");
  editor.Clear(1, {1, 1, kGridRows, 6});
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "(none)");
  EXPECT_TRUE(ModelChanged);
}

TEST_F(TableEditorTest, ARowWithNothingButItsNumberIsKept) {
  TableEditor editor = Open("InpNODE");
  editor.SetText({1, 1, 1}, "7");
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "7\n");
}

TEST_F(TableEditorTest, RowsThatNoAnalysisWouldReadAreFoundAndAskedAbout) {
  TableEditor editor = Open("InpELEM", kFrame);
  Fill(editor, "10\t1\t2\t0\t0\t1\r11\t7\t3\r12\t3\t4");
  const std::optional<RowFault> found = editor.NearestFault({1, 1, 1});
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->place, (CellPlace{1, 2, 4}));
  EXPECT_EQ(found->message, "項目が足りないため、解析では読み飛ばされます");
  answers = {Answer::No, Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_EQ(fault, (CellPlace{1, 2, 4})) << "at the first field that is missing";
  EXPECT_THAT(told.back(),
              HasSubstr("2行目（ほか 1 行）は項目が足りないため、解析では読み飛ばされます\n良いですか？"));
  EXPECT_EQ(Table("ELEM"), "(none)");
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("ELEM"), "10,1,2,0,0,1\n11,7,3\n12,3,4\n") << "as it was typed";
  EXPECT_EQ(told.size(), 2u);
}

TEST_F(TableEditorTest, TheFieldOfItsCaseCountsInARowOfLoads) {
  TableEditor editor = Open("InpPLOD", kFrame);
  Fill(editor, "3\t1\r4", 2);
  const std::optional<RowFault> found = editor.NearestFault({1, 1, 1});
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->place, (CellPlace{2, 2, 2}));
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(told.back(), HasSubstr("ケース2 の 2行目は項目が足りないため"));
}

TEST_F(TableEditorTest, ABlankRowInsideIsDropped) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\t0\r\r3\t5");
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "1,0\n3,5\n");
}

TEST_F(TableEditorTest, BlanksAroundACellAreCutOff) {
  WriteTable("NODE", "  1 , 2 ,,1\n");
  TableEditor editor = Open("InpNODE");
  EXPECT_EQ(editor.Text({1, 1, 1}), "1");
  EXPECT_EQ(editor.Text({1, 1, 3}), "");
  EXPECT_EQ(editor.Text({1, 1, 4}), "1");
  EXPECT_FALSE(editor.Changed());
}

TEST_F(TableEditorTest, ATypeOfDirectInputSetsItsFactorInTheGridToo) {
  TableEditor editor = Open("InpSECT");
  Fill(editor, "1\t0\t100\t2000\t0\t80\t2\r0\t1");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused) << "row 2 has no number";
  EXPECT_EQ(editor.Text({1, 1, 7}), "1.0");
  editor.Undo();
  EXPECT_EQ(editor.Text({1, 1, 7}), "2");
}

TEST_F(TableEditorTest, AWeakBoxIsAskedAboutAndRefusedWithNo) {
  TableEditor editor = Open("InpSECT");
  Fill(editor, "1\t2\t400\t200\t8\t13\r2\t6\t200\t100\t6\t6\t1");
  answers = {Answer::No};
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(
      told,
      ElementsAre(
          std::string(kApplicationTitle) +
          "|2行目 □-200x100x6x6\n は弱軸指定のため、X,Yの断面性能が入替わり、強軸になります\n良いですか？"));
  EXPECT_EQ(fault, (CellPlace{1, 2, 2}));
  EXPECT_EQ(Table("SECT"), "(none)");
  answers = {Answer::Yes, Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
}

TEST_F(TableEditorTest, ANewElementLoadGetsItsFactor) {
  TableEditor editor = Open("InpELOD");
  editor.SetText({1, 1, 1}, "3");
  EXPECT_EQ(editor.Text({1, 1, 5}), "1.0");
  editor.SetText({1, 1, 5}, "");
  editor.SetText({1, 1, 2}, "-1");
  EXPECT_EQ(editor.Text({1, 1, 5}), "") << "the row isn't new any more";
  Fill(editor, "1\t-1\r2\t-2\t0\t0\t3", 1);
  EXPECT_EQ(editor.Text({1, 2, 5}), "3");
  editor.SetText({1, 9, 5}, "2");
  EXPECT_EQ(editor.Text({1, 9, 5}), "2");
}

TEST_F(TableEditorTest, RowsAreSortedOutByTheirCaseAndWrittenInItsOrder) {
  WriteTable("PLOD", "3,1,1\n1,2,2\n3,3,3\n2,4,4\n");
  TableEditor editor = Open("InpPLOD", kFrame);
  EXPECT_EQ(editor.Cells().PageCount(), 3);
  EXPECT_EQ(editor.Text({3, 2, 1}), "3");
  EXPECT_EQ(editor.UnshownText(), "");
  editor.MarkChanged();
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("PLOD"), "1,2,2\n2,4,4\n3,1,1\n3,3,3\n");
}

TEST_F(TableEditorTest, RowsOfACaseOutOfRangeAreDroppedByTheCommitThatWasAgreedTo) {
  WriteTable("PLOD", "1,2,2\n4,1,1\n0,9,9\n");
  TableEditor editor = Open("InpPLOD", kFrame);
  EXPECT_EQ(editor.UnshownText(), "荷重ケースが範囲外のデータが 2 行あります");
  EXPECT_EQ(Commit(editor), CommitEnd::Nothing);
  EXPECT_EQ(Table("PLOD"), "1,2,2\n4,1,1\n0,9,9\n") << "until something is changed";
  editor.SetText({1, 1, 2}, "5");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(told, ElementsAre(HasSubstr("節点荷重データに荷重ケースが範囲外のデータが 2 行あります")));
  EXPECT_EQ(Table("PLOD"), "1,2,2\n4,1,1\n0,9,9\n");
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("PLOD"), "1,2,5\n");
}

TEST_F(TableEditorTest, CellsAndRowsThatTheGridCannotShowAreNotLostInSilence) {
  std::string table = "1,0,0,1,1,1,30\n";
  for (int r = 2; r <= kGridRows + 2; ++r) table += std::to_string(r) + ",0,0\n";
  WriteTable("NODE", table);
  TableEditor editor = Open("InpNODE");
  EXPECT_EQ(editor.UnshownText(),
            "表示できない項目のあるデータが 1 行、10000 行に収まらないデータが 2 行あります");
  editor.SetText({1, 1, 2}, "1");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_EQ(Table("NODE"), table);
}

TEST_F(TableEditorTest, AZeroBehindTheLastColumnIsNoLoss) {
  WriteTable("NODE", "1,0,0,1,1,1,0\n");
  EXPECT_EQ(Open("InpNODE").UnshownText(), "");
}

TEST_F(TableEditorTest, RowsBelowTheLastNumberAreAskedAbout) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\t0\r\t5");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(told, ElementsAre(HasSubstr("2行目は節点番号がないため、保存されません")));
  EXPECT_EQ(fault, (CellPlace{1, 2, 1}));
  answers = {Answer::Yes, Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "1,0\n");
}

TEST_F(TableEditorTest, AGroupsNodesStandInARowEach) {
  WriteTable("DISP", "3,1,2\n1,7\n3,5\n");
  TableEditor editor = Open("InpDISP");
  EXPECT_EQ(editor.Cells().PageCount(), 3);
  EXPECT_EQ(editor.Text({3, 3, 1}), "5");
  editor.MarkChanged();
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("DISP"), "1,7\n3,1\n3,2\n3,5\n");
}

TEST_F(TableEditorTest, AGroupNumberBeyondAllModelsMakesNoPages) {
  WriteTable("DISP", "30000,1\n2,5\nx,6\n");
  TableEditor editor = Open("InpDISP");
  EXPECT_EQ(editor.Cells().PageCount(), 2);
  EXPECT_EQ(editor.UnshownText(), "グループ番号が範囲外のデータが 2 行あります");
}

TEST_F(TableEditorTest, ACommittedTableComesBackAsItStood) {
  constexpr const char* kTexts[] = {"", "0", "1", "1", "2", "0.25", "-3.5", "99999", "1e3", "杉 甲"};
  std::mt19937 random(7);
  const auto pick = [&](int high) { return std::uniform_int_distribution<int>(0, high)(random); };
  int written = 0;
  for (const TableForm& form : TableForms())
    for (int round = 0; round < 200; ++round) {
      TableEditor editor(form, kFrame);
      if (form.pages == Pages::Groups) editor.SetPageCount(3);
      for (int cell = 0; cell < 12; ++cell)
        editor.SetText(
            {1 + pick(editor.Cells().PageCount() - 1), 1 + pick(2), 1 + pick(editor.Cells().Columns() - 1)},
            kTexts[pick(9)]);
      answers.assign(20, Answer::Yes);
      if (Commit(editor) != CommitEnd::Written) continue;
      const std::string file = Table(TableKey(form));
      TableEditor again = Open(form.name, kFrame);
      EXPECT_EQ(again.UnshownText(), "") << file;
      again.MarkChanged();
      answers.assign(20, Answer::Yes);
      EXPECT_EQ(Commit(again), CommitEnd::Written) << form.name << "\n" << file;
      EXPECT_EQ(Table(TableKey(form)), file) << form.name;
      ++written;
    }
  EXPECT_GT(written, 200);
}

TEST_F(TableEditorTest, AnyNumberOfLoadCasesMakesAForm) {
  WriteTable("PLOD", "1,1,1\n");
  for (const int cases : {-32768, -5, 0, 1, 20, 32767}) {
    InpModel.ModelCode = kPlaneFrame;
    InpModel.MaxLoadCase = static_cast<std::int16_t>(cases);
    const TableEditor editor = Open("InpPLOD", CurrentFormSetting());
    EXPECT_EQ(editor.Cells().PageCount(), std::clamp(cases, 1, 1000));
    EXPECT_EQ(editor.Text({1, 1, 2}), "1");
  }
}

TEST_F(TableEditorTest, AForeignFileIsShownAsFarAsItCanBe) {
  std::string binary = "\x01\x02PNG\r\n";
  for (int i = 0; i < 5000; ++i) binary += static_cast<char>(i * 37);
  ReplaceBytes(WorkPath + "ELEM", binary);
  TableEditor editor = Open("InpELEM");
  EXPECT_EQ(Commit(editor), CommitEnd::Nothing);
  EXPECT_EQ(ReadBytes(WorkPath + "ELEM"), binary);
  editor.SetText({1, 1, 1}, "1");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_EQ(ReadBytes(WorkPath + "ELEM"), binary);
}

TEST_F(TableEditorTest, AFolderThatCannotBeWrittenLeavesTheForm) {
  TableEditor editor = Open("InpRIGD");
  editor.SetText({1, 1, 1}, "1");
  answers = {Answer::Yes};
  WorkPath = BlockedFolder();
  EXPECT_THAT(FaultOf([&] { Commit(editor); }), HasSubstr("RIGD"));
  EXPECT_TRUE(editor.Changed());
  EXPECT_FALSE(ModelChanged);
}

TEST_F(TableEditorTest, PastingAtTheLastColumnKeepsTheFirstAndLosesTheOthers) {
  TableEditor editor = Open("InpNODE");
  const Pasted pasted = editor.Paste({1, 1, 6}, "1\t2\t3");
  EXPECT_EQ(editor.Text({1, 1, 6}), "1");
  EXPECT_EQ(pasted.lost, 2);
  EXPECT_EQ(pasted.range, (CellRange{1, 6, 1, 6}));
}

TEST_F(TableEditorTest, PastingBelowTheLastRowIsLost) {
  TableEditor editor = Open("InpNODE");
  EXPECT_EQ(editor.Paste({1, kGridRows, 1}, "1\r\n2\r\n").lost, 1);
  EXPECT_EQ(editor.Text({1, kGridRows, 1}), "1");
}

TEST_F(TableEditorTest, CopyingSeparatesCellsByTabAndRowsByCr) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\t2\r\t4");
  EXPECT_EQ(editor.CopyText(1, {1, 1, 2, 2}), "1\t2\r\t4");
  editor.Paste({1, 5, 2}, editor.CopyText(1, {1, 1, 2, 2}));
  EXPECT_EQ(editor.Text({1, 6, 3}), "4");
}

TEST_F(TableEditorTest, AnInsertedRowPushesTheLastOneOff) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\r2");
  editor.SetText({1, kGridRows, 1}, "9");
  editor.InsertRow(1, 2);
  EXPECT_EQ(editor.Text({1, 2, 1}), "");
  EXPECT_EQ(editor.Text({1, 3, 1}), "2");
  EXPECT_EQ(editor.Text({1, kGridRows, 1}), "");
  editor.Undo();
  EXPECT_EQ(editor.Text({1, kGridRows, 1}), "9");
}

TEST_F(TableEditorTest, DeletedRowsCloseUpWhicheverWayTheyWereSelected) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\r2\r3\r4");
  editor.DeleteRows(1, 3, 2);
  EXPECT_EQ(editor.Text({1, 2, 1}), "4");
  EXPECT_EQ(editor.LastKeyRow(1), 2);
  EXPECT_EQ(RangeBetween({1, 3, 2}, {1, 2, 4}), (CellRange{2, 2, 3, 4}));
}

TEST_F(TableEditorTest, AddingCountsABlankCellAsZero) {
  TableEditor editor = Open("InpNODE");
  Fill(editor, "1\t0.1\r2\t\r3\t-1");
  editor.Add(1, {1, 2, 3, 2}, 0.2);
  EXPECT_EQ(editor.Text({1, 1, 2}), "0.3");
  EXPECT_EQ(editor.Text({1, 2, 2}), "0.2");
  EXPECT_EQ(editor.Text({1, 3, 2}), "-0.8");
  EXPECT_TRUE(editor.Changed());
}

TEST_F(TableEditorTest, AddingLeavesNamesAlone) {
  TableEditor editor = Open("InpSECT");
  Fill(editor, "1\t7\t\t\t\t\t\t\t\t105角");
  editor.Add(1, {1, 9, 1, 10}, 1);
  EXPECT_EQ(editor.Text({1, 1, 9}), "1");
  EXPECT_EQ(editor.Text({1, 1, 10}), "105角");
}

TEST_F(TableEditorTest, AssigningPutsTheNumberIntoEachCell) {
  TableEditor editor = Open("InpNODE");
  editor.Assign(1, {1, 4, 3, 6}, "1");
  for (int row = 1; row <= 3; ++row)
    for (int column = 4; column <= 6; ++column) EXPECT_EQ(editor.Text({1, row, column}), "1");
}

TEST_F(TableEditorTest, PickedNodesBecomeEndsOfElements) {
  TableEditor editor = Open("InpELEM");
  Fill(editor, "4\t1\t2");
  EXPECT_EQ(editor.TakeNodes({1, 1, 1}, {7, 8, 9}), (CellPlace{1, 3, 2}));
  EXPECT_EQ(editor.CopyText(1, {1, 1, 3, 3}), "4\t1\t2\r5\t7\t8\r6\t9\t");
  EXPECT_EQ(editor.TakeNodes({1, kGridRows, 1}, {1, 2, 3}), (CellPlace{1, kGridRows, 3}));
  EXPECT_THAT(told,
              ElementsAre(HasSubstr("選択された節点が多く、全ての節点を定義することが出来ません！！！")));
}

TEST_F(TableEditorTest, PickedNodesGetTheNextNumberWhateverStandsInTheKeyColumn) {
  TableEditor editor = Open("InpELEM");
  Fill(editor, "-1e300\t1\t2\r7\t1\t2\r1e300\t1\t2");
  editor.DeleteRows(1, 3, 3);
  editor.TakeNodes({1, 3, 2}, {5});
  EXPECT_EQ(editor.Text({1, 3, 1}), "8");
}

TEST_F(TableEditorTest, TheRedrawOfElementsRemovesTheStoredListing) {
  for (const char* const form : {"InpNODE", "InpELEM"}) {
    Write(ListingPath(), "listing\n");
    Open(form).RunRedrawStep();
    EXPECT_EQ(FileExists(ListingPath()), form == std::string("InpNODE")) << form;
  }
  ModelFile.clear();
  Write(DataPath + ProjectName + ".out", "of no model\n");
  Open("InpELEM").RunRedrawStep();
  EXPECT_TRUE(FileExists(DataPath + ProjectName + ".out"));
}

TEST_F(TableEditorTest, AnUnchangedFormFollowsTheHeaderByReadingAnew) {
  WriteTable("NODE", "1,0,0,4,4,0,30\n");
  TableEditor editor = Open("InpNODE");
  editor.Follow(kFrameWithRollers);
  EXPECT_EQ(editor.Text({1, 1, 7}), "30");
  EXPECT_EQ(editor.UnshownText(), "");
}

TEST_F(TableEditorTest, RowsOfCasesThatTheHeaderLostAreAskedAboutAndNotWritten) {
  TableEditor editor = Open("InpPLOD", kFrame);
  Fill(editor, "1\t5", 1);
  Fill(editor, "1\t6\r2\t7", 3);
  editor.Follow({kPlaneFrame, 2, false, false});
  EXPECT_EQ(editor.UnshownText(), "荷重ケースが範囲外のデータが 2 行あります");
  EXPECT_EQ(editor.Rows().size(), 1U) << "nor does the figure show them";
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(told, ElementsAre(HasSubstr("荷重ケースが範囲外のデータが 2 行あります")));
  EXPECT_EQ(Table("PLOD"), "(none)");
  editor.Follow(kFrame);
  EXPECT_EQ(editor.UnshownText(), "");
  editor.Follow({kPlaneFrame, 2, false, false});
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("PLOD"), "1,1,5\n");
}

TEST_F(TableEditorTest, AColumnThatTheHeaderLostIsAskedAboutBeforeItsTextsAreLost) {
  WriteTable("NODE", "1,0,0,4,4,0,30\n2,0,0,0,0,0,0\n");
  TableEditor editor = Open("InpNODE", kFrameWithRollers);
  editor.SetText({1, 1, 7}, "45");
  editor.SetText({1, 1, 4}, "1");
  editor.SetText({1, 1, 5}, "1");
  editor.Follow(kFrame);
  EXPECT_EQ(editor.UnshownText(), "表示できない項目のあるデータが 1 行あります");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_EQ(Table("NODE"), "1,0,0,4,4,0,30\n2,0,0,0,0,0,0\n");
  editor.Follow(kFrameWithRollers);
  EXPECT_EQ(editor.UnshownText(), "");
  EXPECT_EQ(editor.Text({1, 1, 7}), "45");
  editor.Follow(kFrame);
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "1,0,0,1,1,0\n2,0,0,0,0,0\n");
}

TEST_F(TableEditorTest, ARowIsBlankWhenItsShownCellsAre) {
  TableEditor editor = Open("InpNODE", kFrameWithRollers);
  Fill(editor, "\t\t\t\t\t\t30\r2\t0");
  editor.Follow(kFrame);
  EXPECT_FALSE(editor.FaultOf(1, 1));
  EXPECT_EQ(editor.UnshownText(), "") << "nothing of it was to be seen";
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(editor), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "2,0\n");
}

TEST_F(TableEditorTest, AChangedFormKeepsWhatWasTyped) {
  TableEditor editor = Open("InpPLOD", kFrame);
  Fill(editor, "1\t5", 3);
  editor.Follow({kPlaneFrame, 2, false, false});
  EXPECT_EQ(editor.PageCount(), 2);
  editor.Follow({kPlaneFrame, 5, false, true});
  EXPECT_EQ(editor.PageCount(), 5);
  EXPECT_EQ(editor.Text({3, 1, 2}), "5");
  EXPECT_EQ(editor.ColumnAt(2).unit, "(kN)");
}

}  // namespace
}  // namespace zorlan::test

// Every edit of a form can be undone, one step a user's action.
#include <random>

#include "forms/form_test.h"

namespace zorlan::test {
namespace {

using UndoTest = FormTest;

TEST_F(UndoTest, AStepIsOneActionOfTheUser) {
  TableEditor editor = Open("InpNODE");
  EXPECT_FALSE(editor.CanUndo());
  Fill(editor, "1\t2\r3\t4");
  editor.SetText({1, 1, 2}, "9");
  EXPECT_EQ(editor.Undo(), (CellPlace{1, 1, 2}));
  EXPECT_EQ(editor.Text({1, 1, 2}), "2");
  EXPECT_EQ(editor.Undo(), (CellPlace{1, 1, 1}));
  EXPECT_EQ(editor.Text({1, 2, 2}), "");
  EXPECT_FALSE(editor.CanUndo());
  editor.Redo();
  editor.Redo();
  EXPECT_EQ(editor.Text({1, 1, 2}), "9");
  EXPECT_FALSE(editor.CanRedo());
}

TEST_F(UndoTest, AnEditBehindAnUndoEndsTheWayForth) {
  TableEditor editor = Open("InpNODE");
  editor.SetText({1, 1, 1}, "1");
  editor.Undo();
  editor.SetText({1, 1, 1}, "2");
  EXPECT_FALSE(editor.CanRedo());
}

TEST_F(UndoTest, WhatChangesNothingIsNoStep) {
  TableEditor editor = Open("InpNODE");
  editor.SetText({1, 1, 1}, "");
  editor.Clear(1, {1, 1, 100, 6});
  EXPECT_FALSE(editor.CanUndo());
}

TEST_F(UndoTest, TheFactorOfANewRowGoesWithItsStep) {
  TableEditor editor = Open("InpELOD");
  editor.SetText({1, 1, 1}, "3");
  editor.Undo();
  EXPECT_EQ(editor.Text({1, 1, 5}), "");
}

TEST_F(UndoTest, RemovedGroupsComeBackWithTheirNodes) {
  WriteTable("DISP", "1,5\n2,6\n3,7\n");
  TableEditor editor = Open("InpDISP");
  editor.SetPageCount(1);
  EXPECT_EQ(editor.Cells().PageCount(), 1);
  editor.Undo();
  EXPECT_EQ(editor.Cells().PageCount(), 3);
  EXPECT_EQ(editor.Text({3, 1, 1}), "7");
}

TEST_F(UndoTest, RowsThatAreBlankAgainAreNoLongerInUse) {
  WriteTable("NODE", "1,0,0,0,0,0\n2,0,0,0,0,0\n");
  TableEditor editor = Open("InpNODE", kFrame);
  editor.SetText({1, 5000, 3}, "9");
  EXPECT_EQ(editor.Cells().LastRow(1), 5000);
  editor.Undo();
  EXPECT_EQ(editor.Cells().LastRow(1), 2);
  editor.Redo();
  editor.Clear(1, {5000, 1, 5000, 6});
  EXPECT_EQ(editor.Cells().LastRow(1), 2);
  editor.Undo();
  editor.DeleteRows(1, 3000, 6000);
  EXPECT_EQ(editor.Cells().LastRow(1), 2);
  editor.InsertRow(1, 1);
  EXPECT_EQ(editor.Cells().LastRow(1), 3);
  editor.DeleteRows(1, 2, 3);
  EXPECT_EQ(editor.Cells().LastRow(1), 0) << "the row that was inserted is blank";
  editor.Undo();
  EXPECT_EQ(editor.Text({1, 3, 1}), "2");
}

TEST_F(UndoTest, TheGridsLastRowThatDroppedOffComesBackAlone) {
  TableEditor editor = Open("InpNODE", kFrame);
  editor.SetText({1, kGridRows, 1}, "7");
  editor.InsertRow(1, 1);
  EXPECT_EQ(editor.Cells().LastRow(1), 0);
  editor.Undo();
  EXPECT_EQ(editor.Cells().LastRow(1), kGridRows);
  EXPECT_EQ(editor.Text({1, kGridRows, 1}), "7");
}

TEST_F(UndoTest, ARowWithCellsThatTheHeaderHidesStaysInUse) {
  WriteTable("NODE", "1,0,0,0,0,0,30\n");
  TableEditor editor = Open("InpNODE", kFrameWithRollers);
  editor.SetText({1, 1, 2}, "5");
  editor.Follow(kFrame);
  editor.Clear(1, {1, 1, 1, 6});
  editor.Follow(kFrameWithRollers);
  EXPECT_EQ(editor.Text({1, 1, 7}), "30");
}

/// One of all the edits, at random.
void EditAtRandom(TableEditor& editor, std::mt19937& random) {
  const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  const int page = pick(1, editor.Cells().PageCount());
  const int columns = editor.Cells().Columns();
  const auto row = [&] { return pick(0, 5) == 0 ? pick(kGridRows - 3, kGridRows) : pick(1, 12); };
  const CellPlace place{page, row(), pick(1, columns)};
  const CellRange range =
      RangeBetween(place, {page, std::min(place.row + pick(0, 4), kGridRows), pick(1, columns)});
  const std::string text = pick(0, 3) == 0 ? "" : std::to_string(pick(-9, 99));
  switch (pick(0, 9)) {
    case 0:
    case 1:
      return editor.SetText(place, text);
    case 2:
      return editor.Clear(page, range);
    case 3:
      editor.Paste(place, "1\t2\t3\r\n\t5\r\n" + text + "\t8\t9\r\n");
      return;
    case 4:
      return editor.InsertRow(page, place.row);
    case 5:
      return editor.DeleteRows(page, range.top, range.bottom);
    case 6:
      return editor.Add(page, range, pick(-3, 3) + 0.5);
    case 7:
      return editor.Assign(page, range, text);
    case 8:
      return editor.SetRow(page, place.row, {"1", text, "3"});
    default:
      if (editor.Form().pages == Pages::Groups) return editor.SetPageCount(pick(1, 4));
      editor.TakeNodes(place, {1, 2, 3});
  }
}

TEST_F(UndoTest, UndoingEverythingLeadsToTheStartAndRedoingToTheEnd) {
  WriteTable("ELOD", "1,1,-1,0,0,1,0\n3,2,-2,1,1,1,0\n");
  WriteTable("ELEM", "1,1,2,0,0,1\n2,2,3,0,0,1\n");
  WriteTable("DISP", "1,5,6\n2,7\n");
  constexpr unsigned kSeeds = 12;
  for (const char* const form : {"InpELOD", "InpELEM", "InpDISP"})
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
      SCOPED_TRACE(std::string(form) + " seed " + std::to_string(seed));
      std::mt19937 random(seed);
      TableEditor editor = Open(form, kFrame);
      const Grid start = editor.Cells();
      for (int edit = 0; edit < 60; ++edit) {
        if (edit % 7 == 6) editor.Undo();
        EditAtRandom(editor, random);
      }
      const Grid end = editor.Cells();
      int steps = 0;
      for (; editor.CanUndo(); ++steps) editor.Undo();
      EXPECT_TRUE(editor.Cells() == start);
      EXPECT_GT(steps, 20);
      while (editor.CanRedo()) editor.Redo();
      EXPECT_TRUE(editor.Cells() == end);
    }
}

}  // namespace
}  // namespace zorlan::test

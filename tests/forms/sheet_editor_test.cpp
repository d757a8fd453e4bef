// The table editor on a grid that isn't a model's table.
#include <gmock/gmock.h>

#include "forms/table_editor.h"

namespace zorlan {
namespace {

using testing::ElementsAre;

constexpr TableForm kForm = [] {
  TableForm form{};
  form.name = "frmEditKozaiTable";
  return form;
}();

TableEditor ThreeColumns(std::vector<GridRow> rows) {
  Column number;
  number.mask = kReal;
  TableEditor editor(kForm, {number, number, number});
  editor.SetRows(std::move(rows));
  return editor;
}
std::string Text(const TableEditor& editor) {
  return editor.CopyText(1, {1, 1, std::max(1, editor.Cells().LastRow(1)), 3});
}

TEST(SheetEditor, StartsUnchangedWithNothingToUndo) {
  TableEditor editor = ThreeColumns({{"1", "2", "3"}});
  EXPECT_FALSE(editor.Changed());
  EXPECT_FALSE(editor.CanUndo());
  EXPECT_EQ(Text(editor), "1\t2\t3");
}

TEST(SheetEditor, CopiedRowsGoInAsOneStep) {
  TableEditor editor = ThreeColumns({{"1"}, {"2"}});
  const Pasted pasted = editor.InsertCopied({1, 2, 2}, "8\t80\t800\r\n9\t90\r\n");
  EXPECT_EQ(Text(editor), "1\t\t\r\t8\t80\r\t9\t90\r2\t\t");
  EXPECT_EQ(pasted.range, (CellRange{2, 2, 3, 3}));
  EXPECT_EQ(pasted.lost, 1);
  editor.Undo();
  EXPECT_EQ(Text(editor), "1\t\t\r2\t\t");
  editor.Redo();
  EXPECT_EQ(Text(editor), "1\t\t\r\t8\t80\r\t9\t90\r2\t\t");
}

TEST(SheetEditor, CellsBehindTheLastColumnTravelWithTheirRow) {
  TableEditor editor = ThreeColumns({{"1"}, {"2", "", "", "hidden"}});
  editor.DeleteRows(1, 1, 1);
  EXPECT_THAT(editor.Cells().Row(1, 1), ElementsAre("2", "", "", "hidden"));
  editor.DeleteRows(1, 1, 1);
  editor.Undo();
  editor.InsertRow(1, 1);
  EXPECT_THAT(editor.Cells().Row(1, 2), ElementsAre("2", "", "", "hidden"));
}

TEST(SheetEditor, IsChangedUntilItIsSavedAndAgainBehindAnUndo) {
  TableEditor editor = ThreeColumns({{"1"}});
  editor.SetText({1, 1, 1}, "5");
  EXPECT_TRUE(editor.Changed());
  editor.MarkSaved();
  EXPECT_FALSE(editor.Changed());
  editor.Undo();
  EXPECT_TRUE(editor.Changed());
}

}  // namespace
}  // namespace zorlan

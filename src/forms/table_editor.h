// The table editor: one value for a table form. It loads the table through TableIO, takes the user's edits as
// steps that can be undone one by one, checks the rows and commits them. The window lends a grid and a text
// box and asks this value for everything else.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "forms/grid.h"
#include "forms/table_form.h"
#include "model/table_file.h"

namespace zorlan {

/// What a table on disk holds that its form can't show. It is lost with the form's next commit.
struct Unshown {
  int rows = 0;    // below the grid's last row
  int cells = 0;   // rows with cells behind the last column
  int strays = 0;  // rows of a load case or group out of range
  bool Any() const { return rows + cells + strays > 0; }
};
/// In the user's words, for a line above the grid; empty if there is nothing.
std::string UnshownText(const Unshown& unshown);

/// Why a row was refused, and where the cursor goes.
struct RowFault {
  CellPlace place;
  std::string message;  // without the "！！！" of its box
};

class TableEditor {
 public:
  TableEditor(const TableForm& form, const FormSetting& setting);

  const TableForm& Form() const { return *form_; }
  const FormSetting& Setting() const { return setting_; }
  const std::vector<Column>& Columns() const { return columns_; }
  const Column& ColumnAt(int column) const { return columns_[static_cast<std::size_t>(column - 1)]; }
  const Grid& Cells() const { return grid_; }
  const std::string& Text(const CellPlace& place) const { return grid_.Cell(place); }
  bool Changed() const { return changed_; }
  /// A key has passed the filter.
  void MarkChanged() { changed_ = true; }
  const Unshown& NotShown() const { return unshown_; }

  /// Reads the table from the work folder. Throws FileFault.
  void Load();
  /// The rows as the table's file would hold them, unchecked: for a figure while typing.
  std::vector<TableRow> Rows() const;

  /// Another header of the model in hand: header, masks, checks and the number of case pages follow; pages
  /// that hold rows stay.
  void Follow(const FormSetting& setting);

  // Edits: each is one step of undo.
  void SetText(const CellPlace& place, std::string_view text);
  void Clear(int page, const CellRange& range);
  /// The text of a clipboard goes in from this cell on; answers the cells it covered.
  CellRange Paste(const CellPlace& place, std::string_view text);
  void InsertRow(int page, int row);
  void DeleteRows(int page, int first, int last);
  void Add(int page, const CellRange& range, double number);
  void Assign(int page, const CellRange& range, std::string_view text);
  /// Several cells of one row at once, from column 1 on.
  void SetRow(int page, int row, const GridRow& cells);
  /// Adds or removes pages at the end.
  void SetPageCount(int count);

  bool CanUndo() const { return next_ > 0; }
  bool CanRedo() const { return next_ < steps_.size(); }
  /// Walks one step back or forth; answers the cell that it changed.
  std::optional<CellPlace> Undo();
  std::optional<CellPlace> Redo();

  /// The cells as text for the clipboard: tab between cells, CR between rows.
  std::string CopyText(int page, const CellRange& range) const;

  /// Tests the rows of all pages as a commit does, without its questions and fixes.
  std::optional<RowFault> FindFault() const;
  /// The failing row nearest to a place, below it or above.
  std::optional<RowFault> NearestFault(const CellPlace& place) const;

  /// Checks the rows and writes the table if something was changed. What fails is told, and `fault` says
  /// where; nothing is written then. Throws FileFault; the table is as it was.
  bool Commit(std::optional<CellPlace>& fault);

  /// Nodes picked in a figure become elements from this row on, each from one node to the next; only in
  /// InpELEM. Too many for the rows is told.
  void TakePickedNodes(const CellPlace& place, const std::vector<int>& nodes);

 private:
  struct CellChange {
    CellPlace place;
    std::string before, after;
  };
  struct RowInserted {
    int page, row;
    GridRow dropped;  // the grid's last row
  };
  struct RowRemoved {
    int page, row;
    GridRow removed;
  };
  struct PageAdded {};
  struct PageRemoved {
    std::vector<GridRow> rows;
  };
  using Change = std::variant<CellChange, RowInserted, RowRemoved, PageAdded, PageRemoved>;
  using Step = std::vector<Change>;

  void Apply(const Change& change);
  void Revert(const Change& change);
  void Change_(Step& step, const CellPlace& place, std::string text);
  void Finish(Step step);
  void FillNewRows(Step& step);

  const TableForm* form_;
  FormSetting setting_;
  std::vector<Column> columns_;
  Grid grid_;
  Unshown unshown_;
  bool changed_ = false;
  std::vector<Step> steps_;
  std::size_t next_ = 0;  // the step that Redo would walk
};

}  // namespace zorlan

// The table editor: one value for a table form. It loads the table through TableIO, takes the user's edits as
// steps that can be undone one by one, checks the rows and commits them. The window lends a grid and a text
// box and asks this value for everything else.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "forms/grid.h"
#include "forms/table_form.h"
#include "model/table_file.h"

namespace zorlan {

inline constexpr int kMaxGroups = kMaxTableRows;

/// Why a row was refused, and where the cursor goes.
struct RowFault {
  CellPlace place;
  std::string message;  // without the "！！！" of its box
};

/// What a paste has covered, and how many cells of the clipboard fell outside the grid.
struct Pasted {
  CellRange range;
  int lost = 0;
};

/// How a commit ended: nothing was to be written, the table is written, or the form has to stay.
enum class CommitEnd { Nothing, Written, Refused };

class TableEditor {
 public:
  TableEditor(const TableForm& form, const FormSetting& setting);

  /// A grid of one page that isn't a model's table: its rows come and go through SetRows and Cells. `form`
  /// outlives the editor; of it the name and caption count.
  TableEditor(const TableForm& form, std::vector<Column> columns);
  /// Puts rows in place of all; nothing is changed or can be undone then.
  void SetRows(std::vector<GridRow> rows);
  /// The rows as they stand were saved.
  void MarkSaved() { changed_ = false; }

  const TableForm& Form() const { return *form_; }
  const FormSetting& Setting() const { return setting_; }
  const std::vector<Column>& Columns() const { return columns_; }
  const Column& ColumnAt(int column) const { return columns_[static_cast<std::size_t>(column - 1)]; }
  const Grid& Cells() const { return grid_; }
  /// The form's pages: one for each load case or group, or the one. Rows of cases that the header has lost
  /// stay in the grid behind them, and are there again once the header has the case.
  int PageCount() const;
  const std::string& Text(const CellPlace& place) const { return grid_.Cell(place); }
  RowView View(int page, int row) const { return {row, grid_.Row(page, row), setting_}; }
  /// The last row of a page with a text in its key column; 0 if there is none.
  int LastKeyRow(int page) const;
  bool Changed() const { return changed_; }
  /// A key has passed the filter.
  void MarkChanged() { changed_ = true; }
  /// What a commit would lose, in the user's words: what the table on disk holds beyond the grid, and what a
  /// changed header has hidden; empty if there is nothing.
  std::string UnshownText() const;

  /// Reads the table from the work folder. Throws FileFault.
  void Load();
  /// The rows as the table's file would hold them, unchecked: for a figure while typing.
  std::vector<TableRow> Rows() const;
  /// The header of the model in hand has changed: columns, checks and case pages follow. An unchanged form
  /// is read anew, a changed one keeps what was typed. Throws FileFault.
  void Follow(const FormSetting& setting);

  // Edits, each one step of undo.
  void SetText(const CellPlace& place, std::string_view text);
  void Clear(int page, const CellRange& range);
  /// The text of a clipboard goes in from this cell on.
  Pasted Paste(const CellPlace& place, std::string_view text);
  void InsertRow(int page, int row);
  /// Rows for the text of a clipboard go in at this cell's row, and the text into them from this cell on.
  Pasted InsertCopied(const CellPlace& place, std::string_view text);
  void DeleteRows(int page, int first, int last);
  /// Adds to the value of each cell, a blank one counting as 0; names stay.
  void Add(int page, const CellRange& range, double number);
  void Assign(int page, const CellRange& range, std::string_view text);
  /// The cells of one row at once, from column 1 on.
  void SetRow(int page, int row, const GridRow& cells);
  /// Adds pages at the end, or removes them with their rows.
  void SetPageCount(int count);
  /// Nodes picked in a figure go into the element table, end I, end J, and on in the next row; the first into
  /// the first end from this row on that is blank. Too many for the rows is told. Answers the cell of the
  /// last.
  CellPlace TakeNodes(const CellPlace& place, const std::vector<int>& nodes);

  bool CanUndo() const { return next_ > 0; }
  bool CanRedo() const { return next_ < steps_.size(); }
  /// Walks one step back or forth; answers the cell where it began.
  std::optional<CellPlace> Undo();
  std::optional<CellPlace> Redo();

  /// The cells as text for the clipboard: tab between cells, CR between rows.
  std::string CopyText(int page, const CellRange& range) const;

  /// Tests one row as a commit does, without its questions and fixes. A blank row passes.
  std::optional<RowFault> FaultOf(int page, int row) const;
  /// The row nearest to a place, on its page first, that fails or that no analysis would read.
  std::optional<RowFault> NearestFault(const CellPlace& place) const;

  /// Checks the rows and writes the table if something was changed. What fails is told, and `fault` says
  /// where; nothing is written then. `show` is called with the place before a box speaks of it. Throws
  /// FileFault; the table is as it was.
  using ShowPlace = std::function<void(const CellPlace&)>;
  CommitEnd Commit(
      std::optional<CellPlace>& fault, const ShowPlace& show = [](const CellPlace&) {});

  /// What a redraw does to the model's files, by button and behind a commit. Throws FileFault.
  void RunRedrawStep() const;

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
  /// What the form can't show, in rows.
  struct Unshown {
    int rows = 0;    // below the grid's last row
    int cells = 0;   // with cells behind the last column
    int strays = 0;  // of a load case or group out of range
  };

  void Redo(const Change& change);
  void Undo(const Change& change);
  CellPlace PlaceOf(const Change& change) const;
  /// The text of a clipboard as part of a step.
  Pasted Paste(Step& step, const CellPlace& place, std::string_view text);
  /// Changes a cell as part of a step.
  void Put(Step& step, const CellPlace& place, std::string text);
  /// Ends a step: rows that were blank get the text of new rows, and the step can be undone.
  void Finish(Step step);
  void FillNewRow(Step& step, int page, int row);

  /// Whether no shown cell of the row holds a text.
  bool IsBlank(int page, int row) const;
  /// What the table on disk held beyond the grid, and the rows that the header has hidden since.
  Unshown AllUnshown() const;
  void LoadRow(const TableRow& row);
  int PagesToLoad() const;
  void AppendRow(int page, GridRow cells);
  std::vector<TableRow> RowsOfPage(int page) const;

  /// Why a key can't be; what would not come back from the table's file as it was typed. Empty if sound.
  std::string_view KeyFault(const RowView& row) const;
  std::string TextFault(int column, std::string_view text) const;
  /// A row that ends before the fields that the deck's reader asks for: the analysis would go without it.
  std::optional<RowFault> ShortRow(int page, int row) const;
  /// Checks the rows of a page down to the last with a key, fixes and asks as the form wants.
  std::optional<RowFault> CheckPage(int page, Step& fixes, const ShowPlace& show);
  /// The first row with texts below the last with a key: a commit doesn't reach it.
  std::optional<CellPlace> KeylessRow() const;
  /// Asks about the rows that are too short; `fault` is the first with No.
  bool AgreesToShortRows(std::optional<CellPlace>& fault, const ShowPlace& show) const;
  /// The row of a place in the user's words: "ケース 1 の 3行目".
  std::string RowName(const CellPlace& place) const;
  /// Asks about everything that a commit would lose; `fault` says where the cursor goes.
  bool AgreesToLoss(std::optional<CellPlace>& fault, const ShowPlace& show) const;

  const TableForm* form_;
  FormSetting setting_;
  std::vector<Column> columns_;
  Grid grid_;
  Unshown unshown_;  // on disk alone
  // Texts that the table came with, by column, that aren't numbers in full, such as "12kN": the deck's reader
  // takes the number in front, so they hold up no commit.
  std::set<std::pair<int, std::string>> foreign_;
  bool changed_ = false;
  std::vector<CellPlace> newRows_;  // rows that were blank before the step under way
  std::vector<Step> steps_;
  std::size_t next_ = 0;  // the step that Redo would walk
};

}  // namespace zorlan

// The grid of a table form as a value: pages of 10000 rows of text cells, of which only those in use take
// room, and the changes that undo and redo walk over.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace zorlan {

inline constexpr int kGridRows = 10000;

/// A cell; all three count from 1.
struct CellPlace {
  int page = 1, row = 1, column = 1;
  bool operator==(const CellPlace&) const = default;
};

/// A rectangle of cells of one page, both corners included.
struct CellRange {
  int top = 1, left = 1, bottom = 1, right = 1;
  bool operator==(const CellRange&) const = default;
};

/// The rectangle between two cells, whichever way it was dragged.
CellRange RangeBetween(const CellPlace& a, const CellPlace& b);

using GridRow = std::vector<std::string>;  // cells from column 1 on; missing ones are blank

class Grid {
 public:
  explicit Grid(int columns = 1, int pages = 1)
      : columns_(columns), pages_(static_cast<std::size_t>(pages)) {}

  int Columns() const { return columns_; }
  int PageCount() const { return static_cast<int>(pages_.size()); }
  bool Holds(const CellPlace& place) const;

  /// The text of a cell; empty for a blank one and for one outside.
  const std::string& Cell(const CellPlace& place) const;
  const GridRow& Row(int page, int row) const;
  /// The last row of a page that takes room: no row below it holds a text, and behind an edit it holds one
  /// itself.
  int LastRow(int page) const;

  void SetColumns(int columns) { columns_ = columns; }
  void SetCell(const CellPlace& place, std::string text);
  /// A row goes in, those below move down; answers the grid's last row, which drops off.
  GridRow InsertRow(int page, int row, GridRow inserted = {});
  /// A row goes, those below move up, and this one comes in as the last.
  GridRow RemoveRow(int page, int row, GridRow last = {});
  /// A row comes in below the last that takes room.
  void AppendRow(int page, GridRow row) { At(page).push_back(std::move(row)); }
  void AddPage(std::vector<GridRow> rows = {}) { pages_.push_back(std::move(rows)); }
  std::vector<GridRow> RemoveLastPage();

  bool operator==(const Grid& other) const;

 private:
  std::vector<GridRow>& At(int page) { return pages_[static_cast<std::size_t>(page - 1)]; }
  const std::vector<GridRow>& At(int page) const { return pages_[static_cast<std::size_t>(page - 1)]; }

  int columns_;
  std::vector<std::vector<GridRow>> pages_;
};

}  // namespace zorlan

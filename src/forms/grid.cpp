#include "forms/grid.h"

#include <algorithm>
#include <utility>

namespace zorlan {
namespace {

const std::string kBlank;
const GridRow kBlankRow;

std::size_t Index(int number) {
  return static_cast<std::size_t>(number - 1);
}

/// Takes off the rows at the end that hold nothing any more, hidden columns included.
void DropBlankEnd(std::vector<GridRow>& rows) {
  const auto blank = [](const std::string& cell) { return cell.empty(); };
  while (!rows.empty() && std::ranges::all_of(rows.back(), blank)) rows.pop_back();
}

}  // namespace

CellRange RangeBetween(const CellPlace& a, const CellPlace& b) {
  return {std::min(a.row, b.row), std::min(a.column, b.column), std::max(a.row, b.row),
          std::max(a.column, b.column)};
}

bool Grid::Holds(const CellPlace& place) const {
  return place.page >= 1 && place.page <= PageCount() && place.row >= 1 && place.row <= kGridRows &&
         place.column >= 1 && place.column <= columns_;
}

const std::string& Grid::Cell(const CellPlace& place) const {
  if (!Holds(place)) return kBlank;
  const GridRow& row = Row(place.page, place.row);
  return Index(place.column) < row.size() ? row[Index(place.column)] : kBlank;
}

const GridRow& Grid::Row(int page, int row) const {
  return Index(row) < At(page).size() ? At(page)[Index(row)] : kBlankRow;
}

int Grid::LastRow(int page) const {
  return static_cast<int>(At(page).size());
}

void Grid::SetCell(const CellPlace& place, std::string text) {
  std::vector<GridRow>& rows = At(place.page);
  if (Index(place.row) >= rows.size()) {
    if (text.empty()) return;
    rows.resize(Index(place.row) + 1);
  }
  GridRow& row = rows[Index(place.row)];
  if (Index(place.column) >= row.size()) {
    if (text.empty()) return;
    row.resize(Index(place.column) + 1);
  }
  row[Index(place.column)] = std::move(text);
  DropBlankEnd(rows);
}

GridRow Grid::InsertRow(int page, int row, GridRow inserted) {
  std::vector<GridRow>& rows = At(page);
  if (Index(row) >= rows.size()) {
    if (inserted.empty()) return {};
    rows.resize(Index(row));
  }
  rows.insert(rows.begin() + (row - 1), std::move(inserted));
  if (rows.size() <= kGridRows) return {};
  GridRow dropped = std::move(rows.back());
  rows.pop_back();
  DropBlankEnd(rows);
  return dropped;
}

GridRow Grid::RemoveRow(int page, int row, GridRow last) {
  std::vector<GridRow>& rows = At(page);
  GridRow removed;
  if (Index(row) < rows.size()) {
    removed = std::move(rows[Index(row)]);
    rows.erase(rows.begin() + (row - 1));
  }
  if (!last.empty()) {
    rows.resize(kGridRows);
    rows.back() = std::move(last);
  }
  DropBlankEnd(rows);
  return removed;
}

std::vector<GridRow> Grid::RemoveLastPage() {
  std::vector<GridRow> rows = std::move(pages_.back());
  pages_.pop_back();
  return rows;
}

bool Grid::operator==(const Grid& other) const {
  if (columns_ != other.columns_ || PageCount() != other.PageCount()) return false;
  for (int page = 1; page <= PageCount(); ++page)
    for (int row = std::max(LastRow(page), other.LastRow(page)); row >= 1; --row)
      for (int column = 1; column <= columns_; ++column)
        if (Cell({page, row, column}) != other.Cell({page, row, column})) return false;
  return true;
}

}  // namespace zorlan

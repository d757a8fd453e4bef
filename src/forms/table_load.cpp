// A table between its file and the grid of its form.
#include <algorithm>
#include <climits>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "forms/table_editor.h"

namespace zorlan {
namespace {

/// The number in a page field; 0 for what can be none.
int PageNumber(const TableRow& row) {
  const double number = ReadReal(row.cells.front());
  return number >= 1 && number <= INT16_MAX ? static_cast<int>(number) : 0;
}

/// Whether a cell says something: a 0 in a cell that isn't shown is no loss.
bool SaysSomething(std::string_view cell) {
  const std::string_view text = NoSpc(cell);
  return text.find_first_not_of("0.-") != std::string_view::npos;
}

}  // namespace

int TableEditor::PagesToLoad() const {
  if (form_->pages == Pages::LoadCases) return std::max(1, setting_.maxLoadCase);
  int pages = 1;
  if (form_->pages == Pages::Groups)
    for (int r = 0; r < TableRowCount; ++r)
      if (const int group = PageNumber(TableRows[static_cast<std::size_t>(r)]); group <= kMaxGroups)
        pages = std::max(pages, group);
  return pages;
}

void TableEditor::AppendRow(int page, GridRow cells) {
  const int row = grid_.LastRow(page) + 1;
  if (row > kGridRows) {
    ++unshown_.rows;
    return;
  }
  for (std::size_t i = 0; i < std::min(cells.size(), columns_.size()); ++i)
    if (const int column = static_cast<int>(i) + 1;
        columns_[i].IsNumber() && !TextFault(column, cells[i]).empty())
      foreign_.emplace(column, cells[i]);
  grid_.AppendRow(page, std::move(cells));
}

void TableEditor::LoadRow(const TableRow& row) {
  int page = 1;
  std::size_t first = 0;
  if (form_->pages != Pages::None) {
    page = PageNumber(row);
    first = 1;
    if (page < 1 || page > grid_.PageCount()) {
      ++unshown_.strays;
      return;
    }
  }
  if (form_->spreads) {
    for (std::size_t i = first; i < row.cells.size(); ++i)
      if (const std::string_view cell = NoSpc(row.cells[i]); !cell.empty())
        AppendRow(page, {std::string(cell)});
    return;
  }
  GridRow cells;
  bool more = false;
  for (std::size_t i = first; i < row.cells.size(); ++i)
    if (i - first < columns_.size())
      cells.emplace_back(NoSpc(row.cells[i]));
    else
      more = more || SaysSomething(row.cells[i]);
  if (more) ++unshown_.cells;
  AppendRow(page, std::move(cells));
}

void TableEditor::Load() {
  TableIO(/*write=*/false, TableKey(*form_));
  grid_ = Grid(static_cast<int>(columns_.size()), PagesToLoad());
  unshown_ = {};
  foreign_.clear();
  for (int r = 0; r < TableRowCount; ++r) LoadRow(TableRows[static_cast<std::size_t>(r)]);
  changed_ = false;
  steps_.clear();
  next_ = 0;
}

void TableEditor::Follow(const FormSetting& setting) {
  if (setting == setting_) return;
  setting_ = setting;
  columns_ = ColumnsOf(*form_, setting);
  grid_.SetColumns(static_cast<int>(columns_.size()));
  if (!changed_) {
    Load();
    return;
  }
  if (form_->pages == Pages::LoadCases)
    while (grid_.PageCount() < setting.maxLoadCase) grid_.AddPage();
}

std::vector<TableRow> TableEditor::RowsOfPage(int page) const {
  std::vector<TableRow> rows;
  const std::string key = TableKey(*form_);
  const int last = LastKeyRow(page);
  for (int r = 1; r <= last; ++r) {
    const RowView view = View(page, r);
    int used = static_cast<int>(columns_.size());
    while (used > 0 && view.Blank(used)) --used;
    if (used == 0) continue;
    TableRow row{key, {}};
    if (form_->pages != Pages::None) row.cells.push_back(std::to_string(page));
    for (int column = 1; column <= used; ++column)
      row.cells.emplace_back(view.Blank(column) ? "0" : view.Text(column));
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<TableRow> TableEditor::Rows() const {
  std::vector<TableRow> rows;
  for (int page = 1; page <= PageCount(); ++page)
    std::ranges::move(RowsOfPage(page), std::back_inserter(rows));
  return rows;
}

TableEditor::Unshown TableEditor::AllUnshown() const {
  Unshown all = unshown_;
  for (int page = 1; page <= grid_.PageCount(); ++page)
    for (int row = 1; row <= grid_.LastRow(page); ++row) {
      if (IsBlank(page, row)) continue;
      const GridRow& cells = grid_.Row(page, row);
      if (page > PageCount())
        ++all.strays;
      else if (cells.size() > columns_.size() &&
               std::any_of(cells.begin() + std::ssize(columns_), cells.end(), SaysSomething))
        ++all.cells;
    }
  return all;
}

std::string TableEditor::UnshownText() const {
  const Unshown unshown = AllUnshown();
  std::string text;
  const auto say = [&](int count, std::string_view what) {
    if (count == 0) return;
    if (!text.empty()) text += "、";
    text.append(what).append("が ").append(std::to_string(count)).append(" 行");
  };
  const bool groups = form_->pages == Pages::Groups;
  say(unshown.strays, groups ? "グループ番号が範囲外のデータ" : "荷重ケースが範囲外のデータ");
  say(unshown.cells, "表示できない項目のあるデータ");
  say(unshown.rows, std::to_string(kGridRows) + " 行に収まらないデータ");
  return text.empty() ? text : text + "あります";
}

}  // namespace zorlan

#include "forms/table_editor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "forms/clipboard_text.h"
#include "forms/typing.h"

namespace zorlan {
namespace {

template <class... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};

}  // namespace

TableEditor::TableEditor(const TableForm& form, const FormSetting& setting)
    : form_(&form),
      setting_(setting),
      columns_(ColumnsOf(form, setting)),
      grid_(static_cast<int>(columns_.size()), form.pages == Pages::LoadCases ? setting.maxLoadCase : 1) {}

TableEditor::TableEditor(const TableForm& form, std::vector<Column> columns)
    : form_(&form), columns_(std::move(columns)), grid_(static_cast<int>(columns_.size())) {}

void TableEditor::SetRows(std::vector<GridRow> rows) {
  grid_ = Grid(static_cast<int>(columns_.size()));
  for (GridRow& row : rows) grid_.AppendRow(1, std::move(row));
  steps_.clear();
  next_ = 0;
  changed_ = false;
}

int TableEditor::PageCount() const {
  const int pages = grid_.PageCount();
  return form_->pages == Pages::LoadCases ? std::min(pages, std::max(1, setting_.maxLoadCase)) : pages;
}

bool TableEditor::IsBlank(int page, int row) const {
  const RowView view = View(page, row);
  for (int column = 1; column <= grid_.Columns(); ++column)
    if (!view.Blank(column)) return false;
  return true;
}

int TableEditor::LastKeyRow(int page) const {
  int row = grid_.LastRow(page);
  while (row > 0 && View(page, row).Blank(1)) --row;
  return row;
}

void TableEditor::Put(Step& step, const CellPlace& place, std::string text) {
  const std::string& before = grid_.Cell(place);
  if (!grid_.Holds(place) || before == text) return;
  if (form_->newRow.column != 0 && IsBlank(place.page, place.row)) newRows_.push_back(place);
  step.push_back(CellChange{place, before, text});
  grid_.SetCell(place, std::move(text));
}

void TableEditor::FillNewRow(Step& step, int page, int row) {
  const NewRowText& text = form_->newRow;
  if (!IsBlank(page, row) && View(page, row).Blank(text.column))
    Put(step, {page, row, text.column}, std::string(text.text));
}

void TableEditor::Finish(Step step) {
  for (const CellPlace& place : std::exchange(newRows_, {})) FillNewRow(step, place.page, place.row);
  if (step.empty()) return;
  steps_.resize(next_);
  steps_.push_back(std::move(step));
  ++next_;
  changed_ = true;
}

void TableEditor::Redo(const Change& change) {
  std::visit(Overloaded{[&](const CellChange& c) { grid_.SetCell(c.place, c.after); },
                        [&](const RowInserted& c) { grid_.InsertRow(c.page, c.row); },
                        [&](const RowRemoved& c) { grid_.RemoveRow(c.page, c.row); },
                        [&](const PageAdded&) { grid_.AddPage(); },
                        [&](const PageRemoved&) { grid_.RemoveLastPage(); }},
             change);
}

void TableEditor::Undo(const Change& change) {
  std::visit(Overloaded{[&](const CellChange& c) { grid_.SetCell(c.place, c.before); },
                        [&](const RowInserted& c) { grid_.RemoveRow(c.page, c.row, c.dropped); },
                        [&](const RowRemoved& c) { grid_.InsertRow(c.page, c.row, c.removed); },
                        [&](const PageAdded&) { grid_.RemoveLastPage(); },
                        [&](const PageRemoved& c) { grid_.AddPage(c.rows); }},
             change);
}

CellPlace TableEditor::PlaceOf(const Change& change) const {
  return std::visit(Overloaded{[](const CellChange& c) { return c.place; },
                               [](const RowInserted& c) {
                                 return CellPlace{c.page, c.row, 1};
                               },
                               [](const RowRemoved& c) {
                                 return CellPlace{c.page, c.row, 1};
                               },
                               [&](const auto&) {
                                 return CellPlace{grid_.PageCount(), 1, 1};
                               }},
                    change);
}

std::optional<CellPlace> TableEditor::Undo() {
  if (!CanUndo()) return std::nullopt;
  const Step& step = steps_[--next_];
  for (auto change = step.rbegin(); change != step.rend(); ++change) Undo(*change);
  changed_ = true;
  return PlaceOf(step.front());
}

std::optional<CellPlace> TableEditor::Redo() {
  if (!CanRedo()) return std::nullopt;
  const Step& step = steps_[next_++];
  for (const Change& change : step) Redo(change);
  changed_ = true;
  return PlaceOf(step.front());
}

void TableEditor::SetText(const CellPlace& place, std::string_view text) {
  Step step;
  Put(step, place, std::string(NoSpc(text)));
  Finish(std::move(step));
}

void TableEditor::Clear(int page, const CellRange& range) {
  Assign(page, range, {});
}

Pasted TableEditor::Paste(const CellPlace& place, std::string_view text) {
  Step step;
  const Pasted pasted = Paste(step, place, text);
  Finish(std::move(step));
  return pasted;
}

Pasted TableEditor::InsertCopied(const CellPlace& place, std::string_view text) {
  Step step;
  for (std::size_t rows = ClipboardCells(text).size(); rows > 0; --rows)
    step.push_back(RowInserted{place.page, place.row, grid_.InsertRow(place.page, place.row)});
  const Pasted pasted = Paste(step, place, text);
  Finish(std::move(step));
  return pasted;
}

Pasted TableEditor::Paste(Step& step, const CellPlace& place, std::string_view text) {
  Pasted pasted{{place.row, place.column, place.row, place.column}};
  CellPlace at = place;
  for (const std::vector<std::string>& cells : ClipboardCells(text)) {
    at.column = place.column;
    for (const std::string& cell : cells) {
      if (grid_.Holds(at)) {
        Put(step, at, PastedCell(ColumnAt(at.column).mask, cell));
        pasted.range.bottom = at.row;
        pasted.range.right = std::max(pasted.range.right, at.column);
      } else if (!NoSpc(cell).empty()) {
        ++pasted.lost;
      }
      ++at.column;
    }
    ++at.row;
  }
  return pasted;
}

void TableEditor::InsertRow(int page, int row) {
  Finish({RowInserted{page, row, grid_.InsertRow(page, row)}});
}

void TableEditor::DeleteRows(int page, int first, int last) {
  if (first > last) std::swap(first, last);
  Step step;
  for (int row = first; row <= last; ++row)
    step.push_back(RowRemoved{page, first, grid_.RemoveRow(page, first)});
  Finish(std::move(step));
}

void TableEditor::Add(int page, const CellRange& range, double number) {
  Step step;
  for (int row = range.top; row <= range.bottom; ++row)
    for (int column = range.left; column <= range.right; ++column) {
      const CellPlace place{page, row, column};
      const double sum = ReadReal(grid_.Cell(place)) + number;
      if (ColumnAt(column).IsNumber() && std::isfinite(sum)) Put(step, place, RealText(sum));
    }
  Finish(std::move(step));
  changed_ = true;
}

void TableEditor::Assign(int page, const CellRange& range, std::string_view text) {
  Step step;
  for (int row = range.top; row <= range.bottom; ++row)
    for (int column = range.left; column <= range.right; ++column)
      Put(step, {page, row, column}, std::string(text));
  Finish(std::move(step));
  changed_ = true;
}

void TableEditor::SetRow(int page, int row, const GridRow& cells) {
  Step step;
  for (std::size_t i = 0; i < cells.size(); ++i)
    Put(step, {page, row, static_cast<int>(i) + 1}, std::string(NoSpc(cells[i])));
  Finish(std::move(step));
}

void TableEditor::SetPageCount(int count) {
  Step step;
  for (; grid_.PageCount() < count; step.push_back(PageAdded{})) grid_.AddPage();
  while (grid_.PageCount() > std::max(count, 1)) step.push_back(PageRemoved{grid_.RemoveLastPage()});
  Finish(std::move(step));
}

CellPlace TableEditor::TakeNodes(const CellPlace& place, const std::vector<int>& nodes) {
  constexpr int kEndI = 2, kEndJ = 3;
  int number = 0;
  for (int row = 1; row <= grid_.LastRow(place.page); ++row)
    number = std::max(number, static_cast<int>(std::clamp(View(place.page, row).Real(1), 0.0, 99999.0)));
  Step step;
  CellPlace at{place.page, place.row, kEndI}, last = place;
  for (const int node : nodes) {
    while (at.row <= kGridRows && !View(at.page, at.row).Blank(at.column))
      at = at.column == kEndI ? CellPlace{at.page, at.row, kEndJ} : CellPlace{at.page, at.row + 1, kEndI};
    if (at.row > kGridRows) {
      Finish(std::move(step));
      Tell("選択された節点が多く、全ての節点を定義することが出来ません！！！");
      return last;
    }
    if (View(at.page, at.row).Blank(1)) Put(step, {at.page, at.row, 1}, std::to_string(++number));
    Put(step, at, std::to_string(node));
    last = at;
  }
  Finish(std::move(step));
  return last;
}

std::string TableEditor::CopyText(int page, const CellRange& range) const {
  std::string text;
  for (int row = range.top; row <= range.bottom; ++row) {
    if (row > range.top) text += '\r';
    for (int column = range.left; column <= range.right; ++column) {
      if (column > range.left) text += '\t';
      text += grid_.Cell({page, row, column});
    }
  }
  return text;
}

}  // namespace zorlan

#include "forms/table_form.h"

#include <algorithm>

#include "base/cp932.h"
#include "base/number.h"
#include "base/text.h"
#include "forms/help_pages.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// A unit as it stands in a header cell, by the input units.
struct UnitTexts {
  std::string_view gravitational, si;
};
UnitTexts TextsOf(HeaderUnit unit) {
  switch (unit) {
    case HeaderUnit::None:
      return {"", ""};
    case HeaderUnit::Force:
      return {"(t)   ", "(kN)  "};
    case HeaderUnit::Moment:
      return {"(t･m) ", "(kN･m)"};
    case HeaderUnit::Spring:
      return {"(t/cm) ", "(kN/mm)"};
    case HeaderUnit::RotarySpring:
      return {"(t･cm/rad) ", "(kN･mm/rad)"};
    case HeaderUnit::Length:
      return {"(cm)", "(cm)"};
    case HeaderUnit::Angle:
      return {"(rad) ", "(rad) "};
  }
  return {"", ""};
}

constexpr std::string_view kWideBlank = "　";

/// The text without half-width and full-width blanks around it.
std::string_view Bare(std::string_view text) {
  for (;;) {
    text = NoSpc(text);
    if (text.starts_with(kWideBlank))
      text.remove_prefix(kWideBlank.size());
    else if (text.ends_with(kWideBlank))
      text.remove_suffix(kWideBlank.size());
    else
      return text;
  }
}

/// The text without the blanks that put it into columns: "自　　由   ：０" -> "自由：０".
std::string WithoutColumns(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    std::string_view behind = text;
    int blanks = 0, wide = 0;
    for (;; ++blanks) {
      const bool isWide = behind.starts_with(kWideBlank);
      if (!isWide && !behind.starts_with(' ')) break;
      behind.remove_prefix(isWide ? kWideBlank.size() : 1);
      wide += isWide ? 1 : 0;
    }
    const bool beforeSign = behind.starts_with("：") || behind.starts_with(':') || behind.starts_with(',');
    if (blanks > 1) {
      if (wide == 0 && !beforeSign) plain += ' ';
      text = behind;
    } else {
      plain += text.front();
      text.remove_prefix(1);
    }
  }
  return plain;
}

/// A column from its header cell, such as ">Ｅ(t/cm2) ".
Column ColumnOf(std::string_view cell, std::string_view mask) {
  Column column;
  column.mask = mask;
  column.width = static_cast<int>(HalfWidth(cell));
  if (cell.starts_with('>')) {
    column.right = true;
    cell.remove_prefix(1);
    --column.width;
  }
  const std::size_t unit = cell.find('(');
  column.title = Bare(cell.substr(0, unit));
  if (unit != std::string_view::npos) column.unit = Bare(cell.substr(unit));
  return column;
}

}  // namespace

FormSetting CurrentFormSetting() {
  // A deck may hold any number; a form has at least one page, and no more than anyone can leaf through.
  const int loadCases = std::clamp<int>(InpModel.MaxLoadCase, 1, kMaxTableRows);
  return {InpModel.ModelCode, loadCases, InpModel.RollerFlag == 1, IsSI(InpModel.InUnit)};
}

bool Applies(FormCase when, const FormSetting& setting) {
  const bool grid = setting.modelCode == kPlaneGrid;
  switch (when) {
    case FormCase::Always:
      return true;
    case FormCase::Frame:
      return !grid;
    case FormCase::PlainFrame:
      return !grid && !setting.rollers;
    case FormCase::Rollers:
      return !grid && setting.rollers;
    case FormCase::Grid:
      return grid;
    case FormCase::Gravitational:
      return !setting.si;
    case FormCase::Si:
      return setting.si;
  }
  return false;
}

std::string_view RowView::Text(int column) const {
  const auto at = static_cast<std::size_t>(column - 1);
  return at < cells_.size() ? NoSpc(cells_[at]) : std::string_view();
}

double RowView::Real(int column) const {
  return ReadReal(Text(column));
}

const TableForm* FindTableForm(std::string_view name) {
  for (const TableForm& form : TableForms())
    if (UpperCase(form.name) == UpperCase(name)) return &form;
  return nullptr;
}

std::string TableKey(const TableForm& form) {
  return UpperCase(form.name.substr(3));
}

std::string HeaderTextOf(const TableForm& form, const FormSetting& setting) {
  std::string text;
  for (const HeaderText& header : form.headers) {
    if (!Applies(header.when, setting)) continue;
    for (const HeaderPiece& piece : header.pieces) {
      const UnitTexts unit = TextsOf(piece.unit);
      text.append(piece.text).append(setting.si ? unit.si : unit.gravitational);
    }
    break;
  }
  return text;
}

std::vector<Column> ColumnsOf(const TableForm& form, const FormSetting& setting) {
  std::vector<Column> columns;
  const std::string header = HeaderTextOf(form, setting);
  std::string_view rest = header;
  rest.remove_prefix(std::min(rest.find('|'), rest.size()));  // the fixed column
  while (rest.starts_with('|') && columns.size() < form.masks.size()) {
    rest.remove_prefix(1);
    const std::string_view cell = rest.substr(0, rest.find('|'));
    columns.push_back(ColumnOf(cell, form.masks[columns.size()]));
    rest.remove_prefix(cell.size());
  }
  return columns;
}

std::string CellTip(const TableForm& form, const FormSetting& setting, int column, const RowView& row) {
  for (const ColumnTip& tip : form.tips)
    if (tip.column == column && Applies(tip.when, setting))
      return tip.ofRow != nullptr ? tip.ofRow(row) : std::string(tip.text);
  return ColumnHelp(form.name, column, setting);
}

std::string TipLine(std::string_view tip) {
  std::string line;
  while (const std::optional<std::string_view> part = TakeLine(tip)) {
    const std::string words = WithoutColumns(Bare(*part));
    if (!line.empty() && !words.empty()) line += kWideBlank;
    line += words;
  }
  return line;
}

std::string PageTitle(Pages pages, int page) {
  if (pages == Pages::None) return {};
  return (pages == Pages::LoadCases ? "ケース" : "グループ") + std::to_string(page);
}

}  // namespace zorlan

#include "sections/section_sheet.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/cp932.h"
#include "base/number.h"
#include "base/number_format.h"
#include "base/text.h"
#include "base/text_file.h"
#include "sections/steel_tables.h"
#include "sections/table_lines.h"
#include "sections/timber_tables.h"

namespace zorlan {
namespace {

constexpr std::string_view kMark = "！！！";
constexpr NumberPattern kRowNumber = "####0";
constexpr int kSizeWidth = 5, kAreaWidth = 6, kValueWidth = 7;  // half-width characters of steel columns

struct TimberColumn {
  std::string_view caption, unit;
  int width;
  int limit = 0;  // above 0: a name
};
constexpr TimberColumn kGrades[] = {
    {"樹種 名称", "", 20, 20},  {"表示用\n略称", "", 10, 8}, {"圧縮:Fc", "(N/mm2)", 8},
    {"引張:Ft", "(N/mm2)", 8},  {"曲げ:Fb", "(N/mm2)", 8},   {"剪断:Fs", "(N/mm2)", 8},
    {"弾性係数", "(N/mm2)", 8},
};
constexpr TimberColumn kSections[] = {
    {"名称", "", 15, 20},
    {"表示用\n略称", "", 10, 8},
    {"断面調整\n係数:圧縮", "(Fsize)", 10},
    {"断面調整\n係数:引張", "(Fsize)", 10},
    {"断面調整\n係数:曲げ", "(Fsize)", 10},
    {"厚さ", "(mm)", 8},
    {"幅", "(mm)", 8},
    {"Ix", "(10^6mm4)", 10},
    {"Iy", "(10^6mm4)", 10},
    {"ix", "(mm)", 8},
    {"iy", "(mm)", 8},
    {"方杖用i", "(mm)", 8},
    {"Zx", "(10^3mm3)", 10},
    {"Zy", "(10^3mm3)", 10},
};

SectionSheet TimberSheet(SheetKind kind, std::string_view title, std::string_view file,
                         std::span<const TimberColumn> columns) {
  SectionSheet sheet{kind, std::string(title), std::string(file), {}, 1, false};
  for (const TimberColumn& column : columns)
    sheet.columns.push_back({std::string(column.caption), std::string(column.unit), column.width,
                             column.limit > 0, column.limit});
  return sheet;
}

SectionSheet SteelSheet(SheetKind kind) {
  const SteelFamilyForm& form = FormOf(static_cast<SteelFamily>(kind));
  SectionSheet sheet{kind, std::string(form.title), std::string(form.word) + ".CSV",
                     {},   form.keyColumns,         true};
  for (const SteelColumn& column : form.columns) {
    const bool size = column.unit == SteelUnit::Millimetre, area = column.unit == SteelUnit::Centimetre2;
    sheet.columns.push_back({std::string(column.caption), std::string(UnitCaption(column.unit)),
                             size   ? kSizeWidth
                             : area ? kAreaWidth
                                    : kValueWidth});
  }
  return sheet;
}

/// A text as one field of a file: its lines on one, no comma.
std::string OneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

/// The head of a table that never had a file.
std::string OwnHead(const SectionSheet& sheet) {
  std::string captions, units;
  for (const SheetColumn& column : sheet.columns) {
    captions.append(captions.empty() ? "" : ",").append(OneLine(column.caption));
    units.append(units.empty() ? "" : ",").append(column.unit.empty() ? "-" : column.unit);
  }
  return Cp932FromUtf8(sheet.title + "\r\n" + captions + "\r\n" + units + "\r\n").bytes;
}

/// A head that was cut short gets its missing line ends.
std::string WholeHead(std::string head) {
  if (head.back() != '\n' && head.back() != '\r') head += kLineEnd;
  int lines = 0;
  for (std::string_view rest = head; TakeLine(rest);) ++lines;
  for (; lines < kTableHeadLines; ++lines) head += kLineEnd;
  return head;
}

bool IsBlank(const SheetRow& row) {
  return std::ranges::all_of(row, [](const std::string& cell) { return cell.empty(); });
}

std::string_view CellAt(const SheetRow& row, std::size_t column) {
  return column < row.size() ? std::string_view(row[column]) : std::string_view();
}

SheetRow CellsOf(std::string_view line) {
  SheetRow row;
  const std::string text = Utf8FromCp932(line);
  for (std::string_view rest = text; !rest.empty();) row.emplace_back(TakeCell(rest));
  while (!row.empty() && row.back().empty()) row.pop_back();
  return row;
}

/// What the user should know of a file that isn't as its sheet would have written it.
std::string Notices(const SectionSheet& sheet, const SheetText& text) {
  int wide = 0, wordy = 0;
  for (const SheetRow& row : text.rows) {
    wide += row.size() > sheet.columns.size() ? 1 : 0;
    bool words = false;
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
      const std::string_view cell = CellAt(row, i);
      words = words || (!sheet.columns[i].text && !cell.empty() && !IsNumberText(cell));
    }
    wordy += words ? 1 : 0;
  }
  std::string notices;
  const auto say = [&](int count, std::string_view what) {
    if (count > 0) notices.append(notices.empty() ? "" : "\n").append(std::to_string(count)).append(what);
  };
  say(wide, " 行に、列数を超える項目があります。表示されませんが、保存しても残ります");
  say(wordy, " 行に、数値でない項目があります");
  say(CountUnreadRows(text.tail),
      text.rows.size() == kSheetRows
          ? " 行は、表示できる行数を超えています。保存しても残ります"
          : " 行が、先頭の値が 0 の行から後ろにあります。読み込まれませんが、保存しても残ります");
  return notices;
}

/// What a cell must be.
enum class Demand { None, Given, NotNegative, Positive };

std::optional<SheetFault> FaultOfCell(const SheetColumn& column, Demand demand, std::string_view cell) {
  const auto fault = [&](std::string_view words) {
    return SheetFault{0, 0, OneLine(column.caption) + std::string(words) + std::string(kMark)};
  };
  if (demand != Demand::None && cell.empty()) return fault("は省略できません");
  if (column.text) {
    if (cell.find(',') != std::string_view::npos) return fault("に「,」は使用できません");
    if (const std::string lost = Cp932FromUtf8(cell).lost; !lost.empty())
      return fault("に使用できない文字「" + lost + "」が含まれています");
    if (HalfWidth(cell) > static_cast<std::size_t>(column.limit))
      return fault("は半角" + std::to_string(column.limit) + "文字以内で入力して下さい");
    return std::nullopt;
  }
  if (!cell.empty() && !IsNumberText(cell)) return fault("が数値ではありません");
  const double value = ReadReal(cell);
  const bool low = (demand == Demand::Positive && value == 0) || (demand >= Demand::NotNegative && value < 0);
  if (low || !std::isfinite(value)) return fault("が入力範囲外です");
  return std::nullopt;
}

/// The sizes that name a steel section must be there; a first one of 0 would end the table.
Demand DemandOn(const SectionSheet& sheet, std::size_t column) {
  if (column >= sheet.keyColumns) return Demand::None;
  if (!sheet.steel) return Demand::Given;
  return column == 0 ? Demand::Positive : Demand::NotNegative;
}

}  // namespace

bool IsSteel(SheetKind kind) {
  return static_cast<std::size_t>(kind) < kSteelFamilies;
}

SectionSheet SheetOf(SheetKind kind) {
  if (kind == SheetKind::Grades) return TimberSheet(kind, "材種テーブル", "材種.CSV", kGrades);
  if (kind == SheetKind::TimberSections) return TimberSheet(kind, "断面テーブル", "断面.CSV", kSections);
  return SteelSheet(kind);
}

std::string SheetPath(const SectionSheet& sheet) {
  return PathIn(sheet.steel ? SteelTableFolder : TimberTableFolder, sheet.file);
}

SheetText ParseSheet(const SectionSheet& sheet, std::string_view bytes) {
  SheetText text;
  std::string_view rest = bytes;
  SkipTableHead(rest);
  text.head = bytes.substr(0, bytes.size() - rest.size());
  text.head = text.head.empty() ? OwnHead(sheet) : WholeHead(text.head);
  while (!rest.empty()) {
    const std::string_view from = rest;
    const std::string_view line = TakeLine(rest).value_or("");
    std::string_view fields = line;
    const bool ends = sheet.steel && ReadReal(TakeCell(fields)) == 0;
    if (ends || text.rows.size() == kSheetRows) {
      text.tail = from;
      break;
    }
    text.rows.push_back(CellsOf(line));
  }
  text.notices = Notices(sheet, text);
  return text;
}

std::string SheetBytes(const SectionSheet& sheet, const SheetText& text) {
  std::string rows;
  for (const SheetRow& row : text.rows) {
    if (IsBlank(row)) continue;
    for (std::size_t i = 0; i < std::max(sheet.columns.size(), row.size()); ++i)
      rows.append(i == 0 ? "" : ",").append(NoSpc(CellAt(row, i)));
    rows += kLineEnd;
  }
  return text.head + Cp932FromUtf8(rows).bytes + text.tail;
}

std::optional<SheetFault> FindSheetFault(const SectionSheet& sheet, const std::vector<SheetRow>& rows) {
  for (std::size_t r = 0; r < rows.size(); ++r) {
    if (IsBlank(rows[r])) continue;
    for (std::size_t c = 0; c < sheet.columns.size(); ++c)
      if (std::optional<SheetFault> fault =
              FaultOfCell(sheet.columns[c], DemandOn(sheet, c), CellAt(rows[r], c))) {
        fault->row = static_cast<int>(r) + 1;
        fault->column = static_cast<int>(c) + 1;
        return fault;
      }
  }
  return std::nullopt;
}

std::string SheetListing(const SectionSheet& sheet, const std::vector<SheetRow>& rows) {
  constexpr std::string_view kNumberHead = "   No";
  std::string listing = sheet.title + "\r\n\r\n";
  // Every line is as long as the longest: a page that is too narrow makes all of them smaller alike.
  std::size_t width = kNumberHead.size();
  for (const SheetColumn& column : sheet.columns) width += 1 + static_cast<std::size_t>(column.width);
  const auto add = [&](const std::string& line) { listing += PadRight(line, width) + "\r\n"; };
  const auto padded = [](const SheetColumn& column, std::string_view cell) {
    const auto room = static_cast<std::size_t>(column.width);
    return " " + (column.text ? PadRight(cell, room) : PadLeft(cell, room));
  };
  // Captions stand on two lines where one of the sheet's does; those on one line stand above the units.
  const bool two = std::ranges::any_of(sheet.columns, [](const SheetColumn& column) {
    return column.caption.find('\n') != std::string::npos;
  });
  std::string upper(kNumberHead.size(), ' '), lower(kNumberHead), units(kNumberHead.size(), ' ');
  for (const SheetColumn& column : sheet.columns) {
    const std::size_t end = column.caption.find('\n');
    const bool split = end != std::string::npos;
    upper += padded(column, split ? column.caption.substr(0, end) : "");
    lower += padded(column, split ? column.caption.substr(end + 1) : column.caption);
    units += padded(column, column.unit);
  }
  if (two) add(upper);
  add(lower);
  add(units);
  int number = 0;
  for (const SheetRow& row : rows) {
    if (IsBlank(row)) continue;
    std::string line = PadLeft(FormatNumber(++number, kRowNumber), kNumberHead.size());
    for (std::size_t i = 0; i < sheet.columns.size(); ++i) line += padded(sheet.columns[i], CellAt(row, i));
    add(line);
  }
  return listing;
}

}  // namespace zorlan

#include "model/deck_notes.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/cp932.h"
#include "base/number.h"
#include "base/text.h"
#include "model/deck.h"
#include "model/deck_fields.h"
#include "model/table_file.h"

namespace zorlan {
namespace {

/// A cell in a note: no longer than a line can show.
std::string Shown(std::string_view text) {
  constexpr std::size_t kWidth = 30;
  const std::string_view front = FrontWithin(text, kWidth);
  return "「" + std::string(front) + (front.size() < text.size() ? "…" : "") + "」";
}

std::string Place(int line, std::string_view section, std::string_view field) {
  return std::to_string(line) + "行目 ： @" + std::string(section) + " の" + std::string(field) + " ";
}

/// The number that ReadDeck makes of a cell.
double ValueOf(const DeckField& field, std::string_view text) {
  const double value = field.whole ? std::trunc(ReadReal(text)) : ReadReal(text);
  return value == 0 ? field.ifZero : value;
}

/// Whether the rule of the table files, by which ten blanks cut a cell or end a row, takes something of a row
/// that ReadDeck uses.
bool IsCutInTables(std::string_view line) {
  constexpr std::string_view kTenBlanks = "          ";
  for (std::optional<std::string_view> rest = line; rest;) {
    const std::string_view field = TakeField(rest);
    if (field.starts_with(kTenBlanks) || NoSpc(field).find(kTenBlanks) != std::string_view::npos) return true;
  }
  return false;
}

/// The cells of a deck that are no number in full, and the row of units in force.
class CellNotes {
 public:
  void ReadLine(int number, std::string_view line);
  void AppendTo(std::vector<std::string>& notes, DeckUse use) const;

 private:
  void ReadRow(int number, std::string_view line);

  static constexpr std::size_t kMost = 10;  // that are told one by one
  std::vector<std::string> cells_;
  int more_ = 0;
  int cut_ = 0, firstCut_ = 0;  // rows that the table files cut, and the line of the first
  std::vector<std::string> units_;
  const DeckSection* section_ = nullptr;
};

/// What is assumed of a row of units whose values are none.
std::vector<std::string> UnitNotes(int line, const Fields& fields) {
  struct Choice {
    std::size_t field;
    std::string_view assumed;
  };
  constexpr Choice kChoices[] = {{1, "0（工学単位）"}, {2, "0（工学単位）"}, {4, "1（kg、N）"}};
  std::vector<std::string> notes;
  for (const Choice& choice : kChoices) {
    const std::optional<std::int16_t> value = ReadInt16(fields[choice.field]);
    if (!value || *value == 0 || *value == 1) continue;
    notes.push_back(Place(line, "UNIT", kUnitNumbers[choice.field - 1].name) + std::to_string(*value) +
                    " は 0 でも 1 でもありません。" + std::string(choice.assumed) + "として扱います");
  }
  if (const double factor = ReadReal(fields[3]); factor < 0)
    notes.push_back(Place(line, "UNIT", kUnitNumbers[2].name) + RealText(factor) +
                    " は正の数ではありません。そのまま計算に使います");
  return notes;
}

void CellNotes::ReadLine(int number, std::string_view line) {
  if (line[0] == '@')
    section_ = FindDeckSection(UpperCase(line.substr(1)));
  else if (section_ != nullptr)
    ReadRow(number, line);
}

void CellNotes::ReadRow(int number, std::string_view line) {
  if (std::count(line.begin(), line.end(), ',') >= kMaxFields) return;  // which ends the reading
  Fields fields;
  const int count = SplitFields(line, fields);
  if (!section_->Takes(count)) return;
  if (IsCutInTables(line) && ++cut_ == 1) firstCut_ = number;
  if (section_->name == "UNIT") units_ = UnitNotes(number, fields);
  const std::span<const DeckField> names = section_->numbers;
  const std::size_t numbers = section_->lastRepeats ? kMaxFields : names.size();
  for (std::size_t n = 0; n < numbers && n < static_cast<std::size_t>(count); ++n) {
    const std::string_view text = fields[n + 1];
    const DeckField& field = names[std::min(n, names.size() - 1)];
    if (text.empty() || IsNumberText(text) || !std::isfinite(ReadReal(text))) continue;
    if (cells_.size() == kMost)
      ++more_;
    else
      cells_.push_back(Place(number, section_->name, field.name) + Shown(text) + " は数値ではありません。" +
                       RealText(ValueOf(field, text)) + " として扱います");
  }
}

void CellNotes::AppendTo(std::vector<std::string>& notes, DeckUse use) const {
  if (cut_ > 0 && use != DeckUse::Read)
    notes.push_back("空白が 10 個続く行が " + std::to_string(cut_) + " 行あります（最初は " +
                    std::to_string(firstCut_) +
                    "行目）。表と入力データリストでは、そこで切れます（解析では、すべて使います）");

  notes.insert(notes.end(), cells_.begin(), cells_.end());
  if (more_ > 0) notes.push_back("数値ではない項目は、ほかに " + std::to_string(more_) + " 個あります");
  notes.insert(notes.end(), units_.begin(), units_.end());
}

std::string_view RepeatedText(DeckUse use) {
  switch (use) {
    case DeckUse::Read:
      return "すべての行を使います（モデルを開くと、後のものだけになります）";
    case DeckUse::Listed:
      return "後のものだけをリストに出します（解析では、すべての行を使います）";
    case DeckUse::Opened:
      return "後のものだけを読み込みました。このまま保存すると、前のものは失われます";
  }
  return {};
}

void AppendRepeated(std::string_view deck, DeckUse use, std::vector<std::string>& notes) {
  for (const DeckTable& table : SplitDeck(deck)) {
    const bool known = std::any_of(kTables.begin(), kTables.end(),
                                   [&](const TableName& name) { return name.key == table.name; });
    if (known && table.sections > 1)
      notes.push_back("@" + table.name + " が " + std::to_string(table.sections) + " 回あります。" +
                      std::string(RepeatedText(use)));
  }
}

}  // namespace

std::vector<std::string> DeckNotes(std::string_view bytes, DeckUse use) {
  std::vector<std::string> notes;
  const std::string deck = Utf8FromCp932(BeforeEndMark(bytes));
  AppendRepeated(deck, use, notes);
  CellNotes cells;
  std::string_view rest = deck;
  int number = 0;
  while (const std::optional<std::string_view> whole = TakeLine(rest)) {
    ++number;
    if (const std::string_view line = DeckLine(*whole); !line.empty()) cells.ReadLine(number, line);
  }
  cells.AppendTo(notes, use);
  if (!IsBlankDeck(bytes.substr(BeforeEndMark(bytes).size())))
    notes.push_back("ファイルの終わりを示す文字（1A）が途中にあります。" + std::to_string(number) +
                    " 行目までを読み込みます");
  return notes;
}

}  // namespace zorlan

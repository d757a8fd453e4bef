#include "forms/message_row.h"

#include <algorithm>
#include <string>

#include "base/number.h"
#include "forms/table_form.h"

namespace zorlan {
namespace {

/// A message begins with the words of its table.
struct TableWords {
  std::string_view words, key;
};
constexpr TableWords kTableWords[] = {
    {"節点データ", "NODE"},         {"要素データ", "ELEM"},     {"断面性能データ", "SECT"},
    {"節点荷重データ", "PLOD"},     {"部材荷重データ", "ELOD"}, {"要素荷重データ", "ELOD"},
    {"ＣＭＱ荷重データ", "CLOD"},   {"温度荷重データ", "TLOD"}, {"剛域データ", "RIGD"},
    {"支点ばねデータ", "SPRG"},     {"強制変位データ", "SPEC"}, {"同一変形データ", "DISP"},
    {"フレーム倍率データ", "ALFA"},
};

// What stands in front of a row's number; the element is what a message on sections speaks of.
constexpr std::string_view kNumberWords[] = {"要素番号＝", "要素番号 ", "節点番号＝", "節点番号(",
                                             "断面番号＝"};
constexpr std::string_view kCaseWords = "荷重ケース番号=";

std::optional<int> NumberBehind(std::string_view line, std::string_view words) {
  const std::size_t at = line.find(words);
  if (at == std::string_view::npos) return std::nullopt;
  return ReadInt16(line.substr(at + words.size()));
}

/// The number of a row that is quoted as the deck has it, behind a message without digits.
void ReadQuotedRow(std::string_view line, MessageRow& row) {
  const std::size_t at = line.find_first_of("0123456789");
  if (at == std::string_view::npos) return;
  std::string_view cells = line.substr(at);
  const TableForm* const form = FindTableForm("Inp" + std::string(row.key));
  if (form != nullptr && form->pages != Pages::None) {
    row.page = ReadInt16(cells).value_or(0);
    cells.remove_prefix(std::min(cells.find(','), cells.size() - 1) + 1);
  }
  row.number = ReadInt16(cells).value_or(0);
}

}  // namespace

std::optional<MessageRow> RowOfMessage(std::string_view line) {
  for (const TableWords& table : kTableWords) {
    if (!line.starts_with(table.words)) continue;
    MessageRow row{table.key};
    row.page = NumberBehind(line, kCaseWords).value_or(0);
    for (const std::string_view words : kNumberWords)
      if (const std::optional<int> number = NumberBehind(line, words)) {
        row.number = *number;
        return row;
      }
    if (row.page == 0) ReadQuotedRow(line, row);
    return row;
  }
  return std::nullopt;
}

}  // namespace zorlan

#include "model/deck.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "model/table_file.h"

namespace zorlan {

std::string_view DeckLine(std::string_view line) {
  return NoSpc(line.substr(0, line.find('%')));
}

int SplitFields(std::string_view line, Fields& fields) {
  fields.fill({});
  int count = 0;
  for (std::optional<std::string_view> rest = line; rest;) {
    if (count == kMaxFields) throw Fault("項目の数が " + std::to_string(kMaxFields) + " を超えています");
    fields[static_cast<std::size_t>(++count)] = NoSpc(TakeField(rest));
  }
  return count;
}

namespace {

/// Whether a deck has a table of this name.
bool HoldsTable(std::string_view bytes, std::string_view name) {
  const std::vector<DeckTable> tables = SplitDeck(bytes);
  return std::any_of(tables.begin(), tables.end(),
                     [&](const DeckTable& table) { return table.name == name; });
}

bool IsUtf16(std::string_view bytes) {
  constexpr std::string_view kStarts[] = {"\xFF\xFE", "\xFE\xFF", {"@\0", 2}, {"\0@", 2}};
  return std::any_of(std::begin(kStarts), std::end(kStarts),
                     [&](std::string_view start) { return bytes.starts_with(start); });
}

/// What stands at a path; nothing where no file is or none that can be read.
std::string BytesInPlace(const std::string& path) {
  try {
    return FileExists(path) ? ReadBytes(path) : std::string();
  } catch (const FileFault&) {
    return {};  // the writing will tell
  }
}

/// The tables of the work folder as a deck; `files` get their paths.
std::string JoinTables(std::vector<std::string>& files) {
  std::string deck;  // bytes: the tables go in as they stand
  for (const TableName& table : kTables) {
    const std::string file = WorkPath + std::string(table.key);
    if (!FileExists(file)) continue;
    deck.append(Cp932FromUtf8(SectionLine(table)).bytes).append(kLineEnd);
    const std::string bytes = ReadBytes(file);
    std::string_view rest = BeforeEndMark(bytes);
    while (const std::optional<std::string_view> line = TakeLine(rest)) deck.append(*line).append(kLineEnd);
    deck += kLineEnd;
    files.push_back(file);
  }
  return deck;
}

/// A model that is no longer whole makes no deck, not even one to be checked.
void RefuseVanishedTables() {
  std::string names;
  for (const std::string& name : VanishedTables()) names += (names.empty() ? "" : "、") + name;
  if (names.empty()) return;
  throw Fault("作業フォルダ " + WorkPath + " から、入力した表がなくなっています： " + names +
              "\n保存済みのモデルは変更していません。モデルを開き直すか、なくなった表を入力し直してください");
}

/// Refuses a deck that would take more away than the user has changed. `own`: it is that of the model in
/// hand, which is replaced without a question.
void RefuseLoss(const std::string& path, std::string_view old, std::string_view deck, bool own) {
  if (IsBlankDeck(old)) return;
  const std::string kept = "\nファイルは変更していません";
  if (deck.empty()) throw Fault(path + " ： 保存する表がありません" + kept);
  if (!own) return;
  if (const std::string why = WhyNoDeck(old); !why.empty())
    throw Fault(path + " ： " + why + kept + "。モデルは別の名前で保存してください");
  if (HoldsTable(old, "CONT") && !HoldsTable(deck, "CONT"))
    throw Fault(path + " ： コントロールデータがないため、上書き保存できません" + kept);
}

}  // namespace

bool IsBlankDeck(std::string_view bytes) {
  return bytes.find_first_not_of(std::string_view(" \t\r\n\x1A\0", 6)) == std::string_view::npos;
}

std::string WhyNoDeck(std::string_view bytes) {
  if (IsBlankDeck(bytes)) return "空のファイルです";
  const char* const encoding = IsUtf16(bytes)                      ? "ＵＴＦ－１６"
                               : bytes.starts_with("\xEF\xBB\xBF") ? "ＢＯＭ付きのＵＴＦ－８"
                               : IsMeantAsUtf8(bytes)              ? "ＵＴＦ－８"
                                                                   : nullptr;
  if (encoding != nullptr)
    return std::string("文字コードが") + encoding + "です（シフトＪＩＳで保存し直してください）";
  const std::vector<DeckTable> tables = SplitDeck(BeforeEndMark(bytes));
  const bool any = std::any_of(tables.begin(), tables.end(), [](const DeckTable& table) {
    return std::any_of(kTables.begin(), kTables.end(),
                       [&](const TableName& known) { return known.key == table.name; });
  });
  return any ? std::string() : "モデルの表（@CONT、@NODE など）がありません";
}

void SaveDeck(bool deleteTables, const std::string& path) {
  RefuseVanishedTables();
  std::vector<std::string> files;
  const std::string deck = JoinTables(files);
  const std::string target = path.empty() ? DeckPath() : path;
  const bool scratch = target.starts_with(WorkPath);
  const std::string old = scratch ? std::string() : BytesInPlace(target);
  if (!scratch) RefuseLoss(target, old, deck, path.empty());
  if (deck.empty() || deck != old) ReplaceBytes(target, deck);
  if (!deleteTables) return;
  ForgetTables();
  for (const std::string& file : files) RemoveFile(file);
}

namespace {

/// Whether a section of this name can be a file of the work folder: nothing that leads out of it or names no
/// file.
bool IsTableFileName(std::string_view name) {
  const bool control = std::any_of(name.begin(), name.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
  return !control && !name.empty() && name.find_first_of("/\\:*?\"<>|") == std::string_view::npos &&
         name[0] != '.' && name.size() < 200;
}

}  // namespace

std::vector<DeckTable> SplitDeck(std::string_view deck) {
  std::vector<DeckTable> tables;
  std::unordered_map<std::string, std::size_t> placeOf;  // by name
  DeckTable* table = nullptr;                            // in hand
  while (const std::optional<std::string_view> whole = TakeLine(deck)) {
    const std::string_view line = DeckLine(*whole);
    if (line.empty()) continue;
    if (line[0] == '@') {
      const std::string name = UpperCase(line.substr(1));
      table = nullptr;
      if (!IsTableFileName(name)) continue;
      const auto [known, fresh] = placeOf.emplace(name, tables.size());
      if (fresh) tables.emplace_back().name = name;
      table = &tables[known->second];
      if (fresh) continue;
      table->earlier += std::exchange(table->text, {});
      ++table->sections;
    } else if (table != nullptr) {
      table->text.append(line).append(kLineEnd);
    }
  }
  return tables;
}

void LoadDeck() {
  ClearWork();
  if (!FileExists(DeckPath())) return;
  const std::vector<DeckTable> tables = SplitDeck(ReadTextFile(DeckPath()));
  try {
    for (const DeckTable& table : tables) {
      ReplaceTextFile(WorkPath + table.name, table.text, Flush::No);
      NoteTable(table.name, /*there=*/true);
    }
  } catch (const Fault&) {
    ClearWork();  // half a model in the work folder would be saved over the whole deck
    throw;
  }
}

}  // namespace zorlan

#include "model/deck.h"

#include <optional>

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

void SaveDeck(bool deleteTables, const std::string& path) {
  std::string deck;  // bytes: the tables go in as they stand
  std::vector<std::string> copied;
  for (const TableName& table : kTables) {
    const std::string file = WorkPath + std::string(table.key);
    if (!FileExists(file)) continue;
    deck += Cp932FromUtf8(SectionLine(table)).bytes + "\r\n";
    const std::string bytes = ReadBytes(file);
    std::string_view rest = bytes;
    while (const std::optional<std::string_view> line = TakeLine(rest)) deck.append(*line).append(kLineEnd);
    deck += kLineEnd;
    copied.push_back(file);
  }
  ReplaceBytes(path.empty() ? DeckPath() : path, deck);
  if (deleteTables)
    for (const std::string& file : copied) RemoveFile(file);
}

namespace {

/// Whether a section of this name can be a file of the work folder: nothing that leads out of it or names no
/// file.
bool IsTableFileName(std::string_view name) {
  return !name.empty() && name.find_first_of("/\\:*?\"<>|\t") == std::string_view::npos && name[0] != '.' &&
         name.size() < 200;
}

}  // namespace

std::vector<DeckTable> SplitDeck(std::string_view deck) {
  std::vector<DeckTable> tables;
  std::string* text = nullptr;  // of the table in hand
  while (const std::optional<std::string_view> whole = TakeLine(deck)) {
    const std::string_view line = DeckLine(*whole);
    if (line.empty()) continue;
    if (line[0] == '@') {
      const std::string name = UpperCase(line.substr(1));
      text = nullptr;
      if (!IsTableFileName(name)) continue;
      for (DeckTable& known : tables)
        if (known.name == name) text = &known.text;
      if (text == nullptr) text = &tables.emplace_back(name, std::string()).text;
      text->clear();
    } else if (text != nullptr) {
      text->append(line).append(kLineEnd);
    }
  }
  return tables;
}

void LoadDeck() {
  ClearWork();
  if (!FileExists(DeckPath())) return;
  const std::vector<DeckTable> tables = SplitDeck(ReadTextFile(DeckPath()));
  try {
    for (const DeckTable& table : tables) ReplaceTextFile(WorkPath + table.name, table.text, Flush::No);
  } catch (const Fault&) {
    ClearWork();  // half a model in the work folder would be saved over the whole deck
    throw;
  }
}

}  // namespace zorlan

#include "model/deck.h"

#include <optional>
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

void LoadDeck() {
  ClearWork();
  if (!FileExists(DeckPath())) return;
  const std::string text = ReadTextFile(DeckPath());
  // Name and text of a table; a name that comes again starts anew.
  std::vector<std::pair<std::string, std::string>> tables;
  std::string* table = nullptr;
  std::string_view rest = text;
  while (const std::optional<std::string_view> whole = TakeLine(rest)) {
    const std::string_view line = DeckLine(*whole);
    if (line.empty()) continue;
    if (line[0] == '@') {
      const std::string name = UpperCase(line.substr(1));
      table = nullptr;
      if (!IsTableFileName(name)) continue;
      for (auto& [known, contents] : tables)
        if (known == name) table = &contents;
      if (table == nullptr) table = &tables.emplace_back(name, std::string()).second;
      table->clear();
    } else if (table != nullptr) {
      table->append(line).append(kLineEnd);
    }
  }
  try {
    for (const auto& [name, contents] : tables) ReplaceTextFile(WorkPath + name, contents, Flush::No);
  } catch (const Fault&) {
    ClearWork();  // half a model in the work folder would be saved over the whole deck
    throw;
  }
}

}  // namespace zorlan

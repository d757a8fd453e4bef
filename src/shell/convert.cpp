#include "shell/convert.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_rec.h"
#include "model/table_file.h"
#include "shell/project_dialog.h"

namespace zorlan {
namespace {

namespace fs = std::filesystem;

/// What a numbered file holds.
enum class OldForm {
  Title,     // the first line
  Records,   // a count, then records
  Sections,  // the same; φ is looked over
  Loads,     // the number of load cases; for each a count, then records
  Groups,    // the model number; unless it is 0 the number of groups, for each a count and its nodes
};

struct OldTable {
  int number;  // of the file
  std::string_view key;
  OldForm form;
  int values;  // of a record
  int limit;   // rows of the table
};

/// In the order of the deck.
constexpr OldTable kOldTables[] = {
    {77, "TITL", OldForm::Title, 1, 1},
    {1, "NODE", OldForm::Records, 6, kMaxNodes},
    {2, "ELEM", OldForm::Records, 7, kMaxElements},
    {3, "SECT", OldForm::Sections, 9, kMaxTableRows},
    {4, "PLOD", OldForm::Loads, 4, kMaxTableRows},
    {5, "ELOD", OldForm::Loads, 6, kMaxTableRows},
    {6, "CLOD", OldForm::Loads, 7, kMaxTableRows},
    {7, "TLOD", OldForm::Loads, 7, kMaxTableRows},
    {8, "RIGD", OldForm::Records, 3, kMaxTableRows},
    {9, "SPRG", OldForm::Records, 4, kMaxTableRows},
    {10, "DISP", OldForm::Groups, 1, kMaxTableRows},
    {11, "ALFA", OldForm::Records, 3, kMaxTableRows},
};

/// Whether a value is a number written in full, or empty.
bool IsNumberOrEmpty(std::string_view value) {
  return value.find_first_not_of("+-.0123456789eEdD") == std::string_view::npos &&
         (value.empty() || value.find_first_of("0123456789") != std::string_view::npos);
}

/// The values of an old file one by one, across its lines.
class OldValues {
 public:
  explicit OldValues(const OldFile& file) : path_(file.path), rest_(file.text) {}

  /// The next number as it was typed; empty between two commas.
  std::string_view Next() {
    const std::string_view value = NextText();
    if (!IsNumberOrEmpty(value)) Fail("数値ではない項目 「" + std::string(value) + "」 があります");
    return value;
  }

  /// The next number as a count of 0 to `limit`.
  int NextCount(int limit, std::string_view what) {
    const std::string_view value = Next();
    const std::optional<std::int16_t> count = ReadInt16(value);
    if (!count || *count < 0 || *count > limit)
      Fail(std::string(what) + " 「" + std::string(value) + "」 が範囲（0～" + std::to_string(limit) +
           "）外です");
    return *count;
  }

  /// The next `count` values with commas between.
  std::vector<std::string> NextRecord(int count) {
    std::vector<std::string> record;
    record.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) record.emplace_back(Next());
    return record;
  }

  /// The whole first line, empty if there is none.
  std::string_view FirstLine() {
    const std::optional<std::string_view> line = TakeLine(rest_);
    return line ? NoSpc(*line) : std::string_view();
  }

 private:
  std::string_view NextText() {
    while (!line_) {
      line_ = TakeLine(rest_);
      if (!line_) Fail("データが途中で終わっています");
      ++lineNumber_;
      if (NoSpc(*line_).empty()) line_.reset();
    }
    return NoSpc(TakeField(line_));
  }

  [[noreturn]] void Fail(const std::string& words) const {
    throw Fault(path_ + " （" + std::to_string(lineNumber_) + "行目） ： " + words);
  }

  std::string path_;
  std::string_view rest_;
  std::optional<std::string_view> line_;  // what is left of the line; nothing behind its last value
  int lineNumber_ = 0;
};

/// The deck as it grows, with what the old files say of the control data.
class DeckBuilder {
 public:
  void AddTable(const OldTable& table, const OldFile& file);
  void AddSection(std::string_view key, std::string_view row);
  std::string TakeDeck();

 private:
  void AddRecords(const OldTable& table, OldValues& values);
  void AddLoads(const OldTable& table, OldValues& values);
  void AddGroups(const OldTable& table, OldValues& values);
  void BeginSection(std::string_view key);
  void AddRow(const std::vector<std::string>& cells);

  std::string deck_;
  int modelCode_ = kPlaneFrame;
  int caseCount_ = 0;
};

void DeckBuilder::BeginSection(std::string_view key) {
  const auto* const table =
      std::find_if(kTables.begin(), kTables.end(), [&](const TableName& name) { return name.key == key; });
  deck_.append(SectionLine(*table)).append(kLineEnd);
}

void DeckBuilder::AddRow(const std::vector<std::string>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) deck_ += ',';
    deck_ += cells[i];
  }
  deck_ += kLineEnd;
}

void DeckBuilder::AddSection(std::string_view key, std::string_view row) {
  BeginSection(key);
  deck_.append(row).append(kLineEnd).append(kLineEnd);
}

void DeckBuilder::AddRecords(const OldTable& table, OldValues& values) {
  constexpr std::size_t kType = 1, kPhi = 6;
  const int count = values.NextCount(table.limit, "データ数");
  for (int r = 0; r < count; ++r) {
    std::vector<std::string> record = values.NextRecord(table.values);
    if (table.form == OldForm::Sections && ReadInt16(record[kType]) == 0) record[kPhi] = "1.0";
    AddRow(record);
  }
}

void DeckBuilder::AddLoads(const OldTable& table, OldValues& values) {
  const int cases = values.NextCount(kMaxLoadCases, "荷重ケース数");
  int room = table.limit;
  for (int loadCase = 1; loadCase <= cases; ++loadCase) {
    const int count = values.NextCount(room, "データ数");
    room -= count;
    for (int r = 0; r < count; ++r) {
      std::vector<std::string> record = values.NextRecord(table.values);
      record.insert(record.begin(), std::to_string(loadCase));
      AddRow(record);
    }
  }
  caseCount_ = std::max(caseCount_, cases);
}

void DeckBuilder::AddGroups(const OldTable& table, OldValues& values) {
  const int model = values.NextCount(kPlaneGrid, "モデル番号");
  if (model == 0) return;  // a plane frame, and nothing follows
  modelCode_ = model;
  const int groups = values.NextCount(table.limit, "グループ数");
  for (int group = 1; group <= groups; ++group) {
    const int count = values.NextCount(kMaxGroupNodes, "節点数");
    std::vector<std::string> nodes = values.NextRecord(count);
    nodes.insert(nodes.begin(), std::to_string(group));
    AddRow(nodes);
  }
}

void DeckBuilder::AddTable(const OldTable& table, const OldFile& file) {
  OldValues values(file);
  BeginSection(table.key);
  switch (table.form) {
    case OldForm::Title:
      deck_.append(values.FirstLine()).append(kLineEnd);
      break;
    case OldForm::Records:
    case OldForm::Sections:
      AddRecords(table, values);
      break;
    case OldForm::Loads:
      AddLoads(table, values);
      break;
    case OldForm::Groups:
      AddGroups(table, values);
      break;
  }
  deck_ += kLineEnd;
}

/// The old model knows neither control data nor units: it is in gravitational units, and its listing has no
/// input list.
std::string DeckBuilder::TakeDeck() {
  AddSection("CONT", std::to_string(modelCode_) + "," + std::to_string(caseCount_) + ",0");
  AddSection("UNIT", "0,0," + RealText(kStandardGravity));
  return std::move(deck_);
}

/// "FT077"
std::string OldFileName(int number) {
  const std::string digits = std::to_string(number);
  return "FT" + std::string(3 - digits.size(), '0') + digits;
}

/// The folder of a path, with its closing separator; the current one for a bare name.
std::string FolderOf(const std::string& path) {
  const std::string folder = PathText(NativePath(path).parent_path());
  return FolderText(folder.empty() ? "." : folder);
}

/// Whether the folder is there, or may be made.
bool ConsentsToFolder(const std::string& folder) {
  if (FolderExists(folder)) return true;
  const std::string name = folder.substr(0, folder.size() - 1);
  return TheHost().question("新しいフォルダ" + name + "を作成してよろしいですか？", kApplicationTitle,
                            Buttons::YesNo) == Answer::Yes;
}

}  // namespace

OldModel ReadOldModel(const std::string& folder) {
  OldModel model;
  std::error_code error;
  fs::directory_iterator entries(NativePath(folder), error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    const std::string path = PathText(entries->path());
    const std::string name = UpperCase(PathText(entries->path().filename()));
    for (const OldTable& table : kOldTables) {
      if (name != OldFileName(table.number) || !FileExists(path)) continue;
      OldFile& file = model[table.number];
      if (path > file.path) file = {path, ReadTextFile(path)};  // of "FT001" and "ft001" always the same one
    }
  }
  if (error) throw FileFault(folder, "フォルダを開けません");
  if (model.empty()) throw FileFault(folder, "旧モデルのファイル（ft001～ft011、ft077）がありません");
  return model;
}

std::string ConvertedDeck(const OldModel& model, std::string_view subtitle) {
  DeckBuilder deck;
  for (const OldTable& table : kOldTables) {
    if (const auto file = model.find(table.number); file != model.end()) deck.AddTable(table, file->second);
    if (table.form == OldForm::Title && !subtitle.empty()) deck.AddSection("SUBT", subtitle);
  }
  return deck.TakeDeck();
}

bool ConvertOldModel(const std::string& folder, const std::string& deckPath, std::string_view subtitle) try {
  const std::string target = FolderOf(deckPath);
  if (!ConsentsToFolder(target)) return false;
  const std::string deck = ConvertedDeck(ReadOldModel(folder), subtitle);
  MakeFolder(target);
  ReplaceTextFile(deckPath, deck);
  RemoveStoredResults({target, "", PathText(NativePath(deckPath).filename())});
  return true;
} catch (const Fault& fault) {
  Tell(fault.what());
  return false;
}

}  // namespace zorlan

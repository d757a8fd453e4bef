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
#include "forms/small_forms.h"
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
  std::string_view record;  // its values: a whole number of 16 bits 'i', a real 'r'
  int limit;                // rows of the table
};

/// In the order of the deck.
constexpr OldTable kOldTables[] = {
    {77, "TITL", OldForm::Title, "", 1},
    {1, "NODE", OldForm::Records, "irriii", kMaxNodes},
    {2, "ELEM", OldForm::Records, "iiiiiii", kMaxElements},
    {3, "SECT", OldForm::Sections, "iirrrrrrr", kMaxTableRows},
    {4, "PLOD", OldForm::Loads, "irrr", kMaxTableRows},
    {5, "ELOD", OldForm::Loads, "irirri", kMaxTableRows},
    {6, "CLOD", OldForm::Loads, "irrrrri", kMaxTableRows},
    {7, "TLOD", OldForm::Loads, "irrrrri", kMaxTableRows},
    {8, "RIGD", OldForm::Records, "irr", kMaxTableRows},
    {9, "SPRG", OldForm::Records, "irrr", kMaxTableRows},
    {10, "DISP", OldForm::Groups, "i", kMaxTableRows},
    {11, "ALFA", OldForm::Records, "rrr", kMaxTableRows},
};

/// The values of an old file one by one, across its lines.
class OldValues {
 public:
  explicit OldValues(const OldFile& file) : path_(file.path), rest_(BeforeEndMark(file.text)) {}

  /// The next number as it was typed, whole for the kind 'i'; empty between two commas.
  std::string_view Next(char kind) {
    const std::string_view value = NextText();
    if (value.empty()) return value;
    const std::string named = "「" + std::string(value) + "」";
    if (!IsNumberText(value)) Fail("数値ではない項目 " + named + " があります");
    if (kind == 'i' && !ReadInt16(value)) Fail(named + " は整数の範囲（-32768～32767）を超えています");
    if (!ReadFinite(value)) Fail(named + " は数値の範囲を超えています");
    return value;
  }

  /// The next number as a count of 0 to `limit`.
  int NextCount(int limit, std::string_view what) {
    const std::string_view value = Next('r');
    const std::optional<std::int16_t> count = ReadInt16(value);
    if (!count || *count < 0 || *count > limit)
      Fail(std::string(what) + " 「" + std::string(value) + "」 が範囲（0～" + std::to_string(limit) +
           "）外です");
    DropEmptyRest();
    return *count;
  }

  /// The next values, a letter of `kinds` each, with commas between.
  std::vector<std::string> NextRecord(std::string_view kinds) {
    std::vector<std::string> record;
    record.reserve(kinds.size());
    for (const char kind : kinds) record.emplace_back(Next(kind));
    DropEmptyRest();
    return record;
  }

  /// What is to be said of values that are left; empty: there are none.
  std::string RestNote() {
    while (!line_ || IsEmptyRest(*line_)) {
      line_ = TakeLine(rest_);
      if (!line_) return {};
      ++lineNumber_;
    }
    return Place() + "データ数を超える項目があります。変換されません";
  }

  /// The whole first line, empty if there is none.
  std::string_view FirstLine() {
    const std::optional<std::string_view> line = TakeLine(rest_);
    return line ? NoSpc(*line) : std::string_view();
  }

 private:
  static bool IsEmptyRest(std::string_view text) {
    return text.find_first_not_of(", \t") == std::string_view::npos;
  }

  /// Commas behind the last value of a count or record are no values of the next one.
  void DropEmptyRest() {
    if (line_ && IsEmptyRest(*line_)) line_.reset();
  }

  std::string_view NextText() {
    while (!line_) {
      line_ = TakeLine(rest_);
      if (!line_) Fail("データが途中で終わっています");
      ++lineNumber_;
      if (NoSpc(*line_).empty()) line_.reset();
    }
    return NoSpc(TakeField(line_));
  }

  std::string Place() const { return path_ + " （" + std::to_string(lineNumber_) + "行目） ： "; }
  [[noreturn]] void Fail(const std::string& words) const { throw Fault(Place() + words); }

  std::string path_;
  std::string_view rest_;
  std::optional<std::string_view> line_;  // what is left of the line; nothing behind its last value
  int lineNumber_ = 0;
};

/// The deck as it grows, with what the old files say of the control data.
class DeckBuilder {
 public:
  void AddTable(const OldTable& table, const OldFile& file);
  /// A section of one row; what a deck loses of a title in it is noted under `place`.
  void AddTitle(std::string_view key, std::string_view title, std::string_view place);
  Conversion Take();

 private:
  void AddRecords(const OldTable& table, OldValues& values);
  void AddLoads(const OldTable& table, OldValues& values);
  void AddGroups(const OldTable& table, OldValues& values);
  void AddSection(std::string_view key, std::string_view row);
  void BeginSection(std::string_view key);
  void Note(const std::string& words) {
    if (!words.empty()) notes_.push_back(words);
  }
  void AddRow(const std::vector<std::string>& cells);

  std::string deck_;
  std::vector<std::string> notes_;
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

void DeckBuilder::AddTitle(std::string_view key, std::string_view title, std::string_view place) {
  if (const std::string_view warning = TitleWarning(title); !warning.empty())
    Note(std::string(place) + " ： " + std::string(warning));
  AddSection(key, title);
}

void DeckBuilder::AddRecords(const OldTable& table, OldValues& values) {
  constexpr std::size_t kType = 1, kPhi = 6;
  const int count = values.NextCount(table.limit, "データ数");
  for (int r = 0; r < count; ++r) {
    std::vector<std::string> record = values.NextRecord(table.record);
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
      std::vector<std::string> record = values.NextRecord(table.record);
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
    std::vector<std::string> nodes =
        values.NextRecord(std::string(static_cast<std::size_t>(count), table.record[0]));
    nodes.insert(nodes.begin(), std::to_string(group));
    AddRow(nodes);
  }
}

void DeckBuilder::AddTable(const OldTable& table, const OldFile& file) {
  OldValues values(file);
  if (table.form == OldForm::Title) return AddTitle(table.key, values.FirstLine(), file.path);
  BeginSection(table.key);
  if (table.form == OldForm::Loads)
    AddLoads(table, values);
  else if (table.form == OldForm::Groups)
    AddGroups(table, values);
  else
    AddRecords(table, values);
  deck_ += kLineEnd;
  Note(values.RestNote());
}

/// The old model knows neither control data nor units: it is in gravitational units, and its listing has no
/// input list.
Conversion DeckBuilder::Take() {
  AddSection("CONT", std::to_string(modelCode_) + "," + std::to_string(caseCount_) + ",0");
  AddSection("UNIT", "0,0," + RealText(kStandardGravity));
  return {std::move(deck_), std::move(notes_)};
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(text.empty() ? "" : "\n").append(line);
  return text;
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

/// Removes what was computed of the deck that stood there. Where that fails the new deck stands all the same.
void RemoveFormerResults(const ModelPlace& place) try {
  RemoveStoredResults(place);
} catch (const Fault& fault) {
  Tell(fault.what());
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

Conversion ConvertedDeck(const OldModel& model, std::string_view subtitle) {
  DeckBuilder deck;
  for (const OldTable& table : kOldTables) {
    if (const auto file = model.find(table.number); file != model.end()) deck.AddTable(table, file->second);
    if (table.form == OldForm::Title && !subtitle.empty()) deck.AddTitle("SUBT", subtitle, "サブタイトル");
  }
  return deck.Take();
}

bool ConvertOldModel(const std::string& folder, const std::string& deckPath, std::string_view subtitle) try {
  const std::string target = FolderOf(deckPath);
  if (!ConsentsToFolder(target)) return false;
  const Conversion conversion = ConvertedDeck(ReadOldModel(folder), subtitle);
  MakeFolder(target);
  ReplaceTextFile(deckPath, conversion.deck);
  RemoveFormerResults({target, "", PathText(NativePath(deckPath).filename())});
  if (!conversion.notes.empty()) Tell(Joined(conversion.notes));
  return true;
} catch (const Fault& fault) {
  Tell(fault.what());
  return false;
}

}  // namespace zorlan

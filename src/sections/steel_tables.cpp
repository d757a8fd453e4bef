#include "sections/steel_tables.h"

#include <array>
#include <unordered_map>

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"

namespace zorlan {

std::string SteelTableFolder;

namespace {

constexpr std::string_view kSupplement = "-2.CSV";
constexpr std::string_view kBehindTheEnd = "先頭の値が 0 の行または空の行から後ろにあるため、";

struct FamilyTable {
  bool isRead = false;
  std::vector<SteelRow> rows;
  std::unordered_map<std::string_view, const SteelRow*> byName;  // first row of each name; points into rows
};

struct Tables {
  bool supplementsAreMerged = false;
  std::array<FamilyTable, kSteelFamilies> families;
  FamilyTable& operator[](SteelFamily family) { return families[static_cast<std::size_t>(family)]; }
};

Tables& TheTables() {
  static Tables tables;
  return tables;
}

std::string FileName(SteelFamily family, std::string_view ending) {
  return std::string(FormOf(family).word) + std::string(ending);
}

/// Takes the rows of a file, and tells of those that its end keeps from being read.
void TakeRows(SteelFamily family, std::string_view bytes) {
  FamilyTable& table = TheTables()[family];
  table.byName.clear();
  table.rows = ParseSteelRows(family, bytes);
  table.byName.reserve(table.rows.size());
  for (const SteelRow& row : table.rows) table.byName.emplace(row.name, &row);
  table.isRead = true;
  if (const int unread = UnreadSteelRows(bytes); unread > 0)
    Tell(FileName(family, ".CSV") + " の " + std::to_string(unread) + " 行は、" + std::string(kBehindTheEnd) +
         "読み込まれません。");
}

/// What the user is told of rows that a merge left out; empty if it took them all.
std::string LeftOut(SteelFamily family, const MergedSteelTable& merged) {
  std::string text;
  if (merged.withoutPlace > 0)
    text += FileName(family, ".CSV") + " に登録できるのは " + std::to_string(kMaxSteelRows) +
            " 断面までのため、" + std::to_string(merged.withoutPlace) + " 断面を登録できませんでした。\n";
  if (merged.unread > 0)
    text += FileName(family, kSupplement) + " の " + std::to_string(merged.unread) + " 行は、" +
            std::string(kBehindTheEnd) + "統合できませんでした。\n";
  return text;
}

/// The merge takes the main file's name, and the supplement is gone. One with rows that were left out is kept
/// aside, so that no row is lost.
void SaveMerge(SteelFamily family, const MergedSteelTable& merged) {
  ReplaceTableFile(SteelTablePath(family), SteelTablePath(family, ".$$$"), SteelTablePath(family, ".BAK"),
                   merged.bytes);
  const std::string supplement = SteelTablePath(family, kSupplement), leftOut = LeftOut(family, merged);
  if (leftOut.empty()) {
    RemoveFile(supplement);
    return;
  }
  RenameFile(supplement, SteelTablePath(family, "-2.BAK"));
  Tell(leftOut + "統合前のデータは " + FileName(family, ".BAK") + " と " + FileName(family, "-2.BAK") +
       " に残してあります。");
}

void MergeSupplement(SteelFamily family) {
  const std::string main = SteelTablePath(family), supplement = SteelTablePath(family, kSupplement);
  if (!FileExists(supplement) || !FileExists(main)) return;
  try {
    const MergedSteelTable merged = MergeSteelTables(family, ReadBytes(main), ReadBytes(supplement));
    TakeRows(family, merged.bytes);
    SaveMerge(family, merged);
  } catch (const FileFault& fault) {
    if (!FileExists(supplement)) return;  // another run merged it meanwhile
    Tell(FileName(family, kSupplement) + " を " + FileName(family, ".CSV") + " に統合して保存できません。\n" +
         fault.what());
  }
}

void MergeSupplements() {
  Tables& tables = TheTables();
  if (tables.supplementsAreMerged) return;
  tables.supplementsAreMerged = true;
  if (SteelTableFolder.empty()) return;
  for (std::size_t i = 0; i < kSteelFamilies; ++i) MergeSupplement(static_cast<SteelFamily>(i));
}

/// Reads the main file, or nothing where it is missing.
void ReadMain(SteelFamily family) {
  std::string bytes;
  const std::string path = SteelTablePath(family);
  if (!SteelTableFolder.empty() && FileExists(path)) {
    try {
      bytes = ReadBytes(path);
    } catch (const FileFault& fault) {  // the sections are then computed from their dimensions
      Tell("鋼材テーブルを読み込めません。\n" + std::string(fault.what()));
    }
  }
  TakeRows(family, bytes);
}

FamilyTable& ReadTable(SteelFamily family) {
  FamilyTable& table = TheTables()[family];
  if (table.isRead) return table;
  MergeSupplements();
  if (!table.isRead) ReadMain(family);
  return table;
}

/// How many powers of a centimetre a unit is.
int CentimetrePower(SteelUnit unit) {
  switch (unit) {
    case SteelUnit::Centimetre:
      return 1;
    case SteelUnit::Centimetre2:
      return 2;
    case SteelUnit::Centimetre3:
      return 3;
    case SteelUnit::Centimetre4:
      return 4;
    case SteelUnit::Millimetre:
    case SteelUnit::None:
      break;
  }
  return 0;
}

/// The row's values, each in its table unit divided by what `divisor` answers for that unit.
template <class Divisor>
SteelSection SectionOf(SteelFamily family, const SteelRow& row, Divisor divisor) {
  SteelSection section;
  const std::span<const SteelColumn> columns = FormOf(family).columns;
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (columns[i].field != nullptr) section.*columns[i].field = row.values[i] / divisor(columns[i].unit);
  if (family == SteelFamily::Pipe) {
    section.Iy = section.Ix;
    section.iy = section.ix;
    section.Zy = section.Zx;
  }
  return section;
}

}  // namespace

void LoadSectionTables() {
  for (std::size_t i = 0; i < kSteelFamilies; ++i) ReadTable(static_cast<SteelFamily>(i));
}

void ForgetSectionTables() {
  TheTables() = Tables{};
}

const std::vector<SteelRow>& SteelRows(SteelFamily family) {
  return ReadTable(family).rows;
}

const SteelRow* FindSteelRow(SteelFamily family, std::span<const double> dimensions, double scale) {
  const FamilyTable& table = ReadTable(family);
  if (table.rows.empty()) return nullptr;
  const auto found = table.byName.find(SteelSectionName(family, dimensions, scale));
  return found == table.byName.end() ? nullptr : found->second;
}

SteelSection SteelSectionIn(double mmPerUnit, SteelFamily family, const SteelRow& row) {
  const double centimetresPerUnit = mmPerUnit / 10;
  return SectionOf(family, row, [&](SteelUnit unit) {
    if (unit == SteelUnit::Millimetre) return mmPerUnit;
    double divisor = 1;
    for (int i = CentimetrePower(unit); i > 0; --i) divisor *= centimetresPerUnit;
    return divisor;
  });
}

std::optional<SteelSection> FindSection(std::string_view familyWord, std::span<const double> dimensions,
                                        double scale) {
  const std::optional<SteelFamily> family = FamilyOf(familyWord);
  if (!family || dimensions.size() < FormOf(*family).keyColumns) return std::nullopt;
  const SteelRow* row = FindSteelRow(*family, dimensions, scale);
  if (row == nullptr) return std::nullopt;
  if (scale == 1) return SectionOf(*family, *row, [](SteelUnit) { return 1.0; });
  return SteelSectionIn(scale, *family, *row);
}

std::string SteelTablePath(SteelFamily family, std::string_view ending) {
  return PathIn(SteelTableFolder, FileName(family, ending));
}

void ReplaceTableFile(const std::string& path, const std::string& temporary, const std::string& backup,
                      std::string_view bytes) {
  ReplaceBytes(temporary, bytes);
  try {
    RemoveFile(backup);
    if (FileExists(path)) CopyFileOver(path, backup);
    RenameFile(temporary, path);
  } catch (const FileFault&) {
    RemoveFile(temporary);
    throw;
  }
}

}  // namespace zorlan

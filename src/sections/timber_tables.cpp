#include "sections/timber_tables.h"

#include <optional>
#include <span>
#include <unordered_map>

#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text_file.h"
#include "sections/table_lines.h"

namespace zorlan {

std::string TimberTableFolder;

namespace {

/// Fields 3 and on, in the order of the file. The first two are the names.
constexpr double TimberGradeRec::*kGradeFields[] = {
    &TimberGradeRec::Fc, &TimberGradeRec::Ft, &TimberGradeRec::Fb, &TimberGradeRec::Fs, &TimberGradeRec::E};
constexpr double TimberSectionRec::*kSectionFields[] = {&TimberSectionRec::sizeCompression,
                                                        &TimberSectionRec::sizeTension,
                                                        &TimberSectionRec::sizeBending,
                                                        &TimberSectionRec::thickness,
                                                        &TimberSectionRec::width,
                                                        &TimberSectionRec::Ix,
                                                        &TimberSectionRec::Iy,
                                                        &TimberSectionRec::ix,
                                                        &TimberSectionRec::iy,
                                                        &TimberSectionRec::iStrut,
                                                        &TimberSectionRec::Zx,
                                                        &TimberSectionRec::Zy};

template <class Record>
std::vector<Record> Parse(std::string_view text, std::span<double Record::*const> fields) {
  std::vector<Record> records;
  SkipTableHead(text);
  while (std::optional<std::string_view> line = TakeLine(text)) {
    Record record;
    record.name = TakeCell(*line);
    if (record.name.empty()) continue;
    record.shortName = TakeCell(*line);
    for (double Record::*const field : fields) record.*field = ReadReal(TakeCell(*line));
    records.push_back(std::move(record));
  }
  return records;
}

/// One table in memory with the first record of each name.
template <class Record>
class NamedTable {
 public:
  NamedTable() = default;
  explicit NamedTable(std::vector<Record> records) : records_(std::move(records)) {
    for (const Record& record : records_) byName_.emplace(record.name, &record);
  }
  const std::vector<Record>& Records() const { return records_; }
  const Record* Find(std::string_view name) const {
    const auto found = byName_.find(NoSpc(name));
    return found == byName_.end() ? nullptr : found->second;
  }

 private:
  std::vector<Record> records_;
  std::unordered_map<std::string_view, const Record*> byName_;  // points into records_
};

struct Tables {
  NamedTable<TimberGradeRec> grades;
  NamedTable<TimberSectionRec> sections;
};

std::optional<Tables>& Loaded() {
  static std::optional<Tables> tables;
  return tables;
}

std::string TableFile(std::string_view name) {
  if (TimberTableFolder.empty()) return {};
  const std::string path = PathIn(TimberTableFolder, name);
  if (!FileExists(path)) return {};
  try {
    return ReadTextFile(path);
  } catch (const FileFault& fault) {
    Tell("木材テーブルを読み込めません。\n" + std::string(fault.what()));
    return {};
  }
}

const Tables& TheTables() {
  LoadTimberTables();
  return *Loaded();
}

}  // namespace

void LoadTimberTables() {
  if (Loaded()) return;
  Tables& tables = Loaded().emplace();
  tables.grades = NamedTable(ParseTimberGrades(TableFile("材種.CSV")));
  tables.sections = NamedTable(ParseTimberSections(TableFile("断面.CSV")));
}

void ForgetTimberTables() {
  Loaded().reset();
}

const std::vector<TimberGradeRec>& TimberGrades() {
  return TheTables().grades.Records();
}

const std::vector<TimberSectionRec>& TimberSections() {
  return TheTables().sections.Records();
}

const TimberGradeRec* FindTimberGrade(std::string_view name) {
  return TheTables().grades.Find(name);
}

const TimberSectionRec* FindTimberSection(std::string_view name) {
  return TheTables().sections.Find(name);
}

std::vector<TimberGradeRec> ParseTimberGrades(std::string_view text) {
  return Parse<TimberGradeRec>(text, kGradeFields);
}

std::vector<TimberSectionRec> ParseTimberSections(std::string_view text) {
  return Parse<TimberSectionRec>(text, kSectionFields);
}

}  // namespace zorlan

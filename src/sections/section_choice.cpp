#include "sections/section_choice.h"

#include <algorithm>

#include "base/number.h"
#include "base/number_format.h"
#include "base/text.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"

namespace zorlan {
namespace {

constexpr std::string_view kFamilyNames[] = {"Ｈ形鋼", "角形鋼管", "丸形鋼管", "溝形鋼", "山形鋼"};
constexpr std::string_view kWidest = " BOX-500x500x10.5x10x20      ";
constexpr NumberPattern kNumber = "###0", kArea = "##0.0", kMoment = "#####0.0";
constexpr NumberPattern kTimberArea = "#####0.000", kTimberMoment = "#####0.00";
constexpr std::string_view kTimberWord = "木";

constexpr std::size_t kTypeCell = 1, kFirstField = 2, kTimberCell = 9, kSpeciesCell = 10, kCells = 11;

std::string_view CellAt(const std::vector<std::string>& cells, std::size_t place) {
  return place < cells.size() ? NoSpc(cells[place]) : std::string_view();
}

std::string RowNumber(const ChoiceList& list) {
  return FormatNumber(static_cast<double>(list.rows.size() + 1), kNumber);
}

/// "400x200x8x13"
std::string Joined(const std::array<std::string, 4>& P, std::size_t sizes) {
  std::string text;
  for (std::size_t i = 0; i < sizes; ++i)
    text.append(i == 0 ? "" : "x").append(NoSpc(P[i]).empty() ? "0" : RealText(ReadReal(P[i])));
  return text;
}

}  // namespace

ChoiceList SteelChoices(SteelFamily family) {
  ChoiceList list{std::string(kFamilyNames[static_cast<std::size_t>(family)]),
                  {"番号", "鋼材断面サイズ", "断面積(cm2)", "Ｉｘ(cm4)", "Ｉｙ(cm4)"},
                  std::string(kWidest),
                  {},
                  {}};
  constexpr double kTableUnit = 10;  // mm in a cm: areas and moments as the table has them
  for (const SteelRow& row : SteelRows(family)) {
    const SteelSection section = SteelSectionIn(kTableUnit, family, row);
    list.rows.push_back({RowNumber(list), row.name, FormatNumber(section.A, kArea),
                         FormatNumber(section.Ix, kMoment), FormatNumber(section.Iy, kMoment)});
    list.names.push_back(row.name);
  }
  return list;
}

ChoiceList TimberChoices() {
  ChoiceList list{"木材",
                  {"番号", "断面名称", "断面ｻｲｽﾞ(mm)", "断面積(10^3mm2)", "Ix(10^6mm4)", "Iy(10^6mm4)"},
                  "2-212     ",
                  {},
                  {}};
  for (const TimberSectionRec& row : TimberSections()) {
    const double area = row.thickness * row.width / 1000;  // 10^3 mm2
    list.rows.push_back({RowNumber(list), row.name, RealText(row.thickness) + "x" + RealText(row.width),
                         FormatNumber(area, kTimberArea), FormatNumber(row.Ix, kTimberMoment),
                         FormatNumber(row.Iy, kTimberMoment)});
    list.names.push_back(row.name);
  }
  return list;
}

std::vector<std::string> SizesOfName(std::string_view name) {
  std::vector<std::string> sizes;
  const std::size_t dash = name.find('-');
  if (dash == std::string_view::npos) return sizes;
  for (std::string_view rest = name.substr(dash + 1);;) {
    const std::size_t end = rest.find('x');
    sizes.emplace_back(NoSpc(rest.substr(0, end)));
    if (end == std::string_view::npos) return sizes;
    rest.remove_prefix(end + 1);
  }
}

SectionEntry EntryOfCells(const std::vector<std::string>& cells) {
  SectionEntry entry;
  const double type = ReadReal(CellAt(cells, kTypeCell));
  if (type >= 0 && type < kSectionKinds) entry.type = static_cast<int>(type);
  for (std::size_t i = 0; i < entry.P.size(); ++i) entry.P[i] = CellAt(cells, kFirstField + i);
  entry.timberSection = CellAt(cells, kTimberCell);
  entry.species = CellAt(cells, kSpeciesCell);
  return entry;
}

void PutEntry(const SectionEntry& entry, std::vector<std::string>& cells) {
  if (cells.size() < kCells) cells.resize(kCells);
  cells[kTypeCell] = std::to_string(entry.type);
  for (std::size_t i = 0; i < entry.P.size(); ++i) cells[kFirstField + i] = entry.P[i];
  cells[kTimberCell] = entry.timberSection;
  cells[kSpeciesCell] = entry.species;
}

void ChangeType(SectionEntry& entry, int type) {
  const SectionKind &before = SectionKindOf(entry.type), &after = SectionKindOf(type);
  entry.type = type;
  if (before.fields != after.fields || before.family != after.family || before.source != after.source)
    entry.P = {};
  if (after.source != SectionSource::Timber) entry.timberSection = entry.species = "";
}

void TakeChoice(SectionEntry& entry, std::string_view name) {
  const SectionKind& kind = SectionKindOf(entry.type);
  if (kind.source == SectionSource::Timber) {
    const TimberSectionRec* const row = FindTimberSection(name);
    if (row == nullptr) return;
    entry.timberSection = row->name;
    entry.P[0] = RealText(row->thickness);
    entry.P[1] = RealText(row->width);
  } else if (kind.source == SectionSource::Steel) {
    const std::vector<std::string> sizes = SizesOfName(name);
    entry.P = {};
    std::copy_n(sizes.begin(), std::min(sizes.size(), entry.P.size()), entry.P.begin());
    if (kind.family == SteelFamily::Box) entry.P[3] = entry.P[2];  // one plate thickness: tw is tf
  }
}

std::string NameOfEntry(const SectionEntry& entry) {
  const SectionKind& kind = SectionKindOf(entry.type);
  if (kind.Sizes() == 0 || NoSpc(entry.P[0]).empty()) return {};
  const std::string_view word = kind.source == SectionSource::Timber ? kTimberWord : FormOf(kind.family).word;
  return std::string(word) + "-" + Joined(entry.P, kind.Sizes());
}

}  // namespace zorlan

// The sections of the input echo: one block a TYPE, each with its own columns.
#include <algorithm>
#include <cstdint>
#include <string>

#include "analysis/listing_input.h"
#include "analysis/listing_table.h"
#include "base/cp932.h"

namespace zorlan {
namespace {

/// A column behind the section's number; without a value it stays blank.
struct SectionField {
  double SectRec::*value;
  NumberPattern pattern;
};

constexpr NumberPattern kNumber = "  ###0";

constexpr SectionField kDirect[] = {
    {&SectRec::P1, " ####0.0"},    {&SectRec::P2, "#########0.0"}, {&SectRec::P4, "#########0.0"},
    {&SectRec::E, "#########0.0"}, {&SectRec::G, "#########0.0"},
};
constexpr SectionField kRectangle[] = {
    {&SectRec::P1, " ####0.0"},     {&SectRec::P2, " ###0.0"}, {&SectRec::P3, "##0.000"},
    {&SectRec::P4, "#########0.0"}, {&SectRec::phi, "##0.00"}, {&SectRec::E, "#########0.0"},
    {&SectRec::G, "#########0.0"},
};
// H, box and channel sections; timber stands in the same columns.
constexpr SectionField kShape[] = {
    {&SectRec::P1, " ######0"},    {&SectRec::P2, "######0"}, {&SectRec::P3, "####0.0"},
    {&SectRec::P4, "####0.0"},     {&SectRec::phi, "##0.00"}, {&SectRec::E, "#########0.0"},
    {&SectRec::G, "#########0.0"},
};
constexpr SectionField kPipe[] = {
    {&SectRec::P1, " ######0"},    {&SectRec::P2, "####0.0"},     {&SectRec::phi, "##0.00"},
    {&SectRec::E, "#########0.0"}, {&SectRec::G, "#########0.0"},
};
constexpr SectionField kAngle[] = {
    {&SectRec::P1, " ######0"},    {&SectRec::P2, "######0"}, {&SectRec::P3, "####0.0"},
    {nullptr, "####0.0"},          {&SectRec::phi, "##0.00"}, {&SectRec::E, "#########0.0"},
    {&SectRec::G, "#########0.0"},
};

struct SectionBlock {
  std::string_view names;
  std::string_view units;  // gravitational
  std::span<const SectionField> fields;
};

// By TYPE. A tag of two digits keeps the columns behind it in their places.
constexpr SectionBlock kBlocks[] = {
    {"  MATE      A           J          As         E           G       ［直接入力］",
     "  (T0)   (CM2)       (CM4)       (CM2)     (T/CM2)     (T/CM2)", kDirect},
    {"  MATE      B      D      κ         As     φ         E           G       ［ＢｘＤ入力］",
     "  (T1)    (CM)   (CM)              (CM2)            (t/CM2)     (t/CM2)", kRectangle},
    {"  MATE      H      B     t1     t2     φ        E           G       ［Ｈ形鋼(強軸)］",
     "  (T2)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［□形鋼(強軸)］",
     "  (T3)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      D      T     φ        E           G       ［○形鋼］",
     "  (T4)    (MM)   (MM)           (t/CM2)     (t/CM2)", kPipe},
    {"  MATE      H      B     t1     t2     φ        E           G       ［Ｈ形鋼(弱軸)］",
     "  (T5)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［□形鋼(弱軸)］",
     "  (T6)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［木材(強軸)］",
     "  (T7)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)  断面名称    樹種名称", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［木材(弱軸)］",
     "  (T8)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)  断面名称    樹種名称", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［溝形鋼(強軸)］",
     "  (T9)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      H      B     t1     t2     φ        E           G       ［溝形鋼(弱軸)］",
     " (T10)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)", kShape},
    {"  MATE      A      B      t            φ        E           G       ［山形鋼(強軸)］",
     "  (T11)   (MM)   (MM)   (MM)                  (t/CM2)     (t/CM2)", kAngle},
    {"  MATE      A      B      t            φ        E           G       ［山形鋼(弱軸)］",
     " (T12)    (MM)   (MM)   (MM)                  (t/CM2)     (t/CM2)", kAngle},
};

constexpr std::int16_t kTimberTypes[] = {7, 8};
constexpr std::size_t kTimberNameWidth = 10;
constexpr std::string_view kTimberGap = "  ";

/// The unit line, with the moduli in N/mm2 where the input is SI.
std::string UnitLine(std::string_view line, bool si) {
  std::string units(line);
  if (!si) return units;
  constexpr std::string_view kModulus = "/CM2)";
  for (std::size_t at = units.find(kModulus); at != std::string::npos; at = units.find(kModulus, at + 1))
    units.replace(at - 2, 2 + kModulus.size(), "(N/MM2)");
  return units;
}

/// Section and species of a timber section below their captions; a long name pushes the other to the right.
std::string TimberNames(const SectRec& section) {
  std::string names(kTimberGap);
  names += PadRight(section.timberSection, kTimberNameWidth);
  names += kTimberGap;
  names += section.species;
  names.erase(names.find_last_not_of(' ') + 1);
  return names;
}

void AppendSection(std::string& out, const SectRec& section, std::span<const SectionField> fields) {
  AppendField(out, section.number, kNumber);
  for (const SectionField& field : fields)
    if (field.value != nullptr)
      AppendField(out, section.*field.value, field.pattern);
    else
      out.append(static_cast<std::size_t>(field.pattern.Width()), ' ');
  if (std::ranges::find(kTimberTypes, section.TYPE) != std::end(kTimberTypes)) out += TimberNames(section);
  out += kLineEnd;
}

}  // namespace

std::string SectionList(const ModelRec& model) {
  std::string list;
  for (std::int16_t type = 0; type < static_cast<std::int16_t>(std::size(kBlocks)); ++type) {
    const SectionBlock& block = kBlocks[type];
    bool first = true;
    for (int r = 1; r <= model.SectCount; ++r) {
      if (model.Sect[r].TYPE != type) continue;
      if (first) {
        AppendLine(list, block.names);
        AppendLine(list, UnitLine(block.units, IsSI(model.InUnit)));
        first = false;
      }
      AppendSection(list, model.Sect[r], block.fields);
    }
  }
  return list;
}

}  // namespace zorlan

#include "analysis/external_deck.h"

#include <string_view>
#include <utility>

#include "analysis/external_road.h"
#include "base/fixed_real.h"

namespace zorlan {
namespace {

constexpr int kRealWidth = 10, kIntegerWidth = 5;
constexpr int kBeamGroup = 2, kBoundaryGroup = 7;
constexpr int kGroups = 2, kLoadCases = 1;
constexpr std::string_view kVersion = "%Ver.4";
constexpr std::size_t kVersionColumn = 86;
constexpr std::string_view kUnitComment = "%力（質量)単位系=2長さ単位系=0";
constexpr std::string_view kEndOfBeams = "         0        -1         ";
constexpr std::string_view kEndOfCase = "         1";
constexpr int kFixity[] = {0, 1, 0, 1, 0, 1};  // X and Z move, and the rotation about Y

/// One line of the deck. Columns count from 1 and are filled from left to right.
class ColumnLine {
 public:
  ColumnLine& Text(std::size_t column, std::string_view text) {
    line_.resize(column - 1, ' ');
    line_ += text;
    return *this;
  }
  ColumnLine& Integer(std::size_t column, int value) {
    const std::string digits = std::to_string(value);
    return Text(column, std::string(kIntegerWidth - digits.size(), ' ') + digits);
  }
  ColumnLine& Real(std::size_t column, double value) { return Text(column, ExternalReal(value)); }
  void AppendTo(std::string& deck) const { deck += line_ + "\r\n"; }

 private:
  std::string line_;
};

int Count(const auto& table) {
  return static_cast<int>(table.size());
}

ColumnLine NodeLine(const ExtNode& node) {
  ColumnLine line;
  line.Integer(1, node.number);
  for (std::size_t d = 0; d < 6; ++d) line.Integer(6 + 5 * d, kFixity[d]);
  return line.Real(36, node.X).Real(56, node.Y);
}

ColumnLine MaterialLine(const ExtMaterial& material) {
  return ColumnLine().Integer(1, material.number).Real(6, material.E).Real(16, material.nu);
}

ColumnLine SectionLine(const ExtSection& section) {
  return ColumnLine()
      .Integer(1, section.number)
      .Real(6, section.A)
      .Real(16, section.A)
      .Real(26, section.As)
      .Real(36, section.I)
      .Real(46, section.I)
      .Real(56, section.I);
}

/// Two actions as texts. Where they cancel they have the same digits (a minus sign takes one), so that they
/// cancel in the deck too.
std::pair<std::string, std::string> ActionTexts(double I, double J) {
  std::pair<std::string, std::string> texts{ExternalReal(I), ExternalReal(J)};
  if (I != -J || I == 0) return texts;
  const std::string& negative = I < 0 ? texts.first : texts.second;
  std::string positive = negative;
  positive[positive.find('-')] = ' ';
  (I < 0 ? texts.second : texts.first) = positive;
  return texts;
}

/// The actions of a loaded beam at its end I, and on a second line those at its end J.
void AppendLoadPair(const ExtLoad& I, const ExtLoad& J, int number, std::string& deck) {
  ColumnLine lineI, lineJ;
  lineI.Integer(1, number);
  for (const std::size_t place : {std::size_t{0}, std::size_t{2}, std::size_t{4}}) {
    const auto [textI, textJ] = ActionTexts(I[place], J[place]);
    lineI.Text(6 + kRealWidth * place, textI);
    lineJ.Text(6 + kRealWidth * place, textJ);
  }
  lineI.AppendTo(deck);
  lineJ.AppendTo(deck);
}

std::string_view ReleaseCode(int end) {
  if (end == kExtLink) return "000090";
  return end == kExtPin ? "000010" : "000000";
}

ColumnLine BeamLine(const ExtBeam& beam) {
  return ColumnLine()
      .Integer(1, beam.number)
      .Integer(6, beam.nodeI)
      .Integer(11, beam.nodeJ)
      .Integer(16, beam.material)
      .Integer(21, beam.section)
      .Integer(26, beam.loadI)
      .Integer(31, beam.loadJ)
      .Text(51, ReleaseCode(beam.endI))
      .Text(57, ReleaseCode(beam.endJ));
}

void AppendBoundary(const ExtBoundaryElement& element, std::string& deck) {
  ColumnLine()
      .Integer(1, element.node)
      .Integer(6, element.kind)
      .Integer(11, element.code)
      .Real(41, element.prescribed)
      .Real(51, element.stiffness)
      .Real(61, element.cosine)
      .AppendTo(deck);
  ColumnLine line;
  for (std::size_t k = 0; k < 3; ++k) line.Real(1 + kRealWidth * k, element.direction[k]);
  line.AppendTo(deck);
}

void AppendBeamGroup(const ExternalTables& tables, std::string& deck) {
  const int loadPairs = Count(tables.ExtLoads) / 2;
  ColumnLine()
      .Integer(1, kBeamGroup)
      .Integer(6, Count(tables.ExtBeams))
      .Integer(11, Count(tables.ExtMaterials))
      .Integer(16, Count(tables.ExtSections))
      .Integer(21, loadPairs)
      .AppendTo(deck);
  for (const ExtMaterial& material : tables.ExtMaterials) MaterialLine(material).AppendTo(deck);
  for (const ExtSection& section : tables.ExtSections) SectionLine(section).AppendTo(deck);
  for (int empty = 0; empty < 3; ++empty) ColumnLine().AppendTo(deck);
  for (std::size_t row = 0; row < tables.ExtLoads.size(); row += 2)
    AppendLoadPair(tables.ExtLoads[row], tables.ExtLoads[row + 1], static_cast<int>(row / 2) + 1, deck);
  for (const ExtBeam& beam : tables.ExtBeams) BeamLine(beam).AppendTo(deck);
  ColumnLine().Text(1, kEndOfBeams).AppendTo(deck);
}

}  // namespace

std::string ExternalReal(double value) {
  return FixedReal(value, kRealWidth);
}

std::string ExternalDeckText(const ExternalTables& tables) {
  std::string deck;
  ColumnLine().Text(kVersionColumn, kVersion).AppendTo(deck);
  ColumnLine control;
  control.Integer(1, Count(tables.ExtNodes)).Integer(6, kGroups).Integer(11, kLoadCases);
  for (std::size_t field = 0; field < 6; ++field) control.Integer(16 + 5 * field, 0);
  control.Text(46, kUnitComment).AppendTo(deck);
  for (const ExtNode& node : tables.ExtNodes) NodeLine(node).AppendTo(deck);
  AppendBeamGroup(tables, deck);
  ColumnLine().Integer(1, kBoundaryGroup).Integer(6, Count(tables.ExtBoundary)).AppendTo(deck);
  for (const ExtBoundaryElement& element : tables.ExtBoundary) AppendBoundary(element, deck);
  for (const ExtNodalLoad& load : tables.ExtNodalLoads)
    ColumnLine()
        .Integer(1, load.node)
        .Integer(6, kLoadCases)
        .Real(11, load.FX)
        .Real(31, load.FY)
        .Real(51, load.MZ)
        .AppendTo(deck);
  ColumnLine().AppendTo(deck);
  ColumnLine().Text(1, kEndOfCase).AppendTo(deck);
  return deck;
}

}  // namespace zorlan

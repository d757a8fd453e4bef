#include "analysis/external_results.h"

#include <charconv>
#include <cmath>
#include <string>

#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"

namespace zorlan {
namespace {

constexpr int kLoadCase = 1;  // the deck holds one
constexpr int kSpringCode = 2;
constexpr std::size_t kDisplacementWidth = 14, kForceWidth = 20;

struct CountLine {
  std::string_view label;
  std::size_t column;  // of the value, from 1
};
constexpr CountLine kNodes{"NUMBER OF NODAL POINTS   =", 32}, kCases{"NUMBER OF LOAD CASES     =", 32},
    kBeams{"NUMBER OF BEAMS                  =", 37}, kElements{"NUMBER OF ELEMENTS =", 22};
constexpr std::string_view kDisplacements = "N O D E   D I S P L A C E M E N T S / R O T A T I O N S";
constexpr std::string_view kBeamForces = "BEAM FORCES AND MOMENTS";
constexpr std::string_view kBoundaryForces = "B O U N D A R Y   E L E M E N T   F O R C E S / M O M E N T S";

[[noreturn]] void Fail(const std::string& what) {
  throw Fault("外部解析プログラムの出力 ： " + what);
}

/// Goes through the text line by line.
class OutputReader {
 public:
  explicit OutputReader(std::string_view text) : rest_(text) {}

  /// The line that holds the label must give this count.
  void ExpectCount(const CountLine& count, std::size_t expected) {
    FindLine(count.label);
    const double value = ReadReal(line_.substr(std::min(count.column - 1, line_.size())));
    if (value != static_cast<double>(expected)) Fail(std::string(count.label) + " が入力と異なります");
  }
  /// Goes behind the line that holds the text.
  void FindLine(std::string_view text) {
    while (NextLine())
      if (line_.find(text) != std::string_view::npos) return;
    Fail("「" + std::string(text) + "」がありません");
  }
  /// The next line that isn't empty.
  void NextRow() {
    while (NextLine())
      if (!NoSpc(line_).empty()) return;
    Fail("途中で終わっています");
  }
  double Real(std::size_t column, std::size_t width) const {
    const std::string_view field =
        NoSpc(column > line_.size() ? std::string_view() : line_.substr(column - 1, width));
    double value = 0;
    const std::from_chars_result result = std::from_chars(field.data(), field.data() + field.size(), value);
    if (result.ec != std::errc() || result.ptr != field.data() + field.size() || !std::isfinite(value))
      Fail(std::to_string(number_) + "行目の" + std::to_string(column) + "桁目が数値ではありません");
    return value;
  }
  void ExpectInteger(std::size_t column, std::size_t width, std::size_t expected) const {
    if (Real(column, width) != static_cast<double>(expected))
      Fail(std::to_string(number_) + "行目の" + std::to_string(column) + "桁目の番号が違います");
  }

 private:
  bool NextLine() {
    const std::optional<std::string_view> line = TakeLine(rest_);
    if (!line) return false;
    line_ = *line;
    ++number_;
    return true;
  }
  std::string_view rest_, line_;
  int number_ = 0;
};

/// The members' axes keep their signs, moments turn.
void ReadEnd(const OutputReader& reader, double* values) {
  values[0] = reader.Real(19, kForceWidth);
  values[1] = reader.Real(39, kForceWidth);
  values[2] = -reader.Real(59, kForceWidth);
}

}  // namespace

ExternalOutput ParseExternalOutput(std::string_view text, const ExternalTables& tables) {
  OutputReader reader(text);
  reader.ExpectCount(kNodes, tables.ExtNodes.size());
  reader.ExpectCount(kCases, kLoadCase);
  reader.ExpectCount(kBeams, tables.ExtBeams.size());
  reader.ExpectCount(kElements, tables.ExtBoundary.size());

  ExternalOutput output;
  reader.FindLine(kDisplacements);
  for (std::size_t node = 1; node <= tables.ExtNodes.size(); ++node) {
    reader.NextRow();
    reader.ExpectInteger(2, 9, node);
    reader.ExpectInteger(11, 5, kLoadCase);
    // UX, UZ and RY of the deck's six
    output.displacements.push_back({reader.Real(16, kDisplacementWidth), reader.Real(44, kDisplacementWidth),
                                    -reader.Real(72, kDisplacementWidth)});
  }
  reader.FindLine(kBeamForces);
  for (std::size_t beam = 1; beam <= tables.ExtBeams.size(); ++beam) {
    std::array<double, 6> ends{};
    for (double* const end : {ends.data(), ends.data() + 3}) {
      reader.NextRow();
      if (beam <= 9999) reader.ExpectInteger(2, 4, beam);  // a longer number has no room: its place tells
      reader.ExpectInteger(6, 5, kLoadCase);
      ReadEnd(reader, end);
    }
    output.endForces.push_back(ends);
  }
  reader.FindLine(kBoundaryForces);
  for (std::size_t element = 1; element <= tables.ExtBoundary.size(); ++element) {
    reader.NextRow();
    reader.ExpectInteger(2, 9, element);
    reader.ExpectInteger(11, 5, kLoadCase);
    output.boundaryForces.push_back(reader.Real(24, kForceWidth));
  }
  return output;
}

std::array<double, 6> ElementEndForces(const ExtElement& element, const ExternalOutput& output) {
  const std::array<double, 6>& I = output.endForces[static_cast<std::size_t>(element.beamI - 1)];
  const std::array<double, 6>& J = output.endForces[static_cast<std::size_t>(element.beamJ - 1)];
  return {I[0], I[1], I[2] + element.armI * I[1], J[3], J[4], J[5] - element.armJ * J[4]};
}

std::array<double, 3> BoundaryReactions(int row, const ExternalTables& tables, const ExternalOutput& output) {
  std::array<double, 3> reaction{};
  for (std::size_t b = 0; b < tables.ExtBoundary.size(); ++b) {
    const ExtBoundaryElement& element = tables.ExtBoundary[b];
    if (element.node != row) continue;
    const double force = element.code == kSpringCode ? output.boundaryForces[b] / element.magnification
                                                     : output.boundaryForces[b];
    const auto& [x, y, z] = element.direction;
    reaction[0] += force * x;
    reaction[1] += force * z;
    reaction[2] -= force * y;
  }
  return reaction;
}

}  // namespace zorlan

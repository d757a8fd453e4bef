#include "companion/output.h"

#include <string_view>

#include "base/fixed_real.h"

namespace zorlan::companion {
namespace {

constexpr std::string_view kNodesLine = "NUMBER OF NODAL POINTS   =";
constexpr std::string_view kCasesLine = "NUMBER OF LOAD CASES     =";
constexpr std::string_view kBeamsLine = "NUMBER OF BEAMS                  =";
constexpr std::string_view kElementsLine = "NUMBER OF ELEMENTS =";
constexpr std::string_view kDisplacements = "N O D E   D I S P L A C E M E N T S / R O T A T I O N S";
constexpr std::string_view kBeamForces = "BEAM FORCES AND MOMENTS";
constexpr std::string_view kBoundaryForces = "B O U N D A R Y   E L E M E N T   F O R C E S / M O M E N T S";

constexpr int kLoadCase = 1;
constexpr int kDisplacementWidth = 14, kForceWidth = 20;
constexpr std::size_t kMostBeamDigits =
    4;  // columns 2 to 5: a beam with a longer number is known by its place

class Text {
 public:
  /// Starts a line with a text at a column (from 1).
  Text& At(std::size_t column, std::string_view text) {
    line_.resize(column - 1, ' ');
    line_ += text;
    return *this;
  }
  Text& Integer(std::size_t column, std::size_t width, int value) {
    const std::string digits = std::to_string(value);
    return At(column, std::string(width - digits.size(), ' ') + digits);
  }
  /// A blank in front of as many digits as the rest of the width holds.
  Text& Real(std::size_t column, int width, double value) {
    return At(column, " " + FixedReal(value, width - 1));
  }
  void End() {
    text_ += line_ + "\r\n";
    line_.clear();
  }
  std::string Take() { return std::move(text_); }

 private:
  std::string text_, line_;
};

void AppendCount(Text& text, std::string_view label, std::size_t labelColumn, std::size_t column,
                 std::size_t value) {
  text.At(labelColumn, label).At(column, std::to_string(value)).End();
}

void AppendHeading(Text& text, std::string_view heading) {
  text.End();
  text.At(2, heading).End();
  text.End();
}

void AppendBeam(Text& text, int number, const std::array<double, 6>& ends) {
  const std::string digits = std::to_string(number);
  for (const std::size_t first : {std::size_t{0}, std::size_t{3}}) {
    text.At(2, digits.size() <= kMostBeamDigits ? digits : std::string(kMostBeamDigits, '*'))
        .Integer(6, 5, kLoadCase);
    text.Real(19, kForceWidth, ends[first]).Real(39, kForceWidth, ends[first + 1]);
    text.Real(59, kForceWidth, -ends[first + 2]).End();
  }
}

}  // namespace

std::string OutputText(const Deck& deck, const Solution& solution) {
  Text text;
  AppendCount(text, kNodesLine, 5, 32, deck.nodes.size());
  AppendCount(text, kCasesLine, 5, 32, kLoadCase);
  AppendCount(text, kBeamsLine, 2, 37, deck.beams.size());
  AppendCount(text, kElementsLine, 1, 22, deck.boundaries.size());

  AppendHeading(text, kDisplacements);
  int number = 0;
  for (const std::array<double, 3>& u : solution.displacements) {
    const std::array<double, 6> values{u[0], 0, u[1], 0, -u[2], 0};  // about Y clockwise
    text.Integer(2, 6, ++number).Integer(11, 5, kLoadCase);
    for (std::size_t k = 0; k < 6; ++k) text.Real(16 + kDisplacementWidth * k, kDisplacementWidth, values[k]);
    text.End();
  }
  AppendHeading(text, kBeamForces);
  number = 0;
  for (const std::array<double, 6>& ends : solution.endForces) AppendBeam(text, ++number, ends);
  AppendHeading(text, kBoundaryForces);
  number = 0;
  for (const double force : solution.boundaryForces) {
    text.Integer(2, 6, ++number).Integer(11, 5, kLoadCase);
    text.Integer(16, 8, At(deck.boundaries, number - 1).node + 1);
    text.Real(24, kForceWidth, force).End();
  }
  return text.Take();
}

}  // namespace zorlan::companion

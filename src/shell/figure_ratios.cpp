#include "shell/figure_ratios.h"

#include <algorithm>
#include <limits>

#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "graphics/frame_figure.h"

namespace zorlan {
namespace {

constexpr int kPositions = 3;

/// The values of a file of one number a line, as many as are wanted; `missing` behind its end.
std::vector<double> Values(std::string_view text, std::size_t count, double missing) {
  std::vector<double> values;
  while (values.size() < count) {
    const std::string_view line = NoSpc(TakeLine(text).value_or(std::string_view()));
    if (line.empty() || std::string_view("+-.0123456789").find(line.front()) == std::string_view::npos) break;
    values.push_back(ReadReal(line));
  }
  values.resize(count, missing);
  return values;
}

}  // namespace

std::vector<double> SteelRatios(std::string_view text, int elements) {
  const auto count = static_cast<std::size_t>(elements);
  const std::vector<double> values = Values(text, count * kPositions, -1);
  std::vector<double> ratios(count);
  for (std::size_t e = 0; e < count; ++e) {
    const auto first = values.begin() + static_cast<std::ptrdiff_t>(e * kPositions);
    const double greatest = *std::max_element(first, first + kPositions);
    ratios[e] = greatest < 0 ? std::numeric_limits<double>::quiet_NaN() : greatest;
  }
  return ratios;
}

std::vector<double> ConcreteRatios(std::string_view text, int elements) {
  return Values(text, static_cast<std::size_t>(elements), 0);
}

std::vector<double> ReadRatios(const std::string& folder, int kind, int elements) {
  if (kind == kSteelRatioFigure) return SteelRatios(ReadTextFile(folder + "SIG_S"), elements);
  return ConcreteRatios(ReadTextFile(folder + "SIG_RC"), elements);
}

}  // namespace zorlan

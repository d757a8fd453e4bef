#include "graphics/ratio_files.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "graphics/frame_figure.h"

namespace zorlan {
namespace {

constexpr double kNotChecked = -1.0;
constexpr std::size_t kPositions = 3;

/// `count` values, a line each; `missing` from the first line that is no number.
std::vector<double> ParseValues(std::string_view text, std::size_t count, double missing) {
  std::vector<double> values(count, missing);
  for (double& value : values) {
    const std::optional<std::string_view> line = TakeLine(text);
    const std::optional<double> read = line ? ReadFinite(*line) : std::nullopt;
    if (!read) break;
    value = *read;
  }
  return values;
}

}  // namespace

std::vector<double> ParseSteelRatios(std::string_view text, std::size_t members) {
  const std::vector<double> values = ParseValues(text, kPositions * members, kNotChecked);
  std::vector<double> ratios;
  for (std::size_t at = 0; at < values.size(); at += kPositions) {
    const double largest = std::max({values[at], values[at + 1], values[at + 2]});
    ratios.push_back(largest < 0 ? std::numeric_limits<double>::quiet_NaN() : largest);
  }
  return ratios;
}

std::vector<double> ParseRcRatios(std::string_view text, std::size_t members) {
  return ParseValues(text, members, 0);
}

bool LoadFigureRatios(FigureModel& model, int kind, const std::string& folder) try {
  model.ratios.clear();
  if (kind == kSteelRatioFigure)
    model.ratios = ParseSteelRatios(ReadTextFile(folder + "SIG_S"), model.elements.size());
  else if (kind == kRcRatioFigure)
    model.ratios = ParseRcRatios(ReadTextFile(folder + "SIG_RC"), model.elements.size());
  else
    return false;
  return true;
} catch (const Fault&) {
  return false;  // the caller says which figure can't be shown
}

}  // namespace zorlan

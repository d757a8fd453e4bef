#include "graphics/ratio_files.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

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

bool HasMoreValues(std::string_view text, std::size_t count) {
  return !std::isnan(ParseValues(text, count + 1, std::nan(""))[count]);
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

std::string_view RatioFileOf(int kind) {
  return kind == kSteelRatioFigure ? "SIG_S" : kind == kRcRatioFigure ? "SIG_RC" : "";
}

void ReadFigureRatios(FigureModel& model, int kind, const std::string& folder) {
  const bool steel = kind == kSteelRatioFigure;
  const std::string path = folder + std::string(RatioFileOf(kind));
  model.ratios.clear();
  const std::string text = ReadTextFile(path);
  const std::size_t members = model.elements.size();
  std::vector<double> ratios = steel ? ParseSteelRatios(text, members) : ParseRcRatios(text, members);
  // A figure of members without ratios looks like one in which all is well. In SIG_RC a member that wasn't
  // designed has 0: there it is a text without a value.
  const bool none = steel ? std::ranges::all_of(ratios, [](double r) { return std::isnan(r); })
                          : ratios.empty() || !HasMoreValues(text, 0);
  if (none) throw FileFault(path, "判定値のある要素がありません");
  if (HasMoreValues(text, steel ? kPositions * members : members))
    throw FileFault(path, "データの個数が正しくありません");
  model.ratios = std::move(ratios);
}

bool LoadFigureRatios(FigureModel& model, int kind, const std::string& folder) try {
  model.ratios.clear();
  if (RatioFileOf(kind).empty()) return false;
  ReadFigureRatios(model, kind, folder);
  return true;
} catch (const Fault&) {
  return false;  // the caller says which figure can't be shown
}

}  // namespace zorlan

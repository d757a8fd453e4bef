// The ratios that a member design leaves for the figure: SIG_S of the steel design, SIG_RC of the concrete
// design, texts with one value a line. A file that ends early or has no number somewhere counts up to there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graphics/figure_model.h"

namespace zorlan {

/// SIG_S: members in table order, three positions for each; the largest of the three. NaN for a member that
/// wasn't checked: all three are -1.0 then, as they are behind the end of the text.
std::vector<double> ParseSteelRatios(std::string_view text, std::size_t members);

/// SIG_RC: a member a line: its required hoop ratio in percent; 0 behind the end of the text.
std::vector<double> ParseRcRatios(std::string_view text, std::size_t members);

/// The name of the file with the ratios of a figure's kind (kSteelRatioFigure, kRcRatioFigure); empty for a
/// kind that has none.
std::string_view RatioFileOf(int kind);

/// Puts the ratios of such a kind from `folder` into the model. Throws Fault with file and reason, with no
/// ratios, when the file is missing, no member has a ratio, or it has more than the model: it was changed
/// since.
void ReadFigureRatios(FigureModel& model, int kind, const std::string& folder);
/// The same; false for a Fault, and for a kind that has no ratios.
bool LoadFigureRatios(FigureModel& model, int kind, const std::string& folder);

}  // namespace zorlan

// The design ratios that colour the members of the ratio figures.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// Ratios by element index from the text of `SIG_S`: three values a member, a value a line, -1 where a
/// position wasn't designed. A member's ratio is the greatest of its three; NaN when it has none. The text
/// counts up to its first line that is no number.
std::vector<double> SteelRatios(std::string_view text, int elements);

/// The same from `SIG_RC`: the required hoop ratio in percent, a member a line; 0 behind the text's end.
std::vector<double> ConcreteRatios(std::string_view text, int elements);

/// The ratios of a kind of figure from its file in a folder. Throws FileFault without the file.
std::vector<double> ReadRatios(const std::string& folder, int kind, int elements);

}  // namespace zorlan

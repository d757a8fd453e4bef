// The companion solver's printed output, FT999.OUT: four count lines and three tables in fixed columns
// (docs/file-formats.md).
#pragma once

#include <string>

#include "companion/solver.h"

namespace zorlan::companion {

/// The text, with CR LF line ends.
std::string OutputText(const Deck& deck, const Solution& solution);

}  // namespace zorlan::companion

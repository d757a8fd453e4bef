// The number fields of the listings: every number stands right-aligned in a field as wide as its pattern.
#pragma once

#include <string>

#include "base/number_format.h"

namespace zorlan {

/// The number in a field of the pattern's width. No sign stands before a number that shows as 0; blanks
/// within the text go. A number too wide for its field loses decimals from the right first (cut, not rounded,
/// the point with the last of them), and if that is not enough stands there whole, wider than the field. A
/// number in the exponent form keeps its decimals.
std::string FieldFormat(double value, const NumberPattern& pattern);

/// The same, appended.
void AppendField(std::string& out, double value, const NumberPattern& pattern);

}  // namespace zorlan

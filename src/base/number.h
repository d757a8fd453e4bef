// Numbers in text, without the locale: how the system reads them and its plain print form of a real.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorlan {

/// The value of the longest numeric prefix behind blanks: sign, digits, point, digits, and an exponent with E
/// or D. A text without one is 0. A value beyond the range of a 64-bit real is infinite; one too small for it
/// is 0.
double ReadReal(std::string_view text);

/// The number in a field that may hold none: ReadReal of a text with a digit in it. Nothing without a digit,
/// and beyond the range of a 64-bit real.
std::optional<double> ReadFinite(std::string_view text);

/// Whether a text is a number in full, as ReadReal knows it, and nothing else: "-1.5E+03".
bool IsNumberText(std::string_view text);

/// The same for an integer field: decimals are cut off. Nothing if the value doesn't fit 16 bits.
std::optional<std::int16_t> ReadInt16(std::string_view text);

/// Appends the plain decimal form with up to 15 significant digits, without blanks: "1", "-0.5", "1.5e-07".
void AppendReal(std::string& out, double value);

/// The print form of a real in the result files: a blank in place of a plus sign, up to 15 significant
/// digits, a blank.
void AppendPrinted(std::string& out, double value);

/// AppendReal into a text of its own.
std::string RealText(double value);

}  // namespace zorlan

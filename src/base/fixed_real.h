// Reals for fixed columns: as many digits as a width can hold.
#pragma once

#include <string>

namespace zorlan {

/// A finite real in exactly `width` characters (8 at least, so that every real fits), right-aligned, with all
/// the digits that fit: as a plain decimal where that shows them ("12.345", ".000123456"), else with an
/// exponent ("7.21123E-5", "123456E-17"). Digits that only spell out the binary value behind its shortest
/// decimal form are not shown. ReadReal reads every form back. Throws Fault for what is not finite.
std::string FixedReal(double value, int width);

}  // namespace zorlan

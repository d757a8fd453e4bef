// The digits of 00 to 99, for those who write numbers two digits at a time.
#pragma once

#include <array>
#include <cstddef>

namespace zorlan {

inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size() / 2; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

}  // namespace zorlan

#include "graphics/plot_target.h"

#include <algorithm>

#include "base/cp932.h"

namespace zorlan {

double TextWidth(std::string_view text, double height) {
  const bool ascii = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return static_cast<double>(ascii ? text.size() : HalfWidth(text)) * height / 2;
}

}  // namespace zorlan

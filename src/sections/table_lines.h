// What the files of steel and timber tables have in common: three head lines, then fields between commas.
#pragma once

#include <string_view>

#include "base/text.h"

namespace zorlan {

inline constexpr int kTableHeadLines = 3;

inline void SkipTableHead(std::string_view& text) {
  for (int i = 0; i < kTableHeadLines; ++i) TakeLine(text);
}

/// Takes the field before the next comma off a line, without the blanks around it; an empty one behind the
/// last.
inline std::string_view TakeField(std::string_view& line) {
  const std::size_t comma = line.find(',');
  const std::string_view field = line.substr(0, comma);
  line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
  return NoSpc(field);
}

}  // namespace zorlan

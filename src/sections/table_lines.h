// What the files of steel and timber tables have in common: three head lines, then fields between commas.
#pragma once

#include <optional>
#include <string_view>

#include "base/text.h"

namespace zorlan {

inline constexpr int kTableHeadLines = 3;

inline void SkipTableHead(std::string_view& text) {
  for (int i = 0; i < kTableHeadLines; ++i) TakeLine(text);
}

/// Takes the cell before the next comma off a line, without the blanks around it; an empty one behind the
/// last. Here a comma ends a cell: the line is empty behind it, and "a," has one cell.
inline std::string_view TakeCell(std::string_view& line) {
  std::optional<std::string_view> rest = line;
  const std::string_view cell = TakeField(rest);
  line = rest.value_or(std::string_view());
  return NoSpc(cell);
}

/// How many lines of what is read no more hold a row: something other than zeros, as the line has that ends
/// a table.
inline int CountUnreadRows(std::string_view tail) {
  int count = 0;
  while (const std::optional<std::string_view> line = TakeLine(tail))
    count += line->find_first_not_of("0., \t\x1A") == std::string_view::npos ? 0 : 1;
  return count;
}

}  // namespace zorlan

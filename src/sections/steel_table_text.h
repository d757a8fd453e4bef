// The text of a steel table file: three head lines, then a section a line, fields between commas; a line
// whose first field has the value 0 ends the rows. Pure functions over the bytes of the file: what they look
// for (commas, digits, blanks, line ends) is never the second byte of a character of code page 932, and the
// head lines, which are all that is Japanese, pass through untouched.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sections/steel_families.h"

namespace zorlan {

/// One section in memory: its name, and the values of its family's columns in their order and units.
struct SteelRow {
  std::string name;
  std::array<double, kMaxSteelColumns> values{};
};

/// "H-400x200x8x13": the family word and the dimensions of the key, in mm; `dimensions` has at least as many
/// as the family's key. Each is multiplied by `scale`. Up to 15 significant digits, so 8.0 is "8" and 0.0055
/// by 1000 is "5.5".
std::string SteelSectionName(SteelFamily family, std::span<const double> dimensions, double scale = 1);

/// The rows of a file. A missing field is 0.
std::vector<SteelRow> ParseSteelRows(SteelFamily family, std::string_view bytes);

/// How many rows of a file stand behind the line that ends them. That line itself counts where it holds
/// anything but zeros: a blank line or "0,0" does not.
int UnreadSteelRows(std::string_view bytes);

/// A supplement merged into a main file.
struct MergedSteelTable {
  std::string bytes;     // the new main file: head lines, rows, CR LF; then what it had behind its rows
  int rows = 0;          // in it
  int withoutPlace = 0;  // rows of either file that found no place in the working table
  int unread = 0;        // rows of the supplement behind the line that ends them
};

inline constexpr int kMaxSteelRows = 3000;  // of the working table of a merge

/// Each row of the supplement overwrites the first main row of its name in all columns, or goes behind the
/// last. Cells are trimmed.
MergedSteelTable MergeSteelTables(SteelFamily family, std::string_view main, std::string_view supplement);

}  // namespace zorlan

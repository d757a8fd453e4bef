// The five families of the steel tables as data: files, titles, columns. Dimensions are mm, areas cm2, second
// moments cm4, radii of gyration and centroid distances cm, moduli cm3.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace zorlan {

enum class SteelFamily { H, Box, Pipe, Channel, Angle };
inline constexpr std::size_t kSteelFamilies = 5;

/// A section as the tables hold it. What a family has no column for is 0; a pipe answers its one axis for
/// both.
struct SteelSection {
  double A = 0;
  double Ix = 0, Iy = 0;
  double ix = 0, iy = 0;
  double Zx = 0, Zy = 0;
  double r = 0, r2 = 0;   // root radius (r1 of channels and angles), toe radius
  double Cx = 0, Cy = 0;  // centroid
  double Iu = 0, Iv = 0;  // greatest and least second moment
  double iu = 0, iv = 0;
  double tanAlpha = 0;
};

/// Units of the columns, by their power of a centimetre.
enum class SteelUnit { Millimetre, Centimetre, Centimetre2, Centimetre3, Centimetre4, None };

/// "(mm)", "(cm2)": what stands below a column's caption.
std::string_view UnitCaption(SteelUnit unit);

struct SteelColumn {
  std::string_view caption;
  SteelUnit unit;
  double SteelSection::*field;  // null for a dimension of the key
  bool whole = false;           // a 16-bit integer in memory: decimals are cut off
};

inline constexpr std::size_t kMaxSteelColumns = 19;

struct SteelFamilyForm {
  std::string_view word;   // names the family in section names and file names
  std::string_view title;  // of its table's window
  std::size_t keyColumns;  // the first columns are the dimensions of the section name
  std::span<const SteelColumn> columns;
};

const SteelFamilyForm& FormOf(SteelFamily family);

/// The family of a word; "YH", "YBOX", "YMIZO" and "YYAMA" (a section about its weak axis) are H, BOX, MIZO
/// and YAMA.
std::optional<SteelFamily> FamilyOf(std::string_view word);

}  // namespace zorlan

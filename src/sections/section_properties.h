// The constants of a section from its TYPE and its four fields: what analysis and design work with.
#pragma once

#include <string_view>

namespace zorlan {

/// In powers of the length unit of the fields, m in the analysis.
struct SectionConstants {
  double A = 0;           // area
  double Ix = 0, Iy = 0;  // second moments about the strong and the weak axis
  double Zx = 0, Zy = 0;  // section moduli
  double ix = 0, iy = 0;  // radii of gyration
  double As = 0;          // shear area
  double kappa = 1;       // shear shape factor
  double I = 0;           // second moment about the axis that the TYPE bends about
};

/// TYPE 0 to 12; any other answers zeros. `name` is the timber section name. `scale` takes the fields to mm
/// (1000 for m): a section that stands in the steel or timber tables answers with its row, in the unit of the
/// fields; any other by its formula.
SectionConstants SectionProperties(int type, std::string_view name, double P1, double P2, double P3,
                                   double P4, double scale);

}  // namespace zorlan

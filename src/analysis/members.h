// What the analysis knows of a model, gathered once from CalcModel: rows in place of numbers, and the section
// constants of each member. t, m, rad throughout, springs excepted (t/cm, t*cm/rad, as CalcModel has them).
#pragma once

#include <string>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// Working constants of a section.
struct MemberSection {
  double A = 0;      // area
  double As = 0;     // shear area
  double kappa = 1;  // shear shape factor
  double I = 0;      // inertia of the working axis, times the stiffness increase factor for TYPE 1 and above
  double E = 0, G = 0;
  double P2 =
      0;  // the section's second field: members of sections without it carry no end moments from loads
};

/// Section constants of a row of CalcModel's section table.
MemberSection SectionOf(const SectRec& section);

/// Geometry and stiffness data of one element.
struct Member {
  int row = 0, number = 0;     // row in the element table, number as typed
  int rowI = 0, rowJ = 0;      // node rows, from 1
  double L = 0, c = 0, s = 0;  // length, direction from I to J; c = s = 0 for a length of 0
  double xi = 0, yi = 0, xj = 0, yj = 0;
  int II = 0, JJ = 0;  // end conditions: 0 rigid, 1 pin
  double lambdaI = 0, lambdaJ = 0;
  MemberSection section;
};

/// The frame magnification at a point: the factor of the first row [X1, X2] in which x lies within the
/// tolerance, else 1.
double MagnificationAt(const ModelRec& model, double x, double tolerance);
/// The factor of the first row in which both points lie, else 1.
double MagnificationBetween(const ModelRec& model, double xi, double xj, double tolerance);

inline constexpr double kMagnificationToleranceFileRoad = 0.01;  // m; the two roads differ on purpose:
inline constexpr double kMagnificationToleranceInMemoryRoad =
    1e-6;  // a node 5 mm outside is inside on the file road

/// Every element as a Member, in table order (index 0 is row 1). Throws Fault naming the element for an
/// unknown node, an unknown section, or a length of 0.
std::vector<Member> CollectMembers(const ModelRec& model);

}  // namespace zorlan

// What the analysis knows of a model, gathered once from CalcModel: rows in place of numbers, and the section
// constants of each member. t, m, rad throughout.
#pragma once

#include <array>
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
  double P2 = 0;  // the section's second field; where it is 0 loads give the member no end moments
};

/// Section constants of a row of CalcModel's section table. Throws Fault for a TYPE that doesn't exist.
MemberSection SectionOf(const SectRec& section);

/// Geometry and stiffness data of one element.
struct Member {
  int number = 0;              // as typed
  int rowI = 0, rowJ = 0;      // node rows, from 1
  double L = 0, c = 0, s = 0;  // length, direction from I to J
  double xi = 0, yi = 0, xj = 0, yj = 0;
  int II = 0, JJ = 0;  // end conditions: 0 rigid, 1 pin
  double lambdaI = 0, lambdaJ = 0;
  MemberSection section;

  bool BothPinned() const { return II == 1 && JJ == 1; }
  /// Whether loads give this member end moments at all.
  bool TakesEndMoments() const { return section.P2 != 0 && !BothPinned(); }
};

/// A support spring, in t/m and t*m/rad for the three equations of its node.
struct NodeSpring {
  int row = 0;
  std::array<double, 3> k{};
};

/// The rows of a table by number, as the analysis looks them up: of doubles the last one counts, and a number
/// outside 0 to 5000 is unknown.
class NumberMap {
 public:
  template <class Record>
  NumberMap(const Rows<Record>& rows, int count) : row_(kHighestNumber + 1) {
    for (int r = 1; r <= count; ++r)
      if (InRange(rows[r].number))
        row_[static_cast<std::size_t>(rows[r].number)] = static_cast<std::uint16_t>(r);
  }
  /// 0 if the number is unknown.
  int Row(int number) const { return InRange(number) ? row_[static_cast<std::size_t>(number)] : 0; }
  static bool InRange(int number) { return number >= 0 && number <= kHighestNumber; }

 private:
  static constexpr int kHighestNumber = 5000;
  std::vector<std::uint16_t> row_;
};

/// The frame magnification at a point: the factor of the first row [X1, X2] in which x lies within the
/// tolerance, else 1.
double MagnificationAt(const ModelRec& model, double x, double tolerance);
/// The factor of the first row in which both points lie, else 1.
double MagnificationBetween(const ModelRec& model, double xi, double xj, double tolerance);

// m. The two roads differ on purpose: a node 5 mm outside a range is inside on the file road.
inline constexpr double kMagnificationToleranceFileRoad = 0.01;
inline constexpr double kMagnificationToleranceInMemoryRoad = 1e-6;

/// Every element as a Member, in table order (index 0 is row 1). Throws Fault naming the element for an
/// unknown node, an unknown section, or a length of 0; naming the row's number for a node, element, section
/// or rigid type numbered outside 0 to 5000, whose loads or zones would be lost without a word.
std::vector<Member> CollectMembers(const ModelRec& model);

/// Every row of the spring table on a known node, in table order.
std::vector<NodeSpring> CollectSprings(const ModelRec& model);

}  // namespace zorlan

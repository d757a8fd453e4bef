// The lines of the result sections of an analysis listing: displacements, reactions, member forces. Kernels:
// they take the stored values (t, m, rad) and append text; the marks and words in it come from the caller,
// who knows the encoding.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "analysis/force_units.h"
#include "model/model_rec.h"

namespace zorlan {

/// The values of a result file: load case from 1, row (of nodes, supports, elements) from 0, places of a row.
struct CaseTable {
  std::span<const double> values;
  int cases = 0, rows = 0, places = 0;

  const double* Row(int loadCase, int row) const {
    return values.data() + (static_cast<std::size_t>(loadCase - 1) * static_cast<std::size_t>(rows) +
                            static_cast<std::size_t>(row)) *
                               static_cast<std::size_t>(places);
  }
};

/// A section's title and two heading lines, each with its end. UTF-8.
std::string DisplacementHeading(bool grid);
std::string ReactionHeading(bool grid, int forceIndex);
std::string ForceHeading(int forceIndex);

/// The lines of one node, a case each: translations in cm, rotations in rad. Places: the node's three
/// equations.
void AppendDisplacements(std::string& out, int node, const CaseTable& displacements, int row, bool grid);

/// The lines of one supported node, a case each. A component that isn't `shown` is a bare 0.
void AppendReactions(std::string& out, int node, std::array<bool, 3> shown, const CaseTable& reactions,
                     int row, const OutputForce& unit);

/// The rule below the nodes and each case's sums over all supported nodes, added as stored. UTF-8.
std::string ReactionSums(const CaseTable& reactions, const OutputForce& unit);

/// What stands behind the forces of a member by the sign of N(J) - N(I).
struct AxialMarks {
  std::string compression, tension;
};
inline constexpr std::string_view kCompression = "  圧縮";
inline constexpr std::string_view kTension = "  引張";

/// The lines of one element, a case each. Places: N(I) Q(I) M(I) N(J) Q(J) M(J) M(C).
void AppendMemberForces(std::string& out, const ElemRec& element, const CaseTable& forces, int row,
                        const OutputForce& unit, const AxialMarks& marks);

}  // namespace zorlan

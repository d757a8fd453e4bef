// The lines of the result sections of an analysis listing: displacements, reactions, member forces. Kernels:
// they take the stored values (t, m, rad) and append text; the marks and words in it come from the caller,
// who knows the encoding.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "analysis/force_units.h"
#include "analysis/result_files.h"
#include "model/model_rec.h"

namespace zorlan {

/// A section's title and two heading lines, each with its end. UTF-8.
std::string DisplacementHeading(bool grid);
std::string ReactionHeading(bool grid, int forceIndex);
std::string ForceHeading(int forceIndex);

/// The lines of one node, a case each: translations in cm, rotations in rad. Places: the node's three
/// equations.
void AppendDisplacements(std::string& out, int node, const ResultTable& displacements, int index, bool grid);

/// The lines of one supported node, a case each. A component that isn't `shown` is a bare 0.
void AppendReactions(std::string& out, int node, std::array<bool, 3> shown, const ResultTable& reactions,
                     int row, const OutputForce& unit);

/// The rule below the nodes and each case's sums over all supported nodes, added as stored. UTF-8.
std::string ReactionSums(const ResultTable& reactions, const OutputForce& unit);

/// What stands behind the forces of a member by the sign of N(J) - N(I).
struct AxialMarks {
  std::string compression, tension;
};
inline constexpr std::string_view kCompression = "  圧縮";
inline constexpr std::string_view kTension = "  引張";

/// The lines of one element, a case each. Places: N(I) Q(I) M(I) N(J) Q(J) M(J) M(C).
void AppendMemberForces(std::string& out, const ElemRec& element, const ResultTable& forces, int index,
                        const OutputForce& unit, const AxialMarks& marks);

}  // namespace zorlan

// Whether a solution can be trusted: the residual of the assembled equations, and the balance of loads and
// reactions.
#pragma once

#include <array>
#include <vector>

#include "analysis/equations.h"

namespace zorlan {

/// What is known of one load case after a solve. t, m, rad. Directions: frame X and Y; grid Z in the first
/// place.
struct CaseTrust {
  /// Greatest |K u - F| of an equation that the solver was to satisfy, or what the rounding of K u hides of
  /// it: the displacements of a mechanism can be so huge that their forces cancel by chance.
  double residual = 0;
  int residualNode = 0;    // number of its node; 0 if every residual is exactly 0
  double largestLoad = 0;  // greatest magnitude of a load term
  bool lost = false;       // the residual is more than rounding leaves
  std::array<double, 2> loadSum{}, reactionSum{};
  double largestDisplacement = 0;  // magnitude of a node's translation, m
  int displacementNode = 0;        // number of that node
};

/// A residual above this share of the case's largest load term, or of 1 t where that is less, is lost.
inline constexpr double kLostResidual = 1e-6;
/// The same for a case that came back in the companion's printed columns.
inline constexpr double kLostPrintedResidual = 1e-4;

/// Judges all cases. Residuals stand at equations that are not held; nodes that share a displacement share
/// the residual of their sum. `reactions` by equation, as the result files have them. `alsoHeld`, where it
/// isn't empty, names equations that something else than a support code holds: a forced displacement, an
/// inclined roller.
std::vector<CaseTrust> AssessSolution(const Equations& equations, const CaseTable& displacements,
                                      const CaseTable& reactions, const std::vector<bool>& alsoHeld = {},
                                      double lostResidual = kLostResidual);

}  // namespace zorlan

// Whether a solution can be trusted: the residual of the assembled equations, and the balance of loads and
// reactions.
#pragma once

#include <array>
#include <string>
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
  bool unbalanced = false;         // the sums differ by more than rounding and what springs tell otherwise
  double largestDisplacement = 0;  // magnitude of a node's translation, m
  int displacementNode = 0;        // number of that node
};

/// A residual above this share of the case's largest load term, or of 1 t where that is less, is lost; a
/// difference of the sums above this share of all loads or reactions, or of 1 t, is one.
inline constexpr double kLostResidual = 1e-6;
/// The same for a case that came back in the companion's printed columns, by its largest load, end force or
/// reaction.
inline constexpr double kLostPrintedResidual = 1e-4;

/// What a judgement must know beside the equations.
struct TrustRules {
  /// The companion's case: it holds a group by the support of any of its nodes.
  bool external = false;
  /// Equations that something else than a support code holds: a forced displacement, an inclined roller.
  /// Empty: none.
  std::vector<bool> alsoHeld;
  /// The largest end force or reaction of an external case, whose rounding is that of its forces; else 0.
  double largestForce = 0;
  /// Of each node row, from place 1: what a spring's reaction as told is to be multiplied by. Empty: 1.
  std::vector<double> springFactor;
};

/// Judges all cases. Residuals stand at equations that are not held; nodes that share a displacement share
/// the residual of their sum. `reactions` by equation, as the result files have them.
std::vector<CaseTrust> AssessSolution(const Equations& equations, const CaseTable& displacements,
                                      const CaseTable& reactions, const TrustRules& rules = {});

/// What the user must hear of the cases before their numbers.
struct Doubts {
  std::string verdict;                 // in a few words; empty: there is nothing to hear
  std::vector<std::string> sentences;  // for each case that isn't sound
};
Doubts DoubtsAbout(const std::vector<CaseTrust>& trust);

}  // namespace zorlan

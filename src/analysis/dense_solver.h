// The in-memory solvers for small models (29 nodes or fewer): Gauss elimination of the whole matrix. Limits
// differ from the frontal solver's on purpose, and what comes out as small as the pivot tolerance is dropped
// to 0.
#pragma once

#include <optional>

#include "analysis/equations.h"

namespace zorlan {

/// Displacements, and the support forces of every equation with a code that is not 0: the sum of the reduced
/// row times the displacements less the load term. Rows with code 1 were left as assembled, so theirs is the
/// true support force.
struct DenseSolution {
  CaseTable displacements;
  CaseTable reactions;
};

/// Models without groups. `dropTolerance`: results of a reduction of this magnitude or less become 0. The
/// pivot limit is 1e-18. Nothing for an unstable structure: `fault` says where.
std::optional<DenseSolution> SolveDense(const Equations& equations, double dropTolerance, NoStiffness& fault);

/// Same-displacement frames: displacements of all equations. Here the pivot limit is `tolerance` too.
std::optional<CaseTable> SolveDenseWithLayers(const Equations& equations, double tolerance,
                                              NoStiffness& fault);

}  // namespace zorlan

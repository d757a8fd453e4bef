// Support reactions: the force that the support applies to the structure, positive in the positive direction
// of its equation.
#pragma once

#include "analysis/equations.h"
#include "analysis/result_files.h"

namespace zorlan {

/// File road: of every fixed equation (code neither 0 nor 2) the sum of the element records that meet it
/// times the displacements, less the load terms that they carry. The records of the last node row, which are
/// springs, don't count.
CaseTable FixedReactions(const Equations& equations, const CaseTable& displacements);

/// In-memory road of same-displacement frames: the element records (not the springs) of all equations, less
/// the load terms where the code is not 0. A free equation of a supported node keeps the bare sum of its
/// element forces.
CaseTable ElementSumReactions(const Equations& equations, int elementRecords, const CaseTable& displacements);

/// Replaces the reactions of spring equations (code 2) by minus the spring's force, row after row: of several
/// springs on a node the last one counts.
void SetSpringReactions(const std::vector<NodeSpring>& springs, const Equations& equations,
                        const CaseTable& displacements, CaseTable& reactions);

/// The reactions of the supported nodes (any code not 0), in node-table order, as the result files have them.
Reactions CollectReactions(const Equations& equations, const CaseTable& reactions);

}  // namespace zorlan

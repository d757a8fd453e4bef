// The seven member force values of every element and case: N(I) Q(I) M(I) N(J) Q(J) M(J) as end forces on the
// member, and M(C) at its middle. t, t*m.
#pragma once

#include <vector>

#include "analysis/equations.h"

namespace zorlan {

/// Forces from the displacements alone, at ForcePlace; M(C) is 0. The plain stiffness of the member counts,
/// without frame magnification.
std::vector<double> ElasticForces(const std::vector<Member>& members, bool grid,
                                  const CaseTable& displacements);

/// Which of the seven positions the loads are added to.
enum class AddedForces { All, MidspanAlone };

/// Adds the loads' fixed-end terms, then closes each element's M(C) with the end moments. With MidspanAlone
/// M(C) starts anew from 0 and the end forces stay. Temperature loads give their axial term alone: the end
/// moments that their gradient puts into the load terms are left out of the member's own part.
void AddLoadForces(const ModelRec& model, const std::vector<Member>& members, AddedForces added,
                   std::vector<double>& forces);

}  // namespace zorlan

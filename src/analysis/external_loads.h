// The loads of one case as the external road's tables need them. t, t*m.
#pragma once

#include <array>
#include <vector>

#include "analysis/external_tables.h"
#include "analysis/members.h"
#include "model/model_rec.h"

namespace zorlan {

/// End actions of all loads on a member in one case: the forces N, Q, C that hold its ends at its nodes.
struct EndActions {
  std::array<double, 3> I{}, J{};
  bool Any() const;
};

/// Of every element row, from 0. `members` as CollectMembers gives them. Throws Fault for a load that its
/// formula can't take.
std::vector<EndActions> CollectEndActions(const ModelRec& model, const std::vector<Member>& members,
                                          int loadCase);

/// Nodal loads, summed by node: those of the table times the node's magnification, and what the end actions
/// of members lack whose own magnification is not the node's.
std::vector<ExtNodalLoad> CollectNodalLoads(const ModelRec& model, const std::vector<Member>& members,
                                            const std::vector<EndActions>& actions, int loadCase);

}  // namespace zorlan

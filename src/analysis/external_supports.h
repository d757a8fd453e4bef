// The supports of one case as the external road's tables need them.
#pragma once

#include <vector>

#include "analysis/external_tables.h"
#include "model/model_rec.h"

namespace zorlan {

/// What holds the nodes in one case.
struct ExternalSupports {
  std::vector<ExtBoundaryElement> boundary;
  std::vector<int> rows;  // nodes with a code that is not 0, or a forced displacement in this case
  std::vector<ExtMovedNode> movedNodes;
};

/// Several forced displacements, or springs, on a node add up. A roller holds its node once, along its
/// normal.
ExternalSupports CollectSupports(const ModelRec& model, int loadCase);

}  // namespace zorlan

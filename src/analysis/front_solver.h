// Frontal elimination of K x = F for all load cases at once. The element stream is assembled node by node
// into a small dense front, a node's equations are eliminated as soon as the sweep has passed it, and the
// eliminated rows are kept for the back substitution. Free slots and columns behind the widest slot in use
// are exactly zero and are not touched, so cost and memory follow the widest front in use, that is, the
// user's numbering of the nodes.
//
// In a frame with same-displacement groups a node has two equations in the front, V and θ. The layers'
// displacements stay outside it: each front row carries a coefficient for each layer, and each layer has a
// row of the same layout that is reduced along and never eliminated. What is left of these rows after the
// last node is the stiffness condensed onto the layers.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "analysis/equations.h"
#include "analysis/layer_system.h"

namespace zorlan {

/// A store of reals that grows in blocks and never moves what it holds.
class RowStore {
 public:
  /// Room for `count` reals, not set.
  double* Take(std::size_t count);

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 16;
  std::vector<std::unique_ptr<double[]>> blocks_;
  std::size_t left_ = 0;
  double* next_ = nullptr;
};

/// The equations of one node as they were eliminated.
struct EliminatedNode {
  int node = 0;           // its row in the node table, from 1
  int layers = 0;         // layer coefficients in each row
  std::vector<int> slot;  // node row held by each slot of the front at that moment, 0 free
  /// Of each of the node's equations in the front: its load terms (a case each), its layer coefficients, then
  /// one coefficient for each equation of each slot. Null where the support code is 1: that unknown is 0.
  std::array<const double*, 3> row{};
};

struct EliminatedRows {
  std::vector<EliminatedNode> nodes;  // in the order of elimination
  LayerSystem layers;                 // empty without groups
  RowStore store;
};

/// Assembles and eliminates. A pivot of a translation below `pivotTolerance` is an unstable structure: the
/// answer is nothing, and `fault` says where. One of a rotation is tolerated, and its row stays undivided.
std::optional<EliminatedRows> EliminateFront(const Equations& equations, double pivotTolerance,
                                             NoStiffness& fault, const Progress& progress);

/// Displacements of all equations, from the last eliminated row to the first. `layerDisplacements`: a row a
/// layer, from 0; empty without groups.
CaseTable SubstituteBack(const Equations& equations, const EliminatedRows& rows,
                         const CaseTable& layerDisplacements, const Progress& progress);

}  // namespace zorlan

// The linear static solution of a companion deck.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "companion/deck.h"

namespace zorlan::companion {

struct Solution {
  std::vector<std::array<double, 3>>
      displacements;  // by node: along X, along Z, rotation (counter-clockwise)
  std::vector<std::array<double, 6>>
      endForces;                       // by beam: N, Q, M on the member at I, then at J, in its axes
  std::vector<double> boundaryForces;  // by boundary element: what it exerts on the node along its direction
};

/// A motion that nothing resists: a node that it moves, from 0, and the direction: X 0, Z 1, rotation 2.
struct Unstable {
  int node = 0, direction = 0;
};

/// Solves the deck; for an unstable structure there is no solution and `unstable` is filled. A rotation that
/// no beam holds (all ends at the node are pins) isn't counted as unstable: it stays 0. What rounding leaves
/// of a 0 is 0. Throws Fault for supports that contradict each other, or an overflow.
std::optional<Solution> Solve(const Deck& deck, Unstable& unstable);

}  // namespace zorlan::companion

// A deck made ready for its solution: every beam and spring strained by the structure's free unknowns.
#pragma once

#include <span>
#include <vector>

#include "companion/beam_element.h"
#include "companion/deck.h"
#include "companion/kinematics.h"
#include "companion/solver.h"

namespace zorlan::companion {

/// A boundary spring: how far it is strained.
struct SpringElement {
  int boundary = 0;  // place in the deck's table
  LinearForm strain;
};

struct Structure {
  /// Throws what Kinematics throws. The deck must outlive the structure.
  explicit Structure(const Deck& deckToSolve);

  const Deck& deck;
  Kinematics kinematics;
  std::vector<BeamElement> elements;  // by beam; a link has none: an empty one
  std::vector<SpringElement> springs;
};

/// Displacements, beam forces and boundary forces from the unknowns.
Solution Recover(const Structure& structure, std::span<const Real> q);

}  // namespace zorlan::companion

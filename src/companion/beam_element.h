// A plane beam by its three strains: its stretch and the rotations of its ends against the chord. A rigid
// motion leaves all three 0.
#pragma once

#include <array>

#include "companion/deck.h"
#include "companion/linear_form.h"

namespace zorlan::companion {

struct BeamElement {
  Real L = 0, c = 0, s = 0;                        // length, direction
  std::array<std::array<Real, 3>, 3> stiffness{};  // end moments and tension by the strains, ends released
  std::array<LinearForm, 3> strains;               // by the structure's unknowns

  /// Forces that its ends get from the nodes, in the beam's axes: N, Q, M of I, then of J, from the strains
  /// alone.
  std::array<Real, 6> EndForces(const std::array<Real, 3>& strain) const;
  /// A force at its end in the beam's axes, in the structure's.
  std::array<Real, 3> Turned(const std::array<Real, 3>& local) const {
    return {c * local[0] - s * local[1], s * local[0] + c * local[1], local[2]};
  }
};

/// Stiffness: EA/L; with Φ = 12EI/(G As L^2), EI/L (4+Φ)/(1+Φ) at an end for its own rotation and EI/L
/// (2-Φ)/(1+Φ) for the other's; a pin's moment is condensed away. `ends` are the displacements of its ends as
/// Kinematics gives them.
BeamElement MakeBeamElement(const Deck& deck, const Beam& beam, const std::array<LinearForm, 6>& ends);

}  // namespace zorlan::companion

#include "companion/structure.h"

namespace zorlan::companion {

Structure::Structure(const Deck& deckToSolve) : deck(deckToSolve), kinematics(deckToSolve) {
  elements.resize(deck.beams.size());
  for (std::size_t b = 0; b < deck.beams.size(); ++b)
    if (const Beam& beam = deck.beams[b]; !beam.IsLink())
      elements[b] = MakeBeamElement(deck, beam, kinematics.Straining(static_cast<int>(b)));
  for (std::size_t b = 0; b < deck.boundaries.size(); ++b) {
    const Boundary& boundary = deck.boundaries[b];
    if (boundary.code != Boundary::Code::Spring) continue;
    SpringElement spring{static_cast<int>(b), {}};
    for (int dof = 0; dof < 3; ++dof)
      spring.strain.Add(kinematics.Displacement(boundary.node, dof),
                        boundary.direction[static_cast<std::size_t>(dof)]);
    spring.strain.constant -= boundary.prescribed;
    springs.push_back(std::move(spring));
  }
}

}  // namespace zorlan::companion

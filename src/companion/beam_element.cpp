#include "companion/beam_element.h"

#include <cmath>

namespace zorlan::companion {
namespace {

/// Takes the end's moment out of the stiffness: k - k_e k_e^T / k_ee.
void Release(std::array<std::array<Real, 3>, 3>& k, std::size_t end) {
  if (k[end][end] == 0) return;
  const std::array<Real, 3> row = k[end];
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j)
      k[i][j] = i == end || j == end ? 0 : k[i][j] - row[i] * row[j] / row[end];
}

}  // namespace

std::array<Real, 6> BeamElement::EndForces(const std::array<Real, 3>& strain) const {
  std::array<Real, 3> force{};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) force[i] += stiffness[i][j] * strain[j];
  const Real Q = (force[1] + force[2]) / L;
  return {-force[0], Q, force[1], force[0], -Q, force[2]};
}

BeamElement MakeBeamElement(const Deck& deck, const Beam& beam, const std::array<LinearForm, 6>& ends) {
  const Node &I = At(deck.nodes, beam.nodeI), &J = At(deck.nodes, beam.nodeJ);
  const Material& material = At(deck.materials, beam.material);
  const Section& section = At(deck.sections, beam.section);
  BeamElement element;
  const Real x = Real(J.x) - I.x, z = Real(J.z) - I.z;
  element.L = std::hypot(x, z);
  element.c = x / element.L;
  element.s = z / element.L;

  const double E = ModulusOf(material);
  element.stiffness[0][0] = E * section.A / element.L;
  if (section.I > kNone) {
    const Real EI = E * section.I, rate = EI / element.L;
    Real phi = 0;
    if (section.shearArea > kNone && material.nu > -1)  // 12EI/(G As L^2) with G = E/(2(1+ν))
      phi = 24 * (1 + material.nu) * section.I / (section.shearArea * element.L * element.L);
    element.stiffness[1][1] = element.stiffness[2][2] = rate * (4 + phi) / (1 + phi);
    element.stiffness[1][2] = element.stiffness[2][1] = rate * (2 - phi) / (1 + phi);
    if (beam.endI == EndCode::Pin) Release(element.stiffness, 1);
    if (beam.endJ == EndCode::Pin) Release(element.stiffness, 2);
  }

  std::array<LinearForm, 2> travel;  // of J against I: along the beam, and across it by its length
  for (const auto& [end, sign] : {std::pair(std::size_t{0}, Real(-1)), std::pair(std::size_t{3}, Real(1))}) {
    travel[0].Add(ends[end], sign * element.c);
    travel[0].Add(ends[end + 1], sign * element.s);
    travel[1].Add(ends[end], -sign * element.s / element.L);
    travel[1].Add(ends[end + 1], sign * element.c / element.L);
  }
  element.strains[0] = travel[0];
  for (const std::size_t end : {std::size_t{1}, std::size_t{2}}) {
    element.strains[end] = ends[3 * end - 1];
    element.strains[end].Add(travel[1], -1);
  }
  return element;
}

}  // namespace zorlan::companion

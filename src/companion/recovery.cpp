#include <cmath>
#include <Eigen/SparseCholesky>

#include "companion/structure.h"

namespace zorlan::companion {
namespace {

using Matrix = Eigen::SparseMatrix<Real>;
using Vector = Eigen::Matrix<Real, Eigen::Dynamic, 1>;

/// What beams, springs and loads leave for the supports and links to exert on each node: X, Z, moment.
class NodeForces {
 public:
  explicit NodeForces(const Deck& deck) : needed_(Vector::Zero(static_cast<int>(3 * deck.nodes.size()))) {
    for (std::size_t n = 0; n < deck.loads.size(); ++n) Add(static_cast<int>(n), deck.loads[n], -1);
  }
  template <class Force>
  void Add(int node, const Force& force, Real factor) {
    for (int dof = 0; dof < 3; ++dof)
      needed_[3 * node + dof] += factor * force[static_cast<std::size_t>(dof)];
  }
  const Vector& Needed() const { return needed_; }

 private:
  Vector needed_;
};

std::vector<std::array<double, 3>> Displacements(const Structure& structure, std::span<const Real> q) {
  std::vector<std::array<double, 3>> result(structure.deck.nodes.size());
  for (std::size_t node = 0; node < result.size(); ++node)
    for (int dof = 0; dof < 3; ++dof)
      result[node][static_cast<std::size_t>(dof)] =
          static_cast<double>(structure.kinematics.Displacement(static_cast<int>(node), dof).At(q));
  return result;
}

std::array<Real, 6> BeamForces(const Beam& beam, const BeamElement& element, std::span<const Real> q) {
  std::array<Real, 3> strain;
  for (std::size_t k = 0; k < 3; ++k) strain[k] = element.strains[k].At(q);
  std::array<Real, 6> ends = element.EndForces(strain);
  for (std::size_t k = 0; k < 3; ++k) {
    ends[k] += beam.actionI[k];
    ends[3 + k] += beam.actionJ[k];
  }
  return ends;
}

/// Shares out what supports and links exert together: C^T f = needed, by C C^T f = C needed. The rows of C
/// are independent, since a constraint that says nothing new was left out.
Vector ConstraintForces(const std::vector<Constraint>& constraints, const Vector& needed) {
  const int count = static_cast<int>(constraints.size());
  if (count == 0) return {};
  std::vector<Eigen::Triplet<Real>> entries;
  for (int row = 0; row < count; ++row)
    for (const Constraint::Term& term : At(constraints, row).terms)
      entries.emplace_back(row, 3 * term.node + term.dof, term.factor);
  Matrix C(count, needed.size());
  C.setFromTriplets(entries.begin(), entries.end());
  const Matrix normal = C * C.transpose();
  const Eigen::SimplicialLDLT<Matrix> factorization(normal);
  Vector shares = factorization.solve(C * needed);
  shares += factorization.solve(C * (needed - C.transpose() * shares));
  return shares;
}

/// End forces of a link that exerts a force along X on its node J, and the opposite on its node I, in the
/// axes of the line between them. They are what the nodes exert on it.
std::array<double, 6> LinkForces(const Deck& deck, const Beam& link, Real force) {
  const Node &I = At(deck.nodes, link.nodeI), &J = At(deck.nodes, link.nodeJ);
  const double L = std::hypot(J.x - I.x, J.z - I.z);
  const double c = L > 0 ? (J.x - I.x) / L : 1, s = L > 0 ? (J.z - I.z) / L : 0;
  const double onI = static_cast<double>(force);
  return {c * onI, -s * onI, 0, -c * onI, s * onI, 0};
}

}  // namespace

Solution Recover(const Structure& structure, std::span<const Real> q) {
  const Deck& deck = structure.deck;
  Solution solution;
  solution.displacements = Displacements(structure, q);
  solution.endForces.resize(deck.beams.size());
  solution.boundaryForces.resize(deck.boundaries.size());

  NodeForces nodes(deck);
  for (std::size_t b = 0; b < deck.beams.size(); ++b) {
    const Beam& beam = deck.beams[b];
    if (beam.IsLink()) continue;
    const BeamElement& element = structure.elements[b];
    const std::array<Real, 6> ends = BeamForces(beam, element, q);
    nodes.Add(beam.nodeI, element.Turned({ends[0], ends[1], ends[2]}), 1);
    nodes.Add(beam.nodeJ, element.Turned({ends[3], ends[4], ends[5]}), 1);
    for (std::size_t k = 0; k < 6; ++k) solution.endForces[b][k] = static_cast<double>(ends[k]);
  }
  for (const SpringElement& spring : structure.springs) {
    const Boundary& boundary = At(deck.boundaries, spring.boundary);
    const Real force = -boundary.stiffness * spring.strain.At(q);
    nodes.Add(boundary.node, boundary.direction, -force);
    solution.boundaryForces[static_cast<std::size_t>(spring.boundary)] = static_cast<double>(force);
  }

  const std::vector<Constraint>& constraints = structure.kinematics.Constraints();
  const Vector forces = ConstraintForces(constraints, nodes.Needed());
  for (int k = 0; k < forces.size(); ++k) {
    const Constraint& constraint = At(constraints, k);
    if (constraint.boundary >= 0)
      solution.boundaryForces[static_cast<std::size_t>(constraint.boundary)] = static_cast<double>(forces[k]);
    else
      solution.endForces[static_cast<std::size_t>(constraint.link)] =
          LinkForces(deck, At(deck.beams, constraint.link), forces[k]);
  }
  return solution;
}

}  // namespace zorlan::companion

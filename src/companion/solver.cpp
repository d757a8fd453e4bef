#include "companion/solver.h"

#include <algorithm>
#include <cmath>
#include <Eigen/SparseCholesky>

#include "base/fault.h"
#include "companion/beam_element.h"
#include "companion/kinematics.h"

namespace zorlan::companion {
namespace {

using Matrix = Eigen::SparseMatrix<double>;
using Vector = Eigen::VectorXd;
using Factorization = Eigen::SimplicialLDLT<Matrix>;

/// A pivot below this share of its diagonal entry is rounding. A clamped beam cut into 5000 pieces still has
/// pivots of 1e-12.
constexpr double kPivotShare = 1e-13;

/// A boundary spring: how far it is strained, by the unknowns.
struct SpringElement {
  int place;  // in the deck's table
  LinearForm strain;
};

class System {
 public:
  explicit System(const Deck& deck);
  std::optional<Solution> Solve(Unstable& unstable);

 private:
  void AddStiffness(const LinearForm& a, const LinearForm& b, double k);
  void AddForce(int node, const std::array<double, 3>& force);
  bool ScaleByDiagonal(Unstable& unstable);
  Unstable FreeMotion() const;
  Solution Evaluate(const Vector& q) const;
  std::vector<double> ConstraintForces(const std::vector<std::array<double, 3>>& needed) const;

  const Deck& deck_;
  const Kinematics kinematics_;
  std::vector<BeamElement> elements_;  // by beam; empty for a link
  std::vector<SpringElement> springs_;
  std::vector<Eigen::Triplet<double>> triplets_;  // lower triangle
  Vector load_;
  Vector scale_;  // 1 / sqrt of the diagonal
  Matrix K_;      // scaled to a diagonal of 1
};

System::System(const Deck& deck)
    : deck_(deck), kinematics_(deck), load_(Vector::Zero(kinematics_.Unknowns())) {
  for (std::size_t b = 0; b < deck.beams.size(); ++b) {
    const Beam& beam = deck.beams[b];
    if (beam.IsLink()) {
      elements_.emplace_back();
      continue;
    }
    elements_.push_back(MakeBeamElement(deck, beam, kinematics_.Straining(static_cast<int>(b))));
    const BeamElement& element = elements_.back();
    for (std::size_t i = 0; i < 3; ++i)
      for (std::size_t j = 0; j < 3; ++j)
        AddStiffness(element.strains[i], element.strains[j], element.stiffness[i][j]);
    for (const auto& [node, action] :
         {std::pair(beam.nodeI, beam.actionI), std::pair(beam.nodeJ, beam.actionJ)}) {
      std::array<double, 3> force = element.Turned(action.data());
      for (double& part : force) part = -part;
      AddForce(node, force);
    }
  }
  for (std::size_t b = 0; b < deck.boundaries.size(); ++b) {
    const Boundary& boundary = deck.boundaries[b];
    if (boundary.code != Boundary::Code::Spring) continue;
    SpringElement spring{static_cast<int>(b), {}};
    for (int dof = 0; dof < 3; ++dof)
      spring.strain.Add(kinematics_.Displacement(boundary.node, dof),
                        boundary.direction[static_cast<std::size_t>(dof)]);
    spring.strain.constant -= boundary.prescribed;
    AddStiffness(spring.strain, spring.strain, boundary.stiffness);
    springs_.push_back(std::move(spring));
  }
  for (std::size_t n = 0; n < deck.nodes.size(); ++n) AddForce(static_cast<int>(n), deck.loads[n]);
}

/// k times the work of the two forms: into the matrix, and with the second's constant onto the other side.
void System::AddStiffness(const LinearForm& a, const LinearForm& b, double k) {
  if (k == 0) return;
  for (const LinearForm::Term& row : a.terms) {
    load_[row.variable] -= k * row.factor * b.constant;
    for (const LinearForm::Term& column : b.terms)
      if (row.variable >= column.variable)
        triplets_.emplace_back(row.variable, column.variable, k * row.factor * column.factor);
  }
}

void System::AddForce(int node, const std::array<double, 3>& force) {
  for (int dof = 0; dof < 3; ++dof) {
    const double value = force[static_cast<std::size_t>(dof)];
    if (value == 0) continue;
    for (const LinearForm::Term& term : kinematics_.Displacement(node, dof).terms)
      load_[term.variable] += value * term.factor;
  }
}

/// False: an unknown that nothing resists, unless it is a rotation, which then is held at 0.
bool System::ScaleByDiagonal(Unstable& unstable) {
  const int count = kinematics_.Unknowns();
  K_.resize(count, count);
  K_.setFromTriplets(triplets_.begin(), triplets_.end());
  const Vector diagonal = K_.diagonal();
  scale_ = Vector::Ones(count);
  for (int q = 0; q < count; ++q) {
    if (diagonal[q] > 0) {
      scale_[q] = 1 / std::sqrt(diagonal[q]);
      continue;
    }
    const Kinematics::Owner& owner = kinematics_.OwnerOf(q);
    unstable = {owner.node, owner.dof};
    if (owner.dof != 2) return false;
    K_.coeffRef(q, q) = 1;
    load_[q] = 0;
  }
  for (int column = 0; column < count; ++column)
    for (Matrix::InnerIterator entry(K_, column); entry; ++entry)
      entry.valueRef() *= scale_[entry.row()] * scale_[column];
  load_ = load_.cwiseProduct(scale_);
  return true;
}

/// The motion with the least resistance, by inverse iteration on the slightly stiffened system, told by the
/// first node that moves as far as any.
Unstable System::FreeMotion() const {
  constexpr double kStiffening = 1e-9;
  constexpr int kRounds = 4;
  const int count = kinematics_.Unknowns();
  Matrix stiffened = K_;
  for (int q = 0; q < count; ++q) stiffened.coeffRef(q, q) += kStiffening;
  const Factorization factorization(stiffened);
  Vector motion(count);
  for (int q = 0; q < count; ++q)
    motion[q] = 1 + 0.1 * std::sin(q);  // along no motion in particular, across none
  for (int round = 0; round < kRounds; ++round) motion = factorization.solve(motion).normalized();
  motion = motion.cwiseProduct(scale_);

  const auto part = [&](int node, int dof) {
    LinearForm form = kinematics_.Displacement(node, dof);
    form.constant = 0;
    return std::abs(form.At(motion));
  };
  const int nodes = static_cast<int>(deck_.nodes.size());
  for (const auto& [first, last] :
       {std::pair(0, 1), std::pair(2, 2)}) {  // rotations only where nothing moves
    double largest = 0;
    for (int node = 0; node < nodes; ++node)
      for (int dof = first; dof <= last; ++dof) largest = std::max(largest, part(node, dof));
    for (int node = 0; node < nodes && largest > 0; ++node)
      for (int dof = first; dof <= last; ++dof)
        if (part(node, dof) > 0.999 * largest) return {node, dof};
  }
  return {};
}

std::optional<Solution> System::Solve(Unstable& unstable) {
  if (kinematics_.Unknowns() == 0) return Evaluate(Vector());
  if (!ScaleByDiagonal(unstable)) return std::nullopt;
  const Factorization factorization(K_);
  if (!load_.allFinite() || !std::isfinite(K_.sum())) throw Fault("計算中に数値の範囲を超えました");
  if (factorization.info() != Eigen::Success || !(factorization.vectorD().minCoeff() > kPivotShare)) {
    unstable = FreeMotion();
    return std::nullopt;
  }
  Vector q = factorization.solve(load_);
  q += factorization.solve(load_ - K_.selfadjointView<Eigen::Lower>() * q);
  return Evaluate(q.cwiseProduct(scale_));
}

Solution System::Evaluate(const Vector& q) const {
  Solution solution;
  std::vector<std::array<double, 3>> held(
      deck_.nodes.size());  // what supports and links must exert on each node
  for (int node = 0; node < static_cast<int>(deck_.nodes.size()); ++node) {
    std::array<double, 3> u;
    for (int dof = 0; dof < 3; ++dof)
      u[static_cast<std::size_t>(dof)] = kinematics_.Displacement(node, dof).At(q);
    solution.displacements.push_back(u);
    for (std::size_t dof = 0; dof < 3; ++dof)
      held[static_cast<std::size_t>(node)][dof] = -deck_.loads[static_cast<std::size_t>(node)][dof];
  }
  const auto take = [&](int node, const std::array<double, 3>& force) {
    for (std::size_t dof = 0; dof < 3; ++dof) held[static_cast<std::size_t>(node)][dof] += force[dof];
  };
  for (std::size_t b = 0; b < deck_.beams.size(); ++b) {
    const Beam& beam = deck_.beams[b];
    const BeamElement& element = elements_[b];
    std::array<double, 6> ends{};
    if (!beam.IsLink()) {
      std::array<double, 3> strain;
      for (std::size_t k = 0; k < 3; ++k) strain[k] = element.strains[k].At(q);
      ends = element.EndForces(strain);
      for (std::size_t k = 0; k < 3; ++k) {
        ends[k] += beam.actionI[k];
        ends[3 + k] += beam.actionJ[k];
      }
      take(beam.nodeI, element.Turned(ends.data()));
      take(beam.nodeJ, element.Turned(ends.data() + 3));
    }
    solution.endForces.push_back(ends);
  }
  solution.boundaryForces.resize(deck_.boundaries.size());
  for (const SpringElement& spring : springs_) {
    const auto place = static_cast<std::size_t>(spring.place);
    const Boundary& boundary = deck_.boundaries[place];
    const double force = -boundary.stiffness * spring.strain.At(q);
    solution.boundaryForces[place] = force;
    std::array<double, 3> parts;
    for (std::size_t dof = 0; dof < 3; ++dof) parts[dof] = -force * boundary.direction[dof];
    take(boundary.node, parts);
  }

  const std::vector<double> forces = ConstraintForces(held);
  for (std::size_t k = 0; k < forces.size(); ++k) {
    const Constraint& constraint = kinematics_.Constraints()[k];
    if (constraint.boundary >= 0) {
      solution.boundaryForces[static_cast<std::size_t>(constraint.boundary)] = forces[k];
      continue;
    }
    // A link takes from its node J along X what it gives to node I; told in the axes of the line between
    // them.
    const Beam& link = deck_.beams[static_cast<std::size_t>(constraint.link)];
    const Node &I = deck_.nodes[static_cast<std::size_t>(link.nodeI)],
               &J = deck_.nodes[static_cast<std::size_t>(link.nodeJ)];
    const double L = std::hypot(J.x - I.x, J.z - I.z);
    const double c = L > 0 ? (J.x - I.x) / L : 1, s = L > 0 ? (J.z - I.z) / L : 0;
    solution.endForces[static_cast<std::size_t>(constraint.link)] = {c * forces[k],  -s * forces[k], 0,
                                                                     -c * forces[k], s * forces[k],  0};
  }
  return solution;
}

/// Shares out what supports and links together exert: C^T f = needed, by C C^T f = C needed. The rows of C
/// are independent, since a constraint that says nothing new was left out.
std::vector<double> System::ConstraintForces(const std::vector<std::array<double, 3>>& needed) const {
  const std::vector<Constraint>& constraints = kinematics_.Constraints();
  const int count = static_cast<int>(constraints.size());
  if (count == 0) return {};
  std::vector<Eigen::Triplet<double>> entries;
  for (int row = 0; row < count; ++row)
    for (const Constraint::Term& term : constraints[static_cast<std::size_t>(row)].terms)
      entries.emplace_back(row, 3 * term.node + term.dof, term.factor);
  Matrix C(count, static_cast<int>(3 * deck_.nodes.size()));
  C.setFromTriplets(entries.begin(), entries.end());
  Vector force(C.cols());
  for (int k = 0; k < force.size(); ++k)
    force[k] = needed[static_cast<std::size_t>(k / 3)][static_cast<std::size_t>(k % 3)];
  const Matrix normal = C * C.transpose();
  const Factorization factorization(normal);
  Vector shares = factorization.solve(C * force);
  shares += factorization.solve(C * (force - C.transpose() * shares));
  return std::vector<double>(shares.begin(), shares.end());
}

bool IsFinite(const Solution& solution) {
  const auto finite = [](double value) { return std::isfinite(value); };
  const auto allFinite = [&](const auto& values) {
    return std::all_of(values.begin(), values.end(), finite);
  };
  return std::all_of(solution.displacements.begin(), solution.displacements.end(), allFinite) &&
         std::all_of(solution.endForces.begin(), solution.endForces.end(), allFinite) &&
         allFinite(solution.boundaryForces);
}

}  // namespace

std::optional<Solution> Solve(const Deck& deck, Unstable& unstable) {
  std::optional<Solution> solution = System(deck).Solve(unstable);
  if (solution && !IsFinite(*solution)) throw Fault("計算中に数値の範囲を超えました");
  return solution;
}

}  // namespace zorlan::companion

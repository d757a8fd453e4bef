#include "companion/solver.h"

#include <algorithm>
#include <cmath>
#include <Eigen/SparseCholesky>
#include <limits>
#include <span>

#include "base/fault.h"
#include "companion/structure.h"

namespace zorlan::companion {
namespace {

using Matrix = Eigen::SparseMatrix<Real>;
using Vector = Eigen::Matrix<Real, Eigen::Dynamic, 1>;
using Factorization = Eigen::SimplicialLDLT<Matrix>;

/// A pivot below this share of its diagonal entry is what rounding leaves of 0. The share of a sound
/// structure is far above: a clamped beam cut into N pieces has pivots of about 1 / N^3.
constexpr Real kPivotShare = 1000 * std::numeric_limits<Real>::epsilon();

/// A result below this share of the largest of its kind is what rounding leaves of 0.
constexpr double kRoundingShare = 1e-15;

/// The equations of a structure, scaled to a diagonal of 1.
class Equations {
 public:
  explicit Equations(const Structure& structure);
  /// The unknowns, or nothing for an unstable structure.
  std::optional<std::vector<Real>> Solve(Unstable& unstable);

 private:
  void AddStiffness(const LinearForm& a, const LinearForm& b, Real k);
  template <class Force>
  void AddForce(int node, const Force& force, Real factor);
  bool ScaleByDiagonal(Unstable& unstable);
  Vector FreeMotion() const;
  Unstable FirstOfTheFarthest(const Vector& motion) const;

  const Structure& structure_;
  const int count_;
  std::vector<Eigen::Triplet<Real>> triplets_;  // lower triangle
  Matrix K_;
  Vector load_;
  Vector scale_;  // 1 / sqrt of the diagonal
};

Equations::Equations(const Structure& structure)
    : structure_(structure), count_(structure.kinematics.Unknowns()), load_(Vector::Zero(count_)) {
  const Deck& deck = structure.deck;
  for (std::size_t b = 0; b < deck.beams.size(); ++b) {
    const Beam& beam = deck.beams[b];
    if (beam.IsLink()) continue;
    const BeamElement& element = structure.elements[b];
    for (std::size_t i = 0; i < 3; ++i)
      for (std::size_t j = 0; j < 3; ++j)
        AddStiffness(element.strains[i], element.strains[j], element.stiffness[i][j]);
    AddForce(beam.nodeI, element.Turned({beam.actionI[0], beam.actionI[1], beam.actionI[2]}), -1);
    AddForce(beam.nodeJ, element.Turned({beam.actionJ[0], beam.actionJ[1], beam.actionJ[2]}), -1);
  }
  for (const SpringElement& spring : structure.springs)
    AddStiffness(spring.strain, spring.strain, At(deck.boundaries, spring.boundary).stiffness);
  for (std::size_t n = 0; n < deck.loads.size(); ++n) AddForce(static_cast<int>(n), deck.loads[n], 1);
}

/// k times the work of the two forms: into the matrix, and with the second's constant onto the other side.
void Equations::AddStiffness(const LinearForm& a, const LinearForm& b, Real k) {
  if (k == 0) return;
  for (const LinearForm::Term& row : a.terms) {
    load_[row.variable] -= k * row.factor * b.constant;
    for (const LinearForm::Term& column : b.terms)
      if (row.variable >= column.variable)
        triplets_.emplace_back(row.variable, column.variable, k * row.factor * column.factor);
  }
}

template <class Force>
void Equations::AddForce(int node, const Force& force, Real factor) {
  for (int dof = 0; dof < 3; ++dof) {
    const Real value = factor * force[static_cast<std::size_t>(dof)];
    if (value == 0) continue;
    for (const LinearForm::Term& term : structure_.kinematics.Displacement(node, dof).terms)
      load_[term.variable] += value * term.factor;
  }
}

/// False: an unknown that nothing resists, unless it is a rotation, which then is held at 0.
bool Equations::ScaleByDiagonal(Unstable& unstable) {
  K_.resize(count_, count_);
  K_.setFromTriplets(triplets_.begin(), triplets_.end());
  if (!load_.allFinite() || !std::isfinite(K_.sum())) throw Fault("計算中に数値の範囲を超えました");
  const Vector diagonal = K_.diagonal();
  scale_ = Vector::Ones(count_);
  for (int q = 0; q < count_; ++q) {
    if (diagonal[q] > 0) {
      scale_[q] = 1 / std::sqrt(diagonal[q]);
      continue;
    }
    const Kinematics::Owner& owner = structure_.kinematics.OwnerOf(q);
    unstable = {owner.node, owner.dof};
    if (owner.dof != 2) return false;
    K_.coeffRef(q, q) = 1;
    load_[q] = 0;
  }
  for (int column = 0; column < count_; ++column)
    for (Matrix::InnerIterator entry(K_, column); entry; ++entry)
      entry.valueRef() *= scale_[entry.row()] * scale_[column];
  load_ = load_.cwiseProduct(scale_);
  return true;
}

/// The motion with the least resistance, by inverse iteration on a system stiffened so little that the
/// softest motions of a sound part stay apart.
Vector Equations::FreeMotion() const {
  constexpr Real kStiffening = 10 * kPivotShare;
  constexpr int kRounds = 4;
  Matrix stiffened = K_;
  for (int q = 0; q < count_; ++q) stiffened.coeffRef(q, q) += kStiffening;
  const Factorization factorization(stiffened);
  Vector motion(count_);
  for (int q = 0; q < count_; ++q)
    motion[q] = 1 + 0.1L * std::sin(static_cast<Real>(q));  // along no motion in particular, across none
  for (int round = 0; round < kRounds; ++round) motion = factorization.solve(motion).normalized();
  return motion.cwiseProduct(scale_);
}

/// The first node that moves as far as any, and its direction; a rotation only where no node moves.
Unstable Equations::FirstOfTheFarthest(const Vector& motion) const {
  constexpr Real kAsFar = 1 - 1e-6L;
  const auto part = [&](int node, int dof) {
    LinearForm form = structure_.kinematics.Displacement(node, dof);
    form.constant = 0;
    return std::abs(form.At(motion));
  };
  const int nodes = static_cast<int>(structure_.deck.nodes.size());
  for (const auto& [first, last] : {std::pair(0, 1), std::pair(2, 2)}) {
    Real largest = 0;
    for (int node = 0; node < nodes; ++node)
      for (int dof = first; dof <= last; ++dof) largest = std::max(largest, part(node, dof));
    for (int node = 0; node < nodes && largest > 0; ++node)
      for (int dof = first; dof <= last; ++dof)
        if (part(node, dof) >= kAsFar * largest) return {node, dof};
  }
  return {};
}

std::optional<std::vector<Real>> Equations::Solve(Unstable& unstable) {
  if (count_ == 0) return std::vector<Real>();
  if (!ScaleByDiagonal(unstable)) return std::nullopt;
  const Factorization factorization(K_);
  if (factorization.info() != Eigen::Success || !(factorization.vectorD().minCoeff() > kPivotShare)) {
    unstable = FirstOfTheFarthest(FreeMotion());
    return std::nullopt;
  }
  Vector q = factorization.solve(load_);
  q += factorization.solve(load_ - K_.selfadjointView<Eigen::Lower>() * q);
  q = q.cwiseProduct(scale_);
  return std::vector<Real>(q.begin(), q.end());
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

/// Sets to 0 what is rounding. It differs with the processor's widest real, and a beam without axial force
/// would pass for a strut or a tie by its sign.
void ClearRounding(Solution& solution) {
  double movement = 0, force = 0;  // the largest: m and rad, forces and moments
  const auto widen = [](double& largest, std::span<const double> values) {
    for (const double value : values) largest = std::max(largest, std::abs(value));
  };
  for (const auto& u : solution.displacements) widen(movement, u);
  for (const auto& ends : solution.endForces) widen(force, ends);
  widen(force, solution.boundaryForces);

  const auto clear = [](double largest, std::span<double> values) {
    for (double& value : values)
      if (std::abs(value) < kRoundingShare * largest) value = 0;
  };
  for (auto& u : solution.displacements) clear(movement, u);
  for (auto& ends : solution.endForces) clear(force, ends);
  clear(force, solution.boundaryForces);
}

}  // namespace

std::optional<Solution> Solve(const Deck& deck, Unstable& unstable) {
  const Structure structure(deck);
  const std::optional<std::vector<Real>> unknowns = Equations(structure).Solve(unstable);
  if (!unknowns) return std::nullopt;
  Solution solution = Recover(structure, *unknowns);
  if (!IsFinite(solution)) throw Fault("計算中に数値の範囲を超えました");
  ClearRounding(solution);
  return solution;
}

}  // namespace zorlan::companion

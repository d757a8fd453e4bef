// What holds for every sound model, tried on random ones. The seed stands in the name of what fails.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <span>

#include "support/random_models.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

constexpr double kRounding = 1e-9;  // of the largest value of the kind
constexpr int kSeeds = 25;

std::vector<RandomShape> Shapes() {
  std::vector<RandomShape> shapes;
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid})
    for (const auto& [columns, storeys] : {std::pair(2, 2), {4, 4}, {3, 9}, {7, 4}, {6, 9}, {12, 5}})
      for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) shapes.push_back({kind, columns, storeys, seed});
  return shapes;
}

double Largest(std::span<const double> values) {
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value));
  return largest;
}
double LargestDifference(std::span<const double> a, std::span<const double> b) {
  EXPECT_EQ(a.size(), b.size());
  double largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) largest = std::max(largest, std::abs(a[i] - b[i]));
  return largest;
}

TEST(EveryModel, HasTheSameDisplacementsForcesAndReactionsOnBothRoads) {
  for (const RandomShape& shape : Shapes()) {
    const ModelRec model = RandomModel(shape).Model();
    const SolvedModel file = Solve(model, SolverRoad::File), memory = Solve(model, SolverRoad::InMemory);
    ASSERT_FALSE(file.instability || memory.instability) << shape.Name();
    EXPECT_LE(LargestDifference(file.displacements.Values(), memory.displacements.Values()),
              kRounding * Largest(memory.displacements.Values()))
        << shape.Name();
    EXPECT_LE(LargestDifference(file.forces, memory.forces), kRounding * Largest(memory.forces))
        << shape.Name();
    for (int e = 0; e < file.equations.Count(); ++e)
      for (int c = 0; c < 3 && file.equations.Code(e) != kFree; ++c)
        EXPECT_NEAR(file.reactions[e][c], memory.reactions[e][c], kRounding * Largest(memory.forces))
            << shape.Name() << " equation " << e;
  }
}

/// What acts on each node, in global axes: loads, reactions, and the member end forces turned back onto it.
/// The U of nodes that share a displacement is gathered at their layer, kept behind the nodes.
class NodeBalance {
 public:
  NodeBalance(const ModelRec& model, const SolvedModel& s)
      : model_(model), s_(s), sums_(3 * model.NodeCount + s.equations.layers, model.MaxLoadCase) {
    for (int r = 1; r <= model.PlodCount; ++r) {
      const PlodRec& load = model.Plod[r];
      Add(load.node, load.loadCase, {load.F1, load.F2, load.F3});
    }
    for (int c = 1; c <= model.MaxLoadCase; ++c) {
      for (int row = 1; row <= model.NodeCount; ++row)
        for (int d = 0; d < 3; ++d)
          if (model.Node[row].code[static_cast<std::size_t>(d)] != kFree) At(row, d)[c - 1] += s.R(row, d, c);
      for (int row = 1; row <= model.ElemCount; ++row) AddMember(row, c);
    }
  }
  double Worst() const {
    double worst = 0;
    for (int e = 0; e < sums_.Equations(); ++e)
      for (int c = 0; c < sums_.Cases(); ++c) worst = std::max(worst, std::abs(sums_[e][c]));
    return worst;
  }

 private:
  double* At(int row, int d) {
    const int layer =
        d == 0 && s_.equations.layers > 0 ? s_.equations.layer[static_cast<std::size_t>(row)] : 0;
    return sums_[layer > 0 ? 3 * model_.NodeCount + layer - 1 : 3 * (row - 1) + d];
  }
  void Add(int row, int loadCase, const std::array<double, 3>& force) {
    for (int d = 0; d < 3; ++d) At(row, d)[loadCase - 1] += force[static_cast<std::size_t>(d)];
  }
  void AddMember(int elementRow, int loadCase) {
    const Member& m = s_.members[static_cast<std::size_t>(elementRow - 1)];
    for (const int end : {0, 1}) {
      const double N = s_.F(elementRow, 3 * end + 1, loadCase), Q = s_.F(elementRow, 3 * end + 2, loadCase),
                   M = s_.F(elementRow, 3 * end + 3, loadCase);
      const int row = end == 0 ? m.rowI : m.rowJ;
      if (model_.ModelCode == kPlaneGrid)  // M turns about the member's horizontal normal, downwards in front
        Add(row, loadCase, {-Q, -m.s * M, m.c * M});
      else
        Add(row, loadCase, {-(m.c * N - m.s * Q), -(m.s * N + m.c * Q), -M});
    }
  }

  const ModelRec& model_;
  const SolvedModel& s_;
  CaseTable sums_;
};

TEST(EveryModel, IsInEquilibriumAtEveryNodeByItsMemberForces) {
  for (const RandomShape& shape : Shapes())
    for (const SolverRoad road : kRoads) {
      const ModelRec model = RandomModel(shape).Model();
      const SolvedModel s = Solve(model, road);
      EXPECT_LE(NodeBalance(model, s).Worst(), kRounding * Largest(s.forces)) << shape.Name();
    }
}

TEST(EveryModel, BalancesItsLoadsByItsReactionsAndLosesNoResidual) {
  for (const RandomShape& shape : Shapes())
    for (const SolverRoad road : kRoads) {
      const SolvedModel s = Solve(RandomModel(shape).Model(), road);
      for (const CaseTrust& trust : s.trust) {
        EXPECT_FALSE(trust.lost) << shape.Name() << " residual " << trust.residual;
        EXPECT_LE(trust.residual, kRounding * trust.largestLoad) << shape.Name();
        for (const std::size_t d : {0U, 1U})
          EXPECT_NEAR(trust.loadSum[d] + trust.reactionSum[d], 0, kRounding * Largest(s.forces))
              << shape.Name();
      }
    }
}

TEST(EveryModel, AddsUpItsCases) {
  for (const RandomShape& shape : Shapes()) {
    const ModelRec model = RandomModel(shape).Model();
    const SolvedModel s = Solve(model, SolverRoad::File);
    for (int row = 1; row <= model.ElemCount; ++row)
      for (int p = 1; p <= kForcesPerElement; ++p)
        EXPECT_NEAR(s.F(row, p, 3), s.F(row, p, 1) + s.F(row, p, 2), kRounding * Largest(s.forces))
            << shape.Name();
  }
}

/// The same structure with every element's ends exchanged: loads in member axes turn their sign with the
/// axes.
ModelRec Mirrored(ModelRec model) {
  for (int r = 1; r <= model.ElemCount; ++r) {
    ElemRec& element = model.Elem[r];
    std::swap(element.I, element.J);
    std::swap(element.II, element.JJ);
  }
  for (int r = 1; r <= model.RigdCount; ++r) std::swap(model.Rigd[r].lambdaI, model.Rigd[r].lambdaJ);
  for (int r = 1; r <= model.ElodCount; ++r) {
    ElodRec& load = model.Elod[r];
    if (load.MG > 0) continue;
    if (model.ModelCode != kPlaneGrid) load.P = -load.P;
    if (load.TYPE == 1 && load.Ly != 0) load.Ly = model.Elem[load.element].length - load.Ly;
  }
  for (int r = 1; r <= model.ClodCount; ++r) {
    ClodRec& load = model.Clod[r];
    std::swap(load.Ci, load.Cj);
    std::swap(load.Qi, load.Qj);
    load.Mo = -load.Mo;
    if (load.MG == 0) load.Qi = -load.Qi, load.Qj = -load.Qj;
  }
  return model;
}

TEST(EveryModel, MirrorsItsForcesWhenTheEndsOfItsElementsChangePlaces) {
  for (const RandomShape& shape : Shapes()) {
    ModelRec model = RandomModel(shape).Model();
    for (int r = 1; r <= model.ElodCount; ++r)  // one triangle's constants aren't quite the other's
      if (model.Elod[r].TYPE == 16 || model.Elod[r].TYPE == 17) model.Elod[r].Ly = 0;
    const SolvedModel one = Solve(model, SolverRoad::File), other = Solve(Mirrored(model), SolverRoad::File);
    EXPECT_LE(LargestDifference(one.displacements.Values(), other.displacements.Values()),
              kRounding * Largest(one.displacements.Values()))
        << shape.Name();
    const double turned = shape.kind == kPlaneGrid ? 1 : -1;  // a grid member's y is Z, whichever way it runs
    const double tolerance = kRounding * Largest(one.forces);
    for (int row = 1; row <= model.ElemCount; ++row)
      for (int c = 1; c <= 3; ++c) {
        EXPECT_NEAR(other.F(row, 1, c), -one.F(row, 4, c), tolerance) << shape.Name();
        EXPECT_NEAR(other.F(row, 2, c), turned * one.F(row, 5, c), tolerance) << shape.Name();
        EXPECT_NEAR(other.F(row, 3, c), -turned * one.F(row, 6, c), tolerance) << shape.Name();
        EXPECT_NEAR(other.F(row, 7, c), turned * one.F(row, 7, c), tolerance) << shape.Name();
      }
  }
}

}  // namespace
}  // namespace zorlan::test

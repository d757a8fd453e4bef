// The frontal elimination: its slots, its rows, and what it must not remember.
#include "analysis/front_solver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/plain_front.h"
#include "support/random_models.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;

EliminatedRows RowsOf(const ModelRec& model) {
  const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::File);
  NoStiffness fault;
  std::optional<EliminatedRows> rows = EliminateFront(equations, kPivotTolerance, fault, [](double) {});
  return std::move(rows.value());
}

/// Nodes 1 m apart in a row, the first one clamped, joined in the order of `elements`.
ModelBuilder Row(int nodes, const std::vector<std::pair<int, int>>& elements) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  for (int n = 1; n <= nodes; ++n) b.Node(n, 0, n == 1 ? kClamped : kLoose);
  for (const auto& [I, J] : elements) b.Element(I, J);
  return b;
}

// Two cantilevers that don't meet. Node 2 is held, takes the first slot before node 1 has the second, and
// leaves when only its own slot is in use; the nodes 3 and 4 take both slots again.
TEST(FrontSlots, TakenAgainKeepNothingOfAHeldNode) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 3);
  b.Node(0, 0, kClamped);
  b.Node(6, 4);
  b.Node(6, 2);
  b.Node(6, 0, kClamped);
  b.Element(2, 1);
  b.Element(3, 4);
  b.Element(4, 5);
  b.NodalLoad(1, 1, 0, 0);
  b.NodalLoad(3, 1, 0, 0);
  const SolvedModel s = Solve(b.model, SolverRoad::File);
  EXPECT_NEAR(s.U(1, 0), 27.0 / (3 * 200), 1e-9);
  EXPECT_NEAR(s.U(3, 0), 64.0 / (3 * 200), 1e-9);
}

// The same in one frame: node 5 is held and hangs on node 2, whose slot is the fourth. When 5 leaves, two
// slots are in use; later nodes take the slots of 5 and of 2.
TEST(FrontSlots, TakenAgainKeepNothingOfAHeldNodeInAConnectedFrame) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  for (int n = 1; n <= 10; ++n) b.Node(n * n % 11, 2 * n, n == 5 ? kClamped : kLoose);
  for (const auto& [I, J] : {std::pair(3, 1),
                             {4, 1},
                             {2, 1},
                             {5, 2},
                             {3, 4},
                             {4, 6},
                             {7, 6},
                             {8, 6},
                             {9, 6},
                             {9, 7},
                             {8, 9},
                             {10, 8}})
    b.Element(I, J);
  b.NodalLoad(10, 1, 2, 3);
  b.NodalLoad(7, -1, 0, 1);
  const SolvedModel file = Solve(b.model, SolverRoad::File), memory = Solve(b.model, SolverRoad::InMemory);
  for (int row = 1; row <= 10; ++row)
    for (int d = 0; d < 3; ++d)
      EXPECT_NEAR(file.U(row, d), memory.U(row, d), 1e-9 * std::abs(memory.U(10, 0)));
}

TEST(FrontSlots, AreTheFirstFreeOnesWhenARecordMeetsANode) {
  // Node 1: 4 and 1, then 3; node 2 takes 1's slot, 5 the next.
  const EliminatedRows rows = RowsOf(Row(5, {{4, 1}, {1, 3}, {2, 5}, {2, 4}, {3, 5}}).model);
  EXPECT_THAT(rows.nodes[0].slot, ElementsAre(4, 1, 3));
  EXPECT_THAT(rows.nodes[1].slot, ElementsAre(4, 2, 3, 5));
  EXPECT_THAT(rows.nodes[2].slot, ElementsAre(4, 0, 3, 5));
}

TEST(FrontSlots, FollowTheFrontInUseAndNotTheWidestElement) {
  // One element spans all forty nodes; the front is never wider than the chain and its two ends.
  std::vector<std::pair<int, int>> elements = {{1, 40}};
  for (int n = 1; n < 40; ++n) elements.emplace_back(n, n + 1);
  for (const EliminatedNode& node : RowsOf(Row(40, elements).model).nodes) EXPECT_LE(node.slot.size(), 3U);
}

TEST(FrontRows, StandForEveryNodeInTheOrderOfTheTable) {
  const EliminatedRows rows = RowsOf(Row(6, {{6, 5}, {5, 4}, {1, 3}, {2, 3}, {4, 2}}).model);
  ASSERT_EQ(rows.nodes.size(), 6U);
  for (std::size_t n = 0; n < rows.nodes.size(); ++n) EXPECT_EQ(rows.nodes[n].node, static_cast<int>(n) + 1);
}

TEST(FrontRows, AreMissingForHeldEquationsAndKeptUndividedForToleratedOnes) {
  ModelBuilder b = Row(2, {});
  b.Element(1, 2, 1, 0, 1);  // nothing holds the rotation of node 2
  b.model.Node[1].code = {1, 1, 0};
  b.NodalLoad(2, 0, 0, 0.25);
  // Without a support's rotation the bar would fall: node 2 stands on a roller.
  b.model.Node[2].code = {0, 1, 0};
  const EliminatedRows rows = RowsOf(b.model);
  EXPECT_EQ(rows.nodes[0].row[0], nullptr);
  EXPECT_EQ(rows.nodes[0].row[1], nullptr);
  EXPECT_NE(rows.nodes[0].row[2], nullptr);
  EXPECT_NE(rows.nodes[1].row[0], nullptr);
  EXPECT_EQ(rows.nodes[1].row[1], nullptr);
  ASSERT_NE(rows.nodes[1].row[2], nullptr);
  EXPECT_EQ(rows.nodes[1].row[2][0], 0.25) << "the load term as it was";
}

TEST(FrontCodes, OtherThanFixedAreFreeEquations) {
  for (const Codes& code : {Codes{2, 2, 2}, Codes{4, 4, 0}, Codes{3, 23, 2}}) {
    for (const SolverRoad road : kRoads) {
      ModelBuilder b = Row(3, {{1, 2}, {2, 3}});
      b.NodalLoad(3, 1, -1, 2);
      const SolvedModel loose = Solve(b.model, road);
      b.model.Node[2].code = code;
      const SolvedModel coded = Solve(b.model, road);
      for (int row = 1; row <= 3; ++row)
        for (int d = 0; d < 3; ++d) EXPECT_EQ(coded.U(row, d), loose.U(row, d));
    }
  }
}

TEST(FrontCodes, OfFixedEquationsLeaveTheirUnknownAtZero) {
  ModelBuilder b = Row(3, {{1, 2}, {2, 3}});
  b.model.Node[3].code = {1, 0, 1};
  b.NodalLoad(3, 5, -1, 2);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_EQ(s.U(3, 0), 0);
    EXPECT_EQ(s.U(3, 2), 0);
    EXPECT_NEAR(s.U(3, 1), -8. / (12 * 200), 1e-12) << "guided end: P L^3/12EI";
  }
}

/// Sound models, models with negative stiffness of a section or of a spring, mechanisms, and nothing.
std::vector<ModelRec> AllKindsOfModels() {
  std::vector<ModelRec> models;
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid})
    for (const auto& [columns, storeys] : {std::pair(2, 3), {4, 4}, {3, 7}, {6, 5}})
      for (std::uint32_t seed = 1; seed <= 25; ++seed) {
        ModelRec model = RandomModel({kind, columns, storeys, seed}).Model();
        if (seed % 5 == 1) model.Sect[2].E = -model.Sect[2].E;
        if (seed % 5 == 2)
          for (int r = 1; r <= model.ElemCount; r += 3) model.Elem[r].II = model.Elem[r].JJ = 1;
        if (seed % 5 == 3)
          for (int r = 1; r <= model.SprgCount; ++r) model.Sprg[r].K1 = model.Sprg[r].K2 = -1000;
        if (seed % 5 == 4)
          for (int r = 1; r <= model.SectCount; ++r) model.Sect[r].E = 0;
        models.push_back(model);
      }
  // Two members side by side, of EI = 150 and, pinned at J, -200: 4EI/L of the one and 3EI/L of the other
  // cancel at I, their couplings don't.
  ModelBuilder cancelling;
  cancelling.Section(150, 1, 1);
  cancelling.Section(-200, 1, 1);
  for (const double x : {12.0, 8.0, 4.0, 0.0}) cancelling.Node(x, 0, x == 0 ? kClamped : kLoose);
  cancelling.Element(2, 1, 1);
  cancelling.Element(2, 1, 2, 0, 1);
  cancelling.Element(2, 3, 1);
  cancelling.Element(4, 3, 1);
  cancelling.NodalLoad(1, 1, -1, 0.5);
  cancelling.NodalLoad(2, 1, 2, 0.25);
  models.push_back(cancelling.model);
  return models;
}

TEST(FrontElimination, IsThePlainOneToTheLastBit) {
  int solved = 0, unstable = 0;
  for (const ModelRec& model : AllKindsOfModels()) {
    const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::File);
    NoStiffness fault, plainFault;
    const std::optional<CaseTable> x = SolveByFront(equations, fault);
    const std::optional<CaseTable> plain = PlainFront(equations).Solve(kPivotTolerance, plainFault);
    ASSERT_EQ(x.has_value(), plain.has_value());
    ++(x ? solved : unstable);
    if (!x)
      EXPECT_EQ(InstabilityText(fault), InstabilityText(plainFault));
    else
      EXPECT_THAT(x->Values(), testing::ElementsAreArray(plain->Values()));
  }
  EXPECT_GT(solved, 200);
  EXPECT_GT(unstable, 5);
}

TEST(FrontProgress, RisesToTheEnd) {
  const ModelRec model = RandomModel({kPlaneFrame, 20, 20, 3}).Model();
  const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::File);
  NoStiffness fault;
  double last = 0;
  int told = 0;
  EliminateFront(equations, kPivotTolerance, fault, [&](double share) {
    EXPECT_GT(share, last);
    last = share;
    ++told;
  });
  EXPECT_GT(told, 1);
  EXPECT_LE(last, 1);
}

// Eliminating V leaves the rotation 4EI/L - 3EI/L = EI/L = 66.7 t*m of its stiffness. What comes out as small
// as the tolerance is dropped: then nothing is left of the rotation, and the tip moves like a guided one, P
// L^3/12EI.
TEST(DenseSolver, DropsWhatComesOutAsSmallAsItsTolerance) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(3, 0);
  b.Element(1, 2);
  b.NodalLoad(2, 0, -1000, 0);
  const Equations equations = BuildEquations(b.model, CollectMembers(b.model), SolverRoad::InMemory);
  NoStiffness fault;
  for (const auto& [tolerance, divisor] : {std::pair(1e-20, 3), {66.0, 3}, {67.0, 12}})
    EXPECT_NEAR(SolveDense(equations, tolerance, fault)->displacements[4][0], -27000. / (divisor * 200), 1e-9)
        << tolerance;
  EXPECT_EQ(SolveDense(equations, 67, fault)->displacements[5][0], 0);
}

}  // namespace
}  // namespace zorlan::test

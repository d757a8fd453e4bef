// Frames whose floors share one horizontal displacement, on both roads.
#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

constexpr double kBarEA = 20000, kColumnEI = 200;
constexpr double kColumn = 3 * kColumnEI / 27;  // a cantilever of 3 m, t/m

/// Two cantilever columns, 3 m high, with a bar of 6 m between their heads, the nodes 3 and 4; 1 t pushes
/// head 3.
ModelBuilder TwoColumns(Codes left = kLoose, Codes right = kLoose) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, kBarEA / 2e6, kColumnEI / 2e6);
  b.Node(0, 0, kClamped);
  b.Node(6, 0, kClamped);
  b.Node(0, 3, left);
  b.Node(6, 3, right);
  b.Element(1, 3);
  b.Element(4, 2);
  b.Element(3, 4, 1, 1, 1);
  b.NodalLoad(3, 1, 0, 0);
  return b;
}

TEST(SameDisplacement, OfTwoHeadsIsOneNumber) {
  ModelBuilder b = TwoColumns();
  b.Group({3, 4});
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_NEAR(s.U(3, 0), 1 / (2 * kColumn), 1e-12);
    EXPECT_EQ(s.U(3, 0), s.U(4, 0));
    EXPECT_NEAR(s.U(3, 2), -1.5 * s.U(3, 0) / 3, 1e-12) << "a cantilever's tip turns by 3/2 v/L";
    EXPECT_EQ(s.F(3, 1), 0) << "nothing strains the bar";
  }
}

// The bar of EA/L = 3333 t/m is strained by what it hands on to the second column: u4 = u3 k/(k + K).
TEST(SameDisplacement, WithoutGroupsLeavesEveryNodeItsOwn) {
  const double bar = kBarEA / 6, share = bar / (bar + kColumn);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(TwoColumns().model, road);
    EXPECT_NEAR(s.U(3, 0), 1 / (kColumn + kColumn * share), 1e-12);
    EXPECT_NEAR(s.U(4, 0), share * s.U(3, 0), 1e-12);
  }
}

// The same with every node a layer of its own: the group holds one node alone.
TEST(SameDisplacement, OfSingleNodesIsTheOrdinaryFrame) {
  ModelBuilder b = TwoColumns();
  b.Group({4});
  const SolvedModel plain = Solve(TwoColumns().model, SolverRoad::File);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    for (const int row : {3, 4})
      for (int d = 0; d < 3; ++d) EXPECT_NEAR(s.U(row, d), plain.U(row, d), 1e-12);
  }
}

TEST(SameDisplacement, GathersTheLoadsAndSpringsOfItsNodes) {
  ModelBuilder b = TwoColumns({2, 0, 0});
  b.Group({3, 4});
  b.NodalLoad(4, 2, 0, 0);
  b.Spring(3, 0.5, 0, 0);
  for (const SolverRoad road : kRoads)
    EXPECT_NEAR(Solve(b.model, road).U(4, 0), 3 / (2 * kColumn + 50), 1e-12);
}

TEST(SameDisplacement, LeavesAHeldBaseWhereItIs) {
  ModelBuilder b = TwoColumns();
  b.Group({3, 4});
  b.NodalLoad(1, 1000, 0, 0);  // on a base: goes into the ground
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_EQ(s.U(1, 0), 0);
    EXPECT_NEAR(s.U(3, 0), 1 / (2 * kColumn), 1e-12);
    EXPECT_NEAR(s.R(1, 0), -0.5 - 1000, 1e-9);
  }
}

// A group is free, whatever the codes of its nodes say; in memory its last node's code counts.
TEST(SameDisplacement, OfAGroupWithAHeldNodeIsFreeOnTheFileRoadAndFollowsTheLastNodeInMemory) {
  const Codes held = {1, 0, 0};
  struct Case {
    const char* name;
    Codes left, right;
    bool heldInMemory;
  };
  for (const Case& c : {Case{"first node held", held, kLoose, false},
                        {"last node held", kLoose, held, true},
                        {"both held", held, held, true}}) {
    ModelBuilder b = TwoColumns(c.left, c.right);
    b.Group({4, 3});  // the node table's order counts, not the group's
    b.NodalLoad(4, 0, 0, 1);
    // 1 t on two columns, and the moment's 3/2 M/L as a shear against it.
    const double free = (1 - 1.5 / 3) / (2 * kColumn);
    const SolvedModel file = Solve(b.model, SolverRoad::File);
    EXPECT_NEAR(file.U(3, 0), free, 1e-12) << c.name;
    const SolvedModel memory = Solve(b.model, SolverRoad::InMemory);
    ASSERT_FALSE(memory.instability) << c.name;
    EXPECT_NEAR(memory.U(3, 0), c.heldInMemory ? 0 : free, 1e-12) << c.name;
    // A held head turns by M L/4EI, a free one by more.
    EXPECT_NEAR(memory.U(4, 2), c.heldInMemory ? 3 / (4 * kColumnEI) : file.U(4, 2), 1e-12) << c.name;
  }
}

TEST(SameDisplacement, OfAHeldLayerIsNoPivotEvenWithoutStiffness) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(0, 3, {1, 0, 0});
  b.Element(1, 2, 1, 1, 1);
  b.Group({2});
  EXPECT_FALSE(Solve(b.model, SolverRoad::InMemory).instability);
  EXPECT_TRUE(Solve(b.model, SolverRoad::File).instability);
}

// Two storeys of columns that can't turn at the floors: 12EI/h^3 each; the upper storey carries 1 t, the
// lower 3 t.
TEST(SameDisplacement, OfAShearBuildingAddsUpItsStoreys) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  for (int storey = 0; storey <= 2; ++storey)
    for (const double x : {0.0, 6.0}) b.Node(x, 3 * storey, storey == 0 ? kClamped : Codes{0, 1, 1});
  for (int node = 1; node <= 4; ++node) b.Element(node, node + 2);
  b.Group({3, 4});
  b.Group({5, 6});
  b.NodalLoad(4, 2, 0, 0);
  b.NodalLoad(6, 1, 0, 0);
  const double storey = 2 * 12 * kColumnEI / 27;
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_NEAR(s.U(3, 0), 3 / storey, 1e-12);
    EXPECT_NEAR(s.U(5, 0), 3 / storey + 1 / storey, 1e-12);
  }
}

}  // namespace
}  // namespace zorlan::test

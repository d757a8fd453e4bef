// Support reactions: the force of the support on the structure.
#include "analysis/reactions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;

/// A beam of 4 m along X with a load of 3 t/m downwards.
ModelBuilder LoadedBeam(ModelKind kind, Codes left, Codes right, double w = -3) {
  ModelBuilder b(kind);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, left);
  b.Node(4, 0, right);
  b.Element(1, 2);
  b.ElementLoad(1, w);
  return b;
}

struct BeamCase {
  const char* name;
  ModelBuilder built;
  std::vector<std::array<double, 3>> expected;  // by node row
};

std::vector<BeamCase> BeamCases() {
  std::vector<BeamCase> cases = {
      {"fixed beam: w l^2/12", LoadedBeam(kPlaneFrame, kClamped, kClamped), {{0, 6, 4}, {0, 6, -4}}},
      {"simple beam: w l/2", LoadedBeam(kPlaneFrame, kHinged, kRolling), {{0, 6, 0}, {0, 6, 0}}},
      {"propped: 5/8, 3/8, w l^2/8", LoadedBeam(kPlaneFrame, kClamped, kRolling), {{0, 7.5, 6}, {0, 4.5, 0}}},
      {"cantilever: w l, w l^2/2", LoadedBeam(kPlaneFrame, kClamped, kLoose), {{0, 12, 24}, {0, 0, 0}}},
      // Along X θy is -w', and its moment turns downwards in front.
      {"fixed grid beam", LoadedBeam(kPlaneGrid, kClamped, kClamped), {{6, 0, -4}, {6, 0, 4}}},
  };
  ModelBuilder onSupport = LoadedBeam(kPlaneFrame, kClamped, kLoose, 0);
  onSupport.NodalLoad(1, 5, -7, 9);
  cases.push_back({"a load on the support goes through it", onSupport, {{-5, 7, -9}, {0, 0, 0}}});

  ModelBuilder sprung = LoadedBeam(kPlaneFrame, kHinged, {0, 2, 0});
  sprung.Spring(2, 0, 3, 0);
  cases.push_back({"a spring carries what a roller would", sprung, {{0, 6, 0}, {0, 6, 0}}});

  ModelBuilder turning = LoadedBeam(kPlaneFrame, {1, 1, 2}, kRolling, 0);  // 3EI/l = 150 beside 50 t*m/rad
  turning.Spring(1, 0, 0, 5000);
  turning.NodalLoad(1, 0, 0, 20);
  cases.push_back({"a rotation spring takes its share", turning, {{0, 3.75, -5}, {0, -3.75, 0}}});
  return cases;
}

TEST(Reactions, AreThoseOfTheTextbookOnBothRoads) {
  for (const BeamCase& c : BeamCases())
    for (const SolverRoad road : kRoads) {
      const SolvedModel s = Solve(c.built.model, road);
      for (std::size_t n = 0; n < c.expected.size(); ++n)
        for (int d = 0; d < 3; ++d)
          EXPECT_NEAR(s.R(static_cast<int>(n) + 1, d), c.expected[n][static_cast<std::size_t>(d)], 1e-9)
              << c.name << ", node " << n + 1 << ", reaction " << d + 1;
    }
}

TEST(Reactions, OfAGridSpringTurnAboutBothAxes) {
  ModelBuilder b(kPlaneGrid);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, {2, 2, 2});
  b.Node(3, 0);
  b.Element(1, 2);
  b.Spring(1, 4, 700, 900);
  b.NodalLoad(2, -2, 0, 0);
  b.NodalLoad(1, 0, 5, 0);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_NEAR(s.U(1, 0), -2. / 400, 1e-12);
    EXPECT_NEAR(s.U(1, 1), 5. / 7, 1e-12);
    EXPECT_NEAR(s.U(1, 2), 6. / 9, 1e-12) << "2 t at 3 m";
    EXPECT_NEAR(s.R(1, 0), 2, 1e-9);
    EXPECT_NEAR(s.R(1, 1), -5, 1e-9);
    EXPECT_NEAR(s.R(1, 2), -6, 1e-9);
  }
}

// 300 + 100 t/m under 4 t: 1 cm, of which the last row's 100 t/m tell 1 t.
TEST(Reactions, OfSeveralSpringsOnANodeAreThoseOfTheLastRow) {
  ModelBuilder b(kPlaneFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(3, 0, {1, 2, 1});
  b.Element(1, 2, 1, 1, 1);
  b.Spring(2, 0, 3, 0);
  b.Spring(2, 0, 1, 0);
  b.NodalLoad(2, 0, -4, 0);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_NEAR(s.U(2, 1), -0.01, 1e-15);
    EXPECT_NEAR(s.R(2, 1), 1, 1e-12);
  }
}

TEST(Reactions, OfASpringCodeWithoutASpringAreNothing) {
  for (const double w : {-3.0, -0.1, -0.7, 1.3, 1e3 / 7}) {
    const ModelRec model = LoadedBeam(kPlaneFrame, kClamped, {0, 2, 0}, w).model;
    EXPECT_EQ(Solve(model, SolverRoad::File).R(2, 1), 0);
    EXPECT_NEAR(Solve(model, SolverRoad::InMemory).R(2, 1), 0, 1e-9) << "what rounding leaves";
  }
}

// Loads and stiffness are both doubled: the displacements stay, the reactions balance the doubled load. A
// spring's reaction is its own constant times its displacement, not the magnified one.
TEST(Reactions, BalanceTheMagnifiedLoads) {
  ModelBuilder b = LoadedBeam(kPlaneFrame, kClamped, {0, 2, 0});
  b.Spring(2, 0, 1, 0);
  const ModelRec plainModel = b.model;
  b.Magnification(-1, 5, 2);
  for (const SolverRoad road : kRoads) {
    const SolvedModel plain = Solve(plainModel, road), doubled = Solve(b.model, road);
    EXPECT_NEAR(doubled.U(2, 1), plain.U(2, 1), 1e-12);
    EXPECT_NEAR(doubled.R(1, 1), 2 * plain.R(1, 1), 1e-9);
    EXPECT_NEAR(doubled.R(2, 1), plain.R(2, 1), 1e-9);
    EXPECT_NEAR(plain.R(1, 1) + plain.R(2, 1), 12, 1e-9);
  }
}

// A hinged base of a frame with groups, a moment of 2 on it: the free rotation keeps the sum of its element
// forces in memory; the file road has no reaction there.
TEST(Reactions, OfAFreeEquationKeepTheBareSumBesideGroupsInMemory) {
  ModelBuilder b = LoadedBeam(kSameDisplacementFrame, kHinged, {0, 1, 0}, 0);
  b.Node(0, 3);
  b.Element(1, 3);
  b.Group({2, 3});
  b.NodalLoad(1, 0, 0, 2);
  const SolvedModel memory = Solve(b.model, SolverRoad::InMemory), file = Solve(b.model, SolverRoad::File);
  EXPECT_NEAR(memory.R(1, 2), 2, 1e-9);
  EXPECT_EQ(file.R(1, 2), 0);
  for (int d : {0, 1}) EXPECT_NEAR(memory.R(1, d), file.R(1, d), 1e-9);
}

// An inclined roller that no one has solved yet is a free node: its equations tell what is left of them.
TEST(Reactions, OfAnInclinedRollerAreWhatItsFreeEquationsLeave) {
  ModelBuilder b = LoadedBeam(kPlaneFrame, kClamped, {4, 4, 0});
  for (const SolverRoad road : kRoads)
    for (int d = 0; d < 3; ++d) EXPECT_NEAR(Solve(b.model, road).R(2, d), 0, 1e-9);
}

// The stream has no element at the last node; what acts on a node that only a spring meets there isn't looked
// at.
TEST(Reactions, OfALastNodeOnASpringAloneAreItsSpringsAloneOnTheFileRoad) {
  ModelBuilder b = LoadedBeam(kPlaneFrame, kClamped, kLoose);
  b.Node(9, 0, {1, 2, 1});
  b.Spring(3, 0, 2, 0);
  b.NodalLoad(3, 5, -6, 0);
  EXPECT_EQ(Solve(b.model, SolverRoad::File).R(3, 0), 0);
  EXPECT_EQ(Solve(b.model, SolverRoad::InMemory).R(3, 0), -5);
  for (const SolverRoad road : kRoads) EXPECT_NEAR(Solve(b.model, road).R(3, 1), 6, 1e-12);
}

TEST(Reactions, AreCollectedOfSupportedNodesInTableOrderCaseByCase) {
  ModelBuilder b(kPlaneFrame, 2);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, {0, 0, 1});
  b.Node(1, 0);
  b.Node(2, 0, kRolling);
  b.Node(3, 0, {0, 0, 4});
  b.model.Node[1].number = 30;
  b.model.Node[3].number = 7;
  const Equations equations = BuildEquations(b.model, CollectMembers(b.model), SolverRoad::InMemory);
  CaseTable table(12, 2);
  for (int e = 0; e < 12; ++e)
    for (int c = 0; c < 2; ++c) table[e][c] = 100 * (c + 1) + e;
  const Reactions reactions = CollectReactions(equations, table);
  EXPECT_EQ(reactions.cases, 2);
  EXPECT_THAT(reactions.nodes, ElementsAre(30, 7, 4));
  EXPECT_THAT(reactions.values, ElementsAre(100, 101, 102, 106, 107, 108, 109, 110, 111,  //
                                            200, 201, 202, 206, 207, 208, 209, 210, 211));
}

}  // namespace
}  // namespace zorlan::test

// What a run knows of itself: residuals, balance, and the mechanism that only rounding hides.
#include "analysis/trust.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

/// A member of 3 m from `support` in the direction (c, s); 1 t across and along at its tip, in each
/// direction.
ModelBuilder Cantilever(Codes support, double c = 1, double s = 0, ModelKind kind = kPlaneFrame) {
  ModelBuilder b(kind);
  b.Section(2.1e6, 0.0137, 1.7e-4);
  b.Node(0, 0, support);
  b.Node(3 * c, 3 * s);
  b.Element(1, 2);
  b.NodalLoad(2, 1, -1, 0);
  return b;
}

struct Mechanism {
  const char* name;
  ModelBuilder built;
};

std::vector<Mechanism> Mechanisms() {
  std::vector<Mechanism> mechanisms;
  for (int degrees = 0; degrees < 90; degrees += 7) {
    const double a = degrees * 0.0174532925199433;
    mechanisms.push_back({"a support that turns", Cantilever(kHinged, std::cos(a), std::sin(a))});
    mechanisms.push_back({"a support that slides", Cantilever({0, 1, 1}, std::cos(a), std::sin(a))});

    ModelBuilder falling =
        Cantilever(kHinged, std::cos(a), std::sin(a));  // a pin in its middle, far end held
    falling.Node(6 * std::cos(a), 6 * std::sin(a), kHinged);
    falling.Element(2, 3, 1, 1, 0);
    falling.model.Elem[1].JJ = 1;
    falling.NodalLoad(2, -std::sin(a) * 3, std::cos(a) * 3, 0);
    mechanisms.push_back({"three pins in a line", falling});

    ModelBuilder tilting = Cantilever({1, 0, 0}, std::cos(a), std::sin(a), kPlaneGrid);
    tilting.Node(3 * std::cos(a) - 4 * std::sin(a), 3 * std::sin(a) + 4 * std::cos(a), {1, 0, 0});
    tilting.Element(2, 3);
    mechanisms.push_back({"a grid on two points", tilting});
  }
  for (const int storeys : {1, 3, 8}) {
    ModelBuilder swaying;  // columns pinned at every floor
    swaying.Section(2.1e6, 0.0137, 1.7e-4);
    for (int floor = 0; floor <= storeys; ++floor)
      for (const double x : {0.1, 6.3})
        swaying.Node(x + 0.07 * floor, 3.3 * floor, floor == 0 ? kHinged : kLoose);
    for (int node = 1; node <= 2 * storeys; ++node) swaying.Element(node, node + 2, 1, 1, 1);
    for (int node = 3; node <= 2 * storeys + 1; node += 2) swaying.Element(node, node + 1);
    swaying.NodalLoad(2 * storeys + 2, 1, 0, 0);
    mechanisms.push_back({"pinned columns", swaying});
  }
  return mechanisms;
}

TEST(Trust, NoMechanismPassesInSilence) {
  int passed = 0;
  for (const Mechanism& m : Mechanisms())
    for (const SolverRoad road : kRoads) {
      const SolvedModel s = Solve(m.built.model, road);
      if (s.instability) continue;  // told by its pivot
      ++passed;
      EXPECT_TRUE(s.trust[0].lost) << m.name << " residual " << s.trust[0].residual << " displacement "
                                   << s.trust[0].largestDisplacement;
    }
  EXPECT_GT(passed, 10) << "rounding should hide some of them from the pivot tests";
}

TEST(Trust, IsLostWhereAMomentActsOnARotationThatNothingHolds) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(-3, 0, kHinged);
  b.Node(0, 4);
  b.Node(3, 0, kHinged);
  b.Element(1, 2, 1, 1, 1);
  b.Element(2, 3, 1, 1, 1);
  b.NodalLoad(2, 0, -8, 0);
  for (const SolverRoad road : kRoads) EXPECT_FALSE(Solve(b.model, road).trust[0].lost);
  b.model.Node[2].number = 77;
  b.model.Elem[1].J = b.model.Elem[2].I = b.model.Plod[1].node = 77;
  b.NodalLoad(77, 0, 0, 0.7);
  for (const SolverRoad road : kRoads) {
    const CaseTrust trust = Solve(b.model, road).trust[0];
    EXPECT_TRUE(trust.lost);
    EXPECT_EQ(trust.residualNode, 77);
    EXPECT_NEAR(trust.residual, 0.7, 1e-12);
  }
}

// Moving node 2 by 1 cm along a bar of EA/L = 10000 t/m takes 100 t that no load gives.
TEST(Trust, NamesTheNodeOfTheGreatestResidual) {
  ModelBuilder b(kPlaneFrame, 2);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(2, 0);
  b.Element(1, 2);
  b.NodalLoad(2, 5, 0, 0, 2);
  SolvedModel s = Solve(b.model, SolverRoad::File);
  s.displacements[3][1] += 0.01;
  const std::vector<CaseTrust> trust = AssessSolution(s.equations, s.displacements, s.reactions);
  EXPECT_FALSE(trust[0].lost) << "the other case is judged by itself";
  EXPECT_EQ(trust[0].residualNode, 0);
  EXPECT_TRUE(trust[1].lost);
  EXPECT_EQ(trust[1].residualNode, 2);
  EXPECT_NEAR(trust[1].residual, 100, 1e-9);
}

TEST(Trust, TellsLoadsReactionsAndTheLargestDisplacement) {
  for (const SolverRoad road : kRoads) {
    const CaseTrust trust = Solve(Cantilever(kClamped, 0.6, 0.8).model, road).trust[0];
    EXPECT_EQ(trust.largestLoad, 1);
    EXPECT_NEAR(trust.loadSum[0], 1, 1e-12);
    EXPECT_NEAR(trust.loadSum[1], -1, 1e-12);
    EXPECT_NEAR(trust.reactionSum[0], -1, 1e-9);
    EXPECT_NEAR(trust.reactionSum[1], 1, 1e-9);
    EXPECT_EQ(trust.displacementNode, 2);
    // Along: (0.6 - 0.8) L/EA; across: -(0.8 + 0.6) L^3/3EI.
    EXPECT_NEAR(trust.largestDisplacement, std::hypot(0.2 * 3 / (2.1e6 * 0.0137), 1.4 * 9 / (2.1e6 * 1.7e-4)),
                1e-12);
    EXPECT_FALSE(trust.lost);
  }
}

TEST(Trust, OfAGridHasItsVerticalSumInTheFirstPlace) {
  const CaseTrust trust = Solve(Cantilever(kClamped, 1, 0, kPlaneGrid).model, SolverRoad::File).trust[0];
  EXPECT_NEAR(trust.loadSum[0], 1, 1e-12);
  EXPECT_NEAR(trust.reactionSum[0], -1, 1e-9);
  EXPECT_EQ(trust.loadSum[1], 0) << "a moment is no force";
  EXPECT_EQ(trust.reactionSum[1], 0);
}

// Each node of a floor alone is out of balance by what the floor hands on; the floor isn't.
TEST(Trust, OfNodesThatShareADisplacementIsThatOfTheirSum) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  for (const double x : {0.0, 5.0}) b.Node(x, 0, kClamped);
  for (const double x : {0.0, 5.0}) b.Node(x, 3);
  b.Element(1, 3);
  b.Element(2, 4);
  b.Group({3, 4});
  b.NodalLoad(4, 8, 0, 0);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_FALSE(s.trust[0].lost);
    EXPECT_NEAR(s.trust[0].reactionSum[0], -8, 1e-9);
  }
}

// On the file road a group moves a node whose own code would hold it; what its members hand on there is no
// support.
TEST(Trust, DoesNotCountAsAReactionWhatAGroupMoves) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(0, 3);
  b.Node(5, 3, {1, 0, 0});
  b.Node(5, 0, kClamped);
  b.Element(1, 2);
  b.Element(3, 4);
  b.Group({2, 3});
  b.NodalLoad(2, 8, 0, 0);
  const CaseTrust trust = Solve(b.model, SolverRoad::File).trust[0];
  EXPECT_NEAR(trust.reactionSum[0], -8, 1e-9);
  EXPECT_FALSE(trust.lost);
}

// In memory a floor stays where it is when its last node is held: what it would take to hold it is no
// residual.
TEST(Trust, DoesNotJudgeAHeldFloor) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(0, 3, {1, 0, 0});
  b.Element(1, 2);
  b.Group({2});
  b.NodalLoad(2, 8, 0, 0);
  EXPECT_FALSE(Solve(b.model, SolverRoad::InMemory).trust[0].lost);
}

// The companion holds a group by the support of one of its nodes, wherever it stands in the table.
TEST(Trust, CountsTheSupportOfAGroupOnTheExternalRoad) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(0, 3, {1, 0, 0});
  b.Node(5, 3);
  b.Element(1, 2);
  b.Element(2, 3);
  b.Group({2, 3});
  b.NodalLoad(3, 8, 0, 0);
  SolvedModel s = Solve(b.model, SolverRoad::File);  // on which the group runs free
  s.displacements = CaseTable(9, 1);
  s.reactions = CaseTable(9, 1);
  s.reactions[3][0] = -8;
  TrustRules rules;
  rules.external = true;
  const CaseTrust trust = AssessSolution(s.equations, s.displacements, s.reactions, rules).front();
  EXPECT_EQ(trust.reactionSum[0], -8);
  EXPECT_FALSE(trust.lost);
  EXPECT_FALSE(trust.unbalanced);
}

// A settled support moves forces that no load measures.
TEST(Trust, OfAnExternalCaseIsMeasuredByItsForces) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(2, 0);
  b.Node(4, 0, kClamped);
  b.Element(1, 2);
  b.Element(2, 3);
  SolvedModel s = Solve(b.model, SolverRoad::File);
  // EA/L = 10000 t/m on both sides: the support at the end has gone 0.1 m, the middle half of that and
  // 1e-7 m more.
  s.displacements[3][0] = 0.05 + 1e-7;
  s.displacements[6][0] = 0.1;
  TrustRules rules;
  rules.external = true;
  rules.alsoHeld.assign(9, false);
  rules.alsoHeld[6] = true;
  const auto assess = [&] {
    return AssessSolution(s.equations, s.displacements, s.reactions, rules).front();
  };
  EXPECT_NEAR(assess().residual, 2e-3, 1e-9);
  EXPECT_TRUE(assess().lost) << "2 kg beside the 1 t that nothing exceeds";
  rules.largestForce = 500;
  EXPECT_FALSE(assess().lost);
}

TEST(Trust, TellsLoadsThatTheReactionsDoNotBalance) {
  for (const SolverRoad road : kRoads) {
    ModelBuilder b = Cantilever(kClamped);
    SolvedModel s = Solve(b.model, road);
    EXPECT_FALSE(s.trust[0].unbalanced);
    s.reactions[0][0] *= 1 - 2e-6;
    EXPECT_TRUE(AssessSolution(s.equations, s.displacements, s.reactions).front().unbalanced);
    EXPECT_FALSE(AssessSolution(s.equations, s.displacements, s.reactions).front().lost);
  }
}

// The solver adds two rows on one node up; the reaction is that of the last.
TEST(Trust, TellsTheForceOfASpringThatStandsTwice) {
  for (const SolverRoad road : kRoads) {
    ModelBuilder b = Cantilever({2, 1, 1});
    b.Spring(1, 30, 0, 0);
    EXPECT_FALSE(Solve(b.model, road).trust[0].unbalanced);
    b.Spring(1, 10, 0, 0);
    const CaseTrust trust = Solve(b.model, road).trust[0];
    EXPECT_NEAR(trust.reactionSum[0], -0.25, 1e-9);
    EXPECT_TRUE(trust.unbalanced);
    EXPECT_FALSE(trust.lost);
  }
}

// In memory a group whose last node is held stays where it is, and what holds it is in no list.
TEST(Trust, TellsTheForceThatHoldsAGroup) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  for (const double x : {0.0, 5.0}) b.Node(x, 0, kClamped);
  b.Node(0, 3);
  b.Node(5, 3, {1, 0, 0});
  b.Element(1, 3);
  b.Element(2, 4);
  b.Group({3, 4});
  b.NodalLoad(3, 8, 0, 0);
  EXPECT_TRUE(Solve(b.model, SolverRoad::InMemory).trust[0].unbalanced);
  EXPECT_FALSE(Solve(b.model, SolverRoad::File).trust[0].unbalanced);
}

// A spring's reaction is told without the magnification that its stiffness has.
TEST(Trust, CountsASpringTimesTheMagnificationOfItsNode) {
  for (const SolverRoad road : kRoads) {
    ModelBuilder b = Cantilever({2, 1, 1});
    b.Spring(1, 30, 0, 0);
    b.Magnification(-1, 4, 2.5);
    const SolvedModel s = Solve(b.model, road);
    TrustRules rules;
    rules.springFactor = {0, 2.5, 1};
    const CaseTrust trust = AssessSolution(s.equations, s.displacements, s.reactions, rules).front();
    EXPECT_FALSE(trust.unbalanced);
    EXPECT_NEAR(trust.loadSum[0], 2.5, 1e-12);
    EXPECT_NEAR(trust.reactionSum[0], -1, 1e-9) << "as the lists have it";
  }
}

TEST(Trust, IsToldInASentenceACase) {
  std::vector<CaseTrust> trust(3);
  EXPECT_EQ(DoubtsAbout(trust).verdict, "");
  EXPECT_TRUE(DoubtsAbout(trust).sentences.empty());
  trust[0].unbalanced = true;
  EXPECT_EQ(DoubtsAbout(trust).verdict, "荷重と反力の合計が一致しません");
  trust[2].lost = trust[2].unbalanced = true;
  trust[2].residualNode = 12;
  EXPECT_EQ(DoubtsAbout(trust).verdict, "解析結果は信頼できません");
  const std::vector<std::string> doubts = DoubtsAbout(trust).sentences;
  ASSERT_EQ(doubts.size(), 2U);
  EXPECT_EQ(
      doubts[0],
      "荷重ケース 1 の荷重と反力の合計が一致しません。反力のリストに現れない支持力がないか、確かめてください");
  EXPECT_EQ(
      doubts[1],
      "荷重ケース 3 の節点 12 で釣り合いが失われています。不安定な構造の可能性があり、結果は信頼できません");
}

TEST(Trust, OfACaseWithoutLoadsIsNotLost) {
  ModelBuilder b = Cantilever(kClamped);
  b.model.PlodCount = 0;
  const CaseTrust trust = Solve(b.model, SolverRoad::File).trust[0];
  EXPECT_FALSE(trust.lost);
  EXPECT_EQ(trust.residualNode, 0);
  EXPECT_EQ(trust.displacementNode, 0);
}

}  // namespace
}  // namespace zorlan::test

// Equations without stiffness: which are tolerated, which end the analysis, and with which words.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

ModelBuilder WithSection(ModelKind kind = kPlaneFrame) {
  ModelBuilder b(kind);
  b.Section(2e6, 0.01, 1e-4);
  return b;
}

/// A bar from node 2, held, to node 1 with the number 17, which nothing holds across the bar.
ModelBuilder LooseBar(ModelKind kind, double x, double y) {
  ModelBuilder b = WithSection(kind);
  b.Node(x, y);
  b.Node(0, 0, kClamped);
  b.Element(2, 1, 1, 1, 1);
  b.model.Node[1].number = 17;
  b.model.Elem[1].J = 17;
  return b;
}

/// LooseBar, upright, in a group; or with a column in the group and the bar's node on its own.
ModelBuilder LooseFloor(bool onItsOwn) {
  ModelBuilder b = LooseBar(kSameDisplacementFrame, 0, 3);
  b.Node(5, 3);
  b.Element(2, 3);
  b.Group({onItsOwn ? 3 : 17});
  return b;
}

ModelBuilder WithALonelyNode(ModelKind kind) {
  ModelBuilder b = WithSection(kind);
  b.Node(0, 0, kClamped);
  b.Node(3, 0);
  b.Node(9, 9);
  b.Element(1, 2);
  if (kind == kSameDisplacementFrame) b.Group({2});
  return b;
}

struct MessageCase {
  const char* name;
  ModelBuilder built;
  const char* onTheFileRoad;
  const char* inMemory;
};

// The file road counts positions in the front: the held node took the first slot. In memory they are
// equations.
std::vector<MessageCase> MessageCases() {
  return {
      {"X", LooseBar(kPlaneFrame, 0, 3),
       "不安定構造     PIVOT ( 4 ) = 0  \nNODE =17     X 方向  剛性　ありません",
       "不安定構造     PIVOT ( 1 ) = 0  \nNODE =17     X 方向  剛性　ありません"},
      {"Y", LooseBar(kPlaneFrame, 3, 0),
       "不安定構造     PIVOT ( 5 ) = 0  \nNODE =17     Y 方向  剛性　ありません",
       "不安定構造     PIVOT ( 2 ) = 0  \nNODE =17     Y 方向  剛性　ありません"},
      {"Z", LooseBar(kPlaneGrid, 3, 0),
       "不安定構造     PIVOT ( 4 ) = 0  \nNODE =17     Z 方向  剛性　ありません",
       "不安定構造     PIVOT ( 1 ) = 0  \nNODE =17     Z 方向  剛性　ありません"},
      {"X without groups", LooseBar(kSameDisplacementFrame, 0, 3),
       "不安定構造     PIVOT ( 4 ) = 0  \nNODE =17     X 方向  剛性　ありません",
       "不安定構造     PIVOT ( 1 ) = 0  \nNODE =17     X 方向  剛性　ありません"},
      {"layer of a group", LooseFloor(false),
       "不安定構造     PIVOT ( 1 ) = 0  \n第 1 層  X 方向  剛性　ありません",
       "不安定構造     PIVOT ( 1 ) = 0  \n第 1 層  X 方向  剛性　ありません"},
      {"layer of a single node", LooseFloor(true),
       "不安定構造     PIVOT ( 2 ) = 0  \n第 2 層  X 方向  剛性　ありません",
       "不安定構造     PIVOT ( 2 ) = 0  \n第 2 層  X 方向  剛性　ありません"},
      {"a node that nothing meets", WithALonelyNode(kPlaneFrame),
       "不安定構造     PIVOT ( 7 ) = 0  \nNODE =3     X 方向  剛性　ありません",
       "不安定構造     PIVOT ( 7 ) = 0  \nNODE =3     X 方向  剛性　ありません"},
      {"a node that nothing meets, grid", WithALonelyNode(kPlaneGrid),
       "不安定構造     PIVOT ( 7 ) = 0  \nNODE =3     Z 方向  剛性　ありません",
       "不安定構造     PIVOT ( 7 ) = 0  \nNODE =3     Z 方向  剛性　ありません"},
      {"a node that nothing meets, groups", WithALonelyNode(kSameDisplacementFrame),
       "不安定構造     PIVOT ( 5 ) = 0  \nNODE =3     Y 方向  剛性　ありません",
       "不安定構造     PIVOT ( 5 ) = 0  \nNODE =3     Y 方向  剛性　ありません"},
  };
}

TEST(Instability, IsToldWithPositionNodeAndDirection) {
  for (const MessageCase& c : MessageCases()) {
    const SolvedModel file = Solve(c.built.model, SolverRoad::File);
    ASSERT_TRUE(file.instability) << c.name;
    EXPECT_EQ(InstabilityText(*file.instability), c.onTheFileRoad) << c.name;
    const SolvedModel memory = Solve(c.built.model, SolverRoad::InMemory);
    ASSERT_TRUE(memory.instability) << c.name;
    EXPECT_EQ(InstabilityText(*memory.instability), c.inMemory) << c.name;
  }
}

TEST(Instability, OfTheVerticalInAFrameWithGroupsHasTheWordForY) {
  ModelBuilder b = LooseBar(kSameDisplacementFrame, 3, 0);
  b.Group({17});
  EXPECT_EQ(InstabilityText(*Solve(b.model, SolverRoad::File).instability),
            "不安定構造     PIVOT ( 3 ) = 0  \nNODE =17     Y 方向  剛性　ありません");
  EXPECT_EQ(InstabilityText(*Solve(b.model, SolverRoad::InMemory).instability),
            "不安定構造     PIVOT ( 1 ) = 0  \nNODE =17     Y 方向  剛性　ありません");
}

TEST(Instability, NamesTheFirstNodeWhosePivotVanished) {
  ModelBuilder b = WithSection();
  b.Node(0, 0, kHinged);
  for (int n = 1; n <= 4; ++n) b.Node(0, n);
  for (int n = 1; n <= 4; ++n) b.Element(n, n + 1, 1, 1, 1);
  for (const SolverRoad road : kRoads) EXPECT_EQ(Solve(b.model, road).instability->number, 2);
}

// A node that is held in all directions needs nothing to hold it in memory; the front never meets it.
TEST(Instability, OfAHeldNodeThatNothingMeetsIsTheFileRoadsAlone) {
  ModelBuilder b = WithALonelyNode(kPlaneFrame);
  b.model.Node[3].code = kClamped;
  EXPECT_FALSE(Solve(b.model, SolverRoad::InMemory).instability);
  EXPECT_TRUE(Solve(b.model, SolverRoad::File).instability);
}

/// The two-bar truss: nothing holds the rotation of its top. A moment of 0.7 acts on it.
ModelBuilder TurningTop(int topRow) {
  ModelBuilder b = WithSection();
  const double x[] = {-3, 3, 0}, y[] = {0, 0, 4};
  for (int row = 1; row <= 3; ++row) {
    const int place = row == topRow ? 2 : (row + 2 - topRow) % 3 == 0 ? 0 : 1;
    b.Node(x[place], y[place], place == 2 ? kLoose : kHinged);
  }
  for (int row = 1; row <= 3; ++row)
    if (row != topRow) b.Element(row, topRow, 1, 1, 1);
  b.NodalLoad(topRow, 0, -8, 0.7);
  return b;
}

TEST(Instability, OfARotationIsTolerated) {
  for (const int topRow : {1, 2, 3}) {
    const ModelRec model = TurningTop(topRow).model;
    const SolvedModel file = Solve(model, SolverRoad::File), memory = Solve(model, SolverRoad::InMemory);
    ASSERT_FALSE(file.instability || memory.instability) << topRow;
    EXPECT_EQ(file.U(topRow, 2), 0.7) << "the row was never divided: the bare load term";
    EXPECT_EQ(memory.U(topRow, 2), 0);
    // N = P/(2 * 0.8), v = N L/(EA * 0.8), whatever the rotation.
    for (const SolvedModel* s : {&file, &memory})
      EXPECT_NEAR(s->U(topRow, 1), -8 / 1.6 * 5 / (20000 * 0.8), 1e-12);
  }
}

TEST(Instability, OfEitherRotationIsToleratedInAGrid) {
  for (const auto& [x, y] : {std::pair(3, 0), {0, 3}}) {
    ModelBuilder b = WithSection(kPlaneGrid);
    b.Node(0, 0, kClamped);
    b.Node(x, y);
    b.Node(3 * x, 3 * y, kClamped);
    b.Element(1, 2);
    b.Element(2, 3);
    for (const SolverRoad road : kRoads) EXPECT_FALSE(Solve(b.model, road).instability);
  }
}

TEST(Instability, OfARotationIsToleratedBesideGroups) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(0, 3);
  b.Node(5, 3, {0, 1, 0});
  b.Element(1, 2);
  b.Element(2, 3, 1, 1, 1);
  b.Group({2, 3});
  b.NodalLoad(3, 0, 0, 0.7);
  EXPECT_EQ(Solve(b.model, SolverRoad::File).U(3, 2), 0.7);
  EXPECT_EQ(Solve(b.model, SolverRoad::InMemory).U(3, 2), 0);
}

// A spring of negative stiffness takes all that a rotation has of its own, 4EI/L = 200. A row whose diagonal
// is 0 is left out of every reduction, so the rotation is tolerated as it stands: the bare load term on the
// file road, 0 in memory. 12EI/L^3 = 37.5 and 6EI/L^2 = 75 then move the tip.
TEST(Instability, OfARotationThatIsCoupledAllTheSameIsTolerated) {
  ModelBuilder b = WithSection();
  b.Node(0, 0, kClamped);
  b.Node(4, 0, {0, 0, 2});
  b.Element(1, 2);
  b.Spring(2, 0, 0, -20000);
  b.NodalLoad(2, 0, -1, 0.25);
  const SolvedModel file = Solve(b.model, SolverRoad::File), memory = Solve(b.model, SolverRoad::InMemory);
  ASSERT_FALSE(file.instability || memory.instability);
  EXPECT_EQ(file.U(2, 2), 0.25);
  EXPECT_NEAR(file.U(2, 1), -1 / 37.5 + 0.25 * 75 / 37.5, 1e-12);
  EXPECT_EQ(memory.U(2, 2), 0);
  EXPECT_NEAR(memory.U(2, 1), -1 / 37.5, 1e-12);
  EXPECT_TRUE(file.trust[0].lost && memory.trust[0].lost);
}

/// An upright bar on which a spring of k t/m in U, and of m t*m/rad, is all that holds its top.
ModelBuilder Barely(double k, double m) {
  ModelBuilder b = WithSection();
  b.Node(0, 3, {2, 0, 2});
  b.Node(0, 0, kClamped);
  b.Element(1, 2, 1, 1, 1);
  b.Spring(1, k / 100, 0, m * 100);
  b.NodalLoad(1, 1, 0, 1);
  return b;
}

// In memory a pivot must reach 1e-18, on the file road 1e-20.
TEST(Instability, BeginsAtAPivotOfItsOwnOnEachRoad) {
  EXPECT_TRUE(Solve(Barely(1e-19, 1).model, SolverRoad::InMemory).instability);
  EXPECT_FALSE(Solve(Barely(1e-17, 1).model, SolverRoad::InMemory).instability);
  EXPECT_TRUE(Solve(Barely(1e-21, 1).model, SolverRoad::File).instability);
  const SolvedModel file = Solve(Barely(1e-19, 1e-19).model, SolverRoad::File);
  ASSERT_FALSE(file.instability);
  EXPECT_NEAR(file.U(1, 0), 1e19, 1e6);
  EXPECT_NEAR(file.U(1, 2), 1e19, 1e6);
  const SolvedModel memory = Solve(Barely(1, 1e-19).model, SolverRoad::InMemory);
  ASSERT_FALSE(memory.instability);
  EXPECT_EQ(memory.U(1, 2), 1) << "tolerated, but not exactly 0: the bare load term";
}

/// A node whose layer a spring of k t/m holds, and nothing else.
ModelBuilder SprungFloor(double k) {
  ModelBuilder b = WithSection(kSameDisplacementFrame);
  b.Node(0, 0, kClamped);
  b.Node(0, 3, {2, 0, 1});
  b.Element(1, 2, 1, 1, 1);
  b.Group({2});
  b.Spring(2, k / 100, 0, 0);
  b.NodalLoad(2, 1, 0, 0);
  return b;
}

// A thousandth of a t/m is no stiffness for a storey, and a little more is one.
TEST(Instability, OfALayerBeginsAtAThousandth) {
  for (const SolverRoad road : kRoads) {
    for (const double k : {0.0, 0.0009, 0.001, -0.001})
      EXPECT_TRUE(Solve(SprungFloor(k).model, road).instability) << k;
    const SolvedModel s = Solve(SprungFloor(0.00101).model, road);
    ASSERT_FALSE(s.instability);
    EXPECT_NEAR(s.U(2, 0), 1 / 0.00101, 1e-6);
  }
}

}  // namespace
}  // namespace zorlan::test

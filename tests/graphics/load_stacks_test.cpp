// Loads at one place of the frame: none is drawn on another, and each can be read.
//
// On 13000 x 10000 twips an arrow is 500 long and the gap between a load and its member 0.02 of the member.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "figures.h"
#include "graphics/loads.h"

namespace zorlan {
namespace {

using test::Arrow;
using test::ArrowsOf;
using test::FigureOf;
using test::LayerLines;
using test::ModelBuilder;
using test::Recorder;
using testing::SizeIs;

using Kind = DrawOperation::Kind;

ModelBuilder Member(Point i, Point j, ModelKind kind = kPlaneFrame) {
  ModelBuilder b(kind);
  b.Node(i.x, i.y);
  b.Node(j.x, j.y);
  b.Element(1, 2);
  return b;
}
/// From (1500, 5000) to (11500, 5000) in the figure; its gap is 200.
ModelBuilder LevelMember(ModelKind kind = kPlaneFrame) {
  return Member({0, 0}, {10, 0}, kind);
}

std::vector<DrawOperation> LoadOperations(Figure figure, Recorder surface = Recorder()) {
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kLoadCheck);
  std::vector<DrawOperation> list = plot.drawingList;
  std::erase_if(list, [](const DrawOperation& o) { return !o.layer.starts_with(layer::kLoad); });
  return list;
}

/// How far an arrow lies from the first member: to its left, seen from end I, above 0.
struct Height {
  double nearest, farthest;
};
Height HeightOf(const Arrow& arrow, const Figure& figure) {
  Figure drawn = figure;
  Recorder surface;
  Plot plot(surface);
  PrepareFigure(plot, "", drawn, kLoadCheck, 0, 0);
  const Point i = drawn.view.ToFigure(drawn.place[0]), j = drawn.view.ToFigure(drawn.place[1]);
  const double length = std::hypot(j.x - i.x, j.y - i.y);
  const auto left = [&](Point p) { return ((j.y - i.y) * (p.x - i.x) - (j.x - i.x) * (p.y - i.y)) / length; };
  const double a = left(arrow.tip), b = left(arrow.tail);
  return std::abs(a) < std::abs(b) ? Height{a, b} : Height{b, a};
}

struct AxesLoad {
  int MG;
  double P;
};

// Single forces at the middle of a member. Each lies on the side from which it pushes; those on the left,
// seen from end I, start where the one before ends.
TEST(LoadStacks, LoadsOnOneSideOfAMemberLieOnEachOtherWhateverTheirAxes) {
  struct SideCase {
    const char* name;
    Point i, j;
    std::vector<AxesLoad> loads;
  };
  const SideCase kCases[] = {
      {"level: own axes, then vertical", {0, 0}, {10, 0}, {{0, -1}, {1, -2}}},
      {"level: vertical, then own axes", {0, 0}, {10, 0}, {{1, -2}, {0, -1}}},
      {"level: own axes, vertical, unknown axes", {0, 0}, {10, 0}, {{0, -1}, {1, -1}, {3, -1}}},
      {"entered from the right: an own push up is one down", {10, 0}, {0, 0}, {{0, -1}, {1, 1}}},
      {"column: own axes, then horizontal", {0, 0}, {0, 10}, {{0, -1}, {2, 1}}},
      {"column entered from above", {0, 10}, {0, 0}, {{0, -1}, {2, -1}}},
      {"column: along it, then across", {0, 0}, {0, 10}, {{1, -1}, {0, -1}}},
      {"column: across it, then along", {0, 0}, {0, 10}, {{2, 1}, {1, -1}}},
      {"column: along it, twice", {0, 0}, {0, 10}, {{1, -1}, {1, -1}}},
      {"sloping: all axes", {0, 0}, {6, 8}, {{0, -1}, {1, -1}, {2, 1}}},
      {"flat roof: dead weight, then wind", {0, 0}, {10, 2}, {{1, -1}, {2, 1}}},
  };
  for (const SideCase& c : kCases) {
    ModelBuilder b = Member(c.i, c.j);
    for (const auto& [MG, P] : c.loads) b.ElementLoad(1, P, 1, 0, MG);
    const Figure figure = FigureOf(b.model);
    const std::vector<Arrow> arrows = ArrowsOf(figure);
    ASSERT_EQ(arrows.size(), c.loads.size()) << c.name;
    double reached = 0;
    for (const Arrow& arrow : arrows) {
      const Height height = HeightOf(arrow, figure);
      EXPECT_GT(height.nearest, reached + 1) << c.name;
      reached = height.farthest;
    }
  }
}

TEST(LoadStacks, LoadsOnEitherSideOfAMemberBothStartAtIt) {
  ModelBuilder b = LevelMember();
  b.ElementLoad(1, -1, 1, 0, 0);
  b.ElementLoad(1, 2, 1, 0, 1);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(2));
  EXPECT_EQ(arrows[0].tip.y, 4800);
  EXPECT_EQ(arrows[1].tip.y, 5200);
}

// Wind on a roof of 1:5 goes nearly along it. On the dead weight it still stands over the member, not beyond
// its end.
TEST(LoadStacks, ALoadAtASmallAngleStaysOverItsMember) {
  ModelBuilder b = Member({0, 0}, {10, 2});
  b.ElementLoad(1, -1, 0, 0, 1);
  b.ElementLoad(1, 1, 1, 0, 2);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  EXPECT_NEAR(arrows.back().tip.x, 6500, 500);
}

// Wind that lies on a roof's dead weight reaches over the node at the eaves, though it comes from the side.
TEST(LoadStacks, ANodalArrowStandsClearOfAllThatLiesOnItsNode) {
  ModelBuilder b = Member({0, 0}, {10, 3});
  b.ElementLoad(1, -1, 0, 0, 1);
  b.ElementLoad(1, 1, 0, 0, 2);
  b.NodalLoad(1, 0, -3, 0);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  const Arrow& nodal = arrows.back();
  ASSERT_EQ(nodal.tip.x, nodal.tail.x);
  const Rectangle shaft = {nodal.tip.x - 1, nodal.tail.y, nodal.tip.x + 1, nodal.tip.y};
  for (std::size_t k = 0; k + 1 < arrows.size(); ++k) {
    Point tail = arrows[k].tail, tip = arrows[k].tip;
    EXPECT_FALSE(Clipping(shaft, tail, tip)) << k;
  }
}

TEST(LoadStacks, AForceAndAMomentsVectorOfOneWayStandOnEachOther) {
  ModelBuilder b = LevelMember(kPlaneGrid);
  b.NodalLoad(1, -2, 0, -1);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(2));
  EXPECT_EQ(arrows[0].tip.y, 4975);  // at the node's circle
  EXPECT_EQ(arrows[1].tip.y, 4375);  // 1.2 arrows farther
}

/// Radii of the turns about a point, in order: all their chords are of one length.
std::vector<double> RadiiAbout(const std::vector<DrawOperation>& list, Point centre) {
  std::vector<double> radii;
  for (const DrawOperation& o : list) {
    if (o.kind != Kind::Line) continue;
    const double from = std::hypot(o.x - centre.x, o.y - centre.y);
    const double to = std::hypot(o.x2 - centre.x, o.y2 - centre.y);
    if (std::abs(from - to) > 1e-6 || from > 600) continue;
    if (radii.empty() || std::abs(radii.back() - from) > 1e-6) radii.push_back(from);
  }
  return radii;
}

TEST(LoadStacks, MomentsOfEitherSignAtANodeTurnAtDifferentRadii) {
  ModelBuilder b = LevelMember();
  b.NodalLoad(1, 0, 0, 2);
  b.NodalLoad(1, 0, 0, -3);
  b.NodalLoad(1, 0, 0, 4);
  EXPECT_THAT(RadiiAbout(LoadOperations(FigureOf(b.model)), {1500, 5000}),
              testing::Pointwise(testing::DoubleNear(1e-6), {200.0, 300.0, 400.0}));
}

// The end forces stand on the uniform load, those of the second row on the first one's, and the turns at an
// end, here 1000 from the nodes, grow.
TEST(LoadStacks, TheMarksOfSeveralEndMomentLoadsLieOnEachOtherAndOnTheMembersLoads) {
  ModelBuilder b = LevelMember();
  b.ElementLoad(1, -1);
  b.CmqLoad(1, 2, 3, -2, -1, -1, 0);
  b.CmqLoad(1, 4, 1, -4, -2, -2, 0);
  const Figure figure = FigureOf(b.model);
  const std::vector<DrawOperation> list = LoadOperations(figure);
  EXPECT_THAT(RadiiAbout(list, {2500, 5000}), testing::Pointwise(testing::DoubleNear(1e-6), {200.0, 300.0}));
  EXPECT_THAT(RadiiAbout(list, {10500, 5000}), testing::Pointwise(testing::DoubleNear(1e-6), {200.0, 300.0}));
  const std::vector<Arrow> arrows = ArrowsOf(figure);
  ASSERT_THAT(arrows, SizeIs(21 + 4 + 4));  // turns' heads among them
  double reached = 700;                     // by the uniform load
  for (const double x : {2500.0, 10500.0}) {
    reached = 700;
    for (const Arrow& arrow : arrows) {
      if (arrow.tip.x != x || arrow.tail.x != x || arrow.tip.y > 4300) continue;
      EXPECT_GT(5000 - arrow.tip.y, reached);
      reached = 5000 - arrow.tail.y;
    }
    EXPECT_GT(reached, 700 + 2 * 500);
  }
}

TEST(LoadStacks, TheEndForcesOfOneLoadStandAtOneHeight) {
  ModelBuilder b = LevelMember();
  b.ElementLoad(1, -1, 1, 0);
  b.CmqLoad(1, 0, 0, 0, -1, -2, 0);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(3));
  EXPECT_LT(arrows[1].tip.y, arrows[0].tail.y);
  EXPECT_EQ(arrows[1].tip.y, arrows[2].tip.y);
}

// Upward along a column: on the member's line it couldn't be seen.
TEST(LoadStacks, AnEndForceAlongItsMemberStandsBesideIt) {
  ModelBuilder b = Member({0, 0}, {0, 10});
  b.CmqLoad(1, 0, 0, 0, 1, 0, 1);
  const Figure figure = FigureOf(b.model);
  const std::vector<Arrow> arrows = ArrowsOf(figure);
  ASSERT_THAT(arrows, SizeIs(1));
  EXPECT_NEAR(HeightOf(arrows[0], figure).nearest, 200, 1e-9);
}

/// The numbers that a line of the loads crosses.
std::vector<std::string> CrossedTexts(const std::vector<DrawOperation>& list) {
  std::vector<std::string> crossed;
  for (const DrawOperation& text : list) {
    if (text.kind != Kind::Text) continue;
    const Rectangle box = {text.x, text.y, text.x + text.width, text.y + text.height};
    const bool any = std::ranges::any_of(list, [&](const DrawOperation& line) {
      Point from = {line.x, line.y}, to = {line.x2, line.y2};
      return line.kind == Kind::Line && Clipping(box, from, to);
    });
    if (any) crossed.push_back(text.text);
  }
  return crossed;
}

TEST(LoadStacks, NumbersStandClearOfTheLoadsLines) {
  struct CrossingCase {
    const char* name;
    ModelBuilder model;
  };
  std::vector<CrossingCase> cases;
  {
    ModelBuilder b(kPlaneGrid);  // the vector of Mx stands among the arrows of the triangle
    b.Node(0, 0, test::kClamped);
    b.Node(6, 0, test::kClamped);
    b.Node(6, 2, test::kClamped);
    b.Node(0, 2, test::kClamped);
    b.Element(2, 1);
    b.Element(2, 3);
    b.Element(4, 3);
    b.Element(4, 1);
    b.ElementLoad(3, -3, 16, 2);
    b.NodalLoad(3, -2, 1.5, -1);
    cases.push_back({"a moment among a triangle's arrows", b});
  }
  {
    ModelBuilder b = LevelMember();
    b.ElementLoad(1, -1);
    b.ElementLoad(1, -2, 0, 0, 1);
    b.ElementLoad(1, -3);
    cases.push_back({"uniform loads on each other", b});
  }
  {
    ModelBuilder b = Member({0, 0}, {0, 10});
    b.ElementLoad(1, -1);
    b.ElementLoad(1, 2, 0, 0, 2);
    b.ElementLoad(1, -3);
    cases.push_back({"uniform loads on each other beside a column", b});
  }
  {
    ModelBuilder b = LevelMember();
    b.ElementLoad(1, -1);
    b.CmqLoad(1, 2, 3, -2, -1, -1, 0);
    b.TemperatureLoad(1, 10, 30, -5.5, 0.000012, 20);
    cases.push_back({"end moments and temperature under a uniform load", b});
  }
  {
    ModelBuilder b = LevelMember();
    b.NodalLoad(1, 0, -3, 2);
    b.NodalLoad(2, 0, 0, 2);
    b.NodalLoad(2, 0, 0, -3);
    cases.push_back({"forces and turns", b});
  }
  for (const CrossingCase& c : cases) {
    // As large as the drawing area of A4, upright, and the screen of all other tests.
    for (const Recorder& surface : {Recorder(10200, 14500), Recorder()})
      EXPECT_THAT(CrossedTexts(LoadOperations(FigureOf(c.model.model), surface)), testing::IsEmpty())
          << c.name;
  }
}

}  // namespace
}  // namespace zorlan

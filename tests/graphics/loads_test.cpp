#include "graphics/loads.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "figures.h"

namespace zorlan {
namespace {

using test::Arrow;
using test::ArrowsOf;
using test::FigureOf;
using test::LayerLines;
using test::ModelBuilder;
using test::Recorder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// The beam from (0, 0) to (10, 0): on 13000 x 10000 twips its window is 13 m wide, 1 mm a twip, so that it
// runs from (1500, 5000) to (11500, 5000). An arrow is 5% of 10000 twips, its head 75 long and 2 x 30 wide;
// the gap to the member is 200.
ModelBuilder Beam(bool backward = false) {
  ModelBuilder b;
  b.Node(backward ? 10 : 0, 0);
  b.Node(backward ? 0 : 10, 0);
  b.Element(1, 2);
  return b;
}

std::vector<std::string> LoadLines(const ModelRec& model) {
  return LayerLines(FigureOf(model), kLoadCheck, layer::kLoad);
}

/// Where an arrow meets its member, in metres, and the way it points: R, L, U or D.
struct Met {
  double x, y;
  char way;
};
std::vector<Met> MetByArrows(const ModelRec& model) {
  Figure figure = FigureOf(model);
  Recorder surface;
  Plot plot(surface);
  PrepareFigure(plot, "", figure, kLoadCheck, 0, 0);
  const FigureNode& i = figure.model.nodes[0];
  const FigureNode& j = figure.model.nodes[1];
  const double gap = 0.02 * std::hypot(j.x - i.x, j.y - i.y) / figure.view.Vvkei;
  std::vector<Met> met;
  for (const auto& [tail, tip] : ArrowsOf(figure)) {
    const double length = std::hypot(tip.x - tail.x, tip.y - tail.y);
    const Point along = {(tip.x - tail.x) / length, (tip.y - tail.y) / length};
    const Point place = figure.view.ToWorld({tip.x + gap * along.x, tip.y + gap * along.y});
    const char way = std::abs(along.x) > 0.99   ? (along.x > 0 ? 'R' : 'L')
                     : std::abs(along.y) > 0.99 ? (along.y > 0 ? 'D' : 'U')
                                                : '?';
    met.push_back({place.x, place.y, way});
  }
  std::ranges::sort(met, [](const Met& a, const Met& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  return met;
}

TEST(Loads, APointLoadIsAnArrowWithItsNumber) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2, 1, 4);
  EXPECT_THAT(LoadLines(b.model), ElementsAre("LINE, KAJYU, 5500, 4300, 5500, 4800, 255",
                                              "LINE, KAJYU, 5500, 4800, 5470, 4725, 255",
                                              "LINE, KAJYU, 5500, 4800, 5530, 4725, 255",
                                              "TEXT, KAJYU_TXT, 5340, 4110, -2.0, 320, 160, 0"));
}

TEST(Loads, ATriangleIsArrowsUnderTheLineThatJoinsThem) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, 1.25, 16, 1);  // upward, from nothing at I to its peak at J: below the member
  const std::vector<std::string> lines = LoadLines(b.model);
  ASSERT_THAT(lines, SizeIs(18 * 3 + 2));
  EXPECT_EQ(lines[0], "LINE, KAJYU, 3000, 5275, 3000, 5200, 255");  // at 0.15 the arrow is 75 long
  EXPECT_EQ(lines[17 * 3], "LINE, KAJYU, 11500, 5700, 11500, 5200, 255");
  EXPECT_EQ(lines[18 * 3], "LINE, KAJYU, 1500, 5200, 11500, 5700, 255");
  EXPECT_EQ(lines[18 * 3 + 1], "TEXT, KAJYU_TXT, 6340, 5480, 1.25, 320, 160, 0");
}

std::vector<double> Steps(std::initializer_list<double> extra, double from, double to, double step) {
  std::vector<double> all = extra;
  for (int k = 0; from + k * step < to + step / 2; ++k) all.push_back(from + k * step);
  std::ranges::sort(all);
  return all;
}

// Ly = 2 on 10 m, a division every 0.5 m. An ordinate of no more than 0.12 of the greatest one has no arrow.
TEST(Loads, EveryTypeHasItsArrowsAtTheLoadedPoints) {
  struct TypeCase {
    int type;
    std::vector<double> x;
  };
  const auto but = [](std::vector<double> all, std::initializer_list<double> without) {
    for (const double x : without) std::erase_if(all, [&](double v) { return std::abs(v - x) < 1e-9; });
    return all;
  };
  const TypeCase kCases[] = {
      {0, Steps({}, 0, 10, 0.5)},
      {1, {2}},
      {2, {2, 8}},
      {3, Steps({}, 2.5, 7.5, 2.5)},
      {4, Steps({}, 2, 8, 2)},
      {5, Steps({}, 10.0 / 6, 50.0 / 6, 10.0 / 6)},
      {6, Steps({}, 10.0 / 7, 60.0 / 7, 10.0 / 7)},
      {7, Steps({}, 1.25, 8.75, 1.25)},
      {8, Steps({}, 10.0 / 9, 80.0 / 9, 10.0 / 9)},
      {9, Steps({}, 1, 9, 1)},
      {10, Steps({}, 0.5, 9.5, 0.5)},
      {11, Steps({}, 0.5, 9.5, 0.5)},                                     // nothing at 5 but the joist
      {12, but(Steps({10.0 / 3, 20.0 / 3}, 0.5, 9.5, 0.5), {3.5, 6.5})},  // 0.1 of the peak beside the joists
      {13, Steps({}, 0.5, 9.5, 0.5)},                                     // 2.5, 5, 7.5 the joists
      {14, Steps({}, 4, 6, 0.5)},
      {15, Steps({8, 8.5, 9, 9.5, 10}, 0, 2, 0.5)},
      {16, Steps({}, 1.5, 10, 0.5)},
      {17, Steps({}, 0, 8.5, 0.5)},
      {18, Steps({}, 1, 9, 0.5)},
  };
  for (const TypeCase& c : kCases) {
    ModelBuilder b = Beam();
    b.ElementLoad(1, -1, c.type, 2);
    const std::vector<Met> met = MetByArrows(b.model);
    ASSERT_EQ(met.size(), c.x.size()) << "TYPE " << c.type;
    for (std::size_t k = 0; k < met.size(); ++k) {
      EXPECT_NEAR(met[k].x, c.x[k], 1e-9) << "TYPE " << c.type;
      EXPECT_NEAR(met[k].y, 0, 1e-9) << "TYPE " << c.type;
      EXPECT_EQ(met[k].way, 'D') << "TYPE " << c.type;
    }
  }
}

// One point at Ly: where it acts, and which way a positive one pushes, by MG and the way of the member.
TEST(Loads, ArrowsPointAsTheAxesOfMgSay) {
  struct WayCase {
    const char* name;
    Point i, j;
    int MG;
    double P, Ly;
    Met expected;
  };
  constexpr WayCase kCases[] = {
      {"own axes, rightward: up", {0, 0}, {10, 0}, 0, 1, 2, {2, 0, 'U'}},
      {"own axes, negative: down", {0, 0}, {10, 0}, 0, -1, 2, {2, 0, 'D'}},
      {"own axes, leftward: from I, down", {10, 0}, {0, 0}, 0, 1, 2, {8, 0, 'D'}},
      {"own axes, upward: left", {0, 0}, {0, 10}, 0, 1, 2, {0, 2, 'L'}},
      {"own axes, downward: right", {0, 10}, {0, 0}, 0, 1, 2, {0, 8, 'R'}},
      {"vertical, rightward", {0, 0}, {10, 0}, 1, 1, 2, {2, 0, 'U'}},
      {"vertical, leftward: from the left end", {10, 0}, {0, 0}, 1, 1, 2, {2, 0, 'U'}},
      {"vertical, sloping: over the horizontal projection", {0, 0}, {6, 8}, 1, -1, 3, {3, 4, 'D'}},
      {"horizontal, upward", {0, 0}, {0, 10}, 2, 1, 2, {0, 2, 'R'}},
      {"horizontal, downward: from the lower end", {0, 10}, {0, 0}, 2, 1, 2, {0, 2, 'R'}},
      {"horizontal, sloping: over the vertical projection", {0, 0}, {6, 8}, 2, -1, 6, {4.5, 6, 'L'}},
      {"unknown: vertical over the length, from J", {0, 0}, {6, 8}, 3, 1, 2.5, {4.5, 6, 'U'}},
  };
  for (const WayCase& c : kCases) {
    ModelBuilder b;
    b.Node(c.i.x, c.i.y);
    b.Node(c.j.x, c.j.y);
    b.Element(1, 2);
    b.ElementLoad(1, c.P, 1, c.Ly, c.MG);
    const std::vector<Met> met = MetByArrows(b.model);
    ASSERT_EQ(met.size(), 1) << c.name;
    EXPECT_NEAR(met[0].x, c.expected.x, 1e-9) << c.name;
    EXPECT_NEAR(met[0].y, c.expected.y, 1e-9) << c.name;
    EXPECT_EQ(met[0].way, c.expected.way) << c.name;
  }
}

TEST(Loads, TheFactorKMultipliesTheLoad) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2, 1, 4);
  b.model.Elod[1].K = -1.5;
  const std::vector<std::string> lines = LoadLines(b.model);
  ASSERT_THAT(lines, SizeIs(4));
  EXPECT_EQ(lines[0], "LINE, KAJYU, 5500, 5700, 5500, 5200, 255");  // upward
  EXPECT_THAT(lines[3], testing::HasSubstr(", 3.0, "));
}

TEST(Loads, ALoadOnAMemberWithoutProjectionHasNoArrows) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(0, 10);
  b.Element(1, 2);
  b.ElementLoad(1, -2, 0, 0, 1);  // per metre of a horizontal projection of 0
  EXPECT_THAT(LoadLines(b.model), IsEmpty());
}

TEST(Loads, ALoadAlongItsMemberStandsBesideIt) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(0, 10);
  b.Element(1, 2);
  b.ElementLoad(1, -2, 1, 0, 1);  // a point at the middle, downward along the column
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(1));
  EXPECT_EQ(arrows[0].tail.x, arrows[0].tip.x);
  EXPECT_DOUBLE_EQ(std::abs(arrows[0].tip.x - 6500), 200);  // 0.4 of the arrow off the member
}

TEST(Loads, LoadsOfAMemberLieOnEachOther) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2, 1, 4);
  b.ElementLoad(1, -3, 1, 4);
  b.ElementLoad(1, 4, 1, 4);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(3));
  EXPECT_EQ(arrows[0].tip.y, 4800);
  EXPECT_EQ(arrows[1].tip.y, 4080);  // above the first one's tail and its number: 160 high, 30 clear each way
  EXPECT_EQ(arrows[2].tip.y, 5200);  // the other way: the other side
}

TEST(Loads, OnlyTheCaseInHandIsDrawn) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2, 1, 4, 0, 2);
  b.NodalLoad(1, 1, 1, 1, 2);
  b.CmqLoad(1, 1, 1, 1, 1, 1, 0, 2);
  b.TemperatureLoad(1, 10, 30, 10, 0.000012, 20, 0, 2);
  EXPECT_THAT(LoadLines(b.model), IsEmpty());
  Figure figure = FigureOf(b.model);
  figure.loadCase = 2;
  EXPECT_FALSE(LayerLines(figure, kLoadCheck, layer::kLoad).empty());
  EXPECT_THAT(LayerLines(figure, kModelFigure, layer::kLoad), IsEmpty());
}

TEST(Loads, LoadsOfUnknownOrHiddenItemsAreNotDrawn) {
  ModelBuilder b = Beam();
  b.Node(100, 0);
  b.Node(110, 0);
  b.Element(3, 4);
  b.ElementLoad(9, -2, 1, 4);
  b.NodalLoad(9, 1, 1, 1);
  b.ElementLoad(2, -2, 1, 4);
  b.NodalLoad(3, 1, 1, 1);
  Figure figure = FigureOf(b.model);
  figure.range.xUpper = 50;
  EXPECT_THAT(LayerLines(figure, kLoadCheck, layer::kLoad), IsEmpty());
}

TEST(Loads, NodalForcesArePushesOntoTheNode) {
  ModelBuilder b = Beam();
  b.NodalLoad(1, 2, 0, 0);
  b.NodalLoad(2, 0, -3, 0);
  EXPECT_THAT(
      LoadLines(b.model),
      ElementsAre("LINE, KAJYU, 975, 5000, 1475, 5000, 255", "LINE, KAJYU, 1475, 5000, 1400, 5030, 255",
                  "LINE, KAJYU, 1475, 5000, 1400, 4970, 255", "LINE, KAJYU, 11500, 4475, 11500, 4975, 255",
                  "LINE, KAJYU, 11500, 4975, 11470, 4900, 255", "LINE, KAJYU, 11500, 4975, 11530, 4900, 255",
                  "TEXT, KAJYU_TXT, 705, 4920, 2.0, 240, 160, 0",
                  "TEXT, KAJYU_TXT, 11340, 4285, -3.0, 320, 160, 0"));
}

TEST(Loads, AnArrowThatAMemberWouldHideStandsToItsSide) {
  ModelBuilder b = Beam();
  b.NodalLoad(2, 2, 0, 0);  // from the left, where the beam is: 0.4 of 500 above it
  b.NodalLoad(2, -2, 0, 0);
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_THAT(arrows, SizeIs(2));
  EXPECT_EQ(arrows[0].tip.x, 11475);
  EXPECT_EQ(arrows[0].tip.y, 4800);
  EXPECT_EQ(arrows[0].tail.x, 10975);
  EXPECT_EQ(arrows[1].tip.x, 11525);
  EXPECT_EQ(arrows[1].tip.y, 5000);
}

// A column stands on the node: a load from above would lie on it. Beams to the left alone leave the right
// side, beams on both sides or none leave the left one.
TEST(Loads, AnArrowBesideItsMemberStandsOnTheSideWithoutMembers) {
  struct AsideCase {
    const char* name;
    std::vector<Point> beamsTo;
    double aside;
  };
  const AsideCase kCases[] = {{"none", {}, -200},
                              {"beam to the left", {{-10, 0}}, 200},
                              {"beam to the right", {{10, 0}}, -200},
                              {"beams to both sides", {{-10, 0}, {10, 0}}, -200}};
  for (const AsideCase& c : kCases) {
    ModelBuilder b;
    b.Node(0, 0);
    b.Node(0, 8);
    b.Element(1, 2);
    for (const Point p : c.beamsTo) {
      b.Node(p.x, p.y);
      b.Element(1, b.model.NodeCount);
    }
    b.NodalLoad(1, 0, -3, 0);
    Figure figure = FigureOf(b.model);
    const std::vector<Arrow> arrows = ArrowsOf(figure);
    ASSERT_THAT(arrows, SizeIs(1)) << c.name;
    Recorder surface;
    Plot plot(surface);
    PrepareFigure(plot, "", figure, kLoadCheck, 0, 0);
    EXPECT_NEAR(arrows[0].tip.x - figure.view.ToFigure({0, 0}).x, c.aside, 1e-9) << c.name;
  }
}

// A uniform load is 500 high above a gap of 200: the nodal one begins there, 25 off as from a node. One that
// pushes upward finds nothing below the beam, and so does one where the load ends before the node.
TEST(Loads, ANodalArrowStandsOnTheElementLoadsOfItsNode) {
  for (const bool reaches : {true, false}) {
    ModelBuilder b = Beam();
    b.ElementLoad(1, -2, reaches ? 0 : 1, 4);
    b.NodalLoad(2, 0, -3, 0);
    b.NodalLoad(2, 0, 1, 0);
    const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
    ASSERT_GE(arrows.size(), 3);
    EXPECT_EQ(arrows[arrows.size() - 2].tip.y, reaches ? 4275 : 4975);
    EXPECT_EQ(arrows.back().tip.y, 5025);
  }
}

// On paper as in the drawing list: the shaft is four pieces, the head two whole lines, a turn one whole
// round.
TEST(Loads, ABrokenStyleLeavesTheHeadsWhole) {
  ModelBuilder b = Beam();
  b.NodalLoad(1, 2, 0, 0);
  b.NodalLoad(2, 0, 0, 3);
  Figure figure = FigureOf(b.model);
  figure.options.nodalLoad.style = LineStyle::Dotted;
  Recorder page = test::PageRecorder();
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kLoadCheck);
  for (const Pen& pen : page.pens) EXPECT_EQ(pen.style, LineStyle::Solid);
  std::erase_if(plot.drawingList, [](const DrawOperation& o) {
    return o.layer != layer::kLoad || o.kind != DrawOperation::Kind::Line;
  });
  EXPECT_EQ(plot.drawingList.size(), 4U + 2U + 18U + 2U);
  figure.options.nodalLoad.style = LineStyle::Dashed;
  Recorder screen;
  Plot seen(screen);
  DrawFrameFigure(seen, "", figure, kLoadCheck);
  EXPECT_EQ(std::ranges::count_if(screen.pens, [](const Pen& pen) { return pen.style == LineStyle::Dashed; }),
            1);
}

// On a surface 700 high the beam lies at 350, its load 200 above it and 35 high: 115 are left for a number of
// 160.
TEST(Loads, ANumberStandsOnTheSurface) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2);
  Figure figure = FigureOf(b.model);
  Recorder surface(13000, 700);
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kLoadCheck);
  const auto number =
      std::ranges::find_if(plot.drawingList, [](const DrawOperation& o) { return o.text == "-2.0"; });
  ASSERT_NE(number, plot.drawingList.end());
  EXPECT_GE(number->y, 0);
}

// A turn of 200 twips about the node: from the lower right over the top to the lower left, or back.
TEST(Loads, NodalMomentsTurnAsTheirSign) {
  const double reach = 200 * std::sqrt(0.5);
  for (const double M : {1.5, -1.5}) {
    ModelBuilder b = Beam();
    b.NodalLoad(1, 0, 0, M);
    Figure figure = FigureOf(b.model);
    Recorder surface;
    Plot plot(surface);
    plot.RecordDrawing = true;
    DrawFrameFigure(plot, "", figure, kLoadCheck);
    std::vector<DrawOperation> turn;
    for (const DrawOperation& o : plot.drawingList)
      if (o.layer == layer::kLoad) turn.push_back(o);
    ASSERT_THAT(turn, SizeIs(20));  // 18 chords and a head
    const double side = M > 0 ? reach : -reach;
    EXPECT_NEAR(turn[0].x, 1500 + side, 1e-9);
    EXPECT_NEAR(turn[0].y, 5000 + reach, 1e-9);
    EXPECT_NEAR(turn[17].x2, 1500 - side, 1e-9);
    EXPECT_NEAR(turn[17].y2, 5000 + reach, 1e-9);
    EXPECT_NEAR(turn[9].x, 1500, 1e-9);
    EXPECT_NEAR(turn[9].y, 4800, 1e-9);  // over the top
    for (const std::size_t barb : {18u, 19u}) {
      EXPECT_NEAR(turn[barb].x, 1500 - side, 1e-9);
      EXPECT_LT(turn[barb].y2, turn[barb].y);  // the head points down at the end
    }
  }
}

TEST(Loads, NodalLoadsOfAGridNameTheirDirections) {
  ModelBuilder b(kPlaneGrid);
  b.Node(0, 0);
  b.Node(10, 0);
  b.Element(1, 2);
  b.NodalLoad(1, -40, 0, 0);
  b.NodalLoad(2, 0, 1.5, -2.25);
  std::vector<std::string> texts;
  for (const std::string& line : LoadLines(b.model))
    if (line.starts_with("TEXT")) texts.push_back(line);
  ASSERT_THAT(texts, SizeIs(3));
  EXPECT_THAT(texts[0], testing::HasSubstr(", Fz=-40.0, 640, 160, 0"));
  EXPECT_THAT(texts[1], testing::HasSubstr(", Mx=1.5, "));
  EXPECT_THAT(texts[2], testing::HasSubstr(", My=-2.25, "));
}

TEST(Loads, GridMomentsAreArrowsWithTwoHeads) {
  ModelBuilder b(kPlaneGrid);
  b.Node(0, 0);
  b.Node(10, 0);
  b.Element(1, 2);
  b.NodalLoad(2, 0, -1.5, 0);  // about -x: points to the left, from the right
  const std::vector<std::string> lines = LoadLines(b.model);
  ASSERT_THAT(lines, SizeIs(6));
  EXPECT_EQ(lines[0], "LINE, KAJYU, 12025, 5000, 11525, 5000, 255");
  EXPECT_EQ(lines[1], "LINE, KAJYU, 11525, 5000, 11600, 4970, 255");
  EXPECT_EQ(lines[3], "LINE, KAJYU, 11600, 5000, 11675, 4970, 255");
}

TEST(Loads, GridMemberLoadsLieAcrossTheMemberInThePlan) {
  ModelBuilder b(kPlaneGrid);
  b.Node(0, 0);
  b.Node(0, 10);
  b.Element(1, 2);
  b.ElementLoad(1, 1, 1, 2, 1);  // MG means nothing in a grid
  const std::vector<Met> met = MetByArrows(b.model);
  ASSERT_THAT(met, SizeIs(1));
  EXPECT_NEAR(met[0].y, 2, 1e-9);
  EXPECT_EQ(met[0].way, 'L');
}

// A grid's loads are along Z whichever way its member runs: upward is to the left of the way from the left
// end, or from the lower one in the plan. The distance Ly counts from end I all the same.
TEST(Loads, GridMemberLoadsPushToOneSideFromEitherEnd) {
  struct WayCase {
    const char* name;
    Point i, j;
    double P;
    Met expected;
  };
  constexpr WayCase kCases[] = {
      {"left to right, up", {0, 0}, {10, 0}, 1, {2, 0, 'U'}},
      {"right to left, up", {10, 0}, {0, 0}, 1, {8, 0, 'U'}},
      {"left to right, down", {0, 0}, {10, 0}, -1, {2, 0, 'D'}},
      {"right to left, down", {10, 0}, {0, 0}, -1, {8, 0, 'D'}},
      {"bottom to top, up", {0, 0}, {0, 10}, 1, {0, 2, 'L'}},
      {"top to bottom, up", {0, 10}, {0, 0}, 1, {0, 8, 'L'}},
  };
  for (const WayCase& c : kCases) {
    ModelBuilder b(kPlaneGrid);
    b.Node(c.i.x, c.i.y);
    b.Node(c.j.x, c.j.y);
    b.Element(1, 2);
    b.ElementLoad(1, c.P, 1, 2);
    const std::vector<Met> met = MetByArrows(b.model);
    ASSERT_EQ(met.size(), 1) << c.name;
    EXPECT_NEAR(met[0].x, c.expected.x, 1e-9) << c.name;
    EXPECT_NEAR(met[0].y, c.expected.y, 1e-9) << c.name;
    EXPECT_EQ(met[0].way, c.expected.way) << c.name;
  }
}

// One grid member loaded from either end. A triangle that rises from I is one that falls towards it from J.
// Seen from its other end a moment turns the other way, so its typed sign changes; a force along Z keeps its.
TEST(Loads, AGridsLoadFigureIsTheSameFromEitherEndOfAMember) {
  const auto figureOf = [](bool vertical, bool backward) {
    ModelBuilder b(kPlaneGrid);
    const double x = vertical ? 0 : 10, y = vertical ? 10 : 0;
    b.Node(backward ? x : 0, backward ? y : 0);
    b.Node(backward ? 0 : x, backward ? 0 : y);
    b.Element(1, 2);
    b.ElementLoad(1, -2, backward ? 17 : 16, 1);
    const double Ci = 3, Cj = -4, Qi = 2, Qj = 1;
    if (backward)
      b.CmqLoad(1, -Cj, 5, -Ci, Qj, Qi, 0);
    else
      b.CmqLoad(1, Ci, 5, Cj, Qi, Qj, 0);
    b.TemperatureLoad(1, 10, 30, 20, 0.000012, 20);
    std::vector<DrawOperation> list;
    Recorder surface;
    Plot plot(surface);
    plot.RecordDrawing = true;
    Figure figure = FigureOf(b.model);
    DrawFrameFigure(plot, "", figure, kLoadCheck);
    return plot.drawingList;
  };
  // What is drawn, in tenths of a twip and without regard to its order; lines from their lesser end.
  const auto drawn = [](const std::vector<DrawOperation>& list) {
    std::vector<std::string> lines;
    for (DrawOperation o : list) {
      if (o.layer != layer::kLoad) continue;  // the texts show other signs
      if (std::pair(o.x, o.y) > std::pair(o.x2, o.y2)) std::swap(o.x, o.x2), std::swap(o.y, o.y2);
      std::string line;
      for (const double v : {o.x, o.y, o.x2, o.y2}) line += std::to_string(std::lround(10 * v)) + " ";
      lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
  };
  for (const bool vertical : {false, true}) {
    const std::vector<std::string> forward = drawn(figureOf(vertical, false));
    EXPECT_GT(forward.size(), 60);
    EXPECT_EQ(drawn(figureOf(vertical, true)), forward) << (vertical ? "vertical" : "level");
  }
}

TEST(Loads, CmqLoadsAreTurnsAndForcesAtTheEnds) {
  ModelBuilder b = Beam();
  b.CmqLoad(1, 3, 4.5, -3, 2, 1, 0);
  std::vector<std::string> texts;
  for (const std::string& line : LoadLines(b.model))
    if (line.starts_with("TEXT")) texts.push_back(line.substr(line.find("TXT") + 3));
  ASSERT_THAT(texts, SizeIs(5));
  EXPECT_THAT(texts[0], testing::HasSubstr(", C=3.0, "));
  EXPECT_THAT(texts[1], testing::HasSubstr(", C=-3.0, "));
  EXPECT_THAT(texts[2], testing::HasSubstr(", 2.0, "));
  EXPECT_THAT(texts[3], testing::HasSubstr(", 1.0, "));
  EXPECT_THAT(texts[4], testing::HasSubstr(", Mo=4.5, "));
  const std::vector<Arrow> arrows = ArrowsOf(FigureOf(b.model));
  ASSERT_GE(arrows.size(), 2);
  for (const Arrow& arrow : {arrows[arrows.size() - 2], arrows.back()}) {
    EXPECT_DOUBLE_EQ(arrow.tip.y, 5200);  // upward from below
    EXPECT_DOUBLE_EQ(arrow.tail.y, 5700);
  }
}

TEST(Loads, TemperatureLoadsStandAsNumbers) {
  ModelBuilder b = Beam();
  b.TemperatureLoad(1, 10, 30, -5.5, 0.000012, 20);
  const std::vector<std::string> lines = LoadLines(b.model);
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_THAT(lines[0], testing::HasSubstr(", T1=30.0 T2=-5.5, "));
}

TEST(Loads, OptionsHideLoadsAndTheirNumbers) {
  ModelBuilder b = Beam();
  b.ElementLoad(1, -2, 1, 4);
  b.NodalLoad(1, 2, 0, 0);
  Figure figure = FigureOf(b.model);
  figure.options.loadValue.visible = false;
  EXPECT_THAT(LayerLines(figure, kLoadCheck, layer::kLoad), SizeIs(6));
  figure.options.elementLoad.visible = false;
  EXPECT_THAT(LayerLines(figure, kLoadCheck, layer::kLoad), SizeIs(3));
  figure.options.nodalLoad.visible = false;
  EXPECT_THAT(LayerLines(figure, kLoadCheck, layer::kLoad), IsEmpty());
}

TEST(Loads, NumbersShowWhatWasTyped) {
  struct NumberCase {
    double P;
    const char* text;
  };
  for (const NumberCase& c :
       {NumberCase{-2, "-2.0"}, {0.05, "0.05"}, {1234567.125, "1234567.125"}, {0.0000004, "0.0"}}) {
    ModelBuilder b = Beam();
    b.ElementLoad(1, c.P, 1, 4);
    EXPECT_THAT(LoadLines(b.model).back(), testing::HasSubstr(std::string(", ") + c.text + ", "));
  }
}

}  // namespace
}  // namespace zorlan

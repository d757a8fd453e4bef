// The diagrams of single members, whose drawing lists follow by hand. The view shows 1 m as 1000 twips: the
// model's (x, y) is (5000 + 1000 x, 10000 - 1000 y) in the figure. Diagrams are 2.54 cm high: 1440 twips.
#include "graphics/diagrams.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace zorlan {
namespace {

using Kind = DrawOperation::Kind;

/// Keeps the tints, which no drawing list has.
class TintTarget : public PlotTarget {
 public:
  Surface TheSurface() const override { return {.width = 20000, .height = 20000}; }
  void Line(Point, Point, const Pen& pen) override { pens.push_back(pen); }
  void Circle(Point, double, const Pen&, bool) override {}
  void Text(Point, std::string_view, double, double, Rgb) override {}
  void Shade(std::span<const Point> polygon, Rgb colour) override {
    tints.emplace_back(polygon.begin(), polygon.end());
    tintColours.push_back(colour);
  }
  std::vector<Pen> pens;
  std::vector<std::vector<Point>> tints;
  std::vector<Rgb> tintColours;
};

/// A figure of single members, drawn by one routine.
class DiagramTest : public testing::Test {
 protected:
  DiagramTest() {
    figure_.view = {.Vxmin = -5, .Vxmax = 15, .Vymin = -10, .Vymax = 10, .Vvkei = 0.001};
    FigureOptions& o = figure_.options;
    o.HeightDisplacement = o.HeightNormal = o.HeightShear = o.HeightMoment = 2.54F;
    o.axialValue.visible = o.shearValue.visible = o.momentValue.visible = false;
    o.moment.colour = 255;
    o.shear.colour = 65280;
    o.displacement.colour = 16711680;
    o.axialTension = 1;
    o.axialCompression = 2;
  }

  /// Adds a member between two new nodes, with its record of case 1.
  void AddMember(Point i, Point j, const StressRecord& record) {
    FigureModel& model = figure_.model;
    const int row = static_cast<int>(model.nodes.size());
    for (const Point p : {i, j}) {
      FigureNode node;
      node.number = static_cast<std::int16_t>(model.nodes.size() + 1);
      node.x = p.x;
      node.y = p.y;
      model.nodes.push_back(node);
    }
    FigureElement element;
    element.rowI = row;
    element.rowJ = row + 1;
    model.elements.push_back(element);
    model.StressTable.push_back(record);
    figure_.shown.push_back(1);
    for (const Point p : {i, j}) figure_.place.push_back(p);
  }

  void RemoveMembers() {
    figure_.model.nodes.clear();
    figure_.model.elements.clear();
    figure_.model.StressTable.clear();
    figure_.shown.clear();
    figure_.place.clear();
  }

  using Routine = void (*)(Plot&, const Figure&, LabelField&);
  std::vector<DrawOperation> Draw(Routine routine, std::string_view drawLayer = layer::kMoment) {
    Plot plot(target_);
    plot.RecordDrawing = true;
    plot.DrawLayer = drawLayer;
    LabelField labels(plot.clip);
    routine(plot, figure_, labels);
    return plot.drawingList;
  }

  Figure figure_;
  TintTarget target_;
};

DrawOperation LineOf(Point a, Point b, Rgb colour, std::string_view drawLayer) {
  return {.kind = Kind::Line,
          .layer = std::string(drawLayer),
          .x = a.x,
          .y = a.y,
          .x2 = b.x,
          .y2 = b.y,
          .text = {},
          .colour = colour};
}

/// A polyline through the points, as the list has it.
std::vector<DrawOperation> LinesThrough(const std::vector<Point>& points, Rgb colour,
                                        std::string_view drawLayer = layer::kMoment) {
  std::vector<DrawOperation> lines;
  for (std::size_t k = 1; k < points.size(); ++k)
    lines.push_back(LineOf(points[k - 1], points[k], colour, drawLayer));
  return lines;
}

void ExpectList(const std::vector<DrawOperation>& actual, const std::vector<DrawOperation>& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t k = 0; k < actual.size(); ++k) {
    const DrawOperation &a = actual[k], &e = expected[k];
    const auto near = [](double x, double y) {
      return std::abs(x - y) <= 1e-3;
    };  // twips; heights are floats
    EXPECT_TRUE(a.kind == e.kind && a.layer == e.layer && a.text == e.text && a.colour == e.colour &&
                near(a.x, e.x) && near(a.y, e.y) && near(a.x2, e.x2) && near(a.y2, e.y2) &&
                near(a.width, e.width) && near(a.height, e.height) && std::abs(a.angle - e.angle) < 1e-7)
        << k << ": " << OperationLine(a) << "\nexpected: " << OperationLine(e);
  }
}

/// foot, then 21 ordinates, then foot.
template <class Ordinate>
std::vector<Point> CurveThrough(Point footStart, Ordinate ordinate, Point footEnd) {
  std::vector<Point> points = {footStart};
  for (int k = 0; k <= 20; ++k) points.push_back(ordinate(k));
  points.push_back(footEnd);
  return points;
}

// Both ends fixed, uniform load: 4 at the ends, 2 in the middle; scale 1.44/4. m(x) = 0.54 x^2 - 2.16 x
// + 1.44, at x = 0.2 k: 1.44 - 0.432 k + 0.0216 k^2 above y = 5.
const std::vector<Point> kFixedBeamCurve =
    CurveThrough({6000, 5000},
                 [](int k) {
                   return Point{6000.0 + 200 * k, 3560 + 432 * k - 21.6 * k * k};
                 },
                 {10000, 5000});

TEST_F(DiagramTest, MomentOfALevelMemberIsAParabolaOfTwentyChords) {
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  ExpectList(Draw(DrawMomentData), LinesThrough(kFixedBeamCurve, 255));
}

TEST_F(DiagramTest, MomentOfAMemberEnteredFromTheRightIsTheSame) {
  AddMember({5, 5}, {1, 5}, {.momentI = -4, .momentC = -2, .momentJ = 4});
  ExpectList(Draw(DrawMomentData), LinesThrough(kFixedBeamCurve, 255));
}

// A column fixed below, pushed at its top; entered from above: M(J) = 6, so M(C) = -0.5 (0 - 6). From its
// foot the ordinate falls from 1.44 to 0 on the left; the closing line there is a point.
TEST_F(DiagramTest, MomentOfAVerticalMemberStartsAtItsLowerEnd) {
  AddMember({2, 5}, {2, 1}, {.momentI = 0, .momentC = 3, .momentJ = 6});
  std::vector<Point> points = CurveThrough({7000, 9000},
                                           [](int k) {
                                             return Point{5560.0 + 72 * k, 9000.0 - 200 * k};
                                           },
                                           {7000, 5000});
  ExpectList(Draw(DrawMomentData), LinesThrough(points, 255));
}

// A constant moment on a member of slope 4/3: the ordinate is 1.44 (-0.8, 0.6) from every point (0.15 k, 0.2
// k).
TEST_F(DiagramTest, MomentOfASlopingMemberStandsOnItsNormal) {
  AddMember({0, 0}, {3, 4}, {.momentI = 5, .momentC = -5, .momentJ = -5});
  ExpectList(Draw(DrawMomentData),
             LinesThrough(CurveThrough({5000, 10000},
                                       [](int k) {
                                         return Point{5000 + 150.0 * k - 1152, 10000 - 200.0 * k - 864};
                                       },
                                       {8000, 6000}),
                          255));
}

// Load 1 at the free end of a cantilever of 4 m fixed at its left end: M(I) = 4, M(C) = -2.
TEST_F(DiagramTest, MomentOfACantileverFallsToItsFreeEnd) {
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = -2, .momentJ = 0});
  std::vector<Point> points = CurveThrough({6000, 5000},
                                           [](int k) {
                                             return Point{6000.0 + 200 * k, 3560.0 + 72 * k};
                                           },
                                           {10000, 5000});
  ExpectList(Draw(DrawMomentData), LinesThrough(points, 255));
}

DrawOperation LabelOf(double x, double y, const char* text, double halfWidths, double angle,
                      const char* drawLayer = "MOMENT_TXT") {
  const double height = 0.35 / 2.54 * 1440;
  return {.kind = Kind::TextRotated,
          .layer = drawLayer,
          .x = x,
          .y = y,
          .text = text,
          .width = halfWidths * height / 2,
          .height = height,
          .angle = angle};
}
constexpr double kGap = 0.5 / 2.54 * 1440;            // 283.465
constexpr double kHalfHigh = 0.35 / 2.54 * 1440 / 2;  // 99.213: half the height, and the breadth of a figure

TEST_F(DiagramTest, MomentLabelsStandAtStartEndAndCentre) {
  figure_.options.momentValue.visible = true;
  figure_.options.moment.visible = false;
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  ExpectList(Draw(DrawMomentData), {
                                       LabelOf(6000, 3560 - kGap - kHalfHigh, "4.00", 4, 0),
                                       LabelOf(10000 - 5 * kHalfHigh, 3560 - kGap - kHalfHigh, "-4.00", 5, 0),
                                       LabelOf(8000 - 2 * kHalfHigh, 5720 + kGap - kHalfHigh, "2.00", 4, 0),
                                   });
}

// Turned by 90 degrees a label's left upper corner is its lower left one on the page: half its height to the
// left of its axis. The centre's value has changed its sign with the ends.
TEST_F(DiagramTest, LabelsOfAVerticalMemberRunUpward) {
  figure_.options.momentValue.visible = true;
  figure_.options.moment.visible = false;
  figure_.options.DecimalsMoment = 0;
  AddMember({2, 5}, {2, 1}, {.momentI = 0, .momentC = 3, .momentJ = 6});
  ExpectList(Draw(DrawMomentData), {
                                       LabelOf(5560 - kGap - kHalfHigh, 9000, "6", 1, 90),
                                       LabelOf(7000 - kGap - kHalfHigh, 5000 + kHalfHigh, "0", 1, 90),
                                       LabelOf(6280 - kGap - kHalfHigh, 7000 + kHalfHigh, "-3", 2, 90),
                                   });
}

TEST_F(DiagramTest, LabelOfASlopingMemberFollowsIt) {
  figure_.options.momentValue.visible = true;
  figure_.options.moment.visible = false;
  AddMember({0, 0}, {3, 4}, {.momentI = 5, .momentC = -5, .momentJ = -5});
  const std::vector<DrawOperation> list = Draw(DrawMomentData);
  ASSERT_EQ(list.size(), 3U);
  // From the ordinate's point 0.5 cm along (-0.8, 0.6); then from the middle of the left edge to its upper
  // corner: half the height along the same normal.
  EXPECT_NEAR(list[0].x, 5000 - 1152 - 0.8 * (kGap + kHalfHigh), 1e-2);
  EXPECT_NEAR(list[0].y, 10000 - 864 - 0.6 * (kGap + kHalfHigh), 1e-2);
  EXPECT_DOUBLE_EQ(list[0].angle, std::atan(4.0 / 3) / 3.1415926 * 180);
}

TEST_F(DiagramTest, LabelsGrowWithTheirFont) {
  figure_.options.momentValue = {.visible = true, .points = 16, .colour = 77};
  AddMember({1, 5}, {5, 5}, {.momentI = 4});
  const DrawOperation label = Draw(DrawMomentData).back();
  EXPECT_NEAR(label.height, 0.70 / 2.54 * 1440, 1e-9);
  EXPECT_EQ(label.colour, 77);
}

TEST_F(DiagramTest, LabelsAreInTheOutputsUnit) {
  figure_.options.momentValue.visible = true;
  figure_.model.outUnit = 1;
  figure_.model.gravityFactor = 9.80665;
  AddMember({1, 5}, {5, 5}, {.momentI = 2});
  const std::vector<DrawOperation> list = Draw(DrawMomentData);
  EXPECT_EQ(list[list.size() - 3].text, "19.61");  // 19.6133
  EXPECT_EQ(list[0].y2, list[1].y);                // and the ordinate is as high as before
  EXPECT_NEAR(list[0].y2, 3560, 1e-3);
}

TEST_F(DiagramTest, LabelsAtOnePlaceDoNotCoverEachOther) {
  figure_.options.momentValue.visible = true;
  figure_.options.moment.visible = false;
  for (int copies = 0; copies < 4; ++copies)
    AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  const std::vector<DrawOperation> list = Draw(DrawMomentData);
  ASSERT_EQ(list.size(), 12U);
  for (std::size_t a = 0; a < list.size(); ++a)
    for (std::size_t b = a + 1; b < list.size(); ++b) {
      const bool apart = list[a].x + list[a].width <= list[b].x || list[b].x + list[b].width <= list[a].x ||
                         list[a].y + list[a].height <= list[b].y || list[b].y + list[b].height <= list[a].y;
      EXPECT_TRUE(apart) << OperationLine(list[a]) << "\n" << OperationLine(list[b]);
    }
}

TEST_F(DiagramTest, CaseWithoutStressDrawsNothing) {
  figure_.options.momentValue.visible = figure_.options.axialValue.visible = true;
  figure_.options.shearValue.visible = true;
  AddMember({1, 5}, {5, 5}, {});
  for (const Routine routine : {DrawMomentData, DrawNormalData, DrawNormalShearData})
    EXPECT_TRUE(Draw(routine).empty());
  EXPECT_TRUE(target_.tints.empty());
}

TEST_F(DiagramTest, MemberWithoutLengthIsSkipped) {
  AddMember({1, 5}, {1, 5}, {.axialI = 99, .momentI = 99, .momentJ = 99, .shearI = 99});
  AddMember({1, 5}, {5, 5},
            {.axialI = -1, .momentI = 4, .momentC = 2, .momentJ = -4, .axialJ = 1, .shearI = 1});
  // Its values have no part in the scale either.
  ExpectList(Draw(DrawMomentData), LinesThrough(kFixedBeamCurve, 255));
  EXPECT_EQ(Draw(DrawNormalData).size(), 3U);
  EXPECT_EQ(Draw(DrawNormalShearData).size(), 3U);
}

TEST_F(DiagramTest, AMemberWithoutForceHasItsLinesAndValuesToo) {
  figure_.options.shearValue.visible = true;
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4, .shearI = 3, .shearJ = -3});
  AddMember({1, 2}, {5, 2}, {});
  EXPECT_EQ(Draw(DrawMomentData).size(), 44U);
  EXPECT_EQ(Draw(DrawNormalShearData).size(), 10U);
}

// The other case sets the scale, but what isn't there has no ordinates and no "0.00" all over the frame.
TEST_F(DiagramTest, ACaseOfZerosBesideALoadedOneDrawsNothing) {
  FigureOptions& o = figure_.options;
  o.axialValue.visible = o.shearValue.visible = o.momentValue.visible = true;
  AddMember({1, 5}, {5, 5}, {});
  figure_.model.maxLoadCase = 2;
  figure_.model.StressTable.push_back({.axialI = -5, .momentI = 4, .axialJ = 5, .shearI = 3, .shearJ = -3});
  for (const bool overAllCases : {true, false}) {
    o.ScaleOverAllCases = overAllCases;
    for (const Routine routine : {DrawMomentData, DrawNormalData, DrawNormalShearData}) {
      figure_.loadCase = 1;
      EXPECT_TRUE(Draw(routine).empty());
      figure_.loadCase = 2;
      EXPECT_FALSE(Draw(routine).empty());
    }
  }
  figure_.loadCase = 1;
  target_.tints.clear();
  Draw(DrawMomentData);
  EXPECT_TRUE(target_.tints.empty());
}

// The solution of a cantilever of 57 m under 1 t/m leaves 4.6e-9 t of axial force where there is none.
TEST_F(DiagramTest, WhatRoundingLeavesBesideTheGreatForcesHasNoOrdinates) {
  AddMember({1, 5}, {5, 5},
            {.axialI = -4.6e-9, .momentI = 1280, .axialJ = 4.6e-9, .shearI = 45, .shearJ = 3});
  EXPECT_TRUE(Draw(DrawNormalData).empty());
  EXPECT_FALSE(Draw(DrawNormalShearData).empty());
  EXPECT_FALSE(Draw(DrawMomentData).empty());
}

// Milligrams: a model as small has forces as small.
TEST_F(DiagramTest, TheForcesOfASmallModelAreDrawn) {
  AddMember({1, 5}, {5, 5}, {.axialI = -5e-9, .momentI = 4e-8, .axialJ = 5e-9, .shearI = 1e-8});
  EXPECT_NEAR(Draw(DrawMomentData).at(0).y2, 3560, 1e-3);
  EXPECT_NEAR(Draw(DrawNormalData).at(0).y2, 3560, 1e-3);
  EXPECT_NEAR(Draw(DrawNormalShearData).at(0).y2, 3560, 1e-3);
}

// A cantilever that is warmed has no forces but what rounding leaves; neither scale makes a picture of it.
TEST_F(DiagramTest, ACaseOfNothingButRoundingDrawsNothing) {
  AddMember({1, 5}, {5, 5}, {.axialI = 1.4e-14, .momentI = 1e-12, .shearI = 1e-14});
  figure_.model.maxLoadCase = 2;
  figure_.model.StressTable.push_back({.momentI = 5});
  for (const bool allCases : {true, false}) {
    figure_.options.ScaleOverAllCases = allCases;
    for (const Routine routine : {DrawMomentData, DrawNormalData, DrawNormalShearData})
      EXPECT_TRUE(Draw(routine).empty()) << allCases;
  }
}

// What is small is measured in the case that is shown.
TEST_F(DiagramTest, AForceOfThisCaseIsNoRoundingBesideAnotherCase) {
  AddMember({1, 5}, {5, 5}, {.momentI = 1});
  figure_.model.maxLoadCase = 2;
  figure_.model.StressTable.push_back({.momentI = 1e12});
  EXPECT_FALSE(Draw(DrawMomentData).empty());
}

// 4.76e-10 m at the tip: the figure is of the shape, whatever its size.
TEST_F(DiagramTest, TheSmallestDisplacementHasTheHeightOfTheOption) {
  AddMember({1, 5}, {5, 5}, {});
  figure_.model.DisplacementTable = {{}, {.y = 4.76e-10}};
  ExpectList(Draw(DrawDisplacementData, layer::kDisplacement),
             {LineOf({6000, 5000}, {10000, 3560}, 16711680, layer::kDisplacement)});
}

TEST_F(DiagramTest, MembersOutOfTheRangeKeepTheScale) {
  AddMember({1, 5}, {5, 5}, {.momentI = 2, .momentC = 1, .momentJ = -2});
  AddMember({1, 2}, {5, 2}, {.momentI = 4});
  figure_.shown[1] = 0;
  const std::vector<DrawOperation> list = Draw(DrawMomentData);
  ASSERT_EQ(list.size(), 22U);
  EXPECT_NEAR(list[0].y2, 5000 - 720, 1e-3);  // half of the greatest
}

TEST_F(DiagramTest, AllCasesShareOneScaleUnlessTheShownOneCountsAlone) {
  AddMember({1, 5}, {5, 5}, {.momentI = 2});
  figure_.model.maxLoadCase = 2;
  figure_.model.StressTable.push_back({.momentI = -8});
  EXPECT_NEAR(Draw(DrawMomentData)[0].y2, 5000 - 360, 1e-3);
  figure_.loadCase = 2;
  EXPECT_NEAR(Draw(DrawMomentData)[0].y2, 5000 + 1440, 1e-3);
  figure_.options.ScaleOverAllCases = false;
  figure_.loadCase = 1;
  EXPECT_NEAR(Draw(DrawMomentData)[0].y2, 5000 - 1440, 1e-3);
}

TEST_F(DiagramTest, ResultsThatAreMissingOrTooShortDrawNothing) {
  AddMember({1, 5}, {5, 5}, {.momentI = 2});
  figure_.loadCase = 2;
  figure_.model.maxLoadCase = 3;
  for (const Routine routine : {DrawMomentData, DrawNormalData, DrawNormalShearData, DrawDisplacementData})
    EXPECT_TRUE(Draw(routine).empty());
  figure_.model.StressTable.clear();
  figure_.loadCase = 1;
  EXPECT_TRUE(Draw(DrawMomentData).empty());
}

TEST_F(DiagramTest, ResultsThatAreNoNumbersHarmNothing) {
  constexpr double kEndless = std::numeric_limits<double>::infinity(),
                   kNoNumber = std::numeric_limits<double>::quiet_NaN();
  FigureOptions& o = figure_.options;
  o.axialValue.visible = o.shearValue.visible = o.momentValue.visible = true;
  for (const double wrong : {kEndless, kNoNumber, 1e308, -1e-320})
    AddMember({1, 5}, {5, 5}, {wrong, wrong, wrong, wrong, wrong, wrong, wrong});
  figure_.model.DisplacementTable = {{kNoNumber, kEndless, 0}, {1e308, -1e308, 0}};
  figure_.model.ratios = {kNoNumber, kEndless, 1e308, -1};
  for (const Routine routine :
       {DrawMomentData, DrawNormalData, DrawNormalShearData, DrawDisplacementData, DrawRatioData})
    for (const DrawOperation& operation : Draw(routine)) {
      EXPECT_TRUE(std::isfinite(operation.x) && std::isfinite(operation.y));
      EXPECT_TRUE(std::isfinite(operation.x2) && std::isfinite(operation.y2));
    }
}

TEST_F(DiagramTest, ATintLiesUnderTheCurveAndNotInTheList) {
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  Draw(DrawMomentData);
  ASSERT_EQ(target_.tints.size(), 1U);
  EXPECT_EQ(target_.tints[0].size(), 23U);  // 21 ordinates and the two feet
  EXPECT_EQ(target_.tintColours[0], 255);
  EXPECT_NEAR(target_.tints[0][0].y, 3560, 1e-3);
  EXPECT_NEAR(target_.tints[0][21].x, 10000, 1e-9);
  EXPECT_NEAR(target_.tints[0][22].x, 6000, 1e-9);
}

TEST_F(DiagramTest, PenIsThatOfTheOption) {
  figure_.options.moment = {.width = 3, .style = LineStyle::Dashed, .colour = 9};
  AddMember({1, 5}, {5, 5}, {.momentI = 4});
  Draw(DrawMomentData);
  ASSERT_FALSE(target_.pens.empty());
  EXPECT_EQ(target_.pens[0].width, 3);
  EXPECT_EQ(target_.pens[0].style, LineStyle::Dashed);
  EXPECT_EQ(target_.pens[0].colour, 9);
}

// A tie of 5 t and a strut of 2.5 t on the same line: tension above, compression below, each in its colour.
TEST_F(DiagramTest, AxialForceIsABandOnTheSideOfItsSign) {
  AddMember({1, 5}, {5, 5}, {.axialI = -5, .axialJ = 5});
  AddMember({8, 2}, {5, 2}, {.axialI = 2.5, .axialJ = -2.5});
  std::vector<DrawOperation> expected =
      LinesThrough({{6000, 5000}, {6000, 3560}, {10000, 3560}, {10000, 5000}}, 1, layer::kForce);
  for (const DrawOperation& line :
       LinesThrough({{10000, 8000}, {10000, 8720}, {13000, 8720}, {13000, 8000}}, 2, layer::kForce))
    expected.push_back(line);
  ExpectList(Draw(DrawNormalData, layer::kForce), expected);
}

// A hanging member whose own weight turns its tension of 3 into a compression of 1 over 4 m: 0 is 3 m from
// the start. Scale 1.44/3.
TEST_F(DiagramTest, AxialForceThatChangesItsSignHasBothColours) {
  AddMember({1, 5}, {5, 5}, {.axialI = -3, .axialJ = -1});
  std::vector<DrawOperation> expected =
      LinesThrough({{6000, 5000}, {6000, 3560}, {9000, 5000}}, 1, layer::kForce);
  for (const DrawOperation& line :
       LinesThrough({{9000, 5000}, {10000, 5480}, {10000, 5000}}, 2, layer::kForce))
    expected.push_back(line);
  ExpectList(Draw(DrawNormalData, layer::kForce), expected);
  EXPECT_EQ(target_.tintColours, (std::vector<Rgb>{1, 2}));
}

TEST_F(DiagramTest, AxialLabelsStandAtBothEnds) {
  figure_.options.axialValue.visible = true;
  figure_.options.DecimalsNormal = 1;
  AddMember({1, 5}, {5, 5}, {.axialI = 5, .axialJ = -5});
  const std::vector<DrawOperation> list = Draw(DrawNormalData, layer::kForce);
  ASSERT_EQ(list.size(), 5U);
  ExpectList({list[3], list[4]},
             {LabelOf(6000, 6440 + kGap - kHalfHigh, "-5.0", 4, 0, "FORCE_TXT"),
              LabelOf(10000 - 4 * kHalfHigh, 6440 + kGap - kHalfHigh, "-5.0", 4, 0, "FORCE_TXT")});
}

// A simple beam under a uniform load is held up with 3 t at both ends: the shear falls from 3 to -3.
TEST_F(DiagramTest, ShearIsAStraightLineBetweenItsEnds) {
  AddMember({1, 5}, {5, 5}, {.shearI = 3, .shearJ = 3});
  ExpectList(Draw(DrawNormalShearData, layer::kShear),
             LinesThrough({{6000, 5000}, {6000, 3560}, {10000, 6440}, {10000, 5000}}, 65280, layer::kShear));
}

// The same beam entered from the right: its y axis points down.
TEST_F(DiagramTest, ShearOfAMemberEnteredFromTheRightIsTheSame) {
  AddMember({5, 5}, {1, 5}, {.shearI = -3, .shearJ = -3});
  ExpectList(Draw(DrawNormalShearData, layer::kShear),
             LinesThrough({{6000, 5000}, {6000, 3560}, {10000, 6440}, {10000, 5000}}, 65280, layer::kShear));
}

// 0.02 m is the greatest displacement: 1.44 m in the figure, scale 72.
TEST_F(DiagramTest, DisplacedMemberJoinsItsMovedEnds) {
  AddMember({1, 5}, {5, 5}, {});
  figure_.model.DisplacementTable = {{.x = 0.01, .y = 0}, {.x = 0.005, .y = -0.02}};
  ExpectList(Draw(DrawDisplacementData, layer::kDisplacement),
             {LineOf({6720, 5000}, {10360, 6440}, 16711680, layer::kDisplacement)});
  EXPECT_TRUE(target_.tints.empty());
}

TEST_F(DiagramTest, MemberThatDoesNotMoveIsDrawnInItsPlace) {
  AddMember({1, 5}, {5, 5}, {});
  figure_.model.DisplacementTable = {{}, {}};
  ExpectList(Draw(DrawDisplacementData, layer::kDisplacement),
             {LineOf({6000, 5000}, {10000, 5000}, 16711680, layer::kDisplacement)});
}

// A grid seen from its own height: x stays, the vertical is upright, y is gone.
TEST_F(DiagramTest, OrdinatesOfAGridStandUpright) {
  figure_.model.modelCode = kPlaneGrid;
  figure_.oblique = true;
  figure_.projection = Projection(0, 0, 0, 0, 0);
  AddMember({1, 5}, {5, 5}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  std::vector<Point> points;
  for (const Point& p : kFixedBeamCurve) points.push_back({p.x, p.y + 5000});
  ExpectList(Draw(DrawMomentData), LinesThrough(points, 255));
}

// Laid back by 60 degrees the view shortens the vertical to half of it; the diagram is as high all the same.
TEST_F(DiagramTest, OrdinatesOfAGridAreAsHighAsTheOptionSaysInTheView) {
  figure_.model.modelCode = kPlaneGrid;
  figure_.oblique = true;
  figure_.projection = Projection(0, 0, 0, 0, 60);
  AddMember({1, 0}, {5, 0}, {.momentI = 4, .momentC = 2, .momentJ = -4});
  const std::vector<DrawOperation> list = Draw(DrawMomentData);
  ASSERT_EQ(list.size(), 22U);
  EXPECT_NEAR(list[0].y - list[0].y2, 1440, 1e-3);
  EXPECT_NEAR(list[0].x2, list[0].x, 1e-9);
}

// A grid beam of 6 m on a support at its left end, sagging under its load: M(J) = 14.744 at the crossing. Its
// local vertical is Z from either end, so entered from the right M(I) is -M(J) of before, and M(C) stays. The
// diagram is the same beam's; the label at an end is that end's moment with the sign that the results have.
TEST_F(DiagramTest, AGridMemberSagsDownwardFromWhicheverEndItIsEntered) {
  figure_.model.modelCode = kPlaneGrid;
  figure_.oblique = true;
  figure_.projection = Projection(0, 0, 0, 0, 0);
  figure_.options.momentValue.visible = figure_.options.shearValue.visible = true;
  struct Entry {
    const char* name;
    Point i, j;
    StressRecord record;
    const char* atCrossing;
  };
  constexpr StressRecord kForward = {
      .momentI = 0, .momentC = 16.372, .momentJ = 14.744, .shearI = 8.457, .shearJ = 3.543};
  constexpr StressRecord kBackward = {
      .momentI = -14.744, .momentC = 16.372, .momentJ = 0, .shearI = 3.543, .shearJ = 8.457};
  for (const Entry& c : {Entry{"left to right", {0, 5}, {6, 5}, kForward, "14.74"},
                         {"right to left", {6, 5}, {0, 5}, kBackward, "-14.74"},
                         {"bottom to top in the plan", {3, 0}, {3, 6}, kForward, "14.74"},
                         {"top to bottom in the plan", {3, 6}, {3, 0}, kBackward, "-14.74"}}) {
    RemoveMembers();
    AddMember(c.i, c.j, c.record);
    const std::vector<DrawOperation> moment = Draw(DrawMomentData);
    ASSERT_EQ(moment.size(), 25U) << c.name;
    EXPECT_NEAR(moment[0].y2, 10000, 1e-3) << c.name;   // start
    EXPECT_NEAR(moment[10].y2, 11440, 1e-3) << c.name;  // the greatest hangs 1440 down
    EXPECT_NEAR(moment[20].y2, 10000 + 1440 * 14.744 / 16.372, 1e-3) << c.name;  // end
    EXPECT_EQ(moment[22].text, "0.00") << c.name;
    EXPECT_EQ(moment[23].text, c.atCrossing) << c.name;
    EXPECT_EQ(moment[24].text, "16.37") << c.name;
    const std::vector<DrawOperation> shear = Draw(DrawNormalShearData);
    ASSERT_EQ(shear.size(), 5U) << c.name;
    EXPECT_NEAR(shear[0].y2, 10000 - 1440, 1e-3) << c.name;
    EXPECT_NEAR(shear[1].y2, 10000 + 1440 * 3.543 / 8.457, 1e-3) << c.name;
    EXPECT_EQ(shear[3].text, "8.46") << c.name;
    EXPECT_EQ(shear[4].text, "-3.54") << c.name;
    EXPECT_TRUE(Draw(DrawNormalData).empty()) << c.name;  // a grid has no axial force
  }
}

// The same member from its other end: a frame's y axis turns with it, a grid's local vertical doesn't.
StressRecord FromTheOtherEnd(const StressRecord& r, bool grid) {
  if (grid)
    return {.momentI = -r.momentJ,
            .momentC = r.momentC,
            .momentJ = -r.momentI,
            .shearI = r.shearJ,
            .shearJ = r.shearI};
  return {.axialI = -r.axialJ,
          .momentI = r.momentJ,
          .momentC = -r.momentC,
          .momentJ = r.momentI,
          .axialJ = -r.axialI,
          .shearI = -r.shearJ,
          .shearJ = -r.shearI};
}

TEST_F(DiagramTest, DiagramsAreTheSameFromEitherEndOfAMember) {
  FigureOptions& o = figure_.options;
  o.axialValue.visible = o.shearValue.visible = o.momentValue.visible = true;
  figure_.projection = Projection(0, 0, 0, 30, 30);
  constexpr StressRecord kLoaded = {
      .axialI = -5, .momentI = 3.5, .momentC = 2.25, .momentJ = -1.5, .axialJ = 4, .shearI = 6, .shearJ = 2};
  const Point kEnds[][2] = {{{1, 5}, {5, 5}}, {{2, 1}, {2, 5}}, {{0, 0}, {3, 4}}, {{0, 4}, {3, 0}}};
  for (const bool grid : {false, true}) {
    figure_.model.modelCode = grid ? kPlaneGrid : kPlaneFrame;
    figure_.oblique = grid;
    o.momentValue.visible = !grid;  // the moments at a grid member's ends have the sign of its own direction
    for (const auto& [start, end] : kEnds)
      for (const Routine routine : {DrawMomentData, DrawNormalData, DrawNormalShearData}) {
        const auto drawn = [&](Point i, Point j, const StressRecord& record) {
          RemoveMembers();
          AddMember(i, j, record);
          return Draw(routine);
        };
        StressRecord record = kLoaded;
        if (grid) record.axialI = record.axialJ = 0;
        ExpectList(drawn(end, start, FromTheOtherEnd(record, grid)), drawn(start, end, record));
      }
  }
}

// A grid beam of 6 m under 1 t/m, fixed at its left end and simply held at its right one: wL^2/8 = 4.5 at the
// fixed end. Entered from the right the fixed end is J: M(J) = -4.5, as a fixed end J has from the left.
TEST_F(DiagramTest, MomentLabelsOfAGridHaveTheSignOfTheirEnd) {
  figure_.model.modelCode = kPlaneGrid;
  figure_.oblique = true;
  figure_.projection = Projection(0, 0, 0, 0, 0);
  figure_.options.momentValue.visible = true;
  const struct {
    const char* name;
    Point i, j;
    StressRecord record;
    const char *start, *end;
  } cases[] = {
      {"fixed at its I, left", {0, 5}, {6, 5}, {.momentI = 4.5, .momentC = 2.25}, "4.50", "0.00"},
      {"fixed at its J, left", {6, 5}, {0, 5}, {.momentC = 2.25, .momentJ = -4.5}, "-4.50", "0.00"},
      {"fixed at its I, right", {6, 5}, {0, 5}, {.momentI = 4.5, .momentC = 2.25}, "0.00", "4.50"},
      {"fixed at its J, right", {0, 5}, {6, 5}, {.momentC = 2.25, .momentJ = -4.5}, "0.00", "-4.50"},
  };
  for (const auto& c : cases) {
    RemoveMembers();
    AddMember(c.i, c.j, c.record);
    const std::vector<DrawOperation> list = Draw(DrawMomentData);
    ASSERT_EQ(list.size(), 25U) << c.name;
    EXPECT_EQ(list[22].text, c.start) << c.name;
    EXPECT_EQ(list[23].text, c.end) << c.name;
    EXPECT_EQ(list[24].text, "2.25") << c.name;
    // Tension is at the upper side of a fixed end: the ordinate stands up there.
    EXPECT_NEAR(list[std::string_view(c.start) == "0.00" ? 20 : 0].y2, 10000 - 1440, 1e-3) << c.name;
  }
}

TEST_F(DiagramTest, GridMovesByItsVerticalDisplacementAlone) {
  figure_.model.modelCode = kPlaneGrid;
  figure_.oblique = true;
  figure_.projection = Projection(0, 0, 0, 0, 0);
  AddMember({1, 5}, {5, 5}, {});
  figure_.model.DisplacementTable = {{.x = 0}, {.x = -0.02, .y = 9, .rotation = 9}};
  ExpectList(Draw(DrawDisplacementData, layer::kDisplacement),
             {LineOf({6000, 10000}, {10000, 11440}, 16711680, layer::kDisplacement)});
}

class RatioFigureTest : public DiagramTest {
 protected:
  RatioFigureTest() {
    constexpr double kNone = std::numeric_limits<double>::infinity();
    const struct {
      double lower, upper;
      Rgb colour;
    } classes[] = {{1.0, kNone, 11}, {0.9, 1.0, 12}, {0.5, 0.9, 13},
                   {0.3, 0.5, 14},   {0.0, 0.3, 15}, {0.0, kNone, 16}};
    for (std::size_t n = 0; n < 6; ++n)
      figure_.options.ratioClass[n] = {classes[n].lower, classes[n].upper, {.colour = classes[n].colour}};
    for (int n = 0; n < 3; ++n) AddMember({1, 2.0 * n}, {5, 2.0 * n}, {});
  }
};

TEST_F(RatioFigureTest, MembersHaveThePenAndTheNumberOfTheirRatio) {
  figure_.model.ratios = {1.25, 0.4, std::nan("")};
  const std::vector<DrawOperation> list = Draw(DrawRatioData, layer::kModel);
  ASSERT_EQ(list.size(), 5U);
  ExpectList({list[0], list[1], list[2]}, {LineOf({6000, 10000}, {10000, 10000}, 11, layer::kModel),
                                           LineOf({6000, 8000}, {10000, 8000}, 14, layer::kModel),
                                           LineOf({6000, 6000}, {10000, 6000}, 16, layer::kModel)});
  EXPECT_EQ(list[3].text, "1.250");
  EXPECT_EQ(list[4].text, "0.400");
}

TEST_F(RatioFigureTest, ClassThatIsOffIsNotDrawn) {
  figure_.model.ratios = {1.25, 0.4, 0.4};
  figure_.options.ratioClass[3].line.visible = false;
  EXPECT_EQ(Draw(DrawRatioData, layer::kModel).size(), 2U);
}

TEST_F(RatioFigureTest, WithoutRatiosEveryMemberIsOfTheLastClass) {
  for (const DrawOperation& line : Draw(DrawRatioData, layer::kModel)) EXPECT_EQ(line.colour, 16);
}

}  // namespace
}  // namespace zorlan

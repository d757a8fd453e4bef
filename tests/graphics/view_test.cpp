#include "graphics/view.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zorlan {
namespace {

View Fitted(std::initializer_list<Point> points, double width, double height) {
  View view;
  SetExtent(view, std::vector<Point>(points));
  FitWindow(view, width, height);
  return view;
}

TEST(View, ASingleNodeHasADefaultExtentAndASmallWindow) {
  const View view = Fitted({{0, 0}}, 1300, 1300);
  EXPECT_EQ(view.tVxmin, -0.1);
  EXPECT_EQ(view.tVxmax, 0.1);
  EXPECT_EQ(view.tVymin, -0.1);
  EXPECT_EQ(view.tVymax, 0.1);
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.26 / 1300);
  EXPECT_DOUBLE_EQ(view.Vxmax - view.Vxmin, 0.26);
}

TEST(View, NoNodesHaveTheDefaultExtent) {
  const View view = Fitted({}, 1300, 1300);
  EXPECT_EQ(view.tVxmin, -0.1);
  EXPECT_EQ(view.tVymax, 0.1);
}

TEST(View, ABeamOffTheAxisLiesInItsOwnWindow) {
  const View view = Fitted({{0, 30}, {10, 30}}, 1300, 1000);
  EXPECT_DOUBLE_EQ(view.tVymin, 29.9);
  EXPECT_DOUBLE_EQ(view.tVymax, 30.1);
  EXPECT_LT(view.Vymin, 30);
  EXPECT_GT(view.Vymax, 30);
}

// 10 wide, 6 high: 13 x 7.8, on 1300 x 1300 twips at 0.01 m a twip, the window centred at (5, 3).
TEST(View, TheWindowLeavesAMarginAndKeepsTheMiddle) {
  const View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.01);
  EXPECT_DOUBLE_EQ(view.Vxmin, -1.5);
  EXPECT_DOUBLE_EQ(view.Vxmax, 11.5);
  EXPECT_DOUBLE_EQ(view.Vymin, -3.5);
  EXPECT_DOUBLE_EQ(view.Vymax, 9.5);
  EXPECT_DOUBLE_EQ(view.WorldToFigureX(10), 1150);
  EXPECT_DOUBLE_EQ(view.WorldToFigureY(6), 350);  // upward in the model, downward in the figure
  const Point back = view.ToWorld({1150, 350});
  EXPECT_DOUBLE_EQ(back.x, 10);
  EXPECT_DOUBLE_EQ(back.y, 6);
}

// 30 wide, 1 high: 39 x 1.3, and 1.3 is below 3.9, so the height counts as 13: on an area of 3900 x 130 the
// height decides, 13/130 = 0.1 m a twip.
TEST(View, AFrameWideAndFlatHasAWindowOfAThirdOfItsWidth) {
  EXPECT_DOUBLE_EQ(Fitted({{0, 0}, {30, 1}}, 3900, 130).Vvkei, 0.1);
  EXPECT_DOUBLE_EQ(Fitted({{0, 0}, {1, 30}}, 130, 3900).Vvkei, 0.1);
  EXPECT_DOUBLE_EQ(Fitted({{0, 0}, {30, 3.1}}, 3900, 130).Vvkei, 1.3 * 3.1 / 130);  // just not so flat
}

TEST(View, PointsThatAreNoNumbersDoNotCount) {
  constexpr double kBad = std::numeric_limits<double>::quiet_NaN(),
                   kFar = std::numeric_limits<double>::infinity();
  const View view = Fitted({{0, 0}, {kBad, 5}, {5, kFar}, {10, 6}}, 1300, 1300);
  EXPECT_DOUBLE_EQ(view.tVxmax, 10);
  EXPECT_DOUBLE_EQ(view.tVymax, 6);
}

TEST(View, AnAreaWithoutSizeAndEndlessExtentsLeaveAFiniteScale) {
  for (const double size : {0.0, -10.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(Fitted({{0, 0}, {10, 6}}, size, size).Vvkei, 1);
    EXPECT_EQ(Fitted({{0, 0}, {10, 6}}, 1000, size).Vvkei, 1);
  }
  EXPECT_EQ(Fitted({{-1.7e308, 0}, {1.7e308, 0}}, 1000, 1000).Vvkei, 1);
}

// W = 12000, H = 6000.
TEST(View, CellsOfTheSixLayouts) {
  struct CellCase {
    int layout, cell;
    double width, height, x, y;
  };
  constexpr CellCase kCases[] = {
      {0, 0, 12000, 6000, 0, 0},      {0, 1, 12000, 6000, 0, 0},    {1, 0, 6000, 6000, 0, 0},
      {1, 1, 6000, 6000, 6000, 0},    {2, 0, 12000, 3000, 0, 0},    {2, 1, 12000, 3000, 0, 3000},
      {3, 0, 4000, 6000, 0, 0},       {3, 1, 4000, 6000, 4000, 0},  {3, 2, 4000, 6000, 8000, 0},
      {4, 0, 12000, 2000, 0, 0},      {4, 1, 12000, 2000, 0, 2000}, {4, 2, 12000, 2000, 0, 4000},
      {5, 0, 6000, 3000, 0, 0},       {5, 1, 6000, 3000, 6000, 0},  {5, 2, 6000, 3000, 0, 3000},
      {5, 3, 6000, 3000, 6000, 3000}, {5, 4, 6000, 3000, 0, 0},     {-1, 0, 12000, 6000, 0, 0},
      {6, 2, 12000, 6000, 0, 0},      {2, -1, 12000, 3000, 0, 0},
  };
  for (const CellCase& c : kCases) {
    const Cell cell = CellOf(c.layout, c.cell, 12000, 6000);
    EXPECT_EQ(cell.width, c.width) << c.layout << '/' << c.cell;
    EXPECT_EQ(cell.height, c.height) << c.layout << '/' << c.cell;
    EXPECT_EQ(cell.x, c.x) << c.layout << '/' << c.cell;
    EXPECT_EQ(cell.y, c.y) << c.layout << '/' << c.cell;
  }
  constexpr int kCounts[] = {1, 2, 2, 3, 3, 4};
  for (int layout = 0; layout < kLayouts; ++layout) EXPECT_EQ(CellCount(layout), kCounts[layout]);
}

TEST(View, ZoomingKeepsThePointUnderTheHand) {
  View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);
  const Point before = view.ToWorld({200, 300});
  ZoomAbout(view, {200, 300}, 2);
  const Point after = view.ToWorld({200, 300});
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.005);
  EXPECT_DOUBLE_EQ(after.x, before.x);
  EXPECT_DOUBLE_EQ(after.y, before.y);
  EXPECT_DOUBLE_EQ(view.Vxmax - view.Vxmin, 6.5);
}

TEST(View, ZoomingEndsWhereNothingIsLeftToSee) {
  View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);
  for (int k = 0; k < 3000; ++k) ZoomAbout(view, {650, 650}, 2);
  EXPECT_GT(view.Vvkei, 0);
  for (int k = 0; k < 3000; ++k) ZoomAbout(view, {650, 650}, 0.5);
  EXPECT_TRUE(std::isfinite(view.Vvkei));
  ZoomAbout(view, {0, 0}, 0);
  ZoomAbout(view, {0, 0}, -1);
  EXPECT_GT(view.Vvkei, 0);
}

TEST(View, MovingTakesTheFigureAlong) {
  View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);
  MoveBy(view, 100, 50);
  EXPECT_DOUBLE_EQ(view.WorldToFigureX(10), 1250);
  EXPECT_DOUBLE_EQ(view.WorldToFigureY(6), 400);
}

TEST(View, TheWholeWindowIsKeptOnAnotherArea) {
  View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);  // 13 x 13 m
  KeepWindow(view, 650, 2600);
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.02);
  EXPECT_DOUBLE_EQ(view.Vxmin, -1.5);
  EXPECT_DOUBLE_EQ(view.Vymin, 3 - 26);
  KeepCentre(view, 1300, 1300);  // the same scale, the same middle
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.02);
  EXPECT_DOUBLE_EQ(view.Vxmin, 5 - 13);
  EXPECT_DOUBLE_EQ(view.Vymax, 3 + 13);
}

TEST(View, ARectangleIsShownAsLargeAsTheAreaTakesIt) {
  View view = Fitted({{0, 0}, {10, 6}}, 1300, 1300);  // 0.01 m a twip
  ZoomToRectangle(view, {1150, 350}, {1020, 415}, 1300, 1300);
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.001);
  EXPECT_NEAR(view.WorldToFigureX(10), 1300, 1e-9);
  EXPECT_NEAR(view.WorldToFigureY(6), 325, 1e-9);
  ZoomToRectangle(view, {5, 5}, {5, 5}, 1300, 1300);  // no rectangle
  EXPECT_DOUBLE_EQ(view.Vvkei, 0.001);
}

TEST(ViewingRange, ANodeOnALimitIsInside) {
  const ViewingRange range{.xLower = 0, .xUpper = 10, .yLower = -1, .yUpper = 6};
  EXPECT_TRUE(range.Holds(0, -1));
  EXPECT_TRUE(range.Holds(10, 6));
  EXPECT_FALSE(range.Holds(-0.001, 0));
  EXPECT_FALSE(range.Holds(10.001, 0));
  EXPECT_FALSE(range.Holds(5, 6.001));
  EXPECT_FALSE(range.Holds(5, -1.001));
  EXPECT_FALSE(range.Holds(std::numeric_limits<double>::quiet_NaN(), 0));
}

// From straight above the plan lies in the figure as it is, whatever the height; from its own height (tilt 0)
// only the vertical is left. Turned by 90 degrees, x points upward in the figure.
TEST(Projection, TurnsAboutTheVerticalAxisThenLaysThePlaneBack) {
  const Projection above(0, 0, 0, 0, 90);
  EXPECT_NEAR(above.ProjectPoint(3, 4, 5).x, 3, 1e-12);
  EXPECT_NEAR(above.ProjectPoint(3, 4, 5).y, 4, 1e-12);
  const Projection level(0, 0, 0, 0, 0);
  EXPECT_NEAR(level.ProjectPoint(3, 4, 5).x, 3, 1e-12);
  EXPECT_NEAR(level.ProjectPoint(3, 4, 5).y, 5, 1e-12);
  const Projection turned(0, 0, 0, 90, 90);
  EXPECT_NEAR(turned.ProjectPoint(3, 4, 5).x, -4, 1e-12);
  EXPECT_NEAR(turned.ProjectPoint(3, 4, 5).y, 3, 1e-12);
  // 30 degrees each: (1, 0, 0) goes to (cos 30, sin 30 sin 30), the vertical to (0, cos 30).
  const Projection oblique(0, 0, 0, 30, 30);
  EXPECT_NEAR(oblique.ProjectPoint(1, 0, 0).x, std::sqrt(3) / 2, 1e-12);
  EXPECT_NEAR(oblique.ProjectPoint(1, 0, 0).y, 0.25, 1e-12);
  EXPECT_NEAR(oblique.ProjectPoint(0, 0, 1).x, 0, 1e-12);
  EXPECT_NEAR(oblique.ProjectPoint(0, 0, 1).y, std::sqrt(3) / 2, 1e-12);
}

TEST(Projection, TheCentreOfTheExtentsStaysWhereItIs) {
  const Point p = Projection(5, 7, 0, 30, 30).ProjectPoint(5, 7, 0);
  EXPECT_NEAR(p.x, 5, 1e-12);
  EXPECT_NEAR(p.y, 7, 1e-12);
}

}  // namespace
}  // namespace zorlan

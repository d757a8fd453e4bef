#include "graphics/labels.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

namespace zorlan {
namespace {

constexpr Rectangle kArea = {0, 0, 4000, 2000};
constexpr Rectangle kFirst = {100, 100, 300, 260}, kSecond = {400, 100, 600, 260};

bool IsFree(const LabelField& field, const Rectangle& box) {
  return field.CoveredBy(box).Nothing();
}

TEST(LabelField, ALabelTakesTheFirstFreePlace) {
  LabelField field(kArea);
  const std::array boxes = {kFirst, kSecond};
  EXPECT_EQ(field.Place(boxes), 0);
  EXPECT_EQ(field.Place(boxes), 1);
  EXPECT_EQ(field.Place(boxes), 0);  // none is free, and both are covered as much: the better of them
}

TEST(LabelField, ALabelRatherCrossesALineThanHidesAText) {
  LabelField field(kArea);
  field.Take({280, 100, 300, 120});  // a corner of the first place
  field.TakeLine({400, 100}, {600, 260});
  const std::array boxes = {kFirst, kSecond};
  EXPECT_EQ(field.Place(boxes), 1);
}

TEST(LabelField, AmongPlacesOnLinesTheLeastCoveredIsTaken) {
  LabelField field(kArea);
  field.TakeLine({100, 180}, {300, 180});  // along the first place
  field.TakeLine({500, 0}, {500, 2000});   // across the second one, which is lower than it is wide
  const std::array boxes = {kFirst, kSecond};
  EXPECT_EQ(field.Place(boxes), 1);
}

TEST(LabelField, AmongPlacesOnTextsTheLeastCoveredIsTaken) {
  LabelField field(kArea);
  field.Take(kFirst);
  field.Take({400, 100, 500, 260});  // half of the second place
  const std::array boxes = {kFirst, kSecond};
  EXPECT_EQ(field.Place(boxes), 1);
}

TEST(LabelField, AMarkCountsAsLines) {
  LabelField field(kArea);
  field.TakeMark(kFirst);
  EXPECT_EQ(field.CoveredBy(kFirst).texts, 0);
  EXPECT_GT(field.CoveredBy(kFirst).lines, 0);
}

TEST(LabelField, NothingLiesOnALine) {
  LabelField field(kArea);
  field.TakeLine({200, 0}, {200, 2000});
  EXPECT_FALSE(IsFree(field, kFirst));
  EXPECT_TRUE(IsFree(field, kSecond));
  field.TakeLine({0, 0}, {4000, 2000});  // passes below the second box, through (2000, 1000)
  EXPECT_FALSE(IsFree(field, {1980, 980, 2020, 1020}));
  EXPECT_TRUE(IsFree(field, {2000, 1100, 2100, 1200}));
}

TEST(LabelField, LinesToTheEdgesStayInside) {
  const Rectangle area = {0, 0, 1999.9999999999998, 1000.0000000000001};  // cells end a digit off its edges
  LabelField field(area);
  const std::array<Point, 4> corners = {
      {{0, 0}, {area.right, 0}, {0, area.bottom}, {area.right, area.bottom}}};
  for (const Point from : corners)
    for (const Point to : corners) field.TakeLine(from, to);
  for (const Point p : corners) EXPECT_FALSE(IsFree(field, {p.x, p.y, p.x, p.y})) << p.x << " " << p.y;
  EXPECT_TRUE(IsFree(field, {900, 100, 1100, 300}));
}

// Steps of 7 twips, cells of 20: none of the cells that the curve passes is left out.
TEST(LabelField, ACurveOfFineChordsCoversWhatItsChordsCover) {
  LabelField field(kArea);
  std::vector<Point> points;
  for (int k = 0; k <= 100; ++k) points.push_back({100 + 7.0 * k, 300 + 0.02 * (k - 50) * (k - 50)});
  field.TakePolyline(points);
  for (const Point p : points) EXPECT_FALSE(IsFree(field, {p.x - 10, p.y - 10, p.x + 10, p.y + 10})) << p.x;
  EXPECT_TRUE(IsFree(field, {100, 400, 800, 600}));
}

TEST(LabelField, LinesBetweenTwoPointsAreCounted) {
  LabelField field(kArea);
  field.TakeLine({0, 500}, {4000, 500});
  EXPECT_EQ(field.LinesBetween({1000, 100}, {1000, 400}), 0);
  EXPECT_EQ(field.LinesBetween({1000, 100}, {1000, 900}), 1);
}

TEST(Crowding, APartIsFullWhenItsLabelsNeedSeveralTimesItsRoom) {
  Crowding crowding(kArea);
  for (int k = 0; k < 10; ++k) crowding.Add({2500, 500}, 500, 200);  // 1000 x 1000 twips hold them just so
  EXPECT_FALSE(crowding.IsFull({2500, 500}));
  for (int k = 0; k < 11; ++k) crowding.Add({2500, 500}, 500, 200);
  EXPECT_TRUE(crowding.IsFull({2500, 500}));
  EXPECT_FALSE(crowding.IsFull({500, 500}));
}

TEST(Crowding, WhatLiesOutsideCountsAtTheEdge) {
  constexpr double kBad = std::numeric_limits<double>::quiet_NaN(),
                   kFar = std::numeric_limits<double>::infinity();
  Crowding crowding(kArea);
  for (const Point p : {Point{-1e300, -kFar}, {kBad, kBad}}) crowding.Add(p, 2000, 2000);
  EXPECT_TRUE(crowding.IsFull({0, 0}));
  EXPECT_FALSE(crowding.IsFull({kFar, 1e300}));
  EXPECT_FALSE(Crowding({0, 0, kBad, 10}).IsFull({0, 0}));
}

TEST(LabelField, WideBoxesAreTakenToTheirEdges) {
  LabelField field(kArea);
  field.Take({100, 100, 3900, 150});
  for (double x = 110; x < 3900; x += 60) EXPECT_FALSE(IsFree(field, {x, 110, x + 1, 111})) << x;
  EXPECT_TRUE(IsFree(field, {0, 100, 70, 150}));
  EXPECT_TRUE(IsFree(field, {3930, 100, 3990, 150}));
  EXPECT_TRUE(IsFree(field, {0, 180, 4000, 400}));
}

TEST(LabelField, WhatLiesOutsideIsFreeAndHarmless) {
  constexpr double kBad = std::numeric_limits<double>::quiet_NaN(),
                   kFar = std::numeric_limits<double>::infinity();
  LabelField field(kArea);
  for (const Rectangle& box :
       {Rectangle{-500, -500, -300, -300}, Rectangle{5000, 0, 6000, 100}, Rectangle{0, 3000, 100, 4000},
        Rectangle{kBad, 0, kBad, 10}, Rectangle{1e300, 1e300, kFar, kFar}}) {
    field.Take(box);
    EXPECT_TRUE(IsFree(field, box));
  }
  field.TakeLine({kBad, 0}, {100, 100});
  field.TakeLine({-1e300, 500}, {1e300, 500});
  EXPECT_FALSE(IsFree(field, {2000, 490, 2100, 510}));
}

TEST(LabelField, AnAreaWithoutSizeHasRoomForNothingAndHarmsNothing) {
  constexpr double kBad = std::numeric_limits<double>::quiet_NaN();
  for (const Rectangle& area : {Rectangle{0, 0, 0, 0}, Rectangle{0, 0, -5, 10}, Rectangle{0, 0, kBad, 10},
                                Rectangle{0, 0, 1e300, 1e300}}) {
    LabelField field(area);
    const std::array boxes = {kFirst, kSecond};
    field.Take(kFirst);
    field.TakeLine({0, 0}, {100, 100});
    EXPECT_LT(field.Place(boxes), 2);
  }
}

}  // namespace
}  // namespace zorlan

#include "graphics/labels.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace zorlan {
namespace {

constexpr Rectangle kArea = {0, 0, 4000, 2000};
constexpr Rectangle kFirst = {100, 100, 300, 260}, kSecond = {400, 100, 600, 260};

TEST(LabelField, ALabelTakesTheFirstFreePlace) {
  LabelField field(kArea);
  const std::array boxes = {kFirst, kSecond};
  EXPECT_EQ(field.Place(boxes), 0);
  EXPECT_EQ(field.Place(boxes), 1);
  EXPECT_EQ(field.Place(boxes), 0);  // none is free: the best of them
}

TEST(LabelField, NothingLiesOnALine) {
  LabelField field(kArea);
  field.TakeLine({200, 0}, {200, 2000});
  EXPECT_FALSE(field.Free(kFirst));
  EXPECT_TRUE(field.Free(kSecond));
  field.TakeLine({0, 0}, {4000, 2000});  // passes below the second box, through (2000, 1000)
  EXPECT_FALSE(field.Free({1980, 980, 2020, 1020}));
  EXPECT_TRUE(field.Free({2000, 1100, 2100, 1200}));
}

TEST(LabelField, ClearingFreesEverything) {
  LabelField field(kArea);
  field.Take(kArea);
  EXPECT_FALSE(field.Free(kFirst));
  field.Clear();
  EXPECT_TRUE(field.Free(kFirst));
}

TEST(LabelField, WideBoxesAreTakenToTheirEdges) {
  LabelField field(kArea);
  field.Take({100, 100, 3900, 150});
  for (double x = 110; x < 3900; x += 60) EXPECT_FALSE(field.Free({x, 110, x + 1, 111})) << x;
  EXPECT_TRUE(field.Free({0, 100, 70, 150}));
  EXPECT_TRUE(field.Free({3930, 100, 3990, 150}));
  EXPECT_TRUE(field.Free({0, 180, 4000, 400}));
}

TEST(LabelField, WhatLiesOutsideIsFreeAndHarmless) {
  constexpr double kBad = std::numeric_limits<double>::quiet_NaN(),
                   kFar = std::numeric_limits<double>::infinity();
  LabelField field(kArea);
  for (const Rectangle& box :
       {Rectangle{-500, -500, -300, -300}, Rectangle{5000, 0, 6000, 100}, Rectangle{0, 3000, 100, 4000},
        Rectangle{kBad, 0, kBad, 10}, Rectangle{1e300, 1e300, kFar, kFar}}) {
    field.Take(box);
    EXPECT_TRUE(field.Free(box));
  }
  field.TakeLine({kBad, 0}, {100, 100});
  field.TakeLine({-1e300, 500}, {1e300, 500});
  EXPECT_FALSE(field.Free({2000, 490, 2100, 510}));
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

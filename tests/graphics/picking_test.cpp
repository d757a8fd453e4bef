#include "graphics/picking.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "figures.h"

namespace zorlan {
namespace {

using test::FigureOf;
using test::ModelBuilder;
using test::Recorder;

TEST(Picking, DistanceOfAPointFromASegment) {
  EXPECT_DOUBLE_EQ(LinePointDist({0, 0}, {10, 0}, {5, 3}), 3);
  EXPECT_DOUBLE_EQ(LinePointDist({0, 0}, {10, 0}, {14, 3}), 5);  // beyond the end: from the end
  EXPECT_DOUBLE_EQ(LinePointDist({0, 0}, {10, 0}, {-3, -4}), 5);
  EXPECT_DOUBLE_EQ(LinePointDist({0, 0}, {8, 6}, {4, 3}), 0);
  EXPECT_DOUBLE_EQ(LinePointDist({2, 2}, {2, 2}, {5, 6}), 5);  // no length
}

/// A portal of 10 x 10 m: on 13000 x 13000 twips from (1500, 1500) to (11500, 11500).
Figure Portal() {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(0, 10);
  b.Node(10, 10);
  b.Node(10, 0);
  b.Element(1, 2);
  b.Element(2, 3);
  b.Element(3, 4);
  b.model.Elem[2].number = 77;
  Figure figure = FigureOf(b.model);
  Recorder surface(13000, 13000);
  Plot plot(surface);
  PrepareFigure(plot, "", figure, kModelFigure, 0, 0);
  return figure;
}

TEST(Picking, TheNearestNodeWithinTheToleranceIsPicked) {
  const Figure figure = Portal();
  const auto pick = PickAt(figure, {1500 + 90, 1500 + 120});
  ASSERT_TRUE(pick);
  EXPECT_EQ(pick->what, Pick::What::Node);
  EXPECT_EQ(pick->number, 2);
  EXPECT_EQ(pick->index, 1);
  EXPECT_FALSE(PickNode(figure, {1500 + 91, 1500 + 121}));
}

TEST(Picking, AwayFromNodesTheNearestMemberIsPicked) {
  const Figure figure = Portal();
  const auto pick = PickAt(figure, {6500, 1600});
  ASSERT_TRUE(pick);
  EXPECT_EQ(pick->what, Pick::What::Element);
  EXPECT_EQ(pick->number, 77);
  EXPECT_EQ(pick->index, 1);
  EXPECT_FALSE(PickAt(figure, {6500, 6500}));
}

TEST(Picking, TheNearerOfTwoIsPickedAndOfEqualOnesTheFirst) {
  const Figure figure = Portal();
  EXPECT_EQ(PickNode(figure, {6600, 1500}, 10000)->number, 3);
  EXPECT_EQ(PickNode(figure, {6500, 1500}, 10000)->number, 2);
  EXPECT_EQ(PickElement(figure, {6400, 6500}, 10000)->number, 1);
  EXPECT_EQ(PickElement(figure, {6600, 6500}, 10000)->number, 3);
}

TEST(Picking, WhatIsNotShownIsNotPicked) {
  Figure figure = Portal();
  figure.range.yLower = 5;
  Recorder surface(13000, 13000);
  Plot plot(surface);
  figure.FigureFlags = kDataUnchanged;
  PrepareFigure(plot, "", figure, kModelFigure, 0, 0);
  EXPECT_FALSE(PickNode(figure, {1500, 11500}));
  EXPECT_FALSE(PickElement(figure, {1500, 9000}));
  EXPECT_TRUE(PickNode(figure, {1500, 1500}));
}

TEST(Picking, StepsLeadAroundWhatIsShown) {
  Figure figure = Portal();
  const auto steps = [&](Pick::What what, int step, int count) {
    std::vector<int> numbers;
    std::optional<Pick> at;
    for (int i = 0; i < count; ++i) {
      at = NextPick(figure, at, what, step);
      numbers.push_back(at ? at->number : 0);
    }
    return numbers;
  };
  EXPECT_EQ(steps(Pick::What::Node, 1, 5), (std::vector{1, 2, 3, 4, 1}));
  EXPECT_EQ(steps(Pick::What::Node, -1, 5), (std::vector{4, 3, 2, 1, 4}));
  EXPECT_EQ(steps(Pick::What::Element, 1, 4), (std::vector{1, 77, 3, 1}));
  EXPECT_EQ(NextPick(figure, Pick{Pick::What::Element, 1, 77}, Pick::What::Node, 1)->number, 1);
  figure.range.yLower = 5;  // the feet are out of the range
  Recorder surface(13000, 13000);
  Plot plot(surface);
  figure.FigureFlags = kDataUnchanged;
  PrepareFigure(plot, "", figure, kModelFigure, 0, 0);
  EXPECT_EQ(steps(Pick::What::Node, 1, 3), (std::vector{2, 3, 2}));
  EXPECT_EQ(steps(Pick::What::Element, -1, 2), (std::vector{77, 77}));
}

TEST(Picking, ANumberIsPickedWhereItIsShown) {
  const Figure figure = Portal();
  EXPECT_EQ(PickNumber(figure, Pick::What::Element, 77)->index, 1);
  EXPECT_EQ(PickNumber(figure, Pick::What::Node, 4)->index, 3);
  EXPECT_FALSE(PickNumber(figure, Pick::What::Node, 77));
  EXPECT_FALSE(PickNumber(figure, Pick::What::Node, 0));
}

TEST(Picking, AFigureThatWasNeverDrawnHasNothingToPick) {
  const Figure figure;
  EXPECT_FALSE(NextPick(figure, std::nullopt, Pick::What::Node, 1));
  EXPECT_FALSE(PickNumber(figure, Pick::What::Element, 1));
  EXPECT_FALSE(PickAt(figure, {0, 0}));
  EXPECT_FALSE(PickAt(Portal(), {std::numeric_limits<double>::quiet_NaN(), 0}));
}

}  // namespace
}  // namespace zorlan

#include "graphics/diagram_curves.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace zorlan {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct MemberCase {
  const char* name;
  Point i, j;
  Point start;
  double L, cosine, sine;
  bool exchanged;
};
const MemberCase kMemberCases[] = {
    {"level, left to right", {1, 5}, {5, 5}, {1, 5}, 4, 1, 0, false},
    {"level, right to left", {5, 5}, {1, 5}, {1, 5}, 4, 1, 0, true},
    {"rising", {0, 0}, {3, 4}, {0, 0}, 5, 0.6, 0.8, false},
    {"rising, entered from above", {3, 4}, {0, 0}, {0, 0}, 5, 0.6, 0.8, true},
    {"falling", {0, 4}, {3, 0}, {0, 4}, 5, 0.6, -0.8, false},
    {"vertical, from below", {2, 1}, {2, 5}, {2, 1}, 4, 0, 1, false},
    {"vertical, from above: it starts below all the same", {2, 5}, {2, 1}, {2, 1}, 4, 0, 1, true},
};
TEST(DiagramMember, StartsAtItsLeftOrLowerEnd) {
  for (const MemberCase& c : kMemberCases) {
    const auto member = MemberFromStart(c.i, c.j);
    ASSERT_TRUE(member) << c.name;
    EXPECT_EQ(member->xi, c.start.x) << c.name;
    EXPECT_EQ(member->yi, c.start.y) << c.name;
    EXPECT_DOUBLE_EQ(member->L, c.L) << c.name;
    EXPECT_DOUBLE_EQ(member->cosine, c.cosine) << c.name;
    EXPECT_DOUBLE_EQ(member->sine, c.sine) << c.name;
    EXPECT_DOUBLE_EQ(member->theta, std::atan2(c.sine, c.cosine)) << c.name;
    EXPECT_EQ(member->exchanged, c.exchanged) << c.name;
  }
}

TEST(DiagramMember, NeedsALength) {
  EXPECT_FALSE(MemberFromStart({1, 2}, {1, 2}));
  EXPECT_FALSE(MemberFromStart({1, kNaN}, {2, 2}));
  EXPECT_FALSE(MemberFromStart({-1e308, 0}, {1.7e308, 0}));
}

TEST(DiagramMember, LabelsFollowItsSlopeByTheShorterPi) {
  const auto angle = [](Point i, Point j) { return LabelAngle(*MemberFromStart(i, j)); };
  EXPECT_EQ(angle({0, 0}, {4, 0}), 0);
  EXPECT_EQ(angle({0, 4}, {0, 0}), 90);
  EXPECT_EQ(angle({0, 0}, {1, 1}), std::atan(1.0) / 3.1415926 * 180);
  EXPECT_NE(angle({0, 0}, {1, 1}), 45);
  EXPECT_NEAR(angle({0, 0}, {1, 1}), 45, 1e-6);
  EXPECT_NEAR(angle({0, 3}, {4, 0}), -36.8698976, 1e-6);
}

// A record with a value of its own in every place.
constexpr StressRecord kRecord = {
    .axialI = 1, .momentI = 2, .momentC = 3, .momentJ = 4, .axialJ = 5, .shearI = 6, .shearJ = 7};

TEST(DiagramValues, MomentsAreExchangedWithTheEndsAndTheCentreChangesSign) {
  const MomentValues straight = MomentsFromStart(kRecord, false), exchanged = MomentsFromStart(kRecord, true);
  EXPECT_EQ((std::array{straight.start, straight.centre, straight.end}), (std::array{2.0, 3.0, 4.0}));
  EXPECT_EQ((std::array{exchanged.start, exchanged.centre, exchanged.end}), (std::array{4.0, -3.0, 2.0}));
}

// A tie of 5 t: its end I is pulled along -x, its end J along +x.
TEST(DiagramValues, TensionIsPositiveAtBothEnds) {
  const StressRecord tie = {.axialI = -5, .axialJ = 5};
  for (const bool exchanged : {false, true}) {
    const EndValues axial = AxialFromStart(tie, exchanged);
    EXPECT_EQ(axial.start, 5);
    EXPECT_EQ(axial.end, 5);
  }
  const EndValues exchanged = AxialFromStart(kRecord, true);
  EXPECT_EQ(exchanged.start, 5);
  EXPECT_EQ(exchanged.end, -1);
}

// A beam without a load on it is held up with 3 t at its left end and pushed down with 3 t at its right one.
// Entered from the right, its y axis points down: the left end, J, then has Q = -3, the right one 3.
TEST(DiagramValues, ShearIsTheSameFromEitherEnd) {
  const EndValues straight = ShearFromStart({.shearI = 3, .shearJ = -3}, false, false);
  EXPECT_EQ(straight.start, 3);
  EXPECT_EQ(straight.end, 3);
  const EndValues exchanged = ShearFromStart({.shearI = 3, .shearJ = -3}, true, false);
  EXPECT_EQ(exchanged.start, 3);
  EXPECT_EQ(exchanged.end, 3);
}

// The same beam in a grid, entered from the right: the vertical stays, so the left end, J, is held up with 3.
TEST(DiagramValues, ShearOfAGridIsTheSameFromEitherEnd) {
  for (const auto& [record, exchanged] : {std::pair(StressRecord{.shearI = 3, .shearJ = -3}, false),
                                          std::pair(StressRecord{.shearI = -3, .shearJ = 3}, true)}) {
    const EndValues shear = ShearFromStart(record, exchanged, true);
    EXPECT_EQ(shear.start, 3);
    EXPECT_EQ(shear.end, 3);
  }
}

TEST(DiagramValues, MomentsOfAGridHaveTheRecordsSignsInTheLabelsAndUprightOrdinates) {
  const auto values = [](const MomentValues& m) { return std::array{m.start, m.centre, m.end}; };
  for (const bool grid : {false, true}) {
    EXPECT_EQ(values(MomentLabels(kRecord, false, grid)), (std::array{2.0, 3.0, 4.0}));
    EXPECT_EQ(values(MomentOrdinates(kRecord, false, grid)), (std::array{2.0, 3.0, 4.0}));
  }
  EXPECT_EQ(values(MomentLabels(kRecord, true, false)), (std::array{4.0, -3.0, 2.0}));
  EXPECT_EQ(values(MomentOrdinates(kRecord, true, false)), (std::array{4.0, -3.0, 2.0}));
  EXPECT_EQ(values(MomentLabels(kRecord, true, true)), (std::array{4.0, 3.0, 2.0}));
  EXPECT_EQ(values(MomentOrdinates(kRecord, true, true)), (std::array{-4.0, 3.0, -2.0}));
}

TEST(HasOrdinates, IsJudgedBesideTheGreatestOfAllForces) {
  EXPECT_FALSE(HasOrdinates(0, 0));
  EXPECT_FALSE(HasOrdinates(4.6e-9, 1280));
  EXPECT_TRUE(HasOrdinates(4.6e-9, 1));
  EXPECT_FALSE(HasOrdinates(1.4e-14, 1.4e-14)) << "a warmed frame that nothing holds back";
}

TEST(DiagramScale, MakesTheGreatestValueAsHighAsTheOptionSays) {
  // 2.54 cm are 1440 twips; at 0.001 m a twip that is 1.44 m in the model, for G = 4: 0.36 m a unit.
  EXPECT_DOUBLE_EQ(DiagramScale(2.54 * kTwipsPerCm, 0.001, 4), 0.36);
  EXPECT_EQ(DiagramScale(1440, 0.001, 0), 1);
  EXPECT_EQ(DiagramScale(1440, 0.001, kNaN), 1);
  EXPECT_EQ(DiagramScale(1440, 0.001, 1e-320), 1);
}

struct ParabolaCase {
  const char* name;
  double Mi, Mc, Mj, L;
  double a, b, c;
};
// Through Mi at 0, -Mc at L/2, -Mj at L.
const ParabolaCase kParabolaCases[] = {
    {"both ends fixed, uniform load", 4, 2, -4, 4, 1.5, -6, 4},
    {"simple beam", 0, 8, 0, 4, 2, -8, 0},
    {"cantilever at the start", 6, -3, 0, 4, 0, -1.5, 6},
    {"constant moment", 5, -5, -5, 10, 0, 0, 5},
};
TEST(MomentParabola, GoesThroughStartCentreAndEnd) {
  for (const ParabolaCase& k : kParabolaCases) {
    const Parabola m = MomentParabola(k.Mi, k.Mc, k.Mj, k.L);
    EXPECT_DOUBLE_EQ(m.a, k.a) << k.name;
    EXPECT_DOUBLE_EQ(m.b, k.b) << k.name;
    EXPECT_DOUBLE_EQ(m.c, k.c) << k.name;
    EXPECT_NEAR(m.At(0), k.Mi, 1e-12) << k.name;
    EXPECT_NEAR(m.At(k.L / 2), -k.Mc, 1e-12) << k.name;
    EXPECT_NEAR(m.At(k.L), -k.Mj, 1e-12) << k.name;
  }
}

TEST(OrdinatePoint, LiesOnTheLeftOfTheDirection) {
  const Point level = OrdinatePoint(*MemberFromStart({1, 5}, {5, 5}), 1, 2);
  EXPECT_EQ(level.x, 2);
  EXPECT_EQ(level.y, 7);
  const Point vertical = OrdinatePoint(*MemberFromStart({2, 1}, {2, 5}), 1, 0.5);
  EXPECT_EQ(vertical.x, 1.5);
  EXPECT_EQ(vertical.y, 2);
  const Point sloping = OrdinatePoint(*MemberFromStart({0, 0}, {3, 4}), 2.5, 5);  // (1.5 - 4, 2 + 3)
  EXPECT_DOUBLE_EQ(sloping.x, -2.5);
  EXPECT_DOUBLE_EQ(sloping.y, 5);
}

TEST(DecimalPattern, HasAZeroForEveryDecimal) {
  EXPECT_EQ(DecimalPattern(0), "0");
  EXPECT_EQ(DecimalPattern(1), "0.0");
  EXPECT_EQ(DecimalPattern(3), "0.000");
  EXPECT_EQ(DecimalPattern(-1), "0");
}

TEST(RatioClass, TakesItsLowerBoundAndNotItsUpper) {
  constexpr double kNone = std::numeric_limits<double>::infinity();
  const std::array<RatioClass, 6> classes = {
      {{1.0, kNone, {}}, {0.9, 1.0, {}}, {0.5, 0.9, {}}, {0.3, 0.5, {}}, {0.0, 0.3, {}}, {0.0, kNone, {}}}};
  const struct {
    double ratio;
    std::size_t number;
  } cases[] = {{5, 1},   {1.0, 1},  {0.9999, 2}, {0.9, 2},  {0.6, 3}, {0.5, 3},
               {0.3, 4}, {0.29, 5}, {0, 5},      {-1.0, 6}, {kNaN, 6}};
  for (const auto& c : cases) EXPECT_EQ(RatioClassOf(c.ratio, classes) + 1, c.number) << c.ratio;
}

}  // namespace
}  // namespace zorlan

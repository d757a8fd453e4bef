#include "graphics/load_shapes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/member_load_terms.h"

namespace zorlan {
namespace {

constexpr double kSpan = 6, kLy = 1.5;

// What the ordinates of a part, and the points, are for a load of 1: by the kinds of load, area loads being
// taken at 45 degrees from the panels' corners.
double GreatestOrdinate(int type) {
  switch (type) {
    case 10:
      return kLy / 2;
    case 11:
    case 12:
    case 13:
      return kSpan / (2 * (type - 9));  // half a panel
    case 16:
    case 17:
    case 18:
      return kLy;
    default:
      return 1;
  }
}
double PointForce(int type) {
  if (type < 11 || type > 13) return 1;
  const double n = type - 9;  // half of the joist's strip, less the triangles of the panels
  return kSpan * kLy / (2 * n) - kSpan * kSpan / (4 * n * n);
}

/// The shares of a shape that a simple beam's ends take.
struct EndShares {
  double first = 0, second = 0;
};
EndShares SharesOf(int type, const LoadShape& shape) {
  EndShares shares;
  for (const auto& part : shape.parts)
    for (std::size_t k = 0; k + 1 < part.size(); ++k) {
      const auto [a, p] = part[k];
      const auto [b, q] = part[k + 1];
      // A trapezoid between a and b: its force, and its moment about the first end.
      const double force = (p + q) / 2 * (b - a) * kSpan * GreatestOrdinate(type);
      const double moment =
          (b - a) * kSpan * GreatestOrdinate(type) * (a * (p + q) / 2 + (b - a) * (p + 2 * q) / 6);
      shares.second += moment;
      shares.first += force - moment;
    }
  for (const double t : shape.points) {
    shares.first += PointForce(type) * (1 - t);
    shares.second += PointForce(type) * t;
  }
  return shares;
}

TEST(LoadShapes, EveryTypeIsDrawnWhereTheAnalysisHasIt) {
  const LoadedMember member = {.xi = 0, .xj = kSpan, .yi = 0, .yj = 0, .L = kSpan, .II = 1, .JJ = 1, .Ix = 1};
  for (int type = -1; type <= 25; ++type)
    for (const double Ly : {kLy, 0.0}) {
      if (Ly == 0 && type > 10 && type <= 18) continue;  // equal points: the next test
      const LoadTerms terms = MemberLoadTerms(member, type, 1, Ly, 0);
      const LoadShape shape = ShapeOfLoad(type, Ly, kSpan);
      const EndShares shares = SharesOf(Ly == 0 ? 1 : type, shape);
      EXPECT_NEAR(shares.first, -terms.Qi, 1e-9) << "TYPE " << type << " Ly " << Ly;
      EXPECT_NEAR(shares.second, -terms.Qj, 1e-9) << "TYPE " << type << " Ly " << Ly;
    }
}

TEST(LoadShapes, WithoutLyATypeIsSoManyEqualPoints) {
  for (const int type : {1, 2, 10, 14, 18}) {
    const LoadShape shape = ShapeOfLoad(type, 0, kSpan);
    EXPECT_TRUE(shape.parts.empty());
    ASSERT_EQ(shape.points.size(), type);
    for (int k = 1; k <= type; ++k)
      EXPECT_DOUBLE_EQ(shape.points[static_cast<std::size_t>(k - 1)], k / (type + 1.0));
  }
}

TEST(LoadShapes, ASlabWiderThanTheSpanIsATriangle) {
  const LoadShape shape = ShapeOfLoad(10, 20, kSpan);
  ASSERT_EQ(shape.parts.size(), 1);
  EXPECT_EQ(shape.parts[0][1].at, 0.5);
  EXPECT_EQ(shape.parts[0][2].at, 0.5);
}

TEST(LoadShapes, ASpanOfZeroLeavesOnlyEqualPoints) {
  EXPECT_TRUE(ShapeOfLoad(0, 0, 0).parts.empty());
  EXPECT_TRUE(ShapeOfLoad(1, 2, 0).points.empty());
  EXPECT_TRUE(ShapeOfLoad(16, 2, 0).parts.empty());
  EXPECT_EQ(ShapeOfLoad(3, 0, 0).points.size(), 3);
}

TEST(LoadShapes, ATypeThatNoTableKnowsStaysDrawable) {
  EXPECT_LE(ShapeOfLoad(32767, 0, kSpan).points.size(), 100);
  EXPECT_LE(ShapeOfLoad(-32768, 0, kSpan).parts.size(), 1);
}

}  // namespace
}  // namespace zorlan

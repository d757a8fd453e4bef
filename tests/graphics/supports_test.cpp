#include "graphics/supports.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>

#include "recorder.h"

namespace zorlan {
namespace {

using test::Recorder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> Drawn(std::string_view code, double angle = 0,
                               SupportSide side = SupportSide::Left) {
  Recorder surface;
  Plot plot(surface);
  DrawSupport(plot, {5000, 5000}, code, 200, angle, 0, side);
  return surface.lines;
}

/// All codes that have a symbol, "000" among them.
std::set<std::string_view> SupportSymbols() {
  std::set<std::string_view> symbols;
  for (std::int16_t code = 0; code < 1000; ++code)
    symbols.insert(
        SupportSymbol({static_cast<std::int16_t>(code / 100), static_cast<std::int16_t>(code / 10 % 10),
                       static_cast<std::int16_t>(code % 10)}));
  return symbols;
}

TEST(Supports, EveryNamedCodeIsRecognised) {
  EXPECT_THAT(SupportSymbols(), SizeIs(29));
  EXPECT_EQ(SupportSymbol({0, 0, 0}), "000");
  EXPECT_EQ(SupportSymbol({1, 2, 1}), "121");
  EXPECT_EQ(SupportSymbol({4, 4, 0}), "440");
  EXPECT_EQ(SupportSymbol({4, 4, 1}), "441");
}

TEST(Supports, AThreeStandsForOneOneTwoByItsPlace) {
  EXPECT_EQ(SupportSymbol({3, 0, 0}), "100");
  EXPECT_EQ(SupportSymbol({0, 3, 0}), "010");
  EXPECT_EQ(SupportSymbol({0, 0, 3}), "002");
  EXPECT_EQ(SupportSymbol({3, 3, 3}), "112");
}

TEST(Supports, AnyOtherCodeIsDrawnAsAFreeNode) {
  for (const auto& code : {std::array<std::int16_t, 3>{4, 0, 0},
                           {0, 4, 1},
                           {4, 4, 2},
                           {5, 1, 1},
                           {23, 1, 1},
                           {-1, 1, 1},
                           {1, 1, 32767}})
    EXPECT_EQ(SupportSymbol(code), "000");
  EXPECT_THAT(Drawn("000"), IsEmpty());
  EXPECT_THAT(Drawn("9"), IsEmpty());
}

TEST(Supports, AllCodesCanBeToldApart) {
  std::set<std::vector<std::string>> seen;
  for (const std::string_view code : SupportSymbols()) EXPECT_TRUE(seen.insert(Drawn(code)).second) << code;
  EXPECT_EQ(seen.size(), SupportSymbols().size());
}

// A pin of size 200 at (5000, 5000): a triangle 200 high and 240 wide, on a hatched ground 360 wide.
TEST(Supports, APinIsATriangleOnHatchedGround) {
  const std::vector<std::string> lines = Drawn("110");
  ASSERT_THAT(lines, SizeIs(9));
  EXPECT_EQ(lines[0], "line 5000 5000 4880 5200 0");
  EXPECT_EQ(lines[1], "line 5000 5000 5120 5200 0");
  EXPECT_EQ(lines[2], "line 4880 5200 5120 5200 0");
  EXPECT_EQ(lines[3], "line 4820 5200 5180 5200 0");
  EXPECT_EQ(lines[4], "line 4880 5200 4820 5260 0");  // the first of five hatches, down to the left
}

TEST(Supports, AFixedNodeStandsOnHatchedGround) {
  const std::vector<std::string> lines = Drawn("111");
  ASSERT_THAT(lines, SizeIs(6));
  EXPECT_EQ(lines[0], "line 4820 5000 5180 5000 0");
}

TEST(Supports, ARollerHasWheelsAndABareGround) {
  EXPECT_THAT(Drawn("010"), ElementsAre("line 5000 5000 4880 5200 0", "line 5000 5000 5120 5200 0",
                                        "line 4880 5200 5120 5200 0", "circle 4930 5225 22 0",
                                        "circle 5070 5225 22 0", "line 4820 5250 5180 5250 0"));
}

TEST(Supports, WhatHoldsANodeInXStandsAtItsSide) {
  EXPECT_EQ(Drawn("100")[5], "line 4750 4820 4750 5180 0");  // the ground, 1.25 to the left
  EXPECT_EQ(Drawn("100", 0, SupportSide::Right)[5], "line 5250 5180 5250 4820 0");
}

// The wheels' ground lies at 1.25 of the size, 0.9 of it to either side: (-0.9, 1.25) turned by 90 degrees
// counter-clockwise (y downward) is (1.25, 0.9).
TEST(Supports, AnInclinedRollerIsTurnedByItsAngle) {
  EXPECT_EQ(Drawn("440")[3], "line 4820 5250 5180 5250 0");
  EXPECT_EQ(Drawn("440", 90)[3], "line 5250 5180 5250 4820 0");
  EXPECT_THAT(Drawn("440"), SizeIs(4));
  EXPECT_THAT(Drawn("441"), SizeIs(9));  // and five hatches
}

TEST(Supports, TheRoomOfASymbolHoldsWhatIsDrawn) {
  for (const std::string_view code : SupportSymbols())
    for (const SupportSide side : {SupportSide::Left, SupportSide::Right}) {
      Recorder surface;
      Plot plot(surface);
      plot.RecordDrawing = true;
      DrawSupport(plot, {5000, 5000}, code, 200, 30, 0, side);
      const auto boxes = SupportBoxes({5000, 5000}, code, 200, 30, side);
      for (const DrawOperation& o : plot.drawingList) {
        const double x = o.kind == DrawOperation::Kind::Line ? (o.x + o.x2) / 2 : o.x;
        const double y = o.kind == DrawOperation::Kind::Line ? (o.y + o.y2) / 2 : o.y;
        EXPECT_TRUE(std::ranges::any_of(boxes,
                                        [&](const Rectangle& box) {
                                          return box.Meets({x - 1, y - 1, x + 1, y + 1});
                                        }))
            << code << " at " << x << ", " << y;
      }
    }
}

// Turned by 90 degrees the whole symbol lies to the right of its node: numbers may stand to the left.
TEST(Supports, TheRoomOfAnInclinedSymbolIsOnItsOwnSide) {
  for (const auto& [angle, left, top, right, bottom] :
       {std::array{0.0, 4820.0, 5000.0, 5180.0, 5300.0}, std::array{90.0, 5000.0, 4820.0, 5300.0, 5180.0}}) {
    const Rectangle room = SupportBoxes({5000, 5000}, "441", 200, angle, SupportSide::Left)[0];
    EXPECT_NEAR(room.left, left, 1e-9) << angle;
    EXPECT_NEAR(room.top, top, 1e-9) << angle;
    EXPECT_NEAR(room.right, right, 1e-9) << angle;
    EXPECT_NEAR(room.bottom, bottom, 1e-9) << angle;
  }
}

TEST(Supports, ADigitTwoAddsTheSpringOfItsDirection) {
  const auto spring = [](auto draw) {
    Recorder surface;
    Plot plot(surface);
    draw(plot);
    return surface.lines;
  };
  const auto x = spring([](Plot& plot) { DrawSpringX(plot, {5000, 5000}, 200, 0); });
  const auto y = spring([](Plot& plot) { DrawSpringY(plot, {5000, 5000}, 200, 0); });
  const auto turn = spring([](Plot& plot) { DrawSpringRotation(plot, {5000, 5000}, 200, 0); });
  EXPECT_EQ(Drawn("200"), x);
  EXPECT_EQ(Drawn("020"), y);
  EXPECT_EQ(Drawn("002"), turn);
  std::vector<std::string> all = x;
  all.insert(all.end(), y.begin(), y.end());
  all.insert(all.end(), turn.begin(), turn.end());
  EXPECT_EQ(Drawn("222"), all);
  EXPECT_EQ(x.back(), "line 4720 4910 4720 5090 0");  // the ground of the spring, to the left
  EXPECT_EQ(y.back(), "line 4910 5280 5090 5280 0");
}

}  // namespace
}  // namespace zorlan

// Labels on an area of 4000 x 2000 twips. "1.00" and the like are 396.9 wide and 198.4 high; their own place
// is 283.5 off the ordinate.
#include "graphics/diagram_labels.h"

#include <gmock/gmock.h>

#include <vector>

#include "recorder.h"
#include "support/text_boxes.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kCm = kTwipsPerCm, kHalfHeight = 0.35 / 2 * kCm, kWidth = 4 * kHalfHeight;

class DiagramLabels : public testing::Test {
 protected:
  DiagramLabels() : surface_(4000, 2000), plot_(surface_), field_(plot_.clip), values_(plot_, field_, {}, 2) {
    plot_.RecordDrawing = true;
  }
  /// A label on a level member that starts, ends or has its centre at (x, 1000).
  static LabelPlace PlaceAt(double x, Anchor anchor = kLeftCentre, double room = 1000) {
    return {.ordinate = {x, 1000}, .away = {0, -1}, .along = {1, 0}, .room = room, .anchor = anchor};
  }
  /// Where a label came to stand: along from 2000, and up from 1000, in cm.
  struct Stand {
    double along, up;
  };
  std::vector<Stand> Written() {
    values_.Write();
    std::vector<Stand> stands;
    for (const DrawOperation& o : plot_.drawingList)
      stands.push_back({(o.x - 2000) / kCm, (1000 - o.y - kHalfHeight) / kCm});
    return stands;
  }

  test::Recorder surface_;
  Plot plot_;
  LabelField field_;
  ValueLabels values_;
};

MATCHER_P2(At, along, up, "") {
  return std::abs(arg.along - along) < 1e-9 && std::abs(arg.up - up) < 1e-9;
}

TEST_F(DiagramLabels, AFreeLabelStandsHalfACentimetreOffItsOrdinate) {
  values_.Add(PlaceAt(2000), 1);
  EXPECT_THAT(Written(), ElementsAre(At(0, 0.5)));
}

TEST_F(DiagramLabels, ALabelMovesAlongItsMemberOffALine) {
  field_.TakeLine({2000, 0}, {2000, 2000});  // a column: the label would begin on it
  values_.Add(PlaceAt(2000), 1);
  EXPECT_THAT(Written(), ElementsAre(At(0.15, 0.5)));
}

TEST_F(DiagramLabels, ALabelWithoutRoomAlongMovesNearerOrFarther) {
  field_.Take({2000, 700, 2100, 716});  // across its own place, and none of it is nearer than 284 twips
  values_.Add(PlaceAt(2000, kLeftCentre, 0), 1);
  // 0.3 cm off it would reach up to 170 + 99 = 269: free.
  EXPECT_THAT(Written(), ElementsAre(At(0, 0.3)));
}

// A line 0.8 cm above the member: 0.9 cm and farther is free, but behind the line. Texts hide all else above
// the member; what is left is below it.
TEST_F(DiagramLabels, ALabelDoesNotStandBehindALine) {
  field_.TakeLine({0, 1000 - 0.6 * kCm}, {4000, 1000 - 0.6 * kCm});
  field_.Take({0, 1000 - 0.55 * kCm, 4000, 1000 - 0.1 * kCm});
  values_.Add(PlaceAt(2000, kLeftCentre, 0), 1);
  EXPECT_THAT(Written(), ElementsAre(At(0, -0.35)));
}

TEST_F(DiagramLabels, ALabelCrossesALineRatherThanHidesAText) {
  // Texts above and below but for the label's own place, and a line through that.
  field_.Take({0, 0, 4000, 600});
  field_.Take({0, 840, 4000, 2000});
  field_.TakeLine({0, 716}, {4000, 716});
  values_.Add(PlaceAt(2000), 1);
  EXPECT_THAT(Written(), ElementsAre(At(0, 0.5)));
}

TEST_F(DiagramLabels, LabelsOfEndsChooseBeforeThoseOfCentres) {
  values_.Add(PlaceAt(2000 + kWidth / 2, kCentre), 1);
  values_.Add(PlaceAt(2000), 2);
  const std::vector<Stand> stands = Written();  // drawn as they were added
  ASSERT_EQ(plot_.drawingList[1].text, "2.00");
  EXPECT_THAT(stands[1], At(0, 0.5));
  EXPECT_THAT(test::CoveringTexts(plot_.drawingList), IsEmpty());
}

// The second label has one free place only, which is the first one's own. It ends at 2397, with 40 behind it:
// the first label begins at 2000 + 0.9 cm = 2510, clear of the texts up to 2450.
TEST_F(DiagramLabels, WhoFoundNoRoomChoosesFirstInAnotherRound) {
  field_.Take({1900, 0, 2450, 600});
  field_.Take({1900, 840, 2450, 2000});
  values_.Add(PlaceAt(2000), 1);
  values_.Add(PlaceAt(2000, kLeftCentre, 0), 2);
  EXPECT_THAT(Written(), ElementsAre(At(0.9, 0.5), At(0, 0.5)));
}

TEST_F(DiagramLabels, NumbersInARowStandApart) {
  values_.Add(PlaceAt(2000, kRightCentre, 0), -1);
  values_.Add(PlaceAt(2000), 2);
  EXPECT_THAT(Written()[1], At(0.15, 0.5));
}

// 1000 x 1000 twips hold 12.7 such labels; 26 need more than twice that.
TEST_F(DiagramLabels, WhereNothingCanBeReadLabelsStandAtTheirOwnPlaces) {
  for (int k = 0; k < 26; ++k) values_.Add(PlaceAt(2000), k);
  EXPECT_TRUE(values_.IsCrowded({2000, 1000}));
  EXPECT_FALSE(values_.IsCrowded({500, 1000}));
  EXPECT_THAT(Written(), testing::Each(At(0, 0.5)));
}

TEST_F(DiagramLabels, WhatShowsAsZeroHasNoSign) {
  values_.Add(PlaceAt(2000), -0.004);
  values_.Write();
  EXPECT_EQ(plot_.drawingList[0].text, "0.00");
}

// Two sloping labels on one line, and one across: each is covered as it lies, not as the box around it.
TEST_F(DiagramLabels, SlopingLabelsDoNotCoverEachOther) {
  for (const double angle : {30.0, 30.0, -60.0, 30.0}) {
    LabelPlace place = PlaceAt(2000, kCentre);
    const double a = angle * std::numbers::pi / 180;
    place.angle = angle;
    place.along = {std::cos(a), -std::sin(a)};
    place.away = {-std::sin(a), -std::cos(a)};
    values_.Add(place, angle);
  }
  values_.Write();
  EXPECT_THAT(test::CoveringTexts(plot_.drawingList), IsEmpty());
}

}  // namespace
}  // namespace zorlan

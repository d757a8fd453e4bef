#include "graphics/plot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "recorder.h"

namespace zorlan {
namespace {

using test::ListLines;
using test::PageRecorder;
using test::Recorder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

TEST(Plot, EveryPrimitiveReachesSurfaceAndDrawingListWithTheOffsets) {
  Recorder surface;
  Plot plot(surface);
  plot.OffsetX = 1000;
  plot.OffsetY = 2000;
  plot.RecordDrawing = true;
  plot.DrawLayer = layer::kMoment;
  PlotSetFont(plot, 200);
  PlotLine(plot, 1, 2, 30, 40, 255);
  PlotCircle(plot, 5, 6, 70, 65280);
  PlotText(plot, 10, 20, "漢字A", 16711680);
  PlotTextRotated(plot, 0, 0, "12", 90, 0, kLeftTop);
  EXPECT_THAT(surface.lines,
              ElementsAre("line 1001 2002 1030 2040 255", "circle 1005 2006 70 65280",
                          "text 漢字A 1010 2020 200 0 16711680", "text 12 1000 2000 200 90 0"));
  EXPECT_THAT(ListLines(plot), ElementsAre("LINE, MOMENT, 1001, 2002, 1030, 2040, 255",
                                           "CIRCLE, MOMENT, 1005, 2006, 70, 65280",
                                           "TEXT, MOMENT_TXT, 1010, 2020, 漢字A, 500, 200, 16711680",
                                           "TEXTR, MOMENT_TXT, 1000, 2000, 12, 200, 200, 90, 0"));
}

TEST(Plot, NothingIsRecordedWhileRecordingIsOff) {
  Recorder surface;
  Plot plot(surface);
  PlotLine(plot, 1, 2, 3, 4, 0);
  PlotText(plot, 1, 2, "1", 0);
  EXPECT_THAT(plot.drawingList, IsEmpty());
  EXPECT_EQ(surface.lines.size(), 2);
}

TEST(Plot, HalfWidthCharactersAreHalfAsWideAsTheFontIsHigh) {
  EXPECT_EQ(TextWidth("123", 160), 240);
  EXPECT_EQ(TextWidth("節点", 160), 320);
  EXPECT_EQ(TextWidth("ｹｰｽ=1", 100), 250);
  EXPECT_EQ(TextWidth("", 160), 0);
  EXPECT_EQ(TextHeight(160), 160);
}

// A text of 400 by 100 about the point (1000, 1000). Upright, the origin goes left by the width and up by the
// height; at 90 degrees the text runs upward and its face looks left, so that its left upper corner moves
// down and left.
TEST(Plot, AnchorsMoveARotatedTextAlongItsOwnAxes) {
  struct AnchorCase {
    int anchor;
    double angle;
    const char* expected;
  };
  constexpr AnchorCase kCases[] = {
      {kLeftTop, 0, "text 12345678 1000 1000 100 0 0"},
      {kCentreTop, 0, "text 12345678 800 1000 100 0 0"},
      {kRightTop, 0, "text 12345678 600 1000 100 0 0"},
      {kLeftCentre, 0, "text 12345678 1000 950 100 0 0"},
      {kCentre, 0, "text 12345678 800 950 100 0 0"},
      {kRightCentre, 0, "text 12345678 600 950 100 0 0"},
      {kLeftBottom, 0, "text 12345678 1000 900 100 0 0"},
      {kCentreBottom, 0, "text 12345678 800 900 100 0 0"},
      {kRightBottom, 0, "text 12345678 600 900 100 0 0"},
      {kLeftTop, 90, "text 12345678 1000 1000 100 90 0"},
      {kCentre, 90, "text 12345678 950 1200 100 90 0"},
      {kRightBottom, 90, "text 12345678 900 1400 100 90 0"},
  };
  for (const AnchorCase& c : kCases) {
    Recorder surface;
    Plot plot(surface);
    PlotSetFont(plot, 100);
    PlotTextRotated(plot, 1000, 1000, "12345678", c.angle, 0, c.anchor);
    EXPECT_THAT(surface.lines, ElementsAre(c.expected)) << c.anchor << " at " << c.angle;
  }
}

TEST(Plot, OnAPageABrokenLineIsFourSegmentsThatTellItsStyle) {
  struct StyleCase {
    LineStyle style;
    double length;
    std::vector<std::string> expected;
  };
  const StyleCase kCases[] = {
      {LineStyle::Solid, 1100, {"line 0 0 1100 0 0"}},
      {LineStyle::Dashed,
       1100,
       {"line 0 0 200 0 0", "line 300 0 500 0 0", "line 600 0 800 0 0", "line 900 0 1100 0 0"}},
      {LineStyle::Dotted,
       1600,
       {"line 0 0 100 0 0", "line 500 0 600 0 0", "line 1000 0 1100 0 0", "line 1500 0 1600 0 0"}},
      {LineStyle::DashDot,
       1700,
       {"line 0 0 600 0 0", "line 700 0 800 0 0", "line 900 0 1500 0 0", "line 1600 0 1700 0 0"}},
      {LineStyle::DashDotDot,
       1700,
       {"line 0 0 600 0 0", "line 700 0 800 0 0", "line 900 0 1000 0 0", "line 1100 0 1700 0 0"}},
  };
  for (const StyleCase& c : kCases) {
    Recorder page = PageRecorder();
    Plot plot(page);
    PlotSetPen(plot, c.style, 2);
    PlotDashedLine(plot, 0, 0, c.length, 0, 0);
    EXPECT_EQ(page.lines, c.expected);
    for (const Pen& pen : page.pens) {
      EXPECT_EQ(pen.style, LineStyle::Solid);
      EXPECT_EQ(pen.width, 2);
    }
  }
}

TEST(Plot, OnTheScreenABrokenLineIsOneLineInItsStyle) {
  Recorder screen;
  Plot plot(screen);
  PlotSetPen(plot, LineStyle::DashDot, 3);
  PlotDashedLine(plot, 0, 0, 1700, 0, 255);
  EXPECT_THAT(screen.lines, ElementsAre("line 0 0 1700 0 255"));
  EXPECT_EQ(screen.pens[0].style, LineStyle::DashDot);
  EXPECT_EQ(screen.pens[0].width, 3);
}

TEST(Plot, LinesAreCutAtTheSurface) {
  Recorder surface(1000, 1000);
  Plot plot(surface);
  plot.RecordDrawing = true;
  PlotLine(plot, -500, 500, 1500, 500, 0);
  PlotLine(plot, -500, -500, 1500, 1500, 0);
  PlotLine(plot, -1, 0, -1, 1000, 0);       // outside
  PlotLine(plot, -600, 500, 500, -600, 0);  // passes the corner outside
  PlotLine(plot, -1e30, 200, 1e30, 200, 0);
  EXPECT_THAT(ListLines(plot),
              ElementsAre("LINE, MODEL, 0, 500, 1000, 500, 0", "LINE, MODEL, 0, 0, 1000, 1000, 0",
                          "LINE, MODEL, 0, 200, 1000, 200, 0"));
  EXPECT_EQ(surface.lines.size(), 3);
}

TEST(Plot, WhatLiesOutsideOrIsNoNumberIsNotDrawn) {
  Recorder surface(1000, 1000);
  Plot plot(surface);
  PlotSetFont(plot, 100);
  PlotCircle(plot, -200, 500, 100, 0);
  PlotText(plot, 1001, 500, "1", 0);
  PlotText(plot, -51, 500, "1", 0);
  PlotText(plot, 500, 500, "", 0);
  PlotTextRotated(plot, 5000, 500, "1", 30, 0);
  for (const double bad : {kNoNumber, kInfinite, -kInfinite}) {
    PlotLine(plot, bad, 0, 10, 10, 0);
    PlotLine(plot, 0, 0, 10, bad, 0);
    PlotCircle(plot, bad, 0, 10, 0);
    PlotCircle(plot, 100, 100, bad, 0);
    PlotText(plot, bad, 0, "1", 0);
    PlotTextRotated(plot, 0, bad, "1", 0, 0);
    PlotTextRotated(plot, 0, 0, "1", bad, 0);
    const Point polygon[] = {{0, 0}, {10, 10}, {bad, 0}};
    PlotShade(plot, polygon, 0);
  }
  EXPECT_THAT(surface.lines, IsEmpty());
}

TEST(Plot, ATextThatReachesIntoTheSurfaceIsDrawn) {
  Recorder surface(1000, 1000);
  Plot plot(surface);
  PlotSetFont(plot, 100);
  PlotText(plot, -49, -99, "1", 0);
  EXPECT_EQ(surface.lines.size(), 1);
}

TEST(Plot, AShadeReachesTheSurfaceAlone) {
  Recorder surface;
  Plot plot(surface);
  plot.RecordDrawing = true;
  const Point polygon[] = {{0, 0}, {100, 0}, {100, 100}};
  PlotShade(plot, polygon, 255);
  EXPECT_THAT(surface.lines, ElementsAre("shade 3 255"));
  EXPECT_THAT(plot.drawingList, IsEmpty());
}

// The cell is the right half of the surface. What can't be cut is drawn where its middle lies.
TEST(Plot, NothingReachesFromACellIntoItsNeighbour) {
  Recorder surface(1000, 1000);
  Plot plot(surface);
  plot.RecordDrawing = true;
  plot.BeginCell(500, 0, 500, 1000);
  PlotSetFont(plot, 100);
  PlotLine(plot, 400, 200, 600, 200, 0);
  PlotLine(plot, 100, 200, 400, 200, 0);  // the neighbour's
  PlotCircle(plot, 510, 300, 20, 0);
  PlotCircle(plot, 490, 300, 20, 0);  // the neighbour's
  PlotText(plot, 460, 400, "12", 0);
  PlotText(plot, 440, 400, "34", 0);                      // its middle lies at 490
  PlotTextRotated(plot, 510, 500, "56", 90, 0, kCentre);  // standing, 460 to 560
  PlotTextRotated(plot, 490, 500, "78", 90, 0, kCentre);  // the neighbour's
  EXPECT_THAT(
      ListLines(plot),
      ElementsAre("LINE, MODEL, 500, 200, 600, 200, 0", "CIRCLE, MODEL, 510, 300, 20, 0",
                  "TEXT, MODEL_TXT, 460, 400, 12, 100, 100, 0", StartsWith("TEXTR, MODEL_TXT, 460, ")));
  EXPECT_EQ(surface.lines.size(), 4);
  plot.Begin();
  PlotLine(plot, 0, 200, 1000, 200, 0);
  EXPECT_EQ(ListLines(plot).back(), "LINE, MODEL, 0, 200, 1000, 200, 0");
}

/// Keeps the corners of the tints.
class TintRecorder : public Recorder {
 public:
  using Recorder::Recorder;
  void Shade(std::span<const Point> polygon, Rgb) override { corners.assign(polygon.begin(), polygon.end()); }
  std::vector<Point> corners;
};

TEST(Plot, AShadeIsCutLikeTheLinesAroundIt) {
  TintRecorder surface(1000, 1000);
  Plot plot(surface);
  plot.BeginCell(500, 0, 500, 1000);
  const Point triangle[] = {{400, 100}, {600, 100}, {600, 300}};  // crosses x = 500 at 100 and at 200
  PlotShade(plot, triangle, 255);
  ASSERT_THAT(surface.corners, SizeIs(4));
  const std::vector<Point> expected = {{500, 100}, {600, 100}, {600, 300}, {500, 200}};
  for (const Point& corner : surface.corners) EXPECT_GE(corner.x, 500);
  for (const Point& e : expected)
    EXPECT_TRUE(std::ranges::any_of(surface.corners,
                                    [&](Point p) { return std::hypot(p.x - e.x, p.y - e.y) < 1e-6; }))
        << e.x << ", " << e.y;
  surface.corners.clear();
  const Point far[] = {{500, 0}, {1e12, 0}, {1e12, 1e12}, {500, 1e12}};  // covers the cell
  PlotShade(plot, far, 255);
  ASSERT_THAT(surface.corners, SizeIs(4));
  for (const Point& corner : surface.corners) EXPECT_LE(std::max(corner.x, corner.y), 1000);
}

TEST(DrawingList, ATextNeverEndsALineAndKeepsItsCommas) {
  DrawOperation operation;
  operation.kind = DrawOperation::Kind::Text;
  operation.layer = "TITLE_TXT";
  operation.text = "柱, 梁\r\n壁";
  operation.width = 100;
  operation.height = 50;
  EXPECT_EQ(OperationLine(operation), "TEXT, TITLE_TXT, 0, 0, 柱, 梁  壁, 100, 50, 0");
}

TEST(DrawingList, NumbersStandInTheirPlainForm) {
  DrawOperation operation;
  operation.layer = "MODEL";
  operation.x = 0.1;
  operation.y = -1234.5;
  operation.x2 = 1.0 / 3;
  operation.colour = 16777215;
  EXPECT_EQ(OperationLine(operation), "LINE, MODEL, 0.1, -1234.5, 0.333333333333333, 0, 16777215");
}

}  // namespace
}  // namespace zorlan

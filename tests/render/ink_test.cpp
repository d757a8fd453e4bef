// Lines, marks and glyphs put on the dots of an image by hand, held against their geometry and the toolkit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <QImage>
#include <QPainter>
#include <string>

#include "render/glyph_stamps.h"
#include "render/ink.h"

namespace zorlan {
namespace {

constexpr int kSide = 100;
constexpr QRgb kWhite = 0xffffffff, kBlackDot = 0xff000000, kRedDot = 0xffff0000;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

QImage Sheet(int side = kSide) {
  QImage image(side, side, QImage::Format_RGB32);
  image.fill(kWhite);
  return image;
}

/// How much black lies on a white image, in dots, and where its middle is, in dots from the corner.
struct Darkness {
  double dots = 0;
  QPointF middle;
};
Darkness DarknessOf(const QImage& image) {
  Darkness dark;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const double share = 1 - qGreen(image.pixel(x, y)) / 255.0;
      dark.dots += share;
      dark.middle += share * QPointF(x + 0.5, y + 0.5);
    }
  dark.middle /= dark.dots;
  return dark;
}

QImage Lined(QPointF from, QPointF to, double width, bool smooth) {
  QImage image = Sheet();
  Ink(image).Line(from, to, width, smooth);
  return image;
}

TEST(Ink, AStraightLineOnTheDotsCoversWholeDotsFromTheFirstToTheLast) {
  for (const bool smooth : {false, true}) {
    QImage level = Sheet(), upright = Sheet();
    for (int k = 10; k <= 30; ++k) {
      level.setPixel(k, 20, kBlackDot);
      upright.setPixel(20, k, kBlackDot);
    }
    EXPECT_EQ(Lined({10.5, 20.5}, {30.5, 20.5}, 1, smooth), level) << smooth;
    EXPECT_EQ(Lined({20.5, 30.5}, {20.5, 10.5}, 1, smooth), upright) << smooth;
  }
}

TEST(Ink, ASmoothLineHasTheDarknessAndTheMiddleOfItsBandAtEveryAngle) {
  const QPointF centre(50.3, 49.8);
  for (const double width : {1.0, 2.0})
    for (int angle = 0; angle < 180; angle += 7) {
      const double a = angle * std::numbers::pi / 180, length = 60;
      const QPointF half = length / 2 * QPointF(std::cos(a), std::sin(a));
      const Darkness dark = DarknessOf(Lined(centre - half, centre + half, width, /*smooth=*/true));
      EXPECT_NEAR(dark.dots, (length + width) * width, 0.02 * length * width) << angle;
      EXPECT_NEAR(dark.middle.x(), centre.x(), 0.05) << angle;
      EXPECT_NEAR(dark.middle.y(), centre.y(), 0.05) << angle;
    }
}

TEST(Ink, AHardLineIsWithoutGapsAndMixesNothing) {
  for (const QPointF to : {QPointF(80.2, 33.3), QPointF(33.3, 80.2), QPointF(90, 90), QPointF(5, 60)}) {
    const QImage image = Lined({20.4, 20.1}, to, 1, /*smooth=*/false);
    int dots = 0;
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        const QRgb dot = image.pixel(x, y);
        EXPECT_TRUE(dot == kWhite || dot == kBlackDot);
        dots += dot == kBlackDot;
      }
    const double extent = std::max(std::abs(to.x() - 20.4), std::abs(to.y() - 20.1));
    EXPECT_NEAR(dots, extent, 1.5) << to.x();  // one in each row or column of the greater extent
  }
}

TEST(Ink, APointIsADotOfItsWidth) {
  EXPECT_NEAR(DarknessOf(Lined({50.5, 50.5}, {50.5, 50.5}, 1, true)).dots, 1, 1e-6);
  EXPECT_NEAR(DarknessOf(Lined({50, 50}, {50, 50}, 2, true)).dots, 4, 1e-6);
}

TEST(Ink, OfALineFromFarOutsideThePartInsideIsDrawn) {
  for (const bool smooth : {false, true}) {
    const QImage level = Lined({-1e9, 40.5}, {1e9, 40.5}, 1, smooth);
    EXPECT_NEAR(DarknessOf(level).dots, kSide, 1e-6);
    const QImage diagonal = Lined({-5e5, -5e5}, {5e5, 5e5}, 1, smooth);
    EXPECT_EQ(diagonal.pixel(50, 50), kBlackDot);
    EXPECT_NEAR(DarknessOf(diagonal).dots, smooth ? kSide * std::numbers::sqrt2 : kSide, 1);
  }
}

TEST(Ink, WhatLiesOutsideOrIsNoNumberLeavesNoInk) {
  QImage image = Sheet();
  Ink ink(image);
  const Stamp stamp = StampOf(QRect(-4, -4, 9, 9), /*turned=*/false, [](QPainter& painter) {
    painter.setBrush(Qt::black);
    painter.drawEllipse(QPointF(0.5, 0.5), 3, 3);
  });
  for (const double far : {-20.0, 120.0, 1e7, -1e7, 1e300, kInfinity, -kInfinity, kNaN}) {
    ink.Put(stamp, {far, 50});
    ink.Put(stamp, {50, far});
    for (const bool smooth : {false, true}) {
      ink.Line({far, 10}, {far, 90}, 2, smooth);
      ink.Line({10, far}, {90, far}, 2, smooth);
    }
  }
  ink.Line({10, 10}, {kNaN, 90}, 1, true);
  EXPECT_EQ(image, Sheet());
}

TEST(Ink, AStampAtAnEdgeLosesWhatLiesOutsideAndNothingElse) {
  const Stamp stamp = StampOf(QRect(-8, -8, 17, 17), /*turned=*/false, [](QPainter& painter) {
    painter.setPen(QPen(Qt::black, 1));
    painter.drawEllipse(QPointF(0.5, 0.5), 6, 6);
  });
  QImage whole = Sheet();
  Ink(whole).Put(stamp, {50, 50});
  for (const QPoint place : {QPoint(0, 0), QPoint(kSide - 1, 3), QPoint(-5, 40), QPoint(40, kSide + 4)}) {
    QImage cut = Sheet();
    Ink(cut).Put(stamp, place);
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        const QPoint there = QPoint(x, y) - place + QPoint(50, 50);
        EXPECT_EQ(cut.pixel(x, y), whole.rect().contains(there) ? whole.pixel(there) : kWhite);
      }
  }
}

TEST(Ink, ADotCoveredInPartIsMixedWithWhatWasThere) {
  const Stamp half = StampOf(QRect(0, 0, 1, 1), /*turned=*/false, [](QPainter& painter) {
    painter.fillRect(QRectF(0, 0, 1, 1), QColor(0, 0, 0, 128));
  });
  QImage image = Sheet();
  image.setPixel(10, 10, qRgb(0, 0, 255));
  Ink ink(image);
  ink.SetColour(kRedDot);
  ink.Put(half, {10.9, 10.9});
  EXPECT_NEAR(qRed(image.pixel(10, 10)), 128, 1);
  EXPECT_NEAR(qBlue(image.pixel(10, 10)), 127, 1);
  EXPECT_EQ(qAlpha(image.pixel(10, 10)), 255);
  EXPECT_EQ(image.pixel(11, 10), kWhite);
}

TEST(Ink, ATurnedStampIsTheStampTurnedCounterClockwiseAboutItsPlace) {
  const auto corner = [](QPainter& painter) {  // two dots to the right, one of them with a dot below
    painter.fillRect(QRect(0, 0, 2, 1), Qt::black);
    painter.fillRect(QRect(1, 1, 1, 1), Qt::black);
  };
  QImage image = Sheet(), turned = Sheet();
  Ink(image).Put(StampOf(QRect(-1, -1, 4, 4), /*turned=*/true, corner), {50, 50});
  for (const QPoint dot : {QPoint(50, 49), QPoint(50, 48), QPoint(51, 48)}) turned.setPixel(dot, kBlackDot);
  EXPECT_EQ(image, turned);
}

/// The text painted by the toolkit's glyphs, its base line and places as they come.
QImage ByToolkit(QPointF origin, const std::string& text, double height, int scale = 1) {
  QImage image = Sheet(kSide * scale);
  QPainter painter(&image);
  GlyphRun run(height * scale);
  run.Add(origin * scale, text);
  run.Paint(painter);
  return image;
}

int GreatestDifference(const QImage& a, const QImage& b) {
  int greatest = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      greatest = std::max(greatest, std::abs(qGreen(a.pixel(x, y)) - qGreen(b.pixel(x, y))));
  return greatest;
}

TEST(GlyphStamps, GlyphsLookAsTheToolkitPaintsThem) {
  for (const double height : {10.0, 12.0, 16.0, 24.0}) {  // a half-width glyph is some quarters of a dot wide
    const double base = std::ceil(height), ascent = GlyphRun(height).Ascent();
    for (const double part : {0.0, 0.25, 0.5, 0.75}) {
      const QPointF origin(20 + part, 40 + base - ascent);
      QImage image = Sheet();
      Ink ink(image);
      EXPECT_TRUE(GlyphStamps(height).Write(ink, origin, "-12.5"));
      EXPECT_LE(GreatestDifference(image, ByToolkit(origin, "-12.5", height)), 2) << height << ' ' << part;
    }
  }
}

TEST(GlyphStamps, ATextLiesWhereItWasPutToAQuarterOfADotAlongIt) {
  constexpr int kFine = 8;
  constexpr double kRow = 0.55;  // the base line comes to lie on a row of dots
  for (const double height : {10.667, 13.228, 21.333, 26.457}) {
    const QPointF fine =
        DarknessOf(ByToolkit({10, 10}, "820.56", height, kFine)).middle / kFine - QPointF(10, 10);
    for (int k = 0; k < 10; ++k) {
      const QPointF origin(10.03 + 0.37 * k, 50.05 + 0.41 * k);
      QImage upright = Sheet(), turned = Sheet();
      Ink uprightInk(upright), turnedInk(turned);
      EXPECT_TRUE(GlyphStamps(height).Write(uprightInk, origin, "820.56"));
      EXPECT_TRUE(GlyphStamps(height, /*turned=*/true).Write(turnedInk, {origin.x(), 95}, "820.56"));
      const QPointF there = DarknessOf(upright).middle - origin;
      EXPECT_NEAR(there.x(), fine.x(), 0.25) << height;
      EXPECT_NEAR(there.y(), fine.y(), kRow) << height;
      const QPointF up = DarknessOf(turned).middle - QPointF(origin.x(), 95);
      EXPECT_NEAR(-up.y(), fine.x(), 0.25) << height;
      EXPECT_NEAR(up.x(), fine.y(), kRow) << height;
    }
  }
}

TEST(GlyphStamps, ATextWithOtherCharactersIsLeftToTheToolkit) {
  QImage image = Sheet();
  Ink ink(image);
  EXPECT_FALSE(GlyphStamps(16).Write(ink, {10, 10}, "12ケース"));
  EXPECT_EQ(image, Sheet());
}

}  // namespace
}  // namespace zorlan

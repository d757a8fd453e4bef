// Pictures of figures on dots, on sheets and in files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <QImage>
#include <QPainter>
#include <vector>

#include "base/fault.h"
#include "render/figure_painter.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// A sheet A4 upright, in twips.
Surface A4() {
  return {.page = true, .width = 210 * kTwipsPerMm, .height = 297 * kTwipsPerMm};
}
/// A screen of 100 by 100 pixels.
Surface SmallScreen() {
  return {.width = 1500, .height = 1500};
}

QImage Painted(const FigurePicture& picture, const PictureStyle& style, int side = 100) {
  QImage image(side, side, QImage::Format_RGB32);
  image.fill(Qt::white);
  PaintPicture(image, picture, style);
  return image;
}

/// The smallest rectangle around what isn't white.
QRect Inked(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != qRgb(255, 255, 255)) ink |= QRect(x, y, 1, 1);
  return ink;
}

TEST(FigurePicture, KeepsTheLinesOfAPenTogether) {
  FigurePicture picture(SmallScreen());
  const Pen black, red{255};
  picture.Line({0, 0}, {15, 0}, black);
  picture.Line({0, 0}, {0, 15}, red);
  picture.Line({15, 0}, {15, 15}, black);
  ASSERT_EQ(picture.TheLines().size(), 2u);
  EXPECT_EQ(picture.TheLines()[0].items.size(), 2u);
  EXPECT_EQ(picture.TheLines()[1].items.front(), QLineF(0, 0, 0, 15));
}

TEST(FigurePicture, KeepsTheTextsOfAHeightAndAngleTogether) {
  FigurePicture picture(SmallScreen());
  picture.Text({0, 0}, "1", 160, 0, kBlack);
  picture.Text({0, 0}, "2", 160, 90, kBlack);
  picture.Text({0, 0}, "3", 160, 0, kBlack);
  ASSERT_EQ(picture.TheTexts().size(), 2u);
  EXPECT_EQ(picture.TheTexts()[0].items[1].text, "3");
}

TEST(FigurePicture, ClearedItIsLikeANewOneInItsNewOrder) {
  FigurePicture picture(SmallScreen());
  const Pen black, red{255};
  picture.Line({0, 0}, {15, 0}, black);
  picture.Line({0, 0}, {0, 15}, red);
  picture.Circle({0, 0}, 15, black, true);
  picture.Text({0, 0}, "1", 160, 0, kBlack);
  picture.Text({0, 0}, "2", 160, 90, kBlack);
  const std::array<Point, 3> corners = {{{0, 0}, {15, 0}, {0, 15}}};
  picture.Shade(corners, kBlack);
  picture.Clear(A4());
  EXPECT_TRUE(picture.TheSurface().page);
  EXPECT_TRUE(picture.TheTints().empty());
  EXPECT_TRUE(picture.TheLines().empty());
  EXPECT_TRUE(picture.TheDiscs().empty());
  EXPECT_TRUE(picture.TheTexts().empty());

  picture.Line({0, 0}, {15, 15}, red);
  picture.Text({0, 0}, "3", 160, 90, 255);
  picture.Shade(corners, kBlack);
  ASSERT_EQ(picture.TheLines().size(), 1u);
  EXPECT_EQ(picture.TheLines()[0].pen.colour, red.colour);
  EXPECT_EQ(picture.TheLines()[0].items, std::vector{QLineF(0, 0, 15, 15)});
  ASSERT_EQ(picture.TheTexts().size(), 1u);
  EXPECT_EQ(picture.TheTexts()[0].angle, 90);
  EXPECT_EQ(picture.TheTexts()[0].colour, 255);
  ASSERT_EQ(picture.TheTexts()[0].items.size(), 1u);
  EXPECT_EQ(picture.TheTexts()[0].items[0].text, "3");
  EXPECT_EQ(picture.CornersOf(picture.TheTints().front()).size(), 3u);
}

TEST(FigurePainter, ALineOfOneDotIsOneDotThickWhereverItLies) {
  for (const double y : {300.0, 304.0, 310.0}) {
    FigurePicture picture(SmallScreen());
    picture.Line({150, y}, {900, y}, {});
    const QRect ink = Inked(Painted(picture, ScreenStyle(1)));
    EXPECT_EQ(ink.height(), 1) << y;
    EXPECT_EQ(ink.top(), 20) << y;  // 300 twips of 15 to the pixel
  }
}

TEST(FigurePainter, AScreenOfTwiceTheDotsShowsTwiceTheSize) {
  FigurePicture picture(SmallScreen());
  picture.Line({150, 300}, {750, 300}, {});
  const QRect ink = Inked(Painted(picture, ScreenStyle(2)));
  EXPECT_EQ(ink.height(), 2);
  EXPECT_NEAR(ink.width(), 80, 2);
}

TEST(FigurePainter, ColourNumbersHaveRedInTheLowByte) {
  FigurePicture picture(SmallScreen());
  picture.Line({150, 300}, {900, 300}, {ColourOf(255, 0, 10)});
  EXPECT_EQ(Painted(picture, ScreenStyle(1)).pixel(30, 20), qRgb(255, 0, 10));
}

TEST(FigurePainter, ATintIsLightAndLiesUnderALineDrawnBefore) {
  FigurePicture picture(SmallScreen());
  picture.Line({0, 600}, {1500, 600}, {});
  const std::array<Point, 4> square = {{{300, 300}, {900, 300}, {900, 900}, {300, 900}}};
  picture.Shade(square, ColourOf(255, 0, 0));
  const QImage image = Painted(picture, ScreenStyle(1));
  EXPECT_EQ(image.pixel(40, 40), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(40, 30), qRgb(255, 217, 217));  // 15 % red on white
}

TEST(FigurePainter, AnUprightTextFillsTheBoxBelowAndRightOfItsCorner) {
  FigurePicture picture(SmallScreen());
  picture.Text({300, 300}, "漢字", 300, 0, kBlack);  // two characters of 20 pixels, from pixel 20, 20
  const QRect ink = Inked(Painted(picture, ScreenStyle(1)));
  EXPECT_TRUE(QRect(20, 20, 40, 21).contains(ink)) << ink.x() << ' ' << ink.y();
  EXPECT_GT(ink.width(), 34);
  EXPECT_GT(ink.height(), 15);
}

TEST(FigurePainter, ATextTurnedByARightAngleRunsUpwards) {
  FigurePicture picture(SmallScreen());
  picture.Text({300, 1200}, "漢字", 300, 90, kBlack);  // up from pixel 20, 80, its feet to the right
  const QRect ink = Inked(Painted(picture, ScreenStyle(1)));
  EXPECT_TRUE(QRect(20, 39, 21, 42).contains(ink)) << ink.x() << ' ' << ink.y();
  EXPECT_GT(ink.height(), 34);
}

TEST(FigurePainter, TextsHaveTheirColourUprightAndTurned) {
  for (const double angle : {0.0, 90.0, 30.0}) {
    FigurePicture picture(SmallScreen());
    picture.Text({600, 750}, "#8", 300, angle, ColourOf(0, 0, 255));
    const QImage image = Painted(picture, ScreenStyle(1));
    EXPECT_FALSE(Inked(image).isNull());
    int other = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) other += qBlue(image.pixel(x, y)) != 255;
    EXPECT_EQ(other, 0) << angle;
  }
}

TEST(FigurePainter, DigitsAndJapaneseStandSideBySideInOneLine) {
  FigurePicture picture(SmallScreen());
  picture.Text({150, 300}, "808", 300, 0, kBlack);   // from pixel 10 to 40
  picture.Text({600, 300}, "節点", 300, 0, kBlack);  // from pixel 40 to 80
  const QImage image = Painted(picture, ScreenStyle(1));
  const QRect digits = Inked(image.copy(0, 0, 40, 100)), words = Inked(image.copy(40, 0, 60, 100));
  EXPECT_TRUE(QRect(10, 20, 30, 21).contains(digits));
  EXPECT_GT(digits.width(), 24);
  EXPECT_TRUE(QRect(0, 20, 40, 21).contains(words));
  EXPECT_GT(words.width(), 34);
}

TEST(FigurePainter, TextsAndDiscsOfAScreenOfTwiceTheDotsAreTwiceAsLarge) {
  FigurePicture picture(SmallScreen());
  picture.Text({300, 300}, "808", 300, 0, kBlack);
  picture.Text({900, 900}, "808", 300, 90, kBlack);
  picture.Circle({1050, 450}, 75, {}, true);
  const QImage once = Painted(picture, ScreenStyle(1)), twice = Painted(picture, ScreenStyle(2), 200);
  for (const QRect& part : {QRect(0, 0, 55, 50), QRect(55, 55, 45, 45), QRect(60, 20, 20, 20)}) {
    const QRect small = Inked(once.copy(part));
    const QRect large = Inked(twice.copy(QRect(part.topLeft() * 2, part.size() * 2)));
    EXPECT_FALSE(small.isNull());
    EXPECT_NEAR(large.width(), 2 * small.width(), 2);
    EXPECT_NEAR(large.height(), 2 * small.height(), 2);
    EXPECT_NEAR(large.left(), 2 * small.left(), 2);
    EXPECT_NEAR(large.top(), 2 * small.top(), 2);
  }
}

TEST(FigurePainter, SmallAndLargeDiscsLieAroundTheirCentre) {
  for (const double radius : {2.0, 3.5, 10.0, 19.0, 30.0}) {
    FigurePicture picture(SmallScreen());
    picture.Circle({750, 750}, radius * 15, {}, radius > 5);  // about the middle of pixel 50, 50
    const QRect ink = Inked(Painted(picture, ScreenStyle(1)));
    EXPECT_EQ(ink.left() + ink.right(), 100) << radius;
    EXPECT_EQ(ink.top() + ink.bottom(), 100) << radius;
    EXPECT_NEAR(ink.width(), 2 * radius + 1, 1.01) << radius;
  }
}

TEST(FigurePainter, OfWhatReachesOutOfTheImageTheRestIsShown) {
  FigurePicture picture(SmallScreen());
  for (const double place : {-200.0, 1400.0}) {
    for (const double angle : {0.0, 45.0, 90.0}) picture.Text({place, place}, "888.88", 300, angle, kBlack);
    picture.Circle({place, 750}, 300, {}, true);
    picture.Circle({place, 750}, 500, {}, false);
    picture.Line({place, place}, {750, 750}, {});
  }
  EXPECT_EQ(Inked(Painted(picture, ScreenStyle(1))), QRect(0, 0, 100, 100));
}

TEST(FigurePainter, WhatIsNoNumberOrFarAwayIsNotPainted) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double far : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e9, -1e300}) {
    FigurePicture picture(SmallScreen());
    for (const double angle : {0.0, 90.0}) picture.Text({far, 300}, "12.5", 160, angle, kBlack);
    picture.Circle({300, far}, 30, {}, true);
    picture.Circle({300, far}, 30, {}, false);
    picture.Line({300, far}, {600, far}, {});
    EXPECT_TRUE(Inked(Painted(picture, ScreenStyle(1))).isNull()) << far;
  }
}

TEST(FigurePainter, AWideOrBrokenLineKeepsItsWidthAndItsGaps) {
  FigurePicture picture(SmallScreen());
  picture.Line({150, 300}, {1350, 300}, {kBlack, LineStyle::Solid, 5});
  picture.Line({150, 900}, {1350, 900}, {kBlack, LineStyle::Dashed, 1});
  const QImage image = Painted(picture, ScreenStyle(1));
  EXPECT_EQ(Inked(image.copy(0, 0, 100, 50)).height(), 5);
  int dark = 0;
  for (int x = 10; x < 90; ++x) dark += image.pixel(x, 60) != qRgb(255, 255, 255);
  EXPECT_GT(dark, 30);
  EXPECT_LT(dark, 75);
}

TEST(FigurePainter, OfVeryManyLinesNoDotIsMixed) {
  FigurePicture picture(SmallScreen());
  for (int k = 0; k <= 20000; ++k) picture.Line({150, 150}, {1350, 150.0 + k % 40 * 30}, {});
  const QImage image = Painted(picture, ScreenStyle(1));
  int mixed = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      mixed += image.pixel(x, y) != qRgb(255, 255, 255) && image.pixel(x, y) != qRgb(0, 0, 0);
  EXPECT_EQ(mixed, 0);
}

TEST(FigurePainter, ADiscIsFilledAndACircleIsNot) {
  FigurePicture picture(SmallScreen());
  picture.Circle({375, 375}, 150, {}, true);
  picture.Circle({1125, 375}, 150, {}, false);
  const QImage image = Painted(picture, ScreenStyle(1));
  EXPECT_EQ(image.pixel(25, 25), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(75, 25), qRgb(255, 255, 255));
}

TEST(FigurePainter, AnImageOfASheetHas200DotsAnInch) {
  FigurePicture picture(A4());
  picture.Line({0, 0}, {1440, 0}, {});
  const std::string bytes = PicturePng(picture);
  const QImage image = QImage::fromData(QByteArray::fromStdString(bytes));
  EXPECT_EQ(image.size(), QSize(1654, 2339));  // 210 x 297 mm
  EXPECT_EQ(image.dotsPerMeterX(), 7874);
}

TEST(FigurePainter, ADrawingHasTheSheetsSizeAndItsTextsAsCharacters) {
  FigurePicture picture(A4());
  picture.Text({1440, 1440}, "梁", 160, 0, kBlack);
  const std::string svg = PictureSvg(picture);
  EXPECT_THAT(svg, HasSubstr("width=\"210"));
  EXPECT_THAT(svg, HasSubstr(">梁</text>"));
  EXPECT_THAT(svg, HasSubstr("font-family=\"IPAGothic\""));
}

TEST(FigurePainter, ADocumentHasAPageForEachPicture) {
  std::vector<FigurePicture> pages(3, FigurePicture(A4()));
  const std::string pdf = PicturesPdf(pages);
  EXPECT_THAT(pdf, StartsWith("%PDF"));
  EXPECT_THAT(pdf, HasSubstr("/Count 3"));
  EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 595"));
  EXPECT_EQ(PicturesPdf({}), "");
}

TEST(FigurePainter, AnImageThatCannotBeHadIsAFault) {
  const double side = 200e6 * kTwipsPerMm;  // 200 km: more bytes than 64 bits can count
  EXPECT_THROW(PicturePng(FigurePicture({.page = true, .width = side, .height = side})), Fault);
}

}  // namespace
}  // namespace zorlan

// Pictures of figures on dots, on sheets and in files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
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
  QPainter painter(&image);
  PaintPicture(painter, picture, style);
  return image;
}

/// The smallest rectangle around what isn't white.
QRect Ink(const QImage& image) {
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
  EXPECT_EQ(picture.TheLines()[0].lines.size(), 2u);
  EXPECT_EQ(picture.TheLines()[1].lines.front(), QLineF(0, 0, 0, 15));
}

TEST(FigurePicture, KeepsTheTextsOfAHeightAndAngleTogether) {
  FigurePicture picture(SmallScreen());
  picture.Text({0, 0}, "1", 160, 0, kBlack);
  picture.Text({0, 0}, "2", 160, 90, kBlack);
  picture.Text({0, 0}, "3", 160, 0, kBlack);
  ASSERT_EQ(picture.TheTexts().size(), 2u);
  EXPECT_EQ(picture.TheTexts()[0].texts[1].text, "3");
}

TEST(FigurePainter, ALineOfOneDotIsOneDotThickWhereverItLies) {
  for (const double y : {300.0, 304.0, 310.0}) {
    FigurePicture picture(SmallScreen());
    picture.Line({150, y}, {900, y}, {});
    const QRect ink = Ink(Painted(picture, ScreenStyle(1)));
    EXPECT_EQ(ink.height(), 1) << y;
    EXPECT_EQ(ink.top(), 20) << y;  // 300 twips of 15 to the pixel
  }
}

TEST(FigurePainter, AScreenOfTwiceTheDotsShowsTwiceTheSize) {
  FigurePicture picture(SmallScreen());
  picture.Line({150, 300}, {750, 300}, {});
  const QRect ink = Ink(Painted(picture, ScreenStyle(2)));
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
  const QRect ink = Ink(Painted(picture, ScreenStyle(1)));
  EXPECT_TRUE(QRect(20, 20, 40, 21).contains(ink)) << ink.x() << ' ' << ink.y();
  EXPECT_GT(ink.width(), 34);
  EXPECT_GT(ink.height(), 15);
}

TEST(FigurePainter, ATextTurnedByARightAngleRunsUpwards) {
  FigurePicture picture(SmallScreen());
  picture.Text({300, 1200}, "漢字", 300, 90, kBlack);  // up from pixel 20, 80, its feet to the right
  const QRect ink = Ink(Painted(picture, ScreenStyle(1)));
  EXPECT_TRUE(QRect(20, 39, 21, 42).contains(ink)) << ink.x() << ' ' << ink.y();
  EXPECT_GT(ink.height(), 34);
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
  const double kilometre = 1e6 * kTwipsPerMm;
  EXPECT_THROW(PicturePng(FigurePicture({.page = true, .width = kilometre, .height = kilometre})), Fault);
}

}  // namespace
}  // namespace zorlan

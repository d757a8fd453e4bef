// The surface that a figure is drawn on: the screen, a page, a recorder. It offers a few operations and says
// what it is; nobody above knows which one it has. Both kinds of surface count in twips (1/1440 inch) from
// the left upper corner, y downward.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace zorlan {

struct Point {
  double x = 0, y = 0;
};

/// A colour number: red + 256 green + 65536 blue, "&H0000FF" is red.
using Rgb = std::int32_t;
inline constexpr Rgb ColourOf(int red, int green, int blue) {
  return red + 256 * green + 65536 * blue;
}
inline constexpr Rgb kBlack = 0;

/// "実線", "鎖線", "点線", "一点鎖線", "二点鎖線".
enum class LineStyle : std::uint8_t { Solid, Dashed, Dotted, DashDot, DashDotDot };

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerCm = kTwipsPerInch / 2.54;
inline constexpr double kTwipsPerMm = kTwipsPerCm / 10;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerPixel = 15;  // of the screen, 96 to the inch (TwipsPerPixelX)

/// How a line or a circle is drawn. The width counts dots; a surface shows a dot in the measure that suits it
/// (a pixel of 96 to the inch on the screen, a finer one on paper).
struct Pen {
  Rgb colour = kBlack;
  LineStyle style = LineStyle::Solid;
  double width = 1;
};

/// What the surface is, in twips.
struct Surface {
  bool page = false;             // a printed page: margins and cells; else the screen
  double width = 0, height = 0;  // of the whole page, or of the visible area (ScaleWidth, ScaleHeight)
  double marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0;  // of a page
};

/// Text is measured by rule and not by a font file, so that a figure is the same on every machine: a
/// half-width character is half as wide as the font is high, a full-width one as wide. The gothic face
/// of the figures (render/fonts.h) keeps this exactly.
double TextWidth(std::string_view text, double height);
inline double TextHeight(double height) {
  return height;
}

/// The operations of a surface. Coordinates are finite and near the surface: the primitives of plot.h see to
/// that. Texts are UTF-8 of one line.
class PlotTarget {
 public:
  virtual ~PlotTarget() = default;

  virtual Surface TheSurface() const = 0;

  virtual void Line(Point from, Point to, const Pen& pen) = 0;
  /// An outline, or a disc of the pen's colour.
  virtual void Circle(Point centre, double radius, const Pen& pen, bool filled) = 0;
  /// A text in "ＭＳ ゴシック" of this height. `origin` is the left upper corner of its box, about which it
  /// is turned by `angle` degrees counter-clockwise.
  virtual void Text(Point origin, std::string_view text, double height, double angle, Rgb colour) = 0;
  /// A light tint of the colour under a diagram. It is not an operation of the drawing list.
  virtual void Shade(std::span<const Point> polygon, Rgb colour) = 0;
};

}  // namespace zorlan

// Pictures of figures on Qt's painter, and the files that are made of them.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <span>
#include <string>

#include "render/figure_picture.h"

class QImage;
class QPagedPaintDevice;
class QPainter;

namespace zorlan {

/// How a picture is laid on a painter.
struct PictureStyle {
  double scale = 1;  // painter units a twip
  double dot = 1;    // painter units a dot of a pen
  QPointF origin;    // of the picture, in painter units
  /// Texts are handed on as characters instead of glyphs: slower, but a vector file's reader can take them.
  bool characters = false;
};

/// A dot on paper is 0.14 mm: a line of one dot is fine and still stands a copier.
inline constexpr double kTwipsPerPaperDot = 8;

/// The style for a device of a resolution.
PictureStyle DeviceStyle(double dotsPerInch);
/// Paints on a page or into a drawing.
void PaintPicture(QPainter& painter, const FigurePicture& picture, const PictureStyle& style);

/// The style for a screen with so many dots a pixel of 96 to the inch, and for a sheet shown on dots.
PictureStyle ScreenStyle(double dotsPerPixel);
PictureStyle SheetStyle(double dotsPerTwip);
/// Paints on the dots of an image (Format_RGB32, device pixel ratio 1): lines come to lie on them and are
/// never thinner than one.
void PaintPicture(QImage& image, const FigurePicture& picture, const PictureStyle& style);

/// The sheet of a page picture, in mm.
QSizeF SheetOf(const FigurePicture& picture);
/// Sets a paged device to the sheet of a picture, without margins.
void SetSheet(QPagedPaintDevice& device, const FigurePicture& picture);

/// Files of pictures, their bytes: a PDF of all pages, an SVG drawing, a PNG image. Throw Fault for a picture
/// that can't be painted.
std::string PicturesPdf(std::span<const FigurePicture> pages);
std::string PictureSvg(const FigurePicture& picture);
std::string PicturePng(const FigurePicture& picture);

}  // namespace zorlan

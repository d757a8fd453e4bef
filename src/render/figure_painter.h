// Pictures of figures on Qt's painter, and the files that are made of them.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <span>
#include <string>

#include "render/figure_picture.h"

class QPagedPaintDevice;
class QPainter;

namespace zorlan {

/// How a picture is laid on a painter.
struct PictureStyle {
  double scale = 1;  // painter units a twip
  double dot = 1;    // painter units a dot of a pen
  QPointF origin;    // of the picture, in painter units
  /// Painter units are the dots of a screen: lines come to lie on them and are never thinner than one.
  bool pixels = false;
  bool antialiasing = true;
  /// Texts are handed on as characters instead of glyphs: slower, but a vector file's reader can take them.
  bool characters = false;
};

/// A dot on paper is 0.14 mm: a line of one dot is fine and still stands a copier.
inline constexpr double kTwipsPerPaperDot = 8;

/// The style for a screen with so many dots a pixel of 96 to the inch.
PictureStyle ScreenStyle(double dotsPerPixel);
/// The style for a sheet on dots, such as an image or a preview, and on a device of a resolution.
PictureStyle SheetStyle(double dotsPerTwip);
PictureStyle DeviceStyle(double dotsPerInch);

void PaintPicture(QPainter& painter, const FigurePicture& picture, const PictureStyle& style);

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

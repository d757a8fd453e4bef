#include "render/figure_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QSvgGenerator>

#include "base/fault.h"
#include "render/fonts.h"
#include "render/glyph_runs.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"

namespace zorlan {
namespace {

constexpr double kTint = 0.85;  // of white in a tint
constexpr double kPixelsPerInch = 96;
constexpr double kMmPerInch = 25.4;
constexpr double kImageDotsPerInch = 200;

QColor ColourOf(Rgb colour) {
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

QColor TintOf(Rgb colour) {
  const auto light = [](int part) { return static_cast<int>(std::lround(part * (1 - kTint) + 255 * kTint)); };
  const QColor full = ColourOf(colour);
  return QColor(light(full.red()), light(full.green()), light(full.blue()));
}

Qt::PenStyle StyleOf(LineStyle style) {
  switch (style) {
    case LineStyle::Solid:
      return Qt::SolidLine;
    case LineStyle::Dashed:
      return Qt::DashLine;
    case LineStyle::Dotted:
      return Qt::DotLine;
    case LineStyle::DashDot:
      return Qt::DashDotLine;
    case LineStyle::DashDotDot:
      return Qt::DashDotDotLine;
  }
  return Qt::SolidLine;
}

class PicturePainter {
 public:
  PicturePainter(QPainter& painter, const PictureStyle& style) : painter_(painter), style_(style) {}

  void Paint(const FigurePicture& picture) {
    painter_.save();
    painter_.setBrush(Qt::NoBrush);
    // A tint's edge lies under a line.
    painter_.setRenderHint(QPainter::Antialiasing, !style_.pixels);
    for (const FigurePicture::Tint& tint : picture.TheTints()) PaintTint(tint);
    painter_.setRenderHint(QPainter::Antialiasing,
                           style_.antialiasing && !(style_.pixels && IsDense(picture)));
    for (const FigurePicture::Lines& lines : picture.TheLines()) PaintLines(lines);
    for (const FigurePicture::Discs& discs : picture.TheDiscs()) PaintDiscs(discs);
    for (const FigurePicture::Texts& texts : picture.TheTexts()) PaintTexts(texts);
    painter_.restore();
  }

 private:
  QPointF At(QPointF twips) const { return style_.origin + twips * style_.scale; }
  /// The nearest place for the middle of a line: a pixel's middle, or an edge when the line is an even number
  /// wide.
  QPointF OnPixel(QPointF place, double width) const {
    if (!style_.pixels) return place;
    if (std::fmod(width, 2) == 0) return {std::round(place.x()), std::round(place.y())};
    return {std::floor(place.x()) + 0.5, std::floor(place.y()) + 0.5};
  }
  QPen PenOf(const Pen& pen) const {
    const double width = pen.width * style_.dot;
    // Whole pixels, so that a line is as dark wherever it lies.
    QPen drawn(ColourOf(pen.colour), style_.pixels ? std::max(1.0, std::round(width)) : width);
    drawn.setStyle(StyleOf(pen.style));
    drawn.setCapStyle(pen.style == LineStyle::Solid ? Qt::RoundCap : Qt::FlatCap);
    return drawn;
  }

  /// So many lines that smooth ones would look no better and take too long.
  static bool IsDense(const FigurePicture& picture) {
    constexpr std::size_t kManyLines = 20000;
    std::size_t lines = 0;
    for (const FigurePicture::Lines& group : picture.TheLines()) lines += group.lines.size();
    return lines > kManyLines;
  }

  void PaintTint(const FigurePicture::Tint& tint) {
    QPolygonF polygon;
    polygon.reserve(tint.polygon.size());
    for (const QPointF& corner : tint.polygon) polygon.append(At(corner));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(TintOf(tint.colour));
    painter_.drawPolygon(polygon);
    painter_.setBrush(Qt::NoBrush);
  }
  void PaintLines(const FigurePicture::Lines& group) {
    const QPen pen = PenOf(group.pen);
    QList<QLineF> lines;
    lines.reserve(static_cast<qsizetype>(group.lines.size()));
    for (const QLineF& line : group.lines) {
      const QPointF from = At(line.p1()), to = At(line.p2());
      // A sloping line keeps its ends: moved to the dots, the chords of a curve would make it uneven.
      const bool straight = line.dx() == 0 || line.dy() == 0;
      lines.append(straight ? QLineF(OnPixel(from, pen.widthF()), OnPixel(to, pen.widthF()))
                            : QLineF(from, to));
    }
    painter_.setPen(pen);
    painter_.drawLines(lines);
  }
  void PaintDiscs(const FigurePicture::Discs& group) {
    const QPen outline = PenOf(group.pen);
    const QColor colour = ColourOf(group.pen.colour);
    for (const bool filled : {false, true}) {
      painter_.setPen(filled ? QPen(Qt::NoPen) : outline);
      painter_.setBrush(filled ? QBrush(colour) : QBrush(Qt::NoBrush));
      for (const FigurePicture::Disc& disc : group.discs) {
        if (disc.filled != filled) continue;
        const double radius = disc.radius * style_.scale;
        painter_.drawEllipse(OnPixel(At(disc.centre), outline.widthF()), radius, radius);
      }
    }
    painter_.setBrush(Qt::NoBrush);
  }

  void PaintTexts(const FigurePicture::Texts& group) {
    const double height = group.height * style_.scale;
    if (!(height >= kSmallestText)) return;
    painter_.setPen(ColourOf(group.colour));
    if (group.angle == 0) {
      PaintUpright(group, height, [this](QPointF origin) { return At(origin); });
      return;
    }
    // The painter is turned; a place is where the turn brings it from.
    const double angle = group.angle * std::numbers::pi / 180;
    const double c = std::cos(angle), s = std::sin(angle);
    painter_.save();
    painter_.rotate(-group.angle);
    PaintUpright(group, height, [&](QPointF origin) {
      const QPointF p = At(origin);
      return QPointF(p.x() * c - p.y() * s, p.x() * s + p.y() * c);
    });
    painter_.restore();
  }
  template <class Place>
  void PaintUpright(const FigurePicture::Texts& group, double height, Place place) {
    if (style_.characters) {
      const QFont font = FixedFontOfHeight(std::max(1, static_cast<int>(std::lround(height))));
      const double ascent = QFontMetricsF(font).ascent();
      painter_.setFont(font);
      for (const FigurePicture::PlacedText& text : group.texts)
        painter_.drawText(place(text.origin) + QPointF(0, ascent), ToQt(text.text));
      return;
    }
    GlyphRun run(height);
    for (const FigurePicture::PlacedText& text : group.texts) {
      QPointF origin = place(text.origin);
      // Base lines on a row of dots: the feet of the digits stay sharp.
      if (style_.pixels) origin.setY(std::round(origin.y() + run.Ascent()) - run.Ascent());
      run.Add(origin, text.text);
    }
    run.Paint(painter_);
  }

  static constexpr double kSmallestText = 0.5;  // painter units: nothing of a smaller one could be seen

  QPainter& painter_;
  const PictureStyle& style_;
};

[[noreturn]] void FailToPaint() {
  throw Fault("図を作成できません。図が大きすぎるか、メモリが不足しています");
}

/// The bytes that `write` puts on a device; none at all is a fault.
template <class Write>
std::string BytesOf(Write write) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  write(buffer);
  if (bytes.isEmpty()) FailToPaint();
  return bytes.toStdString();
}

}  // namespace

PictureStyle ScreenStyle(double dotsPerPixel) {
  PictureStyle style;
  style.scale = dotsPerPixel * kPixelsPerInch / kTwipsPerInch;
  style.dot = dotsPerPixel;
  style.pixels = true;
  return style;
}

PictureStyle SheetStyle(double dotsPerTwip) {
  PictureStyle style;
  style.scale = dotsPerTwip;
  style.dot = dotsPerTwip * kTwipsPerPaperDot;
  style.pixels = true;
  return style;
}

PictureStyle DeviceStyle(double dotsPerInch) {
  PictureStyle style;
  style.scale = dotsPerInch / kTwipsPerInch;
  style.dot = style.scale * kTwipsPerPaperDot;
  return style;
}

void PaintPicture(QPainter& painter, const FigurePicture& picture, const PictureStyle& style) {
  PicturePainter(painter, style).Paint(picture);
}

QSizeF SheetOf(const FigurePicture& picture) {
  const Surface surface = picture.TheSurface();
  // To whole tenths: twips are no measure of paper.
  const auto mm = [](double twips) { return std::round(twips / kTwipsPerMm * 10) / 10; };
  return {mm(surface.width), mm(surface.height)};
}

void SetSheet(QPagedPaintDevice& device, const FigurePicture& picture) {
  SetSheet(device, SheetOf(picture));
}

std::string PicturesPdf(std::span<const FigurePicture> pages) {
  if (pages.empty()) return {};
  return BytesOf([&](QIODevice& device) {
    QPdfWriter writer(&device);
    writer.setResolution(static_cast<int>(kTwipsPerInch));
    writer.setTitle(ToQt(kJobTitle));
    SetSheet(writer, pages.front());
    QPainter painter(&writer);
    for (const FigurePicture& page : pages) {
      if (&page != &pages.front()) {
        SetSheet(writer, page);
        writer.newPage();
      }
      PaintPicture(painter, page, DeviceStyle(kTwipsPerInch));
    }
  });
}

std::string PictureSvg(const FigurePicture& picture) {
  return BytesOf([&](QIODevice& device) {
    const Surface surface = picture.TheSurface();
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setTitle(ToQt(kJobTitle));
    generator.setResolution(static_cast<int>(kMmPerInch * 10));  // the size counts tenths of a millimetre
    generator.setSize((SheetOf(picture) * 10).toSize());
    generator.setViewBox(QRectF(0, 0, surface.width, surface.height));
    QPainter painter(&generator);
    PictureStyle style = DeviceStyle(kTwipsPerInch);
    style.characters = true;
    PaintPicture(painter, picture, style);
  });
}

std::string PicturePng(const FigurePicture& picture) {
  return BytesOf([&](QIODevice& device) {
    const Surface surface = picture.TheSurface();
    const double scale = kImageDotsPerInch / kTwipsPerInch;
    QImage image(static_cast<int>(std::lround(surface.width * scale)),
                 static_cast<int>(std::lround(surface.height * scale)), QImage::Format_RGB32);
    if (image.isNull()) FailToPaint();
    const int dotsPerMeter = static_cast<int>(std::lround(kImageDotsPerInch / kMmPerInch * 1000));
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    image.fill(Qt::white);
    {
      QPainter painter(&image);
      PaintPicture(painter, picture, SheetStyle(scale));
    }
    image.save(&device, "PNG");
  });
}

}  // namespace zorlan

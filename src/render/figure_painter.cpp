#include "render/figure_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
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
#include <QPolygonF>
#include <QSvgGenerator>
#include <utility>

#include "base/fault.h"
#include "render/fonts.h"
#include "render/glyph_runs.h"
#include "render/glyph_stamps.h"
#include "render/ink.h"
#include "render/qt_colour.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"

namespace zorlan {
namespace {

constexpr double kTint = 0.85;  // of white in a tint
constexpr double kPixelsPerInch = 96;
constexpr double kMmPerInch = 25.4;
constexpr double kImageDotsPerInch = 200;

QColor TintOf(Rgb colour) {
  const auto light = [](int part) { return static_cast<int>(std::lround(part * (1 - kTint) + 255 * kTint)); };
  const QColor full = QtColour(colour);
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

/// Lays a picture on a page, or, with ink, on the dots of an image: there the painter is left what is rare.
class PicturePainter {
 public:
  PicturePainter(QPainter& painter, Ink* ink, const PictureStyle& style)
      : painter_(painter), ink_(ink), style_(style) {}

  void Paint(const FigurePicture& picture) {
    smooth_ = ink_ == nullptr || !IsDense(picture);
    painter_.save();
    painter_.setBrush(Qt::NoBrush);
    painter_.setRenderHint(QPainter::Antialiasing, ink_ == nullptr);  // a tint's edge lies under a line
    for (const FigurePicture::Tint& tint : picture.TheTints())
      PaintTint(picture.CornersOf(tint), TintOf(tint.colour));
    painter_.setRenderHint(QPainter::Antialiasing, smooth_);
    for (const FigurePicture::Lines& lines : picture.TheLines()) PaintLines(lines);
    if (!smooth_) painter_.setRenderHint(QPainter::Antialiasing);
    for (const FigurePicture::Discs& discs : picture.TheDiscs()) PaintDiscs(discs);
    for (const FigurePicture::Texts& texts : picture.TheTexts()) PaintTexts(texts);
    painter_.restore();
  }

 private:
  // What ink is used for, in dots. The ends of a wider line would show that they aren't round.
  static constexpr double kThinLine = 2, kSmallDisc = 20, kSmallText = 50;
  static constexpr double kSmallestText = 0.5;  // painter units: nothing of a smaller one could be seen

  QPointF At(QPointF twips) const { return style_.origin + twips * style_.scale; }
  /// The nearest place for the middle of a line: a dot's middle, or an edge when the line is an even number
  /// wide.
  QPointF OnDot(QPointF place, double width) const {
    if (ink_ == nullptr) return place;
    if (static_cast<int>(width) % 2 == 0) return {std::round(place.x()), std::round(place.y())};
    return {std::floor(place.x()) + 0.5, std::floor(place.y()) + 0.5};
  }
  QPen PenOf(const Pen& pen) const {
    const double width = pen.width * style_.dot;
    // Whole dots, so that a line is as dark wherever it lies.
    QPen drawn(QtColour(pen.colour), ink_ != nullptr ? std::max(1.0, std::round(width)) : width);
    drawn.setStyle(StyleOf(pen.style));
    drawn.setCapStyle(pen.style == LineStyle::Solid ? Qt::RoundCap : Qt::FlatCap);
    return drawn;
  }

  /// So many lines that smooth ones would look no better and take too long.
  static bool IsDense(const FigurePicture& picture) {
    constexpr std::size_t kManyLines = 20000;
    std::size_t lines = 0;
    for (const FigurePicture::Lines& group : picture.TheLines()) lines += group.items.size();
    return lines > kManyLines;
  }

  void PaintTint(std::span<const QPointF> corners, const QColor& colour) {
    polygon_.clear();
    for (const QPointF& corner : corners) polygon_.append(At(corner));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colour);
    painter_.drawPolygon(polygon_);
    painter_.setBrush(Qt::NoBrush);
  }

  void PaintLines(const FigurePicture::Lines& group) {
    const QPen pen = PenOf(group.pen);
    const double width = pen.widthF();
    const auto placed = [&](const QLineF& line) {
      const QPointF from = At(line.p1()), to = At(line.p2());
      // A sloping line keeps its ends: moved to the dots, the chords of a curve would make it uneven.
      const bool straight = line.dx() == 0 || line.dy() == 0;
      return straight ? QLineF(OnDot(from, width), OnDot(to, width)) : QLineF(from, to);
    };
    if (ink_ != nullptr && group.pen.style == LineStyle::Solid && width <= kThinLine) {
      ink_->SetColour(pen.color().rgb());
      for (const QLineF& line : group.items) {
        const QLineF drawn = placed(line);
        ink_->Line(drawn.p1(), drawn.p2(), width, smooth_);
      }
      return;
    }
    QList<QLineF> lines;
    lines.reserve(static_cast<qsizetype>(group.items.size()));
    for (const QLineF& line : group.items) lines.append(placed(line));
    painter_.setPen(pen);
    painter_.drawLines(lines);
  }

  void PaintDiscs(const FigurePicture::Discs& group) {
    const QPen outline = PenOf(group.pen);
    if (ink_ != nullptr) ink_->SetColour(outline.color().rgb());
    for (const bool filled : {false, true}) {
      painter_.setPen(filled ? QPen(Qt::NoPen) : outline);
      painter_.setBrush(filled ? QBrush(outline.color()) : QBrush(Qt::NoBrush));
      double radiusOfStamp = -1;
      Stamp stamp;  // the nodes of a figure are all alike
      for (const FigurePicture::Disc& disc : group.items) {
        if (disc.filled != filled) continue;
        const double radius = disc.radius * style_.scale;
        const QPointF centre = OnDot(At(disc.centre), outline.widthF());
        if (ink_ == nullptr || !(radius >= 0 && radius + outline.widthF() < kSmallDisc)) {
          painter_.drawEllipse(centre, radius, radius);
          continue;
        }
        if (radius != std::exchange(radiusOfStamp, radius))
          stamp = StampOfDisc(OnDot({0, 0}, outline.widthF()), radius);
        ink_->Put(stamp, centre);
      }
    }
    painter_.setBrush(Qt::NoBrush);
  }
  /// In the painter's pen and brush.
  Stamp StampOfDisc(QPointF centre, double radius) const {
    const int reach = static_cast<int>(std::ceil(radius + painter_.pen().widthF())) + 1;
    return StampOf(QRect(-reach, -reach, 2 * reach + 1, 2 * reach + 1), /*turned=*/false,
                   [&](QPainter& painter) {
                     painter.setPen(painter_.pen());
                     painter.setBrush(painter_.brush());
                     painter.drawEllipse(centre, radius, radius);
                   });
  }

  void PaintTexts(const FigurePicture::Texts& group) {
    const double height = group.height * style_.scale;
    if (!(height >= kSmallestText)) return;
    painter_.setPen(QtColour(group.colour));
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
      for (const FigurePicture::PlacedText& text : group.items)
        painter_.drawText(place(text.origin) + QPointF(0, ascent), ToQt(text.text));
      return;
    }
    std::optional<GlyphStamps> stamps;
    if (ink_ != nullptr && height < kSmallText && (group.angle == 0 || group.angle == 90)) {
      stamps.emplace(height, group.angle == 90);
      ink_->SetColour(painter_.pen().color().rgb());
    }
    GlyphRun run(height);
    for (const FigurePicture::PlacedText& text : group.items) {
      if (stamps && stamps->Write(*ink_, At(text.origin), text.text)) continue;
      QPointF origin = place(text.origin);
      // Base lines on a row of dots: the feet of the digits stay sharp.
      if (ink_ != nullptr) origin.setY(std::round(origin.y() + run.Ascent()) - run.Ascent());
      run.Add(origin, text.text);
    }
    run.Paint(painter_);
  }

  QPainter& painter_;
  Ink* ink_;
  const PictureStyle& style_;
  bool smooth_ = true;  // the lines
  QPolygonF polygon_;   // of a tint
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
  return style;
}

PictureStyle SheetStyle(double dotsPerTwip) {
  PictureStyle style;
  style.scale = dotsPerTwip;
  style.dot = dotsPerTwip * kTwipsPerPaperDot;
  return style;
}

PictureStyle DeviceStyle(double dotsPerInch) {
  PictureStyle style;
  style.scale = dotsPerInch / kTwipsPerInch;
  style.dot = style.scale * kTwipsPerPaperDot;
  return style;
}

void PaintPicture(QPainter& painter, const FigurePicture& picture, const PictureStyle& style) {
  PicturePainter(painter, nullptr, style).Paint(picture);
}

void PaintPicture(QImage& image, const FigurePicture& picture, const PictureStyle& style) {
  Ink ink(image);
  QPainter painter(&image);
  PicturePainter(painter, &ink, style).Paint(picture);
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
    PaintPicture(image, picture, SheetStyle(scale));
    image.save(&device, "PNG");
  });
}

}  // namespace zorlan

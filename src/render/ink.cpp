#include "render/ink.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <QImage>
#include <QPainter>
#include <QTransform>
#include <utility>

#include "graphics/plot.h"

namespace zorlan {
namespace {

constexpr std::uint16_t kAll = 256;  // of a dot

/// Mixes colours into neighbouring dots: byte by byte, all alike, of which the compiler makes a few vector
/// operations.
void MixGroup(QRgb* dots, const Stamp::Bytes& colours, const Stamp::Bytes& shares) {
  std::array<std::uint8_t, Stamp::kDots * sizeof(QRgb)> bytes;
  std::memcpy(bytes.data(), dots, bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto rest = static_cast<std::uint16_t>(kAll - shares[i]);
    const auto sum = static_cast<std::uint16_t>(bytes[i] * rest + colours[i] * shares[i]);
    bytes[i] = static_cast<std::uint8_t>(sum >> 8);
  }
  std::memcpy(dots, bytes.data(), bytes.size());
}

/// The same for a single dot, two bytes of its colour at a time.
void MixDot(QRgb& dot, QRgb colour, unsigned share) {
  constexpr QRgb kRedBlue = 0x00ff00ff;
  const unsigned rest = kAll - share;
  const QRgb redBlue = (dot & kRedBlue) * rest + (colour & kRedBlue) * share;
  const QRgb green = (dot >> 8 & kRedBlue) * rest + (colour >> 8 & kRedBlue) * share;
  dot = (redBlue >> 8 & kRedBlue) | (green & ~kRedBlue);
}

// A line is followed in whole numbers, 65536 to a dot: without rounding functions.
using Fixed = std::int64_t;
constexpr int kBits = 16;
constexpr Fixed kDot = Fixed(1) << kBits;

Fixed FixedOf(double dots) {
  return static_cast<Fixed>(dots * kDot);
}
int Floor(Fixed v) {
  return static_cast<int>(v >> kBits);
}
int Ceil(Fixed v) {
  return Floor(v + kDot - 1);
}
/// How much of the dot k lies from `begin` to `end`.
Fixed Covered(int k, Fixed begin, Fixed end) {
  return std::min((k + Fixed(1)) << kBits, end) - std::max(Fixed(k) << kBits, begin);
}

/// The dots across a line, one by one.
struct Column {
  QRgb* dots;
  std::ptrdiff_t step;
  int count;

  void Mix(Fixed begin, Fixed end, Fixed share, QRgb colour) const {
    const int after = std::min(count, Ceil(end));
    for (int k = std::max(0, Floor(begin)); k < after; ++k) {
      const Fixed part = (Covered(k, begin, end) * share) >> (2 * kBits - 8);
      MixDot(dots[k * step], colour, static_cast<unsigned>(part));
    }
  }
  void Fill(int begin, int end, QRgb colour) const {
    end = std::min(count, end);
    for (int k = std::max(0, begin); k < end; ++k) dots[k * step] = colour;
  }
};

}  // namespace

bool IsNear(QPointF place) {
  constexpr double kFar = 1e6;
  return std::abs(place.x()) < kFar && std::abs(place.y()) < kFar;  // false for what is no number
}

Stamp StampOf(const QRect& area, bool turned, const std::function<void(QPainter&)>& paint) {
  QImage image(area.size(), QImage::Format_Alpha8);
  image.fill(0);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-area.topLeft());
    paint(painter);
  }
  QPoint corner = area.topLeft();
  if (turned) {
    image = image.transformed(QTransform().rotate(-90));
    corner = {area.top(), -area.right() - 1};
  }
  constexpr int kDots = Stamp::kDots;
  Stamp stamp;
  for (int y = 0; y < image.height(); ++y) {
    const uchar* const row = image.constScanLine(y);
    for (int x = 0; x < image.width(); ++x) {
      if (row[x] == 0) continue;
      Stamp::Group group{corner.x() + x, corner.y() + y};
      for (int k = 0; k < kDots && x + k < image.width(); ++k) {
        const int share = row[x + k] + (row[x + k] >> 7);  // 255 is all of a dot
        std::fill_n(&group.shares[k * sizeof(QRgb)], sizeof(QRgb), static_cast<std::uint16_t>(share));
      }
      stamp.area |= QRect(group.x, group.y, kDots, 1);
      stamp.groups.push_back(group);
      x += kDots - 1;
    }
  }
  return stamp;
}

Ink::Ink(QImage& image)
    : dots_(reinterpret_cast<QRgb*>(image.bits())),
      stride_(image.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(QRgb))),
      width_(image.width()),
      height_(image.height()) {}

void Ink::SetColour(QRgb colour) {
  colour_ = colour;
  std::array<std::uint8_t, sizeof(QRgb)> bytes;
  std::memcpy(bytes.data(), &colour, sizeof colour);
  for (std::size_t i = 0; i < colours_.size(); ++i) colours_[i] = bytes[i % bytes.size()];
}

void Ink::Line(QPointF from, QPointF to, double width, bool smooth) {
  Point a = {from.x(), from.y()}, b = {to.x(), to.y()};
  if (!Clipping({-width, -width, width_ + width, height_ + width}, a, b)) return;
  // x along the greater extent, column by column; y across, where the line is a few dots thick.
  const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
  if (steep) std::swap(a.x, a.y), std::swap(b.x, b.y);
  if (a.x > b.x) std::swap(a, b);
  const int columns = steep ? height_ : width_, rows = steep ? width_ : height_;
  const std::ptrdiff_t along = steep ? stride_ : 1, across = steep ? 1 : stride_;

  const double dx = b.x - a.x, dy = b.y - a.y, length = std::sqrt(dx * dx + dy * dy);
  const double slope = dx > 0 ? dy / dx : 0, stretch = dx > 0 ? length / dx : 1;
  const double beyond = length > 0 ? width / 2 * dx / length : width / 2;
  const Fixed begin = FixedOf(a.x - beyond), end = FixedOf(b.x + beyond);
  const Fixed step = FixedOf(slope), thickness = FixedOf(width * stretch);
  const int wholeThickness = std::max(1, Floor(thickness + kDot / 2));
  const int first = std::max(0, Floor(begin)), after = std::min(columns, Ceil(end));
  Fixed edge = FixedOf(a.y + (first + 0.5 - a.x) * slope - width * stretch / 2);
  for (int k = first; k < after; ++k, edge += step) {
    const Column column = {dots_ + k * along, across, rows};
    const Fixed middle = (Fixed(k) << kBits) + kDot / 2;
    const int top = Floor(edge + kDot / 2);
    if (smooth)
      column.Mix(edge, edge + thickness, Covered(k, begin, end), colour_);
    else if (begin <= middle && middle < end)
      column.Fill(top, top + wholeThickness, colour_);
  }
}

void Ink::Put(const Stamp& stamp, QPointF place) {
  if (!IsNear(place)) return;
  const int x = static_cast<int>(std::floor(place.x())), y = static_cast<int>(std::floor(place.y()));
  const QRect area = stamp.area.translated(x, y);
  if (area.left() >= 0 && area.top() >= 0 && area.right() < width_ && area.bottom() < height_) {
    QRgb* const at = dots_ + y * stride_ + x;
    for (const Stamp::Group& group : stamp.groups)
      MixGroup(at + group.y * stride_ + group.x, colours_, group.shares);
    return;
  }
  for (const Stamp::Group& group : stamp.groups)
    for (std::size_t k = 0; k < Stamp::kDots; ++k) {
      const int dotX = x + group.x + static_cast<int>(k), dotY = y + group.y;
      if (dotX >= 0 && dotY >= 0 && dotX < width_ && dotY < height_)
        MixDot(dots_[dotY * stride_ + dotX], colour_, group.shares[k * sizeof(QRgb)]);
    }
}

}  // namespace zorlan

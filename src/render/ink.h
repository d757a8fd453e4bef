// Ink on the dots of an image, for what a figure has thousands of: thin lines and small marks. A painter
// takes many times as long to set about one of them as its few dots need.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <QPointF>
#include <QRect>
#include <QRgb>
#include <vector>

class QImage;
class QPainter;

namespace zorlan {

/// A mark painted once, to be put down in many places.
struct Stamp {
  static constexpr std::size_t kDots = 4;  // neighbours in a row, which are mixed at once
  /// A number for each byte of their colours.
  using Bytes = std::array<std::uint16_t, kDots * sizeof(QRgb)>;
  struct Group {
    int x = 0, y = 0;  // of the first dot, from the place of the stamp
    Bytes shares{};    // of the dots that are covered, 256: all
  };
  QRect area;  // around the groups
  std::vector<Group> groups;
};

/// The stamp of what `paint` paints about the place 0, 0, in any one colour; `area` holds all of it.
/// `turned`: by a right angle, counter-clockwise about the place.
Stamp StampOf(const QRect& area, bool turned, const std::function<void(QPainter&)>& paint);

/// Whether a place, in dots, is a number and not far beyond every image.
bool IsNear(QPointF place);

/// Places are in dots of the image. What lies outside of it leaves no ink, nor does what is no number.
class Ink {
 public:
  /// The image is of Format_RGB32 and outlives its ink.
  explicit Ink(QImage& image);

  void SetColour(QRgb colour);

  /// A straight line whose ends reach half its width beyond the points. A dot that it covers in part is mixed
  /// with what was there where `smooth` is set; else it takes the colour or stays.
  void Line(QPointF from, QPointF to, double width, bool smooth);
  /// The dot that holds the place becomes the stamp's own place.
  void Put(const Stamp& stamp, QPointF place);

 private:
  QRgb* dots_;
  std::ptrdiff_t stride_;  // from a row to the next
  int width_, height_;
  QRgb colour_ = 0;
  Stamp::Bytes colours_{};  // the same for a group of dots
};

}  // namespace zorlan

// Many short texts painted as one run of glyphs. Laying out each text by itself takes most of the time of a
// figure; the fixed face needs no layout.
#pragma once

#include <QList>
#include <QPointF>
#include <QRawFont>
#include <string_view>

class QPainter;

namespace zorlan {

/// Glyphs of the fixed face at one height (painter units), gathered and painted at once.
class GlyphRun {
 public:
  explicit GlyphRun(double height);

  /// Adds a text with its left upper corner at `origin`.
  void Add(QPointF origin, std::string_view text);
  /// Paints what was added in the painter's pen.
  void Paint(QPainter& painter) const;

  double Height() const { return height_; }
  double Ascent() const { return ascent_; }

 private:
  void AddGlyph(quint32 glyph, double advance);

  double height_, ascent_;
  QRawFont font_;
  QPointF pen_;
  QList<quint32> glyphs_;
  QList<QPointF> places_;
};

}  // namespace zorlan

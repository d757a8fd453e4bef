#include "render/glyph_runs.h"

#include <algorithm>
#include <array>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QPainter>

#include "render/fonts.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr int kFaceHeight = 1000;
constexpr unsigned kAsciiEnd = 128;

/// The fixed face, its ascent as a share of the height, and its glyphs of the ASCII characters.
struct Face {
  QRawFont font;
  double ascent = 0;
  std::array<quint32, kAsciiEnd> ascii{};
};

Face MakeFace() {
  Face face;
  face.font = QRawFont::fromFont(FixedFontOfHeight(kFaceHeight), QFontDatabase::Japanese);
  face.ascent = face.font.ascent() / kFaceHeight;
  for (unsigned c = ' '; c < kAsciiEnd; ++c) {
    const QChar character(c);
    int count = 1;
    face.font.glyphIndexesForChars(&character, 1, &face.ascii[c], &count);
  }
  return face;
}

const Face& TheFace() {
  static const Face face = MakeFace();
  return face;
}

}  // namespace

GlyphRun::GlyphRun(double height)
    : height_(height), ascent_(TheFace().ascent * height), font_(TheFace().font) {
  font_.setPixelSize(height);
}

void GlyphRun::AddGlyph(quint32 glyph, double advance) {
  glyphs_.append(glyph);
  places_.append(pen_);
  pen_.rx() += advance;
}

void GlyphRun::Add(QPointF origin, std::string_view text) {
  pen_ = QPointF(origin.x(), origin.y() + ascent_);
  const bool ascii =
      std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < kAsciiEnd; });
  if (ascii) {
    for (const char c : text) AddGlyph(TheFace().ascii[static_cast<unsigned char>(c)], height_ / 2);
    return;
  }
  const QString characters = ToQt(text);
  const QList<quint32> glyphs = font_.glyphIndexesForString(characters);
  const QList<QPointF> advances = font_.advancesForGlyphIndexes(glyphs);
  for (qsizetype i = 0; i < glyphs.size(); ++i) AddGlyph(glyphs[i], advances[i].x());
}

void GlyphRun::Paint(QPainter& painter) const {
  if (glyphs_.isEmpty()) return;
  QGlyphRun run;
  run.setRawFont(font_);
  run.setGlyphIndexes(glyphs_);
  run.setPositions(places_);
  painter.drawGlyphRun(QPointF(), run);
}

}  // namespace zorlan

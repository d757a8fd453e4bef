#include "render/glyph_stamps.h"

#include <algorithm>
#include <cmath>

namespace zorlan {

const Stamp& GlyphStamps::StampOfGlyph(char c, int part) {
  std::optional<Stamp>& stamp = stamps_[static_cast<unsigned char>(c)][static_cast<std::size_t>(part)];
  if (!stamp) {
    // From the pen on the base line: half its height wide, and a margin for the smoothed edge.
    const int height = static_cast<int>(std::ceil(run_.Height()));
    const QRect area(-2, -height - 2, height / 2 + 6, height + height / 2 + 4);
    stamp = StampOf(area, turned_, [&](QPainter& painter) {
      GlyphRun run(run_);
      run.Add({static_cast<double>(part) / kParts, -run.Ascent()}, {&c, 1});
      run.Paint(painter);
    });
  }
  return *stamp;
}

bool GlyphStamps::Write(Ink& ink, QPointF origin, std::string_view text) {
  if (!std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 128; })) return false;
  if (!IsNear(origin)) return true;
  // Along the text, and across it to its base line.
  double along = turned_ ? -origin.y() : origin.x();
  const double base = std::round((turned_ ? origin.x() : origin.y()) + run_.Ascent());
  for (const char c : text) {
    const double parts = std::floor(along * kParts + 0.5), dot = std::floor(parts / kParts);
    const Stamp& stamp = StampOfGlyph(c, static_cast<int>(parts - dot * kParts));
    ink.Put(stamp, turned_ ? QPointF(base, -dot) : QPointF(dot, base));
    along += run_.Height() / 2;
  }
  return true;
}

}  // namespace zorlan

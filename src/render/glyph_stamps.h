// Short texts on the dots of an image: each glyph is painted once and then put down wherever it occurs.
#pragma once

#include <array>
#include <optional>
#include <QPointF>
#include <string_view>

#include "render/glyph_runs.h"
#include "render/ink.h"

namespace zorlan {

/// Glyphs of the fixed face at one height (dots), upright or turned by a right angle counter-clockwise.
class GlyphStamps {
 public:
  explicit GlyphStamps(double height, bool turned = false) : run_(height), turned_(turned) {}

  /// Puts down a text with its left upper corner at `origin`: its base line on a row of dots, which keeps the
  /// feet of the digits sharp, its glyphs to a quarter of a dot along it. False for a text with other than
  /// ASCII characters, of which nothing is put down.
  bool Write(Ink& ink, QPointF origin, std::string_view text);

 private:
  static constexpr int kParts = 4;  // of a dot, as the toolkit places glyphs
  const Stamp& StampOfGlyph(char c, int part);

  GlyphRun run_;
  bool turned_;
  std::array<std::array<std::optional<Stamp>, kParts>, 128> stamps_;
};

}  // namespace zorlan

#include "graphics/text_cover.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zorlan {

TextCover::TextCover(double width, double height, double angle, Anchor anchor) {
  constexpr double kUpright = 1e-3, kApart = 40;  // twips
  constexpr int kMostPieces = 32;
  const double a = angle * std::numbers::pi / 180, c = std::cos(a), s = std::sin(a);
  const double toMiddle = (anchor == kLeftCentre ? 0.5 : anchor == kRightCentre ? -0.5 : 0) * width;
  const bool upright = std::abs(c) < kUpright || std::abs(s) < kUpright;
  count_ =
      upright ? 1 : static_cast<int>(std::clamp(std::ceil(2 * width / height), 1.0, double{kMostPieces}));
  const double piece = width / count_, toFirst = toMiddle + (piece - width) / 2;
  halfWidth_ = (piece * std::abs(c) + height * std::abs(s)) / 2;
  halfHeight_ = (piece * std::abs(s) + height * std::abs(c)) / 2;
  first_ = {toFirst * c, -toFirst * s};
  step_ = {piece * c, -piece * s};
  middle_ = {toMiddle * c, -toMiddle * s};
  apart_ = {kApart * std::abs(c), kApart * std::abs(s)};
}

Covered TextCover::CoveredBy(const LabelField& field, Point anchor, const Covered& limit) const {
  Covered covered;
  for (int k = 0; k < count_; ++k) covered += field.CoveredBy(Box(anchor, k), limit);
  return covered;
}

void TextCover::Take(LabelField& field, Point anchor) const {
  for (int k = 0; k < count_; ++k) {
    const Rectangle box = Box(anchor, k);
    field.Take({box.left - apart_.x, box.top - apart_.y, box.right + apart_.x, box.bottom + apart_.y});
  }
}

bool TextCover::LiesIn(const Rectangle& area, Point anchor) const {
  for (int k = 0; k < count_; ++k)
    if (!area.Holds(Box(anchor, k))) return false;
  return true;
}

bool TextCover::Meets(const Rectangle& area, Point anchor) const {
  for (int k = 0; k < count_; ++k)
    if (Box(anchor, k).Meets(area)) return true;
  return false;
}

}  // namespace zorlan

#include "graphics/diagram_labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "base/number_format.h"
#include "graphics/diagram_curves.h"

namespace zorlan {
namespace {

constexpr double kHeight = 0.35 * kTwipsPerCm;  // in a font of
constexpr double kFont = 8;                     // points
constexpr double kGap = 0.5 * kTwipsPerCm;

/// A place to try: the distance from the ordinate in gaps, below 0 on its other side, and the way along the
/// member.
struct Try {
  double gaps, shift;
};
constexpr double kNear = 0.15 * kTwipsPerCm, kMiddle = 0.6 * kTwipsPerCm, kFar = 1.2 * kTwipsPerCm;
constexpr std::array kTries = {
    Try{1, 0},         Try{0.6, 0},  Try{1, kNear},    Try{0.6, kNear},    Try{1, kMiddle},
    Try{0.6, kMiddle}, Try{1.8, 0},  Try{1.8, kNear},  Try{1, kFar},       Try{0.6, kFar},
    Try{1.8, kMiddle}, Try{-0.7, 0}, Try{-0.7, kNear}, Try{-0.7, kMiddle}, Try{2.6, 0},
    Try{-0.7, kFar},   Try{-1.5, 0},
};

/// What a turned text covers: one upright box when it lies or stands, else small ones along it.
class Cover {
 public:
  Cover(double width, double height, double angle, Anchor anchor) {
    const double a = angle * std::numbers::pi / 180, c = std::cos(a), s = std::sin(a);
    const double toMiddle = (anchor == kLeftCentre ? 0.5 : anchor == kRightCentre ? -0.5 : 0) * width;
    const bool upright = std::abs(c) < kUpright || std::abs(s) < kUpright;
    count_ = upright ? 1 : std::clamp(static_cast<int>(std::ceil(width / height)), 1, kMostPieces);
    const double piece = width / count_;
    halfWidth_ = (piece * std::abs(c) + height * std::abs(s)) / 2;
    halfHeight_ = (piece * std::abs(s) + height * std::abs(c)) / 2;
    for (int k = 0; k < count_; ++k) {
      const double along = toMiddle + (k + 0.5) * piece - width / 2;
      middles_[static_cast<std::size_t>(k)] = {along * c, -along * s};
    }
  }

  bool IsFree(const LabelField& labels, Point at) const {
    for (int k = 0; k < count_; ++k)
      if (!labels.Free(Box(at, k))) return false;
    return true;
  }
  void Take(LabelField& labels, Point at) const {
    for (int k = 0; k < count_; ++k) labels.Take(Box(at, k));
  }
  bool LiesIn(const Rectangle& area, Point at) const {
    for (int k = 0; k < count_; ++k) {
      const Rectangle box = Box(at, k);
      if (box.left < area.left || box.top < area.top || box.right > area.right || box.bottom > area.bottom)
        return false;
    }
    return true;
  }
  bool Meets(const Rectangle& area, Point at) const {
    for (int k = 0; k < count_; ++k)
      if (Box(at, k).Meets(area)) return true;
    return false;
  }

 private:
  static constexpr double kUpright = 1e-3;
  static constexpr int kMostPieces = 16;
  Rectangle Box(Point at, int k) const {
    const Point m = {at.x + middles_[static_cast<std::size_t>(k)].x,
                     at.y + middles_[static_cast<std::size_t>(k)].y};
    return {m.x - halfWidth_, m.y - halfHeight_, m.x + halfWidth_, m.y + halfHeight_};
  }
  int count_ = 1;
  double halfWidth_ = 0, halfHeight_ = 0;
  std::array<Point, kMostPieces> middles_;  // from the anchor
};

bool Holds(const Rectangle& area, Point p) {
  return p.x >= area.left && p.x <= area.right && p.y >= area.top && p.y <= area.bottom;
}

}  // namespace

ValueLabels::ValueLabels(Plot& plot, LabelField& labels, const TextOption& option, int decimals,
                         double factor)
    : plot_(plot),
      labels_(labels),
      option_(option),
      pattern_(DecimalPattern(decimals)),
      factor_(factor),
      height_(kHeight * option.points / kFont),
      visible_{plot.clip.left - plot.OffsetX, plot.clip.top - plot.OffsetY, plot.clip.right - plot.OffsetX,
               plot.clip.bottom - plot.OffsetY} {
  PlotSetFont(plot, height_);
}

void ValueLabels::Write(const LabelPlace& place, double value) {
  if (!option_.visible || !std::isfinite(value)) return;
  const std::string text = FormatNumber(value * factor_, NumberPattern(pattern_));
  const Cover cover(TextWidth(text, height_), height_, place.angle, place.anchor);
  const auto at = [&](const Try& t) {
    return Point{place.ordinate.x + t.gaps * kGap * place.away.x + t.shift * place.along.x,
                 place.ordinate.y + t.gaps * kGap * place.away.y + t.shift * place.along.y};
  };
  const bool near = cover.Meets(visible_, at(kTries[0])) || Holds(visible_, place.ordinate);
  if (!near) return;
  // A free place inside the area; else the first one.
  const auto good = [&](const Try& t) {
    return t.shift <= place.room && cover.LiesIn(visible_, at(t)) && cover.IsFree(labels_, at(t));
  };
  const auto found = std::ranges::find_if(kTries, good);
  const Point chosen = at(found == kTries.end() ? kTries[0] : *found);
  cover.Take(labels_, chosen);
  PlotTextRotated(plot_, chosen.x, chosen.y, text, place.angle, option_.colour, place.anchor);
}

}  // namespace zorlan

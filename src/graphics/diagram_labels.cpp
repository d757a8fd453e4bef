#include "graphics/diagram_labels.h"

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

// Gaps tried in order; below 0: on the other side of the ordinate.
constexpr std::array kGaps = {kGap, 0.6 * kGap, 1.8 * kGap, -0.7 * kGap, 2.6 * kGap, -1.5 * kGap};

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

void ValueLabels::Write(Point ordinate, Point away, double angle, Anchor anchor, double value) {
  if (!option_.visible || !std::isfinite(value)) return;
  const std::string text = FormatNumber(value * factor_, NumberPattern(pattern_));
  const double width = TextWidth(text, height_);
  std::array<Point, kGaps.size()> places;
  std::array<Rectangle, kGaps.size()> boxes;
  for (std::size_t k = 0; k < kGaps.size(); ++k) {
    places[k] = {ordinate.x + kGaps[k] * away.x, ordinate.y + kGaps[k] * away.y};
    boxes[k] = BoxAround(places[k], width, angle, anchor);
  }
  if (!boxes[0].Meets(visible_)) return;
  const Point place = places[labels_.Place(boxes)];
  PlotTextRotated(plot_, place.x, place.y, text, angle, option_.colour, anchor);
}

/// The upright box around a turned text.
Rectangle ValueLabels::BoxAround(Point anchorPoint, double width, double angle, Anchor anchor) const {
  const double a = angle * std::numbers::pi / 180, c = std::cos(a), s = std::sin(a);
  const double toMiddle = (anchor == kLeftCentre ? 0.5 : anchor == kRightCentre ? -0.5 : 0) * width;
  const Point middle = {anchorPoint.x + toMiddle * c, anchorPoint.y - toMiddle * s};
  const double halfWidth = (width * std::abs(c) + height_ * std::abs(s)) / 2;
  const double halfHeight = (width * std::abs(s) + height_ * std::abs(c)) / 2;
  return {middle.x - halfWidth, middle.y - halfHeight, middle.x + halfWidth, middle.y + halfHeight};
}

}  // namespace zorlan

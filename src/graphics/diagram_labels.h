// Labels at the ordinates of a diagram: numbers beside their points, out of one another's way.
#pragma once

#include <string>

#include "graphics/figure_options.h"
#include "graphics/labels.h"
#include "graphics/plot.h"

namespace zorlan {

class ValueLabels {
 public:
  /// Numbers with so many decimals, each value times `factor`. The labels are 0.35 cm high in a font of 8
  /// points, and larger or smaller in the same proportion.
  ValueLabels(Plot& plot, LabelField& labels, const TextOption& option, int decimals, double factor = 1);

  /// A value, 0.5 cm from the point of its ordinate (twips) towards `away`, a unit vector of the figure;
  /// `angle` in degrees counter-clockwise. kLeftCentre, kCentre or kRightCentre says what of the label's
  /// breadth stands there. When something is in the way it moves along that direction; where nothing is free
  /// it stands at its place.
  void Write(Point ordinate, Point away, double angle, Anchor anchor, double value);

 private:
  Rectangle BoxAround(Point anchorPoint, double width, double angle, Anchor anchor) const;

  Plot& plot_;
  LabelField& labels_;
  TextOption option_;
  std::string pattern_;
  double factor_, height_;
  Rectangle visible_;  // of the figure, twips
};

}  // namespace zorlan

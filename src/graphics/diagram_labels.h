// Labels at the ordinates of a diagram: numbers beside their points, out of one another's way.
#pragma once

#include <string>

#include "graphics/figure_options.h"
#include "graphics/labels.h"
#include "graphics/plot.h"

namespace zorlan {

/// Where a label belongs. Vectors are unit vectors of the figure, y downward.
struct LabelPlace {
  Point ordinate;           // twips
  Point away;               // the side of the ordinate on which the label stands
  Point along;              // along the member, from the ordinate to where there is room
  double room = 0;          // how far it may move along, twips
  double angle = 0;         // degrees counter-clockwise
  Anchor anchor = kCentre;  // kLeftCentre, kCentre or kRightCentre
};

class ValueLabels {
 public:
  /// Numbers with so many decimals, each value times `factor`. The labels are 0.35 cm high in a font of 8
  /// points, and larger or smaller in the same proportion.
  ValueLabels(Plot& plot, LabelField& labels, const TextOption& option, int decimals, double factor = 1);

  /// A value, 0.5 cm from its ordinate. When something is in the way it moves nearer, farther or along the
  /// member; where nothing is free it stands at its place.
  void Write(const LabelPlace& place, double value);

 private:
  Plot& plot_;
  LabelField& labels_;
  TextOption option_;
  std::string pattern_;
  double factor_, height_;
  Rectangle visible_;  // of the figure, twips
};

}  // namespace zorlan

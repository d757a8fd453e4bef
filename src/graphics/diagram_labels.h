// Labels at the ordinates of a diagram: numbers beside their points, out of one another's way.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/number_format.h"
#include "graphics/figure_options.h"
#include "graphics/labels.h"
#include "graphics/plot.h"
#include "graphics/text_cover.h"

namespace zorlan {

/// Where a label belongs. Vectors are unit vectors of the figure, y downward.
struct LabelPlace {
  Point ordinate;           // twips
  Point away;               // the side of the ordinate on which the label stands
  Point along;              // along the member, from the ordinate to where there is room
  double room = 0;          // how far it may move along, twips; a centred label either way
  double angle = 0;         // degrees counter-clockwise
  Anchor anchor = kCentre;  // kLeftCentre, kCentre or kRightCentre
};

/// A label's own place is 0.5 cm from its ordinate. Where that covers something it moves along the member,
/// nearer, farther or to the other side: to the nearest place that covers nothing; else to where it crosses
/// the fewest lines; at last to where it hides the least of other texts. Labels at the ends of members choose
/// before those at their middles, and who found no room chooses first in another round.
class ValueLabels {
 public:
  /// Numbers with so many decimals, each value times `factor`. The labels are 0.35 cm high in a font of 8
  /// points, and larger or smaller in the same proportion.
  ValueLabels(Plot& plot, LabelField& field, const TextOption& option, int decimals, double factor = 1);
  ValueLabels(const ValueLabels&) = delete;
  ValueLabels& operator=(const ValueLabels&) = delete;

  /// Notes a value for its place. What is no number has no label.
  void Add(const LabelPlace& place, double value);
  /// Whether no label looks for a place about the point: more belong there than can be read.
  bool IsCrowded(Point p) const { return crowding_.IsFull(p); }
  /// Places all labels and draws them, in the order in which they were added.
  void Write();

 private:
  struct Label {
    LabelPlace place;
    std::string text;
    TextCover cover;
    Point at;         // of the anchor
    Covered covered;  // there
  };
  std::vector<Label*> StandInCrowds();
  void Place(std::vector<Label*> order);
  Covered PlaceInTurn(std::span<Label* const> order);
  void Choose(Label& label);

  Plot& plot_;
  LabelField& field_;
  TextOption option_;
  std::string pattern_;
  NumberPattern number_;  // of the pattern
  double factor_, height_;
  std::vector<Label> labels_;
  Crowding crowding_;
};

}  // namespace zorlan

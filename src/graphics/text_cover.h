// What a turned text covers of a label field.
#pragma once

#include "graphics/labels.h"
#include "graphics/plot.h"

namespace zorlan {

/// One upright box when the text lies or stands, else small ones along it; all from the text's anchor.
class TextCover {
 public:
  /// Width and height in twips, degrees counter-clockwise, kLeftCentre, kCentre or kRightCentre.
  TextCover(double width, double height, double angle, Anchor anchor);

  Covered CoveredBy(const LabelField& field, Point anchor, const Covered& limit) const;
  /// Takes the text's place, with room in front of it and behind it: two numbers in a row are not one.
  void Take(LabelField& field, Point anchor) const;
  bool LiesIn(const Rectangle& area, Point anchor) const;
  bool Meets(const Rectangle& area, Point anchor) const;
  /// The text's middle.
  Point MiddleAt(Point anchor) const { return {anchor.x + middle_.x, anchor.y + middle_.y}; }

 private:
  Rectangle Box(Point anchor, int k) const {
    const Point m = {anchor.x + first_.x + k * step_.x, anchor.y + first_.y + k * step_.y};
    return {m.x - halfWidth_, m.y - halfHeight_, m.x + halfWidth_, m.y + halfHeight_};
  }

  int count_ = 1;
  double halfWidth_ = 0, halfHeight_ = 0;  // of a box
  Point first_, step_;                     // middle of the first box, and from one to the next
  Point middle_;
  Point apart_;  // room about the ends
};

}  // namespace zorlan

// What lies under the pointer. Places and tolerance are in twips of the figure, without offsets.
#pragma once

#include <optional>

#include "graphics/frame_figure.h"

namespace zorlan {

/// Distance of a point from the segment a to b, in their unit.
double LinePointDist(Point a, Point b, Point p);

/// What was picked; index in the figure's nodes or elements.
struct Pick {
  enum class What { Node, Element } what = What::Node;
  int index = 0;
  int number = 0;  // of the table
};

inline constexpr double kPickTolerance = 10 * kTwipsPerPixel;

/// The nearest shown node within the tolerance, or the nearest shown member, or nothing.
std::optional<Pick> PickNode(const Figure& figure, Point at, double tolerance = kPickTolerance);
std::optional<Pick> PickElement(const Figure& figure, Point at, double tolerance = kPickTolerance);
/// A node first, then a member.
std::optional<Pick> PickAt(const Figure& figure, Point at, double tolerance = kPickTolerance);

/// The shown node or member that comes `step` (1 or -1) behind what is picked, in table order and around its
/// end; the first or last one where nothing of its kind is picked. Nothing if none is shown.
std::optional<Pick> NextPick(const Figure& figure, const std::optional<Pick>& from, Pick::What what,
                             int step);
/// The shown node or member of this number.
std::optional<Pick> PickNumber(const Figure& figure, Pick::What what, int number);

}  // namespace zorlan

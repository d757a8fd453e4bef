// The shape of an element load along its member: where it acts, and how strong. Values in, values out.
#pragma once

#include <vector>

namespace zorlan {

/// A distributed part: ordinates along the span, joined by straight lines. `at` is 0 at the load's first end,
/// 1 at its second; `height` is the part of the load's greatest ordinate.
struct LoadOrdinate {
  double at = 0, height = 0;
};

struct LoadShape {
  std::vector<std::vector<LoadOrdinate>> parts;
  std::vector<double> points;  // where single forces act, same measure
};

/// The shape of TYPE `type` with the length Ly on a span of the length `span` (m; of the member, or of its
/// projection on the direction that MG names). As the analysis takes it: TYPE 0 and below uniform; 1, 2 and
/// 10 to 18 without Ly, 3 to 9 and those above 18 are `type` equal points. Nothing for a load that a span of
/// 0 leaves without effect.
LoadShape ShapeOfLoad(int type, double Ly, double span);

}  // namespace zorlan

#include "graphics/sides.h"

#include <algorithm>
#include <cmath>

namespace zorlan {

Side SideOf(Point way) {
  if (std::abs(way.x) >= std::abs(way.y)) return way.x > 0 ? Side::Right : Side::Left;
  return way.y > 0 ? Side::Below : Side::Above;
}

std::vector<Sides> MemberSides(const Figure& figure, double most) {
  std::vector<Sides> sides(figure.place.size());
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const auto i = static_cast<std::size_t>(figure.model.elements[e].rowI);
    const auto j = static_cast<std::size_t>(figure.model.elements[e].rowJ);
    const Point way = {figure.place[j].x - figure.place[i].x, figure.place[i].y - figure.place[j].y};
    const double x = std::abs(way.x), y = std::abs(way.y);
    if (std::min(x, y) > most * std::max(x, y)) continue;
    sides[i].Add(SideOf(way));
    sides[j].Add(SideOf({-way.x, -way.y}));
  }
  return sides;
}

}  // namespace zorlan

#include "graphics/load_shapes.h"

#include <algorithm>
#include <cmath>

namespace zorlan {
namespace {

constexpr int kMostPoints = 100;  // drawn of a TYPE that no table knows

LoadShape EqualPoints(int count) {
  LoadShape shape;
  const int drawn = std::min(count, kMostPoints);
  for (int k = 1; k <= drawn; ++k) shape.points.push_back(static_cast<double>(k) / (drawn + 1));
  return shape;
}

LoadShape Uniform(double from, double to) {
  return {{{{from, 1}, {to, 1}}}, {}};
}

/// A slab of the width a: rising at 45 degrees from either end to a/2, or to the middle of a shorter span.
LoadShape Trapezoid(double a, double l) {
  const double top = std::min(std::abs(a), l) / 2 / l;
  return {{{{0, 0}, {top, 1}, {1 - top, 1}, {1, 0}}}, {}};
}

/// A slab over `joists` joists: a triangle on each panel, and a force at each joist.
LoadShape Joists(int joists) {
  const int panels = joists + 1;
  LoadShape shape = EqualPoints(joists);
  std::vector<LoadOrdinate> triangles = {{0, 0}};
  for (int k = 1; k <= 2 * panels; ++k)
    triangles.push_back({static_cast<double>(k) / (2 * panels), k % 2 == 1 ? 1.0 : 0.0});
  shape.parts.push_back(std::move(triangles));
  return shape;
}

LoadShape ShapeWithLength(int type, double a, double l) {
  switch (type) {
    case 1:
      return {{}, {a / l}};
    case 2:
      return {{}, {a / l, 1 - a / l}};
    case 10:
      return Trapezoid(a, l);
    case 11:
    case 12:
    case 13:
      return Joists(type - 10);
    case 14:
      return Uniform(0.5 - a / l / 2, 0.5 + a / l / 2);
    case 15:
      return {{{{0, 1}, {a / l, 1}}, {{1 - a / l, 1}, {1, 1}}}, {}};
    case 16:
      return {{{{0, 0}, {1, 1}}}, {}};
    case 17:
      return {{{{0, 1}, {1, 0}}}, {}};
    default:  // 18
      return {{{{0, 0}, {0.5, 1}, {1, 0}}}, {}};
  }
}

}  // namespace

LoadShape ShapeOfLoad(int type, double Ly, double span) {
  const bool withLength = Ly != 0 && (type == 1 || type == 2 || (type >= 10 && type <= 18));
  if (type > 0 && !withLength) return EqualPoints(type);
  if (!(span > 0)) return {};
  return type <= 0 ? Uniform(0, 1) : ShapeWithLength(type, Ly, span);
}

}  // namespace zorlan

#include "graphics/picking.h"

#include <algorithm>
#include <cmath>

namespace zorlan {

double LinePointDist(Point a, Point b, Point p) {
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double square = dx * dx + dy * dy;
  const double along = square > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / square : 0;
  const double t = std::clamp(along, 0.0, 1.0);
  return std::hypot(p.x - (a.x + t * dx), p.y - (a.y + t * dy));
}

std::optional<Pick> PickNode(const Figure& figure, Point at, double tolerance) {
  std::optional<Pick> pick;
  for (std::size_t n = 0; n < figure.place.size(); ++n) {
    const int number = figure.model.nodes[n].number;
    if (!IsNodeShown(figure, number)) continue;
    const Point p = figure.view.ToFigure(figure.place[n]);
    const double distance = std::hypot(p.x - at.x, p.y - at.y);
    if (!(distance < tolerance || (!pick && distance == tolerance))) continue;
    tolerance = distance;
    pick = {Pick::What::Node, static_cast<int>(n), number};
  }
  return pick;
}

std::optional<Pick> PickElement(const Figure& figure, Point at, double tolerance) {
  std::optional<Pick> pick;
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const FigureElement& element = figure.model.elements[e];
    const double distance =
        LinePointDist(figure.view.ToFigure(figure.place[static_cast<std::size_t>(element.rowI)]),
                      figure.view.ToFigure(figure.place[static_cast<std::size_t>(element.rowJ)]), at);
    if (!(distance < tolerance || (!pick && distance == tolerance))) continue;
    tolerance = distance;
    pick = {Pick::What::Element, static_cast<int>(e), element.number};
  }
  return pick;
}

std::optional<Pick> PickAt(const Figure& figure, Point at, double tolerance) {
  if (const std::optional<Pick> node = PickNode(figure, at, tolerance)) return node;
  return PickElement(figure, at, tolerance);
}

}  // namespace zorlan

#include "graphics/picking.h"

#include <algorithm>
#include <cmath>

namespace zorlan {
namespace {

int CountOf(const Figure& figure, Pick::What what) {
  return static_cast<int>(what == Pick::What::Node ? figure.place.size() : figure.shown.size());
}

/// The node or member of this index, if it is shown.
std::optional<Pick> ShownAt(const Figure& figure, Pick::What what, int index) {
  const auto place = static_cast<std::size_t>(index);
  if (what == Pick::What::Node) {
    const int number = figure.model.nodes[place].number;
    return IsNodeShown(figure, number) ? std::optional(Pick{what, index, number}) : std::nullopt;
  }
  return figure.shown[place] != 0 ? std::optional(Pick{what, index, figure.model.elements[place].number})
                                  : std::nullopt;
}

}  // namespace

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
    const auto [i, j] = figure.EndsOf(element);
    const double distance = LinePointDist(i, j, at);
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

std::optional<Pick> NextPick(const Figure& figure, const std::optional<Pick>& from, Pick::What what,
                             int step) {
  const int count = CountOf(figure, what);
  int index = from && from->what == what && from->index < count ? from->index : step > 0 ? -1 : count;
  for (int tried = 0; tried < count; ++tried) {
    index = (index + step + count) % count;
    if (const std::optional<Pick> pick = ShownAt(figure, what, index)) return pick;
  }
  return std::nullopt;
}

std::optional<Pick> PickNumber(const Figure& figure, Pick::What what, int number) {
  for (int index = 0; index < CountOf(figure, what); ++index)
    if (const std::optional<Pick> pick = ShownAt(figure, what, index); pick && pick->number == number)
      return pick;
  return std::nullopt;
}

}  // namespace zorlan

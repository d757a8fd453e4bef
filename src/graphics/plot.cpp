#include "graphics/plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace zorlan {
namespace {

/// The drawn part of a broken line on a page, from 0 to 1 along it.
struct Segment {
  double from, to;
};
using Segments = std::array<Segment, 4>;

constexpr Segments InPartsOf(double whole, Segments parts) {
  for (Segment& part : parts) part = {part.from / whole, part.to / whole};
  return parts;
}

/// By LineStyle, from Dashed on: four dashes; four dots; dash and dot by turns; two dots between dashes.
constexpr std::array<Segments, 4> kBrokenLines = {
    InPartsOf(11, {{{0, 2}, {3, 5}, {6, 8}, {9, 11}}}),
    InPartsOf(16, {{{0, 1}, {5, 6}, {10, 11}, {15, 16}}}),
    InPartsOf(17, {{{0, 6}, {7, 8}, {9, 15}, {16, 17}}}),
    InPartsOf(17, {{{0, 6}, {7, 8}, {9, 10}, {11, 17}}}),
};

DrawOperation& Record(Plot& plot, DrawOperation::Kind kind, Point at, Rgb colour) {
  DrawOperation& operation = plot.drawingList.emplace_back();
  operation.kind = kind;
  operation.layer = plot.DrawLayer;
  operation.x = at.x;
  operation.y = at.y;
  operation.colour = colour;
  return operation;
}

void DrawSegment(Plot& plot, Point from, Point to, LineStyle style, Rgb colour) {
  from = {from.x + plot.OffsetX, from.y + plot.OffsetY};
  to = {to.x + plot.OffsetX, to.y + plot.OffsetY};
  if (!Clipping(plot.clip, from, to)) return;
  plot.target->Line(from, to, {colour, style, plot.width});
  if (!plot.RecordDrawing) return;
  DrawOperation& line = Record(plot, DrawOperation::Kind::Line, from, colour);
  line.x2 = to.x;
  line.y2 = to.y;
}

bool Meets(const Rectangle& area, Point centre, double reach) {
  return centre.x + reach >= area.left && centre.x - reach <= area.right && centre.y + reach >= area.top &&
         centre.y - reach <= area.bottom;  // false for what is no number
}

/// Whether something round or written, which can't be cut, is drawn at all: on a surface of its own when any
/// of it may be seen, in a cell when its middle lies there.
bool IsDrawn(const Plot& plot, Point middle, double reach) {
  return Meets(plot.clip, middle, plot.clipsCell ? 0 : reach);
}

/// What a convex polygon or any other has in a rectangle: cut at one side after the other. Parts that a side
/// separates stay joined along it.
std::vector<Point> CutPolygon(std::vector<Point> polygon, const Rectangle& area) {
  const auto cut = [&polygon](double Point::*coordinate, double side, double way) {
    std::vector<Point> left;
    for (std::size_t k = 0; k < polygon.size(); ++k) {
      const Point &from = polygon[k], &to = polygon[(k + 1) % polygon.size()];
      const double before = way * (from.*coordinate - side), after = way * (to.*coordinate - side);
      if (before >= 0) left.push_back(from);
      if ((before < 0) == (after < 0)) continue;
      const double t = before / (before - after);
      Point crossing = {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
      crossing.*coordinate = side;
      left.push_back(crossing);
    }
    polygon = std::move(left);
  };
  cut(&Point::x, area.left, 1);
  cut(&Point::x, area.right, -1);
  cut(&Point::y, area.top, 1);
  cut(&Point::y, area.bottom, -1);
  return polygon;
}

void DrawText(Plot& plot, Point origin, std::string_view text, double width, double angle, Rgb colour,
              DrawOperation::Kind kind) {
  const double height = plot.fontHeight;
  plot.target->Text(origin, text, height, angle, colour);
  if (!plot.RecordDrawing) return;
  DrawOperation& recorded = Record(plot, kind, origin, colour);
  recorded.layer += "_TXT";
  recorded.text = text;
  recorded.width = width;
  recorded.height = TextHeight(height);
  recorded.angle = angle;
}

}  // namespace

Plot::Plot(PlotTarget& theTarget) : target(&theTarget) {
  Begin();
}

void Plot::Begin() {
  surface = target->TheSurface();
  DrawToPrinter = surface.page;
  OffsetX = OffsetY = 0;
  clip = AreaOf(0, 0, surface.width, surface.height);
  clipsCell = false;
}

void Plot::BeginCell(double x, double y, double cellWidth, double cellHeight) {
  clip = AreaOf(x, y, cellWidth, cellHeight);
  clipsCell = true;
}

Rectangle AreaOf(double x, double y, double width, double height) {
  return {x, y, x + (width > 0 ? width : 0), y + (height > 0 ? height : 0)};
}

void PlotSetPen(Plot& plot, LineStyle style, double width) {
  plot.style = style;
  plot.width = width;
}

void PlotSetFont(Plot& plot, double height) {
  plot.fontHeight = height;
}

void PlotLine(Plot& plot, double x1, double y1, double x2, double y2, Rgb colour) {
  DrawSegment(plot, {x1, y1}, {x2, y2}, plot.style, colour);
}

void PlotDashedLine(Plot& plot, double x1, double y1, double x2, double y2, Rgb colour) {
  if (!plot.DrawToPrinter || plot.style == LineStyle::Solid) return PlotLine(plot, x1, y1, x2, y2, colour);
  const auto along = [&](double t) { return Point{x1 + t * (x2 - x1), y1 + t * (y2 - y1)}; };
  for (const auto& [from, to] : kBrokenLines[static_cast<std::size_t>(plot.style) - 1])
    DrawSegment(plot, along(from), along(to), LineStyle::Solid, colour);
}

void PlotCircle(Plot& plot, double x, double y, double radius, Rgb colour, bool filled) {
  const Point centre = {x + plot.OffsetX, y + plot.OffsetY};
  if (!(radius >= 0) || !IsDrawn(plot, centre, radius)) return;
  if (radius > plot.surface.width + plot.surface.height) return;  // nothing of it would look like a circle
  plot.target->Circle(centre, radius, {colour, LineStyle::Solid, plot.width}, filled);
  if (plot.RecordDrawing) Record(plot, DrawOperation::Kind::Circle, centre, colour).radius = radius;
}

void PlotText(Plot& plot, double x, double y, std::string_view text, Rgb colour) {
  if (text.empty()) return;
  const double width = TextWidth(text, plot.fontHeight), height = TextHeight(plot.fontHeight);
  const Point origin = {x + plot.OffsetX, y + plot.OffsetY};
  const Rectangle box = {origin.x, origin.y, origin.x + width, origin.y + height};
  if (plot.clipsCell ? !IsDrawn(plot, {origin.x + width / 2, origin.y + height / 2}, 0)
                     : !box.Meets(plot.clip))
    return;
  DrawText(plot, origin, text, width, 0, colour, DrawOperation::Kind::Text);
}

void PlotTextRotated(Plot& plot, double x, double y, std::string_view text, double angle, Rgb colour,
                     int anchor) {
  if (text.empty()) return;
  const double width = TextWidth(text, plot.fontHeight), height = TextHeight(plot.fontHeight);
  const double a = angle * std::numbers::pi / 180, cosine = std::cos(a), sine = std::sin(a);
  const double right = anchor % 3 / 2.0 * width;        // from the text's left edge to its anchor
  const double down = (2 - anchor / 3) / 2.0 * height;  // from its upper edge
  // Along the text runs (cos, -sin), down its face (sin, cos): y is downward.
  const Point origin = {x + plot.OffsetX - right * cosine - down * sine,
                        y + plot.OffsetY + right * sine - down * cosine};
  const Point middle = {origin.x + (width * cosine + height * sine) / 2,
                        origin.y + (height * cosine - width * sine) / 2};
  if (!IsDrawn(plot, middle, (width + height) / 2)) return;
  DrawText(plot, origin, text, width, angle, colour, DrawOperation::Kind::TextRotated);
}

void PlotShade(Plot& plot, std::span<const Point> polygon, Rgb colour) {
  if (polygon.size() < 3) return;
  std::vector<Point> placed(polygon.begin(), polygon.end());
  Rectangle box = {placed[0].x, placed[0].y, placed[0].x, placed[0].y};
  for (Point& p : placed) {
    box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
           std::max(box.bottom, p.y)};
    p = {p.x + plot.OffsetX, p.y + plot.OffsetY};
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return;
  }
  box = {box.left + plot.OffsetX, box.top + plot.OffsetY, box.right + plot.OffsetX,
         box.bottom + plot.OffsetY};
  if (!box.Meets(plot.clip)) return;
  if (!plot.clip.Holds(box)) placed = CutPolygon(std::move(placed), plot.clip);
  if (placed.size() >= 3) plot.target->Shade(placed, colour);
}

bool Clipping(const Rectangle& area, Point& from, Point& to) {
  if (area.Holds(from) && area.Holds(to)) return true;
  const double dx = to.x - from.x, dy = to.y - from.y;
  if (!std::isfinite(dx) || !std::isfinite(dy) || !std::isfinite(from.x) || !std::isfinite(from.y))
    return false;
  // Each side leaves of the parameter's range 0 to 1 what lies on its inner side. Ends far away lose their
  // last digits in the product, so a cut end takes the side's own coordinate.
  double enter = 0, leave = 1;
  Point cutFrom = from, cutTo = to;
  const auto at = [&](double t) { return Point{from.x + t * dx, from.y + t * dy}; };
  const auto cut = [&](double along, double room, double Point::*coordinate, double side) {
    if (along == 0) return room >= 0;
    const double t = room / along;
    if (along > 0 ? t < leave : t > enter) {
      (along > 0 ? leave : enter) = t;
      Point& end = along > 0 ? cutTo : cutFrom;
      end = at(t);
      end.*coordinate = side;
    }
    return enter <= leave;
  };
  if (!cut(-dx, from.x - area.left, &Point::x, area.left) ||
      !cut(dx, area.right - from.x, &Point::x, area.right) ||
      !cut(-dy, from.y - area.top, &Point::y, area.top) ||
      !cut(dy, area.bottom - from.y, &Point::y, area.bottom))
    return false;
  // The other coordinate of a cut end may lie outside by its lost digits, an end that lies outside by less
  // than the parameter can tell was not cut.
  const auto held = [&](Point p) {
    return Point{std::clamp(p.x, area.left, area.right), std::clamp(p.y, area.top, area.bottom)};
  };
  from = held(cutFrom);
  to = held(cutTo);
  return true;
}

}  // namespace zorlan

#include "graphics/load_arrows.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "base/number_format.h"

namespace zorlan {
namespace {

constexpr double kArrowShare = 0.05;  // of the drawing area's smaller side
constexpr double kHeadShare = 0.15;   // of the arrow
constexpr double kHeadSide = 0.4;     // of its head: to either side
constexpr double kGap = 30;           // twips between a stroke and its text

/// Draws something too small for a broken line to tell its shape, whatever the style of the pen.
template <class Draw>
void DrawSolid(const LoadPen& pen, Draw draw) {
  PlotSetPen(pen.plot, LineStyle::Solid, pen.line.width);
  draw();
  PlotSetPen(pen.plot, pen.line.style, pen.line.width);
}

void DrawHead(const LoadPen& pen, Point tip, Point along, double head) {
  const Point back = {tip.x - head * along.x, tip.y - head * along.y};
  const Point side = {-along.y * kHeadSide * head, along.x * kHeadSide * head};
  DrawSolid(pen, [&] {
    PlotLine(pen.plot, tip.x, tip.y, back.x + side.x, back.y + side.y, pen.line.colour);
    PlotLine(pen.plot, tip.x, tip.y, back.x - side.x, back.y - side.y, pen.line.colour);
  });
}

double ArrowLength(const Figure& figure) {
  return kArrowShare * std::min(figure.cellWidth, figure.cellHeight);
}

/// Boxes for a note's text, w by h: beyond its strokes' ends, beside them (`side` off), further out; at last
/// before their roots, with room for a node's number there.
void PlacesOfNote(const LoadNote& note, double w, double h, double side, std::vector<Rectangle>& boxes) {
  boxes.clear();
  const auto add = [&](Point from, Point way, double gap) {
    const double away = std::abs(way.x) * w / 2 + std::abs(way.y) * h / 2 + gap;
    const Point centre = {from.x + away * way.x, from.y + away * way.y};
    boxes.push_back({centre.x - w / 2, centre.y - h / 2, centre.x + w / 2, centre.y + h / 2});
  };
  const auto outward = [](const LoadStroke& stroke) {
    const double dx = stroke.end.x - stroke.root.x, dy = stroke.end.y - stroke.root.y,
                 length = std::hypot(dx, dy);
    return length > 0 ? Point{dx / length, dy / length} : Point{0, -1};
  };
  for (const LoadStroke& stroke : note.strokes) add(stroke.end, outward(stroke), kGap);
  for (const LoadStroke& stroke : note.strokes) {
    const Point out = outward(stroke);
    const Point middle = {(stroke.root.x + stroke.end.x) / 2, (stroke.root.y + stroke.end.y) / 2};
    add(middle, {out.y, -out.x}, side);
    add(middle, {-out.y, out.x}, side);
    add(stroke.end, {out.y, -out.x}, kGap);
    add(stroke.end, {-out.y, out.x}, kGap);
  }
  for (int lines = 1; lines <= 3; ++lines)
    for (const LoadStroke& stroke : note.strokes) add(stroke.end, outward(stroke), kGap + lines * h);
  for (const LoadStroke& stroke : note.strokes) {
    const Point out = outward(stroke);
    add(stroke.root, {-out.x, -out.y}, 2 * side);
  }
}

}  // namespace

LoadPen LoadPenOf(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn,
                  const LineOption& line) {
  const TextOption& value = figure.options.loadValue;
  const double numberRoom = value.visible ? TextHeight(value.Height()) + 2 * kGap : 0;
  return {plot, figure, labels, drawn, line, ArrowLength(figure), numberRoom};
}

void DrawArrow(const LoadPen& pen, Point tip, Point along, double length, int heads) {
  const Point tail = {tip.x - length * along.x, tip.y - length * along.y};
  const double head = kHeadShare * length;
  PlotDashedLine(pen.plot, tail.x, tail.y, tip.x, tip.y, pen.line.colour);
  for (int k = 0; k < heads; ++k)
    DrawHead(pen, {tip.x - k * head * along.x, tip.y - k * head * along.y}, along, head);
  pen.labels.TakeLine(tail, tip);
}

void DrawTurn(const LoadPen& pen, Point centre, double radius, bool counterClockwise) {
  constexpr int kChords = 18;
  constexpr double kSweep = 1.5 * std::numbers::pi, kStart = -0.25 * std::numbers::pi;
  const double way = counterClockwise ? 1 : -1;
  // From the lower right over the top to the lower left, or back.
  const auto at = [&](int k) {
    const double a = (counterClockwise ? kStart : kStart + kSweep) + way * kSweep * k / kChords;
    return Point{centre.x + radius * std::cos(a), centre.y - radius * std::sin(a)};
  };
  Point from = at(0);
  DrawSolid(pen, [&] {
    for (int k = 1; k <= kChords; ++k) {
      const Point to = at(k);
      PlotLine(pen.plot, from.x, from.y, to.x, to.y, pen.line.colour);
      from = to;
    }
  });
  const double end = (counterClockwise ? kStart + kSweep : kStart);
  DrawHead(pen, from, {-way * std::sin(end), -way * std::cos(end)}, kSideOffset * radius);
  pen.labels.TakeMark({centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius});
}

void WriteNotes(Plot& plot, const Figure& figure, LabelField& labels, const std::vector<LoadNote>& notes) {
  const TextOption& option = figure.options.loadValue;
  if (!option.visible) return;
  PlotSetFont(plot, option.Height());
  const double height = TextHeight(option.Height());
  const auto width = [&](const LoadNote& note) { return TextWidth(note.text, option.Height()); };
  Crowding crowding(labels.Area());
  for (const LoadNote& note : notes) crowding.Add(note.strokes[0].end, width(note), height);
  const auto liesIn = [&](const Rectangle& box) { return labels.Area().Holds(box); };
  std::vector<Rectangle> boxes;
  for (const LoadNote& note : notes) {
    PlacesOfNote(note, width(note), height, kSideOffset * ArrowLength(figure) / 2, boxes);
    if (std::ranges::any_of(boxes, liesIn)) std::erase_if(boxes, std::not_fn(liesIn));
    if (crowding.IsFull(note.strokes[0].end)) boxes.resize(1);
    const Rectangle& place = boxes[labels.Place(boxes)];
    PlotText(plot, place.left, place.top, note.text, option.colour);
  }
}

std::string LoadText(double value) {
  static constexpr NumberPattern kPattern("######0.0#####");
  return FormatNumber(value, kPattern);
}

}  // namespace zorlan

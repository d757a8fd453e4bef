#include "graphics/frame_labels.h"

#include <array>
#include <charconv>
#include <cmath>
#include <span>

namespace zorlan {
namespace {

constexpr double kGap = 30;       // twips between a label and what it names
constexpr double kFramePad = 25;  // between a number and its mark

Rectangle Around(Point centre, double halfWidth, double halfHeight) {
  return {centre.x - halfWidth, centre.y - halfHeight, centre.x + halfWidth, centre.y + halfHeight};
}

/// Where a node's number may stand, best first: the four corners, then above, below, right, left.
std::array<Rectangle, 8> PlacesAtNode(Point p, double w, double h, double radius) {
  const double clear = radius + kGap, near = radius + 0.75 * kGap, dx = w / 2, dy = h / 2;
  const auto box = [&](double right, double down) {
    const double away = right != 0 && down != 0 ? near : clear;
    return Around({p.x + right * (away + dx), p.y + down * (away + dy)}, dx, dy);
  };
  return {box(1, -1), box(-1, -1), box(1, 1), box(-1, 1), box(0, -1), box(0, 1), box(1, 0), box(-1, 0)};
}

/// Where a member's number may stand: at its centre on the side `side` (1: above, or to the left of a
/// vertical one), on the other side, then the same a little off the centre. On a member shorter than three
/// numbers only the first two: the others would be its neighbours'.
struct PlacesAtMember {
  PlacesAtMember(Point a, Point b, double w, double h, double side) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = std::hypot(dx, dy);
    Point normal = length > 0 ? Point{dy / length, -dx / length} : Point{0, -1};
    const bool vertical = std::abs(normal.y) < 1e-9;
    if (vertical ? normal.x > 0 : normal.y > 0) normal = {-normal.x, -normal.y};
    const double away = std::abs(normal.x) * w / 2 + std::abs(normal.y) * h / 2 + kGap;
    for (const double t : {0.5, 0.4, 0.6, 0.28, 0.72}) {
      for (const double way : {side, -side})
        boxes[count++] = Around({a.x + t * dx + way * away * normal.x, a.y + t * dy + way * away * normal.y},
                                w / 2, h / 2);
      if (length < 3 * w) break;
    }
  }
  std::span<const Rectangle> All() const { return std::span(boxes).first(count); }

  std::array<Rectangle, 10> boxes;
  std::size_t count = 0;
};

class NumberPainter {
 public:
  NumberPainter(Plot& plot, const Figure& figure, LabelField& labels)
      : plot_(plot),
        figure_(figure),
        labels_(labels),
        visible_{plot.clip.left - plot.OffsetX, plot.clip.top - plot.OffsetY, plot.clip.right - plot.OffsetX,
                 plot.clip.bottom - plot.OffsetY} {}

  void Nodes();
  void Members(const TextOption& option, std::int16_t FigureElement::*number, double side, bool circle);

 private:
  bool Visible(Point p) const {
    return p.x >= visible_.left && p.x <= visible_.right && p.y >= visible_.top && p.y <= visible_.bottom;
  }
  void Mark(const Rectangle& box, Rgb colour, bool circle);

  Plot& plot_;
  const Figure& figure_;
  LabelField& labels_;
  Rectangle visible_;
};

void NumberPainter::Nodes() {
  const TextOption& option = figure_.options.nodeNumber;
  if (!option.visible) return;
  PlotSetFont(plot_, option.Height());
  const double radius = NodeRadius(figure_.options);
  for (std::size_t n = 0; n < figure_.place.size(); ++n) {
    const int number = figure_.model.nodes[n].number;
    if (!IsNodeShown(figure_, number)) continue;
    const Point p = figure_.view.ToFigure(figure_.place[n]);
    if (!Visible(p)) continue;
    const NumberText text(number);
    const auto boxes = PlacesAtNode(p, TextWidth(text, option.Height()), TextHeight(option.Height()), radius);
    const Rectangle& box = boxes[labels_.Place(boxes)];
    PlotText(plot_, box.left, box.top, text, option.colour);
  }
}

void NumberPainter::Members(const TextOption& option, std::int16_t FigureElement::*number, double side,
                            bool circle) {
  if (!option.visible) return;
  PlotSetFont(plot_, option.Height());
  for (std::size_t e = 0; e < figure_.shown.size(); ++e) {
    if (figure_.shown[e] == 0) continue;
    const FigureElement& element = figure_.model.elements[e];
    const Point a = figure_.view.ToFigure(figure_.place[static_cast<std::size_t>(element.rowI)]);
    const Point b = figure_.view.ToFigure(figure_.place[static_cast<std::size_t>(element.rowJ)]);
    if (!Visible({(a.x + b.x) / 2, (a.y + b.y) / 2})) continue;
    const NumberText text(element.*number);
    const double width = TextWidth(text, option.Height()), height = TextHeight(option.Height());
    double w = width, h = height;
    if (option.mark && circle) w = h = std::hypot(width, height);
    if (option.mark && !circle) w += 2 * kFramePad, h += 2 * kFramePad;
    const PlacesAtMember places(a, b, w, h, side);
    const Rectangle& box = places.boxes[labels_.Place(places.All())];
    PlotText(plot_, (box.left + box.right - width) / 2, (box.top + box.bottom - height) / 2, text,
             option.colour);
    if (option.mark) Mark(box, option.colour, circle);
  }
}

void NumberPainter::Mark(const Rectangle& box, Rgb colour, bool circle) {
  if (circle) {
    PlotCircle(plot_, (box.left + box.right) / 2, (box.top + box.bottom) / 2, (box.right - box.left) / 2,
               colour);
    return;
  }
  PlotLine(plot_, box.left, box.top, box.right, box.top, colour);
  PlotLine(plot_, box.right, box.top, box.right, box.bottom, colour);
  PlotLine(plot_, box.right, box.bottom, box.left, box.bottom, colour);
  PlotLine(plot_, box.left, box.bottom, box.left, box.top, colour);
}

}  // namespace

NumberText::NumberText(int number)
    : size(static_cast<std::size_t>(std::to_chars(std::begin(digits), std::end(digits), number).ptr -
                                    digits)) {}

void DrawNumbers(Plot& plot, const Figure& figure, LabelField& labels) {
  NumberPainter painter(plot, figure, labels);
  PlotSetPen(plot, LineStyle::Solid, 1);
  painter.Nodes();
  painter.Members(figure.options.elementNumber, &FigureElement::number, 1, /*circle=*/true);
  painter.Members(figure.options.sectionNumber, &FigureElement::section, -1, /*circle=*/false);
}

}  // namespace zorlan

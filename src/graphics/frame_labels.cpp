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

/// Where a node's number may stand, best first: the four corners, then above, below, right, left, then the
/// corners a little farther out.
std::array<Rectangle, 12> PlacesAtNode(Point p, double w, double h, double radius) {
  const double clear = radius + kGap, near = radius + 0.75 * kGap, dx = w / 2, dy = h / 2;
  const auto box = [&](double right, double down, double away) {
    return Around({p.x + right * (away + dx), p.y + down * (away + dy)}, dx, dy);
  };
  const double far = near + 2 * kGap;
  return {box(1, -1, near),  box(-1, -1, near), box(1, 1, near),  box(-1, 1, near),
          box(0, -1, clear), box(0, 1, clear),  box(1, 0, clear), box(-1, 0, clear),
          box(1, -1, far),   box(-1, -1, far),  box(1, 1, far),   box(-1, 1, far)};
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

Point Middle(Point a, Point b) {
  return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}

class NumberPainter {
 public:
  NumberPainter(Plot& plot, const Figure& figure, LabelField& labels)
      : plot_(plot), figure_(figure), labels_(labels), crowding_(labels.Area()) {}

  /// Numbers of a kind: whose they are, how they look, on which side of a member they stand.
  struct Kind {
    const TextOption& option;
    std::int16_t FigureElement::*number;
    double side;
    bool circle;  // their mark; else a frame
  };

  void CountNodes();
  void CountMembers(const Kind& kind);
  void DrawNodes();
  void DrawMembers(const Kind& kind);

 private:
  /// A number with its mark.
  struct Size {
    double width, height;  // of the text
    double markedWidth, markedHeight;
  };
  static Size SizeOf(const Kind& kind, std::string_view text);

  template <class Use>
  void ForNodes(Use use) const;
  template <class Use>
  void ForMembers(const Kind& kind, Use use) const;
  /// The places worth a try at a point.
  std::span<const Rectangle> Worth(std::span<const Rectangle> boxes, Point p) const {
    return crowding_.IsFull(p) ? boxes.first(1) : boxes;
  }
  void Mark(const Rectangle& box, Rgb colour, bool circle);

  Plot& plot_;
  const Figure& figure_;
  LabelField& labels_;
  Crowding crowding_;
};

template <class Use>
void NumberPainter::ForNodes(Use use) const {
  if (!figure_.options.nodeNumber.visible) return;
  for (std::size_t n = 0; n < figure_.place.size(); ++n) {
    const int number = figure_.model.nodes[n].number;
    if (!IsNodeShown(figure_, number)) continue;
    const Point p = figure_.view.ToFigure(figure_.place[n]);
    if (labels_.Area().Holds(p)) use(NumberText(number), p);
  }
}

/// `use` takes the number and the ends of its member.
template <class Use>
void NumberPainter::ForMembers(const Kind& kind, Use use) const {
  if (!kind.option.visible) return;
  for (std::size_t e = 0; e < figure_.shown.size(); ++e) {
    if (figure_.shown[e] == 0) continue;
    const FigureElement& element = figure_.model.elements[e];
    const auto [a, b] = figure_.EndsOf(element);
    if (labels_.Area().Holds(Middle(a, b))) use(NumberText(element.*kind.number), a, b);
  }
}

NumberPainter::Size NumberPainter::SizeOf(const Kind& kind, std::string_view text) {
  const double width = TextWidth(text, kind.option.Height()), height = TextHeight(kind.option.Height());
  if (!kind.option.mark) return {width, height, width, height};
  const double diagonal = std::hypot(width, height);
  if (kind.circle) return {width, height, diagonal, diagonal};
  return {width, height, width + 2 * kFramePad, height + 2 * kFramePad};
}

void NumberPainter::CountNodes() {
  const double height = figure_.options.nodeNumber.Height();
  ForNodes([&](const NumberText& text, Point p) {
    crowding_.Add(p, TextWidth(text, height), TextHeight(height));
  });
}

void NumberPainter::CountMembers(const Kind& kind) {
  ForMembers(kind, [&](const NumberText& text, Point a, Point b) {
    const Size size = SizeOf(kind, text);
    crowding_.Add(Middle(a, b), size.markedWidth, size.markedHeight);
  });
}

void NumberPainter::DrawNodes() {
  const TextOption& option = figure_.options.nodeNumber;
  const double radius = NodeRadius(figure_.options), height = option.Height();
  PlotSetFont(plot_, height);
  ForNodes([&](const NumberText& text, Point p) {
    const auto boxes = PlacesAtNode(p, TextWidth(text, height), TextHeight(height), radius);
    const Rectangle& box = boxes[labels_.Place(Worth(boxes, p))];
    PlotText(plot_, box.left, box.top, text, option.colour);
  });
}

void NumberPainter::DrawMembers(const Kind& kind) {
  PlotSetFont(plot_, kind.option.Height());
  ForMembers(kind, [&](const NumberText& text, Point a, Point b) {
    const Size size = SizeOf(kind, text);
    const PlacesAtMember places(a, b, size.markedWidth, size.markedHeight, kind.side);
    const Rectangle& box = places.boxes[labels_.Place(Worth(places.All(), Middle(a, b)))];
    PlotText(plot_, (box.left + box.right - size.width) / 2, (box.top + box.bottom - size.height) / 2, text,
             kind.option.colour);
    if (kind.option.mark) Mark(box, kind.option.colour, kind.circle);
  });
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
  const FigureOptions& options = figure.options;
  const NumberPainter::Kind members[] = {
      {options.elementNumber, &FigureElement::number, 1, /*circle=*/true},
      {options.sectionNumber, &FigureElement::section, -1, /*circle=*/false},
  };
  NumberPainter painter(plot, figure, labels);
  painter.CountNodes();
  for (const NumberPainter::Kind& kind : members) painter.CountMembers(kind);
  PlotSetPen(plot, LineStyle::Solid, 1);
  painter.DrawNodes();
  for (const NumberPainter::Kind& kind : members) painter.DrawMembers(kind);
}

}  // namespace zorlan

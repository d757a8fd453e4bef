// The loads on members: arrows of every type, end moments and end forces, temperatures.
#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "base/number_format.h"
#include "graphics/diagram_curves.h"
#include "graphics/load_shapes.h"
#include "graphics/load_stacks.h"
#include "graphics/loads.h"

namespace zorlan {
namespace {

constexpr int kDivisions = 20;       // of a member: where the arrows of a distributed load may stand
constexpr double kGapFactor = 0.02;  // of the member's length: between a load and what it lies on
constexpr double kHeadRoom = 0.2;    // of an arrow: between the heads of a distributed load

/// A loaded member in the figure: from the load's first end to its second, and which way a positive load
/// pushes.
struct LoadedSpan {
  Point first, second;
  Point push;             // unit vector, y downward
  double length = 0;      // of the member, twips
  double span = 0;        // of the load, m
  bool mirrored = false;  // upward is to the right of the way from end I, so turns go the other way
  int firstRow = -1, secondRow = -1;  // nodes at the ends

  Point At(double t) const {
    return {first.x + t * (second.x - first.x), first.y + t * (second.y - first.y)};
  }
  /// To the left of the way from the first end to the second: a unit vector.
  Point Left() const {
    return length > 0 ? Point{(second.y - first.y) / length, -(second.x - first.x) / length} : Point{0, -1};
  }
};

/// MG 0 and below: the member's own y, at 90 degrees from its direction, over its length from end I. 1:
/// upward over the horizontal projection from the left end. 2: to the right over the vertical projection from
/// the lower end. Others: upward over the length from end J. A grid's loads lie across the member in the
/// plan: upward, along Z, is to the left of the way from its left or lower end, be that I or J.
LoadedSpan SpanOf(const Figure& figure, const FigureElement& element, int MG) {
  const std::size_t i = static_cast<std::size_t>(element.rowI), j = static_cast<std::size_t>(element.rowJ);
  const FigureNode& ni = figure.model.nodes[i];
  const FigureNode& nj = figure.model.nodes[j];
  const double dx = nj.x - ni.x, dy = nj.y - ni.y, L = std::hypot(dx, dy);
  LoadedSpan s;
  const Figure::Ends ends = figure.EndsOf(element);
  s.first = ends.i;
  s.second = ends.j;
  s.length = std::hypot(s.second.x - s.first.x, s.second.y - s.first.y);
  s.span = L;
  s.firstRow = element.rowI;
  s.secondRow = element.rowJ;
  if (MG <= 0 || figure.model.IsGrid()) {
    s.push = s.Left();
    s.mirrored = figure.model.IsGrid() && StartsAtJ({ni.x, ni.y}, {nj.x, nj.y});
    if (s.mirrored) s.push = {-s.push.x, -s.push.y};
    return s;
  }
  if (MG == 1) s.span = std::abs(dx);
  if (MG == 2) s.span = std::abs(dy);
  s.push = MG == 2 ? Point{1, 0} : Point{0, -1};
  if ((MG == 2 && dy < 0) || (MG != 2 && dx < 0) || MG > 2) {
    std::swap(s.first, s.second);
    std::swap(s.firstRow, s.secondRow);
  }
  return s;
}

class ElementLoadPainter {
 public:
  explicit ElementLoadPainter(const LoadPen& pen)
      : pen_(pen), stacks_(pen.figure.model.elements.size()), turns_(pen.figure.model.elements.size()) {}

  void DrawElementLoad(int element, const ElodRec& load);
  void DrawCmqLoad(int element, const ClodRec& load);
  void DrawTemperatureLoad(int element, const TlodRec& load);

 private:
  /// A load that lies on the member: over which line, the way it goes, and the distance from the line to its
  /// tips.
  struct Lying {
    LoadedSpan span;
    Point along;
    double base;
    Side side;   // of the member
    Point out;   // to that side: a unit vector
    double top;  // how far it reaches from the member, straight out

    Point Tip(double t) const { return Away(t, base); }
    Point Away(double t, double distance) const {
      const Point p = span.At(t);
      return {p.x - distance * along.x, p.y - distance * along.y};
    }
  };
  Lying Lay(int element, const LoadedSpan& span, double value) const;
  /// The next load on this side lies on this one.
  void Keep(int element, const Lying& lying) { stacks_.Raise(element, lying.side, lying.top); }
  const FigureElement& Element(int index) const {
    return pen_.figure.model.elements[static_cast<std::size_t>(index)];
  }
  void DrawPart(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void NoteReach(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void NoteValue(const Lying& lying, const LoadShape& shape, std::string text);
  void DrawPartArrows(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void DrawEndForces(int element, const std::array<double, 2>& values, int MG);
  void DrawEndMoments(int element, const std::array<double, 2>& values);
  void NoteBeside(int element, std::string text);

  LoadPen pen_;
  LoadStacks stacks_;                         // by element index
  std::vector<std::array<double, 2>> turns_;  // the same, by end: how much the next turn's radius is larger
};

/// Where a load lies: on the side from which it pushes, on what lies there already; a load that runs along
/// its member beside it, to the left of the way.
ElementLoadPainter::Lying ElementLoadPainter::Lay(int element, const LoadedSpan& span, double value) const {
  constexpr double kAlong = 0.1;  // of a unit arrow across its member: no more, and it runs along it
  constexpr double kSteep = 0.5;  // of the same: no less, and it moves its own way to lie on others
  const double sign = value > 0 ? 1 : -1, gap = kGapFactor * span.length;
  Lying lying = {span, {sign * span.push.x, sign * span.push.y}, gap, Side::Left, span.Left(), 0};
  Point& out = lying.out;
  double across = -(lying.along.x * out.x + lying.along.y * out.y);
  const bool beside = std::abs(across) <= kAlong, left = beside || across > 0;
  if (!left) out = {-out.x, -out.y};
  across = std::abs(across);
  // Left of the way from the load's first end, which may be J.
  lying.side = left == (span.firstRow == Element(element).rowI) ? Side::Left : Side::Right;

  const double height = stacks_.Height(element, lying.side);
  const double step = height > 0 ? std::max(gap, pen_.numberRoom * std::abs(out.y)) : gap;
  double shift = 0;
  if (beside)
    shift = height + kSideOffset * pen_.arrow;
  else if (across >= kSteep)
    lying.base = step + height / across;
  else if (height > 0)
    shift = height + step - gap;
  for (Point* p : {&lying.span.first, &lying.span.second}) *p = {p->x + shift * out.x, p->y + shift * out.y};
  lying.top = shift + (lying.base + pen_.arrow) * std::max(across, kAlong);
  return lying;
}

/// The ordinate of a part at `at`, 0 outside of it.
double HeightAt(const std::vector<LoadOrdinate>& part, double at) {
  for (std::size_t k = 0; k + 1 < part.size(); ++k) {
    const LoadOrdinate& from = part[k];
    const LoadOrdinate& to = part[k + 1];
    if (at >= from.at && at <= to.at && to.at > from.at)
      return from.height + (to.height - from.height) * (at - from.at) / (to.at - from.at);
  }
  return 0;
}

/// Arrows at the divisions of the member that lie within a part, and at its ends.
void ElementLoadPainter::DrawPartArrows(const Lying& lying, const std::vector<LoadOrdinate>& part) {
  constexpr double kLowest = 0.12;  // an arrow lower than that is all head
  constexpr double kSame = 1e-9;
  // Where the divisions are narrower than the arrows' heads need, only each second, fourth ... has one.
  int stride = 1;
  for (const int wider : {2, 4, 5, 10, 20})
    if (stride * lying.span.length / kDivisions < kHeadRoom * pen_.arrow) stride = wider;
  const auto draw = [&](double at, double height) {
    if (height > kLowest) DrawArrow(pen_, lying.Tip(at), lying.along, height * pen_.arrow);
  };
  draw(part.front().at, part.front().height);
  for (int k = 0; k <= kDivisions; k += stride) {
    const double at = static_cast<double>(k) / kDivisions;
    if (at > part.front().at + kSame && at < part.back().at - kSame) draw(at, HeightAt(part, at));
  }
  draw(part.back().at, part.back().height);
}

/// The arrows, and the line that joins their tails.
void ElementLoadPainter::DrawPart(const Lying& lying, const std::vector<LoadOrdinate>& part) {
  DrawPartArrows(lying, part);
  const auto tail = [&](const LoadOrdinate& o) {
    return lying.Away(o.at, lying.base + o.height * pen_.arrow);
  };
  for (std::size_t k = 0; k + 1 < part.size(); ++k) {
    const Point from = tail(part[k]), to = tail(part[k + 1]);
    PlotDashedLine(pen_.plot, from.x, from.y, to.x, to.y, pen_.line.colour);
    pen_.labels.TakeLine(from, to);
  }
}

/// A part that goes to the end of its member lies on the node there: against its own way, and over the node
/// where the line of its tails passes.
void ElementLoadPainter::NoteReach(const Lying& lying, const std::vector<LoadOrdinate>& part) {
  const Side from = SideOf({-lying.along.x, -lying.along.y}), over = SideOf(lying.out);
  const double above = lying.top / std::max(std::abs(lying.out.x), std::abs(lying.out.y));
  const auto note = [&](int row) {
    pen_.drawn.onNodes.Raise(row, from, lying.base + pen_.arrow);
    if (over != from) pen_.drawn.onNodes.Raise(row, over, above);
  };
  if (HeightAt(part, 0) > 0) note(lying.span.firstRow);
  if (HeightAt(part, 1) > 0) note(lying.span.secondRow);
}

void ElementLoadPainter::DrawElementLoad(int element, const ElodRec& load) {
  const double value = load.P * load.K;
  if (value == 0) return;
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), load.MG);
  const LoadShape shape = ShapeOfLoad(load.TYPE, load.Ly, span.span);
  if (shape.parts.empty() && shape.points.empty()) return;
  const Lying lying = Lay(element, span, value);
  Keep(element, lying);
  for (const std::vector<LoadOrdinate>& part : shape.parts) {
    DrawPart(lying, part);
    NoteReach(lying, part);
  }
  for (const double t : shape.points) DrawArrow(pen_, lying.Tip(t), lying.along, pen_.arrow);
  NoteValue(lying, shape, LoadText(value));
}

/// The number stands at the middle of what is drawn, or off it. Under a load that lies on this one there may
/// be room between two of its arrows.
void ElementLoadPainter::NoteValue(const Lying& lying, const LoadShape& shape, std::string text) {
  std::vector<LoadStroke> strokes;
  const auto offer = [&](double t, double height) {
    strokes.push_back({lying.Tip(t), lying.Away(t, lying.base + height * pen_.arrow)});
  };
  if (shape.parts.empty()) {
    for (std::size_t k = 0, n = shape.points.size(); k < std::min<std::size_t>(n, 3); ++k)
      offer(shape.points[(n / 2 + k) % n], 1);
  } else {
    const std::vector<LoadOrdinate>& part = shape.parts[0];
    const auto at = [&](double share) {
      return part.front().at + share * (part.back().at - part.front().at);
    };
    for (const double share : {0.5, 0.3, 0.7, 0.15, 0.85}) offer(at(share), HeightAt(part, at(share)));
    for (const double share : {0.5, 0.3, 0.7}) {
      const double between = (std::floor(at(share) * kDivisions) + 0.5) / kDivisions;
      if (const double height = HeightAt(part, between); height > 0) offer(between, height);
    }
  }
  pen_.Note(std::move(strokes), std::move(text));
}

/// Where the marks of an end stand, clear of other members' ones: at a tenth of the member.
constexpr std::array<double, 2> kNearEnds = {0.1, 0.9};

/// Upward forces are positive, in the member's axes or the model's. Both ends' stand at one height.
void ElementLoadPainter::DrawEndForces(int element, const std::array<double, 2>& values, int MG) {
  LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  if (MG != 0 && !pen_.figure.model.IsGrid()) span.push = {0, -1};
  const std::array<Lying, 2> lying = {Lay(element, span, values[0]), Lay(element, span, values[1])};
  for (std::size_t end = 0; end < 2; ++end) {
    if (values[end] == 0) continue;
    const Point tip = lying[end].Tip(kNearEnds[end]);
    DrawArrow(pen_, tip, lying[end].along, pen_.arrow);
    pen_.Note({{tip, lying[end].Away(kNearEnds[end], lying[end].base + pen_.arrow)}}, LoadText(values[end]));
    Keep(element, lying[end]);
  }
}

void ElementLoadPainter::DrawEndMoments(int element, const std::array<double, 2>& values) {
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  for (std::size_t end = 0; end < 2; ++end) {
    if (values[end] == 0) continue;
    const Point p = span.At(kNearEnds[end]);
    double& larger = turns_[static_cast<std::size_t>(element)][end];
    const double radius = kSideOffset * pen_.arrow + larger;
    DrawTurn(pen_, p, radius, (values[end] > 0) != span.mirrored);
    pen_.Note({{p, {p.x, p.y - radius}}, {p, {p.x, p.y + radius}}}, "C=" + LoadText(values[end]));
    larger += kTurnStep * pen_.arrow;
  }
}

/// A text that belongs to a member as a whole: beside its middle. Where loads lie there also on the other
/// side, and beyond the loads.
void ElementLoadPainter::NoteBeside(int element, std::string text) {
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  std::vector<LoadStroke> strokes;
  const auto offer = [&](double t, double off) {
    const Point p = span.At(t);
    strokes.push_back({p, {p.x + off * span.push.x, p.y + off * span.push.y}});
  };
  offer(0.5, 1);
  if (const double height = stacks_.Height(element, span.mirrored ? Side::Right : Side::Left); height > 0) {
    for (const double t : {0.5, 0.3, 0.7}) offer(t, -1);
    offer(0.5, height);
  }
  pen_.Note(std::move(strokes), std::move(text));
}

void ElementLoadPainter::DrawCmqLoad(int element, const ClodRec& load) {
  DrawEndMoments(element, {load.Ci, load.Cj});
  DrawEndForces(element, {load.Qi, load.Qj}, load.MG);
  if (load.Mo != 0) NoteBeside(element, "Mo=" + LoadText(load.Mo));
}

void ElementLoadPainter::DrawTemperatureLoad(int element, const TlodRec& load) {
  static constexpr NumberPattern kDegrees("##0.0");
  NoteBeside(element, "T1=" + FormatNumber(load.T1, kDegrees) + " T2=" + FormatNumber(load.T2, kDegrees));
}

}  // namespace

void DrawElementForceData(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn) {
  const LineOption& option = figure.options.elementLoad;
  if (!option.visible) return;
  PlotSetPen(plot, option.style, option.width);
  ElementLoadPainter painter(LoadPenOf(plot, figure, labels, drawn, option));
  const auto shown = [&](int e) {
    return static_cast<std::size_t>(e) < figure.shown.size() &&
           figure.shown[static_cast<std::size_t>(e)] != 0;
  };
  const FigureModel& m = figure.model;
  ForShownLoads(figure, m.elementLoads, m.elementLoadElement, shown,
                [&](int e, const ElodRec& load) { painter.DrawElementLoad(e, load); });
  ForShownLoads(figure, m.cmqLoads, m.cmqLoadElement, shown,
                [&](int e, const ClodRec& load) { painter.DrawCmqLoad(e, load); });
  ForShownLoads(figure, m.temperatureLoads, m.temperatureLoadElement, shown,
                [&](int e, const TlodRec& load) { painter.DrawTemperatureLoad(e, load); });
}

}  // namespace zorlan

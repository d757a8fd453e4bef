#include "graphics/loads.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/number_format.h"
#include "graphics/diagram_curves.h"
#include "graphics/figure_fault.h"
#include "graphics/load_arrows.h"
#include "graphics/load_shapes.h"

namespace zorlan {
namespace {

constexpr int kDivisions = 20;       // of a member: where the arrows of a distributed load may stand
constexpr double kSideOffset = 0.4;  // of an arrow: to the side, and the radius of a turn
constexpr double kGapFactor = 0.02;  // of the member's length: between a load and the member
constexpr double kTurnLabel = 0.8;   // of a turn's radius, across and up: where its label belongs
constexpr double kTurnStep = 0.2;    // of an arrow: from a turn to what lies around it
constexpr double kForceStep = 1.2;   // of an arrow: from an arrow's tip to that of the next behind it
constexpr double kHeadRoom = 0.2;    // of an arrow: between the heads of a distributed load

/// How high loads lie on each other at a node or member, for each of three directions and either sign.
class Heap {
 public:
  explicit Heap(std::size_t items) : heights_(items) {}
  double& At(int item, std::size_t way) { return heights_[static_cast<std::size_t>(item)][way]; }

 private:
  std::vector<std::array<double, 6>> heights_;
};

// ---- nodal loads ----

/// A part of a nodal load: the arrow of a force, the turning arrow of a moment, or a moment's vector with two
/// heads.
struct NodalPart {
  double PlodRec::*value;
  enum class Shape { Force, Turn, Vector } shape;
  Point along;  // where a positive one points, y downward
  std::string_view label;
};
constexpr std::array<NodalPart, 3> kFrameParts = {{
    {&PlodRec::F1, NodalPart::Shape::Force, {1, 0}, {}},
    {&PlodRec::F2, NodalPart::Shape::Force, {0, -1}, {}},
    {&PlodRec::F3, NodalPart::Shape::Turn, {}, {}},
}};
constexpr std::array<NodalPart, 3> kGridParts = {{
    {&PlodRec::F1, NodalPart::Shape::Force, {0, -1}, "Fz="},
    {&PlodRec::F2, NodalPart::Shape::Vector, {1, 0}, "Mx="},
    {&PlodRec::F3, NodalPart::Shape::Vector, {0, -1}, "My="},
}};

/// By node index: where members lie that would hide an arrow.
std::vector<unsigned> MemberSides(const Figure& figure) {
  constexpr double kAlong = 0.2;  // of the slope to an axis
  std::vector<unsigned> sides(figure.place.size());
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const auto i = static_cast<std::size_t>(figure.model.elements[e].rowI);
    const auto j = static_cast<std::size_t>(figure.model.elements[e].rowJ);
    const Point way = {figure.place[j].x - figure.place[i].x, figure.place[i].y - figure.place[j].y};
    if (std::min(std::abs(way.x), std::abs(way.y)) > kAlong * std::max(std::abs(way.x), std::abs(way.y)))
      continue;
    sides[i] |= SideOf(way);
    sides[j] |= SideOf({-way.x, -way.y});
  }
  return sides;
}

/// To which side of its node an arrow moves that a member would hide: left or upward, but away from members
/// where the other side has none.
Point Aside(Point along, unsigned members) {
  if (std::abs(along.y) > std::abs(along.x)) return {(members & (kLeft | kRight)) == kLeft ? 1.0 : -1.0, 0};
  return {0, (members & (kAbove | kBelow)) == kAbove ? 1.0 : -1.0};
}

/// One part at the node of a row; `depth` is how far out the loads drawn before it reach, `members` where
/// members lie.
void DrawNodalPart(const LoadPen& pen, int row, const NodalPart& part, double value, double& depth,
                   unsigned members) {
  const Point node = pen.figure.view.ToFigure(pen.figure.place[static_cast<std::size_t>(row)]);
  const std::string text = std::string(part.label) + LoadText(value);
  const double clear = NodeRadius(pen.figure.options);
  if (part.shape == NodalPart::Shape::Turn) {
    const double radius = kSideOffset * pen.arrow + depth;
    DrawTurn(pen, node, radius, value > 0);
    pen.Note(node, {node.x + kTurnLabel * radius, node.y - kTurnLabel * radius}, text);
    depth += kTurnStep * pen.arrow;
    return;
  }
  // The arrow lies on the side that the load comes from: its sign is the negative of the load's.
  const double sign = value > 0 ? 1 : -1;
  const Point along = {sign * part.along.x, sign * part.along.y};
  const Side from = SideOf({-along.x, -along.y});
  const Point way = Aside(along, members);
  const double aside = (members & from) != 0 ? kSideOffset * pen.arrow : 0;
  // Where element loads lie on the node the arrow stands on them.
  if (aside == 0 || (members & SideOf(way)) != 0) depth = std::max(depth, pen.drawn.ReachAt(row, from));
  const double away = clear + depth;
  const Point tip = {node.x - away * along.x + aside * way.x, node.y - away * along.y + aside * way.y};
  const Point tail = {tip.x - pen.arrow * along.x, tip.y - pen.arrow * along.y};
  DrawArrow(pen, tip, along, pen.arrow, part.shape == NodalPart::Shape::Vector ? 2 : 1);
  pen.Note(tip, tail, text);
  depth += kForceStep * pen.arrow;
}

// ---- element loads ----

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
  s.first = figure.view.ToFigure(figure.place[i]);
  s.second = figure.view.ToFigure(figure.place[j]);
  s.length = std::hypot(s.second.x - s.first.x, s.second.y - s.first.y);
  s.span = L;
  s.firstRow = element.rowI;
  s.secondRow = element.rowJ;
  if (MG <= 0 || figure.model.IsGrid()) {
    s.push = s.length > 0 ? Point{(s.second.y - s.first.y) / s.length, -(s.second.x - s.first.x) / s.length}
                          : Point{0, -1};
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

/// Where a stroke stands on a member that it runs along: a little to its side.
Point BesideMember(const LoadedSpan& span, double arrow) {
  if (!(span.length > 0)) return {0, 0};
  const double ux = (span.second.x - span.first.x) / span.length,
               uy = (span.second.y - span.first.y) / span.length;
  const double across = std::abs(ux * span.push.y - uy * span.push.x);
  return across > 0.1 ? Point{0, 0} : Point{uy * kSideOffset * arrow, -ux * kSideOffset * arrow};
}

class ElementLoadPainter {
 public:
  explicit ElementLoadPainter(const LoadPen& pen) : pen_(pen), heap_(pen.figure.model.elements.size()) {}

  void DrawElementLoad(int element, const ElodRec& load);
  void DrawCmqLoad(int element, const ClodRec& load);
  void DrawTemperatureLoad(int element, const TlodRec& load);

 private:
  /// A load that lies on the member: its span, the way it goes, and the height from which it starts.
  struct Lying {
    LoadedSpan span;
    Point along;
    double base;

    Point Tip(double t) const { return Away(t, base); }
    Point Away(double t, double distance) const {
      const Point p = span.At(t);
      return {p.x - distance * along.x, p.y - distance * along.y};
    }
  };
  Lying Lay(int element, int MG, double value);
  const FigureElement& Element(int index) const {
    return pen_.figure.model.elements[static_cast<std::size_t>(index)];
  }
  void DrawPart(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void NoteReach(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void DrawPartArrows(const Lying& lying, const std::vector<LoadOrdinate>& part);
  void DrawEndForce(int element, double t, double value, int MG);
  void DrawEndMoment(int element, double t, double value, std::string_view label);

  LoadPen pen_;
  Heap heap_;  // element axes, vertical, horizontal
};

ElementLoadPainter::Lying ElementLoadPainter::Lay(int element, int MG, double value) {
  Lying lying = {SpanOf(pen_.figure, Element(element), MG), {}, 0};
  const double sign = value > 0 ? 1 : -1;
  lying.along = {sign * lying.span.push.x, sign * lying.span.push.y};
  const std::size_t axis = pen_.figure.model.IsGrid() || MG <= 0 ? 0 : MG == 2 ? 2 : 1;
  double& height = heap_.At(element, 2 * axis + (value > 0 ? 1 : 0));
  lying.base = kGapFactor * lying.span.length + height;
  height = lying.base + pen_.arrow;
  const Point beside = BesideMember(lying.span, pen_.arrow);
  for (Point* p : {&lying.span.first, &lying.span.second}) *p = {p->x + beside.x, p->y + beside.y};
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

/// A part that goes to the end of its member lies on the node there.
void ElementLoadPainter::NoteReach(const Lying& lying, const std::vector<LoadOrdinate>& part) {
  const Side from = SideOf({-lying.along.x, -lying.along.y});
  const double reach = lying.base + pen_.arrow;
  if (HeightAt(part, 0) > 0) pen_.drawn.Reach(lying.span.firstRow, from, reach);
  if (HeightAt(part, 1) > 0) pen_.drawn.Reach(lying.span.secondRow, from, reach);
}

void ElementLoadPainter::DrawElementLoad(int element, const ElodRec& load) {
  const double value = load.P * load.K;
  if (value == 0) return;
  const double span = SpanOf(pen_.figure, Element(element), load.MG).span;
  const LoadShape shape = ShapeOfLoad(load.TYPE, load.Ly, span);
  if (shape.parts.empty() && shape.points.empty()) return;
  const Lying lying = Lay(element, load.MG, value);
  for (const std::vector<LoadOrdinate>& part : shape.parts) {
    DrawPart(lying, part);
    NoteReach(lying, part);
  }
  for (const double t : shape.points) DrawArrow(pen_, lying.Tip(t), lying.along, pen_.arrow);

  // The number stands at the middle of what is drawn, or off it.
  std::vector<LoadStroke> strokes;
  const auto offer = [&](double t, double height) {
    strokes.push_back({lying.Tip(t), lying.Away(t, lying.base + height * pen_.arrow)});
  };
  if (shape.parts.empty()) {
    for (std::size_t k = 0, n = shape.points.size(); k < std::min<std::size_t>(n, 3); ++k)
      offer(shape.points[(n / 2 + k) % n], 1);
  } else {
    const std::vector<LoadOrdinate>& part = shape.parts[0];
    for (const double share : {0.5, 0.3, 0.7, 0.15, 0.85}) {
      const double t = part.front().at + share * (part.back().at - part.front().at);
      offer(t, HeightAt(part, t));
    }
  }
  pen_.drawn.notes.push_back({std::move(strokes), LoadText(value)});
}

void ElementLoadPainter::DrawEndForce(int element, double t, double value, int MG) {
  if (value == 0) return;
  // An upward force is positive, in the member's axes or the model's.
  LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  if (MG != 0 && !pen_.figure.model.IsGrid()) span.push = {0, -1};
  const double sign = value > 0 ? 1 : -1, gap = kGapFactor * span.length;
  const Point along = {sign * span.push.x, sign * span.push.y}, p = span.At(t);
  const Point tip = {p.x - gap * along.x, p.y - gap * along.y};
  DrawArrow(pen_, tip, along, pen_.arrow);
  pen_.Note(tip, {tip.x - pen_.arrow * along.x, tip.y - pen_.arrow * along.y}, LoadText(value));
}

void ElementLoadPainter::DrawEndMoment(int element, double t, double value, std::string_view label) {
  if (value == 0) return;
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  const Point p = span.At(t);
  const double radius = kSideOffset * pen_.arrow;
  DrawTurn(pen_, p, radius, (value > 0) != span.mirrored);
  pen_.Note(p, {p.x, p.y - radius}, std::string(label) + LoadText(value));
}

void ElementLoadPainter::DrawCmqLoad(int element, const ClodRec& load) {
  constexpr double kNearEnd = 0.1;  // of the member: the ends' marks stand clear of other members' ones
  DrawEndMoment(element, kNearEnd, load.Ci, "C=");
  DrawEndMoment(element, 1 - kNearEnd, load.Cj, "C=");
  DrawEndForce(element, kNearEnd, load.Qi, load.MG);
  DrawEndForce(element, 1 - kNearEnd, load.Qj, load.MG);
  if (load.Mo == 0) return;
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  const Point p = span.At(0.5);
  pen_.Note(p, {p.x + span.push.x, p.y + span.push.y}, "Mo=" + LoadText(load.Mo));
}

void ElementLoadPainter::DrawTemperatureLoad(int element, const TlodRec& load) {
  static constexpr NumberPattern kDegrees("##0.0");
  const LoadedSpan span = SpanOf(pen_.figure, Element(element), 0);
  const Point p = span.At(0.5);
  pen_.Note(p, {p.x + span.push.x, p.y + span.push.y},
            "T1=" + FormatNumber(load.T1, kDegrees) + " T2=" + FormatNumber(load.T2, kDegrees));
}

/// Calls `draw` for the loads of the figure's case on shown items.
template <class Load, class Shown, class Draw>
void ForShownLoads(const Figure& figure, const std::vector<Load>& loads, const std::vector<int>& items,
                   Shown shown, Draw draw) {
  for (std::size_t n = 0; n < loads.size() && n < items.size(); ++n)
    if (loads[n].loadCase == figure.loadCase && items[n] >= 0 && shown(items[n])) draw(items[n], loads[n]);
}

}  // namespace

bool DrawLoads(Plot& plot, const Figure& figure, LabelField& labels) {
  DrawnLoads drawn(figure.place.size());
  if (!RunFigureRoutine("DrawElementForceData", [&] { DrawElementForceData(plot, figure, labels, drawn); }) ||
      !RunFigureRoutine("DrawNodalForceData", [&] { DrawNodalForceData(plot, figure, labels, drawn); }))
    return false;
  WriteNotes(plot, figure, labels, drawn.notes);
  return true;
}

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

void DrawNodalForceData(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn) {
  const LineOption& option = figure.options.nodalLoad;
  if (!option.visible) return;
  PlotSetPen(plot, option.style, option.width);
  const LoadPen pen = LoadPenOf(plot, figure, labels, drawn, option);
  const std::array<NodalPart, 3>& parts = figure.model.IsGrid() ? kGridParts : kFrameParts;
  const std::vector<unsigned> members = MemberSides(figure);
  Heap heap(figure.model.nodes.size());
  const auto shown = [&](int n) {
    return IsNodeShown(figure, figure.model.nodes[static_cast<std::size_t>(n)].number);
  };
  ForShownLoads(figure, figure.model.nodalLoads, figure.model.nodalLoadNode, shown,
                [&](int n, const PlodRec& load) {
                  for (std::size_t d = 0; d < parts.size(); ++d) {
                    const double value = load.*parts[d].value;
                    if (value != 0)
                      DrawNodalPart(pen, n, parts[d], value, heap.At(n, 2 * d + (value > 0 ? 1 : 0)),
                                    members[static_cast<std::size_t>(n)]);
                  }
                });
}

}  // namespace zorlan

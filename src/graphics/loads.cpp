#include "graphics/loads.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "graphics/figure_fault.h"
#include "graphics/load_stacks.h"
#include "graphics/sides.h"

namespace zorlan {
namespace {

constexpr double kTurnLabel = 0.8;  // of a turn's radius, across and up: where its label belongs
constexpr double kForceStep = 1.2;  // of an arrow: from an arrow's tip to that of the next behind it

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

/// To which side of its node an arrow moves that a member would hide: left or upward, but away from members
/// where the other side has none.
Point Aside(Point along, const Sides& members) {
  const auto onlyAt = [&](Side side, Side other) { return members.Has(side) && !members.Has(other); };
  if (std::abs(along.y) > std::abs(along.x)) return {onlyAt(Side::Left, Side::Right) ? 1.0 : -1.0, 0};
  return {0, onlyAt(Side::Above, Side::Below) ? 1.0 : -1.0};
}

class NodalLoadPainter {
 public:
  explicit NodalLoadPainter(const LoadPen& pen)
      : pen_(pen),
        members_(MemberSides(pen.figure, kAlong)),
        stacks_(pen.figure.place.size()),
        turns_(pen.figure.place.size()) {}

  /// One part, other than 0, at the node of a row.
  void Draw(int row, const NodalPart& part, double value);

 private:
  static constexpr double kAlong = 0.2;  // slope to an axis of members that would hide an arrow

  Point NodeAt(int row) const {
    return pen_.figure.view.ToFigure(pen_.figure.place[static_cast<std::size_t>(row)]);
  }
  void DrawMoment(int row, bool counterClockwise, std::string text);
  void DrawForce(int row, Point along, int heads, std::string text);

  LoadPen pen_;
  std::vector<Sides> members_;  // by node index: where they lie
  LoadStacks stacks_;
  std::vector<double> turns_;  // by node index: how much the next turn's radius is larger
};

void NodalLoadPainter::Draw(int row, const NodalPart& part, double value) {
  std::string text = std::string(part.label) + LoadText(value);
  if (part.shape == NodalPart::Shape::Turn) return DrawMoment(row, value > 0, std::move(text));
  const double sign = value > 0 ? 1 : -1;
  DrawForce(row, {sign * part.along.x, sign * part.along.y}, part.shape == NodalPart::Shape::Vector ? 2 : 1,
            std::move(text));
}

void NodalLoadPainter::DrawMoment(int row, bool counterClockwise, std::string text) {
  const Point node = NodeAt(row);
  double& larger = turns_[static_cast<std::size_t>(row)];
  const double radius = kSideOffset * pen_.arrow + larger, label = kTurnLabel * radius;
  DrawTurn(pen_, node, radius, counterClockwise);
  pen_.Note({{node, {node.x + label, node.y - label}},
             {node, {node.x - label, node.y - label}},
             {node, {node.x + label, node.y + label}},
             {node, {node.x - label, node.y + label}}},
            std::move(text));
  larger += kTurnStep * pen_.arrow;
}

/// An arrow to the node from the side on which it lies: its sign there is the negative of the load's.
void NodalLoadPainter::DrawForce(int row, Point along, int heads, std::string text) {
  const Point node = NodeAt(row);
  const Sides& members = members_[static_cast<std::size_t>(row)];
  const Side from = SideOf({-along.x, -along.y});
  const Point way = Aside(along, members);
  const double aside = members.Has(from) ? kSideOffset * pen_.arrow : 0;
  double depth = stacks_.Height(row, from);
  // Where element loads lie on the node the arrow stands on them.
  if (aside == 0 || members.Has(SideOf(way))) depth = std::max(depth, pen_.drawn.onNodes.Height(row, from));
  const double away = NodeRadius(pen_.figure.options) + depth;
  const Point tip = {node.x - away * along.x + aside * way.x, node.y - away * along.y + aside * way.y};
  const Point tail = {tip.x - pen_.arrow * along.x, tip.y - pen_.arrow * along.y};
  DrawArrow(pen_, tip, along, pen_.arrow, heads);
  pen_.Note({{tip, tail}}, std::move(text));
  stacks_.Raise(row, from, depth + kForceStep * pen_.arrow);
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

void DrawNodalForceData(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn) {
  const LineOption& option = figure.options.nodalLoad;
  if (!option.visible) return;
  PlotSetPen(plot, option.style, option.width);
  NodalLoadPainter painter(LoadPenOf(plot, figure, labels, drawn, option));
  const std::array<NodalPart, 3>& parts = figure.model.IsGrid() ? kGridParts : kFrameParts;
  const auto shown = [&](int n) {
    return IsNodeShown(figure, figure.model.nodes[static_cast<std::size_t>(n)].number);
  };
  ForShownLoads(figure, figure.model.nodalLoads, figure.model.nodalLoadNode, shown,
                [&](int n, const PlodRec& load) {
                  for (const NodalPart& part : parts)
                    if (load.*part.value != 0) painter.Draw(n, part, load.*part.value);
                });
}

}  // namespace zorlan

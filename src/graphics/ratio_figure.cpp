#include <cmath>
#include <optional>

#include "graphics/diagram_curves.h"
#include "graphics/diagram_labels.h"
#include "graphics/diagrams.h"

namespace zorlan {
namespace {

constexpr int kRatioDecimals = 3;  // as the design lists it: 0.999 is no 1.00

struct RatioMember {
  Point i, j;  // twips
  double ratio;
  const LineOption* line;
};

/// The shown members whose class is visible.
std::vector<RatioMember> RatioMembers(const Figure& figure) {
  const FigureModel& model = figure.model;
  const auto& classes = figure.options.ratioClass;
  std::vector<RatioMember> members;
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const double ratio = e < model.ratios.size() ? model.ratios[e] : std::nan("");
    const LineOption& line = classes[RatioClassOf(ratio, classes)].line;
    if (!line.visible) continue;
    const auto [i, j] = figure.EndsOf(model.elements[e]);
    members.push_back({i, j, ratio, &line});
  }
  return members;
}

}  // namespace

void DrawRatioData(Plot& plot, const Figure& figure, LabelField& labels) {
  const std::vector<RatioMember> members = RatioMembers(figure);
  for (const RatioMember& member : members) {
    PlotSetPen(plot, member.line->style, member.line->width);
    PlotDashedLine(plot, member.i.x, member.i.y, member.j.x, member.j.y, member.line->colour);
  }
  // Colours alone don't reach every eye and printer: the ratio stands beside its member.
  ValueLabels values(plot, labels, TextOption{}, kRatioDecimals);
  for (const RatioMember& member : members) {
    const std::optional<DiagramMember> line =
        MemberFromStart({member.i.x, -member.i.y}, {member.j.x, -member.j.y});
    if (!line || !(member.ratio >= 0)) continue;
    LabelPlace place;
    place.ordinate = {(member.i.x + member.j.x) / 2, (member.i.y + member.j.y) / 2};
    place.away = {-line->sine, -line->cosine};
    place.along = {line->cosine, -line->sine};
    place.room = line->L / 3;
    place.angle = LabelAngle(*line);
    values.Add(place, member.ratio);
  }
  values.Write();
}

}  // namespace zorlan

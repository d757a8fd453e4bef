#include "graphics/diagram_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zorlan {

bool StartsAtJ(Point i, Point j) {
  return i.x == j.x ? j.y < i.y : j.x < i.x;
}

std::optional<DiagramMember> MemberFromStart(Point i, Point j) {
  DiagramMember member;
  member.exchanged = StartsAtJ(i, j);
  const Point start = member.exchanged ? j : i, end = member.exchanged ? i : j;
  const double dx = end.x - start.x, dy = end.y - start.y;
  member.xi = start.x;
  member.yi = start.y;
  member.L = std::hypot(dx, dy);
  if (!(member.L > 0) || !std::isfinite(member.L)) return std::nullopt;
  member.theta = dx == 0 ? std::numbers::pi / 2 : std::atan(dy / dx);
  member.cosine = dx / member.L;
  member.sine = dy / member.L;
  return member;
}

double LabelAngle(const DiagramMember& member) {
  constexpr double kPi = 3.1415926;  // these eight digits, as the angles of all older drawings
  return member.cosine == 0 ? 90 : member.theta / kPi * 180;
}

MomentValues MomentsFromStart(const StressRecord& record, bool exchanged) {
  if (exchanged) return {record.momentJ, -record.momentC, record.momentI};
  return {record.momentI, record.momentC, record.momentJ};
}

MomentValues MomentLabels(const StressRecord& record, bool exchanged, bool grid) {
  MomentValues labels = MomentsFromStart(record, exchanged);
  if (grid) labels.centre = record.momentC;
  return labels;
}

MomentValues MomentOrdinates(const StressRecord& record, bool exchanged, bool grid) {
  const MomentValues m = MomentsFromStart(record, exchanged);
  return grid && exchanged ? MomentValues{-m.start, -m.centre, -m.end} : m;
}

EndValues AxialFromStart(const StressRecord& record, bool exchanged) {
  const double i = -record.axialI, j = record.axialJ;
  return exchanged ? EndValues{j, i} : EndValues{i, j};
}

EndValues ShearFromStart(const StressRecord& record, bool exchanged, bool grid) {
  const double i = record.shearI, j = -record.shearJ;
  if (!exchanged) return {i, j};
  return grid ? EndValues{-j, -i} : EndValues{j, i};
}

bool HasOrdinates(double G, double greatestOfAll) {
  constexpr double kRounding = 1e-10, kLeast = 1e-9;
  return G > std::max(kLeast, kRounding * greatestOfAll);
}

double DiagramScale(double height, double Vvkei, double G) {
  const double scale = height * Vvkei / G;
  return G > 0 && std::isfinite(scale) ? scale : 1;
}

Parabola MomentParabola(double Mi, double Mc, double Mj, double L) {
  return {(2 * Mi + 4 * Mc - 2 * Mj) / (L * L), -(3 * Mi + 4 * Mc - Mj) / L, Mi};
}

std::string DecimalPattern(int decimals) {
  if (decimals <= 0) return "0";
  return "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

std::size_t RatioClassOf(double ratio, std::span<const RatioClass> classes) {
  const auto found = std::find_if(classes.begin(), classes.end(),
                                  [&](const RatioClass& c) { return ratio >= c.lower && ratio < c.upper; });
  return static_cast<std::size_t>((found == classes.end() ? classes.end() - 1 : found) - classes.begin());
}

}  // namespace zorlan

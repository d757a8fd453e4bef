#include "graphics/diagrams.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "graphics/diagram_curves.h"
#include "graphics/diagram_labels.h"

namespace zorlan {
namespace {

/// The first and the last of some cases.
struct CaseRange {
  int first = 1, last = 0;
};
/// Those that have a part in the scale.
CaseRange ScaledCases(const Figure& figure) {
  if (figure.options.ScaleOverAllCases) return {1, figure.model.maxLoadCase};
  return {figure.loadCase, figure.loadCase};
}

std::optional<DiagramMember> MemberOf(const Figure& figure, const FigureElement& element) {
  if (element.rowI < 0 || element.rowJ < 0) return std::nullopt;
  const FigureNode& i = figure.model.nodes[static_cast<std::size_t>(element.rowI)];
  const FigureNode& j = figure.model.nodes[static_cast<std::size_t>(element.rowJ)];
  return MemberFromStart({i.x, i.y}, {j.x, j.y});
}

/// The greatest absolute value of a record that a diagram shows.
using Greatest = double (*)(const StressRecord&);

/// That of the cases' records of all members with a length.
double GreatestStress(const Figure& figure, CaseRange cases, Greatest greatest) {
  double G = 0;
  const std::vector<FigureElement>& elements = figure.model.elements;
  for (std::size_t e = 0; e < elements.size(); ++e) {
    if (!MemberOf(figure, elements[e])) continue;
    for (int c = cases.first; c <= cases.last; ++c)
      if (const StressRecord* const record = figure.model.StressOf(c, static_cast<int>(e)))
        G = std::max(G, greatest(*record));
  }
  return G;
}

/// How ordinates lie in the figure: in a frame beside their member; in the oblique view of a grid upright.
class Ordinates {
 public:
  Ordinates(const Figure& figure, float heightCm, double G) : figure_(figure) {
    double height = heightCm * kTwipsPerCm;
    if (figure.oblique) {  // the view shortens what stands upright
      const Point foot = figure.PlaneOf(0, 0, 0), top = figure.PlaneOf(0, 0, 1);
      const double shown = std::hypot(top.x - foot.x, top.y - foot.y);
      constexpr double kFlat = 1e-3;
      height /= std::max(shown, kFlat);
    }
    scale_ = DiagramScale(height, figure.view.Vvkei, G);
  }

  double Scale() const { return scale_; }

  /// The point in the figure (twips) of the ordinate m (model units) at x from the member's start.
  Point At(const DiagramMember& member, double x, double m) const {
    if (figure_.oblique)
      return figure_.FigureOf(x * member.cosine + member.xi, x * member.sine + member.yi, m);
    const Point p = OrdinatePoint(member, x, m);
    return figure_.FigureOf(p.x, p.y);
  }
  /// Where the label of the ordinate m at x stands: outside of the diagram, with a third of the member to
  /// move along, towards the start where `back` is set.
  LabelPlace Place(const DiagramMember& member, double x, double m, Anchor anchor, bool back = false) const {
    const Point foot = At(member, 0, 0), end = At(member, member.L, 0);
    const double length = std::hypot(end.x - foot.x, end.y - foot.y), way = back ? -1 : 1;
    const Point away = figure_.oblique ? Point{0, -1} : Point{-member.sine, -member.cosine};
    LabelPlace place;
    place.ordinate = At(member, x, m);
    place.away = m < 0 ? Point{-away.x, -away.y} : away;
    if (length > 0) place.along = {way * (end.x - foot.x) / length, way * (end.y - foot.y) / length};
    place.room = length / 3;
    place.angle = figure_.oblique ? 0 : LabelAngle(member);
    place.anchor = anchor;
    return place;
  }

 private:
  const Figure& figure_;
  double scale_ = 1;
};

/// A curve of ordinates over a member: its points from start to end, and the feet at both ends.
struct Curve {
  Point footStart, footEnd;
  std::vector<Point> points;
};

void ShadeCurve(Plot& plot, Curve& curve, Rgb colour) {
  std::vector<Point>& polygon = curve.points;
  polygon.push_back(curve.footEnd);
  polygon.push_back(curve.footStart);
  PlotShade(plot, polygon, colour);
  polygon.resize(polygon.size() - 2);
}

/// The lines of a curve, with the closing lines at its first and last ordinate as they are wanted.
void DrawCurve(Plot& plot, const Curve& curve, Rgb colour, bool first = true, bool last = true) {
  const auto line = [&](Point a, Point b) { PlotDashedLine(plot, a.x, a.y, b.x, b.y, colour); };
  if (first) line(curve.footStart, curve.points.front());
  for (std::size_t k = 1; k < curve.points.size(); ++k) line(curve.points[k - 1], curve.points[k]);
  if (last) line(curve.points.back(), curve.footEnd);
}

/// No label shall stand on a diagram's lines; where none looks for a place that needn't be known.
void KeepFree(LabelField& field, const ValueLabels& values, const Curve& curve) {
  if (values.IsCrowded(curve.footStart) && values.IsCrowded(curve.footEnd)) return;
  field.TakeLine(curve.footStart, curve.points.front());
  field.TakePolyline(curve.points);
  field.TakeLine(curve.points.back(), curve.footEnd);
}

double GreatestMoment(const StressRecord& r) {
  return std::max({std::abs(r.momentI), std::abs(r.momentC), std::abs(r.momentJ)});
}
double GreatestAxial(const StressRecord& r) {
  return std::max(std::abs(r.axialI), std::abs(r.axialJ));
}
double GreatestShear(const StressRecord& r) {
  return std::max(std::abs(r.shearI), std::abs(r.shearJ));
}
double GreatestOfAll(const StressRecord& r) {
  return std::max({GreatestMoment(r), GreatestAxial(r), GreatestShear(r)});
}

/// A shown member of a diagram, with its record of the case in hand.
struct ShownMember {
  DiagramMember member;
  const StressRecord& record;
};

/// None where that case is without such stress.
std::vector<ShownMember> ShownMembers(const Figure& figure, Greatest greatest) {
  std::vector<ShownMember> shown;
  const CaseRange shownCase = {figure.loadCase, figure.loadCase};
  const double G = GreatestStress(figure, shownCase, greatest);
  if (!HasOrdinates(G, GreatestStress(figure, shownCase, GreatestOfAll))) return shown;
  const std::vector<FigureElement>& elements = figure.model.elements;
  for (std::size_t e = 0; e < elements.size() && e < figure.shown.size(); ++e) {
    if (figure.shown[e] == 0) continue;
    const StressRecord* const record = figure.model.StressOf(figure.loadCase, static_cast<int>(e));
    if (record == nullptr) continue;
    if (const std::optional<DiagramMember> member = MemberOf(figure, elements[e]))
      shown.push_back({*member, *record});
  }
  return shown;
}

Curve MomentCurve(const DiagramMember& member, const Parabola& m, const Ordinates& ordinates) {
  Curve curve{ordinates.At(member, 0, 0), ordinates.At(member, member.L, 0), {}};
  curve.points.reserve(kChords + 3);  // the shade adds the feet
  for (int k = 0; k <= kChords; ++k) {
    const double x = member.L / kChords * k;
    curve.points.push_back(ordinates.At(member, x, m.At(x)));
  }
  return curve;
}

/// A band of a force: a quadrangle between the member and the line that joins both ordinates; of one colour
/// for each sign.
struct Band {
  double x0, m0, x1, m1;  // from x0 to x1, ordinates
  Rgb colour;
  bool first = true, last = true;  // of its member
};

/// The parts of a straight line of ordinates on either side of the member; one where they look alike.
std::vector<Band> BandsOf(double L, double m0, double m1, Rgb positive, Rgb negative) {
  const auto colour = [&](double m) { return m < 0 ? negative : positive; };
  if (positive == negative || (m0 < 0) == (m1 < 0) || m0 == 0 || m1 == 0)
    return {{0, m0, L, m1, colour(m0 + m1)}};
  const double x = L * m0 / (m0 - m1);
  return {{0, m0, x, 0, colour(m0), true, false}, {x, 0, L, m1, colour(m1), false, true}};
}

struct ForceDiagram {
  EndValues (*read)(const StressRecord&, bool exchanged, bool grid);
  Greatest greatest;
  float heightCm;
  const LineOption& line;
  Rgb positive, negative;
  const TextOption& value;
  int decimals;
};

void DrawForceDiagram(Plot& plot, const Figure& figure, LabelField& labels, const ForceDiagram& diagram) {
  const double G = GreatestStress(figure, ScaledCases(figure), diagram.greatest);
  const Ordinates ordinates(figure, diagram.heightCm, G);
  const std::vector<ShownMember> shown = ShownMembers(figure, diagram.greatest);
  const double s = ordinates.Scale();
  const auto valuesOf = [&](const ShownMember& m) {
    return diagram.read(m.record, m.member.exchanged, figure.model.IsGrid());
  };
  const auto forEachBand = [&](auto use) {
    if (!diagram.line.visible) return;
    for (const ShownMember& m : shown) {
      const EndValues v = valuesOf(m);
      for (const Band& band : BandsOf(m.member.L, v.start * s, v.end * s, diagram.positive, diagram.negative))
        use(band,
            Curve{ordinates.At(m.member, band.x0, 0),
                  ordinates.At(m.member, band.x1, 0),
                  {ordinates.At(m.member, band.x0, band.m0), ordinates.At(m.member, band.x1, band.m1)}});
    }
  };
  forEachBand([&](const Band& band, Curve curve) { ShadeCurve(plot, curve, band.colour); });

  ValueLabels values(plot, labels, diagram.value, diagram.decimals, figure.model.DisplayFactor());
  for (const ShownMember& m : shown) {
    const EndValues v = valuesOf(m);
    values.Add(ordinates.Place(m.member, 0, v.start * s, kLeftCentre), v.start);
    values.Add(ordinates.Place(m.member, m.member.L, v.end * s, kRightCentre, /*back=*/true), v.end);
  }
  PlotSetPen(plot, diagram.line.style, diagram.line.width);
  forEachBand([&](const Band& band, const Curve& curve) {
    DrawCurve(plot, curve, band.colour, band.first, band.last);
    KeepFree(labels, values, curve);
  });
  values.Write();
}

/// The greatest displacement of the members' end nodes: in x and y, of a grid's oblique view the vertical
/// one.
double GreatestDisplacement(const Figure& figure) {
  double G = 0;
  const CaseRange cases = ScaledCases(figure);
  for (const FigureElement& element : figure.model.elements) {
    if (!MemberOf(figure, element)) continue;
    for (const int row : {element.rowI, element.rowJ})
      for (int c = cases.first; c <= cases.last; ++c)
        if (const DisplacementRecord* const d = figure.model.DisplacementOf(c, row))
          G = std::max({G, std::abs(d->x), figure.oblique ? 0 : std::abs(d->y)});
  }
  return G;
}

}  // namespace

void DrawMomentData(Plot& plot, const Figure& figure, LabelField& labels) {
  const FigureOptions& options = figure.options;
  const double G = GreatestStress(figure, ScaledCases(figure), GreatestMoment);
  const Ordinates ordinates(figure, options.HeightMoment, G);
  const std::vector<ShownMember> shown = ShownMembers(figure, GreatestMoment);
  const double s = ordinates.Scale();
  const bool grid = figure.model.IsGrid();
  ValueLabels values(plot, labels, options.momentValue, options.DecimalsMoment, figure.model.DisplayFactor());
  for (const auto& [member, record] : shown) {
    const MomentValues m = MomentOrdinates(record, member.exchanged, grid),
                       label = MomentLabels(record, member.exchanged, grid);
    values.Add(ordinates.Place(member, 0, m.start * s, kLeftCentre), label.start);
    values.Add(ordinates.Place(member, member.L, -m.end * s, kRightCentre, /*back=*/true), label.end);
    values.Add(ordinates.Place(member, member.L / 2, -m.centre * s, kCentre), label.centre);
  }
  if (options.moment.visible) {
    std::vector<Curve> curves;
    curves.reserve(shown.size());
    for (const auto& [member, record] : shown) {
      const MomentValues m = MomentOrdinates(record, member.exchanged, grid);
      const Parabola parabola = MomentParabola(m.start * s, m.centre * s, m.end * s, member.L);
      curves.push_back(MomentCurve(member, parabola, ordinates));
    }
    for (Curve& curve : curves) ShadeCurve(plot, curve, options.moment.colour);
    PlotSetPen(plot, options.moment.style, options.moment.width);
    for (const Curve& curve : curves) {
      DrawCurve(plot, curve, options.moment.colour);
      KeepFree(labels, values, curve);
    }
  }
  values.Write();
}

void DrawNormalData(Plot& plot, const Figure& figure, LabelField& labels) {
  const FigureOptions& o = figure.options;
  DrawForceDiagram(plot, figure, labels,
                   {[](const StressRecord& record, bool exchanged, bool /*grid*/) {
                      return AxialFromStart(record, exchanged);  // along the member, in a grid 0
                    },
                    GreatestAxial, o.HeightNormal, o.axial, o.axialTension, o.axialCompression, o.axialValue,
                    o.DecimalsNormal});
}

void DrawNormalShearData(Plot& plot, const Figure& figure, LabelField& labels) {
  const FigureOptions& o = figure.options;
  DrawForceDiagram(plot, figure, labels,
                   {ShearFromStart, GreatestShear, o.HeightShear, o.shear, o.shear.colour, o.shear.colour,
                    o.shearValue, o.DecimalsShear});
}

void DrawDisplacementData(Plot& plot, const Figure& figure, LabelField& /*labels*/) {
  const LineOption& line = figure.options.displacement;
  if (!line.visible) return;
  const double s = Ordinates(figure, figure.options.HeightDisplacement, GreatestDisplacement(figure)).Scale();
  const auto moved = [&](int row) -> std::optional<Point> {
    const DisplacementRecord* const d = figure.model.DisplacementOf(figure.loadCase, row);
    if (d == nullptr) return std::nullopt;
    const FigureNode& node = figure.model.nodes[static_cast<std::size_t>(row)];
    return figure.oblique ? figure.FigureOf(node.x, node.y, s * d->x)
                          : figure.FigureOf(node.x + s * d->x, node.y + s * d->y);
  };
  PlotSetPen(plot, line.style, line.width);
  for (std::size_t e = 0; e < figure.shown.size(); ++e) {
    const FigureElement& element = figure.model.elements[e];
    if (figure.shown[e] == 0 || !MemberOf(figure, element)) continue;
    const std::optional<Point> i = moved(element.rowI), j = moved(element.rowJ);
    if (i && j) PlotDashedLine(plot, i->x, i->y, j->x, j->y, line.colour);
  }
}

}  // namespace zorlan

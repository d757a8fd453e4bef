// The geometry of the result diagrams: which end of a member is its start, ordinates, scale, curve, places of
// labels. Values in, values out; model units (m), but where something else is said.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "graphics/figure_model.h"
#include "graphics/figure_options.h"
#include "graphics/plot_target.h"

namespace zorlan {

/// A member as the diagrams see it: from its start, the end with the smaller x (of a vertical member: with
/// the smaller y), to its end.
struct DiagramMember {
  double xi = 0, yi = 0;        // start
  double L = 0;                 // length
  double theta = 0;             // direction angle: above -pi/2, up to pi/2 of a vertical member
  double cosine = 1, sine = 0;  // of it
  bool exchanged = false;       // the start is the end J
};

/// Whether a member from `i` to `j` starts at its end J.
bool StartsAtJ(Point i, Point j);

/// Nothing for a member without length, or with coordinates that are no numbers.
std::optional<DiagramMember> MemberFromStart(Point i, Point j);

/// The angle of a label along a member in degrees: 90 for a vertical one, else arctan(slope)/3.1415926*180.
double LabelAngle(const DiagramMember& member);

/// Moments at start, centre and end of a member.
struct MomentValues {
  double start = 0, centre = 0, end = 0;
};
/// Those that a frame's diagram shows: the record's, with the ends exchanged and the sign of the centre
/// changed where the start is the end J. They are of the member's y axis, which turns with the ends.
MomentValues MomentsFromStart(const StressRecord& record, bool exchanged);

/// What stands at start, centre and end of a diagram, in a grid too. A grid's local vertical is Z from either
/// end: an end's moment has there the sign that the record has, and the centre's is positive where the member
/// sags.
MomentValues MomentLabels(const StressRecord& record, bool exchanged, bool grid);
/// What the ordinates are made of: a grid's stand upright, so they are those of the member entered from its
/// start, whose end moments have the reverse signs where the start is the end J.
MomentValues MomentOrdinates(const StressRecord& record, bool exchanged, bool grid);

/// Forces at both ends of a member.
struct EndValues {
  double start = 0, end = 0;
};
/// Axial force, tension positive: at end I the reverse of the force on the member, at end J that force.
EndValues AxialFromStart(const StressRecord& record, bool exchanged);
/// Shear at a cut, positive where the part towards the start pushes to the +90 degree side (it would turn a
/// piece of the member clockwise): the force on the member at end I, the reverse of that at end J. Between
/// loads it is constant. It is the same from either end, in a grid too, where the vertical stays.
EndValues ShearFromStart(const StressRecord& record, bool exchanged, bool grid);

/// Whether a diagram with this greatest absolute value has ordinates, beside the greatest of all forces and
/// moments (t, t*m) of the case: what the solution's rounding leaves where nothing is has none, nor has a
/// milligram, which is all that rounding leaves where no member has a force.
bool HasOrdinates(double G, double greatestOfAll);

/// Model units per unit of a result: the greatest absolute value G becomes `height` twips at `Vvkei` model
/// units per twip. 1 for a G of 0.
double DiagramScale(double height, double Vvkei, double G);

/// The parabola m(x) = a x^2 + b x + c through Mi at 0, -Mc at L/2 and -Mj at L: centre and end moments have
/// the opposite sense to that of the start.
struct Parabola {
  double a = 0, b = 0, c = 0;
  double At(double x) const { return a * x * x + b * x + c; }
};
Parabola MomentParabola(double Mi, double Mc, double Mj, double L);

/// The point at x from the start whose ordinate is m, positive to the +90 degree side.
inline Point OrdinatePoint(const DiagramMember& member, double x, double m) {
  return {x * member.cosine + member.xi - m * member.sine, x * member.sine + member.yi + m * member.cosine};
}

inline constexpr int kChords = 20;  // of a moment curve

/// "0." and so many "0"; "0" without decimals.
std::string DecimalPattern(int decimals);

/// The first class with lower <= ratio < upper; the last one for what no class takes, so for a member
/// without a ratio (NaN or below 0).
std::size_t RatioClassOf(double ratio, std::span<const RatioClass> classes);

}  // namespace zorlan

// Fixed-end terms of the loads on a member. t, m.
#pragma once

namespace zorlan {

struct Member;
struct ClodRec;
struct TlodRec;

/// End terms of a loaded member in its own axes, and the centre moment of the simple beam. C
/// counter-clockwise, Q along +y, N along +x, Mo tension at the lower side; they are the forces that hold the
/// loaded member with its ends fixed.
struct LoadTerms {
  double Ci = 0, Cj = 0;
  double Mo = 0;
  double Qi = 0, Qj = 0;
  double Ni = 0, Nj = 0;
};

/// The member as its loads see it.
struct LoadedMember {
  double xi = 0, xj = 0, yi = 0, yj = 0;
  double L = 0;
  int II = 0, JJ = 0;  // 0 rigid, 1 pin
  double Ix = 0;  // the section's second field, a test for zero alone: without it there are no end moments
};
LoadedMember AsLoaded(const Member& member);

/// Terms of an element load. `P` is the load times its factor, `Ly` a length (m), `type` one of these:
///
///   0 and below  uniform, t/m
///   1            a point, t, at Ly from the load's first end
///   2            a point at Ly from either end
///   3 to 9       `type` equal points, which divide the span evenly
///   10           a slab, t/m2, of the width Ly: a trapezoid at 45 degrees
///   11, 12, 13   a slab of the depth Ly over 1, 2, 3 joists that rest on the member
///   14, 15       uniform over the length Ly about the middle; over Ly from either end
///   16, 17, 18   a triangle with the peak P Ly at the second end; at the first end; in the middle
///
/// TYPE 1, 2 and 10 to 18 without Ly, and any TYPE above 18, are `type` equal points too. `MG` 0 and below:
/// member axes; 1 global vertical, 2 global horizontal, where the span is the member's projection, and the
/// first end its left, or lower, one. Throws Fault where a formula divides by a span of 0. All zeros for L =
/// 0.
LoadTerms MemberLoadTerms(const LoadedMember& member, int type, double P, double Ly, int MG);

/// Which way a caller counts the end moments of a CMQ or temperature load.
enum class EndMoments { Turned, AsTyped };

/// Terms of a CMQ load for a member of direction (c, s). The load's Q always change sign, its C with
/// EndMoments::Turned.
LoadTerms CmqTerms(const ClodRec& load, const Member& member, EndMoments moments);

/// Axial terms of a temperature load: Ni = A E α ΔT and Nj = -Ni, 0 if the load asks for none.
LoadTerms TemperatureAxialTerms(const TlodRec& load, const Member& member);

/// TemperatureAxialTerms with the end moments and shears of the gradient, as they enter the load vector of a
/// frame, or of a grid (`grid`: the moments' signs are the opposite). Throws Fault for Y1 = 0.
LoadTerms TemperatureTerms(const TlodRec& load, const Member& member, bool grid);

}  // namespace zorlan

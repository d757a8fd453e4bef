#include "analysis/member_load_terms.h"

#include <cmath>
#include <utility>

#include "analysis/members.h"
#include "base/fault.h"

namespace zorlan {
namespace {

/// Carries the end moments over where one end is a pin: the other end takes half of the released moment.
void ReleasePins(LoadTerms& terms, int II, int JJ) {
  if (II == 1 && JJ == 0) {
    terms.Cj = terms.Cj - 0.5 * terms.Ci;
    terms.Ci = 0;
  } else if (II == 0 && JJ == 1) {
    terms.Ci = terms.Ci - 0.5 * terms.Cj;
    terms.Cj = 0;
  }
}

/// A load of the value p and the length a (Ly) on a span of length l.
struct SpanLoad {
  double p, a, l;
  bool moments;  // whether end moments are asked for
};

double Divisor(double span) {
  if (span == 0) throw Fault("荷重方向に投影した部材長が０です");
  return span;
}

// Each routine gives Ci, Cj (when asked for), Mo, Qi, Qj with both ends fixed for moments, as a simple beam
// for shears. The tables of fixed-end moments that engineers know, in the order of their formulas.

void Symmetric(LoadTerms& t, double Mo, double Q) {
  t.Cj = -t.Ci;
  t.Mo = Mo;
  t.Qi = t.Qj = Q;
}

LoadTerms Uniform(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * s.l * s.l / 12;
  Symmetric(t, -s.p * s.l * s.l / 8, -s.p * s.l / 2);
  return t;
}

LoadTerms OnePoint(const SpanLoad& s) {
  LoadTerms t;
  if (s.l != 0) {
    if (s.moments) {
      t.Ci = -s.p * s.a * (s.l - s.a) * (s.l - s.a) / (s.l * s.l);
      t.Cj = s.p * s.a * s.a * (s.l - s.a) / (s.l * s.l);
    }
    t.Qi = -s.p * (s.l - s.a) / s.l;
    t.Qj = -s.p * s.a / s.l;
  }
  t.Mo = 0.5 * s.l < s.a ? -0.5 * s.p * (s.l - s.a) : -0.5 * s.p * s.a;
  return t;
}

LoadTerms TwoPoints(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * s.a * (s.l - s.a) / Divisor(s.l);
  Symmetric(t, -s.p * s.a, -s.p);
  return t;
}

/// A slab of the width a carried by its longer edge: rising at 45 degrees from either end to p a/2.
LoadTerms Trapezoid(const SpanLoad& s) {
  const double a3 = s.a * s.a * s.a, l2 = s.l * s.l;
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * (l2 * s.a / 24 - a3 / 48 + a3 * s.a / (192 * Divisor(s.l)));
  Symmetric(t, -s.p * (l2 * s.a / 16 - a3 / 48), -s.p * (s.l * s.a / 4 - s.a * s.a / 8));
  return t;
}

// A slab over n - 1 joists: the triangles of its n panels, and at each joist its end reaction, half of its
// strip less the triangles.
LoadTerms OneJoist(const SpanLoad& s) {
  const double l2 = s.l * s.l, l3 = l2 * s.l;
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * (l2 * s.a / 32 + 5 * l3 / 1536);
  Symmetric(t, -s.p * s.a * l2 / 16, -s.p * (l2 / 32 + s.l * s.a / 8));
  return t;
}

LoadTerms TwoJoists(const SpanLoad& s) {
  const double l2 = s.l * s.l, l3 = l2 * s.l;
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * (l2 * s.a / 27 + 5 * l3 / 5184);
  Symmetric(t, -s.p * (l2 * s.a / 18 + l3 / 648), -s.p * (l2 / 72 + s.l * s.a / 6));
  return t;
}

LoadTerms ThreeJoists(const SpanLoad& s) {
  const double l2 = s.l * s.l, l3 = l2 * s.l;
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * (5 * s.a * l2 / 128 + 5 * l3 / 12288);
  Symmetric(t, -s.p * s.a * l2 / 16, -s.p * (l2 / 128 + 3 * s.a * s.l / 16));
  return t;
}

/// Uniform over the length a about the middle.
LoadTerms MiddlePart(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * s.a * (3 * s.l * s.l - s.a * s.a) / (24 * Divisor(s.l));
  Symmetric(t, -0.25 * s.p * s.a * (s.l - 0.5 * s.a), -0.5 * s.p * s.a);
  return t;
}

/// Uniform over the length a from either end.
LoadTerms EndParts(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * s.a * s.a * (3 * s.l - 2 * s.a) / (6 * Divisor(s.l));
  Symmetric(t, -0.5 * s.p * s.a * s.a, -s.p * s.a);
  return t;
}

// The decimal constants of the two triangles have seven and six digits and are not a thirtieth: results are
// compared to the last printed digit.
LoadTerms TriangleToJ(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) {
    t.Ci = -0.0333333 * s.p * s.a * s.l * s.l;
    t.Cj = 0.05 * s.p * s.a * s.l * s.l;
  }
  t.Mo = -s.p * s.a * s.l * s.l / 16;
  t.Qi = -s.p * s.a * s.l / 6;
  t.Qj = -s.p * s.a * s.l / 3;
  return t;
}

LoadTerms TriangleToI(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) {
    t.Ci = -0.05 * s.p * s.a * s.l * s.l;
    t.Cj = 0.033333 * s.p * s.a * s.l * s.l;
  }
  t.Mo = -s.p * s.a * s.l * s.l / 16;
  t.Qi = -s.p * s.a * s.l / 3;
  t.Qj = -s.p * s.a * s.l / 6;
  return t;
}

LoadTerms TriangleToMiddle(const SpanLoad& s) {
  LoadTerms t;
  if (s.moments) t.Ci = -5 * s.p * s.a * s.l * s.l / 96;
  Symmetric(t, -s.p * s.a * s.l * s.l / 12, -0.25 * s.p * s.a * s.l);
  return t;
}

/// n - 1 equal points at the n-th parts.
LoadTerms EqualPoints(const SpanLoad& s, double n) {
  LoadTerms t;
  if (s.moments) t.Ci = -s.p * s.l * (n * n - 1) / (12 * n);
  const bool odd = std::fmod(n, 2) != 0;
  Symmetric(t, odd ? -s.p * s.l * (n * n - 1) / (8 * n) : -s.p * s.l * n / 8, -0.5 * (n - 1) * s.p);
  return t;
}

using Formula = LoadTerms (*)(const SpanLoad&);
struct TypeFormula {
  int type;
  Formula formula;
};
constexpr TypeFormula kFormulasWithLength[] = {
    {1, OnePoint},     {2, TwoPoints},    {10, Trapezoid},        {11, OneJoist},
    {12, TwoJoists},   {13, ThreeJoists}, {14, MiddlePart},       {15, EndParts},
    {16, TriangleToJ}, {17, TriangleToI}, {18, TriangleToMiddle},
};

LoadTerms SpanTerms(int type, const SpanLoad& load) {
  if (type <= 0) return Uniform(load);
  if (load.a != 0)
    for (const TypeFormula& entry : kFormulasWithLength)
      if (entry.type == type) return entry.formula(load);
  return EqualPoints(load, type + 1);
}

}  // namespace

LoadedMember AsLoaded(const Member& member) {
  return {member.xi, member.xj, member.yi, member.yj, member.L, member.II, member.JJ, member.section.P2};
}

LoadTerms MemberLoadTerms(const LoadedMember& member, int type, double P, double Ly, int MG) {
  const double L = member.L;
  if (L == 0) return {};
  double span = L, dc = 1, ds = 0;
  if (MG > 0) {
    dc = (member.xj - member.xi) / L;
    ds = (member.yj - member.yi) / L;
    if (MG == 1) span = std::abs(member.xj - member.xi);
    if (MG == 2) span = std::abs(member.yj - member.yi);
  }
  const bool moments = member.Ix != 0 && !(member.II == 1 && member.JJ == 1);
  LoadTerms t = SpanTerms(type, {P, Ly, span, moments});

  if ((MG == 2 && ds < 0) || (MG != 2 && dc < 0) || MG > 2) {
    std::swap(t.Ci, t.Cj);
    std::swap(t.Qi, t.Qj);
  }
  if (MG == 2)
    for (double* value : {&t.Ci, &t.Cj, &t.Mo, &t.Qi, &t.Qj}) *value = -*value;
  ReleasePins(t, member.II, member.JJ);

  const double alongI = MG == 2 ? -dc * t.Qi : ds * t.Qi;
  const double alongJ = MG == 2 ? -dc * t.Qj : ds * t.Qj;
  const double across = MG == 2 ? ds : dc;
  t.Ni = alongI;
  t.Nj = alongJ;
  t.Qi = across * t.Qi + (t.Ci + t.Cj) / L;
  t.Qj = across * t.Qj - (t.Ci + t.Cj) / L;
  return t;
}

LoadTerms CmqTerms(const ClodRec& load, const Member& member, EndMoments moments) {
  const bool global = load.MG != 0;
  const double c = global ? member.c : 1, s = global ? member.s : 0;
  LoadTerms t;
  t.Mo = load.Mo;
  if (member.TakesEndMoments()) {
    const double sign = moments == EndMoments::Turned ? -1 : 1;
    t.Ci = sign * load.Ci;
    t.Cj = sign * load.Cj;
    ReleasePins(t, member.II, member.JJ);
  }
  const double Qi = -load.Qi, Qj = -load.Qj;
  t.Ni = Qi * s;
  t.Nj = Qj * s;
  t.Qi = Qi * c + (t.Ci + t.Cj) / member.L;
  t.Qj = Qj * c - (t.Ci + t.Cj) / member.L;
  return t;
}

LoadTerms TemperatureAxialTerms(const TlodRec& load, const Member& member) {
  LoadTerms t;
  if (load.J == 1) return t;
  const double rise = (load.T1 + load.T2) / 2 - load.To;
  t.Ni = member.section.A * member.section.E * load.alpha * rise;
  t.Nj = -t.Ni;
  return t;
}

LoadTerms TemperatureTerms(const TlodRec& load, const Member& member, bool grid) {
  constexpr double kDepthPerY1 = 0.02;  // Y1 in cm is half the distance of the two points; m
  LoadTerms t = TemperatureAxialTerms(load, member);
  const double depth = kDepthPerY1 * load.Y1;
  if (depth == 0) throw Fault("Ｙ１が０です");
  if (member.TakesEndMoments()) {
    const double moment = member.section.E * member.section.I * load.alpha * (load.T1 - load.T2) / depth;
    t.Ci = grid ? moment : -moment;
    t.Cj = -t.Ci;
    if (member.II == 1 && member.JJ == 0) {
      t.Cj = 1.5 * t.Cj;
      t.Ci = 0;
    } else if (member.II == 0 && member.JJ == 1) {
      t.Ci = 1.5 * t.Ci;
      t.Cj = 0;
    }
  }
  t.Qi = (t.Ci + t.Cj) / member.L;
  t.Qj = -t.Qi;
  return t;
}

}  // namespace zorlan

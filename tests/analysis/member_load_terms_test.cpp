// Fixed-end terms by TYPE against the load's own shape: what each point of the load does to a fixed beam and
// to a simple one, summed up over the span.
#include "analysis/member_load_terms.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "support/load_terms.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

/// A load on the span: points, and straight pieces of a distributed load. Upward.
struct Point {
  double at, P;
};
struct Piece {
  double from, to;     // along the span
  double first, last;  // intensity at its ends
};
struct LoadShape {
  std::vector<Point> points;
  std::vector<Piece> pieces;
};

/// What a point load does: the fixed beam's end moments P a b^2/l^2 and P a^2 b/l^2, the simple beam's moment
/// at the centre and end shears. An upward load is held by end forces that point down.
void AddPoint(LoadTerms& t, double l, double x, double P) {
  const double b = l - x;
  t.Ci -= P * x * b * b / (l * l);
  t.Cj += P * x * x * b / (l * l);
  t.Mo -= P * std::min(x, b) / 2;
  t.Qi -= P * b / l;
  t.Qj -= P * x / l;
}

/// Three Gauss points are exact up to the fifth power, and the integrands have at most the fourth.
void AddPiece(LoadTerms& t, double l, const Piece& piece) {
  const double middle = l / 2;  // the centre moment's influence has a corner there
  if (piece.from < middle && piece.to > middle) {
    const double share = (middle - piece.from) / (piece.to - piece.from);
    const double value = piece.first + share * (piece.last - piece.first);
    AddPiece(t, l, {piece.from, middle, piece.first, value});
    AddPiece(t, l, {middle, piece.to, value, piece.last});
    return;
  }
  const double half = (piece.to - piece.from) / 2;
  for (const auto& [place, weight] :
       {std::pair(-std::sqrt(0.6), 5.0 / 9), {0.0, 8.0 / 9}, {std::sqrt(0.6), 5.0 / 9}})
    AddPoint(t, l, piece.from + half * (1 + place),
             half * weight * (piece.first + (piece.last - piece.first) * (1 + place) / 2));
}

LoadTerms Integrated(const LoadShape& shape, double l) {
  LoadTerms t;
  for (const Point& point : shape.points) AddPoint(t, l, point.at, point.P);
  for (const Piece& piece : shape.pieces) AddPiece(t, l, piece);
  return t;
}

LoadShape EqualPoints(double P, double l, int n) {
  LoadShape shape;
  for (int k = 1; k < n; ++k) shape.points.push_back({k * l / n, P});
  return shape;
}

/// A slab of the intensity p with the short span a, carried by n - 1 joists onto this girder: the triangles
/// between the joists, and each joist's end reaction: half of its strip l/n by a, less the triangles.
LoadShape SlabOverJoists(double p, double a, double l, int n) {
  const double panel = l / n, peak = p * panel / 2;
  LoadShape shape = EqualPoints(p * panel * a / 2 - peak * panel / 2, l, n);
  for (int k = 0; k < n; ++k) {
    shape.pieces.push_back({k * panel, (k + 0.5) * panel, 0, peak});
    shape.pieces.push_back({(k + 0.5) * panel, (k + 1) * panel, peak, 0});
  }
  return shape;
}

constexpr double kSpan = 6, kP = 2.5;
constexpr LoadedMember kFixedBeam = {0, kSpan, 0, 0, kSpan, 0, 0, 1};

struct TypeCase {
  const char* name;
  int type;
  double Ly;
  LoadShape shape;
};

std::vector<TypeCase> TypeCases() {
  const double l = kSpan, p = kP;
  const double h = p * 1.2;  // a slab of 2.4 m at 45 degrees: p times half its width
  return {
      {"uniform", 0, 0, {{}, {{0, l, p, p}}}},
      {"uniform, whatever Ly", 0, 1.5, {{}, {{0, l, p, p}}}},
      {"below 0 as 0", -1, 1.5, {{}, {{0, l, p, p}}}},
      {"point left of the middle", 1, 1.5, {{{1.5, p}}, {}}},
      {"point at the middle", 1, 3, {{{3, p}}, {}}},
      {"point right of the middle: Mo from the shorter side", 1, 4.4, {{{4.4, p}}, {}}},
      {"a point from each end", 2, 1.7, {{{1.7, p}, {l - 1.7, p}}, {}}},
      {"trapezoid", 10, 2.4, {{}, {{0, 1.2, 0, h}, {1.2, l - 1.2, h, h}, {l - 1.2, l, h, 0}}}},
      {"trapezoid as wide as the span: triangle", 10, l, {{}, {{0, 3, 0, p * 3}, {3, l, p * 3, 0}}}},
      {"one joist", 11, 4, SlabOverJoists(p, 4, l, 2)},
      {"two joists", 12, 4, SlabOverJoists(p, 4, l, 3)},
      {"three joists", 13, 4, SlabOverJoists(p, 4, l, 4)},
      {"a length about the middle", 14, 1.6, {{}, {{l / 2 - 0.8, l / 2 + 0.8, p, p}}}},
      {"a length from each end", 15, 1.6, {{}, {{0, 1.6, p, p}, {l - 1.6, l, p, p}}}},
      {"triangle with its peak at the middle", 18, 1.6, {{}, {{0, 3, 0, p * 1.6}, {3, l, p * 1.6, 0}}}},
      {"Ly 0: centre point", 1, 0, EqualPoints(p, l, 2)},
      {"Ly 0: third points", 2, 0, EqualPoints(p, l, 3)},
      {"quarter points", 3, 0, EqualPoints(p, l, 4)},
      {"quarter points, whatever Ly", 3, 1.5, EqualPoints(p, l, 4)},
      {"fifth points", 4, 0, EqualPoints(p, l, 5)},
      {"sixth points", 5, 0, EqualPoints(p, l, 6)},
      {"seventh points", 6, 0, EqualPoints(p, l, 7)},
      {"eighth points", 7, 0, EqualPoints(p, l, 8)},
      {"ninth points", 8, 0, EqualPoints(p, l, 9)},
      {"tenth points", 9, 2, EqualPoints(p, l, 10)},
      {"Ly 0: eleventh points", 10, 0, EqualPoints(p, l, 11)},
      {"Ly 0: twelfth points", 11, 0, EqualPoints(p, l, 12)},
      {"Ly 0: 13th points", 12, 0, EqualPoints(p, l, 13)},
      {"Ly 0: 14th points", 13, 0, EqualPoints(p, l, 14)},
      {"Ly 0: 15th points", 14, 0, EqualPoints(p, l, 15)},
      {"Ly 0: 16th points", 15, 0, EqualPoints(p, l, 16)},
      {"Ly 0: 17th points", 16, 0, EqualPoints(p, l, 17)},
      {"Ly 0: 18th points", 17, 0, EqualPoints(p, l, 18)},
      {"Ly 0: 19th points", 18, 0, EqualPoints(p, l, 19)},
      {"above 18", 19, 1.5, EqualPoints(p, l, 20)},
      {"far above 18", 40, 1.5, EqualPoints(p, l, 41)},
  };
}

/// The end shears of the fixed beam: those of the simple beam, and the end moments' couple.
LoadTerms WithCouple(LoadTerms t, double l) {
  t.Qi += (t.Ci + t.Cj) / l;
  t.Qj -= (t.Ci + t.Cj) / l;
  return t;
}

TEST(MemberLoadTerms, EveryTypeIsTheSumOfItsPointLoads) {
  for (const TypeCase& c : TypeCases())
    ExpectTerms(c.name, MemberLoadTerms(kFixedBeam, c.type, kP, c.Ly, 0),
                WithCouple(Integrated(c.shape, kSpan), kSpan));
}

TEST(MemberLoadTerms, AreProportionalToTheLoad) {
  for (const TypeCase& c : TypeCases()) {
    const LoadTerms one = MemberLoadTerms(kFixedBeam, c.type, 1, c.Ly, 0);
    const LoadTerms down = MemberLoadTerms(kFixedBeam, c.type, -4, c.Ly, 0);
    ExpectTerms(c.name, down,
                {-4 * one.Ci, -4 * one.Cj, -4 * one.Mo, -4 * one.Qi, -4 * one.Qj, -4 * one.Ni, -4 * one.Nj});
  }
}

// A triangle's smaller end moment is w l^2/30 and its greater one w l^2/20, w the peak. The smaller one's
// constant is rounded to seven digits in the one TYPE and to six in the other, and results are compared to
// the last printed digit.
TEST(MemberLoadTerms, ATriangleTowardsAnEndKeepsItsRoundedConstant) {
  const double a = 1.6, l = kSpan, w = kP * a;
  const LoadTerms toJ = MemberLoadTerms(kFixedBeam, 16, kP, a, 0);
  const LoadTerms toI = MemberLoadTerms(kFixedBeam, 17, kP, a, 0);
  EXPECT_DOUBLE_EQ(toJ.Ci, -0.0333333 * w * l * l);
  EXPECT_DOUBLE_EQ(toI.Cj, 0.033333 * w * l * l);

  LoadTerms expected = Integrated({{}, {{0, l, 0, w}}}, l);
  EXPECT_NEAR(toJ.Ci, expected.Ci, 2e-6 * std::abs(expected.Ci));
  expected.Ci = toJ.Ci;
  ExpectTerms("towards J", toJ, WithCouple(expected, l));

  expected = Integrated({{}, {{0, l, w, 0}}}, l);
  EXPECT_NEAR(toI.Cj, expected.Cj, 2e-5 * std::abs(expected.Cj));
  expected.Cj = toI.Cj;
  ExpectTerms("towards I", toI, WithCouple(expected, l));
}

TEST(MemberLoadTerms, OfAMemberWithoutLengthAreNothing) {
  for (const TypeCase& c : TypeCases())
    for (const int MG : {0, 1, 2})
      ExpectTerms(c.name, MemberLoadTerms({0, 0, 0, 0, 0, 0, 0, 1}, c.type, kP, c.Ly, MG), {});
}

// By hand from p l^2/12, p l^2/8 and p l/2 with p = 2, l = 6; a pin's half goes over: 6 + 6/2 = 9, and 9/6
// = 1.5 goes from the pin's shear to the other end's.
struct EndCase {
  const char* name;
  int II, JJ;
  double Ix;
  LoadTerms expected;
};
const EndCase kEndCases[] = {
    {"both rigid", 0, 0, 1, {-6, 6, -9, -6, -6, 0, 0}},
    {"pin at I: J takes it all", 1, 0, 1, {0, 9, -9, -4.5, -7.5, 0, 0}},
    {"pin at J: I takes it all", 0, 1, 1, {-9, 0, -9, -7.5, -4.5, 0, 0}},
    {"both pinned: no end moments", 1, 1, 1, {0, 0, -9, -6, -6, 0, 0}},
    {"another pair of values is rigid", 2, 1, 1, {-6, 6, -9, -6, -6, 0, 0}},
    {"a section without Ix has no end moments", 0, 0, 0, {0, 0, -9, -6, -6, 0, 0}},
    {"a pin on a section without Ix", 1, 0, 0, {0, 0, -9, -6, -6, 0, 0}},
    {"a section with a negative Ix has them", 0, 0, -1, {-6, 6, -9, -6, -6, 0, 0}},
};

TEST(MemberLoadTerms, FollowTheEndConditions) {
  for (const EndCase& c : kEndCases)
    ExpectTerms(c.name, MemberLoadTerms({0, 6, 0, 0, 6, c.II, c.JJ, c.Ix}, 0, 2, 0, 0), c.expected);
}

/// p = -3 on a member from (xi, yi) to (xj, yj). A point 1 m from the load's own first end shows whether the
/// ends are exchanged, a uniform load shows the projection.
struct DirectionCase {
  const char* name;
  double xi, yi, xj, yj;
  int MG, type;
  double Ly;
  LoadTerms expected;
};

// A point P = -3 at 1 m of a span of 4 m: P a b^2/l^2 = 27/16, P a^2 b/l^2 = 9/16, Mo = 3/2, shears 9/4 and
// 3/4; the couple (27/16 - 9/16)/4 = 9/32. Uniform p = -3 on 4 m: 4, 6, 6; on 3 m: 9/4, 27/8, 9/2.
const DirectionCase kDirectionCases[] = {
    {"own axes, to the left", 4, 0, 0, 0, 0, 1, 1, {27. / 16, -9. / 16, 1.5, 81. / 32, 15. / 32, 0, 0}},
    {"below 0: own axes", 4, 0, 0, 0, -1, 1, 1, {27. / 16, -9. / 16, 1.5, 81. / 32, 15. / 32, 0, 0}},
    {"vertical, to the right", 0, 0, 4, 0, 1, 1, 1, {27. / 16, -9. / 16, 1.5, 81. / 32, 15. / 32, 0, 0}},
    // The load's first end is the left one, which is J here.
    {"vertical, to the left", 4, 0, 0, 0, 1, 1, 1, {-9. / 16, 27. / 16, 1.5, -15. / 32, -81. / 32, 0, 0}},
    {"vertical, on a slope", 0, 0, 4, 3, 1, 0, 0, {4, -4, 6, 4.8, 4.8, 3.6, 3.6}},
    {"vertical, slope to the left", 4, 0, 0, 3, 1, 0, 0, {-4, 4, 6, -4.8, -4.8, 3.6, 3.6}},
    {"horizontal, upwards", 0, 0, 0, 4, 2, 1, 1, {-27. / 16, 9. / 16, -1.5, -81. / 32, -15. / 32, 0, 0}},
    // Ends exchanged, then all signs.
    {"horizontal, downwards", 0, 4, 0, 0, 2, 1, 1, {9. / 16, -27. / 16, -1.5, 15. / 32, 81. / 32, 0, 0}},
    {"horizontal, on a slope", 0, 0, 4, 3, 2, 0, 0, {-2.25, 2.25, -27. / 8, -2.7, -2.7, 3.6, 3.6}},
    // No direction: the member's length, and ends exchanged, moments with the signs they had.
    {"above 2", 0, 0, 4, 0, 3, 1, 1, {-9. / 16, 27. / 16, 1.5, 33. / 32, 63. / 32, 0, 0}},
};

TEST(MemberLoadTerms, FollowTheDirectionOfTheLoad) {
  for (const DirectionCase& c : kDirectionCases) {
    const double L = std::hypot(c.xj - c.xi, c.yj - c.yi);
    ExpectTerms(c.name, MemberLoadTerms({c.xi, c.xj, c.yi, c.yj, L, 0, 0, 1}, c.type, -3, c.Ly, c.MG),
                c.expected);
  }
}

TEST(MemberLoadTerms, OnASpanOfZeroFaultOnlyWhereAFormulaDividesByIt) {
  struct Case {
    const char* name;
    int type;
    double Ly;
    bool faults;
  };
  const Case cases[] = {{"uniform", 0, 0, false},         {"point", 1, 1, false},
                        {"two points", 2, 1, true},       {"trapezoid", 10, 1, true},
                        {"one joist", 11, 1, false},      {"two joists", 12, 1, false},
                        {"three joists", 13, 1, false},   {"about the middle", 14, 1, true},
                        {"from each end", 15, 1, true},   {"triangle to J", 16, 1, false},
                        {"triangle to I", 17, 1, false},  {"triangle", 18, 1, false},
                        {"equal points", 5, 1, false},    {"two points without Ly", 2, 0, false},
                        {"trapezoid, Ly 0", 10, 0, false}};
  for (const Case& c : cases) {
    const LoadedMember upright = {0, 0, 0, 4, 4, 0, 0, 1}, pinned = {0, 0, 0, 4, 4, 1, 1, 1};
    EXPECT_EQ(FaultOf([&] { MemberLoadTerms(upright, c.type, 1, c.Ly, 1); }) != "", c.faults) << c.name;
    EXPECT_EQ(FaultOf([&] { MemberLoadTerms(pinned, c.type, 1, c.Ly, 1); }), "")
        << c.name << ": without end moments nothing divides by the span";
  }
}

// A point beside a span of 0: no end moments, no shears, and the centre moment by its own formula,
// -0.5 p (l - a).
TEST(MemberLoadTerms, APointOnASpanOfZeroGivesItsCentreMomentAlone) {
  ExpectTerms("point", MemberLoadTerms({0, 0, 0, 4, 4, 0, 0, 1}, 1, 2, 1.5, 1), {0, 0, 1.5, 0, 0, 0, 0});
}

}  // namespace
}  // namespace zorlan::test

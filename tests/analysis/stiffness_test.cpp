// Member stiffness against slope-deflection by hand, and against the congruence that turns local axes into
// global.
#include "analysis/stiffness.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "analysis/members.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

/// L = 2 m, EA = 400 t, EI = 24 t*m2.
Member PlainMember() {
  Member member;
  member.number = 7;
  member.L = 2;
  member.c = 1;
  member.section.A = 0.02;
  member.section.I = 0.0012;
  member.section.E = 20000;
  return member;
}

// The flexible part e = 1 - λi - λj of a member between rigid ends has, per EI/L, the stiffness 4/e, 2/e at
// its own ends; carried to the nodes by the arms λ/e: 2 kii = 4/e (1 + 3 r + 3 r^2) with r = λi/e, and 2 kij
// = 2/e (1 + 3 (ri + rj) + 6 ri rj).
StiffnessFactors ByRigidArms(double li, double lj) {
  const double e = 1 - li - lj, ri = li / e, rj = lj / e;
  return {2 / e * (1 + 3 * ri + 3 * ri * ri), 2 / e * (1 + 3 * rj + 3 * rj * rj),
          1 / e * (1 + 3 * (ri + rj) + 6 * ri * rj)};
}

TEST(StiffnessFactors, WithoutZonesAndShearAreTwoTwoOne) {
  const StiffnessFactors f = FactorsOf(PlainMember());
  EXPECT_EQ(f.kii, 2);
  EXPECT_EQ(f.kjj, 2);
  EXPECT_EQ(f.kij, 1);
}

TEST(StiffnessFactors, OfRigidZonesAreThoseOfTheFlexiblePartOnRigidArms) {
  for (const auto& [li, lj] : {std::pair(0.1, 0.0), {0.0, 0.1}, {0.2, 0.15}, {0.4, 0.4}, {0.0, 0.9}}) {
    Member member = PlainMember();
    member.lambdaI = li;
    member.lambdaJ = lj;
    const StiffnessFactors f = FactorsOf(member), expected = ByRigidArms(li, lj);
    EXPECT_NEAR(f.kii, expected.kii, 1e-9 * expected.kii) << li << " " << lj;
    EXPECT_NEAR(f.kjj, expected.kjj, 1e-9 * expected.kjj) << li << " " << lj;
    EXPECT_NEAR(f.kij, expected.kij, 1e-9 * expected.kij) << li << " " << lj;
  }
}

// λi = 0.1: a = 2 * 0.729, b = 1 - 0.03 + 0.002 = 0.972, c = 2 (1 - 0.001) = 1.998; D = 1.458 * 1.998 -
// 0.972^2 = 1.9683 = 3 * 0.9^4.
TEST(StiffnessFactors, OfAZoneOfATenthByHand) {
  Member member = PlainMember();
  member.lambdaI = 0.1;
  const StiffnessFactors f = FactorsOf(member);
  EXPECT_NEAR(f.kii, 3 * 1.998 / 1.9683, 1e-12);
  EXPECT_NEAR(f.kjj, 3 * 1.458 / 1.9683, 1e-12);
  EXPECT_NEAR(f.kij, 3 * 0.972 / 1.9683, 1e-12);
}

// Timoshenko's beam: with Φ = 12 E I κ/(G As L^2) the end stiffness is (4 + Φ)/(1 + Φ) and (2 - Φ)/(1 + Φ)
// EI/L.
TEST(StiffnessFactors, OfShearAreThoseOfTimoshenkosBeam) {
  Member member = PlainMember();
  member.section.G = 8000;
  member.section.As = 0.009;
  member.section.kappa = 1.2;
  const double phi = 12 * 24 * 1.2 / (8000 * 0.009 * 4);
  const StiffnessFactors f = FactorsOf(member);
  EXPECT_NEAR(2 * f.kii, (4 + phi) / (1 + phi), 1e-12);
  EXPECT_NEAR(2 * f.kjj, (4 + phi) / (1 + phi), 1e-12);
  EXPECT_NEAR(2 * f.kij, (2 - phi) / (1 + phi), 1e-12);
}

TEST(StiffnessFactors, ShortenTheShearTermByTheZones) {
  Member member = PlainMember();
  member.lambdaI = 0.25;
  member.lambdaJ = 0.25;
  member.section.G = 8000;
  member.section.As = 0.01;
  // By hand: a = c = 2 (27/64 - 1/64) = 0.8125, b = 1 - 3/8 + 1/16 = 0.6875, ψ = 6*24*0.5/(4*80) = 0.225;
  // D = 1.0375^2 - 0.4625^2 = 0.8625.
  const StiffnessFactors f = FactorsOf(member);
  EXPECT_NEAR(f.kii, 3 * 1.0375 / 0.8625, 1e-12);
  EXPECT_NEAR(f.kij, 3 * 0.4625 / 0.8625, 1e-12);
}

TEST(StiffnessFactors, IgnoreShearWithoutModulusOrArea) {
  struct Case {
    double G, As;
  };
  for (const Case& c : {Case{0, 0.01}, {-1, 0.01}, {8000, 0}, {8000, -0.01}}) {
    Member member = PlainMember();
    member.section.G = c.G;
    member.section.As = c.As;
    EXPECT_EQ(FactorsOf(member).kii, 2) << c.G << " " << c.As;
  }
}

// With sums that are 1 in doubles and with one that rounding leaves beside it.
TEST(StiffnessFactors, FaultForZonesThatMeet) {
  for (const auto& [li, lj] : {std::pair(0.5, 0.5), {1.0, 0.0}, {0.1, 0.9}, {0.3, 0.7}, {0.6, 0.4}}) {
    Member member = PlainMember();
    member.lambdaI = li;
    member.lambdaJ = lj;
    EXPECT_THAT(FaultOf([&] { FactorsOf(member); }), testing::HasSubstr("要素番号 7 ")) << li << " " << lj;
  }
}

using Matrix6 = std::array<std::array<double, 6>, 6>;

Matrix6 FullFrame(const FrameStiffness& k) {
  return {{{k.k11, 0, 0, -k.k11, 0, 0},
           {0, k.k22, k.k23, 0, k.k25, k.k26},
           {0, k.k23, k.k33, 0, k.k35, k.k36},
           {-k.k11, 0, 0, k.k11, 0, 0},
           {0, k.k25, k.k35, 0, k.k55, k.k56},
           {0, k.k26, k.k36, 0, k.k56, k.k66}}};
}

void ExpectMatrix(const char* name, const Matrix6& actual, const Matrix6& expected) {
  for (std::size_t r = 0; r < 6; ++r)
    for (std::size_t c = 0; c < 6; ++c)
      EXPECT_NEAR(actual[r][c], expected[r][c], 1e-10) << name << " (" << r + 1 << ", " << c + 1 << ")";
}

// EA/L = 200; 12 EI/L^3 = 36, 6 EI/L^2 = 36, 4 EI/L = 48, 2 EI/L = 24; with a pin 3 EI/L^3 = 9, 3 EI/L^2 =
// 18, 3 EI/L = 36.
constexpr double X = 200;
const Matrix6 kBothRigid = {{{X, 0, 0, -X, 0, 0},
                             {0, 36, 36, 0, -36, 36},
                             {0, 36, 48, 0, -36, 24},
                             {-X, 0, 0, X, 0, 0},
                             {0, -36, -36, 0, 36, -36},
                             {0, 36, 24, 0, -36, 48}}};
const Matrix6 kPinAtI = {{{X, 0, 0, -X, 0, 0},
                          {0, 9, 0, 0, -9, 18},
                          {},
                          {-X, 0, 0, X, 0, 0},
                          {0, -9, 0, 0, 9, -18},
                          {0, 18, 0, 0, -18, 36}}};
const Matrix6 kPinAtJ = {{{X, 0, 0, -X, 0, 0},
                          {0, 9, 18, 0, -9, 0},
                          {0, 18, 36, 0, -18, 0},
                          {-X, 0, 0, X, 0, 0},
                          {0, -9, -18, 0, 9, 0},
                          {}}};
const Matrix6 kBar = {{{X, 0, 0, -X, 0, 0}, {}, {}, {-X, 0, 0, X, 0, 0}, {}, {}}};

struct FrameCase {
  const char* name;
  int II, JJ;
  double I;
  const Matrix6& expected;
};
const FrameCase kFrameCases[] = {
    {"both ends rigid", 0, 0, 0.0012, kBothRigid},
    {"pin at I", 1, 0, 0.0012, kPinAtI},
    {"pin at J", 0, 1, 0.0012, kPinAtJ},
    {"both pinned: a bar", 1, 1, 0.0012, kBar},
    {"no inertia: a bar", 0, 0, 0, kBar},
    {"no inertia, pin at I: a bar", 1, 0, 0, kBar},
    {"other values count as rigid", 2, 0, 0.0012, kBothRigid},
    {"a pin beside another value counts as rigid", 1, 3, 0.0012, kBothRigid},
    {"negative values count as rigid", -1, -1, 0.0012, kBothRigid},
};

TEST(FrameStiffness, IsThatOfSlopeDeflection) {
  for (const FrameCase& c : kFrameCases) {
    Member member = PlainMember();
    member.II = c.II;
    member.JJ = c.JJ;
    member.section.I = c.I;
    ExpectMatrix(c.name, FullFrame(LocalFrameStiffness(member)), c.expected);
  }
}

/// Members of all end conditions with zones and shear, in several directions, 5 m long.
std::vector<Member> Slanted() {
  std::vector<Member> members;
  for (const auto& [II, JJ] : {std::pair(0, 0), {1, 0}, {0, 1}, {1, 1}})
    for (const auto& [c, s] : {std::pair(0.6, 0.8), {-0.8, 0.6}, {0.0, -1.0}, {1.0, 0.0}}) {
      Member member = PlainMember();
      member.L = 5;
      member.c = c;
      member.s = s;
      member.II = II;
      member.JJ = JJ;
      member.lambdaI = 0.1;
      member.lambdaJ = 0.2;
      member.section.G = 8000;
      member.section.As = 0.01;
      members.push_back(member);
    }
  return members;
}

Matrix6 Congruence(const Matrix6& k, const Matrix6& T) {
  Matrix6 result{};
  for (std::size_t r = 0; r < 6; ++r)
    for (std::size_t c = 0; c < 6; ++c)
      for (std::size_t p = 0; p < 6; ++p)
        for (std::size_t q = 0; q < 6; ++q) result[r][c] += T[p][r] * k[p][q] * T[q][c];
  return result;
}

Matrix6 Full(const Triangle& triangle) {
  Matrix6 result{};
  for (std::size_t r = 0; r < 6; ++r)
    for (std::size_t c = 0; c < 6; ++c) result[r][c] = triangle[TrianglePlace(r, c)];
  return result;
}

TEST(FrameStiffness, TurnsIntoGlobalAxesAsTheDisplacementsDo) {
  for (const Member& m : Slanted()) {
    Matrix6 T{};  // u = c U + s V, v = -s U + c V, θ = θ
    for (const std::size_t end : {0U, 3U}) {
      T[end][end] = T[end + 1][end + 1] = m.c;
      T[end][end + 1] = m.s;
      T[end + 1][end] = -m.s;
      T[end + 2][end + 2] = 1;
    }
    ExpectMatrix("frame", Full(GlobalFrameStiffness(m)), Congruence(FullFrame(LocalFrameStiffness(m)), T));
  }
}

// The grid member is the frame member bending in the vertical plane: w is v, and φ the rotation downwards in
// front, -θ.
TEST(GridStiffness, IsTheBendingPartOfTheFrameMember) {
  for (const Member& m : Slanted()) {
    const FrameStiffness f = LocalFrameStiffness(m);
    const GridStiffness g = LocalGridStiffness(m);
    const std::array<std::pair<double, double>, 10> entries = {{{g.k11, f.k22},
                                                                {g.k21, -f.k23},
                                                                {g.k31, f.k25},
                                                                {g.k41, -f.k26},
                                                                {g.k22, f.k33},
                                                                {g.k32, -f.k35},
                                                                {g.k42, f.k36},
                                                                {g.k33, f.k55},
                                                                {g.k43, -f.k56},
                                                                {g.k44, f.k66}}};
    for (std::size_t i = 0; i < entries.size(); ++i)
      EXPECT_DOUBLE_EQ(entries[i].first, entries[i].second) << "entry " << i;
  }
}

TEST(GridStiffness, TurnsIntoGlobalAxesAsTheDisplacementsDo) {
  for (const Member& m : Slanted()) {
    const GridStiffness g = LocalGridStiffness(m);
    const Matrix6 local = {{{g.k11, g.k21, 0, g.k31, g.k41, 0},  // w, φ, and no torsion
                            {g.k21, g.k22, 0, g.k32, g.k42, 0},
                            {},
                            {g.k31, g.k32, 0, g.k33, g.k43, 0},
                            {g.k41, g.k42, 0, g.k43, g.k44, 0},
                            {}}};
    Matrix6 T{};  // φ = -s θx + c θy
    for (const std::size_t end : {0U, 3U}) {
      T[end][end] = 1;
      T[end + 1][end + 1] = -m.s;
      T[end + 1][end + 2] = m.c;
    }
    ExpectMatrix("grid", Full(GlobalGridStiffness(m)), Congruence(local, T));
  }
}

TEST(GridStiffness, OfAMemberThatDoesNotBendIsNothing) {
  Member pinned = PlainMember(), limp = PlainMember();
  pinned.II = pinned.JJ = 1;
  limp.section.I = 0;
  for (const Member& member : {pinned, limp})
    for (const double entry : GlobalGridStiffness(member)) EXPECT_EQ(entry, 0);
}

TEST(EndForces, AreTheLocalMatrixTimesTheLocalDisplacements) {
  const double I[] = {0.01, -0.02, 0.003}, J[] = {-0.015, 0.01, -0.002};
  for (const Member& m : Slanted()) {
    const double a[] = {m.c * I[0] + m.s * I[1], -m.s * I[0] + m.c * I[1], I[2],
                        m.c * J[0] + m.s * J[1], -m.s * J[0] + m.c * J[1], J[2]};
    const Matrix6 k = FullFrame(LocalFrameStiffness(m));
    const std::array<double, 6> frame = FrameEndForces(m, LocalFrameStiffness(m), I, J);
    // w, and the member's rotation turned back to counter-clockwise: θ = -φ.
    const double b[] = {0, I[0], m.s * I[1] - m.c * I[2], 0, J[0], m.s * J[1] - m.c * J[2]};
    const std::array<double, 6> grid = GridEndForces(m, LocalGridStiffness(m), I, J);
    for (std::size_t p = 0; p < 6; ++p) {
      double ofFrame = 0, ofGrid = 0;
      for (std::size_t l = 0; l < 6; ++l) {
        ofFrame += k[p][l] * a[l];
        ofGrid += p % 3 == 0 ? 0 : k[p][l] * b[l];
      }
      EXPECT_NEAR(frame[p], ofFrame, 1e-10) << "position " << p + 1;
      EXPECT_NEAR(grid[p], ofGrid, 1e-10) << "position " << p + 1;
    }
  }
}

}  // namespace
}  // namespace zorlan::test

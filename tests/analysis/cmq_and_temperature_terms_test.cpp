// Terms of CMQ and temperature loads, worked out by hand.
#include <gtest/gtest.h>

#include "analysis/member_load_terms.h"
#include "analysis/members.h"
#include "support/load_terms.h"
#include "support/model_builder.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

/// 4 m long, direction (0.6, 0.8); EA = 20000 t, EI = 200 t*m2.
Member SteepMember(int II = 0, int JJ = 0, double P2 = 1e-4) {
  Member member;
  member.L = 4;
  member.c = 0.6;
  member.s = 0.8;
  member.II = II;
  member.JJ = JJ;
  member.section.A = 0.01;
  member.section.I = 1e-4;
  member.section.E = 2e6;
  member.section.P2 = P2;
  return member;
}

struct CmqCase {
  const char* name;
  int II, JJ;
  double P2;
  std::int16_t MG;
  EndMoments moments;
  LoadTerms expected;
};
constexpr EndMoments kTurned = EndMoments::Turned, kAsTyped = EndMoments::AsTyped;

// Ci 3, Mo 5, Cj -2, Qi 6, Qj 7 become -3, 2, -6, -7; the couple of the end moments goes onto the shears:
// (-3 + 2)/4 = -0.25. A pin's moment goes over by half: 2 + 1.5 = 3.5, -3 - 1 = -4.
const CmqCase kCmqCases[] = {
    {"both ends rigid", 0, 0, 1, 0, kTurned, {-3, 2, 5, -6.25, -6.75, 0, 0}},
    {"pin at I", 1, 0, 1, 0, kTurned, {0, 3.5, 5, -5.125, -7.875, 0, 0}},
    {"pin at J", 0, 1, 1, 0, kTurned, {-4, 0, 5, -7, -6, 0, 0}},
    {"both pinned", 1, 1, 1, 0, kTurned, {0, 0, 5, -6, -7, 0, 0}},
    {"no second field", 0, 0, 0, 0, kTurned, {0, 0, 5, -6, -7, 0, 0}},
    {"global axes", 0, 0, 1, 1, kTurned, {-3, 2, 5, -3.6 - 0.25, -4.2 + 0.25, -4.8, -5.6}},
    {"any other direction is global", 0, 0, 1, -1, kTurned, {-3, 2, 5, -3.85, -3.95, -4.8, -5.6}},
    {"global axes, both pinned", 1, 1, 1, 1, kTurned, {0, 0, 5, -3.6, -4.2, -4.8, -5.6}},
    {"as typed: the shears turn all the same", 0, 0, 1, 0, kAsTyped, {3, -2, 5, -5.75, -7.25, 0, 0}},
    {"as typed, pin at I", 1, 0, 1, 0, kAsTyped, {0, -3.5, 5, -6.875, -6.125, 0, 0}},
    {"as typed, pin at J", 0, 1, 1, 0, kAsTyped, {4, 0, 5, -5, -8, 0, 0}},
};

TEST(CmqTerms, FollowEndConditionsDirectionAndSign) {
  for (const CmqCase& c : kCmqCases)
    ExpectTerms(c.name,
                CmqTerms(ClodRec{1, 1, 3, 5, -2, 6, 7, c.MG}, SteepMember(c.II, c.JJ, c.P2), c.moments),
                c.expected);
}

struct TemperatureCase {
  const char* name;
  int II, JJ;
  double P2;
  std::int16_t J;
  bool grid;
  LoadTerms expected;
};

// 30 degrees at the upper, 10 at the lower of two points 0.2 m apart (Y1 = 10 cm), reference 10: the mean
// rises by 10, N = 20000 * 1e-5 * 10 = 2; the gradient is 20 on 0.2 m, M = 200 * 1e-5 * 20/0.2 = 0.2. A warm
// upper side wants to bow upwards, and is held by a clockwise moment at I.
const TemperatureCase kTemperatureCases[] = {
    {"both ends rigid", 0, 0, 1, 0, false, {-0.2, 0.2, 0, 0, 0, 2, -2}},
    {"pin at I: half as much again", 1, 0, 1, 0, false, {0, 0.3, 0, 0.075, -0.075, 2, -2}},
    {"pin at J", 0, 1, 1, 0, false, {-0.3, 0, 0, -0.075, 0.075, 2, -2}},
    {"both pinned", 1, 1, 1, 0, false, {0, 0, 0, 0, 0, 2, -2}},
    {"no second field", 0, 0, 0, 0, false, {0, 0, 0, 0, 0, 2, -2}},
    {"without axial force", 0, 0, 1, 1, false, {-0.2, 0.2, 0, 0, 0, 0, 0}},
    {"any other mark keeps the axial force", 0, 0, 1, 2, false, {-0.2, 0.2, 0, 0, 0, 2, -2}},
    {"grid: the moments turn", 0, 0, 1, 0, true, {0.2, -0.2, 0, 0, 0, 2, -2}},
    {"grid, pin at I", 1, 0, 1, 0, true, {0, -0.3, 0, -0.075, 0.075, 2, -2}},
};

TEST(TemperatureTerms, FollowEndConditionsKindAndMark) {
  for (const TemperatureCase& c : kTemperatureCases)
    ExpectTerms(
        c.name,
        TemperatureTerms(TlodRec{1, 1, 10, 30, 10, 1e-5, 10, c.J}, SteepMember(c.II, c.JJ, c.P2), c.grid),
        c.expected);
}

TEST(TemperatureTerms, WithoutTheirPointHaveNoGradientToDivideBy) {
  for (const Member& member : {SteepMember(), SteepMember(1, 1)})
    EXPECT_THAT(FaultOf([&] {
                  TemperatureTerms(TlodRec{1, 1, 0, 30, 10, 1e-5, 10, 0}, member, false);
                }),
                testing::HasSubstr("Ｙ１"));
}

// The member forces take the axial term alone; it needs no point, and without axial force not even an area.
TEST(TemperatureTerms, TheirAxialPartStandsAlone) {
  ExpectTerms("axial", TemperatureAxialTerms(TlodRec{1, 1, 0, 30, 10, 1e-5, 10, 0}, SteepMember()),
              {0, 0, 0, 0, 0, 2, -2});
  Member thin = SteepMember();
  thin.section.A = 0;
  ExpectTerms("no area", TemperatureTerms(TlodRec{1, 1, 10, 30, 10, 1e-5, 10, 1}, thin, false),
              {-0.2, 0.2, 0, 0, 0, 0, 0});
}

}  // namespace
}  // namespace zorlan::test

// Whole analyses over the external road against closed solutions. E = 2100 t/cm2 and I = 20000 cm4: EI = 4200
// t*m2.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "base/number.h"
#include "support/analysis_folder.h"

namespace zorlan::test {
namespace {

constexpr double kBeamEI = 4200;

/// The head of a deck in t and cm, up to the node table.
std::string Head(int modelCode, int cases, int roller) {
  return "@TITL\n検証\n\n@CONT\n" + std::to_string(modelCode) + "," + std::to_string(cases) + ",0," +
         std::to_string(roller) + "\n\n@UNIT\n0,0,9.80665,0\n\n@NODE\n";
}
constexpr std::string_view kSection = "\n@SECT\n1,0,100,20000,0,0,1,2100,0\n";

using ExternalProof = AnalysisTest;

/// Spans of 6, 8 and 5 m. Case 1: 2 t/m; case 2: 2 t/m, and the second support sinks by 1 cm.
std::string ContinuousBeam() {
  return Head(1, 2, 0) +
         "1,0,0,1,1,0\n2,6,0,0,1,0\n3,14,0,0,1,0\n4,19,0,0,1,0\n"
         "\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n3,3,4,0,0,1\n" +
         std::string(kSection) +
         "\n@ELOD\n1,1,-2,0,0,1,1\n1,2,-2,0,0,1,1\n1,3,-2,0,0,1,1\n2,1,-2,0,0,1,1\n2,2,-2,0,0,1,1\n2,3,-2,0,0,1,1\n"
         "\n@SPEC\n2,2,0,-1,0\n";
}

struct SupportMoments {
  double M2, M3;  // tension at the lower side positive
};
/// Three moments: 2 M2 (l1 + l2) + M3 l2 = -w (l1^3 + l2^3)/4 + 6EI δ (1/l1 + 1/l2), and so on.
SupportMoments ThreeMoments(double w, double delta) {
  const double l1 = 6, l2 = 8, l3 = 5;
  const double a = 2 * (l1 + l2), b = l2, d = 2 * (l2 + l3);
  const double r2 = -w * (l1 * l1 * l1 + l2 * l2 * l2) / 4 + 6 * kBeamEI * delta * (1 / l1 + 1 / l2);
  const double r3 = -w * (l2 * l2 * l2 + l3 * l3 * l3) / 4 - 6 * kBeamEI * delta / l2;
  const double determinant = a * d - b * b;
  return {(r2 * d - b * r3) / determinant, (a * r3 - b * r2) / determinant};
}

TEST_F(ExternalProof, ASettlementOfAContinuousBeamFollowsTheThreeMomentEquation) {
  ASSERT_TRUE(Analyse(ContinuousBeam())) << testing::PrintToString(Told());
  for (const int c : {1, 2}) {
    const double delta = c == 2 ? 0.01 : 0;
    const auto [M2, M3] = ThreeMoments(2, delta);
    const double tolerance = 2e-6;
    EXPECT_NEAR(F(1, 6, c), M2, tolerance) << c;
    EXPECT_NEAR(F(2, 3, c), -M2, tolerance) << c;
    EXPECT_NEAR(F(2, 6, c), M3, tolerance) << c;
    EXPECT_NEAR(F(1, 7, c), M2 / 2 + 2 * 36 / 8.0, tolerance) << c;
    EXPECT_NEAR(F(2, 7, c), (M2 + M3) / 2 + 2 * 64 / 8.0, tolerance) << c;
    EXPECT_NEAR(R(1, 1, c), 6 + M2 / 6, tolerance) << c;
    EXPECT_NEAR(R(2, 1, c), 6 - M2 / 6 + 8 + (M3 - M2) / 8, tolerance) << c;
    EXPECT_NEAR(R(4, 1, c), 5 + M3 / 5, tolerance) << c;
    EXPECT_NEAR(U(2, 1, c), -delta, 1e-12) << c;
  }
}

TEST_F(ExternalProof, ACaseWithoutForcedDisplacementIsTheInProgramSolversOwn) {
  ASSERT_TRUE(Analyse(ContinuousBeam()));
  const std::vector<double> mixed = Forces(), mixedDisplacements = Displacements();
  std::string plain = ContinuousBeam();
  plain.erase(plain.find("\n@SPEC"));
  ASSERT_TRUE(Analyse(plain));
  // All but the last digit of what went through a file once more.
  for (std::size_t p = 0; p < mixed.size() / 2; ++p) EXPECT_NEAR(mixed[p], Forces()[p], 1e-13) << p;
  for (std::size_t d = 0; d < mixedDisplacements.size() / 2; ++d)
    EXPECT_EQ(mixedDisplacements[d], Displacements()[d]) << d;
}

TEST_F(ExternalProof, ARotationOfASupportFollowsTheSlopeDeflectionEquations) {
  // Clamped at both ends, 6 and 8 m; the left clamp turns by 0.01.
  ASSERT_TRUE(Analyse(Head(1, 1, 0) +
                      "1,0,0,1,1,1\n2,6,0,0,1,0\n3,14,0,0,1,1\n\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n" +
                      std::string(kSection) + "\n@SPEC\n1,1,0,0,0.01\n"))
      << testing::PrintToString(Told());
  const double theta1 = 0.01, theta2 = -theta1 * (2.0 / 6) / (4.0 / 6 + 4.0 / 8);
  EXPECT_NEAR(U(1, 2), theta1, 1e-14);
  EXPECT_NEAR(U(2, 2), theta2, 1e-11);
  EXPECT_NEAR(F(1, 3), kBeamEI / 6 * (4 * theta1 + 2 * theta2), 1e-8);
  EXPECT_NEAR(F(1, 6), kBeamEI / 6 * (2 * theta1 + 4 * theta2), 1e-8);
  EXPECT_NEAR(F(2, 3), kBeamEI / 8 * 4 * theta2, 1e-8);
  EXPECT_NEAR(F(2, 6), kBeamEI / 8 * 2 * theta2, 1e-8);
  EXPECT_NEAR(R(1, 2), kBeamEI / 6 * (4 * theta1 + 2 * theta2), 1e-8);
}

TEST_F(ExternalProof, ARotationForcedOnAFreeJointListsItAmongTheSupports) {
  ASSERT_TRUE(Analyse(Head(1, 1, 0) +
                      "7,0,0,1,1,1\n5,6,0,0,1,0\n3,14,0,0,1,1\n\n@ELEM\n1,7,5,0,0,1\n2,5,3,0,0,1\n" +
                      std::string(kSection) + "\n@SPEC\n5,1,0,0,-0.01\n"))
      << testing::PrintToString(Told());
  EXPECT_THAT(AllReactions().nodes, testing::ElementsAre(3, 5, 7));
  EXPECT_NEAR(R(5, 2), -0.01 * (4 * kBeamEI / 6 + 4 * kBeamEI / 8), 1e-8);
  EXPECT_NEAR(R(7, 2), -0.01 * 2 * kBeamEI / 6, 1e-8);
  EXPECT_NEAR(R(5, 1), -0.01 * (-6 * kBeamEI / 36 + 6 * kBeamEI / 64), 1e-8);
}

TEST_F(ExternalProof, ANodeForcedInOneCaseStandsInTheReactionsOfAll) {
  // A cantilever of 4 m: case 1 a load of 3 at the tip, case 2 the tip is pushed up by 2 cm and loaded by 5.
  ASSERT_TRUE(Analyse(Head(1, 2, 0) + "1,0,0,1,1,1\n2,4,0,0,0,0\n\n@ELEM\n1,1,2,0,0,1\n" +
                      std::string(kSection) + "\n@PLOD\n1,2,0,-3,0\n2,2,1,-5,0\n\n@SPEC\n2,2,0,2,0\n"))
      << testing::PrintToString(Told());
  EXPECT_THAT(AllReactions().nodes, testing::ElementsAre(1, 2));
  EXPECT_NEAR(R(1, 1, 1), 3, 1e-12);
  EXPECT_EQ(R(2, 1, 1), 0);
  const double push = 3 * kBeamEI / 64 * 0.02;
  EXPECT_NEAR(U(2, 1, 2), 0.02, 1e-14);
  EXPECT_NEAR(F(1, 5, 2), push, 1e-9);
  EXPECT_NEAR(R(2, 1, 2), push + 5, 1e-9);  // the load on the node is no part of what bends the beam
  EXPECT_EQ(R(2, 0, 2), 0);
  EXPECT_NEAR(R(1, 0, 2), -1, 1e-9);
  EXPECT_NEAR(R(1, 1, 2), -push, 1e-9);
}

TEST_F(ExternalProof, ASpringsFootMovesThroughItsSpring) {
  // Tip stiffness 3EI/L^3 = 1575 t/m on a spring of 5 t/cm whose foot sinks by 1 cm.
  ASSERT_TRUE(Analyse(Head(1, 1, 0) + "1,0,0,1,1,1\n2,2,0,0,2,0\n\n@ELEM\n1,1,2,0,0,1\n" +
                      std::string(kSection) + "\n@SPRG\n2,0,5,0\n\n@SPEC\n2,1,0,-1,0\n"))
      << testing::PrintToString(Told());
  const double u = -0.01 * 500 / (500 + 1575);
  EXPECT_NEAR(U(2, 1), u, 1e-11);
  EXPECT_NEAR(R(2, 1), 1575 * u, 1e-9);
}

/// A clamped corner frame with a strut on a roller, everything turned by an angle (degrees,
/// counter-clockwise). The roller's plane rises by 30 degrees more.
std::string TurnedFrame(double turned) {
  const double phi = turned * std::numbers::pi / 180, c = std::cos(phi), s = std::sin(phi);
  const auto point = [&](double x, double y) {
    return RealText(c * x - s * y) + "," + RealText(s * x + c * y);
  };
  const bool upright = turned == -30;
  return Head(1, 1, upright ? 0 : 1) + "1," + point(0, 0) + ",1,1,1,0\n2," + point(0.5, 4) + ",0,0,0,0\n3," +
         point(6, 5) + (upright ? ",0,1,0\n" : ",4,4,0," + RealText(turned + 30) + "\n") +
         "\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n" + std::string(kSection) + "\n@PLOD\n1,2," + point(3, -1) +
         ",2\n1,3," + point(-1, -4) + ",0\n\n@ELOD\n1,2,-2,0,0,1,0\n1,1,1.5,16,0.4,1,0\n";
}

TEST_F(ExternalProof, AModelTurnedUntilItsRollerIsUprightHasTheSameForces) {
  ASSERT_TRUE(Analyse(TurnedFrame(-30))) << testing::PrintToString(Told());
  const std::vector<double> upright = Forces();
  const double push = R(3, 1), travel = U(3, 0);
  for (const double turned : {0.0, 25.0, 60.0, -75.0, 150.0}) {
    ASSERT_TRUE(Analyse(TurnedFrame(turned))) << testing::PrintToString(Told());
    for (std::size_t p = 0; p < upright.size(); ++p)
      EXPECT_NEAR(Forces()[p], upright[p], 2e-6) << turned << " " << p;
    const double normal = (turned + 120) * std::numbers::pi / 180;
    EXPECT_NEAR(R(3, 0), push * std::cos(normal), 2e-6) << turned;
    EXPECT_NEAR(R(3, 1), push * std::sin(normal), 2e-6) << turned;
    EXPECT_NEAR(U(3, 0), travel * std::sin(normal), 1e-8) << turned;
    EXPECT_NEAR(U(3, 1), -travel * std::cos(normal), 1e-8) << turned;
  }
}

TEST_F(ExternalProof, ARollersSupportMovesAlongItsNormal) {
  // A clamped beam of 3 m ends on a plane of 90 degrees: its normal points to -X. Pulled by 0.3 cm to the
  // left.
  ASSERT_TRUE(Analyse(Head(1, 1, 1) + "1,0,0,1,1,1,0\n2,3,0,4,4,0,90\n\n@ELEM\n1,1,2,0,0,1\n" +
                      std::string(kSection) + "\n@SPEC\n2,1,-0.3,5,0\n"))
      << testing::PrintToString(Told());
  EXPECT_NEAR(U(2, 0), -0.003, 1e-12);
  EXPECT_NEAR(U(2, 1), 0, 1e-12);
  EXPECT_NEAR(F(1, 4), -0.003 * 2.1e7 * 0.01 / 3, 1e-6);
}

TEST_F(ExternalProof, AFloorOfOneDisplacementFollowsASettlement) {
  // Two columns of 4 m, hinged to nothing but the floor they share; the right base is pushed by 1 cm, so the
  // floor moves by half of it and each column bends as a cantilever by the other half.
  ASSERT_TRUE(Analyse(Head(2, 1, 0) +
                      "1,0,0,1,1,1\n2,0,4,0,0,0\n3,5,0,1,1,1\n4,5,4,0,0,0\n"
                      "\n@ELEM\n1,1,2,0,0,1\n2,3,4,0,0,1\n" +
                      std::string(kSection) + "\n@DISP\n1,2,4\n\n@SPEC\n3,1,1,0,0\n"))
      << testing::PrintToString(Told());
  const double shear = 3 * kBeamEI / 64 * 0.005;
  EXPECT_NEAR(U(2, 0), 0.005, 1e-12);
  EXPECT_NEAR(U(4, 0), 0.005, 1e-12);
  EXPECT_NEAR(R(1, 0), -shear, 1e-8);
  EXPECT_NEAR(R(3, 0), shear, 1e-8);
}

/// A portal of 4 m by 6 m whose tops, 3 and 4, have one displacement; EI is the same throughout.
std::string Portal(std::string_view topCode, std::string_view rest) {
  return Head(2, 1, 0) + "1,0,0,1,1,1\n2,6,0,1,1,1\n3,0,4," + std::string(topCode) +
         ",0,0\n4,6,4,0,0,0\n\n@ELEM\n1,1,3,0,0,1\n2,2,4,0,0,1\n3,3,4,0,0,1\n" + std::string(kSection) +
         "\n@DISP\n1,3,4\n" + std::string(rest);
}

// The tops turn by t: (4/h + 6/L) t = 6 d / h^2, and a column's shear is EI (12 d / h^3 - 6 t / h^2). The
// columns' own shortening takes a few thousandths of it.
TEST_F(ExternalProof, TheReactionOfAMovedNodeIsThatOfItsWholeFloor) {
  ASSERT_TRUE(Analyse(Portal("0", "\n@SPEC\n3,1,1,0,0\n"))) << testing::PrintToString(Told());
  const double turn = 6 * 0.01 / 16 / (4.0 / 4 + 6.0 / 6);
  const double shear = kBeamEI * (12 * 0.01 / 64 - 6 * turn / 16);
  EXPECT_NEAR(R(1, 0), -shear, 0.01 * shear);
  EXPECT_NEAR(R(3, 0), -R(1, 0) - R(2, 0), 1e-8);
  const CaseTrust& trust = LastAnalysis().trust[0];
  EXPECT_NEAR(trust.reactionSum[0], 0, 1e-8);
  EXPECT_FALSE(trust.unbalanced || trust.lost);
}

TEST_F(ExternalProof, TheLoadsOfAFloorReachTheSupportOfItsOneNode) {
  for (const char* const rest : {"\n@PLOD\n1,4,5,0,0\n\n@SPEC\n1,1,0,0,0\n",      // no node is moved
                                 "\n@PLOD\n1,4,5,0,0\n\n@SPEC\n3,1,0,-1,0\n"}) {  // the held one sinks
    ASSERT_TRUE(Analyse(Portal("1", rest))) << testing::PrintToString(Told());
    EXPECT_NEAR(R(1, 0) + R(2, 0) + R(3, 0), -5, 1e-8) << rest;
    const CaseTrust& trust = LastAnalysis().trust[0];
    EXPECT_NEAR(trust.reactionSum[0], -5, 1e-8) << rest;
    EXPECT_FALSE(trust.unbalanced || trust.lost) << rest;
  }
}

// Walls of 0.6 m by 6 m: the residual is a kilogramme, the forces a hundred thousand tonnes.
TEST_F(ExternalProof, ASettlementWithoutLoadsIsTrusted) {
  ASSERT_TRUE(Analyse(Head(1, 1, 0) +
                      "1,0.1,0,1,1,1\n2,8.3,0,1,1,1\n3,0.1,3.7,0,0,0\n4,8.3,3.7,0,0,0\n"
                      "\n@ELEM\n1,1,3,0,0,1\n2,2,4,0,0,1\n3,3,4,0,0,1\n"
                      "\n@SECT\n1,1,60,600,1.2,36000,1,227.123,94.58\n\n@SPEC\n2,1,0,-200,0\n"))
      << testing::PrintToString(Told());
  EXPECT_GT(std::abs(F(1, 1)), 1e5);
  EXPECT_GT(LastAnalysis().trust[0].residual, kLostPrintedResidual) << "more than beside 1 t would pass";
  EXPECT_FALSE(LastAnalysis().trust[0].lost);
}

// The springs' reactions: told without the magnification where the node stands, as the member forces are
// magnified where it is moved.
TEST_F(ExternalProof, SpringsBalanceUnderMagnification) {
  for (const char* const moved : {"1,1,0,0,0", "2,1,0,-1,0"}) {
    ASSERT_TRUE(Analyse(Head(1, 1, 0) + "1,0,0,1,1,1\n2,4,0,0,2,0\n\n@ELEM\n1,1,2,0,0,1\n" +
                        std::string(kSection) + "\n@ALFA\n-1,9,2.5\n\n@SPRG\n2,0,5,0\n\n@PLOD\n1,2,0,-3,0\n" +
                        "\n@SPEC\n" + moved + "\n"))
        << testing::PrintToString(Told());
    const CaseTrust& trust = LastAnalysis().trust[0];
    EXPECT_NEAR(trust.loadSum[1], -7.5, 1e-9);
    EXPECT_FALSE(trust.unbalanced || trust.lost) << moved;
  }
}

// The first solve leaves rollers and forced displacements free.
TEST_F(ExternalProof, WhatStandsOnlyByItsRollerFailsWithTheReason) {
  const std::string truss =
      "1,0,0,1,1,0\n2,2,2,0,0,0\n3,4,0,4,4,0,30\n\n@ELEM\n1,1,2,1,1,1\n2,2,3,1,1,1\n"
      "3,1,3,1,1,1\n" +
      std::string(kSection) + "\n@PLOD\n1,2,0,-10,0\n";
  const std::string reason =
      "傾斜ローラーと強制変位は、最初の解析では自由として扱います。それらがなくても安定な構造にしてください";
  EXPECT_FALSE(Analyse(Head(1, 1, 1) + truss));
  ASSERT_EQ(Told().size(), 2U);
  EXPECT_THAT(Told()[0], testing::HasSubstr("不安定構造"));
  EXPECT_THAT(Told()[1], testing::AllOf(testing::StartsWith("解析失敗: "), testing::EndsWith("\n" + reason)));
  EXPECT_FALSE(Analyse(Head(1, 1, 0) + truss)) << "no inclined roller is in force";
  EXPECT_THAT(Told().back(), testing::Not(testing::HasSubstr(reason)));
  EXPECT_FALSE(Analyse(Head(1, 1, 0) + truss + "\n@SPEC\n3,1,0,-1,0\n"));
  EXPECT_THAT(Told().back(), testing::HasSubstr(reason));
  std::string wrong = Head(1, 1, 1) + truss;  // another fault has another reason
  wrong.replace(wrong.find("3,1,3,1,1,1"), 11, "3,1,3,1,1,7");
  EXPECT_FALSE(Analyse(wrong));
  EXPECT_THAT(Told().back(), testing::Not(testing::HasSubstr(reason)));
}

TEST_F(ExternalProof, AnUnstressedBarKeepsItsNodesRotationsAtZero) {
  // A truss of bars without bending: the pinned apex, loaded, on supports of which one sinks.
  const std::string deck = Head(1, 1, 0) +
                           "1,0,0,1,1,0\n2,3,4,0,0,0\n3,6,0,1,1,0\n\n@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n"
                           "\n@SECT\n1,0,10,0,0,0,1,2100,0\n\n@PLOD\n1,2,0,-8,0\n\n@ELOD\n1,1,-1,0,0,1,1\n"
                           "\n@SPEC\n3,1,0,-1,0\n";
  ASSERT_TRUE(Analyse(deck)) << testing::PrintToString(Told());
  // Apex: 8, and half of the load of 3 from the bar, on two bars of slope 4/5; their forces know no
  // settlement.
  EXPECT_NEAR(F(2, 4) - F(2, 1), -2 * (8 + 1.5) / 2 / 0.8, 1e-8);
  EXPECT_EQ(U(2, 2), 0);
}

}  // namespace
}  // namespace zorlan::test

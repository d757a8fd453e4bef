#include "analysis/external_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "support/model_builder.h"

namespace zorlan::test {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;

/// Two nodes 4 m apart, clamped at the first, and one section: E = 2.1e7, A = 0.01, I = 2e-4.
ModelBuilder Cantilever() {
  ModelBuilder b;
  b.Node(0, 0, kClamped);
  b.Node(4, 0);
  b.Section(2.1e7, 0.01, 2e-4);
  b.Element(1, 2);
  return b;
}

struct PoissonCase {
  const char* name;
  double E, G, nu;
};
const PoissonCase kPoissonCases[] = {
    {"no shear modulus", 2.1e7, 0, 0.5},
    {"steel", 2.1e7, 8.1e6, 2.1e7 / 1.62e7 - 1},
    {"a shear modulus far above E", 2.1e7, 1e12, 2.1e7 / 2e12 - 1},
    {"below -1", 2.1e7, -8.1e6, -0.5},
};

TEST(ExternalTables, GiveAMaterialThePoissonsRatioOfItsShearModulus) {
  for (const PoissonCase& c : kPoissonCases) {
    ModelBuilder b = Cantilever();
    b.model.Sect[1].G = c.G;
    const ExternalTables tables = BuildExternalTables(b.model, 1);
    EXPECT_DOUBLE_EQ(tables.ExtMaterials[0].nu, c.nu) << c.name;
  }
}

TEST(ExternalTables, HoldEverySectionPlainThenOnceAMagnificationRowAndAHelperLast) {
  ModelBuilder b = Cantilever();
  b.Section(2e6, 0.3, 0.01, 8e5, 0.25);
  b.Magnification(-1, 1, 2);
  b.Magnification(1, 9, 3);
  const ExternalTables tables = BuildExternalTables(b.model, 1);
  std::vector<double> E, A, As, I;
  for (const ExtMaterial& m : tables.ExtMaterials) E.push_back(m.E);
  for (const ExtSection& s : tables.ExtSections) {
    A.push_back(s.A);
    As.push_back(s.As);
    I.push_back(s.I);
  }
  EXPECT_THAT(E, ElementsAre(2.1e7, 2e6, 4.2e7, 4e6, 6.3e7, 6e6, 7e12));
  EXPECT_THAT(A, ElementsAre(0.01, 0.3, 0.02, 0.6, 0.03, DoubleEq(0.9), 0.25));
  EXPECT_THAT(As, ElementsAre(1e-14, 0.25, 1e-14, 0.5, 1e-14, 0.75, 0));
  EXPECT_THAT(I, ElementsAre(2e-4, 0.01, 4e-4, 0.02, DoubleEq(6e-4), 0.03, 0.0052));
  EXPECT_EQ(tables.ExtMaterials.back().nu, 0.3);
  EXPECT_EQ(tables.ExtMaterials.back().modelSection, 0);
  EXPECT_EQ(tables.ExtSections[3].modelSection, 2);
}

TEST(ExternalTables, CountAMagnificationOnceInTheMaterialOfItsBeam) {
  ModelBuilder b = Cantilever();
  b.Magnification(10, 20, 2);
  b.Magnification(-1, 5, 3);
  const ExternalTables tables = BuildExternalTables(b.model, 1);
  EXPECT_EQ(tables.ExtMaterials[static_cast<std::size_t>(tables.ExtBeams[0].material - 1)].E, 6.3e7);
  EXPECT_EQ(tables.ExtSections[static_cast<std::size_t>(tables.ExtBeams[0].section - 1)].I, 2e-4);
}

struct InertiaCase {
  int type;
  double P1, P2, P3, P4, phi, I;
};
// By the shapes' formulas, m: rectangle B D^3/12, or D B^3/12 about the weak axis.
const InertiaCase kInertias[] = {
    {0, 0.01, 3e-4, 0, 0, 2, 3e-4},                            // no increase factor
    {1, 0.3, 0.6, 1.2, 0.1, 2, 2 * 0.3 * 0.216 / 12},          // with it
    {1, 0.3, 0.6, 1.2, 0.1, 0, 0.3 * 0.216 / 12},              // a factor of 0 counts as none
    {7, 0.12, 0.24, 1, 0, 1, 0.12 * 0.24 * 0.24 * 0.24 / 12},  // timber
    {8, 0.12, 0.24, 1, 0, 1, 0.24 * 0.12 * 0.12 * 0.12 / 12},  // timber, weak axis
    {12, 0.101, 0.067, 0.0071, 0, 1, 0},                       // a weak angle comes with its strong axis
};

TEST(ExternalTables, TakeTheInertiaOfTheTypesAxis) {
  for (const InertiaCase& c : kInertias) {
    ModelBuilder b = Cantilever();
    SectRec& s = b.model.Sect[1];
    s.TYPE = static_cast<std::int16_t>(c.type);
    s.P1 = c.P1;
    s.P2 = c.P2;
    s.P3 = c.P3;
    s.P4 = c.P4;
    s.phi = c.phi;
    double expected = c.I;
    if (c.type == 12) {  // legs 101 and 67 by 7.1: the greater of (a^3 t + t^3 (b - t))/3 - c^2 A
      const double a = c.P1, w = c.P2, t = c.P3, A = a * w - (a - t) * (w - t);
      const double centre = (a * a * t + (w - t) * t * t) / (2 * A);
      expected = (a * a * a * t + t * t * t * (w - t)) / 3 - centre * centre * A;
    }
    EXPECT_NEAR(BuildExternalTables(b.model, 1).ExtSections[0].I / expected, 1, 1e-12) << "TYPE " << c.type;
  }
}

TEST(ExternalTables, GiveAShearAreaByItsShapeFactor) {
  ModelBuilder b = Cantilever();
  SectRec& s = b.model.Sect[1];
  s.TYPE = 1;
  s.P1 = 0.3;
  s.P2 = 0.6;
  s.P3 = 1.2;
  s.P4 = 0.18;
  s.phi = 1;
  EXPECT_EQ(BuildExternalTables(b.model, 1).ExtSections[0].As, 1e-14);  // no shear modulus
  s.G = 8e5;
  EXPECT_DOUBLE_EQ(BuildExternalTables(b.model, 1).ExtSections[0].As, 0.15);
}

TEST(ExternalTables, DivideALoadedBeamAtItsMiddle) {
  ModelBuilder b = Cantilever();
  b.model.Elem[1].II = 1;
  b.ElementLoad(1, -3, 0, 0, 0);  // uniform, 4 m: Q = 6 at each end, C = 0 and -(4 + 4/2)
  const ExternalTables t = BuildExternalTables(b.model, 1);
  ASSERT_EQ(t.ExtNodes.size(), 3U);
  EXPECT_EQ(t.ExtNodes[2].modelNumber, 0);
  EXPECT_EQ(t.ExtNodes[2].X, 2);
  ASSERT_EQ(t.ExtBeams.size(), 2U);
  const ExtBeam &first = t.ExtBeams[0], &second = t.ExtBeams[1];
  EXPECT_EQ(first.twin, 2);
  EXPECT_EQ(second.twin, -1);
  EXPECT_EQ(first.modelElement, 1);
  EXPECT_EQ(second.modelElement, 1);
  EXPECT_THAT((std::vector{first.nodeI, first.nodeJ, second.nodeI, second.nodeJ}), ElementsAre(1, 3, 3, 2));
  EXPECT_THAT((std::vector{first.endI, first.endJ, second.endI, second.endJ}),
              ElementsAre(kExtPin, kExtRigid, kExtRigid, kExtRigid));
  EXPECT_THAT((std::vector{first.loadI, first.loadJ, second.loadI, second.loadJ}), ElementsAre(1, 0, 0, 1));
  ASSERT_EQ(t.ExtLoads.size(), 2U);
  // The moment of 6 is clockwise on the member's end J; the deck counts clockwise.
  EXPECT_THAT(t.ExtLoads[0], ElementsAre(0, 0, 4.5, 0, 0, 0, 0, 0));
  EXPECT_THAT(t.ExtLoads[1], ElementsAre(0, 0, 7.5, 0, 6, 0, 0, 0));
}

TEST(ExternalTables, TakeNoticeOfTheirOwnLoadCaseAlone) {
  ModelBuilder b = Cantilever();
  b.model.MaxLoadCase = 2;
  b.ElementLoad(1, -3, 0, 0, 0, 2);
  b.NodalLoad(2, 1, 2, 3, 2);
  b.ForcedDisplacement(2, 2);
  const ExternalTables t = BuildExternalTables(b.model, 1);
  EXPECT_EQ(t.ExtBeams.size(), 1U);
  EXPECT_TRUE(t.ExtNodalLoads.empty());
  EXPECT_TRUE(t.movedNodes.empty());
  EXPECT_THAT(t.supportRows, ElementsAre(1));
}

TEST(ExternalTables, SumNodalLoadsByNodeWithItsMagnificationAndTurnTheMoment) {
  ModelBuilder b = Cantilever();
  b.Magnification(3, 5, 2);
  b.NodalLoad(2, 1, -2, 3);
  b.NodalLoad(2, 0.5, 0, 0.25);
  b.NodalLoad(9, 7, 7, 7);  // no such node
  const ExternalTables t = BuildExternalTables(b.model, 1);
  ASSERT_EQ(t.ExtNodalLoads.size(), 1U);
  EXPECT_EQ(t.ExtNodalLoads[0].node, 2);
  EXPECT_EQ(t.ExtNodalLoads[0].FX, 3);
  EXPECT_EQ(t.ExtNodalLoads[0].FY, -4);
  EXPECT_EQ(t.ExtNodalLoads[0].MZ, -6.5);
}

TEST(ExternalTables, PutRigidZonesAsHelperBeamsAroundAFlexiblePartOfTheSameAxialStiffness) {
  ModelBuilder b = Cantilever();
  b.RigidZones(0.1, 0.15);
  b.model.Elem[1].rigid = 1;
  b.model.Elem[1].II = 1;
  const ExternalTables t = BuildExternalTables(b.model, 1);
  ASSERT_EQ(t.ExtBeams.size(), 3U);
  const ExtBeam &zoneI = t.ExtBeams[0], &zoneJ = t.ExtBeams[1], &beam = t.ExtBeams[2];
  EXPECT_EQ(t.ExtNodes[static_cast<std::size_t>(beam.nodeI - 1)].X, 0.4);
  EXPECT_EQ(t.ExtNodes[static_cast<std::size_t>(beam.nodeJ - 1)].X, 3.4);
  EXPECT_EQ(zoneI.modelElement, 0);
  EXPECT_EQ(zoneI.endI, kExtPin);  // the pin stays at the node
  EXPECT_EQ(beam.endI, kExtRigid);
  EXPECT_EQ(zoneJ.nodeJ, 2);
  EXPECT_EQ(t.ExtSections[static_cast<std::size_t>(zoneI.section - 1)].A, 0.25);
  EXPECT_EQ(zoneI.section, static_cast<int>(t.ExtSections.size()));
  EXPECT_DOUBLE_EQ(t.ExtSections[static_cast<std::size_t>(beam.section - 1)].A, 0.0075);
  EXPECT_EQ(t.ExtSections[static_cast<std::size_t>(beam.section - 1)].I, 2e-4);
  EXPECT_DOUBLE_EQ(t.elements[0].armI, 0.4);
  EXPECT_DOUBLE_EQ(t.elements[0].armJ, 0.6);
}

TEST(ExternalTables, LeaveABarWithoutBendingInOnePiece) {
  ModelBuilder b = Cantilever();
  b.model.Sect[1].P2 = 0;
  b.RigidZones(0.1, 0.1);
  b.model.Elem[1].rigid = 1;
  b.ElementLoad(1, -3);
  const ExternalTables t = BuildExternalTables(b.model, 1);
  ASSERT_EQ(t.ExtBeams.size(), 1U);
  EXPECT_EQ(t.ExtBeams[0].loadI, 1);
  EXPECT_EQ(t.ExtBeams[0].loadJ, 1);
  EXPECT_EQ(t.ExtSections[0].I, 1e-14);
}

TEST(ExternalTables, RefuseRigidZonesThatLeaveNothingBetweenThem) {
  ModelBuilder b = Cantilever();
  b.RigidZones(0.5, 0.5);
  b.model.Elem[1].rigid = 1;
  EXPECT_THROW(BuildExternalTables(b.model, 1), Fault);
}

TEST(ExternalTables, ChainTheNodesOfAGroupAndLeaveANodeToItsLaterGroup) {
  ModelBuilder b = Cantilever();
  b.model.ModelCode = kSameDisplacementFrame;
  for (int n = 3; n <= 6; ++n) b.Node(4, n);
  b.Group({2, 3, 4, 99});
  b.Group({5, 3, 6, 6});
  const ExternalTables t = BuildExternalTables(b.model, 1);
  std::vector<std::pair<int, int>> links;
  for (const ExtBeam& beam : t.ExtBeams)
    if (beam.endI == kExtLink && beam.endJ == kExtLink) links.emplace_back(beam.nodeI, beam.nodeJ);
  EXPECT_THAT(links, ElementsAre(std::pair(2, 4), std::pair(5, 3), std::pair(3, 6)));
  b.model.ModelCode = kPlaneFrame;
  EXPECT_EQ(BuildExternalTables(b.model, 1).ExtBeams.size(), 1U);
}

struct BoundaryCase {
  const char* name;
  Codes code;
  SpecRec moved;    // cm, cm, rad
  std::size_t dof;  // that is looked at
  int kind, boundaryCode;
  double prescribed, stiffness, cosine;
  std::array<double, 3> direction;
};
// Springs of 5 t/cm, 7 t/cm, 900 t*cm/rad; a magnification of 2.
const BoundaryCase kBoundaries[] = {
    {"fixed X", {1, 0, 0}, {}, 0, 1, 1, 0, 0, -1, {-1, 0, 0}},
    {"fixed X moved", {1, 0, 0}, {1, 1, 2.5, 0, 0}, 0, 1, 1, 0.025, 0, -1, {-1, 0, 0}},
    {"fixed Y moved", {0, 1, 0}, {1, 1, 0, -1, 0}, 1, 1, 1, -0.01, 0, -1, {0, 0, -1}},
    {"fixed rotation moved", {0, 0, 1}, {1, 1, 0, 0, 0.002}, 2, 2, 1, 0.002, 0, -1, {0, 1, 0}},
    {"spring X", {2, 0, 0}, {}, 0, 1, 2, 0, 1000, -1, {-1, 0, 0}},
    {"spring Y moved", {0, 2, 0}, {1, 1, 0, -1, 0}, 1, 1, 2, 0.01, 1400, -1, {0, 0, -1}},
    {"rotational spring", {0, 0, 2}, {}, 2, 2, 2, 0, 18, -1, {0, 1, 0}},
    {"free X moved", {0, 0, 0}, {1, 1, 3, 0, 0}, 0, 1, 0, 0.03, 0, 1, {1, 0, 0}},
    {"free rotation moved", {0, 0, 0}, {1, 1, 0, 0, 0.01}, 2, 2, 0, 0.01, 0, 1, {0, -1, 0}},
};

TEST(ExternalTables, GiveEveryHeldDirectionItsBoundaryElement) {
  for (const BoundaryCase& c : kBoundaries) {
    ModelBuilder b;
    b.Node(0, 0, c.code);
    b.Node(4, 0);
    b.Section(2.1e7, 0.01, 2e-4);
    b.Element(1, 2);
    b.Spring(1, 5, 7, 900);
    b.Magnification(-1, 1, 2);
    if (c.moved.loadCase != 0) AppendRow(b.model.Spec, b.model.SpecCount, c.moved);
    const ExternalTables t = BuildExternalTables(b.model, 1);
    ASSERT_EQ(t.ExtBoundary.size(), 1U) << c.name;
    const ExtBoundaryElement& e = t.ExtBoundary[0];
    EXPECT_EQ(e.node, 1) << c.name;
    EXPECT_EQ(e.kind, c.kind) << c.name;
    EXPECT_EQ(e.code, c.boundaryCode) << c.name;
    EXPECT_DOUBLE_EQ(e.prescribed, c.prescribed) << c.name;
    EXPECT_DOUBLE_EQ(e.stiffness, c.stiffness) << c.name;
    EXPECT_EQ(e.cosine, c.cosine) << c.name;
    EXPECT_EQ(e.direction, c.direction) << c.name;
    const bool moved = c.moved.loadCase != 0;
    ASSERT_EQ(t.movedNodes.size(), moved ? 1U : 0U) << c.name;
    if (moved) {
      EXPECT_EQ(t.movedNodes[0].code[c.dof], c.boundaryCode == 2 ? 23 : 3) << c.name;
    }
  }
}

TEST(ExternalTables, HoldARollerAlongItsNormalOnce) {
  ModelBuilder b = Cantilever();
  b.model.RollerFlag = 1;
  b.model.Node[2].code = {4, 4, 1};
  b.model.Node[2].rollerAngle = 30;
  AppendRow(b.model.Spec, b.model.SpecCount, SpecRec{1, 2, 2, -1, 0});
  ExternalTables t = BuildExternalTables(b.model, 1);
  ASSERT_EQ(t.ExtBoundary.size(), 5U);  // the clamp's three, the roller, its rotation
  const ExtBoundaryElement& roller = t.ExtBoundary[3];
  EXPECT_EQ(roller.code, 4);
  EXPECT_NEAR(roller.direction[0], -0.5, 1e-15);  // 120 degrees
  EXPECT_NEAR(roller.direction[2], std::sqrt(3) / 2, 1e-15);
  EXPECT_NEAR(roller.prescribed, 0.02 * -0.5 - 0.01 * std::sqrt(3) / 2, 1e-17);
  EXPECT_EQ(t.ExtBoundary[4].kind, kExtRotation);

  b.model.RollerFlag = 0;  // without inclined rollers a code 4 is a free direction
  b.model.SpecCount = 0;
  EXPECT_EQ(BuildExternalTables(b.model, 1).ExtBoundary.size(), 4U);
}

TEST(ExternalTables, ListANodeWithAForcedDisplacementOfZeroAmongTheSupports) {
  ModelBuilder b = Cantilever();
  AppendRow(b.model.Spec, b.model.SpecCount, SpecRec{1, 2, 0, 0, 0});
  const ExternalTables t = BuildExternalTables(b.model, 1);
  EXPECT_THAT(t.supportRows, ElementsAre(1, 2));
  EXPECT_TRUE(t.movedNodes.empty());
  EXPECT_EQ(t.ExtBoundary.size(), 3U);
}

TEST(ExternalTables, RefuseAGrid) {
  ModelBuilder b = Cantilever();
  b.model.ModelCode = kPlaneGrid;
  EXPECT_THROW(BuildExternalTables(b.model, 1), Fault);
}

}  // namespace
}  // namespace zorlan::test

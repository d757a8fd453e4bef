// The conversion into tons, metres and radians. Values by hand: 1 t = g kN, 1 m = 100 cm = 1000 mm.
#include <gtest/gtest.h>

#include "model/deck.h"

namespace zorlan {
namespace {

constexpr double g = 9.80665;

SectRec Section(std::int16_t type, double P1, double P2, double P3, double P4) {
  SectRec section;
  section.TYPE = type;
  section.P1 = P1;
  section.P2 = P2;
  section.P3 = P3;
  section.P4 = P4;
  return section;
}

struct ShapeCase {
  const char* name;
  std::int16_t type;
  double entered[4];
  double metres[4];
};

const ShapeCase kShapeCases[] = {
    {"direct input: 80 cm2, 12000 cm4, -, 40 cm2", 0, {80, 12000, 7, 40}, {0.008, 0.00012, 7, 0.004}},
    {"B x D: 40 x 60 cm, factor, 2000 cm2", 1, {40, 60, 1.2, 2000}, {0.4, 0.6, 1.2, 0.2}},
    {"H, strong axis, mm", 2, {400, 200, 8, 13}, {0.4, 0.2, 0.008, 0.013}},
    {"box, strong axis, mm", 3, {300, 250, 9, 12}, {0.3, 0.25, 0.009, 0.012}},
    {"pipe: D, t mm, the rest unused", 4, {216.3, 8.2, 5, 6}, {0.2163, 0.0082, 5, 6}},
    {"H, weak axis, mm", 5, {400, 200, 8, 13}, {0.4, 0.2, 0.008, 0.013}},
    {"box, weak axis, mm", 6, {300, 250, 9, 12}, {0.3, 0.25, 0.009, 0.012}},
    {"timber, strong axis: mm, mm, factor, mm2", 7, {120, 240, 1.5, 19200}, {0.12, 0.24, 1.5, 0.0192}},
    {"timber, weak axis", 8, {120, 240, 1.5, 19200}, {0.12, 0.24, 1.5, 0.0192}},
    {"channel, strong axis, mm", 9, {150, 75, 6.5, 10}, {0.15, 0.075, 0.0065, 0.01}},
    {"channel, weak axis, mm", 10, {150, 75, 6.5, 10}, {0.15, 0.075, 0.0065, 0.01}},
    {"angle, strong axis, mm", 11, {75, 75, 6, 8.5}, {0.075, 0.075, 0.006, 0.0085}},
    {"angle, weak axis, mm", 12, {75, 75, 6, 8.5}, {0.075, 0.075, 0.006, 0.0085}},
    {"an unknown TYPE stays", 13, {1, 2, 3, 4}, {1, 2, 3, 4}},
    {"a TYPE below 0 stays", -1, {1, 2, 3, 4}, {1, 2, 3, 4}},
};

TEST(ConvertToAnalysisUnits, ShapeFieldsBecomeMetresByTypeInBothUnitSystems) {
  for (const std::int16_t units : {std::int16_t{0}, std::int16_t{1}})
    for (const ShapeCase& c : kShapeCases) {
      ModelRec model;
      model.InUnit = units;
      model.SectCount = 1;
      model.Sect.Append(Section(c.type, c.entered[0], c.entered[1], c.entered[2], c.entered[3]));
      ConvertToAnalysisUnits(model, g);
      EXPECT_DOUBLE_EQ(model.Sect[1].P1, c.metres[0]) << c.name;
      EXPECT_DOUBLE_EQ(model.Sect[1].P2, c.metres[1]) << c.name;
      EXPECT_DOUBLE_EQ(model.Sect[1].P3, c.metres[2]) << c.name;
      EXPECT_DOUBLE_EQ(model.Sect[1].P4, c.metres[3]) << c.name;
    }
}

/// One row of each table, every quantity 1 t, 1 t*m, 1 t/cm or 1 t*cm, times `factor` of its own.
ModelRec OneOfEach(std::int16_t units, std::int16_t model, double force, double stress, double springForce,
                   double springMoment) {
  ModelRec m;
  m.InUnit = units;
  m.ModelCode = model;
  m.NodeCount = m.SectCount = m.PlodCount = m.ElodCount = m.ClodCount = m.TlodCount = m.RigdCount =
      m.SprgCount = m.SpecCount = m.AlfaCount = 1;
  m.Node.Append({1, 3, 4, {}, 30});
  SectRec section;
  section.phi = 1.5;
  section.E = section.G = stress;
  m.Sect.Append(section);
  m.Plod.Append({1, 1, force, force, force});
  m.Elod.Append({1, 1, force, 0, 2, 1, 0});
  m.Clod.Append({1, 1, force, force, force, force, force, 0});
  m.Tlod.Append({1, 1, 20, 30, 10, 0.000012, 20, 0});
  m.Rigd.Append({1, 0.1, 0.2});
  m.Sprg.Append({1, springForce, model == kPlaneGrid ? springMoment : springForce, springMoment});
  m.Spec.Append({1, 1, 0.5, 0.6, 0.001});
  m.Alfa.Append({0, 3, 1.1});
  return m;
}

void ExpectOneOfEach(const ModelRec& m) {
  EXPECT_DOUBLE_EQ(m.Sect[1].E, 10000);  // 1 t/cm2 in t/m2
  EXPECT_DOUBLE_EQ(m.Sect[1].G, 10000);
  EXPECT_EQ(m.Sect[1].phi, 1.5);
  for (const double value :
       {m.Plod[1].F1, m.Plod[1].F2, m.Plod[1].F3, m.Elod[1].P, m.Clod[1].Ci, m.Clod[1].Mo, m.Clod[1].Cj,
        m.Clod[1].Qi, m.Clod[1].Qj, m.Sprg[1].K1, m.Sprg[1].K2, m.Sprg[1].K3})
    EXPECT_DOUBLE_EQ(value, 1);
  EXPECT_EQ(m.Node[1].X, 3);
  EXPECT_EQ(m.Node[1].rollerAngle, 30);
  EXPECT_EQ(m.Elod[1].Ly, 2);
  EXPECT_EQ(m.Elod[1].K, 1);
  EXPECT_EQ(m.Tlod[1].Y1, 20);
  EXPECT_EQ(m.Tlod[1].T1, 30);
  EXPECT_EQ(m.Tlod[1].alpha, 0.000012);
  EXPECT_EQ(m.Rigd[1].lambdaJ, 0.2);
  EXPECT_EQ(m.Spec[1].S1, 0.5);
  EXPECT_EQ(m.Spec[1].S3, 0.001);
  EXPECT_EQ(m.Alfa[1].X2, 3);
}

TEST(ConvertToAnalysisUnits, GravitationalUnitsKeepForcesAndSprings) {
  for (const std::int16_t kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid}) {
    ModelRec model = OneOfEach(0, kind, 1, 1, 1, 1);
    ConvertToAnalysisUnits(model, g);
    ExpectOneOfEach(model);
  }
}

// 1 t = 9.80665 kN; 1 t/cm2 = 98.0665 N/mm2; 1 t/cm = 0.980665 kN/mm; 1 t*cm = 98.0665 kN*mm.
TEST(ConvertToAnalysisUnits, SIUnitsAreDividedByGravity) {
  for (const std::int16_t kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid}) {
    ModelRec model = OneOfEach(1, kind, 9.80665, 98.0665, 0.980665, 98.0665);
    ConvertToAnalysisUnits(model, g);
    ExpectOneOfEach(model);
  }
}

TEST(ConvertToAnalysisUnits, TheFactorOfTheModelCounts) {
  ModelRec model = OneOfEach(1, kPlaneFrame, 10, 100, 1, 100);  // g = 10
  ConvertToAnalysisUnits(model, 10);
  ExpectOneOfEach(model);
}

TEST(ConvertToAnalysisUnits, RowsBehindTheCountStay) {
  ModelRec model;
  model.InUnit = 1;
  model.Plod.Append({1, 1, 5, 5, 5});
  ConvertToAnalysisUnits(model, g);
  EXPECT_EQ(model.Plod[1].F1, 5);
}

}  // namespace
}  // namespace zorlan

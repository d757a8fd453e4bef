#include "analysis/force_units.h"

#include <gtest/gtest.h>

#include "model/model_state.h"

namespace zorlan {
namespace {

struct UnitCase {
  int outUnit, forceUnit, index;
  double twoTons;  // 2 t in the output unit, with 9.80665 kN per t
  const char* label;
};

const UnitCase kUnits[] = {
    {0, 0, 0, 2, "(T , T･M)"},
    {0, 1, 1, 2000, "(kg , kg･M)"},
    {1, 0, 2, 19.6133, "(kN , kN･M)"},
    {1, 1, 3, 19613.3, "(N , N･M)"},
};

TEST(OutputUnit, TurnsTonsIntoEachOfTheFourUnits) {
  for (const UnitCase& c : kUnits) {
    const OutputForce unit{c.outUnit, c.forceUnit, 9.80665};
    EXPECT_EQ(unit.Index(), c.index);
    EXPECT_DOUBLE_EQ(unit.Of(2), c.twoTons) << c.label;
    EXPECT_EQ(kForceLabels[static_cast<std::size_t>(unit.Index())], c.label);
  }
}

TEST(OutputUnit, TakesTheUnitInForceAndItsFactor) {
  OutUnit = 1;
  ForceUnit = 1;
  GravityFactor = 10;
  EXPECT_EQ(ForceIndex(), 3);
  EXPECT_DOUBLE_EQ(ConvertForce(-1.5), -15000);
  OutUnit = 0;
  EXPECT_EQ(ForceIndex(), 1);
  EXPECT_DOUBLE_EQ(ConvertForce(-1.5), -1500);
  GravityFactor = kStandardGravity;
}

TEST(OutputUnit, WhatIsNeitherZeroNorOneIsGravitationalInLabelAndNumbers) {
  for (const int outUnit : {2, -1, 5}) {
    const OutputForce unit{outUnit, 0, 9.80665};
    EXPECT_EQ(unit.Index(), 0);
    EXPECT_DOUBLE_EQ(unit.Of(2), 2);
  }
}

TEST(OutputUnit, LabelAndNumbersAgreeForAForceUnitOutsideTheList) {
  const OutputForce unit{0, 7, 9.80665};
  EXPECT_EQ(unit.Index(), 1);
  EXPECT_DOUBLE_EQ(unit.Of(2), 2000);
}

}  // namespace
}  // namespace zorlan

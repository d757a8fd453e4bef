#include "analysis/external_deck.h"

#include <gtest/gtest.h>

#include "analysis/external_road.h"
#include "support/model_builder.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

/// A column with a rigid zone at its foot and a loaded beam that leans on a roller, in one group.
ModelRec Corner() {
  ModelBuilder b(kSameDisplacementFrame);
  b.Node(0, 0, kClamped);
  b.Node(0, 3.5);
  b.Node(6.25, 3.5, {4, 4, 0});
  b.Section(2.1e7, 0.01234567, 0.00023456789, 8.1e6, 0.004);
  b.RigidZones(0.1, 0);
  b.Element(1, 2, 1, 0, 0, 1);
  b.Element(2, 3, 1, 1, 0);
  b.ElementLoad(2, -1.5);
  b.NodalLoad(2, 2.5, 0, -1);
  b.Group({2, 3});
  b.model.RollerFlag = 1;
  b.model.Node[3].rollerAngle = 30;
  return b.model;
}

// Columns by hand: five for integers, ten for reals. The beam's end actions: 1.5 x 6.25 / 2 = 4.6875 and 1.5
// x 6.25^2 / 8 = 7.32421875 at the end that isn't pinned, which takes 7.32421875 / 6.25 = 1.171875 of the
// shear over from the pin.
constexpr std::string_view kCornerDeck =
    "                                                                                     %Ver.4\n"
    "    5    2    1    0    0    0    0    0    0%力（質量)単位系=2長さ単位系=0\n"
    "    1    0    1    0    1    0    1         0                   0\n"
    "    2    0    1    0    1    0    1         0                 3.5\n"
    "    3    0    1    0    1    0    1      6.25                 3.5\n"
    "    4    0    1    0    1    0    1         0                0.35\n"
    "    5    0    1    0    1    0    1     3.125                 3.5\n"
    "    2    5    2    3    1\n"
    "    1  21000000.296296296\n"
    "    2      7E12       0.3\n"
    "    10.012345670.01234567     0.004.000234568.000234568.000234568\n"
    "    2.011111103.011111103     0.004.000234568.000234568.000234568\n"
    "    3      0.25      0.25         0    0.0052    0.0052    0.0052\n"
    "\n"
    "\n"
    "\n"
    "    1         0            3.515625                   0\n"
    "              0            5.859375          7.32421875\n"
    "    1    1    4    2    3    0    0               000000000000\n"
    "    2    4    2    1    2    0    0               000000000000\n"
    "    3    2    5    1    1    1    0               000010000000\n"
    "    4    5    3    1    1    0    1               000000000000\n"
    "    5    2    3    2    3    0    0               000090000090\n"
    "         0        -1         \n"
    "    7    4\n"
    "    1    1    1                                  0         0        -1\n"
    "        -1         0         0\n"
    "    1    1    1                                  0         0        -1\n"
    "         0         0        -1\n"
    "    1    2    1                                  0         0        -1\n"
    "         0         1         0\n"
    "    3    1    4                                  0         0         1\n"
    "      -0.5         0.866025404\n"
    "    2    1       2.5                   0                   1\n"
    "\n"
    "         1\n";

TEST(ExternalDeck, StandsInItsColumns) {
  EXPECT_EQ(ExternalDeckText(BuildExternalTables(Corner(), 1)), CrLf(kCornerDeck));
}

TEST(ExternalDeck, GivesActionsThatCancelTheSameDigits) {
  ModelBuilder b;
  b.Node(0, 0, kClamped);
  b.Node(7, 0);
  b.Section(2.1e7, 0.01234567, 2e-4);
  b.Element(1, 2);
  // 2.1e7 x 0.01234567 x 12e-6 x 37.9 = 117.911026...: ten digits alone, eight behind a minus sign
  b.TemperatureLoad(1, 10, 37.9, 37.9, 0.000012, 0);
  const std::string deck = ExternalDeckText(BuildExternalTables(b.model, 1));
  EXPECT_NE(deck.find("\n    1 117.91103 "), std::string::npos) << deck;
  EXPECT_NE(deck.find("\n     -117.91103 "), std::string::npos) << deck;
}

TEST(ExternalReal, FillsTenCharacters) {
  EXPECT_EQ(ExternalReal(0.00023456789), ".000234568");
  EXPECT_EQ(ExternalReal(-7.32421875), "-7.3242188");
  EXPECT_EQ(ExternalReal(7000000000000), "      7E12");
}

using ExternalFiles = ModelFolderTest;

TEST_F(ExternalFiles, HoldTheDeckInTheCodePage) {
  WriteExternalDeck(Corner(), 1);
  EXPECT_EQ(Read(AnalysisPath + "FT999.INP"), kCornerDeck);
}

}  // namespace
}  // namespace zorlan::test

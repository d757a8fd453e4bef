// The sample models of the external road against the hand checks of docs/verification.md. kN, m.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "sections/steel_tables.h"
#include "support/analysis_folder.h"

namespace zorlan::test {
namespace {

constexpr double kKNPerT = 9.80665;

class ExternalSample : public AnalysisTest {
 protected:
  ExternalSample() {
    SteelTableFolder = ZORLAN_SOURCE_DIR "/data/鋼材TABLE/";
    LoadSectionTables();
  }
  ~ExternalSample() override {
    SteelTableFolder.clear();
    LoadSectionTables();
  }
  bool AnalyseSample(const std::string& name) {
    ReplaceBytes(DeckPath(), ReadBytes(ZORLAN_SOURCE_DIR "/data/DATA/例題－１.zor/" + name));
    return AnalyseFile();
  }
};

TEST_F(ExternalSample, AWalkwayOnASlopeFollowsTheForceMethod) {
  ASSERT_TRUE(AnalyseSample("斜面に載る渡り廊下.inp")) << testing::PrintToString(Told());
  EXPECT_NEAR(kKNPerT * R(3, 0, 1), -20.841082, 1e-6);
  EXPECT_NEAR(kKNPerT * R(3, 1, 1), 36.097812, 1e-6);
  EXPECT_NEAR(kKNPerT * F(1, 3, 1), 95.217504, 1e-6);
  EXPECT_NEAR(kKNPerT * R(3, 0, 2), -0.268303, 1e-6);
  EXPECT_NEAR(kKNPerT * R(3, 1, 2), 0.464714, 1e-6);
  EXPECT_NEAR(kKNPerT * F(1, 3, 2), -3.717714, 1e-6);
  EXPECT_NEAR(U(3, 0, 2), 2.878744e-3, 1e-9);
  EXPECT_NEAR(U(3, 1, 2), 1.662044e-3, 1e-9);
}

TEST_F(ExternalSample, ASinkingSupportFollowsTheThreeMomentEquation) {
  ASSERT_TRUE(AnalyseSample("支点が沈下する連続梁.inp")) << testing::PrintToString(Told());
  // M2, M3, the four reactions, the middles of the first two spans
  const double expected[2][8] = {
      {-164.3478, -164.3478, 59.4565, 200.5435, 200.5435, 59.4565, 77.8261, 85.6522},
      {-0.7304, -269.5304, 79.9087, 153.2113, 240.5713, 46.3087, 159.6348, 114.8696}};
  for (const int c : {1, 2}) {
    const double actual[] = {F(1, 6, c), F(2, 6, c), R(1, 1, c), R(2, 1, c),
                             R(3, 1, c), R(4, 1, c), F(1, 7, c), F(2, 7, c)};
    for (std::size_t k = 0; k < 8; ++k)
      EXPECT_NEAR(kKNPerT * actual[k], expected[c - 1][k], 6e-5) << "case " << c << " quantity " << k;
  }
}

/// Greatest difference of values that lie as case, item, quantity, as a share of the quantity's largest in
/// the case.
double GreatestShare(const std::vector<double>& actual, const std::vector<double>& expected,
                     std::size_t cases, std::size_t quantities, std::size_t loadCase) {
  const std::size_t perCase = expected.size() / cases;
  double worst = 0;
  for (std::size_t q = 0; q < quantities; ++q) {
    double largest = 1e-12, difference = 0;
    for (std::size_t i = loadCase * perCase + q; i < (loadCase + 1) * perCase; i += quantities) {
      largest = std::max(largest, std::abs(expected[i]));
      difference = std::max(difference, std::abs(actual[i] - expected[i]));
    }
    worst = std::max(worst, difference / largest);
  }
  return worst;
}

/// A temperature that differs across a section: its end moments are in the member forces on one road alone.
bool HasGradient(std::size_t loadCase) {
  for (int r = 1; r <= CalcModel.TlodCount; ++r)
    if (CalcModel.Tlod[r].loadCase == static_cast<int>(loadCase) + 1 &&
        CalcModel.Tlod[r].T1 != CalcModel.Tlod[r].T2)
      return true;
  return false;
}

TEST_F(ExternalSample, ARowOfZerosAmongTheForcedDisplacementsChangesNothing) {
  for (const char* const name :
       {"鉄骨ラーメン.inp", "ＲＣラーメン.inp", "同一変形五階建て.inp", "連続梁.inp", "木造トラス.inp"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(AnalyseSample(name)) << testing::PrintToString(Told());
    const std::vector<double> displacements = Displacements(), forces = Forces(),
                              reactions = AllReactions().values;
    const auto cases = static_cast<std::size_t>(CalcModel.MaxLoadCase);
    std::string deck = ReadTextFile(DeckPath()) + "@SPEC\r\n";
    for (std::size_t c = 1; c <= cases; ++c)
      deck += std::to_string(CalcModel.Node[1].number) + "," + std::to_string(c) + ",0,0,0\r\n";
    ReplaceTextFile(DeckPath(), deck);
    ASSERT_TRUE(AnalyseFile()) << testing::PrintToString(Told());
    EXPECT_EQ(LastAnalysis().road, Road::External);
    ASSERT_EQ(AllReactions().values.size(), reactions.size());
    for (std::size_t c = 0; c < cases; ++c) {
      EXPECT_LT(GreatestShare(Displacements(), displacements, cases, 3, c), 4e-6) << c;
      // All reactions are one quantity: under upright loads nothing but rounding is left of those along X.
      EXPECT_LT(GreatestShare(AllReactions().values, reactions, cases, 1, c), 4e-6) << c;
      if (!HasGradient(c)) {
        EXPECT_LT(GreatestShare(Forces(), forces, cases, 7, c), 4e-6) << c;
      }
    }
  }
}

}  // namespace
}  // namespace zorlan::test

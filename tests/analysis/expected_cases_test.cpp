// Models with the results of an independent dense computation in extended precision, where they lie beside
// the project.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "support/analysis_folder.h"

namespace zorlan::test {
namespace {

constexpr double kAgreement = 1e-6;  // of the largest magnitude of the same quantity in the same case
constexpr double kDust =
    1e-12;  // of the largest in the whole file: where loads cancel, only rounding is left of a case

std::vector<std::string> CaseFolders() {
  std::vector<std::string> folders;
  std::error_code ignored;  // the cases aren't everywhere
  for (const auto& entry :
       std::filesystem::directory_iterator(ZORLAN_SOURCE_DIR "/../shared/cases/analysis", ignored))
    folders.push_back(entry.path().string() + "/");
  std::sort(folders.begin(), folders.end());
  return folders;
}

class ExpectedCase : public AnalysisTest, public testing::WithParamInterface<std::string> {};

/// Compares values that lie as case, item, quantity.
void ExpectAgreement(const char* what, const std::vector<double>& actual, const std::vector<double>& expected,
                     int cases, int quantities) {
  ASSERT_EQ(actual.size(), expected.size()) << what;
  double largestOfAll = 0;
  for (const double value : expected) largestOfAll = std::max(largestOfAll, std::abs(value));
  const std::size_t perCase = expected.size() / static_cast<std::size_t>(cases);
  for (int c = 0; c < cases; ++c)
    for (int q = 0; q < quantities; ++q) {
      double largest = 0, difference = 0;
      std::size_t worst = 0;
      for (std::size_t i = static_cast<std::size_t>(q); i < perCase;
           i += static_cast<std::size_t>(quantities)) {
        const std::size_t at = static_cast<std::size_t>(c) * perCase + i;
        largest = std::max(largest, std::abs(expected[at]));
        if (std::abs(actual[at] - expected[at]) > difference) {
          difference = std::abs(actual[at] - expected[at]);
          worst = at;
        }
      }
      EXPECT_LE(difference, kAgreement * largest + kDust * largestOfAll)
          << what << " case " << c + 1 << " quantity " << q + 1 << " place " << worst << " actual "
          << actual[worst] << " expected " << expected[worst];
    }
}

TEST_P(ExpectedCase, AgreesWithAnIndependentComputation) {
  const std::string folder = GetParam();
  ReplaceBytes(DeckPath(), ReadBytes(folder + "model.inp"));
  ASSERT_TRUE(AnalyseFile()) << testing::PrintToString(Told());
  const int cases = CalcModel.MaxLoadCase;
  ExpectAgreement("FT021", Displacements(), ReadReals(folder + "FT021", Displacements().size()), cases, 3);
  ExpectAgreement("FT031", Forces(), ReadReals(folder + "FT031", Forces().size()), cases, kForcesPerElement);
  const Reactions expected = ReadReactions(folder);
  EXPECT_EQ(AllReactions().nodes, expected.nodes);
  ExpectAgreement("FT022", AllReactions().values, expected.values, cases, 3);
}

INSTANTIATE_TEST_SUITE_P(Shared, ExpectedCase, testing::ValuesIn(CaseFolders()), [](const auto& folder) {
  std::string name = std::filesystem::path(folder.param).parent_path().filename().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ExpectedCase);

}  // namespace
}  // namespace zorlan::test

// The listing and the CSV files of 4960 elements with 20 load cases, from stored results to files, and the
// number fields that they are made of.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "analysis/analysis_listing.h"
#include "analysis/field_format.h"
#include "analysis/result_files.h"
#include "base/text_file.h"
#include "deck_folder.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "output/csv_output.h"

namespace zorlan {
namespace {

/// Numbers of both signs from 1e-6 to 1e6, the same in every run.
std::vector<double> SomeReals(std::size_t count) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> exponent(-6, 6), sign(-1, 1);
  std::vector<double> values(count);
  for (double& value : values) value = std::copysign(std::pow(10.0, exponent(random)), sign(random));
  return values;
}

/// The deck of the frame with results.
class ResultsInHand : public bench::DeckInHand {
 public:
  ResultsInHand() : DeckInHand(bench::LargeFrame(20)) {
    MakeFolder(ResultFolder());
    ReadDeck(DeckPath(), /*checkMode=*/false);
    for (const std::string& results : {ResultFolder(), AnalysisPath}) {
      WriteDisplacements(results, SomeReals(ValueCount(RawModel.MaxLoadCase, RawModel.NodeCount, 3)));
      WriteForces(results,
                  SomeReals(ValueCount(RawModel.MaxLoadCase, RawModel.ElemCount, kForcesPerElement)));
      WriteReactions(results, {RawModel.MaxLoadCase, {1}, SomeReals(ValueCount(RawModel.MaxLoadCase, 1, 3))},
                     ReactionLines::One);
    }
  }
};

void WriteListing(benchmark::State& state) {
  const ResultsInHand results;
  for (auto _ : state) {
    DSYSOUT1();
    DSYSOUT2();
  }
}
BENCHMARK(WriteListing)->Unit(benchmark::kMillisecond);

void WriteCsv(benchmark::State& state) {
  const ResultsInHand results;
  for (auto _ : state) WriteCsvFiles(results.Folder(), "f5000");
}
BENCHMARK(WriteCsv)->Unit(benchmark::kMillisecond);

/// A thousand numbers a round.
void NumberFields(benchmark::State& state, const char* pattern) {
  const std::vector<double> values = SomeReals(1000);
  const NumberPattern field(pattern);
  std::string out;
  for (auto _ : state) {
    out.clear();
    for (const double value : values) AppendField(out, value, field);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}
BENCHMARK_CAPTURE(NumberFields, fixed, "######0.000");
BENCHMARK_CAPTURE(NumberFields, exponent, "    0.00000E+00");

}  // namespace
}  // namespace zorlan

BENCHMARK_MAIN();

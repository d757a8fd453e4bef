// A deck of 5000 nodes and 20 load cases, step by step: splitting, joining, reading, input list, analysis.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "analysis/static_analysis.h"
#include "base/text_file.h"
#include "deck_folder.h"
#include "model/deck.h"
#include "model/input_list.h"
#include "model/model_state.h"
#include "sections/section_properties.h"
#include "sections/steel_tables.h"

namespace zorlan {
namespace {

/// 4866 nodes and 20 load cases.
bench::DeckInHand LargeDeck() {
  return bench::DeckInHand(bench::LargeFrame(20));
}

void SplitDeckIntoTables(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  for (auto _ : state) LoadDeck();
}
BENCHMARK(SplitDeckIntoTables)->Unit(benchmark::kMillisecond);

void JoinTablesIntoDeck(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  LoadDeck();
  for (auto _ : state) SaveDeck();
}
BENCHMARK(JoinTablesIntoDeck)->Unit(benchmark::kMillisecond);

void ReadDeckForAnalysis(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  for (auto _ : state) ReadDeck(DeckPath(), /*checkMode=*/false);
}
BENCHMARK(ReadDeckForAnalysis)->Unit(benchmark::kMillisecond);

void ReadDeckWithInputCheck(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  for (auto _ : state) ReadDeck(DeckPath(), /*checkMode=*/true);
}
BENCHMARK(ReadDeckWithInputCheck)->Unit(benchmark::kMillisecond);

void ListInputData(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  LoadDeck();
  for (auto _ : state) MakeInputList();
}
BENCHMARK(ListInputData)->Unit(benchmark::kMillisecond);

void AnalyseWithListing(benchmark::State& state) {
  const bench::DeckInHand deck = LargeDeck();
  for (auto _ : state)
    if (RunStaticAnalysis() == kFalse) state.SkipWithError("the analysis failed");
}
BENCHMARK(AnalyseWithListing)->Unit(benchmark::kMillisecond);

/// A thousand sections that stand in the steel tables, looked up once each.
void LookUpSections(benchmark::State& state) {
  SteelTableFolder = ZORLAN_SOURCE_DATA "/鋼材TABLE/";
  const std::vector<SteelRow>& rows = SteelRows(SteelFamily::H);
  for (auto _ : state)
    for (int section = 0; section < 1000; ++section) {
      const SteelRow& row = rows[static_cast<std::size_t>(section) % rows.size()];
      benchmark::DoNotOptimize(SectionProperties(2, "", row.values[0] / 1000, row.values[1] / 1000,
                                                 row.values[2] / 1000, row.values[3] / 1000, 1000));
    }
}
BENCHMARK(LookUpSections)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zorlan

BENCHMARK_MAIN();

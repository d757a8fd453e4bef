// A deck of 5000 nodes and 20 load cases, step by step: splitting, joining, reading, input list, analysis.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <vector>

#include "analysis/static_analysis.h"
#include "base/text_file.h"
#include "frames.h"
#include "model/deck.h"
#include "model/input_list.h"
#include "model/model_state.h"
#include "sections/section_properties.h"
#include "sections/steel_tables.h"

namespace zorlan {
namespace {

/// A folder with the deck of 4866 nodes and 20 load cases, and the globals set to it.
class DeckInHand {
 public:
  DeckInHand() {
    std::string path = PathText(std::filesystem::temp_directory_path() / "zorlan-bench-XXXXXX");
    if (::mkdtemp(path.data()) == nullptr) std::abort();
    folder_ = FolderText(path);
    DataPath = folder_;
    ProjectName.clear();
    ModelFile = "f5000.inp";
    WorkPath = FolderText(folder_ + "WK");
    AnalysisPath = FolderText(folder_ + "AN");
    MakeFolder(WorkPath);
    MakeFolder(AnalysisPath);
    ReplaceTextFile(DeckPath(), bench::DeckText(bench::RegularFrame(5, 20, 20, 8, 40)), Flush::No);
  }
  ~DeckInHand() { std::filesystem::remove_all(folder_); }
  DeckInHand(const DeckInHand&) = delete;
  DeckInHand& operator=(const DeckInHand&) = delete;

 private:
  std::string folder_;
};

void SplitDeckIntoTables(benchmark::State& state) {
  const DeckInHand deck;
  for (auto _ : state) LoadDeck();
}
BENCHMARK(SplitDeckIntoTables)->Unit(benchmark::kMillisecond);

void JoinTablesIntoDeck(benchmark::State& state) {
  const DeckInHand deck;
  LoadDeck();
  for (auto _ : state) SaveDeck();
}
BENCHMARK(JoinTablesIntoDeck)->Unit(benchmark::kMillisecond);

void ReadDeckForAnalysis(benchmark::State& state) {
  const DeckInHand deck;
  for (auto _ : state) ReadDeck(DeckPath(), /*checkMode=*/false);
}
BENCHMARK(ReadDeckForAnalysis)->Unit(benchmark::kMillisecond);

void ReadDeckWithInputCheck(benchmark::State& state) {
  const DeckInHand deck;
  for (auto _ : state) ReadDeck(DeckPath(), /*checkMode=*/true);
}
BENCHMARK(ReadDeckWithInputCheck)->Unit(benchmark::kMillisecond);

void ListInputData(benchmark::State& state) {
  const DeckInHand deck;
  LoadDeck();
  for (auto _ : state) MakeInputList();
}
BENCHMARK(ListInputData)->Unit(benchmark::kMillisecond);

void AnalyseWithListing(benchmark::State& state) {
  const DeckInHand deck;
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

// Opening, splitting, joining and reading a deck of 5000 nodes, step by step.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "base/text_file.h"
#include "frames.h"
#include "model/deck.h"
#include "model/model_state.h"

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
    MakeFolder(WorkPath);
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

}  // namespace
}  // namespace zorlan

BENCHMARK_MAIN();

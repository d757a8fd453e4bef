// event_gaps [DECK...]: how long a window would stand still in an analysis: the longest times between two
// calls of the host's progress, and what had been said before them. Without decks, those of the bench.
#include <fmt/format.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "analysis/static_analysis.h"
#include "base/host.h"
#include "base/text_file.h"
#include "frames.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

constexpr std::size_t kShown = 3;  // gaps of a deck

using Clock = std::chrono::steady_clock;

struct Gap {
  double ms = 0;
  std::string after;  // what was said at its beginning
  double share = 0;
};

class GapWatch {
 public:
  void Say(std::string_view what, double share) {
    const Clock::time_point now = Clock::now();
    gaps_.push_back({std::chrono::duration<double, std::milli>(now - last_).count(), said_, share_});
    said_ = what;
    share_ = share;
    last_ = Clock::now();
  }
  std::vector<Gap> Longest() {
    std::sort(gaps_.begin(), gaps_.end(), [](const Gap& a, const Gap& b) { return a.ms > b.ms; });
    gaps_.resize(std::min(gaps_.size(), kShown));
    return gaps_;
  }
  std::size_t Calls() const { return gaps_.size(); }

 private:
  Clock::time_point last_ = Clock::now();
  std::string said_ = "start";
  double share_ = 0;
  std::vector<Gap> gaps_;
};

void Measure(const std::string& name) {
  GapWatch watch;
  Host host;
  host.progress = [&watch](std::string_view what, double share) { watch.Say(what, share); };
  host.message = [](std::string_view text, std::string_view) { fmt::print(stderr, "{}\n", text); };
  InstallHost(host);
  const Clock::time_point start = Clock::now();
  RunStaticAnalysis();
  const double whole = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  watch.Say("end", 1);
  fmt::print("{:<24} {:8.1f} ms, {:6} calls; longest gaps:", name, whole, watch.Calls());
  for (const Gap& gap : watch.Longest())
    fmt::print("  {:.1f} ms after {} {:.2f}", gap.ms, gap.after, gap.share);
  fmt::print("\n");
}

void TakeFolder(const std::string& folder) {
  DataPath = folder;
  ProjectName.clear();
  WorkPath = FolderText(folder + "WK");
  AnalysisPath = FolderText(folder + "AN");
  MakeFolder(WorkPath);
  MakeFolder(AnalysisPath);
}

void Run(const std::vector<std::string>& decks, const std::string& folder) {
  TakeFolder(folder);
  ModelFile = "deck.inp";
  for (const std::string& deck : decks) {
    ReplaceBytes(DeckPath(), ReadBytes(deck), Flush::No);
    Measure(deck);
  }
  if (!decks.empty()) return;
  for (const bench::Frame& frame : bench::BenchFrames()) {
    ReplaceTextFile(DeckPath(), bench::DeckText(frame), Flush::No);
    Measure(frame.name);
  }
}

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  using namespace zorlan;
  std::string folder = PathText(std::filesystem::temp_directory_path() / "zorlan-gaps-XXXXXX");
  if (::mkdtemp(folder.data()) == nullptr) return 1;
  int status = 0;
  try {
    Run({argv + 1, argv + argc}, FolderText(folder));
  } catch (const std::exception& fault) {
    fmt::print(stderr, "{}\n", fault.what());
    status = 1;
  }
  std::filesystem::remove_all(folder);
  return status;
}

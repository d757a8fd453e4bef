// run_frames BATCH DIR: times `BATCH analyze` as a whole process on the decks that make_frames left in DIR,
// prints the table beside what other programs need for the same frames, and compares the displacements with
// an independent solution.
#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/number.h"
#include "base/text_file.h"
#include "frames.h"

namespace {

using namespace zorlan;

/// Seconds that others took for the same frames on two cores of a 2023 server processor, and the least that
/// such a machine needs to eliminate the band and write the files; 0 where it isn't known.
struct Others {
  const char* deck;
  double openSees, calculiX, mystran, z88, limit;
};
constexpr Others kOthers[] = {
    {"f0100-01", 0.0064, 0.014, 0.057, 0, 0.0003},
    {"f0100-20", 0.017, 0.096, 0.25, 0.26, 0.003},
    {"f0500-01", 0.0134, 0.037, 0.189, 0, 0.0018},
    {"f0500-20", 0.063, 0.426, 0.75, 0.41, 0.016},
    {"f1000-01", 0.0236, 0.067, 0.365, 0, 0.005},
    {"f1000-20", 0.123, 0.83, 1.42, 0.73, 0.035},
    {"f2500-01", 0.060, 0.160, 1.07, 0, 0.026},
    {"f2500-20", 0.302, 2.13, 4.0, 2.29, 0.104},
    {"f5000-01", 0.065, 0.187, 1.39, 0, 0.016},
    {"f5000-20", 0.368, 2.69, 7.3, 1.44, 0.107},
    {"shuffled1000-20", 0, 0, 0, 0, 0},
    {"grid2500-20", 0, 0, 0, 0, 0},
    {"floors20-20", 0, 0, 0, 0, 0},
};

struct Measure {
  double seconds = 0;
  double peakMiB = 0;
};

Measure RunOnce(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
    ::posix_spawn_file_actions_addopen(&files, stream, "/dev/null", O_WRONLY, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (::posix_spawn(&child, arguments[0], &files, nullptr, arguments.data(), ::environ) != 0)
    throw std::runtime_error(words[0] + " can't be started");
  int status = 0;
  rusage usage{};
  ::wait4(child, &status, 0, &usage);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  ::posix_spawn_file_actions_destroy(&files);
  if (status != 0) throw std::runtime_error(fmt::format("{} {} {} failed", words[0], words[1], words.back()));
  return {seconds.count(), double(usage.ru_maxrss) / 1024};
}

/// The best of several runs: five at least, and as many as fit into a second.
Measure Best(const std::vector<std::string>& words) {
  Measure best = RunOnce(words);  // also warms the caches
  double spent = best.seconds;
  for (int run = 0; run < 5 || (spent < 1 && run < 200); ++run) {
    const Measure measure = RunOnce(words);
    best.seconds = std::min(best.seconds, measure.seconds);
    best.peakMiB = std::max(best.peakMiB, measure.peakMiB);
    spent += measure.seconds;
  }
  return best;
}

std::string Cell(double value) {
  return value > 0 ? fmt::format("{:>9.4f}", value) : fmt::format("{:>9}", "-");
}

/// Greatest difference between the stored displacements and the independent ones, relative to the greatest
/// translation or rotation of the same case.
double Difference(const bench::Frame& frame, const std::string& folder) {
  const std::vector<double> expected = bench::IndependentDisplacements(frame);
  const std::string text = ReadBytes(folder + frame.name + ".ANA/FT021");
  std::vector<double> stored;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    stored.push_back(ReadReal(std::string_view(text).substr(at, end - at)));
    at = end + 1;
  }
  if (stored.size() != expected.size()) throw std::runtime_error(frame.name + ": FT021 has another length");
  double worst = 0;
  const std::size_t perCase = frame.nodes.size() * 3;
  for (std::size_t at = 0; at < expected.size(); at += perCase) {
    std::array<double, 3> greatest{}, off{};
    for (std::size_t k = 0; k < perCase; ++k) {
      const std::size_t kind = frame.kind == 3 ? std::size_t(k % 3 != 0) : std::size_t(k % 3 == 2);
      greatest[kind] = std::max(greatest[kind], std::abs(expected[at + k]));
      off[kind] = std::max(off[kind], std::abs(expected[at + k] - stored[at + k]));
    }
    for (std::size_t kind = 0; kind < 2; ++kind)
      if (greatest[kind] > 0) worst = std::max(worst, off[kind] / greatest[kind]);
  }
  return worst;
}

/// One command over a hundred copies of a deck.
Measure HundredDecks(const std::string& batch, const std::string& folder, const std::string& deck) {
  const std::string many = FolderText(folder + "hundred-" + deck);
  MakeFolder(many);
  std::vector<std::string> words = {batch, "analyze"};
  for (int copy = 1; copy <= 100; ++copy) {
    words.push_back(fmt::format("{}{:03}.inp", many, copy));
    CopyFileOver(folder + deck + ".inp", words.back());
  }
  return Best(words);
}

void Run(const std::string& batch, const std::string& folder) {
  fmt::print("{:<16}{:>9}{:>9}{:>9}{:>9}{:>9}{:>9}{:>9}{:>9}{:>12}\n", "deck", "ours", "OpenSees", "CalculiX",
             "MYSTRAN", "Z88", "limit", "ratio", "MiB", "difference");
  // The children count the memory of the process that starts them: everything is timed before anything is
  // solved here.
  std::vector<Measure> measures;
  for (const Others& others : kOthers)
    measures.push_back(Best({batch, "analyze", folder + others.deck + ".inp"}));
  const Measure hundred1 = HundredDecks(batch, folder, "f0100-01");
  const Measure hundred20 = HundredDecks(batch, folder, "f0100-20");

  const std::vector<bench::Frame> frames = bench::BenchFrames();
  double f1000 = 0, f2500 = 0;
  for (std::size_t k = 0; k < std::size(kOthers); ++k) {
    const Others& others = kOthers[k];
    const Measure& ours = measures[k];
    const auto frame = std::ranges::find(frames, others.deck, &bench::Frame::name);
    const double difference = frame == frames.end() ? NAN : Difference(*frame, folder);
    fmt::print("{:<16}{}{}{}{}{}{}{}{:>9.1f}{:>12.1e}\n", others.deck, Cell(ours.seconds),
               Cell(others.openSees), Cell(others.calculiX), Cell(others.mystran), Cell(others.z88),
               Cell(others.limit),
               others.openSees > 0 ? fmt::format("{:>9.2f}", ours.seconds / others.openSees)
                                   : fmt::format("{:>9}", "-"),
               ours.peakMiB, difference);
    if (others.deck == std::string_view("f1000-20")) f1000 = ours.seconds;
    if (others.deck == std::string_view("f2500-20")) f2500 = ours.seconds;
  }
  fmt::print("growth in nodes from f1000 to f2500, 20 cases: exponent {:.2f}\n",
             std::log(f2500 / f1000) / std::log(2500.0 / 1024));
  fmt::print("a hundred f0100 decks in one command: {:.3f} s with 1 case, {:.3f} s with 20 cases\n",
             hundred1.seconds, hundred20.seconds);
  fmt::print("seconds, whole process, best of several; ratio: ours to the fastest of the others\n");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    fmt::print(stderr, "usage: run_frames BATCH DIR\n");
    return 2;
  }
  try {
    Run(argv[1], zorlan::FolderText(argv[2]));
  } catch (const std::exception& fault) {
    fmt::print(stderr, "{}\n", fault.what());
    return 1;
  }
}

// make_frames DIR: writes the decks of the bench.
#include <fmt/format.h>

#include <cstdio>
#include <exception>

#include "base/text_file.h"
#include "frames.h"

int main(int argc, char** argv) {
  using namespace zorlan;
  if (argc != 2) {
    fmt::print(stderr, "usage: make_frames DIR\n");
    return 2;
  }
  try {
    const std::string folder = FolderText(argv[1]);
    MakeFolder(folder);
    for (const bench::Frame& frame : bench::BenchFrames()) {
      ReplaceTextFile(folder + frame.name + ".inp", bench::DeckText(frame), Flush::No);
      fmt::print("{}{}.inp: {} nodes, {} elements, {} cases, half band {}\n", folder, frame.name,
                 frame.nodes.size(), frame.elements.size(), frame.cases, bench::HalfBand(frame));
    }
  } catch (const std::exception& fault) {
    fmt::print(stderr, "{}\n", fault.what());
    return 1;
  }
}

#include "companion/run.h"

#include <array>
#include <cstdio>
#include <new>
#include <string>

#include "base/fault.h"
#include "base/text.h"
#include "base/text_file.h"
#include "companion/output.h"

namespace zorlan::companion {
namespace {

constexpr const char* kControlFile = "ANAZOR.CTL";

struct Control {
  std::string input, output, error;  // paths
};

Control ReadControl() {
  const std::string text = ReadTextFile(kControlFile);
  std::string_view rest = text;
  std::array<std::string, 4> lines;
  for (std::string& line : lines) {
    line = NoSpc(TakeLine(rest).value_or(std::string_view()));
    if (line.empty()) throw FileFault(kControlFile, "制御ファイルは４行必要です");
  }
  const std::string folder = FolderText(lines[3]);
  return {folder + lines[0], folder + lines[1], folder + lines[2]};
}

/// To standard error, and to the error file once its name is known.
void Report(const std::string& errorFile, const std::string& what) {
  std::fprintf(stderr, "anaZorlan: %s\n", what.c_str());
  if (errorFile.empty()) return;
  try {
    ReplaceTextFile(errorFile, what + "\r\n", Flush::No);
  } catch (const std::exception& fault) {  // what could be said is on standard error already
    std::fprintf(stderr, "anaZorlan: %s\n", fault.what());
  }
}

std::string InstabilityText(const Unstable& unstable) {
  constexpr const char* kDirections[] = {"X 方向", "Y 方向", "回転"};
  return "不安定構造\r\nNODE =" + std::to_string(unstable.node + 1) + "     " +
         kDirections[unstable.direction] + "  剛性　ありません";
}

ExitCode SolveDeck(const Control& control) {
  const std::string bytes = ReadBytes(control.input);
  Deck deck;
  try {
    deck = ReadDeck(bytes);
  } catch (const Fault& fault) {
    throw FileFault(control.input, fault.what());
  }
  Unstable unstable;
  const std::optional<Solution> solution = Solve(deck, unstable);
  if (!solution) {
    Report(control.error, InstabilityText(unstable));
    return kUnstable;
  }
  ReplaceTextFile(control.output, OutputText(deck, *solution), Flush::No);
  return kSolved;
}

}  // namespace

ExitCode Run() {
  std::string errorFile;
  try {
    const Control control = ReadControl();
    errorFile = control.error;
    RemoveFile(control.output);
    RemoveFile(control.error);
    return SolveDeck(control);
  } catch (const std::bad_alloc&) {
    Report(errorFile, "メモリが不足しています");
  } catch (const std::exception& fault) {
    Report(errorFile, fault.what());
  }
  return kRefused;
}

}  // namespace zorlan::companion

// Runs the built zorlan-batch as a person would, in a folder of the test's own.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "temporary_folder.h"

namespace zorlan {

/// How a run ended and what it printed.
struct BatchResult {
  int exitCode = -1;  // -1: a signal ended it
  int signal = 0;
  std::string out, err;
};

/// A project folder, and a folder for temporary files in which nothing may stay behind.
class BatchProgram {
 public:
  BatchProgram();

  /// The project folder, with a closing separator. The program runs in it.
  const std::string& Folder() const { return folder_; }
  /// TMPDIR of the program.
  const std::string& Temporary() const { return temporary_; }

  /// Writes a deck, UTF-8 with LF here, into the project folder as the program has it; answers its name.
  std::string Deck(const std::string& name, const std::string& text) const;
  void File(const std::string& name, const std::string& bytes) const;
  bool Exists(const std::string& name) const;
  std::string Bytes(const std::string& name) const;

  BatchResult Run(const std::vector<std::string>& arguments) const;
  /// Through a shell in the project folder; $ZORLAN is the program.
  BatchResult Shell(const std::string& script) const;

  /// On a terminal of its own; all that it shows there is in `out`.
  BatchResult RunOnTerminal(const std::vector<std::string>& arguments) const;

  /// A run that is under way.
  pid_t Start(const std::vector<std::string>& arguments) const { return Spawn(Words(arguments), ++runs_); }
  /// Waits for a run that Start answered last.
  BatchResult Wait(pid_t process) const;

  /// Names of what lies in a folder, sorted.
  static std::vector<std::string> Names(const std::string& folder);

 private:
  struct Streams {
    std::string in, out, err;  // paths
  };
  std::vector<std::string> Words(const std::vector<std::string>& arguments) const;
  pid_t Spawn(std::vector<std::string> words, int run) const;
  pid_t Spawn(std::vector<std::string> words, const Streams& streams) const;
  BatchResult Collect(pid_t process, int run) const;
  std::string OutputFile(const char* stream, int run) const;

  TemporaryFolder root_;
  std::string folder_, temporary_, output_, home_;
  mutable int runs_ = 0;
};

/// A cantilever of 4 m with a load at its end: the smallest deck that has everything.
std::string CantileverDeck();

/// Three members in a row, pinned where they fall: rounding hides the mechanism from the solver, so that
/// there are results, and they can't be trusted.
std::string HiddenMechanismDeck();

/// Nodes in a row, 1 m apart, fixed at the first one, loaded at the last, in so many cases.
std::string LongCantileverDeck(int nodes, int cases);

}  // namespace zorlan

// The command line of zorlan-batch.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace zorlan::batch {

/// Exit codes of the program.
enum ExitCode : int { kDone = 0, kFailed = 1, kUsage = 2 };

struct Request {
  std::string command;
  std::vector<std::string> decks;
  std::string documents;  // the documents folder; empty: the user's
};

/// What is asked for, or, when the words don't make a command or ask for help alone, the exit code: then all
/// is said already.
std::variant<Request, ExitCode> ParseCommandLine(int argc, char** argv);

}  // namespace zorlan::batch

// The command line of zorlan-batch.
#pragma once

#include <variant>

#include "commands.h"

namespace zorlan::batch {

/// What is asked for, or, when the words don't make a command or ask for help alone, the exit code: then all
/// is said already.
std::variant<Request, ExitCode> ParseCommandLine(int argc, char** argv);

}  // namespace zorlan::batch

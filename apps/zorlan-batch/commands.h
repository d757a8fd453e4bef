// The commands of zorlan-batch, each on one deck.
#pragma once

#include "command_line.h"

namespace zorlan::batch {

/// Runs the command on every deck in turn; a failure of one doesn't stop the next. Answers the gravest exit
/// code.
ExitCode RunCommand(const Request& request);

}  // namespace zorlan::batch

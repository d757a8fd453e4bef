// How the batch program stands in for a user: messages on standard error, safe answers, progress on a
// terminal alone, and an orderly end when it is interrupted.
#pragma once

#include <string>
#include <string_view>

namespace zorlan::batch {

/// Thrown out of the host's functions once a signal asked the program to end: no handler of faults takes it,
/// so everything half done is undone on the way to main().
struct Interrupted {
  int signal = 0;
};

/// Installs the host's table and the signal handlers. A second signal ends the program at once.
void InstallBatchHost();

/// Throws Interrupted if a signal has arrived.
void ThrowIfInterrupted();

/// Ends this process by the signal, as who sent it expects.
[[noreturn]] void DieBySignal(int signal);

/// A line of standard error, in front of which a line of progress is wiped.
void PrintError(std::string_view line);

/// Wipes the line of progress, if one stands on the terminal: before anything else is written there.
void WipeProgress();

}  // namespace zorlan::batch

// What the user sees of a command that takes time: the hourglass at once, what is done and how far it is
// after a second, and a button to stop it after three. The windows go on painting meanwhile.
#pragma once

#include <string>
#include <string_view>

#include "base/host.h"

namespace zorlan {

/// Thrown out of the host's progress when the user stops a command. No handler of faults takes it, so
/// everything half done is undone on the way to the command.
struct UserStop {};

/// The hourglass; calls nest.
void SetBusy(bool busy);

/// The hourglass while one lives.
class BusyWhile {
 public:
  BusyWhile() { SetBusy(true); }
  ~BusyWhile() { SetBusy(false); }
  BusyWhile(const BusyWhile&) = delete;
  BusyWhile& operator=(const BusyWhile&) = delete;
};

/// Shows how far a command is, and lets the windows paint. Throws UserStop.
void ShowProgress(std::string_view what, double share);

/// Starts a program in a folder and waits for it; the windows paint, and the user may stop the wait, which
/// ends the program.
ProgramEnd RunAndWait(const std::string& program, const std::string& folder);

/// Whether a command runs: what would begin another must wait.
bool IsBusy();

/// Takes away whatever a command that broke off has left on the screen.
void EndBusy();

}  // namespace zorlan

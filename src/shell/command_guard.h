// How a command of the menus ends when something unexpected happens.
#pragma once

#include <exception>
#include <string_view>

#include "base/host.h"
#include "shell/windows.h"

namespace zorlan {

/// Runs a command: what it throws is reported under the command's name and ends it. The windows then follow
/// the state that it left.
template <class Body>
void RunCommand(std::string_view name, Body body) {
  try {
    body();
  } catch (const std::exception& fault) {
    ReportError(name, fault.what());
  }
  TheWindows().refresh();
}

}  // namespace zorlan

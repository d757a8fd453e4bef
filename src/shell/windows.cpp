#include "shell/windows.h"

#include <utility>

namespace zorlan {
namespace {

ShellWindows& Installed() {
  static ShellWindows windows;
  return windows;
}

}  // namespace

void InstallWindows(ShellWindows windows) {
  Installed() = std::move(windows);
}

const ShellWindows& TheWindows() {
  return Installed();
}

}  // namespace zorlan

#include "shell/windows.h"

#include <utility>

#include "shell/project_copies.h"
#include "shell/project_dialog.h"

namespace zorlan {
namespace {

template <class Result, class... Arguments>
void Default(std::function<Result(Arguments...)>& entry, Result result) {
  if (!entry) entry = [result](Arguments...) { return result; };
}
template <class... Arguments>
void Default(std::function<void(Arguments...)>& entry) {
  if (!entry) entry = [](Arguments...) {};
}

ShellWindows WithDefaults(ShellWindows windows) {
  Default(windows.openForms, std::vector<std::string>());
  Default(windows.closeForm, true);
  Default(windows.formsChanged, false);
  Default(windows.unloadForms);
  Default(windows.projectDialog);
  Default(windows.folderDialog);
  Default(windows.nameDialog);
  Default(windows.openInputMenu);
  Default(windows.openModelFigure);
  Default(windows.resetCascade);
  Default(windows.refresh);
  Default(windows.dropFigureData);
  Default(windows.drawTyped);
  Default(windows.takeNodes, false);
  Default(windows.takeElement, false);
  Default(windows.showRow, false);
  Default(windows.followControl);
  Default(windows.addNum, std::string("Abote"));
  Default(windows.sectionEntry, false);
  Default(windows.showText);
  Default(windows.hasPdfViewer, false);
  Default(windows.openPdf);
  return windows;
}

ShellWindows& Installed() {
  static ShellWindows windows = WithDefaults({});
  return windows;
}

}  // namespace

void InstallWindows(ShellWindows windows) {
  Installed() = WithDefaults(std::move(windows));
}

const ShellWindows& TheWindows() {
  return Installed();
}

}  // namespace zorlan

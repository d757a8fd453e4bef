// What the shell asks of the windows around it: a table of functions that the desktop fills and a test
// scripts. Boxes and questions go through base/host.h.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

struct ProjectDialog;
struct FolderDialog;
struct NameDialog;

/// The two windows for texts: `frmKakuninText` and `frmPrnText`.
enum class TextWindow { Reader, Preview };

struct ShellWindows {
  /// Names of the open forms, such as "InpNODE", in the order of their opening; the main window isn't one.
  std::function<std::vector<std::string>()> openForms;
  /// `CloseForm` of a form: commits and closes. False: a row fails, and the form stays, the row's message
  /// shown.
  std::function<bool(const std::string& form)> closeForm;
  /// Unloads every window but the main one, asking nothing.
  std::function<void()> unloadForms;

  /// The modal dialogs. They work on the value that they are given, through the routines beside its type, and
  /// end when one of these says so. The shell judges by the value.
  std::function<void(ProjectDialog&)> projectDialog;
  std::function<void(FolderDialog&)> folderDialog;
  std::function<void(NameDialog&)> nameDialog;

  std::function<void()> openInputMenu;    // `frmInputMenu`
  std::function<void()> openModelFigure;  // the figure of the model in hand
  std::function<void()> resetCascade;     // first places of child windows as at start
  /// Caption, menus and status bar are to follow the state. Called whenever it may have changed.
  std::function<void()> refresh;
  /// The figures' data are stale: after an opening and after an analysis they are read anew.
  std::function<void()> dropFigureData;

  /// Shows the text of a PrintFlag: the file at `path`, which may be missing (an empty text then).
  std::function<void(TextWindow window, int printFlag, const std::string& path)> showText;
  /// Whether a program is there that opens PDF files, and its start on a file.
  std::function<bool()> hasPdfViewer;
  std::function<void(const std::string& path)> openPdf;
};

/// Replaces the table in force; entries left empty do nothing, answer no form, true for closeForm, false.
void InstallWindows(ShellWindows windows);
const ShellWindows& TheWindows();

}  // namespace zorlan

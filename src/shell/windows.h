// What the shell asks of the windows around it: a table of functions that the desktop fills and a test
// scripts. Boxes and questions go through base/host.h.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/table_file.h"

namespace zorlan {

struct ProjectDialog;
struct FolderDialog;
struct NameDialog;

/// A table as its form shows it now, perhaps not committed yet: rows as its file would hold them.
struct TypedTable {
  std::string key;
  std::vector<TableRow> rows;
};

/// The two windows for texts: `frmKakuninText` and `frmPrnText`.
enum class TextWindow { Reader, Preview };

/// Entries left alone do nothing and answer no form, true for closeForm, "Abote" for addNum, else false.
struct ShellWindows {
  /// Names of the open forms, such as "InpNODE", in the order of their opening; the main window isn't one.
  std::function<std::vector<std::string>()> openForms = [] { return std::vector<std::string>(); };
  /// `CloseForm` of a form: commits and closes. False: a row fails, and the form stays, the row's message
  /// shown.
  std::function<bool(const std::string& form)> closeForm = [](const std::string&) { return true; };
  /// Whether an open table form holds what it hasn't committed.
  std::function<bool()> formsChanged = [] { return false; };
  /// Unloads every window but the main one, asking nothing.
  std::function<void()> unloadForms = [] {};

  /// The modal dialogs. They work on the value that they are given, through the routines beside its type, and
  /// end when one of these says so. The shell judges by the value.
  std::function<void(ProjectDialog&)> projectDialog = [](ProjectDialog&) {};
  std::function<void(FolderDialog&)> folderDialog = [](FolderDialog&) {};
  std::function<void(NameDialog&)> nameDialog = [](NameDialog&) {};

  std::function<void()> openInputMenu = [] {};    // `frmInputMenu`
  std::function<void()> openModelFigure = [] {};  // the figure of the model in hand
  std::function<void()> resetCascade = [] {};     // first places of child windows as at start
  /// Caption, menus and status bar are to follow the state. Called whenever it may have changed.
  std::function<void()> refresh = [] {};
  /// The figures' data are stale: after an opening and after an analysis they are read anew.
  std::function<void()> dropFigureData = [] {};

  /// The figure of the model in hand with these tables as they are typed: opened if it isn't there, drawn
  /// anew if it is.
  std::function<void(const std::vector<TypedTable>& typed)> drawTyped = [](const std::vector<TypedTable>&) {};
  /// Marks the node ("NODE") or member ("ELEM") of this number in the figure of the model in hand, if it is
  /// open and shows it; else nothing is marked there.
  std::function<void(std::string_view key, int number)> markInFigure = [](std::string_view, int) {};
  /// Nodes were picked in the figure, by their numbers: the form in front takes them, InpNODE by going to
  /// their row, InpELEM as ends of elements. False: no such form is there.
  std::function<bool(const std::vector<int>& nodes)> takeNodes = [](const std::vector<int>&) {
    return false;
  };
  /// A member was picked: the form in front takes its number, a form of loads into the current row, InpELEM
  /// by going to its row. False: no such form is there.
  std::function<bool(int element)> takeElement = [](int) { return false; };
  /// Opens the form of a table, or brings it to the front, and goes to the row of this number in its key
  /// column on a page, or on the first page that has it (0). False: no row has it.
  std::function<bool(const std::string& key, int page, int number)> showRow = [](const std::string&, int,
                                                                                 int) { return false; };
  /// The control or unit data have changed: open table forms follow the header of InpModel.
  std::function<void()> followControl = [] {};

  /// `AddNum`: asks for a number with the mode word "Add" or without it. Answers the number's text, or
  /// "Abote".
  std::function<std::string(std::string_view mode)> addNum = [](std::string_view) {
    return std::string("Abote");
  };
  /// The section dialog on a row of InpSECT: its eleven cells from column 1 on, those in use. False: nothing
  /// was chosen, and the cells are as they were.
  std::function<bool(std::vector<std::string>& cells)> sectionEntry = [](std::vector<std::string>&) {
    return false;
  };

  /// Shows the text of a PrintFlag: the file at `path`, which may be missing (an empty text then).
  std::function<void(TextWindow window, int printFlag, const std::string& path)> showText =
      [](TextWindow, int, const std::string&) {};
  /// Whether a program is there that opens PDF files, and its start on a file.
  std::function<bool()> hasPdfViewer = [] { return false; };
  std::function<void(const std::string& path)> openPdf = [](const std::string&) {};
};

/// Replaces the table in force.
void InstallWindows(ShellWindows windows);
const ShellWindows& TheWindows();

}  // namespace zorlan

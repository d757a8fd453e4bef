// Commands on whole projects: backup, restore, delete, with the folder dialog and the name dialog.
#pragma once

#include <string>
#include <string_view>

namespace zorlan {

/// The heading says what the folder is for.
struct FolderDialog {
  std::string heading;
  bool project = false;  // only a project will do
  std::string folder;    // at first where to begin; then what was chosen
  bool accepted = false;
};
/// The dialog's OK on a folder. False: told why not, and the dialog stays.
bool AcceptFolder(FolderDialog& dialog);

struct NameDialog {
  std::string command;  // in the words of the menu
  std::string source;   // the project to be copied
  std::string folder;   // the target folder, shown
  std::string name;     // the new name, without ".zor"
  bool accepted = false;
};
/// The dialog's OK: makes the project `name` in the target folder from the source's files; those of its
/// sub-folders stay behind. A project that is already there is replaced after a question. False: the dialog
/// stays. Reports errors itself.
bool AcceptName(NameDialog& dialog);

// The commands.
void BackUpProject();
void RestoreProject();
void DeleteProject();

}  // namespace zorlan

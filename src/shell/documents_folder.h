// Where the program's own tree of folders and its install folder stand, and its version.
#pragma once

#include <string>
#include <string_view>

namespace zorlan {

/// The folder of a user's documents: XDG_DOCUMENTS_DIR of the user's `user-dirs.dirs`, else
/// `$HOME/Documents`. With a closing separator. Nothing is created.
std::string DocumentsFolder();

/// XDG_DOCUMENTS_DIR of the text of a `user-dirs.dirs`, "$HOME" replaced; empty when the text doesn't set it
/// to an absolute path.
std::string DocumentsFolderFrom(std::string_view userDirs, std::string_view home);

/// The program's tree under a documents folder, with a closing separator.
std::string ProgramTree(std::string_view documents);

/// The install folder of this program: "share/zorlan" beside the folder of the running program, else the
/// folder that the build names.
std::string InstallFolder(const std::string& sourceData);
/// The same of the program at a path.
std::string InstallFolderOf(const std::string& program, const std::string& sourceData);

/// "マニュアル.pdf" of the install folder.
std::string ManualPath(const std::string& install);

/// "Version 6.00 [Rev.0]"
std::string VersionText();

}  // namespace zorlan

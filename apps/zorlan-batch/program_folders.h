// Where the program, its tree and its section tables lie.
#pragma once

#include <string>

namespace zorlan::batch {

/// Sets ProgramFolder, AppPath, and the folders of the steel and timber tables: those of the program's tree
/// under `documents` (empty: the user's documents folder), or, where the tree lacks one, the seed copies that
/// were installed with the program. Nothing is created.
void FindProgramFolders(const std::string& documents);

}  // namespace zorlan::batch

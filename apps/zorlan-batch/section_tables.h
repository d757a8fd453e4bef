// Where the section tables of a run lie.
#pragma once

#include <string>

namespace zorlan::batch {

/// Sets AppPath and the folders of the steel and timber tables: those of the program's tree under `documents`
/// (empty: the user's documents folder), or, where the tree lacks one, the seed copies that were installed
/// with the program. Nothing is created.
void FindSectionTables(const std::string& documents);

}  // namespace zorlan::batch

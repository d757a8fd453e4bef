#include "program_folders.h"

#include <filesystem>
#include <system_error>

#include "analysis/external_road.h"
#include "base/text_file.h"
#include "shell/documents_folder.h"
#include "shell/start_up.h"

namespace zorlan::batch {

void FindProgramFolders(const std::string& documents) {
  std::error_code ignored;  // without it the source tree is left
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  ProgramFolder = FolderText(PathText(program.parent_path()));
  SetTree(documents);
  UseSeedTables(InstallFolder(ZORLAN_SOURCE_DATA));
}

}  // namespace zorlan::batch

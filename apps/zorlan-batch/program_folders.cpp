#include "program_folders.h"

#include <filesystem>
#include <system_error>

#include "analysis/external_road.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "shell/documents_folder.h"

namespace zorlan::batch {
namespace {

std::string TableFolder(const std::string& name) {
  const std::string folder = FolderText(AppPath + name);
  return FolderExists(folder) ? folder : FolderText(InstallFolder(ZORLAN_SOURCE_DATA) + name);
}

}  // namespace

void FindProgramFolders(const std::string& documents) {
  std::error_code ignored;  // without it the source tree is left
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  ProgramFolder = FolderText(PathText(program.parent_path()));
  AppPath = ProgramTree(documents.empty() ? DocumentsFolder() : documents);
  DefaultDataPath = FolderText(AppPath + "DATA");
  SteelTableFolder = TableFolder("鋼材TABLE");
  TimberTableFolder = TableFolder("木材TABLE");
}

}  // namespace zorlan::batch

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

/// The folder of the seed copies: beside an installed program, else in the source tree.
std::string SeedFolder() {
  const std::filesystem::path installed =
      NativePath(ProgramFolder).parent_path().parent_path() / "share" / "zorlan";
  return FolderText(FolderExists(PathText(installed)) ? PathText(installed) : ZORLAN_SOURCE_DATA);
}

std::string TableFolder(const std::string& name) {
  const std::string folder = FolderText(AppPath + name);
  return FolderExists(folder) ? folder : FolderText(SeedFolder() + name);
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

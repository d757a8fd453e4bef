#include "private_folder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "base/fault.h"
#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan::batch {

PrivateFolder::PrivateFolder() {
  const char* const temporary = std::getenv("TMPDIR");
  path_ = FolderText(temporary == nullptr || *temporary == '\0' ? "/tmp" : temporary) + "zorlan-XXXXXX";
  if (::mkdtemp(path_.data()) == nullptr) throw FileFault(path_, std::strerror(errno));
  path_ = FolderText(PathText(std::filesystem::absolute(NativePath(path_))));
  WorkPath = FolderText(path_ + "WK");
  AnalysisPath = FolderText(path_ + "AN");
  MakeFolder(WorkPath);
  MakeFolder(AnalysisPath);
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;  // the job is done or has failed for a better reason; the system clears the rest
  std::filesystem::remove_all(NativePath(path_), ignored);
}

}  // namespace zorlan::batch

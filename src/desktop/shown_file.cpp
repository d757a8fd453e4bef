#include "desktop/shown_file.h"

#include <sys/stat.h>

namespace zorlan {

ShownFile::State ShownFile::StateOf(const std::string& path) {
  struct stat file {};
  if (path.empty() || ::stat(path.c_str(), &file) != 0) return {};
  return {file.st_ino, file.st_size, file.st_mtim.tv_sec, file.st_mtim.tv_nsec};
}

void ShownFile::Look(const std::string& path) {
  path_ = path;
  state_ = StateOf(path);
}

bool ShownFile::Changed() const {
  return StateOf(path_) != state_;
}

}  // namespace zorlan

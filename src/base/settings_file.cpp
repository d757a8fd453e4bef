#include "base/settings_file.h"

#include <filesystem>
#include <system_error>

#include "base/text_file.h"

namespace zorlan {

std::optional<std::string> ReadSettingsFile(const std::string& path, std::size_t limit) {
  if (!FileExists(path)) return std::nullopt;
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(NativePath(path), error);
  if (error || size > limit) return std::nullopt;
  return ReadTextFileIfAny(path);
}

}  // namespace zorlan

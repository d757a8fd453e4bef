#include "shell/documents_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/text.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

std::string HomeFolder() {
  std::string home = Environment("HOME");
  if (!home.empty()) return home;
  const passwd* const user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

/// What a shell makes of a text in double quotes, as far as these files use it: a backslash protects the next
/// character, $HOME at the beginning is the home folder.
std::string Unquoted(std::string_view text, std::string_view home) {
  constexpr std::string_view kHome = "$HOME";
  std::string plain;
  if (text.substr(0, kHome.size()) == kHome) {
    plain = home;
    text.remove_prefix(kHome.size());
  }
  for (std::size_t i = 0; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) ++i;
    plain += text[i];
  }
  return plain;
}

}  // namespace

std::string DocumentsFolderFrom(std::string_view userDirs, std::string_view home) {
  constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=\"";
  std::string folder;
  while (const std::optional<std::string_view> whole = TakeLine(userDirs)) {
    const std::string_view line = NoSpc(*whole);
    if (line.substr(0, kKey.size()) == kKey) folder = Unquoted(line.substr(kKey.size()), home);
  }
  return folder.empty() || folder[0] != '/' ? std::string() : FolderText(folder);
}

std::string DocumentsFolder() {
  const std::string home = HomeFolder();
  std::string config = Environment("XDG_CONFIG_HOME");
  if (config.empty()) config = FolderText(home) + ".config";
  const std::string userDirs = FolderText(config) + "user-dirs.dirs";
  std::string folder;
  if (FileExists(userDirs)) folder = DocumentsFolderFrom(ReadBytes(userDirs), home);
  return folder.empty() ? FolderText(home) + FolderText("Documents") : folder;
}

std::string ProgramTree(std::string_view documents) {
  return FolderText(FolderText(documents) + "Quellwerk") + FolderText("ZORLAN_V6");
}

std::string InstallFolder(const std::string& sourceData) {
  std::error_code ignored;  // without it the build's folder is left
  return InstallFolderOf(PathText(std::filesystem::read_symlink("/proc/self/exe", ignored)), sourceData);
}

std::string InstallFolderOf(const std::string& program, const std::string& sourceData) {
  const std::filesystem::path folder = NativePath(program).parent_path().parent_path();
  const std::string installed = FolderText(PathText(folder / "share" / "zorlan"));
  return FolderExists(installed) ? installed : FolderText(sourceData);
}

std::string ManualPath(const std::string& install) {
  return FolderText(install) + "マニュアル.pdf";
}

std::string VersionText() {
  std::string minor = std::to_string(ZORLAN_VERSION_MINOR);
  if (minor.size() < 2) minor.insert(0, "0");
  return "Version " + std::to_string(ZORLAN_VERSION_MAJOR) + "." + minor + " [Rev." +
         std::to_string(ZORLAN_VERSION_PATCH) + "]";
}

}  // namespace zorlan

#include "shell/folders.h"

#include <deque>
#include <filesystem>
#include <system_error>

#include "base/fault.h"
#include "base/text.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnfinished = ".~new";

[[noreturn]] void Fail(const std::string& path, const std::error_code& error) {
  throw FileFault(path, FileReason(error.value()));
}

}  // namespace

bool CanReadFile(const std::string& path) {
  if (!FileExists(path)) return false;
  try {
    ReadBytes(path);
    return true;
  } catch (const Fault&) {
    return false;
  }
}

std::string WithoutSeparator(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

std::string LastName(std::string_view path) {
  return PathText(NativePath(WithoutSeparator(path)).filename());
}

void CopyFilesOf(const std::string& from, const std::string& to) {
  MakeFolder(to);
  std::error_code ignored;  // what can't be looked at isn't a file to copy
  for (const fs::directory_entry& entry : EntriesOf(from))
    if (entry.is_regular_file(ignored))
      CopyFileOver(PathText(entry.path()), FolderText(to) + PathText(entry.path().filename()));
}

void CopyTree(const std::string& from, const std::string& to) {
  if (!FolderExists(from)) return;
  std::deque<std::string> folders = {""};  // still to visit, as they lie below the top
  while (!folders.empty()) {
    const std::string folder = folders.front();
    folders.pop_front();
    CopyFilesOf(FolderText(from) + folder, FolderText(to) + folder);
    std::error_code ignored;  // as above
    for (const fs::directory_entry& entry : EntriesOf(FolderText(from) + folder))
      if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
        folders.push_back(folder + FolderText(PathText(entry.path().filename())));
  }
}

std::string UnfinishedFolder(const std::string& folder) {
  return FolderText(WithoutSeparator(folder).append(kUnfinished));
}

bool IsUnfinishedFolder(std::string_view name) {
  return name.ends_with(kUnfinished);
}

void FinishFolder(const std::string& folder) {
  DeleteTree(folder, /*removeTop=*/true);
  RenameFile(WithoutSeparator(UnfinishedFolder(folder)), WithoutSeparator(folder));
}

void DeleteTree(const std::string& path, bool removeTop) {
  const std::string top = WithoutSeparator(path);
  std::error_code error;
  if (removeTop) {
    fs::remove_all(NativePath(top), error);
    if (error) Fail(top, error);
    return;
  }
  const fs::file_status status = fs::symlink_status(NativePath(top), error);
  if (fs::is_symlink(status) || !fs::exists(status)) return;
  for (const fs::directory_entry& entry : EntriesOf(top)) {
    fs::remove_all(entry.path(), error);
    if (error) Fail(PathText(entry.path()), error);
  }
}

bool LiesIn(const std::string& path, const std::string& folder) {
  std::error_code error;
  const fs::path inner = fs::weakly_canonical(NativePath(WithoutSeparator(path)), error);
  const fs::path outer = fs::weakly_canonical(NativePath(WithoutSeparator(folder)), error);
  if (error || outer.empty()) return false;
  auto at = inner.begin();
  for (const fs::path& part : outer)
    if (at == inner.end() || *at++ != part) return false;
  return true;
}

}  // namespace zorlan

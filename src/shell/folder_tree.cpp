#include "shell/folder_tree.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/fault.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "shell/folders.h"

namespace zorlan {
namespace {

namespace fs = std::filesystem;

/// Where media are mounted for the user; each mount right below is a drive.
constexpr std::string_view kMediaFolders[] = {"/media/", "/run/media/", "/mnt/"};

/// What a file system's type says of its drive.
struct FileSystem {
  std::string_view name;
  std::string_view type;
};
constexpr FileSystem kFileSystems[] = {
    {"ext2", "HD"},        {"ext3", "HD"},         {"ext4", "HD"},  {"xfs", "HD"},     {"btrfs", "HD"},
    {"zfs", "HD"},         {"f2fs", "HD"},         {"ntfs", "HD"},  {"ntfs3", "HD"},   {"fuseblk", "HD"},
    {"overlay", "HD"},     {"vfat", "FD"},         {"msdos", "FD"}, {"exfat", "FD"},   {"nfs", "NET"},
    {"nfs4", "NET"},       {"cifs", "NET"},        {"smb3", "NET"}, {"davfs", "NET"},  {"fuse.davfs", "NET"},
    {"fuse.sshfs", "NET"}, {"fuse.rclone", "NET"}, {"9p", "NET"},   {"iso9660", "CD"}, {"udf", "CD"},
};

std::string_view TypeOf(std::string_view fileSystem) {
  for (const FileSystem& known : kFileSystems)
    if (known.name == fileSystem) return known.type;
  return "Unknown";
}

/// The table of mounts writes blanks and the like as a backslash and three octal digits.
std::string WithoutEscapes(std::string_view text) {
  constexpr auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool escape = text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) &&
                        isOctal(text[i + 2]) && isOctal(text[i + 3]);
    if (escape) {
      plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
      i += 3;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::string_view TakeWord(std::string_view& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(std::min(end + 1, line.size()));
  return word;
}

bool IsForTheUser(std::string_view folder, std::string_view type) {
  if (type == "NET") return true;
  return std::any_of(std::begin(kMediaFolders), std::end(kMediaFolders),
                     [&](std::string_view media) { return folder.starts_with(media); });
}

/// Case aside.
bool EndsWith(std::string_view name, std::string_view ending) {
  return UpperCase(name).ends_with(UpperCase(ending));
}

bool IsOldModel(const std::string& folder) {
  return FindName(folder, "ft077").has_value();
}

bool IsDeckName(std::string_view name) {
  return UpperCase(name).find(UpperCase(kDeckEnding)) != std::string::npos;
}

/// The node of an entry; nothing if the tree doesn't show it.
std::optional<TreeNode> NodeOf(const fs::directory_entry& entry, bool inProject, Leaves leaves) {
  const std::string name = PathText(entry.path().filename());
  std::error_code ignored;  // what can't be looked at isn't shown
  if (name.starts_with(".") || IsUnfinishedFile(name) || IsUnfinishedFolder(name)) return std::nullopt;
  if (entry.is_directory(ignored)) {
    if (EndsWith(name, kResultsEnding)) return std::nullopt;
    const std::string folder = FolderText(PathText(entry.path()));
    if (leaves == Leaves::OldModels && IsOldModel(folder)) return TreeNode{NodeKind::Model, name, folder};
    return TreeNode{IsProjectName(name) ? NodeKind::Project : NodeKind::Folder, name, folder};
  }
  if (leaves == Leaves::Decks && inProject && IsDeckName(name) && entry.is_regular_file(ignored))
    return TreeNode{NodeKind::Model, name, PathText(entry.path())};
  return std::nullopt;
}

}  // namespace

bool IsProjectName(std::string_view name) {
  return EndsWith(name, kProjectEnding);
}

std::vector<Drive> DrivesOf(std::string_view mounts) {
  std::vector<Drive> drives = {{"/", "HD"}};
  while (const std::optional<std::string_view> whole = TakeLine(mounts)) {
    std::string_view line = *whole;
    TakeWord(line);  // the device
    const std::string folder = FolderText(WithoutEscapes(TakeWord(line)));
    const std::string_view type = TypeOf(TakeWord(line));
    const bool known =
        std::any_of(drives.begin(), drives.end(), [&](const Drive& drive) { return drive.path == folder; });
    if (!known && IsForTheUser(folder, type)) drives.push_back({folder, type});
  }
  return drives;
}

std::vector<Drive> ListDrives() {
  try {
    return DrivesOf(ReadBytes("/proc/self/mounts"));
  } catch (const Fault&) {
    return DrivesOf({});  // the root is always there
  }
}

std::vector<TreeNode> ListFolder(const std::string& folder, Leaves leaves) {
  const bool inProject = IsProjectName(LastName(folder));
  std::vector<TreeNode> nodes;
  std::error_code error;  // what can't be looked into is empty
  fs::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    if (std::optional<TreeNode> node = NodeOf(*entry, inProject, leaves)) nodes.push_back(*std::move(node));
  std::sort(nodes.begin(), nodes.end(), [](const TreeNode& a, const TreeNode& b) {
    const bool leafA = a.kind == NodeKind::Model, leafB = b.kind == NodeKind::Model;
    return leafA != leafB ? leafB : a.name < b.name;
  });
  return nodes;
}

}  // namespace zorlan

// The tree of drives, folders, projects and models as data: a node is filled when it is opened.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// A root of the tree, with its type word: "HD", "FD", "NET", "CD" or "Unknown".
struct Drive {
  std::string path;  // with a closing separator
  std::string_view type;
  bool operator==(const Drive&) const = default;
};

/// The system's drives: the root of the file system, and what is mounted for the user.
std::vector<Drive> ListDrives();
/// The same from the text of a table of mounts (/proc/self/mounts).
std::vector<Drive> DrivesOf(std::string_view mounts);

enum class NodeKind { Folder, Project, Model };

struct TreeNode {
  NodeKind kind;
  std::string name;  // as the folder has it
  std::string path;  // a folder's with a closing separator
};

/// Whether a folder's name is that of a project: ends in ".zor", case aside.
bool IsProjectName(std::string_view name);

/// What the leaves are: decks, or folders of the older release.
enum class Leaves { Decks, OldModels };

/// What a folder node is filled with, folders first, by name: sub-folders but those of results and hidden
/// ones, and in a project its decks. A folder that can't be looked into is empty.
std::vector<TreeNode> ListFolder(const std::string& folder, Leaves leaves = Leaves::Decks);

}  // namespace zorlan

// What the shell does to whole folders: looking for a name, copying, removing.
#pragma once

#include <string>
#include <string_view>

namespace zorlan {

/// Whether the file can be opened and read.
bool CanReadFile(const std::string& path);

/// The path without closing separators: a link at its end is then seen as a link.
std::string WithoutSeparator(std::string_view path);

/// The last part of a path, a closing separator aside: "/a/b.zor/" -> "b.zor".
std::string LastName(std::string_view path);

/// Copies the files of a folder tree, folder by folder from the top. Files that are there are replaced. A
/// missing source is nothing to copy. Links to folders aren't followed. Throws FileFault.
void CopyTree(const std::string& from, const std::string& to);

/// Copies the files of one folder into another, which is made if need be; sub-folders stay behind.
void CopyFilesOf(const std::string& from, const std::string& to);

/// The name under which a folder is built before it takes its own: a broken-off copy never looks like a
/// whole one.
std::string UnfinishedFolder(const std::string& folder);
bool IsUnfinishedFolder(std::string_view name);

/// Gives an unfinished folder its name; what stands there is removed first.
void FinishFolder(const std::string& folder);

/// Removes a folder with all that is in it, or (without `removeTop`) all that is in it. A link is removed
/// itself, and never what it points to; a path that is a link counts as one. Nothing there is nothing to do.
/// Throws FileFault.
void DeleteTree(const std::string& path, bool removeTop);

/// Whether `path` is `folder` or lies in it, links followed.
bool LiesIn(const std::string& path, const std::string& folder);

}  // namespace zorlan

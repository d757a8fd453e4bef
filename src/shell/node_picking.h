// What the project dialog's tree gives to its boxes, and where it opens.
#pragma once

#include <string>

#include "shell/folder_tree.h"
#include "shell/project_dialog.h"

namespace zorlan {

/// A node was chosen: a model sets all three boxes, a project the first two, a folder the data path.
void PickNode(ProjectDialog& dialog, const TreeNode& node);

/// The path of what the boxes name: a deck, or an old model's folder.
std::string StartPath(const ProjectDialog& dialog);

/// The heading over what the boxes name: the mode's own, or else project and model in 〔〕.
std::string HeadingOf(const ProjectDialog& dialog);

}  // namespace zorlan

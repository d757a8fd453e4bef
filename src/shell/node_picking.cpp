#include "shell/node_picking.h"

#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// Takes the last part off a path: "/a/b.zor/" -> "b.zor", leaving "/a/".
std::string TakeLast(std::string& path) {
  if (path.size() > 1 && path.back() == '/') path.pop_back();
  const std::size_t at = path.rfind('/') + 1;
  std::string last = path.substr(at);
  path.resize(at);
  return last;
}

}  // namespace

void PickNode(ProjectDialog& dialog, const TreeNode& node) {
  std::string path = node.path;
  const bool old = dialog.mode == DialogMode::ConversionSource;
  if (node.kind == NodeKind::Model) {
    const std::string model = TakeLast(path), project = TakeLast(path);
    dialog.model = old ? model : ModelBoxText(model);
    dialog.project = old ? project : ProjectBoxText(project);
  } else if (node.kind == NodeKind::Project) {
    const std::string project = TakeLast(path);
    dialog.project = old ? project : ProjectBoxText(project);
  }
  dialog.dataPath = path;
}

std::string StartPath(const ProjectDialog& dialog) {
  const bool old = dialog.mode == DialogMode::ConversionSource;
  std::string path = FolderText(dialog.dataPath);
  if (dialog.project.empty()) return path;
  path += FolderText(old ? dialog.project : dialog.project + kProjectEnding);
  if (dialog.model.empty()) return path;
  return path + (old ? FolderText(dialog.model) : dialog.model + kDeckEnding);
}

std::string HeadingOf(const ProjectDialog& dialog) {
  if (dialog.mode != DialogMode::Open || dialog.project.empty()) return dialog.heading;
  const std::string model = dialog.model.empty() ? std::string() : dialog.model + kDeckEnding;
  return "〔" + FolderText(dialog.project + kProjectEnding) + model + "〕";
}

}  // namespace zorlan

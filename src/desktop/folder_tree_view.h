// The tree of drives, folders, projects and models, as the project dialog and the folder dialog show it. A
// node is filled when it is opened.
#pragma once

#include <QTreeWidget>
#include <string>

#include "shell/folder_tree.h"

namespace zorlan {

class FolderTreeView : public QTreeWidget {
  Q_OBJECT
 public:
  /// With `models` the decks of a project, or the folders of the older release, are leaves.
  explicit FolderTreeView(Leaves leaves, bool models, QWidget* parent = nullptr);

  /// Opens the nodes down to a path and makes it the current one, as far as there are nodes.
  void Reveal(const std::string& path);
  /// The current node; an empty path: a drive, or none.
  TreeNode Current() const;

 signals:
  /// Another node became the current one.
  void picked(const zorlan::TreeNode& node);
  /// A leaf was double-clicked.
  void opened(const zorlan::TreeNode& node);

 protected:
  void keyPressEvent(QKeyEvent* event) override;  // Enter opens a folder; on a leaf it is the dialog's

 private:
  void Fill(QTreeWidgetItem* item);

  Leaves leaves_;
  bool models_;
};

}  // namespace zorlan

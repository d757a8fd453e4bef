// The project dialog: the tree of folders, three boxes, what is known of the chosen model.
#pragma once

#include <QDialog>
#include <QTimer>

#include "shell/project_dialog.h"

class QLabel;
class QLineEdit;

namespace zorlan {

class FolderTreeView;
class ModelPicture;
struct TreeNode;

class ProjectDialogWindow : public QDialog {
  Q_OBJECT
 public:
  ProjectDialogWindow(ProjectDialog& dialog, QWidget* parent);

  void accept() override;
  void done(int result) override;

 private:
  void Build();
  void Pick(const TreeNode& node);
  void TakeBoxes();
  void ShowBoxes();
  void ShowInformation();

  ProjectDialog& dialog_;
  FolderTreeView* tree_;
  QLabel* heading_;
  QLineEdit *dataPath_, *project_, *model_;
  QLabel* information_;
  ModelPicture* picture_;
  QTimer lookSoon_;  // while names are typed the disk isn't asked at each key
};

}  // namespace zorlan

// The folder dialog of the commands on whole projects.
#pragma once

#include <QDialog>

class QLineEdit;

namespace zorlan {

class FolderTreeView;
struct FolderDialog;

class FolderDialogWindow : public QDialog {
  Q_OBJECT
 public:
  FolderDialogWindow(FolderDialog& dialog, QWidget* parent);

  void accept() override;
  void done(int result) override;

 private:
  FolderDialog& dialog_;
  FolderTreeView* tree_;
  QLineEdit* folder_;
};

}  // namespace zorlan

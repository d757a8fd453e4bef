#include "desktop/folder_dialog_window.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "base/text_file.h"
#include "desktop/dialog_buttons.h"
#include "desktop/dialog_place.h"
#include "desktop/folder_tree_view.h"
#include "render/qt_text.h"
#include "shell/project_copies.h"

namespace zorlan {
namespace {

constexpr auto kPlaceName = "frmFolder";

}  // namespace

FolderDialogWindow::FolderDialogWindow(FolderDialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog) {
  setObjectName(QStringLiteral("frmFolder"));
  setWindowTitle(ToQt(dialog.heading));
  tree_ = new FolderTreeView(Leaves::Decks, /*models=*/false);
  folder_ = new QLineEdit(ToQt(dialog.folder));
  folder_->setObjectName(QStringLiteral("folder"));
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &FolderDialogWindow::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &FolderDialogWindow::reject);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(new QLabel(ToQt(dialog.heading)));
  column->addWidget(tree_, 1);
  column->addWidget(folder_);
  column->addWidget(buttons);
  tree_->Reveal(FolderText(dialog.folder));
  connect(tree_, &FolderTreeView::picked, this,
          [this](const TreeNode& node) { folder_->setText(ToQt(node.path)); });
  RestoreDialog(*this, kPlaceName, QSize(460, 500));
  tree_->setFocus();
}

void FolderDialogWindow::accept() {
  dialog_.folder = FolderText(FromQt(folder_->text().trimmed()));
  if (AcceptFolder(dialog_)) QDialog::accept();
}

void FolderDialogWindow::done(int result) {
  KeepDialog(*this, kPlaceName);
  QDialog::done(result);
}

}  // namespace zorlan

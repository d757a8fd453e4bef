#include "desktop/name_dialog_window.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "desktop/dialog_buttons.h"
#include "desktop/own_characters.h"
#include "render/qt_text.h"
#include "shell/project_copies.h"

namespace zorlan {

NameDialogWindow::NameDialogWindow(NameDialog& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setObjectName(QStringLiteral("frmName"));
  setWindowTitle(ToQt(dialog.command));
  auto* const folder = new QLabel(ToQt(dialog.folder));
  folder->setTextFormat(Qt::PlainText);
  folder->setWordWrap(true);
  name_ = new QLineEdit(ToQt(dialog.name));
  name_->setObjectName(QStringLiteral("name"));
  KeepOwnCharacters(*name_);
  name_->setMinimumWidth(320);
  name_->selectAll();
  auto* const rows = new QFormLayout;
  rows->addRow(QStringLiteral("コピー先フォルダ"), folder);
  rows->addRow(QStringLiteral("新しいプロジェクト名"), name_);
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &NameDialogWindow::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &NameDialogWindow::reject);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(rows);
  column->addWidget(buttons);
  name_->setFocus();
}

void NameDialogWindow::accept() {
  dialog_.name = FromQt(name_->text());
  if (AcceptName(dialog_)) QDialog::accept();
}

}  // namespace zorlan

// The name dialog: under which name a project is copied.
#pragma once

#include <QDialog>

class QLineEdit;

namespace zorlan {

struct NameDialog;

class NameDialogWindow : public QDialog {
  Q_OBJECT
 public:
  NameDialogWindow(NameDialog& dialog, QWidget* parent);

  void accept() override;

 private:
  NameDialog& dialog_;
  QLineEdit* name_;
};

}  // namespace zorlan

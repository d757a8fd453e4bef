// The CSV dialog: where the results go, and under which name.
#pragma once

#include <QDialog>

class QLineEdit;

namespace zorlan {

class frmCsvFile : public QDialog {
  Q_OBJECT
 public:
  explicit frmCsvFile(QWidget* parent);

  void accept() override;

 private:
  void Browse();

  QLineEdit *folder_, *name_;
};

}  // namespace zorlan

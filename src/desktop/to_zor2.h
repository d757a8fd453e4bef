// The conversion form: an old model, the model that it becomes.
#pragma once

#include <QDialog>

#include "shell/convert_dialog.h"

class QLineEdit;
class QPushButton;

namespace zorlan {

class ToZOR2 : public QDialog {
  Q_OBJECT
 public:
  explicit ToZOR2(QWidget* parent);

 private:
  void ShowPaths();
  void Convert();

  ConvertDialog dialog_;
  QLineEdit *old_, *target_, *subtitle_;
  QPushButton* convert_;
};

}  // namespace zorlan

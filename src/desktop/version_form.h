// The version form of the help menu.
#pragma once

#include <QDialog>

namespace zorlan {

class frmVersion : public QDialog {
  Q_OBJECT
 public:
  explicit frmVersion(QWidget* parent);
};

}  // namespace zorlan

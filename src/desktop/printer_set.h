// The printer forms: `frmPrinterSet`, and `frmPrinterSet2`, which adds what listings need.
#pragma once

#include <QDialog>

#include "shell/settings.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QSpinBox;

namespace zorlan {

class frmPrinterSet : public QDialog {
  Q_OBJECT
 public:
  /// Opens with the values of the printer settings in force.
  frmPrinterSet(const SystemPrinters& printers, QWidget* parent);

  /// The record takes the form's values, and the file is written.
  void accept() override;

 protected:
  virtual PrinterRec Values() const;
  QFormLayout* rows_;

 private:
  QComboBox *printer_, *paper_, *duplex_;
  QButtonGroup *orientation_, *colour_;
};

class frmPrinterSet2 : public frmPrinterSet {
  Q_OBJECT
 public:
  frmPrinterSet2(const SystemPrinters& printers, QWidget* parent);

 protected:
  PrinterRec Values() const override;

 private:
  QCheckBox* pageNumbers_;
  QSpinBox* firstPage_;
  QButtonGroup* reduction_;
};

}  // namespace zorlan

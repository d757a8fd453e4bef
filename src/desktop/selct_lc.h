// `frmSelctLC`: which figures of which load cases go on pages, and how.
#pragma once

#include <array>
#include <QDialog>

#include "output/batch_print.h"

class QButtonGroup;
class QCheckBox;
class QListWidget;

namespace zorlan {

class frmSelctLC : public QDialog {
  Q_OBJECT
 public:
  /// Edits a choice of a model with so many load cases; `choice` is changed by "ＯＫ" alone, which a choice
  /// without a figure doesn't pass.
  frmSelctLC(FigureSelection& choice, int cases, QWidget* parent);

  void accept() override;

 private:
  struct TypeWidgets {
    QCheckBox* chosen = nullptr;  // null in the form for one type
    QListWidget* cases = nullptr;
  };
  QWidget* MakeType(int kind, int cases);
  QWidget* MakePageChoices();
  FigureSelection Taken() const;

  FigureSelection& choice_;
  std::array<TypeWidgets, kBatchTypes.size()> types_;
  QButtonGroup *layouts_ = nullptr, *orientation_ = nullptr;
};

}  // namespace zorlan

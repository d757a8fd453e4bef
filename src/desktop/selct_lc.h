// `frmSelctLC`: which figures of which load cases go on pages, and how.
#pragma once

#include <array>
#include <QDialog>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QListWidget;

namespace zorlan {

inline constexpr int kFigureTypes = 5;  // kLoadCheck to kMomentFigure

/// What the form edits.
struct PagesChoice {
  struct Type {
    bool chosen = false;
    std::vector<int> cases;  // numbers of load cases
  };
  int single = 0;       // a figure type, from 1, that the pages are of alone; 0: all types, "一括印刷"
  int layout = 0;       // 0 to 5
  int orientation = 1;  // as the printer settings have it
  std::array<Type, kFigureTypes> types;
};

class frmSelctLC : public QDialog {
  Q_OBJECT
 public:
  /// Edits a choice of a model with so many load cases; `choice` is changed by "ＯＫ" alone, which a choice
  /// without a figure doesn't pass.
  frmSelctLC(PagesChoice& choice, int cases, QWidget* parent);

  void accept() override;

 private:
  struct TypeWidgets {
    QCheckBox* chosen = nullptr;  // null in the form for one type
    QListWidget* cases = nullptr;
  };
  QWidget* MakeType(int type, int cases);
  QWidget* MakePageChoices();
  PagesChoice Taken() const;

  PagesChoice& choice_;
  std::array<TypeWidgets, kFigureTypes> types_;
  QButtonGroup *layouts_ = nullptr, *orientation_ = nullptr;
};

}  // namespace zorlan

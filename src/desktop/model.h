// `Model`: the window of a figure. Its bar chooses the figure and the load case and moves the view; a click
// picks.
#pragma once

#include <optional>
#include <QPointer>
#include <QString>
#include <string>
#include <vector>

#include "desktop/figure_files.h"
#include "desktop/form.h"
#include "graphics/figure_model.h"
#include "graphics/picking.h"

class QAction;
class QComboBox;
class QLabel;

namespace zorlan {

class FigureView;
class PickPanel;

/// The commands of the bar.
enum class Tool {
  Redraw,
  ZoomIn,
  ZoomOut,
  Move,
  All,
  Enter,
  Define,
  Options,
  Range,
  InputModel,
  Loads,
  Displacement,
  AxialShear,
  Moment,
  Print,
};

class Model : public Form {
  Q_OBJECT
 public:
  /// `name` tells the windows apart that can be open together.
  explicit Model(const char* name);

  /// Whether the user has asked for a figure. What is wrong with its data is told in a box then; else it is
  /// noted in the bar.
  enum class Asked { No, Yes };

  /// Shows a figure of this kind (FigureKind) of the model in hand. The window is open.
  void ShowFigure(int kind, Asked asked);
  int Kind() const;
  /// The model figure with rows as they are typed.
  void ShowTyped(const TypedRows& typed);
  /// Marks the node or member of this number and brings it into sight; nothing where none of it is shown.
  void MarkNumber(Pick::What what, int number);
  /// The buttons of the result figures follow the menu.
  void FollowMenu(const MenuFacts& facts);
  /// The data are stale: they are read anew, and what was typed is forgotten.
  void DropData(Asked asked);
  /// The display options or the viewing range have changed.
  void FollowOptions();
  void Renew() override;
  void FollowState() override;
  /// Undo and redo walk the steps of the table that took the last pick.
  void Edit(Command command) override;
  bool CanUndo() const override { return taker_ != nullptr && taker_->CanUndo(); }
  bool CanRedo() const override { return taker_ != nullptr && taker_->CanRedo(); }

  FigureView& View() { return *view_; }
  /// Does what a button of the bar does.
  void Use(Tool tool);

 signals:
  void optionsAsked(int kind);
  void rangeAsked();
  /// Figures are to be shown on pages: of one kind, of the load case in sight.
  void pagesAsked(int kind, int loadCase);
  void definitionAsked(const zorlan::Pick& pick);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  void AddTools();
  void AddButton(QAction* action);
  template <class Act>
  void Noting(Asked asked, Act act);
  void Show(int kind);
  void ReadData();
  void ReadResults();
  void FillCases();
  void ChooseCase(int loadCase);
  void Redraw(int flags);
  void ShowCaption();
  void ShowNote();
  bool IsPressed(Tool tool) const;
  void MarkPick(const std::optional<Pick>& pick);
  void TakePick(const std::optional<Pick>& pick);
  /// Enter on a pick: what a click does with the tool that is on, or else its row.
  void EnterPick(const Pick& pick);
  void OpenRow(const Pick& pick);
  /// To the table form in front.
  void HandOver(const Pick& pick);

  QWidget* bar_ = nullptr;
  std::vector<QAction*> tools_;  // by Tool
  QWidget* caseList_ = nullptr;
  QComboBox* case_ = nullptr;
  QLabel* note_ = nullptr;
  QPointer<Form> taker_;  // the table that took the last pick
  FigureView* view_ = nullptr;
  PickPanel* panel_ = nullptr;
  TypedRows typed_;
  FigureFiles files_;  // that the figure was read from
  QString fault_;      // what is wrong with the data, where no box has told it
  bool read_ = false, drawn_ = false, oblique_ = false;
};

}  // namespace zorlan

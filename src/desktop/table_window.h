// The one window of the twelve table forms: the grid, its tabs, and the buttons that a form has.
#pragma once

#include <memory>

#include "desktop/form.h"
#include "desktop/grid_edit.h"
#include "desktop/table_view.h"
#include "forms/table_editor.h"

class QLabel;
class QLayout;
class QSpinBox;
class QTabBar;

namespace zorlan {

class MainWindow;

class TableWindow : public Form {
  Q_OBJECT
 public:
  /// Reads the form's table. Throws FileFault.
  TableWindow(const TableForm& form, MainWindow& window);
  ~TableWindow() override;

  TableEditor& Editor() { return editor_; }
  TableView& View() { return *view_; }

  void Edit(Command command) override;
  bool IsChanged() const override { return editor_.Changed(); }
  bool CanUndo() const override { return editor_.CanUndo() || view_->IsBoxOpen(); }
  bool CanRedo() const override { return editor_.CanRedo() || view_->IsBoxOpen(); }
  /// The header of the model in hand has changed.
  void Follow();
  /// Goes to the row of a number in the key column. False: there is none.
  bool GoToNumber(int page, int number);
  /// Nodes were picked in the figure.
  bool TakeNodes(const std::vector<int>& nodes);
  /// A member picked in the figure: its number goes into the current row, in InpELEM the cursor to its row.
  /// False: the table has no members.
  bool TakeElement(int number);
  /// The figure shows the rows as they are typed.
  void Redraw();
  /// The redraw button: the same beside the table, with the node or member of the current row marked.
  void ShowInFigure();

  QSize sizeHint() const override;

 protected:
  bool Commit() override;

 private:
  /// The same behind a commit, which stands whatever becomes of the figure: it shows the tables' files again.
  void RedrawCommitted();
  void RunRedrawStep();
  QLayout* ButtonRow();
  void Build();
  void Connect();
  void ShowTabs();
  void ShowPage(int page);
  void ShowAll();
  void Walk(std::optional<CellPlace> place);
  void GoTo(const CellPlace& place, bool middle);
  void Store(const CellPlace& place, const QString& text);
  void Explain(const CellPlace& place);
  void EnterSection();
  void SetGroups(int count);
  void FindFault();

  MainWindow& window_;
  TableEditor editor_;
  TableModel* model_ = nullptr;
  TableView* view_ = nullptr;
  std::unique_ptr<GridEdit> cells_;
  QTabBar* tabs_ = nullptr;
  QSpinBox* groups_ = nullptr;
  QLabel* notice_ = nullptr;
  std::vector<CellPlace> places_;  // the current cell of each page
};

/// Opens a table form by its name, or brings it to the front.
TableWindow* OpenTableWindow(MainWindow& window, std::string_view name);
/// What the shell and the figures ask of the table forms; for shell_windows.cpp.
void FollowControl(MainWindow& window);
/// The table form that was in front last; null if there is none.
TableWindow* TableInFront(MainWindow& window);
bool TakePickedNodes(MainWindow& window, const std::vector<int>& nodes);
/// The same for a member.
bool TakePickedElement(MainWindow& window, int element);
bool ShowTableRow(MainWindow& window, std::string_view key, int page, int number);

}  // namespace zorlan

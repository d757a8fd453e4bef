// The grid of a table form with its two boxes. It knows cells and keys; what an edit does, the form's window
// decides.
#pragma once

#include <optional>
#include <QTableView>

#include "desktop/table_model.h"

class QLabel;

namespace zorlan {

class CellBox;

class TableView : public QTableView {
  Q_OBJECT
 public:
  TableView(const TableEditor& editor, TableModel* model);

  /// Header, column widths and row height by the form's columns.
  void FitColumns();
  /// As large as its columns ask for.
  QSize sizeHint() const override;

  CellPlace Current() const;
  /// The selected rectangle; the current cell alone without one.
  CellRange Selected() const;
  /// Selects a cell. `middle`: a cell out of sight comes to the middle.
  void GoTo(const CellPlace& place, bool middle = false);
  void Select(const CellRange& range);
  void SelectUsedRows();

  bool IsBoxOpen() const { return open_ != nullptr; }
  CellBox* OpenedBox() const { return open_; }
  /// Opens the typing box, empty, or the box for editing the cell's text.
  CellBox* OpenBox(bool typing);
  /// Closes the box and hands its text on, if anything was typed into it.
  void CloseBox();

 signals:
  void stored(const zorlan::CellPlace& place, const QString& text);  // what the box held
  void typed();
  void refused();
  void movedTo(const zorlan::CellPlace& place);
  void emptied();
  void pageAsked(int steps);

 protected:
  bool event(QEvent* event) override;          // Tab moves in the grid
  bool viewportEvent(QEvent* event) override;  // a text that is cut shows whole in its tool tip
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Whether the current column takes a character of the text.
  bool Takes(const QString& text) const;
  void PlaceBox();
  void CancelBox();
  void MoveOn(QKeyEvent* event);
  /// Whether a key moves the cursor or edits, and does it.
  bool MovesByKey(const QKeyEvent& event);
  bool EditsByKey(QKeyEvent* event);
  void Step(int rows, int columns);
  /// Where a cursor key leads; nothing for other keys.
  std::optional<CellPlace> TargetOf(const QKeyEvent& event) const;
  /// The cursor goes there, and the selection grows from where it began.
  void Extend(const CellPlace& place);
  /// Where Ctrl and an arrow lead from a cell: to the edge of the block of data, or to the next block.
  CellPlace EdgeOfData(CellPlace from, int rows, int columns) const;

  const TableEditor& editor_;
  TableModel* model_;
  QLabel* corner_;
  CellBox* typingBox_;
  CellBox* editBox_;
  CellBox* open_ = nullptr;
  CellPlace openAt_;  // the cell that it lies on
};

}  // namespace zorlan

// What the Edit menu does to the cells of a grid, the same in every window that has one.
#pragma once

#include <functional>
#include <QString>

#include "shell/menu.h"

namespace zorlan {

class TableEditor;
class TableModel;
class TableView;

class GridEdit {
 public:
  /// `hint` shows a line in the status bar.
  GridEdit(TableEditor& editor, TableModel& model, TableView& view, std::function<void(const QString&)> hint)
      : editor_(editor), model_(model), view_(view), hint_(std::move(hint)) {}

  /// Does a command that changes or copies cells of the page that is shown; false for any other.
  bool Do(Command command);
  /// Inserts as many rows as were copied, and pastes into them.
  void InsertCopied() { Paste(/*insert=*/true); }

 private:
  void Copy();
  void Paste(bool insert);
  void AskNumber(bool add);

  TableEditor& editor_;
  TableModel& model_;
  TableView& view_;
  std::function<void(const QString&)> hint_;
};

}  // namespace zorlan

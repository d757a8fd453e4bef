// The windows of the section tables: `frmEditKozaiTable` with the five steel families, `frmEditMokuzaiTable`
// with grades and sections of timber. One sheet is shown at a time; each keeps its own edits until they are
// saved. What a sheet is, and what its rows must be, is in sections/section_sheet.h.
#pragma once

#include <memory>
#include <span>

#include "desktop/form.h"
#include "desktop/grid_edit.h"
#include "forms/table_editor.h"
#include "sections/section_sheet.h"

class QLabel;
class QStackedWidget;
class QTabBar;

namespace zorlan {

class MainWindow;
class TableModel;
class TableView;

class SectionTableWindow : public Form {
  Q_OBJECT
 public:
  SectionTableWindow(const TableForm& form, std::span<const SheetKind> kinds, MainWindow& window);
  ~SectionTableWindow() override;

  /// Turns to a sheet; reads its file when it is shown first. Throws FileFault; the sheet before stays.
  void ShowSheet(SheetKind kind);
  TableView& View();

  bool HasGrid() const override { return true; }
  bool BelongsToModel() const override { return false; }
  void Edit(Command command) override;
  QSize sizeHint() const override;

 protected:
  /// Asks whether changes are to be saved.
  bool Commit() override;

 private:
  struct Sheet {
    SectionSheet sheet;
    SheetText text;                       // head and tail of the file; the rows are the editor's
    std::unique_ptr<TableEditor> editor;  // null: not read yet
    TableModel* model = nullptr;
    TableView* view = nullptr;
    std::unique_ptr<GridEdit> cells;
    QWidget* page = nullptr;
  };

  Sheet& Shown() { return sheets_[shown_]; }
  void Read(Sheet& sheet);
  void Build(Sheet& sheet);
  void AddEntries(TableView& view);
  std::vector<SheetRow> RowsOf(const Sheet& sheet) const;
  bool Changed() const;
  void Turn(int tab);
  void Walk(const std::optional<CellPlace>& place);
  bool Save();
  void Print();
  void Cancel();

  const TableForm& form_;
  MainWindow& window_;
  std::vector<Sheet> sheets_;
  std::size_t shown_ = 0;
  QTabBar* tabs_;
  QStackedWidget* pages_;
};

/// Opens the window of a sheet, or turns the open one to it. Throws FileFault for a file that can't be read.
void OpenSectionTable(MainWindow& window, SheetKind kind);

}  // namespace zorlan

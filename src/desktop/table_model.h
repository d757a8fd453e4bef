// The rows of a table form's page, as a table view asks for them.
#pragma once

#include <QAbstractTableModel>
#include <QColor>

#include "forms/table_editor.h"

namespace zorlan {

class TableModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  TableModel(const TableEditor& editor, QObject* parent);

  int Page() const { return page_; }
  /// Everything is to be shown anew: another page, or rows that moved.
  void ShowPage(int page);
  /// Cells of the page have changed.
  void ShowChange();
  /// Columns have come or gone.
  void ShowHeader();

  CellPlace PlaceOf(const QModelIndex& index) const { return {page_, index.row() + 1, index.column() + 1}; }
  QModelIndex IndexOf(const CellPlace& place) const { return index(place.row - 1, place.column - 1); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const TableEditor& editor_;
  int page_ = 1;
};

}  // namespace zorlan

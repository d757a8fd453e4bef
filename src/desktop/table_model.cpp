#include "desktop/table_model.h"

#include <QGuiApplication>
#include <QPalette>

#include "render/qt_text.h"

namespace zorlan {

TableModel::TableModel(const TableEditor& editor, QObject* parent)
    : QAbstractTableModel(parent), editor_(editor) {}

void TableModel::ShowPage(int page) {
  page_ = page;
  ShowChange();
}

void TableModel::ShowChange() {
  emit dataChanged(index(0, 0), index(kGridRows - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Vertical, 0, kGridRows - 1);
}

void TableModel::ShowHeader() {
  beginResetModel();
  endResetModel();
}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kGridRows;
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(editor_.Columns().size());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  const CellPlace place = PlaceOf(index);
  if (place.column > columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return ToQt(editor_.Text(place));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(
          Qt::Alignment(editor_.ColumnAt(place.column).right ? Qt::AlignRight : Qt::AlignLeft) |
          Qt::AlignVCenter);
    case Qt::ToolTipRole:
      return ToQt(CellTip(editor_.Form(), editor_.Setting(), place.column, editor_.View(page_, place.row)));
    default:
      return {};
  }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal) {
    if (section >= columnCount()) return {};
    const Column& column = editor_.ColumnAt(section + 1);
    if (role == Qt::DisplayRole)
      return ToQt(column.unit.empty() ? column.title : column.title + "\n" + column.unit);
    if (role == Qt::ToolTipRole)
      return ToQt(CellTip(editor_.Form(), editor_.Setting(), section + 1, editor_.View(page_, 1)));
    return {};
  }
  if (role == Qt::DisplayRole) return QString::number(section + 1) + QLatin1Char(' ');
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::ForegroundRole) {
    QColor dimmed = QGuiApplication::palette().color(QPalette::WindowText);
    dimmed.setAlphaF(section < editor_.Cells().LastRow(page_) ? 0.65F : 0.35F);
    return dimmed;
  }
  return {};
}

Qt::ItemFlags TableModel::flags(const QModelIndex&) const {
  // Editable for the sake of the input methods; the boxes are the view's own.
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

}  // namespace zorlan

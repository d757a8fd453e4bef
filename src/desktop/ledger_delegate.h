// How the cells of a ledger look: the current row lightly tinted, the selection over it, a clear frame on the
// current cell, numbers in the fixed-width face.
#pragma once

#include <QAbstractItemView>
#include <QColor>
#include <QPalette>
#include <QStyledItemDelegate>

namespace zorlan {

inline constexpr int kCellPadding = 5;  // pixels beside a cell's text

/// The colour of a selection, thinned: what is written on it stays legible in both themes.
QColor Tint(const QPalette& palette, double share);

class LedgerDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  /// The view is its parent.
  explicit LedgerDelegate(QAbstractItemView* view) : QStyledItemDelegate(view), view_(view) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const QAbstractItemView* view_;
};

}  // namespace zorlan

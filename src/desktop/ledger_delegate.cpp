#include "desktop/ledger_delegate.h"

#include <QGuiApplication>
#include <QPainter>

namespace zorlan {

QColor Tint(const QPalette& palette, double share) {
  const QColor full = palette.color(QPalette::Highlight), base = palette.color(QPalette::Base);
  const auto mixed = [&](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {mixed(full.red(), base.red()), mixed(full.green(), base.green()), mixed(full.blue(), base.blue())};
}

void LedgerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const QPalette& palette = option.palette;
  const QModelIndex current = view_->currentIndex();
  // The style has filled a selected cell already.
  if (index.row() == current.row() && !option.state.testFlag(QStyle::State_Selected))
    painter->fillRect(option.rect, Tint(QGuiApplication::palette(), 0.09));
  const QString text = index.data(Qt::DisplayRole).toString();
  if (!text.isEmpty()) {
    const QRect room = option.rect.adjusted(kCellPadding, 0, -kCellPadding, 0);
    painter->setPen(palette.color(QPalette::Text));
    const bool right = index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight;
    const bool cut = option.fontMetrics.horizontalAdvance(text) > room.width();
    // A number that is cut shows it: without its end it would be another number.
    painter->drawText(room, Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft),
                      cut ? option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()) : text);
  }
  if (index == current) {
    painter->setPen(QPen(QGuiApplication::palette().color(QPalette::Highlight), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  }
}

}  // namespace zorlan

#include "desktop/ledger_delegate.h"

#include <QApplication>
#include <QPainter>

namespace zorlan {

namespace {

constexpr double kIdleSelection = 0.2;  // of a grid without the keys, while a box asks what to do with it

QColor Mixed(const QPalette& palette, QPalette::ColorRole role, double share) {
  const QColor full = palette.color(role), base = palette.color(QPalette::Base);
  const auto mixed = [&](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {mixed(full.red(), base.red()), mixed(full.green(), base.green()), mixed(full.blue(), base.blue())};
}

}  // namespace

QColor Tint(const QPalette& palette, double share) {
  return Mixed(palette, QPalette::Highlight, share);
}

void LedgerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const QPalette& palette = option.palette;
  const QModelIndex current = view_->currentIndex();
  // A grid that doesn't take the keys is grey, so that one cell alone looks as if it did.
  const bool active = view_->hasFocus() || view_->viewport()->isAncestorOf(QApplication::focusWidget());
  // The style has filled a selected cell already.
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  if (index.row() == current.row() && !selected)
    painter->fillRect(option.rect, Tint(QGuiApplication::palette(), 0.09));
  if (selected && !active) painter->fillRect(option.rect, Mixed(palette, QPalette::Text, kIdleSelection));
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
    const QPalette frame = QGuiApplication::palette();
    painter->setPen(QPen(frame.color(active ? QPalette::Highlight : QPalette::Mid), 2));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  }
}

}  // namespace zorlan

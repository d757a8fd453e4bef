#include "desktop/elided_label.h"

#include <algorithm>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace zorlan {
namespace {

constexpr int kLeastCharacters = 3;  // and the sign for what is left out

}  // namespace

QSize ElidedLabel::minimumSizeHint() const {
  const QMargins margins = contentsMargins();
  const int least = fontMetrics().horizontalAdvance(text().left(kLeastCharacters) + QChar(0x2026));
  return {std::min(sizeHint().width(), least + margins.left() + margins.right()),
          QLabel::minimumSizeHint().height()};
}

bool ElidedLabel::IsCut() const {
  return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !IsCut()) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
  return true;
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
  if (!IsCut()) return QLabel::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

}  // namespace zorlan

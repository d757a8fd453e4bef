#include "desktop/scroll_content.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "desktop/file_columns.h"

namespace zorlan {
namespace {

constexpr QSize kWindowFrame(8, 40);  // pixels: borders and title bar
constexpr QSize kLeast(160, 80);

/// Asks for the room of all that it holds, and takes less.
class ContentArea : public QScrollArea {
 public:
  ContentArea(QLayout* content, QWidget& window) : QScrollArea(&window) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    auto* const holder = new QWidget(&window);  // in its window from the start: the tab order stays
    holder->setLayout(content);
    setWidget(holder);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
      if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
    });
  }
  QSize sizeHint() const override {
    const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
    return widget()->sizeHint() + bars;
  }
  QSize minimumSizeHint() const override { return kLeast.boundedTo(sizeHint()); }
};

/// The smallest size that a layout takes.
QSize LeastSize(const QLayout& layout) {
  return layout.sizeConstraint() == QLayout::SetFixedSize ? layout.totalSizeHint()
                                                          : layout.totalMinimumSize();
}

bool IsInContentArea(const QWidget& window) {
  for (QObject* const child : window.children())
    if (dynamic_cast<ContentArea*>(child) != nullptr) return true;
  return false;
}

bool FitsIn(const QSize& size, const QSize& room) {
  return size.width() <= room.width() && size.height() <= room.height();
}

}  // namespace

bool ScrollWhereTooLarge(QWidget& window, const QSize& room) {
  QLayout* const content = window.layout();
  if (content == nullptr) return false;
  if (IsInContentArea(window)) return true;
  if (FitsIn(LeastSize(*content), room)) return false;
  const QPointer<QWidget> focus = window.focusWidget();
  auto* const buttons = window.findChild<QDialogButtonBox*>(QString(), Qt::FindDirectChildrenOnly);
  const bool row = buttons != nullptr && content->indexOf(buttons) >= 0;
  const QMargins margins = content->contentsMargins();
  if (row) content->removeWidget(buttons);
  content->setSizeConstraint(QLayout::SetDefaultConstraint);
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  auto* const area = new ContentArea(content, window);
  auto* const column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, row ? margins.bottom() : 0);
  column->addWidget(area, 1);
  area->show();  // at once: what is hidden has no size
  if (row) {
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(margins.left(), 0, margins.right(), 0);
    line->addWidget(buttons);
    column->addLayout(line);
    QWidget::setTabOrder(area, buttons);
  }
  if (focus != nullptr) focus->setFocus();
  return true;
}

void SettleDialog(QDialog& dialog) {
  if (qobject_cast<QMessageBox*>(&dialog) != nullptr) return;
  if (auto* const files = qobject_cast<QFileDialog*>(&dialog)) ShowJapaneseColumns(*files);
  for (QPushButton* const button : dialog.findChildren<QPushButton*>())
    if (qobject_cast<QDialogButtonBox*>(button->parentWidget()) == nullptr) button->setAutoDefault(false);
  const QSize room = dialog.screen()->availableSize() - kWindowFrame;
  const bool scrolls = ScrollWhereTooLarge(dialog, room);
  const QSize wanted = scrolls ? dialog.sizeHint() : dialog.size();
  if (wanted.boundedTo(room) != dialog.size()) dialog.resize(wanted.boundedTo(room));
}

}  // namespace zorlan

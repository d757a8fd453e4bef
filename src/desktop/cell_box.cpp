#include "desktop/cell_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

#include "forms/clipboard_text.h"
#include "forms/typing.h"
#include "render/qt_text.h"

namespace zorlan {

CellBox::CellBox(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  hide();
}

QString CellBox::Filtered(const QString& text) {
  const Typed taken = FilterTyped(mask_, WithoutLineEnds(FromQt(text)));
  if (taken.refused) emit refused();
  if (!taken.text.empty()) emit typed();
  return ToQt(taken.text);
}

bool CellBox::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
      emit movesOn(key);
      return true;
    }
  }
  return QLineEdit::event(event);
}

bool CellBox::MovesOn(const QKeyEvent& event) const {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
      return typing_;
    default:
      return false;
  }
}

void CellBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    emit cancelled();
  } else if (event->key() == Qt::Key_F2) {
    typing_ = !typing_;
  } else if (MovesOn(*event)) {
    emit movesOn(event);
  } else if (event->matches(QKeySequence::Paste)) {
    PasteText();
  } else if (event->text().isEmpty() || !event->text().front().isPrint() ||
             event->modifiers().testFlag(Qt::ControlModifier)) {
    if (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete) emit typed();
    QLineEdit::keyPressEvent(event);
  } else if (const QString passed = Filtered(event->text()); !passed.isEmpty()) {
    insert(passed);
  }
}

void CellBox::PasteText() {
  if (const QString passed = Filtered(QGuiApplication::clipboard()->text()); !passed.isEmpty())
    insert(passed);
}

void CellBox::inputMethodEvent(QInputMethodEvent* event) {
  const bool wasComposing = std::exchange(composing_, !event->preeditString().isEmpty());
  TakeComposed(event);
  // A composition that came to nothing leaves the cell as it was.
  if (wasComposing && !composing_ && typing_ && !isModified()) emit cancelled();
}

void CellBox::TakeComposed(QInputMethodEvent* event) {
  if (event->commitString().isEmpty()) {
    QLineEdit::inputMethodEvent(event);
    return;
  }
  QInputMethodEvent filtered(event->preeditString(), event->attributes());
  filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(),
                           event->replacementLength());
  QLineEdit::inputMethodEvent(&filtered);
  event->accept();
}

void CellBox::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A menu, or another program that is looked into, isn't the end of the typing.
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason &&
      reason != Qt::ActiveWindowFocusReason)
    emit left();
}

void CellBox::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Highlight), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

}  // namespace zorlan

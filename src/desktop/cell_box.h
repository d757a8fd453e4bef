// The box over a cell of a table form. It takes what the column's mask takes: from keys, from an input
// method, from the clipboard.
#pragma once

#include <QLineEdit>
#include <string>

#include "forms/table_form.h"

namespace zorlan {

class CellBox : public QLineEdit {
  Q_OBJECT
 public:
  explicit CellBox(QWidget* parent);

  void SetMask(std::string_view mask) { mask_ = mask; }
  /// A box that was opened by typing gives the arrow keys to the grid; one for editing keeps left and right.
  void SetTyping(bool typing) { typing_ = typing; }
  /// What the mask takes of the clipboard's text.
  void PasteText();

 signals:
  /// A key has passed the filter.
  void typed();
  /// A character was swallowed.
  void refused();
  /// A key that moves on: the box is to be closed, and the grid gets the key.
  void movesOn(QKeyEvent* event);
  void cancelled();
  void left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool MovesOn(const QKeyEvent& event) const;
  /// What an input method brings, through the filter.
  void TakeComposed(QInputMethodEvent* event);
  /// What of a text passes the filter.
  QString Filtered(const QString& text);

  std::string_view mask_ = kAnyText;
  bool typing_ = true;
  bool composing_ = false;  // an input method shows a text that isn't committed yet
};

}  // namespace zorlan

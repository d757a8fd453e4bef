// Windows that are larger than the room for them: their content scrolls, and the buttons at the bottom stay.
#pragma once

#include <QSize>

class QDialog;
class QWidget;

namespace zorlan {

/// Puts the content of a window with a layout into an area that scrolls, if it can't be made as small as
/// `room`; what has the focus comes into sight. A button box at the bottom stays in sight. Answers whether
/// the content scrolls now.
bool ScrollWhereTooLarge(QWidget& window, const QSize& room);

/// What every dialog gets when it comes up: it fits on its screen, Enter means the button of its bottom row
/// and not one among its fields, and a list of files is in Japanese.
void SettleDialog(QDialog& dialog);

}  // namespace zorlan

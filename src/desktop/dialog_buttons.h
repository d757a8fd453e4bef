// Buttons of forms and dialogs.
#pragma once

#include <QDialogButtonBox>
#include <string_view>

class QPushButton;

namespace zorlan {

/// "ＯＫ", which Enter presses unless another button has the focus, and "キャンセル"; Esc is the latter.
QDialogButtonBox* OkCancelButtons();

/// A button of a form, with an object name and a tip; Enter presses it where it has the keys.
QPushButton* CommandButton(std::string_view caption, const char* name, std::string_view tip);

}  // namespace zorlan

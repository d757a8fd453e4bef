// The two buttons under a dialog.
#pragma once

#include <QDialogButtonBox>

namespace zorlan {

/// "ＯＫ", which Enter presses unless another button has the focus, and "キャンセル"; Esc is the latter.
QDialogButtonBox* OkCancelButtons();

}  // namespace zorlan

#include "desktop/dialog_buttons.h"

#include <QIcon>
#include <QPushButton>

namespace zorlan {

QDialogButtonBox* OkCancelButtons() {
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("ＯＫ"));
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("ok"));
  buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("キャンセル"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cancel"));
  for (QAbstractButton* const button : buttons->buttons()) button->setIcon(QIcon());  // words are enough
  return buttons;
}

}  // namespace zorlan

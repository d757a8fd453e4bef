#include "desktop/dialog_buttons.h"

#include <QEvent>
#include <QIcon>
#include <QPushButton>

#include "render/qt_text.h"

namespace zorlan {
namespace {

/// A dialog learns which button its Enter goes back to, when another has had the focus, from a button that
/// becomes the default one inside of it: the box says so when it comes into its dialog.
class OkCancelBox : public QDialogButtonBox {
 public:
  OkCancelBox() : QDialogButtonBox(Ok | Cancel) {}

 protected:
  bool event(QEvent* event) override {
    const bool taken = QDialogButtonBox::event(event);
    if (event->type() == QEvent::ParentChange) {
      button(Ok)->setDefault(false);
      button(Ok)->setDefault(true);
    }
    return taken;
  }
};
constexpr int kButtonRoom = 12;  // pixels beside a caption

}  // namespace

QDialogButtonBox* OkCancelButtons() {
  auto* const buttons = new OkCancelBox;
  buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("ＯＫ"));
  buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("ok"));
  buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("キャンセル"));
  buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cancel"));
  for (QAbstractButton* const button : buttons->buttons()) button->setIcon(QIcon());  // words are enough
  return buttons;
}

QPushButton* CommandButton(std::string_view caption, const char* name, std::string_view tip) {
  auto* const button = new QPushButton(ToQt(caption));
  button->setObjectName(QString::fromLatin1(name));
  button->setToolTip(ToQt(tip));
  button->setAutoDefault(true);
  button->setMinimumWidth(button->sizeHint().width() + kButtonRoom);
  return button;
}

}  // namespace zorlan

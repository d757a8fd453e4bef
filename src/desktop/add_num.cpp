#include "desktop/add_num.h"

#include <cmath>
#include <QBoxLayout>
#include <QFormLayout>
#include <QPushButton>

#include "base/number.h"
#include "desktop/dialog_buttons.h"
#include "desktop/number_box.h"
#include "forms/small_forms.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr std::string_view kMask = "0.e-";

}  // namespace

AddNum::AddNum(std::string_view mode, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("AddNum"));
  setWindowTitle(ToQt(AddNumTitle(mode)));
  number_ = new NumberBox(kMask);
  number_->setObjectName(QStringLiteral("number"));
  number_->setAlignment(Qt::AlignRight);
  number_->setMinimumWidth(180);
  auto* const rows = new QFormLayout;
  rows->addRow(mode == kAddMode ? QStringLiteral("加える数値") : QStringLiteral("入れる数値"), number_);
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &AddNum::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &AddNum::reject);
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(false);
  connect(number_, &QLineEdit::textChanged, ok, [ok](const QString& text) {
    const std::string number = FromQt(text);
    ok->setEnabled(IsNumberText(number) && std::isfinite(ReadReal(number)));
  });
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(rows);
  column->addSpacing(8);
  column->addWidget(buttons);
}

std::string AddNum::Answer() const {
  return result() == Accepted ? FromQt(number_->text()) : std::string(kCancelled);
}

std::string AskNumber(std::string_view mode, QWidget* parent) {
  AddNum dialog(mode, parent);
  dialog.exec();
  return dialog.Answer();
}

}  // namespace zorlan

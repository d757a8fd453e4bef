#include "desktop/to_zor2.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/own_characters.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

QLineEdit* PathBox(const char* name) {
  auto* const box = new QLineEdit;
  box->setObjectName(QString::fromLatin1(name));
  box->setReadOnly(true);
  box->setMinimumWidth(440);
  return box;
}

/// A path box with the button beside it.
QPushButton* AddPathRow(QFormLayout& rows, const char* caption, QLineEdit* box, const char* buttonName) {
  auto* const button = new QPushButton(QStringLiteral("参照..."));
  button->setObjectName(QString::fromLatin1(buttonName));
  auto* const row = new QHBoxLayout;
  row->addWidget(box, 1);
  row->addWidget(button);
  rows.addRow(QString::fromUtf8(caption), row);
  return button;
}

}  // namespace

ToZOR2::ToZOR2(QWidget* parent) : QDialog(parent), dialog_(StartConvertDialog()) {
  setObjectName(QStringLiteral("ToZOR2"));
  setWindowTitle(QStringLiteral("データ変換（Ver1→Ver5）"));
  old_ = PathBox("old");
  target_ = PathBox("target");
  subtitle_ = new QLineEdit(ToQt(dialog_.subtitle));
  subtitle_->setObjectName(QStringLiteral("subtitle"));
  KeepOwnCharacters(*subtitle_);
  auto* const rows = new QFormLayout;
  QPushButton* const pickOld = AddPathRow(*rows, "変換前のモデル", old_, "pickOld");
  QPushButton* const pickTarget = AddPathRow(*rows, "変換後のモデル", target_, "pickTarget");
  rows->addRow(QStringLiteral("サブタイトル"), subtitle_);
  convert_ = new QPushButton(QStringLiteral("変換"));
  convert_->setObjectName(QStringLiteral("convert"));
  convert_->setDefault(true);
  auto* const closing = new QPushButton(QStringLiteral("閉じる"));
  closing->setObjectName(QStringLiteral("close"));
  auto* const buttons = new QDialogButtonBox;
  buttons->addButton(convert_, QDialogButtonBox::ActionRole);
  buttons->addButton(closing, QDialogButtonBox::RejectRole);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(rows);
  column->addWidget(buttons);

  connect(pickOld, &QPushButton::clicked, this, [this] {
    PickOldModel(dialog_);
    ShowPaths();
  });
  connect(pickTarget, &QPushButton::clicked, this, [this] {
    PickTarget(dialog_);
    ShowPaths();
  });
  connect(subtitle_, &QLineEdit::textChanged, this,
          [this](const QString& text) { dialog_.subtitle = FromQt(text); });
  connect(convert_, &QPushButton::clicked, this, &ToZOR2::Convert);
  connect(buttons, &QDialogButtonBox::rejected, this, &ToZOR2::reject);
  ShowPaths();
}

void ToZOR2::ShowPaths() {
  old_->setText(ToQt(dialog_.oldFolder));
  target_->setText(ToQt(dialog_.target.Deck()));
  convert_->setEnabled(!dialog_.oldFolder.empty() && !dialog_.target.model.empty());
}

void ToZOR2::Convert() {
  if (RunConversion(dialog_)) accept();
}

}  // namespace zorlan

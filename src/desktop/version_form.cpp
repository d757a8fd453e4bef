#include "desktop/version_form.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>

#include "base/host.h"
#include "desktop/icons.h"
#include "render/qt_text.h"
#include "shell/documents_folder.h"
#include "shell/start_up.h"

namespace zorlan {

frmVersion::frmVersion(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmVersion"));
  setWindowTitle(QStringLiteral("バージョン情報"));
  auto* const picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(64, 64));
  auto* const words = new QVBoxLayout;
  words->addWidget(new QLabel(ToQt(kApplicationTitle)));
  words->addWidget(new QLabel(ToQt(VersionText())));
  words->addSpacing(8);
  words->addWidget(new QLabel(ToQt(kSplashLines[0]) + QStringLiteral("　") + ToQt(kSplashLines[1])));
  auto* const row = new QHBoxLayout;
  row->setSpacing(20);
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addLayout(words);
  row->addStretch();
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addLayout(row);
  column->addWidget(buttons);
}

}  // namespace zorlan

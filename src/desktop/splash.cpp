#include "desktop/splash.h"

#include <QBoxLayout>
#include <QDialog>
#include <QFont>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

#include "base/host.h"
#include "desktop/icons.h"
#include "render/qt_text.h"
#include "shell/documents_folder.h"
#include "shell/start_up.h"

namespace zorlan {
namespace {

QLabel* Line(std::string_view text, double scale) {
  auto* const label = new QLabel(ToQt(text));
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  label->setFont(font);
  return label;
}

class SplashForm : public QDialog {
 public:
  SplashForm() : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    setModal(true);
    auto* const picture = new QLabel;
    picture->setPixmap(ProgramIcon().pixmap(96, 96));
    auto* const words = new QVBoxLayout;
    words->addWidget(Line(kApplicationTitle, 2));
    words->addWidget(Line(VersionText(), 1));
    words->addSpacing(12);
    for (const std::string_view line : kSplashLines) words->addWidget(Line(line, 1.2));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(28, 28, 36, 28);
    row->setSpacing(24);
    row->addWidget(picture, 0, Qt::AlignTop);
    row->addLayout(words);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override { event->accept(); }
};

}  // namespace

void ShowSplash() {
  SplashForm form;
  QTimer::singleShot(kSplashMilliseconds, &form, &QDialog::accept);
  form.exec();
}

}  // namespace zorlan

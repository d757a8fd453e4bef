#include "desktop/desktop_test.h"

#include <QLineEdit>

namespace zorlan::test {

void DesktopTest::OpenSample(const QString& model) {
  Script().Expect(QStringLiteral("frmProject"), [model](QWidget& dialog) {
    // Inserted, not typed: names are entered through an input method.
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    Child<QLineEdit>(&dialog, "model")->setText(model);
    Click(dialog, "ok");
  });
  Choose("mnuFileItem(1)");
}

ModalScript::Act DesktopTest::ChooseFile(const std::string& path) {
  return [path](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "fileNameEdit")->setText(ToQt(path));
    QTest::keyClick(Child<QLineEdit>(&dialog, "fileNameEdit"), Qt::Key_Return);
  };
}

}  // namespace zorlan::test

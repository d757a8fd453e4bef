// zorlan: the desktop program. One argument is accepted: the path of a deck to be opened.
#include <QFileInfo>
#include <QTimer>

#include "analysis/external_road.h"
#include "base/host.h"
#include "base/text_file.h"
#include "desktop/application.h"
#include "desktop/main_window.h"
#include "desktop/splash.h"
#include "desktop/system_printers.h"
#include "render/qt_text.h"
#include "shell/start_up.h"

int main(int argc, char** argv) {
  using namespace zorlan;
  Application application(argc, argv);
  SetUpApplication(application);
  ProgramFolder = FolderText(FromQt(QApplication::applicationDirPath()));
  ShowSplash();

  MainWindow window;
  StartUp start;
  start.install = InstallFolder(ZORLAN_SOURCE_DATA);
  start.printers = LookAtPrinters();
  switch (window.Load(start)) {
    case Started::Ready:
      break;
    case Started::AlreadyRunning:
      Tell("ZORLAN は、すでに起動しています。");
      return 0;
    case Started::NoTree:
      return 1;
  }
  window.show();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() > 1)
    QTimer::singleShot(0, &window, [&] { window.OpenDeck(QFileInfo(arguments.at(1)).absoluteFilePath()); });
  return QApplication::exec();
}

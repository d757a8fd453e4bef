// zorlan: the desktop program. One argument is accepted: the path of a deck to be opened.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <QFileInfo>
#include <QTimer>

#include "analysis/external_road.h"
#include "base/host.h"
#include "base/text_file.h"
#include "desktop/application.h"
#include "desktop/hand_over.h"
#include "desktop/main_window.h"
#include "desktop/splash.h"
#include "desktop/system_printers.h"
#include "render/qt_text.h"
#include "shell/start_up.h"

/// Without a screen the toolkit would abort, with a page of its own words.
static void EndWithoutScreen(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  const char* const display = std::getenv("DISPLAY");
  std::fprintf(stderr, "zorlan: 画面に接続できません（DISPLAY=%s）。画面のある環境で起動してください。\n",
               display == nullptr ? "" : display);
  std::_Exit(EXIT_FAILURE);
}

namespace zorlan {
namespace {

/// From the start to the exit; the program's exit code.
int Run(Application& application) {
  SetUpApplication(application);
  ProgramFolder = FolderText(FromQt(QApplication::applicationDirPath()));
  ShowSplash();

  MainWindow window;
  StartUp start;
  start.install = InstallFolder(ZORLAN_SOURCE_DATA);
  start.printers = LookAtPrinters();
  const QStringList arguments = QApplication::arguments();
  const QString deck = arguments.size() > 1 ? QFileInfo(arguments.at(1)).absoluteFilePath() : QString();
  switch (window.Load(start)) {
    case Started::Ready:
      break;
    case Started::AlreadyRunning:
      if (!HandOver(FromQt(deck))) Tell("ZORLAN は、すでに起動しています。");
      return 0;
    case Started::NoTree:
      return 1;
  }
  window.show();
  if (!deck.isEmpty()) QTimer::singleShot(0, &window, [&] { window.OpenDeck(deck); });
  return QApplication::exec();
}

}  // namespace
}  // namespace zorlan

int main(int argc, char** argv) {
  qInstallMessageHandler(EndWithoutScreen);
  zorlan::Application application(argc, argv);
  qInstallMessageHandler(nullptr);
  try {
    return zorlan::Run(application);
  } catch (const std::exception& fault) {
    zorlan::ReportError("main", fault.what());
    return EXIT_FAILURE;
  }
}

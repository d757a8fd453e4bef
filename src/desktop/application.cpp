#include "desktop/application.h"

#include <exception>
#include <memory>
#include <QDialog>
#include <QEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "desktop/boxes.h"
#include "desktop/busy.h"
#include "desktop/file_columns.h"
#include "desktop/icons.h"
#include "desktop/scroll_content.h"
#include "render/fonts.h"
#include "shell/commands.h"

/// The drawings lie in a library; the macro must stand outside of any namespace.
static void InitDrawings() {
  Q_INIT_RESOURCE(icons);
}

namespace zorlan {
namespace {

constexpr double kLabelPoints = 10;

void InstallDesktopHost() {
  Host host;
  host.message = ShowBox;
  host.question = AskBox;
  host.progress = ShowProgress;
  host.hourglass = SetBusy;
  host.runAndWait = RunAndWait;
  host.showListing = ShowListing;
  InstallHost(std::move(host));
}

void UseJapaneseWords(QApplication& application) {
  QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
  auto words = std::make_unique<QTranslator>(&application);
  if (words->load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(words.release());
  InstallMissingWords(&application);  // behind the others: the last one installed is asked first
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    if (event->type() == QEvent::Show && !event->spontaneous())
      if (auto* const dialog = qobject_cast<QDialog*>(receiver)) SettleDialog(*dialog);
    return QApplication::notify(receiver, event);
  } catch (const UserStop&) {
    EndBusy();
  } catch (const std::exception& fault) {
    EndBusy();
    ReportError("Application", fault.what());
  }
  return true;
}

void SetUpApplication(QApplication& application) {
  InitDrawings();
  UseJapaneseWords(application);
  const bool exact = InstallFonts();
  QApplication::setFont(LabelFont(kLabelPoints));
  QApplication::setWindowIcon(ProgramIcon());
  InstallDesktopHost();
  if (!exact)
    Tell(
        "フォント「IPAGothic」がありません。表の桁がそろわないことがあります。fonts-ipafont-gothic を"
        "インストールしてください。");
}

}  // namespace zorlan

#include "desktop/save_file.h"

#include <QFileDialog>
#include <QFileInfo>

#include "base/host.h"
#include "base/text_file.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

QString WithEnding(const QString& path, const QString& shown, const QString& ending) {
  if (path.isEmpty() || path.endsWith(ending, Qt::CaseInsensitive)) return path;
  const bool ofItsKind = shown.contains(QLatin1Char('*') + ending, Qt::CaseInsensitive);
  return ofItsKind || QFileInfo(path).suffix().isEmpty() ? path + ending : path;
}

bool MayReplace(const QString& path) {
  if (!FileExists(FromQt(path))) return true;
  const QString question =
      QStringLiteral("'%1' に上書きしてよろしいですか？").arg(QFileInfo(path).fileName());
  return TheHost().question(FromQt(question), kApplicationTitle, Buttons::YesNo) == Answer::Yes;
}

}  // namespace

QString AskSaveFile(QWidget* parent, const QString& caption, const QString& proposed, const QString& filter,
                    const QString& ending) {
  QString path = proposed, shown;
  do {
    // The dialog's own question would be about the name without its ending.
    path = WithEnding(QFileDialog::getSaveFileName(parent, caption, path, filter, &shown,
                                                   QFileDialog::DontConfirmOverwrite),
                      shown, ending);
  } while (!path.isEmpty() && !MayReplace(path));
  return path;
}

}  // namespace zorlan

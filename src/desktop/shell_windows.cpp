#include "desktop/shell_windows.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "desktop/add_num.h"
#include "desktop/danmen_input.h"
#include "desktop/figure_windows.h"
#include "desktop/folder_dialog_window.h"
#include "desktop/form.h"
#include "desktop/input_menu.h"
#include "desktop/kakunin_text.h"
#include "desktop/main_window.h"
#include "desktop/name_dialog_window.h"
#include "desktop/prn_text.h"
#include "desktop/project_dialog_window.h"
#include "desktop/table_window.h"
#include "render/qt_text.h"
#include "shell/project_copies.h"
#include "shell/project_dialog.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

void ShowTextIn(MainWindow& window, TextWindow where, int flag, const std::string& path) {
  if (where == TextWindow::Reader) {
    FormToShow<frmKakuninText> reader(window.Forms(), "frmKakuninText",
                                      [] { return std::make_unique<frmKakuninText>(); });
    reader->ShowListing(flag, path);
    reader.Show();
  } else {
    FormToShow<frmPrnText> preview = PreviewToShow(window);
    preview->ShowListing(flag, path);
    preview.Show();
  }
}

bool CloseFormOf(FormArea& forms, const std::string& name) {
  Form* const form = forms.Find(name);
  if (form == nullptr) return true;
  forms.BringToFront(form);  // what it may refuse must be seen
  return form->CloseForm();
}

/// Whether the system's file associations name a program for PDF files.
bool HasPdfViewer() {
  constexpr int kPatience = 3000;  // ms
  const QString query = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
  if (query.isEmpty()) return false;
  QProcess process;
  process.start(query,
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("application/pdf")});
  return process.waitForFinished(kPatience) && !process.readAllStandardOutput().trimmed().isEmpty();
}

}  // namespace

void InstallMainWindow(MainWindow& window) {
  FormArea& forms = window.Forms();
  ShellWindows table;
  table.openForms = [&forms] { return forms.Names(); };
  table.closeForm = [&forms](const std::string& name) { return CloseFormOf(forms, name); };
  table.formsChanged = [&forms] { return forms.AnyChanged(); };
  table.unloadForms = [&forms] { forms.UnloadAll(); };
  table.projectDialog = [&window](ProjectDialog& dialog) { ProjectDialogWindow(dialog, &window).exec(); };
  table.folderDialog = [&window](FolderDialog& dialog) { FolderDialogWindow(dialog, &window).exec(); };
  table.nameDialog = [&window](NameDialog& dialog) { NameDialogWindow(dialog, &window).exec(); };
  table.openInputMenu = [&window, &forms] {
    FormToShow<frmInputMenu>(forms, "frmInputMenu", [&] {
      return std::make_unique<frmInputMenu>(window);
    }).Show();
  };
  table.openModelFigure = [&window] { OpenModelFigure(window); };
  table.dropFigureData = [&window] { DropFigureData(window); };
  table.drawTyped = [&window](const std::vector<TypedTable>& typed) { DrawTyped(window, typed); };
  table.markInFigure = [&window](std::string_view key, int number) { MarkInFigure(window, key, number); };
  table.resetCascade = [&forms] { forms.ResetCascade(); };
  table.refresh = [&window] { window.Refresh(); };
  table.takeNodes = [&window](const std::vector<int>& nodes) { return TakePickedNodes(window, nodes); };
  table.takeElement = [&window](int element) { return TakePickedElement(window, element); };
  table.showRow = [&window](const std::string& key, int page, int number) {
    return ShowTableRow(window, key, page, number);
  };
  table.followControl = [&window] { FollowControl(window); };
  table.sectionEntry = [&window](std::vector<std::string>& cells) { return EnterSection(cells, &window); };
  table.addNum = [&window](std::string_view mode) { return AskNumber(mode, &window); };
  table.showText = [&window](TextWindow where, int flag, const std::string& path) {
    ShowTextIn(window, where, flag, path);
  };
  table.hasPdfViewer = HasPdfViewer;
  table.openPdf = [](const std::string& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path))); };
  InstallWindows(std::move(table));
}

}  // namespace zorlan

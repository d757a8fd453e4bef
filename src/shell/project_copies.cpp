#include "shell/project_copies.h"

#include <exception>
#include <string>

#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "shell/command_guard.h"
#include "shell/folder_tree.h"
#include "shell/folders.h"
#include "shell/project_dialog.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr std::string_view kBackUp = "バックアップ", kRestore = "リストア";

/// Shows the folder dialog; the folder chosen, with a closing separator, or empty.
std::string AskFolder(std::string_view heading, bool project, const std::string& start) {
  FolderDialog dialog{std::string(heading), project, start, false};
  TheWindows().folderDialog(dialog);
  return dialog.accepted ? FolderText(dialog.folder) : std::string();
}

/// Builds the copy beside its place, so that the old project stands until the new one is whole.
void CopyProject(const std::string& source, const std::string& target) {
  const std::string unfinished = UnfinishedFolder(target);
  DeleteTree(unfinished, /*removeTop=*/true);
  try {
    CopyFilesOf(source, unfinished);
  } catch (const Fault&) {
    DeleteTree(unfinished, /*removeTop=*/true);
    throw;
  }
  FinishFolder(target);
}

bool Accept(const NameDialog& dialog) {
  const std::string name = ProjectBoxText(dialog.name);
  if (name.empty() || !IsUsableName(name)) {
    Tell(name.empty() ? kNoProjectName : kBadProjectName);
    return false;
  }
  const std::string folder = FolderText(NoSpc(dialog.folder));
  const std::string project = name + kProjectEnding;
  const std::string target = folder + FindName(folder, project).value_or(project);
  if (LiesIn(dialog.source, target)) {
    Tell("コピー元とコピー先が同じフォルダです！！！");
    return false;
  }
  if (FolderExists(target) &&
      TheHost().question("既に同名のプロジェクトが存在します。既存プロジェクトを削除後、" + dialog.command +
                             "を行いますか？",
                         kApplicationTitle, Buttons::OkCancel) != Answer::Ok)
    return false;
  CopyProject(dialog.source, target);
  return true;
}

/// Source, destination and name, one dialog after the other; a cancelled one ends it all.
void CopyCommand(std::string_view command, const std::string& fixedTarget) {
  // A backup is mostly of the project in hand.
  const std::string start = fixedTarget.empty() ? DataPath + ProjectName : DataPath;
  const std::string source = AskFolder("コピー元のフォルダ", /*project=*/true, start);
  if (source.empty()) return;
  const std::string target =
      fixedTarget.empty() ? AskFolder("コピー先の指定", /*project=*/false, DataPath) : fixedTarget;
  if (target.empty()) return;
  NameDialog dialog{std::string(command), source, target, ProjectBoxText(LastName(source)), false};
  TheWindows().nameDialog(dialog);
}

}  // namespace

bool AcceptFolder(FolderDialog& dialog) {
  const std::string folder = FolderText(NoSpc(dialog.folder));
  const std::string name = LastName(folder);
  if (dialog.project && (!IsProjectName(name) || !FolderExists(folder))) {
    Tell("プロジェクト " + name + " フォルダを指定して下さい！！！");
    return false;
  }
  if (!FolderExists(folder)) {
    Tell(folder + " が見つかりません！！！");
    return false;
  }
  dialog.folder = folder;
  return dialog.accepted = true;
}

bool AcceptName(NameDialog& dialog) {
  try {
    dialog.accepted = Accept(dialog);
  } catch (const std::exception& fault) {
    dialog.accepted = false;
    ReportError("CopyProject", fault.what());
  }
  return dialog.accepted;
}

void BackUpProject() {
  RunCommand("BackUpProject", [] { CopyCommand(kBackUp, {}); });
}

void RestoreProject() {
  RunCommand("RestoreProject", [] { CopyCommand(kRestore, DataPath); });
}

void DeleteProject() {
  RunCommand("DeleteProject", [] {
    const std::string folder = AskFolder("プロジェクトフォルダ", /*project=*/true, DataPath + ProjectName);
    if (folder.empty()) return;
    if (!IsProjectName(LastName(folder))) {
      Tell("プロジェクトフォルダを指定してください");
      return;
    }
    if (TheHost().question(WithoutSeparator(folder) + " を削除してもいいですか？", kApplicationTitle,
                           Buttons::YesNo) != Answer::Yes)
      return;
    const bool inHand = HoldsModelInHand(folder);
    const bool named = !ProjectName.empty() && LiesIn(DataPath + ProjectName, folder);
    DeleteTree(folder, /*removeTop=*/true);
    if (inHand) ForgetModel();
    if (named && !ModelIsOpen) {
      ProjectName.clear();
      ModelFile.clear();
    }
  });
}

}  // namespace zorlan

// A user's account of a test's own: a documents folder, an install folder with small seed copies, and windows
// that do what the test has scripted and keep what they were asked.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/cp932.h"
#include "base/host.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "shell/project_copies.h"
#include "shell/project_dialog.h"
#include "shell/projects.h"
#include "shell/start_up.h"
#include "shell/windows.h"
#include "support/model_folder.h"
#include "temporary_folder.h"

namespace zorlan::test {

/// A frame of one column and one beam, fixed at its foot, one load case with one nodal load.
inline constexpr std::string_view kPortal =
    "@TITL   %タイトル\n門形\n\n"
    "@CONT   %コントロールデータ\n1,1,0,0\n\n"
    "@UNIT   %単位\n0,0,9.80665,0\n\n"
    "@NODE   %節点データ\n1,0,0,1,1,1\n2,0,4,0,0,0\n3,6,4,0,0,0\n\n"
    "@ELEM   %要素データ\n1,1,2,0,0,1,0\n2,2,3,0,0,1,0\n\n"
    "@SECT   %断面性能データ\n1,1,30,60,0,0,1,210,90\n\n"
    "@PLOD   %節点荷重データ\n1,3,0,-1,0\n\n";

class ShellTest : public testing::Test {
 protected:
  ShellTest() {
    for (const char* const table : {"H", "BOX", "PIPE", "MIZO", "YAMA"})
      Write(Install() + "鋼材TABLE/" + table + ".CSV", "");
    for (const char* const table : {"材種", "断面"}) Write(Install() + "木材TABLE/" + table + ".CSV", "");
    Write(Install() + "DATA/例題－１.zor/門形.inp", kPortal);
    InstallHost(ScriptedHost());
    InstallWindows(ScriptedWindows());
    ProjectName.clear();
    ModelFile.clear();
    PrinterSettings = {};
  }
  ~ShellTest() override {
    EndProgram();
    InstallHost({});
    InstallWindows({});
  }

  std::string Documents() const { return account_.Path() + "書類/"; }
  std::string Install() const { return account_.Path() + "install/"; }
  /// The program's tree.
  std::string Tree() const { return Documents() + "Quellwerk/ZORLAN_V6/"; }
  std::string Data() const { return Tree() + "DATA/"; }
  std::string Sample() const { return Data() + "例題－１.zor/"; }
  const std::string& Account() const { return account_.Path(); }

  /// Starts the program on this account.
  Started Start(const SystemPrinters& printers = {}) {
    return RunStartUp({Documents(), Install(), printers});
  }
  /// Starts it with the sample model in hand, what was told and done so far forgotten.
  void StartWithModel() {
    ASSERT_EQ(Start(), Started::Ready);
    TakeModel({Data(), "例題－１.zor/", "門形.inp"});
    Forget();
  }
  void Forget() {
    told.clear();
    done.clear();
  }

  /// Writes a text, given with LF, as a file of the system; its folders are made.
  static void Write(const std::string& path, std::string_view text) {
    std::filesystem::create_directories(NativePath(path).parent_path());
    ReplaceBytes(path, Cp932FromUtf8(CrLf(text)).bytes, Flush::No);
  }
  static std::string Read(const std::string& path) {
    return FileExists(path) ? ReadTextFile(path) : "(no file)";
  }
  /// Every file and folder below a folder, sorted, folders with a closing separator, as they lie below it.
  static std::vector<std::string> Listing(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(NativePath(folder)))
      names.push_back(PathText(std::filesystem::relative(entry.path(), NativePath(folder))) +
                      (entry.is_directory() && !entry.is_symlink() ? "/" : ""));
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The files of a tree with their contents: what a command that did nothing must leave.
  static std::map<std::string, std::string> Contents(const std::string& folder) {
    std::map<std::string, std::string> contents;
    for (const std::string& name : Listing(folder))
      contents[name] = FileExists(folder + name) ? ReadBytes(folder + name) : "";
    return contents;
  }

  /// Answers the next project dialog: fills the boxes and presses "ＯＫ"; then cancels if it stays.
  void OnDialog(std::string project, std::string model) {
    dialogs.push_back([this, project = std::move(project), model = std::move(model)](ProjectDialog& dialog) {
      dialog.project = project;
      dialog.model = model;
      AcceptProjectDialog(dialog);
    });
  }
  void OnDialogCancel() {
    dialogs.push_back([](ProjectDialog&) {});
  }

  std::vector<std::string> told;   // boxes and questions: "text", or "text [title]" under another title
  std::deque<Answer> answers;      // of the next questions; without one: the safe answer
  std::vector<std::string> done;   // what was asked of the windows
  std::vector<std::string> forms;  // open forms
  std::string stubborn;            // a form that refuses to close
  bool pdfViewer = true;
  std::deque<std::function<void(ProjectDialog&)>> dialogs;  // the next project dialogs; without one: cancel
  std::deque<std::function<void(FolderDialog&)>> folderDialogs;
  std::deque<std::function<void(NameDialog&)>> nameDialogs;
  std::vector<ProjectDialog> shown;  // the project dialogs as they opened

 private:
  Host ScriptedHost() {
    Host host;
    host.message = [this](std::string_view text, std::string_view title) { Note(text, title); };
    host.question = [this](std::string_view text, std::string_view title, Buttons buttons) {
      Note(text, title);
      if (answers.empty()) return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
      const Answer answer = answers.front();
      answers.pop_front();
      return answer;
    };
    host.showListing = [this](const std::string& path) { done.push_back("listing " + path); };
    return host;
  }

  void Note(std::string_view text, std::string_view title) {
    std::string box(text);
    if (title != kApplicationTitle) box.append(" [").append(title).append("]");
    told.push_back(box);
  }

  template <class Dialog>
  static void Next(std::deque<std::function<void(Dialog&)>>& scripts, Dialog& dialog) {
    if (scripts.empty()) return;
    const std::function<void(Dialog&)> script = scripts.front();
    scripts.pop_front();
    script(dialog);
  }

  std::function<void()> Does(const char* what) {
    return [this, what] { done.emplace_back(what); };
  }

  ShellWindows ScriptedWindows() {
    ShellWindows windows;
    windows.openForms = [this] { return forms; };
    windows.closeForm = [this](const std::string& form) {
      if (form == stubborn) return false;
      done.push_back("close " + form);
      std::erase(forms, form);
      return true;
    };
    windows.unloadForms = [this] {
      done.emplace_back("unload");
      forms.clear();
    };
    windows.projectDialog = [this](ProjectDialog& dialog) {
      shown.push_back(dialog);
      Next(dialogs, dialog);
    };
    windows.folderDialog = [this](FolderDialog& dialog) { Next(folderDialogs, dialog); };
    windows.nameDialog = [this](NameDialog& dialog) { Next(nameDialogs, dialog); };
    windows.openInputMenu = Does("input menu");
    windows.openModelFigure = Does("model figure");
    windows.resetCascade = Does("cascade");
    windows.dropFigureData = Does("figure data");
    windows.showText = [this](TextWindow window, int flag, const std::string& path) {
      done.push_back((window == TextWindow::Reader ? "read " : "preview ") + std::to_string(flag) + " " +
                     path);
    };
    windows.hasPdfViewer = [this] { return pdfViewer; };
    windows.openPdf = [this](const std::string& path) { done.push_back("pdf " + path); };
    return windows;
  }

  TemporaryFolder account_;
};

}  // namespace zorlan::test

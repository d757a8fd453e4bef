#include "shell/commands.h"

#include <string>

#include "analysis/static_analysis.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/input_list.h"
#include "model/model_state.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "shell/command_guard.h"
#include "shell/projects.h"
#include "shell/settings.h"
#include "shell/start_up.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr std::string_view kApp = "ZOR", kSection = "PrnText", kKey = "PrintFlag";

/// The deck of the check; the input list goes by the same name.
std::string ScratchDeck() {
  return WorkPath + "TmpFile.inp";
}

/// Whether a check has left no message: no file, or nothing in it.
bool HasNoMessages(const std::string& path) {
  return !FileExists(path) || ReadBytes(path).empty();
}

/// What the user must know of the last analysis before its numbers, all of it in one box.
void TellDoubts() {
  std::string text;
  for (const std::string& sentence : DoubtsAbout(LastAnalysis().trust).sentences)
    text += (text.empty() ? "" : "\n") + sentence;
  if (!text.empty()) Tell(text);
}

/// A design whose wizard isn't there yet.
void Design(std::string_view name) {
  RunCommand(name, [&] {
    if (ResultsForDesign()) Tell(std::string(name) + "は、まだできません");
  });
}

}  // namespace

void KeepPrintFlag(int printFlag) {
  try {
    SavePrivateSetting(kApp, kSection, kKey, std::to_string(printFlag));
  } catch (const Fault&) {
    // nothing is withheld for it
  }
}

void ShowText(int printFlag, bool preview, const std::string& path) {
  KeepPrintFlag(printFlag);
  TheWindows().showText(preview ? TextWindow::Preview : TextWindow::Reader, printFlag,
                        path.empty() ? PrintFile(printFlag) : path);
}

void ShowListing(const std::string& path) {
  TellDoubts();
  ShowText(kPrintListing, /*preview=*/false, path);
}

bool AnalyseModel() {
  bool done = false;
  RunCommand("AnalyseModel", [&] {
    LoadSectionTables();
    LoadTimberTables();
    if (!CloseInputForms() || !SaveNamedModel(MainCaption())) return;
    TheHost().hourglass(true);
    done = RunStaticAnalysis() != kFalse;
    TheHost().hourglass(false);
    LookAtResults();
    TheWindows().dropFigureData();
    ForgetSectionTables();  // the designs read them anew
    ForgetTimberTables();
  });
  return done;
}

void ShowAnalysisListing() {
  RunCommand("ShowAnalysisListing", [] { ShowText(kPrintListing, /*preview=*/false); });
}

void PrintAnalysisListing() {
  RunCommand("PrintAnalysisListing", [] { ShowText(kPrintListing, /*preview=*/true); });
}

void CheckInput() {
  RunCommand("CheckInput", [] {
    if (!CloseInputForms()) return;
    SaveDeck(/*deleteTables=*/false, ScratchDeck());
    try {
      ReadDeck(ScratchDeck(), /*checkMode=*/true);
    } catch (const Fault&) {  // which ends the check; what it found ahead of that row is shown all the same
      if (!HasNoMessages(PrintFile(kPrintCheck))) ShowText(kPrintCheckRead, /*preview=*/false);
      throw;
    }
    if (HasNoMessages(PrintFile(kPrintCheck)))
      TheHost().message("エラーはありませんでした。", "エラーチェック");
    else
      ShowText(kPrintCheckRead, /*preview=*/false);
  });
}

void PrintInputList() {
  RunCommand("PrintInputList", [] {
    if (!CloseInputForms()) return;
    SaveDeck(/*deleteTables=*/false, ScratchDeck());  // refuses what is no longer the whole model
    MakeInputList();
    ShowText(kPrintInputList, /*preview=*/true);
  });
}

bool ResultsForDesign() {
  if (FileExists(AnalysisPath + "FT031")) return true;
  Tell("再計算を行ってから、断面算定を行ってください");
  return false;
}

void DesignSteel() {
  Design("Ｓ断面算定");
}

void DesignConcrete() {
  Design("ＲＣ断面算定");
}

void DesignTimber() {
  Design("木造断面算定");
}

void ShowManual(const std::string& install) {
  RunCommand("ShowManual", [&] {
    const std::string manual = ManualPath(install);
    if (!TheWindows().hasPdfViewer())
      Tell("Acrobat Reader がインストールされていないため、ヘルプを表示できません！！！");
    else if (!FileExists(manual))
      Tell(manual + " が見つかりません！！！");
    else
      TheWindows().openPdf(manual);
  });
}

bool MayEnterForcedDisplacements() {
  if (InpModel.ModelCode != kPlaneGrid) return true;
  Tell("平面格子梁モデルの場合は、強制変位は入力できません");
  return false;
}

}  // namespace zorlan

// The commands of the main window beside those of the File menu on models: analysis, check, lists, design,
// help. They speak to the user through host.h and windows.h and never throw.
#pragma once

#include <string>
#include <string_view>

#include "output/print_flag.h"

namespace zorlan {

/// Keeps the flag under ("ZOR", "PrnText", "PrintFlag") and shows its file. `path` empty: PrintFile(flag).
void ShowText(int printFlag, bool preview, const std::string& path = {});
/// Keeps a flag alone. What fails is passed over: the window is told the flag as well.
void KeepPrintFlag(int printFlag);

/// "静解析": closes the table forms, saves the model without asking, analyses, and follows the result files.
/// True if it finished.
bool AnalyseModel();

void ShowAnalysisListing();   // "解析結果のリスト確認"
void PrintAnalysisListing();  // "解析結果のリスト印刷"

void CheckInput();      // "ﾃﾞｰﾀﾁｪｯｸ"
void PrintInputList();  // "入力ﾓﾃﾞﾙの印刷"

/// The guard in front of a design: false, and told, without results.
bool ResultsForDesign();
void DesignSteel();
void DesignConcrete();
void DesignTimber();

/// Opens the manual of the install folder in the system's viewer.
void ShowManual(const std::string& install);

/// Whether the forced displacements can be entered; with the plane grid the user is told that they can't.
bool MayEnterForcedDisplacements();

/// The host's showListing: the analysis listing in the reader, behind a box with what makes it doubtful.
void ShowListing(const std::string& path);

}  // namespace zorlan

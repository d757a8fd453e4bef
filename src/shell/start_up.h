// How the program comes up and goes down: its tree of folders under the user's documents, the seed copies of
// a first run, the order of the main form's load, and the end.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "shell/documents_folder.h"
#include "shell/settings.h"

namespace zorlan {

inline constexpr std::string_view kSampleProject = "例題－１.zor";

/// The lines of the splash form under title and version, and how long it stays at least.
inline constexpr std::string_view kSplashLines[] = {"応力解析・断面算定", "任意平面骨組",
                                                    "Windows 7 / 8.1 / 10 対応版", "Ver6"};
inline constexpr int kSplashMilliseconds = 2000;

/// What the start needs to know of the machine, and what of the desktop takes part in it.
struct StartUp {
  std::string documents;    // the user's documents folder; empty: DocumentsFolder()
  std::string install;      // the install folder: DATA, 鋼材TABLE, 木材TABLE, the manual
  SystemPrinters printers;  // installed printers
};

/// Sets AppPath under the documents folder (empty: DocumentsFolder()), and the folders of the models and of
/// the section tables in it. The work folders, which are one run's own, stay.
void SetTree(const std::string& documents);

/// Points the folders of the section tables that the tree lacks at the seed copies in the install folder.
void UseSeedTables(const std::string& install);

/// SetTree, and the work folders in the tree.
void SetFolders(const std::string& documents);

/// Makes the missing folders and brings the seed copies in, a deleted sample project included; then looks for
/// each file of the section tables, and tells and copies what is missing.
void SetUpFolders(const std::string& install);

/// One step of the main form's load. A step that throws is reported under its name, and the next one follows.
struct StartStep {
  std::string_view name;
  void (*run)(const StartUp& start);
};
/// The steps behind the folders of the program's tree, in their order.
std::span<const StartStep> StartSteps();

enum class Started {
  Ready,
  AlreadyRunning,  // another instance works in the tree: nothing was touched, and nothing told
  NoTree,          // the tree can't be made: the user was told
};

/// The main form's load: makes the tree, takes hold of it, and runs the steps.
Started RunStartUp(const StartUp& start);

/// What the exit command does.
enum class ExitWay {
  UnloadAll,   // the other forms one by one, window events between them, then the main form
  UnloadMain,  // the main form straight away
  Stay,
};
/// Asks as CloseModel does.
ExitWay LeaveProgram();

/// The main form's unload: empties the work folders and lets the tree go. Without a successful start it does
/// nothing. What fails is reported.
void EndProgram() noexcept;

}  // namespace zorlan

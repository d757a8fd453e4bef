#include "shell/start_up.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <filesystem>
#include <system_error>

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "shell/folders.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

/// A folder of section tables, its seed copy's name, its files, and what is told when one of them is missing.
struct TableFolder {
  std::string_view name;
  std::string& path;
  std::span<const std::string_view> files;
  std::string_view missing;
};

constexpr std::string_view kSteelFiles[] = {"H.CSV", "BOX.CSV", "PIPE.CSV", "MIZO.CSV", "YAMA.CSV"};
constexpr std::string_view kTimberFiles[] = {"材種.CSV", "断面.CSV"};
const TableFolder kTableFolders[] = {
    {"鋼材TABLE", SteelTableFolder, kSteelFiles, "が鋼材テーブルにありませんので、複写します"},
    {"木材TABLE", TimberTableFolder, kTimberFiles, "が木材テーブルにありませんので、複写します"},
};

/// Builds a folder as a copy of a seed folder, whole or not at all. What stands in its place stays, and is a
/// FileFault.
void BringFolder(const std::string& seed, const std::string& folder) {
  const std::string unfinished = UnfinishedFolder(folder);
  DeleteTree(unfinished, /*removeTop=*/true);
  MakeFolder(unfinished);
  CopyTree(seed, unfinished);
  RenameFile(WithoutSeparator(unfinished), WithoutSeparator(folder));
}

/// The sample project and whatever else the seed copy of DATA holds that isn't there.
void BringMissingProjects(const std::string& seed) {
  std::error_code error;  // an install folder without seed copies has nothing to bring
  std::filesystem::directory_iterator entry(NativePath(seed), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string name = PathText(entry->path().filename());
    if (entry->is_directory(error) && !FindName(DefaultDataPath, name))
      BringFolder(PathText(entry->path()), DefaultDataPath + name);
  }
}

void SetUpData(const std::string& seed) {
  if (!FolderExists(DefaultDataPath))
    BringFolder(seed, DefaultDataPath);
  else if (!FindName(DefaultDataPath, kSampleProject))
    BringMissingProjects(seed);
}

/// Tells and copies what is missing of a table folder's files.
void CheckTableFiles(const TableFolder& folder, const std::string& seed) {
  for (const std::string_view file : folder.files) {
    if (FindName(folder.path, file)) continue;
    Tell(std::string(file).append(folder.missing));
    try {
      CopyFileOver(FolderText(seed) + std::string(file), folder.path + std::string(file));
    } catch (const Fault&) {
      // Passed over: the table is empty then, and its editor can fill it.
    }
  }
}

/// Takes hold of the program's tree for this instance; the hold ends with the program, however that ends.
class TreeHold {
 public:
  /// False: another instance has it.
  bool Take() {
    if (held_) return true;
    file_ = ::open((AppPath + ".zorlan.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (file_ >= 0 && ::flock(file_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      ::close(file_);
      return false;
    }
    held_ = true;  // also where the file system knows no locks
    return true;
  }
  bool Held() const { return held_; }
  void Release() {
    if (held_ && file_ >= 0) ::close(file_);
    held_ = false;
  }

 private:
  int file_ = -1;
  bool held_ = false;
};
TreeHold Hold;

void ReportFault(std::string_view routine, const std::exception& fault) {
  ReportError(routine, fault.what());
}

/// Nothing of a former run survives in the work folders, the scratch files of its graphs included.
void EmptyWorkFolders() {
  ClearWork();
  ClearAnalysis();
}

constexpr StartStep kStartSteps[] = {
    {"SetUpFolders", [](const StartUp& start) { SetUpFolders(start.install); }},
    {"LoadDataPath",
     [](const StartUp&) {
       ModelChanged = ModelIsOpen = false;
       Results = {};
       LoadDataPath();
     }},
    {"ClearWork", [](const StartUp&) { EmptyWorkFolders(); }},
    {"RemoveAbandonedFiles",
     [](const StartUp&) {
       for (const std::string& folder :
            {AppPath, DataPath + ProjectName, SteelTableFolder, TimberTableFolder})
         RemoveAbandonedFiles(folder);
     }},
    {"DropFigureData", [](const StartUp&) { TheWindows().dropFigureData(); }},
    {"PrinterInfo", [](const StartUp& start) { PrinterInfo(/*write=*/false, start.printers); }},
    {"Refresh", [](const StartUp&) { TheWindows().refresh(); }},
    {"LoadSectionTables",
     [](const StartUp&) {
       ForgetSectionTables();
       ForgetTimberTables();
       LoadSectionTables();
       LoadTimberTables();
     }},
    {"InitModelDefaults", [](const StartUp&) { InitModelDefaults(); }},
};

}  // namespace

void SetTree(const std::string& documents) {
  AppPath = ProgramTree(documents.empty() ? DocumentsFolder() : documents);
  DefaultDataPath = FolderText(AppPath + "DATA");
  for (const TableFolder& folder : kTableFolders)
    folder.path = FolderText(AppPath + std::string(folder.name));
}

void UseSeedTables(const std::string& install) {
  for (const TableFolder& folder : kTableFolders)
    if (!FolderExists(folder.path)) folder.path = FolderText(FolderText(install) + std::string(folder.name));
}

void SetFolders(const std::string& documents) {
  SetTree(documents);
  WorkPath = FolderText(AppPath + "WK");
  AnalysisPath = FolderText(AppPath + "AN");
  DataPath = DefaultDataPath;
}

void SetUpFolders(const std::string& install) {
  for (const std::string& folder : {AppPath, WorkPath, AnalysisPath}) MakeFolder(folder);
  SetUpData(FolderText(install) + "DATA");
  for (const TableFolder& folder : kTableFolders) {
    const std::string seed = FolderText(install) + std::string(folder.name);
    if (!FolderExists(folder.path)) BringFolder(seed, folder.path);
    CheckTableFiles(folder, seed);
  }
}

std::span<const StartStep> StartSteps() {
  return kStartSteps;
}

Started RunStartUp(const StartUp& start) {
  TheWindows().resetCascade();
  SetFolders(start.documents);
  try {
    MakeFolder(AppPath);
  } catch (const Fault& fault) {
    ReportFault("RunStartUp", fault);
    return Started::NoTree;
  }
  if (!Hold.Take()) return Started::AlreadyRunning;
  for (const StartStep& step : StartSteps()) {
    try {
      step.run(start);
    } catch (const std::exception& fault) {
      ReportFault(step.name, fault);
    }
  }
  return Started::Ready;
}

ExitWay LeaveProgram() {
  try {
    switch (CloseModel()) {
      case kModelClosed:
        return ExitWay::UnloadAll;
      case kFormRefused:
        return ExitWay::UnloadMain;
      default:
        return ExitWay::Stay;
    }
  } catch (const std::exception& fault) {
    ReportFault("CloseModel", fault);
    return ExitWay::Stay;
  }
}

void EndProgram() noexcept {
  if (!Hold.Held()) return;
  try {
    EmptyWorkFolders();
  } catch (const std::exception& fault) {
    ReportFault("ClearWork", fault);
  }
  Hold.Release();
}

}  // namespace zorlan

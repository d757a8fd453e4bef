#include "analysis/static_analysis.h"

#include <filesystem>

#include "analysis/analysis_listing.h"
#include "analysis/analysis_state.h"
#include "analysis/external_road.h"
#include "analysis/merge.h"
#include "analysis/run_progress.h"
#include "analysis/stages.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

AnalysisReport Report;

constexpr int kInMemoryNodes = 29;  // more nodes take the file road
constexpr double kPivotTolerance = 1e-20;

/// FT031 is the last to come: who finds it finds all of them, also after a run that was killed.
constexpr std::string_view kResultFiles[] = {"FT021", "FT022", "FT022A", "FT031"};
/// The verdict on the results and its sentences; only where there is one.
constexpr const char* kVerdictFile = "DOUBTS";
/// What follows from the forces goes before them, and FT031 before its neighbours.
constexpr std::string_view kStaleAfterAnalysis[] = {"SIG_S", "DSNS", "DSNRC", "FT031", "FT021", kVerdictFile};

/// Told behind an unstable first solve of a case-by-case analysis.
constexpr std::string_view kFirstSolveHint =
    "傾斜ローラーと強制変位は、最初の解析では自由として扱います。それらがなくても安定な構造にしてください";

// The parts of a run.
constexpr std::string_view kSolving = "応力解析", kSolvingOutside = "応力解析（外部解析プログラム）",
                           kWritingResults = "解析結果の書き出し", kWritingListing = "解析結果のリストの作成";
constexpr RunPart kFirstSolve = {kSolving, 0, 0.25}, kSecondSolve = {kSolving, 0.25, 0.5},
                  kResults = {kWritingResults, 0.5, 0.7}, kListingOfNodes = {kWritingListing, 0.7, 0.78},
                  kListingOfMembers = {kWritingListing, 0.78, 1};
/// A case of a run that is solved case by case.
RunPart PartOfCase(int loadCase, int cases) {
  constexpr double kCases = 0.65;
  const double each = (kCases - kFirstSolve.to) / cases;
  return {kSolvingOutside, kFirstSolve.to + each * (loadCase - 1), kFirstSolve.to + each * loadCase};
}

using StageRoutine = void (*)();

/// Runs stages in their order until one leaves its note.
bool RunStages(std::initializer_list<StageRoutine> stages) {
  for (const StageRoutine stage : stages) {
    stage();
    if (!AnalysisError.empty()) return false;
  }
  return true;
}

bool RunFileRoad(bool groups) {
  return groups ? RunStages({DMATRIX, DFORWARB, DBACK_B, DREAC_C, DSTRESS1, DSTRESS2})
                : RunStages({DMATRIX, DFORWARA, DBACK_A, DREAC_C, DSTRESS1, DSTRESS2});
}

bool RunInMemoryRoad(bool groups) {
  if (groups) return RunStages({DSOLVE_1, DSOLVE2B, DREAC_B, DSTRESS1, DSTRESS2});
  if (CalcModel.SprgCount > 0) return RunStages({DSOLVE_1, DSOLVE_2A, DREAC_A, DSTRESS1, DSTRESS2});
  return RunStages({DSOLVE_1, DSOLVE_2A, DSTRESS1, DSTRESS2});
}

/// What keeps a model from being solved at all; empty: nothing.
std::string_view ModelObstacle() {
  if (CalcModel.NodeCount <= 1) return "節点データは、少なくとも２点以上入力してください";
  if (CalcModel.ElemCount == 0) return "要素データの入力がありません";
  if (CalcModel.ModelCode < kPlaneFrame || CalcModel.ModelCode > kPlaneGrid)
    return "コントロールデータの解析モデル番号は、１～３の値を入力してください";
  if (CalcModel.MaxLoadCase < 1 || CalcModel.MaxLoadCase > kMaxLoadCases)
    return "コントロールデータの最大荷重ケースは、１～２０の値を入力してください";
  return {};
}

void TellFailure(std::string_view hint = {}) {
  std::string text = AnalysisErrorDetail + " " + AnalysisError;
  if (!hint.empty()) text += "\n" + std::string(hint);
  TheHost().message(text, "解析失敗");
}

/// One solve of all load cases, results in memory. The hint is for an unstable structure.
bool Solve(std::string_view hint = {}) {
  PivotTolerance = kPivotTolerance;
  AnalysisError.clear();
  AnalysisErrorDetail.clear();
  ClearStages();
  TheHost().hourglass(true);
  AnalysisError = ModelObstacle();
  if (AnalysisError.empty()) {
    const bool groups = CalcModel.ModelCode == kSameDisplacementFrame && CalcModel.DispCount > 0;
    Report.road = CalcModel.NodeCount > kInMemoryNodes ? Road::File : Road::InMemory;
    if (Report.road == Road::File)
      RunFileRoad(groups);
    else
      RunInMemoryRoad(groups);
  }
  if (!AnalysisError.empty()) TellFailure(IsUnstable() ? hint : std::string_view());
  TheHost().hourglass(false);
  return AnalysisError.empty();
}

bool SolveAndWrite(std::string_view hint = {}) {
  if (!Solve(hint)) return false;
  BeginPart(kResults);
  RunStage("DSTRESS2", WriteStageResults);  // the stage that leaves the last of the files
  if (AnalysisError.empty()) return true;
  TellFailure();
  return false;
}

/// An in-program analysis is solved twice; the second run overwrites the first, so only its files are
/// written.
bool SolveTwice() {
  BeginPart(kFirstSolve);
  if (!Solve()) return false;
  BeginPart(kSecondSolve);
  if (!SolveAndWrite()) return false;
  Report.trust = AssessStages();
  return true;
}

/// The external road: one in-program solve, which holds for every model (a roller is free in it and forced
/// displacements don't count), then each case by the companion or from that solve's files. A further solve of
/// the unchanged model for each case of the second kind would give those files again.
bool SolveCaseByCase(bool roller) {
  BeginPart(kFirstSolve);
  if (!SolveAndWrite(kFirstSolveHint)) return false;
  Report.road = Road::External;
  Report.trust = AssessStages();
  MergedResults results(CalcModel.MaxLoadCase, CalcModel.NodeCount, CalcModel.ElemCount);
  for (int c = 1; c <= results.cases; ++c) {
    CalcModel = SavedCalcModel;
    BeginPart(PartOfCase(c, results.cases));
    if (roller || HasForcedDisplacement(c) != kFalse) {
      if (!SolveExternalCase(c, results)) return false;
      Report.trust[static_cast<std::size_t>(c - 1)] = AssessExternalCase(c, results);
    } else {
      CollectCaseResults(c, results);
      MagnifyForces(CalcModel, c, results);
    }
  }
  CalcModel = SavedCalcModel;
  BeginPart(kResults);
  WriteMergedResults(results);
  RemoveMagnification(CalcModel);
  RecomputeMidspan();
  if (AnalysisError.empty()) return true;
  TellFailure();
  return false;
}

void CopyResultFiles(const std::string& from, const std::string& to) {
  for (const std::string_view name : kResultFiles)
    ShareFileOver(from + std::string(name), to + std::string(name));
}

/// Leaves the verdict in both folders, for FT031 to come to.
void WriteVerdict() {
  const Doubts doubts = DoubtsAbout(Report.trust);
  if (doubts.verdict.empty()) return;
  std::string text = doubts.verdict + "\r\n";
  for (const std::string& sentence : doubts.sentences) text += sentence + "\r\n";
  ReplaceTextFile(AnalysisPath + kVerdictFile, text, Flush::No);
  ShareFileOver(AnalysisPath + kVerdictFile, ResultFolder() + kVerdictFile);
}

/// What a new analysis of the model in hand makes untrue, listing included.
void RemoveStaleResults() {
  RemoveFile(ListingPath());
  CleanResults(1);
}

/// A run that broke off leaves no result behind that could be taken for the deck's.
void DropBrokenRun() {
  EndParts();
  ClearStages();
  try {
    if (FolderExists(AnalysisPath)) CleanResults(0);
    if (!FolderExists(ResultFolder())) return;
    RemoveStaleResults();
    CopyResults();
  } catch (const Fault& fault) {
    ReportError("CleanResults", fault.what());
  }
}

/// The listing beside the deck. A fault in it is told and changes nothing else.
void WriteListing() {
  const std::pair<RunPart, StageRoutine> parts[] = {{kListingOfNodes, DSYSOUT1},
                                                    {kListingOfMembers, DSYSOUT2}};
  for (const auto& [part, stage] : parts) {
    AnalysisError.clear();
    AnalysisErrorDetail.clear();
    BeginPart(part);
    stage();
    if (!AnalysisError.empty()) Tell(AnalysisErrorDetail + " " + AnalysisError);
  }
  if (!FileExists(AnalysisPath + "FT100")) return;
  EndParts();
  ShareFileOver(AnalysisPath + "FT100", ListingPath());
  TheHost().showListing(ListingPath());
}

/// The analysis behind the reading of the deck.
bool Analyse() {
  CleanResults(0);
  RemoveStaleResults();
  CopyResults();
  SavedCalcModel = CalcModel;
  Report.nodes = CalcModel.NodeCount;
  Report.elements = CalcModel.ElemCount;
  Report.cases = CalcModel.MaxLoadCase;
  const bool roller = CalcModel.RollerFlag == 1 && HasInclinedRoller() != kFalse;
  bool forced = false;
  for (int c = 1; c <= CalcModel.MaxLoadCase && !forced; ++c) forced = HasForcedDisplacement(c) != kFalse;
  const bool solved = roller || forced ? SolveCaseByCase(roller) : SolveTwice();
  ClearStages();
  if (!solved) return false;
  WriteVerdict();
  CopyResultFiles(AnalysisPath, ResultFolder());
  WriteListing();
  return true;
}

}  // namespace

const AnalysisReport& LastAnalysis() {
  return Report;
}

std::string VerdictOnResults(const std::string& folder) {
  const std::string text = ReadTextFileIfAny(folder + kVerdictFile).value_or("");
  std::string_view rest = text;
  return std::string(TakeLine(rest).value_or(std::string_view()));
}

std::int16_t SolveStatic() {
  return SolveAndWrite() ? kTrue : kFalse;
}

std::int16_t RunStaticAnalysis() {
  Report = {};
  bool done = false;
  const char* routine = "ReadDeck";
  try {
    if (!FileExists(DeckPath())) throw FileFault(DeckPath(), "ファイルがありません");
    ReadDeck(DeckPath(), /*checkMode=*/false);
    Report.deckRead = true;
    if (CountSupports(CalcModel, 0) == 0) {
      Tell("支持点がありません");
      return kFalse;
    }
    routine = "RunStaticAnalysis";
    done = Analyse();
    CalcModel = SavedCalcModel;
  } catch (const std::exception& fault) {
    ReportError(routine, fault.what());
  } catch (...) {  // the user stopped the run
    DropBrokenRun();
    throw;
  }
  if (!done) DropBrokenRun();
  EndParts();
  return done ? kTrue : kFalse;
}

void CleanResults(int folder) {
  if (folder == 0) {
    RemoveFilesIn(AnalysisPath);
    return;
  }
  MakeFolder(ResultFolder());
  for (const std::string_view name : kStaleAfterAnalysis) RemoveFile(ResultFolder() + std::string(name));
}

void CopyResults() {
  std::error_code ignored;  // what can't be looked at isn't a file to copy
  for (const std::filesystem::directory_entry& entry : EntriesOf(ResultFolder()))
    if (entry.is_regular_file(ignored))
      CopyFileOver(PathText(entry.path()), AnalysisPath + PathText(entry.path().filename()));
}

std::int16_t HasInclinedRoller() {
  for (int r = 1; r <= CalcModel.NodeCount; ++r) {
    const auto& code = CalcModel.Node[r].code;
    if (code[0] == kInclinedRoller && code[1] == kInclinedRoller && (code[2] == kFree || code[2] == kFixed))
      return kTrue;
  }
  return kFalse;
}

std::int16_t HasForcedDisplacement(int loadCase) {
  for (int r = 1; r <= CalcModel.SpecCount; ++r)
    if (CalcModel.Spec[r].loadCase == loadCase) return kTrue;
  return kFalse;
}

int CountSupports(const ModelRec& model, int loadCase) {
  int supports = 0;
  for (int r = 1; r <= model.NodeCount; ++r) {
    const NodeRec& node = model.Node[r];
    bool supported = node.code[0] != kFree || node.code[1] != kFree || node.code[2] != kFree;
    for (int s = 1; s <= model.SpecCount && !supported; ++s)
      supported = model.Spec[s].loadCase == loadCase && model.Spec[s].node == node.number;
    supports += supported ? 1 : 0;
  }
  return supports;
}

}  // namespace zorlan

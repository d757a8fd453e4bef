// The driver of the static analysis: reads the deck, chooses the road, runs the stages in their order, leaves
// the result files in `<model>.ANA` and the listing beside the deck.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/result_files.h"
#include "model/model_rec.h"

namespace zorlan {

inline constexpr std::int16_t kTrue = -1, kFalse = 0;  // the 16-bit flags of the required signatures

/// The whole analysis of the model in hand (DataPath + ProjectName + ModelFile). Speaks to the user through
/// the host.
std::int16_t RunStaticAnalysis();

/// One run of the in-program solver for all load cases on CalcModel: result files in AnalysisPath.
std::int16_t SolveStatic();

/// 0: deletes every file in AnalysisPath. 1: makes `<model>.ANA` if it is missing and deletes in it what a
/// new analysis makes stale: FT021, FT031, SIG_S, DSNS, DSNRC; all else is kept.
void CleanResults(int folder);

/// Copies every file of `<model>.ANA` to AnalysisPath.
void CopyResults();

/// Whether a node of CalcModel is an inclined roller: codes 4, 4, 0 or 4, 4, 1.
std::int16_t HasInclinedRoller();
/// Whether CalcModel has a forced displacement in this load case.
std::int16_t HasForcedDisplacement(int loadCase);
/// Nodes with a code that is not 0, or with a forced displacement in this load case; each counts once.
int CountSupports(const ModelRec& model, int loadCase);

/// Which road the last run took, for who tells the user.
enum class Road { None, InMemory, File, External };
Road LastRoad();

/// Results of several runs, case by case, as the external road gathers them.
struct MergedResults {
  MergedResults(int caseCount, int nodeCount, int elementCount);
  int cases, nodes, elements;
  std::vector<double> displacements;  // case, node row, 3
  std::vector<double> forces;         // case, element row, 7
  std::vector<int> supports;          // node numbers in the order met
  /// Place of a node in `supports` (from 0), appended if it is new.
  int SupportPlace(int node);
  /// The three reactions of support place s in a case (from 1).
  double* Reaction(int loadCase, int supportPlace);

 private:
  std::vector<double> reactions_;  // case, support place, 3; stretched as supports come
};

/// Takes one case (from 1) out of FT021, FT022 and FT031 in AnalysisPath. The reaction of a node with a code
/// 3 or 23 in CalcModel is the sum of the member end forces that meet it.
void CollectCaseResults(int loadCase, MergedResults& results);

/// Writes the four result files of AnalysisPath, supported nodes in ascending order of number.
void WriteMergedResults(const MergedResults& results);

}  // namespace zorlan

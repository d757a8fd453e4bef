// The driver of the static analysis: reads the deck, chooses the road, runs the stages in their order, leaves
// the result files in `<model>.ANA` and the listing beside the deck.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/result_files.h"
#include "analysis/trust.h"
#include "model/model_rec.h"

namespace zorlan {

inline constexpr std::int16_t kTrue = -1, kFalse = 0;  // the 16-bit flags of the required signatures

/// The whole analysis of the model in hand (DataPath + ProjectName + ModelFile). Speaks to the user through
/// the host.
std::int16_t RunStaticAnalysis();

/// One run of the in-program solver for all load cases on CalcModel: result files in AnalysisPath.
std::int16_t SolveStatic();

/// 0: deletes every file in AnalysisPath. 1: makes `<model>.ANA` if it is missing and deletes in it what a
/// new analysis makes stale: FT021, FT031, SIG_S, DSNS, DSNRC; all else is kept. Throws FileFault, as
/// CopyResults does.
void CleanResults(int folder);

/// Copies every file of `<model>.ANA` to AnalysisPath; without that folder there is nothing to copy.
void CopyResults();

/// Whether a node of CalcModel is an inclined roller: codes 4, 4, 0 or 4, 4, 1.
std::int16_t HasInclinedRoller();
/// Whether CalcModel has a forced displacement in this load case.
std::int16_t HasForcedDisplacement(int loadCase);
/// Nodes with a code that is not 0, or with a forced displacement in this load case; each counts once.
int CountSupports(const ModelRec& model, int loadCase);

/// Which solver a run took.
enum class Road { InMemory, File, External };

/// What the last run did, for who tells the user; all but `deckRead` is of a successful one.
struct AnalysisReport {
  bool deckRead = false;
  int nodes = 0, elements = 0, cases = 0;
  Road road = Road::InMemory;
  std::vector<CaseTrust> trust;  // a case each
};
const AnalysisReport& LastAnalysis();

/// What must be said of the results in a folder, in a few words; empty: nothing. It is kept beside them, in
/// the first line of the file DOUBTS, which sound results don't have, so that a model opened again still
/// tells it.
std::string VerdictOnResults(const std::string& folder);

}  // namespace zorlan

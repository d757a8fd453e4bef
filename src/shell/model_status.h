// What the status bar says of the model in hand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/model_state.h"

namespace zorlan {

/// Of what the results in the analysis folder are: there are none, of the model before it was changed, typed
/// cells included, or of the model as it stands.
enum class ResultState { None, Stale, Current };
ResultState StateOfResults();

/// Which of the result files whose age is looked at are of the model before it was changed: the forces and
/// the ratios of the designs.
std::vector<std::string_view> StaleResultFiles();

/// What the user is told where results of the model before it was changed are shown: of the analysis, of a
/// design whose file in the result folder is named. Empty where they are of the model as it stands, and where
/// there are none.
std::string_view StaleWords(std::string_view designFile = {});

/// What must be said beside the results in a folder: that they are stale, in the words above, or can't be
/// trusted. Empty: nothing.
std::string ResultRemark(std::string_view designFile = {}, const std::string& folder = AnalysisPath);
/// Tells it of the stored results with the deck's name, where nobody sees the status.
void TellResultRemark(std::string_view designFile = {});

/// Short texts for the user; an empty one has nothing to say.
struct ModelStatus {
  std::string model;    // its name
  std::string saved;    // whether it has unsaved changes
  std::string results;  // whether there are results, and of the model as it stands
  std::string kind;     // structural model
  std::string cases;    // number of load cases
  std::string units;    // of input and output
};
ModelStatus CurrentModelStatus();

}  // namespace zorlan

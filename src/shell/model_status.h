// What the status bar says of the model in hand.
#pragma once

#include <string>
#include <string_view>

namespace zorlan {

/// Of what the results in the analysis folder are: there are none, of the model before it was changed, typed
/// cells included, or of the model as it stands.
enum class ResultState { None, Stale, Current };
ResultState StateOfResults();
inline constexpr std::string_view kStaleResults = "解析結果は変更前のものです";

/// Short texts for the user; an empty one has nothing to say.
struct ModelStatus {
  std::string model;    // its name
  std::string saved;    // whether it has unsaved changes
  std::string results;  // whether there are results, and of the model as it stands
  std::string kind;     // structural model and load cases
  std::string units;    // of input and output
};
ModelStatus CurrentModelStatus();

}  // namespace zorlan

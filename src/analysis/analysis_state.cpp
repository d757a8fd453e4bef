#include "analysis/analysis_state.h"

namespace zorlan {

std::string AnalysisError, AnalysisErrorDetail;
double PivotTolerance = 1e-20;
ModelRec SavedCalcModel;

std::string StageNote(std::string_view stage) {
  return "エラー発生（IN " + std::string(stage) + "）";
}

}  // namespace zorlan

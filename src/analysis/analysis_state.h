// State of one analysis, and the fault handler that every stage runs behind.
#pragma once

#include <exception>
#include <new>
#include <string>
#include <string_view>

#include "model/model_rec.h"

namespace zorlan {

extern std::string AnalysisError;        // the failed stage's note; empty: no stage has failed
extern std::string AnalysisErrorDetail;  // what the fault says
extern double PivotTolerance;            // pivots below it count as 0; set at the start of a solve
extern ModelRec SavedCalcModel;  // CalcModel as read; the external road changes CalcModel case by case

/// "エラー発生（IN DMATRIX）"
std::string StageNote(std::string_view stage);

/// Runs one stage behind its fault handler: what the body throws becomes the note and the detail for the
/// driver.
template <class Body>
void RunStage(std::string_view stage, Body body) try {
  body();
} catch (const std::bad_alloc&) {
  AnalysisErrorDetail = "メモリが不足しています";
  AnalysisError = StageNote(stage);
} catch (const std::exception& fault) {
  AnalysisErrorDetail = fault.what();
  AnalysisError = StageNote(stage);
}

}  // namespace zorlan

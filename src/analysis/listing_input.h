// The input echo at the front of an analysis listing: the model's tables as the analysis has read them, in
// the units of the input.
#pragma once

#include <string>

#include "model/model_rec.h"

namespace zorlan {

/// The echo of the deck last read, from RawModel.
void MakeAnalysisInputList(std::string& text);

/// The echo of a model in the user's units: nodes with supports and springs, same-displacement groups,
/// elements, sections by TYPE, rigid zones, frame magnification, forced displacements, loads by case; an
/// empty line between the tables, none for a table without rows. UTF-8 with CR LF.
std::string AnalysisInputList(const ModelRec& model);

/// Its sections: a block for each TYPE that occurs, TYPE 0 to 12 in turn.
std::string SectionList(const ModelRec& model);

}  // namespace zorlan

// The text listing of an analysis: `FT100` in the analysis folder, which the driver copies to `<model>.out`.
// It is made from the deck last read and the result files in `<model>.ANA`.
#pragma once

#include <string>

#include "analysis/force_units.h"
#include "model/model_rec.h"

namespace zorlan {

/// Title, control information, the input echo if ListFlag asks for it, displacements, reactions: creates
/// FT100. A fault leaves the note "エラー発生（IN DSYSOUT1）"; the sections that were whole by then stay in
/// FT100.
void DSYSOUT1();

/// Member forces, appended to FT100. A fault leaves the note "エラー発生（IN DSYSOUT2）", and FT100 as it
/// was.
void DSYSOUT2();

/// The head of the listing; the two texts end with the empty lines behind them. UTF-8 with CR LF.
std::string ListingTitle(const ModelRec& model, const OutputForce& unit);
std::string ControlInformation(const ModelRec& model, const OutputForce& unit);

}  // namespace zorlan

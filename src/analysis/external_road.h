// The external road of the analysis: a load case that the in-program solver can't take (inclined rollers,
// forced displacements) goes to the companion program `anaZorlan` as a deck in fixed columns, and its printed
// output comes back into the merge. The files lie in AnalysisPath: FT999.INP, ANAZOR.CTL, FT999.OUT,
// FT999.ERR.
//
// The driver needs SolveExternalCase alone, and RemoveMagnification once all cases are merged. The forces
// that a case leaves in the merge are those of the magnified structure, the stiffness of the member times its
// magnification; RemoveMagnification takes it out of FT031.
#pragma once

#include <string>

#include "analysis/merge.h"
#include "model/model_rec.h"

namespace zorlan {

/// Where `anaZorlan` lies: the folder of the running program, with a closing separator. The app sets it at
/// its start.
extern std::string ProgramFolder;

/// One load case (from 1) of CalcModel from deck to merge: displacements, complete member end forces with
/// position 7 (the centre moment) left 0, reactions. CalcModel's codes are changed: a node moved by a forced
/// displacement gets 3 (23 where it has a spring). False after a message: the companion couldn't be started,
/// failed, was killed or cancelled, or a file couldn't be written or read.
bool SolveExternalCase(int loadCase, MergedResults& results);

/// Builds the translation tables of a model (t, m, rad) for a load case, keeps them for ReadExternalResults,
/// and writes FT999.INP. Throws Fault.
void WriteExternalDeck(const ModelRec& model, int loadCase);

/// Writes ANAZOR.CTL, removes what an earlier run left, starts `appFolder` + "anaZorlan" in AnalysisPath
/// through the host and waits for it. False after a message. Throws FileFault where the control file can't be
/// written.
bool RunExternalSolver(const std::string& appFolder);

/// FT999.OUT into the merge, by the tables of the last WriteExternalDeck. Throws Fault for an output that is
/// missing, cut short, or of another model.
void ReadExternalResults(int loadCase, MergedResults& results);

/// Makes the forces of a case that the in-program solver has solved (those of the plain members) what the
/// merge holds: those of the magnified structure. The driver calls it behind CollectCaseResults.
void MagnifyForces(const ModelRec& model, int loadCase, MergedResults& results);

/// Divides the frame magnification of each element out of its seven values of every case in FT031. Centre
/// moments hold the loads' plain part beside that of the end moments, so RecomputeMidspan comes behind.
void RemoveMagnification(const ModelRec& model);

/// A real in exactly ten characters, right-aligned, with all the digits that fit. Throws Fault for what is
/// not finite.
std::string ExternalReal(double value);

}  // namespace zorlan

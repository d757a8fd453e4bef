// The stages of one solve, under the names that their faults bear. Each takes what the stages before it have
// left in memory, runs behind its fault handler, and leaves its own result for the next; a stage whose input
// is missing fails.
#pragma once

#include <vector>

#include "analysis/merge.h"
#include "analysis/trust.h"

namespace zorlan {

/// Forgets what a former solve has left.
void ClearStages();

/// Whether the solve in hand has found the structure unstable, and told so.
bool IsUnstable();

// Element stage: from CalcModel to equations.
void DMATRIX();   // file road
void DSOLVE_1();  // in-memory road

// Solvers. An unstable structure is told to the user, and no displacements are left.
void DFORWARA();
void DBACK_A();
void DFORWARB();
void DBACK_B();
void DSOLVE_2A();  // leaves reactions too
void DSOLVE2B();

// Reactions.
void DREAC_C();  // file road
void DREAC_A();  // in-memory road: reactions of springs
void DREAC_B();  // in-memory road with groups

// Member forces.
void DSTRESS1();  // from the displacements
void DSTRESS2();  // with the loads

/// Midspan moments of a complete FT031 in AnalysisPath from its end moments and the loads of CalcModel;
/// rewrites the file. A form of DSTRESS2, whose name its fault bears.
void RecomputeMidspan();

/// Writes FT021, FT022, FT022A and FT031 of the last solve into AnalysisPath. Throws FileFault.
void WriteStageResults();

/// What is known of the last solve, by load case.
std::vector<CaseTrust> AssessStages();

/// What is known of a case (from 1) that the companion has just solved, by the equations of the last solve
/// and the codes and forced displacements of CalcModel, moved nodes marked.
CaseTrust AssessExternalCase(int loadCase, const MergedResults& results);

}  // namespace zorlan

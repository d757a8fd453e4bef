// The model in hand: the three model records, where its files lie, and what its units are. These globals are
// the edge of the system; kernels never see them.
#pragma once

#include <string>

#include "model/model_rec.h"

namespace zorlan {

extern ModelRec RawModel;   // as read from the deck
extern ModelRec InpModel;   // as read, arrays stretched to the limits: forms, lists, figures
extern ModelRec CalcModel;  // converted to t, m, rad: analysis, design

// Folders are UTF-8 texts with a closing separator.
extern std::string DataPath;         // holds the project folders
extern std::string ProjectName;      // the project folder in DataPath
extern std::string ModelFile;        // the deck's file name in the project folder; empty: no model is open
extern std::string AppPath;          // the program's tree under the user's documents folder
extern std::string DefaultDataPath;  // AppPath + "DATA\"
extern std::string WorkPath;         // table files and scratch files of the model in hand
extern std::string AnalysisPath;     // result files of the model in hand

extern bool ModelChanged;     // a table was committed since the last save
extern double GravityFactor;  // kN per t in force; with the next three set by each ReadDeck
extern std::int16_t InUnit, OutUnit;
extern std::int16_t ForceUnit;

/// How the names of a project's folder, a deck, its result folder and its stored listing end.
inline constexpr const char *kProjectEnding = ".zor", *kDeckEnding = ".inp", *kResultsEnding = ".ANA",
                            *kListingEnding = ".out";

/// Makes a deck the model in hand; its folder serves as the project's.
void SetModelInHand(const std::string& deck);

/// `name`, or ModelFile if it is left out, without the ".inp" and what follows it. ".inp" is looked for in
/// the text narrowed to half-width characters, so a full-width extension is cut too. A name without one stays
/// as it is.
std::string ModelBaseName();
std::string ModelBaseName(std::string_view name);

/// The deck of the model in hand, and its result folder `<model>.ANA` with a closing separator.
std::string DeckPath();
std::string ResultFolder();
/// Its stored listing `<model>.out`.
std::string ListingPath();

/// A new model's state: InpModel at its limits with the default header, and the table UNIT in the work
/// folder.
void InitModelDefaults();

/// Removes every file from the work folder, or the analysis folder.
void ClearWork();
void ClearAnalysis();

}  // namespace zorlan

// Projects and models on the disk and the model in hand. A project is a folder `<project>.zor`, a model a
// deck `<model>.inp` in it, with stored results `<model>.ANA` and the stored listing `<model>.out`.
//
// The commands of the File menu (NewModel and so on) speak to the user through host.h and windows.h and never
// throw: an unexpected error is reported and ends the command.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/model_state.h"

namespace zorlan {

/// Where a model lies, part by part as in DataPath, ProjectName and ModelFile.
struct ModelPlace {
  std::string dataPath, project, model;
  std::string Deck() const { return dataPath + project + model; }
  bool operator==(const ModelPlace&) const = default;
};
/// The place that the three globals name.
ModelPlace PlaceInHand();

/// Where the deck lies that the model in hand came from or was last saved as, also when it has lost its name;
/// empty for a new one. Its stored results are the model's.
const ModelPlace& Origin();

/// A model is in hand: opened or begun. ModelFile doesn't say so: at start it names the model of last time,
/// and a new model has no name.
extern bool ModelIsOpen;

/// The results of the model in hand that the menus follow. Looked at when a model is opened and after each
/// analysis; an edit doesn't touch them.
struct ResultFiles {
  bool forces = false;          // FT031 is there and not empty
  bool steelDesign = false;     // DSNS
  bool concreteDesign = false;  // DSNRC
  bool timberDesign = false;    // DSNW
  bool listing = false;         // <model>.out
};
extern ResultFiles Results;
void LookAtResults();
/// The listing alone: a command has removed it.
void LookAtListing();
/// Whether a folder of results holds forces now: FT031 is there and not empty.
bool HasForces(const std::string& folder = AnalysisPath);

/// The main window's caption: title and model, as the commands have set it.
const std::string& MainCaption();
/// Sets it from ProjectName and ModelFile.
void SetCaption();

/// The sixteen table forms, in capitals.
bool IsTableForm(std::string_view form);

/// Asks every open table form to close; false as soon as one refuses. CloseInputForms asks every form whose
/// name begins with "INP", in capitals or not.
bool CloseTableForms();
bool CloseInputForms();

/// Answers of CloseModel.
inline constexpr std::int16_t kModelClosed = -1, kFormRefused = 0, kUserCancelled = -999;

/// Closes the table forms, asks about saving a changed model, and empties the work folders. Throws Fault when
/// saving fails; the work folder is as it was then.
std::int16_t CloseModel();

// The commands of the File menu.
void NewModel();
void OpenModel();
void OverwriteModel();
void SaveModelAs();
void DeleteModel();

/// Opens the deck at a path: a double click on it, a drop, the list of recent models. False if it isn't open
/// then; the user was told, or has cancelled, and the model in hand stays.
bool OpenDeckFile(const std::string& path);

/// Saves the model in hand under its name. A model without a name gets one by the dialog, if it has control
/// data. False: there is nothing to save yet, which was told under `title`, or the user has cancelled. Throws
/// Fault.
bool SaveNamedModel(std::string_view title);

/// Brings a model in hand: tables into the work folder, results into the analysis folder. Throws Fault; no
/// model is open then.
void TakeModel(const ModelPlace& place);
/// The windows of a model just taken.
void ShowTakenModel();

/// Gives the model in hand another place: its name, caption and what is remembered of it.
void NameModel(const ModelPlace& place);

/// Whether the removal of a file or folder takes the deck of the model in hand away. A link takes away only
/// what was opened by way of it.
bool HoldsModelInHand(const std::string& path);
/// Ends the model in hand without saving, as after its deletion: no names, empty work folders, no windows.
void ForgetModel();

}  // namespace zorlan

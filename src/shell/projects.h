// Projects and models on the disk and the model in hand. A project is a folder `<project>.zor`, a model a
// deck
// `<model>.inp` in it, with stored results `<model>.ANA` and the stored listing `<model>.out`.
//
// The commands of the File menu (NewModel and so on) speak to the user through host.h and windows.h and never
// throw: an unexpected error is reported and ends the command.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

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

/// The main window's caption: title and model, as the commands have set it.
const std::string& MainCaption();
/// Sets it from ProjectName and ModelFile.
void SetCaption();

/// The sixteen table forms, in capitals.
bool IsTableForm(std::string_view form);

/// Asks every open table form to close; false as soon as one refuses.
bool CloseTableForms();

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

/// Saves the model in hand under its name, through the dialog if it has none, behind the test for control
/// data. False: no data yet (told), or cancelled. For overwriting and the analysis. Throws Fault.
bool SaveNamedModel();

/// Removes a folder with all that is in it, or (without `removeTop`) all that is in it. A link is removed
/// itself, and never what it points to; a path that is a link counts as one. Throws FileFault.
void DeleteTree(const std::string& path, bool removeTop);

/// Brings the model at these paths in hand: tables into the work folder, results into the analysis folder.
/// Throws Fault; no model is open then.
void TakeModel(const std::string& dataPath, const std::string& project, const std::string& model);

/// Empties model and names, as after the deletion of the model in hand.
void ForgetModel();

// Recent models, the latest first, full paths of decks. Kept in Setting.Ini.

inline constexpr std::size_t kMaxRecentModels = 9;
std::vector<std::string> RecentModels();
void NoteRecentModel(const std::string& deck);
void ForgetRecentModel(const std::string& deck);

}  // namespace zorlan

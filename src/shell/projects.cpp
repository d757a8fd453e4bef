#include "shell/projects.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <tuple>

#include "analysis/static_analysis.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/deck_notes.h"
#include "model/model_state.h"
#include "model/table_file.h"
#include "shell/command_guard.h"
#include "shell/folders.h"
#include "shell/project_dialog.h"
#include "shell/recent_models.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan {

bool ModelIsOpen = false;
ResultFiles Results;

namespace {

constexpr std::string_view kCaptionTitle = "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ";
constexpr std::string_view kNoData = "データ未入力です！！！";

std::string Caption(kCaptionTitle);
ModelPlace OriginInHand;

/// Asks the open forms that `asked` holds for to close; false as soon as one refuses.
template <class Predicate>
bool CloseForms(Predicate asked) {
  for (const std::string& form : TheWindows().openForms())
    if (asked(form) && !TheWindows().closeForm(form)) return false;
  return true;
}

/// The work folders without a model.
void EmptyHands() {
  ClearWork();
  ClearAnalysis();
  ModelChanged = ModelIsOpen = false;
  Results = {};
  OriginInHand = {};
}

/// InpModel for a deck that can't be read through: the control data alone, so that the tables can be mended.
void TakeHeaderOfTables() {
  InpModel = ModelRec();
  StretchToLimits(InpModel);
  TableIO(/*write=*/false, "CONT");
  if (TableRowCount == 0) return;
  const std::vector<std::string>& cells = TableRows.back().cells;
  std::size_t place = 0;
  for (std::int16_t* const field :
       {&InpModel.ModelCode, &InpModel.MaxLoadCase, &InpModel.ListFlag, &InpModel.RollerFlag}) {
    if (place < cells.size()) *field = ReadInt16(cells[place]).value_or(0);
    ++place;
  }
}

/// The header of the model in hand, for the menus and the forms.
void ReadHeader() {
  try {
    ReadDeck(DeckPath(), /*checkMode=*/false);
  } catch (const Fault&) {
    TakeHeaderOfTables();  // the check says what is wrong, row by row
  }
}

/// Results that can't be copied back whole aren't there at all: half of them would be taken for the model's.
void BringResultsBack() {
  CleanResults(0);
  try {
    CopyResults();
  } catch (const Fault&) {
    ClearAnalysis();
    throw;
  }
}

/// What is remembered of the model in hand, also for the next start. A path that the files can't hold is
/// told; the model is no worse for it.
void RememberPlace() {
  OriginInHand = PlaceInHand();
  NoteRecentModel(DeckPath());
  try {
    SaveDataPath();
  } catch (const Fault& fault) {
    ReportError("SaveDataPath", fault.what());
  }
}

/// The parts of a deck's path: the folder it lies in counts as its project.
ModelPlace PlaceOf(const std::string& deck) {
  const std::filesystem::path path = std::filesystem::absolute(NativePath(deck)).lexically_normal();
  const std::filesystem::path folder = path.parent_path();
  ModelPlace place;
  place.dataPath = FolderText(PathText(folder.parent_path()));
  if (folder.has_relative_path()) place.project = FolderText(PathText(folder.filename()));
  place.model = PathText(path.filename());
  return place;
}

/// Asks whether a changed model is to be saved, and does it. Answers as CloseModel does.
std::int16_t OfferSaving() {
  switch (TheHost().question("入力中のモデルを保存してよろしいですか？", kApplicationTitle,
                             Buttons::YesNoCancel)) {
    case Answer::Yes:
      break;
    case Answer::No:
      return kModelClosed;
    default:
      return kUserCancelled;
  }
  if (ModelFile.empty()) {
    ProjectDialog dialog;
    return ShowProjectDialog(DialogMode::SaveNew, dialog) ? kModelClosed : kFormRefused;
  }
  SaveDeck();
  return kModelClosed;
}

/// The windows for a model that comes in hand, in place of those of the last one.
void StartAfresh() {
  TheWindows().resetCascade();
  TheWindows().unloadForms();
}

}  // namespace

ModelPlace PlaceInHand() {
  return {DataPath, ProjectName, ModelFile};
}

const ModelPlace& Origin() {
  return OriginInHand;
}

bool HasForces(const std::string& folder) {
  std::error_code missing;
  const auto length = std::filesystem::file_size(NativePath(folder + "FT031"), missing);
  return !missing && length > 0;
}

void LookAtListing() {
  Results.listing = !ModelFile.empty() && FileExists(ListingPath());
}

void LookAtResults() {
  Results.forces = HasForces();
  Results.steelDesign = FileExists(AnalysisPath + "DSNS");
  Results.concreteDesign = FileExists(AnalysisPath + "DSNRC");
  Results.timberDesign = FileExists(AnalysisPath + "DSNW");
  LookAtListing();
}

const std::string& MainCaption() {
  return Caption;
}

void SetCaption() {
  const std::string name = ModelFile.empty() ? "<< NewData >>" : "<< " + ProjectName + ModelFile + " >>";
  Caption = std::string(kCaptionTitle) + "     " + name;
}

bool IsTableForm(std::string_view form) {
  const std::string name = UpperCase(form);
  return std::any_of(kTables.begin(), kTables.end(),
                     [&](const TableName& table) { return name == "INP" + std::string(table.key); });
}

bool CloseTableForms() {
  return CloseForms(IsTableForm);
}

bool CloseInputForms() {
  return CloseForms([](std::string_view form) { return UpperCase(form).starts_with("INP"); });
}

std::int16_t CloseModel() {
  if (!CloseTableForms()) return kFormRefused;
  const std::int16_t answer = ModelChanged ? OfferSaving() : kModelClosed;
  if (answer == kModelClosed) EmptyHands();
  return answer;
}

void NewModel() {
  RunCommand("NewModel", [] {
    if (CloseModel() == kFormRefused) return;
    ModelChanged = false;  // also when the user has cancelled: the new model begins all the same
    TheWindows().unloadForms();
    ProjectName.clear();
    ModelFile.clear();
    ClearAnalysis();
    Results = {};
    OriginInHand = {};
    InitModelDefaults();
    ModelIsOpen = true;
    SetCaption();
    TheWindows().dropFigureData();
    TheWindows().openInputMenu();
  });
}

void OpenModel() {
  RunCommand("OpenModel", [] {
    if (CloseModel() == kFormRefused) return;
    StartAfresh();
    ProjectDialog dialog;
    if (ShowProjectDialog(DialogMode::Open, dialog))
      ShowTakenModel();
    else
      SetCaption();
  });
}

bool OpenDeckFile(const std::string& path) {
  bool opened = false;
  RunCommand("OpenModel", [&] {
    const ModelPlace place = PlaceOf(path);
    if (ModelBaseName(place.model) == place.model || !CanReadFile(place.Deck())) {
      TellCannotOpen();
      ForgetRecentModel(place.Deck());
      return;
    }
    if (CloseModel() != kModelClosed) return;
    StartAfresh();
    TakeModel(place);
    ShowTakenModel();
    opened = true;
  });
  return opened;
}

bool SaveNamedModel(std::string_view title) {
  const bool noData = ModelFile.empty() && !FileExists(WorkPath + "CONT");
  if (!ModelIsOpen || noData) {
    TheHost().message(kNoData, title);
    return false;
  }
  if (ModelFile.empty()) {
    ProjectDialog dialog;
    if (!ShowProjectDialog(DialogMode::SaveNew, dialog)) return false;
  }
  SaveDeck();
  ModelChanged = false;
  return true;
}

void OverwriteModel() {
  RunCommand("OverwriteModel", [] {
    if (!CloseTableForms()) return;
    if (!FileExists(WorkPath + "CONT"))
      Tell(kNoData);
    else
      SaveNamedModel(kApplicationTitle);
  });
}

void SaveModelAs() {
  RunCommand("SaveModelAs", [] {
    if (!CloseTableForms()) return;
    if (!ModelIsOpen) {
      Tell(kNoData);
      return;
    }
    ProjectDialog dialog;
    if (!ShowProjectDialog(DialogMode::SaveAs, dialog)) SetCaption();  // the model has no name then
  });
}

void DeleteModel() {
  RunCommand("DeleteModel", [] {
    const std::string before = ModelFile;
    const bool inHand = ModelIsOpen;
    ProjectDialog dialog;
    const bool deleted = ShowProjectDialog(DialogMode::Delete, dialog);
    if (deleted && inHand && !ModelIsOpen) return;  // it was the model in hand, and is forgotten
    ModelFile = before;
    if (deleted && dialog.chosen == PlaceInHand()) ModelFile.clear();
  });
}

void TakeModel(const ModelPlace& place) {
  std::tie(DataPath, ProjectName, ModelFile) = std::tie(place.dataPath, place.project, place.model);
  for (const std::string& folder : {DataPath + ProjectName, ResultFolder()}) RemoveAbandonedFiles(folder);
  try {
    LoadDeck();
  } catch (const Fault&) {
    EmptyHands();
    ModelFile.clear();
    SetCaption();
    throw;
  }
  SetCaption();
  RememberPlace();
  ModelChanged = false;
  ModelIsOpen = true;
  ReadHeader();
  try {
    BringResultsBack();
  } catch (const Fault& fault) {
    ReportError("CopyResults", fault.what());
  }
  LookAtResults();
}

void ShowTakenModel() {
  TheWindows().dropFigureData();
  TheWindows().openInputMenu();
  TheWindows().openModelFigure();
  const std::string bytes = ReadBytes(DeckPath());
  if (const std::string why = WhyNoDeck(bytes); !why.empty()) {
    Tell(DeckPath() + " ： " + why);
    return;
  }
  std::string text;
  for (const std::string& note : DeckNotes(bytes, DeckUse::Opened)) text += "\n" + note;
  if (!text.empty()) Tell(DeckPath() + " ： " + text);
}

void NameModel(const ModelPlace& place) {
  std::tie(DataPath, ProjectName, ModelFile) = std::tie(place.dataPath, place.project, place.model);
  SetCaption();
  RememberPlace();
}

bool HoldsModelInHand(const std::string& path) {
  if (!ModelIsOpen || ModelFile.empty()) return false;
  const std::string deck = DeckPath(), top = WithoutSeparator(path);
  if (deck == top || deck.starts_with(FolderText(top))) return true;
  std::error_code ignored;  // what can't be looked at isn't a link
  return !std::filesystem::is_symlink(NativePath(top), ignored) && LiesIn(deck, top);
}

void ForgetModel() {
  EmptyHands();
  ProjectName.clear();
  ModelFile.clear();
  SetCaption();
  TheWindows().unloadForms();
}

}  // namespace zorlan

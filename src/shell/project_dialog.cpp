#include "shell/project_dialog.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "shell/folder_tree.h"
#include "shell/folders.h"
#include "shell/model_status.h"
#include "shell/settings.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr const char* kTestEnding = ".tmp";
constexpr std::string_view kNoModel = "モデル名は省略できません！！！";
constexpr std::string_view kBadModel = "モデル名に使用できない文字が含まれています！！！";

const DialogModeRow& RowOf(DialogMode mode) {
  return *std::find_if(kDialogModes.begin(), kDialogModes.end(),
                       [&](const DialogModeRow& row) { return row.mode == mode; });
}

/// Takes the mode's character off the end of ModelFile.
DialogMode TakeMode() {
  const char last = ModelFile.empty() ? '\0' : ModelFile.back();
  for (const DialogModeRow& row : kDialogModes) {
    if (row.character == '\0' || row.character != last) continue;
    ModelFile.pop_back();
    return row.mode;
  }
  return DialogMode::Open;
}

/// The path of a model without the ending of its deck.
std::string BasePath(const ModelPlace& place) {
  return place.dataPath + place.project + ModelBaseName(place.model);
}

bool Consents(const std::string& question, Buttons buttons) {
  const Answer answer = TheHost().question(question, kApplicationTitle, buttons);
  return answer == Answer::Yes || answer == Answer::Ok;
}

/// The name's place in the folder as it stands there, else as it would be made.
std::string NameIn(const std::string& folder, const std::string& name) {
  return FindName(folder, name).value_or(name);
}

/// Whether the folder takes a file of this name and gives it back. What keeps every file out of the folder is
/// a FileFault.
bool FolderTakes(const std::string& folder, const std::string& name) {
  if (FindName(folder, name)) return true;  // somebody's file: proof enough, and not ours to touch
  bool taken = false;
  try {
    ReplaceBytes(folder + name, {}, Flush::No);
    const std::optional<std::string> back = FindName(folder, name);
    taken = back && UpperCase(*back) == UpperCase(name);
  } catch (const FileFault&) {
    const std::string plain = folder + ".~zorlan" + kTestEnding;
    ReplaceBytes(plain, {}, Flush::No);
    RemoveFile(plain);
    return false;
  }
  RemoveFile(folder + name);
  return taken;
}

/// The folder of the box "データパス"; one left empty is the one in force.
std::string DataPathOf(const ProjectDialog& dialog) {
  const std::string_view path = NoSpc(dialog.dataPath);
  return path.empty() ? DataPath : FolderText(path);
}

/// The three parts that the boxes name; nothing if they name none, which the user was told. What a folder
/// has is proof of its name.
std::optional<ModelPlace> CheckNames(ProjectDialog& dialog) {
  const std::string project = ProjectBoxText(dialog.project), model = ModelBoxText(dialog.model);
  dialog.projectAtFault = true;
  if (project.empty() || model.empty()) {
    dialog.projectAtFault = project.empty();
    Tell(project.empty() ? kNoProjectName : kNoModel);
    return std::nullopt;
  }
  ModelPlace place;
  place.dataPath = DataPathOf(dialog);
  const std::string projectName = project + kProjectEnding;
  const std::optional<std::string> known = FindName(place.dataPath, projectName);
  if (!known && !IsUsableName(project)) {
    Tell(kBadProjectName);
    return std::nullopt;
  }
  place.project = FolderText(known.value_or(projectName));
  const std::string folder = place.dataPath + place.project;
  if (!FolderExists(folder)) {
    const std::string question = "フォルダ" + place.dataPath + projectName + " を新規作成してよいですか";
    if (!Consents(question, Buttons::OkCancel)) return std::nullopt;
    MakeFolder(folder);
  }
  dialog.projectAtFault = false;
  const std::optional<std::string> there = FindName(folder, model + kDeckEnding);
  place.model = there.value_or(model + kDeckEnding);
  if (!there && (!IsUsableName(model) || !FolderTakes(folder, model + kTestEnding))) {
    Tell(kBadModel);
    return std::nullopt;
  }
  return place;
}

/// Whether two paths are one file or folder, by whatever names.
bool IsSame(const std::string& a, const std::string& b) {
  return LiesIn(a, b) && LiesIn(b, a);
}

/// Gives the model at `to` the stored results of the one at `from`, and no others. A model that was never
/// stored has none.
void CopyStoredResults(const ModelPlace& from, const ModelPlace& to) {
  const std::string oldBase = BasePath(from), newBase = BasePath(to);
  const std::string oldResults = oldBase + kResultsEnding, newResults = newBase + kResultsEnding;
  if (!from.model.empty() && IsSame(oldResults, newResults)) return;
  RemoveStoredResults(to);
  if (from.model.empty()) return;
  const std::string oldListing = oldBase + kListingEnding;
  if (FileExists(oldListing)) CopyFileOver(oldListing, newBase + kListingEnding);
  if (!FolderExists(oldResults)) return;
  const std::string unfinished = UnfinishedFolder(newResults);
  DeleteTree(unfinished, /*removeTop=*/true);
  CopyFilesOf(oldResults, unfinished);
  FinishFolder(newResults);
}

/// Copied results are as new as their copy. Those of a former state of the model are made older than its deck
/// again, by which the status tells them.
void MakeOlderThanDeck(const ModelPlace& place, std::string_view name) {
  const std::string file = FolderText(BasePath(place) + kResultsEnding) + std::string(name);
  std::error_code error;  // without the file there is nothing to be taken for new
  const auto deck = std::filesystem::last_write_time(NativePath(place.Deck()), error);
  if (!error) std::filesystem::last_write_time(NativePath(file), deck - std::chrono::seconds(1), error);
}

bool MayOverwrite(const ModelPlace& place) {
  return !FileExists(place.Deck()) ||
         Consents("既存モデル '" + place.project + place.model + "' に上書きしてよろしいですか？",
                  Buttons::YesNo);
}

bool SaveUnder(const ModelPlace& place) {
  if (!MayOverwrite(place)) return false;
  const std::vector<std::string_view> stale = StaleResultFiles();
  SaveDeck(/*deleteTables=*/false, place.Deck());
  ModelChanged = false;
  try {
    CopyStoredResults(Origin(), place);
    for (const std::string_view name : stale) MakeOlderThanDeck(place, name);
  } catch (const Fault& fault) {
    ReportError("CopyResults", fault.what());  // the model itself is saved
  }
  NameModel(place);
  LookAtResults();
  return true;
}

bool DeleteChosen(const ModelPlace& place) {
  if (!FileExists(place.Deck())) {
    Tell(place.Deck() + " が見つかりません！！！");
    return false;
  }
  if (!Consents("モデル" + place.Deck() + "を削除してよろしいですか？", Buttons::YesNo)) return false;
  const bool inHand = HoldsModelInHand(place.Deck());
  RemoveFile(place.Deck());
  RemoveStoredResults(place);
  if (inHand) ForgetModel();
  return true;
}

bool OpenChosen(const ModelPlace& place) {
  if (!CanReadFile(place.Deck())) {
    TellCannotOpen();
    return false;
  }
  TakeModel(place);
  return true;
}

/// The old model's folder; its names are whatever the older release let them be.
bool AcceptOldModel(ProjectDialog& dialog) {
  const ModelPlace place = {DataPathOf(dialog), FolderText(NoSpc(dialog.project)),
                            FolderText(NoSpc(dialog.model))};
  if (place.model.empty()) {
    Tell(kNoModel);
    return false;
  }
  if (!FolderExists(place.Deck())) {
    TellCannotOpen();
    return false;
  }
  SaveVer1Path(place.dataPath, place.project, place.model);
  dialog.chosen = place;
  return true;
}

bool Accept(ProjectDialog& dialog) {
  if (dialog.mode == DialogMode::ConversionSource) return AcceptOldModel(dialog);
  const std::optional<ModelPlace> place = CheckNames(dialog);
  if (!place) return false;
  dialog.chosen = *place;
  switch (dialog.mode) {
    case DialogMode::Open:
      return OpenChosen(*place);
    case DialogMode::Delete:
      return DeleteChosen(*place);
    case DialogMode::CopySource:
      if (CanReadFile(place->Deck())) return true;
      TellCannotOpen();
      return false;
    case DialogMode::ConversionTarget:
      return MayOverwrite(*place);  // the conversion itself writes the deck
    default:
      return SaveUnder(*place);
  }
}

/// What ReadDeck changes of the model in hand; put back at the end.
class KeptModel {
 public:
  KeptModel()
      : raw_(std::move(RawModel)),
        inp_(std::move(InpModel)),
        calc_(std::move(CalcModel)),
        units_(GravityFactor, InUnit, OutUnit, ForceUnit) {
    RawModel = InpModel = CalcModel = ModelRec();
  }
  ~KeptModel() {
    RawModel = std::move(raw_);
    InpModel = std::move(inp_);
    CalcModel = std::move(calc_);
    std::tie(GravityFactor, InUnit, OutUnit, ForceUnit) = units_;
  }
  KeptModel(const KeptModel&) = delete;
  KeptModel& operator=(const KeptModel&) = delete;

 private:
  ModelRec raw_, inp_, calc_;
  std::tuple<double, std::int16_t, std::int16_t, std::int16_t> units_;
};

/// The date of a file's last change, "yyyy/mm/dd"; nothing if it can't be had.
std::optional<std::string> FileDate(const std::string& path) {
  struct stat state {};
  std::tm day{};
  if (::stat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
  if (::localtime_r(&state.st_mtime, &day) == nullptr) return std::nullopt;
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y/%m/%d", &day);
  return std::string(text.data(), length);
}

/// A count as the panel shows it: 0 is nothing.
std::string Count(int count) {
  return count == 0 ? std::string() : std::to_string(count);
}

void AddModelLines(const ModelRec& model, std::vector<std::string>& lines) {
  const int code = model.ModelCode;
  const bool plane = code == kPlaneFrame || code == kSameDisplacementFrame;
  lines.emplace_back(plane ? "平面解析" : code == kPlaneGrid ? "平面格子解析" : "");
  lines.push_back(std::string("同一変形") + (code == kPlaneFrame              ? "なし"
                                             : code == kSameDisplacementFrame ? "あり"
                                                                              : ""));
  const std::pair<std::string_view, int> counts[] = {
      {"節点     : ", model.NodeCount}, {"要素     : ", model.ElemCount},
      {"断面     : ", model.SectCount}, {"荷重ｹｰｽ  : ", model.MaxLoadCase},
      {"剛域指定 : ", model.RigdCount}, {"節点ばね : ", model.SprgCount},
      {"同一変形 : ", model.DispCount}, {"フレーム倍率 : ", model.AlfaCount},
  };
  for (const auto& [words, count] : counts) lines.push_back(std::string(words) + Count(count));
}

}  // namespace

void RemoveStoredResults(const ModelPlace& place) {
  RemoveFile(BasePath(place) + kListingEnding);
  DeleteTree(BasePath(place) + kResultsEnding, /*removeTop=*/true);
}

void TellCannotOpen() {
  TheHost().message(
      "データを開くことが出来ませんでした\nデータのパス名が正しく設定されているか確認してください",
      "データを開く");
}

bool IsUsableName(std::string_view name) {
  constexpr std::string_view kRefused = "/\\:*?\"<>|";  // by one file system or another
  constexpr std::size_t kLongest = 240;                 // bytes, with room for the endings
  const bool control = std::any_of(name.begin(), name.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; });
  return !control && !name.empty() && name.size() <= kLongest &&
         name.find_first_of(kRefused) == std::string_view::npos && !name.starts_with('.') &&
         !name.ends_with('.') && Cp932FromUtf8(name).lost.empty() && ModelBaseName(name) == name;
}

ProjectDialog StartProjectDialog() {
  ProjectDialog dialog;
  dialog.mode = TakeMode();
  dialog.heading = RowOf(dialog.mode).heading;
  if (dialog.heading.empty()) dialog.heading = "〔" + ProjectName + ModelFile + "〕";
  if (dialog.mode == DialogMode::ConversionSource) {
    std::string project, model;
    LoadVer1Path(dialog.dataPath, project, model);
    dialog.project = WithoutSeparator(project);
    dialog.model = WithoutSeparator(model);
  } else {
    dialog.dataPath = DataPath;
    dialog.project = ProjectBoxText(ProjectName);
    dialog.model = ModelBoxText(ModelFile);
  }
  return dialog;
}

bool AcceptProjectDialog(ProjectDialog& dialog) {
  try {
    dialog.accepted = Accept(dialog);
  } catch (const std::exception& fault) {
    dialog.accepted = false;
    ReportError("ProjectDialog", fault.what());
  }
  return dialog.accepted;
}

bool ShowProjectDialog(DialogMode mode, ProjectDialog& dialog) {
  if (mode == DialogMode::SaveNew || mode == DialogMode::ConversionSource) ModelFile.clear();
  if (RowOf(mode).character != '\0') ModelFile += RowOf(mode).character;
  dialog = StartProjectDialog();
  TheWindows().projectDialog(dialog);
  ModelFile = dialog.accepted ? std::string(NoSpc(ModelFile)) : std::string();
  return dialog.accepted;
}

std::string ProjectBoxText(std::string_view folderName) {
  const std::string whole = WithoutSeparator(NoSpc(folderName));
  std::string_view name = whole;
  if (IsProjectName(name)) name.remove_suffix(std::string_view(kProjectEnding).size());
  return std::string(NoSpc(name));
}

std::string ModelBoxText(std::string_view fileName) {
  const std::string_view name = NoSpc(fileName);
  const std::string base = ModelBaseName(name);
  const std::string_view ending = name.substr(base.size());
  // A name with ".inp" inside it is another name.
  return Narrowed(ending).size() == std::string_view(kDeckEnding).size() ? std::string(NoSpc(base))
                                                                         : std::string(name);
}

ModelInformation InformationOf(const std::string& deckPath) {
  ModelInformation information;
  const std::optional<std::string> date = FileDate(deckPath);
  if (!date) return information;
  information.lines = {LastName(deckPath), *date};
  const KeptModel kept;
  try {
    ReadDeck(deckPath, /*checkMode=*/false);
    information.model = std::move(InpModel);
    AddModelLines(information.model, information.lines);
  } catch (const std::exception& fault) {
    information.lines.emplace_back(fault.what());
  }
  return information;
}

ModelInformation InformationOf(const ProjectDialog& dialog) {
  if (dialog.mode == DialogMode::ConversionSource) return {};
  const std::string dataPath = DataPathOf(dialog);
  const std::string project = ProjectBoxText(dialog.project) + kProjectEnding;
  const std::string folder = dataPath + FolderText(NameIn(dataPath, project));
  return InformationOf(folder + NameIn(folder, ModelBoxText(dialog.model) + kDeckEnding));
}

}  // namespace zorlan

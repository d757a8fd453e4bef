#include "model/model_state.h"

#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/table_file.h"

namespace zorlan {

ModelRec RawModel, InpModel, CalcModel;
std::string DataPath, ProjectName, ModelFile, AppPath, DefaultDataPath, WorkPath, AnalysisPath;
bool ModelChanged = false;
double GravityFactor = kStandardGravity;
std::int16_t InUnit = 0, OutUnit = 0, ForceUnit = 0;

namespace {

/// Bytes in front of the ".inp" of `name`, both in half and in full width; the whole length without one.
std::size_t LengthWithoutExtension(std::string_view name) {
  const std::string ending = UpperCase(kDeckEnding);
  for (std::size_t at = 0; at < name.size(); ++at)
    if (UpperCase(Narrowed(name.substr(at))).starts_with(ending)) return at;
  return name.size();
}

}  // namespace

void SetModelInHand(const std::string& deck) {
  const std::size_t nameAt = deck.rfind('/') + 1;  // 0 without a folder
  DataPath = deck.substr(0, nameAt);
  ProjectName.clear();
  ModelFile = deck.substr(nameAt);
}

std::string ModelBaseName() {
  return ModelBaseName(ModelFile);
}

std::string ModelBaseName(std::string_view name) {
  return std::string(name.substr(0, LengthWithoutExtension(name)));
}

std::string DeckPath() {
  return DataPath + ProjectName + ModelFile;
}

std::string ResultFolder() {
  return FolderText(DataPath + ProjectName + ModelBaseName() + kResultsEnding);
}

std::string ListingPath() {
  return DataPath + ProjectName + ModelBaseName() + kListingEnding;
}

void StretchToLimits(ModelRec& model) {
  model.Node.Stretch(kMaxNodes);
  model.Elem.Stretch(kMaxElements);
  model.Sect.Stretch(kMaxTableRows);
  model.Plod.Stretch(kMaxTableRows);
  model.Elod.Stretch(kMaxTableRows);
  model.Clod.Stretch(kMaxTableRows);
  model.Tlod.Stretch(kMaxTableRows);
  model.Rigd.Stretch(kMaxTableRows);
  model.Sprg.Stretch(kMaxTableRows);
  model.Spec.Stretch(kMaxTableRows);
  model.Disp.Stretch(kMaxTableRows);
  model.Alfa.Stretch(kMaxTableRows);
}

void InitModelDefaults() {
  InpModel = ModelRec();
  StretchToLimits(InpModel);
  InpModel.Title = "新規";
  InpModel.SubTitle = "New";
  InpModel.ModelCode = kPlaneFrame;
  InpModel.MaxLoadCase = 1;
  InpModel.InUnit = 1;
  InpModel.OutUnit = 1;
  InpModel.SIFactor = kStandardGravity;
  InpModel.ForceUnit = 0;
  TableRows.clear();
  TableRows.push_back({"UNIT", {"1", "1", "9.80665", "0"}});
  TableRowCount = 1;
  TableIO(/*write=*/true, "UNIT");
}

void ClearWork() {
  ForgetTables();
  RemoveFilesIn(WorkPath);
}

void ClearAnalysis() {
  RemoveFilesIn(AnalysisPath);
}

}  // namespace zorlan

#include "shell/model_status.h"

#include <array>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "analysis/static_analysis.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text_file.h"
#include "model/table_file.h"
#include "shell/menu.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr std::array<std::string_view, 4> kKinds = {"", "一般任意平面骨組み", "同一変形条件付平面骨組み",
                                                    "平面格子梁"};

/// Cells of the row that counts, the last, of a table of one row in the work folder; none if it can't be
/// read: the status bar is no place for an error.
std::vector<std::string> CellsOf(std::string_view key) {
  try {
    const std::string path = WorkPath + std::string(key);
    if (!FileExists(path)) return {};
    std::vector<TableRow> rows = ParseTable(key, ReadTextFile(path));
    if (!rows.empty()) return std::move(rows.back().cells);
  } catch (const std::exception&) {
  }
  return {};
}

std::string_view UnitName(const std::vector<std::string>& cells, std::size_t place) {
  return place < cells.size() && IsSI(ReadInt16(cells[place]).value_or(0)) ? "ＳＩ単位" : "工学単位";
}

/// The place of the deck and the stored results of the model in hand, which may have lost its name.
ModelPlace Stored() {
  return ModelFile.empty() ? Origin() : PlaceInHand();
}

/// Where a result file of the model in hand lies: stored, else in the analysis folder.
std::filesystem::path ResultFile(std::string_view name) {
  const ModelPlace stored = Stored();
  const std::string folder =
      FolderText(stored.dataPath + stored.project + ModelBaseName(stored.model) + kResultsEnding);
  const std::string path = folder + std::string(name);
  return NativePath(FileExists(path) ? path : AnalysisPath + std::string(name));
}

/// Whether the tables hold more than the deck, or an open form more than its table.
bool IsChanged() {
  return ModelChanged || TheWindows().formsChanged();
}

/// Whether a result file is there and the model was changed since: the deck was written after it, or will be.
bool IsStale(std::string_view name) {
  std::error_code deckError, resultError;
  const auto result = std::filesystem::last_write_time(ResultFile(name), resultError);
  const auto deck = std::filesystem::last_write_time(NativePath(Stored().Deck()), deckError);
  return !resultError && (IsChanged() || (!deckError && deck > result));
}

constexpr std::string_view kStaleResults = "解析結果は変更前のものです";
constexpr std::string_view kStaleDesign = "断面算定の結果は変更前のものです";
constexpr std::string_view kForces = "FT031";
constexpr std::array<std::string_view, 3> kAgedFiles = {kForces, "SIG_S", "SIG_RC"};

std::string ResultText() {
  if (!HasForces()) return "解析結果なし";
  const std::string remark = ResultRemark();
  return remark.empty() ? "解析結果あり" : remark;
}

}  // namespace

ResultState StateOfResults() {
  if (!HasForces()) return ResultState::None;
  return IsStale(kForces) ? ResultState::Stale : ResultState::Current;
}

std::vector<std::string_view> StaleResultFiles() {
  std::vector<std::string_view> stale;
  for (const std::string_view name : kAgedFiles)
    if (IsStale(name)) stale.push_back(name);
  return stale;
}

std::string_view StaleWords(std::string_view designFile) {
  if (IsStale(kForces)) return kStaleResults;
  return !designFile.empty() && IsStale(designFile) ? kStaleDesign : std::string_view();
}

std::string ResultRemark(std::string_view designFile, const std::string& folder) {
  if (const std::string_view stale = StaleWords(designFile); !stale.empty()) return std::string(stale);
  return HasForces(folder) ? VerdictOnResults(folder) : "";
}

void TellResultRemark(std::string_view designFile) {
  const std::string remark = ResultRemark(designFile, ResultFolder());
  if (!remark.empty()) Tell(DeckPath() + " ： " + remark);
}

ModelStatus CurrentModelStatus() {
  if (!ModelIsOpen) return {"モデルなし", "", "", "", "", ""};
  ModelStatus status;
  status.model = ModelFile.empty() ? "NewData" : ModelBaseName();
  status.saved = IsChanged() || ModelFile.empty() ? "未保存" : "保存済み";
  status.results = ResultText();
  const MenuFacts facts = CurrentMenuFacts(/*tableFormInFront=*/false);
  if (facts.modelCode >= 1 && facts.modelCode <= 3) {
    status.kind = kKinds[static_cast<std::size_t>(facts.modelCode)];
    status.cases = "荷重ケース数 " + std::to_string(facts.maxLoadCase);
  }
  const std::vector<std::string> unit = CellsOf("UNIT");
  if (unit.size() >= 2)
    status.units = "入力 " + std::string(UnitName(unit, 0)) + "　出力 " + std::string(UnitName(unit, 1));
  return status;
}

}  // namespace zorlan

#include "shell/model_status.h"

#include <array>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/number.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "model/table_file.h"
#include "shell/menu.h"
#include "shell/projects.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr std::array<std::string_view, 4> kKinds = {"", "一般任意平面骨組み", "同一変形条件付平面骨組み",
                                                    "平面格子梁"};

/// Cells of a table of one row in the work folder; none if it can't be read: the status bar is no place for
/// an error.
std::vector<std::string> CellsOf(std::string_view key) {
  try {
    const std::string path = WorkPath + std::string(key);
    if (!FileExists(path)) return {};
    std::vector<TableRow> rows = ParseTable(key, ReadTextFile(path));
    if (!rows.empty()) return std::move(rows.front().cells);
  } catch (const std::exception&) {
  }
  return {};
}

std::string_view UnitName(const std::vector<std::string>& cells, std::size_t place) {
  return place < cells.size() && ReadReal(cells[place]) != 0 ? "ＳＩ単位" : "工学単位";
}

/// The place of the deck and the stored results of the model in hand, which may have lost its name.
ModelPlace Stored() {
  return ModelFile.empty() ? Origin() : PlaceInHand();
}

/// Whether the deck was written after its results. Results that aren't stored tell it by the time of the
/// analysis folder's.
bool DeckIsNewer() {
  const ModelPlace stored = Stored();
  const std::string base = stored.dataPath + stored.project + ModelBaseName(stored.model);
  const std::string forces = FolderText(base + kResultsEnding) + "FT031";
  std::error_code deckError, resultError;
  const auto deck = std::filesystem::last_write_time(NativePath(stored.Deck()), deckError);
  const auto result = std::filesystem::last_write_time(
      NativePath(FileExists(forces) ? forces : AnalysisPath + "FT031"), resultError);
  return !deckError && !resultError && deck > result;
}

/// Whether the tables hold more than the deck, or an open form more than its table.
bool IsChanged() {
  return ModelChanged || TheWindows().formsChanged();
}

std::string ResultText() {
  switch (StateOfResults()) {
    case ResultState::Stale:
      return std::string(kStaleResults);
    case ResultState::Current:
      return "解析結果あり";
    default:
      return "解析結果なし";
  }
}

}  // namespace

ResultState StateOfResults() {
  if (!HasForces()) return ResultState::None;
  return IsChanged() || DeckIsNewer() ? ResultState::Stale : ResultState::Current;
}

ModelStatus CurrentModelStatus() {
  if (!ModelIsOpen) return {"モデルなし", "", "", "", ""};
  ModelStatus status;
  status.model = ModelFile.empty() ? "NewData" : ModelBaseName();
  status.saved = IsChanged() || ModelFile.empty() ? "未保存" : "保存済み";
  status.results = ResultText();
  const MenuFacts facts = CurrentMenuFacts(/*tableFormInFront=*/false);
  if (facts.modelCode >= 1 && facts.modelCode <= 3)
    status.kind = std::string(kKinds[static_cast<std::size_t>(facts.modelCode)]) + "　荷重ケース数 " +
                  std::to_string(facts.maxLoadCase);
  const std::vector<std::string> unit = CellsOf("UNIT");
  if (unit.size() >= 2)
    status.units = "入力 " + std::string(UnitName(unit, 0)) + "　出力 " + std::string(UnitName(unit, 1));
  return status;
}

}  // namespace zorlan

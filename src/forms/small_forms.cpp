#include "forms/small_forms.h"

#include <cmath>
#include <filesystem>

#include "base/cp932.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "model/table_file.h"

namespace zorlan {
namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view kTooLong = "タイトルは半角７２文字以内で入力して下さい";
constexpr std::string_view kMark = "！！！";

constexpr std::string_view kModels[] = {"1：一般任意平面骨組み", "2：同一変形条件付平面骨組み",
                                        "3：平面格子梁"};
constexpr std::string_view kCounts[] = {"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10",
                                        "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"};
static_assert(std::size(kCounts) == kMaxLoadCases);
constexpr std::string_view kLists[] = {"0：出力しない", "1：出力する"};
constexpr std::string_view kRollers[] = {"0：無し", "1：有り"};

constexpr std::array<ControlChoice, kControlFields> kControl = {{
    {{"解析モデル番号", kModels}, 1},
    {{"最大荷重ケース", kCounts}, 1},
    {{"入力リスト出力", kLists}, 0},
    {{"傾斜ローラ", kRollers}, 0},
}};
constexpr int kGridIndex = kPlaneGrid - 1, kRollersOn = 1;

constexpr std::string_view kUnits[] = {"0：工学単位", "1：ＳＩ単位"};
constexpr std::string_view kForces[2][2] = {
    {" T（軸力、せん断力） ,  T・M（モーメント）", "kg（軸力、せん断力） , kg・M（モーメント）"},
    {"kN（軸力、せん断力） , kN・M（モーメント）", " N（軸力、せん断力） ,  N・M（モーメント）"}};
constexpr UnitField kUnitFields[] = {UnitField::Input, UnitField::Output, UnitField::Force};

std::string_view CellAt(const Cells& cells, std::size_t place) {
  return place < cells.size() ? std::string_view(cells[place]) : std::string_view();
}

/// The list index of a cell; kNotChosen for a value outside of the list.
int IndexOf(std::string_view cell, const ChoiceField& field, int firstValue) {
  const std::optional<std::int16_t> value = ReadInt16(cell);
  if (!value) return kNotChosen;
  const int index = *value - firstValue;
  return index >= 0 && index < static_cast<int>(field.choices.size()) ? index : kNotChosen;
}

/// The cells of a table's last row, which counts for ReadDeck; none without one.
Cells LastRow(std::string_view key) {
  TableIO(/*write=*/false, key);
  return TableRowCount > 0 ? TableRows.back().cells : Cells();
}

void WriteRow(std::string_view key, Cells cells) {
  TableRows = {{std::string(key), std::move(cells)}};
  TableRowCount = 1;
  TableIO(/*write=*/true, key);
  ModelChanged = true;
}

}  // namespace

std::string TitleFault(std::string_view title) {
  if (HalfWidth(title) > kMaxTitleWidth) return std::string(kTooLong) + std::string(kMark);
  const std::string lost = Cp932FromUtf8(title).lost;
  return lost.empty() ? std::string()
                      : "使用できない文字「" + lost + "」が含まれています" + std::string(kMark);
}

std::string_view TitleWarning(std::string_view title) {
  if (NoSpc(title).starts_with('@')) return "「@」で始まるタイトルは、保存したモデルを開いたときに失われます";
  if (title.find('%') != std::string_view::npos)
    return "「%」から後ろは、保存したモデルを開いたときに失われます";
  if (NoSpc(title).ends_with(',')) return "末尾の「,」は保存されません";
  if (title.find(',') != std::string_view::npos) return "「,」から後ろは、入力データリストに印刷されません";
  return {};
}

std::string LoadTitle(std::string_view key) {
  if (!HasTable(key)) return {};
  const std::string text = ReadTextFile(WorkPath + std::string(key));
  std::string_view rest = text;
  while (const std::optional<std::string_view> line = TakeLine(rest))
    if (const std::string_view title = NoSpc(*line); !title.empty()) return std::string(title);
  return {};
}

void SaveTitle(std::string_view key, std::string_view title) {
  WriteRow(key, {std::string(NoSpc(title))});
  (key == "TITL" ? InpModel.Title : InpModel.SubTitle) = NoSpc(title);
}

std::string NotChosenMessage(std::string_view title) {
  return std::string(title) + "の入力は省略できません" + std::string(kMark);
}

const ControlChoice& ControlChoiceOf(ControlField field) {
  return kControl[static_cast<std::size_t>(field)];
}

ControlEntry ControlOfCells(const Cells& cells) {
  ControlEntry entry;
  for (std::size_t i = 0; i < kControlFields; ++i)
    entry.index[i] = IndexOf(CellAt(cells, i), kControl[i], kControl[i].firstValue);
  if (!MayChooseRollers(entry)) entry[ControlField::Rollers] = 0;
  return entry;
}

Cells CellsOfControl(const ControlEntry& entry) {
  Cells cells;
  for (std::size_t i = 0; i < kControlFields; ++i)
    cells.push_back(std::to_string(entry.index[i] + kControl[i].firstValue));
  return cells;
}

void Choose(ControlEntry& entry, ControlField field, int index) {
  entry[field] = index;
  if (!MayChooseRollers(entry)) entry[ControlField::Rollers] = 0;
}

bool MayChooseRollers(const ControlEntry& entry) {
  return entry[ControlField::Model] != kGridIndex;
}

std::string_view ModelNote(const ControlEntry& entry) {
  return MayChooseRollers(entry)
             ? "傾斜ローラ有りの場合は、フレーム倍率データは扱いません"
             : "平面格子梁解析の時は、傾斜ローラデータ、および\n強制変位データは扱いません";
}

std::string_view LoadNote(const ControlEntry& entry) {
  return entry[ControlField::Rollers] == kRollersOn ? "傾斜ローラ有りの場合は、剛性割増データは扱いません"
                                                    : std::string_view();
}

std::optional<ControlField> MissingChoice(const ControlEntry& entry) {
  for (std::size_t i = 0; i < kControlFields; ++i)
    if (entry.index[i] == kNotChosen) return static_cast<ControlField>(i);
  return std::nullopt;
}

bool TablesCanBeEntered(const ControlEntry& entry) {
  return entry[ControlField::Model] != kNotChosen && entry[ControlField::LoadCases] != kNotChosen;
}

int RowsWithinCases(const std::vector<Cells>& rows, int loadCases) {
  int kept = 0;
  for (const Cells& row : rows) {
    if (ReadReal(CellAt(row, 0)) > loadCases) break;
    ++kept;
  }
  return kept;
}

ChoiceField UnitChoiceOf(UnitField field, int outputUnits) {
  switch (field) {
    case UnitField::Input:
      return {"入力単位", kUnits};
    case UnitField::Output:
      return {"出力単位", kUnits};
    case UnitField::Force:
      break;
  }
  return {"力の単位", kForces[outputUnits == 1 ? 1 : 0]};
}

UnitEntry UnitOfCells(const Cells& cells) {
  UnitEntry entry;
  entry[UnitField::Input] = IndexOf(CellAt(cells, 0), UnitChoiceOf(UnitField::Input, 0), 0);
  entry[UnitField::Output] = IndexOf(CellAt(cells, 1), UnitChoiceOf(UnitField::Output, 0), 0);
  entry.factor = NoSpc(CellAt(cells, 2));
  if (entry.factor.empty()) entry.factor = "0";
  entry[UnitField::Force] = IndexOf(CellAt(cells, 3), UnitChoiceOf(UnitField::Force, 0), 0);
  return entry;
}

Cells CellsOfUnit(const UnitEntry& entry) {
  const bool plain = ReadReal(entry.factor) == 0;
  return {std::to_string(entry[UnitField::Input]), std::to_string(entry[UnitField::Output]),
          plain ? RealText(kStandardGravity) : std::string(NoSpc(entry.factor)),
          std::to_string(entry[UnitField::Force])};
}

std::optional<double> FactorOf(const UnitEntry& entry) {
  const double factor = ReadReal(entry.factor);
  if (factor == 0) return kStandardGravity;
  if (factor < 0 || !std::isfinite(factor)) return std::nullopt;
  return factor;
}

std::optional<UnitField> MissingChoice(const UnitEntry& entry) {
  for (const UnitField field : kUnitFields)
    if (entry[field] == kNotChosen) return field;
  return std::nullopt;
}

std::string UnitFault(const UnitEntry& entry) {
  if (const std::optional<UnitField> missing = MissingChoice(entry))
    return NotChosenMessage(UnitChoiceOf(*missing, entry[UnitField::Output]).title);
  if (NoSpc(entry.factor).empty()) return NotChosenMessage(kFactorTitle);
  return FactorOf(entry) ? std::string()
                         : std::string(kFactorTitle) + "が入力範囲外です" + std::string(kMark);
}

std::string_view AddNumTitle(std::string_view mode) {
  return mode == kAddMode ? "加算" : "一括代入";
}

bool HasTable(std::string_view key) {
  return FileExists(WorkPath + std::string(key));
}

ControlEntry LoadControl() {
  if (HasTable("CONT")) return ControlOfCells(LastRow("CONT"));
  ControlEntry entry;
  for (std::size_t i = 0; i < kControlFields; ++i) {
    const std::int16_t value[] = {InpModel.ModelCode, InpModel.MaxLoadCase, InpModel.ListFlag,
                                  InpModel.RollerFlag};
    entry.index[i] = IndexOf(std::to_string(value[i]), kControl[i], kControl[i].firstValue);
  }
  return entry;
}

UnitEntry LoadUnit() {
  if (HasTable("UNIT")) return UnitOfCells(LastRow("UNIT"));
  return UnitOfCells({std::to_string(InpModel.InUnit), std::to_string(InpModel.OutUnit),
                      RealText(InpModel.SIFactor), std::to_string(InpModel.ForceUnit)});
}

void TakeControl(const ControlEntry& entry) {
  std::int16_t* const header[] = {&InpModel.ModelCode, &InpModel.MaxLoadCase, &InpModel.ListFlag,
                                  &InpModel.RollerFlag};
  for (std::size_t i = 0; i < kControlFields; ++i)
    if (entry.index[i] != kNotChosen)
      *header[i] = static_cast<std::int16_t>(entry.index[i] + kControl[i].firstValue);
}

void TakeUnit(const UnitEntry& entry) {
  std::int16_t* const header[] = {&InpModel.InUnit, &InpModel.OutUnit, &InpModel.ForceUnit};
  for (std::size_t i = 0; i < entry.index.size(); ++i)
    if (entry.index[i] != kNotChosen) *header[i] = static_cast<std::int16_t>(entry.index[i]);
  if (const std::optional<double> factor = FactorOf(entry)) InpModel.SIFactor = *factor;
}

bool DropResultsOfOtherCases() {
  bool any = false;
  for (const std::filesystem::directory_entry& file : EntriesOf(AnalysisPath)) {
    if (!UpperCase(PathText(file.path().filename())).starts_with("FT")) continue;
    RemoveFile(PathText(file.path()));
    any = true;
  }
  return any;
}

void CutElementLoads(int loadCases) {
  TableIO(/*write=*/false, "ELOD");
  std::vector<Cells> rows;
  for (int i = 0; i < TableRowCount; ++i) rows.push_back(TableRows[static_cast<std::size_t>(i)].cells);
  const int kept = RowsWithinCases(rows, loadCases);
  if (kept == TableRowCount) return;
  TableRowCount = kept;
  TableIO(/*write=*/true, "ELOD");
}

void SaveControl(const ControlEntry& entry) {
  WriteRow("CONT", CellsOfControl(entry));
  TakeControl(entry);
}

void SaveUnit(const UnitEntry& entry) {
  WriteRow("UNIT", CellsOfUnit(entry));
  TakeUnit(entry);
}

}  // namespace zorlan

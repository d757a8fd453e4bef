// ReadDeck: the deck's lines into records, with the first pass of the input check, and the conversion into
// analysis units.
#include <cmath>
#include <utility>

#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/deck_fields.h"
#include "model/input_check.h"
#include "model/model_state.h"
#include "model/number_rows.h"
#include "model/table_file.h"

namespace zorlan {
namespace {

/// One row of a deck section, its fields counted from 1.
class Row {
 public:
  explicit Row(std::string_view line) : line_(line), count_(SplitFields(line, fields_)) {}

  std::string_view Line() const { return line_; }
  int Count() const { return count_; }
  std::string_view Text(int field) const { return fields_[static_cast<std::size_t>(field)]; }
  double Real(int field) const {
    const double value = ReadReal(Text(field));
    if (!std::isfinite(value)) throw Fault(Named(field) + "は数値の範囲を超えています");
    return value;
  }
  std::int16_t Int(int field) const {
    const std::optional<std::int16_t> value = ReadInt16(Text(field));
    if (!value) throw Fault(Named(field) + "は整数の範囲（-32768～32767）を超えています");
    return *value;
  }

 private:
  std::string Named(int field) const {
    return "第" + std::to_string(field) + "項目 「" + std::string(Text(field)) + "」 ";
  }

  std::string_view line_;
  Fields fields_;
  int count_;
};

/// Appends a record and counts it.
template <class Record>
void Append(Rows<Record>& rows, std::int16_t& count, int limit, Record record) {
  if (count == limit) throw Fault("行数が上限の " + std::to_string(limit) + " を超えています");
  rows.Append(std::move(record));
  ++count;
}

class DeckReader {
 public:
  explicit DeckReader(CheckMessages& messages) : messages_(messages) { model_.SIFactor = kStandardGravity; }

  void ReadLine(std::string_view line);
  ModelRec TakeModel() { return std::move(model_); }

 private:
  /// A deck section: what the check says of a row with too few or too many fields, and who takes a row.
  struct Section {
    std::string_view name;
    std::string_view message;
    void (DeckReader::*read)(const Row&);
  };
  static const Section kSections[];

  void ReadControl(const Row& row);
  void ReadUnits(const Row& row);
  void ReadNode(const Row& row);
  void ReadElement(const Row& row);
  void ReadSection(const Row& row);
  void ReadNodalLoad(const Row& row);
  void ReadElementLoad(const Row& row);
  void ReadCmqLoad(const Row& row);
  void ReadTemperatureLoad(const Row& row);
  void ReadRigidZone(const Row& row);
  void ReadSpring(const Row& row);
  void ReadForcedDisplacement(const Row& row);
  void ReadGroup(const Row& row);
  void ReadMagnification(const Row& row);

  void AppendToGroup(DispRec& group, const Row& row);
  /// The node of this number among the nodes read so far; nothing if there is none.
  const NodeRec* FindNode(int number) const {
    const int row = nodeRows_.Row(number);
    return row == 0 ? nullptr : &model_.Node[row];
  }

  CheckMessages& messages_;
  ModelRec model_;
  NumberRows nodeRows_, groupRows_;
  std::string sectionName_;
  const Section* section_ = nullptr;
  const DeckSection* fields_ = nullptr;
};

const DeckReader::Section DeckReader::kSections[] = {
    {"CONT", {}, &DeckReader::ReadControl},
    {"UNIT", {}, &DeckReader::ReadUnits},
    {"NODE", kNodeFields, &DeckReader::ReadNode},
    {"ELEM", kElementFields, &DeckReader::ReadElement},
    {"SECT", kSectionFields, &DeckReader::ReadSection},
    {"PLOD", kNodalLoadFields, &DeckReader::ReadNodalLoad},
    {"ELOD", kElementLoadFields, &DeckReader::ReadElementLoad},
    {"CLOD", kCmqLoadFields, &DeckReader::ReadCmqLoad},
    {"TLOD", kTemperatureLoadFields, &DeckReader::ReadTemperatureLoad},
    {"RIGD", kRigidZoneFields, &DeckReader::ReadRigidZone},
    {"DISP", kGroupFields, &DeckReader::ReadGroup},
    {"SPRG", kSpringFields, &DeckReader::ReadSpring},
    {"SPEC", kForcedFields, &DeckReader::ReadForcedDisplacement},
    {"ALFA", kMagnificationFields, &DeckReader::ReadMagnification},
};

void DeckReader::ReadLine(std::string_view line) {
  if (line[0] == '@') {
    sectionName_ = UpperCase(line.substr(1));
    fields_ = FindDeckSection(sectionName_);
    section_ = nullptr;
    for (const Section& section : kSections)
      if (section.name == sectionName_) section_ = &section;
  } else if (sectionName_ == "TITL") {
    model_.Title = line;
  } else if (sectionName_ == "SUBT") {
    model_.SubTitle = line;
  } else if (section_ != nullptr) {
    const Row row(line);
    if (!fields_->Takes(row.Count()))
      messages_.AboutLine(section_->message, line);
    else
      (this->*section_->read)(row);
  }
}

void DeckReader::ReadControl(const Row& row) {
  model_.ModelCode = row.Int(1);
  model_.MaxLoadCase = row.Int(2);
  model_.ListFlag = row.Int(3);
  model_.RollerFlag = row.Int(4);
}

void DeckReader::ReadUnits(const Row& row) {
  model_.InUnit = row.Int(1);
  model_.OutUnit = row.Int(2);
  model_.SIFactor = row.Real(3);
  if (model_.SIFactor == 0) model_.SIFactor = kStandardGravity;
  model_.ForceUnit = row.Int(4);
}

void DeckReader::ReadNode(const Row& row) {
  NodeRec node;
  node.number = row.Int(1);
  node.X = row.Real(2);
  node.Y = row.Real(3);
  node.code = {row.Int(4), row.Int(5), row.Int(6)};
  node.rollerAngle = row.Real(7);
  Append(model_.Node, model_.NodeCount, kMaxNodes, node);
  nodeRows_.Note(node.number, model_.NodeCount);
}

void DeckReader::ReadElement(const Row& row) {
  ElemRec element;
  element.number = row.Int(1);
  element.I = row.Int(2);
  element.J = row.Int(3);
  element.II = row.Int(4);
  element.JJ = row.Int(5);
  element.section = row.Int(6);
  element.rigid = row.Int(7);
  const NodeRec* const i = FindNode(element.I);
  const NodeRec* const j = FindNode(element.J);
  if (i == nullptr) {
    messages_.Add(ElementNodeMessage(element.number, element.I));
  } else if (j == nullptr) {
    messages_.Add(ElementNodeMessage(element.number, element.J));
  } else {
    const double dx = j->X - i->X, dy = j->Y - i->Y;
    element.length = std::sqrt(dx * dx + dy * dy);
    if (!std::isfinite(element.length)) throw Fault("部材長が数値の範囲を超えています");
    if (element.length == 0) messages_.AboutLine(kElementLength, row.Line());
  }
  Append(model_.Elem, model_.ElemCount, kMaxElements, element);
}

void DeckReader::ReadSection(const Row& row) {
  SectRec section;
  section.number = row.Int(1);
  section.TYPE = row.Int(2);
  section.P1 = row.Real(3);
  section.P2 = row.Real(4);
  section.P3 = row.Real(5);
  section.P4 = row.Real(6);
  section.phi = row.Real(7);
  section.E = row.Real(8);
  section.G = row.Real(9);
  section.timberSection = row.Text(10);
  section.species = row.Text(11);
  Append(model_.Sect, model_.SectCount, kMaxTableRows, std::move(section));
}

void DeckReader::ReadNodalLoad(const Row& row) {
  Append(model_.Plod, model_.PlodCount, kMaxTableRows,
         PlodRec{row.Int(1), row.Int(2), row.Real(3), row.Real(4), row.Real(5)});
}

void DeckReader::ReadElementLoad(const Row& row) {
  ElodRec load{row.Int(1), row.Int(2), row.Real(3), row.Int(4), row.Real(5), row.Real(6), row.Int(7)};
  if (load.K == 0) load.K = 1;
  Append(model_.Elod, model_.ElodCount, kMaxTableRows, load);
}

void DeckReader::ReadCmqLoad(const Row& row) {
  Append(model_.Clod, model_.ClodCount, kMaxTableRows,
         ClodRec{row.Int(1), row.Int(2), row.Real(3), row.Real(4), row.Real(5), row.Real(6), row.Real(7),
                 row.Int(8)});
}

void DeckReader::ReadTemperatureLoad(const Row& row) {
  Append(model_.Tlod, model_.TlodCount, kMaxTableRows,
         TlodRec{row.Int(1), row.Int(2), row.Real(3), row.Real(4), row.Real(5), row.Real(6), row.Real(7),
                 row.Int(8)});
}

void DeckReader::ReadRigidZone(const Row& row) {
  Append(model_.Rigd, model_.RigdCount, kMaxTableRows, RigdRec{row.Int(1), row.Real(2), row.Real(3)});
}

void DeckReader::ReadSpring(const Row& row) {
  const std::int16_t number = row.Int(1);
  std::array<double, 3> K = {row.Real(2), row.Real(3), row.Real(4)};
  if (const NodeRec* const node = FindNode(number)) {
    for (std::size_t d = 0; d < 3; ++d) {
      if (K[d] == 0 || node->code[d] == kSpring) continue;
      messages_.AboutLine(kSpringDirection[d], row.Line());
      K[d] = 0;  // in a plain reading too: the analysis works without this spring
    }
  } else {
    messages_.AboutLine(kSpringNode, row.Line());
  }
  Append(model_.Sprg, model_.SprgCount, kMaxTableRows, SprgRec{number, K[0], K[1], K[2]});
}

void DeckReader::ReadForcedDisplacement(const Row& row) {
  const std::int16_t number = row.Int(1);
  if (FindNode(number) == nullptr) messages_.AboutLine(kForcedNode, row.Line());
  Append(model_.Spec, model_.SpecCount, kMaxTableRows,
         SpecRec{row.Int(2), number, row.Real(3), row.Real(4), row.Real(5)});
}

void DeckReader::ReadGroup(const Row& row) {
  if (model_.ModelCode == kSameDisplacementFrame && row.Count() < 2) {
    messages_.AboutLine(kGroupFields, row.Line());
    return;
  }
  const std::int16_t number = row.Int(1);
  if (const int known = groupRows_.Row(number); known != 0) {
    AppendToGroup(model_.Disp[known], row);  // the nodes of a row that adds to a group are not tested
    return;
  }
  DispRec group;
  group.group = number;
  AppendToGroup(group, row);
  for (int n = 1; n <= group.count; ++n) {
    const int node = group.node[static_cast<std::size_t>(n)];
    if (FindNode(node) == nullptr) messages_.Add(GroupNodeMessage(node));
  }
  Append(model_.Disp, model_.DispCount, kMaxTableRows, group);
  groupRows_.Note(number, model_.DispCount);
}

void DeckReader::AppendToGroup(DispRec& group, const Row& row) {
  for (int field = 2; field <= row.Count(); ++field) {
    if (group.count == kMaxGroupNodes)
      throw Fault("グループ " + std::to_string(group.group) + " の節点数が上限の " +
                  std::to_string(kMaxGroupNodes) + " を超えています");
    group.node[static_cast<std::size_t>(++group.count)] = row.Int(field);
  }
}

void DeckReader::ReadMagnification(const Row& row) {
  Append(model_.Alfa, model_.AlfaCount, kMaxTableRows, AlfaRec{row.Real(1), row.Real(2), row.Real(3)});
}

/// Factors that take the shape fields P1 to P4 of a TYPE into metres.
struct ShapeDivisors {
  double P1, P2, P3, P4;
};
constexpr ShapeDivisors kPlateShape = {1000, 1000, 1000, 1000};  // mm
constexpr ShapeDivisors kShapeDivisors[] = {
    {10000, 100000000, 1, 10000},  // 0: cm2, cm4, -, cm2
    {100, 100, 1, 10000},          // 1: cm, cm, -, cm2
    kPlateShape,
    kPlateShape,
    {1000, 1000, 1, 1},  // 4: mm, mm
    kPlateShape,
    kPlateShape,
    {1000, 1000, 1, 1000000},  // 7: mm, mm, -, mm2
    {1000, 1000, 1, 1000000},
    kPlateShape,
    kPlateShape,
    kPlateShape,
    kPlateShape,
};

void ConvertForcesFromSI(ModelRec& model, double g) {
  for (int r = 1; r <= model.SectCount; ++r) {
    SectRec& section = model.Sect[r];
    section.E = section.E / 10 / g;
    section.G = section.G / 10 / g;
  }
  for (int r = 1; r <= model.PlodCount; ++r)
    for (double* F : {&model.Plod[r].F1, &model.Plod[r].F2, &model.Plod[r].F3}) *F /= g;
  for (int r = 1; r <= model.ElodCount; ++r) model.Elod[r].P /= g;
  for (int r = 1; r <= model.ClodCount; ++r) {
    ClodRec& load = model.Clod[r];
    for (double* value : {&load.Ci, &load.Mo, &load.Cj, &load.Qi, &load.Qj}) *value /= g;
  }
  for (int r = 1; r <= model.SprgCount; ++r) {
    SprgRec& spring = model.Sprg[r];
    spring.K1 = spring.K1 * 10 / g;
    spring.K2 = model.ModelCode == kPlaneGrid ? spring.K2 / 10 / g : spring.K2 * 10 / g;
    spring.K3 = spring.K3 / 10 / g;
  }
}

/// Where a line of a deck's text is, in words. A deck in the work folder is the tables joined, which the user
/// knows by their rows.
std::string PlaceOfLine(const std::string& path, std::string_view text, int lineNumber) {
  std::string section;
  int row = 0;
  for (int n = 0; n < lineNumber; ++n) {
    const std::string_view line = TakeLine(text).value_or(std::string_view());
    const std::string_view content = DeckLine(line);
    if (!NoSpc(line).empty()) ++row;  // an empty line is no row of a table, a comment is one
    if (!content.starts_with('@')) continue;
    section = UpperCase(content.substr(1));
    row = 0;
  }
  if (!WorkPath.empty() && path.starts_with(WorkPath))
    for (const TableName& table : kTables)
      if (table.key == section)
        return std::string(table.comment.substr(1)) + " " + std::to_string(row) + "行目";
  return path + " （" + std::to_string(lineNumber) + "行目）";
}

}  // namespace

void ConvertToAnalysisUnits(ModelRec& model, double g) {
  constexpr double kTonPerM2PerTonPerCm2 = 10000;
  if (IsSI(model.InUnit)) ConvertForcesFromSI(model, g);
  for (int r = 1; r <= model.SectCount; ++r) {
    SectRec& section = model.Sect[r];
    section.E *= kTonPerM2PerTonPerCm2;
    section.G *= kTonPerM2PerTonPerCm2;
    if (section.TYPE < 0 || section.TYPE >= static_cast<int>(std::size(kShapeDivisors))) continue;
    const ShapeDivisors& divisors = kShapeDivisors[section.TYPE];
    section.P1 /= divisors.P1;
    section.P2 /= divisors.P2;
    section.P3 /= divisors.P3;
    section.P4 /= divisors.P4;
  }
}

void ReadDeck(const std::string& path, bool checkMode) {
  RawModel = ModelRec();
  RawModel.SIFactor = kStandardGravity;
  if (checkMode) RemoveFile(WorkPath + "InputErr.txt");
  if (!FileExists(path)) return;

  CheckMessages messages(checkMode);
  const auto writeMessages = [&] {
    if (!checkMode) return;
    std::string text;
    for (const std::string& line : messages.Lines()) text += line + "\r\n";
    ReplaceTextFile(WorkPath + "InputErr.txt", text, Flush::No);
  };
  DeckReader reader(messages);
  const std::string text = ReadTextFile(path);
  std::string_view rest = text;
  int lineNumber = 0;
  try {
    while (const std::optional<std::string_view> line = TakeLine(rest)) {
      ++lineNumber;
      const std::string_view content = DeckLine(*line);
      if (!content.empty()) reader.ReadLine(content);
    }
  } catch (const Fault& fault) {
    writeMessages();
    throw Fault(PlaceOfLine(path, text, lineNumber) + " ： " + fault.what());
  }

  RawModel = reader.TakeModel();
  GravityFactor = RawModel.SIFactor;
  InUnit = RawModel.InUnit;
  OutUnit = RawModel.OutUnit;
  ForceUnit = RawModel.ForceUnit;
  if (checkMode) CheckWholeModel(RawModel, messages);
  writeMessages();
  InpModel = RawModel;
  StretchToLimits(InpModel);
  CalcModel = RawModel;
  ConvertToAnalysisUnits(CalcModel, GravityFactor);
  if (CalcModel.ModelCode != kSameDisplacementFrame) CalcModel.DispCount = 0;
}

}  // namespace zorlan

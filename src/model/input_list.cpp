#include "model/input_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

#include "base/cp932.h"
#include "base/number.h"
#include "base/number_format.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/input_list_layout.h"
#include "model/model_rec.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

using namespace input_list;

using RowList = std::vector<const TableRow*>;

std::string_view Cell(const TableRow& row, int cell) {
  return cell <= static_cast<int>(row.cells.size())
             ? std::string_view(row.cells[static_cast<std::size_t>(cell) - 1])
             : std::string_view();
}

/// The whole number in a cell, without its decimals; what no number of a table can reach is cut at a limit.
int Whole(const TableRow& row, int cell) {
  constexpr double kLimit = 1e9;
  return static_cast<int>(std::clamp(ReadReal(Cell(row, cell)), -kLimit, kLimit));
}

/// The number by its pattern, at the right of the pattern's width; a wider one whole.
std::string Formatted(double value, const NumberPattern& pattern) {
  const std::string text = FormatNumber(value, pattern);
  return PadLeft(std::string_view(text).substr(std::min(text.find_first_not_of(' '), text.size())),
                 static_cast<std::size_t>(pattern.Width()));
}

std::string ColumnText(const TableRow& row, const ListColumn& column) {
  switch (column.kind) {
    case ListColumn::Kind::Whole:
      return Formatted(std::trunc(ReadReal(Cell(row, column.cell))), column.pattern);
    case ListColumn::Kind::Number:
      return Formatted(ReadReal(Cell(row, column.cell)), column.pattern);
    case ListColumn::Kind::Typed:
      return PadLeft(Cell(row, column.cell), static_cast<std::size_t>(column.width));
    case ListColumn::Kind::Sign:
      return std::string(column.pattern.text);
  }
  return {};
}

/// The tables, and what the last rows, which count, of control data and units say to all parts.
class InputList {
 public:
  explicit InputList(const ModelTables& tables) : tables_(tables) {
    if (const TableRow* const control = LastRow("CONT")) {
      grid_ = Whole(*control, 1) == kPlaneGrid;
      caseCount_ = Whole(*control, 2);
    }
    if (const TableRow* const units = LastRow("UNIT")) units_ = IsSI(Whole(*units, 1)) ? 1 : 0;
  }
  std::string Text() const;

 private:
  const std::vector<TableRow>& Table(std::string_view key) const {
    static const std::vector<TableRow> kNone;
    const auto table = tables_.find(key);
    return table == tables_.end() ? kNone : table->second;
  }
  const TableRow* LastRow(std::string_view key) const {
    const std::vector<TableRow>& rows = Table(key);
    return rows.empty() ? nullptr : &rows.back();
  }

  std::string TitlePart() const;
  std::string ControlPart() const;
  std::string UnitPart() const;
  std::string NodePart() const;
  std::string GroupLines() const;
  std::string ElementPart() const;
  std::string SectionPart() const;
  std::string LoadPart() const;
  std::string TablePart(std::string_view key, const ListBlock& block) const;
  std::string BlockLines(const ListBlock& block, const RowList& rows) const;

  const ModelTables& tables_;
  bool grid_ = false;
  int caseCount_ = 0;
  std::size_t units_ = 0;  // of the input: 0 gravitational, 1 SI
};

/// The name of a code from 0 up, or the code as it was typed.
std::string NameOf(const TableRow& row, int cell, std::span<const std::string_view> names) {
  const int code = Whole(row, cell);
  const bool known = code >= 0 && code < static_cast<int>(names.size());
  const std::string_view name = known ? names[static_cast<std::size_t>(code)] : "";
  return std::string(name.empty() ? Cell(row, cell) : name);
}

/// A text of lines.
std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append(kLineEnd);
  return text;
}

std::string InputList::TitlePart() const {
  const auto firstCell = [&](std::string_view key) {
    const std::vector<TableRow>& rows = Table(key);
    return std::string(rows.empty() ? std::string_view() : Cell(rows[0], 1));
  };
  return Lines(
      {"《 INPUT DATA LIST 》 " + firstCell("TITL") + " 　（サブタイトル：" + firstCell("SUBT") + "）"});
}

std::string InputList::ControlPart() const {
  constexpr std::string_view kModels[] = {"", "1:一般任意平面骨組み", "2:同一変形条件付平面骨組み",
                                          "3:平面格子梁"};
  constexpr std::string_view kListFlags[] = {"0：出力しない", "1：出力する"};
  const TableRow* const control = LastRow("CONT");
  if (control == nullptr) return {};
  return Lines({"解析モデル番号 :" + NameOf(*control, 1, kModels),
                "最大荷重ケース :" + std::to_string(caseCount_),
                "入力リスト出力 :" + NameOf(*control, 3, kListFlags)});
}

std::string InputList::UnitPart() const {
  constexpr std::string_view kUnits[] = {"0:工学単位", "1:ＳＩ単位"};
  const TableRow* const units = LastRow("UNIT");
  if (units == nullptr) return {};
  const std::string_view factor = Cell(*units, 3);
  return Lines(
      {"入力単位 :" + NameOf(*units, 1, kUnits), "出力単位 :" + NameOf(*units, 2, kUnits),
       "ＳＩ単位変換係数 :" + (ReadReal(factor) == 0 ? RealText(kStandardGravity) : std::string(factor))});
}

std::string InputList::BlockLines(const ListBlock& block, const RowList& rows) const {
  if (rows.empty()) return {};
  const ListHead& head = grid_ ? block.grid : block.frame;
  std::string text(head.names);
  text += kLineEnd;
  if (const std::string_view units = head.units[units_]; !units.empty()) text.append(units).append(kLineEnd);
  for (const TableRow* const row : rows) {
    for (const ListColumn& column : block.columns) text += ColumnText(*row, column);
    text += kLineEnd;
  }
  return text;
}

RowList PointersTo(const std::vector<TableRow>& rows) {
  RowList pointers;
  for (const TableRow& row : rows) pointers.push_back(&row);
  return pointers;
}

std::string InputList::TablePart(std::string_view key, const ListBlock& block) const {
  return BlockLines(block, PointersTo(Table(key)));
}

/// Puts the constants of the node's last row in SPRG behind each node's cells.
void AppendSprings(std::vector<TableRow>& nodes, const std::vector<TableRow>& springs) {
  std::map<int, const TableRow*> springOfNode;
  for (const TableRow& spring : springs) springOfNode[Whole(spring, 1)] = &spring;
  for (TableRow& node : nodes) {
    node.cells.resize(kNodeCells);
    const auto spring = springOfNode.find(Whole(node, 1));
    if (spring == springOfNode.end()) continue;
    for (int d = 0; d < kSpringCells; ++d) node.cells.emplace_back(Cell(*spring->second, 2 + d));
  }
}

std::string InputList::NodePart() const {
  std::vector<TableRow> nodes = Table("NODE");
  AppendSprings(nodes, Table("SPRG"));
  return BlockLines(kNodes, PointersTo(nodes)) + GroupLines();
}

std::string InputList::GroupLines() const {
  const std::vector<TableRow>& rows = Table("DISP");
  if (rows.empty()) return {};
  std::string text = std::string(kGroupHead) + std::string(kLineEnd);
  for (const TableRow& row : rows) {
    text += Formatted(std::trunc(ReadReal(Cell(row, 1))), kGroupNumber);
    for (int node = 1; node < static_cast<int>(row.cells.size()); ++node) {
      if (node > 1 && node % kGroupNodesInLine == 1) text.append(kLineEnd).append(kGroupIndent);
      text += Formatted(std::trunc(ReadReal(Cell(row, node + 1))), kGroupNode);
    }
    text += kLineEnd;
  }
  return text;
}

/// Puts the length behind each element's cells, from the first node of each number; 0 where a node is
/// missing.
void AppendLength(std::vector<TableRow>& elements, const std::vector<TableRow>& nodes) {
  std::map<int, const TableRow*> nodeOfNumber;
  for (const TableRow& node : nodes) nodeOfNumber.emplace(Whole(node, 1), &node);
  for (TableRow& element : elements) {
    element.cells.resize(kElementCells);
    const auto i = nodeOfNumber.find(Whole(element, 2)), j = nodeOfNumber.find(Whole(element, 3));
    double length = 0;
    if (i != nodeOfNumber.end() && j != nodeOfNumber.end()) {
      const double dx = ReadReal(Cell(*j->second, 2)) - ReadReal(Cell(*i->second, 2));
      const double dy = ReadReal(Cell(*j->second, 3)) - ReadReal(Cell(*i->second, 3));
      length = std::sqrt(dx * dx + dy * dy);
    }
    element.cells.push_back(RealText(length));
  }
}

std::string InputList::ElementPart() const {
  std::vector<TableRow> elements = Table("ELEM");
  AppendLength(elements, Table("NODE"));
  return BlockLines(kElements, PointersTo(elements));
}

std::string InputList::SectionPart() const {
  std::string text;
  for (const SectionBlock& shape : kSections) {
    RowList rows;
    for (const TableRow& row : Table("SECT"))
      if (ShowsType(shape, Whole(row, 2))) rows.push_back(&row);
    text += BlockLines(shape.block, rows);
  }
  return text;
}

std::string InputList::LoadPart() const {
  std::map<int, std::array<RowList, std::size(kLoads)>> loadsOfCase;
  for (std::size_t kind = 0; kind < std::size(kLoads); ++kind)
    for (const TableRow& row : Table(kLoads[kind].key))
      if (const int number = Whole(row, 1); number >= 1 && number <= caseCount_)
        loadsOfCase[number][kind].push_back(&row);
  std::string text;
  for (const auto& [number, kinds] : loadsOfCase) {
    text += Lines({"LOAD CASE -" + Formatted(number, "##0")});
    for (std::size_t kind = 0; kind < std::size(kLoads); ++kind)
      if (!kinds[kind].empty())
        text += Lines({std::string(kLoads[kind].title)}) + BlockLines(kLoads[kind].block, kinds[kind]);
  }
  return text;
}

std::string InputList::Text() const {
  std::string text = TitlePart();
  for (const std::string& part : {ControlPart(), UnitPart(), NodePart(), TablePart("ALFA", kMagnifications),
                                  ElementPart(), TablePart("RIGD", kRigidZones), SectionPart(), LoadPart()})
    if (!part.empty()) text.append(kLineEnd).append(part);
  return text;
}

}  // namespace

std::string InputListText(const ModelTables& tables) {
  return InputList(tables).Text();
}

void MakeInputList() {
  ModelTables tables;
  for (const TableName& table : kTables) {
    const std::string path = WorkPath + std::string(table.key);
    if (FileExists(path)) tables.emplace(table.key, ParseTable(table.key, ReadTextFile(path)));
  }
  ReplaceTextFile(WorkPath + "TmpFile.inp", InputListText(tables), Flush::No);
}

}  // namespace zorlan

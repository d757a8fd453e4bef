#include "graphics/figure_model.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/deck_fields.h"
#include "model/model_state.h"
#include "model/number_rows.h"
#include "model/table_file.h"

namespace zorlan {
namespace {

/// The records in use of a table.
template <class Record>
std::vector<Record> Used(const Rows<Record>& rows, int count) {
  std::vector<Record> used;
  const int last = std::min(count, rows.UpperBound());
  if (last > 0) used.reserve(static_cast<std::size_t>(last));
  for (int r = 1; r <= last; ++r) used.push_back(rows[r]);
  return used;
}

/// The last index of each number: the row that the analysis takes.
template <class Item>
NumberRows NumbersOf(const std::vector<Item>& items) {
  NumberRows rows;
  for (std::size_t n = items.size(); n-- > 0;) rows.Note(items[n].number, static_cast<int>(n) + 1);
  return rows;
}

void ResolveNumbers(FigureModel& model) {
  const NumberRows nodeRows = NumbersOf(model.nodes), elementRows = NumbersOf(model.elements);
  for (FigureElement& element : model.elements) {
    element.rowI = nodeRows.Row(element.I) - 1;
    element.rowJ = nodeRows.Row(element.J) - 1;
  }
  const auto resolve = [](std::vector<int>& indices, const auto& loads, const NumberRows& rows, auto number) {
    indices.clear();
    for (const auto& load : loads) indices.push_back(rows.Row(load.*number) - 1);
  };
  resolve(model.nodalLoadNode, model.nodalLoads, nodeRows, &PlodRec::node);
  resolve(model.elementLoadElement, model.elementLoads, elementRows, &ElodRec::element);
  resolve(model.cmqLoadElement, model.cmqLoads, elementRows, &ClodRec::element);
  resolve(model.temperatureLoadElement, model.temperatureLoads, elementRows, &TlodRec::element);
}

/// A label that a table has in parentheses is shown without them.
std::string_view WithoutParentheses(std::string_view text) {
  return text.size() >= 2 && text.front() == '(' && text.back() == ')' ? text.substr(1, text.size() - 2)
                                                                       : text;
}

/// The fields of a table row counted from 1; not good where one doesn't fit its record.
class Cells {
 public:
  explicit Cells(std::string_view row) {
    try {
      count_ = SplitFields(row, fields_);
    } catch (const Fault&) {
      good_ = false;  // more fields than a row can have
    }
  }

  bool Good() const { return good_; }
  void Refuse() { good_ = false; }
  int Count() const { return count_; }
  double Real(std::size_t field) {
    const double value = ReadReal(fields_[field]);
    if (!std::isfinite(value)) good_ = false;
    return value;
  }
  std::int16_t Int(std::size_t field) {
    const std::optional<std::int16_t> value = ReadInt16(WithoutParentheses(fields_[field]));
    if (!value) good_ = false;
    return value.value_or(0);
  }

 private:
  Fields fields_;
  int count_ = 0;
  bool good_ = true;
};

/// Where the tables of a model come from: the rows of the one with a key.
using TableSource = std::function<std::string(std::string_view key)>;

/// Hands over the rows of a table as the analysis takes them from the deck: without comments, in fields.
template <class Take>
void ForEachRow(std::string_view rows, Take take) {
  while (const std::optional<std::string_view> line = TakeLine(rows)) {
    const std::string_view row = DeckLine(*line);
    if (row.empty()) continue;
    Cells cells(row);
    take(cells);
  }
}

/// Reads the rows of a table into records, no more than a model can have; false when there are others or rows
/// that the analysis drops.
template <class Record, class Read>
bool ReadRows(const TableSource& source, std::string_view key, std::size_t mostRows,
              std::vector<Record>& records, Read read) {
  bool good = true;
  const DeckSection& section = *FindDeckSection(key);
  ForEachRow(source(key), [&](Cells& cells) {
    if (section.Takes(cells.Count()) && records.size() < mostRows)
      if (const Record record = read(cells); cells.Good()) {
        records.push_back(record);
        return;
      }
    good = false;
  });
  return good;
}

FigureNode ReadNode(Cells& cells) {
  if (cells.Int(1) < 0) cells.Refuse();  // the analysis refuses it too, and NodeShown goes by number
  return {
      cells.Int(1), cells.Real(2), cells.Real(3), {cells.Int(4), cells.Int(5), cells.Int(6)}, cells.Real(7)};
}

FigureElement ReadElement(Cells& cells) {
  return {.number = cells.Int(1),
          .I = cells.Int(2),
          .J = cells.Int(3),
          .II = cells.Int(4),
          .JJ = cells.Int(5),
          .section = cells.Int(6)};
}

ElodRec ReadElementLoad(Cells& cells) {
  ElodRec load{cells.Int(1),  cells.Int(2),  cells.Real(3), cells.Int(4),
               cells.Real(5), cells.Real(6), cells.Int(7)};
  if (load.K == 0) load.K = 1;
  return load;
}

void ReadHeader(FigureModel& model, const TableSource& source) {
  const std::string title = source("TITL");
  std::string_view rest = title;
  while (const std::optional<std::string_view> line = TakeLine(rest))
    if (!DeckLine(*line).empty()) model.title = DeckLine(*line);
  model.maxLoadCase = 0;
  ForEachRow(source("CONT"), [&](Cells& cells) {
    model.modelCode = cells.Int(1);
    model.maxLoadCase = cells.Int(2);
  });
  ForEachRow(source("UNIT"), [&](Cells& cells) {
    model.inUnit = cells.Int(1);
    model.outUnit = cells.Int(2);
    const double factor = cells.Real(3);
    model.gravityFactor = factor == 0 ? kStandardGravity : factor;
  });
}

void ReadLoads(FigureModel& model, const TableSource& source) {
  // A load row at fault is the input check's business; the figure shows the others.
  ReadRows(source, "PLOD", kMaxTableRows, model.nodalLoads, [](Cells& cells) {
    return PlodRec{cells.Int(1), cells.Int(2), cells.Real(3), cells.Real(4), cells.Real(5)};
  });
  ReadRows(source, "ELOD", kMaxTableRows, model.elementLoads, ReadElementLoad);
  ReadRows(source, "CLOD", kMaxTableRows, model.cmqLoads, [](Cells& cells) {
    return ClodRec{cells.Int(1),  cells.Int(2),  cells.Real(3), cells.Real(4),
                   cells.Real(5), cells.Real(6), cells.Real(7), cells.Int(8)};
  });
  ReadRows(source, "TLOD", kMaxTableRows, model.temperatureLoads, [](Cells& cells) {
    return TlodRec{cells.Int(1),  cells.Int(2),  cells.Real(3), cells.Real(4),
                   cells.Real(5), cells.Real(6), cells.Real(7), cells.Int(8)};
  });
}

/// The record of a case and row in a table of `rows` records a case.
template <class Record>
const Record* RecordOf(const std::vector<Record>& table, std::size_t rows, int loadCase, int row) {
  if (loadCase < 1 || row < 0 || static_cast<std::size_t>(row) >= rows) return nullptr;
  const std::size_t at = static_cast<std::size_t>(loadCase - 1) * rows + static_cast<std::size_t>(row);
  return at < table.size() ? &table[at] : nullptr;
}

constexpr std::string_view kReadingTitle = "入力ﾌｧｲﾙの読込み";

FigureModel ReadTables(const TableSource& source) {
  FigureModel model;
  model.name = ModelBaseName();
  ReadHeader(model, source);
  if (!ReadRows(source, "NODE", kMaxNodes, model.nodes, ReadNode))
    TheHost().message("節点データに異常が有ります", kReadingTitle);
  bool good = ReadRows(source, "ELEM", kMaxElements, model.elements, ReadElement);
  ReadLoads(model, source);
  ResolveNumbers(model);
  for (const FigureElement& element : model.elements) good = good && element.rowI >= 0 && element.rowJ >= 0;
  if (!good) TheHost().message("要素データに異常が有ります", kReadingTitle);
  return model;
}

}  // namespace

const StressRecord* FigureModel::StressOf(int loadCase, int element) const {
  return RecordOf(StressTable, elements.size(), loadCase, element);
}

const DisplacementRecord* FigureModel::DisplacementOf(int loadCase, int node) const {
  return RecordOf(DisplacementTable, nodes.size(), loadCase, node);
}

FigureModel FigureModelOf(const ModelRec& model) {
  FigureModel figure;
  figure.title = model.Title;
  figure.modelCode = model.ModelCode;
  figure.maxLoadCase = model.MaxLoadCase;
  figure.inUnit = model.InUnit;
  figure.outUnit = model.OutUnit;
  if (model.SIFactor != 0) figure.gravityFactor = model.SIFactor;
  for (const NodeRec& n : Used(model.Node, model.NodeCount))
    figure.nodes.push_back({n.number, n.X, n.Y, n.code, n.rollerAngle});
  for (const ElemRec& e : Used(model.Elem, model.ElemCount))
    figure.elements.push_back({e.number, e.I, e.J, e.II, e.JJ, e.section});
  figure.nodalLoads = Used(model.Plod, model.PlodCount);
  figure.elementLoads = Used(model.Elod, model.ElodCount);
  figure.cmqLoads = Used(model.Clod, model.ClodCount);
  figure.temperatureLoads = Used(model.Tlod, model.TlodCount);
  ResolveNumbers(figure);
  return figure;
}

FigureModel ReadFigureTables(const TypedRows& typed) {
  return ReadTables([&](std::string_view key) {
    if (const auto found = typed.find(key); found != typed.end())
      return TableText(found->second, static_cast<int>(found->second.size()));
    const std::string path = WorkPath + std::string(key);
    return FileExists(path) ? ReadTextFile(path) : std::string();
  });
}

FigureModel ReadFigureDeck(std::string_view deck) {
  const std::vector<DeckTable> tables = SplitDeck(deck);
  return ReadTables([&](std::string_view key) {
    const auto table =
        std::find_if(tables.begin(), tables.end(), [&](const DeckTable& known) { return known.name == key; });
    return table == tables.end() ? std::string() : table->earlier + table->text;
  });
}

void ReadFigureResults(FigureModel& model, const std::string& folder) {
  const int cases = model.maxLoadCase, nodes = static_cast<int>(model.nodes.size()),
            elements = static_cast<int>(model.elements.size());
  const std::vector<double> moved = ReadReals(folder + "FT021", ValueCount(cases, nodes, 3), Behind::Nothing);
  const std::vector<double> forces =
      ReadReals(folder + "FT031", ValueCount(cases, elements, kForcesPerElement), Behind::Nothing);
  model.DisplacementTable.clear();
  model.StressTable.clear();
  for (std::size_t at = 0; at + 3 <= ValueCount(cases, nodes, 3); at += 3)
    model.DisplacementTable.push_back({moved[at], moved[at + 1], moved[at + 2]});
  for (std::size_t at = 0; at + kForcesPerElement <= ValueCount(cases, elements, kForcesPerElement);
       at += kForcesPerElement) {
    // N(I) Q(I) M(I) N(J) Q(J) M(J) M(C)
    const double* f = forces.data() + at;
    model.StressTable.push_back({.axialI = f[0],
                                 .momentI = f[2],
                                 .momentC = f[6],
                                 .momentJ = f[5],
                                 .axialJ = f[3],
                                 .shearI = f[1],
                                 .shearJ = f[4]});
  }
}

bool LoadFigureResults(FigureModel& model, const std::string& folder) try {
  ReadFigureResults(model, folder);
  return true;
} catch (const Fault&) {
  return false;  // the caller says which figure can't be shown
}

}  // namespace zorlan

#include "analysis/equations.h"

#include <string>

#include "analysis/member_load_terms.h"
#include "base/fault.h"

namespace zorlan {
namespace {

int FirstEquation(int row) {
  return 3 * (row - 1);
}

/// Takes a load's end terms, negated, into the load terms of one case.
void SubtractFrameTerms(const Member& member, const LoadTerms& t, int caseIndex, CaseTable& loads) {
  const double c = member.c, s = member.s;
  const int i = FirstEquation(member.rowI), j = FirstEquation(member.rowJ);
  loads[i][caseIndex] -= c * t.Ni - s * t.Qi;
  loads[j][caseIndex] -= c * t.Nj - s * t.Qj;
  loads[i + 1][caseIndex] -= c * t.Qi + s * t.Ni;
  loads[j + 1][caseIndex] -= c * t.Qj + s * t.Nj;
  loads[i + 2][caseIndex] -= t.Ci;
  loads[j + 2][caseIndex] -= t.Cj;
}

/// The grid has no N, and its moments turn about the global axes. `momentSign` is -1 for element loads; CMQ
/// and temperature loads come with their moments already turned and enter with the opposite sign.
void AddGridTerms(const Member& member, const LoadTerms& t, double momentSign, int caseIndex,
                  CaseTable& loads) {
  const double c = member.c, s = member.s;
  const int i = FirstEquation(member.rowI), j = FirstEquation(member.rowJ);
  loads[i][caseIndex] -= t.Qi;
  loads[j][caseIndex] -= t.Qj;
  loads[i + 1][caseIndex] += momentSign * s * t.Ci;
  loads[j + 1][caseIndex] += momentSign * s * t.Cj;
  loads[i + 2][caseIndex] -= momentSign * c * t.Ci;
  loads[j + 2][caseIndex] -= momentSign * c * t.Cj;
}

void AddTerms(bool grid, const Member& member, const LoadTerms& t, double gridMomentSign, int caseIndex,
              CaseTable& loads) {
  if (grid)
    AddGridTerms(member, t, gridMomentSign, caseIndex, loads);
  else
    SubtractFrameTerms(member, t, caseIndex, loads);
}

bool CaseInRange(int loadCase, int cases) {
  return loadCase >= 1 && loadCase <= cases;
}

/// Calls `add` with the member of each row of a load table that counts; a fault in it names the row.
template <class Load, class Add>
void ForEachMemberLoad(const Rows<Load>& loads, int count, const char* table, int cases,
                       const NumberMap& elements, const std::vector<Member>& members, Add add) {
  for (int r = 1; r <= count; ++r) {
    const int row = elements.Row(loads[r].element);
    if (row == 0 || !CaseInRange(loads[r].loadCase, cases)) continue;
    try {
      add(loads[r], members[static_cast<std::size_t>(row - 1)]);
    } catch (const Fault& fault) {
      throw Fault(std::string(table) + " " + std::to_string(r) + "行目 （荷重ケース " +
                  std::to_string(loads[r].loadCase) + " 要素番号 " + std::to_string(loads[r].element) +
                  "） ： " + fault.what());
    }
  }
}

ElementRecord SpringRecord(const NodeSpring& spring, double magnification) {
  ElementRecord record;
  record.rowI = record.rowJ = spring.row;
  for (std::size_t d = 0; d < 3; ++d) record.k[TrianglePlace(d, d)] = spring.k[d] * magnification;
  return record;
}

/// Member records in table order, springs behind them, all magnified.
struct PlainRecords {
  std::vector<ElementRecord> members, springs;
};

PlainRecords MakeRecords(const ModelRec& model, const std::vector<Member>& members, double tolerance) {
  const bool grid = model.ModelCode == kPlaneGrid;
  PlainRecords records;
  records.members.reserve(members.size());
  for (const Member& member : members) {
    ElementRecord record;
    record.rowI = member.rowI;
    record.rowJ = member.rowJ;
    record.k = grid ? GlobalGridStiffness(member) : GlobalFrameStiffness(member);
    const double magnification = MagnificationBetween(model, member.xi, member.xj, tolerance);
    for (double& entry : record.k) entry *= magnification;
    records.members.push_back(record);
  }
  for (const NodeSpring& spring : CollectSprings(model))
    records.springs.push_back(
        SpringRecord(spring, MagnificationAt(model, model.Node[spring.row].X, tolerance)));
  return records;
}

/// Places (from 0) of the records at each node row, in ascending order.
std::vector<std::vector<int>> PlacesByRow(const std::vector<ElementRecord>& records, int nodes) {
  std::vector<std::vector<int>> places(static_cast<std::size_t>(nodes) + 1);
  for (std::size_t p = 0; p < records.size(); ++p) {
    places[static_cast<std::size_t>(records[p].rowI)].push_back(static_cast<int>(p));
    if (records[p].rowJ != records[p].rowI)
      places[static_cast<std::size_t>(records[p].rowJ)].push_back(static_cast<int>(p));
  }
  return places;
}

/// The stream of the file road: for each node row its members not yet taken, then its springs. The first
/// record that meets a node takes the node's load terms.
void OrderForTheFront(const PlainRecords& plain, Equations& equations) {
  const auto memberPlaces = PlacesByRow(plain.members, equations.nodes);
  const auto springPlaces = PlacesByRow(plain.springs, equations.nodes);
  std::vector<bool> taken(plain.members.size());
  std::vector<bool> loaded(static_cast<std::size_t>(equations.nodes) + 1);
  const auto append = [&](ElementRecord record, int atRow) {
    record.loadsI = !loaded[static_cast<std::size_t>(record.rowI)];
    loaded[static_cast<std::size_t>(record.rowI)] = true;
    record.loadsJ = !loaded[static_cast<std::size_t>(record.rowJ)];
    loaded[static_cast<std::size_t>(record.rowJ)] = true;
    equations.records.push_back(record);
    ++equations.recordsAtRow[static_cast<std::size_t>(atRow)];
  };
  equations.records.reserve(plain.members.size() + plain.springs.size());
  equations.recordsAtRow.assign(static_cast<std::size_t>(equations.nodes) + 1, 0);
  for (int row = 1; row <= equations.nodes; ++row) {
    for (const int place : memberPlaces[static_cast<std::size_t>(row)]) {
      if (taken[static_cast<std::size_t>(place)]) continue;
      taken[static_cast<std::size_t>(place)] = true;
      append(plain.members[static_cast<std::size_t>(place)], row);
    }
    for (const int place : springPlaces[static_cast<std::size_t>(row)])
      append(plain.springs[static_cast<std::size_t>(place)], row);
  }
}

void Magnify(const ModelRec& model, double tolerance, CaseTable& loads) {
  if (model.AlfaCount == 0) return;
  for (int row = 1; row <= model.NodeCount; ++row) {
    const double magnification = MagnificationAt(model, model.Node[row].X, tolerance);
    for (int e = FirstEquation(row); e < FirstEquation(row) + 3; ++e)
      for (int c = 0; c < loads.Cases(); ++c) loads[e][c] = magnification * loads[e][c];
  }
}

}  // namespace

void AddLoadTerms(const ModelRec& model, const std::vector<Member>& members, CaseTable& loads) {
  const bool grid = model.ModelCode == kPlaneGrid;
  const int cases = loads.Cases();
  const NumberMap nodes(model.Node, model.NodeCount);
  for (int r = 1; r <= model.PlodCount; ++r) {
    const PlodRec& load = model.Plod[r];
    const int row = nodes.Row(load.node);
    if (row == 0 || !CaseInRange(load.loadCase, cases)) continue;
    const int e = FirstEquation(row);
    loads[e][load.loadCase - 1] += load.F1;
    loads[e + 1][load.loadCase - 1] += load.F2;
    loads[e + 2][load.loadCase - 1] += load.F3;
  }
  const NumberMap elements(model.Elem, model.ElemCount);
  ForEachMemberLoad(model.Elod, model.ElodCount, "部材荷重データ", cases, elements, members,
                    [&](const ElodRec& load, const Member& member) {
                      const LoadTerms t =
                          MemberLoadTerms(AsLoaded(member), load.TYPE, load.P * load.K, load.Ly, load.MG);
                      AddTerms(grid, member, t, -1, load.loadCase - 1, loads);
                    });
  ForEachMemberLoad(model.Clod, model.ClodCount, "ＣＭＱ荷重データ", cases, elements, members,
                    [&](const ClodRec& load, const Member& member) {
                      AddTerms(grid, member, CmqTerms(load, member, EndMoments::Turned), 1, load.loadCase - 1,
                               loads);
                    });
  ForEachMemberLoad(model.Tlod, model.TlodCount, "温度荷重データ", cases, elements, members,
                    [&](const TlodRec& load, const Member& member) {
                      AddTerms(grid, member, TemperatureTerms(load, member, grid), 1, load.loadCase - 1,
                               loads);
                    });
}

void AssignLayers(const ModelRec& model, Equations& equations) {
  equations.layers = 0;
  equations.layer.assign(static_cast<std::size_t>(model.NodeCount) + 1, 0);
  if (model.ModelCode != kSameDisplacementFrame || model.DispCount == 0) return;
  const NumberMap nodes(model.Node, model.NodeCount);
  for (int g = 1; g <= model.DispCount; ++g)
    for (int n = 1; n <= model.Disp[g].count; ++n)
      if (const int row = nodes.Row(model.Disp[g].node[static_cast<std::size_t>(n)]); row != 0)
        equations.layer[static_cast<std::size_t>(row)] = g;
  equations.layers = model.DispCount;
  for (int row = 1; row <= model.NodeCount; ++row)
    if (equations.layer[static_cast<std::size_t>(row)] == 0 && model.Node[row].code[0] != kFixed)
      equations.layer[static_cast<std::size_t>(row)] = ++equations.layers;
}

Equations BuildEquations(const ModelRec& model, const std::vector<Member>& members, SolverRoad road) {
  const double tolerance =
      road == SolverRoad::File ? kMagnificationToleranceFileRoad : kMagnificationToleranceInMemoryRoad;
  Equations equations;
  equations.kind = static_cast<ModelKind>(model.ModelCode);
  equations.nodes = model.NodeCount;
  equations.cases = model.MaxLoadCase;
  equations.number.resize(static_cast<std::size_t>(model.NodeCount) + 1);
  equations.code.resize(static_cast<std::size_t>(model.NodeCount) + 1);
  for (int row = 1; row <= model.NodeCount; ++row) {
    equations.number[static_cast<std::size_t>(row)] = model.Node[row].number;
    equations.code[static_cast<std::size_t>(row)] = model.Node[row].code;
  }
  equations.loads = CaseTable(equations.Count(), equations.cases);
  AddLoadTerms(model, members, equations.loads);
  Magnify(model, tolerance, equations.loads);
  AssignLayers(model, equations);
  PlainRecords plain = MakeRecords(model, members, tolerance);
  if (road == SolverRoad::File) {
    OrderForTheFront(plain, equations);
  } else {
    equations.records = std::move(plain.members);
    equations.records.insert(equations.records.end(), plain.springs.begin(), plain.springs.end());
  }
  return equations;
}

namespace {

/// A number set into a pattern: its digits in place of the run of "#", which pads nothing; "\\0" is a literal
/// zero.
std::string SetInto(std::string_view pattern, int number) {
  std::string text(pattern);
  const std::size_t first = text.find('#');
  text.replace(first, text.find_first_not_of('#', first) - first, std::to_string(number));
  if (const std::size_t zero = text.find("\\0"); zero != std::string::npos) text.replace(zero, 2, "0");
  return text;
}

struct InstabilityWords {
  NoStiffness::What what;
  std::string_view before, pattern;
};
constexpr InstabilityWords kInstabilityWords[] = {
    {NoStiffness::What::X, "NODE =", "####     X 方向  剛性　ありません"},
    {NoStiffness::What::Y, "NODE =", "####     Y 方向  剛性　ありません"},
    {NoStiffness::What::Z, "NODE =", "####     Z 方向  剛性　ありません"},
    {NoStiffness::What::Layer, "第 ", "#### 層  X 方向  剛性　ありません"},
};

}  // namespace

std::string InstabilityText(const NoStiffness& fault) {
  std::string text = "不安定構造     PIVOT " + SetInto("( #### ) = \\0  ", fault.position);
  for (const InstabilityWords& words : kInstabilityWords)
    if (words.what == fault.what)
      text += "\n" + std::string(words.before) + SetInto(words.pattern, fault.number);
  return text;
}

}  // namespace zorlan

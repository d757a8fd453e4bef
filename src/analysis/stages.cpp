#include "analysis/stages.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "analysis/analysis_state.h"
#include "analysis/dense_solver.h"
#include "analysis/external_tables.h"
#include "analysis/front_solver.h"
#include "analysis/member_forces.h"
#include "analysis/reactions.h"
#include "analysis/result_files.h"
#include "analysis/run_progress.h"
#include "base/fault.h"
#include "base/host.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// What the stages of the solve in hand have left for each other.
struct StageResults {
  std::vector<Member> members;
  std::optional<Equations> equations;
  std::optional<EliminatedRows> rows;
  std::optional<CaseTable> layerDisplacements;
  std::optional<CaseTable> displacements;
  std::optional<CaseTable> reactions;
  std::optional<std::vector<double>> forces;
  bool unstable = false;
};
StageResults Stage;

/// The result that a stage needs of one before it.
template <class Result>
Result& Needed(std::optional<Result>& result) {
  if (!result) throw Fault("前の段階の計算結果がありません");
  return *result;
}

bool IsGrid() {
  return CalcModel.ModelCode == kPlaneGrid;
}

void TellInstability(const NoStiffness& fault) {
  Tell(InstabilityText(fault));
  Stage.unstable = true;
}

/// An overflow doesn't stop a real; it is a fault all the same.
void RequireFinite(std::span<const double> values) {
  if (!std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); }))
    throw Fault("計算中に数値の範囲を超えました");
}

// How much of a solve is done at the ends of its long stages.
constexpr double kBuilt = 0.05, kEliminated = 0.75, kLayersSolved = 0.8, kSubstituted = 0.9;

Progress Between(double from, double to) {
  return [from, to](double share) { SayShare(from + (to - from) * share); };
}

void BuildStage(SolverRoad road) {
  SayShare(0);
  Stage.members = CollectMembers(CalcModel);
  Stage.equations = BuildEquations(CalcModel, Stage.members, road);
  RequireFinite(Stage.equations->loads.Values());
  for (const ElementRecord& record : Stage.equations->records) RequireFinite(record.k);
}

void Eliminate() {
  NoStiffness fault;
  Stage.rows = EliminateFront(Needed(Stage.equations), PivotTolerance, fault, Between(kBuilt, kEliminated));
  if (!Stage.rows) TellInstability(fault);
}

void SubstituteStage() {
  const EliminatedRows& rows = Needed(Stage.rows);
  Stage.displacements =
      SubstituteBack(Needed(Stage.equations), rows, Stage.layerDisplacements.value_or(CaseTable()),
                     Between(kLayersSolved, kSubstituted));
  Stage.rows.reset();
  RequireFinite(Stage.displacements->Values());
}

}  // namespace

void ClearStages() {
  Stage = {};
}

bool IsUnstable() {
  return Stage.unstable;
}

void DMATRIX() {
  RunStage("DMATRIX", [] { BuildStage(SolverRoad::File); });
}

void DSOLVE_1() {
  RunStage("DSOLVE_1", [] { BuildStage(SolverRoad::InMemory); });
}

void DFORWARA() {
  RunStage("DFORWARA", Eliminate);
}

void DBACK_A() {
  RunStage("DBACK_A", SubstituteStage);
}

void DFORWARB() {
  RunStage("DFORWARB", [] {
    Eliminate();
    if (!Stage.rows) return;
    NoStiffness fault;
    Stage.layerDisplacements =
        SolveLayers(std::move(Stage.rows->layers), fault, Between(kEliminated, kLayersSolved));
    if (!Stage.layerDisplacements) {
      Stage.rows.reset();
      TellInstability(fault);
    }
  });
}

void DBACK_B() {
  RunStage("DBACK_B", SubstituteStage);
}

void DSOLVE_2A() {
  RunStage("DSOLVE_2A", [] {
    NoStiffness fault;
    std::optional<DenseSolution> solution = SolveDense(Needed(Stage.equations), PivotTolerance, fault);
    if (!solution) {
      TellInstability(fault);
      return;
    }
    RequireFinite(solution->displacements.Values());
    RequireFinite(solution->reactions.Values());
    Stage.displacements = std::move(solution->displacements);
    Stage.reactions = std::move(solution->reactions);
  });
}

void DSOLVE2B() {
  RunStage("DSOLVE2B", [] {
    NoStiffness fault;
    Stage.displacements = SolveDenseWithLayers(Needed(Stage.equations), PivotTolerance, fault);
    if (!Stage.displacements)
      TellInstability(fault);
    else
      RequireFinite(Stage.displacements->Values());
  });
}

void DREAC_C() {
  RunStage("DREAC_C", [] {
    const Equations& equations = Needed(Stage.equations);
    const CaseTable& displacements = Needed(Stage.displacements);
    Stage.reactions = FixedReactions(equations, displacements);
    SetSpringReactions(CollectSprings(CalcModel), equations, displacements, *Stage.reactions);
    RequireFinite(Stage.reactions->Values());
  });
}

void DREAC_A() {
  RunStage("DREAC_A", [] {
    const CaseTable& displacements = Needed(Stage.displacements);
    SetSpringReactions(CollectSprings(CalcModel), Needed(Stage.equations), displacements,
                       Needed(Stage.reactions));
    RequireFinite(Stage.reactions->Values());
  });
}

void DREAC_B() {
  RunStage("DREAC_B", [] {
    const Equations& equations = Needed(Stage.equations);
    const CaseTable& displacements = Needed(Stage.displacements);
    Stage.reactions = ElementSumReactions(equations, CalcModel.ElemCount, displacements);
    SetSpringReactions(CollectSprings(CalcModel), equations, displacements, *Stage.reactions);
    RequireFinite(Stage.reactions->Values());
  });
}

void DSTRESS1() {
  RunStage("DSTRESS1", [] {
    SayShare(kSubstituted);
    Stage.forces = ElasticForces(Stage.members, IsGrid(), Needed(Stage.displacements));
  });
}

void DSTRESS2() {
  RunStage("DSTRESS2", [] {
    SayShare((1 + kSubstituted) / 2);
    AddLoadForces(CalcModel, Stage.members, AddedForces::All, Needed(Stage.forces));
    RequireFinite(*Stage.forces);
  });
}

void RecomputeMidspan() {
  RunStage("DSTRESS2", [] {
    const std::size_t count = static_cast<std::size_t>(CalcModel.MaxLoadCase) *
                              static_cast<std::size_t>(CalcModel.ElemCount) * kForcesPerElement;
    std::vector<double> forces = ReadReals(AnalysisPath + "FT031", count);
    AddLoadForces(CalcModel, CollectMembers(CalcModel), AddedForces::MidspanAlone, forces);
    RequireFinite(forces);
    WriteForces(AnalysisPath, forces);
  });
}

void WriteStageResults() {
  const CaseTable& displacements = Needed(Stage.displacements);
  std::vector<double> byCase;
  byCase.reserve(static_cast<std::size_t>(displacements.Equations() * displacements.Cases()));
  for (int c = 0; c < displacements.Cases(); ++c)
    for (int e = 0; e < displacements.Equations(); ++e) byCase.push_back(displacements[e][c]);
  WriteDisplacements(AnalysisPath, byCase);
  WriteReactions(AnalysisPath, CollectReactions(Needed(Stage.equations), Needed(Stage.reactions)),
                 ReactionLines::One);
  WriteForces(AnalysisPath, Needed(Stage.forces));
}

namespace {

/// A spring's reaction is told without the magnification of its node, but for a node that a forced
/// displacement moves in the case in hand.
std::vector<double> SpringFactors() {
  if (CalcModel.AlfaCount == 0) return {};
  const double tolerance = MagnificationTolerance(CalcModel);
  std::vector<double> factors(static_cast<std::size_t>(CalcModel.NodeCount) + 1, 1);
  for (int row = 1; row <= CalcModel.NodeCount; ++row) {
    const NodeRec& node = CalcModel.Node[row];
    if (!IsMoved(node))
      factors[static_cast<std::size_t>(row)] = MagnificationAt(CalcModel, node.X, tolerance);
  }
  return factors;
}

}  // namespace

std::vector<CaseTrust> AssessStages() {
  TrustRules rules;
  rules.springFactor = SpringFactors();
  return AssessSolution(Needed(Stage.equations), Needed(Stage.displacements), Needed(Stage.reactions), rules);
}

namespace {

/// Equations of CalcModel that an inclined roller or a forced displacement of this case holds.
std::vector<bool> HeldBeyondCodes(int loadCase) {
  std::vector<bool> held(static_cast<std::size_t>(3 * CalcModel.NodeCount));
  const auto hold = [&](int row, int d) { held[static_cast<std::size_t>(3 * (row - 1) + d)] = true; };
  for (int row = 1; row <= CalcModel.NodeCount; ++row)
    for (int d = 0; d < 2; ++d)
      if (CalcModel.Node[row].code[static_cast<std::size_t>(d)] == kInclinedRoller) hold(row, d);
  const NumberMap nodes(CalcModel.Node, CalcModel.NodeCount);
  for (int r = 1; r <= CalcModel.SpecCount; ++r) {
    const SpecRec& forced = CalcModel.Spec[r];
    const int row = nodes.Row(forced.node);
    if (row == 0 || forced.loadCase != loadCase) continue;
    const double values[] = {forced.S1, forced.S2, forced.S3};
    for (int d = 0; d < 3; ++d)
      if (values[d] != 0) hold(row, d);
  }
  return held;
}

/// Of all end forces and reactions of a case.
double LargestForce(int loadCase, const MergedResults& results) {
  double largest = 0;
  const auto widen = [&largest](const double* values, int count) {
    for (int k = 0; k < count; ++k) largest = std::max(largest, std::abs(values[k]));
  };
  widen(&results.forces[ForcePlace(loadCase, results.elements, 1, 1)], results.elements * kForcesPerElement);
  for (std::size_t place = 0; place < results.supports.size(); ++place)
    widen(results.Reaction(loadCase, static_cast<int>(place)), 3);
  return largest;
}

}  // namespace

CaseTrust AssessExternalCase(int loadCase, const MergedResults& results) {
  const Equations& all = Needed(Stage.equations);
  Equations equations = all;
  equations.cases = 1;
  equations.loads = CaseTable(all.Count(), 1);
  CaseTable u(all.Count(), 1), reactions(all.Count(), 1);
  for (int e = 0; e < all.Count(); ++e) {
    equations.loads[e][0] = all.loads[e][loadCase - 1];
    u[e][0] = results.displacements[static_cast<std::size_t>((loadCase - 1) * all.Count() + e)];
  }
  const NumberMap nodes(CalcModel.Node, CalcModel.NodeCount);
  for (std::size_t place = 0; place < results.supports.size(); ++place)
    for (int d = 0; d < 3; ++d)
      reactions[3 * (nodes.Row(results.supports[place]) - 1) + d][0] =
          results.Reaction(loadCase, static_cast<int>(place))[d];
  TrustRules rules;
  rules.external = true;
  rules.alsoHeld = HeldBeyondCodes(loadCase);
  rules.largestForce = LargestForce(loadCase, results);
  rules.springFactor = SpringFactors();
  return AssessSolution(equations, u, reactions, rules).front();
}

}  // namespace zorlan

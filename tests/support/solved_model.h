// A model solved by the kernels of one of the two in-program roads, whatever its size: the stages in their
// order, without files and without the driver's choice of the road.
#pragma once

#include <optional>
#include <vector>

#include "analysis/dense_solver.h"
#include "analysis/equations.h"
#include "analysis/front_solver.h"
#include "analysis/member_forces.h"
#include "analysis/reactions.h"
#include "analysis/result_files.h"
#include "analysis/trust.h"

namespace zorlan::test {

inline constexpr double kPivotTolerance = 1e-20;
inline constexpr SolverRoad kRoads[] = {SolverRoad::File, SolverRoad::InMemory};

struct SolvedModel {
  std::vector<Member> members;
  Equations equations;
  std::optional<NoStiffness> instability;  // set: nothing below is
  CaseTable displacements, reactions;
  std::vector<double> forces;
  std::vector<CaseTrust> trust;

  /// Displacement and reaction d (0 to 2) of a node row; force of an element row, position 1 to 7.
  double U(int row, int d, int loadCase = 1) const { return displacements[3 * (row - 1) + d][loadCase - 1]; }
  double R(int row, int d, int loadCase = 1) const { return reactions[3 * (row - 1) + d][loadCase - 1]; }
  double F(int row, int position, int loadCase = 1) const {
    return forces[ForcePlace(loadCase, static_cast<int>(members.size()), row, position)];
  }
};

/// The displacements of the file road; nothing for an unstable structure.
inline std::optional<CaseTable> SolveByFront(const Equations& equations, NoStiffness& fault) {
  std::optional<EliminatedRows> rows = EliminateFront(equations, kPivotTolerance, fault, [](double) {});
  if (!rows) return std::nullopt;
  CaseTable layers;
  if (equations.layers > 0) {
    std::optional<CaseTable> solved = SolveLayers(std::move(rows->layers), fault, [](double) {});
    if (!solved) return std::nullopt;
    layers = std::move(*solved);
  }
  return SubstituteBack(equations, *rows, layers, [](double) {});
}

inline SolvedModel Solve(const ModelRec& model, SolverRoad road) {
  SolvedModel s;
  s.members = CollectMembers(model);
  s.equations = BuildEquations(model, s.members, road);
  const std::vector<NodeSpring> springs = CollectSprings(model);
  NoStiffness fault;
  std::optional<CaseTable> displacements;
  if (road == SolverRoad::File) {
    displacements = SolveByFront(s.equations, fault);
    if (displacements) s.reactions = FixedReactions(s.equations, *displacements);
  } else if (s.equations.layers > 0) {
    displacements = SolveDenseWithLayers(s.equations, kPivotTolerance, fault);
    if (displacements) s.reactions = ElementSumReactions(s.equations, model.ElemCount, *displacements);
  } else if (std::optional<DenseSolution> solution = SolveDense(s.equations, kPivotTolerance, fault)) {
    displacements = std::move(solution->displacements);
    s.reactions = std::move(solution->reactions);
  }
  if (!displacements) {
    s.instability = fault;
    return s;
  }
  s.displacements = std::move(*displacements);
  SetSpringReactions(springs, s.equations, s.displacements, s.reactions);
  s.forces = ElasticForces(s.members, model.ModelCode == kPlaneGrid, s.displacements);
  AddLoadForces(model, s.members, AddedForces::All, s.forces);
  s.trust = AssessSolution(s.equations, s.displacements, s.reactions);
  return s;
}

}  // namespace zorlan::test

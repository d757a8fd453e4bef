// The equations of a model between the stages of one solve: what the element stage hands to the solvers, and
// these to the stages of reactions and member forces. t, m, rad. Node row r (from 1) owns the equations
// 3(r-1) to 3(r-1)+2, counted from 0.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "analysis/members.h"
#include "analysis/stiffness.h"
#include "model/model_rec.h"

namespace zorlan {

/// One value per equation and load case; the cases of an equation lie side by side. Equations and cases count
/// from 0.
class CaseTable {
 public:
  CaseTable() = default;
  CaseTable(int equations, int cases)
      : equations_(equations),
        cases_(cases),
        values_(static_cast<std::size_t>(equations) * static_cast<std::size_t>(cases)) {}
  int Equations() const { return equations_; }
  int Cases() const { return cases_; }
  double* operator[](int equation) { return values_.data() + Offset(equation); }
  const double* operator[](int equation) const { return values_.data() + Offset(equation); }
  std::span<const double> Values() const { return values_; }

 private:
  std::size_t Offset(int equation) const {
    return static_cast<std::size_t>(equation) * static_cast<std::size_t>(cases_);
  }
  int equations_ = 0, cases_ = 0;
  std::vector<double> values_;
};

/// One record of the element stream: a member, or a support spring (both rows equal, three diagonal entries).
struct ElementRecord {
  int rowI = 0, rowJ = 0;
  Triangle k{};  // magnified, in global axes
  /// File road: whether this record carries the load terms of its first and its second node (the first record
  /// that meets a node takes them all).
  bool loadsI = false, loadsJ = false;
};

/// What the solvers work on.
struct Equations {
  ModelKind kind = kPlaneFrame;
  int nodes = 0, cases = 0;
  std::vector<int> number;                        // of each node row, from place 1
  std::vector<std::array<std::int16_t, 3>> code;  // of each node row, from place 1
  std::vector<ElementRecord> records;             // in the order of the road
  std::vector<int> recordsAtRow;  // file road: how many records are assembled at each row, from place 1
  std::vector<int> layer;         // of each node row, from place 1; 0 none
  int layers = 0;
  CaseTable loads;  // load terms, times the magnification of the node

  int Count() const { return 3 * nodes; }
  std::int16_t Code(int equation) const {
    return code[static_cast<std::size_t>(equation / 3 + 1)][static_cast<std::size_t>(equation % 3)];
  }
};

/// Adds a model's nodal, element, CMQ and temperature loads to the load terms (without magnification). A row
/// of a case outside 1 to the table's cases, or on an unknown node or element, is skipped. Throws Fault that
/// names the row at fault.
void AddLoadTerms(const ModelRec& model, const std::vector<Member>& members, CaseTable& loads);

/// Fills `layer` and `layers` of a same-displacement frame: the index of the (last) group that lists the
/// node, then a number of its own for every other node whose U code is not 1. Without groups there are no
/// layers.
void AssignLayers(const ModelRec& model, Equations& equations);

/// Which solver the equations are for: the roads differ in the order of the records and in the tolerance of
/// the magnification.
enum class SolverRoad { File, InMemory };
/// The whole element stage. `members` as CollectMembers gives them. Throws Fault.
Equations BuildEquations(const ModelRec& model, const std::vector<Member>& members, SolverRoad road);

/// An equation without stiffness: where an elimination found the structure unstable.
struct NoStiffness {
  int position = 0;  // of the pivot, from 1
  int number = 0;    // of the node, or the layer
  enum class What { X, Y, Z, Layer } what = What::X;
};
/// The direction of equation `dof` (0 to 2) of a node. A rotation has no word: its pivot is tolerated.
constexpr NoStiffness::What DirectionOf(ModelKind kind, int dof) {
  if (kind == kPlaneGrid) return NoStiffness::What::Z;
  return dof == 0 ? NoStiffness::What::X : NoStiffness::What::Y;
}
/// Whether equation `dof` (0 to 2) of a node is a rotation, whose missing stiffness is tolerated.
constexpr bool IsRotation(ModelKind kind, int dof) {
  return dof == 2 || (kind == kPlaneGrid && dof == 1);
}
/// What the user is told of it: two lines.
std::string InstabilityText(const NoStiffness& fault);

}  // namespace zorlan

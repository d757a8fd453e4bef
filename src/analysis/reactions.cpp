#include "analysis/reactions.h"

namespace zorlan {
namespace {

/// Equation (from 0) of place 0 to 5 of a record.
int EquationAt(const ElementRecord& record, std::size_t place) {
  return 3 * ((place < 3 ? record.rowI : record.rowJ) - 1) + static_cast<int>(place % 3);
}

/// target += row `place` of the record's matrix times the displacements.
void AddProduct(const ElementRecord& record, std::size_t place, const CaseTable& displacements,
                double* target) {
  for (std::size_t h = 0; h < 6; ++h) {
    const double k = record.k[TrianglePlace(place, h)];
    const double* const u = displacements[EquationAt(record, h)];
    for (int c = 0; c < displacements.Cases(); ++c) target[c] += k * u[c];
  }
}

bool IsSupported(const std::array<std::int16_t, 3>& code) {
  return code[0] != kFree || code[1] != kFree || code[2] != kFree;
}

}  // namespace

CaseTable FixedReactions(const Equations& equations, const CaseTable& displacements) {
  CaseTable reactions(equations.Count(), equations.cases);
  std::size_t next = 0;
  for (int row = 1; row < equations.nodes; ++row)
    for (int k = 0; k < equations.recordsAtRow[static_cast<std::size_t>(row)]; ++k) {
      const ElementRecord& record = equations.records[next++];
      for (std::size_t place = 0; place < 6; ++place) {
        const int e = EquationAt(record, place);
        if (equations.Code(e) == kFree || equations.Code(e) == kSpring) continue;
        AddProduct(record, place, displacements, reactions[e]);
        if (place < 3 ? record.loadsI : record.loadsJ)
          for (int c = 0; c < equations.cases; ++c) reactions[e][c] -= equations.loads[e][c];
      }
    }
  return reactions;
}

CaseTable ElementSumReactions(const Equations& equations, int elementRecords,
                              const CaseTable& displacements) {
  CaseTable reactions(equations.Count(), equations.cases);
  for (int r = 0; r < elementRecords; ++r)
    for (std::size_t place = 0; place < 6; ++place) {
      const ElementRecord& record = equations.records[static_cast<std::size_t>(r)];
      AddProduct(record, place, displacements, reactions[EquationAt(record, place)]);
    }
  for (int e = 0; e < equations.Count(); ++e)
    if (equations.Code(e) != kFree)
      for (int c = 0; c < equations.cases; ++c) reactions[e][c] -= equations.loads[e][c];
  return reactions;
}

void SetSpringReactions(const std::vector<NodeSpring>& springs, const Equations& equations,
                        const CaseTable& displacements, CaseTable& reactions) {
  for (const NodeSpring& spring : springs)
    for (int d = 0; d < 3; ++d) {
      const int e = 3 * (spring.row - 1) + d;
      if (equations.Code(e) != kSpring) continue;
      for (int c = 0; c < equations.cases; ++c)
        reactions[e][c] = -spring.k[static_cast<std::size_t>(d)] * displacements[e][c];
    }
}

Reactions CollectReactions(const Equations& equations, const CaseTable& reactions) {
  Reactions result;
  result.cases = equations.cases;
  std::vector<int> rows;
  for (int row = 1; row <= equations.nodes; ++row)
    if (IsSupported(equations.code[static_cast<std::size_t>(row)])) rows.push_back(row);
  for (const int row : rows) result.nodes.push_back(equations.number[static_cast<std::size_t>(row)]);
  result.values.reserve(rows.size() * static_cast<std::size_t>(3 * equations.cases));
  for (int c = 0; c < equations.cases; ++c)
    for (const int row : rows)
      for (int d = 0; d < 3; ++d) result.values.push_back(reactions[3 * (row - 1) + d][c]);
  return result;
}

}  // namespace zorlan

#include "analysis/merge.h"

#include <algorithm>
#include <numeric>

#include "analysis/external_tables.h"
#include "analysis/members.h"
#include "analysis/result_files.h"
#include "model/model_state.h"

namespace zorlan {

MergedResults::MergedResults(int caseCount, int nodeCount, int elementCount)
    : cases(caseCount),
      nodes(nodeCount),
      elements(elementCount),
      displacements(static_cast<std::size_t>(caseCount) * static_cast<std::size_t>(nodeCount) * 3),
      forces(static_cast<std::size_t>(caseCount) * static_cast<std::size_t>(elementCount) *
             kForcesPerElement) {}

int MergedResults::SupportPlace(int node) {
  const auto known = std::find(supports.begin(), supports.end(), node);
  const int place = static_cast<int>(known - supports.begin());
  if (known == supports.end()) {
    supports.push_back(node);
    reactions_.emplace_back(static_cast<std::size_t>(3 * cases));
  }
  return place;
}

double* MergedResults::Reaction(int loadCase, int supportPlace) {
  return &reactions_[static_cast<std::size_t>(supportPlace)][static_cast<std::size_t>(3 * (loadCase - 1))];
}

const double* MergedResults::Reaction(int loadCase, int supportPlace) const {
  return &reactions_[static_cast<std::size_t>(supportPlace)][static_cast<std::size_t>(3 * (loadCase - 1))];
}

std::vector<double> MemberForceSum(int loadCase, int node, const MergedResults& results) {
  std::vector<double> sum(3);
  const NumberMap nodes(CalcModel.Node, CalcModel.NodeCount);
  for (int row = 1; row <= CalcModel.ElemCount; ++row) {
    const ElemRec& element = CalcModel.Elem[row];
    if (element.I != node && element.J != node) continue;
    const NodeRec& i = CalcModel.Node[nodes.Row(element.I)];
    const NodeRec& j = CalcModel.Node[nodes.Row(element.J)];
    const double c = (j.X - i.X) / element.length, s = (j.Y - i.Y) / element.length;
    const double* const values = &results.forces[ForcePlace(loadCase, results.elements, row, 1)];
    for (const double* end :
         {element.I == node ? values : nullptr, element.J == node ? values + 3 : nullptr}) {
      if (end == nullptr) continue;
      sum[0] += c * end[0] - s * end[1];
      sum[1] += s * end[0] + c * end[1];
      sum[2] += end[2];
    }
  }
  return sum;
}

void CollectCaseResults(int loadCase, MergedResults& results) {
  const auto take = [loadCase](const char* file, std::vector<double>& target, int perCase) {
    const auto count = static_cast<std::size_t>(perCase),
               first = static_cast<std::size_t>(loadCase - 1) * count;
    const std::vector<double> values = ReadReals(AnalysisPath + file, first + count);
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(first), count,
                target.begin() + static_cast<std::ptrdiff_t>(first));
  };
  take("FT021", results.displacements, 3 * results.nodes);
  take("FT031", results.forces, kForcesPerElement * results.elements);
  const Reactions reactions = ReadReactions(AnalysisPath);
  const NumberMap nodes(CalcModel.Node, CalcModel.NodeCount);
  for (std::size_t s = 0; s < reactions.nodes.size(); ++s) {
    const int number = reactions.nodes[s], row = nodes.Row(number);
    const int place = results.SupportPlace(number);
    const std::size_t first = (static_cast<std::size_t>(loadCase - 1) * reactions.nodes.size() + s) * 3;
    std::copy_n(reactions.values.begin() + static_cast<std::ptrdiff_t>(first), 3,
                results.Reaction(loadCase, place));
    if (row != 0 && IsMoved(CalcModel.Node[row])) {
      const std::vector<double> sum = MemberForceSum(loadCase, number, results);
      std::copy(sum.begin(), sum.end(), results.Reaction(loadCase, place));
    }
  }
}

void WriteMergedResults(const MergedResults& results) {
  WriteDisplacements(AnalysisPath, results.displacements);
  WriteForces(AnalysisPath, results.forces);
  std::vector<int> order(results.supports.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](int a, int b) {
    return results.supports[static_cast<std::size_t>(a)] < results.supports[static_cast<std::size_t>(b)];
  });
  Reactions sorted;
  sorted.cases = results.cases;
  for (const int place : order) sorted.nodes.push_back(results.supports[static_cast<std::size_t>(place)]);
  for (int c = 1; c <= results.cases; ++c)
    for (const int place : order) {
      const double* const values = results.Reaction(c, place);
      sorted.values.insert(sorted.values.end(), values, values + 3);
    }
  WriteReactions(AnalysisPath, sorted, ReactionLines::Four);
}

}  // namespace zorlan

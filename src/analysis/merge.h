// Results of several runs, gathered case by case: what a case-by-case analysis leaves in place of one run's
// files.
#pragma once

#include <vector>

namespace zorlan {

struct MergedResults {
  MergedResults(int caseCount, int nodeCount, int elementCount);
  int cases, nodes, elements;
  std::vector<double> displacements;  // case, node row, 3
  std::vector<double> forces;         // case, element row, 7
  std::vector<int> supports;          // node numbers in the order met

  /// Place of a node in `supports`, from 0; it is appended if it is new.
  int SupportPlace(int node);
  /// The three reactions of a support place in a case (from 1).
  double* Reaction(int loadCase, int supportPlace);
  const double* Reaction(int loadCase, int supportPlace) const;

 private:
  std::vector<std::vector<double>> reactions_;  // by support place: case, 3
};

/// Takes one case (from 1) out of FT021, FT022 and FT031 in AnalysisPath. The reaction of a node with a code
/// 3 or 23 in CalcModel is the sum of the member end forces that meet it.
void CollectCaseResults(int loadCase, MergedResults& results);

/// The sum, in global axes, of the end forces in one case of the members that meet the node.
std::vector<double> MemberForceSum(int loadCase, int node, const MergedResults& results);

/// Writes the four result files of AnalysisPath, supported nodes in ascending order of number.
void WriteMergedResults(const MergedResults& results);

}  // namespace zorlan

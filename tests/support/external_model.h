// A model record sent down the external road, all its cases, through the files and the built companion
// program.
#pragma once

#include "analysis/external_road.h"
#include "analysis/merge.h"
#include "analysis/result_files.h"
#include "analysis/stages.h"
#include "model/model_state.h"
#include "support/analysis_folder.h"
#include "support/solved_model.h"

namespace zorlan::test {

class ExternalModelTest : public AnalysisTest {
 protected:
  /// What the external road leaves of a model.
  struct Results {
    std::vector<double> displacements, forces;
    Reactions reactions;
    int nodes = 0, elements = 0;

    double U(int row, int d, int loadCase = 1) const {
      return displacements[static_cast<std::size_t>(3 * ((loadCase - 1) * nodes + row - 1) + d)];
    }
    double F(int row, int position, int loadCase = 1) const {
      return forces[ForcePlace(loadCase, elements, row, position)];
    }
    /// Reaction d of a node number; NaN if the node is not listed.
    double R(int node, int d, int loadCase = 1) const {
      for (std::size_t s = 0; s < reactions.nodes.size(); ++s)
        if (reactions.nodes[s] == node)
          return reactions.values[3 * (static_cast<std::size_t>(loadCase - 1) * reactions.nodes.size() + s) +
                                  static_cast<std::size_t>(d)];
      return std::numeric_limits<double>::quiet_NaN();
    }
  };

  Results SolveExternally(const ModelRec& model) {
    CalcModel = model;
    MergedResults merged(model.MaxLoadCase, model.NodeCount, model.ElemCount);
    for (int c = 1; c <= model.MaxLoadCase; ++c) {
      CalcModel = model;
      EXPECT_TRUE(SolveExternalCase(c, merged)) << testing::PrintToString(Told());
    }
    CalcModel = model;
    WriteMergedResults(merged);
    RemoveMagnification(CalcModel);
    RecomputeMidspan();
    Results results;
    results.nodes = model.NodeCount;
    results.elements = model.ElemCount;
    results.displacements = ReadReals(AnalysisPath + "FT021", merged.displacements.size());
    results.forces = ReadReals(AnalysisPath + "FT031", merged.forces.size());
    results.reactions = ReadReactions(AnalysisPath);
    return results;
  }
};

}  // namespace zorlan::test

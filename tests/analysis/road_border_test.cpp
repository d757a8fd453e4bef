// The border between the two in-program roads: a model of 29 nodes, and the same with one of its members
// divided by a thirtieth.
#include <gtest/gtest.h>

#include <cmath>

#include "support/analysis_folder.h"
#include "support/deck_text.h"
#include "support/random_models.h"

namespace zorlan::test {
namespace {

/// Divides the member of this row by a node in its middle; its second half is the last element.
void Divide(ModelRec& model, int elementRow) {
  ElemRec& first = model.Elem[elementRow];
  NodeRec middle;
  middle.number = static_cast<std::int16_t>(model.NodeCount + 1);
  middle.X = (model.Node[first.I].X + model.Node[first.J].X) / 2;
  middle.Y = (model.Node[first.I].Y + model.Node[first.J].Y) / 2;
  AppendRow(model.Node, model.NodeCount, middle);
  ElemRec second = first;
  second.number = static_cast<std::int16_t>(model.ElemCount + 1);
  first.J = second.I = middle.number;
  first.JJ = second.II = 0;
  AppendRow(model.Elem, model.ElemCount, second);
}

template <class Load>
bool Carries(const Rows<Load>& loads, int count, int element) {
  for (int r = 1; r <= count; ++r)
    if (loads[r].element == element) return true;
  return false;
}

/// The row of a member without loads and rigid zones that isn't a truss bar; 0 if there is none.
int UnloadedMember(const ModelRec& model) {
  for (int row = 1; row <= model.ElemCount; ++row) {
    const ElemRec& element = model.Elem[row];
    if (element.rigid == 0 && !(element.II == 1 && element.JJ == 1) &&
        !Carries(model.Elod, model.ElodCount, element.number) &&
        !Carries(model.Clod, model.ClodCount, element.number))
      return row;
  }
  return 0;
}

class RoadBorder : public AnalysisTest {
 protected:
  struct Results {
    std::vector<double> displacements, forces;
    Reactions reactions;
  };
  Results Analysed(const ModelRec& model) {
    EXPECT_TRUE(Analyse(DeckText(model))) << testing::PrintToString(Told());
    return {Displacements(), Forces(), AllReactions()};
  }
};

/// Results of the same model with n and with n + 1 nodes, the last of which divides the last element.
void ExpectAgreement(const ModelRec& model, const std::vector<double>& fewer,
                     const std::vector<double>& more) {
  const int nodes = model.NodeCount;
  for (int c = 0; c < model.MaxLoadCase; ++c)
    for (int e = 0; e < 3 * nodes; ++e) {
      // Nothing holds the rotation of a dividing node about its grid member; only rounding tells what it is.
      if (model.ModelCode == kPlaneGrid && e > 3 * (nodes - 1)) continue;
      EXPECT_NEAR(more[static_cast<std::size_t>(c * 3 * (nodes + 1) + e)],
                  fewer[static_cast<std::size_t>(c * 3 * nodes + e)], 1e-9)
          << "case " << c + 1 << " equation " << e;
    }
}
void ExpectAgreement(const ModelRec& model, const std::vector<double>& fewer, const std::vector<double>& more,
                     double tolerance) {
  const int elements = model.ElemCount;
  for (int c = 1; c <= model.MaxLoadCase; ++c)
    for (int row = 1; row <= elements; ++row)
      for (int p = 1; p <= kForcesPerElement; ++p) {
        const bool divided = row == elements;
        if (divided && p == 7) continue;  // the halves have other middles
        const int place = divided && p > 3 ? row + 1 : row;
        EXPECT_NEAR(more[ForcePlace(c, elements + 1, place, p)], fewer[ForcePlace(c, elements, row, p)],
                    tolerance)
            << "case " << c << " element row " << row << " position " << p;
      }
}
void ExpectAgreement(const ModelRec& model, const Reactions& fewer, const Reactions& more, double tolerance) {
  ASSERT_EQ(more.nodes, fewer.nodes);
  for (std::size_t i = 0; i < fewer.values.size(); ++i) {
    const NodeRec& node = model.Node[fewer.nodes[i / 3 % fewer.nodes.size()]];
    if (node.code[i % 3] == kFree) continue;  // in memory a floor's free equations keep their bare sums
    EXPECT_NEAR(more.values[i], fewer.values[i], tolerance) << "node " << node.number;
  }
}

TEST_F(RoadBorder, IsNotSeenInTheResults) {
  int compared = 0;
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid})
    for (std::uint32_t seed = 1; seed <= 12; ++seed) {
      const RandomShape shape = {kind, 4, 7, seed};
      SCOPED_TRACE(shape.Name());
      ModelRec model = RandomModel(shape).Model();
      const int unloaded = UnloadedMember(model);
      if (unloaded == 0) continue;
      ++compared;
      Divide(model, unloaded);
      const Results fewer = Analysed(model);
      ASSERT_EQ(LastAnalysis().nodes, 29);
      EXPECT_EQ(LastAnalysis().road, Road::InMemory);
      ModelRec divided = model;
      Divide(divided, model.ElemCount);
      const Results more = Analysed(divided);
      ASSERT_EQ(LastAnalysis().nodes, 30);
      EXPECT_EQ(LastAnalysis().road, Road::File);

      double largest = 0;
      for (const double force : fewer.forces) largest = std::max(largest, std::abs(force));
      ExpectAgreement(model, fewer.displacements, more.displacements);
      ExpectAgreement(model, fewer.forces, more.forces, 1e-9 * largest);
      ExpectAgreement(model, fewer.reactions, more.reactions, 1e-9 * largest);
    }
  EXPECT_GE(compared, 9);
}

}  // namespace
}  // namespace zorlan::test

// From a model to its equations: load terms, magnification, layers, and the stream of the file road.
#include "analysis/equations.h"

#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

CaseTable LoadTermsOf(const ModelRec& model) {
  CaseTable loads(3 * model.NodeCount, model.MaxLoadCase);
  AddLoadTerms(model, CollectMembers(model), loads);
  return loads;
}

std::vector<double> OfCase(const CaseTable& loads, int loadCase) {
  std::vector<double> values;
  for (int e = 0; e < loads.Equations(); ++e) values.push_back(loads[e][loadCase - 1]);
  return values;
}

void ExpectValues(const char* name, const std::vector<double>& actual, const std::vector<double>& expected) {
  ASSERT_EQ(actual.size(), expected.size()) << name;
  for (std::size_t i = 0; i < actual.size(); ++i)
    EXPECT_NEAR(actual[i], expected[i], 1e-12) << name << " " << i;
}

/// One member, 5 m long, direction (0.6, 0.8); EA = 20000 t, EI = 200 t*m2.
ModelBuilder Slope(ModelKind kind, int cases = 1) {
  ModelBuilder b(kind, cases);
  b.Node(0, 0, kClamped);
  b.Node(3, 4);
  b.Section(2e6, 0.01, 1e-4);
  b.Element(1, 2);
  return b;
}

TEST(LoadTerms, OfNodalLoadsAddUp) {
  ModelBuilder b = Slope(kPlaneFrame, 2);
  b.NodalLoad(2, 1, 2, 3, 2);
  b.NodalLoad(2, 10, 20, 30, 2);
  b.NodalLoad(1, 5, 0, 0, 1);
  const CaseTable loads = LoadTermsOf(b.model);
  ExpectValues("case 1", OfCase(loads, 1), {5, 0, 0, 0, 0, 0});
  ExpectValues("case 2", OfCase(loads, 2), {0, 0, 0, 11, 22, 33});
}

TEST(LoadTerms, OfCasesNodesAndElementsThatAreNotThereAreLeftOut) {
  ModelBuilder b = Slope(kPlaneFrame, 2);
  for (const int loadCase : {-1, 0, 3, 32767}) {
    b.NodalLoad(2, 1, 1, 1, loadCase);
    b.ElementLoad(1, 1, 0, 0, 0, loadCase);
    b.CmqLoad(1, 1, 1, 1, 1, 1, 0, loadCase);
    b.TemperatureLoad(1, 10, 20, 10, 1e-5, 0, 0, loadCase);
  }
  for (const int number : {-1, 0, 3, 5001, 32767}) {
    b.NodalLoad(number, 1, 1, 1);
    b.ElementLoad(number, 1);
    b.CmqLoad(number, 1, 1, 1, 1, 1);
    b.TemperatureLoad(number, 10, 20, 10, 1e-5, 0);
  }
  const CaseTable loads = LoadTermsOf(b.model);
  for (const double value : loads.Values()) EXPECT_EQ(value, 0);
}

// A uniform load of 12 t/m along the member's y on 5 m: C = 25, Q = 30; its terms are what the load does to
// the nodes, +30 along (-0.8, 0.6) and +25, -25 about the end. In a grid y is up and the moments turn about
// (-0.8, 0.6).
TEST(LoadTerms, OfAnElementLoadTurnIntoGlobalAxes) {
  ModelBuilder frame = Slope(kPlaneFrame);
  frame.ElementLoad(1, 12);
  ExpectValues("frame", OfCase(LoadTermsOf(frame.model), 1), {-24, 18, 25, -24, 18, -25});
  ModelBuilder grid = Slope(kPlaneGrid);
  grid.ElementLoad(1, 12);
  ExpectValues("grid", OfCase(LoadTermsOf(grid.model), 1), {30, 20, -15, 30, -20, 15});
}

TEST(LoadTerms, OfAnElementLoadTakeItsFactor) {
  ModelBuilder b = Slope(kPlaneFrame);
  b.ElementLoad(1, 4);
  b.model.Elod[1].K = 3;
  ExpectValues("factor", OfCase(LoadTermsOf(b.model), 1), {-24, 18, 25, -24, 18, -25});
}

// 12 t/m of plan on a plan of 3 m: downwards 18 t at each end, C = 12 * 9/12 = 9.
TEST(LoadTerms, OfAVerticalLoadAreVertical) {
  ModelBuilder b = Slope(kPlaneFrame);
  b.ElementLoad(1, -12, 0, 0, 1);
  ExpectValues("vertical", OfCase(LoadTermsOf(b.model), 1), {0, -18, -9, 0, -18, 9});
}

// Ci 5, Cj -10 and the pinned shears Qi 2, Qj 3 of the load: the end moments' couple is (-5 + 10)/5 = 1, so
// the fixed shears are -2 + 1 and -3 - 1; the load's own moments and shears act on the nodes. The grid takes
// the moments with the sign that the element load's table does not have.
TEST(LoadTerms, OfACmqLoadTurnIntoGlobalAxes) {
  ModelBuilder frame = Slope(kPlaneFrame);
  frame.CmqLoad(1, 5, 7, -10, 2, 3);
  ExpectValues("frame", OfCase(LoadTermsOf(frame.model), 1), {-0.8, 0.6, 5, -3.2, 2.4, -10});
  ModelBuilder grid = Slope(kPlaneGrid);
  grid.CmqLoad(1, 5, 7, -10, 2, 3);
  ExpectValues("grid", OfCase(LoadTermsOf(grid.model), 1), {1, -4, 3, 4, 8, -6});
}

// The mean rises by 10 degrees: N = 20000 * 1e-5 * 10 = 2; 20 degrees on 0.2 m: M = 0.2, and no shear.
TEST(LoadTerms, OfATemperatureLoadTurnIntoGlobalAxes) {
  ModelBuilder frame = Slope(kPlaneFrame);
  frame.TemperatureLoad(1, 10, 30, 10, 1e-5, 10);
  ExpectValues("frame", OfCase(LoadTermsOf(frame.model), 1), {-1.2, -1.6, 0.2, 1.2, 1.6, -0.2});
  ModelBuilder grid = Slope(kPlaneGrid);
  grid.TemperatureLoad(1, 10, 30, 10, 1e-5, 10);
  ExpectValues("grid", OfCase(LoadTermsOf(grid.model), 1), {0, 0.16, -0.12, 0, -0.16, 0.12});
}

TEST(LoadTerms, ThatCannotBeFormedAreAFaultThatNamesTheRow) {
  ModelBuilder b(kPlaneFrame, 3);
  b.Node(0, 0, kClamped);
  b.Node(0, 4);
  b.Section(2e6, 0.01, 1e-4);
  b.Element(1, 2);
  b.ElementLoad(1, 1);
  ModelBuilder cold = b;
  b.ElementLoad(1, 1, 2, 1, 1, 3);  // divides by the plan of an upright member
  EXPECT_THAT(FaultOf([&] { LoadTermsOf(b.model); }),
              AllOf(HasSubstr("部材荷重データ 2行目"), HasSubstr("荷重ケース 3 要素番号 1")));
  cold.TemperatureLoad(1, 0, 20, 20, 1e-5, 0);
  EXPECT_THAT(FaultOf([&] { LoadTermsOf(cold.model); }),
              AllOf(HasSubstr("温度荷重データ 1行目"), HasSubstr("要素番号 1"), HasSubstr("Ｙ１が０です")));
}

// The last node stands 5 mm outside the range: inside on the file road alone, with its load, its spring, and
// the member that ends there. EA/L = 4000, spring 100 t/m.
TEST(Equations, MagnifyLoadsMembersAndSpringsByTheToleranceOfTheRoad) {
  ModelBuilder b;
  b.Node(0, 0, kClamped);
  b.Node(5.005, 0, {2, 1, 1});
  b.Section(2e6, 0.01001, 1e-4);
  b.Element(1, 2);
  b.Spring(2, 1, 0, 0);
  b.NodalLoad(2, 7, 0, 0);
  b.Magnification(-1, 5, 3);
  const std::vector<Member> members = CollectMembers(b.model);
  for (const auto& [road, factor] : {std::pair(SolverRoad::File, 3.0), {SolverRoad::InMemory, 1.0}}) {
    const Equations equations = BuildEquations(b.model, members, road);
    EXPECT_DOUBLE_EQ(equations.loads[3][0], 7 * factor);
    ASSERT_EQ(equations.records.size(), 2U);
    EXPECT_DOUBLE_EQ(equations.records[0].k[0], 2e6 * 0.01001 / 5.005 * factor);
    EXPECT_DOUBLE_EQ(equations.records[1].k[0], 100 * factor);
  }
}

std::vector<int> LayersOf(const ModelRec& model) {
  Equations equations;
  AssignLayers(model, equations);
  EXPECT_EQ(equations.layer.size(), static_cast<std::size_t>(model.NodeCount) + 1);
  std::vector<int> result(equations.layer.begin() + 1, equations.layer.end());
  result.push_back(equations.layers);
  return result;
}

TEST(Layers, AreTheGroupsAndThenTheFreeNodesOnTheirOwn) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Node(0, 0, kClamped);   // fixed: none
  b.Node(0, 4, {2, 1, 0});  // on its own, though sprung
  b.Node(5, 4);             // group 2, the later of its two
  b.Node(0, 8);             // group 1
  b.Node(5, 8, kClamped);   // group 1: its group moves it
  b.Node(5, 12);            // on its own
  b.Group({3, 4, 5});
  b.Group({3, 99});  // 99 isn't a node
  EXPECT_THAT(LayersOf(b.model), ElementsAre(0, 3, 2, 1, 1, 4, /*layers*/ 4));
}

TEST(Layers, CountByTheIndexOfTheirGroupNotByItsNumber) {
  ModelBuilder b(kSameDisplacementFrame);
  b.Node(0, 0, {1, 1, 0});
  b.Node(0, 4);
  b.Group({2});
  b.model.Disp[1].group = 17;
  EXPECT_THAT(LayersOf(b.model), ElementsAre(0, 1, 1));
}

TEST(Layers, AreThereInASameDisplacementFrameWithGroupsAlone) {
  for (const ModelKind kind : {kPlaneFrame, kPlaneGrid, kSameDisplacementFrame}) {
    ModelBuilder b(kind);
    b.Node(0, 0);
    b.Node(0, 4);
    if (kind != kSameDisplacementFrame) b.Group({1, 2});
    EXPECT_THAT(LayersOf(b.model), ElementsAre(0, 0, 0)) << kind;
  }
}

/// Six elements over four nodes in an order of their own, springs on the nodes 2 (twice) and 4.
ModelBuilder Stream() {
  ModelBuilder b;
  for (int n = 0; n < 4; ++n) b.Node(n, n * n);
  b.Section(2e6, 0.01, 1e-4);
  for (const auto& [I, J] : {std::pair(4, 3), {2, 4}, {3, 1}, {1, 2}, {4, 1}, {2, 3}}) b.Element(I, J);
  b.Spring(4, 1, 0, 0);
  b.Spring(2, 2, 0, 0);
  b.Spring(2, 3, 0, 0);
  return b;
}

using Ends = std::pair<int, int>;
std::vector<Ends> EndsOf(const Equations& equations) {
  std::vector<Ends> ends;
  for (const ElementRecord& record : equations.records) ends.emplace_back(record.rowI, record.rowJ);
  return ends;
}

TEST(FrontStream, HasForEachNodeItsElementsNotYetTakenThenItsSprings) {
  const ModelRec model = Stream().model;
  const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::File);
  EXPECT_THAT(EndsOf(equations), ElementsAre(Ends(3, 1), Ends(1, 2), Ends(4, 1), Ends(2, 4), Ends(2, 3),
                                             Ends(2, 2), Ends(2, 2), Ends(4, 3), Ends(4, 4)));
  EXPECT_THAT(equations.recordsAtRow, ElementsAre(0, 3, 4, 1, 1));
  EXPECT_EQ(equations.records[5].k[0], 200) << "springs in table order";
  EXPECT_EQ(equations.records[6].k[0], 300);
}

TEST(FrontStream, GivesANodesLoadsToTheFirstRecordThatMeetsIt) {
  const ModelRec model = Stream().model;
  const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::File);
  std::vector<std::pair<bool, bool>> loads;
  for (const ElementRecord& record : equations.records) loads.emplace_back(record.loadsI, record.loadsJ);
  const std::pair<bool, bool> none(false, false);
  // Nodes 3 and 1; 2; 4; nothing is left for the others.
  EXPECT_THAT(loads, ElementsAre(std::pair(true, true), std::pair(false, true), std::pair(true, false), none,
                                 none, none, none, none, none));
}

TEST(FrontStream, GivesTheLoadsOfANodeOnASpringAloneToTheSpring) {
  ModelBuilder b = Stream();
  b.Node(9, 9, {2, 2, 2});
  b.Spring(5, 1, 1, 1);
  const Equations equations = BuildEquations(b.model, CollectMembers(b.model), SolverRoad::File);
  EXPECT_EQ(equations.records.back().rowI, 5);
  EXPECT_TRUE(equations.records.back().loadsI);
  EXPECT_FALSE(equations.records.back().loadsJ) << "both ends are the same node";
}

TEST(InMemoryRecords, AreTheElementsInTableOrderAndThenTheSprings) {
  const ModelRec model = Stream().model;
  const Equations equations = BuildEquations(model, CollectMembers(model), SolverRoad::InMemory);
  EXPECT_THAT(EndsOf(equations), ElementsAre(Ends(4, 3), Ends(2, 4), Ends(3, 1), Ends(1, 2), Ends(4, 1),
                                             Ends(2, 3), Ends(4, 4), Ends(2, 2), Ends(2, 2)));
}

}  // namespace
}  // namespace zorlan::test

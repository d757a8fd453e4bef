// What is gathered of a model before anything is computed, and what can't be.
#include "analysis/members.h"

#include <gtest/gtest.h>

#include "support/model_builder.h"
#include "support/model_folder.h"

namespace zorlan::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// Two members over three nodes, 3 m and 5 m long.
ModelBuilder TwoMembers() {
  ModelBuilder b;
  b.Node(0, 0, kClamped);
  b.Node(3, 0);
  b.Node(6, 4);
  b.Section(2e6, 0.01, 1e-4, 8e5, 0.005);
  b.RigidZones(0.1, 0.2);
  b.Element(1, 2);
  b.Element(3, 2, 1, 1, 0, 1);
  return b;
}

TEST(Members, HaveRowsDirectionsEndsAndZones) {
  const std::vector<Member> members = CollectMembers(TwoMembers().model);
  ASSERT_EQ(members.size(), 2U);
  const Member& m = members[1];
  EXPECT_EQ(m.rowI, 3);
  EXPECT_EQ(m.rowJ, 2);
  EXPECT_DOUBLE_EQ(m.L, 5);
  EXPECT_DOUBLE_EQ(m.c, -0.6);
  EXPECT_DOUBLE_EQ(m.s, -0.8);
  EXPECT_EQ(m.II, 1);
  EXPECT_EQ(m.JJ, 0);
  EXPECT_EQ(m.lambdaI, 0.1);
  EXPECT_EQ(m.lambdaJ, 0.2);
  EXPECT_EQ(members[0].lambdaI, 0);
}

TEST(Members, OfAnUnknownRigidTypeHaveNoZones) {
  ModelBuilder b = TwoMembers();
  b.model.Elem[2].rigid = 77;
  EXPECT_EQ(CollectMembers(b.model)[1].lambdaI, 0);
  EXPECT_EQ(CollectMembers(b.model)[1].lambdaJ, 0);
}

TEST(Members, OfTheRigidTypeZeroHaveNoZonesEvenIfARowHasThatNumber) {
  ModelBuilder b = TwoMembers();
  b.model.Rigd[1].number = 0;
  EXPECT_EQ(CollectMembers(b.model)[0].lambdaI, 0);
}

TEST(Members, TakeTheLastOfTheRowsWithTheirNumber) {
  ModelBuilder b = TwoMembers();
  b.Section(3e6, 0.01, 1e-4);
  b.model.Sect[2].number = 1;
  EXPECT_EQ(CollectMembers(b.model)[0].section.E, 3e6);
}

// 0.3 m by 0.5 m: A = 0.15, I = 0.3 * 0.125/12 = 0.003125.
TEST(MemberSection, TakesTheStiffnessFactorFromTypeOneOn) {
  SectRec section;
  section.P1 = 0.3;
  section.P2 = 0.5;
  section.phi = 2;
  EXPECT_DOUBLE_EQ(SectionOf(section).I, 0.5) << "TYPE 0: I is the second field, as it stands";
  section.TYPE = 1;
  EXPECT_DOUBLE_EQ(SectionOf(section).I, 0.00625);
  EXPECT_DOUBLE_EQ(SectionOf(section).A, 0.15) << "the area isn't multiplied";
}

TEST(MemberSection, OfATypeThatDoesNotExistIsAFaultThatNamesTheSection) {
  for (const short type : {short{-1}, short{13}, short{32767}}) {
    SectRec section;
    section.number = 41;
    section.TYPE = type;
    EXPECT_THAT(FaultOf([&] { SectionOf(section); }),
                AllOf(HasSubstr("断面番号 41 "), HasSubstr(std::to_string(type))));
  }
}

struct BadModel {
  const char* name;
  void (*spoil)(ModelRec& model);
  std::vector<const char*> words;
};
const BadModel kBadModels[] = {
    {"unknown node at I", [](ModelRec& m) { m.Elem[2].I = 9; }, {"要素番号 2 ", "節点番号 9 "}},
    {"unknown node at J", [](ModelRec& m) { m.Elem[2].J = 8; }, {"要素番号 2 ", "節点番号 8 "}},
    {"a node number beyond the map", [](ModelRec& m) { m.Elem[2].J = 5001; }, {"要素番号 2 ", "5001"}},
    {"unknown section", [](ModelRec& m) { m.Elem[1].section = 5; }, {"要素番号 1 ", "断面番号 5 "}},
    {"no length", [](ModelRec& m) { m.Elem[1].length = 0; }, {"要素番号 1 ", "部材長が０"}},
    {"a node beyond 5000", [](ModelRec& m) { m.Node[3].number = 5001; }, {"節点番号 5001"}},
    {"a node below 0", [](ModelRec& m) { m.Node[3].number = -1; }, {"節点番号 -1"}},
    {"an element beyond 5000", [](ModelRec& m) { m.Elem[2].number = 6000; }, {"要素番号 6000"}},
    {"a section beyond 5000", [](ModelRec& m) { m.Sect[1].number = 5001; }, {"断面番号 5001"}},
    {"a rigid type beyond 5000", [](ModelRec& m) { m.Rigd[1].number = 5001; }, {"剛域タイプ番号 5001"}},
};

TEST(Members, ThatCannotBeGatheredAreAFaultThatNamesTheRow) {
  for (const BadModel& bad : kBadModels) {
    ModelRec model = TwoMembers().model;
    bad.spoil(model);
    const std::string fault = FaultOf([&] { CollectMembers(model); });
    for (const char* const word : bad.words) EXPECT_THAT(fault, HasSubstr(word)) << bad.name;
  }
}

TEST(Members, MayHaveAnyNumberFromZeroToFiveThousand) {
  for (const short number : {short{0}, short{5000}}) {
    ModelRec model = TwoMembers().model;
    model.Node[3].number = model.Elem[2].I = model.Elem[2].number = model.Sect[1].number = number;
    model.Elem[1].section = model.Elem[2].section = number;
    EXPECT_EQ(CollectMembers(model)[1].rowI, 3) << number;
  }
}

TEST(Springs, ComeInTonsAndMetresWithTurningConstantsByKind) {
  struct Case {
    ModelKind kind;
    std::array<double, 3> k;
  };
  for (const Case& c : {Case{kPlaneFrame, {200, 300, 0.04}}, Case{kSameDisplacementFrame, {200, 300, 0.04}},
                        Case{kPlaneGrid, {200, 0.03, 0.04}}}) {
    ModelBuilder b(c.kind);
    b.Node(0, 0);
    b.Node(1, 0);
    b.Spring(2, 2, 3, 4);
    b.Spring(9, 1, 1, 1);  // on no node
    const std::vector<NodeSpring> springs = CollectSprings(b.model);
    ASSERT_EQ(springs.size(), 1U);
    EXPECT_EQ(springs[0].row, 2);
    for (std::size_t d = 0; d < 3; ++d) EXPECT_DOUBLE_EQ(springs[0].k[d], c.k[d]) << c.kind;
  }
}

/// Ranges [0, 10] x 2, [8, 20] x 3.
ModelRec TwoRanges() {
  ModelBuilder b;
  b.Magnification(0, 10, 2);
  b.Magnification(8, 20, 3);
  return b.model;
}

TEST(Magnification, OfAPointIsThatOfTheFirstRangeAroundIt) {
  const ModelRec model = TwoRanges();
  struct Case {
    double x, inFile, inMemory;
  };
  // 5 mm outside is inside on the file road alone; 20 mm is outside on both.
  for (const Case& c : {Case{5, 2, 2},
                        {9, 2, 2},
                        {15, 3, 3},
                        {-0.005, 2, 1},
                        {-0.02, 1, 1},
                        {10.005, 2, 3},
                        {20.005, 3, 1},
                        {20.02, 1, 1},
                        {20.0000005, 3, 3},
                        {-1, 1, 1}}) {
    EXPECT_EQ(MagnificationAt(model, c.x, kMagnificationToleranceFileRoad), c.inFile) << c.x;
    EXPECT_EQ(MagnificationAt(model, c.x, kMagnificationToleranceInMemoryRoad), c.inMemory) << c.x;
  }
}

TEST(Magnification, OfAMemberNeedsBothItsEndsInOneRange) {
  const ModelRec model = TwoRanges();
  struct Case {
    double xi, xj, expected;
  };
  for (const Case& c :
       {Case{1, 9, 2}, {9, 1, 2}, {9, 12, 3}, {12, 9, 3}, {5, 12, 1}, {-1, 5, 1}, {8.5, 9.5, 2}})
    EXPECT_EQ(MagnificationBetween(model, c.xi, c.xj, kMagnificationToleranceInMemoryRoad), c.expected)
        << c.xi << " to " << c.xj;
}

}  // namespace
}  // namespace zorlan::test

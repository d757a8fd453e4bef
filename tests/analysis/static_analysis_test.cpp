// The driver from a deck to its result files: what it clears, keeps, tells and leaves.
#include "analysis/static_analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/analysis_state.h"
#include "support/analysis_folder.h"
#include "support/deck_text.h"
#include "support/model_builder.h"
#include "support/random_models.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StaticAnalysis : public AnalysisTest {
 protected:
  bool AnalyseModel(const ModelRec& model) { return Analyse(DeckText(model)); }
};

/// A bar of 2 m with EA/L = 5000 t/m and EI = 200 t*m2, pinned at both ends; 5 t pull, 3 t/m lie on it.
ModelBuilder Bar() {
  ModelBuilder b(kPlaneFrame);
  b.Section(1e6, 0.01, 2e-4);
  b.Node(0, 0, kHinged);
  b.Node(2, 0, {0, 1, 1});
  b.Element(1, 2, 1, 1, 1);
  b.NodalLoad(2, 5, 0, 0);
  b.ElementLoad(1, -3);
  b.model.Node[1].number = b.model.Elem[1].I = 12;
  return b;
}

/// A chain of cantilevered members, 1 m each, and a truss bar at the end that nothing holds across.
ModelBuilder Chain(int nodes, ModelKind kind = kPlaneFrame) {
  ModelBuilder b(kind);
  b.Section(1e6, 0.01, 2e-4);
  for (int n = 0; n < nodes; ++n) b.Node(0, n, n == 0 ? kClamped : kLoose);
  for (int n = 1; n < nodes; ++n) b.Element(n, n + 1);
  b.NodalLoad(nodes, 1, 0, 0);
  if (kind == kSameDisplacementFrame) b.Group({2});
  return b;
}
ModelBuilder Unstable(ModelBuilder b) {
  b.model.Elem[b.model.ElemCount].II = b.model.Elem[b.model.ElemCount].JJ = 1;
  return b;
}

// Hand: u = 5/5000; N = -5 and 5; Q = 3; M(C) = 3 * 4/8.
TEST_F(StaticAnalysis, LeavesFourFilesOfPrintedNumbers) {
  ASSERT_TRUE(AnalyseModel(Bar().model));
  EXPECT_EQ(Read(ResultFolder() + "FT021"), " 0 \n 0 \n 0 \n 0.001 \n 0 \n 0 \n");
  EXPECT_EQ(Read(ResultFolder() + "FT022"), " 12 -5  3  0 \n 2  0  3  0 \n");
  EXPECT_EQ(Read(ResultFolder() + "FT022A"), " 1 \n 2 \n 12 \n 2 \n");
  EXPECT_EQ(Read(ResultFolder() + "FT031"), "-5 \n 3 \n 0 \n 5 \n 3 \n 0 \n 1.5 \n");
}

TEST_F(StaticAnalysis, LeavesTheSameFilesInTheFolderOfTheWorkInHand) {
  ASSERT_TRUE(AnalyseModel(Bar().model));
  for (const char* const name : {"FT021", "FT022", "FT022A", "FT031"})
    EXPECT_EQ(Read(AnalysisPath + name), Read(ResultFolder() + name)) << name;
}

TEST_F(StaticAnalysis, OrdersItsNumbersByCaseRowAndPlace) {
  ModelBuilder b(kPlaneFrame, 2);
  b.Section(1e6, 0.01, 2e-4);
  b.Node(0, 0, kClamped);
  b.Node(2, 0);
  b.Node(4, 0);
  b.Element(1, 2);
  b.Element(2, 3);
  b.NodalLoad(2, 5, 0, 0, 1);
  b.NodalLoad(3, 10, 0, 0, 2);
  ASSERT_TRUE(AnalyseModel(b.model));
  EXPECT_NEAR(U(2, 0, 1), 0.001, 1e-15);
  EXPECT_NEAR(U(3, 0, 1), 0.001, 1e-15);
  EXPECT_NEAR(U(2, 0, 2), 0.002, 1e-15);
  EXPECT_NEAR(U(3, 0, 2), 0.004, 1e-15);
  EXPECT_NEAR(F(2, 4, 1), 0, 1e-12);
  EXPECT_NEAR(F(2, 4, 2), 10, 1e-12);
  EXPECT_NEAR(R(1, 0, 2), -10, 1e-12);
}

TEST_F(StaticAnalysis, BeginsWithWhatTheModelsFolderKeeps) {
  MakeFolder(ResultFolder());
  Write(ResultFolder() + "DSNW", "kept\n");
  Write(ResultFolder() + "DSNS", "stale\n");
  Write(AnalysisPath + "FT008", "of another model\n");
  ASSERT_TRUE(AnalyseModel(Bar().model));
  EXPECT_FALSE(FileExists(AnalysisPath + "FT008"));
  EXPECT_FALSE(FileExists(AnalysisPath + "DSNS"));
  EXPECT_FALSE(FileExists(ResultFolder() + "DSNS"));
  EXPECT_EQ(Read(AnalysisPath + "DSNW"), "kept\n");
  EXPECT_EQ(Read(ResultFolder() + "DSNW"), "kept\n");
}

TEST_F(StaticAnalysis, GivesTheSameBytesAgain) {
  ASSERT_TRUE(AnalyseModel(RandomModel({kPlaneFrame, 6, 6, 5}).Model()));
  std::vector<std::string> first;
  for (const char* const name : {"FT021", "FT022", "FT022A", "FT031"})
    first.push_back(Read(ResultFolder() + name));
  ASSERT_TRUE(AnalyseFile());
  std::size_t n = 0;
  for (const char* const name : {"FT021", "FT022", "FT022A", "FT031"})
    EXPECT_EQ(Read(ResultFolder() + name), first[n++]) << name;
}

TEST_F(StaticAnalysis, SolvesEveryModelTwice) {
  int solves = 0;
  Host host;
  host.hourglass = [&](bool busy) { solves += busy ? 1 : 0; };
  InstallHost(std::move(host));
  ASSERT_TRUE(AnalyseModel(Bar().model));
  EXPECT_EQ(solves, 2);
}

struct FailureCase {
  const char* name;
  std::string deck;
  std::vector<std::string> told;  // "title: text", all of it
};

std::vector<FailureCase> FailureCases() {
  const std::string title = std::string(kApplicationTitle) + ": ";
  const std::string noInput = "解析失敗: 前の段階の計算結果がありません エラー発生（IN ";
  const auto pivot = [&](int position, int node) {
    return title + "不安定構造     PIVOT ( " + std::to_string(position) +
           " ) = 0  \nNODE =" + std::to_string(node) + "     X 方向  剛性　ありません";
  };
  const auto layer = [&](int h) {
    return title + "不安定構造     PIVOT ( " + std::to_string(h) + " ) = 0  \n第 " + std::to_string(h) +
           " 層  X 方向  剛性　ありません";
  };
  ModelBuilder single;
  single.Node(0, 0, kClamped);
  ModelBuilder bare = single;
  bare.Node(3, 0);
  ModelBuilder sprung = Unstable(Chain(5));
  sprung.model.Node[1].code = {2, 1, 1};
  sprung.Spring(1, 1, 0, 0);
  ModelBuilder unknown = Chain(5), unknownBelow = Chain(31);
  unknown.model.Elem[2].section = unknownBelow.model.Elem[30].section = 9;
  ModelBuilder huge = Chain(5);
  huge.NodalLoad(3, 1e308, 0, 0);
  huge.NodalLoad(3, 1e308, 0, 0);
  ModelBuilder stiff = Chain(5);  // only a held equation's own stiffness is beyond the range
  stiff.model.Sect[1].E = 1e300;
  stiff.model.Sect[1].P1 = 1e10;
  ModelBuilder opposed = Bar();  // the moments' difference is beyond the range, they are not
  opposed.model.Node[1].code = opposed.model.Node[2].code = kClamped;
  opposed.model.Elem[1].II = opposed.model.Elem[1].JJ = 0;
  opposed.CmqLoad(1, 1.7e308, 0, -1.7e308, 0, 0);
  return {
      {"one node", DeckText(single.model), {"解析失敗:  節点データは、少なくとも２点以上入力してください"}},
      {"no element", DeckText(bare.model), {"解析失敗:  要素データの入力がありません"}},
      {"unstable", DeckText(Unstable(Chain(5)).model), {pivot(13, 5), noInput + "DSTRESS1）"}},
      {"unstable, with springs", DeckText(sprung.model), {pivot(13, 5), noInput + "DREAC_A）"}},
      {"unstable, many nodes", DeckText(Unstable(Chain(31)).model), {pivot(1, 31), noInput + "DBACK_A）"}},
      {"unstable floors",
       DeckText(Unstable(Chain(5, kSameDisplacementFrame)).model),
       {layer(4), noInput + "DREAC_B）"}},
      {"unstable floors, many nodes",
       DeckText(Unstable(Chain(31, kSameDisplacementFrame)).model),
       {layer(30), noInput + "DBACK_B）"}},
      {"a fault of a stage",
       DeckText(unknown.model),
       {"解析失敗: 要素番号 2 ： 断面番号 9 が存在しません エラー発生（IN DSOLVE_1）"}},
      {"a fault of a stage, many nodes",
       DeckText(unknownBelow.model),
       {"解析失敗: 要素番号 30 ： 断面番号 9 が存在しません エラー発生（IN DMATRIX）"}},
      {"overflow of a stiffness",
       DeckText(stiff.model),
       {"解析失敗: 計算中に数値の範囲を超えました エラー発生（IN DSOLVE_1）"}},
      {"overflow of a force",
       DeckText(opposed.model),
       {"解析失敗: 計算中に数値の範囲を超えました エラー発生（IN DSTRESS2）"}},
      {"overflow of a load",
       DeckText(huge.model),
       {"解析失敗: 計算中に数値の範囲を超えました エラー発生（IN DSOLVE_1）"}},
      {"no such kind",
       "@CONT\n4,1,0,0\n@NODE\n1,0,0,1,1,1\n2,1,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n",
       {"解析失敗:  コントロールデータの解析モデル番号は、１～３の値を入力してください"}},
      {"too many cases",
       "@CONT\n1,21,0,0\n@NODE\n1,0,0,1,1,1\n2,1,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n",
       {"解析失敗:  コントロールデータの最大荷重ケースは、１～２０の値を入力してください"}},
  };
}

TEST_F(StaticAnalysis, EndsWithTheWordsOfItsFailureAndWithoutTheResultsOfAnotherRun) {
  for (const FailureCase& c : FailureCases()) {
    ASSERT_TRUE(AnalyseModel(Bar().model));
    const std::string reactions = Read(ResultFolder() + "FT022");
    EXPECT_FALSE(Analyse(c.deck)) << c.name;
    EXPECT_EQ(Told(), c.told) << c.name;
    for (const char* const name : {"FT021", "FT031"})
      EXPECT_FALSE(FileExists(ResultFolder() + name)) << c.name;
    EXPECT_FALSE(FileExists(ListingPath())) << c.name;
    EXPECT_EQ(Read(ResultFolder() + "FT022"), reactions) << c.name << ": the last good run's stay";
    EXPECT_TRUE(FileExists(ResultFolder() + "FT022A")) << c.name;
  }
}

TEST_F(StaticAnalysis, WithoutASupportIsRefusedAndTouchesNoResult) {
  ModelBuilder moved = Chain(3);
  moved.model.MaxLoadCase = 2;
  moved.model.Node[1].code = kLoose;
  moved.ForcedDisplacement(1, 2);  // a support in case 2 alone
  ModelBuilder loose = Chain(3);
  loose.model.Node[1].code = kLoose;
  for (const ModelBuilder& b : {loose, moved}) {
    ASSERT_TRUE(AnalyseModel(Bar().model));
    const std::string forces = Read(ResultFolder() + "FT031");
    Write(ResultFolder() + "SIG_S", "ratios\n");
    EXPECT_FALSE(AnalyseModel(b.model));
    EXPECT_THAT(Told(), ElementsAre(std::string(kApplicationTitle) + ": 支持点がありません"));
    EXPECT_EQ(Read(ResultFolder() + "FT031"), forces);
    EXPECT_TRUE(FileExists(ResultFolder() + "SIG_S"));
  }
}

TEST_F(StaticAnalysis, ThatCannotWriteItsFilesFailsAsTheStageThatLeavesThem) {
  WriteDeck(DeckText(Bar().model));
  AnalysisPath = BlockedFolder();
  EXPECT_FALSE(AnalyseFile());
  ASSERT_EQ(Told().size(), 1U);
  EXPECT_THAT(Told()[0], testing::AllOf(testing::StartsWith("解析失敗: "), HasSubstr(AnalysisPath + "FT021"),
                                        testing::EndsWith("エラー発生（IN DSTRESS2）")));
}

TEST_F(StaticAnalysis, TakesThePlainRoadWhereNoRollerIsInclined) {
  struct Case {
    const char* name;
    std::int16_t rollerFlag;
    Codes code;
  };
  // Without the flag a code 4 is a free direction, and node 2 is held by the bar alone.
  for (const Case& c :
       {Case{"codes without the flag", 0, {4, 4, 1}}, Case{"the flag without codes", 1, {0, 0, 1}},
        Case{"codes of no roller", 1, {4, 0, 1}}}) {
    ModelBuilder b = Bar();
    b.model.RollerFlag = c.rollerFlag;
    b.model.Elem[1].II = b.model.Elem[1].JJ = 0;
    b.model.Node[1].code = kClamped;
    b.model.Node[2].code = c.code;
    EXPECT_TRUE(AnalyseModel(b.model)) << c.name << testing::PrintToString(Told());
    EXPECT_EQ(LastAnalysis().road, Road::InMemory) << c.name;
  }
}

TEST_F(StaticAnalysis, SolvesTheModelInHandAlone) {
  CalcModel = Bar().model;
  EXPECT_EQ(SolveStatic(), kTrue);
  EXPECT_EQ(PivotTolerance, 1e-20);
  EXPECT_THAT(AnalysisError, IsEmpty());
  EXPECT_EQ(Read(AnalysisPath + "FT031"), "-5 \n 3 \n 0 \n 5 \n 3 \n 0 \n 1.5 \n");
  CalcModel.ElemCount = 0;
  EXPECT_EQ(SolveStatic(), kFalse);
  EXPECT_EQ(AnalysisError, "要素データの入力がありません");
  CalcModel = Bar().model;
  EXPECT_EQ(SolveStatic(), kTrue);
  EXPECT_THAT(AnalysisError, IsEmpty()) << "a former failure is forgotten";
}

}  // namespace
}  // namespace zorlan::test

// The companion program as the analysis meets it: its control file, and every way in which it can fail.
#include "analysis/external_road.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "support/external_model.h"
#include "support/model_builder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using How = ProgramEnd::How;

/// A cantilever with a free tip (node 20) that is pushed down.
constexpr std::string_view kPushedCantilever =
    "@CONT\n1,1,0,0\n\n@UNIT\n0,0,9.80665,0\n\n@NODE\n10,0,0,1,1,1\n20,4,0,0,0,0\n"
    "\n@ELEM\n1,10,20,0,0,1\n\n@SECT\n1,0,100,20000,0,0,1,2100,0\n\n@SPEC\n20,1,0,-1,0\n";

class ExternalRoad : public ExternalModelTest {
 protected:
  /// The one message of an analysis that fails with this companion; nothing may be left of its results.
  std::string FailureWith(Companion companion) {
    ReplaceCompanion(RunCompanion);
    EXPECT_TRUE(Analyse(kPushedCantilever));
    EXPECT_TRUE(FileExists(ResultFolder() + "FT031"));
    ReplaceCompanion(std::move(companion));
    EXPECT_FALSE(AnalyseFile());
    for (const char* const stale : {"FT021", "FT031"})
      EXPECT_FALSE(FileExists(ResultFolder() + stale)) << stale;
    EXPECT_FALSE(FileExists(ListingPath()));
    EXPECT_EQ(Told().size(), 1U) << testing::PrintToString(Told());
    return Told().empty() ? "" : Told().front();
  }
  static Companion Ends(ProgramEnd end) {
    return [end](const std::string&, const std::string&) { return end; };
  }
  /// Solves, and spoils the output.
  static Companion SolvesThen(std::function<void(std::string& output)> spoil) {
    return [spoil](const std::string& program, const std::string& folder) {
      const ProgramEnd end = RunCompanion(program, folder);
      std::string output = ReadBytes(folder + "FT999.OUT");
      spoil(output);
      ReplaceBytes(folder + "FT999.OUT", output);
      return end;
    };
  }
};

TEST_F(ExternalRoad, StartsTheCompanionBesideTheProgramInTheAnalysisFolder) {
  std::string program, folder;
  ReplaceCompanion([&](const std::string& started, const std::string& in) {
    program = started;
    folder = in;
    return RunCompanion(started, in);
  });
  ASSERT_TRUE(Analyse(kPushedCantilever)) << testing::PrintToString(Told());
  EXPECT_EQ(program, ProgramFolder + "anaZorlan");
  EXPECT_EQ(folder, AnalysisPath);
  EXPECT_EQ(Read(AnalysisPath + "ANAZOR.CTL"), "FT999.INP\nFT999.OUT\nFT999.ERR\n" + AnalysisPath + "\n");
}

TEST_F(ExternalRoad, WorksInAFolderThatTheCodePageCantName) {
  AnalysisPath = Root() + "é/";
  MakeFolder(AnalysisPath);
  ASSERT_TRUE(Analyse(kPushedCantilever)) << testing::PrintToString(Told());
  EXPECT_EQ(Read(AnalysisPath + "ANAZOR.CTL"), "FT999.INP\nFT999.OUT\nFT999.ERR\n./\n");
}

TEST_F(ExternalRoad, TellsWhyTheCompanionGaveNoResult) {
  EXPECT_EQ(FailureWith(Ends({How::NotStarted, 0, "No such file"})),
            "解析失敗: 外部解析プログラム " + ProgramFolder +
                "anaZorlan を起動できません（No such file） エラー発生（IN anaZorlan）");
  EXPECT_EQ(FailureWith(Ends({How::Cancelled, 0, ""})),
            "解析失敗: 外部解析プログラムの実行を中止しました エラー発生（IN anaZorlan）");
  EXPECT_EQ(FailureWith(Ends({How::Killed, 9, ""})),
            "解析失敗: 外部解析プログラムが異常終了しました（9） エラー発生（IN anaZorlan）");
  EXPECT_EQ(FailureWith(Ends({How::Exited, 5, ""})),
            "解析失敗: 外部解析プログラムがエラーで終了しました（終了コード 5） エラー発生（IN anaZorlan）");
}

TEST_F(ExternalRoad, PassesOnWhatTheCompanionSays) {
  const std::string said = FailureWith([](const std::string& program, const std::string& folder) {
    ReplaceBytes(folder + "FT999.INP", "no deck\r\n");
    return RunCompanion(program, folder);
  });
  EXPECT_THAT(said, HasSubstr("終了コード 1"));
  EXPECT_THAT(said, HasSubstr("1行目 ： 入力データの版が %Ver.4 ではありません"));
}

TEST_F(ExternalRoad, TellsAKilledCompanion) {
  EXPECT_THAT(FailureWith([](const std::string&, const std::string&) {
                const int status = std::system("kill -KILL $$");
                EXPECT_TRUE(WIFSIGNALED(status));
                return ProgramEnd{How::Killed, WTERMSIG(status), ""};
              }),
              HasSubstr("異常終了しました（9）"));
}

TEST_F(ExternalRoad, NamesAnUnstableDirectionByTheModelsNode) {
  ModelBuilder b;  // two beams that meet in a pin on a straight line; the first run's solver is passed by
  b.Node(0, 0, kHinged);
  b.Node(3, 0);
  b.Node(6, 0, kHinged);
  b.Section(2.1e7, 0.01, 2e-4);
  b.Element(1, 2);
  b.Element(2, 3, 1, 1, 0);
  for (int n = 1; n <= 3; ++n) b.model.Node[n].number = static_cast<std::int16_t>(100 * n);
  for (int e = 1; e <= 2; ++e) {
    b.model.Elem[e].I = static_cast<std::int16_t>(100 * e);
    b.model.Elem[e].J = static_cast<std::int16_t>(100 * e + 100);
  }
  CalcModel = b.model;
  MergedResults merged(1, 3, 2);
  EXPECT_FALSE(SolveExternalCase(1, merged));
  EXPECT_THAT(Told(), ElementsAre(HasSubstr("NODE =200     Y 方向  剛性　ありません")));
}

TEST_F(ExternalRoad, NamesTheNodeOfSupportsThatContradictEachOther) {
  ModelBuilder b(kSameDisplacementFrame);  // the two tops of a portal, which move together, moved apart
  for (const double y : {0.0, 4.0})
    for (const double x : {0.0, 6.0}) b.Node(x, y, y == 0 ? kClamped : kLoose);
  b.Section(2.1e7, 0.01, 2e-4);
  b.Element(1, 3);
  b.Element(2, 4);
  b.Element(3, 4);
  b.Group({3, 4});
  b.Moved(3, 1, 0, 0);
  b.Moved(4, 2, 0, 0);
  b.model.Node[4].number = b.model.Elem[2].J = b.model.Elem[3].J = 104;
  b.model.Disp[1].node[2] = b.model.Spec[2].node = 104;
  CalcModel = b.model;
  MergedResults merged(1, 4, 3);
  EXPECT_FALSE(SolveExternalCase(1, merged));
  EXPECT_THAT(Told(), ElementsAre(HasSubstr("終了コード 1）\nNODE =104 の支持条件に矛盾があります")));
}

TEST_F(ExternalRoad, NeverTakesAnOutputThatIsNotTheRunsOwn) {
  // The output of the run before is gone when the companion only pretends to work.
  EXPECT_THAT(FailureWith(Ends({How::Exited, 0, ""})), HasSubstr("FT999.OUT"));
  EXPECT_THAT(FailureWith(SolvesThen([](std::string& output) { output.resize(output.size() / 2); })),
              HasSubstr("外部解析プログラムの出力 ： "));
  EXPECT_THAT(FailureWith(SolvesThen([](std::string& output) { output.clear(); })),
              HasSubstr("「NUMBER OF NODAL POINTS   =」がありません"));
  EXPECT_THAT(FailureWith(SolvesThen([](std::string& output) { output[output.find("= 2") + 2] = '3'; })),
              HasSubstr("NUMBER OF NODAL POINTS   = が入力と異なります"));
  EXPECT_THAT(
      FailureWith(SolvesThen([](std::string& output) { output.replace(output.find("-0.01"), 5, "1.#QN"); })),
      HasSubstr("数値ではありません"));
}

TEST_F(ExternalRoad, FailsWhereTheDeckCantBeWritten) {
  CalcModel = [] {
    ModelBuilder b;
    b.Node(0, 0, kClamped);
    b.Node(4, 0);
    b.Section(2.1e7, 0.01, 2e-4);
    b.Element(1, 2);
    return b.model;
  }();
  AnalysisPath = BlockedFolder();
  MergedResults merged(1, 2, 1);
  EXPECT_FALSE(SolveExternalCase(1, merged));
  EXPECT_THAT(Told(), ElementsAre(HasSubstr("FT999.INP")));
}

TEST_F(ExternalRoad, GivesAMovedNodeItsCode) {
  ReplaceCompanion(RunCompanion);
  ASSERT_TRUE(Analyse(kPushedCantilever));
  EXPECT_EQ(CalcModel.Node[2].code, (std::array<std::int16_t, 3>{0, 0, 0}));  // put back behind the run
  MergedResults merged(1, 2, 1);
  ASSERT_TRUE(SolveExternalCase(1, merged));
  EXPECT_EQ(CalcModel.Node[2].code, (std::array<std::int16_t, 3>{0, 3, 0}));
}

TEST_F(ExternalRoad, TakesTheMagnificationOutOfTheForcesOfEveryCase) {
  ModelBuilder b(kPlaneFrame, 2);
  b.Node(0, 0, kClamped);
  b.Node(4, 0);
  b.Node(8, 0, kClamped);
  b.Section(2.1e7, 0.01, 2e-4);
  b.Element(1, 2);
  b.Element(2, 3);
  b.Magnification(-1, 5, 4);
  CalcModel = b.model;
  std::vector<double> forces(2 * 2 * 7, 8);
  WriteForces(AnalysisPath, forces);
  RemoveMagnification(CalcModel);
  for (std::size_t p = 0; p < forces.size(); ++p) forces[p] = p / 7 % 2 == 0 ? 2 : 8;
  EXPECT_EQ(ReadReals(AnalysisPath + "FT031", forces.size()), forces);
}

}  // namespace
}  // namespace zorlan::test

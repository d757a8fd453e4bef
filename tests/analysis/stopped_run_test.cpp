// A run that the user stops, or that fails half-way, leaves nothing that could be taken for its results.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/analysis_folder.h"

namespace zorlan::test {
namespace {

/// Nodes in a row, 1 m apart, fixed at the first one: enough of them that a solve shows its progress.
std::string LongCantilever(const std::string& tail = {}) {
  constexpr int kNodes = 200;
  std::string deck = "@CONT\n1,1,0\n@UNIT\n1,1,9.80665,0\n@NODE\n";
  for (int n = 1; n <= kNodes; ++n)
    deck += std::to_string(n) + "," + std::to_string(n - 1) + ",0," + (n == 1 ? "1,1,1" : "0,0,0") + "\n";
  deck += "@ELEM\n";
  for (int n = 1; n < kNodes; ++n)
    deck += std::to_string(n) + "," + std::to_string(n) + "," + std::to_string(n + 1) + ",0,0,1,0\n";
  return deck + "@SECT\n1,0,100,10000,50,0,1,205000,79000\n@PLOD\n1,200,0,-1,0\n" + tail;
}

struct Stop {};

class StoppedRunTest : public AnalysisTest {
 protected:
  void ExpectNoResults() {
    for (const std::string& folder : {AnalysisPath, ResultFolder()})
      for (const char* const name : {"FT021", "FT031"})
        EXPECT_FALSE(FileExists(folder + name)) << folder << name;
    EXPECT_FALSE(FileExists(ListingPath()));
  }
};

TEST_F(StoppedRunTest, AStopInTheMiddleOfASolveLeavesNoResults) {
  ASSERT_TRUE(Analyse(LongCantilever()));
  ASSERT_TRUE(FileExists(AnalysisPath + "FT031"));
  Host host;
  host.progress = [](std::string_view, double) { throw Stop(); };
  InstallHost(std::move(host));
  EXPECT_THROW(RunStaticAnalysis(), Stop);
  ExpectNoResults();
}

TEST_F(StoppedRunTest, AStopAtAnyMomentLeavesNothingHalfWritten) {
  ASSERT_TRUE(Analyse(LongCantilever()));
  const std::string deck = ReadBytes(DeckPath());
  int stops = 0;
  for (bool stopped = true; stopped; stops += stopped) {
    int left = stops;
    Host host;
    host.progress = [&left](std::string_view, double) {
      if (left-- == 0) throw Stop();
    };
    InstallHost(std::move(host));
    stopped = false;
    try {
      EXPECT_EQ(RunStaticAnalysis(), kTrue);
    } catch (const Stop&) {
      stopped = true;
      ExpectNoResults();
    }
    for (const std::string& folder : {AnalysisPath, ResultFolder(), DataPath + ProjectName})
      for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder)))
        EXPECT_FALSE(IsUnfinishedFile(PathText(entry.path().filename()))) << entry.path();
    EXPECT_EQ(ReadBytes(DeckPath()), deck);
  }
  EXPECT_GT(stops, 15);  // both solves, the result files and the listing can be stopped
  EXPECT_TRUE(FileExists(ListingPath()));
}

TEST_F(StoppedRunTest, ARunSaysWhatItDoesAndItsShareNeverFalls) {
  WriteDeck(LongCantilever());
  std::vector<std::string> parts;
  double last = 0;
  Host host;
  host.progress = [&](std::string_view what, double share) {
    if (parts.empty() || parts.back() != what) parts.emplace_back(what);
    EXPECT_GE(share, last);
    EXPECT_LE(share, 1);
    last = share;
  };
  InstallHost(std::move(host));
  EXPECT_EQ(RunStaticAnalysis(), kTrue);
  EXPECT_THAT(parts, testing::ElementsAre("応力解析", "解析結果の書き出し", "解析結果のリストの作成"));
}

TEST_F(StoppedRunTest, ACompanionThatDoesNotComeToItsEndLeavesNoResultsOfTheOtherRoad) {
  WriteDeck(LongCantilever("@SPEC\n200,1,0,1,0\n"));
  bool started = false;
  Host host;
  host.runAndWait = [&started](const std::string&, const std::string&) {
    started = true;
    return ProgramEnd{ProgramEnd::How::Cancelled, 0, ""};
  };
  InstallHost(std::move(host));
  EXPECT_EQ(RunStaticAnalysis(), kFalse);
  EXPECT_TRUE(started);
  ExpectNoResults();
}

TEST_F(StoppedRunTest, DesignConditionsOutliveAFailedRun) {
  ASSERT_TRUE(Analyse(LongCantilever()));
  ReplaceBytes(ResultFolder() + "DSN.S1", "00002\r\n");
  Host host;
  host.progress = [](std::string_view, double) { throw Stop(); };
  InstallHost(std::move(host));
  EXPECT_THROW(RunStaticAnalysis(), Stop);
  EXPECT_TRUE(FileExists(ResultFolder() + "DSN.S1"));
  EXPECT_TRUE(FileExists(AnalysisPath + "DSN.S1"));
}

}  // namespace
}  // namespace zorlan::test

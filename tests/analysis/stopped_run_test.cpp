// A run that the user stops, or that fails half-way, leaves nothing that could be taken for its results.
#include <string>

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

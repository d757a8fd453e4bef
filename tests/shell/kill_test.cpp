// The program is killed at any moment: what it has saved is whole, and the next start is clean.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <set>

#include "model/deck.h"
#include "shell/commands.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kNodes = 3000;  // a deck of some 100 KB
constexpr int kRounds = 40;
constexpr int kLongest = 60'000;  // microseconds that a program lives behind its start

class KillTest : public ShellTest {
 protected:
  /// Another start of the program on this account, which comes up with the sample model and then does
  /// `work` for ever. It is killed after `microseconds`.
  template <class Work>
  void RunAndKill(useconds_t microseconds, Work work) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t program = ::fork();
    if (program == 0) {
      if (Start() != Started::Ready) ::_exit(1);
      TakeModel({Data(), "例題－１.zor/", "門形.inp"});
      if (::write(ready[1], "r", 1) != 1) ::_exit(1);
      for (int round = 0;; ++round) work(round);
    }
    char byte = 0;
    ::close(ready[1]);
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    ::close(ready[0]);
    ::usleep(microseconds);
    ::kill(program, SIGKILL);
    int status = 0;
    ::waitpid(program, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  /// Whether nothing half-written lies about on the account.
  void ExpectClean() {
    for (const std::string& name : Listing(Tree())) EXPECT_THAT(name, Not(HasSubstr(".~")));
    EXPECT_THAT(Listing(Tree() + "WK/"), testing::UnorderedElementsAre("UNIT"));
    EXPECT_THAT(Listing(Tree() + "AN/"), IsEmpty());
    EXPECT_THAT(told, IsEmpty());
  }

  useconds_t Moment() { return std::uniform_int_distribution<useconds_t>(0, kLongest)(random_); }

 private:
  std::mt19937 random_{20240401};  // a fixed seed; the moment of the kill is up to the machine all the same
};

TEST_F(KillTest, ADeckIsTheOneBeforeOrTheOneAfterAndTheNextStartIsClean) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  std::set<std::string> saved;
  for (int i = 0; i < kRounds; ++i) {
    RunAndKill(Moment(), [](int round) {
      // Every node of a version has the version's X; 1 and 22 are of different lengths.
      std::string nodes;
      for (int n = 1; n <= kNodes; ++n)
        nodes += std::to_string(n) + (round % 2 == 0 ? ",1,0,0,0,0\r\n" : ",22.5,0,0,0,0\r\n");
      ReplaceTextFile(WorkPath + "NODE", nodes, Flush::No);
      SaveDeck();
      SaveDataPath();
      SavePrivateSetting("ZOR", "Test", "Round", std::to_string(round));
    });
    const std::string deck = Read(Sample() + "門形.inp");
    std::set<std::string> versions;
    int nodes = 0;
    for (std::size_t at = deck.find(",0,0,0,0\r\n"); at != std::string::npos;
         at = deck.find(",0,0,0,0\r\n", at + 1), ++nodes) {
      const std::size_t comma = deck.rfind(',', at - 1);
      versions.insert(deck.substr(comma + 1, at - comma - 1));
    }
    ASSERT_LE(versions.size(), 1U);
    ASSERT_TRUE(nodes == 0 || nodes == kNodes) << nodes;
    ASSERT_THAT(deck, HasSubstr("@PLOD   %節点荷重データ\r\n1,3,0,-1,0\r\n"));
    saved.insert(versions.begin(), versions.end());
    ASSERT_EQ(Start(), Started::Ready);
    ExpectClean();
    EndProgram();
  }
  EXPECT_FALSE(saved.empty()) << "no program lived long enough to save anything";
}

TEST_F(KillTest, ResultsAreAllThereOrTakenForNone) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  const std::string results = Sample() + "門形.ANA/";
  for (int i = 0; i < kRounds; ++i) {
    RunAndKill(Moment(), [](int) { AnalyseModel(); });
    ASSERT_EQ(Start(), Started::Ready);
    ExpectClean();
    TakeModel({Data(), "例題－１.zor/", "門形.inp"});
    for (const char* const file : {"FT021", "FT022", "FT022A"})
      ASSERT_TRUE(!Results.forces || FileExists(results + file)) << file;
    ASSERT_TRUE(Results.forces || !Results.listing);
    EXPECT_THAT(told, IsEmpty());
    EndProgram();
  }
}

}  // namespace
}  // namespace zorlan::test

// Whole analyses through the built program: what they leave, and how they fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "base/text_file.h"
#include "batch/batch_program.h"

namespace zorlan {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(BatchAnalyze, LeavesTheResultFilesBesideTheDeckAndNothingElse) {
  const BatchProgram program;
  program.Deck("梁.inp", CantileverDeck());
  const BatchResult result = program.Run({"analyze", "梁.inp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.out, IsEmpty());
  EXPECT_THAT(BatchProgram::Names(program.Folder()), ElementsAre("梁.ANA", "梁.inp", "梁.out"));
  EXPECT_THAT(BatchProgram::Names(program.Folder() + "梁.ANA"),
              ElementsAre("FT021", "FT022", "FT022A", "FT031"));
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

// 10 kN at the end of 1 m: P L^3 / 3 E I = 10 / (3 * 205e6 * 2e-4) = 8.13e-5 m.
TEST(BatchAnalyze, TellsWhatWasSolvedOnStandardError) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  const std::string told = program.Run({"analyze", "model.inp"}).err;
  EXPECT_THAT(told, AllOf(HasSubstr("model.inp\n"), HasSubstr("節点 2  要素 1  荷重ケース 1"),
                          HasSubstr("model.ANA/"), HasSubstr("model.out")));
  EXPECT_THAT(told, AllOf(HasSubstr(" 0.008"), HasSubstr(" -10.000"), HasSubstr(" 10.000")));
}

TEST(BatchAnalyze, TakesAnyPath) {
  const BatchProgram program;
  const std::string names[] = {"日本 語/骨 組.inp", "./深い/../日本 語/a'b\"c.inp", "日本 語/表ソ.inp",
                               "日本 語/拡張子なし"};
  MakeFolder(program.Folder() + "日本 語");
  MakeFolder(program.Folder() + "深い");
  for (const std::string& name : names) {
    program.Deck(name, CantileverDeck());
    EXPECT_EQ(program.Run({"analyze", name}).exitCode, 0) << name;
    const std::string model = name.substr(0, name.rfind(".inp"));
    EXPECT_TRUE(program.Exists(model + ".ANA/FT031")) << name;
    EXPECT_TRUE(program.Exists(model + ".out")) << name;
    EXPECT_EQ(program.Run({"analyze", program.Folder() + name}).exitCode, 0) << name;
  }
}

TEST(BatchAnalyze, DoesNotRewriteTheDeck) {
  const BatchProgram program;
  const std::string bytes =
      "@TITL\r\n\x95\x5c % \x83\x5c\r\n" + CantileverDeck().substr(CantileverDeck().find("@CONT"));
  program.File("model.inp", bytes);
  EXPECT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
  EXPECT_EQ(program.Bytes("model.inp"), bytes);
}

/// The sections of a deck that is right, for decks that lack one or have another.
struct Sections {
  std::string control = "@CONT\n1,1,0,0\n@UNIT\n1,1,9.80665,0\n";
  std::string nodes = "@NODE\n1,0,0,1,1,1\n2,3,0,0,0,0\n";
  std::string elements = "@ELEM\n1,1,2,0,0,1\n";
  std::string sections = "@SECT\n1,0,100,20000,0,0,1,205000,0\n";
  std::string loads = "@PLOD\n1,2,0,-10,0\n";
  std::string Text() const { return control + nodes + elements + sections + loads; }
};

struct BadDeck {
  const char* name;
  std::string text;
  std::vector<const char*> words;  // of the message
};

std::vector<BadDeck> BadDecks() {
  std::vector<BadDeck> decks = {
      {"empty", "", {"支持点がありません", "節点データを１行も読み込めません"}},
      {"foreign", "PK\x03\x04 nothing of ours", {"支持点がありません", "節点データを１行も読み込めません"}},
  };
  const auto add = [&](const char* name, std::vector<const char*> words, auto change) {
    Sections sections;
    change(sections);
    decks.push_back({name, sections.Text(), std::move(words)});
  };
  add("truncated", {"要素データの入力がありません"}, [](Sections& s) {
    s.elements = "@ELEM\n1,1,2,0";
    s.sections = s.loads = "";
  });
  add("over16bits", {"over16bits.inp", "（9行目）", "40000"},
      [](Sections& s) { s.elements = "@ELEM\n1,1,40000,0,0,1\n"; });
  add("overflow", {"overflow.inp", "（6行目）", "1e400"},
      [](Sections& s) { s.nodes = "@NODE\n1,1e400,0,1,1,1\n"; });
  add("manyfields", {"manyfields.inp", "（13行目）", "101"}, [](Sections& s) {
    s.loads = "@PLOD\n1,2";
    for (int n = 0; n < 150; ++n) s.loads += ",0";
  });
  add("unknownsection", {"断面番号 7 ", "要素番号 1 "},
      [](Sections& s) { s.elements = "@ELEM\n1,1,2,0,0,7\n"; });
  add("unknownnode", {"節点番号 9 ", "要素番号 1 "},
      [](Sections& s) { s.elements = "@ELEM\n1,1,9,0,0,1\n"; });
  add("nonodes", {"支持点がありません"}, [](Sections& s) { s.nodes = ""; });
  add("onenode", {"節点データは、少なくとも２点以上入力してください"},
      [](Sections& s) { s.nodes = "@NODE\n1,0,0,1,1,1\n"; });
  add("noelement", {"要素データの入力がありません"}, [](Sections& s) { s.elements = ""; });
  add("nosupport", {"支持点がありません"},
      [](Sections& s) { s.nodes = "@NODE\n1,0,0,0,0,0\n2,3,0,0,0,0\n"; });
  add("nolength", {"部材長が０です", "要素番号 1 "},
      [](Sections& s) { s.nodes = "@NODE\n1,0,0,1,1,1\n2,0,0,0,0,0\n"; });
  add("mechanism", {"不安定構造     PIVOT ( 5 ) = 0", "2     Y 方向  剛性　ありません", "解析失敗"},
      [](Sections& s) {
        s.nodes = "@NODE\n1,0,0,1,1,0\n2,3,0,0,0,0\n3,6,0,0,1,0\n";
        s.elements = "@ELEM\n1,1,2,1,1,1\n2,2,3,1,1,1\n";
      });
  return decks;
}

TEST(BatchAnalyze, ABadDeckIsOneAndNamesItsFaultAndTheFile) {
  const BatchProgram program;
  for (const BadDeck& deck : BadDecks()) {
    const std::string name = deck.name + std::string(".inp");
    program.Deck(name, deck.text);
    const BatchResult result = program.Run({"analyze", name});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_THAT(result.out, IsEmpty());
    EXPECT_THAT(result.err, HasSubstr(name + " ： 解析できませんでした"));
    for (const char* const word : deck.words) EXPECT_THAT(result.err, HasSubstr(word)) << name;
    const bool withoutNodes = deck.text.find("@NODE") == std::string::npos;
    EXPECT_EQ(result.err.find("節点データを１行も") != std::string::npos, withoutNodes) << name;
  }
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchAnalyze, AnyBytesEndWithAMessage) {
  const BatchProgram program;
  std::string bytes;
  for (int k = 0; k < 40 * 256; ++k) bytes += static_cast<char>(k);
  program.File("binary.inp", bytes);
  const BatchResult result = program.Run({"analyze", "binary.inp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("binary.inp"));
}

/// Files of the project that could be taken for results of the deck in hand.
std::vector<std::string> Results(const BatchProgram& program) {
  std::vector<std::string> results;
  for (const char* const name : {"model.ANA/FT021", "model.ANA/FT031", "model.out"})
    if (program.Exists(name)) results.emplace_back(name);
  return results;
}

// A model without supports or with an unreadable number isn't touched by the analysis, nor are its results;
// any other failed run takes the former results away.
TEST(BatchAnalyze, AFailedRunLeavesNoResultThatLooksNew) {
  for (const BadDeck& deck : BadDecks()) {
    const BatchProgram program;
    program.Deck("model.inp", CantileverDeck());
    ASSERT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
    ASSERT_EQ(Results(program).size(), 3U);
    program.Deck("model.inp", deck.text);
    const BatchResult result = program.Run({"analyze", "model.inp"});
    EXPECT_EQ(result.exitCode, 1);
    if (result.err.find("支持点がありません") == std::string::npos)
      EXPECT_THAT(Results(program), IsEmpty()) << deck.name;
    else
      EXPECT_EQ(Results(program).size(), 3U) << deck.name;
  }
}

// A cantilever whose support lets it turn: rounding hides the mechanism from the pivot tests.
TEST(BatchAnalyze, WarnsByCaseAndNodeWhereEquilibriumIsLost) {
  const BatchProgram program;
  Sections sections;
  sections.nodes = "@NODE\n1,0,0,1,1,0\n2,3,0,0,0,0\n";
  program.Deck("model.inp", sections.Text());
  EXPECT_THAT(program.Run({"analyze", "model.inp"}).err,
              HasSubstr("荷重ケース 1 の節点 1 で釣り合いが失われています"));
  program.Deck("good.inp", CantileverDeck());
  EXPECT_THAT(program.Run({"analyze", "good.inp"}).err, Not(HasSubstr("釣り合い")));
}

TEST(BatchAnalyze, AnUnwritableProjectFolderIsAMessageWithThePath) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  program.File("model.ANA", "a file where the result folder belongs");
  const BatchResult result = program.Run({"analyze", "model.inp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("model.ANA"));
  EXPECT_EQ(program.Bytes("model.ANA"), "a file where the result folder belongs");
}

TEST(BatchAnalyze, AnUnwritableTemporaryFolderIsAMessageWithThePath) {
  const BatchProgram program;
  program.Deck("model.inp", CantileverDeck());
  const BatchResult result = program.Shell("TMPDIR=$PWD/model.inp $ZORLAN analyze model.inp");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("/model.inp/zorlan-"));
  EXPECT_FALSE(program.Exists("model.ANA"));
}

// Files limited to a few blocks stand in for a full disk.
TEST(BatchAnalyze, AFullDiskIsAMessageAndLeavesNoHalfWrittenFile) {
  const BatchProgram program;
  program.Deck("model.inp", LongCantileverDeck(100, 5));
  ASSERT_EQ(program.Run({"analyze", "model.inp"}).exitCode, 0);
  const BatchResult result = program.Shell("ulimit -f 2; $ZORLAN analyze model.inp");
  EXPECT_EQ(result.exitCode, 1) << result.err;
  EXPECT_THAT(result.err, HasSubstr("FT0"));
  EXPECT_THAT(Results(program), IsEmpty());
  EXPECT_THAT(BatchProgram::Names(program.Folder() + "model.ANA"), Each(Not(HasSubstr("~"))));
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchAnalyze, RunsSideBySideInOneFolderDoNotMeet) {
  const BatchProgram program;
  std::vector<std::string> decks = {"same.inp", "same.inp", "same.inp"};
  for (int nodes = 20; nodes < 60; nodes += 10) {
    decks.push_back(std::to_string(nodes) + ".inp");
    program.Deck(decks.back(), LongCantileverDeck(nodes, 5));
  }
  program.Deck("same.inp", LongCantileverDeck(200, 5));
  std::string alone;
  for (const std::string& deck : decks) {
    ASSERT_EQ(program.Run({"analyze", deck}).exitCode, 0);
    alone += program.Bytes(deck.substr(0, deck.find('.')) + ".ANA/FT031");
  }
  const BatchResult result = program.Shell(
      "for round in 1 2 3 4 5; do for deck in same same same 20 30 40 50; do"
      " $ZORLAN analyze $deck.inp || echo failed & done; done; wait");
  EXPECT_THAT(result.out, IsEmpty()) << result.err;
  std::string together;
  for (const std::string& deck : decks)
    together += program.Bytes(deck.substr(0, deck.find('.')) + ".ANA/FT031");
  EXPECT_EQ(together, alone);
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

class BatchInterrupted : public testing::TestWithParam<int> {};

TEST_P(BatchInterrupted, TakesItsTemporaryFilesAlong) {
  const BatchProgram program;
  program.Deck("model.inp", LongCantileverDeck(1000, 20));
  const std::vector<std::string> longWork(2000, "model.inp");
  std::vector<std::string> arguments = {"analyze"};
  arguments.insert(arguments.end(), longWork.begin(), longWork.end());
  const pid_t process = program.Start(arguments);
  while (!program.Exists("model.ANA/FT031")) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_FALSE(BatchProgram::Names(program.Temporary()).empty());
  ::kill(process, GetParam());
  const BatchResult result = program.Wait(process);
  EXPECT_EQ(result.signal, GetParam()) << result.err;
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
  EXPECT_THAT(BatchProgram::Names(program.Folder() + "model.ANA"), Each(Not(HasSubstr("~"))));
}

INSTANTIATE_TEST_SUITE_P(BySignal, BatchInterrupted, testing::Values(SIGINT, SIGTERM, SIGHUP));

/// A beam on an inclined roller: the companion solver has to take it.
std::string RollerDeck() {
  return "@CONT\n1,1,0,1\n@UNIT\n1,1,9.80665,0\n@NODE\n1,0,0,1,1,0\n2,4,0,0,0,0\n3,8,0,4,4,0,30\n"
         "@ELEM\n1,1,2,0,0,1\n2,2,3,0,0,1\n@SECT\n1,0,100,20000,0,0,1,205000,0\n@PLOD\n1,2,0,-10,0\n";
}

/// A copy of the program with another companion solver beside it, or none.
class BatchCompanion : public testing::Test {
 protected:
  BatchCompanion() {
    program_.Deck("model.inp", RollerDeck());
    EXPECT_EQ(program_.Shell("mkdir bin && cp $ZORLAN bin/zorlan-batch").exitCode, 0);
  }
  void PutCompanion(const std::string& script) {
    program_.File("bin/anaZorlan", "#!/bin/sh\n" + script);
    std::filesystem::permissions(NativePath(program_.Folder() + "bin/anaZorlan"),
                                 std::filesystem::perms::owner_all);
  }
  BatchProgram program_;
};

// Without a load the beam follows its settling support as a whole: only the rounding of the companion's
// columns is left.
TEST_F(BatchCompanion, ASettlementAloneRaisesNoAlarm) {
  std::string deck = RollerDeck();
  deck.replace(deck.find("@PLOD"), std::string::npos, "@SPEC\n1,1,0,0.5,0\n");
  program_.Deck("model.inp", deck);
  const BatchResult result = program_.Run({"analyze", "model.inp"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.err, Not(HasSubstr("釣り合い")));
}

// Half the load on each support; the roller's reaction stands at right angles to its track of 30 degrees, so
// its horizontal part is 5 tan 30 = 2.887 kN, taken by the pin.
TEST_F(BatchCompanion, LiesBesideTheProgram) {
  const BatchResult result = program_.Run({"analyze", "model.inp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(program_.Bytes("model.out"), AllOf(HasSubstr("2.887"), HasSubstr("5.000")));
}

TEST_F(BatchCompanion, AMissingOneIsAMessage) {
  const BatchResult result = program_.Shell("bin/zorlan-batch analyze model.inp");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("anaZorlan"));
  EXPECT_THAT(Results(program_), IsEmpty());
}

TEST_F(BatchCompanion, OneThatFailsIsAMessage) {
  PutCompanion("exit 3\n");
  const BatchResult result = program_.Shell("bin/zorlan-batch analyze model.inp");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("anaZorlan"));
  EXPECT_THAT(Results(program_), IsEmpty());
}

// Who ignores the ends of its children hands that on to the programs that it starts.
TEST_F(BatchCompanion, OneThatFailsIsToldWithItsCodeWhateverTheParentIgnores) {
  PutCompanion("exit 3\n");
  const BatchResult result = program_.Shell("trap '' CHLD; exec bin/zorlan-batch analyze model.inp");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, AllOf(HasSubstr("anaZorlan"), HasSubstr("終了コード 3")));
}

TEST_F(BatchCompanion, MayPrintWithoutDisturbingTheProduct) {
  PutCompanion("echo noise; exec \"$(dirname $ZORLAN)/anaZorlan\"\n");
  const BatchResult result = program_.Shell("bin/zorlan-batch analyze model.inp");
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.out, IsEmpty());
}

TEST_F(BatchCompanion, OneThatHangsEndsWithTheProgram) {
  PutCompanion("echo $$ > \"$OLDPWD/pid\"\nexec sleep 100\n");
  const BatchResult result = program_.Shell(
      "OLDPWD=$PWD bin/zorlan-batch analyze model.inp & while ! [ -s pid ]; do sleep 0.01; done; kill $!; wait $!;"
      " echo ended by $?; kill -0 $(cat pid) && echo companion still there");
  EXPECT_EQ(result.out, "ended by 143\n");
  EXPECT_THAT(BatchProgram::Names(program_.Temporary()), IsEmpty());
}

TEST(BatchSectionTables, TheUsersTablesComeBeforeTheSeedCopies) {
  const BatchProgram program;
  Sections sections;
  sections.sections = "@SECT\n1,2,400,200,8,13,1,205000,0\n";
  program.Deck("model.inp", sections.Text());
  ASSERT_EQ(program.Run({"analyze", "model.inp", "--documents", "docs"}).exitCode, 0);
  EXPECT_FALSE(program.Exists("docs"));
  const std::string seeds = program.Bytes("model.ANA/FT021");

  const std::string folder = "docs/Quellwerk/ZORLAN_V6/鋼材TABLE/";
  MakeFolder(program.Folder() + folder);
  program.File(folder + "H.CSV", "-\r\n-\r\n-\r\n400,200,8,13,13,83.37,47000,1740,16.8,4.56,1170,174\r\n");
  ASSERT_EQ(program.Run({"--documents", "docs", "analyze", "model.inp"}).exitCode, 0);
  EXPECT_NE(program.Bytes("model.ANA/FT021"), seeds);
}

TEST(BatchSectionTables, AnInstalledProgramReadsTheTablesThatWereInstalledWithIt) {
  const BatchProgram program;
  Sections sections;
  sections.sections = "@SECT\n1,2,400,200,8,13,1,205000,0\n";
  program.Deck("model.inp", sections.Text());
  ASSERT_EQ(program.Shell("cmake --install " ZORLAN_BINARY_DIR " --prefix $PWD/installed").exitCode, 0);
  EXPECT_TRUE(program.Exists("installed/share/zorlan/DATA/例題－１.zor/鉄骨ラーメン.inp"));
  EXPECT_THAT(program.Shell("installed/bin/zorlan-batch analyze model.inp").err, HasSubstr(" 0.187 "));
  program.File("installed/share/zorlan/鋼材TABLE/H.CSV",
               "-\r\n-\r\n-\r\n400,200,8,13,13,83.37,47000,1740,16.8,4.56,1170,174\r\n");
  EXPECT_THAT(program.Shell("installed/bin/zorlan-batch analyze model.inp").err, HasSubstr(" 0.093 "));
}

// Ix = 23500 cm4 in the table of Japanese rolled sections: 10 * 3^3 / (3 * 205e6 * 2.35e-4) = 1.868e-3 m.
TEST(BatchSectionTables, TheSeedCopiesAreFoundFromTheProgramsPlace) {
  const BatchProgram program;
  Sections sections;
  sections.sections = "@SECT\n1,2,400,200,8,13,1,205000,0\n";
  program.Deck("model.inp", sections.Text());
  EXPECT_THAT(program.Run({"analyze", "model.inp"}).err, HasSubstr(" 0.187 "));
}

}  // namespace
}  // namespace zorlan

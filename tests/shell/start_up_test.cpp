#include "shell/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "base/text.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class StartUpTest : public ShellTest {};

TEST_F(StartUpTest, FirstStartOnACleanAccountMakesTheWholeTree) {
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(
      Listing(Tree()),
      IsSupersetOf({"AN/", "DATA/", "DATA/例題－１.zor/", "DATA/例題－１.zor/門形.inp", "WK/", "木材TABLE/",
                    "木材TABLE/断面.CSV", "木材TABLE/材種.CSV", "鋼材TABLE/", "鋼材TABLE/H.CSV",
                    "鋼材TABLE/BOX.CSV", "鋼材TABLE/PIPE.CSV", "鋼材TABLE/MIZO.CSV", "鋼材TABLE/YAMA.CSV"}));
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(StartUpTest, FoldersFollowFromTheDocumentsFolder) {
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(AppPath, Tree());
  EXPECT_EQ(DefaultDataPath, Tree() + "DATA/");
  EXPECT_EQ(DataPath, Tree() + "DATA/");
  EXPECT_EQ(WorkPath, Tree() + "WK/");
  EXPECT_EQ(AnalysisPath, Tree() + "AN/");
  EXPECT_EQ(SteelTableFolder, Tree() + "鋼材TABLE/");
  EXPECT_EQ(TimberTableFolder, Tree() + "木材TABLE/");
  EXPECT_EQ(ManualPath("/opt/zorlan"), "/opt/zorlan/マニュアル.pdf");
}

TEST_F(StartUpTest, ShippedSeedCopiesFillACleanAccount) {
  ASSERT_EQ(RunStartUp({Documents(), ZORLAN_SOURCE_DIR "/data", {}}), Started::Ready);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(Listing(Sample()), Contains("鉄骨ラーメン.inp"));
  EXPECT_EQ(Contents(Tree() + "鋼材TABLE/"), Contents(ZORLAN_SOURCE_DIR "/data/鋼材TABLE/"));
  EXPECT_EQ(Contents(Tree() + "木材TABLE/"), Contents(ZORLAN_SOURCE_DIR "/data/木材TABLE/"));
}

TEST_F(StartUpTest, TableInSmallLettersIsNeitherReplacedNorOverlooked) {
  const std::string mine = "表\n列\n単位\n400,200,8,13,14,83.37,23500,1740,16.8,4.56,1170,174\n";
  Write(Tree() + "鋼材TABLE/h.csv", mine);
  for (const char* const table : {"BOX", "PIPE", "MIZO", "YAMA"})
    Write(Tree() + "鋼材TABLE/" + table + ".CSV", "");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_FALSE(FileExists(Tree() + "鋼材TABLE/H.CSV"));
  EXPECT_EQ(SteelRows(SteelFamily::H).size(), 1U);
}

TEST_F(StartUpTest, DeletedSampleComesBackAndOtherProjectsStay) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  std::filesystem::remove_all(NativePath(Sample()));
  Write(Data() + "架構.zor/a.inp", "mine");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(Read(Sample() + "門形.inp"), CrLf(kPortal));
  EXPECT_EQ(Read(Data() + "架構.zor/a.inp"), "mine");
}

TEST_F(StartUpTest, SampleThatIsThereStaysAsItWas) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  Write(Sample() + "門形.inp", "changed");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(Read(Sample() + "門形.inp"), "changed");
}

TEST_F(StartUpTest, BrokenOffFirstRunIsMadeWhole) {
  // Killed while the sample was copied: only the unfinished folder is there.
  Write(Data() + "例題－１.zor.~new/half.inp", "half");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(Listing(Data()), ElementsAre("例題－１.zor/", "例題－１.zor/門形.inp"));
}

TEST_F(StartUpTest, MissingTableFileIsToldAndCopied) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  Write(Install() + "鋼材TABLE/PIPE.CSV", "pipe");
  Write(Install() + "木材TABLE/断面.CSV", "timber");
  std::filesystem::remove(NativePath(Tree() + "鋼材TABLE/PIPE.CSV"));
  std::filesystem::remove(NativePath(Tree() + "木材TABLE/断面.CSV"));
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(told, ElementsAre("PIPE.CSVが鋼材テーブルにありませんので、複写します",
                                "断面.CSVが木材テーブルにありませんので、複写します"));
  EXPECT_EQ(Read(Tree() + "鋼材TABLE/PIPE.CSV"), "pipe");
  EXPECT_EQ(Read(Tree() + "木材TABLE/断面.CSV"), "timber");
}

TEST_F(StartUpTest, TableFileInSmallLettersIsThere) {
  ASSERT_EQ(Start(), Started::Ready);
  EndProgram();
  std::filesystem::rename(NativePath(Tree() + "鋼材TABLE/H.CSV"), NativePath(Tree() + "鋼材TABLE/h.csv"));
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(StartUpTest, CopyOfATableFileThatFailsIsPassedOver) {
  std::filesystem::remove(NativePath(Install() + "鋼材TABLE/YAMA.CSV"));
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(told, ElementsAre("YAMA.CSVが鋼材テーブルにありませんので、複写します"));
}

TEST_F(StartUpTest, InstallFolderWithoutSeedCopiesStillComesUp) {
  ASSERT_EQ(RunStartUp({Documents(), Account() + "nothing/", {}}), Started::Ready);
  EXPECT_THAT(Listing(Tree()), IsSupersetOf({"AN/", "DATA/", "WK/", "木材TABLE/", "鋼材TABLE/"}));
  EXPECT_EQ(told.size(), 7U) << "one box for each table file";
}

TEST_F(StartUpTest, SeedFilesUnderReadOnlyRightsCanBeWrittenInTheTree) {
  std::filesystem::permissions(NativePath(Install() + "DATA/例題－１.zor/門形.inp"),
                               std::filesystem::perms::owner_read);
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(::access((Sample() + "門形.inp").c_str(), W_OK), 0);
  EXPECT_NE(std::filesystem::status(NativePath(Sample() + "門形.inp")).permissions() &
                std::filesystem::perms::owner_write,
            std::filesystem::perms::none);
}

TEST_F(StartUpTest, NothingOfAFormerRunSurvivesInTheWorkFolders) {
  for (const char* const file : {"WK/NODE", "WK/TITL", "WK/InputErr.txt", "WK/graph.tmp", "AN/FT031"})
    Write(Tree() + file, "old");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(Listing(Tree() + "WK"), Each("UNIT"));
  EXPECT_THAT(Listing(Tree() + "AN"), IsEmpty());
}

TEST_F(StartUpTest, NoModelIsOpenAndTheLastOneIsRemembered) {
  Write(Tree() + "DataPath.Ini", Data() + "\n例題－１.zor/\n門形.inp\n");
  ModelChanged = true;
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_FALSE(ModelIsOpen);
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(ProjectName, "例題－１.zor/");
  EXPECT_EQ(ModelFile, "門形.inp");
}

TEST_F(StartUpTest, RemovedDataPathFallsBackToTheDefault) {
  Write(Tree() + "DataPath.Ini", "/no/such/folder/\n例題－１.zor/\n門形.inp\n");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(DataPath, Data());
}

TEST_F(StartUpTest, DefaultsOfANewModelAreSet) {
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_EQ(InpModel.Title, "新規");
  EXPECT_EQ(Read(Tree() + "WK/UNIT"), "1,1,9.80665,0\r\n");
}

TEST_F(StartUpTest, PrinterSettingsAreRead) {
  Write(Tree() + "PrinterInf.Ini", "\"gone\"\n\"A3\"\n2\n1\n");
  ASSERT_EQ(Start({{"一階"}, "一階", "A4", kPortrait}), Started::Ready);
  EXPECT_EQ(PrinterSettings.name, "一階");
  EXPECT_EQ(PrinterSettings.paper, "A3");
}

TEST_F(StartUpTest, StepsRunInTheirOrder) {
  std::vector<std::string_view> names;
  for (const StartStep& step : StartSteps()) names.push_back(step.name);
  EXPECT_THAT(names, ElementsAre("SetUpFolders", "LoadDataPath", "ClearWork", "RemoveAbandonedFiles",
                                 "DropFigureData", "PrinterInfo", "Refresh", "LoadSectionTables",
                                 "InitModelDefaults"));
}

TEST_F(StartUpTest, TreeThatCannotBeMadeIsTold) {
  Write(Documents() + "Quellwerk", "a file in the way");
  EXPECT_EQ(Start(), Started::NoTree);
  EXPECT_THAT(told, ElementsAre(HasSubstr(Tree())));
}

TEST_F(StartUpTest, StepThatFailsIsReportedAndTheOthersFollow) {
  Write(Tree() + "DATA", "a file in the way");
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_THAT(told, Contains(HasSubstr("関数名： SetUpFolders")));
  EXPECT_EQ(Read(Tree() + "WK/UNIT"), "1,1,9.80665,0\r\n");
}

TEST_F(StartUpTest, SecondInstanceTouchesNothing) {
  ASSERT_EQ(Start(), Started::Ready);
  Write(Tree() + "WK/NODE", "1,0,0,1,1,1\n");
  const pid_t child = ::fork();
  if (child == 0) {
    // The hold of this copy of the process is the parent's; a fresh one would have to take it anew.
    ::execl("/usr/bin/flock", "flock", "-n", (Tree() + ".zorlan.lock").c_str(), "true", nullptr);
    ::_exit(127);
  }
  int state = 0;
  ASSERT_EQ(::waitpid(child, &state, 0), child);
  if (WEXITSTATUS(state) == 127) GTEST_SKIP() << "no flock program here";
  EXPECT_EQ(WEXITSTATUS(state), 1) << "the tree is held";
}

TEST_F(StartUpTest, TreeHeldByAnotherInstanceIsLeftAlone) {
  Write(Tree() + "WK/NODE", "1,0,0,1,1,1\n");
  Write(Tree() + ".zorlan.lock", "");
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl("/usr/bin/flock", "flock", (Tree() + ".zorlan.lock").c_str(), "sh", "-c",
            ("echo >&" + std::to_string(ready[1]) + "; exec sleep 30 >/dev/null 2>&1").c_str(), nullptr);
    ::_exit(127);
  }
  ::close(ready[1]);
  char held = 0;
  const bool isHeld = ::read(ready[0], &held, 1) == 1;
  ::close(ready[0]);
  const Started started = isHeld ? Start() : Started::AlreadyRunning;
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  if (!isHeld) GTEST_SKIP() << "no flock program here";
  EXPECT_EQ(started, Started::AlreadyRunning);
  EndProgram();
  EXPECT_EQ(Listing(Tree()), (std::vector<std::string>{".zorlan.lock", "WK/", "WK/NODE"}));
}

TEST_F(StartUpTest, EndEmptiesTheWorkFoldersAndKeepsTheRest) {
  StartWithModel();
  Write(Tree() + "AN/FT031", "1");
  EndProgram();
  EXPECT_THAT(Listing(Tree() + "WK"), IsEmpty());
  EXPECT_THAT(Listing(Tree() + "AN"), IsEmpty());
  EXPECT_EQ(Read(Sample() + "門形.inp"), CrLf(kPortal));
}

TEST_F(StartUpTest, EndWithoutAStartTouchesNothing) {
  SetFolders(Documents());
  Write(Tree() + "WK/NODE", "1");
  EndProgram();
  EXPECT_EQ(Read(Tree() + "WK/NODE"), "1");
}

struct ExitCase {
  const char* name;
  bool changed;
  const char* stubborn;
  std::deque<Answer> answers;
  ExitWay way;
};

const ExitCase kExitCases[] = {
    {"nothing to save", false, "", {}, ExitWay::UnloadAll},
    {"saved on the way", true, "", {Answer::Yes}, ExitWay::UnloadAll},
    {"given up", true, "", {Answer::No}, ExitWay::UnloadAll},
    {"cancelled", true, "", {Answer::Cancel}, ExitWay::Stay},
    {"a form refuses", true, "InpNODE", {}, ExitWay::UnloadMain},
};

TEST_F(StartUpTest, ExitFollowsTheClosingOfTheModel) {
  for (const ExitCase& c : kExitCases) {
    StartWithModel();
    forms = {"InpNODE"};
    ModelChanged = c.changed;
    stubborn = c.stubborn;
    answers = c.answers;
    EXPECT_EQ(LeaveProgram(), c.way) << c.name;
  }
}

TEST_F(StartUpTest, ExitStaysWhenSavingFails) {
  StartWithModel();
  ModelChanged = true;
  answers = {Answer::Yes};
  std::filesystem::remove_all(NativePath(Sample()));
  EXPECT_EQ(LeaveProgram(), ExitWay::Stay);
  EXPECT_THAT(told, Contains(HasSubstr("門形.inp")));
  EXPECT_TRUE(FileExists(WorkPath + "NODE")) << "what was typed is still there";
}

TEST(Splash, ShowsTheFixedLinesForTwoSecondsAtLeast) {
  EXPECT_THAT(kSplashLines,
              ElementsAre("応力解析・断面算定", "任意平面骨組", "Windows 7 / 8.1 / 10 対応版", "Ver6"));
  EXPECT_GE(kSplashMilliseconds, 2000);
}

}  // namespace
}  // namespace zorlan::test

#include "shell/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/menu.h"
#include "shell/model_status.h"
#include "shell/settings.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CommandsTest : public ShellTest {
 protected:
  CommandsTest() { StartWithModel(); }
  static bool Enabled(Command command) { return IsOn(RowOf(command), CurrentMenuFacts(false)); }
  static std::string Flag() { return GetPrivateSetting("ZOR", "PrnText", "PrintFlag", "none"); }
  std::string Listing() const { return Sample() + "門形.out"; }
};

TEST_F(CommandsTest, AnalysisSavesWithoutAskingAndSwitchesTheResultsOn) {
  Write(WorkPath + "NODE", "1,0,0,1,1,1\n2,0,5,0,0,0\n3,6,5,0,0,0\n");
  ModelChanged = true;
  EXPECT_FALSE(Enabled(Command::DesignSteel));
  EXPECT_TRUE(AnalyseModel());
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(Read(Sample() + "門形.inp"), HasSubstr("3,6,5,0,0,0"));
  EXPECT_FALSE(ModelChanged);
  EXPECT_TRUE(FileExists(Sample() + "門形.ANA/FT031"));
  EXPECT_TRUE(Enabled(Command::DesignSteel));
  EXPECT_TRUE(Enabled(Command::ReadListing));
  EXPECT_TRUE(Enabled(Command::WriteCsv));
  EXPECT_THAT(done, Contains("figure data"));
}

TEST_F(CommandsTest, AnalysisStopsAtAFormThatRefuses) {
  forms = {"InpELEM", "InpNODE"};
  stubborn = "InpNODE";
  ModelChanged = true;
  EXPECT_FALSE(AnalyseModel());
  EXPECT_THAT(done, ElementsAre("close InpELEM"));
  EXPECT_FALSE(FileExists(Sample() + "門形.ANA/FT031"));
  EXPECT_TRUE(ModelChanged);
}

TEST_F(CommandsTest, AnalysisClosesEveryInputForm) {
  forms = {"InpNODE", "InpShowDefine", "Model"};
  EXPECT_TRUE(AnalyseModel());
  EXPECT_THAT(forms, ElementsAre("Model"));
}

TEST_F(CommandsTest, AnalysisOfAnEmptyNewModelTellsThatDataAreMissing) {
  NewModel();
  Forget();
  EXPECT_FALSE(AnalyseModel());
  EXPECT_THAT(told,
              ElementsAre("データ未入力です！！！ [ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << NewData >>]"));
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(CommandsTest, AnalysisOfANamelessModelGoesThroughTheDialog) {
  ModelFile.clear();
  OnDialog("例題－１", "新");
  EXPECT_TRUE(AnalyseModel());
  EXPECT_EQ(shown.at(0).mode, DialogMode::SaveNew);
  EXPECT_TRUE(FileExists(Sample() + "新.ANA/FT031"));
}

TEST_F(CommandsTest, CancelledDialogStopsTheAnalysis) {
  ModelFile.clear();
  const auto before = Contents(Data());
  EXPECT_FALSE(AnalyseModel());
  EXPECT_EQ(Contents(Data()), before);
  EXPECT_EQ(ModelFile, "");
}

TEST_F(CommandsTest, AnalysisWithoutAModelNeverSavesOverTheLastOne) {
  EndProgram();
  ASSERT_EQ(Start(), Started::Ready);
  EXPECT_FALSE(AnalyseModel());
  EXPECT_EQ(Read(Sample() + "門形.inp"), CrLf(kPortal));
  EXPECT_THAT(told, ElementsAre(HasSubstr("データ未入力です！！！")));
}

TEST_F(CommandsTest, FailedAnalysisSwitchesTheResultsOff) {
  ASSERT_TRUE(AnalyseModel());
  Write(WorkPath + "NODE", "1,0,0,0,0,0\n2,0,4,0,0,0\n3,6,4,0,0,0\n");
  TableRowCount = 0;
  TableIO(/*write=*/true, "ELEM");
  Write(WorkPath + "NODE", "1,0,0,1,1,1\n2,0,4,0,0,0\n3,6,4,0,0,0\n");
  Forget();
  EXPECT_FALSE(AnalyseModel());
  EXPECT_THAT(told, ElementsAre(HasSubstr("要素データの入力がありません")));
  EXPECT_FALSE(Enabled(Command::DesignSteel));
  EXPECT_FALSE(Enabled(Command::WriteCsv));
}

TEST_F(CommandsTest, NothingIsCheckedListedOrSavedOfAWorkFolderThatLostATable) {
  std::filesystem::remove(NativePath(WorkPath + "ELEM"));
  for (void (*const command)() : {CheckInput, PrintInputList, OverwriteModel, +[] { AnalyseModel(); }}) {
    Forget();
    command();
    EXPECT_THAT(told, ElementsAre(HasSubstr("要素データ")));
    EXPECT_EQ(Read(Sample() + "門形.inp"), CrLf(kPortal));
  }
}

TEST_F(CommandsTest, ResultsStayOnThroughEditsUntilTheNextAnalysis) {
  ASSERT_TRUE(AnalyseModel());
  Write(WorkPath + "NODE", "1,0,0,1,1,1\n2,0,5,0,0,0\n3,6,5,0,0,0\n");
  ModelChanged = true;
  EXPECT_TRUE(Enabled(Command::DesignSteel));
}

TEST_F(CommandsTest, DesignWithoutForcesAsksForANewCalculation) {
  ASSERT_TRUE(AnalyseModel());
  // What a changed number of load cases does.
  for (const char* const file : {"FT021", "FT022", "FT022A", "FT031"}) RemoveFile(AnalysisPath + file);
  Forget();
  DesignSteel();
  DesignConcrete();
  DesignTimber();
  EXPECT_EQ(told, std::vector<std::string>(3, "再計算を行ってから、断面算定を行ってください"));
}

TEST_F(CommandsTest, DesignWithForcesSaysThatItsWizardIsNotThere) {
  ASSERT_TRUE(AnalyseModel());
  Forget();
  DesignSteel();
  DesignConcrete();
  DesignTimber();
  EXPECT_THAT(told, ElementsAre("Ｓ断面算定は、まだできません", "ＲＣ断面算定は、まだできません",
                                "木造断面算定は、まだできません"));
}

TEST_F(CommandsTest, ListingIsKeptUnderItsFlagAndShown) {
  ShowAnalysisListing();
  EXPECT_EQ(Flag(), "2");
  PrintAnalysisListing();
  EXPECT_THAT(done, ElementsAre("read 2 " + Listing(), "preview 2 " + Listing()));
}

TEST_F(CommandsTest, ListingOfTheAnalysisGoesToTheReader) {
  ShowListing("/somewhere/m.out");
  EXPECT_EQ(Flag(), "2");
  EXPECT_THAT(done, ElementsAre("read 2 /somewhere/m.out"));
}

/// Three members in a row, pinned where they fall: rounding hides it from the solver.
constexpr std::string_view kHiddenMechanism =
    "@CONT\n1,1,0,0\n@UNIT\n1,1,9.80665,0\n@NODE\n1,0,0,1,1,0\n2,3,0.7,0,0,0\n3,7,1.9,0,1,0\n4,9,4.1,0,0,0\n"
    "@ELEM\n1,1,2,0,1,1\n2,2,3,1,0,1\n3,3,4,0,0,1\n@SECT\n1,0,100,20000,0,0,1,205000,79000\n"
    "@PLOD\n1,2,0,-10,0\n1,4,0,-10,0\n";

TEST_F(CommandsTest, DoubtsAreToldInOneBoxBeforeTheListingOpens) {
  Write(Sample() + "門形.inp", kHiddenMechanism);
  TakeModel({Data(), "例題－１.zor/", "門形.inp"});
  Host host = TheHost();
  host.showListing = ShowListing;
  host.message = [this](std::string_view text, std::string_view) {
    done.push_back("told " + std::string(text));
  };
  InstallHost(host);
  Forget();
  EXPECT_TRUE(AnalyseModel());
  ASSERT_GE(done.size(), 2U);
  EXPECT_EQ(
      done[0],
      "told 荷重ケース 1 の節点 2 で釣り合いが失われています。不安定な構造の可能性があり、結果は信頼できません");
  EXPECT_EQ(done[1], "read 2 " + Listing());
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は信頼できません");
}

TEST_F(CommandsTest, ADoubtfulResultIsSaidAgainWhenItsModelIsOpened) {
  Write(Sample() + "門形.inp", kHiddenMechanism);
  TakeModel({Data(), "例題－１.zor/", "門形.inp"});
  ASSERT_TRUE(AnalyseModel());
  EndProgram();
  StartWithModel();
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は信頼できません");
  Write(Sample() + "門形.inp", kPortal);
  TakeModel({Data(), "例題－１.zor/", "門形.inp"});
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は変更前のものです");
  ASSERT_TRUE(AnalyseModel());
  EXPECT_EQ(CurrentModelStatus().results, "解析結果あり");
  EXPECT_FALSE(FileExists(Sample() + "門形.ANA/DOUBTS"));
}

TEST_F(CommandsTest, ListingIsShownAlthoughItsFlagCannotBeKept) {
  std::filesystem::remove(NativePath(Tree() + "Setting.Ini"));
  MakeFolder(Tree() + "Setting.Ini");
  ShowListing("/somewhere/m.out");
  EXPECT_THAT(done, ElementsAre("read 2 /somewhere/m.out"));
}

TEST_F(CommandsTest, CheckWithoutFaultsSaysSo) {
  CheckInput();
  EXPECT_THAT(told, ElementsAre("エラーはありませんでした。 [エラーチェック]"));
  EXPECT_TRUE(FileExists(WorkPath + "TmpFile.inp"));
  EXPECT_TRUE(FileExists(WorkPath + "NODE")) << "the tables stay";
  EXPECT_EQ(Read(Sample() + "門形.inp"), CrLf(kPortal));
}

TEST_F(CommandsTest, CheckShowsItsMessagesInTheReader) {
  Write(WorkPath + "ELEM", "1,1,9,0,0,1,0\n");
  CheckInput();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(Flag(), "-1");
  EXPECT_THAT(done, ElementsAre("read -1 " + WorkPath + "InputErr.txt"));
  EXPECT_THAT(Read(WorkPath + "InputErr.txt"), HasSubstr("指定の節点番号(9)が存在しません"));
}

TEST_F(CommandsTest, CheckStopsAtAFormThatRefuses) {
  forms = {"InpNODE"};
  stubborn = "InpNODE";
  CheckInput();
  EXPECT_FALSE(FileExists(WorkPath + "TmpFile.inp"));
}

TEST_F(CommandsTest, CheckOfATableThatCannotBeReadIsReported) {
  Write(WorkPath + "NODE", "1,0,0,1,1,1\n\n99999,0,0,0,0,0\n");
  CheckInput();
  EXPECT_THAT(told, ElementsAre(testing::AllOf(HasSubstr("節点データ 2行目 ： 第1項目 「99999」"),
                                               testing::Not(HasSubstr("TmpFile")))));
}

TEST_F(CommandsTest, CheckShowsWhatItFoundAheadOfARowThatEndsIt) {
  Write(WorkPath + "NODE", "1\n99999,0,0,0,0,0\n");
  CheckInput();
  EXPECT_THAT(told, ElementsAre(HasSubstr("99999")));
  EXPECT_THAT(done, ElementsAre("read -1 " + WorkPath + "InputErr.txt"));
}

TEST_F(CommandsTest, InputListIsMadeFromTheTablesAndPreviewed) {
  Write(WorkPath + "TITL", "変更後\n");
  PrintInputList();
  EXPECT_EQ(Flag(), "1");
  EXPECT_THAT(done, ElementsAre("preview 1 " + WorkPath + "TmpFile.inp"));
  EXPECT_THAT(Read(WorkPath + "TmpFile.inp"), HasSubstr("《 INPUT DATA LIST 》 変更後"));
}

TEST_F(CommandsTest, InputListStopsAtAFormThatRefuses) {
  forms = {"InpNODE"};
  stubborn = "InpNODE";
  PrintInputList();
  EXPECT_THAT(done, IsEmpty());
}

TEST_F(CommandsTest, EveryFlagHasItsFile) {
  const std::string results = Sample() + "門形.ANA/";
  EXPECT_EQ(PrintFile(kPrintCheckRead), WorkPath + "InputErr.txt");
  EXPECT_EQ(PrintFile(kPrintCheck), WorkPath + "InputErr.txt");
  EXPECT_EQ(PrintFile(kPrintInputList), WorkPath + "TmpFile.inp");
  EXPECT_EQ(PrintFile(kPrintListing), Listing());
  EXPECT_EQ(PrintFile(kPrintSteelDesign), results + "DSNS");
  EXPECT_EQ(PrintFile(kPrintConcreteDesign), results + "DSNRC");
  EXPECT_EQ(PrintFile(kPrintCombinations), WorkPath + "KUMI");
  EXPECT_EQ(PrintFile(kPrintTimberDesign), results + "DSNW");
  EXPECT_EQ(PrintFile(kPrintOther), WorkPath + "TmpFile");
}

TEST_F(CommandsTest, ManualOpensInTheViewer) {
  Write(Install() + "マニュアル.pdf", "%PDF");
  ShowManual(Install());
  EXPECT_THAT(done, ElementsAre("pdf " + Install() + "マニュアル.pdf"));
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(CommandsTest, MissingManualIsTold) {
  ShowManual(Install());
  EXPECT_THAT(told, ElementsAre(Install() + "マニュアル.pdf が見つかりません！！！"));
  EXPECT_THAT(done, IsEmpty());
}

TEST_F(CommandsTest, MissingViewerIsToldFirst) {
  pdfViewer = false;
  ShowManual(Install());
  EXPECT_THAT(told,
              ElementsAre("Acrobat Reader がインストールされていないため、ヘルプを表示できません！！！"));
}

TEST_F(CommandsTest, PlaneGridTellsThatItHasNoForcedDisplacements) {
  EXPECT_TRUE(MayEnterForcedDisplacements());
  InpModel.ModelCode = 3;
  EXPECT_FALSE(MayEnterForcedDisplacements());
  EXPECT_THAT(told, ElementsAre("平面格子梁モデルの場合は、強制変位は入力できません"));
}

}  // namespace
}  // namespace zorlan::test

#include "shell/projects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/menu.h"
#include "shell/model_status.h"
#include "shell/recent_models.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kSaveQuestion = "入力中のモデルを保存してよろしいですか？";

class ProjectsTest : public ShellTest {
 protected:
  ProjectsTest() { StartWithModel(); }

  /// A committed change of the table NODE.
  static void ChangeTable() {
    Write(WorkPath + "NODE", "1,0,0,1,1,1\n2,0,5,0,0,0\n3,6,5,0,0,0\n");
    ModelChanged = true;
  }
  std::string Deck() const { return Sample() + "門形.inp"; }
  std::string Results() const { return Sample() + "門形.ANA/"; }
  bool WorkIsEmpty() const { return Listing(Tree() + "WK").empty(); }
};

TEST_F(ProjectsTest, CloseModelAsksTheTableFormsAndNoOthers) {
  forms = {"InpNODE", "frmInputMenu", "InpShowDefine", "inpalfa"};
  EXPECT_EQ(CloseModel(), kModelClosed);
  EXPECT_THAT(done, ElementsAre("close InpNODE", "close inpalfa"));
}

TEST(TableForms, AreTheSixteen) {
  int count = 0;
  for (const char* const key : {"NODE", "ELEM", "SECT", "TITL", "SUBT", "UNIT", "CONT", "PLOD", "ELOD",
                                "CLOD", "TLOD", "RIGD", "SPRG", "SPEC", "DISP", "ALFA"})
    count += IsTableForm(std::string("Inp") + key) ? 1 : 0;
  EXPECT_EQ(count, 16);
  for (const char* const form : {"frmInputMenu", "InpShowDefine", "Model", "", "NODE"})
    EXPECT_FALSE(IsTableForm(form)) << form;
}

TEST_F(ProjectsTest, FormThatRefusesStopsTheClosing) {
  ChangeTable();
  forms = {"InpNODE", "InpELEM"};
  stubborn = "InpNODE";
  EXPECT_EQ(CloseModel(), kFormRefused);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_TRUE(FileExists(WorkPath + "NODE"));
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ProjectsTest, UnchangedModelClosesWithoutAQuestion) {
  EXPECT_EQ(CloseModel(), kModelClosed);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_TRUE(WorkIsEmpty());
  EXPECT_FALSE(ModelIsOpen);
}

TEST_F(ProjectsTest, ChangedModelIsSavedOnYes) {
  ChangeTable();
  answers = {Answer::Yes};
  EXPECT_EQ(CloseModel(), kModelClosed);
  EXPECT_THAT(told, ElementsAre(kSaveQuestion));
  EXPECT_THAT(Read(Deck()), HasSubstr("3,6,5,0,0,0"));
  EXPECT_TRUE(WorkIsEmpty());
  EXPECT_FALSE(ModelChanged);
}

TEST_F(ProjectsTest, ChangedModelIsLostOnNoAndItsDeckStays) {
  ChangeTable();
  answers = {Answer::No};
  EXPECT_EQ(CloseModel(), kModelClosed);
  EXPECT_EQ(Read(Deck()), CrLf(kPortal));
  EXPECT_TRUE(WorkIsEmpty());
  EXPECT_FALSE(ModelChanged);
}

TEST_F(ProjectsTest, CancelLeavesEverythingAsItIs) {
  ChangeTable();
  const auto before = Contents(Tree());
  answers = {Answer::Cancel};
  EXPECT_EQ(CloseModel(), kUserCancelled);
  EXPECT_EQ(Contents(Tree()), before);
  EXPECT_TRUE(ModelChanged);
  EXPECT_TRUE(ModelIsOpen);
}

TEST_F(ProjectsTest, NamelessModelIsSavedThroughTheDialog) {
  ChangeTable();
  ModelFile.clear();
  answers = {Answer::Yes};
  OnDialog("例題－１", "新");
  EXPECT_EQ(CloseModel(), kModelClosed);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].mode, DialogMode::SaveNew);
  EXPECT_THAT(Read(Sample() + "新.inp"), HasSubstr("3,6,5,0,0,0"));
}

TEST_F(ProjectsTest, NamelessModelStaysWhenItsDialogIsCancelled) {
  ChangeTable();
  ModelFile.clear();
  answers = {Answer::Yes};
  const auto before = Contents(Tree());
  EXPECT_EQ(CloseModel(), kFormRefused);
  EXPECT_EQ(Contents(Tree()), before);
  EXPECT_TRUE(ModelChanged);
  EXPECT_EQ(ModelFile, "");
}

TEST_F(ProjectsTest, NewModelHasOnlyItsUnits) {
  Write(AnalysisPath + "FT031", "1");
  NewModel();
  EXPECT_THAT(Listing(WorkPath), ElementsAre("UNIT"));
  EXPECT_THAT(Listing(AnalysisPath), IsEmpty());
  EXPECT_EQ(ProjectName + ModelFile, "");
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << NewData >>");
  EXPECT_TRUE(ModelIsOpen);
  EXPECT_FALSE(ModelChanged);
  EXPECT_THAT(done, ElementsAre("unload", "figure data", "input menu"));
}

TEST_F(ProjectsTest, NewModelStopsAtAFormThatRefuses) {
  forms = {"InpNODE"};
  stubborn = "InpNODE";
  NewModel();
  EXPECT_EQ(ModelFile, "門形.inp");
  EXPECT_THAT(done, IsEmpty());
}

TEST_F(ProjectsTest, NewModelBeginsEvenWhenTheQuestionIsCancelled) {
  ChangeTable();
  answers = {Answer::Cancel};
  NewModel();
  EXPECT_EQ(ProjectName + ModelFile, "");
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(InpModel.Title, "新規");
  EXPECT_TRUE(FileExists(WorkPath + "NODE")) << "the tables were not cleared";
  EXPECT_EQ(Read(Deck()), CrLf(kPortal));
}

TEST_F(ProjectsTest, OpeningBringsTablesAndResultsInHand) {
  Write(Results() + "FT031", "1\n");
  Write(Results() + "DSNS", "s");
  Write(Sample() + "門形.out", "listing");
  Write(AnalysisPath + "FT021", "of another model");
  OnDialog("例題－１", "門形");
  OpenModel();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].mode, DialogMode::Open);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(done, ElementsAre("cascade", "unload", "figure data", "input menu", "model figure"));
  EXPECT_EQ(Read(WorkPath + "NODE"), "1,0,0,1,1,1\r\n2,0,4,0,0,0\r\n3,6,4,0,0,0\r\n");
  EXPECT_THAT(Listing(AnalysisPath), ElementsAre("DSNS", "FT031"));
  EXPECT_TRUE(zorlan::Results.forces && zorlan::Results.steelDesign && zorlan::Results.listing);
  EXPECT_FALSE(zorlan::Results.concreteDesign || zorlan::Results.timberDesign);
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << 例題－１.zor/門形.inp >>");
  EXPECT_EQ(InpModel.ModelCode, 1);
  EXPECT_EQ(InpModel.MaxLoadCase, 1);
  EXPECT_EQ(Read(Tree() + "DataPath.Ini"), Data() + "\r\n例題－１.zor/\r\n門形.inp\r\n");
  EXPECT_THAT(RecentModels(), ElementsAre(Deck()));
}

TEST_F(ProjectsTest, OpeningTellsWhatOfADeckIsNotReadAsItMayBeMeant) {
  Write(Sample() + "b.inp",
        "@CONT\n1,1,0\n@NODE\n1,－2,0,1,1,1\n@PLOD\n1,1,1\n@PLOD\n1,1,2\n@UNIT\n2,0,9.8,0\n");
  OnDialog("例題－１", "b");
  OpenModel();
  EXPECT_TRUE(ModelIsOpen);
  EXPECT_THAT(told,
              ElementsAre(testing::AllOf(
                  HasSubstr(Sample() + "b.inp ： \n"),
                  HasSubstr("\n@PLOD が 2 回あります。後のものだけを読み込みました。このまま保存すると"),
                  HasSubstr("\n4行目 ： @NODE のＸ座標 「－2」 は数値ではありません。0 として"),
                  HasSubstr("\n10行目 ： @UNIT の入力単位 2 は"))));
}

TEST_F(ProjectsTest, ModelWithoutResultsLeavesTheAnalysisFolderEmpty) {
  Write(AnalysisPath + "FT031", "of another model");
  OnDialog("例題－１", "門形");
  OpenModel();
  EXPECT_THAT(Listing(AnalysisPath), IsEmpty());
  EXPECT_FALSE(zorlan::Results.forces);
}

TEST_F(ProjectsTest, EmptyForcesAreNoResults) {
  Write(Results() + "FT031", "");
  OnDialog("例題－１", "門形");
  OpenModel();
  EXPECT_FALSE(zorlan::Results.forces);
  EXPECT_FALSE(IsOn(RowOf(Command::DesignSteel), CurrentMenuFacts(false)));
}

TEST_F(ProjectsTest, CancelledOpeningHasNoModelAndTouchesNoProject) {
  const auto before = Contents(Data());
  OpenModel();
  EXPECT_EQ(Contents(Data()), before);
  EXPECT_FALSE(ModelIsOpen);
  EXPECT_EQ(ModelFile, "");
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << NewData >>");
  EXPECT_THAT(done, ElementsAre("cascade", "unload"));
}

TEST_F(ProjectsTest, OpeningGoesOnWhenTheSaveQuestionIsCancelled) {
  ChangeTable();
  answers = {Answer::Cancel};
  OpenModel();
  EXPECT_EQ(shown.size(), 1U);
  EXPECT_TRUE(ModelChanged) << "nothing was opened, and the tables are still there to be saved";
  EXPECT_TRUE(FileExists(WorkPath + "NODE"));
}

TEST_F(ProjectsTest, DeckThatCannotBeReadThroughOpensForMending) {
  Write(Sample() + "b.inp", "@CONT\n3,2,0\n@NODE\n99999,0,0,0,0,0\n");
  OnDialog("例題－１", "b");
  OpenModel();
  EXPECT_TRUE(ModelIsOpen);
  EXPECT_EQ(InpModel.ModelCode, 3);
  EXPECT_EQ(InpModel.MaxLoadCase, 2);
  EXPECT_EQ(Read(WorkPath + "NODE"), "99999,0,0,0,0,0\r\n");
}

TEST_F(ProjectsTest, OverwritingSavesUnderTheNameAndKeepsTheResults) {
  Write(Results() + "FT031", "1\n");
  ChangeTable();
  forms = {"InpNODE"};
  OverwriteModel();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(done, ElementsAre("close InpNODE"));
  EXPECT_THAT(Read(Deck()), HasSubstr("3,6,5,0,0,0"));
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(Read(Results() + "FT031"), "1\r\n");
}

TEST_F(ProjectsTest, OverwritingStopsAtAFormThatRefuses) {
  ChangeTable();
  forms = {"InpNODE"};
  stubborn = "InpNODE";
  OverwriteModel();
  EXPECT_EQ(Read(Deck()), CrLf(kPortal));
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ProjectsTest, ModelWithoutControlDataIsNotSaved) {
  std::filesystem::remove(NativePath(WorkPath + "CONT"));
  OverwriteModel();
  EXPECT_THAT(told, ElementsAre("データ未入力です！！！"));
  EXPECT_EQ(Read(Deck()), CrLf(kPortal));
}

TEST_F(ProjectsTest, NamelessModelIsOverwrittenThroughTheDialog) {
  ModelFile.clear();
  OnDialog("架構", "一");
  answers = {Answer::Ok};
  OverwriteModel();
  EXPECT_EQ(shown.at(0).mode, DialogMode::SaveNew);
  EXPECT_TRUE(FileExists(Data() + "架構.zor/一.inp"));
  EXPECT_EQ(ProjectName + ModelFile, "架構.zor/一.inp");
}

TEST_F(ProjectsTest, CancelledNamingOfANamelessModelSavesNothing) {
  ChangeTable();
  ModelFile.clear();
  const auto before = Contents(Tree());
  OverwriteModel();
  EXPECT_EQ(Contents(Tree()), before);
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ProjectsTest, WithoutAModelNothingIsSavedOverTheLastOne) {
  EndProgram();
  ASSERT_EQ(Start(), Started::Ready);
  Forget();
  EXPECT_EQ(ModelFile, "門形.inp") << "the model of last time, and not open";
  Write(WorkPath + "CONT", "1,1,0,0\n");
  OverwriteModel();
  SaveModelAs();
  EXPECT_THAT(told, ElementsAre("データ未入力です！！！", "データ未入力です！！！"));
  EXPECT_EQ(Read(Deck()), CrLf(kPortal));
  EXPECT_THAT(shown, IsEmpty());
}

TEST_F(ProjectsTest, SavingThatFailsIsReportedAndTheModelStays) {
  ChangeTable();
  std::filesystem::remove_all(NativePath(Sample()));
  OverwriteModel();
  EXPECT_THAT(told, ElementsAre(HasSubstr("関数名： OverwriteModel")));
  EXPECT_TRUE(ModelChanged);
  EXPECT_THAT(Read(WorkPath + "NODE"), HasSubstr("3,6,5,0,0,0"));
}

TEST_F(ProjectsTest, SaveAsTakesTheResultsAlong) {
  Write(Results() + "FT031", "1\n");
  Write(Results() + "DSN.S1", "conditions");
  Write(Results() + "sub/x", "in a sub-folder");
  Write(Sample() + "門形.out", "listing");
  OnDialog("例題－１", "写し");
  SaveModelAs();
  EXPECT_EQ(shown.at(0).mode, DialogMode::SaveAs);
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(Read(Sample() + "写し.inp"), CrLf(kPortal));
  EXPECT_EQ(Read(Sample() + "写し.out"), "listing");
  EXPECT_THAT(Listing(Sample() + "写し.ANA"), ElementsAre("DSN.S1", "FT031"));
  EXPECT_EQ(Read(Results() + "FT031"), "1\r\n") << "the old model keeps its own";
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << 例題－１.zor/写し.inp >>");
  EXPECT_THAT(RecentModels(), ElementsAre(Sample() + "写し.inp", Deck()));
}

TEST_F(ProjectsTest, SaveAsOverAnotherModelRemovesItsResultsFirst) {
  Write(Sample() + "写し.inp", "another");
  Write(Sample() + "写し.ANA/FT031", "another's");
  Write(Sample() + "写し.ANA/DSNS", "another's");
  Write(Sample() + "写し.out", "another's");
  Write(Results() + "FT031", "1\n");
  OnDialog("例題－１", "写し");
  answers = {Answer::Yes};
  SaveModelAs();
  EXPECT_THAT(told, ElementsAre("既存モデル '例題－１.zor/写し.inp' に上書きしてよろしいですか？"));
  EXPECT_EQ(Read(Sample() + "写し.inp"), CrLf(kPortal));
  EXPECT_THAT(Listing(Sample() + "写し.ANA"), ElementsAre("FT031"));
  EXPECT_EQ(Read(Sample() + "写し.ANA/FT031"), "1\r\n");
  EXPECT_FALSE(FileExists(Sample() + "写し.out")) << "the listing was of the model that is gone";
}

TEST_F(ProjectsTest, SaveAsOverAnotherModelThatIsDeclinedTouchesNothing) {
  Write(Sample() + "写し.inp", "another");
  Write(Sample() + "写し.ANA/FT031", "another's");
  const auto before = Contents(Data());
  OnDialog("例題－１", "写し");
  answers = {Answer::No};
  SaveModelAs();
  EXPECT_EQ(Contents(Data()), before);
}

TEST_F(ProjectsTest, SaveAsOntoItselfKeepsItsResults) {
  Write(Results() + "FT031", "1\n");
  Write(Sample() + "門形.out", "listing");
  ChangeTable();
  OnDialog("例題－１", "門形");
  answers = {Answer::Yes};
  SaveModelAs();
  EXPECT_THAT(Read(Deck()), HasSubstr("3,6,5,0,0,0"));
  EXPECT_EQ(Read(Results() + "FT031"), "1\r\n");
  EXPECT_EQ(Read(Sample() + "門形.out"), "listing");
}

// A copy is as new as its making; what was stale stays so.
TEST_F(ProjectsTest, SaveAsKeepsItKnownThatADesignIsOlderThanItsDeck) {
  Write(Results() + "FT031", "1\n");
  Write(Results() + "SIG_RC", "1\n");
  const auto deck = std::filesystem::last_write_time(NativePath(Deck()));
  std::filesystem::last_write_time(NativePath(Results() + "FT031"), deck + std::chrono::seconds(1));
  std::filesystem::last_write_time(NativePath(Results() + "SIG_RC"), deck - std::chrono::seconds(1));
  EXPECT_THAT(StaleResultFiles(), ElementsAre("SIG_RC"));
  OnDialog("例題－１", "写し");
  SaveModelAs();
  EXPECT_THAT(Listing(Sample() + "写し.ANA"), ElementsAre("FT031", "SIG_RC"));
  EXPECT_THAT(StaleResultFiles(), ElementsAre("SIG_RC"));
}

TEST_F(ProjectsTest, SaveAsOverAResultFolderThatIsALinkRemovesTheLinkAlone) {
  Write(Account() + "other/precious", "1");
  Write(Results() + "FT031", "1\n");
  std::filesystem::create_symlink(NativePath(Account() + "other"), NativePath(Sample() + "写し.ANA"));
  OnDialog("例題－１", "写し");
  SaveModelAs();
  EXPECT_EQ(Read(Account() + "other/precious"), "1");
  EXPECT_FALSE(std::filesystem::is_symlink(NativePath(Sample() + "写し.ANA")));
  EXPECT_EQ(Read(Sample() + "写し.ANA/FT031"), "1\r\n");
}

TEST_F(ProjectsTest, CancelledSaveAsTouchesNothingAndLeavesTheModelNameless) {
  ChangeTable();
  const auto before = Contents(Tree());
  SaveModelAs();
  EXPECT_EQ(Contents(Tree()), before);
  EXPECT_EQ(ModelFile, "");
  EXPECT_EQ(ProjectName, "例題－１.zor/");
  EXPECT_TRUE(ModelIsOpen);
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ProjectsTest, NewModelSavedOverAnotherLeavesNoForeignResults) {
  Write(Results() + "FT031", "1\n");
  Write(Sample() + "門形.out", "listing");
  NewModel();
  Write(WorkPath + "CONT", "1,1,0,0\n");
  OnDialog("例題－１", "門形");
  answers = {Answer::Yes};
  OverwriteModel();
  EXPECT_EQ(Read(Deck()), CrLf("@CONT   %コントロールデータ\n1,1,0,0\n\n@UNIT   %単位\n1,1,9.80665,0\n\n"));
  EXPECT_FALSE(FolderExists(Results()));
  EXPECT_FALSE(FileExists(Sample() + "門形.out"));
}

TEST_F(ProjectsTest, ModelThatLostItsNameTakesItsResultsToTheNextOne) {
  Write(Results() + "FT031", "1\n");
  Write(Sample() + "門形.out", "listing");
  SaveModelAs();  // cancelled
  OnDialog("例題－１", "門形");
  answers = {Answer::Yes};
  OverwriteModel();
  EXPECT_EQ(Read(Results() + "FT031"), "1\r\n") << "saved where it came from";
  EXPECT_EQ(Read(Sample() + "門形.out"), "listing");
  SaveModelAs();
  Write(Sample() + "別.inp", "another");
  Write(Sample() + "別.ANA/DSNS", "another's");
  OnDialog("例題－１", "別");
  answers = {Answer::Yes};
  OverwriteModel();
  EXPECT_THAT(Listing(Sample() + "別.ANA"), ElementsAre("FT031"));
}

TEST_F(ProjectsTest, DeletingAsksWithTheFullPathAndTakesTheResultsAlong) {
  Write(Sample() + "二.inp", kPortal);
  Write(Sample() + "二.out", "listing");
  Write(Sample() + "二.ANA/FT031", "1");
  OnDialog("例題－１", "二");
  answers = {Answer::Yes};
  DeleteModel();
  EXPECT_EQ(shown.at(0).mode, DialogMode::Delete);
  EXPECT_THAT(told, ElementsAre("モデル" + Sample() + "二.inpを削除してよろしいですか？"));
  EXPECT_THAT(Listing(Sample()), ElementsAre("門形.inp"));
  EXPECT_TRUE(ModelIsOpen);
  EXPECT_EQ(ProjectName + ModelFile, "例題－１.zor/門形.inp") << "another model is in hand";
  EXPECT_TRUE(FileExists(WorkPath + "NODE"));
}

TEST_F(ProjectsTest, DeletingTheModelInHandForgetsIt) {
  forms = {"frmInputMenu"};
  OnDialog("例題－１", "門形");
  answers = {Answer::Yes};
  DeleteModel();
  EXPECT_THAT(Listing(Sample()), IsEmpty());
  EXPECT_TRUE(WorkIsEmpty());
  EXPECT_EQ(ProjectName + ModelFile, "");
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << NewData >>");
  EXPECT_THAT(done, ElementsAre("unload"));
  EXPECT_FALSE(ModelIsOpen);
}

TEST_F(ProjectsTest, DeclinedOrCancelledDeletionTouchesNothing) {
  const auto before = Contents(Tree());
  OnDialog("例題－１", "門形");
  answers = {Answer::No};
  DeleteModel();
  OnDialogCancel();
  DeleteModel();
  EXPECT_EQ(Contents(Tree()), before);
  EXPECT_EQ(ProjectName + ModelFile, "例題－１.zor/門形.inp");
  EXPECT_TRUE(ModelIsOpen);
}

TEST_F(ProjectsTest, DeletingAModelThatIsNotThereIsTold) {
  OnDialog("例題－１", "無い");
  DeleteModel();
  EXPECT_THAT(told, ElementsAre(Sample() + "無い.inp が見つかりません！！！"));
}

TEST_F(ProjectsTest, NameNeverLeadsOutOfTheChosenProject) {
  Write(Data() + "隣.zor/m.inp", kPortal);
  const auto before = Contents(Data());
  OnDialog("例題－１", "../隣.zor/m");
  answers = {Answer::Yes};
  DeleteModel();
  EXPECT_THAT(told, ElementsAre("モデル名に使用できない文字が含まれています！！！"));
  EXPECT_EQ(Contents(Data()), before);
}

TEST_F(ProjectsTest, DeletingALinkToTheDeckInHandKeepsTheModel) {
  std::filesystem::create_symlink(NativePath(Deck()), NativePath(Sample() + "鏡.inp"));
  OnDialog("例題－１", "鏡");
  answers = {Answer::Yes};
  DeleteModel();
  EXPECT_THAT(Listing(Sample()), ElementsAre("門形.inp"));
  EXPECT_TRUE(ModelIsOpen);
}

TEST_F(ProjectsTest, DeletingFollowsNoLinkOutOfTheProject) {
  Write(Account() + "other/precious", "1");
  Write(Sample() + "二.inp", kPortal);
  std::filesystem::create_symlink(NativePath(Account() + "other"), NativePath(Sample() + "二.ANA"));
  OnDialog("例題－１", "二");
  answers = {Answer::Yes};
  DeleteModel();
  EXPECT_EQ(Read(Account() + "other/precious"), "1");
  EXPECT_THAT(Listing(Sample()), ElementsAre("門形.inp"));
}

TEST_F(ProjectsTest, DeckFileOpensByItsPath) {
  Write(Account() + "他所/物件.zor/m.INP", kPortal);
  EXPECT_TRUE(OpenDeckFile(Account() + "他所/物件.zor/m.INP"));
  EXPECT_EQ(DataPath, Account() + "他所/");
  EXPECT_EQ(ProjectName, "物件.zor/");
  EXPECT_EQ(ModelFile, "m.INP");
  EXPECT_TRUE(FileExists(WorkPath + "NODE"));
  EXPECT_THAT(done, ElementsAre("cascade", "unload", "figure data", "input menu", "model figure"));
}

TEST_F(ProjectsTest, DeckFileOutsideAnyProjectOpensToo) {
  Write(Account() + "受信/m.inp", kPortal);
  EXPECT_TRUE(OpenDeckFile(Account() + "受信/m.inp"));
  EXPECT_EQ(DeckPath(), Account() + "受信/m.inp");
}

TEST_F(ProjectsTest, FileThatIsNoDeckOrNotThereIsTold) {
  Write(Account() + "a.txt", "text");
  NoteRecentModel(Account() + "gone.inp");
  std::filesystem::create_symlink("/proc/self/mem", NativePath(Account() + "locked.inp"));  // can't be read
  for (const char* const name : {"a.txt", "gone.inp", "locked.inp", ""}) {
    Forget();
    EXPECT_FALSE(OpenDeckFile(Account() + name));
    EXPECT_THAT(told, ElementsAre("データを開くことが出来ませんでした\n"
                                  "データのパス名が正しく設定されているか確認してください [データを開く]"))
        << name;
    EXPECT_TRUE(ModelIsOpen) << "the model in hand stays";
  }
  EXPECT_THAT(RecentModels(), Not(Contains(Account() + "gone.inp")));
}

TEST_F(ProjectsTest, DeckFileIsNotOpenedWhenTheUserCancels) {
  Write(Account() + "受信/m.inp", kPortal);
  ChangeTable();
  answers = {Answer::Cancel};
  EXPECT_FALSE(OpenDeckFile(Account() + "受信/m.inp"));
  EXPECT_EQ(ModelFile, "門形.inp");
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ProjectsTest, PathThatTheSettingsCannotHoldIsToldAndTheModelOpens) {
  Write(Account() + "é/m.inp", kPortal);
  EXPECT_TRUE(OpenDeckFile(Account() + "é/m.inp"));
  EXPECT_THAT(told, ElementsAre(HasSubstr("「é」")));
  EXPECT_TRUE(ModelIsOpen);
}

}  // namespace
}  // namespace zorlan::test

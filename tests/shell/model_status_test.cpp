#include "shell/model_status.h"

#include <chrono>
#include <filesystem>

#include "shell/projects.h"
#include "shell/windows.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

class ModelStatusTest : public test::ModelFolderTest {
 protected:
  ModelStatusTest() {
    ModelIsOpen = true;
    ModelChanged = false;
  }
  ~ModelStatusTest() override { ModelIsOpen = ModelChanged = false; }
  /// Stored forces, older or newer than the deck by so many seconds.
  void StoreForces(int secondsAfterDeck) {
    WriteDeck("@CONT\n1,1,0\n");
    MakeFolder(ResultFolder());
    ReplaceBytes(ResultFolder() + "FT031", "1\r\n");
    const auto deck = std::filesystem::last_write_time(DeckPath());
    std::filesystem::last_write_time(ResultFolder() + "FT031", deck + std::chrono::seconds(secondsAfterDeck));
    ReplaceBytes(AnalysisPath + "FT031", "1\r\n");
  }
};

TEST_F(ModelStatusTest, WithoutAModelThereIsNothingElseToSay) {
  ModelIsOpen = false;
  const ModelStatus status = CurrentModelStatus();
  EXPECT_EQ(status.model, "モデルなし");
  EXPECT_EQ(status.saved + status.results + status.kind + status.cases + status.units, "");
}

TEST_F(ModelStatusTest, ANewModelIsNotSavedYet) {
  ModelFile.clear();
  EXPECT_EQ(CurrentModelStatus().model, "NewData");
  EXPECT_EQ(CurrentModelStatus().saved, "未保存");
}

TEST_F(ModelStatusTest, UnsavedChangesAreSaid) {
  EXPECT_EQ(CurrentModelStatus().saved, "保存済み");
  ModelChanged = true;
  EXPECT_EQ(CurrentModelStatus().saved, "未保存");
}

TEST_F(ModelStatusTest, ResultsAreOfTheModelAsItStandsOrOfAFormerState) {
  EXPECT_EQ(CurrentModelStatus().results, "解析結果なし");
  StoreForces(1);
  EXPECT_EQ(CurrentModelStatus().results, "解析結果あり");
  ModelChanged = true;
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は変更前のものです");
  ModelChanged = false;
  StoreForces(-1);
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は変更前のものです");
  RemoveFile(AnalysisPath + "FT031");
  EXPECT_EQ(CurrentModelStatus().results, "解析結果なし");
}

TEST_F(ModelStatusTest, AnOpenFormThatWasChangedCountsAsAChange) {
  StoreForces(1);
  ShellWindows windows;
  windows.formsChanged = [] { return true; };
  InstallWindows(windows);
  EXPECT_EQ(CurrentModelStatus().saved, "未保存");
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は変更前のものです");
  InstallWindows({});
  EXPECT_EQ(CurrentModelStatus().saved, "保存済み");
}

TEST_F(ModelStatusTest, ResultsThatAreNotStoredTellTheirAgeThemselves) {
  StoreForces(1);
  RemoveFile(ResultFolder() + "FT031");
  const auto deck = std::filesystem::last_write_time(DeckPath());
  std::filesystem::last_write_time(AnalysisPath + "FT031", deck + std::chrono::seconds(1));
  EXPECT_EQ(CurrentModelStatus().results, "解析結果あり");
  std::filesystem::last_write_time(AnalysisPath + "FT031", deck - std::chrono::seconds(1));
  EXPECT_EQ(CurrentModelStatus().results, "解析結果は変更前のものです");
}

// A design of its own age: an analysis keeps SIG_RC.
TEST_F(ModelStatusTest, ADesignOlderThanTheDeckIsToldBesideResultsThatAreNot) {
  EXPECT_EQ(StaleWords("SIG_RC"), "");
  StoreForces(1);
  EXPECT_EQ(StaleWords(), "");
  EXPECT_EQ(StaleWords("SIG_RC"), "");  // there is none
  ReplaceBytes(ResultFolder() + "SIG_RC", "1\r\n");
  const auto age = [](int secondsAfterDeck) {
    const auto deck = std::filesystem::last_write_time(DeckPath());
    std::filesystem::last_write_time(ResultFolder() + "SIG_RC",
                                     deck + std::chrono::seconds(secondsAfterDeck));
  };
  age(1);
  EXPECT_EQ(StaleWords("SIG_RC"), "");
  age(-1);
  EXPECT_EQ(StaleWords("SIG_RC"), "断面算定の結果は変更前のものです");
  EXPECT_EQ(StaleWords("SIG_S"), "");
  EXPECT_EQ(StaleWords(), "");
  StoreForces(-1);
  EXPECT_EQ(StaleWords("SIG_RC"), "解析結果は変更前のものです");
  EXPECT_EQ(StaleWords(), "解析結果は変更前のものです");
}

TEST_F(ModelStatusTest, StoredResultsThatCannotBeTrustedAreToldWhereNobodySeesTheStatus) {
  std::vector<std::string> told;
  Host host;
  host.message = [&told](std::string_view text, std::string_view) { told.emplace_back(text); };
  InstallHost(host);
  StoreForces(1);
  TellResultRemark();
  EXPECT_EQ(told, std::vector<std::string>());
  ReplaceTextFile(ResultFolder() + "DOUBTS", "解析結果は信頼できません\r\n荷重ケース 1\r\n");
  EXPECT_EQ(ResultRemark(), "") << "those in the analysis folder have no doubts";
  TellResultRemark();
  TellResultRemark("SIG_RC");
  StoreForces(-1);
  TellResultRemark();
  const std::string untrusted = DeckPath() + " ： 解析結果は信頼できません";
  EXPECT_EQ(told,
            (std::vector<std::string>{untrusted, untrusted, DeckPath() + " ： 解析結果は変更前のものです"}));
  told.clear();
  RemoveFile(ResultFolder() + "FT031");  // a run that was killed while it removed results
  RemoveFile(AnalysisPath + "FT031");
  TellResultRemark("SIG_RC");
  EXPECT_EQ(told, std::vector<std::string>());
  InstallHost({});
}

TEST_F(ModelStatusTest, TheNumberOfLoadCasesIsSaidAsANumber) {
  InpModel.ModelCode = 1;
  InpModel.MaxLoadCase = 2;
  EXPECT_EQ(CurrentModelStatus().kind, "一般任意平面骨組み");
  EXPECT_EQ(CurrentModelStatus().cases, "荷重ケース数 2");
}

TEST_F(ModelStatusTest, UnitsComeFromTheTable) {
  WriteTable("UNIT", "1,0,9.80665,0\n");
  EXPECT_EQ(CurrentModelStatus().units, "入力 ＳＩ単位　出力 工学単位");
  WriteTable("UNIT", "0,0,0\n2,1,0\n");  // the last row counts, and 2 is no SI
  EXPECT_EQ(CurrentModelStatus().units, "入力 工学単位　出力 ＳＩ単位");
}

}  // namespace
}  // namespace zorlan

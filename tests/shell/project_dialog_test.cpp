#include "shell/project_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "shell/convert_dialog.h"
#include "shell/settings.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kUnusable = "モデル名に使用できない文字が含まれています！！！";
constexpr const char* kUnusableProject = "プロジェクト名に使用できない文字が含まれています！！！";

class ProjectDialogTest : public ShellTest {
 protected:
  ProjectDialogTest() { StartWithModel(); }

  /// The dialog of a mode with these boxes and its button pressed; true: it closes.
  bool Press(DialogMode mode, const std::string& project, const std::string& model) {
    ProjectDialog dialog;
    dialog.mode = mode;
    dialog.dataPath = DataPath;
    dialog.project = project;
    dialog.model = model;
    return AcceptProjectDialog(dialog);
  }
};

struct ModeCase {
  const char* value;  // of ModelFile as the command passes it
  DialogMode mode;
  const char* heading;
  const char* model;  // box
};

const ModeCase kModeCases[] = {
    {"門形.inp", DialogMode::Open, "〔例題－１.zor/門形.inp〕", "門形"},
    {"", DialogMode::Open, "〔例題－１.zor/〕", ""},
    {"/", DialogMode::SaveNew, "〔モデルの保存〕", ""},
    {"門形.inp\\", DialogMode::Delete, "〔モデルの削除〕", "門形"},
    {"門形.inp@", DialogMode::ConversionTarget, "〔変換後〕", "門形"},
    {"門形.inp&", DialogMode::CopySource, "〔コピー元モデル〕", "門形"},
    {"門形.inp$", DialogMode::SaveAs, "〔名前を付けて保存〕", "門形"},
};

TEST_F(ProjectDialogTest, TakesItsModeOffTheEndOfTheModelsName) {
  for (const ModeCase& c : kModeCases) {
    ModelFile = c.value;
    const ProjectDialog dialog = StartProjectDialog();
    EXPECT_EQ(dialog.mode, c.mode) << c.value;
    EXPECT_EQ(dialog.heading, c.heading) << c.value;
    EXPECT_EQ(dialog.model, c.model) << c.value;
    EXPECT_EQ(dialog.project, "例題－１") << c.value;
    EXPECT_EQ(dialog.dataPath, Data()) << c.value;
    const std::string value = c.value;
    EXPECT_EQ(ModelFile, c.mode == DialogMode::Open ? value : value.substr(0, value.size() - 1)) << c.value;
  }
}

TEST_F(ProjectDialogTest, OldModelComesFromItsOwnSettings) {
  SaveVer1Path("/旧/", "案件/", "ラーメン/");
  ModelFile = "*";
  const ProjectDialog dialog = StartProjectDialog();
  EXPECT_EQ(dialog.mode, DialogMode::ConversionSource);
  EXPECT_EQ(dialog.heading, "〔Ｖｅｒ１．０〕");
  EXPECT_EQ(dialog.dataPath + "|" + dialog.project + "|" + dialog.model, "/旧/|案件|ラーメン");
}

TEST(DialogModes, HaveCharactersOfTheirOwn) {
  std::set<char> characters;
  for (const DialogModeRow& row : kDialogModes) characters.insert(row.character);
  EXPECT_EQ(characters.size(), std::size(kDialogModes));
}

TEST_F(ProjectDialogTest, CancelLeavesTheNameEmpty) {
  ProjectDialog dialog;
  EXPECT_FALSE(ShowProjectDialog(DialogMode::CopySource, dialog));
  EXPECT_EQ(ModelFile, "");
}

TEST_F(ProjectDialogTest, NamesMayNotBeLeftOut) {
  EXPECT_FALSE(Press(DialogMode::SaveAs, " ", "a"));
  EXPECT_FALSE(Press(DialogMode::SaveAs, ".zor", "a"));
  EXPECT_FALSE(Press(DialogMode::SaveAs, "例題－１", "  "));
  EXPECT_FALSE(Press(DialogMode::SaveAs, "例題－１", ".inp"));
  EXPECT_THAT(told,
              ElementsAre("プロジェクト名は省略できません！！！", "プロジェクト名は省略できません！！！",
                          "モデル名は省略できません！！！", "モデル名は省略できません！！！"));
}

TEST_F(ProjectDialogTest, UnusableModelNamesAreRefusedAndLeaveNothing) {
  const auto before = Contents(Tree());
  const std::string names[] = {
      "a/b", "/a", "../a", "a\\b", "a:b", "a*",   "a?", "a\"b",      "a<b",        "a>b",
      "a|b", ".",  "..",   ".a",   "a.",  "a\tb", "é",  "a.inp.old", "a.ｉｎｐ.b", std::string(300, 'a')};
  for (const std::string& name : names) {
    Forget();
    EXPECT_FALSE(Press(DialogMode::SaveAs, "例題－１", name)) << name;
    EXPECT_THAT(told, ElementsAre(kUnusable)) << name;
  }
  EXPECT_EQ(Contents(Tree()), before);
}

TEST_F(ProjectDialogTest, UsableModelNamesAreTaken) {
  for (const char* const name : {"b", "２階　門形", "a.b", "a b", "ｱ-1_(2)", "表示能力", "%1,2"}) {
    Forget();
    EXPECT_TRUE(Press(DialogMode::SaveAs, "例題－１", name)) << name;
    EXPECT_THAT(told, IsEmpty()) << name;
    EXPECT_TRUE(FileExists(Sample() + name + ".inp")) << name;
    EXPECT_FALSE(FileExists(Sample() + name + ".tmp")) << name;
  }
}

TEST_F(ProjectDialogTest, EndingsThatWereTypedAreNotDoubled) {
  EXPECT_TRUE(Press(DialogMode::SaveAs, "例題－１.ZOR", "b.INP"));
  EXPECT_TRUE(FileExists(Sample() + "b.inp"));
  EXPECT_TRUE(Press(DialogMode::SaveAs, "例題－１.zor/", "c.ｉｎｐ"));
  EXPECT_TRUE(FileExists(Sample() + "c.inp"));
}

TEST_F(ProjectDialogTest, UnusableProjectNamesAreRefusedBeforeTheQuestion) {
  for (const char* const name : {"a/b", "../a", "a:b", "..", "é"}) {
    Forget();
    EXPECT_FALSE(Press(DialogMode::SaveAs, name, "a")) << name;
    EXPECT_THAT(told, ElementsAre(kUnusableProject)) << name;
  }
}

TEST_F(ProjectDialogTest, MissingProjectIsMadeOnConsentOnly) {
  const auto before = Contents(Tree());
  answers = {Answer::Cancel};
  EXPECT_FALSE(Press(DialogMode::SaveAs, "新築", "a"));
  EXPECT_EQ(Contents(Tree()), before);
  answers = {Answer::Ok};
  EXPECT_TRUE(Press(DialogMode::SaveAs, "新築", "a"));
  EXPECT_TRUE(FileExists(Data() + "新築.zor/a.inp"));
  const std::string question = "フォルダ" + Data() + "新築.zor を新規作成してよいですか";
  EXPECT_THAT(told, ElementsAre(question, question));
}

TEST_F(ProjectDialogTest, ProjectWithAFullStopIsFoundByItsEnding) {
  Write(Data() + "Ａ邸.改.zor/m.inp", kPortal);
  EXPECT_TRUE(Press(DialogMode::Open, "Ａ邸.改", "m"));
  EXPECT_EQ(ProjectName, "Ａ邸.改.zor/");
}

TEST_F(ProjectDialogTest, NamesInOtherLettersAreFoundAsTheyStand) {
  Write(Data() + "HOUSE.ZOR/FRAME.INP", kPortal);
  EXPECT_TRUE(Press(DialogMode::Open, "house", "frame"));
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(ProjectName + ModelFile, "HOUSE.ZOR/FRAME.INP");
}

TEST_F(ProjectDialogTest, TestFileLeavesAFileOfThatNameAlone) {
  Write(Sample() + "memo.tmp", "mine");
  EXPECT_TRUE(Press(DialogMode::SaveAs, "例題－１", "memo"));
  EXPECT_EQ(Read(Sample() + "memo.tmp"), "mine");
}

TEST_F(ProjectDialogTest, PlaceThatTakesNoFileIsReportedWithItsPath) {
  // A project that can't be written into, for any user.
  std::filesystem::create_symlink("/proc/self", NativePath(Data() + "閉.zor"));
  EXPECT_FALSE(Press(DialogMode::SaveAs, "閉", "a"));
  EXPECT_THAT(told, ElementsAre(testing::AllOf(HasSubstr("閉.zor/"), HasSubstr("エラーが発生しました"))));
}

TEST_F(ProjectDialogTest, MissingDeckCannotBeOpenedAndTheModelInHandStays) {
  for (const DialogMode mode : {DialogMode::Open, DialogMode::CopySource}) {
    Forget();
    EXPECT_FALSE(Press(mode, "例題－１", "無い"));
    EXPECT_THAT(told, ElementsAre("データを開くことが出来ませんでした\n"
                                  "データのパス名が正しく設定されているか確認してください [データを開く]"));
  }
  EXPECT_EQ(ModelFile, "門形.inp");
  EXPECT_TRUE(FileExists(WorkPath + "NODE"));
}

TEST_F(ProjectDialogTest, FolderInThePlaceOfADeckCannotBeOpened) {
  MakeFolder(Sample() + "夾.inp");
  EXPECT_FALSE(Press(DialogMode::Open, "例題－１", "夾"));
  EXPECT_THAT(told, ElementsAre(HasSubstr("データを開くことが出来ませんでした")));
}

TEST_F(ProjectDialogTest, SourceOfACopyIsChosenAndNothingElseHappens) {
  ProjectDialog dialog;
  dialog.mode = DialogMode::CopySource;
  dialog.project = "例題－１";
  dialog.model = "門形";
  const auto before = Contents(Tree());
  EXPECT_TRUE(AcceptProjectDialog(dialog));
  EXPECT_EQ(dialog.chosen, (ModelPlace{Data(), "例題－１.zor/", "門形.inp"}));
  EXPECT_EQ(Contents(Tree()), before);
}

TEST_F(ProjectDialogTest, DeclinedOverwritingKeepsTheDialogOpen) {
  Write(Sample() + "b.inp", "another");
  EXPECT_FALSE(Press(DialogMode::SaveAs, "例題－１", "b"));
  EXPECT_THAT(told, ElementsAre("既存モデル '例題－１.zor/b.inp' に上書きしてよろしいですか？"));
  EXPECT_EQ(Read(Sample() + "b.inp"), "another");
  EXPECT_EQ(ModelFile, "門形.inp");
}

TEST(BoxTexts, AreTheNamesWithoutTheirEndings) {
  EXPECT_EQ(ProjectBoxText("架構.zor/"), "架構");
  EXPECT_EQ(ProjectBoxText("架構.ZOR"), "架構");
  EXPECT_EQ(ProjectBoxText(" 架構 "), "架構");
  EXPECT_EQ(ProjectBoxText("a.b.zor"), "a.b");
  EXPECT_EQ(ProjectBoxText(""), "");
  EXPECT_EQ(ModelBoxText("門形.inp"), "門形");
  EXPECT_EQ(ModelBoxText("門形.INP "), "門形");
  EXPECT_EQ(ModelBoxText("a.inp.bak"), "a.inp.bak");
  EXPECT_EQ(ModelBoxText("a.b"), "a.b");
}

/// The deck's date of last change, set to a day.
void SetDay(const std::string& path, std::string_view day) {
  ASSERT_EQ(std::system(("touch -d '" + std::string(day) + " 12:00' '" + path + "'").c_str()), 0);
}

TEST_F(ProjectDialogTest, InformationShowsTheModelLineByLine) {
  const std::string deck = Sample() + "二.inp";
  Write(deck,
        "@CONT\n2,12,0,0\n@UNIT\n0,0,9.80665,0\n@NODE\n1,0,0,2,2,2\n2,0,4,0,0,0\n@ELEM\n1,1,2,0,0,1,0\n"
        "@SECT\n1,1,30,60,0,0,1,210,90\n@RIGD\n1,0.1,0.1\n2,0.2,0.1\n@SPRG\n1,1,1,1\n@DISP\n1,1,2\n"
        "@ALFA\n0,6,2\n");
  SetDay(deck, "2024-03-05");
  const ModelInformation information = InformationOf(deck);
  EXPECT_THAT(information.lines,
              ElementsAre("二.inp", "2024/03/05", "平面解析", "同一変形あり", "節点     : 2", "要素     : 1",
                          "断面     : 1", "荷重ｹｰｽ  : 12", "剛域指定 : 2", "節点ばね : 1", "同一変形 : 1",
                          "フレーム倍率 : 1"));
  EXPECT_EQ(information.model.NodeCount, 2);
  EXPECT_EQ(information.model.Node[2].Y, 4);
}

TEST_F(ProjectDialogTest, InformationNamesTheKindOfModelAndLeavesZerosOut) {
  Write(Sample() + "格子.inp", "@CONT\n3,1,0\n");
  Write(Sample() + "骨組.inp", "@CONT\n1,1,0\n");
  std::vector<std::string> lines = InformationOf(Sample() + "格子.inp").lines;
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_EQ(lines[2] + "|" + lines[3] + "|" + lines[4] + "|" + lines[7],
            "平面格子解析|同一変形|節点     : |荷重ｹｰｽ  : 1");
  lines = InformationOf(Sample() + "骨組.inp").lines;
  EXPECT_EQ(lines[2] + "|" + lines[3], "平面解析|同一変形なし");
}

TEST_F(ProjectDialogTest, InformationLeavesTheModelInHandAlone) {
  const double g = GravityFactor;
  Write(Sample() + "ＳＩ.inp", "@CONT\n3,2,0\n@UNIT\n1,1,9.8,1\n");
  InformationOf(Sample() + "ＳＩ.inp");
  EXPECT_EQ(InpModel.ModelCode, 1);
  EXPECT_EQ(CalcModel.NodeCount, 3);
  EXPECT_EQ(RawModel.Title, "門形");
  EXPECT_EQ(GravityFactor, g);
  EXPECT_EQ(InUnit, 0);
}

TEST_F(ProjectDialogTest, InformationIsEmptyWithoutADeck) {
  EXPECT_THAT(InformationOf(Sample() + "無い.inp").lines, IsEmpty());
  EXPECT_THAT(InformationOf(Sample()).lines, IsEmpty());
}

TEST_F(ProjectDialogTest, InformationOfABrokenDeckSaysWhatIsWrong) {
  Write(Sample() + "壊.inp", "@NODE\n99999,0,0,0,0,0\n");
  const ModelInformation information = InformationOf(Sample() + "壊.inp");
  ASSERT_EQ(information.lines.size(), 3U);
  EXPECT_THAT(information.lines[2], HasSubstr("99999"));
  EXPECT_EQ(information.model.NodeCount, 0);
  EXPECT_EQ(InpModel.ModelCode, 1);
}

TEST_F(ProjectDialogTest, InformationFollowsTheBoxes) {
  ProjectDialog dialog;
  dialog.dataPath = Data();
  dialog.project = "例題－１";
  dialog.model = "門形";
  EXPECT_EQ(InformationOf(dialog).lines.front(), "門形.inp");
  dialog.mode = DialogMode::ConversionSource;
  EXPECT_THAT(InformationOf(dialog).lines, IsEmpty());
}

class ConvertDialogTest : public ProjectDialogTest {
 protected:
  ConvertDialogTest() {
    const std::string old = Account() + "旧/案件/ラーメン/";
    Write(old + "ft077", "旧ラーメン\n");
    Write(old + "ft001", "2\n1,0,0,1,1,1\n2,0,4,0,0,0\n");
  }
  /// Both boxes filled through the project dialog.
  ConvertDialog Picked() {
    dialogs.push_back([this](ProjectDialog& dialog) {
      dialog.dataPath = Account() + "旧";
      dialog.project = "案件";
      dialog.model = "ラーメン";
      AcceptProjectDialog(dialog);
    });
    OnDialog("例題－１", "新");
    ConvertDialog dialog = StartConvertDialog();
    PickOldModel(dialog);
    PickTarget(dialog);
    return dialog;
  }
};

TEST_F(ConvertDialogTest, PickingFillsTheBoxesAndLeavesTheModelInHandAlone) {
  const auto before = Contents(Data());
  const ConvertDialog dialog = Picked();
  EXPECT_EQ(dialog.oldFolder, Account() + "旧/案件/ラーメン/");
  EXPECT_EQ(dialog.target.Deck(), Sample() + "新.inp");
  EXPECT_EQ(ModelFile, "門形.inp");
  EXPECT_EQ(Contents(Data()), before);
  EXPECT_EQ(StartConvertDialog().oldFolder, Account() + "旧/案件/ラーメン/")
      << "remembered for the next time";
  EXPECT_EQ(shown.at(0).heading + shown.at(1).heading, "〔Ｖｅｒ１．０〕〔変換後〕");
}

TEST_F(ConvertDialogTest, CancelledPickingLeavesTheBoxes) {
  ConvertDialog dialog;
  PickOldModel(dialog);
  PickTarget(dialog);
  EXPECT_EQ(dialog.oldFolder + dialog.target.Deck(), "");
  EXPECT_EQ(ModelFile, "門形.inp");
}

TEST_F(ConvertDialogTest, OldFolderThatIsNotThereIsTold) {
  ProjectDialog dialog;
  dialog.mode = DialogMode::ConversionSource;
  dialog.dataPath = Account() + "旧";
  dialog.project = "案件";
  dialog.model = "無い";
  EXPECT_FALSE(AcceptProjectDialog(dialog));
  EXPECT_THAT(told, ElementsAre(HasSubstr("データを開くことが出来ませんでした")));
}

TEST_F(ConvertDialogTest, TargetThatIsThereIsAskedAbout) {
  ConvertDialog dialog;
  OnDialog("例題－１", "門形");
  PickTarget(dialog);
  EXPECT_THAT(told, ElementsAre("既存モデル '例題－１.zor/門形.inp' に上書きしてよろしいですか？"));
  EXPECT_EQ(dialog.target.Deck(), "");
}

TEST_F(ConvertDialogTest, ConvertedModelIsInHand) {
  const ConvertDialog dialog = Picked();
  Forget();
  EXPECT_TRUE(RunConversion(dialog));
  EXPECT_THAT(told, IsEmpty());
  EXPECT_EQ(Read(WorkPath + "TITL"), "旧ラーメン\r\n");
  EXPECT_EQ(ModelFile, "新.inp");
  EXPECT_EQ(MainCaption(), "ＺＯＲＬＡＮ　Ｆｏｒ　Ｗｉｎｄｏｗｓ     << 例題－１.zor/新.inp >>");
  EXPECT_THAT(done, ElementsAre("unload", "figure data", "input menu", "model figure"));
}

TEST_F(ConvertDialogTest, ConvertedModelHasNoResultsOfTheDeckThatStoodThere) {
  Write(Sample() + "新.inp", "before");
  Write(Sample() + "新.out", "listing");
  Write(Sample() + "新.ANA/FT031", "1");
  answers = {Answer::Yes};
  EXPECT_TRUE(RunConversion(Picked()));
  EXPECT_FALSE(FileExists(AnalysisPath + "FT031"));
  EXPECT_FALSE(FolderExists(Sample() + "新.ANA"));
  EXPECT_FALSE(FileExists(Sample() + "新.out"));
  EXPECT_FALSE(Results.forces);
}

TEST_F(ConvertDialogTest, ConversionWaitsForTheModelInHand) {
  const ConvertDialog dialog = Picked();
  ModelChanged = true;
  answers = {Answer::Cancel};
  EXPECT_FALSE(RunConversion(dialog));
  EXPECT_FALSE(FileExists(Sample() + "新.inp"));
  EXPECT_TRUE(ModelChanged);
}

TEST_F(ConvertDialogTest, EmptyBoxesAreTold) {
  EXPECT_FALSE(RunConversion({}));
  ConvertDialog dialog;
  dialog.oldFolder = "/旧/";
  EXPECT_FALSE(RunConversion(dialog));
  EXPECT_THAT(
      told, ElementsAre("変換元のモデルを指定してください！！！", "変換後のモデルを指定してください！！！"));
}

TEST_F(ConvertDialogTest, BrokenOldModelLeavesAnExistingDeck) {
  Write(Sample() + "新.inp", "precious");
  answers = {Answer::Yes};
  const ConvertDialog dialog = Picked();
  Write(Account() + "旧/案件/ラーメン/ft001", "5\n1,0,0\n");
  Forget();
  EXPECT_FALSE(RunConversion(dialog));
  EXPECT_THAT(told, ElementsAre(HasSubstr("ft001")));
  EXPECT_EQ(Read(Sample() + "新.inp"), "precious");
}

}  // namespace
}  // namespace zorlan::test

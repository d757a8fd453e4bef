#include "forms/small_forms.h"

#include <gmock/gmock.h>

#include "model/deck.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::FaultOf;
using testing::ElementsAre;
using testing::IsEmpty;
using Cells = std::vector<std::string>;
using enum ControlField;

class SmallFormsTest : public test::ModelFolderTest {
 protected:
  SmallFormsTest() {
    ModelChanged = false;
    GravityFactor = kStandardGravity;
  }
};

// Titles

TEST(Title, MayHave72HalfWidthCharactersOfWhichAFullWidthOneTakesTwo) {
  EXPECT_EQ(TitleFault(std::string(72, 'a')), "");
  EXPECT_EQ(TitleFault(std::string(73, 'a')), "タイトルは半角７２文字以内で入力して下さい！！！");
  std::string full;
  for (int i = 0; i < 36; ++i) full += "橋";
  EXPECT_EQ(TitleFault(full), "");
  EXPECT_EQ(TitleFault(full + "a"), "タイトルは半角７２文字以内で入力して下さい！！！");
  EXPECT_EQ(TitleFault(std::string(72, 'x').replace(0, 3, "ｱ")), "");  // half-width kana: one each
}

TEST(Title, NamesACharacterThatAFileCannotHold) {
  EXPECT_EQ(TitleFault("橋😀"), "使用できない文字「😀」が含まれています！！！");
}

TEST(Title, WarnsOfSignsThatTheFilesTakeForTheirOwn) {
  EXPECT_EQ(TitleWarning("２階建て, 風"), "「,」から後ろは、入力データリストに印刷されません");
  EXPECT_EQ(TitleWarning("本館, "), "末尾の「,」は保存されません");
  EXPECT_EQ(TitleWarning("安全率 5%"), "「%」から後ろは、保存したモデルを開いたときに失われます");
  EXPECT_EQ(TitleWarning(" @home"), "「@」で始まるタイトルは、保存したモデルを開いたときに失われます");
  EXPECT_EQ(TitleWarning("A@B"), "");
}

TEST_F(SmallFormsTest, ATitleIsOneRowOfOneCell) {
  SaveTitle("TITL", " 二層 ラーメン ");
  EXPECT_EQ(ReadTable("TITL"), "二層 ラーメン\n");
  EXPECT_EQ(LoadTitle("TITL"), "二層 ラーメン");
  EXPECT_EQ(InpModel.Title, "二層 ラーメン");
  EXPECT_TRUE(ModelChanged);
  SaveTitle("SUBT", "副題");
  EXPECT_EQ(ReadTable("SUBT"), "副題\n");
  EXPECT_EQ(InpModel.SubTitle, "副題");
}

TEST_F(SmallFormsTest, ATitleIsItsWholeLine) {
  for (const char* const title : {"本館, 二期", "A,B,,C", ".5 階", "本館          二期", "-.5"}) {
    WriteTable("TITL", std::string(title) + "\n");
    EXPECT_EQ(LoadTitle("TITL"), title);
    SaveTitle("TITL", LoadTitle("TITL") + "x");
    EXPECT_EQ(LoadTitle("TITL"), std::string(title) + "x");
    SaveDeck();
    ReadDeck(DeckPath());
    EXPECT_EQ(InpModel.Title, std::string(title) + "x");
  }
  EXPECT_EQ(LoadTitle("SUBT"), "");
}

// As they count for the analysis.
TEST_F(SmallFormsTest, OfSeveralRowsOfControlDataOrUnitsTheLastIsShown) {
  WriteTable("CONT", "1,2,0,0\n3,1,0,0\n");
  WriteTable("UNIT", "0,0,9.8\n1,1,9.81\n");
  EXPECT_EQ(CellsOfControl(LoadControl())[0], "3");
  EXPECT_EQ(LoadUnit().factor, "9.81");
}

TEST_F(SmallFormsTest, AnEmptiedTitleIsWrittenAndReadAsEmpty) {
  SaveTitle("TITL", "旧");
  SaveTitle("TITL", "");
  EXPECT_EQ(LoadTitle("TITL"), "");
  SaveDeck();
  ReadDeck(DeckPath());
  EXPECT_EQ(InpModel.Title, "");
}

TEST_F(SmallFormsTest, ATitleThatCannotBeWrittenChangesNothing) {
  WorkPath = BlockedFolder();
  EXPECT_NE(FaultOf([] { SaveTitle("TITL", "題"); }), "");
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(InpModel.Title, "");
}

// Control data

TEST(Control, CellsAreTheListIndexesWithTheValuesOfTheTable) {
  const Cells cells = {"3", "20", "1", "0"};
  const ControlEntry entry = ControlOfCells(cells);
  EXPECT_THAT(entry.index, ElementsAre(2, 19, 1, 0));
  EXPECT_EQ(CellsOfControl(entry), cells);
}

TEST(Control, AMissingFourthCellMeansNoInclinedRollers) {
  EXPECT_EQ(ControlOfCells({"1", "2", "0"})[Rollers], 0);
}

TEST(Control, AValueOutsideOfItsListIsNotChosenAndTold) {
  const ControlEntry entry = ControlOfCells({"1", "21", "5", "0"});
  EXPECT_THAT(entry.index, ElementsAre(0, kNotChosen, kNotChosen, 0));
  EXPECT_EQ(MissingChoice(entry), LoadCases);
  EXPECT_EQ(NotChosenMessage(ControlChoiceOf(LoadCases).title), "最大荷重ケースの入力は省略できません！！！");
  EXPECT_EQ(MissingChoice(ControlOfCells({"4", "1", "0", "0"})), Model);
  EXPECT_EQ(MissingChoice(ControlOfCells({"40000", "1", "0", "0"})), Model);
  EXPECT_EQ(MissingChoice(ControlOfCells({"1", "1", "0", "1"})), std::nullopt);
}

TEST(Control, APlaneGridHasNoInclinedRollers) {
  ControlEntry entry = ControlOfCells({"1", "1", "0", "1"});
  EXPECT_TRUE(MayChooseRollers(entry));
  Choose(entry, Model, 2);
  EXPECT_FALSE(MayChooseRollers(entry));
  EXPECT_EQ(entry[Rollers], 0);
  Choose(entry, Model, 0);
  EXPECT_TRUE(MayChooseRollers(entry));
  EXPECT_EQ(entry[Rollers], 0);
  EXPECT_EQ(ControlOfCells({"3", "1", "0", "1"})[Rollers], 0);
}

TEST(Control, NotesFollowModelAndRollers) {
  ControlEntry entry = ControlOfCells({"3", "1", "0", "0"});
  EXPECT_EQ(ModelNote(entry), "平面格子梁解析の時は、傾斜ローラデータ、および\n強制変位データは扱いません");
  EXPECT_EQ(LoadNote(entry), "");
  Choose(entry, Model, 1);
  EXPECT_EQ(ModelNote(entry), "傾斜ローラ有りの場合は、フレーム倍率データは扱いません");
  Choose(entry, Rollers, 1);
  EXPECT_EQ(LoadNote(entry), "傾斜ローラ有りの場合は、剛性割増データは扱いません");
}

TEST(Control, TablesWaitForModelAndCases) {
  ControlEntry entry;
  EXPECT_FALSE(TablesCanBeEntered(entry));
  Choose(entry, Model, 0);
  EXPECT_FALSE(TablesCanBeEntered(entry));
  Choose(entry, LoadCases, 0);
  EXPECT_TRUE(TablesCanBeEntered(entry));
}

TEST_F(SmallFormsTest, ANewModelShowsItsDefaultControlDataAndUnits) {
  InitModelDefaults();
  EXPECT_THAT(LoadControl().index, ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(LoadUnit(), UnitOfCells({"1", "1", "9.80665", "0"}));
  EXPECT_FALSE(HasTable("CONT"));
  EXPECT_TRUE(HasTable("UNIT"));
}

TEST_F(SmallFormsTest, SavedControlDataStandInTableAndHeader) {
  SaveControl(ControlOfCells({"2", "12", "1", "1"}));
  EXPECT_EQ(ReadTable("CONT"), "2,12,1,1\n");
  EXPECT_EQ(InpModel.ModelCode, kSameDisplacementFrame);
  EXPECT_EQ(InpModel.MaxLoadCase, 12);
  EXPECT_EQ(InpModel.ListFlag, 1);
  EXPECT_EQ(InpModel.RollerFlag, 1);
  EXPECT_TRUE(ModelChanged);
  EXPECT_EQ(LoadControl(), ControlOfCells({"2", "12", "1", "1"}));
}

TEST_F(SmallFormsTest, TheHeaderTakesOnlyWhatIsChosen) {
  InpModel.MaxLoadCase = 7;
  ControlEntry entry;
  Choose(entry, Model, 2);
  TakeControl(entry);
  EXPECT_EQ(InpModel.ModelCode, kPlaneGrid);
  EXPECT_EQ(InpModel.MaxLoadCase, 7);
}

TEST_F(SmallFormsTest, AnotherNumberOfCasesDropsTheResultFilesAndNothingElse) {
  for (const char* const file : {"FT021", "FT022", "FT022A", "ft031", "DSNS", "SIG_S", "XFT1"})
    Write(AnalysisPath + file, "1\n");
  EXPECT_TRUE(DropResultsOfOtherCases());
  for (const char* const file : {"FT021", "FT022", "FT022A", "ft031"})
    EXPECT_FALSE(FileExists(AnalysisPath + file));
  for (const char* const file : {"DSNS", "SIG_S", "XFT1"}) EXPECT_TRUE(FileExists(AnalysisPath + file));
  EXPECT_FALSE(DropResultsOfOtherCases());
  AnalysisPath = Root() + "nowhere/";
  EXPECT_FALSE(DropResultsOfOtherCases());
}

TEST_F(SmallFormsTest, ResultsOfOtherCasesThatCannotBeLookedForAreTold) {
  LinkToItself(Root() + "loop");
  AnalysisPath = Root() + "loop/";
  EXPECT_THAT(test::FaultOf([] { DropResultsOfOtherCases(); }), testing::HasSubstr(AnalysisPath));
}

TEST_F(SmallFormsTest, FewerCasesCutTheElementLoadsAtTheFirstRowBeyondThem) {
  WriteTable("ELOD", "1,1,2,0,0,1,0\n2,1,2,0,0,1,0\n3,1,2,0,0,1,0\n1,9,9,0,0,1,0\n");
  WriteTable("PLOD", "3,1,1,0,0\n");
  CutElementLoads(2);
  EXPECT_EQ(ReadTable("ELOD"), "1,1,2,0,0,1,0\n2,1,2,0,0,1,0\n");  // from that row on, whatever follows
  EXPECT_EQ(ReadTable("PLOD"), "3,1,1,0,0\n");
  CutElementLoads(1);
  EXPECT_EQ(ReadTable("ELOD"), "1,1,2,0,0,1,0\n");
}

TEST_F(SmallFormsTest, ElementLoadsOfTooHighCasesAloneLeaveNoTable) {
  WriteTable("ELOD", "5,1,2,0,0,1,0\n");
  CutElementLoads(2);
  EXPECT_FALSE(HasTable("ELOD"));
}

TEST_F(SmallFormsTest, ElementLoadsWithinTheCasesStayToTheByte) {
  WriteTable("ELOD", "2,1,.5,0,0,1,0,,\n1,1,2\n");
  CutElementLoads(2);
  EXPECT_EQ(ReadTable("ELOD"), "2,1,.5,0,0,1,0,,\n1,1,2\n");
}

// Units

TEST(Unit, TheForceUnitsFollowTheOutputUnits) {
  EXPECT_THAT(UnitChoiceOf(UnitField::Force, 0).choices,
              ElementsAre(" T（軸力、せん断力） ,  T・M（モーメント）",
                          "kg（軸力、せん断力） , kg・M（モーメント）"));
  EXPECT_THAT(UnitChoiceOf(UnitField::Force, 1).choices,
              ElementsAre("kN（軸力、せん断力） , kN・M（モーメント）",
                          " N（軸力、せん断力） ,  N・M（モーメント）"));
  EXPECT_THAT(UnitChoiceOf(UnitField::Input, 1).choices, ElementsAre("0：工学単位", "1：ＳＩ単位"));
}

TEST(Unit, AFactorLeftAtZeroOrMissingInTheTableMeansStandardGravity) {
  EXPECT_EQ(CellsOfUnit(UnitOfCells({"0", "1", "0", "1"})), (Cells{"0", "1", "9.80665", "1"}));
  EXPECT_EQ(CellsOfUnit(UnitOfCells({"0", "1"})), (Cells{"0", "1", "9.80665", "0"}));
  EXPECT_EQ(CellsOfUnit(UnitOfCells({"0", "1", "9.8", "1"})), (Cells{"0", "1", "9.8", "1"}));
  EXPECT_EQ(FactorOf(UnitOfCells({"0", "1", "0.0", "1"})), 9.80665);
  EXPECT_EQ(FactorOf(UnitOfCells({"0", "1", "9.8", "1"})), 9.8);
}

TEST(Unit, AFieldLeftEmptyIsTold) {
  EXPECT_EQ(UnitFault(UnitOfCells({"2", "0", "0", "0"})), "入力単位の入力は省略できません！！！");
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "-1", "0", "0"})), "出力単位の入力は省略できません！！！");
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "1", "0", "2"})), "力の単位の入力は省略できません！！！");
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "1", "0", "1"})), "");
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "1"})), "") << "an old table without a factor";
  UnitEntry blank = UnitOfCells({"1", "1", "9.8", "1"});
  blank.factor = " ";
  EXPECT_EQ(UnitFault(blank), "ＳＩ単位変換係数の入力は省略できません！！！");
}

TEST(Unit, AFactorThatIsNoneIsTold) {
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "1", "-9.8", "0"})), "ＳＩ単位変換係数が入力範囲外です！！！");
  EXPECT_EQ(UnitFault(UnitOfCells({"1", "1", "1e999", "0"})), "ＳＩ単位変換係数が入力範囲外です！！！");
}

TEST_F(SmallFormsTest, SavedUnitsStandInTableAndHeader) {
  SaveUnit(UnitOfCells({"0", "1", "9.8", "1"}));
  EXPECT_EQ(ReadTable("UNIT"), "0,1,9.8,1\n");
  EXPECT_EQ(InpModel.InUnit, 0);
  EXPECT_EQ(InpModel.OutUnit, 1);
  EXPECT_EQ(InpModel.SIFactor, 9.8);
  EXPECT_EQ(InpModel.ForceUnit, 1);
  EXPECT_TRUE(ModelChanged);
}

TEST(AddNum, IsNamedByItsMode) {
  EXPECT_EQ(AddNumTitle("Add"), "加算");
  EXPECT_EQ(AddNumTitle(""), "一括代入");
  EXPECT_EQ(kCancelled, "Abote");
}

}  // namespace
}  // namespace zorlan

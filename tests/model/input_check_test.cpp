// The input check: each message with a model that provokes it, and with its nearest neighbours that don't.
// Every case compares the whole list, so a message that shows up anywhere else fails.
#include "model/input_check.h"

#include <map>

#include "model/deck.h"
#include "model/model_state.h"
#include "model/table_file.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

/// A sound same-displacement model with a row in every table; nodes 2 and 3 stand on springs in all
/// directions.
const std::map<std::string, std::string> kSoundTables = {
    {"TITL", "検査\n"},
    {"CONT", "2,2,0\n"},
    {"UNIT", "1,1,9.80665,0\n"},
    {"NODE", "1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2,0\n"},
    {"ELEM", "1,1,2,0,0,1\n2,2,3,0,0,1,1\n"},
    {"SECT", "1,0,100,1000,0,50,1,205000,79000\n"},
    {"PLOD", "1,3,10\n"},
    {"ELOD", "1,1,-10,0,0,1\n"},
    {"CLOD", "2,1,5\n"},
    {"TLOD", "2,1,20,30,10,0.000012,20\n"},
    {"RIGD", "1,0.1\n"},
    {"DISP", "1,2,3\n"},
    {"SPRG", "2,10,20,30\n"},
    {"SPEC", "1,1,0.1,0.2,0.3\n"},
    {"ALFA", "0,3,1.1\n"},
};

/// The sound model's deck with some of its tables replaced; an empty text leaves the table out.
std::string Deck(const std::map<std::string, std::string>& replaced) {
  std::string deck;
  for (const TableName& table : kTables) {
    const std::string key(table.key);
    const auto change = replaced.find(key);
    const auto sound = kSoundTables.find(key);
    const std::string rows = change != replaced.end()      ? change->second
                             : sound != kSoundTables.end() ? sound->second
                                                           : std::string();
    if (!rows.empty()) deck += SectionLine(table) + "\n" + rows + "\n";
  }
  return deck;
}

class InputCheckTest : public test::ModelFolderTest {
 protected:
  static std::string CheckDeck(const std::string& deck) {
    WriteDeck(deck);
    ReadDeck(DeckPath());
    return Read(WorkPath + "InputErr.txt");
  }
  static std::string Check(const std::map<std::string, std::string>& replaced) {
    return CheckDeck(Deck(replaced));
  }
};

struct CheckCase {
  const char* name;
  std::map<std::string, std::string> replaced;
  const char* messages;
};

void ExpectMessages(const CheckCase& c, const std::string& found) {
  EXPECT_EQ(found, c.messages) << c.name;
}

const CheckCase kFieldCounts[] = {
    {"a node of five fields",
     {{"NODE", "4,0,0,1,1\n1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n"}},
     "節点データ　　　　　： 節点データにエラー　　　　4,0,0,1,1\n"},
    {"a node of eight fields",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n4,0,0,1,1,1,30,5\n"}},
     "節点データ　　　　　： 節点データにエラー　　　　4,0,0,1,1,1,30,5\n"},
    {"a comma behind the seventh field",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n4,0,0,1,1,1,30,\n"}},
     "節点データ　　　　　： 節点データにエラー　　　　4,0,0,1,1,1,30,\n"},
    {"a comma behind the sixth field is a seventh",
     {{"NODE", "1,0,0,1,1,1,\n2,6,0,2,2,2\n3,6,4,2,2,2\n"}},
     ""},
    {"the line as it stands without its comment",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n  4, 0 ,0 % 隅柱\n"}},
     "節点データ　　　　　： 節点データにエラー　　　　4, 0 ,0\n"},
    {"an element of five fields",
     {{"ELEM", "1,1,2,0,0,1\n2,2,3,0,0\n"}},
     "要素データ　　　　　： 要素データにエラー　　　　2,2,3,0,0\n"},
    {"an element without the rigid-zone field", {{"ELEM", "1,1,2,0,0,1\n2,2,3,0,0,1\n"}}, ""},
    {"a section of eight fields",
     {{"SECT", "1,0,100,1000,0,50,1,205000,79000\n2,0,100,1000,0,50,1,205000\n"}},
     "断面性能データ　　　： 断面性能データにエラー　　2,0,100,1000,0,50,1,205000\n"},
    {"a section with the names of its timber", {{"SECT", "1,7,120,240,1.5,0,1,7000,0,梁,すぎ\n"}}, ""},
    {"a nodal load of two fields",
     {{"PLOD", "1,3\n"}},
     "節点荷重データ　　　： 節点荷重データにエラー　　1,3\n"},
    {"an element load of five fields",
     {{"ELOD", "1,1,-10,0,0\n"}},
     "部材荷重データ　　　： 部材荷重データにエラー　　1,1,-10,0,0\n"},
    {"a CMQ load of two fields",
     {{"CLOD", "1,1\n"}},
     "ＣＭＱ荷重データ　　： ＣＭＱ荷重データにエラー　1,1\n"},
    {"a temperature load of six fields",
     {{"TLOD", "1,1,20,30,10,0.00001\n"}},
     "温度荷重データ　　　： 温度荷重データにエラー　　1,1,20,30,10,0.00001\n"},
    {"a rigid zone of one field",
     {{"RIGD", "1,0.1,0.1\n2\n"}},
     "剛域データ　　　　　： 剛域データにエラー　　　　2\n"},
    {"a spring of one field", {{"SPRG", "2\n"}}, "支点ばねデータ　　　： 支点ばねデータにエラー　　2\n"},
    {"a forced displacement of one field",
     {{"SPEC", "1\n"}},
     "強制変位データ　　　： 強制変位データにエラー　　1\n"},
    {"a group of one field", {{"DISP", "1\n"}}, "同一変形データ　　　： 同一変形データにエラー　　1\n"},
    {"a magnification of two fields",
     {{"ALFA", "0,3\n"}},
     "フレーム倍率データ ： フレーム倍率データにエラー0,3\n"},
    {"a magnification with a field for a comment",
     {{"ALFA", "0,3,1.1,屋上\n"}},
     "フレーム倍率データ ： フレーム倍率データにエラー0,3,1.1,屋上\n"},
};

TEST_F(InputCheckTest, ARowWithAWrongNumberOfFieldsIsShownWithItsLine) {
  for (const CheckCase& c : kFieldCounts) ExpectMessages(c, Check(c.replaced));
}

const CheckCase kFirstPassCases[] = {
    {"end I is unknown",
     {{"ELEM", "1,1,2,0,0,1\n5,9,3,0,0,1\n"}},
     "要素データ　要素番号 5： 指定の節点番号(9)が存在しません \n"},
    {"end J is unknown",
     {{"ELEM", "1,1,2,0,0,1\n5,3,9,0,0,1\n"}},
     "要素データ　要素番号 5： 指定の節点番号(9)が存在しません \n"},
    {"with both ends unknown only I is named",
     {{"ELEM", "1,1,2,0,0,1\n5,8,9,0,0,1\n"}},
     "要素データ　要素番号 5： 指定の節点番号(8)が存在しません \n"},
    {"an element from a node to itself",
     {{"ELEM", "1,1,2,0,0,1\n2,3,3,0,0,1\n"}},
     "要素データ　　　　　： 部材長＝０です　　　　　　2,3,3,0,0,1\n"},
    {"two nodes at one place",
     {{"NODE", "1,6,4,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n"}, {"ELEM", "1,1,2,0,0,1\n2,1,3,0,0,1\n"}},
     "要素データ　　　　　： 部材長＝０です　　　　　　2,1,3,0,0,1\n"},
    {"an unknown node from and to gets the node's message alone",
     {{"ELEM", "1,1,2,0,0,1\n2,9,9,0,0,1\n"}},
     "要素データ　要素番号 2： 指定の節点番号(9)が存在しません \n"},
    {"a spring on an unknown node has that one message",
     {{"SPRG", "9,1,2,3\n"}},
     "支点ばねデータ　　　： 指定の節点が未定義エラー　　9,1,2,3\n"},
    {"a spring in X without its code",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,1,2,2\n3,6,4,2,2,2\n"}},
     "支点ばねデータ　　　： Ｘ方向バネ支持設定が未定義エラー　　2,10,20,30\n"},
    {"a spring in Y without its code",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,0,2\n3,6,4,2,2,2\n"}},
     "支点ばねデータ　　　： Ｙ方向バネ支持設定が未定義エラー　　2,10,20,30\n"},
    {"a rotational spring without its code",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,2,4\n3,6,4,2,2,2\n"}},
     "支点ばねデータ　　　： 回転バネ支持設定が未定義エラー　　2,10,20,30\n"},
    {"all three in their order",
     {{"SPRG", "1,10,20,30\n"}},
     "支点ばねデータ　　　： Ｘ方向バネ支持設定が未定義エラー　　1,10,20,30\n支点ばねデータ　　　： Ｙ方向バネ支持設定が未定義エラー　　1,10,20,30\n支点ばねデータ　　　： 回転バネ支持設定が未定義エラー　　1,10,20,30\n"},
    {"springs of 0 need no code", {{"SPRG", "1,0,0,0\n1,,\n"}}, ""},
    {"a forced displacement of an unknown node",
     {{"SPEC", "9,1,0.1\n"}},
     "強制変位データ　　　： 指定の節点が未定義エラー　　9,1,0.1\n"},
    {"each missing node of a group",
     {{"DISP", "1,8,3,9,8\n"}},
     "同一変形データ　　　　　： 指定の節点番号(8)が存在しません\n同一変形データ　　　　　： 指定の節点番号(9)が存在しません\n同一変形データ　　　　　： 指定の節点番号(8)が存在しません\n"},
};

TEST_F(InputCheckTest, TheFirstPassTestsRowsAsTheyAreRead) {
  for (const CheckCase& c : kFirstPassCases) ExpectMessages(c, Check(c.replaced));
}

const CheckCase kSecondPassCases[] = {
    {"a node number used three times gives one message",
     {{"NODE", "1,0,0,1,1,1\n2,6,0,2,2,2\n3,6,4,2,2,2\n3,7,4,0,0,0\n3,8,4,0,0,0\n"}},
     "節点データ　　　　　： 節点二重定義エラー　　節点番号＝3\n"},
    {"doubles come in ascending order",
     {{"NODE", "3,6,4,2,2,2\n1,0,0,1,1,1\n2,6,0,2,2,2\n3,7,4,0,0,0\n1,0,0,1,1,1\n"}},
     "節点データ　　　　　： 節点二重定義エラー　　節点番号＝1\n節点データ　　　　　： 節点二重定義エラー　　節点番号＝3\n"},
    {"an element number used twice",
     {{"ELEM", "1,1,2,0,0,1\n2,2,3,0,0,1,1\n2,1,3,0,0,1\n"}},
     "要素データ　　　　　： 要素二重定義エラー　　要素番号＝2\n"},
    {"an unknown section",
     {{"ELEM", "1,1,2,0,0,1\n2,2,3,0,0,5\n"}},
     "要素データ　　　　　： 指定の断面番号が未定義です　　　要素番号＝2　　断面番号＝5\n"},
    {"without any section no section is missed", {{"SECT", ""}}, ""},
    {"an unknown rigid zone",
     {{"ELEM", "1,1,2,0,0,1\n2,2,3,0,0,1,7\n"}},
     "要素データ　要素番号 2： 指定の剛域番号(7)が存在しません \n"},
    {"without any rigid zone none is missed", {{"RIGD", ""}, {"ELEM", "1,1,2,0,0,1,7\n"}}, ""},
    {"section and rigid zone of each element in turn",
     {{"ELEM", "1,1,2,0,0,8,9\n2,2,3,0,0,8\n"}},
     "要素データ　　　　　： 指定の断面番号が未定義です　　　要素番号＝1　　断面番号＝8\n要素データ　要素番号 1： 指定の剛域番号(9)が存在しません \n要素データ　　　　　： 指定の断面番号が未定義です　　　要素番号＝2　　断面番号＝8\n"},
    {"a section number used twice",
     {{"SECT", "1,0,1,1,0,0,1,1,1\n1,0,1,1,0,0,1,1,1\n"}},
     "断面性能データ　　　： 断面性能二重定義エラー　　断面番号＝1\n"},
    {"a nodal load on an unknown node",
     {{"PLOD", "2,9,1\n"}},
     "節点荷重データ　　　： 未定義の節点に荷重入力があります　　荷重ケース番号=2   節点番号＝9\n"},
    {"a nodal load of a case above the last",
     {{"PLOD", "3,1,1\n"}},
     "節点荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=3\n"},
    {"an element load on an unknown element",
     {{"ELOD", "2,9,1,0,0,1\n"}},
     "要素荷重データ　　　： 未定義の要素に荷重入力があります　　荷重ケース番号=2   要素番号＝9\n"},
    {"an element load of a case above the last",
     {{"ELOD", "3,1,1,0,0,1\n"}},
     "要素荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=3\n"},
    {"an element load of case 0",
     {{"ELOD", "0,1,1,0,0,1\n"}},
     "要素荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=0\n"},
    {"a CMQ load on an unknown element",
     {{"CLOD", "2,9,1\n"}},
     "ＣＭＱ荷重データ　　： 未定義の要素にＣＭＱ荷重入力があります　　荷重ケース番号=2   要素番号＝9\n"},
    {"a CMQ load of a case above the last",
     {{"CLOD", "3,1,1\n"}},
     "ＣＭＱ荷重データ　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=3\n"},
    {"a CMQ load of case 0",
     {{"CLOD", "0,1,1\n"}},
     "ＣＭＱ荷重データ　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=0\n"},
    {"a temperature load on an unknown element",
     {{"TLOD", "2,9,20,30,10,0.00001,20\n"}},
     "温度荷重データ　　　： 未定義の要素に温度荷重入力があります　　荷重ケース番号=2   要素番号＝9\n"},
    {"a temperature load of a case above the last",
     {{"TLOD", "3,1,20,30,10,0.00001,20\n"}},
     "温度荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=3\n"},
    {"a temperature load of a case below 1",
     {{"TLOD", "-1,1,20,30,10,0.00001,20\n"}},
     "温度荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=-1\n"},
    {"the unknown number goes ahead of the case",
     {{"PLOD", "7,9,1\n"}, {"ELOD", "0,8,1,0,0,1\n"}},
     "節点荷重データ　　　： 未定義の節点に荷重入力があります　　荷重ケース番号=7   節点番号＝9\n節点荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=7\n要素荷重データ　　　： 未定義の要素に荷重入力があります　　荷重ケース番号=0   要素番号＝8\n要素荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=0\n"},
    {"without load cases every load is out of range",
     {{"CONT", "2,0,0\n"}, {"TLOD", ""}},
     "節点荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=1\n要素荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=1\nＣＭＱ荷重データ　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=2\n"},
};

TEST_F(InputCheckTest, TheSecondPassLooksOverTheWholeModel) {
  for (const CheckCase& c : kSecondPassCases) ExpectMessages(c, Check(c.replaced));
}

TEST_F(InputCheckTest, ASoundModelHasAnEmptyList) {
  EXPECT_EQ(Check({}), "");
  EXPECT_TRUE(FileExists(WorkPath + "InputErr.txt"));
}

TEST_F(InputCheckTest, AnEmptyModelHasAnEmptyList) {
  EXPECT_EQ(CheckDeck(""), "");
  EXPECT_TRUE(FileExists(WorkPath + "InputErr.txt"));
}

TEST_F(InputCheckTest, TheFirstPassComesInTheDecksOrderAheadOfTheSecond) {
  EXPECT_EQ(
      CheckDeck("@SPRG\n1\n@NODE\n1,0,0,0,0,0\n1,1,0,0,0,0\n2\n@RIGD\n3\n"),
      "支点ばねデータ　　　： 支点ばねデータにエラー　　1\n節点データ　　　　　： 節点データにエラー　　　　2\n剛域データ　　　　　： 剛域データにエラー　　　　3\n節点データ　　　　　： 節点二重定義エラー　　節点番号＝1\n");
}

TEST_F(InputCheckTest, EachCheckReplacesTheListOfTheOneBefore) {
  Check({{"PLOD", "1,3\n"}});
  EXPECT_EQ(Check({}), "");
}

TEST_F(InputCheckTest, AMissingDeckLeavesNoListOfTheOneBefore) {
  Check({{"PLOD", "1,3\n"}});
  ReadDeck(DataPath + "none.inp");
  EXPECT_FALSE(FileExists(WorkPath + "InputErr.txt"));
}

TEST_F(InputCheckTest, ThePlainReadingWritesNoList) {
  WriteDeck(Deck({{"PLOD", "1,3\n"}}));
  ReadDeck(DeckPath(), /*checkMode=*/false);
  EXPECT_FALSE(FileExists(WorkPath + "InputErr.txt"));
}

TEST_F(InputCheckTest, ARowThatFailsItsFieldCountIsDroppedInEitherMode) {
  WriteDeck(Deck({{"NODE", "1,0,0,1,1,1\n9,0,0\n2,6,0,2,2,2\n3,6,4,2,2,2\n"}, {"ALFA", "0,3,1.1,屋上\n"}}));
  for (const bool checkMode : {true, false}) {
    ReadDeck(DeckPath(), checkMode);
    EXPECT_EQ(CalcModel.NodeCount, 3) << checkMode;
    EXPECT_EQ(CalcModel.AlfaCount, 0) << checkMode;
  }
}

TEST_F(InputCheckTest, ASpringAgainstADirectionWithoutSpringCodeIsZeroedInEitherMode) {
  WriteDeck(Deck({{"NODE", "1,0,0,1,1,1\n2,6,0,1,2,0\n3,6,4,0,0,0\n"}, {"UNIT", "0,0,0,0\n"}}));
  for (const bool checkMode : {true, false}) {
    ReadDeck(DeckPath(), checkMode);
    ASSERT_EQ(CalcModel.SprgCount, 1) << checkMode;
    EXPECT_EQ(CalcModel.Sprg[1].K1, 0) << checkMode;
    EXPECT_EQ(CalcModel.Sprg[1].K2, 20) << checkMode;
    EXPECT_EQ(CalcModel.Sprg[1].K3, 0) << checkMode;
    EXPECT_EQ(InpModel.Sprg[1].K1, 0) << checkMode;
  }
}

TEST_F(InputCheckTest, ASpringOnAnUnknownNodeKeepsItsConstants) {
  Check({{"SPRG", "9,1,2,3\n"}, {"UNIT", "0,0,0,0\n"}});
  ASSERT_EQ(CalcModel.SprgCount, 1);
  EXPECT_EQ(CalcModel.Sprg[1].K3, 3);
}

TEST_F(InputCheckTest, NodesOfARowThatAddsToAGroupAreNotTested) {
  EXPECT_EQ(Check({{"DISP", "1,2,3\n1,8,9\n"}}), "");
  EXPECT_EQ(InpModel.Disp[1].count, 4);
}

TEST_F(InputCheckTest, AGroupsFieldCountIsTestedInTheSameDisplacementModelAlone) {
  for (const char* control : {"1,2,0\n", "3,2,0\n"}) {
    EXPECT_EQ(Check({{"CONT", control}, {"DISP", "1\n"}}), "") << control;
    EXPECT_EQ(InpModel.DispCount, 1) << control;
  }
  EXPECT_NE(Check({{"DISP", "1\n"}}), "");
}

TEST_F(InputCheckTest, AGroupsNodesAreTestedInEveryModel) {
  for (const char* control : {"1,2,0\n", "2,2,0\n", "3,2,0\n"})
    EXPECT_EQ(Check({{"CONT", control}, {"DISP", "1,9\n"}}),
              "同一変形データ　　　　　： 指定の節点番号(9)が存在しません\n")
        << control;
}

TEST_F(InputCheckTest, AForcedDisplacementIsNeverComparedWithTheNodesCodes) {
  EXPECT_EQ(Check({{"NODE", "1,0,0,0,0,0\n2,6,0,2,2,2\n3,6,4,2,2,2\n"}}), "");
}

TEST_F(InputCheckTest, ANodalLoadOfCaseZeroPassesUnlikeTheOtherLoads) {
  EXPECT_EQ(Check({{"PLOD", "0,1,1\n-5,1,1\n"}}), "");
}

TEST_F(InputCheckTest, AnElementWithAMissingNodeStaysARecordWithoutLength) {
  Check({{"ELEM", "1,1,9,0,0,1\n"}});
  ASSERT_EQ(InpModel.ElemCount, 1);
  EXPECT_EQ(InpModel.Elem[1].length, 0);
}

TEST_F(InputCheckTest, NodesBehindTheirElementsAreNotSeen) {
  EXPECT_EQ(CheckDeck("@ELEM\n1,1,2,0,0,1\n@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n"),
            "要素データ　要素番号 1： 指定の節点番号(1)が存在しません \n");
}

TEST_F(InputCheckTest, ANumberThatDoesNotFitEndsTheCheckWithItsLineAndKeepsWhatWasFound) {
  WriteDeck("@NODE\n1\n40000,0,0,0,0,0\n");
  EXPECT_THAT(test::FaultOf([] { ReadDeck(DeckPath()); }), testing::HasSubstr("（3行目）"));
  EXPECT_EQ(Read(WorkPath + "InputErr.txt"), "節点データ　　　　　： 節点データにエラー　　　　1\n");
}

TEST_F(InputCheckTest, AListThatCannotBeWrittenIsAFaultWithItsPath) {
  WriteDeck(Deck({}));
  WorkPath = BlockedFolder();
  EXPECT_THAT(test::FaultOf([] { ReadDeck(DeckPath()); }), testing::HasSubstr(WorkPath + "InputErr.txt"));
}

}  // namespace
}  // namespace zorlan

#include "model/deck.h"

#include <chrono>
#include <filesystem>

#include "model/model_state.h"
#include "model/table_file.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::FaultOf;
using testing::HasSubstr;

std::vector<std::string> FieldsOf(const std::string& line) {
  Fields fields;
  const int count = SplitFields(line, fields);
  std::vector<std::string> texts;
  for (int n = 1; n <= count; ++n) texts.emplace_back(fields[static_cast<std::size_t>(n)]);
  return texts;
}

TEST(SplitFields, CutsAtCommasAndTrims) {
  EXPECT_THAT(FieldsOf(" 1, 2.5 ,a b"), testing::ElementsAre("1", "2.5", "a b"));
  EXPECT_THAT(FieldsOf("1,,3"), testing::ElementsAre("1", "", "3"));
}

TEST(SplitFields, CountsATrailingComma) {
  EXPECT_THAT(FieldsOf("1,2,"), testing::ElementsAre("1", "2", ""));
}

TEST(SplitFields, FieldsBehindTheLastAreEmpty) {
  Fields fields;
  SplitFields("1,2,3,4", fields);
  ASSERT_EQ(SplitFields("7", fields), 1);
  EXPECT_EQ(fields[2], "");
  EXPECT_EQ(fields[kMaxFields], "");
}

TEST(SplitFields, OneHundredAndOneFieldsFitAndOneMoreIsAFault) {
  EXPECT_EQ(FieldsOf(std::string(100, ',')).size(), 101u);
  EXPECT_THAT(FaultOf([] { FieldsOf(std::string(101, ',')); }), HasSubstr("101"));
}

TEST(DeckLine, IsCutAtItsFirstPercentAndTrimmed) {
  EXPECT_EQ(DeckLine("  1,2 % a % b"), "1,2");
  EXPECT_EQ(DeckLine("@NODE   %節点データ"), "@NODE");
  EXPECT_EQ(DeckLine("% only a comment"), "");
  EXPECT_EQ(DeckLine(std::string_view("1\0\0", 3)), "1");
}

class DeckFileTest : public test::ModelFolderTest {};

TEST_F(DeckFileTest, SaveDeckJoinsTheTablesInTheirOrderWithTheirSectionLines) {
  for (const TableName& table : kTables) WriteTable(std::string(table.key), "1\n");
  SaveDeck();
  EXPECT_EQ(Read(DeckPath()), R"(@TITL   %タイトル
1

@SUBT   %サブタイトル
1

@CONT   %コントロールデータ
1

@UNIT   %単位
1

@NODE   %節点データ
1

@ELEM   %要素データ
1

@SECT   %断面性能データ
1

@PLOD   %節点荷重データ
1

@ELOD   %部材荷重データ
1

@CLOD   %ＣＭＱ荷重データ
1

@TLOD   %温度荷重データ
1

@RIGD   %剛域データ
1

@DISP   %同一変形グループデータ
1

@SPRG   %支点ばねデータ
1

@SPEC   %強制変位データ
1

@ALFA   %フレーム倍率データ
1

)");
}

TEST_F(DeckFileTest, SaveDeckLeavesOutATableWithoutAFile) {
  WriteTable("ALFA", "0,1,2\n");
  WriteTable("TITL", "題\n");
  SaveDeck();
  EXPECT_EQ(Read(DeckPath()), "@TITL   %タイトル\n題\n\n@ALFA   %フレーム倍率データ\n0,1,2\n\n");
}

TEST_F(DeckFileTest, SaveDeckWithoutTablesWritesAnEmptyDeck) {
  SaveDeck();
  EXPECT_EQ(ReadBytes(DeckPath()), "");
}

TEST_F(DeckFileTest, SaveDeckCopiesTheLinesByteForByte) {
  // A comment, an empty line, a code with a backslash as its second byte, NEC's own kanji, no end of line.
  const std::string lines = "1,2 % \x95\x5C\r\n\r\n\xED\x40,.5";
  ReplaceBytes(WorkPath + "NODE", lines);
  SaveDeck();
  EXPECT_THAT(ReadBytes(DeckPath()), testing::EndsWith("\r\n" + lines + "\r\n\r\n"));
}

TEST_F(DeckFileTest, SaveDeckKeepsTheTablesUnlessToldToDeleteThem) {
  WriteTable("TITL", "題\n");
  WriteTable("InputErr.txt", "");
  SaveDeck();
  EXPECT_TRUE(FileExists(WorkPath + "TITL"));
  SaveDeck(/*deleteTables=*/true);
  EXPECT_FALSE(FileExists(WorkPath + "TITL"));
  EXPECT_TRUE(FileExists(WorkPath + "InputErr.txt"));
}

TEST_F(DeckFileTest, SaveDeckWritesToAnotherPathOnDemand) {
  WriteTable("TITL", "題\n");
  SaveDeck(false, WorkPath + "TmpFile.inp");
  EXPECT_TRUE(FileExists(WorkPath + "TmpFile.inp"));
  EXPECT_FALSE(FileExists(DeckPath()));
}

TEST_F(DeckFileTest, AFailedSaveNamesThePathAndLosesNothing) {
  WriteTable("TITL", "題\n");
  const std::string path = BlockedFolder() + "model.inp";
  EXPECT_THAT(FaultOf([&] { SaveDeck(/*deleteTables=*/true, path); }), HasSubstr(path));
  EXPECT_TRUE(FileExists(WorkPath + "TITL"));
}

constexpr std::string_view kWhole =
    "@CONT   %コントロールデータ\n1,1,0\n\n@NODE   %節点データ\n1,0,0,1,1,1\n\n";

TEST_F(DeckFileTest, ADeckIsNotReplacedByWhatIsLeftOfAWorkFolderEmptiedByAnotherHand) {
  WriteDeck(kWhole);
  LoadDeck();
  RemoveFilesIn(WorkPath);
  const auto save = [](const std::string& path) {
    return FaultOf([&] { SaveDeck(/*deleteTables=*/false, path); });
  };
  for (const std::string& path : {std::string(), WorkPath + "TmpFile.inp", DataPath + "new.inp"}) {
    EXPECT_THAT(save(path), HasSubstr("コントロールデータ、節点データ")) << path;
    EXPECT_THAT(save(path), HasSubstr(WorkPath)) << path;
  }
  EXPECT_EQ(Read(DeckPath()), kWhole);
  EXPECT_FALSE(FileExists(DataPath + "new.inp"));
}

TEST_F(DeckFileTest, ACommittedTableThatHasVanishedIsMissedAndOneThatWasEmptiedIsNot) {
  WriteDeck(kWhole);
  LoadDeck();
  TableRows = {{"ELEM", {"1", "1", "2"}}};
  TableRowCount = 1;
  TableIO(/*write=*/true, "ELEM");
  RemoveFile(WorkPath + "ELEM");
  EXPECT_THAT(FaultOf([] { SaveDeck(); }), HasSubstr("要素データ"));
  TableRowCount = 0;
  TableIO(/*write=*/true, "ELEM");
  TableIO(/*write=*/true, "NODE");
  SaveDeck();
  EXPECT_EQ(Read(DeckPath()), "@CONT   %コントロールデータ\n1,1,0\n\n");
}

TEST_F(DeckFileTest, AModelWithoutTablesTakesNoDecksPlace) {
  WriteDeck(kWhole);
  EXPECT_THAT(FaultOf([] { SaveDeck(false, DeckPath()); }), HasSubstr("保存する表がありません"));
  EXPECT_EQ(Read(DeckPath()), kWhole);
}

TEST_F(DeckFileTest, TheDeckInHandIsNotReplacedByOneWithoutControlData) {
  WriteDeck(kWhole);
  WriteTable("TITL", "題\n");
  EXPECT_THAT(FaultOf([] { SaveDeck(); }), HasSubstr("コントロールデータがない"));
  EXPECT_EQ(Read(DeckPath()), kWhole);
  SaveDeck(false, DeckPath());  // under a name that the user was asked about
  EXPECT_EQ(Read(DeckPath()), "@TITL   %タイトル\n題\n\n");
}

TEST_F(DeckFileTest, AFileThatIsNoDeckIsNotReplacedUnderItsOwnName) {
  for (const std::string& bytes : {std::string("\x7F"
                                               "ELF\r\n@@@\xFE\0 ",
                                               12),
                                   std::string("\xEF\xBB\xBF@CONT\r\n1,1,0\r\n@NODE\r\n1\r\n"),
                                   std::string("\xFF\xFE@\0C\0O\0N\0T\0\r\0\n\0", 16)}) {
    ReplaceBytes(DeckPath(), bytes);
    WriteTable("CONT", "1,1,0\n");
    EXPECT_THAT(FaultOf([] { SaveDeck(); }), HasSubstr(DeckPath()));
    EXPECT_TRUE(ReadBytes(DeckPath()) == bytes);
  }
  ReplaceBytes(DeckPath(), "\r\n \x1A");
  SaveDeck();
  EXPECT_EQ(Read(DeckPath()), "@CONT   %コントロールデータ\n1,1,0\n\n") << "a blank file has nothing to lose";
}

TEST_F(DeckFileTest, ADeckThatStandsAsItIsSavedKeepsItsTime) {
  WriteTable("CONT", "1,1,0\n");
  SaveDeck();
  const std::filesystem::path deck(DeckPath());
  const auto before = std::filesystem::last_write_time(deck) - std::chrono::hours(1);
  std::filesystem::last_write_time(deck, before);
  SaveDeck();
  EXPECT_EQ(std::filesystem::last_write_time(deck), before);
  WriteTable("CONT", "1,2,0\n");
  SaveDeck();
  EXPECT_NE(std::filesystem::last_write_time(deck), before);
}

struct NoDeckCase {
  const char* name;
  std::string bytes;
  const char* why;  // a part of it
};

TEST(WhyNoDeck, TellsWhatAFileIsNot) {
  const NoDeckCase cases[] = {
      {"a deck", "@cont\r\n1,1,0\r\n", ""},
      {"a deck behind comments", "%old\n\n  @TITL %x\nA\n", ""},
      {"nothing", "", "空"},
      {"line ends", "\r\n\r\n", "空"},
      {"a letter", "拝啓\n@\n", "表"},
      {"an unknown section", "@NOTE\n1\n", "表"},
      {"UTF-16", std::string("\xFF\xFE@\0T\0", 6), "ＵＴＦ－１６"},
      {"UTF-16 without its mark", std::string("@\0T\0I\0", 6), "ＵＴＦ－１６"},
      {"UTF-16, high byte first", std::string("\xFE\xFF\0@\0T", 6), "ＵＴＦ－１６"},
      {"UTF-8", "@TITL   %タイトル\n題\n@CONT\n1\n", "ＵＴＦ－８です"},
      {"a deck with a closing byte", "@CONT\n1,1,0\n\x1A", ""},
      {"tables behind the closing byte alone", "A\n\x1A\n@CONT\n1\n", "表"},
      {"UTF-8 with its mark", "\xEF\xBB\xBF@TITL\n題\n@CONT\n1\n", "ＵＴＦ－８"},
  };
  for (const NoDeckCase& c : cases) {
    EXPECT_THAT(WhyNoDeck(c.bytes), HasSubstr(c.why)) << c.name;
    EXPECT_EQ(WhyNoDeck(c.bytes).empty(), *c.why == '\0') << c.name;
  }
}

TEST_F(DeckFileTest, LoadDeckSplitsADeckIntoTableFiles) {
  WriteDeck("@TITL   %タイトル\n事務所\n\n@NODE\n 1,0,0,1,1,1 \n2,6,0,0,0,0\n");
  LoadDeck();
  EXPECT_EQ(ReadTable("TITL"), "事務所\n");
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,1,1,1\n2,6,0,0,0,0\n");
  EXPECT_FALSE(FileExists(WorkPath + "ELEM"));
}

TEST_F(DeckFileTest, LoadDeckRemovesTheTablesOfAFormerModel) {
  WriteTable("ALFA", "0,1,2\n");
  WriteDeck("@TITL\n題\n");
  LoadDeck();
  EXPECT_FALSE(FileExists(WorkPath + "ALFA"));
}

TEST_F(DeckFileTest, LoadDeckOfAMissingDeckLeavesNoTables) {
  WriteTable("ALFA", "0,1,2\n");
  LoadDeck();
  EXPECT_TRUE(std::filesystem::is_empty(WorkPath));
}

TEST_F(DeckFileTest, ASectionLineInLowerCaseOpensTheTableInUpperCase) {
  WriteDeck("@node\n1,0,0,1,1,1\n");
  LoadDeck();
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,1,1,1\n");
}

TEST_F(DeckFileTest, ASectionWithoutLinesLeavesAnEmptyTableFile) {
  WriteDeck("@DISP\n\n@SPRG\n");
  LoadDeck();
  EXPECT_EQ(ReadBytes(WorkPath + "DISP"), "");
  EXPECT_EQ(ReadBytes(WorkPath + "SPRG"), "");
}

TEST_F(DeckFileTest, ASectionThatComesAgainStartsItsTableAnew) {
  WriteDeck("@NODE\n1,0,0,0,0,0\n@TITL\n題\n@NODE\n2,0,0,0,0,0\n");
  LoadDeck();
  EXPECT_EQ(ReadTable("NODE"), "2,0,0,0,0,0\n");
}

TEST_F(DeckFileTest, CommentsAreLostWhenADeckIsSplitAndATitleWithThem) {
  WriteDeck("%head\n@TITL\n荷重 50% 増し\n@NODE\n1,0,0,1,1,1 %corner\n");
  LoadDeck();
  EXPECT_EQ(ReadTable("TITL"), "荷重 50\n");
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,1,1,1\n");
}

TEST_F(DeckFileTest, LinesAheadOfTheFirstSectionAreDropped) {
  WriteDeck("1,2,3\n@TITL\n題\n");
  LoadDeck();
  EXPECT_EQ(ReadTable("TITL"), "題\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(WorkPath), {}), 1);
}

TEST_F(DeckFileTest, WhatClosesADeckOfAnOlderSystemIsNoRow) {
  ReplaceBytes(DeckPath(), "@NODE\r\n1,0,0,1,1,1\r\n\x1A");
  LoadDeck();
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,1,1,1\n");
  ReadDeck(DeckPath(), /*checkMode=*/true);
  EXPECT_EQ(Read(WorkPath + "InputErr.txt"), "");
  ReplaceBytes(WorkPath + "NODE", "1,0,0,1,1,1\r\n\x1A\r\n");
  WriteTable("ELEM", "1,1,2,0,0,1\n");
  SaveDeck();
  EXPECT_EQ(Read(DeckPath()), "@NODE   %節点データ\n1,0,0,1,1,1\n\n@ELEM   %要素データ\n1,1,2,0,0,1\n\n");
}

TEST_F(DeckFileTest, EveryOneOfManySectionsIsATable) {
  std::string deck;
  for (int n = 0; n < 20000; ++n) deck += "@X" + std::to_string(n % 10000) + "\n" + std::to_string(n) + "\n";
  const std::vector<DeckTable> tables = SplitDeck(deck);
  ASSERT_EQ(tables.size(), 10000u);
  EXPECT_EQ(tables[77].name, "X77");
  EXPECT_EQ(tables[77].text, "10077\r\n");
  EXPECT_EQ(tables[77].earlier, "77\r\n");
  EXPECT_EQ(tables[77].sections, 2);
}

TEST_F(DeckFileTest, ASectionNameNeverLeadsOutOfTheWorkFolder) {
  WriteDeck("@../DATA/EVIL\n1\n@..\n1\n@\n1\n@A/B\n1\n@" + std::string(300, 'A') + "\n1\n@TITL\n題\n");
  LoadDeck();
  EXPECT_FALSE(FileExists(DataPath + "EVIL"));
  EXPECT_EQ(ReadTable("TITL"), "題\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(WorkPath), {}), 1);
}

TEST_F(DeckFileTest, ASectionNameWithControlCharactersIsSkipped) {
  using std::string_literals::operator""s;
  ReplaceBytes(DeckPath(), "@N\0ODE\r\n1\r\n@A\x07\r\n1\r\n@TITL\r\nA\r\n"s);
  LoadDeck();
  EXPECT_EQ(ReadTable("TITL"), "A\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(WorkPath), {}), 1);
}

TEST_F(DeckFileTest, ASavedDeckLoadedAndSavedAgainIsTheSameBytes) {
  for (const TableName& table : kTables) WriteTable(std::string(table.key), "1,.5,,表ソ能,-2.50\n2\n");
  SaveDeck();
  const std::string first = ReadBytes(DeckPath());
  LoadDeck();
  SaveDeck();
  EXPECT_EQ(ReadBytes(DeckPath()), first);
}

TEST_F(DeckFileTest, ADeckWithOtherLineEndsIsReadTheSame) {
  ReplaceBytes(DeckPath(), "@TITL\nA\n@NODE\r1,0,0,1,1,1\r2,6,0,0,0,0");
  LoadDeck();
  EXPECT_EQ(ReadTable("TITL"), "A\n");
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,1,1,1\n2,6,0,0,0,0\n");
}

TEST_F(DeckFileTest, ABinaryDeckLeavesNoTablesAndDoesNoHarm) {
  ReplaceBytes(DeckPath(), std::string("\x7F"
                                       "ELF\x02\x01\0\0\x81\xFF\r@@@\xFE",
                                       16));
  EXPECT_EQ(FaultOf([] { LoadDeck(); }), "");
  EXPECT_FALSE(FileExists(WorkPath + "NODE"));
}

TEST_F(DeckFileTest, AWorkFolderThatCannotBeWrittenIsAFaultWithThePath) {
  WriteDeck("@TITL\n題\n");
  WorkPath = BlockedFolder();
  EXPECT_THAT(FaultOf([] { LoadDeck(); }), HasSubstr(WorkPath + "TITL"));
}

TEST_F(DeckFileTest, ATableThatCannotBeWrittenLeavesNoHalfModelBehind) {
  WriteDeck("@TITL\n題\n@NODE\n1,0,0,1,1,1\n");
  MakeFolder(WorkPath + "NODE");  // a file can't take the name of a folder
  EXPECT_THAT(FaultOf([] { LoadDeck(); }), HasSubstr(WorkPath + "NODE"));
  EXPECT_FALSE(FileExists(WorkPath + "TITL"));
}

}  // namespace
}  // namespace zorlan

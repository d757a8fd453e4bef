#include "model/table_file.h"

#include "model/model_state.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct LineCase {
  const char* name;
  const char* line;
  std::vector<std::string> cells;
};

const LineCase kLineCases[] = {
    {"cells are as wide as their text", "1,12.5,ABC", {"1", "12.5", "ABC"}},
    {"blanks around a cell go", "  1 , 2\t,3 ", {"1", "2", "3"}},
    {"blanks inside a cell stay", "a b,2階 柱", {"a b", "2階 柱"}},
    {"two commas have an empty cell between them", "1,,3", {"1", "", "3"}},
    {"a cell of blanks is empty", "1,   ,3", {"1", "", "3"}},
    {"behind a closing comma stands an empty cell", "1,2,", {"1", "2", ""}},
    {"a line without text is one empty cell", "", {""}},
    {"a bare point gets its 0", ".5,-.5,.05E2", {"0.5", "-0.5", "0.05E2"}},
    {"a point and zeros stay as they are", ".0,-.0,.,-.", {".0", "-.0", ".", "-."}},
    {"a number in front of the point stays", "0.5,-0.5,+.5", {"0.5", "-0.5", "+.5"}},
    {"a word behind a point isn't a number", ".abc", {".abc"}},
    {"a comment becomes a cell", "1,%note, more", {"1", "note, more"}},
    {"a line that is a comment is one cell", "%note", {"note"}},
    {"a percent sign behind blanks belongs to its cell", "1, %note,2", {"1", "%note", "2"}},
    {"a percent sign inside a cell belongs to it", "10%,2", {"10%", "2"}},
    {"ten blanks end the row without a cell", "1,          ,3", {"1"}},
    {"nine blanks are an empty cell", "1,         ,3", {"1", "", "3"}},
    {"ten blanks inside a cell cut it and the row goes on", "abc          def,2", {"abc", "2"}},
    {"ten blanks behind a cell do no harm", "1,2          ", {"1", "2"}},
};

TEST(ParseTable, CutsALineIntoCells) {
  for (const LineCase& c : kLineCases) {
    const std::vector<TableRow> rows = ParseTable("NODE", c.line + std::string("\r\n"));
    ASSERT_EQ(rows.size(), 1u) << c.name;
    EXPECT_EQ(rows[0].cells, c.cells) << c.name;
    EXPECT_EQ(rows[0].key, "NODE") << c.name;
  }
}

TEST(ParseTable, ARowOfTenBlanksYieldsNoRow) {
  EXPECT_TRUE(ParseTable("NODE", "          \r\n").empty());
  EXPECT_EQ(ParseTable("NODE", "1\r\n          ,2,3\r\n4\r\n").size(), 2u);
}

TEST(ParseTable, TheLastLineNeedsNoEnd) {
  EXPECT_EQ(ParseTable("NODE", "1\r\n2").size(), 2u);
}

TEST(TableText, JoinsCellsWithoutTrailingCommas) {
  EXPECT_EQ(TableText({{"NODE", {"1", "", "3", "", ""}}}, 1), "1,,3\r\n");
  EXPECT_EQ(TableText({{"NODE", {" 1 ", std::string("2\0\0", 3), "3 "}}}, 1), "1,2,3\r\n");
  EXPECT_EQ(TableText({{"NODE", {"", "2"}}}, 1), ",2\r\n");
}

TEST(TableText, ARowOfEmptyCellsIsAnEmptyLine) {
  EXPECT_EQ(TableText({{"NODE", {"", "", ""}}, {"NODE", {"1"}}}, 2), "\r\n1\r\n");
}

TEST(TableText, WritesOnlyTheRowsInUse) {
  EXPECT_EQ(TableText({{"NODE", {"1"}}, {"NODE", {"2"}}}, 1), "1\r\n");
}

class TableIOTest : public test::ModelFolderTest {};

TEST_F(TableIOTest, ReadsATableIntoTheBuffer) {
  WriteTable("TITL", "三階建て事務所\n");
  TableIO(/*write=*/false, "TITL");
  ASSERT_EQ(TableRowCount, 1);
  EXPECT_THAT(TableRows[0].cells, ElementsAre("三階建て事務所"));
}

TEST_F(TableIOTest, AMissingFileIsATableWithoutRows) {
  TableRows = {{"NODE", {"1"}}};
  TableRowCount = 1;
  TableIO(/*write=*/false, "ELEM");
  EXPECT_EQ(TableRowCount, 0);
}

TEST_F(TableIOTest, ATableWrittenWithoutRowsHasNoFile) {
  WriteTable("ALFA", "0,1,2\n");
  TableRowCount = 0;
  TableIO(/*write=*/true, "ALFA");
  EXPECT_FALSE(FileExists(WorkPath + "ALFA"));
  TableIO(/*write=*/true, "ALFA");  // and none to remove is no fault
}

TEST_F(TableIOTest, FilesAreInTheCodePageWithCrLf) {
  TableRows = {{"TITL", {"表"}}};
  TableRowCount = 1;
  TableIO(/*write=*/true, "TITL");
  EXPECT_EQ(ReadBytes(WorkPath + "TITL"), "\x95\x5C\r\n");
}

TEST_F(TableIOTest, ACommentGoesOutAsAnOrdinaryCell) {
  WriteTable("NODE", "1,0,0,%corner\n");
  TableIO(/*write=*/false, "NODE");
  TableIO(/*write=*/true, "NODE");
  EXPECT_EQ(ReadTable("NODE"), "1,0,0,corner\n");
}

TEST_F(TableIOTest, AFormSeesATitleUpToItsComma) {
  WriteTable("TITL", "事務所, 増築\n");
  TableIO(/*write=*/false, "TITL");
  EXPECT_EQ(TableRows[0].cells[0], "事務所");
}

TEST_F(TableIOTest, WhatWasReadAndWrittenReadsTheSameAgain) {
  WriteTable("ELOD", "1,5,-.5,0,,1\n1,6,2\n\n,,x\n");
  TableIO(/*write=*/false, "ELOD");
  TableIO(/*write=*/true, "ELOD");
  EXPECT_EQ(ReadTable("ELOD"), "1,5,-0.5,0,,1\n1,6,2\n\n,,x\n");
}

TEST_F(TableIOTest, ACharacterOutsideTheCodePageIsNamedAndTheOldTableStays) {
  WriteTable("TITL", "旧題\n");
  TableRows = {{"TITL", {"10 m²"}}};
  TableRowCount = 1;
  EXPECT_THAT(test::FaultOf([] { TableIO(/*write=*/true, "TITL"); }), HasSubstr("²"));
  EXPECT_EQ(ReadTable("TITL"), "旧題\n");
}

TEST_F(TableIOTest, AWorkFolderThatCannotBeWrittenIsAFaultWithThePath) {
  WorkPath = BlockedFolder();
  TableRows = {{"TITL", {"題"}}};
  TableRowCount = 1;
  EXPECT_THAT(test::FaultOf([] { TableIO(/*write=*/true, "TITL"); }), HasSubstr(WorkPath + "TITL"));
}

TEST_F(TableIOTest, AHugeBinaryFileIsReadWithoutHarm) {
  std::string bytes;
  for (unsigned i = 0; i < 1U << 20U; ++i) bytes += static_cast<char>(i * 7919U >> 5U);
  ReplaceBytes(WorkPath + "NODE", bytes);
  TableIO(/*write=*/false, "NODE");
  EXPECT_GT(TableRowCount, 0);
}

}  // namespace
}  // namespace zorlan

#include "sections/steel_table_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>

namespace zorlan {
namespace {

using testing::ElementsAre;

std::string Name(SteelFamily family, std::vector<double> dimensions, double scale = 1) {
  dimensions.resize(kMaxSteelColumns);
  return SteelSectionName(family, dimensions, scale);
}

TEST(SteelSectionName, IsTheFamilyWordAndTheDimensionsOfItsKey) {
  EXPECT_EQ(Name(SteelFamily::H, {400, 200, 8, 13}), "H-400x200x8x13");
  EXPECT_EQ(Name(SteelFamily::Box, {200, 100, 6, 99}), "BOX-200x100x6");
  EXPECT_EQ(Name(SteelFamily::Pipe, {101.6, 4.2, 99, 99}), "PIPE-101.6x4.2");
  EXPECT_EQ(Name(SteelFamily::Channel, {100, 50, 5, 7.5}), "MIZO-100x50x5x7.5");
  EXPECT_EQ(Name(SteelFamily::Angle, {75, 75, 6, 8.5}), "YAMA-75x75x6x8.5");
}

TEST(SteelSectionName, KeepsAFractionAndDropsTrailingZeros) {
  EXPECT_EQ(Name(SteelFamily::Pipe, {8.0, 5.5}), "PIPE-8x5.5");
  EXPECT_EQ(Name(SteelFamily::Pipe, {0, 0.25}), "PIPE-0x0.25");
  EXPECT_EQ(Name(SteelFamily::Pipe, {-8, 12.345}), "PIPE--8x12.345");
  EXPECT_EQ(Name(SteelFamily::Pipe, {1.0 / 3, 2e15}), "PIPE-0.333333333333333x2e+15");
  EXPECT_EQ(Name(SteelFamily::Pipe, {12345678.9, 0.001}), "PIPE-12345678.9x0.001");
}

TEST(SteelSectionName, IsTheSameForMetresAndMillimetres) {
  EXPECT_EQ(Name(SteelFamily::H, {0.4, 0.2, 0.008, 0.013}, 1000), "H-400x200x8x13");
  for (int hundredths = 1; hundredths < 200000; hundredths += 7) {  // to 2 m, so that rounding errors occur
    std::string expected = std::to_string(hundredths / 100);
    if (const int rest = hundredths % 100; rest != 0) {
      expected += rest < 10 ? ".0" : ".";
      expected += std::to_string(rest % 10 == 0 ? rest / 10 : rest);
    }
    const double metres = hundredths / 100000.0;
    ASSERT_EQ(Name(SteelFamily::Pipe, {metres, hundredths / 100.0 / 1000}, 1000),
              "PIPE-" + expected + "x" + expected);
  }
}

TEST(SteelFamilies, EachColumnOfEachFamilyHasItsPlace) {
  const std::size_t columns[] = {12, 10, 6, 14, 19};
  for (std::size_t i = 0; i < kSteelFamilies; ++i)
    EXPECT_EQ(FormOf(static_cast<SteelFamily>(i)).columns.size(), columns[i]);
}

TEST(SteelFamilies, WordsOfWeakAxisSectionsMeanTheFamily) {
  EXPECT_EQ(FamilyOf("H"), SteelFamily::H);
  EXPECT_EQ(FamilyOf("YH"), SteelFamily::H);
  EXPECT_EQ(FamilyOf("YBOX"), SteelFamily::Box);
  EXPECT_EQ(FamilyOf("YMIZO"), SteelFamily::Channel);
  EXPECT_EQ(FamilyOf("YAMA"), SteelFamily::Angle);
  EXPECT_EQ(FamilyOf("YYAMA"), SteelFamily::Angle);
  EXPECT_EQ(FamilyOf("AMA"), std::nullopt);
  EXPECT_EQ(FamilyOf(""), std::nullopt);
  EXPECT_EQ(FamilyOf("Y"), std::nullopt);
}

std::vector<std::string> Names(const std::vector<SteelRow>& rows) {
  std::vector<std::string> names;
  for (const SteelRow& row : rows) names.push_back(row.name);
  return names;
}

constexpr std::string_view kHead = "a\r\nb\r\nc\r\n";

TEST(ParseSteelRows, SkipsThreeLinesAndReadsTheRest) {
  const std::vector<SteelRow> rows =
      ParseSteelRows(SteelFamily::Pipe, std::string(kHead) + "21.7,2,1.238,0.607,0.700,0.559\r\n");
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].name, "PIPE-21.7x2");
  EXPECT_THAT(std::vector(rows[0].values.begin(), rows[0].values.begin() + 7),
              ElementsAre(21.7, 2, 1.238, 0.607, 0.7, 0.559, 0));
}

TEST(ParseSteelRows, ALineWhoseFirstFieldIsZeroEndsThem) {
  for (const char* end : {"0,1\r\n", "\r\n", ",5\r\n", "x\r\n", "0.0\r\n", "\x1A"})
    EXPECT_THAT(Names(ParseSteelRows(SteelFamily::Pipe, std::string(kHead) + "10,1\r\n" + end + "20,2\r\n")),
                ElementsAre("PIPE-10x1"))
        << end;
}

TEST(ParseSteelRows, CutsTheDecimalsOfAnHFilletOff) {
  EXPECT_EQ(ParseSteelRows(SteelFamily::H, std::string(kHead) + "100,50,5,7,8.9,12")[0].values[4], 8);
  EXPECT_EQ(ParseSteelRows(SteelFamily::H, std::string(kHead) + "100,50,5,7,40000,12")[0].values[4], 0);
  EXPECT_EQ(ParseSteelRows(SteelFamily::Angle, std::string(kHead) + "75,75,6,8.5,4,8")[0].values[3], 8.5);
}

TEST(ParseSteelRows, ReadsAnyLineEndsAndBlanksAroundValues) {
  EXPECT_THAT(Names(ParseSteelRows(SteelFamily::Pipe, "a\nb\nc\n 10 , 1 ,3\n20,2")),
              ElementsAre("PIPE-10x1", "PIPE-20x2"));
}

TEST(ParseSteelRows, TakesAnythingForAFileWithoutFalling) {
  EXPECT_TRUE(ParseSteelRows(SteelFamily::H, "").empty());
  EXPECT_TRUE(ParseSteelRows(SteelFamily::H, "one line").empty());
  EXPECT_TRUE(ParseSteelRows(SteelFamily::H, std::string(kHead)).empty());
  EXPECT_THAT(Names(ParseSteelRows(SteelFamily::H, std::string(kHead) + "400")), ElementsAre("H-400x0x0x0"));
  EXPECT_THAT(Names(ParseSteelRows(SteelFamily::H, std::string(kHead) + "1e999,-1")),
              ElementsAre("H-infx-1x0x0"));
  std::string binary(kHead);
  for (int i = 0; i < 100000; ++i) binary += static_cast<char>(i * 7919 % 251);
  for (std::size_t i = 0; i < kSteelFamilies; ++i) {
    EXPECT_NO_THROW(ParseSteelRows(static_cast<SteelFamily>(i), binary));
    EXPECT_NO_THROW(MergeSteelTables(static_cast<SteelFamily>(i), binary, binary));
  }
}

std::string Merged(std::string_view mainRows, std::string_view supplementRows) {
  return MergeSteelTables(SteelFamily::Pipe, std::string(kHead) + std::string(mainRows),
                          "x\r\ny\r\nz\r\n" + std::string(supplementRows))
      .bytes;
}

TEST(MergeSteelTables, OverwritesARowOfTheSameNameInAllItsColumns) {
  EXPECT_EQ(Merged("10,1,1,1,1,1\r\n20,2,2,2,2,2\r\n", "10,1,5,6,7\r\n"),
            std::string(kHead) + "10,1,5,6,7,\r\n20,2,2,2,2,2\r\n");
}

TEST(MergeSteelTables, AppendsARowOfANewName) {
  EXPECT_EQ(Merged("10,1,1,1,1,1\r\n", "10,2,2,2,2,2\r\n5,1,3,3,3,3\r\n"),
            std::string(kHead) + "10,1,1,1,1,1\r\n10,2,2,2,2,2\r\n5,1,3,3,3,3\r\n");
}

TEST(MergeSteelTables, KnowsARowByItsNameAndNotByItsText) {
  EXPECT_EQ(Merged("8.0,1,1,1,1,1\r\n", "8,1.00,2,2,2,2\r\n"), std::string(kHead) + "8,1.00,2,2,2,2\r\n");
}

TEST(MergeSteelTables, OverwritesTheFirstOfTwoRowsOfOneName) {
  EXPECT_EQ(Merged("10,1,1,1,1,1\r\n10,1,2,2,2,2\r\n", "10,1,9,9,9,9\r\n"),
            std::string(kHead) + "10,1,9,9,9,9\r\n10,1,2,2,2,2\r\n");
}

TEST(MergeSteelTables, LaterRowsOfTheSupplementMeetItsEarlierOnes) {
  EXPECT_EQ(Merged("", "10,1,1,1,1,1\r\n10,1,2,2,2,2\r\n"), std::string(kHead) + "10,1,2,2,2,2\r\n");
}

TEST(MergeSteelTables, TrimsEveryValueAndKeepsHeadLinesAsTheyAre) {
  const std::string head = "  title \r\n,,\x83\x41,\r\n\r\n";  // a byte pair of code page 932 goes through
  EXPECT_EQ(MergeSteelTables(SteelFamily::Pipe, head + " 10 ,\t1, 1 ,1,1,1  \r\n", kHead).bytes,
            head + "10,1,1,1,1,1\r\n");
}

TEST(MergeSteelTables, RowsBehindAZeroAreNotReadAndStayInTheMainFile) {
  EXPECT_EQ(Merged("10,1,1,1,1,1\r\n0\r\n 20,2\n", "30,3,3,3,3,3\r\n0,\r\n40,4,4,4,4,4\r\n"),
            std::string(kHead) + "10,1,1,1,1,1\r\n30,3,3,3,3,3\r\n0\r\n 20,2\n");
}

TEST(MergeSteelTables, TellsHowManyRowsOfTheSupplementAreNotRead) {
  const auto unread = [](const char* rows) {
    return MergeSteelTables(SteelFamily::Pipe, std::string(kHead) + "10,1\r\n\r\n20,2\r\n",
                            std::string(kHead) + rows)
        .unread;
  };
  EXPECT_EQ(unread("30,3\r\n"), 0);
  EXPECT_EQ(unread("30,3\r\n\r\n40,4\r\n\r\n50,5\r\n"), 2);
  EXPECT_EQ(unread("30,3\r\n0,0\r\n"), 0);  // the line that ends them is no row
  EXPECT_EQ(unread("大,40,4\r\n"), 1);
}

TEST(UnreadSteelRows, AreThoseFromTheLineOnThatEndsTheTable) {
  const std::string head(kHead);
  EXPECT_EQ(UnreadSteelRows(""), 0);
  EXPECT_EQ(UnreadSteelRows(head + "10,1\r\n20,2\r\n"), 0);
  EXPECT_EQ(UnreadSteelRows(head + "10,1\r\n\r\n"), 0);
  EXPECT_EQ(UnreadSteelRows(head + "10,1\r\n0,0.0, 0\r\n,,,\r\n\x1A"), 0);
  EXPECT_EQ(UnreadSteelRows(head + "10,1\r\n\r\n20,2\r\n \r\n30,3"), 2);
  EXPECT_EQ(UnreadSteelRows(head + "10,1\r\n0,2\r\n"), 1);
}

TEST(MergeSteelTables, HoldsThreeThousandRowsAtMost) {
  std::string main(kHead), supplement(kHead);
  for (int i = 1; i <= 2999; ++i) main += std::to_string(i) + ",1,1,1,1,1\r\n";
  for (int i = 2999; i <= 3002; ++i) supplement += std::to_string(i) + ",1,2,2,2,2\r\n";
  const MergedSteelTable merged = MergeSteelTables(SteelFamily::Pipe, main, supplement);
  EXPECT_EQ(merged.rows, 3000);
  EXPECT_EQ(merged.withoutPlace, 2);  // 3001 and 3002
  const std::vector<SteelRow> rows = ParseSteelRows(SteelFamily::Pipe, merged.bytes);
  ASSERT_EQ(rows.size(), 3000U);
  EXPECT_EQ(rows[2998].values[2], 2);  // overwritten
  EXPECT_EQ(rows[2999].name, "PIPE-3000x1");
}

TEST(MergeSteelTables, OverwritesStillWhenTheTableIsFull) {
  std::string main(kHead);
  for (int i = 1; i <= 3001; ++i) main += std::to_string(i) + ",1,1,1,1,1\r\n";
  const MergedSteelTable merged =
      MergeSteelTables(SteelFamily::Pipe, main, std::string(kHead) + "5,1,2,2,2,2\r\n");
  EXPECT_EQ(merged.rows, 3000);
  EXPECT_EQ(merged.withoutPlace, 1);  // the last of the main file
  EXPECT_EQ(ParseSteelRows(SteelFamily::Pipe, merged.bytes)[4].values[2], 2);
}

}  // namespace
}  // namespace zorlan

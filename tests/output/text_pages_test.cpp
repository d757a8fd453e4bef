#include "output/text_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// "1\r\n2\r\n" ... up to `count`.
std::string Numbered(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + "\r\n";
  return text;
}

std::vector<std::string> Texts(const TextPage& page) {
  std::vector<std::string> texts;
  for (const PlacedLine& line : page.lines) texts.emplace_back(line.text);
  return texts;
}

// A4 upright: lines at 20, 23.7, ... mm; the text bottom is at 279. Line 70 stands at 275.3, and the next at
// 279.0 doesn't exceed it; line 71 is the last.
constexpr int kLinesOfA4 = 71;

TEST(PaperSize, KnowsTheSheetsOfBothSeries) {
  struct {
    const char* name;
    int width, height;
  } const cases[] = {
      {"A0", 841, 1189}, {"B0", 1030, 1456}, {"A1", 594, 841}, {"B1", 728, 1030}, {"A2", 420, 594},
      {"B2", 515, 728},  {"A3", 297, 420},   {"B3", 364, 515}, {"A4", 210, 297},  {"B4", 257, 364},
      {"A5", 148, 210},  {"B5", 182, 257},   {"A6", 105, 148}, {"B6", 128, 182},
  };
  for (const auto& paper : cases) {
    int width = 0, height = 0;
    EXPECT_TRUE(PaperSize(paper.name, width, height)) << paper.name;
    EXPECT_EQ(width, paper.width) << paper.name;
    EXPECT_EQ(height, paper.height) << paper.name;
  }
}

TEST(PaperSize, LeavesTheSizeAloneForAnUnknownName) {
  int width = 1, height = 2;
  EXPECT_FALSE(PaperSize("Letter", width, height));
  EXPECT_EQ(width, 1);
  EXPECT_EQ(height, 2);
}

TEST(TextPages, OneColumnHasLinesOf3_1MmWithAGapOf0_6FromTwentyMm) {
  const TextPages pages = LayOutTextPages("a\r\nb\r\n", {}, {});
  EXPECT_EQ(pages.width, 21000);
  EXPECT_EQ(pages.height, 29700);
  EXPECT_EQ(pages.fontHeight, 310);
  ASSERT_THAT(pages.pages, SizeIs(1));
  const std::vector<PlacedLine>& lines = pages.pages[0].lines;
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].x, 2000);
  EXPECT_EQ(lines[0].y, 2000);
  EXPECT_EQ(lines[0].width, 18000);
  EXPECT_EQ(lines[1].y, 2370);
}

TEST(TextPages, TwoColumnsStandSideBySideInSmallPrint) {
  PageSetup setup;
  setup.landscape = setup.twoColumns = true;
  // 210 mm high: the text bottom is at 192; lines every 2.4 mm from 20. Line 72 stands at 190.4, and the next
  // at 192.8 is below the bottom.
  constexpr int kLines = 72;
  const std::string text = Numbered(2 * kLines + 1);
  const TextPages pages = LayOutTextPages(text, {}, setup);
  EXPECT_EQ(pages.width, 29700);
  EXPECT_EQ(pages.fontHeight, 200);
  ASSERT_THAT(pages.pages, SizeIs(2));
  const std::vector<PlacedLine>& lines = pages.pages[0].lines;
  ASSERT_THAT(lines, SizeIs(2 * kLines));
  EXPECT_EQ(lines[1].y - lines[0].y, 240);
  EXPECT_EQ(lines[kLines - 1].x, 2000);
  EXPECT_EQ(lines[kLines - 1].y, 19040);
  EXPECT_EQ(lines[kLines].x, 29700 / 2 + 1000);
  EXPECT_EQ(lines[kLines].y, 2000);
  EXPECT_EQ(lines[kLines].width, 29700 / 2 - 2500);
  EXPECT_THAT(Texts(pages.pages[1]), ElementsAre("145"));
}

TEST(TextPages, APageIsFullWhenTheNextLineWouldStandBelowTheTextBottom) {
  EXPECT_THAT(LayOutTextPages(Numbered(kLinesOfA4), {}, {}).pages, SizeIs(1));
  const TextPages pages = LayOutTextPages(Numbered(kLinesOfA4 + 1), {}, {});
  ASSERT_THAT(pages.pages, SizeIs(2));
  EXPECT_THAT(pages.pages[0].lines, SizeIs(kLinesOfA4));
  EXPECT_EQ(pages.pages[1].lines[0].y, 2000);
}

TEST(TextPages, TheHeadingTakesTwoLinesOfTheFirstPageAlone) {
  const std::string text = Numbered(kLinesOfA4);
  const TextPages pages = LayOutTextPages(text, {"<<見出し>>", false}, {});
  ASSERT_THAT(pages.pages, SizeIs(2));
  const std::vector<PlacedLine>& lines = pages.pages[0].lines;
  EXPECT_EQ(lines[0].text, "<<見出し>>");
  EXPECT_EQ(lines[0].y, 2000);
  EXPECT_EQ(lines[1].text, "1");
  EXPECT_EQ(lines[1].y, 2000 + 2 * 370);
  EXPECT_THAT(Texts(pages.pages[1]), ElementsAre("70", "71"));
}

TEST(TextPages, BlankLinesAtTheTopOfAColumnAreDroppedAndOthersStay) {
  const TextPages pages = LayOutTextPages("\r\n  \r\n　\r\na\r\n\r\nb\r\n", {}, {});
  ASSERT_THAT(pages.pages, SizeIs(1));
  EXPECT_THAT(Texts(pages.pages[0]), ElementsAre("a", "", "b"));
}

TEST(TextPages, BlankLinesBehindAFullPageMakeNoPage) {
  EXPECT_THAT(LayOutTextPages(Numbered(kLinesOfA4) + "\r\n\r\n", {}, {}).pages, SizeIs(1));
}

TEST(TextPages, NumbersRunFromTheFirstPageNumber) {
  PageSetup setup;
  setup.firstPage = 7;
  const TextPages pages = LayOutTextPages(Numbered(2 * kLinesOfA4 + 1), {}, setup);
  ASSERT_THAT(pages.pages, SizeIs(3));
  EXPECT_EQ(pages.pages[0].number, 7);
  EXPECT_EQ(pages.pages[1].number, 8);
  EXPECT_EQ(pages.pages[2].number, 9);
}

TEST(TextPages, ANumberStandsTenMmBelowTheTextBottomAndFiveOnTheLastPage) {
  const TextPages pages = LayOutTextPages(Numbered(kLinesOfA4 + 1), {}, {});
  EXPECT_EQ(pages.pages[0].numberY, 28900);
  EXPECT_EQ(pages.pages[1].numberY, 28400);
  EXPECT_EQ(LayOutTextPages(Numbered(kLinesOfA4), {}, {}).pages[0].numberY, 28400);
}

TEST(TextPages, NumbersCanBeTurnedOff) {
  PageSetup setup;
  setup.pageNumbers = false;
  for (const TextPage& page : LayOutTextPages(Numbered(100), {}, setup).pages)
    EXPECT_EQ(page.number, std::nullopt);
}

TEST(TextPages, ASquareBeginsANewPageWhereItIsAskedFor) {
  const std::string text = "■ 1\r\na\r\n  ■ 2\r\nb\r\n■ 3\r\n";
  const TextPages pages = LayOutTextPages(text, {"", true}, {});
  ASSERT_THAT(pages.pages, SizeIs(3));
  EXPECT_THAT(Texts(pages.pages[0]), ElementsAre("■ 1", "a"));
  EXPECT_THAT(Texts(pages.pages[1]), ElementsAre("  ■ 2", "b"));
  EXPECT_THAT(Texts(pages.pages[2]), ElementsAre("■ 3"));
  EXPECT_THAT(LayOutTextPages(text, {}, {}).pages, SizeIs(1));
}

TEST(TextPages, ASquareInTheSecondColumnBeginsAPageToo) {
  PageSetup setup;
  setup.landscape = setup.twoColumns = true;
  const std::string text = Numbered(72) + "■\r\n";
  const TextPages pages = LayOutTextPages(text, {"", true}, setup);
  ASSERT_THAT(pages.pages, SizeIs(2));
  EXPECT_THAT(Texts(pages.pages[1]), ElementsAre("■"));
}

TEST(TextPages, AnEmptyTextIsOneEmptyPageWithoutNumber) {
  for (const std::string text : {"", "\r\n\r\n"}) {
    const TextPages pages = LayOutTextPages(text, {}, {});
    ASSERT_THAT(pages.pages, SizeIs(1));
    EXPECT_THAT(pages.pages[0].lines, SizeIs(0));
    EXPECT_EQ(pages.pages[0].number, std::nullopt);
  }
}

TEST(TextPages, APaperTooSmallForItsMarginsStillTakesALineAPage) {
  PageSetup setup;
  setup.paperWidth = 26;
  setup.paperHeight = 37;
  EXPECT_THAT(LayOutTextPages(Numbered(3), {}, setup).pages, SizeIs(3));
}

}  // namespace
}  // namespace zorlan

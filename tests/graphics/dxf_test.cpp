#include "graphics/dxf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/text.h"
#include "base/text_file.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The pairs as "code value" lines.
std::vector<std::string> Pairs(std::string_view dxf) {
  std::vector<std::string> pairs;
  while (const auto code = TakeLine(dxf)) {
    const auto value = TakeLine(dxf);
    pairs.push_back(std::string(*code) + " " + std::string(value.value_or("(missing)")));
  }
  return pairs;
}

/// The pairs between "0 FIRST" and the next pair of code 0, the first included; joined by "|".
std::string Entity(const std::vector<std::string>& pairs, const std::string& type, int which = 0) {
  for (std::size_t at = 0; at < pairs.size(); ++at) {
    if (pairs[at] != "0 " + type || which-- > 0) continue;
    std::string entity = pairs[at];
    for (++at; at < pairs.size() && !pairs[at].starts_with("0 "); ++at) entity += "|" + pairs[at];
    return entity;
  }
  return "(none)";
}

std::string EntityOf(const std::string& list, const std::string& type, int which = 0) {
  return Entity(Pairs(DxfOfList(list)), type, which);
}

// A line and a text. Extents by hand: x 0 to 200, y 100 to 300 + 20. The larger is 220, the middle (100,
// 210): the window is x -10 to 210, y 100 to 320, and the drawing's y is 320 - y.
constexpr const char* kSmallList =
    "LINE, MODEL, 0, 100, 200, 100, 255\r\n"
    "TEXT, MODEL_TXT, 50, 300, 節点, 40, 20, 0\r\n";

TEST(Dxf, WholeFileIsHeaderTablesEntitiesAndEnd) {
  const std::vector<std::string> expected = {
      "0 SECTION",
      "2 HEADER",
      "9 $ACADVER",
      "1 AC1009",
      "9 $EXTMIN",
      "10 0",
      "20 0",
      "30 0",
      "9 $EXTMAX",
      "10 200",
      "20 220",
      "30 0",
      "9 $LIMMIN",
      "10 -10",
      "20 0",
      "9 $LIMMAX",
      "10 210",
      "20 220",
      "9 $MENU",
      "1 acad",
      "9 $DWGCODEPAGE",
      "3 ANSI_932",
      "0 ENDSEC",
      "0 SECTION",
      "2 TABLES",
      "0 TABLE",
      "2 LTYPE",
      "70 5",
      "0 LTYPE",
      "2 CONTINUOUS",
      "70      0",
      "3 実線",
      "72     65",
      "73 0",
      "40 0.0",
      "0 LTYPE",
      "2 HIDDEN",
      "70      0",
      "3 _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _",
      "72     65",
      "73 2",
      "40 0.375",
      "49 0.25",
      "49 -0.125",
      "0 LTYPE",
      "2 CENTER",
      "70      0",
      "3 ____ _ ____",
      "72     65",
      "73 4",
      "40 2.0",
      "49 1.25",
      "49 -0.25",
      "49 0.25",
      "49 -0.25",
      "0 LTYPE",
      "2 CENTER2",
      "70      0",
      "3 ________ _ ________ _ ________ _ ________",
      "72     65",
      "73 4",
      "40 2.3",
      "49 2.0",
      "49 -0.1",
      "49 0.1",
      "49 -0.1",
      "0 LTYPE",
      "2 PHANTOM2",
      "70      0",
      "3 ________ _ _ ________ _ _ ________ _ _ ________",
      "72     65",
      "73 6",
      "40 2.5",
      "49 2.0",
      "49 -0.1",
      "49 0.1",
      "49 -0.1",
      "49 0.1",
      "49 -0.1",
      "0 ENDTAB",
      "0 TABLE",
      "2 LAYER",
      "70 2",
      "0 LAYER",
      "2 MODEL",
      "70      0",
      "62 1",
      "6 CONTINUOUS",
      "0 LAYER",
      "2 MODEL_TXT",
      "70      0",
      "62 7",
      "6 CONTINUOUS",
      "0 ENDTAB",
      "0 TABLE",
      "2 STYLE",
      "70      2",
      "0 STYLE",
      "2 STANDARD",
      "70      0",
      "40 0.0",
      "41 1.0",
      "50 0.0",
      "71      0",
      "42 2.5",
      "3 TXT",
      "4 ",
      "0 STYLE",
      "2 STYLE1",
      "70      0",
      "40 300",
      "41 1.0",
      "50 0.0",
      "71      0",
      "42 300",
      "3 TXT",
      "4 BIGFONT",
      "0 STYLE",
      "2 STYLE2",
      "70      0",
      "40 0.0",
      "41 1.0",
      "50 0.0",
      "71      0",
      "42 2.5",
      "3 Arial",
      "4 ＭＳ Ｐゴシック",
      "0 ENDTAB",
      "0 ENDSEC",
      "0 SECTION",
      "2 ENTITIES",
      "0 LINE",
      "8 MODEL",
      "62 1",
      "10 0",
      "20 220",
      "30 0",
      "11 200",
      "21 220",
      "31 0",
      "0 TEXT",
      "8 MODEL_TXT",
      "62 7",
      "10 50",
      "20 20",
      "30 0",
      "40 20",
      "1 節点",
      "50 0",
      "7 STYLE2",
      "72 0",
      "11 50",
      "21 20",
      "73 3",
      "0 ENDSEC",
      "0 EOF",
  };
  EXPECT_EQ(Pairs(DxfOfList(kSmallList)), expected);
}

TEST(Dxf, EveryPairIsTwoLinesEndedByCrLf) {
  const std::string dxf = DxfOfList(kSmallList);
  EXPECT_TRUE(dxf.starts_with("0\r\nSECTION\r\n2\r\nHEADER\r\n"));
  EXPECT_TRUE(dxf.ends_with("0\r\nENDSEC\r\n0\r\nEOF\r\n"));
  for (std::size_t at = dxf.find('\n'); at != std::string::npos; at = dxf.find('\n', at + 1))
    EXPECT_EQ(dxf[at - 1], '\r');
}

TEST(Dxf, CircleExtendsByItsRadius) {
  // x 90 to 110, y 190 to 210: the window is the same square, its lower edge 210.
  const std::vector<std::string> pairs = Pairs(DxfOfList("CIRCLE, MODEL, 100, 200, 10, 65280"));
  EXPECT_EQ(Entity(pairs, "CIRCLE"), "0 CIRCLE|8 MODEL|62 3|10 100|20 10|30 0|40 10");
  EXPECT_EQ(Entity(pairs, "SECTION"),
            "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $EXTMIN|10 90|20 0|30 0|9 $EXTMAX|10 110|20 20|30 0|"
            "9 $LIMMIN|10 90|20 0|9 $LIMMAX|10 110|20 20|9 $MENU|1 acad|9 $DWGCODEPAGE|3 ANSI_932");
}

// Turned by 90 degrees a text runs upward and its lower edge lies to the right, by its height 20. The angle
// uses 3.14159, which is 1.3268e-6 short of the quarter turn: x = 100 + 20 (1 - 8.8e-13), y = 200 + 20 x
// 1.3268e-6. Window: x 100 to 130, y 200 to 220: its lower edge is 210 + 15. The base line ends 30 x (1
// - 8.8e-13) farther up and 30 x 1.3268e-6 to the right.
TEST(Dxf, RotatedTextStandsOnItsLowerLeftCorner) {
  EXPECT_EQ(EntityOf("TEXTR, MOMENT_TXT, 100, 200, 1.5, 30, 20, 90, 0\r\n", "TEXT"),
            "0 TEXT|8 MOMENT_TXT|62 7|10 119.999999999982|20 24.9999734641021|30 0|40 20|1 1.5|50 90|"
            "7 STYLE2|72 5|11 120.000039803829|21 54.9999734640757|73 0");
}

TEST(Dxf, RotatedTextWithoutAngleMovesDownByItsHeight) {
  // Window: x 0 to 40, y 0 to 20: half 20, middle (20, 10), lower edge 30. The text's lower edge is y = 20.
  EXPECT_EQ(EntityOf("TEXTR, M_TXT, 0, 0, a, 40, 20, 0, 0", "TEXT"),
            "0 TEXT|8 M_TXT|62 7|10 0|20 10|30 0|40 20|1 a|50 0|7 STYLE2|72 5|11 40|21 10|73 0");
}

// There is nothing to fit a text into without a width, and the front of a cut one isn't as wide as the whole.
TEST(Dxf, ATextThatCannotBeFittedStandsAtItsLeft) {
  EXPECT_EQ(EntityOf("TEXTR, M_TXT, 0, 0, a, 0, 20, 0, 0", "TEXT"),
            "0 TEXT|8 M_TXT|62 7|10 0|20 0|30 0|40 20|1 a|50 0|7 STYLE2|72 0|11 0|21 0|73 0");
  const std::string cut = EntityOf("TEXTR, M_TXT, 0, 0, " + std::string(256, 'a') + ", 40, 20, 0, 0", "TEXT");
  EXPECT_THAT(cut, HasSubstr("|72 0|11 0|"));
}

struct ColourCase {
  const char* name;
  Rgb colour;
  int number;
};
const ColourCase kColourCases[] = {
    {"red", 0x0000FF, 1},
    {"dark red", 0x000001, 1},
    {"green", 0x00FF00, 3},
    {"blue", 0xFF0000, 5},
    {"white", 0xFFFFFF, 2},
    {"grey counts as all three", 0x808080, 2},
    {"magenta", 0xFF00FF, 6},
    {"cyan", 0xFFFF00, 4},
    {"yellow", 0x00FFFF, 7},
    {"black", 0, 7},
    {"digits above the six take no part", 0x10000FF, 1},
};
TEST(Dxf, ColoursBecomeNumbersByTheirThreePairs) {
  for (const ColourCase& c : kColourCases) EXPECT_EQ(ColourToACI(c.colour), c.number) << c.name;
}

TEST(Dxf, LayerTakesTheColourOfTheLineThatFirstNamesIt) {
  const std::vector<std::string> pairs = Pairs(
      DxfOfList("LINE, A, 0, 0, 1, 1, 255\nLINE, B, 0, 0, 1, 1, 65280\nLINE, A, 0, 0, 1, 1, 16711680\n"));
  EXPECT_EQ(Entity(pairs, "LAYER", 0), "0 LAYER|2 A|70      0|62 1|6 CONTINUOUS");
  EXPECT_EQ(Entity(pairs, "LAYER", 1), "0 LAYER|2 B|70      0|62 3|6 CONTINUOUS");
  EXPECT_EQ(Entity(pairs, "LAYER", 2), "(none)");
}

TEST(Dxf, EmptyListHasTheStartingExtentsAndNoEntity) {
  for (const char* const list : {"", "\r\n\r\n", "no operation at all\r\n"}) {
    const std::vector<std::string> pairs = Pairs(DxfOfList(list));
    EXPECT_EQ(Entity(pairs, "SECTION"),
              "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|"
              "9 $EXTMIN|10 10000000000|20 10000000000|30 0|9 $EXTMAX|10 -10000000000|20 -10000000000|30 0|"
              "9 $LIMMIN|10 10000000000|20 10000000000|9 $LIMMAX|10 -10000000000|20 -10000000000|"
              "9 $MENU|1 acad|9 $DWGCODEPAGE|3 ANSI_932")
        << list;
    EXPECT_EQ(Entity(pairs, "SECTION", 2), "0 SECTION|2 ENTITIES");
  }
}

std::string ListOfLayers(int count) {
  std::string list;
  for (int layer = 1; layer <= count; ++layer)
    list += "LINE, L" + std::to_string(layer) + ", 0, 0, 1, 1, 0\r\n";
  return list;
}

TEST(Dxf, AThousandLayersAreTheMost) {
  EXPECT_THAT(DxfOfList(ListOfLayers(1000)), HasSubstr("\r\nL1000\r\n"));
  EXPECT_THROW(DxfOfList(ListOfLayers(1001)), Fault);
}

TEST(Dxf, TextKeepsItsOwnWordsOnOneLine) {
  EXPECT_THAT(EntityOf("TEXT, A_TXT, 0, 0, 12%, C:\\表, 40, 20, 0", "TEXT"), HasSubstr("|1 12%, C:\\表|"));
  EXPECT_THAT(EntityOf("TEXT, A_TXT, 0, 0, a\tb\x1a, 40, 20, 0", "TEXT"), HasSubstr("|1 a b |"));
}

TEST(Dxf, TextThatReadersCannotHoldEndsBetweenItsCharacters) {
  std::string title = "梁";
  for (int i = 0; i < 299; ++i) title += "上";  // 600 bytes of the code page; the 128th would be cut in two
  std::string held;
  for (int i = 0; i < 127; ++i) held += i == 0 ? "梁" : "上";
  const std::string entity = EntityOf("TEXT, A_TXT, 0, 0, " + title + ", 4000, 20, 0", "TEXT");
  EXPECT_THAT(entity, HasSubstr("|1 " + held + "|50 0"));
  EXPECT_THAT(EntityOf("TEXT, A_TXT, 0, 0, " + std::string(255, 'a') + ", 9, 9, 0", "TEXT"),
              HasSubstr("|1 " + std::string(255, 'a') + "|"));
}

class WriteDxfTest : public testing::Test {
 protected:
  std::string ListFile() const { return folder_.Path() + "Page-1.tmp"; }
  std::string DxfPath() const { return folder_.Path() + "Page-1.dxf"; }
  TemporaryFolder folder_;
};

TEST_F(WriteDxfTest, TextsAreInCodePage932) {
  ReplaceTextFile(ListFile(), "TEXT, MODEL_TXT, 50, 300, 節点表示, 40, 20, 0\r\n");
  ASSERT_TRUE(WriteDXF(ListFile(), DxfPath()));
  EXPECT_THAT(ReadBytes(DxfPath()), HasSubstr("1\r\n" + Cp932FromUtf8("節点表示").bytes + "\r\n50\r\n"));
}

TEST_F(WriteDxfTest, WhatTheCodePageLacksIsPrintedAsItCanBe) {
  WriteDxfText(DxfPath(), DxfOfList("TEXT, A_TXT, 0, 0, 梁〜é한, 40, 20, 0\r\n"));
  EXPECT_THAT(ReadTextFile(DxfPath()), HasSubstr("\r\n梁～??\r\n"));
}

TEST_F(WriteDxfTest, MissingListFailsWithItsReason) {
  std::string reason;
  EXPECT_FALSE(WriteDXF(ListFile(), DxfPath(), &reason));
  EXPECT_THAT(reason, HasSubstr("Page-1.tmp"));
  EXPECT_FALSE(FileExists(DxfPath()));
}

TEST_F(WriteDxfTest, FailureLeavesTheOlderFileAsItWas) {
  ReplaceBytes(DxfPath(), "older");
  ReplaceBytes(ListFile(), "LINE, MODEL, 0, 0, 1");  // cut off, as by a full disk
  std::string reason;
  EXPECT_FALSE(WriteDXF(ListFile(), DxfPath(), &reason));
  EXPECT_THAT(reason, HasSubstr("LINE, MODEL, 0, 0, 1"));
  EXPECT_EQ(ReadBytes(DxfPath()), "older");
}

TEST_F(WriteDxfTest, FolderThatTakesNoFileFails) {
  ReplaceBytes(ListFile(), "");
  EXPECT_FALSE(WriteDXF(ListFile(), folder_.Path() + "missing/Page-1.dxf"));
}

}  // namespace
}  // namespace zorlan

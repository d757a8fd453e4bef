#include "sections/section_sheet.h"

#include <gmock/gmock.h>

#include "base/cp932.h"
#include "base/text.h"
#include "base/text_file.h"
#include "sections/table_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string Bytes(std::string_view text) {
  return Cp932FromUtf8(text).bytes;
}
const std::string kPipeHead = Bytes("○ 表\r\n列,列\r\n(mm),(mm)\r\n");

SheetText Pipes(std::string_view rows) {
  return ParseSheet(SheetOf(SheetKind::Pipe), kPipeHead + Bytes(rows));
}
std::string SavedPipes(std::string_view rows) {
  return SheetBytes(SheetOf(SheetKind::Pipe), Pipes(rows)).substr(kPipeHead.size());
}

TEST(SectionSheet, WidthsAreFixedByTheMasks) {
  const SectionSheet sheet = SheetOf(SheetKind::H);
  std::vector<int> widths;
  for (const SheetColumn& column : sheet.columns) widths.push_back(column.width);
  EXPECT_THAT(widths, ElementsAre(5, 5, 5, 5, 5, 6, 7, 7, 7, 7, 7, 7));
  EXPECT_EQ(sheet.title, "Ｈ形鋼 断面性能テーブル");
  EXPECT_EQ(sheet.columns[5].caption, "断面積");
  EXPECT_EQ(sheet.columns[5].unit, "(cm2)");
  EXPECT_EQ(SheetOf(SheetKind::Grades).columns.size(), 7U);
  EXPECT_EQ(SheetOf(SheetKind::TimberSections).columns.size(), 14U);
}

class SheetPathTest : public TableFolder {};

TEST_F(SheetPathTest, IsThatOfTheFileAsTheFolderNamesIt) {
  Write("pipe.csv", "");
  EXPECT_EQ(SheetPath(SheetOf(SheetKind::Pipe)), Path("pipe.csv"));
  EXPECT_EQ(SheetPath(SheetOf(SheetKind::H)), Path("H.CSV"));
  EXPECT_EQ(SheetPath(SheetOf(SheetKind::TimberSections)), Path("断面.CSV"));
}

TEST(SectionSheet, EveryShippedTableComesBackToTheByte) {
  for (const SheetKind kind : {SheetKind::H, SheetKind::Box, SheetKind::Pipe, SheetKind::Channel,
                               SheetKind::Angle, SheetKind::Grades, SheetKind::TimberSections}) {
    const SectionSheet sheet = SheetOf(kind);
    const std::string folder =
        ZORLAN_SOURCE_DIR "/data/" + std::string(sheet.steel ? "鋼材" : "木材") + "TABLE/";
    const std::string bytes = ReadBytes(folder + sheet.file);
    const SheetText text = ParseSheet(sheet, bytes);
    EXPECT_EQ(text.notices, "") << sheet.file;
    EXPECT_EQ(FindSheetFault(sheet, text.rows), std::nullopt) << sheet.file;
    EXPECT_EQ(SheetBytes(sheet, text), bytes) << sheet.file;
    for (const SheetRow& row : text.rows)
      for (std::size_t c = 0; c < sheet.columns.size(); ++c)
        EXPECT_LE(HalfWidth(row[c]), static_cast<std::size_t>(sheet.columns[c].width))
            << sheet.file << row[0];
  }
}

TEST(SectionSheet, RowsAreTrimmedFilledUpAndBlankOnesDropped) {
  EXPECT_EQ(SavedPipes(" 100 , 4.5,1\r\n"), "100,4.5,1,,,\r\n");
  SheetText text = Pipes("100,4.5,1,2,3,4\r\n");
  text.rows.push_back({});
  text.rows.push_back({"", ""});
  text.rows.push_back({"200", "6", "1", "2", "3", "4"});
  EXPECT_EQ(SheetBytes(SheetOf(SheetKind::Pipe), text), kPipeHead + "100,4.5,1,2,3,4\r\n200,6,1,2,3,4\r\n");
}

TEST(SectionSheet, WhatASheetCannotShowStaysInTheFileAndIsTold) {
  const std::string rows = "100,4.5,1,2,3,4,5,6\r\n0,end\r\nnote\r\n\r\n";
  const SheetText text = Pipes(rows);
  EXPECT_EQ(text.rows.size(), 1U);
  EXPECT_EQ(SavedPipes(rows), rows);
  EXPECT_EQ(text.notices,
            "1 行に、列数を超える項目があります。表示されませんが、保存しても残ります\n"
            "2 行が、先頭の値が 0 の行から後ろにあります。読み込まれませんが、保存しても残ります");
}

TEST(SectionSheet, AForeignFileShowsNoRowsAndLosesNothing) {
  const std::string bytes = std::string("\x89PNG\r\n\x1a\n\0\0abc\nxyz\xff", 18);
  const SheetText text = ParseSheet(SheetOf(SheetKind::H), bytes);
  EXPECT_THAT(text.rows, IsEmpty());
  EXPECT_NE(text.notices, "");
  EXPECT_EQ(SheetBytes(SheetOf(SheetKind::H), text), bytes);
}

TEST(SectionSheet, WordsInNumberColumnsAreTold) {
  EXPECT_EQ(Pipes("100,4.5,厚い\r\n").notices, "1 行に、数値でない項目があります");
}

TEST(SectionSheet, MoreRowsThanItShowsAreKept) {
  std::string rows;
  for (std::size_t i = 0; i < kSheetRows + 3; ++i) rows += "1,1,1,1,1,1\r\n";
  EXPECT_EQ(Pipes(rows).rows.size(), kSheetRows);
  EXPECT_EQ(Pipes(rows).notices, "3 行は、表示できる行数を超えています。保存しても残ります");
  EXPECT_EQ(SavedPipes(rows), rows);
}

TEST(SectionSheet, AMissingFileGetsTheSheetsOwnHead) {
  const SectionSheet sheet = SheetOf(SheetKind::Pipe);
  EXPECT_EQ(
      SheetBytes(sheet, ParseSheet(sheet, "")),
      Bytes("○形鋼管 断面性能テーブル\r\nＤ,t,断面積,Ｉx,ｉx,Ｚx\r\n(mm),(mm),(cm2),(cm4),(cm),(cm3)\r\n"));
}

TEST(SectionSheet, AHeadThatWasCutShortKeepsThreeLines) {
  const SectionSheet sheet = SheetOf(SheetKind::Pipe);
  EXPECT_EQ(SheetBytes(sheet, ParseSheet(sheet, "a\r\nb")), "a\r\nb\r\n\r\n");
}

struct BadRow {
  SheetRow row;
  int column;
  const char* message;
};

TEST(SectionSheet, ASteelRowMustHaveItsSizesAndNumbers) {
  const BadRow kRows[] = {
      {{"", "4.5", "1"}, 1, "Ｄは省略できません！！！"},
      {{"0", "4.5", "1"}, 1, "Ｄが入力範囲外です！！！"},
      {{"100", "", "1"}, 2, "tは省略できません！！！"},
      {{"100", "-4.5", "1"}, 2, "tが入力範囲外です！！！"},
      {{"100", "4.5", "1-2"}, 3, "断面積が数値ではありません！！！"},
      {{"100", "4.5", "1e999"}, 3, "断面積が入力範囲外です！！！"},
  };
  for (const BadRow& bad : kRows) {
    const auto fault = FindSheetFault(SheetOf(SheetKind::Pipe), {{"10", "1"}, {}, bad.row});
    ASSERT_TRUE(fault) << bad.message;
    EXPECT_EQ(fault->row, 3);
    EXPECT_EQ(fault->column, bad.column);
    EXPECT_EQ(fault->message, bad.message);
  }
  EXPECT_EQ(FindSheetFault(SheetOf(SheetKind::Pipe), {{"100", "4.5"}}), std::nullopt);
  EXPECT_EQ(FindSheetFault(SheetOf(SheetKind::Angle), {{"90", "90", "9", "0"}}), std::nullopt);
}

TEST(SectionSheet, ATimberRowMustHaveANameThatItsFileCanHold) {
  const BadRow kRows[] = {
      {{"", "短", "1"}, 1, "樹種 名称は省略できません！！！"},
      {{"杉,1級"}, 1, "樹種 名称に「,」は使用できません！！！"},
      {{"ひのきひのきひのきひの"}, 1, "樹種 名称は半角20文字以内で入力して下さい！！！"},
      {{"杉", "杉材一級a"}, 2, "表示用 略称は半角8文字以内で入力して下さい！！！"},
      {{"杉😀"}, 1, "樹種 名称に使用できない文字「😀」が含まれています！！！"},
      {{"杉", "", "x"}, 3, "圧縮:Fcが数値ではありません！！！"},
  };
  for (const BadRow& bad : kRows) {
    const auto fault = FindSheetFault(SheetOf(SheetKind::Grades), {bad.row});
    ASSERT_TRUE(fault) << bad.message;
    EXPECT_EQ(fault->column, bad.column);
    EXPECT_EQ(fault->message, bad.message);
  }
  EXPECT_EQ(FindSheetFault(SheetOf(SheetKind::Grades), {{"杉"}}), std::nullopt);
}

/// The lines of a listing without the blanks that make them equally long; lines of another length fail.
std::string Trimmed(const std::string& listing, std::size_t width) {
  std::string trimmed;
  std::string_view rest = listing;
  for (int number = 0; const std::optional<std::string_view> line = TakeLine(rest); ++number) {
    EXPECT_TRUE(number < 2 || HalfWidth(*line) == width) << *line;
    trimmed.append(line->substr(0, line->find_last_not_of(' ') + 1)).append("\n");
  }
  return trimmed;
}

TEST(SectionSheet, TheListingNumbersTheRowsUnderCaptionsAndUnits) {
  const std::string listing = SheetListing(
      SheetOf(SheetKind::Pipe), {{"101.6", "4.2", "12.85", "153", "3.45", "30.1"}, {}, {"50", "3"}});
  EXPECT_EQ(Trimmed(listing, 5 + 2 * 6 + 7 + 3 * 8),
            "○形鋼管 断面性能テーブル\n\n"
            "   No    Ｄ     t 断面積     Ｉx     ｉx     Ｚx\n"
            "       (mm)  (mm)  (cm2)   (cm4)    (cm)   (cm3)\n"
            "    1 101.6   4.2  12.85     153    3.45    30.1\n"
            "    2    50     3\n");
}

TEST(SectionSheet, CaptionsOfTwoLinesTakeTwoLinesOfTheListing) {
  const std::string listing = SheetListing(SheetOf(SheetKind::Grades), {{"杉 1級", "杉1"}});
  EXPECT_EQ(Trimmed(listing, 5 + 21 + 11 + 5 * 9),
            "材種テーブル\n\n"
            "                           表示用\n"
            "   No 樹種 名称            略称        圧縮:Fc  引張:Ft  曲げ:Fb  剪断:Fs 弾性係数\n"
            "                                       (N/mm2)  (N/mm2)  (N/mm2)  (N/mm2)  (N/mm2)\n"
            "    1 杉 1級               杉1\n");
}

}  // namespace
}  // namespace zorlan

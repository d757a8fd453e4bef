#include "model/deck_notes.h"

#include <filesystem>

#include "model/deck.h"
#include "support/model_folder.h"
#include "support/shared_cases.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> NotesOf(std::string_view deck, DeckUse use = DeckUse::Read) {
  return DeckNotes(Cp932FromUtf8(deck).bytes, use);
}

TEST(DeckNotes, ASoundDeckHasNone) {
  EXPECT_THAT(
      NotesOf("%head\n@TITL %タイトル\nＡ棟, 2.5\n@UNIT\n1,0,0,\n@NODE\n1,0,-.5,1,1,1\n2,+3.,1E2,,0,0, \n"
              "@ELEM\n1,1,2,0,0,1,,memo\n@SECT\n1,7,120,240,1.5,0,1,7D3,0,梁,すぎ\n@NOTE\nx\n"),
      IsEmpty());
  EXPECT_THAT(NotesOf(""), IsEmpty());
}

TEST(DeckNotes, NoSampleDeckHasAny) {
  for (const char* const folder : {"/data/DATA", "/tests/golden/samples"})
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(ZORLAN_SOURCE_DIR + std::string(folder)))
      if (const std::string path = PathText(entry.path()); path.ends_with(".inp")) {
        EXPECT_EQ(WhyNoDeck(ReadBytes(path)), "") << path;
        EXPECT_THAT(DeckNotes(ReadBytes(path), DeckUse::Opened), IsEmpty()) << path;
      }
  for (const std::string& folder : test::CaseFolders("analysis"))
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
      if (const std::string path = PathText(entry.path()); path.ends_with(".inp")) {
        EXPECT_EQ(WhyNoDeck(ReadBytes(path)), "") << path;
      }
}

TEST(DeckNotes, ACellThatIsNoNumberIsToldByLineAndFieldWithWhatItIsReadAs) {
  EXPECT_THAT(
      NotesOf("%head\n@node\n２,－20,4.O,1x,0.9a,0\n\n@UNIT\n0,0,x\n@ELOD\n1,1,-1,0,0,　2\n@DISP\n1,2,3,4 5\n"
              "@SPEC\n1,1,0.1,0.2,0.3,0.4x\n@PLOD\nx,y\n@TLOD\n1,2,abc\n"),
      ElementsAre("3行目 ： @NODE の節点番号 「２」 は数値ではありません。0 として扱います",
                  "3行目 ： @NODE のＸ座標 「－20」 は数値ではありません。0 として扱います",
                  "3行目 ： @NODE のＹ座標 「4.O」 は数値ではありません。4 として扱います",
                  "3行目 ： @NODE の支持条件１ 「1x」 は数値ではありません。1 として扱います",
                  "3行目 ： @NODE の支持条件２ 「0.9a」 は数値ではありません。0 として扱います",
                  "6行目 ： @UNIT のＳＩ単位変換係数 「x」 は数値ではありません。9.80665 として扱います",
                  "8行目 ： @ELOD のK 「　2」 は数値ではありません。1 として扱います",
                  "10行目 ： @DISP の節点番号 「4 5」 は数値ではありません。4 として扱います"));
}

TEST(DeckNotes, ManyCellsAreToldByTheirCount) {
  std::string deck = "@NODE\n";
  for (int n = 0; n < 13; ++n) deck += std::to_string(n + 1) + ",x,0,0,0,0\n";
  const std::vector<std::string> notes = NotesOf(deck);
  ASSERT_EQ(notes.size(), 11u);
  EXPECT_THAT(notes[9], HasSubstr("11行目"));
  EXPECT_EQ(notes[10], "数値ではない項目は、ほかに 3 個あります");
}

TEST(DeckNotes, ALongCellIsShownByItsFront) {
  EXPECT_THAT(NotesOf("@NODE\n" + std::string(5000, 'a') + ",0,0,0,0,0\n"),
              ElementsAre(HasSubstr("「" + std::string(30, 'a') + "…」")));
  EXPECT_THAT(NotesOf("@ELEM\nx" + std::string(200, ',') + "\n"), IsEmpty());
}

TEST(DeckNotes, UnitsOutOfTheirRangeAreToldWithWhatIsAssumed) {
  EXPECT_THAT(
      NotesOf("@UNIT\n5,6,1\n2,-1,-9.8,9\n"),
      ElementsAre("3行目 ： @UNIT の入力単位 2 は 0 でも 1 でもありません。0（工学単位）として扱います",
                  "3行目 ： @UNIT の出力単位 -1 は 0 でも 1 でもありません。0（工学単位）として扱います",
                  "3行目 ： @UNIT の力の単位 9 は 0 でも 1 でもありません。1（kg、N）として扱います",
                  "3行目 ： @UNIT のＳＩ単位変換係数 -9.8 は正の数ではありません。そのまま計算に使います"));
  EXPECT_THAT(NotesOf("@UNIT\n1,0,0,1\n"), IsEmpty());
}

TEST(DeckNotes, ASectionThatStandsAgainIsToldWithWhatBecomesOfIt) {
  constexpr std::string_view kDeck = "@PLOD\n1,1,1\n@NOTE\n@CONT\n1,1,0\n@plod\n1,2,1\n@PLOD\n@NOTE\n";
  EXPECT_THAT(
      NotesOf(kDeck),
      ElementsAre("@PLOD が 3 回あります。すべての行を使います（モデルを開くと、後のものだけになります）"));
  EXPECT_THAT(
      NotesOf(kDeck, DeckUse::Listed),
      ElementsAre("@PLOD が 3 回あります。後のものだけをリストに出します（解析では、すべての行を使います）"));
  EXPECT_THAT(
      NotesOf(kDeck, DeckUse::Opened),
      ElementsAre(
          "@PLOD が 3 回あります。後のものだけを読み込みました。このまま保存すると、前のものは失われます"));
}

TEST(DeckNotes, RowsThatTheTableFilesCutAreToldWhereTheTablesAreUsed) {
  constexpr std::string_view kDeck =
      "@TITL\nA          B\n@NODE\n1,0,0,1,1,1          % end\n2,          6,0,0,0,0\n3,6          ,0,0,0,0\n"
      "4,9,0,0,0,0,1          2\n";
  EXPECT_THAT(NotesOf(kDeck, DeckUse::Read), ElementsAre(HasSubstr("「1          2」")));
  for (const DeckUse use : {DeckUse::Listed, DeckUse::Opened})
    EXPECT_EQ(
        NotesOf(kDeck, use)[0],
        "空白が 10 個続く行が 2 行あります（最初は 5行目）。表と入力データリストでは、そこで切れます（解析では、す"
        "べて使います）");
}

TEST(DeckNotes, TextBehindTheEndMarkIsTold) {
  EXPECT_THAT(NotesOf("@CONT\n1,1,0\n\x1A\r\n"), IsEmpty());
  EXPECT_THAT(NotesOf("@CONT\n1,1,0\n\x1A@NODE\n1,x\n"),
              ElementsAre("ファイルの終わりを示す文字（1A）が途中にあります。2 行目までを読み込みます"));
}

}  // namespace
}  // namespace zorlan

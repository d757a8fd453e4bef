#include "base/cp932.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace zorlan {
namespace {

TEST(Cp932, FollowsTheMicrosoftMappingWhereMappingsDiffer) {
  EXPECT_EQ(Utf8FromCp932("\x81\x60\x81\x7C\x81\x61\x81\x50\xFA\x55"), "～－∥￣￤");
  EXPECT_EQ(Cp932FromUtf8("～－∥￣￤").bytes, "\x81\x60\x81\x7C\x81\x61\x81\x50\xFA\x55");
}

TEST(Cp932, ReadsAndWritesHalfWidthKatakanaInOneByte) {
  EXPECT_EQ(Cp932FromUtf8("ｱﾟ").bytes, "\xB1\xDF");
  EXPECT_EQ(Utf8FromCp932("\xB1\xDF"), "ｱﾟ");
}

TEST(Cp932, TakesTheCodeThatWindowsTakesWhereACharacterHasSeveral) {
  EXPECT_EQ(Cp932FromUtf8("髙").bytes, "\xFB\xFC");
  EXPECT_EQ(Cp932FromUtf8("ⅰ").bytes, "\xFA\x40");
  EXPECT_EQ(Cp932FromUtf8("∵").bytes, "\x81\xE6");
  EXPECT_EQ(Cp932FromUtf8("Ⅰ").bytes, "\x87\x54");
}

TEST(Cp932, KeepsASecondByteThatLooksLikeASeparator) {
  EXPECT_EQ(Utf8FromCp932("\x95\x5C"), "表");
  EXPECT_EQ(Utf8FromCp932("\x83\x5C"), "ソ");
}

TEST(Cp932, NamesTheFirstCharacterThatTheCodePageLacks) {
  const Cp932Text text = Cp932FromUtf8("a²b€");
  EXPECT_EQ(text.bytes, "a?b?");
  EXPECT_EQ(text.lost, "²");
}

TEST(Cp932, NeverFailsOnForeignBytes) {
  EXPECT_EQ(Utf8FromCp932("\x81"), "・");
  EXPECT_EQ(Utf8FromCp932("\x81\x0D\x0A"), "・\r\n");
  EXPECT_EQ(Utf8FromCp932("\x85\x40"), "・");
  EXPECT_EQ(Utf8FromCp932("\xFF"), "\xEF\xA3\xB3");
  EXPECT_EQ(Cp932FromUtf8("\xE3\x81").lost, "\xE3");
}

TEST(Cp932, EveryDefinedPairComesBackAsTheSameCharacter) {
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead)
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
      const std::string text = Utf8FromCp932(pair);
      if (text.find("・") != std::string::npos) continue;
      EXPECT_EQ(Utf8FromCp932(Cp932FromUtf8(text).bytes), text) << std::hex << lead << trail;
    }
}

TEST(Cp932, PrintsWhatOtherSystemsWriteForItsOwnCharacters) {
  EXPECT_EQ(Cp932ForPrint("梁〜−‖—¢£¬é한a"), Cp932FromUtf8("梁～－∥―￠￡￢??a").bytes);
  EXPECT_EQ(Cp932FromUtf8("〜").lost, "〜");  // as data it would come back as another character
  EXPECT_EQ(HalfWidth("〜−"), 4u);
  EXPECT_EQ(HalfWidth("é"), 1u);
}

TEST(Cp932, TakesWhatOtherSystemsWriteForItsOwnCharacters) {
  EXPECT_EQ(WithOwnCharacters("梁〜1−‖—¢£¬é~-|"), "梁～1－∥―￠￡￢é~-|");
  EXPECT_EQ(Cp932FromUtf8(WithOwnCharacters("〜−‖—¢£¬")).lost, "");
  EXPECT_EQ(WithOwnCharacters(""), "");
  EXPECT_EQ(WithOwnCharacters("\xE3\x80"), "\xE3\x80") << "half a character stays";
}

TEST(HalfWidth, CutsATextBetweenCharacters) {
  EXPECT_EQ(FrontWithin("節点ab", 6), "節点ab");
  EXPECT_EQ(FrontWithin("節点ab", 5), "節点a");
  EXPECT_EQ(FrontWithin("節点ab", 3), "節");
  EXPECT_EQ(FrontWithin("節", 1), "");
  EXPECT_EQ(FrontWithin("", 9), "");
}

TEST(HalfWidth, CountsBytesOfTheCodePage) {
  EXPECT_EQ(HalfWidth("abc"), 3u);
  EXPECT_EQ(HalfWidth("節点ｱθ"), 7u);
  EXPECT_EQ(PadLeft("節", 4), "  節");
  EXPECT_EQ(PadRight("節", 4), "節  ");
  EXPECT_EQ(PadLeft("abc", 2), "abc");
}

TEST(Cp932, ATextIsBrokenIntoPiecesOfAWidth) {
  using testing::ElementsAre;
  EXPECT_THAT(InPiecesOf("梁ABﾊﾘ柱", 4), ElementsAre("梁AB", "ﾊﾘ柱"));
  EXPECT_THAT(InPiecesOf("A梁梁", 4), ElementsAre("A梁", "梁"));  // no half of a character
  EXPECT_THAT(InPiecesOf("梁梁", 1), ElementsAre("梁", "梁"));
  EXPECT_THAT(InPiecesOf("", 4), ElementsAre(""));
}

TEST(MeantAsUtf8, IsAWholeTextWithJapaneseInIt) {
  const struct {
    const char* name;
    std::string bytes;
    bool meant;
  } cases[] = {
      {"nothing", "", false},
      {"plain characters", "@NODE\r\n1,0,0\r\n", false},
      {"the comment of a section line", "@NODE   %節点データ\r\n1,0,0\r\n", true},
      {"a title alone", "@TITL\r\n鉄骨ラーメン\r\n", true},
      {"one kanji ahead of a line end, which is half a pair", "@TITL\r\n梁\r\n", true},
      {"one character in code page 932 as well", "@TITL\r\n梁\r\n\x83\x5E", false},
      {"a cut character", "@TITL\r\n鉄骨ラーメ\xE3\x83", false},
      {"a sequence longer than it needs to be", "@TITL\r\n鉄骨ラーメン\xE0\x81\x81", false},
      {"half a pair of UTF-16", "@TITL\r\n鉄骨ラーメン\xED\xA0\x80", false},
      {"beyond the last character", "@TITL\r\n鉄骨ラーメン\xF4\x90\x80\x80", false},
      {"a character outside the code page", "@TITL\r\n鉄骨ラーメン😀\r\n", true},
      {"accents, which pair to half-width kana", "\xC3\xA9\xC2\xB2", false},
      {"the same in code page 932", Cp932FromUtf8("@NODE   %節点データ\r\n1,0,0\r\n").bytes, false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsMeantAsUtf8(c.bytes), c.meant) << c.name;
}

// Texts that come nearest to UTF-8: half-width kana in pairs, kanji of level 2 with kana behind them.
TEST(MeantAsUtf8, IsNoTextOfCodePage932) {
  for (const char* const text :
       {"ﾃﾞｰﾀ", "ﾄｱ", "ﾃｨｾｱ", "ﾄ鋲ｱｲ", "鷗ｱ", "閘Ａ", "譟ｱ", "髙﨑", "①Ⅰ㎡", "ﾎﾟﾝﾌﾟ室ｶﾞｰﾀﾞｰ", "縺ゅ"})
    EXPECT_FALSE(IsMeantAsUtf8(Cp932FromUtf8(text).bytes)) << text;

  std::vector<std::string> characters;  // all that the code page defines, half-width kana in front
  for (unsigned byte = 0xA1; byte <= 0xDF; ++byte) characters.push_back({static_cast<char>(byte)});
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead)
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      const std::string pair = {static_cast<char>(lead), static_cast<char>(trail)};
      if (!(lead >= 0xA0 && lead <= 0xDF) && Utf8FromCp932(pair).find("・") == std::string::npos)
        characters.push_back(pair);
    }
  ASSERT_GT(characters.size(), 9000u);
  const unsigned seed = 20;
  std::mt19937 random(seed);
  const auto any = [&] { return characters[random() % characters.size()]; };
  const auto kana = [&] { return characters[random() % 63]; };
  for (int n = 0; n < 300000; ++n) {
    std::string text;
    for (auto c = 1 + random() % 12; c > 0; --c) text += random() % 3 == 0 ? kana() : any();
    ASSERT_FALSE(IsMeantAsUtf8(text)) << "seed " << seed << ": " << Utf8FromCp932(text);
  }
}

}  // namespace
}  // namespace zorlan

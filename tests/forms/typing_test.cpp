#include "forms/typing.h"

#include <gtest/gtest.h>

#include "forms/table_form.h"

namespace zorlan {
namespace {

struct MaskCase {
  std::string_view mask, accepted, refused;
};
constexpr MaskCase kMasks[] = {
    {kDigits, "0123456789", "-.eE+, aあ"}, {kReal, "0123456789-.eE", "+,dD aあ"},
    {kDecimal, "0123456789-.", "eE+, a"},  {"0.e-", "0123456789-.eE", "+, a"},
    {kAnyText, "0-.eE+, axあ", ""},
};

TEST(Typing, AMaskTellsWhichCharactersAColumnTakes) {
  for (const MaskCase& c : kMasks) {
    EXPECT_EQ(FilterTyped(c.mask, c.accepted).text, c.accepted) << c.mask;
    EXPECT_FALSE(FilterTyped(c.mask, c.accepted).refused) << c.mask;
    EXPECT_EQ(FilterTyped(c.mask, c.refused).text, "") << c.mask;
    EXPECT_EQ(FilterTyped(c.mask, c.refused).refused, !c.refused.empty()) << c.mask;
  }
}

TEST(Typing, TheFilterTestsTheCharacterAndNotTheText) {
  EXPECT_EQ(FilterTyped(kReal, "1--2..e").text, "1--2..e");
}

TEST(Typing, ControlCharactersNeverPass) {
  EXPECT_FALSE(MaskAccepts(kAnyText, U'\t'));
  EXPECT_FALSE(MaskAccepts(kAnyText, U'\r'));
}

TEST(Typing, FullWidthDigitsAndSignsAreTakenAsTheirHalfWidthInNumberColumns) {
  EXPECT_EQ(FilterTyped(kReal, "－１２．５Ｅ３").text, "-12.5E3");
  EXPECT_EQ(FilterTyped(kDigits, "１０１").text, "101");
  EXPECT_EQ(FilterTyped(kReal, "ー１。５").text, "-1.5") << "the keys of minus and point in kana";
  for (const char* const dash : {"\u2010", "\u2011", "\u2012", "\u2013", "\u2015", "\u2212", "\uFE63"})
    EXPECT_EQ(PastedCell(kReal, dash + std::string("5")), "-5") << "it looks like a minus";
  EXPECT_EQ(FilterTyped(kAnyText, "１０５×１０５").text, "１０５×１０５") << "a name keeps its width";
  EXPECT_EQ(FilterTyped(kAnyText, "２〜３−").text, "２～３－") << "as the files write them";
  EXPECT_EQ(PastedCell(kAnyText, " ２〜３− "), "２～３－");
}

TEST(Typing, OfAMixedTextThePassingCharactersStay) {
  const Typed typed = FilterTyped(kDigits, "１あ2");
  EXPECT_EQ(typed.text, "12");
  EXPECT_TRUE(typed.refused);
}

TEST(Typing, APastedNumberLosesTheCommasBetweenThousandsAndNoOthers) {
  EXPECT_EQ(PastedCell(kReal, " 1,234,567.8 "), "1234567.8");
  EXPECT_EQ(PastedCell(kReal, "-1,234"), "-1234");
  EXPECT_EQ(PastedCell(kReal, "１，２３４"), "1234");
  EXPECT_EQ(PastedCell(kReal, "1,23"), "1,23");
  EXPECT_EQ(PastedCell(kReal, "1,234,5"), "1,234,5");
  EXPECT_EQ(PastedCell(kReal, ",123"), ",123");
  EXPECT_EQ(PastedCell(kAnyText, " a,b "), "a,b");
}

TEST(Typing, EveryMaskHasItsHint) {
  EXPECT_EQ(MaskHint(kDigits), "この欄には、数字だけを入力します");
  EXPECT_NE(MaskHint(kReal), MaskHint(kDecimal));
}

}  // namespace
}  // namespace zorlan

#include "base/number.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zorlan {
namespace {

TEST(ReadReal, TakesTheLongestNumericPrefixBehindBlanks) {
  EXPECT_EQ(ReadReal("  12.5abc"), 12.5);
  EXPECT_EQ(ReadReal("-.5"), -0.5);
  EXPECT_EQ(ReadReal("+3"), 3);
  EXPECT_EQ(ReadReal("1.5.2"), 1.5);
  EXPECT_EQ(ReadReal("7 8"), 7);
}

TEST(ReadReal, KnowsBothExponentLetters) {
  EXPECT_EQ(ReadReal("1.2E-5"), 1.2e-5);
  EXPECT_EQ(ReadReal("1.2D+2"), 120);
  EXPECT_EQ(ReadReal("1d3"), 1000);
  EXPECT_EQ(ReadReal("2E"), 2);
  EXPECT_EQ(ReadReal("2E+"), 2);
}

TEST(ReadReal, AnswersZeroWithoutAPrefix) {
  EXPECT_EQ(ReadReal(""), 0);
  EXPECT_EQ(ReadReal("   "), 0);
  EXPECT_EQ(ReadReal("abc"), 0);
  EXPECT_EQ(ReadReal("."), 0);
  EXPECT_EQ(ReadReal("-"), 0);
  EXPECT_EQ(ReadReal("inf"), 0);
  EXPECT_EQ(ReadReal("nan"), 0);
}

TEST(ReadReal, MakesTheOutOfRangeInfiniteAndTheTinyZero) {
  EXPECT_TRUE(std::isinf(ReadReal("1e400")));
  EXPECT_EQ(ReadReal("1e-400"), 0);
  EXPECT_TRUE(std::isinf(ReadReal(std::string(400, '9'))));
  EXPECT_EQ(ReadReal("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(ReadReal("0." + std::string(400, '0') + "1e+5"), 0);
  EXPECT_TRUE(std::isinf(ReadReal("1" + std::string(400, '0') + "e-5")));
  EXPECT_EQ(ReadReal("1e-99999999999999999999"), 0);
  EXPECT_TRUE(std::isinf(ReadReal("-1e99999999999999999999")));
  EXPECT_EQ(ReadReal("0e99999999999999999999"), 0);
}

TEST(ReadReal, AnswersTheNearestRealForManyDigitsAndFew) {
  EXPECT_EQ(ReadReal("0.1"), 0.1);
  EXPECT_EQ(ReadReal("123456.789012345"), 123456.789012345);
  EXPECT_EQ(ReadReal("0.00000000000007"), 0.00000000000007);
  EXPECT_EQ(ReadReal("999999999999999"), 999999999999999.0);
  EXPECT_EQ(ReadReal("9007199254740993"), 9007199254740992.0);  // between two reals, to the even one
  EXPECT_EQ(ReadReal("3.14159265358979323846"), 3.14159265358979323846);
}

TEST(ReadInt16, CutsDecimalsOffAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(ReadInt16("2.9"), 2);
  EXPECT_EQ(ReadInt16("-2.9"), -2);
  EXPECT_EQ(ReadInt16(""), 0);
  EXPECT_EQ(ReadInt16("32767.5"), 32767);
  EXPECT_EQ(ReadInt16("32768"), std::nullopt);
  EXPECT_EQ(ReadInt16("-32769"), std::nullopt);
  EXPECT_EQ(ReadInt16("1e400"), std::nullopt);
}

TEST(AppendReal, PrintsUpToFifteenSignificantDigits) {
  EXPECT_EQ(RealText(1), "1");
  EXPECT_EQ(RealText(0.1), "0.1");
  EXPECT_EQ(RealText(-0.0), "0");
  EXPECT_EQ(RealText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(RealText(123456.789), "123456.789");
}

TEST(AppendPrinted, HasABlankForThePlusSignAndOneBehind) {
  std::string text;
  AppendPrinted(text, 2.5);
  AppendPrinted(text, -2.5);
  AppendPrinted(text, -0.0);
  EXPECT_EQ(text, " 2.5 -2.5  0 ");
}

}  // namespace
}  // namespace zorlan

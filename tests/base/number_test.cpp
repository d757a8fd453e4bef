#include "base/number.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <random>

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

TEST(IsNumberText, KnowsTheNumbersThatReadRealTakesInFull) {
  for (const char* const number : {"0", "-1.5", "+3", ".5", "5.", "-.5E+03", "1d3", "2e-7", "1e999"})
    EXPECT_TRUE(IsNumberText(number)) << number;
  for (const char* const other :
       {"", "-", ".", "e", "-.", "e5", "1-2", "1.5.2", "2E", "2E+", "1 ", " 1", "12kN", "--1", "１"})
    EXPECT_FALSE(IsNumberText(other)) << other;
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

std::string GeneralConversion(double value) {
  char buffer[40];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15).ptr};
}

TEST(AppendReal, AgreesWithTheGeneralConversionForEveryMagnitude) {
  std::mt19937_64 random(20);
  for (int i = 0; i < 400000; ++i) {
    const double value = std::bit_cast<double>(random());
    if (!std::isfinite(value) || value == 0) continue;
    ASSERT_EQ(RealText(value), GeneralConversion(value));
  }
  std::uniform_real_distribution<double> power(-10, 25), mantissa(-10, 10);
  for (int i = 0; i < 400000; ++i) {
    const double value = mantissa(random) * std::pow(10, power(random));
    ASSERT_EQ(RealText(value), GeneralConversion(value));
  }
}

TEST(AppendReal, AgreesWithTheGeneralConversionAtTiesAndPowersOfTen) {
  std::mt19937_64 random(21);
  for (int power = -30; power <= 40; ++power) {
    const double ten = std::pow(10, power);
    for (const double value :
         {ten, std::nextafter(ten, 0.0), std::nextafter(ten, 1e300), 0.5 * ten, 0.25 * ten})
      ASSERT_EQ(RealText(value), GeneralConversion(value));
  }
  for (int i = 0; i < 200000; ++i) {  // sixteen digits that end in 5, as near to a tie as a real comes
    const double value =
        static_cast<double>(random() % 1000000000000000 * 10 + 5) / std::pow(10, random() % 20);
    ASSERT_EQ(RealText(value), GeneralConversion(value));
  }
  for (int i = 0; i < 100000; ++i) {  // short decimals
    const double value = static_cast<double>(random() % 1000000) / std::pow(10, random() % 12);
    if (value == 0) continue;
    ASSERT_EQ(RealText(value), GeneralConversion(value));
  }
}

TEST(ReadFinite, AnswersTheNumberOfATextWithADigitThatIsInRange) {
  EXPECT_EQ(ReadFinite(" -1.5E+03 t"), -1500.0);
  EXPECT_EQ(ReadFinite("0"), 0.0);
  EXPECT_EQ(ReadFinite("t2"), 0.0);  // a digit, no number in front
  for (const char* const text : {"", " ", "-", ".", "e", "inf", "nan", "1e999", "-1e999"})
    EXPECT_EQ(ReadFinite(text), std::nullopt) << text;
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

#include "base/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace zorlan {
namespace {

struct FormatCase {
  const char* name;
  double value;
  const char* pattern;
  const char* expected;
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const FormatCase kCases[] = {
    {"digits where there are some", 12, "####", "12"},
    {"no digit place is filled for 0", 0, "####", ""},
    {"a 0 always stands", 0, "###0", "0"},
    {"zeros in front", 7, "000", "007"},
    {"zeros from the first 0 on", 7, "#0#", "07"},
    {"more digits than places", 123456, "##0", "123456"},
    {"decimals", 12.5, "##0.000", "12.500"},
    {"a decimal where there is one", 1.5, "#0.0##", "1.5"},
    {"nothing behind the point, no point", 5, "######.######", "5"},
    {"no digit in front of the point", 0.25, "#.00", ".25"},
    {"seven decimals", 0.000012, "#0.0000000", "0.0000120"},
    {"blanks in front stay", 3, "  ###0", "  3"},
    {"blanks behind stay", 42, "####0 ", "42 "},
    {"words stay", 4.5, "h=#0.0 m", "h=4.5 m"},
    {"the sign stands at the digits", -1, "  #0.0", "  -1.0"},
    {"no sign on what shows as 0", -0.0004, "0.000", "0.000"},
    {"no sign on minus zero", -0.0, "0.000", "0.000"},
    {"a sign on the smallest that shows", -0.0005, "0.000", "-0.001"},
    {"a tie that binary stores too low", 2.0005, "0.000", "2.001"},
    {"a tie that binary stores too low, 1.005", 1.005, "0.00", "1.01"},
    {"an exact tie goes away from zero", 0.125, "0.00", "0.13"},
    {"and so below zero", -0.125, "0.00", "-0.13"},
    {"half", 0.5, "0", "1"},
    {"two and a half", 2.5, "0", "3"},
    {"just below half", 0.49999, "0", "0"},
    {"half in its 15 digits", 0.49999999999999994, "0", "1"},
    {"a tie one place in front of the first digit", 0.05, "0.0", "0.1"},
    {"two places in front of the first digit", 0.005, "0.0", "0.0"},
    {"carry through all digits", 999.9996, "0.000", "1000.000"},
    {"carry into a first digit", 0.9996, "0.000", "1.000"},
    {"15 digits and zeros behind", 123456789012345678.0, "0.0", "123456789012346000.0"},
    {"15 digits, the sixteenth rounded", 1234567890.123456, "0.000000", "1234567890.123460"},
    {"exponent", 0.0000245168, "0.00000E+00", "2.45168E-05"},
    {"exponent above", 123456, "0.00000E+00", "1.23456E+05"},
    {"exponent of 0", 0, "0.00000E+00", "0.00000E+00"},
    {"exponent below zero", -0.00000316228, "    0.00000E+00", "    -3.16228E-06"},
    {"exponent, carry", 9.999996e-6, "0.00000E+00", "1.00000E-05"},
    {"exponent, a tie that binary stores too low", 1.000005, "0.00000E+00", "1.00001E+00"},
    {"exponent of three digits", 1e-123, "0.00000E+00", "1.00000E-123"},
    {"exponent with a minus alone", 5000, "0.0E-0", "5.0E3"},
    {"exponent with a minus alone, below", 0.05, "0.0E-0", "5.0E-2"},
    {"two places in front of an exponent", 12345, "00.0E+00", "12.3E+03"},
    {"the smallest number", 4.9406564584124654e-324, "0.00000E+00", "4.94066E-324"},
    {"the smallest number without an exponent", 4.9406564584124654e-324, "0.000", "0.000"},
    {"infinite", -kInfinity, "0.000", "-INF"},
    {"no number", std::nan(""), "0.000", "NAN"},
    {"no pattern", 3, "", "3"},
};

TEST(NumberFormat, FollowsThePattern) {
  for (const FormatCase& c : kCases) {
    EXPECT_EQ(FormatNumber(c.value, c.pattern), c.expected) << c.name;
    EXPECT_EQ(ExactDigits(std::fabs(c.value), c.pattern), NumberDigits(std::fabs(c.value), c.pattern).Text())
        << c.name;
  }
}

TEST(NumberFormat, ShowsAHugeNumberWhole) {
  const std::string text = FormatNumber(-1e300, "###0.00");
  EXPECT_EQ(text, "-1" + std::string(300, '0') + ".00");
}

// The short road may answer only where the exact one would say the same.
void ExpectBothRoadsAgree(double value) {
  for (const NumberPattern& pattern :
       {NumberPattern("0"), NumberPattern("##0.0"), NumberPattern(" ######0.000"), NumberPattern("0.0000000"),
        NumberPattern("0.00000E+00"), NumberPattern("0E+00"), NumberPattern("0.00000000E+00")})
    ASSERT_EQ(NumberDigits(value, pattern).Text(), ExactDigits(value, pattern))
        << value << " " << pattern.text;
}

TEST(NumberFormat, TwoRoadsAgreeOnRandomNumbers) {
  std::mt19937_64 random(20240607);
  std::uniform_real_distribution<double> exponent(-30, 30), mantissa(1, 10);
  for (int i = 0; i < 60000; ++i) ExpectBothRoadsAgree(mantissa(random) * std::pow(10.0, exponent(random)));
}

TEST(NumberFormat, TwoRoadsAgreeOnTiesAndTheirNeighbours) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 25000; ++i) {
    const int decimals = static_cast<int>(random() % 8);
    const int digits = static_cast<int>(random() % 14);
    const double whole = static_cast<double>(random() % static_cast<std::uint64_t>(std::pow(10.0, digits)));
    const double tie = (whole + 0.5) / std::pow(10.0, decimals);
    double below = tie, above = tie;
    for (int step = 0; step < 4; ++step) {
      ExpectBothRoadsAgree(below);
      ExpectBothRoadsAgree(above);
      below = std::nextafter(below, 0);
      above = std::nextafter(above, kInfinity);
    }
    ExpectBothRoadsAgree(tie * (1 + 1e-14));
    ExpectBothRoadsAgree(tie * (1 - 1e-14));
  }
}

TEST(NumberFormat, TwoRoadsAgreeAroundPowersOfTen) {
  for (int power = -25; power <= 25; ++power) {
    const double exact = std::pow(10.0, power);
    for (const double factor : {1.0, 1 - 1e-15, 1 + 1e-15, 0.9999995, 0.99999949, 0.999999999})
      ExpectBothRoadsAgree(exact * factor);
  }
}

// Ties that are ties in decimal: written with 15 digits they end in 5, so each must go up, whatever binary
// makes of them.
TEST(NumberFormat, EveryDecimalTieGoesUp) {
  for (int i = 0; i < 20000; ++i) {
    const double value = std::stod(std::to_string(i) + ".0005");
    EXPECT_EQ(FormatNumber(value, "0.000"), std::to_string(i) + ".001");
  }
}

}  // namespace
}  // namespace zorlan

#include "base/fixed_real.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/fault.h"
#include "base/number.h"

namespace zorlan {
namespace {

struct TenColumns {
  double value;
  const char* text;
};

// By hand: of all forms of ten characters the one with the most digits; of those the most readable.
const TenColumns kTenColumns[] = {
    // whole numbers and zero
    {0, "         0"},
    {-0.0, "         0"},
    {5, "         5"},
    {-5, "        -5"},
    {1e9, "1000000000"},
    {1234567890, "1234567890"},
    {-123456789, "-123456789"},
    {7e12, "      7E12"},
    {-1e10, "     -1E10"},
    // a decimal that fits stays as it is
    {3.5, "       3.5"},
    {0.25, "      0.25"},
    {-0.5, "      -0.5"},
    {0.0052, "    0.0052"},
    {20904182.4, "20904182.4"},
    // one that doesn't is rounded; the zero in front of the point makes room first
    {1.23456789012, "1.23456789"},
    {-1.23456789012, "-1.2345679"},
    {123456789.123, " 123456789"},
    {-12345678.9, " -12345679"},
    {12345678.91, "12345678.9"},
    {0.123456789123, ".123456789"},
    {-0.123456789123, "-.12345679"},
    {0.0123456789123, ".012345679"},
    {0.00123456789123, ".001234568"},
    {2.0 / 3, ".666666667"},
    // as many digits with an exponent as without: the decimal; more: the exponent
    {0.000123456789, ".000123457"},
    {0.0000123456789, "1.23457E-5"},
    {1.234567e-4, ".000123457"},
    {1.23456789e-9, "1.23457E-9"},
    // an exponent of two digits leaves five digits with a point and six without
    {1.23456789e-12, "123457E-17"},
    {-1.23456789e-12, "-12346E-16"},
    {1.5e-12, "   1.5E-12"},
    {1e-14, "     1E-14"},
    {1.23456789e15, "12345679E8"},
    {1.23456789e20, "1234568E14"},
    {-1.23456789e20, "-123457E15"},
    // three digits of exponent
    {1.23456789e-150, "12346E-154"},
    {-1.7976931348623157e308, "-17977E304"},
    {5e-324, "    5E-324"},
    // what carries over
    {0.99999999999, "         1"},
    {9999999999.9, "      1E10"},
    {999999.99999, "   1000000"},
};

TEST(FixedReal, FillsTenColumnsWithAllTheDigitsThatFit) {
  for (const TenColumns& c : kTenColumns) {
    const std::string text = FixedReal(c.value, 10);
    EXPECT_EQ(text.size(), 10U) << c.value;
    EXPECT_EQ(text, c.text) << c.value;
  }
}

TEST(FixedReal, IsReadBackWithinTheDigitsOfItsColumns) {
  std::mt19937 random(7);
  const auto share = [&] { return static_cast<double>(random()) / 4294967296.0; };
  for (int k = 0; k < 20000; ++k) {
    const double value =
        (share() < 0.5 ? -1 : 1) * (1 + 9 * share()) * std::pow(10, std::floor(40 * share() - 20));
    for (const int width : {10, 13, 19}) {
      const std::string text = FixedReal(value, width);
      ASSERT_EQ(text.size(), static_cast<std::size_t>(width)) << value;
      // A sign and an exponent of two digits take up to four characters of the mantissa, and rounding half a
      // digit.
      ASSERT_NEAR(ReadReal(text) / value, 1, 0.51 * std::pow(10, -(width - 6))) << text << " for " << value;
    }
  }
}

TEST(FixedReal, ShowsAShortDecimalAsItWasTyped) {
  EXPECT_EQ(FixedReal(0.1, 19), "                0.1");
  EXPECT_EQ(FixedReal(-2.0005, 19), "            -2.0005");
}

TEST(FixedReal, RefusesWhatIsNotFinite) {
  EXPECT_THROW(FixedReal(std::numeric_limits<double>::infinity(), 10), Fault);
  EXPECT_THROW(FixedReal(std::numeric_limits<double>::quiet_NaN(), 10), Fault);
}

}  // namespace
}  // namespace zorlan

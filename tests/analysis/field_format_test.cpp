#include "analysis/field_format.h"

#include <gtest/gtest.h>

namespace zorlan {
namespace {

struct FieldCase {
  const char* name;
  double value;
  const char* pattern;
  const char* expected;
};

const FieldCase kCases[] = {
    {"right-aligned", 2.5, " ######0.000", "       2.500"},
    {"half away from zero on the decimal form", 2.0005, " ######0.000", "       2.001"},
    {"half away from zero below zero", -2.0005, " ######0.000", "      -2.001"},
    {"no sign on what shows as 0", -0.0004, " ######0.000", "       0.000"},
    {"no sign on minus zero", -0.0, " ######0.000", "       0.000"},
    {"the sign of the smallest that shows", -0.0005, "######0.000", "     -0.001"},
    {"a whole number", 27, "  ###0", "    27"},
    {"a whole number of 0", 0, "     0", "     0"},
    {"the leading blanks are room", 123456, "  ###0", "123456"},
    {"a whole number too wide", 1234567, "  ###0", "1234567"},
    {"a negative whole number too wide", -123456, "  ###0", "-123456"},
    {"just fitting", -999999.999, "######0.000", "-999999.999"},
    {"one decimal cut", -1234567.891, "######0.000", "-1234567.89"},
    {"decimals are cut, not rounded", -1234567.899, "######0.000", "-1234567.89"},
    {"two decimals cut", 123456789.567, "######0.000", "123456789.5"},
    {"the point goes with the last decimal", 1234567890.567, "######0.000", " 1234567890"},
    {"no room for the point alone", 12345678901.5, "######0.000", "12345678901"},
    {"the integer part whole though too wide", 123456789012.9, "######0.000", "123456789012"},
    {"the same with a sign", -12345678901.9, "######0.000", "-12345678901"},
    {"cut after a carry", 9999999.9996, "##0.000", "10000000"},
    {"one decimal", -1234.56, "##0.0", "-1234"},
    {"exponent", 2.45168e-5, "    0.00000E+00", "    2.45168E-05"},
    {"exponent with a sign", -2.45168e-5, "    0.00000E+00", "   -2.45168E-05"},
    {"exponent of 0", 0, "    0.00000E+00", "    0.00000E+00"},
    {"exponent of minus zero", -0.0, "    0.00000E+00", "    0.00000E+00"},
    {"exponent of three digits", -1e-100, "    0.00000E+00", "  -1.00000E-100"},
    {"exponent too wide keeps its decimals", -2.45168e-5, "0.00000E+00", "-2.45168E-05"},
    {"seven decimals", 0.000012, "##0.0000000", "  0.0000120"},
    {"blanks behind the number are room too", 42, "####0 ", "    42"},
    {"a minus apart from its number joins it", 12, "H- ##0", "  H-12"},
    {"blanks inside go", -1.5, "( #0.0 )", "  -(1.5)"},
};

TEST(FieldFormat, FillsTheWidthOfThePattern) {
  for (const FieldCase& c : kCases) EXPECT_EQ(FieldFormat(c.value, c.pattern), c.expected) << c.name;
}

TEST(FieldFormat, AppendsBehindWhatIsThere) {
  std::string line = "  NODE";
  AppendField(line, -0.5, "##0.00");
  AppendField(line, 1, "   #0");
  EXPECT_EQ(line, "  NODE -0.50    1");
}

}  // namespace
}  // namespace zorlan

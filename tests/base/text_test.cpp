#include "base/text.h"

#include <gtest/gtest.h>

#include <vector>

namespace zorlan {
namespace {

TEST(TakeField, EndsAtCommasAndKeepsBlanks) {
  struct Case {
    std::string_view line;
    std::vector<std::string_view> fields;
  };
  for (const Case& c :
       {Case{"", {""}}, {"a", {"a"}}, {"a,", {"a", ""}}, {",", {"", ""}}, {" 1 ,,b", {" 1 ", "", "b"}}}) {
    std::vector<std::string_view> fields;
    for (std::optional<std::string_view> rest = c.line; rest;) fields.push_back(TakeField(rest));
    EXPECT_EQ(fields, c.fields) << c.line;
  }
}

TEST(TakeField, IsEmptyBehindTheLastOne) {
  std::optional<std::string_view> rest;
  EXPECT_EQ(TakeField(rest), "");
  EXPECT_FALSE(rest);
}

TEST(BeforeEndMark, CutsATextAtTheByteThatClosesIt) {
  EXPECT_EQ(BeforeEndMark("a\r\n\x1A"), "a\r\n");
  EXPECT_EQ(BeforeEndMark("a\x1A\x1A b"), "a");
  EXPECT_EQ(BeforeEndMark("\x1A"), "");
  EXPECT_EQ(BeforeEndMark("a\n"), "a\n");
}

}  // namespace
}  // namespace zorlan

#include "base/delimited.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorlan {
namespace {

using testing::ElementsAre;

struct ItemsCase {
  const char* name;
  const char* text;
  std::vector<std::string> items;
};

const ItemsCase kItemsCases[] = {
    {"no text", "", {}},
    {"plain lines", "a\r\nb\r\n", {"a", "b"}},
    {"a line without its end", "a\r\nb", {"a", "b"}},
    {"lines ended by LF alone", "a\nb\n", {"a", "b"}},
    {"a comma splits a plain text", "/home/a,b/\r\n", {"/home/a", "b/"}},
    {"a comma stays in quotes", "\"a,b\",c\r\n", {"a,b", "c"}},
    {"blanks around a plain text are gone", "  a b \t,  c\r\n", {"a b", "c"}},
    {"blanks in quotes stay", "\" a \" , b\r\n", {" a ", "b"}},
    {"a quote written twice is one", "\"a\"\"b\"\r\n", {"a\"b"}},
    {"a quote inside a plain text stays", "a\"b\r\n", {"a\"b"}},
    {"an open quote ends with its line", "\"a,b\r\nc\r\n", {"a,b", "c"}},
    {"an empty line is an empty text", "\r\na\r\n", {"", "a"}},
    {"a closing comma has an empty text behind it", "a,\r\n", {"a", ""}},
    {"an empty text in quotes", "\"\",\"\"\r\n", {"", ""}},
    {"what follows a closing quote is dropped", "\"a\"x,b\r\n", {"a", "b"}},
    {"a quote alone", "\"", {""}},
};

TEST(DelimitedItems, AreReadAsSequentialInput) {
  for (const ItemsCase& c : kItemsCases) EXPECT_EQ(DelimitedItems(c.text), c.items) << c.name;
}

TEST(Quoted, IsReadBackAsItWas) {
  for (const char* const text : {"", "a", "a,b", " a ", "\"", "a\"\"b", "節点　表", ",", "\","})
    EXPECT_THAT(DelimitedItems(Quoted(text) + "," + Quoted("z")), ElementsAre(text, "z")) << text;
}

TEST(Quoted, KeepsOnOneLine) {
  EXPECT_EQ(Quoted("a\r\nb"), "\"a  b\"");
}

}  // namespace
}  // namespace zorlan

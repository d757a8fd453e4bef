#include "forms/clipboard_text.h"

#include <gtest/gtest.h>

namespace zorlan {
namespace {

using CellRows = std::vector<std::vector<std::string>>;

struct ClipboardCase {
  const char* name;
  std::string_view text;
  CellRows cells;
};

const ClipboardCase kCases[] = {
    {"our own copy: CR between rows", "1\t2\r3\t4", {{"1", "2"}, {"3", "4"}}},
    {"a spreadsheet's: CR LF behind every row", "1\t2\r\n3\t4\r\n", {{"1", "2"}, {"3", "4"}}},
    {"a spreadsheet's on another system: LF alone", "1\t2\n3\t4\n", {{"1", "2"}, {"3", "4"}}},
    {"one cell", "5", {{"5"}}},
    {"nothing", "", {}},
    {"an empty cell in the middle", "1\t\t3", {{"1", "", "3"}}},
    {"an empty row in the middle", "1\r\n\r\n3\r\n", {{"1"}, {""}, {"3"}}},
    {"a blank first row", "\r\n2\r\n", {{""}, {"2"}}},
    {"a tab at the end leads to no cell", "1\t", {{"1"}}},
    {"line feeds are dropped", "1\n2\r3", {{"12"}, {"3"}}},
    {"a quoted cell with a line end", "\"a\nb\"\t2\r\n3\t4\r\n", {{"ab", "2"}, {"3", "4"}}},
    {"a quoted cell with a tab", "\"a\tb\"\t2", {{"a b", "2"}}},
    {"a quoted cell with quotes", "\"a\"\"b\"\r\n3", {{"a\"b"}, {"3"}}},
    {"quotes of the text's own", "\"a\"\t\"b", {{"\"a\"", "\"b"}}},
};

TEST(ClipboardText, IsCutIntoCells) {
  for (const ClipboardCase& c : kCases) EXPECT_EQ(ClipboardCells(c.text), c.cells) << c.name;
}

TEST(ClipboardText, ABoxTakesItWithoutItsLineEnds) {
  EXPECT_EQ(WithoutLineEnds("1\r\n2\n"), "12");
}

}  // namespace
}  // namespace zorlan

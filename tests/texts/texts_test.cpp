// The words of the product are part of it, to the blank. Each list in this folder holds the texts of one
// subject, a text a line between two bars that show the blanks at its ends; each must stand in the sources
// exactly so. A line that begins with "#" is a heading.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "base/text_file.h"
#include "texts/source_literals.h"

namespace zorlan {
namespace {

using test::StandsIn;
using test::StringLiterals;

namespace fs = std::filesystem;

TEST(StringLiterals, ResolvesEscapesAndJoinsNeighbours) {
  const std::vector<std::string> texts = {"a\"b\\", "節点要素", "c\r\n", "x"};
  EXPECT_EQ(StringLiterals(R"src(f("a\"b\\", "節点" /* and */
      "要素"); // "not this"
      '"' 1'000 "c\r\n" + '\'' "x")src"),
            texts);
}

TEST(StringLiterals, TakesRawStringsAsTheyStand) {
  const std::vector<std::string> texts = {"a\\n\"b"};
  EXPECT_EQ(StringLiterals("R\"(a\\n\"b)\""), texts);
}

TEST(StandsIn, WantsTheTextWithItsOwnBlanksAndNoMore) {
  EXPECT_TRUE(StandsIn("  NODE", "  NODE"));
  EXPECT_TRUE(StandsIn("NODE ", "◆NODE \r\n"));
  EXPECT_TRUE(StandsIn("NODE", "x\nNODE=\ny"));
  EXPECT_FALSE(StandsIn("NODE", "NODE "));
  EXPECT_FALSE(StandsIn("NODE", " NODE"));
  EXPECT_FALSE(StandsIn("節点", "節点　"));
  EXPECT_FALSE(StandsIn("NODE  A", "NODE A"));
}

std::vector<std::string> ListNames() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(ZORLAN_SOURCE_DIR "/tests/texts"))
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

/// The texts of a list; a line without its bars fails the test.
std::vector<std::string> TextsOfList(const std::string& name) {
  std::vector<std::string> texts;
  const std::string list = ReadBytes(ZORLAN_SOURCE_DIR "/tests/texts/" + name + ".txt");
  std::string_view rest = list;
  while (const std::optional<std::string_view> line = TakeLine(rest)) {
    if (line->empty() || line->starts_with("#")) continue;
    const bool barred = line->size() > 2 && line->starts_with("|") && line->ends_with("|");
    EXPECT_TRUE(barred) << name << ": " << *line;
    if (barred) texts.emplace_back(line->substr(1, line->size() - 2));
  }
  return texts;
}

class SourceTexts : public testing::TestWithParam<std::string> {};

TEST_P(SourceTexts, StandInTheSourcesExactly) {
  static const std::vector<std::string> kSources =
      test::TextsBelow({ZORLAN_SOURCE_DIR "/src", ZORLAN_SOURCE_DIR "/apps", ZORLAN_SOURCE_DIR "/data"});
  const std::vector<std::string> texts = TextsOfList(GetParam());
  EXPECT_FALSE(texts.empty());
  for (const std::string& text : texts)
    EXPECT_TRUE(std::any_of(kSources.begin(), kSources.end(),
                            [&](const std::string& literal) { return StandsIn(text, literal); }))
        << "not in the sources: |" << text << "|";
}

INSTANTIATE_TEST_SUITE_P(List, SourceTexts, testing::ValuesIn(ListNames()),
                         [](const testing::TestParamInfo<std::string>& list) { return list.param; });

}  // namespace
}  // namespace zorlan

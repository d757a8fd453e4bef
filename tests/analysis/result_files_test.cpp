#include "analysis/result_files.h"

#include "base/number.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::FaultOf;
using testing::ElementsAre;
using testing::HasSubstr;

class ResultFiles : public test::ModelFolderTest {
 protected:
  std::string File(std::string_view text) const {
    ReplaceBytes(Root() + "reals", text);
    return Root() + "reals";
  }
};

TEST_F(ResultFiles, NumbersStandBetweenBlanksCommasAndLineEnds) {
  EXPECT_THAT(ReadReals(File("  1 ,-2.5\r\n\r\n3e-05\n,, 4\t5 "), 5), ElementsAre(1, -2.5, 3e-5, 4, 5));
}

TEST_F(ResultFiles, WhatFollowsTheNumbersAskedForIsLeft) {
  EXPECT_THAT(ReadReals(File("1 2 words"), 2), ElementsAre(1, 2));
}

TEST_F(ResultFiles, AFileOfManyPiecesIsReadWhole) {
  std::vector<double> written;
  std::string text;
  for (int i = 0; i < 100000; ++i) {
    written.push_back(i * 0.123456789012345 - 5000);
    AppendPrinted(text, written.back());
    if (i % 7 == 0) text += std::string(static_cast<std::size_t>(i % 500), ' ') + "\r\n";
  }
  const std::vector<double> read = ReadReals(File(text), written.size());
  for (std::size_t i = 0; i < written.size(); ++i)
    ASSERT_NEAR(read[i], written[i], 1e-14 * std::abs(written[i])) << i;
}

TEST_F(ResultFiles, WhatIsBrokenIsToldWithTheFile) {
  struct {
    const char* text;
    std::size_t count;
    const char* reason;
  } const cases[] = {
      {"", 1, "ファイルが途中で終わっています"},
      {"1 2\r\n", 3, "ファイルが途中で終わっています"},
      {"1", 1000000000000000, "ファイルが途中で終わっています"},
      {"1 2.71", 2, "ファイルが途中で終わっています"},
      {"1 two", 2, "数値でないデータがあります"},
      {"1.2.3", 1, "数値でないデータがあります"},
      {"nan", 1, "数値でないデータがあります"},
      {"1e400", 1, "数値でないデータがあります"},
  };
  for (const auto& c : cases) {
    const std::string fault = FaultOf([&] { ReadReals(File(c.text), c.count); });
    EXPECT_THAT(fault, HasSubstr(c.reason)) << c.text;
    EXPECT_THAT(fault, HasSubstr("reals"));
  }
}

TEST_F(ResultFiles, ANumberLongerThanAPieceIsNone) {
  EXPECT_THAT(FaultOf([&] { ReadReals(File(std::string(200000, '1')), 1); }),
              HasSubstr("数値でないデータがあります"));
}

TEST_F(ResultFiles, ReactionsComeBackHoweverTheirRecordsAreGrouped) {
  const Reactions written = {2, {30, 10}, {1, 2, 3, 4, 5, 6, -1, -2, -3, -4, -5, -6}};
  for (const ReactionLines lines : {ReactionLines::One, ReactionLines::Four}) {
    WriteReactions(Root(), written, lines);
    const Reactions read = ReadReactions(Root());
    EXPECT_EQ(read.cases, 2);
    EXPECT_EQ(read.nodes, written.nodes);
    EXPECT_EQ(read.values, written.values);
  }
}

// Wherever a file is cut, a number of its last line is missing or has lost its end.
TEST_F(ResultFiles, AFileCutInsideItsLastNumberIsRefusedAndNotTakenForAnotherNumber) {
  WriteForces(Root(), std::vector<double>{1.5, -271.828});
  const std::string whole = ReadBytes(Root() + "FT031");
  EXPECT_THAT(ReadReals(Root() + "FT031", 2), ElementsAre(1.5, -271.828));
  for (std::size_t length = whole.find('-') + 2; length <= whole.find("828") + 3; ++length)
    EXPECT_THAT(FaultOf([&] { ReadReals(File(whole.substr(0, length)), 2); }),
                HasSubstr("ファイルが途中で終わっています"))
        << length;
}

TEST_F(ResultFiles, ReactionsWithMoreThanTheirIndexSaysAreRefused) {
  const Reactions written = {1, {30, 10}, {1, 2, 3, 4, 5, 6}};
  for (const char* const name : {"FT022", "FT022A"}) {
    WriteReactions(Root(), written, ReactionLines::One);
    ReplaceBytes(Root() + name, ReadBytes(Root() + name) + " 7 \r\n");
    EXPECT_THAT(FaultOf([&] { ReadReactions(Root()); }),
                HasSubstr(std::string(name) + " ： データの個数が正しくありません"));
  }
}

TEST_F(ResultFiles, AnIndexThatPromisesMoreThanTheReactionsHoldIsRefused) {
  ReplaceBytes(Root() + "FT022A", "20 3 1 2 3 ");
  ReplaceBytes(Root() + "FT022", "1 0 0 0 ");
  EXPECT_THAT(FaultOf([&] { ReadReactions(Root()); }), HasSubstr("FT022 ： ファイルが途中で終わっています"));
}

}  // namespace
}  // namespace zorlan

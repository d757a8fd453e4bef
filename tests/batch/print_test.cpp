// Listings printed into PDF files by the built program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "batch/batch_program.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(BatchPrint, MakesPagesOfAListing) {
  const BatchProgram program;
  program.Deck("梁.inp", CantileverDeck());
  ASSERT_EQ(program.Run({"analyze", "梁.inp"}).exitCode, 0);
  const BatchResult result = program.Run({"print", "梁.out", "--output", "梁.pdf"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(result.err, IsEmpty());
  EXPECT_THAT(program.Bytes("梁.pdf"), StartsWith("%PDF"));
  EXPECT_THAT(BatchProgram::Names(program.Temporary()), IsEmpty());
}

TEST(BatchPrint, ThePagesAreSearchedByTheirText) {
  const BatchProgram program;
  program.Deck("梁.inp", CantileverDeck());
  program.Run({"analyze", "梁.inp"});
  const BatchResult text = program.Shell(
      "\"$ZORLAN\" print 梁.out --output a.pdf && command -v pdftotext >/dev/null && pdftotext a.pdf -");
  if (text.out.empty() && text.err.empty()) GTEST_SKIP() << "pdftotext is not there";
  EXPECT_THAT(text.out, HasSubstr("解析結果ファイル"));
  EXPECT_THAT(text.out, HasSubstr("Page-1"));
}

TEST(BatchPrint, FollowsThePrinterSettingsOfTheTree) {
  const BatchProgram program;
  const BatchResult size = program.Shell(
      "tree=docs/Quellwerk/ZORLAN_V6 && mkdir -p $tree &&"
      "printf '\"\"\\r\\n\"A3\"\\r\\n2\\r\\n1\\r\\n1\\r\\n1\\r\\n1\\r\\n1\\r\\n' > $tree/PrinterInf.Ini &&"
      "echo text > a.out && \"$ZORLAN\" --documents docs print a.out --output a.pdf &&"
      "command -v pdfinfo > /dev/null && pdfinfo a.pdf");
  if (size.out.empty() && size.err.empty()) GTEST_SKIP() << "pdfinfo is not there";
  EXPECT_THAT(size.out, HasSubstr("1191 x 842"));  // 420 x 297 mm in points
}

TEST(BatchPrint, RefusesAMissingListingAndAMissingOutput) {
  const BatchProgram program;
  program.File("a.out", "text\r\n");
  const BatchResult noListing = program.Run({"print", "b.out", "--output", "a.pdf"});
  EXPECT_EQ(noListing.exitCode, 2);
  EXPECT_THAT(noListing.err, HasSubstr("b.out ： リストのファイルがありません"));
  const BatchResult noOutput = program.Run({"print", "a.out"});
  EXPECT_EQ(noOutput.exitCode, 2);
  EXPECT_THAT(noOutput.err, HasSubstr("--output"));
}

TEST(BatchPrint, AFolderThatIsNotThereIsAFailureThatNamesThePath) {
  const BatchProgram program;
  program.File("a.out", "text\r\n");
  const BatchResult result = program.Run({"print", "a.out", "--output", "無い/a.pdf"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("無い/a.pdf"));
}

}  // namespace
}  // namespace zorlan

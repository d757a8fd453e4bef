#include "output/print_flag.h"

#include "support/model_folder.h"

namespace zorlan {
namespace {

class PrintFlagTest : public test::ModelFolderTest {};

TEST_F(PrintFlagTest, EveryFlagHasItsFileAndHeadings) {
  const std::string results = DataPath + "試験.zor/model.ANA/";
  struct {
    int flag;
    std::string file;
    const char *page, *reader;
  } const cases[] = {
      {-1, WorkPath + "InputErr.txt", "<<エラーチェック>>", "<<エラーチェック>>"},
      {0, WorkPath + "InputErr.txt", "<<エラーチェック>>", "<<エラーチェック>>"},
      {1, WorkPath + "TmpFile.inp", "<<入力ファイル>>", "<<入力ファイル>>"},
      {2, DataPath + "試験.zor/model.out", "<<解析結果ファイル>>", "<<解析結果ファイル>> "},
      {3, results + "DSNS", "", "<<Ｓ断面算定>> "},
      {4, results + "DSNRC", "", "<<ＲＣ断面算定>> "},
      {5, WorkPath + "KUMI", "", "<<荷重の組み合わせ>>"},
      {6, results + "DSNW", "", "<<木造トラス断面算定>> "},
      {7, WorkPath + "TmpFile", "", ""},
      {8, "", "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(PrintFile(c.flag), c.file) << c.flag;
    EXPECT_EQ(PageHeading(c.flag), c.page) << c.flag;
    EXPECT_EQ(ReaderHeading(c.flag), c.reader) << c.flag;
  }
}

TEST_F(PrintFlagTest, TheTimberListingAloneBreaksBeforeSquares) {
  for (int flag = -1; flag <= 7; ++flag) EXPECT_EQ(StyleOfFlag(flag).breakBeforeSquare, flag == 6) << flag;
}

TEST_F(PrintFlagTest, AFileIsKnownByItsName) {
  EXPECT_EQ(FlagOfListing("/a/InputErr.txt"), kPrintCheck);
  EXPECT_EQ(FlagOfListing("TmpFile.inp"), kPrintInputList);
  EXPECT_EQ(FlagOfListing("/a.zor/門型.OUT"), kPrintListing);
  EXPECT_EQ(FlagOfListing("/a.zor/門型.ANA/dsnrc"), kPrintConcreteDesign);
  EXPECT_EQ(FlagOfListing("/a/DSNW"), kPrintTimberDesign);
  EXPECT_EQ(FlagOfListing("/a/notes.txt"), kPrintOther);
}

}  // namespace
}  // namespace zorlan

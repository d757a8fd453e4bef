// The built anaZorlan, in a folder of the test's own.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "base/cp932.h"
#include "base/text_file.h"
#include "companion/deck_text.h"
#include "companion/run.h"
#include "temporary_folder.h"

namespace zorlan::companion::test {
namespace {

class CompanionProgram : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder_.Path() + name; }
  void WriteControl(const std::string& folder) const {
    ReplaceTextFile(Path("ANAZOR.CTL"), "FT999.INP\r\nFT999.OUT\r\nFT999.ERR\r\n" + folder + "\r\n");
  }
  void WriteDeck(const std::vector<std::string>& lines) const {
    ReplaceTextFile(Path("FT999.INP"), Joined(lines));
  }
  /// Exit code; what it said on standard error is in Said().
  int Run(const std::string& arguments = "") const {
    const int status = std::system(
        ("cd '" + folder_.Path() + "' && exec '" ZORLAN_COMPANION "' " + arguments + " >stdout 2>stderr")
            .c_str());
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(ReadBytes(Path("stdout")), "");
    return WEXITSTATUS(status);
  }
  std::string Said() const { return ReadBytes(Path("stderr")); }
  std::string ErrorFile() const {
    return FileExists(Path("FT999.ERR")) ? ReadTextFile(Path("FT999.ERR")) : "";
  }

  TemporaryFolder folder_;
};

TEST_F(CompanionProgram, PrintsCountsAndThreeTablesInTheirColumns) {
  WriteControl(folder_.Path());
  WriteDeck(CantileverLines());
  ASSERT_EQ(Run(), kSolved) << Said();
  EXPECT_EQ(ErrorFile(), "");
  // By hand, EI = 4200: the tip sinks by 1.5 64/3EI + 2 16/2EI, and the end actions of 3 t/m over 4 m add 3
  // 256/8EI.
  const std::string expected =
      "    NUMBER OF NODAL POINTS   = 3\r\n"
      "    NUMBER OF LOAD CASES     = 1\r\n"
      " NUMBER OF BEAMS                  = 2\r\n"
      "NUMBER OF ELEMENTS = 3\r\n"
      "\r\n"
      " N O D E   D I S P L A C E M E N T S / R O T A T I O N S\r\n"
      "\r\n"
      "      1       1             0             0             0             0             0             0\r\n";
  const std::string text = ReadTextFile(Path("FT999.OUT"));
  EXPECT_EQ(text.substr(0, expected.size()), expected);
  const double sag = (1.5 * 64 / 3 + 2 * 16 / 2.0 + 3 * 256 / 8.0) / 4200;
  const std::size_t tip = text.find("\r\n      2       1") + 2;
  EXPECT_NEAR(std::stod(text.substr(tip + 43, 14)), -sag, 1e-9);
  // The actions stand at the outer ends alone: between them the shear is 1.5 + 6, and half of it, over 2 m,
  // takes the wall's 32 - 4 down to 13.
  EXPECT_EQ(text.substr(text.find(" BEAM FORCES AND MOMENTS")),
            " BEAM FORCES AND MOMENTS\r\n"
            "\r\n"
            " 1       1                           0                13.5                 -32\r\n"
            " 1       1                           0                -7.5                  13\r\n"
            " 2       1                           0                 7.5                 -13\r\n"
            " 2       1                           0                -1.5                   2\r\n"
            "\r\n"
            " B O U N D A R Y   E L E M E N T   F O R C E S / M O M E N T S\r\n"
            "\r\n"
            "      1       1       1                   0\r\n"
            "      2       1       1               -13.5\r\n"
            "      3       1       1                 -32\r\n");
}

TEST_F(CompanionProgram, RefusesWhatIsNoDeckAndRemovesTheOldOutput) {
  WriteControl(folder_.Path());
  ReplaceBytes(Path("FT999.INP"), std::string("\x00\xff\x81garbage", 10));
  ReplaceBytes(Path("FT999.OUT"), "old");
  EXPECT_EQ(Run(), kRefused);
  EXPECT_NE(ErrorFile().find("1行目 ： 入力データの版が %Ver.4 ではありません"), std::string::npos)
      << ErrorFile();
  EXPECT_NE(Said().find("1行目"), std::string::npos);
  EXPECT_FALSE(FileExists(Path("FT999.OUT")));
}

TEST_F(CompanionProgram, NamesTheNodeAndDirectionThatNothingHolds) {
  WriteControl(folder_.Path());
  std::vector<std::string> lines = CantileverLines();
  lines[16] = "    7    2";
  lines.erase(lines.begin() + 21, lines.begin() + 23);  // the clamp's moment
  WriteDeck(lines);
  EXPECT_EQ(Run(), kUnstable);
  EXPECT_EQ(ErrorFile(), "不安定構造\r\nNODE =2     Y 方向  剛性　ありません\r\n");
  EXPECT_FALSE(FileExists(Path("FT999.OUT")));
}

TEST_F(CompanionProgram, FindsItsFilesInTheFolderThatTheControlFileNames) {
  const std::string elsewhere = Path("解析/");
  MakeFolder(elsewhere);
  WriteControl(elsewhere);
  ReplaceTextFile(elsewhere + "FT999.INP", Joined(CantileverLines()));
  EXPECT_EQ(Run(), kSolved) << Said();
  EXPECT_TRUE(FileExists(elsewhere + "FT999.OUT"));
}

TEST_F(CompanionProgram, RefusesAMissingOrShortControlFileAndArguments) {
  EXPECT_EQ(Run(), kRefused);
  EXPECT_NE(Said().find("ANAZOR.CTL"), std::string::npos);
  ReplaceTextFile(Path("ANAZOR.CTL"), "FT999.INP\r\nFT999.OUT\r\n");
  EXPECT_EQ(Run(), kRefused);
  EXPECT_NE(Said().find("制御ファイルは４行必要です"), std::string::npos);
  WriteControl(folder_.Path());
  WriteDeck(CantileverLines());
  EXPECT_EQ(Run("FT999.INP"), kRefused);
  EXPECT_NE(Said().find("引数はありません"), std::string::npos);
}

TEST_F(CompanionProgram, TellsAFolderThatItCantWriteTo) {
  WriteControl(Path("missing/"));
  EXPECT_EQ(Run(), kRefused);
  EXPECT_NE(Said().find("missing"), std::string::npos);
}

}  // namespace
}  // namespace zorlan::companion::test

// Figures of decks in files, by the built program.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "batch/batch_program.h"

namespace zorlan {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// A program with an analysed deck "梁.inp".
class BatchFigure : public testing::Test {
 protected:
  BatchFigure() {
    program_.Deck("梁.inp", CantileverDeck());
    EXPECT_EQ(program_.Run({"analyze", "梁.inp"}).exitCode, 0);
  }
  BatchResult Draw(const std::string& kind, const std::string& file, const std::string& loadCase = "1") {
    return program_.Run({"figure", "梁.inp", "--kind", kind, "--case", loadCase, "--output", file});
  }
  /// What `figure` says of bad words.
  std::string Complaint(std::vector<std::string> words) {
    words.insert(words.begin(), "figure");
    const BatchResult result = program_.Run(words);
    EXPECT_EQ(result.exitCode, 2);
    return result.err;
  }
  std::string Lines(const std::string& file) { return program_.Shell("iconv -f CP932 -t UTF-8 " + file).out; }

  BatchProgram program_;
};

TEST_F(BatchFigure, MakesEveryKindInEveryForm) {
  program_.File("梁.ANA/SIG_S", "0.95\r\n0.4\r\n-1\r\n");
  program_.File("梁.ANA/SIG_RC", "0.2\r\n");
  struct Form {
    const char *ending, *beginning;
  };
  for (const char* const kind : {"model", "load", "displacement", "axial", "shear", "moment", "steel", "rc"})
    for (const Form& form : {Form{".dxf", "0\r\nSECTION"}, Form{".pdf", "%PDF"}, Form{".svg", "<?xml"},
                             Form{".png", "\x89PNG"}, Form{".tmp", "TEXT, TITLE_TXT, "}}) {
      const std::string file = kind + std::string(form.ending);
      const BatchResult result = Draw(kind, file);
      EXPECT_EQ(result.exitCode, 0) << file << result.err;
      EXPECT_THAT(result.out, IsEmpty());
      EXPECT_THAT(result.err, IsEmpty());
      EXPECT_THAT(program_.Bytes(file), StartsWith(form.beginning)) << file;
    }
  EXPECT_THAT(BatchProgram::Names(program_.Temporary()), IsEmpty());
}

TEST_F(BatchFigure, TheDrawingListHasTitleFrameAndDiagram) {
  ASSERT_EQ(Draw("moment", "m.tmp").exitCode, 0);
  const std::string list = Lines("m.tmp");
  EXPECT_THAT(list,
              AllOf(HasSubstr("TEXT, TITLE_TXT, "), HasSubstr("ﾓｰﾒﾝﾄ図"), HasSubstr("荷重ｹｰｽ=1"),
                    HasSubstr("LINE, MODEL, "), HasSubstr("LINE, MOMENT, "), HasSubstr("MOMENT_TXT, ")));
}

TEST_F(BatchFigure, TheModelAndLoadFiguresNeedNoResults) {
  program_.Shell("rm -r 梁.ANA 梁.out");
  EXPECT_EQ(Draw("model", "a.pdf").exitCode, 0);
  EXPECT_EQ(Draw("load", "b.dxf").exitCode, 0);
}

TEST_F(BatchFigure, MissingResultsAreAFailureAndLeaveNoFile) {
  program_.Shell("rm 梁.ANA/FT031");
  for (const char* const file : {"a.pdf", "a.dxf"}) {
    const BatchResult result = Draw("moment", file);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, AllOf(HasSubstr("梁.inp"), HasSubstr("解析結果がありません")));
    EXPECT_FALSE(program_.Exists(file));
  }
  EXPECT_THAT(Draw("steel", "s.svg").err, HasSubstr("断面算定の結果がありません"));
  EXPECT_FALSE(program_.Exists("s.svg"));
}

TEST_F(BatchFigure, ResultsOfAnotherModelAreNoResults) {
  program_.Shell("head -n 2 梁.ANA/FT031 > f && mv f 梁.ANA/FT031");
  EXPECT_THAT(Draw("axial", "a.png").err, HasSubstr("解析結果がありません"));
}

TEST_F(BatchFigure, ALoadCaseOutOfRangeIsAFailure) {
  for (const char* const loadCase : {"0", "2", "-1"}) {
    const BatchResult result = Draw("moment", "a.svg", loadCase);
    EXPECT_EQ(result.exitCode, 1) << loadCase;
    EXPECT_THAT(result.err, HasSubstr("荷重ケース " + std::string(loadCase) + " はありません"));
  }
  EXPECT_FALSE(program_.Exists("a.svg"));
}

TEST_F(BatchFigure, AFileThatCantBeWrittenIsNamed) {
  for (const char* const file : {"無い/a.pdf", "無い/a.dxf", "無い/a.tmp"}) {
    const BatchResult result = Draw("model", file);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr(file));
  }
}

TEST_F(BatchFigure, AMemberWithoutLengthIsToldAndNothingIsWritten) {
  program_.Shell(
      "iconv -f CP932 -t UTF-8 梁.inp | sed 's/^2,1,0,/2,0,0,/' | iconv -f UTF-8 -t CP932 > 短.inp");
  for (const char* const file : {"a.pdf", "a.dxf", "a.tmp"}) {
    const BatchResult result = program_.Run({"figure", "短.inp", "--kind", "model", "--output", file});
    EXPECT_EQ(result.exitCode, 1) << file;
    EXPECT_THAT(result.err, AllOf(HasSubstr("要素データエラー"), HasSubstr("要素の長さ＝０です")));
    EXPECT_FALSE(program_.Exists(file));
  }
}

TEST_F(BatchFigure, BadWordsAreBadUsage) {
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "model"}), HasSubstr("--output"));
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "model", "--output", "a.bmp"}), HasSubstr(".dxf .pdf .svg"));
  EXPECT_THAT(Complaint({"梁.inp", "--output", "a.pdf"}), HasSubstr("model load displacement"));
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "bending", "--output", "a.pdf"}), HasSubstr("--kind"));
  EXPECT_THAT(Complaint({"梁.inp", "梁.inp", "--kind", "model", "--output", "a.pdf"}), HasSubstr("一つだけ"));
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "model", "--case", "x", "--output", "a.pdf"}),
              HasSubstr("引数が正しくありません"));
  EXPECT_THAT(Complaint({"無い.inp", "--kind", "model", "--output", "a.pdf"}),
              HasSubstr("入力データファイルがありません"));
}

TEST_F(BatchFigure, FollowsTheSheetOfThePrinterSettings) {
  const BatchResult result = program_.Shell(
      "tree=docs/Quellwerk/ZORLAN_V6 && mkdir -p $tree &&"
      "printf '\"\"\\r\\n\"A3\"\\r\\n2\\r\\n1\\r\\n1\\r\\n1\\r\\n1\\r\\n1\\r\\n' > $tree/PrinterInf.Ini &&"
      "\"$ZORLAN\" --documents docs figure 梁.inp --kind load --output a.svg && head -n 3 a.svg");
  EXPECT_THAT(result.out, HasSubstr("width=\"420mm\" height=\"297mm\""));
}

TEST_F(BatchFigure, AModelsNameOutsideTheCodePageIsNoObstacle) {
  program_.Shell("mv 梁.inp 梁〜−é한.inp");
  for (const char* const file : {"a.dxf", "a.tmp", "a.svg"}) {
    const BatchResult result = program_.Run({"figure", "梁〜−é한.inp", "--kind", "load", "--output", file});
    EXPECT_EQ(result.exitCode, 0) << file << result.err;
    EXPECT_THAT(result.err, IsEmpty());
  }
  for (const char* const file : {"a.dxf", "a.tmp"}) EXPECT_THAT(Lines(file), HasSubstr("(梁～－?")) << file;
  EXPECT_THAT(program_.Bytes("a.svg"), HasSubstr("梁〜−é한"));
}

TEST_F(BatchFigure, AViewingRangeInForceIsTold) {
  std::string rows;
  for (int row = 0; row < 8; ++row) rows += "\\r\\n";  // the defaults
  const std::string tree = "mkdir -p docs/Quellwerk/ZORLAN_V6 && printf '" + rows;
  const std::string draw =
      "' > docs/Quellwerk/ZORLAN_V6/MODELEST.PRM && "
      "\"$ZORLAN\" --documents docs figure 梁.inp --kind model --output ";
  for (const char* const file : {"a.dxf", "a.svg"}) {
    const BatchResult limited = program_.Shell(tree + "0,1,,\\r\\n0\\r\\n" + draw + file);
    EXPECT_EQ(limited.exitCode, 0) << limited.err;
    EXPECT_THAT(limited.err, AllOf(HasSubstr("表示範囲"), HasSubstr("MODELEST.PRM"))) << file;
    EXPECT_TRUE(program_.Exists(file));
    EXPECT_THAT(program_.Shell(tree + ",,,\\r\\n0\\r\\n" + draw + file).err, IsEmpty()) << file;
  }
}

TEST_F(BatchFigure, TextsOfAPdfAreSearched) {
  const BatchResult text = program_.Shell(
      "\"$ZORLAN\" figure 梁.inp --kind moment --output a.pdf && command -v pdftotext >/dev/null && "
      "pdftotext a.pdf -");
  if (text.out.empty() && text.err.empty()) GTEST_SKIP() << "pdftotext is not there";
  EXPECT_THAT(text.out, HasSubstr("タイトル"));
  EXPECT_THAT(text.out, HasSubstr("(単位:"));
}

}  // namespace
}  // namespace zorlan

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

// The window tells of such tables by the same words.
TEST_F(BatchFigure, ATableAtFaultIsToldAndNothingIsWritten) {
  const std::string nodes = "節点データに異常が有ります", members = "要素データに異常が有ります";
  struct FaultCase {
    const char *name, *node, *element;
    std::string told;
  };
  const FaultCase kCases[] = {
      {"a node of three cells", "1,0,0,1,1,1\n2,5,0,0,0,0\n3,5,5", "1,1,2,0,0,1", nodes},
      {"a node of eight cells", "1,0,0,1,1,1\n2,5,0,0,0,0\n3,5,5,0,0,0,0,0", "1,1,2,0,0,1", nodes},
      {"a node number below 0", "1,0,0,1,1,1\n2,5,0,0,0,0\n-3,5,5,0,0,0", "1,1,2,0,0,1", nodes},
      {"a member of three cells", "1,0,0,1,1,1\n2,5,0,0,0,0", "1,1,2,0,0,1\n2,1,2", members},
      {"a member on no node", "1,0,0,1,1,1\n2,5,0,0,0,0", "1,1,2,0,0,1\n2,2,9,0,0,1", members},
  };
  for (const FaultCase& c : kCases) {
    program_.Deck("誤.inp", "@CONT\n1,1,0,0\n@NODE\n" + std::string(c.node) + "\n@ELEM\n" + c.element + "\n");
    for (const char* const file : {"a.png", "a.dxf", "a.tmp"}) {
      const BatchResult result = program_.Run({"figure", "誤.inp", "--kind", "model", "--output", file});
      EXPECT_EQ(result.exitCode, 1) << c.name;
      EXPECT_THAT(result.err, StartsWith("入力ﾌｧｲﾙの読込み: " + c.told + "\n")) << c.name;
      EXPECT_THAT(result.err, HasSubstr("誤.inp ： 図を出力できませんでした")) << c.name;
      EXPECT_FALSE(program_.Exists(file)) << c.name;
    }
  }
  EXPECT_THAT(BatchProgram::Names(program_.Temporary()), IsEmpty());
}

TEST_F(BatchFigure, LabelsInParenthesesAreShownWithoutThem) {
  program_.Deck("括弧.inp",
                "@CONT\n1,1,0,0\n@NODE\n(71),0,0,1,1,1\n(82),10,0,0,0,0\n@ELEM\n(93),71,82,0,0,(1)\n");
  const BatchResult result = program_.Run({"figure", "括弧.inp", "--kind", "model", "--output", "p.tmp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(Lines("p.tmp"), AllOf(HasSubstr(", 71, "), HasSubstr(", 82, "), HasSubstr(", 93, ")));
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

TEST_F(BatchFigure, ResultsThatDontFitAreToldWithTheirFileAndTheReason) {
  const std::string whole = program_.Bytes("梁.ANA/FT031");
  const struct {
    std::string bytes;
    const char* reason;
  } cases[] = {
      {whole.substr(0, whole.find('\n') + 1), "ファイルが途中で終わっています"},
      {whole + "1.0\r\n", "データの個数が正しくありません"},
      {"x" + whole, "数値でないデータがあります"},
  };
  for (const auto& c : cases) {
    program_.File("梁.ANA/FT031", c.bytes);
    for (const char* const file : {"a.png", "a.dxf"}) {
      const BatchResult result = Draw("axial", file);
      EXPECT_EQ(result.exitCode, 1);
      EXPECT_THAT(result.err,
                  AllOf(HasSubstr("梁.inp ： 入力データに合う解析結果がありません。静解析を行ってください"),
                        HasSubstr("梁.ANA/FT031 ： "), HasSubstr(c.reason)));
      EXPECT_FALSE(program_.Exists(file));
    }
  }
}

TEST_F(BatchFigure, ResultsOlderThanTheDeckAreToldAndDrawn) {
  program_.File("梁.ANA/SIG_RC", "0.2\r\n");
  program_.Shell("touch -d '1 hour' 梁.inp");
  for (const char* const file : {"a.dxf", "a.svg"}) {
    const BatchResult result = Draw("moment", file);
    EXPECT_EQ(result.exitCode, 0) << file;
    EXPECT_THAT(result.err, HasSubstr("梁.inp ： 解析結果は変更前のものです")) << file;
    EXPECT_TRUE(program_.Exists(file));
  }
  EXPECT_THAT(Draw("model", "b.dxf").err, IsEmpty());
  EXPECT_THAT(Draw("rc", "c.dxf").err, HasSubstr("梁.inp ： 解析結果は変更前のものです"));
  program_.Shell("touch -d '2 hours' 梁.ANA/FT031");
  EXPECT_THAT(Draw("moment", "d.dxf").err, IsEmpty());
  EXPECT_THAT(Draw("rc", "e.dxf").err, HasSubstr("梁.inp ： 断面算定の結果は変更前のものです"));
}

TEST_F(BatchFigure, ResultsThatCannotBeTrustedAreToldAndDrawn) {
  program_.Deck("梁.inp", HiddenMechanismDeck());
  ASSERT_EQ(program_.Run({"analyze", "梁.inp"}).exitCode, 0);
  program_.File("梁.ANA/SIG_RC", "0.2\r\n");
  const struct {
    const char *kind, *file;
  } figures[] = {{"moment", "a.dxf"}, {"displacement", "b.svg"}, {"rc", "c.tmp"}};
  for (const auto& [kind, file] : figures) {
    const BatchResult result = Draw(kind, file);
    EXPECT_EQ(result.exitCode, 0) << file;
    EXPECT_THAT(result.err, HasSubstr("梁.inp ： 解析結果は信頼できません")) << file;
    EXPECT_TRUE(program_.Exists(file));
  }
  EXPECT_THAT(Draw("load", "d.dxf").err, IsEmpty());
  program_.Shell("touch -d '1 hour' 梁.inp");
  EXPECT_THAT(Draw("moment", "e.dxf").err, AllOf(HasSubstr("変更前"), Not(HasSubstr("信頼"))));
}

TEST_F(BatchFigure, ADesignWithoutARatioIsAFailureAndLeavesNoFile) {
  for (const std::string& bytes :
       {std::string(), std::string("\x00\xFF\x81\x12", 4), std::string("abc\r\n1\r\n")})
    for (const char* const kind : {"steel", "rc"})
      for (const char* const file : {"s.png", "s.tmp"}) {
        const std::string ratios = kind == std::string("steel") ? "梁.ANA/SIG_S" : "梁.ANA/SIG_RC";
        program_.File(ratios, bytes);
        const BatchResult result = Draw(kind, file);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.err, AllOf(HasSubstr("梁.inp ： 断面算定の結果がありません"), HasSubstr(ratios),
                                      HasSubstr("判定値のある要素がありません")));
        EXPECT_FALSE(program_.Exists(file));
      }
  program_.File("梁.ANA/SIG_S", "-1.0\r\n-1.0\r\n-1.0\r\n");  // no member was checked
  EXPECT_THAT(Draw("steel", "s.png").err, HasSubstr("判定値のある要素がありません"));
}

TEST_F(BatchFigure, ALoadCaseOutOfRangeIsAFailure) {
  for (const char* const loadCase : {"0", "2", "-1"}) {
    const BatchResult result = Draw("moment", "a.svg", loadCase);
    EXPECT_EQ(result.exitCode, 1) << loadCase;
    EXPECT_THAT(result.err, HasSubstr("梁.inp ： 荷重ケース " + std::string(loadCase) +
                                      " はありません（荷重ケース数 1）"));
  }
  EXPECT_FALSE(program_.Exists("a.svg"));
}

TEST_F(BatchFigure, AModelWithoutLoadCasesHasAModelFigureAlone) {
  program_.Deck("無荷重.inp", "@CONT\n1,0,0,0\n@NODE\n1,0,0,1,1,1\n2,5,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n");
  EXPECT_EQ(program_.Run({"figure", "無荷重.inp", "--kind", "model", "--output", "a.png"}).exitCode, 0);
  for (const char* const kind : {"load", "displacement", "axial", "shear", "moment"}) {
    const BatchResult result = program_.Run({"figure", "無荷重.inp", "--kind", kind, "--output", "b.png"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr("無荷重.inp ： 荷重ケース 1 はありません（荷重ケース数 0）"));
    EXPECT_FALSE(program_.Exists("b.png"));
  }
}

TEST_F(BatchFigure, ADeckWithoutControlDataHasAModelFigureAlone) {
  program_.Deck("無制御.inp", "@NODE\n1,0,0,1,1,1\n2,5,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n@PLOD\n1,2,1\n");
  EXPECT_EQ(program_.Run({"figure", "無制御.inp", "--kind", "model", "--output", "a.tmp"}).exitCode, 0);
  const BatchResult result = program_.Run({"figure", "無制御.inp", "--kind", "load", "--output", "b.tmp"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.err, HasSubstr("荷重ケース 1 はありません（荷重ケース数 0）"));
}

TEST_F(BatchFigure, LoadsOfEverySectionAndOfPaddedRowsAreDrawn) {
  program_.Deck("荷重.inp",
                "@CONT\n1,1,0,0\n@NODE\n1,           0,0,1,1,0\n2,6,0,0,1,0\n@ELEM\n1,1,2,0,0,1\n"
                "@PLOD\n1,2,1.25,0,0\n@PLOD\n1,2,0,          2.5,0\n");
  const BatchResult result = program_.Run({"figure", "荷重.inp", "--kind", "load", "--output", "l.tmp"});
  EXPECT_EQ(result.exitCode, 0) << result.err;
  EXPECT_THAT(Lines("l.tmp"), AllOf(HasSubstr("1.25"), HasSubstr("2.5")));
}

TEST_F(BatchFigure, ADeckWithoutNodesIsAFailure) {
  program_.Deck("空.inp", "");
  EXPECT_THAT(program_.Run({"figure", "空.inp", "--kind", "model", "--output", "a.png"}).err,
              HasSubstr("空.inp ： 節点データがありません"));
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
    EXPECT_THAT(result.err, AllOf(HasSubstr("要素データエラー"), HasSubstr("要素の長さ＝０です"),
                                  HasSubstr("短.inp ： 図を出力できませんでした")));
    EXPECT_FALSE(program_.Exists(file));
  }
}

TEST_F(BatchFigure, BadWordsAreBadUsage) {
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "model"}), HasSubstr("--output"));
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "model", "--output", "a.bmp"}), HasSubstr(".dxf .pdf .svg"));
  EXPECT_THAT(Complaint({"梁.inp", "--output", "a.pdf"}), HasSubstr("model load displacement"));
  EXPECT_THAT(Complaint({"梁.inp", "--kind", "bending", "--output", "a.pdf"}), HasSubstr("--kind"));
  EXPECT_THAT(Complaint({"梁.inp", "梁.inp", "--kind", "model", "--output", "a.pdf"}), HasSubstr("一つだけ"));
  for (const char* const loadCase : {"x", "1.5", "1x", "", "99999999999"})
    EXPECT_THAT(Complaint({"梁.inp", "--kind", "model", "--case", loadCase, "--output", "a.pdf"}),
                HasSubstr("--case: 「" + std::string(loadCase) + "」 は整数ではありません"));
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
  // Where a text's runs end depends on the fonts of the machine.
  EXPECT_THAT(program_.Bytes("a.svg"), AllOf(HasSubstr("(梁〜−"), HasSubstr("é"), HasSubstr("한")));
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

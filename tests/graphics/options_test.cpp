#include "graphics/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "base/fault.h"
#include "base/text_file.h"
#include "graphics/frame_figure.h"
#include "graphics/option_figures.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// Rows and fields

TEST(OptionRow, FieldsAreCountedFromOne) {
  const char* const row = "要素番号,ＭＳ ゴシック(8pt),,ON,0";
  EXPECT_EQ(OptionField(row, 1), "要素番号");
  EXPECT_EQ(OptionField(row, 2), "ＭＳ ゴシック(8pt)");
  EXPECT_EQ(OptionField(row, 3), "");
  EXPECT_EQ(OptionField(row, 5), "0");
  EXPECT_EQ(OptionField(row, 6), "");
  EXPECT_EQ(OptionField(row, 0), "");
  EXPECT_EQ(OptionField("", 1), "");
}

TEST(OptionRow, SplitAndJoinedIsTheSameRow) {
  for (const OptionRow& row : kDesignRows) EXPECT_EQ(JoinOptionFields(OptionFields(row.text)), row.text);
}

TEST(OptionRow, EveryDefaultIsARowOfItsOwnForm) {
  const auto check = [](std::span<const OptionRow> rows) {
    for (const OptionRow& row : rows) EXPECT_TRUE(IsOptionRow(row, row.text)) << row.text;
  };
  check(kModelRows);
  check(kDesignRows);
  check(kAnalysisRows);
}

TEST(OptionRow, RefusesWhatCannotBeMeant) {
  const OptionRow& line = kModelRows[3];  // 要素,1dot,実線,&H0000FF,ON
  EXPECT_TRUE(IsOptionRow(line, "要素,12dot,二点鎖線,&H0,OFF"));
  for (const char* const text :
       {"", "要素", "節点,1dot,実線,&H0000FF,ON", "要素,1dot,実線,&H0000FF,ON,0", "要素,dot,実線,&H0000FF,ON",
        "要素,0dot,実線,&H0000FF,ON", "要素,999dot,実線,&H0000FF,ON", "要素,-1dot,実線,&H0000FF,ON",
        "要素,1dot,波線,&H0000FF,ON", "要素,1dot,実線,0000FF,ON", "要素,1dot,実線,&H0000FFF,ON",
        "要素,1dot,実線,&H-1,ON", "要素,1dot,実線,,ON", "要素,1dot,実線,&H0000FF,on"})
    EXPECT_FALSE(IsOptionRow(line, text)) << text;
  const OptionRow& number = kModelRows[1];  // 要素番号,ＭＳ ゴシック(8pt),,ON,0
  EXPECT_TRUE(IsOptionRow(number, "要素番号,ＭＳ 明朝(10.5pt),&HFF0000,OFF,1"));
  for (const char* const text : {"要素番号,ＭＳ ゴシック,,ON,0", "要素番号,ＭＳ ゴシック(pt),,ON,0",
                                 "要素番号,pt),,ON,0", "要素番号,ＭＳ ゴシック(0pt),,ON,0",
                                 "要素番号,ＭＳ ゴシック(8pt),,ON,2", "要素番号,ＭＳ ゴシック(8pt),,ON,"})
    EXPECT_FALSE(IsOptionRow(number, text)) << text;
}

TEST(OptionField, ColourHasSixHexadecimalDigits) {
  EXPECT_EQ(OptionColourText(0), "&H000000");
  EXPECT_EQ(OptionColourText(255), "&H0000FF");
  EXPECT_EQ(OptionColourText(16711680), "&HFF0000");
  EXPECT_EQ(OptionColour("&H00FFFF"), 0x00FFFF);
  EXPECT_EQ(OptionColour("&hff"), 255);
  EXPECT_EQ(OptionColour("&H"), std::nullopt);
  EXPECT_EQ(OptionColour("255"), std::nullopt);
}

TEST(OptionField, WidthIsTheDigitsBeforeDot) {
  EXPECT_EQ(OptionWidth("3dot"), 3);
  EXPECT_EQ(OptionWidthText(3), "3dot");
  EXPECT_EQ(OptionWidth("3.5dot"), std::nullopt);
}

TEST(OptionRow, IsWrittenWithColourAndWidthInTheirForm) {
  EXPECT_EQ(WrittenOptionRow(kModelRows[3], "要素,03,実線,&hff,ON"), "要素,3dot,実線,&H0000FF,ON");
  EXPECT_EQ(WrittenOptionRow(kModelRows[1], "要素番号,ＭＳ ゴシック(8pt),,ON,0"),
            "要素番号,ＭＳ ゴシック(8pt),,ON,0");
  for (const OptionRow& row : kDesignRows) EXPECT_EQ(WrittenOptionRow(row, row.text), row.text);
}

TEST(OptionField, FontIsANameAndItsSize) {
  const OptionFont font = OptionFontOf("ＭＳ ゴシック(8pt)").value();
  EXPECT_EQ(font.face, "ＭＳ ゴシック");
  EXPECT_EQ(font.points, 8);
  EXPECT_EQ(OptionFontText("Ａ(B)", 10.5), "Ａ(B)(10.5pt)");
  EXPECT_EQ(OptionFontOf("Ａ(B)(10.5pt)")->face, "Ａ(B)");
}

TEST(OptionField, DialogOffersWhatTheDefaultHas) {
  EXPECT_FALSE(IsOffered(kModelRows[1], 1));  // the name
  EXPECT_TRUE(IsOffered(kModelRows[1], 2));
  EXPECT_FALSE(IsOffered(kModelRows[1], 3));  // no colour
  EXPECT_TRUE(IsOffered(kModelRows[1], 5));
  EXPECT_FALSE(IsOffered(kModelRows[2], 3));   // a node has no style
  EXPECT_FALSE(IsOffered(kDesignRows[5], 2));  // the bounds of a class
  EXPECT_FALSE(IsOffered(kModelRows[0], 5));
  EXPECT_THAT(OptionChoices(OptionPart::Style), ElementsAre("実線", "鎖線", "点線", "一点鎖線", "二点鎖線"));
}

// Texts of the files

TEST(ModelOptions, FileHasTheRowsThenTheViewingRange) {
  ModelOptions options = DefaultModelOptions();
  options.range = {.xLower = -1.5, .yUpper = 12, .mode = RangeMode::OneEnd};
  const std::string text =
      "\"節点番号,ＭＳ ゴシック(8pt),&H000000,ON\"\r\n\"要素番号,ＭＳ ゴシック(8pt),,ON,0\"\r\n\"節点,1dot,,&H000000,ON\"\r\n\"要素,1dot,実線,&H0000FF,ON\"\r\n"
      "\"節点荷重,1dot,実線,&H0000FF,ON\"\r\n\"要素荷重,1dot,実線,&H0000FF,ON\"\r\n\"節点荷重,ＭＳ ゴシック(8pt),,ON\"\r\n\"断面番号,ＭＳ ゴシック(8pt),,ON,1\"\r\n"
      "\"-1.5,,,12\"\r\n\"1\"\r\n";
  EXPECT_EQ(ModelOptionsText(options), text);
  EXPECT_EQ(ParseModelOptions(text), options);
}

TEST(ModelOptions, PlainLinesAreReadLikeQuotedOnes) {
  std::string text = "要素,1dot,実線,&H0000FF,ON\r\n";  // not the first row: it stays the default
  EXPECT_EQ(ParseModelOptions(text), DefaultModelOptions());
  text = " 節点番号,ＭＳ 明朝(9pt),&H0000FF,OFF \n";
  EXPECT_EQ(ParseModelOptions(text).rows[0], "節点番号,ＭＳ 明朝(9pt),&H0000FF,OFF");
}

TEST(ModelOptions, WhatIsCutOffOrForeignIsTheDefault) {
  ModelOptions changed = DefaultModelOptions();
  for (std::string& row : changed.rows)
    if (const std::size_t on = row.find(",ON"); on != std::string::npos) row.replace(on, 3, ",OFF");
  changed.range = {.xLower = 1, .xUpper = 2, .yLower = 3, .yUpper = 4, .mode = RangeMode::OneEnd};
  const std::string text = ModelOptionsText(changed);
  EXPECT_EQ(ParseModelOptions(text), changed);
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const ModelOptions read = ParseModelOptions(text.substr(0, length));
    for (std::size_t row = 0; row < read.rows.size(); ++row)
      EXPECT_THAT(read.rows[row], testing::AnyOf(changed.rows[row], kModelRows[row].text)) << length;
    // Up to the quote behind the mode's digit nothing is hidden.
    EXPECT_EQ(read.range, length + 3 < text.size() ? ViewingRange() : changed.range) << length;
  }
  EXPECT_EQ(ParseModelOptions(std::string(1000, '\0')), DefaultModelOptions());
  EXPECT_EQ(ParseModelOptions("\"a\",\"b\"\r\n\xff\xfe\r\n"), DefaultModelOptions());
}

/// The default rows with two lines behind them.
std::string WithRange(const char* limits, const char* mode) {
  std::string text = ModelOptionsText(DefaultModelOptions());
  text.resize(text.find("\",,,\""));
  return text + limits + "\r\n" + mode + "\r\n";
}

TEST(ModelOptions, ARangeIsTakenWhole) {
  ViewingRange range{.xLower = -150, .yUpper = 0.5};
  EXPECT_EQ(ParseModelOptions(WithRange("\"-1.5E+02,,,0.5\"", "\"0\"")).range, range);
  range.mode = RangeMode::OneEnd;
  EXPECT_EQ(ParseModelOptions(WithRange(" -150 , , ,0.5", "1")).range, range);
  EXPECT_EQ(ParseModelOptions(WithRange("2,2,2,2", "0")).range, (ViewingRange{2, 2, 2, 2}));
}

TEST(ModelOptions, WhatIsNoRangeHidesNothing) {
  for (const char* const limits :
       {"\"1,2,3\"", "\"1,2,3,4,\"", "\"1,2,3,4m\"", "\"x1,2,3,4\"", "\"1\"", "\"\"", "\"nan,,,\"",
        "\"1e999,,,\"", "\"2,1,,\"", "\",,0.2,0.1\"", "\"断面番号,ＭＳ ゴシック(8pt),,ON,1\"",
        "\"節点番号,ＭＳ ゴシック(8pt),&H000000,ON\""})
    EXPECT_EQ(ParseModelOptions(WithRange(limits, "\"0\"")).range, ViewingRange()) << limits;
  for (const char* const mode : {"\"2\"", "\"\"", "\"x\"", "\"10\"", "\"1,2,3,4\""})
    EXPECT_EQ(ParseModelOptions(WithRange("\"1,2,3,4\"", mode)).range, ViewingRange()) << mode;
}

TEST(ModelOptions, ALineTooFewOrTooManyHidesNothing) {
  const std::string text = WithRange("\"1,2,3,4\"", "\"1\"");
  for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1) {
    const std::size_t behind = text.find('\n', at) + 1;
    const std::string line = text.substr(at, behind - at);
    EXPECT_EQ(ParseModelOptions(text.substr(0, at) + text.substr(behind)).range, ViewingRange()) << line;
    if (line != "\"1\"\r\n") {
      EXPECT_EQ(ParseModelOptions(text.substr(0, behind) + text.substr(at)).range, ViewingRange()) << line;
    }
  }
}

TEST(DesignOptions, FileBeginsWithItsVersion) {
  const std::string text = DesignOptionsText(DefaultDesignOptions());
  EXPECT_THAT(text, StartsWith("\"Ver3\"\r\n\"節点番号,"));
  EXPECT_THAT(
      text,
      HasSubstr(
          "\r\n\"1.0,,1dot,実線,&H0000FF,ON\"\r\n\"0.9,1.0,1dot,実線,&H00FFFF,ON\"\r\n\"0.5,0.9,1dot,実線,&H00FF00,ON\"\r\n"
          "\"0.3,0.5,1dot,実線,&HFF0000,ON\"\r\n\"0.0,0.3,1dot,実線,&H000000,ON\"\r\n\"0.0,,1dot,実線,&H000000,ON\"\r\n"
          "\"断面番号,ＭＳ ゴシック(8pt),,OFF,0\"\r\n"));
  EXPECT_EQ(ParseDesignOptions(text), DefaultDesignOptions());
}

TEST(DesignOptions, BothVersionsAreRead) {
  DesignOptions changed = DefaultDesignOptions();
  changed.rows[4] = "1.2,,3dot,点線,&H123456,OFF";
  std::string text = DesignOptionsText(changed);
  EXPECT_EQ(ParseDesignOptions(text), changed);
  text.replace(text.find("Ver3"), 4, "Ver2");
  EXPECT_TRUE(IsDesignOptions(text));
  EXPECT_EQ(ParseDesignOptions(text), changed);
  EXPECT_EQ(ParseDesignOptions("Ver3\r\n"), DefaultDesignOptions());
  EXPECT_FALSE(IsDesignOptions("\"Ver1\"\r\n"));
  EXPECT_FALSE(IsDesignOptions(""));
}

AnalysisOptions ChangedAnalysisOptions() {
  AnalysisOptions options = DefaultAnalysisOptions();
  options.rows[8] = "ﾓｰﾒﾝﾄ,2dot,点線,&H00FF00,OFF";
  options.HeightDisplacement = 1.1F;
  options.HeightNormal = 0.35F;
  options.HeightMoment = 3;
  options.DecimalsNormal = "0";
  options.DecimalsShear = "1";
  options.DecimalsMoment = "3";
  options.HeightShear = 2.5F;
  options.tension = 1;
  options.compression = 2;
  options.ScaleOverAllCases = false;
  return options;
}

TEST(AnalysisOptions, FileHasRowsHeightsDecimalsShearColoursAndFlag) {
  const std::string text = AnalysisOptionsText(ChangedAnalysisOptions());
  EXPECT_THAT(text, StartsWith("\"節点番号,ＭＳ ゴシック(8pt),&H000000,OFF\"\r\n"));
  EXPECT_THAT(
      text,
      HasSubstr(
          "\"断面番号,ＭＳ ゴシック(8pt),,OFF,0\"\r\n1.1\r\n0.35\r\n3\r\n\"0\"\r\n\"1\"\r\n\"3\"\r\n2.5\r\n1\r\n2\r\n0\r\n"));
  EXPECT_EQ(ParseAnalysisOptions(text), ChangedAnalysisOptions());
  EXPECT_EQ(DefaultAnalysisOptions().tension, 16711680);
  EXPECT_EQ(DefaultAnalysisOptions().compression, 255);
  EXPECT_TRUE(DefaultAnalysisOptions().ScaleOverAllCases);
}

TEST(AnalysisOptions, ValuesOutOfRangeAreTheDefault) {
  std::string rows;
  for (const OptionRow& row : kAnalysisRows) rows += "\"" + std::string(row.text) + "\"\r\n";
  for (const char* const rest :
       {"-1\r\n1e99\r\nabc\r\n\"-1\"\r\n\"10\"\r\n\"x\"\r\n-5\r\n-1\r\n16777216\r\n\r\n", "\r\n\r\n",
        "nan\r\ninf\r\n", "1e300\r\n-1e300\r\n1000.00001\r\n"})
    EXPECT_EQ(ParseAnalysisOptions(rows + rest), DefaultAnalysisOptions()) << rest;
}

/// The older form of a file: the values behind the decimals are missing.
std::string OlderText(const AnalysisOptions& options, int lines) {
  std::string text = AnalysisOptionsText(options);
  std::size_t end = 0;
  for (int line = 0; line < lines; ++line) end = text.find('\n', end) + 1;
  return text.substr(0, end);
}

TEST(AnalysisOptions, OlderFormTakesTheLastHeightForShear) {
  const AnalysisOptions changed = ChangedAnalysisOptions(), defaults = DefaultAnalysisOptions();
  const AnalysisOptions read = ParseOlderAnalysisOptions(OlderText(changed, 11 + 3 + 3), defaults);
  AnalysisOptions expected = changed;
  expected.HeightShear = changed.HeightMoment;
  expected.tension = 16711680;
  expected.compression = 255;
  expected.ScaleOverAllCases = true;
  EXPECT_EQ(read, expected);
}

struct InterruptedCase {
  const char* name;
  int lines;
  float shear;
};
const InterruptedCase kInterruptedCases[] = {
    {"within the rows: no height was read", 9, 1},
    {"behind the height of displacement", 12, 1.1F},
    {"behind the height of axial force", 13, 0.35F},
    {"behind the height of moment", 14, 3},
    {"within the decimals", 16, 3},
};
TEST(AnalysisOptions, InterruptedReadOfTheOlderFormFillsTheRest) {
  for (const InterruptedCase& c : kInterruptedCases) {
    const AnalysisOptions read =
        ParseOlderAnalysisOptions(OlderText(ChangedAnalysisOptions(), c.lines), ChangedAnalysisOptions());
    EXPECT_EQ(read.HeightShear, c.shear) << c.name;
    EXPECT_EQ(read.tension, 16711680) << c.name;
    EXPECT_EQ(read.compression, 255) << c.name;
    EXPECT_TRUE(read.ScaleOverAllCases) << c.name;
    EXPECT_EQ(read.HeightMoment, c.lines < 14 ? 1 : 3) << c.name;
  }
}

/// A file under the older name that holds `lines` values of the newer form: 11 rows, 3 heights and 3 decimals
/// in front, then up to four.
struct NewerContentCase {
  const char* name;
  int lines;
  float shear;
  Rgb tension, compression;
  bool allCases;
};
const NewerContentCase kNewerContentCases[] = {
    {"all four values", 21, 2.5F, 1, 2, false},
    {"the flag is missing", 20, 2.5F, 1, 2, true},
    {"a colour and the flag are missing", 19, 2.5F, 1, 255, true},
};
TEST(AnalysisOptions, NewerValuesUnderTheOlderNameAreKept) {
  for (const NewerContentCase& c : kNewerContentCases) {
    for (const char* const end : {"", "\r\n\r\n"}) {
      const AnalysisOptions read = ParseOlderAnalysisOptions(
          OlderText(ChangedAnalysisOptions(), c.lines) + end, DefaultAnalysisOptions());
      AnalysisOptions expected = ChangedAnalysisOptions();
      expected.HeightShear = c.shear;
      expected.tension = c.tension;
      expected.compression = c.compression;
      expected.ScaleOverAllCases = c.allCases;
      EXPECT_EQ(read, expected) << c.name;
    }
  }
}

TEST(AnalysisOptions, OlderFormKeepsItsFlagWithBlankLinesBehindIt) {
  const AnalysisOptions read = ParseOlderAnalysisOptions(
      OlderText(ChangedAnalysisOptions(), 17) + "0\r\n\r\n \r\n", DefaultAnalysisOptions());
  EXPECT_FALSE(read.ScaleOverAllCases);
  EXPECT_EQ(read.HeightShear, 3);
}

TEST(AnalysisOptions, OlderFormKeepsItsFlag) {
  const std::string text = OlderText(ChangedAnalysisOptions(), 17) + "0\r\n";
  EXPECT_FALSE(ParseOlderAnalysisOptions(text, DefaultAnalysisOptions()).ScaleOverAllCases);
}

// The files

class OptionFiles : public testing::Test {
 protected:
  void SetUp() override {
    AppPath = folder_.Path();
    SetDefaultModelOptions();
    SetDefaultDesignOptions();
    SetDefaultAnalysisOptions();
  }
  void TearDown() override { SetUp(); }
  void LoadAll() {
    LoadModelOptions();
    LoadDesignOptions();
    LoadAnalysisOptions();
  }
  void ExpectDefaults() {
    EXPECT_EQ(DispOption, DefaultModelOptions());
    EXPECT_EQ(DispOptionDesgn, DefaultDesignOptions());
    EXPECT_EQ(DispOptionAna, DefaultAnalysisOptions());
  }
  std::string Path(const char* file) const { return folder_.Path() + file; }
  std::size_t FileCount() const {
    const std::filesystem::directory_iterator files(folder_.Path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }
  TemporaryFolder folder_;
};

TEST_F(OptionFiles, MissingFilesGiveDefaultsAndNothingIsWritten) {
  DispOption.rows[0].clear();
  DispOptionAna.HeightShear = 9;
  DispOptionDesgn.rows[0].clear();
  LoadAll();
  ExpectDefaults();
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(OptionFiles, SavedSetsComeBack) {
  ModelOptions model = DefaultModelOptions();
  model.rows[3] = "要素,2dot,点線,&H123456,ON";
  model.range.xLower = 0.1;
  DesignOptions design = DefaultDesignOptions();
  design.rows[10] = "断面番号,ＭＳ ゴシック(12pt),,ON,1";
  DispOption = model;
  DispOptionDesgn = design;
  DispOptionAna = ChangedAnalysisOptions();
  SaveModelOptions();
  SaveDesignOptions();
  SaveAnalysisOptions();
  SetDefaultModelOptions();
  SetDefaultDesignOptions();
  SetDefaultAnalysisOptions();
  LoadAll();
  EXPECT_EQ(DispOption, model);
  EXPECT_EQ(DispOptionDesgn, design);
  EXPECT_EQ(DispOptionAna, ChangedAnalysisOptions());
  EXPECT_TRUE(FileExists(Path("MODELEST.PRM")));
  EXPECT_TRUE(FileExists(Path("DESGNEST.PRM")));
  EXPECT_TRUE(FileExists(Path("LOADEST1.PRM")));
  EXPECT_EQ(FileCount(), 3U);
}

TEST_F(OptionFiles, DesignFileWithoutAVersionIsRemoved) {
  for (const char* const text : {"", "\"Ver1\"\r\n", "\"節点番号\"\r\n"}) {
    ReplaceTextFile(Path("DESGNEST.PRM"), text);
    LoadDesignOptions();
    EXPECT_FALSE(FileExists(Path("DESGNEST.PRM"))) << text;
  }
  ExpectDefaults();
}

TEST_F(OptionFiles, OlderAnalysisFileIsTurnedIntoTheNewerOne) {
  ReplaceTextFile(Path("LOADEST1.PRM"), AnalysisOptionsText(DefaultAnalysisOptions()));
  ReplaceTextFile(Path("LOADEST.PRM"), OlderText(ChangedAnalysisOptions(), 17));
  LoadAnalysisOptions();
  EXPECT_EQ(DispOptionAna.HeightShear, 3);
  EXPECT_EQ(DispOptionAna.DecimalsMoment, "3");
  EXPECT_FALSE(FileExists(Path("LOADEST.PRM")));
  EXPECT_EQ(ParseAnalysisOptions(ReadTextFile(Path("LOADEST1.PRM"))), DispOptionAna);
}

TEST_F(OptionFiles, OlderFileWithNothingOfOursLeavesTheNewerOnesValues) {
  ReplaceTextFile(Path("LOADEST1.PRM"), AnalysisOptionsText(ChangedAnalysisOptions()));
  ReplaceBytes(Path("LOADEST.PRM"), "");
  LoadAnalysisOptions();
  EXPECT_EQ(DispOptionAna, ChangedAnalysisOptions());
  EXPECT_FALSE(FileExists(Path("LOADEST.PRM")));
}

TEST_F(OptionFiles, SavedValuesAreNotTakenBackByAnOlderFileThatStayed) {
  // The older file couldn't be turned into the newer one when the program came up.
  ReplaceTextFile(Path("LOADEST.PRM"), OlderText(DefaultAnalysisOptions(), 17));
  DispOptionAna = ChangedAnalysisOptions();
  SaveAnalysisOptions();
  SetDefaultAnalysisOptions();
  LoadAnalysisOptions();
  EXPECT_EQ(DispOptionAna, ChangedAnalysisOptions());
}

TEST_F(OptionFiles, AnOlderFileThatCannotBeRemovedIsNoFault) {
  MakeFolder(Path("LOADEST.PRM"));
  DispOptionAna = ChangedAnalysisOptions();
  SaveAnalysisOptions();
  SetDefaultAnalysisOptions();
  LoadAnalysisOptions();
  EXPECT_EQ(DispOptionAna, ChangedAnalysisOptions());
}

TEST_F(OptionFiles, FilesTooLargeToBeOursAreLeftAlone) {
  std::string text = ModelOptionsText(DefaultModelOptions());
  text.replace(text.find(",ON"), 3, ",OFF");
  ReplaceTextFile(Path("MODELEST.PRM"), text);
  LoadModelOptions();
  EXPECT_EQ(OptionField(DispOption.rows[0], 4), "OFF");
  for (const char* const file : {"MODELEST.PRM", "DESGNEST.PRM", "LOADEST.PRM", "LOADEST1.PRM"})
    ReplaceTextFile(Path(file), text + std::string(100'000, '\n'));
  LoadAll();
  ExpectDefaults();
  EXPECT_EQ(FileCount(), 4U);
}

TEST_F(OptionFiles, FoldersInTheFilesPlacesHarmNothing) {
  for (const char* const file : {"MODELEST.PRM", "DESGNEST.PRM", "LOADEST.PRM", "LOADEST1.PRM"})
    MakeFolder(Path(file));
  LoadAll();
  ExpectDefaults();
  EXPECT_EQ(FileCount(), 4U);
  EXPECT_THROW(SaveModelOptions(), FileFault);
}

// What the draw routines read

TEST(FigureOptions, ModelSetIsTakenApart) {
  ModelOptions options = DefaultModelOptions();
  options.rows[1] = "要素番号,ＭＳ ゴシック(12pt),,OFF,1";
  options.rows[2] = "節点,4dot,,&H00FF00,ON";
  options.rows[5] = "要素荷重,3dot,一点鎖線,&HFF0000,OFF";
  const FigureOptions figure = FigureOptionsOf(options);
  EXPECT_FALSE(figure.elementNumber.visible);
  EXPECT_EQ(figure.elementNumber.points, 12);
  EXPECT_TRUE(figure.elementNumber.mark);
  EXPECT_EQ(figure.elementNumber.colour, kBlack);
  EXPECT_EQ(figure.node.width, 4);
  EXPECT_EQ(figure.node.colour, 0x00FF00);
  EXPECT_EQ(figure.element.colour, 0x0000FF);
  EXPECT_EQ(figure.elementLoad.style, LineStyle::DashDot);
  EXPECT_FALSE(figure.elementLoad.visible);
  EXPECT_TRUE(figure.sectionNumber.mark);
  EXPECT_FALSE(figure.nodeNumber.mark);
}

TEST(FigureOptions, DesignSetHasTheClasses) {
  const FigureOptions figure = FigureOptionsOf(DefaultDesignOptions());
  EXPECT_FALSE(figure.sectionNumber.visible);
  EXPECT_EQ(figure.ratioClass[0].lower, 1.0);
  EXPECT_EQ(figure.ratioClass[0].upper, std::numeric_limits<double>::infinity());
  EXPECT_EQ(figure.ratioClass[0].line.colour, ColourOf(255, 0, 0));
  EXPECT_EQ(figure.ratioClass[1].lower, 0.9);
  EXPECT_EQ(figure.ratioClass[1].upper, 1.0);
  EXPECT_EQ(figure.ratioClass[1].line.colour, ColourOf(255, 255, 0));
  EXPECT_EQ(figure.ratioClass[2].line.colour, ColourOf(0, 255, 0));
  EXPECT_EQ(figure.ratioClass[3].line.colour, ColourOf(0, 0, 255));
  EXPECT_EQ(figure.ratioClass[4].line.colour, kBlack);
  EXPECT_EQ(figure.ratioClass[5].lower, 0.0);
  EXPECT_EQ(figure.ratioClass[5].upper, std::numeric_limits<double>::infinity());
}

TEST(FigureOptions, AnalysisSetHasHeightsAndDecimals) {
  const FigureOptions figure = FigureOptionsOf(ChangedAnalysisOptions());
  EXPECT_EQ(figure.HeightShear, 2.5F);
  EXPECT_EQ(figure.DecimalsNormal, 0);
  EXPECT_EQ(figure.DecimalsShear, 1);
  EXPECT_EQ(figure.DecimalsMoment, 3);
  EXPECT_EQ(figure.axialTension, 1);
  EXPECT_EQ(figure.axialCompression, 2);
  EXPECT_EQ(figure.moment.style, LineStyle::Dotted);
  EXPECT_FALSE(figure.ScaleOverAllCases);
}

TEST_F(OptionFiles, EveryKindOfFigureHasItsSet) {
  DispOption.rows[3] = "要素,1dot,実線,&H000001,ON";
  DispOptionAna.rows[3] = "要素,1dot,実線,&H000002,ON";
  DispOptionDesgn.rows[3] = "要素,1dot,実線,&H000003,ON";
  EXPECT_EQ(FigureOptionsInForce(kModelFigure).element.colour, 1);
  EXPECT_EQ(FigureOptionsInForce(kLoadCheck).element.colour, 1);
  for (const int kind : {kDisplacementFigure, kAxialFigure, kShearFigure, kMomentFigure})
    EXPECT_EQ(FigureOptionsInForce(kind).element.colour, 2) << kind;
  EXPECT_EQ(FigureOptionsInForce(kSteelRatioFigure).element.colour, 3);
  EXPECT_EQ(FigureOptionsInForce(kRcRatioFigure).element.colour, 3);
}

}  // namespace
}  // namespace zorlan

#include "forms/help_pages.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <set>

#include "base/cp932.h"
#include "base/text.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

FormSetting Frame(bool si = false) {
  FormSetting setting;
  setting.modelCode = kPlaneFrame;
  setting.si = si;
  return setting;
}
FormSetting GridSetting() {
  FormSetting setting;
  setting.modelCode = kPlaneGrid;
  return setting;
}

TEST(InputHelp, AFormWithoutAPageLeavesTheBoxEmpty) {
  for (const char* const form : {"InpTITL", "InpCONT", "frmPrnText", ""}) {
    EXPECT_EQ(InputHelpOf(form, Frame()).caption, "入力説明");
    EXPECT_THAT(InputHelpOf(form, Frame()).lines, IsEmpty());
  }
}

/// A page of help_pages.txt: "[[FORM WORD]]", title, lines. The word says for which models: "frame", "grid",
/// "t", "SI"; without one the page is for all.
struct ExpectedPage {
  std::string form, word, title;
  std::vector<std::string> lines;
  bool Counts(const FormSetting& setting) const {
    const bool grid = setting.modelCode == kPlaneGrid;
    if (word == "frame" || word == "grid") return grid == (word == "grid");
    return word.empty() || setting.si == (word == "SI");
  }
};

std::vector<ExpectedPage> ExpectedPages() {
  const std::string text = ReadBytes(ZORLAN_SOURCE_DIR "/tests/forms/help_pages.txt");
  std::vector<ExpectedPage> pages;
  std::string_view rest = text;
  while (const std::optional<std::string_view> line = TakeLine(rest)) {
    if (line->starts_with("[[")) {
      const std::string_view heading = line->substr(2, line->size() - 4);
      const std::size_t blank = std::min(heading.find(' '), heading.size());
      pages.push_back(
          {std::string(heading.substr(0, blank)), std::string(NoSpc(heading.substr(blank))), "", {}});
    } else if (pages.back().title.empty()) {
      pages.back().title = *line;
    } else {
      pages.back().lines.emplace_back(*line);
    }
  }
  return pages;
}

TEST(InputHelp, ThirteenFormsHaveTheirPageLineByLineInEveryKindOfModel) {
  const std::vector<ExpectedPage> pages = ExpectedPages();
  std::set<std::string> forms;
  for (const ExpectedPage& page : pages) forms.insert(page.form);
  ASSERT_EQ(forms.size(), 13U);
  for (const int modelCode : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid})
    for (const bool si : {false, true}) {
      FormSetting setting;
      setting.modelCode = modelCode;
      setting.si = si;
      std::size_t counted = 0;
      for (const ExpectedPage& page : pages) {
        if (!page.Counts(setting)) continue;
        ++counted;
        const InputHelp help = InputHelpOf(page.form, setting);
        EXPECT_EQ(help.caption, page.title) << page.form;
        EXPECT_EQ(help.lines, page.lines) << page.form << " " << page.word << modelCode;
      }
      EXPECT_EQ(counted, forms.size());
    }
}

TEST(InputHelp, TheThirteenTypesStandUnderTheColumnsOfTheirHead) {
  const std::vector<std::string> lines = InputHelpOf("InpSECT", Frame()).lines;
  EXPECT_EQ(lines[1], " TYPE            P1        P2        P3        P4");
  EXPECT_EQ(lines[2], "  0 直接入力     A(cm2)    I(cm4)    -         As(cm2)");
  EXPECT_EQ(lines[4], "  2 Ｈ形鋼 強軸  H(mm)     B(mm)     tw(mm)    tf(mm)");
  EXPECT_EQ(lines[6], "  4 ○形鋼       D(mm)     t(mm)     -         -");
  EXPECT_EQ(lines[10], "  8 木材 弱軸    B(mm)     D(mm)     形状係数  As(mm2)");
  EXPECT_EQ(lines[14], " 12 山形鋼 弱軸  A(mm)     B(mm)     t(mm)     r1(mm)");
  EXPECT_THAT(lines[15], StartsWith("※ □形鋼"));
  // Column P2 begins in column 27 of each line, counted in half-width characters.
  const auto widthBefore = [](const std::string& line, const char* text) {
    return HalfWidth(line.substr(0, line.find(text)));
  };
  EXPECT_EQ(widthBefore(lines[4], "B(mm)"), widthBefore(lines[1], "P2"));
  EXPECT_EQ(widthBefore(lines[10], "形状係数"), widthBefore(lines[1], "P3"));
}

TEST(InputHelp, TheWidthIsThatOfTheWidestLineOrOfTheFiller) {
  EXPECT_EQ(InputHelpOf("InpDISP", Frame()).width, 33);
  EXPECT_EQ(InputHelpOf("InpELOD", Frame()).width, 52 + 12);  // the line on LY, and the filler's tail
}

TEST(ColumnHelp, GivesTheCodesOfASupportInThePagesWords) {
  EXPECT_EQ(ColumnHelp("InpNODE", 5, GridSetting()),
            "境界条件　自　　由：０\n　　　　　拘　　束：１\n　　　　　バネ支持：２");
  EXPECT_EQ(ColumnHelp("InpELEM", 4, Frame()), "Ｉ端節点条件　剛：０　ピン：１");
  EXPECT_EQ(ColumnHelp("InpCLOD", 4, Frame()), ColumnHelp("InpCLOD", 2, Frame()));
  EXPECT_THAT(ColumnHelp("InpELOD", 3, Frame()), HasSubstr("１０    (t/m2)"));
  EXPECT_EQ(ColumnHelp("InpTLOD", 7, Frame()), " J  : 軸力の考慮　する=0 , しない=1");
}

TEST(ColumnHelp, IsEmptyWhereThePageSaysNothing) {
  EXPECT_EQ(ColumnHelp("InpSPEC", 1, Frame()), "");
  EXPECT_EQ(ColumnHelp("InpSECT", 10, Frame()), "");
  EXPECT_EQ(ColumnHelp("InpNODE", 0, Frame()), "");
  EXPECT_EQ(ColumnHelp("InpTITL", 1, Frame()), "");
}

}  // namespace
}  // namespace zorlan

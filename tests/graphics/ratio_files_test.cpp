#include "graphics/ratio_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"
#include "base/text_file.h"
#include "graphics/frame_figure.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::IsNan;

TEST(SteelRatios, LargestOfAMembersThreePositionsCounts) {
  EXPECT_THAT(ParseSteelRatios("0.2\r\n0.9\r\n0.3\r\n-1\r\n0.4\r\n-1\r\n-1\r\n-1\r\n-1\r\n", 3),
              ElementsAre(0.9, 0.4, IsNan()));
}

TEST(SteelRatios, TextThatEndsEarlyCountsUpToThere) {
  EXPECT_THAT(ParseSteelRatios(" .5 \r\n", 2), ElementsAre(0.5, IsNan()));
  EXPECT_THAT(ParseSteelRatios("0.5\r\nx\r\n0.9\r\n", 1), ElementsAre(0.5));
  EXPECT_THAT(ParseSteelRatios("", 1), ElementsAre(IsNan()));
  EXPECT_THAT(ParseSteelRatios("1e999\r\n", 1), ElementsAre(IsNan()));
  EXPECT_TRUE(ParseSteelRatios("0.5\r\n", 0).empty());
}

TEST(RcRatios, HaveALineAMemberAndZeroBehindTheEnd) {
  EXPECT_THAT(ParseRcRatios("0.21\r\n0.6\r\n", 3), ElementsAre(0.21, 0.6, 0));
  EXPECT_THAT(ParseRcRatios("0.21\r\n\r\n0.6\r\n", 3), ElementsAre(0.21, 0, 0));
}

TEST(FigureRatios, AreReadByTheKindOfTheFigure) {
  const TemporaryFolder folder;
  ReplaceTextFile(folder.Path() + "SIG_S", "0.1\r\n0.2\r\n0.3\r\n");
  ReplaceTextFile(folder.Path() + "SIG_RC", "0.7\r\n");
  FigureModel model;
  model.elements.resize(1);
  EXPECT_TRUE(LoadFigureRatios(model, kSteelRatioFigure, folder.Path()));
  EXPECT_THAT(model.ratios, ElementsAre(0.3));
  EXPECT_TRUE(LoadFigureRatios(model, kRcRatioFigure, folder.Path()));
  EXPECT_THAT(model.ratios, ElementsAre(0.7));
  EXPECT_FALSE(LoadFigureRatios(model, kMomentFigure, folder.Path()));
  EXPECT_TRUE(model.ratios.empty());
}

// Painted all the same, members without a ratio would look as if all were well.
TEST(FigureRatios, AFileInWhichNoMemberHasARatioIsNone) {
  const TemporaryFolder folder;
  FigureModel model;
  model.elements.resize(2);
  const std::string noText, binary("\x00\xFF\x81", 3), words = "x\r\n0.5\r\n",
                                                       unchecked = "-1\r\n-1\r\n-1\r\n";
  for (const std::string& text : {noText, binary, words, unchecked}) {
    model.ratios = {1, 1};
    ReplaceBytes(folder.Path() + "SIG_S", text);
    EXPECT_FALSE(LoadFigureRatios(model, kSteelRatioFigure, folder.Path())) << text;
    EXPECT_TRUE(model.ratios.empty()) << text;
  }
  for (const std::string& text : {noText, binary, words}) {
    ReplaceBytes(folder.Path() + "SIG_RC", text);
    EXPECT_FALSE(LoadFigureRatios(model, kRcRatioFigure, folder.Path())) << text;
  }
  ReplaceTextFile(folder.Path() + "SIG_S", "-1\r\n-1\r\n-1\r\n0\r\n");
  EXPECT_TRUE(LoadFigureRatios(model, kSteelRatioFigure, folder.Path()));
  ReplaceTextFile(folder.Path() + "SIG_RC", "0\r\n");  // no hoops needed is a result
  EXPECT_TRUE(LoadFigureRatios(model, kRcRatioFigure, folder.Path()));
}

// With a member more or less since the design, the ratios would stand on other members.
TEST(FigureRatios, MoreValuesThanTheModelHasMembersAreOfAnotherModel) {
  const TemporaryFolder folder;
  FigureModel model;
  model.elements.resize(1);
  const struct {
    int kind;
    const char *file, *text;
    bool fits;
  } cases[] = {
      {kSteelRatioFigure, "SIG_S", "0.1\r\n0.2\r\n0.3\r\n0.4\r\n", false},
      {kSteelRatioFigure, "SIG_S", "0.1\r\n0.2\r\n0.3\r\n \r\n\r\n", true},
      {kRcRatioFigure, "SIG_RC", "0.7\r\n0.8\r\n", false},
      {kRcRatioFigure, "SIG_RC", "0.7\r\n\r\n", true},
  };
  for (const auto& c : cases) {
    ReplaceTextFile(folder.Path() + c.file, c.text);
    std::string told;
    try {
      ReadFigureRatios(model, c.kind, folder.Path());
    } catch (const Fault& fault) {
      told = fault.what();
    }
    EXPECT_EQ(told, c.fits ? "" : folder.Path() + c.file + " ： データの個数が正しくありません") << c.text;
    EXPECT_EQ(model.ratios.empty(), !c.fits) << c.text;
  }
}

TEST(FigureRatios, AFaultNamesTheFileAndTheReason) {
  const TemporaryFolder folder;
  FigureModel model;
  model.elements.resize(1);
  ReplaceTextFile(folder.Path() + "SIG_S", "");
  try {
    ReadFigureRatios(model, kSteelRatioFigure, folder.Path());
    FAIL() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.what(), folder.Path() + "SIG_S ： 判定値のある要素がありません");
  }
}

TEST(FigureRatios, MissingFileLeavesNone) {
  const TemporaryFolder folder;
  FigureModel model;
  model.ratios = {1};
  EXPECT_FALSE(LoadFigureRatios(model, kSteelRatioFigure, folder.Path()));
  EXPECT_TRUE(model.ratios.empty());
}

}  // namespace
}  // namespace zorlan

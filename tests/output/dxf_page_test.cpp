#include "output/dxf_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/host.h"
#include "base/text_file.h"
#include "graphics/options.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

constexpr Surface kPage = {.page = true,
                           .width = 11906,
                           .height = 16838,
                           .marginLeft = 567,
                           .marginTop = 567,
                           .marginRight = 567,
                           .marginBottom = 567};

class DxfPage : public testing::Test {
 protected:
  void SetUp() override {
    AppPath = folder_.Path();
    WorkPath = folder_.Path() + "WK/";
    MakeFolder(WorkPath);
    Host host;
    host.message = [this](std::string_view text, std::string_view) { messages_.emplace_back(text); };
    InstallHost(std::move(host));
    SetDefaultModelOptions();
    SetDefaultAnalysisOptions();
  }
  void TearDown() override { InstallHost({}); }

  /// A beam of 4 m with a load and a moment.
  static Figure Beam() {
    Figure figure;
    figure.model.title = "梁";
    figure.model.maxLoadCase = 2;
    figure.model.nodes = {{.number = 1, .x = 0, .y = 0, .code = {1, 1, 1}}, {.number = 2, .x = 4, .y = 0}};
    figure.model.elements = {{.number = 1, .I = 1, .J = 2, .rowI = 0, .rowJ = 1}};
    figure.model.nodalLoads = {{1, 2, 0, -1, 0}, {2, 2, 0, -1, 0}};
    figure.model.nodalLoadNode = {1, 1};
    figure.model.StressTable = {{.momentI = 4, .momentC = -2}, {.momentI = 2, .momentC = -1}};
    figure.model.DisplacementTable.resize(4);
    return figure;
  }
  static std::set<std::string> LayersOf(const std::vector<DrawOperation>& list) {
    std::set<std::string> layers;
    for (const DrawOperation& operation : list) layers.insert(operation.layer);
    return layers;
  }

  TemporaryFolder folder_;
  std::vector<std::string> messages_;
};

TEST_F(DxfPage, HeadingFrameAndDiagramHaveTheirLayers) {
  Figure figure = Beam();
  const auto list = RecordFigurePage(kPage, figure, {{kMomentFigure, 1, 0, 0}});
  EXPECT_THAT(LayersOf(list), UnorderedElementsAre("TITLE_TXT", "MODEL", "MOMENT", "MOMENT_TXT"));
  EXPECT_THAT(LayersOf(RecordFigurePage(kPage, figure, {{kLoadCheck, 1, 0, 0}})), testing::Contains("KAJYU"));
  EXPECT_THAT(LayersOf(RecordFigurePage(kPage, figure, {{kDisplacementFigure, 1, 0, 0}})),
              testing::Contains("DISP"));
}

TEST_F(DxfPage, FiguresLieInTheirCells) {
  Figure figure = Beam();
  const auto list = RecordFigurePage(kPage, figure, {{kMomentFigure, 1, 2, 0}, {kMomentFigure, 2, 2, 1}});
  std::vector<double> titles;
  for (const DrawOperation& operation : list)
    if (operation.text.find("荷重ｹｰｽ=") != std::string::npos) titles.push_back(operation.y);
  ASSERT_EQ(titles.size(), 2U);
  EXPECT_NEAR(titles[1] - titles[0], (16838 - 2 * 567) / 2.0, 1e-6);
}

TEST_F(DxfPage, FigureKeepsItsOwnChoices) {
  Figure figure = Beam();
  figure.loadCase = 2;
  figure.FigureFlags = kDataUnchanged;
  figure.options.element.colour = 77;
  figure.view.Vvkei = 123;
  RecordFigurePage(kPage, figure, {{kMomentFigure, 1, 0, 0}});
  EXPECT_EQ(figure.loadCase, 2);
  EXPECT_EQ(figure.FigureFlags, kDataUnchanged);
  EXPECT_EQ(figure.options.element.colour, 77);
  EXPECT_EQ(figure.view.Vvkei, 123);
}

TEST_F(DxfPage, IsWrittenByWayOfTheWorkFolder) {
  Figure figure = Beam();
  const std::string chosen = folder_.Path() + "図.dxf";
  ASSERT_TRUE(WriteDxfPage(3, RecordFigurePage(kPage, figure, {{kMomentFigure, 1, 0, 0}}), chosen));
  EXPECT_THAT(ReadTextFile(WorkPath + "Page-3.tmp"), HasSubstr("LINE, MOMENT, "));
  EXPECT_EQ(ReadBytes(WorkPath + "Page-3.dxf"), ReadBytes(chosen));
  EXPECT_THAT(ReadTextFile(chosen), HasSubstr("タイトル：梁"));
  EXPECT_THAT(messages_, IsEmpty());
}

TEST_F(DxfPage, PageWithNothingDrawnIsTold) {
  EXPECT_FALSE(WriteDxfPage(7, {}, folder_.Path() + "a.dxf"));
  EXPECT_THAT(messages_, ElementsAre("ページNo=7のDXFファイルは、作成できませんでした"));
  EXPECT_FALSE(FileExists(folder_.Path() + "a.dxf"));
}

TEST_F(DxfPage, PlaceThatTakesNoFileIsToldWithItsReason) {
  const std::vector<DrawOperation> list(1, DrawOperation{.layer = "MODEL", .text = {}});
  EXPECT_FALSE(WriteDxfPage(1, list, folder_.Path() + "missing/a.dxf"));
  ASSERT_EQ(messages_.size(), 1U);
  EXPECT_THAT(messages_[0], StartsWith("ページNo=1のDXFファイルは、作成できませんでした\n"));
  EXPECT_THAT(messages_[0], HasSubstr("missing/a.dxf"));
}

TEST_F(DxfPage, FailureLeavesTheOlderFileAsItWas) {
  ReplaceBytes(folder_.Path() + "a.dxf", "older");
  RemoveFilesIn(WorkPath);
  std::filesystem::remove(WorkPath);
  const std::vector<DrawOperation> list(1, DrawOperation{.layer = "MODEL", .text = {}});
  EXPECT_FALSE(WriteDxfPage(1, list, folder_.Path() + "a.dxf"));
  EXPECT_EQ(ReadBytes(folder_.Path() + "a.dxf"), "older");
}

TEST_F(DxfPage, ProposesItsNameByTheNumber) {
  EXPECT_EQ(DxfPageName(12), "Page-12");
}

}  // namespace
}  // namespace zorlan

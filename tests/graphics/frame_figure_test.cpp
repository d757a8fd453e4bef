#include "graphics/frame_figure.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <utility>

#include "figures.h"
#include "graphics/option_figures.h"

namespace zorlan {
namespace {

using test::FigureOf;
using test::LayerLines;
using test::Lines;
using test::ListLines;
using test::Messages;
using test::ModelBuilder;
using test::PageRecorder;
using test::Recorder;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

// The beam from (0, 0) to (10, 0) runs from (1500, 5000) to (11500, 5000) on 13000 x 10000 twips, 1 mm a
// twip.
ModelBuilder TitledBeam() {
  ModelBuilder b;
  b.Node(0, 0, {1, 1, 0});
  b.Node(10, 0, {0, 1, 0});
  b.Element(1, 2);
  b.model.Title = "梁";
  return b;
}

Figure Bare(Figure figure) {
  figure.options.nodeNumber.visible = figure.options.elementNumber.visible =
      figure.options.sectionNumber.visible = false;
  return figure;
}

// A node's circle is 25 twips in radius for a size of 1 dot, a support 200 high. Numbers of 160 twips: a
// node's at its upper right, 25 + 0.75 x 30 off; a member's above its centre with a gap of 30, its section's
// below.
TEST(FrameFigure, ABeamOnTwoSupports) {
  const std::vector<std::string> lines = Lines(FigureOf(TitledBeam().model), kModelFigure);
  EXPECT_THAT(
      lines,
      ElementsAre(
          "LINE, MODEL, 1500, 5000, 11500, 5000, 255",
          // the pin: triangle, ground, five hatches 75 apart
          "LINE, MODEL, 1500, 5000, 1380, 5200, 0", "LINE, MODEL, 1500, 5000, 1620, 5200, 0",
          "LINE, MODEL, 1380, 5200, 1620, 5200, 0", "LINE, MODEL, 1320, 5200, 1680, 5200, 0",
          "LINE, MODEL, 1380, 5200, 1320, 5260, 0", "LINE, MODEL, 1455, 5200, 1395, 5260, 0",
          "LINE, MODEL, 1530, 5200, 1470, 5260, 0", "LINE, MODEL, 1605, 5200, 1545, 5260, 0",
          "LINE, MODEL, 1680, 5200, 1620, 5260, 0", "CIRCLE, MODEL, 1500, 5000, 25, 0",
          // the roller: triangle, wheels, ground
          "LINE, MODEL, 11500, 5000, 11380, 5200, 0", "LINE, MODEL, 11500, 5000, 11620, 5200, 0",
          "LINE, MODEL, 11380, 5200, 11620, 5200, 0", "CIRCLE, MODEL, 11430, 5225, 22, 0",
          "CIRCLE, MODEL, 11570, 5225, 22, 0", "LINE, MODEL, 11320, 5250, 11680, 5250, 0",
          "CIRCLE, MODEL, 11500, 5000, 25, 0",
          // numbers
          "TEXT, MODEL_TXT, 1547.5, 4792.5, 1, 80, 160, 0", "TEXT, MODEL_TXT, 11547.5, 4792.5, 2, 80, 160, 0",
          "TEXT, MODEL_TXT, 6460, 4810, 1, 80, 160, 0", "TEXT, MODEL_TXT, 6460, 5030, 1, 80, 160, 0"));
}

TEST(FrameFigure, TheRecordingHoldsWhatTheSurfaceReceived) {
  ModelBuilder b = TitledBeam();
  b.ElementLoad(1, -2, 10, 1);
  Recorder page = PageRecorder();
  page.surface.marginLeft = page.surface.marginTop = page.surface.marginRight = page.surface.marginBottom =
      500;
  Figure figure = FigureOf(b.model);
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kLoadCheck, 5, 3);
  ASSERT_EQ(plot.drawingList.size(), page.lines.size());
  for (std::size_t k = 0; k < page.lines.size(); ++k) {
    const DrawOperation& o = plot.drawingList[k];
    std::string expected;
    for (const double value : {o.x, o.y,
                               o.kind == DrawOperation::Kind::Line     ? o.x2
                               : o.kind == DrawOperation::Kind::Circle ? o.radius
                                                                       : o.height}) {
      expected += ' ';
      AppendReal(expected, value);
    }
    EXPECT_THAT(page.lines[k], HasSubstr(expected));
  }
  EXPECT_GE(plot.drawingList[0].x, 6500);  // the fourth cell: the right lower quarter
  EXPECT_GE(plot.drawingList[0].y, 5000);
}

TEST(FrameFigure, TheTitleNamesModelFigureAndCase) {
  struct TitleCase {
    int kind;
    std::vector<std::string> lines;
  };
  // 180 twips high: "タイトル：梁   (B1)" are 19 half-width characters, "荷重ｹｰｽ=1" 9; the second line
  // lies 1.3 lines below.
  const std::string first = "TEXT, TITLE_TXT, 100, 100, タイトル：梁   (B1), 1710, 180, 0";
  const TitleCase kCases[] = {
      {kModelFigure, {first}},
      {kLoadCheck,
       {first, "TEXT, TITLE_TXT, 100, 334, 荷重ﾁｪｯｸ図  荷重ｹｰｽ=1, 1890, 180, 0",
        "TEXT, TITLE_TXT, 12180, 334, (単位:t), 720, 180, 0"}},
      {kDisplacementFigure, {first, "TEXT, TITLE_TXT, 100, 334, 変位図  荷重ｹｰｽ=1, 1530, 180, 0"}},
      {kAxialFigure,
       {first, "TEXT, TITLE_TXT, 100, 334, 軸力図  荷重ｹｰｽ=1, 1530, 180, 0",
        "TEXT, TITLE_TXT, 12180, 334, (単位:t), 720, 180, 0"}},
      {kShearFigure,
       {first, "TEXT, TITLE_TXT, 100, 334, せん断力図  荷重ｹｰｽ=1, 1890, 180, 0",
        "TEXT, TITLE_TXT, 12180, 334, (単位:t), 720, 180, 0"}},
      {kMomentFigure,
       {first, "TEXT, TITLE_TXT, 100, 334, ﾓｰﾒﾝﾄ図  荷重ｹｰｽ=1, 1620, 180, 0",
        "TEXT, TITLE_TXT, 12000, 334, (単位:t･m), 900, 180, 0"}},
      {kSteelRatioFigure, {first, "TEXT, TITLE_TXT, 100, 334, Ｓ断面算定用モデル図, 1800, 180, 0"}},
      {kRcRatioFigure, {first, "TEXT, TITLE_TXT, 100, 334, ＲＣ断面算定用モデル図, 1980, 180, 0"}},
  };
  for (const TitleCase& c : kCases) {
    Figure figure = FigureOf(TitledBeam().model);
    figure.model.name = "B1";
    EXPECT_EQ(LayerLines(figure, c.kind, layer::kTitle), c.lines) << c.kind;
  }
}

TEST(FrameFigure, TheUnitInTheTitleFollowsTheUnitsOfLoadsAndResults) {
  ModelBuilder b = TitledBeam();
  b.model.InUnit = 1;
  EXPECT_THAT(LayerLines(FigureOf(b.model), kLoadCheck, layer::kTitle).back(), HasSubstr("(単位:kN)"));
  EXPECT_THAT(LayerLines(FigureOf(b.model), kMomentFigure, layer::kTitle).back(), HasSubstr("(単位:t･m)"));
  b.model.InUnit = 0;
  b.model.OutUnit = 1;
  EXPECT_THAT(LayerLines(FigureOf(b.model), kLoadCheck, layer::kTitle).back(), HasSubstr("(単位:t)"));
  EXPECT_THAT(LayerLines(FigureOf(b.model), kShearFigure, layer::kTitle).back(), HasSubstr("(単位:kN)"));
  EXPECT_THAT(LayerLines(FigureOf(b.model), kMomentFigure, layer::kTitle).back(), HasSubstr("(単位:kN･m)"));
}

TEST(FrameFigure, ALongTitleIsMadeSmallerToFitItsCell) {
  ModelBuilder b = TitledBeam();
  b.model.Title = std::string(72, 'A');
  const std::vector<std::string> lines =
      LayerLines(FigureOf(b.model), kModelFigure, layer::kTitle, Recorder(6725, 5000));
  ASSERT_THAT(lines, SizeIs(1));
  // 87 half-width characters (title, heading and brackets) on 6525 twips.
  EXPECT_THAT(lines[0], HasSubstr(", 6525, 150, 0"));
}

// At 140 twips, the smallest that prints well, 4800 twips hold 68 half-width characters.
TEST(FrameFigure, ATitleTooLongForItsCellTakesMoreLines) {
  ModelBuilder b = TitledBeam();
  b.model.Title = std::string(72, 'A');
  EXPECT_THAT(LayerLines(FigureOf(b.model), kLoadCheck, layer::kTitle, Recorder(5000, 5000)),
              ElementsAre("TEXT, TITLE_TXT, 100, 100, タイトル：" + std::string(58, 'A') + ", 4760, 140, 0",
                          "TEXT, TITLE_TXT, 100, 282, " + std::string(14, 'A') + "   (), 1330, 140, 0",
                          "TEXT, TITLE_TXT, 100, 464, 荷重ﾁｪｯｸ図  荷重ｹｰｽ=1, 1470, 140, 0",
                          "TEXT, TITLE_TXT, 4340, 464, (単位:t), 560, 140, 0"));
}

TEST(FrameFigure, ATitleBeyondAllMeasureEndsInDots) {
  ModelBuilder b = TitledBeam();
  b.model.Title = "";
  for (int k = 0; k < 300; ++k) b.model.Title += "題";
  const std::vector<std::string> lines =
      LayerLines(FigureOf(b.model), kModelFigure, layer::kTitle, Recorder(5000, 5000));
  ASSERT_THAT(lines, SizeIs(4));
  EXPECT_THAT(lines[3], HasSubstr("題題…, 4760, 140, 0"));
}

TEST(FrameFigure, AModelOutsideTheRangeDrawsOnlyItsTitle) {
  Figure figure = FigureOf(TitledBeam().model);
  figure.range.xLower = 20;
  figure.range.xUpper = 30;
  Recorder surface;
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_THAT(ListLines(plot), ElementsAre(StartsWith("TEXT, TITLE_TXT, ")));
  EXPECT_EQ(figure.view.tVxmin, -0.1);
}

TEST(FrameFigure, AnEmptyModelDrawsItsTitle) {
  EXPECT_THAT(Lines(FigureOf(ModelRec()), kModelFigure), IsEmpty());
  EXPECT_THAT(LayerLines(FigureOf(ModelRec()), kMomentFigure, layer::kTitle), SizeIs(3));
}

TEST(FrameFigure, ARangeShowsMembersByBothEndsOrByOne) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(10, 0);
  b.Node(20, 0);
  b.Element(1, 2);
  b.Element(2, 3);
  Figure figure = Bare(FigureOf(b.model));
  figure.range.xUpper = 10;
  const auto count = [&](std::string_view what) {
    const std::vector<std::string> lines = Lines(figure, kModelFigure);
    return std::ranges::count_if(lines, [&](const std::string& line) { return line.starts_with(what); });
  };
  EXPECT_EQ(count("LINE"), 1);
  EXPECT_EQ(count("CIRCLE"), 2);
  figure.range.mode = RangeMode::OneEnd;
  EXPECT_EQ(count("LINE"), 2);
  EXPECT_EQ(count("CIRCLE"), 2);  // the node outside isn't shown
}

TEST(FrameFigure, NodeShownIsAFlagByNumber) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(10, 0);
  b.model.Node[2].number = 500;
  Figure figure = FigureOf(b.model);
  figure.range.xUpper = 5;
  Recorder surface;
  Plot plot(surface);
  PrepareFigure(plot, "", figure, kModelFigure, 0, 0);
  EXPECT_EQ(figure.NodeShown[1], -1);
  EXPECT_EQ(figure.NodeShown[500], 0);
  EXPECT_TRUE(IsNodeShown(figure, 1));
  EXPECT_FALSE(IsNodeShown(figure, 500));
  EXPECT_FALSE(IsNodeShown(figure, -1));
  EXPECT_FALSE(IsNodeShown(figure, 100000));
}

TEST(FrameFigure, AMemberWithoutLengthStopsTheFigureWithItsMessage) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(10, 0);
  b.Node(10, 0);
  b.Element(1, 2);
  b.Element(2, 3);
  b.Element(1, 3);
  Messages messages;
  Figure figure = FigureOf(b.model);
  EXPECT_THAT(Lines(figure, kModelFigure), ElementsAre("LINE, MODEL, 1500, 5000, 11500, 5000, 255"));
  EXPECT_THAT(
      messages.texts,
      ElementsAre("要素データエラー: 要素番号＝2\n要素の長さ＝０です。修正してください\n節点番号＝2～3"));
}

TEST(FrameFigure, ARedrawOfTheSameDataDoesNotRepeatTheMessage) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Element(1, 1);
  Messages messages;
  Figure figure = FigureOf(b.model);
  Recorder surface;
  for (int k = 0; k < 3; ++k) {
    Plot plot(surface);
    DrawFrameFigure(plot, "", figure, kModelFigure);
  }
  EXPECT_THAT(messages.texts, SizeIs(1));
  figure.model = FigureModelOf(b.model);
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_THAT(messages.texts, SizeIs(2));
}

/// A surface that fails at its third operation.
class Failing : public Recorder {
 public:
  void Text(Point origin, std::string_view text, double height, double angle, Rgb colour) override {
    Recorder::Text(origin, text, height, angle, colour);
  }
  void Line(Point, Point, const Pen&) override { throw std::runtime_error("紙がありません"); }
};

TEST(FrameFigure, AFaultIsReportedAndTheFigureStaysAsFarAsItWasDrawn) {
  Messages messages;
  Failing surface;
  Figure figure = FigureOf(TitledBeam().model);
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_THAT(surface.lines, SizeIs(1));
  EXPECT_THAT(messages.texts,
              ElementsAre("エラーが発生しました: エラー番号： 5\nモジュール名： ModelData\n関数名： "
                          "DrawFrameFigure\n紙がありません"));
}

/// A surface that has no pen of one colour.
class WithoutColour : public Recorder {
 public:
  explicit WithoutColour(Rgb theColour) : colour(theColour) {}
  void Line(Point from, Point to, const Pen& pen) override {
    if (pen.colour == colour) throw std::runtime_error("紙がありません");
    Recorder::Line(from, to, pen);
  }
  Rgb colour;
};

TEST(FrameFigure, AFaultInTheLoadCheckNamesTheRoutineOfTheLoad) {
  constexpr Rgb kOnMembers = 0x111111, kOnNodes = 0x222222;
  for (const auto& [colour, routine] :
       {std::pair(kOnMembers, "DrawElementForceData"), std::pair(kOnNodes, "DrawNodalForceData")}) {
    Messages messages;
    ModelBuilder b = TitledBeam();
    b.ElementLoad(1, -1);
    b.NodalLoad(1, 2, 0, 0);
    Figure figure = FigureOf(b.model);
    figure.options.elementLoad.colour = kOnMembers;
    figure.options.nodalLoad.colour = kOnNodes;
    WithoutColour surface(colour);
    Plot plot(surface);
    DrawFrameFigure(plot, "", figure, kLoadCheck);
    EXPECT_THAT(messages.texts, ElementsAre(HasSubstr("\n関数名： " + std::string(routine) + "\n")));
  }
}

TEST(FrameFigure, APageFigureLiesInItsCellWithinTheMargins) {
  Recorder page = PageRecorder(14000, 11000);
  page.surface.marginLeft = 600;
  page.surface.marginRight = 400;
  page.surface.marginTop = 700;
  page.surface.marginBottom = 300;
  // Left over are 13000 x 10000; the lower cell of layout 2 is 13000 x 5000 at (600, 5700).
  Figure figure = Bare(FigureOf(TitledBeam().model));
  EXPECT_EQ(LayerLines(figure, kModelFigure, layer::kModel, page)[0],
            "LINE, MODEL, 2100, 5700, 12100, 5700, 255");
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kModelFigure, 2, 1);
  EXPECT_EQ(ListLines(plot)[1], "LINE, MODEL, 2100, 8200, 12100, 8200, 255");
  EXPECT_EQ(plot.OffsetX, 600);
  EXPECT_EQ(plot.OffsetY, 5700);
}

TEST(FrameFigure, APictureControlTakesNoPageMargins) {
  Recorder page = PageRecorder();
  page.surface.marginLeft = page.surface.marginTop = page.surface.marginRight = page.surface.marginBottom =
      1000;
  Figure figure = FigureOf(TitledBeam().model);
  Plot plot(page);
  DrawFrameFigure(plot, "frmPicture1", figure, kModelFigure);
  EXPECT_EQ(plot.OffsetX, 0);
  EXPECT_EQ(figure.cellWidth, 13000);
  DrawFrameFigure(plot, "VSPrinter1", figure, kModelFigure);
  EXPECT_EQ(plot.OffsetX, 1000);
  EXPECT_EQ(figure.cellWidth, 11000);
}

TEST(FrameFigure, TheWindowStaysWithoutTheFitFlag) {
  Figure figure = FigureOf(TitledBeam().model);
  Recorder surface;
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  ZoomAbout(figure.view, {1500, 5000}, 2);
  figure.FigureFlags = kDataUnchanged;
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_EQ(ListLines(plot)[1],
            "LINE, MODEL, 1500, 5000, 13000, 5000, 255");  // its end is cut at the surface
  figure.FigureFlags = kRedrawAll;
  plot.drawingList.clear();
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_EQ(ListLines(plot)[1], "LINE, MODEL, 1500, 5000, 11500, 5000, 255");
}

// Zoomed in twice about the beam's left end the screen shows 6.5 m from -0.75 m on, 5 m high. In the right
// half of a page, 6500 wide, that is 1 mm a twip: the beam begins at 750 and is cut a
// quarter of a millimetre before the edge.
TEST(FrameFigure, APartOfAFigureOnAPageKeepsToItsCell) {
  Figure figure = Bare(FigureOf(TitledBeam().model));
  Recorder surface;
  Plot screen(surface);
  DrawFrameFigure(screen, "", figure, kModelFigure);
  ZoomAbout(figure.view, {1500, 5000}, 2);
  figure.FigureFlags = kDataUnchanged;
  Recorder page = PageRecorder();
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kModelFigure, 1, 1);
  EXPECT_THAT(ListLines(plot)[1], StartsWith("LINE, MODEL, 7250, 5000, 12985.8267"));
}

// The arrows of a fitted figure in a low cell and a sway of 40 cm reach far beyond the model.
TEST(FrameFigure, OfSeveralFiguresOnAPageNoneReachesIntoItsNeighbour) {
  ModelBuilder b = TitledBeam();
  b.Element(2, b.Node(10, 5));
  b.NodalLoad(3, 1, -2, 3);
  Figure figure = FigureOf(b.model);
  figure.model.DisplacementTable = {{}, {.x = 1, .y = 0}, {.x = 1, .y = -1}};
  figure.options.HeightDisplacement = 40;
  for (const int kind : {kLoadCheck, kDisplacementFigure})
    for (int layout = 1; layout < kLayouts; ++layout)
      for (int cell = 0; cell < CellCount(layout); ++cell) {
        Recorder page = PageRecorder();
        Plot plot(page);
        plot.RecordDrawing = true;
        DrawFrameFigure(plot, "", figure, kind, layout, cell);
        const Cell place = CellOf(layout, cell, 13000, 10000);
        const double strip = kTwipsPerMm / 4 - 0.01;  // a strip along the edges stays white
        const Rectangle room = {place.x + strip, place.y + strip, place.x + place.width - strip,
                                place.y + place.height - strip};
        for (const DrawOperation& o : plot.drawingList) {
          if (o.kind != DrawOperation::Kind::Line) continue;
          EXPECT_TRUE(room.Meets({o.x, o.y, o.x, o.y}) && room.Meets({o.x2, o.y2, o.x2, o.y2}))
              << layout << " " << cell << " " << OperationLine(o);
        }
        EXPECT_EQ(page.lines.size() - static_cast<std::size_t>(std::ranges::count_if(
                                          page.lines, [](const auto& l) { return l.starts_with("shade"); })),
                  plot.drawingList.size());
      }
}

// The usual case: four figures on upright A4, whose margins leave cells of 90 mm, and a sway of 1 cm.
TEST(FrameFigure, ASwayOfOneCentimetreLiesInTheMarginOfItsCell) {
  ModelBuilder b = TitledBeam();
  Figure figure = FigureOf(b.model);
  figure.model.DisplacementTable = {{}, {.x = 1, .y = 0}, {.x = 1, .y = 0}};
  Recorder page = PageRecorder(180 * kTwipsPerMm, 269 * kTwipsPerMm);
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kDisplacementFigure, 5, 3);
  double right = 0;
  for (const DrawOperation& o : plot.drawingList)
    if (o.layer == layer::kDisplacement) right = std::max({right, o.x, o.x2});
  EXPECT_NEAR(right, (90 + 45 + 45 / 1.3 + 10) * kTwipsPerMm, 0.01);
}

TEST(FrameFigure, TheTitleOfALowCellIsSmall) {
  Recorder page = PageRecorder();
  Figure figure = FigureOf(TitledBeam().model);
  Plot plot(page);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure, kModelFigure, 4, 0);  // 3333 high
  EXPECT_THAT(ListLines(plot)[0], HasSubstr(", 133.33333"));
}

TEST(FrameFigure, WithoutAKindTheFormsDiagramTypeIsDrawn) {
  Figure figure = FigureOf(TitledBeam().model);
  figure.DiagramType = kShearFigure;
  Recorder surface;
  Plot plot(surface);
  plot.RecordDrawing = true;
  DrawFrameFigure(plot, "", figure);
  EXPECT_THAT(ListLines(plot)[1], HasSubstr("せん断力図"));
}

TEST(FrameFigure, AGridsDiagramsAreSeenObliquely) {
  ModelBuilder b(kPlaneGrid);
  b.Node(0, 0);
  b.Node(10, 0);
  b.Node(10, 10);
  b.Element(1, 2);
  b.Element(2, 3);
  Figure figure = Bare(FigureOf(b.model));
  figure.options.viewTurn = 90;
  figure.options.viewTilt = 30;
  Recorder surface;
  Plot plot(surface);
  PrepareFigure(plot, "", figure, kLoadCheck, 0, 0);
  EXPECT_FALSE(figure.oblique);
  EXPECT_EQ(figure.place[1].x, 10);
  PrepareFigure(plot, "", figure, kDisplacementFigure, 0, 0);
  EXPECT_TRUE(figure.oblique);
  // About (5, 5): (10, 0) is (5, -5) from it, turned by 90 degrees (5, 5), laid back (5, 2.5).
  EXPECT_NEAR(figure.place[1].x, 10, 1e-12);
  EXPECT_NEAR(figure.place[1].y, 7.5, 1e-12);
  EXPECT_NEAR(figure.view.tVymin, 2.5, 1e-12);  // the extent is that of the figure's points
  EXPECT_NEAR(figure.view.tVymax, 7.5, 1e-12);
  EXPECT_NEAR(figure.PlaneOf(10, 0, 2).y, 7.5 + std::sqrt(3), 1e-12);
}

TEST(FrameFigure, AFramesDiagramsLieInItsPlane) {
  Figure figure = FigureOf(TitledBeam().model);
  Recorder surface;
  Plot plot(surface);
  PrepareFigure(plot, "", figure, kMomentFigure, 0, 0);
  EXPECT_FALSE(figure.oblique);
  EXPECT_EQ(figure.FigureOf(0, 0).x, 1500);
}

TEST(FrameFigure, OptionsSetPensAndHideParts) {
  Figure figure = Bare(FigureOf(TitledBeam().model));
  figure.options.element = {.visible = true, .width = 3, .style = LineStyle::Dotted, .colour = 65280};
  Recorder surface;
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_EQ(surface.lines[1], "line 1500 5000 11500 5000 65280");
  EXPECT_EQ(surface.pens[0].style, LineStyle::Dotted);
  EXPECT_EQ(surface.pens[0].width, 3);
  figure.options.element.visible = figure.options.node.visible = false;
  for (const std::string& line : Lines(figure, kModelFigure))
    EXPECT_THAT(line, testing::Not(HasSubstr("11500, 5000, 25")));
}

TEST(FrameFigure, OnAPageAMembersBrokenStyleIsFourSegments) {
  Figure figure = Bare(FigureOf(TitledBeam().model));
  figure.options.element.style = LineStyle::Dotted;
  const std::vector<std::string> lines = Lines(figure, kModelFigure, PageRecorder());
  EXPECT_EQ(lines[0], "LINE, MODEL, 1500, 5000, 2125, 5000, 255");
  EXPECT_EQ(lines[3], "LINE, MODEL, 10875, 5000, 11500, 5000, 255");
}

TEST(FrameFigure, SymbolsFollowTheNodesSize) {
  Figure figure = Bare(FigureOf(TitledBeam().model));
  figure.options.node.width = 2;
  EXPECT_EQ(Lines(figure, kModelFigure)[1], "LINE, MODEL, 1500, 5000, 1260, 5400, 0");
  EXPECT_EQ(SupportSize(figure.options), 400);
  EXPECT_EQ(NodeRadius(figure.options), 50);
  // As large as an option may make it.
  ModelOptions options = DefaultModelOptions();
  options.rows[2] = "節点,100dot,,&H000000,ON";
  figure.options = FigureOptionsOf(options);
  EXPECT_EQ(NodeRadius(figure.options), 2500);
  EXPECT_THAT(Lines(figure, kModelFigure), testing::Contains("CIRCLE, MODEL, 1500, 5000, 2500, 0"));
}

TEST(FrameFigure, NumbersTakeTheirMarks) {
  Figure figure = FigureOf(TitledBeam().model);
  figure.options.nodeNumber.visible = false;
  figure.options.elementNumber.mark = figure.options.sectionNumber.mark = true;
  const std::vector<std::string> lines = Lines(figure, kModelFigure);
  ASSERT_GE(lines.size(), 7);
  const std::size_t first = lines.size() - 7;
  // The circle is as wide as the diagonal of 80 x 160: 178.885; it stands 30 above the member.
  EXPECT_EQ(lines[first], "TEXT, MODEL_TXT, 6460, 4800.55728090001, 1, 80, 160, 0");
  EXPECT_THAT(lines[first + 1], StartsWith("CIRCLE, MODEL, 6500, 4880.557280900"));
  // The frame leaves 25 twips about 80 x 160 and stands 30 below the member.
  EXPECT_EQ(lines[first + 2], "TEXT, MODEL_TXT, 6460, 5055, 1, 80, 160, 0");
  EXPECT_EQ(lines[first + 3], "LINE, MODEL, 6435, 5030, 6565, 5030, 0");
  EXPECT_EQ(lines[first + 5], "LINE, MODEL, 6565, 5240, 6435, 5240, 0");
}

TEST(FrameFigure, PinnedEndsHaveRings) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(10, 0);
  b.Element(1, 2, 1, 1, 0);
  // 35 in radius, its edge at the node's: 25 + 35 along the member.
  EXPECT_THAT(Lines(Bare(FigureOf(b.model)), kModelFigure),
              testing::Contains("CIRCLE, MODEL, 1560, 5000, 35, 255"));
  EXPECT_THAT(Lines(Bare(FigureOf(b.model)), kMomentFigure), Each(testing::Not(HasSubstr(", 35, 255"))));
}

TEST(FrameFigure, TwoNodesInOnePlaceHaveTheirNumbersApart) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(10, 0);
  b.Node(10, 0);
  const std::vector<std::string> lines = Lines(FigureOf(b.model), kModelFigure);
  std::vector<std::string> texts;
  for (const std::string& line : lines)
    if (line.starts_with("TEXT")) texts.push_back(line);
  EXPECT_THAT(texts, ElementsAre("TEXT, MODEL_TXT, 1547.5, 4792.5, 1, 80, 160, 0",
                                 "TEXT, MODEL_TXT, 11547.5, 4792.5, 2, 80, 160, 0",
                                 "TEXT, MODEL_TXT, 11372.5, 4792.5, 3, 80, 160, 0"));
}

TEST(FrameFigure, ASupportAtTheRightEndStandsToTheRight) {
  ModelBuilder b;
  b.Node(0, 0, {1, 0, 0});
  b.Node(10, 0, {1, 0, 0});
  b.Element(1, 2);
  const std::vector<std::string> lines = Lines(Bare(FigureOf(b.model)), kModelFigure);
  EXPECT_THAT(lines, testing::Contains("LINE, MODEL, 1250, 4820, 1250, 5180, 0"));
  EXPECT_THAT(lines, testing::Contains("LINE, MODEL, 11750, 5180, 11750, 4820, 0"));
}

}  // namespace
}  // namespace zorlan

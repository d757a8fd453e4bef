// Figures on sheets, and what is told of a pick.
#include "shell/figure_sheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "shell/figure_deck.h"
#include "shell/figure_pick.h"

namespace zorlan {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

/// A beam of 6 m from node 3 to node 8, fixed at its left end.
ModelRec Beam() {
  ModelRec model;
  model.ModelCode = kPlaneFrame;
  model.MaxLoadCase = 2;
  model.NodeCount = 2;
  model.Node.Append({.number = 3, .X = 0, .Y = 1.5, .code = {1, 1, 1}});
  model.Node.Append({.number = 8, .X = 6, .Y = 1.5, .code = {4, 4, 0}, .rollerAngle = 30});
  model.ElemCount = 1;
  model.Elem.Append({.number = 5, .I = 3, .J = 8, .II = 0, .JJ = 1, .section = 2, .rigid = 4, .length = 6});
  return model;
}

Figure FigureOfBeam() {
  Figure figure;
  figure.model = FigureModelOf(Beam());
  return figure;
}

TEST(FigureSheets, ASheetHasThePapersSizeAfterItsOrientation) {
  PrinterRec printer;
  printer.paper = "A3";
  EXPECT_NEAR(SheetSurface(printer).width, 297 * kTwipsPerMm, 1e-6);
  printer.orientation = kLandscape;
  EXPECT_NEAR(SheetSurface(printer).width, 420 * kTwipsPerMm, 1e-6);
  EXPECT_NEAR(SheetSurface(printer).height, 297 * kTwipsPerMm, 1e-6);
  EXPECT_TRUE(SheetSurface(printer).page);
}

TEST(FigureSheets, APageBeginsWhenTheCellsAreUsedUp) {
  FigureSheets sheets;
  const int cells[] = {1, 2, 2, 3, 3, 4};
  sheets.figures.resize(5);
  for (int layout = 0; layout < 6; ++layout) {
    sheets.layout = layout;
    EXPECT_EQ(sheets.PageCount(), (5 + cells[layout] - 1) / cells[layout]) << layout;
  }
  sheets.figures.clear();
  EXPECT_EQ(sheets.PageCount(), 0);
}

TEST(FigureSheets, EachCellHasItsOwnFigure) {
  const FigureSheets sheets =
      SheetsOf(PrinterRec(), {{kLoadCheck, 1}, {kLoadCheck, 2}, {kModelFigure, 1}}, /*layout=*/2);
  Figure figure = FigureOfBeam();
  std::vector<std::string> texts;
  for (const DrawOperation& operation : RecordSheet(sheets, 0, figure)) texts.push_back(operation.text);
  EXPECT_THAT(texts, Contains("荷重ﾁｪｯｸ図  荷重ｹｰｽ=1"));
  EXPECT_THAT(texts, Contains("荷重ﾁｪｯｸ図  荷重ｹｰｽ=2"));
  EXPECT_THAT(texts, Contains("Page-1"));
  texts.clear();
  for (const DrawOperation& operation : RecordSheet(sheets, 1, figure)) texts.push_back(operation.text);
  EXPECT_THAT(texts, Not(Contains("荷重ﾁｪｯｸ図  荷重ｹｰｽ=2")));
  EXPECT_THAT(texts, Contains("Page-2"));
}

// A part of 3 m by 3 m about the beam's right end; the beam's left half is out of sight. The page shows it
// again when it is drawn again, in another form of paper too.
TEST(FigureSheets, APartInSightGoesToEveryCellAsItIs) {
  FigureSheets sheets = SheetsOf(PrinterRec(), {{kModelFigure, 1}, {kLoadCheck, 1}}, /*layout=*/2);
  Figure figure = FigureOfBeam();
  sheets.shown = View{.Vxmin = 4.5, .Vxmax = 7.5, .Vymin = 0, .Vymax = 3, .Vvkei = 0.001};
  const auto scaleAfter = [&] {
    RecordSheet(sheets, 0, figure);
    return figure.view.Vvkei;
  };
  const double scale = scaleAfter();
  EXPECT_NEAR(figure.view.Vxmin + figure.view.Vxmax, 12, 1e-9);
  PrinterRec landscape;
  landscape.orientation = kLandscape;
  sheets.sheet = SheetSurface(landscape);
  EXPECT_GT(scaleAfter(), scale);  // lower cells
  sheets.sheet = SheetSurface(PrinterRec());
  EXPECT_NEAR(scaleAfter(), scale, 1e-12);
}

TEST(FigureSheets, PageNumbersFollowThePrinterSettings) {
  PrinterRec printer;
  printer.firstPage = 12;
  Figure figure = FigureOfBeam();
  EXPECT_EQ(RecordSheet(SheetsOf(printer, {{}}, 0), 0, figure).back().text, "Page-12");
  printer.pageNumbers = kNoPageNumbers;
  for (const DrawOperation& operation : RecordSheet(SheetsOf(printer, {{}}, 0), 0, figure))
    EXPECT_EQ(operation.text.find("Page-"), std::string::npos);
}

TEST(FigureDeck, KindsAreNamedByWords) {
  EXPECT_EQ(FigureKindOf("model"), kModelFigure);
  EXPECT_EQ(FigureKindOf("moment"), kMomentFigure);
  EXPECT_EQ(FigureKindOf("rc"), kRcRatioFigure);
  EXPECT_EQ(FigureKindOf("Moment"), std::nullopt);
  EXPECT_EQ(FigureKindWords(), "model load displacement axial shear moment steel rc");
}

TEST(FigurePick, TheHeadingHasTheNumberInBrackets) {
  EXPECT_EQ(PickHeading({Pick::What::Node, 1, 8}), "〔8〕節点情報");
  EXPECT_EQ(PickHeading({Pick::What::Element, 0, 5}), "〔5〕要素情報");
}

TEST(FigurePick, AMemberIsToldWithItsLengthAndEnds) {
  const std::vector<PickFact> facts = PickFacts(FigureOfBeam(), {Pick::What::Element, 0, 5});
  EXPECT_THAT(facts, Contains(PickFact{"節点I", "3"}));
  EXPECT_THAT(facts, Contains(PickFact{"Ｊ端節点条件", "1：ピン"}));
  EXPECT_THAT(facts, Contains(PickFact{"要素の長さ", "6.000"}));
}

TEST(FigurePick, ResultsAreToldInTheUnitOfTheOutput) {
  Figure figure = FigureOfBeam();
  figure.DiagramType = kMomentFigure;
  figure.loadCase = 2;
  figure.model.outUnit = 1;
  figure.model.gravityFactor = 10;
  figure.model.StressTable = {{}, {.axialI = -1.5, .momentC = -2, .axialJ = 1.5}};
  figure.model.DisplacementTable = {{}, {}, {}, {.x = 0.012, .y = -0.003}};
  const std::vector<PickFact> member = PickFacts(figure, {Pick::What::Element, 0, 5});
  EXPECT_THAT(member, Contains(PickFact{"軸力Ｉ(kN)", "15.000"}));
  EXPECT_THAT(member, Contains(PickFact{"ﾓｰﾒﾝﾄ中央(kN･m)", "-20.000"}));
  const std::vector<PickFact> node = PickFacts(figure, {Pick::What::Node, 1, 8});
  EXPECT_THAT(node, Contains(PickFact{"変位Ｘ(cm)", "1.200"}));
  EXPECT_THAT(node, Contains(PickFact{"変位Ｙ(cm)", "-0.300"}));
  figure.DiagramType = kModelFigure;
  EXPECT_THAT(PickFacts(figure, {Pick::What::Element, 0, 5}),
              Not(Contains(PickFact{"軸力Ｉ(kN)", "15.000"})));
}

/// What is told of the beam's forces with this record, entered from its left or its right end.
std::vector<PickFact> ForceFacts(const StressRecord& record, bool backward, int modelCode = kPlaneFrame) {
  Figure figure = FigureOfBeam();
  figure.DiagramType = kAxialFigure;
  figure.model.modelCode = modelCode;
  if (backward) std::swap(figure.model.elements[0].rowI, figure.model.elements[0].rowJ);
  figure.model.StressTable = {record};
  std::vector<PickFact> facts = PickFacts(figure, {Pick::What::Element, 0, 5});
  facts.erase(facts.begin(), facts.end() - 7);
  return facts;
}

// A strut of 3.336 t: its end I is pushed along +x, its end J back. Both labels of the axial figure say
// -3.34.
TEST(FigurePick, ForcesHaveTheSenseOfTheDiagramsBesideThem) {
  const StressRecord strut = {.axialI = 3.336,
                              .momentI = 4,
                              .momentC = 2.5,
                              .momentJ = -1,
                              .axialJ = -3.336,
                              .shearI = 0.75,
                              .shearJ = -0.75};
  EXPECT_EQ(ForceFacts(strut, false), (std::vector<PickFact>{{"軸力Ｉ(t)", "-3.336"},
                                                             {"軸力Ｊ(t)", "-3.336"},
                                                             {"せん断力Ｉ(t)", "0.750"},
                                                             {"せん断力Ｊ(t)", "0.750"},
                                                             {"ﾓｰﾒﾝﾄＩ(t･m)", "4.000"},
                                                             {"ﾓｰﾒﾝﾄ中央(t･m)", "2.500"},
                                                             {"ﾓｰﾒﾝﾄＪ(t･m)", "-1.000"}}));
  // From its right end: a record of the same values is another load; the figure's centre changes its sign.
  EXPECT_EQ(ForceFacts(strut, true), (std::vector<PickFact>{{"軸力Ｉ(t)", "-3.336"},
                                                            {"軸力Ｊ(t)", "-3.336"},
                                                            {"せん断力Ｉ(t)", "0.750"},
                                                            {"せん断力Ｊ(t)", "0.750"},
                                                            {"ﾓｰﾒﾝﾄＩ(t･m)", "4.000"},
                                                            {"ﾓｰﾒﾝﾄ中央(t･m)", "-2.500"},
                                                            {"ﾓｰﾒﾝﾄＪ(t･m)", "-1.000"}}));
}

// A grid beam on a support at its left end, which is J: moments are those of its ends as the results hold
// them, shear has the inner sense.
TEST(FigurePick, AGridMemberEnteredFromTheRightHasTheNumbersOfItsFigure) {
  const StressRecord sagging = {
      .momentI = -14.744, .momentC = 16.372, .momentJ = 0, .shearI = 3.543, .shearJ = 8.457};
  const std::vector<PickFact> facts = ForceFacts(sagging, true, kPlaneGrid);
  EXPECT_THAT(facts, Contains(PickFact{"ﾓｰﾒﾝﾄＩ(t･m)", "-14.744"}));
  EXPECT_THAT(facts, Contains(PickFact{"ﾓｰﾒﾝﾄ中央(t･m)", "16.372"}));
  EXPECT_THAT(facts, Contains(PickFact{"ﾓｰﾒﾝﾄＪ(t･m)", "0.000"}));
  EXPECT_THAT(facts, Contains(PickFact{"せん断力Ｉ(t)", "-3.543"}));
  EXPECT_THAT(facts, Contains(PickFact{"せん断力Ｊ(t)", "8.457"}));
}

TEST(FigurePick, TheDefinitionIsWhatTheModelStores) {
  const ModelRec model = Beam();
  EXPECT_EQ(NodeDefinition(model, 8), (std::vector<PickFact>{{"節点番号", "8"},
                                                             {"座標Ｘ", "6.000"},
                                                             {"座標Ｙ", "1.500"},
                                                             {"節点状態", "Ｕ=4 Ｖ=4 θ=0"},
                                                             {"傾斜ローラ角度", "30.0"}}));
  EXPECT_THAT(ElementDefinition(model, 5), Contains(PickFact{"剛域タイプ番号", "4"}));
  EXPECT_THAT(NodeDefinition(model, 4), IsEmpty());
  EXPECT_THAT(ElementDefinition(model, 8), IsEmpty());
}

TEST(FigurePick, AnIndexBeyondTheModelTellsNothing) {
  EXPECT_THAT(PickFacts(FigureOfBeam(), {Pick::What::Node, 7, 1}), IsEmpty());
  EXPECT_THAT(PickFacts(FigureOfBeam(), {Pick::What::Element, 7, 1}), IsEmpty());
}

}  // namespace
}  // namespace zorlan

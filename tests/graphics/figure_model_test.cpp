#include "graphics/figure_model.h"

#include <filesystem>

#include "base/number.h"
#include "figures.h"
#include "model/deck.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::Messages;
using test::ModelBuilder;
using test::ModelFolderTest;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FigureModelTest : public ModelFolderTest {};

TEST_F(FigureModelTest, TakesNodesMembersAndLoadsOfAModelAsEntered) {
  ModelBuilder b(kPlaneGrid, 3);
  b.Node(0, 0, {1, 0, 0});
  b.Node(10, 2);
  b.Element(1, 2, 4, 0, 1);
  b.model.Elem[1].number = 7;
  b.NodalLoad(2, 1, 2, 3, 2);
  b.ElementLoad(7, -5, 1, 2);
  b.model.InUnit = 1;
  b.model.SIFactor = 9.8;
  b.model.Title = "試験";
  const FigureModel model = FigureModelOf(b.model);
  EXPECT_TRUE(model.IsGrid());
  EXPECT_EQ(model.title, "試験");
  EXPECT_EQ(model.maxLoadCase, 3);
  EXPECT_EQ(model.inUnit, 1);
  EXPECT_EQ(model.gravityFactor, 9.8);
  ASSERT_THAT(model.nodes, SizeIs(2));
  EXPECT_EQ(model.nodes[1].y, 2);
  EXPECT_EQ(model.nodes[0].code[0], 1);
  ASSERT_THAT(model.elements, SizeIs(1));
  EXPECT_EQ(model.elements[0].section, 4);
  EXPECT_EQ(model.elements[0].JJ, 1);
  EXPECT_EQ(model.elements[0].rowI, 0);
  EXPECT_EQ(model.elements[0].rowJ, 1);
  EXPECT_THAT(model.nodalLoadNode, ElementsAre(1));
  EXPECT_THAT(model.elementLoadElement, ElementsAre(0));
}

TEST_F(FigureModelTest, TheStretchedArraysOfTheModelInHandGiveTheRowsInUse) {
  ModelBuilder b;
  b.Node(0, 0);
  b.model.Node.Stretch(kMaxNodes);
  EXPECT_THAT(FigureModelOf(b.model).nodes, SizeIs(1));
  b.model.NodeCount = 32767;  // more than there are
  EXPECT_THAT(FigureModelOf(b.model).nodes, SizeIs(kMaxNodes));
}

TEST_F(FigureModelTest, NumbersThatLeadNowhereHaveNoIndex) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(1, 0);
  b.Element(1, 2);
  b.model.Elem[1].J = 99;
  b.NodalLoad(98, 1, 0, 0);
  const FigureModel model = FigureModelOf(b.model);
  EXPECT_EQ(model.elements[0].rowJ, -1);
  EXPECT_THAT(model.nodalLoadNode, ElementsAre(-1));
}

TEST_F(FigureModelTest, ReadsTheTablesAsTheyStandInTheWorkFolder) {
  WriteTable("TITL", "門型, 試験\n");
  WriteTable("CONT", "2,4,1,0\n");
  WriteTable("UNIT", "1,0,9.8,0\n");
  WriteTable("NODE", "1,0,0,1,1,1\n2,0,3.5,0,0,0\n(3),6,3.5,0,0,0,30\n");
  WriteTable("ELEM", "1,1,2,0,0,1\n2,2,(3),0,1,(2)\n");
  WriteTable("PLOD", "1,2,5\n");
  WriteTable("ELOD", "1,2,-2,0\n2,2,-2,1,1.5,2,1\n");
  WriteTable("CLOD", "1,2,3,4,5,6,7,1\n");
  WriteTable("TLOD", "1,2,10,30,20,0.000012,20,1\n");
  Messages messages;
  const FigureModel model = ReadFigureTables();
  EXPECT_THAT(messages.texts, IsEmpty());
  EXPECT_EQ(model.title, "門型, 試験");
  EXPECT_EQ(model.name, "model");
  EXPECT_EQ(model.modelCode, kSameDisplacementFrame);
  EXPECT_EQ(model.maxLoadCase, 4);
  EXPECT_EQ(model.inUnit, 1);
  EXPECT_EQ(model.outUnit, 0);
  EXPECT_EQ(model.gravityFactor, 9.8);
  ASSERT_THAT(model.nodes, SizeIs(3));
  EXPECT_EQ(model.nodes[2].number, 3);  // a label in parentheses is shown without them
  EXPECT_EQ(model.nodes[2].rollerAngle, 30);
  ASSERT_THAT(model.elements, SizeIs(2));
  EXPECT_EQ(model.elements[1].rowJ, 2);
  EXPECT_EQ(model.elements[1].section, 2);
  ASSERT_THAT(model.nodalLoads, SizeIs(1));
  EXPECT_EQ(model.nodalLoads[0].F1, 5);
  EXPECT_EQ(model.nodalLoads[0].F2, 0);
  ASSERT_THAT(model.elementLoads, SizeIs(1));  // the first row has too few cells
  EXPECT_EQ(model.elementLoads[0].K, 2);
  EXPECT_THAT(model.cmqLoadElement, ElementsAre(1));
  EXPECT_THAT(model.temperatureLoads, SizeIs(1));
}

TEST_F(FigureModelTest, AModelWithoutTablesIsEmptyAndFine) {
  Messages messages;
  const FigureModel model = ReadFigureTables();
  EXPECT_THAT(model.nodes, IsEmpty());
  EXPECT_EQ(model.gravityFactor, kStandardGravity);
  EXPECT_THAT(messages.texts, IsEmpty());
}

TEST_F(FigureModelTest, TablesAtFaultAreToldAndTheirOtherRowsShown) {
  struct FaultCase {
    const char* name;
    const char* node;
    const char* elem;
    bool nodeFault, elemFault;
  };
  std::string manyCells;
  const FaultCase kCases[] = {
      {"sound", "1,0,0,1,1,1\n2,3,0,0,0,0\n", "1,1,2,0,0,1\n", false, false},
      {"a node of few cells", "1,0,0,1,1,1\n2,3,0,0,0,0\n3,5\n", "1,1,2,0,0,1\n", true, false},
      {"a node number out of range", "1,0,0,1,1,1\n2,3,0,0,0,0\n99999,5,0,0,0,0\n", "1,1,2,0,0,1\n", true,
       false},
      {"a node of more cells than there are columns", "1,0,0,1,1,1\n2,3,0,0,0,0\n3,5,0,0,0,0,0,0\n",
       "1,1,2,0,0,1\n", true, false},
      {"a node number below 0", "1,0,0,1,1,1\n2,3,0,0,0,0\n-3,5,0,0,0,0\n", "1,1,2,0,0,1\n", true, false},
      {"a node of more cells than can be told apart",
       (manyCells = "1,0,0,1,1,1\n2,3,0,0,0,0\n3,5,0,0,0,0" + std::string(120, ',') + "\n").c_str(),
       "1,1,2,0,0,1\n", true, false},
      {"a coordinate out of range", "1,0,0,1,1,1\n2,3,0,0,0,0\n3,1e999,0,0,0,0\n", "1,1,2,0,0,1\n", true,
       false},
      {"a member of few cells", "1,0,0,1,1,1\n2,3,0,0,0,0\n", "1,1,2,0,0,1\n2,1,2\n", false, true},
      {"a member on an unknown node", "1,0,0,1,1,1\n2,3,0,0,0,0\n", "1,1,2,0,0,1\n2,1,9,0,0,1\n", false,
       true},
  };
  for (const FaultCase& c : kCases) {
    WriteTable("NODE", c.node);
    WriteTable("ELEM", c.elem);
    std::vector<std::string> expected;
    if (c.nodeFault) expected.emplace_back("入力ﾌｧｲﾙの読込み: 節点データに異常が有ります");
    if (c.elemFault) expected.emplace_back("入力ﾌｧｲﾙの読込み: 要素データに異常が有ります");
    const std::string deck = "@NODE\n" + std::string(c.node) + "@ELEM\n" + c.elem;
    for (const bool fromDeck : {false, true}) {
      Messages messages;
      const FigureModel model = fromDeck ? ReadFigureDeck(deck) : ReadFigureTables();
      EXPECT_EQ(messages.texts, expected) << c.name;
      EXPECT_THAT(model.nodes, SizeIs(2)) << c.name;
      EXPECT_EQ(model.elements[0].rowJ, 1) << c.name;
    }
  }
}

TEST_F(FigureModelTest, ADeckIsReadLikeTheTablesOfTheWorkFolder) {
  Messages messages;
  const FigureModel model = ReadFigureDeck(
      "@TITL %タイトル\r\n門型, 試験 % 注\r\n@CONT\r\n3,2,0,0\r\n@UNIT\r\n0,1,9.8,0\r\n"
      "@NODE\r\n1,0,0,1,1,1\r\n(2),6,0,0,0,0\r\n@ELEM\r\n5,1,(2),0,1,7\r\n@PLOD\r\n1,2,5\r\n");
  EXPECT_THAT(messages.texts, IsEmpty());
  EXPECT_EQ(model.title, "門型, 試験");
  EXPECT_TRUE(model.IsGrid());
  EXPECT_EQ(model.maxLoadCase, 2);
  EXPECT_EQ(model.outUnit, 1);
  EXPECT_EQ(model.gravityFactor, 9.8);
  ASSERT_THAT(model.nodes, SizeIs(2));
  EXPECT_EQ(model.nodes[1].number, 2);
  ASSERT_THAT(model.elements, SizeIs(1));
  EXPECT_EQ(model.elements[0].rowJ, 1);
  EXPECT_THAT(model.nodalLoadNode, ElementsAre(1));
}

/// The figure's tables as a text that two readings can be compared by.
std::string Told(const FigureModel& m) {
  std::string text = m.title + "|" + std::to_string(m.IsGrid()) + "|" + std::to_string(m.maxLoadCase) + "|" +
                     std::to_string(m.inUnit) + std::to_string(m.outUnit) + "|" + RealText(m.gravityFactor);
  const auto add = [&text](auto... values) {
    ((text += " " + RealText(values)), ...);
    text += "\n";
  };
  for (const FigureNode& n : m.nodes) add(n.number, n.x, n.y, n.code[0], n.code[1], n.code[2], n.rollerAngle);
  for (const FigureElement& e : m.elements) add(e.number, e.I, e.J, e.II, e.JJ, e.section, e.rowI, e.rowJ);
  for (const PlodRec& l : m.nodalLoads) add(l.loadCase, l.node, l.F1, l.F2, l.F3);
  for (const ElodRec& l : m.elementLoads) add(l.loadCase, l.element, l.P, l.TYPE, l.Ly, l.K, l.MG);
  for (const ClodRec& l : m.cmqLoads) add(l.loadCase, l.element, l.Ci, l.Mo, l.Cj, l.Qi, l.Qj, l.MG);
  for (const TlodRec& l : m.temperatureLoads)
    add(l.loadCase, l.element, l.Y1, l.T1, l.T2, l.alpha, l.To, l.J);
  for (const auto& indices :
       {m.nodalLoadNode, m.elementLoadElement, m.cmqLoadElement, m.temperatureLoadElement}) {
    for (const int index : indices) add(index);
    text += "|";
  }
  return text;
}

TEST_F(FigureModelTest, ADeckWhoseRowsTheAnalysisTakesIsTheSameModelForTheFigure) {
  constexpr const char* kHead = "@CONT\n1,2,0,0\n";
  constexpr const char* kTables = "@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n";
  const struct {
    const char *name, *deck;
  } cases[] = {
      {"cells padded with ten blanks",
       "@CONT\n1,1,0,0\n@NODE\n1,           0,           0,1,1,0\n2,          6,          4,0,1,0,         "
       "30\n@ELEM\n1,1,          2,0,0,1\n@PLOD\n1,2,0,          -5,0\n@ELOD\n1,1,-1,0,0,1,          1\n"
       "1,1,          -2,0,0,1,0\n1,1,-3          % end\n"},
      {"sections that stand twice",
       "@CONT\n1,1,0,0\n@NODE\n1,0,0,1,1,0\n@NODE\n2,6,0,0,1,0\n@ELEM\n1,1,2,0,0,1\n@PLOD\n1,2,1,0,0\n"
       "@ELOD\n1,1,-1,0,0,1,0\n@PLOD\n1,2,0,0,2\n@ELOD\n1,1,-5,1,0,1,0\n@CONT\n1,3,0,0\n@TITL\nA\n@TITL\n"},
      {"two rows of control data and units", "@CONT\n1,2,0,0\n3,4,0,0\n@UNIT\n0,0,9.8\n1,1,0\n"},
      {"comments and commas behind the last field",
       "@CONT\n1,2,0,0 % kind\n@NODE\n1,0,0,1,1,1, % corner\n%2,6,0,0,0,0\n2,6,0,0,0,0 % end\n"
       "@ELEM\n1,1,2,0,0,1,,,\n"},
      {"no control data", kTables},
      {"nothing", ""},
  };
  for (const auto& c : cases) {
    Messages messages;
    WriteDeck(c.deck);
    ReadDeck(DeckPath(), /*checkMode=*/false);
    EXPECT_EQ(Told(ReadFigureDeck(c.deck)), Told(FigureModelOf(InpModel))) << c.name;
    EXPECT_THAT(messages.texts, IsEmpty()) << c.name;
  }
  // Loads on numbers that stand twice are the last row's.
  const std::string twice = std::string(kHead) +
                            "@NODE\n1,0,0,1,1,0\n2,6,0,0,1,0\n2,12,0,0,1,0\n@ELEM\n1,1,2,0,0,1\n"
                            "1,2,1,0,0,1\n@PLOD\n1,2,1\n@ELOD\n1,1,-1,1,0,1,0\n";
  for (const FigureModel& model :
       {ReadFigureDeck(twice), (WriteDeck(twice), ReadDeck(DeckPath(), false), FigureModelOf(InpModel))}) {
    EXPECT_THAT(model.nodalLoadNode, ElementsAre(2));
    EXPECT_THAT(model.elementLoadElement, ElementsAre(1));
    EXPECT_EQ(model.elements[0].rowJ, 2);
  }
}

TEST_F(FigureModelTest, EverySampleDeckIsTheSameModelForTheFigureAndTheAnalysis) {
  int decks = 0;
  for (const char* const folder : {"/data/DATA", "/tests/golden"})
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(ZORLAN_SOURCE_DIR + std::string(folder))) {
      const std::string path = PathText(entry.path());
      if (!path.ends_with(".inp")) continue;
      Messages messages;
      try {
        ReadDeck(path, /*checkMode=*/false);
      } catch (const Fault&) {
        continue;  // there is no figure of it
      }
      EXPECT_EQ(Told(ReadFigureDeck(ReadTextFile(path))), Told(FigureModelOf(InpModel))) << path;
      ++decks;
    }
  EXPECT_GT(decks, 20);
}

TEST_F(FigureModelTest, TypedRowsStandInForTheirTable) {
  WriteTable("NODE", "1,0,0,1,1,1\n2,6,0,0,0,0\n");
  WriteTable("ELEM", "1,1,2,0,0,1\n");
  Messages messages;
  const FigureModel model = ReadFigureTables({{"NODE",
                                               {{"NODE", {"1", "0", "0", "1", "1", "1"}},
                                                {"NODE", {}},
                                                {"NODE", {"(2)", ".5", "7", "0", "0", "0", ""}}}}});
  EXPECT_THAT(messages.texts, IsEmpty());
  ASSERT_THAT(model.nodes, SizeIs(2));
  EXPECT_EQ(model.nodes[1].number, 2);
  EXPECT_EQ(model.nodes[1].y, 7);
  EXPECT_EQ(model.elements[0].rowJ, 1);
}

TEST_F(FigureModelTest, AModelWithoutControlDataHasNoLoadCase) {
  EXPECT_EQ(ReadFigureTables().maxLoadCase, 0);
  EXPECT_EQ(ReadFigureDeck("@NODE\n1,0,0,1,1,1\n").maxLoadCase, 0);
}

TEST_F(FigureModelTest, TheFigureReadsItsTablesUnlessItsDataAreUnchanged) {
  WriteTable("NODE", "1,0,0,0,0,0\n2,10,0,0,0,0\n");
  WriteTable("ELEM", "1,1,2,0,0,1\n");
  Figure figure;
  figure.FigureFlags = kReadTables | kFitWindow | kDataUnchanged;
  test::Recorder surface;
  Plot plot(surface);
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_THAT(figure.model.nodes, IsEmpty());
  figure.FigureFlags = kReadTables | kFitWindow;
  DrawFrameFigure(plot, "", figure, kModelFigure);
  EXPECT_THAT(figure.model.nodes, SizeIs(2));
}

TEST_F(FigureModelTest, ResultsAreReadByCaseAndRow) {
  ModelBuilder b(kPlaneFrame, 2);
  b.Node(0, 0);
  b.Node(1, 0);
  b.Element(1, 2);
  FigureModel model = FigureModelOf(b.model);
  Write(Root() + "FT021", "1 2 3 4 5 6\n7 8 9 10 11 12\n");
  Write(Root() + "FT031", "1 2 3 4 5 6 7\n11 12 13 14 15 16 17\n");
  ASSERT_TRUE(LoadFigureResults(model, Root()));
  ASSERT_THAT(model.DisplacementTable, SizeIs(4));
  EXPECT_EQ(model.DisplacementTable[3].x, 10);  // case 2, node 2
  EXPECT_EQ(model.DisplacementTable[3].rotation, 12);
  ASSERT_THAT(model.StressTable, SizeIs(2));
  const StressRecord& s = model.StressTable[1];  // N(I) Q(I) M(I) N(J) Q(J) M(J) M(C)
  EXPECT_EQ(s.axialI, 11);
  EXPECT_EQ(s.shearI, 12);
  EXPECT_EQ(s.momentI, 13);
  EXPECT_EQ(s.axialJ, 14);
  EXPECT_EQ(s.shearJ, 15);
  EXPECT_EQ(s.momentJ, 16);
  EXPECT_EQ(s.momentC, 17);
}

TEST_F(FigureModelTest, ResultsOfALargerModelAreRefused) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(1, 0);
  b.Element(1, 2);
  FigureModel model = FigureModelOf(b.model);
  Write(Root() + "FT021", "1 2 3 4 5 6\n");
  Write(Root() + "FT031", "1 2 3 4 5 6 7\n11 12 13 14 15 16 17\n");
  EXPECT_FALSE(LoadFigureResults(model, Root()));
  Write(Root() + "FT031", "1 2 3 4 5 6 7 \r\n");
  EXPECT_TRUE(LoadFigureResults(model, Root()));
}

TEST_F(FigureModelTest, MissingOrShortResultsLeaveTheModelAsItWas) {
  ModelBuilder b;
  b.Node(0, 0);
  b.Node(1, 0);
  b.Element(1, 2);
  FigureModel model = FigureModelOf(b.model);
  EXPECT_FALSE(LoadFigureResults(model, Root()));
  Write(Root() + "FT021", "1 2 3 4 5 6\n");
  Write(Root() + "FT031", "1 2 3\n");
  EXPECT_FALSE(LoadFigureResults(model, Root()));
  EXPECT_THAT(model.DisplacementTable, IsEmpty());
  EXPECT_THAT(model.StressTable, IsEmpty());
}

}  // namespace
}  // namespace zorlan

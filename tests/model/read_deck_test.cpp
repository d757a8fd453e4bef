// ReadDeck: a deck's lines into the records, and what a broken deck leaves.
#include "model/deck.h"
#include "model/model_state.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using test::FaultOf;
using testing::HasSubstr;

class ReadDeckTest : public test::ModelFolderTest {
 protected:
  void ReadText(std::string_view deck, bool checkMode = false) {
    WriteDeck(deck);
    ReadDeck(DeckPath(), checkMode);
  }
};

TEST_F(ReadDeckTest, TakesEveryTableFieldByField) {
  ReadText(R"(@TITL   %タイトル
事務所, 増築 二期
@SUBT
X1 通り
@CONT
1,3,1,1
@UNIT
0,1,9.8,1
@NODE
1,0,0,1,1,0
2,3,-4.5,4,4,1,30
@ELEM
11,1,2,0,1,7,5
@SECT
7,2,400,200,8,13,1.5,2100,810,梁A,べいまつ
@PLOD
2,1,1.5,-2.5,3.5
@ELOD
1,11,-2,3,1.25,0.5,2
@CLOD
3,11,-1,2,3,-4,-5,1
@TLOD
1,11,20,30,10,0.000012,15,1
@RIGD
5,0.1,0.2
@DISP
4,1,2
@SPRG
9,0,0,0
@SPEC
1,2,0.5,-0.25,0.001
@ALFA
0,3,1.1
)");
  const ModelRec& m = InpModel;
  EXPECT_EQ(m.Title, "事務所, 増築 二期");
  EXPECT_EQ(m.SubTitle, "X1 通り");
  EXPECT_EQ(m.ModelCode, 1);
  EXPECT_EQ(m.MaxLoadCase, 3);
  EXPECT_EQ(m.ListFlag, 1);
  EXPECT_EQ(m.RollerFlag, 1);
  EXPECT_EQ(m.InUnit, 0);
  EXPECT_EQ(m.OutUnit, 1);
  EXPECT_EQ(m.SIFactor, 9.8);
  EXPECT_EQ(m.ForceUnit, 1);
  ASSERT_EQ(m.NodeCount, 2);
  const NodeRec& node = m.Node[2];
  EXPECT_EQ(node.number, 2);
  EXPECT_EQ(node.X, 3);
  EXPECT_EQ(node.Y, -4.5);
  EXPECT_THAT(node.code, testing::ElementsAre(4, 4, 1));
  EXPECT_EQ(node.rollerAngle, 30);
  ASSERT_EQ(m.ElemCount, 1);
  const ElemRec& elem = m.Elem[1];
  EXPECT_EQ(elem.number, 11);
  EXPECT_EQ(elem.I, 1);
  EXPECT_EQ(elem.J, 2);
  EXPECT_EQ(elem.II, 0);
  EXPECT_EQ(elem.JJ, 1);
  EXPECT_EQ(elem.section, 7);
  EXPECT_EQ(elem.rigid, 5);
  EXPECT_DOUBLE_EQ(elem.length, 5.4083269131959840);  // the square root of 9 + 20.25
  ASSERT_EQ(m.SectCount, 1);
  const SectRec& sect = m.Sect[1];
  EXPECT_EQ(sect.number, 7);
  EXPECT_EQ(sect.TYPE, 2);
  EXPECT_EQ(sect.P1, 400);
  EXPECT_EQ(sect.P2, 200);
  EXPECT_EQ(sect.P3, 8);
  EXPECT_EQ(sect.P4, 13);
  EXPECT_EQ(sect.phi, 1.5);
  EXPECT_EQ(sect.E, 2100);
  EXPECT_EQ(sect.G, 810);
  EXPECT_EQ(sect.timberSection, "梁A");
  EXPECT_EQ(sect.species, "べいまつ");
  ASSERT_EQ(m.PlodCount, 1);
  const PlodRec& plod = m.Plod[1];
  EXPECT_EQ(plod.loadCase, 2);
  EXPECT_EQ(plod.node, 1);
  EXPECT_EQ(plod.F1, 1.5);
  EXPECT_EQ(plod.F2, -2.5);
  EXPECT_EQ(plod.F3, 3.5);
  ASSERT_EQ(m.ElodCount, 1);
  const ElodRec& elod = m.Elod[1];
  EXPECT_EQ(elod.loadCase, 1);
  EXPECT_EQ(elod.element, 11);
  EXPECT_EQ(elod.P, -2);
  EXPECT_EQ(elod.TYPE, 3);
  EXPECT_EQ(elod.Ly, 1.25);
  EXPECT_EQ(elod.K, 0.5);
  EXPECT_EQ(elod.MG, 2);
  ASSERT_EQ(m.ClodCount, 1);
  const ClodRec& clod = m.Clod[1];
  EXPECT_EQ(clod.loadCase, 3);
  EXPECT_EQ(clod.element, 11);
  EXPECT_EQ(clod.Ci, -1);
  EXPECT_EQ(clod.Mo, 2);
  EXPECT_EQ(clod.Cj, 3);
  EXPECT_EQ(clod.Qi, -4);
  EXPECT_EQ(clod.Qj, -5);
  EXPECT_EQ(clod.MG, 1);
  ASSERT_EQ(m.TlodCount, 1);
  const TlodRec& tlod = m.Tlod[1];
  EXPECT_EQ(tlod.loadCase, 1);
  EXPECT_EQ(tlod.element, 11);
  EXPECT_EQ(tlod.Y1, 20);
  EXPECT_EQ(tlod.T1, 30);
  EXPECT_EQ(tlod.T2, 10);
  EXPECT_EQ(tlod.alpha, 0.000012);
  EXPECT_EQ(tlod.To, 15);
  EXPECT_EQ(tlod.J, 1);
  ASSERT_EQ(m.RigdCount, 1);
  EXPECT_EQ(m.Rigd[1].number, 5);
  EXPECT_EQ(m.Rigd[1].lambdaI, 0.1);
  EXPECT_EQ(m.Rigd[1].lambdaJ, 0.2);
  ASSERT_EQ(m.DispCount, 1);
  EXPECT_EQ(m.Disp[1].group, 4);
  EXPECT_EQ(m.Disp[1].count, 2);
  EXPECT_EQ(m.Disp[1].node[1], 1);
  EXPECT_EQ(m.Disp[1].node[2], 2);
  ASSERT_EQ(m.SprgCount, 1);
  EXPECT_EQ(m.Sprg[1].node, 9);
  ASSERT_EQ(m.SpecCount, 1);
  const SpecRec& spec = m.Spec[1];  // the table has the node first
  EXPECT_EQ(spec.node, 1);
  EXPECT_EQ(spec.loadCase, 2);
  EXPECT_EQ(spec.S1, 0.5);
  EXPECT_EQ(spec.S2, -0.25);
  EXPECT_EQ(spec.S3, 0.001);
  ASSERT_EQ(m.AlfaCount, 1);
  EXPECT_EQ(m.Alfa[1].X1, 0);
  EXPECT_EQ(m.Alfa[1].X2, 3);
  EXPECT_EQ(m.Alfa[1].alpha, 1.1);
}

TEST_F(ReadDeckTest, SetsTheUnitsInForce) {
  ReadText("@UNIT\n1,0,9.8,1\n");
  EXPECT_EQ(GravityFactor, 9.8);
  EXPECT_EQ(InUnit, 1);
  EXPECT_EQ(OutUnit, 0);
  EXPECT_EQ(ForceUnit, 1);
}

TEST_F(ReadDeckTest, AUnitFactorOfZeroOrNoneIsStandardGravity) {
  for (const char* row : {"1,1,0,0", "1,1,,0", "1,1"}) {
    GravityFactor = 1;
    ReadText(std::string("@UNIT\n") + row + "\n");
    EXPECT_EQ(GravityFactor, 9.80665) << row;
  }
}

TEST_F(ReadDeckTest, ADeckWithoutUnitsIsGravitational) {
  GravityFactor = 1;
  InUnit = OutUnit = ForceUnit = 1;
  ReadText("@TITL\n題\n");
  EXPECT_EQ(GravityFactor, 9.80665);
  EXPECT_EQ(InUnit, 0);
  EXPECT_EQ(OutUnit, 0);
  EXPECT_EQ(ForceUnit, 0);
}

TEST_F(ReadDeckTest, AControlRowOfThreeFieldsHasNoInclinedRollers) {
  ReadText("@CONT\n3,20,1\n");
  EXPECT_EQ(InpModel.ModelCode, 3);
  EXPECT_EQ(InpModel.MaxLoadCase, 20);
  EXPECT_EQ(InpModel.RollerFlag, 0);
}

TEST_F(ReadDeckTest, ATitleIsWholeWithItsCommasAndEndsAtAPercentSign) {
  ReadText("@TITL\nA,B, C 50% of it\n");
  EXPECT_EQ(InpModel.Title, "A,B, C 50");
}

TEST_F(ReadDeckTest, TheLastOfSeveralTitleLinesStands) {
  ReadText("@TITL\nfirst\nsecond\n@SUBT\na\nb\n");
  EXPECT_EQ(InpModel.Title, "second");
  EXPECT_EQ(InpModel.SubTitle, "b");
}

TEST_F(ReadDeckTest, SectionNamesMayBeInLowerCaseAndCommentsAreCut) {
  ReadText("@node %nodes\n1,0,0,1,1,1 %corner\n%2,6,0,0,0,0\n");
  ASSERT_EQ(InpModel.NodeCount, 1);
  EXPECT_EQ(InpModel.Node[1].number, 1);
}

TEST_F(ReadDeckTest, LinesAheadOfASectionOrInAnUnknownOneAreSkipped) {
  ReadText("1,2,3,4,5,6\n@FOO\n99999,1\n@NODE\n1,0,0,1,1,1\n");
  EXPECT_EQ(InpModel.NodeCount, 1);
}

TEST_F(ReadDeckTest, DecimalsInAnIntegerFieldAreCutOff) {
  ReadText("@NODE\n1.9,0,0,1.7,-0.9,2\n");
  EXPECT_EQ(InpModel.Node[1].number, 1);
  EXPECT_THAT(InpModel.Node[1].code, testing::ElementsAre(1, 0, 2));
}

TEST_F(ReadDeckTest, EmptyFieldsAreZero) {
  ReadText("@NODE\n1,,,,,\n");
  EXPECT_EQ(InpModel.Node[1].X, 0);
  EXPECT_THAT(InpModel.Node[1].code, testing::ElementsAre(0, 0, 0));
}

TEST_F(ReadDeckTest, AnElementLoadWithoutFactorHasFactorOne) {
  ReadText("@ELOD\n1,1,-2,0,0,\n1,1,-2,0,0,0,1\n1,1,-2,0,0,-0.5\n");
  EXPECT_EQ(InpModel.Elod[1].K, 1);
  EXPECT_EQ(InpModel.Elod[2].K, 1);
  EXPECT_EQ(InpModel.Elod[3].K, -0.5);
}

TEST_F(ReadDeckTest, ACmqLoadOfThreeFieldsHasZeroForTheRest) {
  ReadText("@CLOD\n1,2,3\n");
  ASSERT_EQ(InpModel.ClodCount, 1);
  const ClodRec& load = InpModel.Clod[1];
  EXPECT_EQ(load.Ci, 3);
  EXPECT_EQ(load.Mo, 0);
  EXPECT_EQ(load.Qj, 0);
  EXPECT_EQ(load.MG, 0);
}

TEST_F(ReadDeckTest, RowsOfOneGroupJoin) {
  ReadText("@CONT\n2,1,0\n@DISP\n5,1,2\n6,9\n5,3,4\n");
  ASSERT_EQ(InpModel.DispCount, 2);
  const DispRec& group = InpModel.Disp[1];
  EXPECT_EQ(group.group, 5);
  ASSERT_EQ(group.count, 4);
  for (std::int16_t n = 1; n <= 4; ++n) EXPECT_EQ(group.node[static_cast<std::size_t>(n)], n);
  EXPECT_EQ(InpModel.Disp[2].group, 6);
}

TEST_F(ReadDeckTest, GroupsCountInTheSameDisplacementModelAlone) {
  for (const int model : {1, 2, 3}) {
    ReadText("@CONT\n" + std::to_string(model) + ",1,0\n@DISP\n5,1,2\n");
    EXPECT_EQ(CalcModel.DispCount, model == 2 ? 1 : 0) << model;
    EXPECT_EQ(InpModel.DispCount, 1) << model;
  }
}

TEST_F(ReadDeckTest, AnElementAheadOfItsNodesHasNoLength) {
  ReadText("@ELEM\n1,1,2,0,0,1\n@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n");
  ASSERT_EQ(InpModel.ElemCount, 1);
  EXPECT_EQ(InpModel.Elem[1].length, 0);
}

TEST_F(ReadDeckTest, ANumberUsedTwiceMeansItsFirstNode) {
  ReadText("@NODE\n1,0,0,1,1,1\n2,6,0,0,0,0\n2,7,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n");
  EXPECT_EQ(InpModel.Elem[1].length, 6);
}

TEST_F(ReadDeckTest, StretchesTheEnteredModelToTheLimits) {
  ReadText("@NODE\n1,2,3,1,1,1\n");
  EXPECT_EQ(RawModel.Node.UpperBound(), 1);
  EXPECT_EQ(InpModel.Node.UpperBound(), 5000);
  EXPECT_EQ(InpModel.Elem.UpperBound(), 5000);
  EXPECT_EQ(InpModel.Sect.UpperBound(), 1000);
  EXPECT_EQ(InpModel.Alfa.UpperBound(), 1000);
  EXPECT_EQ(InpModel.Node[1].Y, 3);
}

TEST_F(ReadDeckTest, AMissingDeckEmptiesTheRawModelAndLeavesTheOthers) {
  ReadText("@TITL\n題\n@NODE\n1,0,0,1,1,1\n");
  ReadDeck(DataPath + "none.inp", /*checkMode=*/false);
  EXPECT_EQ(RawModel.Title, "");
  EXPECT_EQ(RawModel.NodeCount, 0);
  EXPECT_EQ(RawModel.SIFactor, 9.80665);
  EXPECT_EQ(InpModel.Title, "題");
  EXPECT_EQ(CalcModel.NodeCount, 1);
}

TEST_F(ReadDeckTest, ASecondDeckLeavesNothingOfTheFirst) {
  ReadText("@SUBT\n副題\n@NODE\n1,0,0,1,1,1\n@SPRG\n1,0,0,0\n");
  ReadText("@TITL\n題\n");
  EXPECT_EQ(InpModel.SubTitle, "");
  EXPECT_EQ(InpModel.NodeCount, 0);
  EXPECT_EQ(CalcModel.SprgCount, 0);
}

struct BrokenDeck {
  const char* name;
  const char* deck;
  int line;
  const char* words;
};

const BrokenDeck kBrokenDecks[] = {
    {"a node number over 16 bits", "@NODE\n1,0,0,1,1,1\n32768,0,0,0,0,0\n", 3, "「32768」"},
    {"one below 16 bits", "@NODE\n-32769,0,0,0,0,0\n", 2, "「-32769」"},
    {"a number of many digits", "@PLOD\n\n%comment\n1,123456789012345678901,1\n", 4, "123456789012345678901"},
    {"a count of load cases", "@CONT\n1,99999,0\n", 2, "「99999」"},
    {"a node of a group", "@DISP\n1,70000\n", 2, "「70000」"},
    {"a real out of range", "@NODE\n1,1E400,0,0,0,0\n", 2, "「1E400」"},
    {"a length out of range", "@NODE\n1,0,0,0,0,0\n2,1E200,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n", 5, "部材長"},
};

TEST_F(ReadDeckTest, ANumberThatDoesNotFitNamesFileLineAndText) {
  ReadText("@TITL\n前のモデル\n@UNIT\n0,0,9.8\n");
  for (const BrokenDeck& c : kBrokenDecks) {
    WriteDeck(c.deck);
    const std::string fault = FaultOf([] { ReadDeck(DeckPath(), /*checkMode=*/false); });
    EXPECT_THAT(fault, HasSubstr(DeckPath())) << c.name;
    EXPECT_THAT(fault, HasSubstr("（" + std::to_string(c.line) + "行目）")) << c.name;
    EXPECT_THAT(fault, HasSubstr(c.words)) << c.name;
    EXPECT_EQ(InpModel.Title, "前のモデル") << c.name;
    EXPECT_EQ(GravityFactor, 9.8) << c.name;
  }
}

TEST_F(ReadDeckTest, TheLargestNumbersThatFitAreTaken) {
  ReadText("@NODE\n32767,0,0,0,0,0\n-32768,0,0,0,0,0\n");
  EXPECT_EQ(InpModel.Node[1].number, 32767);
  EXPECT_EQ(InpModel.Node[2].number, -32768);
}

std::string Repeated(const std::string& section, const std::string& row, int count) {
  std::string deck = section + "\n";
  for (int r = 0; r < count; ++r) deck += row + "\n";
  return deck;
}

struct TableLimit {
  const char* section;
  const char* row;
  int limit;
};

TEST_F(ReadDeckTest, EveryTableIsFullAtItsLimitAndOneRowMoreIsAFault) {
  const TableLimit limits[] = {
      {"@NODE", "1,0,0,0,0,0", 5000}, {"@ELEM", "1,1,2,0,0,1", 5000},   {"@SECT", "1,0,1,1,1,1,1,1,1", 1000},
      {"@PLOD", "1,1,1", 1000},       {"@ELOD", "1,1,1,0,0,1", 1000},   {"@CLOD", "1,1,1", 1000},
      {"@RIGD", "1,0", 1000},         {"@TLOD", "1,1,1,1,1,1,1", 1000}, {"@SPRG", "1,0", 1000},
      {"@SPEC", "1,1", 1000},         {"@ALFA", "0,1,1", 1000},
  };
  for (const TableLimit& c : limits) {
    WriteDeck(Repeated(c.section, c.row, c.limit));
    EXPECT_EQ(FaultOf([] { ReadDeck(DeckPath(), /*checkMode=*/false); }), "") << c.section;
    WriteDeck(Repeated(c.section, c.row, c.limit + 1));
    EXPECT_THAT(FaultOf([] { ReadDeck(DeckPath(), /*checkMode=*/false); }),
                HasSubstr("（" + std::to_string(c.limit + 2) + "行目）"))
        << c.section;
  }
}

TEST_F(ReadDeckTest, AGroupHoldsOneHundredNodes) {
  std::string nodes;
  for (int n = 1; n <= 100; ++n) nodes += "," + std::to_string(n);
  ReadText("@DISP\n1" + nodes + "\n");
  EXPECT_EQ(InpModel.Disp[1].count, 100);
  EXPECT_EQ(InpModel.Disp[1].node[100], 100);
  WriteDeck("@DISP\n1" + nodes + "\n1,101\n");
  EXPECT_THAT(FaultOf([] { ReadDeck(DeckPath(), /*checkMode=*/false); }), HasSubstr("（3行目）"));
}

TEST_F(ReadDeckTest, ALineOfTooManyFieldsIsAFaultWithItsLine) {
  WriteDeck("@NODE\n1,0,0,0,0,0\n" + std::string(1 << 20, ',') + "\n");
  EXPECT_THAT(FaultOf([] { ReadDeck(DeckPath(), /*checkMode=*/false); }), HasSubstr("（3行目）"));
}

TEST_F(ReadDeckTest, AHugeLineIsReadWithoutHarm) {
  ReadText("@TITL\n" + std::string(1 << 22, 'A') + "\n@NODE\n1," + std::string(1 << 20, '0') + "5,0,1,1,1\n");
  EXPECT_EQ(InpModel.Title.size(), std::size_t{1} << 22U);
  EXPECT_EQ(InpModel.Node[1].X, 5);
}

TEST_F(ReadDeckTest, AnEmptyDeckIsAnEmptyModel) {
  ReadText("@NODE\n1,0,0,1,1,1\n");
  ReadText("");
  EXPECT_EQ(InpModel.NodeCount, 0);
  EXPECT_EQ(CalcModel.ModelCode, 0);
}

TEST_F(ReadDeckTest, ABinaryFileIsAnEmptyModel) {
  std::string bytes;
  for (unsigned i = 0; i < 1U << 18U; ++i) bytes += static_cast<char>(i * 2654435761U >> 13U);
  ReplaceBytes(DeckPath(), bytes);
  EXPECT_EQ(FaultOf([] { ReadDeck(DeckPath()); }), "");
  EXPECT_EQ(InpModel.NodeCount, 0);
}

TEST_F(ReadDeckTest, ADeckCutOffInItsMiddleGivesTheRowsUpToThere) {
  ReplaceBytes(DeckPath(), "@NODE\r\n1,0,0,1,1,1\r\n2,6,0,0,0,0\r\n3,1");
  ReadDeck(DeckPath(), /*checkMode=*/false);
  EXPECT_EQ(InpModel.NodeCount, 2);
}

TEST_F(ReadDeckTest, AFolderInPlaceOfADeckIsAMissingDeck) {
  EXPECT_EQ(FaultOf([] { ReadDeck(DataPath, /*checkMode=*/false); }), "");
  EXPECT_EQ(RawModel.NodeCount, 0);
}

}  // namespace
}  // namespace zorlan

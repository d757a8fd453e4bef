#include "analysis/listing_input.h"

#include "model/deck.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string Blanks(std::size_t count) {
  return std::string(count, ' ');
}

class AnalysisInputListing : public test::ModelFolderTest {
 protected:
  /// The echo of a deck, with LF for CR LF.
  static std::string ListOf(std::string_view deck) {
    WriteDeck(deck);
    ReadDeck(DeckPath(), /*checkMode=*/false);
    std::string list;
    MakeAnalysisInputList(list);
    std::string text;
    for (std::size_t i = 0; i < list.size(); ++i) {
      EXPECT_EQ(list[i] == '\n', i > 0 && list[i - 1] == '\r');
      if (list[i] != '\r') text += list[i];
    }
    return text;
  }
};

const std::string kFrame = "@CONT\n1,2,1,1\n@UNIT\n0,0,9.80665,0\n";
const std::string kFrameSI = "@CONT\n1,2,1,1\n@UNIT\n1,1,9.80665,0\n";
const std::string kGroupFrame = "@CONT\n2,2,1,0\n@UNIT\n1,1,9.80665,0\n";
const std::string kGrid = "@CONT\n3,2,1,0\n@UNIT\n0,0,9.80665,0\n";
const std::string kGridSI = "@CONT\n3,2,1,0\n@UNIT\n1,1,9.80665,0\n";

TEST_F(AnalysisInputListing, NodesOfAFrameShowSupportsRollersAndSprings) {
  EXPECT_EQ(ListOf(kFrame +
                   "@NODE\n1,0,0,1,1,1\n2,6.5,-3.25,0,2,0\n3,12,3,4,4,0,30\n@SPRG\n2,0,12.5,0\n2,0,99,0\n"),
            "  NODE       XX       YY     U   V   θ  傾斜ﾛｰﾗ角度        K-x           K-y          K-θ\n"
            "            (M)      (M)                      (度)        (T/CM)        (T/CM)    (T*CM/RAD)\n"
            "     1    0.000    0.000     1   1   1" +
                Blanks(11 + 42) +
                "\n"
                "     2    6.500   -3.250     0   2   0" +
                Blanks(11) +
                "         0.000        12.500         0.000\n"
                "     3   12.000    3.000     4   4   0      30.00" +
                Blanks(42) + "\n");
}

TEST_F(AnalysisInputListing, NodesInSIHaveTheirSpringsInKilonewtons) {
  EXPECT_THAT(
      ListOf(kFrameSI + "@NODE\n1,0,0,1,1,1\n"),
      HasSubstr(
          "\n            (M)      (M)                      (度)       (kN/MM)       (kN/MM)   (kN*MM/RAD)\n"));
}

TEST_F(AnalysisInputListing, NodesOfAGridHaveNoColumnForTheRollerAngle) {
  EXPECT_EQ(ListOf(kGrid + "@NODE\n1,0,0,2,0,2\n@SPRG\n1,5,0,250000\n"),
            "  NODE       XX       YY     W  θx θy          K-z         K-θx         K-θy\n"
            "            (M)      (M)                       (T/CM)    (T*CM/RAD)    (T*CM/RAD)\n"
            "     1    0.000    0.000     2   0   2         5.000         0.000    250000.000\n");
  EXPECT_THAT(
      ListOf(kGridSI + "@NODE\n1,0,0,1,0,0\n"),
      HasSubstr("\n            (M)      (M)                      (kN/MM)   (kN*MM/RAD)   (kN*MM/RAD)\n"));
}

TEST_F(AnalysisInputListing, ASpringCodeWithoutASpringRowShowsNoStiffness) {
  EXPECT_THAT(ListOf(kFrame + "@NODE\n1,0,0,2,1,1\n"),
              HasSubstr("     2   1   1" + Blanks(11) + "         0.000         0.000         0.000\n"));
}

TEST_F(AnalysisInputListing, AGroupGoesOnBelowItsTenthNode) {
  EXPECT_EQ(ListOf(kGroupFrame + "@NODE\n1,0,0,1,1,1\n@DISP\n5,1,2,3,4,5,6,7,8,9,10,11,12\n12,21,22\n"),
            "  NODE       XX       YY     U   V   θ  傾斜ﾛｰﾗ角度        K-x           K-y          K-θ\n"
            "            (M)      (M)                      (度)       (kN/MM)       (kN/MM)   (kN*MM/RAD)\n"
            "     1    0.000    0.000     1   1   1" +
                Blanks(11 + 42) +
                "\n"
                "  GROUP SAME DISP-U NODE\n"
                "      5    1    2    3    4    5    6    7    8    9   10\n"
                "          11   12\n"
                "     12   21   22\n");
}

TEST_F(AnalysisInputListing, GroupsCountInTheirOwnModelAlone) {
  EXPECT_THAT(ListOf(kFrame + "@NODE\n1,0,0,1,1,1\n@DISP\n5,1,2\n"), Not(HasSubstr("GROUP")));
  EXPECT_THAT(ListOf(kGroupFrame + "@NODE\n1,0,0,1,1,1\n"), Not(HasSubstr("GROUP")));
}

TEST_F(AnalysisInputListing, ElementsStandBehindAnEmptyLine) {
  EXPECT_THAT(ListOf(kFrame + "@NODE\n1,0,0,1,1,1\n2,3,4,0,0,0\n@ELEM\n7,1,2,0,1,12,3\n1234,2,1,1,0,5\n"),
              HasSubstr("\n\n"
                        "  ELEM     I     J  II  JJ  MATE  RIGI   LENGTH\n"
                        "                                            (M)\n"
                        "     7     1     2   0   1    12     3    5.000\n"
                        "  1234     2     1   1   0     5     0    5.000\n"));
}

struct SectionCase {
  const char* name;
  const char* row;       // of the table
  const char* expected;  // heading, unit line, row; without the number and the last two columns
};

// P1 to P4, φ, E and G of each TYPE under its heading.
const SectionCase kSections[] = {
    {"TYPE 0 shows A, J and As", "1,0,120.5,45000,7,80.25,1,2100,810",
     "  MATE      A           J          As         E           G       ［直接入力］\n"
     "  (T0)   (CM2)       (CM4)       (CM2)     (T/CM2)     (T/CM2)\n"
     "     1   120.5     45000.0        80.3      2100.0       810.0\n"},
    {"TYPE 1 shows all four", "2,1,40,60,1.2,2000,1.5,210,90",
     "  MATE      B      D      κ         As     φ         E           G       ［ＢｘＤ入力］\n"
     "  (T1)    (CM)   (CM)              (CM2)            (t/CM2)     (t/CM2)\n"
     "     2    40.0   60.0  1.200      2000.0  1.50       210.0        90.0\n"},
    {"TYPE 2 shows heights and widths without decimals", "3,2,182.6,231.4,7.6,17.3,2,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［Ｈ形鋼(強軸)］\n"
     "  (T2)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "     3     183    231    7.6   17.3  2.00      2100.0       810.0\n"},
    {"TYPE 3", "4,3,300,300,12,12,1,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［□形鋼(強軸)］\n"
     "  (T3)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "     4     300    300   12.0   12.0  1.00      2100.0       810.0\n"},
    {"TYPE 4 has no P3 and P4", "5,4,165.2,5,9,9,1,2100,810",
     "  MATE      D      T     φ        E           G       ［○形鋼］\n"
     "  (T4)    (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "     5     165    5.0  1.00      2100.0       810.0\n"},
    {"TYPE 5", "6,5,400,200,8,13,1,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［Ｈ形鋼(弱軸)］\n"
     "  (T5)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "     6     400    200    8.0   13.0  1.00      2100.0       810.0\n"},
    {"TYPE 6", "7,6,400,200,8,13,1,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［□形鋼(弱軸)］\n"
     "  (T6)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "     7     400    200    8.0   13.0  1.00      2100.0       810.0\n"},
    {"TYPE 7 shows section and species below their captions", "8,7,120,240,1.5,28800,1,70,5,120x240,スギ",
     "  MATE      H      B     t1     t2     φ        E           G       ［木材(強軸)］\n"
     "  (T7)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)  断面名称    樹種名称\n"
     "     8     120    240    1.528800.0  1.00        70.0         5.0  120x240     スギ\n"},
    {"TYPE 8 without names ends behind G", "9,8,105,105,1.5,0,1,70,5",
     "  MATE      H      B     t1     t2     φ        E           G       ［木材(弱軸)］\n"
     "  (T8)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)  断面名称    樹種名称\n"
     "     9     105    105    1.5    0.0  1.00        70.0         5.0\n"},
    {"TYPE 9", "10,9,150,75,6.5,10,1,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［溝形鋼(強軸)］\n"
     "  (T9)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "    10     150     75    6.5   10.0  1.00      2100.0       810.0\n"},
    {"TYPE 10 has its columns below those of the others", "11,10,150,75,6.5,10,1,2100,810",
     "  MATE      H      B     t1     t2     φ        E           G       ［溝形鋼(弱軸)］\n"
     " (T10)    (MM)   (MM)   (MM)   (MM)           (t/CM2)     (t/CM2)\n"
     "    11     150     75    6.5   10.0  1.00      2100.0       810.0\n"},
    {"TYPE 11 leaves the column of P4 blank", "12,11,90,75,9,8.5,1,2100,810",
     "  MATE      A      B      t            φ        E           G       ［山形鋼(強軸)］\n"
     "  (T11)   (MM)   (MM)   (MM)                  (t/CM2)     (t/CM2)\n"
     "    12      90     75    9.0         1.00      2100.0       810.0\n"},
    {"TYPE 12", "13,12,90,75,9,8.5,1,2100,810",
     "  MATE      A      B      t            φ        E           G       ［山形鋼(弱軸)］\n"
     " (T12)    (MM)   (MM)   (MM)                  (t/CM2)     (t/CM2)\n"
     "    13      90     75    9.0         1.00      2100.0       810.0\n"},
};

TEST_F(AnalysisInputListing, EveryTypeOfSectionHasItsOwnHeadingAndColumns) {
  for (const SectionCase& c : kSections)
    EXPECT_EQ(ListOf(kFrame + "@SECT\n" + c.row + "\n"), c.expected) << c.name;
}

TEST_F(AnalysisInputListing, SectionsStandTypeByTypeInTheOrderOfTheTable) {
  const std::string list =
      ListOf(kFrame + "@SECT\n5,4,100,5,0,0,1,2100,0\n9,0,1,1,0,0,1,2100,0\n1,4,200,6,0,0,1,2100,0\n");
  EXPECT_THAT(list, HasSubstr("     9     1.0         1.0         0.0      2100.0         0.0\n"
                              "  MATE      D      T     φ        E           G       ［○形鋼］\n"
                              "  (T4)    (MM)   (MM)           (t/CM2)     (t/CM2)\n"
                              "     5     100    5.0  1.00      2100.0         0.0\n"
                              "     1     200    6.0  1.00      2100.0         0.0\n"));
}

TEST_F(AnalysisInputListing, ModuliAreInNewtonsWhereTheInputIsSI) {
  const std::string list = ListOf(kFrameSI + "@SECT\n1,0,1,1,0,0,1,205000,0\n2,7,120,240,1.5,0,1,7000,0\n");
  EXPECT_THAT(list, HasSubstr("  (T0)   (CM2)       (CM4)       (CM2)     (N/MM2)     (N/MM2)\n"));
  EXPECT_THAT(
      list,
      HasSubstr("  (T7)    (MM)   (MM)   (MM)   (MM)           (N/MM2)     (N/MM2)  断面名称    樹種名称\n"));
  EXPECT_THAT(list, HasSubstr("    205000.0"));
}

TEST_F(AnalysisInputListing, ALongTimberNamePushesTheSpeciesToTheRight) {
  EXPECT_THAT(ListOf(kFrame + "@SECT\n1,7,120,240,1.5,0,1,70,5,集成材120x240,べいまつ\n"),
              HasSubstr("         5.0  集成材120x240  べいまつ\n"));
}

TEST_F(AnalysisInputListing, RigidZonesAndMagnificationStandBehindTheSections) {
  EXPECT_EQ(ListOf(kFrame + "@SECT\n1,4,100,5,0,0,1,2100,0\n@RIGD\n3,0.25,0.125\n@ALFA\n-1.5,12.25,1.5\n"),
            "  MATE      D      T     φ        E           G       ［○形鋼］\n"
            "  (T4)    (MM)   (MM)           (t/CM2)     (t/CM2)\n"
            "     1     100    5.0  1.00      2100.0         0.0\n"
            "\n"
            "  RIGI      λi      λj\n"
            "     3     0.25     0.13\n"
            "\n"
            "  MAGF      X1      X2      α \n"
            "           (m)     (m)         \n"
            "         -1.50   12.25   1.500\n");
}

TEST_F(AnalysisInputListing, ForcedDisplacementsAreShownForFramesAlone) {
  const std::string rows = "@SPEC\n12,1,2.5,-0.25,0.01\n";
  EXPECT_EQ(ListOf(kFrame + rows),
            "  SPECIFIED DISPLACEMENT/ROTATION\n"
            "  NODE       S-X       S-Y       S-θ\n"
            "             (cm)      (cm)     (rad)\n"
            "    12       2.5      -0.3       0.0\n");
  EXPECT_EQ(ListOf(kGrid + rows), "");
}

TEST_F(AnalysisInputListing, ATableWithoutRowsHasNoHeading) {
  EXPECT_EQ(ListOf(kFrame), "");
}

TEST_F(AnalysisInputListing, TheLoadsOfACaseStandKindByKind) {
  EXPECT_EQ(ListOf(kFrame + "@TLOD\n2,7,20,35.5,-5.25,0.000012,20,1\n"
                            "@CLOD\n2,8,-1.5,2.25,1.5,-3,3,1\n"
                            "@ELOD\n2,9,-2.5,17,1.25,-1,2\n2,9,-2.5,0,,,0\n"
                            "@PLOD\n2,3,1.5,,-0.0625\n1,4,0,-10,0\n2,5,234567.891,0,0\n"),
            "  LOAD CASE -  1\n"
            "  NODE        F-X        F-Y        M-Z\n"
            "              (T)        (T)       (T*M)\n"
            "     4      0.000    -10.000      0.000\n"
            "  LOAD CASE -  2\n"
            "  NODE        F-X        F-Y        M-Z\n"
            "              (T)        (T)       (T*M)\n"
            "     3      1.500      0.000     -0.063\n"
            "     5 234567.891      0.000      0.000\n"
            "  ELEM         P  TYPE      Ly       K   MG\n"
            "        (T | T/M| T/M2)    (M)             \n"
            "     9     -2.500   17      1.250     -1.000    2\n"
            "     9     -2.500    0      0.000      1.000    0\n"
            "  ELEM         Ci         Mo         Cj         Qi         Qj  MG\n"
            "            (T*M)      (T*M)      (T*M)        (T)        (T)    \n"
            "     8     -1.500      2.250      1.500     -3.000      3.000    1\n"
            "  ELEM    Y1      T1      T2         α        To    J\n"
            "         (CM)    (ﾟC)    (ﾟC)     (1/ﾟC)      (ﾟC)    \n"
            "     7     20.000     35.500     -5.250  0.0000120      20.0    1\n");
}

TEST_F(AnalysisInputListing, LoadsInSIAreInKilonewtons) {
  const std::string list =
      ListOf(kFrameSI + "@PLOD\n1,1,1,1,1\n@ELOD\n1,1,1,0,0,1,0\n@CLOD\n1,1,1,1,1,1,1,0\n");
  EXPECT_THAT(list, HasSubstr("             (kN)       (kN)      (kN*M)\n"));
  EXPECT_THAT(list, HasSubstr("        (kN|kN/M|kN/M2)    (M)             \n"));
  EXPECT_THAT(list, HasSubstr("           (kN*M)     (kN*M)     (kN*M)       (kN)       (kN)    \n"));
}

TEST_F(AnalysisInputListing, NodalLoadsOfAGridAreAForceAndTwoMoments) {
  const std::string rows = "@PLOD\n1,1,-2,0.5,0\n";
  EXPECT_EQ(ListOf(kGrid + rows),
            "  LOAD CASE -  1\n"
            "  NODE        F-Z        M-X        M-Y\n"
            "              (T)      (T*M)       (T*M)\n"
            "     1     -2.000      0.500      0.000\n");
  EXPECT_THAT(ListOf(kGridSI + rows), HasSubstr("             (kN)     (kN*M)      (kN*M)\n"));
}

TEST_F(AnalysisInputListing, CasesWithoutRowsAndRowsOutsideTheCasesAreNotShown) {
  EXPECT_EQ(ListOf(kFrame + "@PLOD\n3,1,1,0,0\n0,1,1,0,0\n"), "");
}

TEST_F(AnalysisInputListing, ShowsTheUnitsOfTheInput) {
  // 98.0665 kN stays 98.067 in the list, whatever the analysis and its output work in.
  EXPECT_THAT(ListOf("@CONT\n1,1,1,0\n@UNIT\n1,0,9.80665,0\n@PLOD\n1,1,98.0665,0,0\n"),
              HasSubstr("     1     98.067      0.000      0.000\n"));
}

TEST_F(AnalysisInputListing, HeadsAUnitThatIsNeitherZeroNorOneAsItIsAnalysed) {
  const auto list = [this](const char* unit) {
    return ListOf("@CONT\n1,1,1,0\n@UNIT\n" + std::string(unit) +
                  "\n@NODE\n1,0,0,2,0,0\n@SECT\n1,0,100,1000,0,50,1,2100,0\n@SPRG\n1,5\n@PLOD\n1,1,2\n");
  };
  EXPECT_EQ(list("2,0,0,0"), list("0,0,0,0"));
  EXPECT_NE(list("1,0,0,0"), list("0,0,0,0"));
}

}  // namespace
}  // namespace zorlan

#include "analysis/analysis_listing.h"

#include "analysis/analysis_state.h"
#include "analysis/result_files.h"
#include "model/deck.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// A deck with results that a test chooses, and the listing made from them.
class AnalysisListing : public test::ModelFolderTest {
 protected:
  AnalysisListing() { MakeFolder(ResultFolder()); }
  ~AnalysisListing() override { AnalysisError = AnalysisErrorDetail = ""; }

  static void Deck(std::string_view deck) {
    WriteDeck(deck);
    ReadDeck(DeckPath(), /*checkMode=*/false);
  }
  static void Results(const std::vector<double>& displacements, const Reactions& reactions,
                      const std::vector<double>& forces) {
    WriteDisplacements(ResultFolder(), displacements);
    WriteReactions(ResultFolder(), reactions, ReactionLines::One);
    WriteForces(ResultFolder(), forces);
  }
  /// FT100 after both stages, with LF for CR LF.
  static std::string Listing() {
    AnalysisError = AnalysisErrorDetail = "";
    DSYSOUT1();
    DSYSOUT2();
    return Read(AnalysisPath + "FT100");
  }
  /// The part of the listing from a title on, up to the next one.
  static std::string Section(const std::string& listing, const std::string& title) {
    const std::size_t start = listing.find(title);
    if (start == std::string::npos) return {};
    return listing.substr(start, listing.find("◆", start + 1) - start);
  }
};

// Two nodes, an element of 4 m; node 10 is a pin (U and V), node 20 held in V alone.
std::string BeamDeck(int cases, std::string_view units) {
  return "@TITL\n例題 梁\n@SUBT\n単純梁\n@CONT\n1," + std::to_string(cases) + ",0,0\n@UNIT\n" +
         std::string(units) + "\n@NODE\n10,0,0,1,1,0\n20,4,0,0,1,0\n@ELEM\n5,10,20,0,0,1\n";
}

const std::vector<double> kOneCaseDisplacements = {0, 0, -0.0025, 0.000123, 0, 0.00250005};
const std::vector<double> kOneCaseForces = {-1.5, 2, 0, 1.5, 2, 0, 3.25};

TEST_F(AnalysisListing, OneCaseIsShownWhole) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results(kOneCaseDisplacements, {1, {10, 20}, {1.5, 2, 0, 0, 2, 0}}, kOneCaseForces);
  EXPECT_EQ(
      Listing(),
      "◆TITLE\n"
      "  例題 梁 ((T , T･M) )\n"
      "単純梁\n"
      "\n"
      "\n"
      "◆CONTROL INFORMATION\n"
      "  ANALYSIS CODE                              = 1\n"
      "     =1 : 一般任意平面骨組み解析\n"
      "     =2 : 同一変形条件付き平面骨組み解析\n"
      "     =3 : 平面格子梁解析\n"
      "  NUMBER OF NODAL POINTS                     = 2\n"
      "  NUMBER OF BEAMS                            = 1\n"
      "  NUMBER OF LOAD CASES                       = 1\n"
      "  INPUT LIST                                 = 0\n"
      "     =0 : 入力データのリスト出力無し\n"
      "     =1 : 入力データのリスト出力有り\n"
      "  INPUT OF UNITS                             = 0\n"
      "     =0 : 工学単位\n"
      "     =1 : ＳＩ単位\n"
      "  OUTPUT OF UNITS                            = 0 (T , T･M)\n"
      "     =0 : 工学単位\n"
      "     =1 : ＳＩ単位\n"
      "  FACTOR OF UNITS                            = 9.80665\n"
      "\n"
      "◆NODE DISPLACEMENTS/ROTATIONS\n"
      "  NODE   LOAD          U           V             θ\n"
      "    NO   CASE        (CM)        (CM)          (RAD)\n"
      "    10      1       0.000       0.000   -2.50000E-03\n"
      "    20      1       0.012       0.000    2.50005E-03\n"
      "◆NODAL REACTION LOAD\n"
      "  NODE   LOAD         F-X         F-Y        M-Z\n"
      "    NO   CASE         (T)         (T)       (T*M)\n"
      "    10      1       1.500       2.000           0\n"
      "    20      1           0       2.000           0\n"
      " ------------------------------------------------\n"
      "    Σ      1       1.500       4.000       0.000\n"
      "\n"
      "◆BEAM ELEMENT STRESSES\n"
      "  ELEM NODE NODE LOAD       M(I)       M(C)       M(J)       Q(I)       Q(J)       N(I)       N(J)     \n"
      "    NO   -I   -J CASE      (T*M)      (T*M)      (T*M)        (T)        (T)        (T)        (T)\n"
      "     5   10   20    1      0.000      3.250      0.000      2.000      2.000     -1.500      1.500  引張\n");
  EXPECT_EQ(AnalysisError, "");
}

TEST_F(AnalysisListing, SeveralCasesShareTheNumbersOfTheirFirstLine) {
  Deck(BeamDeck(2, "0,0,9.80665,0"));
  Results({0, 0, 0.001, 0.001, 0, 0, 0, 0, -0.001, -0.001, 0, 0},
          {2, {10, 20}, {1, 2, 0, 0, 3, 0, -1, -2, 0, 0, -3, 0}},
          {1, 2, 3, -1, 5, 6, 7, 0, 2, 3, 0, 5, 6, 7});
  const std::string listing = Listing();
  EXPECT_EQ(Section(listing, "◆NODE DISPLACEMENTS/ROTATIONS"),
            "◆NODE DISPLACEMENTS/ROTATIONS\n"
            "  NODE   LOAD          U           V             θ\n"
            "    NO   CASE        (CM)        (CM)          (RAD)\n"
            "    10      1       0.000       0.000    1.00000E-03\n"
            "            2       0.000       0.000   -1.00000E-03\n"
            "\n"
            "    20      1       0.100       0.000    0.00000E+00\n"
            "            2      -0.100       0.000    0.00000E+00\n");
  EXPECT_EQ(Section(listing, "◆NODAL REACTION LOAD"),
            "◆NODAL REACTION LOAD\n"
            "  NODE   LOAD         F-X         F-Y        M-Z\n"
            "    NO   CASE         (T)         (T)       (T*M)\n"
            "    10      1       1.000       2.000           0\n"
            "            2      -1.000      -2.000           0\n"
            "\n"
            "    20      1           0       3.000           0\n"
            "            2           0      -3.000           0\n"
            "\n"
            " ------------------------------------------------\n"
            "    Σ      1       1.000       5.000       0.000\n"
            "    Σ      2      -1.000      -5.000       0.000\n"
            "\n");
  EXPECT_EQ(
      Section(listing, "◆BEAM ELEMENT STRESSES"),
      "◆BEAM ELEMENT STRESSES\n"
      "  ELEM NODE NODE LOAD       M(I)       M(C)       M(J)       Q(I)       Q(J)       N(I)       N(J)     \n"
      "    NO   -I   -J CASE      (T*M)      (T*M)      (T*M)        (T)        (T)        (T)        (T)\n"
      "     5   10   20    1      3.000      7.000      6.000      2.000      5.000      1.000     -1.000  圧縮\n"
      "                    2      3.000      7.000      6.000      2.000      5.000      0.000      0.000\n"
      "\n");
}

TEST_F(AnalysisListing, AnEmptyLineStandsBehindEveryElementButNoneWithOneCase) {
  const std::string more = "6,20,10,0,0,1\n";
  Deck(BeamDeck(2, "0,0,9.80665,0") + more);
  Results(std::vector<double>(12), {2, {}, {}}, std::vector<double>(28));
  EXPECT_THAT(Listing(), HasSubstr("0.000\n\n     6   20   10    1"));
  Deck(BeamDeck(1, "0,0,9.80665,0") + more);
  Results(std::vector<double>(6), {1, {}, {}}, std::vector<double>(14));
  EXPECT_THAT(Listing(), HasSubstr("0.000\n     6   20   10    1"));
}

struct ForceUnitCase {
  const char* units;
  const char* label;     // behind OUTPUT OF UNITS
  const char* reaction;  // unit line and the pin's row
  const char* forces;
};

// 1.5 t and 2 t with a factor of 10 kN per t.
const ForceUnitCase kForceUnits[] = {
    {"0,0,10,0", "0 (T , T･M)",
     "    NO   CASE         (T)         (T)       (T*M)\n    10      1       1.500       2.000           0\n",
     "    NO   -I   -J CASE      (T*M)      (T*M)      (T*M)        (T)        (T)        (T)        (T)\n"},
    {"0,0,10,1", "0 (kg , kg･M)",
     "    NO   CASE        (kg)        (kg)      (kg*M)\n    10      1    1500.000    2000.000           0\n",
     "    NO   -I   -J CASE     (kg*M)     (kg*M)     (kg*M)       (kg)       (kg)       (kg)       (kg)\n"},
    {"0,1,10,0", "1 (kN , kN･M)",
     "    NO   CASE        (kN)        (kN)      (kN*M)\n    10      1      15.000      20.000           0\n",
     "    NO   -I   -J CASE     (kN*M)     (kN*M)     (kN*M)       (kN)       (kN)       (kN)       (kN)\n"},
    {"0,1,10,1", "1 (N , N･M)",
     "    NO   CASE         (N)         (N)       (N*M)\n    10      1   15000.000   20000.000           0\n",
     "    NO   -I   -J CASE      (N*M)      (N*M)      (N*M)        (N)        (N)        (N)        (N)\n"},
};

TEST_F(AnalysisListing, ForcesAreShownInTheOutputUnit) {
  for (const ForceUnitCase& c : kForceUnits) {
    Deck(BeamDeck(1, c.units));
    Results(kOneCaseDisplacements, {1, {10, 20}, {1.5, 2, 0, 0, 2, 0}}, kOneCaseForces);
    const std::string listing = Listing();
    EXPECT_THAT(listing, HasSubstr(c.label + std::string("\n")));
    EXPECT_THAT(listing, HasSubstr(c.reaction));
    EXPECT_THAT(listing, HasSubstr(c.forces));
    EXPECT_THAT(listing, HasSubstr("    20      1       0.012 "))
        << "displacements are in cm whatever the unit";
  }
}

TEST_F(AnalysisListing, AGridShowsItsRotationsInTheScientificForm) {
  for (const auto& [units, line] :
       {std::pair{"0,0,10,0", "    NO   CASE         (T)       (T*M)       (T*M)\n"},
        std::pair{"0,0,10,1", "    NO   CASE        (kg)      (kg*M)      (kg*M)\n"},
        std::pair{"0,1,10,0", "    NO   CASE        (kN)      (kN*M)      (kN*M)\n"},
        std::pair{"0,1,10,1", "    NO   CASE         (N)       (N*M)       (N*M)\n"}}) {
    Deck("@CONT\n3,1,0,0\n@UNIT\n" + std::string(units) +
         "\n@NODE\n1,0,0,1,1,1\n2,4,0,0,0,0\n@ELEM\n1,1,2,0,0,1\n");
    Results({0, 0, 0, -0.0125, 0.00004, -0.5}, {1, {1}, {2, 0.5, -0.25}}, std::vector<double>(7));
    const std::string listing = Listing();
    EXPECT_THAT(
        listing,
        HasSubstr(
            "◆NODE DISPLACEMENTS/ROTATIONS\n  NODE   LOAD          W            θx            θy\n    NO   CASE        (CM)          (RAD)          (RAD)\n"
            "     1      1       0.000    0.00000E+00    0.00000E+00\n"
            "     2      1      -1.250    4.00000E-05   -5.00000E-01\n"));
    EXPECT_THAT(listing,
                HasSubstr("◆NODAL REACTION LOAD\n  NODE   LOAD         F-Z        M-X         M-Y\n" +
                          std::string(line)));
  }
}

TEST_F(AnalysisListing, AnyCodeAboveZeroShowsItsReaction) {
  Deck("@CONT\n1,1,0,1\n@UNIT\n0,0,9.80665,0\n@NODE\n1,0,0,2,0,2\n2,4,0,4,4,0,30\n");
  Results(std::vector<double>(6), {1, {1, 2}, {1, 2, 3, 4, 5, 6}}, {});
  EXPECT_THAT(Listing(), HasSubstr("     1      1       1.000           0       3.000\n"
                                   "     2      1       4.000       5.000           0\n"));
}

TEST_F(AnalysisListing, ANodeWithAForcedDisplacementShowsAllThreeReactions) {
  // Node 2 has no support code at all; the displacement is in case 2 and counts in every case.
  Deck("@CONT\n1,1,0,0\n@UNIT\n0,0,9.80665,0\n@NODE\n1,0,0,1,0,0\n2,4,0,0,0,0\n@SPEC\n2,2,1,0,0\n");
  Results(std::vector<double>(6), {1, {1, 2}, {1, 0, 0, 4, 0, -6}}, {});
  EXPECT_THAT(Listing(), HasSubstr("     1      1       1.000           0           0\n"
                                   "     2      1       4.000       0.000      -6.000\n"));
}

TEST_F(AnalysisListing, ANodeWithoutSupportIsLeftOutButCountsInTheSums) {
  Deck("@CONT\n1,1,0,0\n@UNIT\n0,0,9.80665,0\n@NODE\n1,0,0,1,0,0\n2,4,0,0,0,0\n");
  Results(std::vector<double>(6), {1, {1, 2}, {1, 2, 3, 10, 20, 30}}, {});
  const std::string listing = Listing();
  EXPECT_THAT(listing, HasSubstr("     1      1       1.000           0           0\n ---"));
  EXPECT_THAT(listing, HasSubstr("    Σ      1      11.000      22.000      33.000\n"));
}

TEST_F(AnalysisListing, SumsAreOfTheStoredValuesNotOfThePrintedOnes) {
  // 0.0004 kN each would show as 0.000; together they are 0.0012 kN.
  Deck("@CONT\n1,1,0,0\n@UNIT\n0,1,10,0\n@NODE\n1,0,0,1,0,0\n2,4,0,1,0,0\n3,4,0,1,0,0\n");
  Results(std::vector<double>(9), {1, {1, 2, 3}, {4e-5, 0, 0, 4e-5, 0, 0, 4e-5, 0, 0}}, {});
  const std::string listing = Listing();
  EXPECT_THAT(listing, HasSubstr("     3      1       0.000           0           0\n"));
  EXPECT_THAT(listing, HasSubstr("    Σ      1       0.001 "));
}

TEST_F(AnalysisListing, TheMarkFollowsTheStoredForcesHoweverSmall) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results(kOneCaseDisplacements, {1, {}, {}}, {1e-9, 0, 0, -1e-9, 0, 0, 0});
  EXPECT_THAT(Listing(), EndsWith("      0.000      0.000  圧縮\n"));
  Results(kOneCaseDisplacements, {1, {}, {}}, {-2, 0, 0, -1.5, 0, 0, 0});
  EXPECT_THAT(Listing(), EndsWith("     -2.000     -1.500  引張\n"));
  Results(kOneCaseDisplacements, {1, {}, {}}, {-2, 0, 0, -2, 0, 0, 0});
  EXPECT_THAT(Listing(), EndsWith("     -2.000     -2.000\n"));
}

TEST_F(AnalysisListing, TheInputListStandsBetweenControlAndDisplacementsIfItIsAskedFor) {
  Deck("@CONT\n1,1,1,0\n@UNIT\n0,0,9.80665,0\n@NODE\n1,0,0,1,0,0\n@PLOD\n1,1,2,0,0\n");
  Results(std::vector<double>(3), {1, {1}, {-2, 0, 0}}, {});
  const std::string listing = Listing();
  EXPECT_THAT(
      listing,
      HasSubstr(
          "  FACTOR OF UNITS                            = 9.80665\n\n◆INPUT DATA LIST\n  NODE       XX       YY     U   V   θ  傾斜ﾛｰﾗ角度        K-x           K-y          K-θ\n"));
  EXPECT_THAT(listing,
              HasSubstr("     1      2.000      0.000      0.000\n\n◆NODE DISPLACEMENTS/ROTATIONS\n"));
  EXPECT_THAT(listing, HasSubstr("  INPUT LIST                                 = 1\n"));
}

TEST_F(AnalysisListing, ALongNumberWidensItsField) {
  Deck(BeamDeck(1, "0,1,10,1"));
  Results(kOneCaseDisplacements, {1, {10}, {-123456789.1, 1234.5678, 0}}, kOneCaseForces);
  // -1234567891000 N has thirteen digits and a sign for twelve columns.
  EXPECT_THAT(Listing(), HasSubstr("    10      1-123456789100012345678.000           0\n"));
}

TEST_F(AnalysisListing, WithoutReactionsTheListingIsShortAndTheNoteSaysWhere) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results(kOneCaseDisplacements, {1, {10}, {1, 2, 3}}, kOneCaseForces);
  RemoveFile(ResultFolder() + "FT022");
  DSYSOUT1();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT1）");
  EXPECT_THAT(AnalysisErrorDetail, HasSubstr("FT022"));
  const std::string listing = Read(AnalysisPath + "FT100");
  EXPECT_THAT(listing, StartsWith("◆TITLE\n"));
  EXPECT_THAT(listing, EndsWith("    20      1       0.012       0.000    2.50005E-03\n"));
}

TEST_F(AnalysisListing, ResultsThatEndEarlyEndTheStage) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results({0, 0, 0}, {1, {10}, {1, 2, 3}}, {1, 2, 3});
  DSYSOUT1();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT1）");
  EXPECT_THAT(AnalysisErrorDetail, HasSubstr("FT021"));
  EXPECT_THAT(Read(AnalysisPath + "FT100"),
              EndsWith("  FACTOR OF UNITS                            = 9.80665\n\n"));
  const std::string before = ReadBytes(AnalysisPath + "FT100");
  DSYSOUT2();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT2）");
  EXPECT_THAT(AnalysisErrorDetail, HasSubstr("FT031"));
  EXPECT_EQ(ReadBytes(AnalysisPath + "FT100"), before);
}

TEST_F(AnalysisListing, ReactionsOfAnotherModelAreRefused) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results(kOneCaseDisplacements, {2, {10}, {1, 2, 3, 1, 2, 3}}, kOneCaseForces);
  EXPECT_THAT(Listing(), Not(HasSubstr("◆NODAL REACTION LOAD")));
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT1）");
  Results(kOneCaseDisplacements, {1, {11}, {1, 2, 3}}, kOneCaseForces);
  EXPECT_THAT(Listing(), Not(HasSubstr("◆NODAL REACTION LOAD")));
  EXPECT_THAT(AnalysisErrorDetail, HasSubstr("節点 11 "));
}

TEST_F(AnalysisListing, APlaceThatTakesNoFileIsTheStagesFault) {
  Deck(BeamDeck(1, "0,0,9.80665,0"));
  Results(kOneCaseDisplacements, {1, {10}, {1, 2, 3}}, kOneCaseForces);
  AnalysisPath = BlockedFolder();
  DSYSOUT1();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT1）");
  DSYSOUT2();
  EXPECT_EQ(AnalysisError, "エラー発生（IN DSYSOUT2）");
}

}  // namespace
}  // namespace zorlan

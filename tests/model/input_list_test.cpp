#include "model/input_list.h"

#include <algorithm>

#include "model/deck.h"
#include "model/model_state.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

/// The tables of a deck's text, without its title and subtitle when they don't matter.
ModelTables Tables(std::initializer_list<std::pair<const char*, const char*>> tables) {
  ModelTables result;
  for (const auto& [key, text] : tables) result[key] = ParseTable(key, text);
  return result;
}

/// The list with LF for CR LF, without the title's line and the empty line behind it.
std::string Body(const ModelTables& tables) {
  std::string text = InputListText(tables);
  std::string body;
  for (const char c : text)
    if (c != '\r') body += c;
  const std::size_t titleEnd = body.find('\n');
  return titleEnd + 2 <= body.size() ? body.substr(titleEnd + 2) : std::string();
}

TEST(InputList, IsHeadedByTitleAndSubtitle) {
  EXPECT_EQ(InputListText(Tables({{"TITL", "事務所"}, {"SUBT", "X1 通り"}})),
            "《 INPUT DATA LIST 》 事務所 　（サブタイトル：X1 通り）\r\n");
}

TEST(InputList, ATitleEndsAtItsCommaAsTheFormShowsIt) {
  EXPECT_EQ(InputListText(Tables({{"TITL", "事務所, 増築"}, {"SUBT", "副題"}})),
            "《 INPUT DATA LIST 》 事務所 　（サブタイトル：副題）\r\n");
}

TEST(InputList, AnEmptyModelIsItsHeadlineAlone) {
  EXPECT_EQ(InputListText({}), "《 INPUT DATA LIST 》  　（サブタイトル：）\r\n");
}

struct HeaderCase {
  const char* row;
  const char* lines;
};

TEST(InputList, ControlDataStandOneItemALine) {
  const HeaderCase cases[] = {
      {"1,3,0", "解析モデル番号 :1:一般任意平面骨組み\n最大荷重ケース :3\n入力リスト出力 :0：出力しない\n"},
      {"2,20,1,0",
       "解析モデル番号 :2:同一変形条件付平面骨組み\n最大荷重ケース :20\n入力リスト出力 :1：出力する\n"},
      {"3,1", "解析モデル番号 :3:平面格子梁\n最大荷重ケース :1\n入力リスト出力 :0：出力しない\n"},
      {"7,2,5", "解析モデル番号 :7\n最大荷重ケース :2\n入力リスト出力 :5\n"},  // no name: as it was typed
  };
  for (const HeaderCase& c : cases) EXPECT_EQ(Body(Tables({{"CONT", c.row}})), c.lines) << c.row;
}

TEST(InputList, UnitsStandOneItemALineWithAFactorOfZeroReplaced) {
  const HeaderCase cases[] = {
      {"0,1,9.80665,0", "入力単位 :0:工学単位\n出力単位 :1:ＳＩ単位\nＳＩ単位変換係数 :9.80665\n"},
      {"1,0,9.80,1", "入力単位 :1:ＳＩ単位\n出力単位 :0:工学単位\nＳＩ単位変換係数 :9.80\n"},
      {"1,1,0,0", "入力単位 :1:ＳＩ単位\n出力単位 :1:ＳＩ単位\nＳＩ単位変換係数 :9.80665\n"},
      {"1,1", "入力単位 :1:ＳＩ単位\n出力単位 :1:ＳＩ単位\nＳＩ単位変換係数 :9.80665\n"},
  };
  for (const HeaderCase& c : cases) EXPECT_EQ(Body(Tables({{"UNIT", c.row}})), c.lines) << c.row;
}

TEST(InputList, OfSeveralRowsOfControlDataOrUnitsTheLastCounts) {
  EXPECT_EQ(InputListText(Tables({{"TITL", "旧館\n新館"},
                                  {"SUBT", "A\nB"},
                                  {"CONT", "1,2,0,0\n3,1,0,0"},
                                  {"UNIT", "0,0,9.8\n1,1,0"},
                                  {"PLOD", "1,1,5,0,0\n2,1,7,0,0"}})),
            "《 INPUT DATA LIST 》 旧館 　（サブタイトル：A）\r\n\r\n"
            "解析モデル番号 :3:平面格子梁\r\n最大荷重ケース :1\r\n入力リスト出力 :0：出力しない\r\n\r\n"
            "入力単位 :1:ＳＩ単位\r\n出力単位 :1:ＳＩ単位\r\nＳＩ単位変換係数 :9.80665\r\n\r\n"
            "LOAD CASE -  1\r\n NODAL POINT LOADS\r\n NODE      F-Z       M-X       M-Y\r\n"
            "          (kN)    (kN*m)     (kN*m)\r\n    1         5         0         0\r\n");
}

/// The lines of the list behind control data and units.
std::string Part(const char* control, const char* units, ModelTables tables) {
  tables["CONT"] = ParseTable("CONT", control);
  tables["UNIT"] = ParseTable("UNIT", units);
  const std::string body = Body(tables);
  const std::size_t behind = body.find("\n\n", body.find("ＳＩ単位変換係数 :"));
  return behind == std::string::npos ? std::string() : body.substr(behind + 2);
}

TEST(InputList, NodesOfAFrameShowTheirSprings) {
  const ModelTables tables = Tables({{"NODE", "1,0,0,1,2,1\n12,-12.5,3.0005,0,,0"}, {"SPRG", "1,,26.70,5"}});
  EXPECT_EQ(Part("1,1,0", "0,0", tables),
            "NODE     XX       YY     U   V   θ         K-x           K-y          K-θ\n"
            "        (m)      (m)                      (t/cm)        (t/cm)    (t*cm/rad)\n"
            "   1    0.000    0.000   1   2   1                       26.70             5\n"
            "  12  -12.500    3.001   0   0   0                                          \n");
  EXPECT_THAT(
      Part("2,1,0", "1,0", tables),
      testing::StartsWith(
          "NODE     XX       YY     U   V   θ         K-x           K-y          K-θ\n        (m)      (m)                     (kN/mm)       (kN/mm)   (kN*mm/rad)\n"));
}

// An integer field is cut when it is read: the list shows the number that is used.
TEST(InputList, AWholeNumberBeyondAnyTableIsShownAsItWasTyped) {
  EXPECT_THAT(InputListText(Tables({{"CONT", "1,1,0,0"}, {"NODE", "12345678901,0,3,0,0,0"}})),
              testing::HasSubstr("12345678901"));
}

TEST(InputList, WholeNumbersAreShownAsTheyAreRead) {
  const ModelTables tables = Tables({{"NODE", "2.6,0,3,0.9,1.6,-0.7\n3,4,3.9996,0,0,0"},
                                     {"ELEM", "1.9,2.6,3,0.7,1.5,1.9,2.7"},
                                     {"RIGD", "2.7,0.1996,0"},
                                     {"SECT", "1.9,2.6,400,200,8,13,1,2100,810"},
                                     {"PLOD", "1.7,2.9,1.96,0,0"},
                                     {"ELOD", "1,1.9,-1,2.9,1.996,1,1.9"},
                                     {"CLOD", "1,1.9,1,0,0,0,0,0.9"},
                                     {"TLOD", "1,1.9,1,0,0,0,0,0.9"},
                                     {"DISP", "1.9,2.6,3.7"}});
  const std::string list = Part("2,1,0", "0,0", tables);
  for (const char* const line : {
           "   2    0.000    3.000   0   1   0  ",
           "    1    2     3 \n",
           "   1     2     3   0   1     1     2    4.123\n",  // 4 m by 0.9996 m
           "   2    0.200    0.000\n",
           "   1  H-   400   200    8.0   13.0   1.00      2100       810\n",
           "    2      1.96         0         0\n",
           "    1        -1    2    2.00   1.0   1\n",
           "    1         1         0         0         0         0   0\n",
           "    1    1.0     0.0     0.0   0.0000000     0.0   0\n",
       })
    EXPECT_THAT(list, testing::HasSubstr(line));
}

TEST(InputList, NodesOfAGridHaveTheirOwnHeads) {
  const ModelTables tables = Tables({{"NODE", "1,0,0,1,2,1"}});
  EXPECT_THAT(
      Part("3,1,0", "0,0", tables),
      testing::StartsWith(
          "NODE     XX       YY     W θx θy          K-z         K-θx         K-θy\n        (m)      (m)                      (t/cm)    (t*cm/rad)    (t*cm/rad)\n"));
  EXPECT_THAT(
      Part("3,1,0", "1,0", tables),
      testing::StartsWith(
          "NODE     XX       YY     W θx θy          K-z         K-θx         K-θy\n        (m)      (m)                     (kN/mm)   (kN*mm/rad)   (kN*mm/rad)\n"));
}

TEST(InputList, OfSeveralSpringRowsOnANodeTheLastIsShown) {
  const ModelTables tables = Tables({{"NODE", "1,0,0,2,2,2"}, {"SPRG", "1,10,20,30\n1,,40"}});
  EXPECT_THAT(
      Part("1,1,0", "0,0", tables),
      testing::EndsWith("   1    0.000    0.000   2   2   2                          40              \n"));
}

TEST(InputList, GroupsFollowTheNodesTenALine) {
  const ModelTables tables =
      Tables({{"NODE", "1,0,0,0,0,0"},
              {"DISP", "7,1,2,3,4,5,6,7,8,9,10,11,12\n12345,10000\n8,1,2,3,4,5,6,7,8,9,10\n9"}});
  EXPECT_THAT(Part("1,1,0", "0,0", tables),
              testing::EndsWith("   0   0   0                                          \n"
                                "GROUP  SAME DISP-U NODE\n"
                                "    7    1     2     3     4     5     6     7     8     9    10 \n"
                                "        11    12 \n"
                                "1234510000 \n"
                                "    8    1     2     3     4     5     6     7     8     9    10 \n"
                                "    9\n"));
}

TEST(InputList, FrameMagnificationsStandUnderTheirHeads) {
  EXPECT_EQ(Part("1,1,0", "1,1", Tables({{"ALFA", "0,12.5,1.25\n12.5,20,2"}})),
            "MAGF    X1       X2      α \n"
            "       (m)      (m)        \n"
            "        0.000   12.500   1.25\n"
            "       12.500   20.000   2.00\n");
}

TEST(InputList, ElementsHaveTheirLengthFromTheTableOfNodes) {
  const ModelTables tables = Tables({{"NODE", "1,0,0,1,1,1\n2,3,4,0,0,0\n2,9,9,0,0,0"},
                                     {"ELEM", "10,1,2,0,1,3\n11,2,1,1,0,3,5\n12,1,99,0,0,3"}});
  EXPECT_THAT(Part("1,1,0", "1,1", tables),
              testing::EndsWith("\n\n"
                                "ELEM     I     J  II  JJ  MATE  RIGI   LENGTH\n"
                                "                                         (m)\n"
                                "  10     1     2   0   1     3     0    5.000\n"
                                "  11     2     1   1   0     3     5    5.000\n"
                                "  12     1    99   0   0     3     0    0.000\n"));
}

TEST(InputList, RigidZonesHaveNoLineOfUnits) {
  EXPECT_EQ(Part("1,1,0", "1,1", Tables({{"RIGD", "5,.25,0.1\n6,0.3333"}})),
            "RIGI     λi      λj\n"
            "   5    0.250    0.100\n"
            "   6    0.333    0.000\n");
}

TEST(InputList, SectionsAreGroupedByShapeInTheOrderOfTheirTypes) {
  const ModelTables tables = Tables({{"SECT",
                                      "12,12,75,75,6,8.5,1,205000,79000\n"
                                      "11,11,75,75,6,8.5,1,205000,79000\n"
                                      "10,10,150,75,6.5,10,1,205000,79000\n"
                                      "9,9,150,75,6.5,10,1,205000,79000\n"
                                      "8,8,120,240,1.5,0,1,7000,467\n"
                                      "7,7,120,240,1.5,0,1,7000,467,梁,すぎ\n"
                                      "6,6,300,300,12,12,1,205000,79000\n"
                                      "5,5,400,200,8,13,1,205000,79000\n"
                                      "4,4,216.3,8.2,0,0,1,205000,78846.1538\n"
                                      "3,3,300,300,12,12,1,205000,79000\n"
                                      "2,2,400,200,8,13,1.5,205000,79000\n"
                                      "1,1,40,60,1.2,0,2,21000,9000\n"
                                      "100,0,123.45,67890,,50,1,205000,0\n"
                                      "13,13,1,1,1,1,1,1,1"}});
  EXPECT_EQ(Part("1,1,0", "1,1", tables),
            "MATE     A         J          As       E         G      ［直接入力］\n"
            "       (cm2)     (cm4)      (cm2)   (N/mm2)   (N/mm2)\n"
            " 100    123.5       67890     50.0    205000         0\n"
            "MATE    B      D      κ      As     φ       E         G      ［ＢｘＤ入力］\n"
            "      (cm)   (cm)           (cm2)          (N/mm2)   (N/mm2)\n"
            "   8  120.0  240.0   1.50      0.0   1.00      7000       467\n"
            "   7  120.0  240.0   1.50      0.0   1.00      7000       467\n"
            "   1   40.0   60.0   1.20      0.0   2.00     21000      9000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［Ｈ形鋼(強軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "   2  H-   400   200    8.0   13.0   1.50    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［□形鋼(強軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "   3  B-   300   300   12.0   12.0   1.00    205000     79000\n"
            "MATE      D     T      φ       E         G      ［○形鋼］\n"
            "        (mm)  (mm)           (N/mm2)   (N/mm2)\n"
            "   4  P-  216    8.2   1.00    20500078846.1538\n"
            "MATE      H     B     t1     t2     φ       E         G      ［Ｈ形鋼(弱軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "   5  H-   400   200    8.0   13.0   1.00    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［□形鋼(弱軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "   6  B-   300   300   12.0   12.0   1.00    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［溝形鋼(強軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "   9  ［-   150    75    6.5   10.0   1.00    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［溝形鋼(弱軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "  10  ［-   150    75    6.5   10.0   1.00    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［山形鋼(強軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "  11  Ｌ-    75    75    6.0    8.5   1.00    205000     79000\n"
            "MATE      H     B     t1     t2     φ       E         G      ［山形鋼(弱軸)］\n"
            "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)\n"
            "  12  Ｌ-    75    75    6.0    8.5   1.00    205000     79000\n");
}

TEST(InputList, SectionHeadsFollowTheInputUnits) {
  struct UnitCase {
    const char* row;
    const char* units;
  };
  const UnitCase cases[] = {
      {"1,0,1,1,0,1,1,2100,810", "       (cm2)     (cm4)      (cm2)   (t/cm2)   (t/cm2)"},
      {"1,1,1,1,0,1,1,2100,810", "      (cm)   (cm)           (cm2)          (t/cm2)   (t/cm2)"},
      {"1,8,1,1,0,1,1,2100,810", "      (cm)   (cm)           (cm2)          (t/cm2)   (t/cm2)"},
      {"1,2,1,1,1,1,1,2100,810", "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)"},
      {"1,3,1,1,1,1,1,2100,810", "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)"},
      {"1,4,1,1,1,1,1,2100,810", "        (mm)  (mm)           (t/cm2)   (t/cm2)"},
      {"1,5,1,1,1,1,1,2100,810", "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)"},
      {"1,6,1,1,1,1,1,2100,810", "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)"},
      {"1,9,1,1,1,1,1,2100,810", "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)"},
  };
  for (const UnitCase& c : cases)
    EXPECT_THAT(Part("1,1,0", "0,0", Tables({{"SECT", c.row}})),
                testing::HasSubstr(std::string("\n") + c.units + "\n"))
        << c.row;
}

const char* const kNodalLoads = "2,1,10,,-2.50\n1,3,0,1\n3,5,7\n0,5,7\n2,4,,,5";
const char* const kElementLoads = "1,10,-14.12,0,,0.5\n1,11,-3,12,1.855,,1\n2,12,-55.52,4,0.25,1,2";
const char* const kCmqLoads = "2,10,-1,2,1,-3,-3,1\n2,11,-1.5,";
const char* const kTemperatureLoads = "1,10,19.94,45.1,-5,1.2E-05,20,1\n1,11,20,30,10,0.00001,";

TEST(InputList, LoadsAreListedCaseByCase) {
  const ModelTables tables = Tables(
      {{"PLOD", kNodalLoads}, {"ELOD", kElementLoads}, {"CLOD", kCmqLoads}, {"TLOD", kTemperatureLoads}});
  EXPECT_EQ(Part("1,2,0", "0,0", tables),
            "LOAD CASE -  1\n"
            " NODAL POINT LOADS\n"
            " NODE      F-X       F-Y       M-Z\n"
            "           (t)       (t)      (t*m)\n"
            "    3         0         1          \n"
            " ELEMENT LOADS\n"
            " ELEM      P     TYPE    Ly     K   MG\n"
            "       (t / t*m)         (m)          \n"
            "   10    -14.12    0    0.00   0.5   0\n"
            "   11        -3   12    1.86   0.0   1\n"
            " TEMP LOADS\n"
            " ELEM    Y1     T1      T2        α        To     J\n"
            "        (cm)   (ﾟC)    (ﾟC)     (1/ﾟC)     (ﾟC)     \n"
            "   10   19.9    45.1    -5.0   0.0000120    20.0   1\n"
            "   11   20.0    30.0    10.0   0.0000100     0.0   0\n"
            "LOAD CASE -  2\n"
            " NODAL POINT LOADS\n"
            " NODE      F-X       F-Y       M-Z\n"
            "           (t)       (t)      (t*m)\n"
            "    1        10               -2.50\n"
            "    4                             5\n"
            " ELEMENT LOADS\n"
            " ELEM      P     TYPE    Ly     K   MG\n"
            "       (t / t*m)         (m)          \n"
            "   12    -55.52    4    0.25   1.0   2\n"
            " CMQ LOADS\n"
            " ELEM     Ci        Mo        Cj        Qi        Qj     MG\n"
            "        (t*m)     (t*m)     (t*m)      (t)       (t)       \n"
            "   10        -1         2         1        -3        -3   1\n"
            "   11      -1.5                                           0\n");
}

TEST(InputList, LoadHeadsFollowUnitsAndModel) {
  const ModelTables nodal = Tables({{"PLOD", "1,1,1"}});
  EXPECT_EQ(
      Part("1,1,0", "1,0", nodal),
      "LOAD CASE -  1\n NODAL POINT LOADS\n NODE      F-X       F-Y       M-Z\n          (kN)      (kN)     (kN*m)\n    1         1                    \n");
  EXPECT_THAT(
      Part("3,1,0", "0,0", nodal),
      testing::HasSubstr("\n NODE      F-Z       M-X       M-Y\n           (t)     (t*m)      (t*m)\n"));
  EXPECT_THAT(
      Part("3,1,0", "1,0", nodal),
      testing::HasSubstr("\n NODE      F-Z       M-X       M-Y\n          (kN)    (kN*m)     (kN*m)\n"));
  EXPECT_THAT(Part("1,1,0", "1,0", Tables({{"ELOD", "1,1,1,0,0,1"}})),
              testing::HasSubstr(
                  "\n ELEM      P     TYPE    Ly     K   MG\n       (kN/kN*m)         (m)          \n"));
  EXPECT_THAT(
      Part("1,1,0", "1,0", Tables({{"CLOD", "1,1,1"}})),
      testing::HasSubstr(
          "\n ELEM     Ci        Mo        Cj        Qi        Qj     MG\n       (kN*m)    (kN*m)    (kN*m)     (kN)      (kN)       \n"));
  EXPECT_THAT(
      Part("1,1,0", "1,0", Tables({{"TLOD", "1,1,1"}})),
      testing::HasSubstr(
          "\n ELEM    Y1     T1      T2        α        To     J\n        (cm)   (ﾟC)    (ﾟC)     (1/ﾟC)     (ﾟC)     \n"));
}

TEST(InputList, ACaseWithoutLoadsIsNotMentioned) {
  EXPECT_EQ(
      Part("1,20,0", "0,0", Tables({{"PLOD", "12,1,1"}})),
      "LOAD CASE - 12\n NODAL POINT LOADS\n NODE      F-X       F-Y       M-Z\n           (t)       (t)      (t*m)\n    1         1                    \n");
}

TEST(InputList, ANumberWiderThanItsColumnIsShownWhole) {
  const ModelTables tables =
      Tables({{"NODE", "123456,-123456.7891,1,1,1,1"}, {"SPRG", "123456,123456789.1234567"}});
  EXPECT_THAT(Part("1,1,0", "0,0", tables),
              testing::EndsWith(
                  "123456-123456.789    1.000   1   1   1123456789.1234567                            \n"));
}

TEST(InputList, EmptyCellsOfFormattedColumnsCountAsZero) {
  EXPECT_THAT(
      Part("1,1,0", "0,0", Tables({{"NODE", "1"}})),
      testing::EndsWith("   1    0.000    0.000   0   0   0                                          \n"));
}

TEST(InputList, PartsStandInOrderWithAnEmptyLineBetween) {
  const std::string body = Body(Tables({{"TITL", "題"},
                                        {"CONT", "1,1,0"},
                                        {"UNIT", "0,0"},
                                        {"NODE", "1,0,0,1,1,1"},
                                        {"ALFA", "0,1,2"},
                                        {"ELEM", "1,1,1,0,0,1"},
                                        {"RIGD", "1,0,0"},
                                        {"SECT", "1,0,1,1,0,1,1,1,1"},
                                        {"PLOD", "1,1,1"}}));
  std::vector<std::size_t> places;
  for (const char* head : {"解析モデル番号 :", "\n\n入力単位 :", "\n\nNODE ", "\n\nMAGF ", "\n\nELEM ",
                           "\n\nRIGI ", "\n\nMATE ", "\n\nLOAD CASE -"})
    places.push_back(body.find(head));
  EXPECT_THAT(places, testing::Not(testing::Contains(std::string::npos)));
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
  EXPECT_EQ(std::string::npos, body.find("\n\n\n"));
}

TEST(InputList, ForeignTablesDoNoHarm) {
  std::string bytes;
  for (unsigned i = 0; i < 1U << 16U; ++i) bytes += static_cast<char>(i * 2654435761U >> 11U);
  ModelTables tables;
  for (const TableName& table : kTables)
    tables[std::string(table.key)] = ParseTable(table.key, Utf8FromCp932(bytes));
  EXPECT_THAT(InputListText(tables), testing::StartsWith("《 INPUT DATA LIST 》 "));
}

class InputListFileTest : public test::ModelFolderTest {};

TEST_F(InputListFileTest, ReadsTheTableFilesAndNotTheRecords) {
  WriteTable("TITL", "事務所\n");
  WriteTable("UNIT", "1,1,0,0\n");
  InpModel.Title = "records";
  MakeInputList();
  EXPECT_EQ(
      ReadTable("TmpFile.inp"),
      "《 INPUT DATA LIST 》 事務所 　（サブタイトル：）\n\n入力単位 :1:ＳＩ単位\n出力単位 :1:ＳＩ単位\nＳＩ単位変換係数 :9.80665\n");
  EXPECT_EQ(ReadTable("UNIT"), "1,1,0,0\n");  // the factor is replaced in the list alone
}

TEST_F(InputListFileTest, ABareDecimalPointGetsItsZero) {
  WriteTable("CONT", "1,1,0\n");
  WriteTable("PLOD", "1,1,.5,-.5\n");
  MakeInputList();
  EXPECT_THAT(ReadTable("TmpFile.inp"), testing::HasSubstr("    1       0.5      -0.5          \n"));
}

TEST_F(InputListFileTest, AFolderThatCannotBeWrittenIsAFaultWithThePath) {
  WorkPath = BlockedFolder();
  EXPECT_THAT(test::FaultOf([] { MakeInputList(); }), testing::HasSubstr(WorkPath + "TmpFile.inp"));
}

}  // namespace
}  // namespace zorlan

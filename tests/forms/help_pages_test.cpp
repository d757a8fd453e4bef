#include "forms/help_pages.h"

#include <gmock/gmock.h>

#include "base/cp932.h"

namespace zorlan {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
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

TEST(InputHelp, EveryFormWithAPageHasItsTitle) {
  const std::pair<const char*, const char*> kTitles[] = {
      {"InpUNIT", "入力説明 -単位-"},        {"InpNODE", "入力説明 -節点-"},
      {"InpELEM", "入力説明 -要素-"},        {"InpSECT", "入力説明 -断面-"},
      {"InpPLOD", "入力説明 -節点荷重-"},    {"InpELOD", "入力説明 -要素荷重-"},
      {"InpCLOD", "入力説明 -ＣＭＱ荷重-"},  {"InpTLOD", "入力説明 -温度荷重-"},
      {"InpRIGD", "入力説明 -剛域-"},        {"InpSPRG", "入力説明 -支点ばね-"},
      {"InpSPEC", "入力説明 -強制変位-"},    {"InpDISP", "入力説明 -同一変形-"},
      {"InpALFA", "入力説明 -フレーム倍率-"}};
  for (const auto& [form, title] : kTitles) {
    EXPECT_EQ(InputHelpOf(form, Frame()).caption, title);
    EXPECT_GE(InputHelpOf(form, GridSetting()).lines.size(), 2U) << form;
  }
}

TEST(InputHelp, TheUnitsPageSaysWhatAnOmittedFactorMeans) {
  EXPECT_THAT(InputHelpOf("InpUNIT", Frame()).lines,
              ElementsAre("[単位]", "ＳＩ単位変換係数を省力下場合 : 9.80665"));
}

TEST(InputHelp, AGridHasItsOwnPageOfNodes) {
  const std::vector<std::string> frame = InputHelpOf("InpNODE", Frame()).lines;
  EXPECT_EQ(frame.size(), 15U);
  EXPECT_THAT(frame, Contains("Ｕ：水平方向　Ｖ：鉛直方向　θ：回転"));
  EXPECT_EQ(frame.back(), "    傾斜ﾛｰﾗ支持は、一般平面骨組み解析のときのみ有効です");
  EXPECT_THAT(
      InputHelpOf("InpNODE", GridSetting()).lines,
      ElementsAre("[節点]", "節点数 1000以下      最大節点番号 5000以下", "Ｘ／Ｙ座標の単位は　ｍ　です。",
                  "Ｗ：Ｚ軸方向　θx：Ｘ軸回り　θy：Ｙ軸回り", "境界条件　自　　由：０",
                  "　　　　　拘　　束：１", "　　　　　バネ支持：２", "（入力例）",
                  "    W=1,θx=1,θy=1 ---- 固定支持", "    W=1,θx=1,θy=0 ---- Ｙ軸回りの回転有り",
                  "    W=2,θx=1,θy=1 ---- Ｚ軸方向のみバネ支持"));
}

TEST(InputHelp, TheSectionsPageFollowsTheInputUnits) {
  EXPECT_THAT(InputHelpOf("InpSECT", Frame()).lines,
              Contains("　　鋼材　　　　　      Ｅ＝2100(t/cm2)  Ｇ＝810(t/cm2)"));
  const std::vector<std::string> si = InputHelpOf("InpSECT", Frame(true)).lines;
  EXPECT_EQ(si.back(), "　　あかまつ（Ⅲ類）   Ｅ＝  8000(N/mm2)  Ｇ＝  533(N/mm2)");
  for (const std::string& line : si) EXPECT_THAT(line, Not(HasSubstr("(t/cm2)")));
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

TEST(InputHelp, TheElementLoadsPageGivesTheUnitOfPByType) {
  EXPECT_THAT(
      InputHelpOf("InpELOD", Frame()).lines,
      ElementsAre("[要素荷重]", "  P : 荷重の＋－は、指定する座標系に合わせる", "      TYPE    Ｐの単位",
                  "      ０      (t/m)", "      １～９  (t)", "      １０    (t/m2)", "      １４    (t/m)",
                  "      １５    (t/m)", "      １６    (t/m2)", "      １７    (t/m2)",
                  "      １８    (t/m2)", " LY : 荷重タイプにより異なります。（マニュアル参照）",
                  " K  : 荷重の倍率", " MG : 部材座標系 = 0   , 絶対座標系（鉛直 = 1　,水平 = 2）"));
  EXPECT_THAT(InputHelpOf("InpELOD", Frame(true)).lines, Contains("      １～９  (kN)"));
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

#include "forms/table_form.h"

#include "base/text.h"
#include "forms/form_test.h"
#include "model/table_file.h"

namespace zorlan::test {
namespace {

struct HeaderCase {
  const char* form;
  FormSetting setting;
  const char* text;
};
const HeaderCase kHeaders[] = {
    {"InpNODE", kFrame, ">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｕ      |>Ｖ      |>θ      "},
    {"InpNODE", kFrameWithRollers,
     ">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｕ      |>Ｖ      |>θ      |>傾斜ﾛｰﾗ角度"},
    {"InpNODE", kGrid, ">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｗ      |>θｘ    |>θｙ    "},
    {"InpNODE",
     {kPlaneGrid, 1, true, false},
     ">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｗ      |>θｘ    |>θｙ    "},
    {"InpNODE",
     {kSameDisplacementFrame, 1, true, false},
     ">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｕ      |>Ｖ      |>θ      |>傾斜ﾛｰﾗ角度"},
    {"InpELEM", kGrid,
     ">番号  |>要素番号|>Ｉ端    |>Ｊ端    |>Ｉ端節点条件|>Ｊ端節点条件|>断面番号|>剛域タイプ番号"},
    {"InpSECT", kFrame,
     ">番号  |>断面番号|>タイプ番号|>Ｐ１      |>Ｐ２      |>Ｐ３      |>Ｐ４      |>Φ        |>Ｅ(t/cm2) |>Ｇ(t/cm2) |>木材断面名称 |>樹種名称　　"},
    {"InpSECT", kFrameInSi,
     ">番号  |>断面番号|>タイプ番号|>Ｐ１      |>Ｐ２      |>Ｐ３      |>Ｐ４      |>Φ        |>Ｅ(N/mm2) |>Ｇ(N/mm2) |>木材断面名称 |>樹種名称　　"},
    {"InpPLOD", kFrame, ">番号  |>節点番号|>ＦＸ(t)   |>ＦＹ(t)   |>ＭＺ(t･m) "},
    {"InpPLOD", kFrameInSi, ">番号  |>節点番号|>ＦＸ(kN)  |>ＦＹ(kN)  |>ＭＺ(kN･m)"},
    {"InpPLOD", kGrid, ">番号  |>節点番号|>ＦＺ(t)   |>ＭＸ(t･m) |>ＭＹ(t･m) "},
    {"InpPLOD", kGridInSi, ">番号  |>節点番号|>ＦＺ(kN)  |>ＭＸ(kN･m)|>ＭＹ(kN･m)"},
    {"InpELOD", kFrame, ">番号  |>要素番号|>荷重Ｐ    |>荷重タイプ|>Ｌｙ    |>Ｋ      |>ＭＧ    "},
    {"InpCLOD", kFrame, ">番号  |>要素番号|>Ｃｉ    |>Ｍｏ    |>Ｃｊ    |>Ｑｉ    |>Ｑｊ    |>ＭＧ    "},
    {"InpTLOD", kFrame, ">番号  |>要素番号|>Ｙ１(cm)|>Ｔ１(℃)|>Ｔ２(℃)|>α(1/℃)|>Ｔｏ(℃)|>Ｊ      "},
    {"InpRIGD", kFrame, ">番号  |>剛域タイプ番号|>λｉ    |>λｊ    "},
    {"InpSPRG", kFrame, ">番号  |>節点番号|>Ｋｘ (t/cm) |>Ｋｙ (t/cm) |>Ｋθ (t･cm/rad) "},
    {"InpSPRG", kFrameInSi, ">番号  |>節点番号|>Ｋｘ (kN/mm)|>Ｋｙ (kN/mm)|>Ｋθ (kN･mm/rad)"},
    {"InpSPRG", kGrid, ">番号  |>節点番号|>Ｋｚ (t/cm) |>Ｋθx(t･cm/rad) |>Ｋθy(t･cm/rad) "},
    {"InpSPRG", kGridInSi, ">番号  |>節点番号|>Ｋｚ (kN/mm)|>Ｋθx(kN･mm/rad)|>Ｋθy(kN･mm/rad)"},
    {"InpSPEC", kFrameInSi, ">番号  |>節点番号|>荷重ケース|>S-x (cm)|>S-y (cm)|>S-θ (rad) "},
    {"InpDISP", kFrame, ">番号  |>節点番号"},
    {"InpALFA", kFrame, ">番号  |>Ｘ１      |>Ｘ２      |>倍率α    "},
};

TEST(TableForm, TheHeaderFollowsModelKindRollersAndUnits) {
  for (const HeaderCase& c : kHeaders)
    EXPECT_EQ(HeaderTextOf(*FindTableForm(c.form), c.setting), c.text) << c.form;
}

struct MaskRow {
  const char* form;
  FormSetting setting;
  std::vector<std::string_view> masks;
};
const MaskRow kMaskRows[] = {
    {"InpNODE", kFrameWithRollers, {"0", "-0.e", "-0.e", "0", "0", "0", "-0."}},
    {"InpNODE", kFrame, {"0", "-0.e", "-0.e", "0", "0", "0"}},
    {"InpELEM", kFrame, {"0", "0", "0", "0", "0", "0", "0"}},
    {"InpSECT", kFrame, {"0", "0", "-0.e", "-0.e", "-0.e", "-0.e", "-0.e", "-0.e", "-0.e", "a", "a"}},
    {"InpPLOD", kGrid, {"0", "-0.e", "-0.e", "-0.e"}},
    {"InpELOD", kFrame, {"0", "-0.e", "0", "-0.e", "-0.e", "0"}},
    {"InpCLOD", kFrame, {"0", "-0.e", "-0.e", "-0.e", "-0.e", "-0.e", "0"}},
    {"InpTLOD", kFrame, {"0", "-0.e", "-0.e", "-0.e", "-0.e", "-0.e", "0"}},
    {"InpRIGD", kFrame, {"0", "-0.e", "-0.e"}},
    {"InpSPRG", kFrame, {"0", "-0.e", "-0.e", "-0.e"}},
    {"InpSPEC", kFrame, {"0", "0", "-0.e", "-0.e", "-0.e"}},
    {"InpDISP", kFrame, {"0"}},
    {"InpALFA", kFrame, {"-0.e", "-0.e", "-0.e"}},
};

TEST(TableForm, EveryColumnHasItsMask) {
  for (const MaskRow& row : kMaskRows) {
    std::vector<std::string_view> masks;
    for (const Column& column : ColumnsOf(*FindTableForm(row.form), row.setting))
      masks.push_back(column.mask);
    EXPECT_EQ(masks, row.masks) << row.form;
  }
}

TEST(TableForm, AHeaderCellIsATitleAndItsUnit) {
  const std::vector<Column> columns = ColumnsOf(*FindTableForm("InpSECT"), kFrameInSi);
  EXPECT_EQ(columns[7].title, "Ｅ");
  EXPECT_EQ(columns[7].unit, "(N/mm2)");
  EXPECT_EQ(columns[7].width, 10) << "as wide as the header text, blanks and all";
  EXPECT_EQ(columns[10].title, "樹種名称");
  EXPECT_TRUE(columns[0].right);
}

TEST(TableForm, TwelveFormsAreNamedAfterTheirTables) {
  ASSERT_EQ(TableForms().size(), 12U);
  for (const TableForm& form : TableForms()) {
    EXPECT_EQ("Inp" + TableKey(form), form.name);
    EXPECT_EQ(FindTableForm(UpperCase(form.name)), &form);
    bool known = false;
    for (const TableName& table : kTables)
      known = known || (table.key == TableKey(form) && table.comment == "%" + std::string(form.caption));
    EXPECT_TRUE(known) << form.name;
  }
  EXPECT_EQ(FindTableForm("InpTITL"), nullptr);
}

TEST(TableForm, PagesAreNamedByCaseAndGroup) {
  EXPECT_EQ(PageTitle(Pages::LoadCases, 12), "ケース12");
  EXPECT_EQ(PageTitle(Pages::Groups, 3), "グループ3");
}

std::string TipOf(const char* form, const FormSetting& setting, int column,
                  std::vector<std::string> cells = {}) {
  return CellTip(*FindTableForm(form), setting, column, RowView(1, cells, setting));
}

TEST(TableForm, CodeColumnsAreExplainedInTheWordsOfTheHelp) {
  EXPECT_NE(TipOf("InpNODE", kFrameWithRollers, 4).find("　　　　　傾斜ﾛｰﾗ支持：４ -- 傾斜ﾛｰﾗ角度を入力する"),
            std::string::npos);
  EXPECT_EQ(TipOf("InpNODE", kFrame, 4).find("傾斜ﾛｰﾗ"), std::string::npos) << "no rollers, no code 4";
  EXPECT_NE(TipOf("InpNODE", kGrid, 6).find("Ｗ：Ｚ軸方向　θx：Ｘ軸回り　θy：Ｙ軸回り"), std::string::npos);
  EXPECT_EQ(TipOf("InpELEM", kFrame, 4), "Ｉ端節点条件　剛：０　ピン：１");
  EXPECT_EQ(TipOf("InpELOD", kFrame, 6), " MG : 部材座標系 = 0   , 絶対座標系（鉛直 = 1　,水平 = 2）");
  EXPECT_NE(TipOf("InpELOD", kFrameInSi, 3).find("０：(kN/m)"), std::string::npos);
  EXPECT_EQ(TipOf("InpELOD", kFrameInSi, 1), "");
}

TEST(TableForm, ASectionsSizesAreExplainedByItsType) {
  EXPECT_EQ(TipOf("InpSECT", kFrame, 5, {"1", "2"}), "P3：tw(mm)\nTYPE 2 Ｈ形鋼 強軸");
  EXPECT_EQ(TipOf("InpSECT", kFrame, 5, {"1", "4"}), "P3：使いません\nTYPE 4 ○形鋼");
  EXPECT_EQ(TipOf("InpSECT", kFrame, 5, {"1", "13"}), "");
  EXPECT_EQ(TipOf("InpSECT", kFrame, 3, {"1", "-1"}), "");
}

TEST(TableForm, ATipOnOneLineHasNoColumns) {
  EXPECT_EQ(TipLine("境界条件　自　　由   ：０\n　　　　　拘　　束   ：１"), "境界条件　自由：０　拘束：１");
  EXPECT_EQ(TipLine(" MG : 部材座標系 = 0   , 絶対座標系\n\n"), "MG : 部材座標系 = 0, 絶対座標系");
}

TEST(TableForm, TheTipOfATypeBeginsWithTheRowsOwn) {
  EXPECT_THAT(TipOf("InpSECT", kFrame, 2, {"1", "2"}),
              testing::StartsWith("TYPE 2：Ｈ形鋼 強軸\n\n0：直接入力\n"));
  EXPECT_THAT(TipOf("InpSECT", kFrame, 2, {"1"}), testing::StartsWith("TYPE\n0：直接入力\n"));
}

}  // namespace
}  // namespace zorlan::test

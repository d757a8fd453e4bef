// What the columns' values mean, in the words of the input help, for table_forms.cpp.
#pragma once

#include <optional>

#include "forms/table_form.h"
#include "sections/section_kinds.h"

namespace zorlan::form_data {

inline constexpr std::string_view kMetres = "Ｘ／Ｙ座標の単位は　ｍ　です。";
inline constexpr std::string_view kRollerSupport =
    "境界条件　自　　由   ：０\n　　　　　拘　　束   ：１\n　　　　　バネ支持   ：２\n　　　　　傾斜ﾛｰﾗ支持：４ -- 傾斜ﾛｰﾗ角度を入力する\nＵ：水平方向　Ｖ：鉛直方向　θ：回転";
inline constexpr std::string_view kFrameSupport =
    "境界条件　自　　由   ：０\n　　　　　拘　　束   ：１\n　　　　　バネ支持   ：２\nＵ：水平方向　Ｖ：鉛直方向　θ：回転";
inline constexpr std::string_view kGridSupport =
    "境界条件　自　　由：０\n　　　　　拘　　束：１\n　　　　　バネ支持：２\nＷ：Ｚ軸方向　θx：Ｘ軸回り　θy：Ｙ軸回り";
inline constexpr ColumnTip kNodeTips[] = {
    {FormCase::Always, 1, "節点数 1000以下      最大節点番号 5000以下"},
    {FormCase::Always, 2, kMetres},
    {FormCase::Always, 3, kMetres},
    {FormCase::Rollers, 4, kRollerSupport},
    {FormCase::Rollers, 5, kRollerSupport},
    {FormCase::Rollers, 6, kRollerSupport},
    {FormCase::PlainFrame, 4, kFrameSupport},
    {FormCase::PlainFrame, 5, kFrameSupport},
    {FormCase::PlainFrame, 6, kFrameSupport},
    {FormCase::Grid, 4, kGridSupport},
    {FormCase::Grid, 5, kGridSupport},
    {FormCase::Grid, 6, kGridSupport},
    {FormCase::Rollers, 7, "　　　　　傾斜ﾛｰﾗ支持：４ -- 傾斜ﾛｰﾗ角度を入力する"},
};

inline constexpr ColumnTip kElementTips[] = {
    {FormCase::Always, 2, "Ｉ端，Ｊ端：節点番号"},
    {FormCase::Always, 3, "Ｉ端，Ｊ端：節点番号"},
    {FormCase::Always, 4, "Ｉ端節点条件　剛：０　ピン：１"},
    {FormCase::Always, 5, "Ｊ端節点条件　剛：０　ピン：１"},
    {FormCase::Always, 6, "断面番号　　：1000以下"},
    {FormCase::Always, 7, "剛域タイプ　：1000以下（無しの時は、０）"},
};

/// The TYPE of a section row; nothing if there is none of its number.
inline std::optional<int> TypeOfRow(const RowView& row) {
  const double type = row.Real(2);
  if (type < 0 || type >= kSectionKinds) return std::nullopt;
  return static_cast<int>(type);
}
/// "2：Ｈ形鋼 強軸"
inline std::string TypeName(int type, std::string_view separator) {
  return std::to_string(type).append(separator).append(SectionKindOf(type).shape);
}
/// The row's own shape first.
inline std::string SectionTypeTip(const RowView& row) {
  std::string tip = "TYPE";
  if (const std::optional<int> own = TypeOfRow(row); own && !row.Blank(2))
    tip.append(" ").append(TypeName(*own, "：")).append("\n");
  for (int type = 0; type < kSectionKinds; ++type) tip.append("\n").append(TypeName(type, "："));
  return tip;
}
/// "P3：tw(mm)", and the shape that it belongs to.
template <int field>
std::string SectionFieldTip(const RowView& row) {
  const std::optional<int> type = TypeOfRow(row);
  if (!type) return {};
  const std::string_view meaning = SectionKindOf(*type).fields[field - 1];
  std::string tip = "P" + std::to_string(field) + "：";
  tip.append(meaning == "-" ? "使いません" : meaning).append("\nTYPE ").append(TypeName(*type, " "));
  const bool box = *type == 3 || *type == 6;
  if (box && field == 4)
    tip += "\n※ □形鋼の断面性能は、フレーム解析時には、P4を考慮していません、断面算定時には考慮します";
  return tip;
}
inline constexpr std::string_view kModuliGravitational =
    "Ｅ：ヤング係数(t/cm2) Ｇ：せん断弾性係数(t/cm2)《Ｇ=0でせん断変形を無視》\n（参考例）\n　　コンクリート(Fc200) Ｅ＝ 210(t/cm2)  Ｇ＝ 90(t/cm2)\n　　鋼材　　　　　      Ｅ＝2100(t/cm2)  Ｇ＝810(t/cm2)";
inline constexpr std::string_view kModuliSi =
    "Ｅ：ヤング係数(N/mm2) Ｇ：せん断弾性係数(N/mm2)《Ｇ=0でせん断変形を無視》\n（参考例）\n　　コンクリート(Fc36) Ｅ＝ 25950(N/mm2)  Ｇ＝11540(N/mm2)\n　　鋼材　　　　　     Ｅ＝205000(N/mm2)  Ｇ＝79000(N/mm2)\n　　あかまつ（Ⅲ類）   Ｅ＝  8000(N/mm2)  Ｇ＝  533(N/mm2)";
inline constexpr ColumnTip kSectionTips[] = {
    {FormCase::Always, 2, {}, SectionTypeTip},
    {FormCase::Always, 3, {}, SectionFieldTip<1>},
    {FormCase::Always, 4, {}, SectionFieldTip<2>},
    {FormCase::Always, 5, {}, SectionFieldTip<3>},
    {FormCase::Always, 6, {}, SectionFieldTip<4>},
    {FormCase::Always, 7, "φ：剛性増大率（TYPE=1～10で有効、TYPE=0は、1.00 固定）"},
    {FormCase::Gravitational, 8, kModuliGravitational},
    {FormCase::Gravitational, 9, kModuliGravitational},
    {FormCase::Si, 8, kModuliSi},
    {FormCase::Si, 9, kModuliSi},
};

inline constexpr ColumnTip kNodalLoadTips[] = {
    {FormCase::Frame, 2, "　F-X : Ｘ方向荷重（右向きを＋）"},
    {FormCase::Frame, 3, "　F-Y : Ｙ方向荷重（上向きを＋）"},
    {FormCase::Frame, 4, "　M-Z : ﾓｰﾒﾝﾄ荷重（反時計回りを＋）"},
    {FormCase::Grid, 2, "　F-Z : Ｚ方向荷重（上向きを＋）"},
    {FormCase::Grid, 3, "　M-X : Ｘ軸ﾓｰﾒﾝﾄ荷重（反時計回りを＋）"},
    {FormCase::Grid, 4, "　M-Y : Ｙ軸ﾓｰﾒﾝﾄ荷重（反時計回りを＋）"},
};

inline constexpr std::string_view kLoadUnitsGravitational =
    "TYPE\n０：(t/m)\n１～９：(t)\n１０：(t/m2)\n１４：(t/m)\n１５：(t/m)\n１６：(t/m2)\n１７：(t/m2)\n"
    "１８：(t/m2)";
inline constexpr std::string_view kLoadUnitsSi =
    "TYPE\n０：(kN/m)\n１～９：(kN)\n１０：(kN/m2)\n１４：(kN/m)\n１５：(kN/m)\n１６：(kN/m2)\n"
    "１７：(kN/m2)\n１８：(kN/m2)";
inline constexpr ColumnTip kElementLoadTips[] = {
    {FormCase::Always, 2, "  P : 荷重の＋－は、指定する座標系に合わせる"},
    {FormCase::Gravitational, 3, kLoadUnitsGravitational},
    {FormCase::Si, 3, kLoadUnitsSi},
    {FormCase::Always, 4, " LY : 荷重タイプにより異なります。（マニュアル参照）"},
    {FormCase::Always, 5, " K  : 荷重の倍率"},
    {FormCase::Always, 6, " MG : 部材座標系 = 0   , 絶対座標系（鉛直 = 1　,水平 = 2）"},
};

inline constexpr ColumnTip kCmqLoadTips[] = {
    {FormCase::Always, 2, "　C   : 反時計回りを＋（両端固定の値、但し 両端ピンの場合は,0 とします）"},
    {FormCase::Always, 3, "　Mo  : 下端引張を　＋（両端ピンの値）"},
    {FormCase::Always, 4, "　C   : 反時計回りを＋（両端固定の値、但し 両端ピンの場合は,0 とします）"},
    {FormCase::Always, 5, "　Qo  : 上向きを　　＋（両端ピンの値）"},
    {FormCase::Always, 6, "　Qo  : 上向きを　　＋（両端ピンの値）"},
    {FormCase::Always, 7, "　MG  : 絶対座標系 = 1　 ,  部材座標系 = 0"},
};

inline constexpr ColumnTip kTemperatureLoadTips[] = {
    {FormCase::Always, 2, " Y1 : Ｙ軸上の正方向の点（部材座標系で入力）"},
    {FormCase::Always, 3, " T1 : 点Y1の温度（度）"},
    {FormCase::Always, 4, " T2 : Y1と対称な位置の点の温度（度）"},
    {FormCase::Always, 5, " α : 線膨張率（参考値=0.000012）　"},
    {FormCase::Always, 6, " To : 標準温度（参考値=20）"},
    {FormCase::Always, 7, " J  : 軸力の考慮　する=0 , しない=1"},
};

inline constexpr std::string_view kRatios = " λi,λj : 剛域長比\n         （ 0≦λi,λj＜1 かつ λi+λj＜1 ）";
inline constexpr ColumnTip kRigidZoneTips[] = {
    {FormCase::Always, 2, kRatios},
    {FormCase::Always, 3, kRatios},
};

inline constexpr ColumnTip kSpringTips[] = {
    {FormCase::Frame, 2, " K-x : Ｘ方向のバネ定数"},
    {FormCase::Frame, 3, " K-y : Ｙ方向のバネ定数"},
    {FormCase::Frame, 4, " K-θ: 回転のバネ定数"},
};

inline constexpr ColumnTip kForcedTips[] = {
    {FormCase::Always, 3, " S-X : Ｘ方向の強制変位"},
    {FormCase::Always, 4, " S-Y : Ｙ方向の強制変位"},
    {FormCase::Always, 5, " S-θ: 回転の強制変位"},
};

inline constexpr ColumnTip kGroupTips[] = {
    {FormCase::Always, 1, " 同一変形する節点番号を入力します"},
};

inline constexpr ColumnTip kMagnificationTips[] = {
    {FormCase::Always, 1, " フレーム倍率範囲を、Ｘ座標で入力します"},
    {FormCase::Always, 2, " フレーム倍率範囲を、Ｘ座標で入力します"},
    {FormCase::Always, 3, "フレーム倍率"},
};

}  // namespace zorlan::form_data

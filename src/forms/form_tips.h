// What the columns' values mean where the page of the input help doesn't say it of the column as it is, for
// table_forms.cpp.
#pragma once

#include <optional>

#include "forms/table_form.h"
#include "sections/section_kinds.h"

namespace zorlan::form_data {

inline constexpr std::string_view kRollerSupport =
    "境界条件　自　　由   ：０\n　　　　　拘　　束   ：１\n　　　　　バネ支持   ：２\n　　　　　傾斜ﾛｰﾗ支持：４ -- 傾斜ﾛｰﾗ角度を入力する\nＵ：水平方向　Ｖ：鉛直方向　θ：回転";
inline constexpr std::string_view kFrameSupport =
    "境界条件　自　　由   ：０\n　　　　　拘　　束   ：１\n　　　　　バネ支持   ：２\nＵ：水平方向　Ｖ：鉛直方向　θ：回転";
inline constexpr std::string_view kGridSupport =
    "境界条件　自　　由：０\n　　　　　拘　　束：１\n　　　　　バネ支持：２\nＷ：Ｚ軸方向　θx：Ｘ軸回り　θy：Ｙ軸回り";
inline constexpr ColumnTip kNodeTips[] = {
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
inline constexpr ColumnTip kSectionTips[] = {
    {FormCase::Always, 2, {}, SectionTypeTip},     {FormCase::Always, 3, {}, SectionFieldTip<1>},
    {FormCase::Always, 4, {}, SectionFieldTip<2>}, {FormCase::Always, 5, {}, SectionFieldTip<3>},
    {FormCase::Always, 6, {}, SectionFieldTip<4>},
};

inline constexpr std::string_view kLoadUnitsGravitational =
    "TYPE\n０：(t/m)\n１～９：(t)\n１０：(t/m2)\n１４：(t/m)\n１５：(t/m)\n１６：(t/m2)\n１７：(t/m2)\n"
    "１８：(t/m2)";
inline constexpr std::string_view kLoadUnitsSi =
    "TYPE\n０：(kN/m)\n１～９：(kN)\n１０：(kN/m2)\n１４：(kN/m)\n１５：(kN/m)\n１６：(kN/m2)\n"
    "１７：(kN/m2)\n１８：(kN/m2)";
inline constexpr ColumnTip kElementLoadTips[] = {
    {FormCase::Gravitational, 3, kLoadUnitsGravitational},
    {FormCase::Si, 3, kLoadUnitsSi},
};

inline constexpr ColumnTip kSpringTips[] = {
    {FormCase::Frame, 2, " K-x : Ｘ方向のバネ定数"},
    {FormCase::Frame, 3, " K-y : Ｙ方向のバネ定数"},
    {FormCase::Frame, 4, " K-θ: 回転のバネ定数"},
};

inline constexpr ColumnTip kMagnificationTips[] = {
    {FormCase::Always, 3, "フレーム倍率"},
};

}  // namespace zorlan::form_data

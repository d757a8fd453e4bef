// Row checks of the table forms, for table_forms.cpp. They are tried behind the tests of the key, column by
// column and in this order within one; the first that fails is the one shown.
#pragma once

#include <algorithm>
#include <initializer_list>

#include "forms/table_form.h"

namespace zorlan::form_data {

inline bool IsOneOf(double value, std::initializer_list<double> codes) {
  return std::ranges::find(codes, value) != codes.end();
}
template <int column>
bool IsGiven(const RowView& row) {
  return !row.Blank(column);
}
template <int column>
bool IsZeroOrOne(const RowView& row) {
  return IsOneOf(row.Real(column), {0, 1});
}
template <int column>
bool IsSupportCode(const RowView& row) {
  return IsOneOf(row.Real(column), {kFree, kFixed, kSpring});
}
template <int column>
bool IsRollerCode(const RowView& row) {
  return IsOneOf(row.Real(column), {kFree, kFixed, kSpring, kInclinedRoller});
}
/// With an angle, U and V are inclined and θ is free or fixed.
template <int column>
bool SuitsAngle(const RowView& row) {
  if (row.Real(7) == 0) return true;
  return column < 6 ? IsOneOf(row.Real(column), {kInclinedRoller})
                    : IsOneOf(row.Real(column), {kFree, kFixed});
}
template <int column>
bool IsRatio(const RowView& row) {
  return row.Real(column) >= 0 && row.Real(column) < 1;
}

inline constexpr std::string_view kGridCodes = "０：自由　１：拘束　２：バネ支支持　のみ入力可能です";
inline constexpr std::string_view kRollerCodes =
    "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です";
inline constexpr std::string_view kFrameCodes = "０：自由　１：拘束　２：バネ支持  のみ入力可能です";
inline constexpr std::string_view kAngleCodes =
    "傾斜ﾛｰﾗ支持の場合は、(U=4, V=4, θ=0) または (U=4, V=4, θ=1) を指定してください";
inline constexpr RowCheck kNodeChecks[] = {
    {FormCase::Grid, 4, IsSupportCode<4>, kGridCodes},
    {FormCase::Grid, 5, IsSupportCode<5>, kGridCodes},
    {FormCase::Grid, 6, IsSupportCode<6>, kGridCodes},
    {FormCase::Rollers, 4, IsRollerCode<4>, kRollerCodes},
    {FormCase::Rollers, 5, IsRollerCode<5>, kRollerCodes},
    {FormCase::Rollers, 6, IsRollerCode<6>, kRollerCodes},
    {FormCase::PlainFrame, 4, IsSupportCode<4>, kFrameCodes},
    {FormCase::PlainFrame, 5, IsSupportCode<5>, kFrameCodes},
    {FormCase::PlainFrame, 6, IsSupportCode<6>, kFrameCodes},
    {FormCase::Rollers, 4, SuitsAngle<4>, kAngleCodes, 7},
    {FormCase::Rollers, 5, SuitsAngle<5>, kAngleCodes, 7},
    {FormCase::Rollers, 6, SuitsAngle<6>, kAngleCodes, 7},
};

inline constexpr std::string_view kEndConditions = "節点条件は、０：剛　１：ピン　のみ入力可能です";
inline constexpr RowCheck kElementChecks[] = {
    {FormCase::Always, 4, IsZeroOrOne<4>, kEndConditions},
    {FormCase::Always, 5, IsZeroOrOne<5>, kEndConditions},
};

inline bool IsSectionType(const RowView& row) {
  return row.Real(2) >= 0 && row.Real(2) <= 12;
}
inline constexpr RowCheck kSectionChecks[] = {
    {FormCase::Always, 2, IsSectionType, "鋼材のﾀｲﾌﾟ番号は、０～１２のみ入力可能です"},
};
inline bool IsDirectInput(const RowView& row) {
  return row.Real(2) == 0;
}
inline constexpr RowFix kSectionFixes[] = {
    {7, IsDirectInput, "1.0"},  // φ
};
inline bool IsWeakBox(const RowView& row) {
  return row.Real(2) == 6;
}
/// "3行目 □-200x100x6x6 は弱軸指定のため、..."
inline std::string WeakBoxQuestion(const RowView& row) {
  std::string sizes;
  for (int column = 3; column <= 6; ++column) {
    if (row.Blank(column)) continue;
    if (!sizes.empty()) sizes += "x";
    sizes += row.Text(column);
  }
  return std::to_string(row.Row()) + "行目 " + "□-" + sizes +
         "\n は弱軸指定のため、X,Yの断面性能が入替わり、強軸になります\n良いですか？";
}
inline constexpr RowQuestion kSectionQuestions[] = {
    {2, IsWeakBox, WeakBoxQuestion},
};

inline bool IsLoadType(const RowView& row) {
  return row.Real(3) >= 0 && row.Real(3) <= 18;
}
inline bool IsInElementAxes(const RowView& row) {
  return row.Real(6) == 0;
}
/// Only some load types can be given along the global horizontal.
inline bool IsLoadAxis(const RowView& row) {
  const double type = row.Real(3);
  const bool horizontal = type <= 9 || type == 16 || type == 17;
  return horizontal ? IsOneOf(row.Real(6), {0, 1, 2}) : IsOneOf(row.Real(6), {0, 1});
}
inline constexpr RowCheck kElementLoadChecks[] = {
    {FormCase::Always, 3, IsLoadType, "荷重タイプが入力範囲外です"},
    {FormCase::Grid, 6, IsInElementAxes, "平面格子解析の場合、ＭＧ＝０（部材座標系）のみ"},
    {FormCase::Always, 6, IsLoadAxis, "ＭＧが入力範囲外です"},
};
inline constexpr NewRowText kElementLoadNewRow = {5, "1.0"};  // K

inline constexpr RowCheck kCmqLoadChecks[] = {
    {FormCase::Always, 7, IsZeroOrOne<7>, "ＭＧが入力範囲外です"},
};

inline constexpr RowCheck kTemperatureLoadChecks[] = {
    {FormCase::Always, 7, IsZeroOrOne<7>, "Ｊが入力範囲外です"},
};

inline bool LeavesASpan(const RowView& row) {
  return row.Real(2) + row.Real(3) < 1;
}
inline constexpr RowCheck kRigidZoneChecks[] = {
    {FormCase::Always, 2, IsRatio<2>, "λｉが入力範囲外です"},
    {FormCase::Always, 3, IsRatio<3>, "λｊが入力範囲外です"},
    {FormCase::Always, 3, LeavesASpan, "λｉ＋λｊ＜１"},
};

inline bool IsLoadCase(const RowView& row) {
  return row.Real(2) >= 1 && row.Real(2) <= row.Setting().maxLoadCase;
}
inline constexpr RowCheck kForcedChecks[] = {
    {FormCase::Always, 2, IsGiven<2>, "荷重ケースは省略できません"},
    {FormCase::Always, 2, IsLoadCase, "荷重ケースが入力範囲外です"},
};

inline constexpr RowCheck kMagnificationChecks[] = {
    {FormCase::Always, 1, IsGiven<1>, "Ｘ１は省略できません"},
    {FormCase::Always, 2, IsGiven<2>, "Ｘ２は省略できません"},
    {FormCase::Always, 3, IsGiven<3>, "倍率αは省略できません"},
};

}  // namespace zorlan::form_data

// Header texts and masks of the table forms, for table_forms.cpp.
#pragma once

#include "forms/table_form.h"

namespace zorlan::form_data {

inline constexpr HeaderText kNodeHeaders[] = {
    {FormCase::Grid, {{{">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｗ      |>θｘ    |>θｙ    "}}}},
    {FormCase::Rollers,
     {{{">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｕ      |>Ｖ      |>θ      |>傾斜ﾛｰﾗ角度"}}}},
    {FormCase::PlainFrame, {{{">番号  |>節点番号|>Ｘ座標  |>Ｙ座標  |>Ｕ      |>Ｖ      |>θ      "}}}},
};
inline constexpr std::string_view kNodeMasks[] = {kDigits, kReal, kReal, kDigits, kDigits, kDigits, kDecimal};

inline constexpr HeaderText kElementHeaders[] = {
    {FormCase::Always,
     {{{">番号  |>要素番号|>Ｉ端    |>Ｊ端    |>Ｉ端節点条件|>Ｊ端節点条件|>断面番号|>剛域タイプ番号"}}}},
};
inline constexpr std::string_view kElementMasks[] = {kDigits, kDigits, kDigits, kDigits,
                                                     kDigits, kDigits, kDigits};

inline constexpr HeaderText kSectionHeaders[] = {
    {FormCase::Gravitational,
     {{{">番号  |>断面番号|>タイプ番号|>Ｐ１      |>Ｐ２      |>Ｐ３      |>Ｐ４      |>Φ        |>Ｅ(t/cm2) |>Ｇ(t/cm2) |>木材断面名称 |>樹種名称　　"}}}},
    {FormCase::Si,
     {{{">番号  |>断面番号|>タイプ番号|>Ｐ１      |>Ｐ２      |>Ｐ３      |>Ｐ４      |>Φ        |>Ｅ(N/mm2) |>Ｇ(N/mm2) |>木材断面名称 |>樹種名称　　"}}}},
};
inline constexpr std::string_view kSectionMasks[] = {kDigits, kDigits, kReal, kReal,    kReal,   kReal,
                                                     kReal,   kReal,   kReal, kAnyText, kAnyText};

inline constexpr HeaderText kNodalLoadHeaders[] = {
    {FormCase::Frame,
     {{{">番号  |>節点番号|>ＦＸ", HeaderUnit::Force},
       {"|>ＦＹ", HeaderUnit::Force},
       {"|>ＭＺ", HeaderUnit::Moment}}}},
    {FormCase::Grid,
     {{{">番号  |>節点番号|>ＦＺ", HeaderUnit::Force},
       {"|>ＭＸ", HeaderUnit::Moment},
       {"|>ＭＹ", HeaderUnit::Moment}}}},
};

inline constexpr HeaderText kElementLoadHeaders[] = {
    {FormCase::Always, {{{">番号  |>要素番号|>荷重Ｐ    |>荷重タイプ|>Ｌｙ    |>Ｋ      |>ＭＧ    "}}}},
};
inline constexpr std::string_view kElementLoadMasks[] = {kDigits, kReal, kDigits, kReal, kReal, kDigits};

inline constexpr HeaderText kCmqLoadHeaders[] = {
    {FormCase::Always, {{{">番号  |>要素番号|>Ｃｉ    |>Ｍｏ    |>Ｃｊ    |>Ｑｉ    |>Ｑｊ    |>ＭＧ    "}}}},
};
inline constexpr std::string_view kCmqLoadMasks[] = {kDigits, kReal, kReal, kReal, kReal, kReal, kDigits};

inline constexpr HeaderText kTemperatureLoadHeaders[] = {
    {FormCase::Always, {{{">番号  |>要素番号|>Ｙ１(cm)|>Ｔ１(℃)|>Ｔ２(℃)|>α(1/℃)|>Ｔｏ(℃)|>Ｊ      "}}}},
};
inline constexpr std::string_view kTemperatureLoadMasks[] = {kDigits, kReal, kReal,  kReal,
                                                             kReal,   kReal, kDigits};

inline constexpr HeaderText kRigidZoneHeaders[] = {
    {FormCase::Always, {{{">番号  |>剛域タイプ番号|>λｉ    |>λｊ    "}}}},
};
inline constexpr std::string_view kRigidZoneMasks[] = {kDigits, kReal, kReal};

inline constexpr HeaderText kSpringHeaders[] = {
    {FormCase::Frame,
     {{{">番号  |>節点番号|>Ｋｘ ", HeaderUnit::Spring},
       {"|>Ｋｙ ", HeaderUnit::Spring},
       {"|>Ｋθ ", HeaderUnit::RotarySpring}}}},
    {FormCase::Grid,
     {{{">番号  |>節点番号|>Ｋｚ ", HeaderUnit::Spring},
       {"|>Ｋθx", HeaderUnit::RotarySpring},
       {"|>Ｋθy", HeaderUnit::RotarySpring}}}},
};
/// The key and three values: nodal loads, springs.
inline constexpr std::string_view kThreeValueMasks[] = {kDigits, kReal, kReal, kReal};

inline constexpr HeaderText kForcedHeaders[] = {
    {FormCase::Always,
     {{{">番号  |>節点番号|>荷重ケース|>S-x ", HeaderUnit::Length},
       {"|>S-y ", HeaderUnit::Length},
       {"|>S-θ ", HeaderUnit::Angle}}}},
};
inline constexpr std::string_view kForcedMasks[] = {kDigits, kDigits, kReal, kReal, kReal};

inline constexpr HeaderText kGroupHeaders[] = {
    {FormCase::Always, {{{">番号  |>節点番号"}}}},
};
inline constexpr std::string_view kGroupMasks[] = {kDigits};

inline constexpr HeaderText kMagnificationHeaders[] = {
    {FormCase::Always, {{{">番号  |>Ｘ１      |>Ｘ２      |>倍率α    "}}}},
};
inline constexpr std::string_view kMagnificationMasks[] = {kReal, kReal, kReal};

}  // namespace zorlan::form_data

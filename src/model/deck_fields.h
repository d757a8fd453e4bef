// What the rows of a deck's sections hold, as ReadDeck takes them.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "model/deck.h"

namespace zorlan {

/// A number in a row.
struct DeckField {
  std::string_view name;
  bool whole;         // its decimals are cut off
  double ifZero = 0;  // what a 0 stands for
};
constexpr DeckField WholeField(std::string_view name) {
  return {name, true};
}
constexpr DeckField RealField(std::string_view name, double ifZero = 0) {
  return {name, false, ifZero};
}

inline constexpr DeckField kControlNumbers[] = {WholeField("解析モデル番号"), WholeField("最大荷重ケース"),
                                                WholeField("入力リスト出力"), WholeField("傾斜ローラー")};
inline constexpr DeckField kUnitNumbers[] = {WholeField("入力単位"), WholeField("出力単位"),
                                             RealField("ＳＩ単位変換係数", kStandardGravity),
                                             WholeField("力の単位")};
inline constexpr DeckField kNodeNumbers[] = {
    WholeField("節点番号"),   RealField("Ｘ座標"),      RealField("Ｙ座標"),      WholeField("支持条件１"),
    WholeField("支持条件２"), WholeField("支持条件３"), RealField("ローラー角度")};
inline constexpr DeckField kElementNumbers[] = {
    WholeField("要素番号"), WholeField("Ｉ端節点"), WholeField("Ｊ端節点"),      WholeField("Ｉ端条件"),
    WholeField("Ｊ端条件"), WholeField("断面番号"), WholeField("剛域タイプ番号")};
inline constexpr DeckField kSectionNumbers[] = {WholeField("断面番号"), WholeField("TYPE"), RealField("P1"),
                                                RealField("P2"),        RealField("P3"),    RealField("P4"),
                                                RealField("φ"),         RealField("E"),     RealField("G")};
inline constexpr DeckField kNodalLoadNumbers[] = {WholeField("荷重ケース"), WholeField("節点番号"),
                                                  RealField("荷重１"), RealField("荷重２"),
                                                  RealField("荷重３")};
inline constexpr DeckField kElementLoadNumbers[] = {
    WholeField("荷重ケース"), WholeField("要素番号"), RealField("P"),  WholeField("TYPE"),
    RealField("Ly"),          RealField("K", 1),      WholeField("MG")};
inline constexpr DeckField kCmqNumbers[] = {WholeField("荷重ケース"), WholeField("要素番号"), RealField("Ci"),
                                            RealField("Mo"),          RealField("Cj"),        RealField("Qi"),
                                            RealField("Qj"),          WholeField("MG")};
inline constexpr DeckField kTemperatureNumbers[] = {
    WholeField("荷重ケース"), WholeField("要素番号"), RealField("Y1"), RealField("T1"),
    RealField("T2"),          RealField("α"),         RealField("To"), WholeField("J")};
inline constexpr DeckField kRigidZoneNumbers[] = {WholeField("剛域タイプ番号"), RealField("λｉ"),
                                                  RealField("λｊ")};
inline constexpr DeckField kGroupNumbers[] = {WholeField("グループ番号"), WholeField("節点番号")};
inline constexpr DeckField kSpringNumbers[] = {WholeField("節点番号"), RealField("ばね定数１"),
                                               RealField("ばね定数２"), RealField("ばね定数３")};
inline constexpr DeckField kForcedNumbers[] = {WholeField("節点番号"), WholeField("荷重ケース"),
                                               RealField("強制変位１"), RealField("強制変位２"),
                                               RealField("強制変位３")};
inline constexpr DeckField kMagnificationNumbers[] = {RealField("X1"), RealField("X2"), RealField("倍率")};

/// A section whose rows are numbers: how many fields a row needs and may have, and the numbers in front of
/// it. In DISP the last one stands for all that follow.
struct DeckSection {
  std::string_view name;
  int minFields, maxFields;
  std::span<const DeckField> numbers;
  bool lastRepeats = false;

  constexpr bool Takes(int fieldCount) const { return fieldCount >= minFields && fieldCount <= maxFields; }
};
inline constexpr std::array kDeckSections = {
    DeckSection{"CONT", 0, kMaxFields, kControlNumbers},
    DeckSection{"UNIT", 0, kMaxFields, kUnitNumbers},
    DeckSection{"NODE", 6, 7, kNodeNumbers},
    DeckSection{"ELEM", 6, kMaxFields, kElementNumbers},
    DeckSection{"SECT", 9, kMaxFields, kSectionNumbers},
    DeckSection{"PLOD", 3, kMaxFields, kNodalLoadNumbers},
    DeckSection{"ELOD", 6, kMaxFields, kElementLoadNumbers},
    DeckSection{"CLOD", 3, kMaxFields, kCmqNumbers},
    DeckSection{"TLOD", 7, kMaxFields, kTemperatureNumbers},
    DeckSection{"RIGD", 2, kMaxFields, kRigidZoneNumbers},
    DeckSection{"DISP", 0, kMaxFields, kGroupNumbers, /*lastRepeats=*/true},
    DeckSection{"SPRG", 2, kMaxFields, kSpringNumbers},
    DeckSection{"SPEC", 2, kMaxFields, kForcedNumbers},
    DeckSection{"ALFA", 3, 3, kMagnificationNumbers},
};

/// The section of a name; null for the titles and for a name that isn't known.
constexpr const DeckSection* FindDeckSection(std::string_view name) {
  for (const DeckSection& section : kDeckSections)
    if (section.name == name) return &section;
  return nullptr;
}

}  // namespace zorlan

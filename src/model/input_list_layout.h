// The layout of the input data list as data: the heads and the columns of each block. input_list.cpp
// interprets it.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "base/number_format.h"

namespace zorlan::input_list {

/// One column of a block: a cell by a pattern, as a real or as the whole number that is read from it, a cell
/// as it was typed, or a text between cells.
struct ListColumn {
  enum class Kind { Number, Whole, Typed, Sign } kind;
  int cell;               // from 1
  NumberPattern pattern;  // its length is the column's width
  int width;              // of a typed cell
};
constexpr ListColumn Number(int cell, NumberPattern pattern) {
  return {ListColumn::Kind::Number, cell, pattern, 0};
}
constexpr ListColumn WholeNumber(int cell, NumberPattern pattern) {
  return {ListColumn::Kind::Whole, cell, pattern, 0};
}
constexpr ListColumn Typed(int cell, int width) {
  return {ListColumn::Kind::Typed, cell, "", width};
}
constexpr ListColumn Sign(std::string_view text) {
  return {ListColumn::Kind::Sign, 0, text, 0};
}

/// The lines above a block's rows. The line of units stands for gravitational and for SI input; empty: there
/// is none.
struct ListHead {
  std::string_view names;
  std::array<std::string_view, 2> units;
};

/// A block of the list: what is above its rows in frames and in the grid, and the columns.
struct ListBlock {
  ListHead frame;
  ListHead grid;
  std::span<const ListColumn> columns;
};
constexpr ListBlock InEveryModel(const ListHead& head, std::span<const ListColumn> columns) {
  return {head, head, columns};
}

// Nodes. The spring constants stand behind the node's own cells (AppendSprings).
inline constexpr int kNodeCells = 7, kSpringCells = 3;
inline constexpr ListColumn kNodeColumns[] = {
    WholeNumber(1, "###0"), Number(2, "  ##0.000"), Number(3, "  ##0.000"),
    WholeNumber(4, "   0"), WholeNumber(5, "   0"), WholeNumber(6, "   0"),
    Typed(8, 14),           Typed(9, 14),           Typed(10, 14),
};
inline constexpr ListBlock kNodes = {
    {"NODE     XX       YY     U   V   θ         K-x           K-y          K-θ",
     {"        (m)      (m)                      (t/cm)        (t/cm)    (t*cm/rad)",
      "        (m)      (m)                     (kN/mm)       (kN/mm)   (kN*mm/rad)"}},
    {"NODE     XX       YY     W θx θy          K-z         K-θx         K-θy",
     {"        (m)      (m)                      (t/cm)    (t*cm/rad)    (t*cm/rad)",
      "        (m)      (m)                     (kN/mm)   (kN*mm/rad)   (kN*mm/rad)"}},
    kNodeColumns,
};

inline constexpr std::string_view kGroupHead = "GROUP  SAME DISP-U NODE";
inline constexpr NumberPattern kGroupNumber = " ###0", kGroupNode = "####0 ";
inline constexpr int kGroupNodesInLine = 10;
inline constexpr std::string_view kGroupIndent = "     ";

inline constexpr ListColumn kMagnificationColumns[] = {Sign("    "), Number(1, "  ##0.000"),
                                                       Number(2, "  ##0.000"), Number(3, "  #0.00")};
inline constexpr ListBlock kMagnifications = InEveryModel(
    {"MAGF    X1       X2      α ", {"       (m)      (m)        ", "       (m)      (m)        "}},
    kMagnificationColumns);

// Elements. The length stands behind the element's own cells (AppendLength).
inline constexpr int kElementCells = 7;
inline constexpr ListColumn kElementColumns[] = {
    WholeNumber(1, "###0"), WholeNumber(2, "  ###0"), WholeNumber(3, "  ###0"), WholeNumber(4, "  #0"),
    WholeNumber(5, "  #0"), WholeNumber(6, "  ###0"), WholeNumber(7, "  ###0"), Number(8, "  ##0.000"),
};
inline constexpr ListBlock kElements = InEveryModel(
    {"ELEM     I     J  II  JJ  MATE  RIGI   LENGTH",
     {"                                         (m)", "                                         (m)"}},
    kElementColumns);

inline constexpr ListColumn kRigidZoneColumns[] = {WholeNumber(1, "###0"), Number(2, "  ##0.000"),
                                                   Number(3, "  ##0.000")};
inline constexpr ListBlock kRigidZones = InEveryModel({"RIGI     λi      λj", {}}, kRigidZoneColumns);

// Sections. Cells: number, TYPE, P1 to P4, φ, E, G.
inline constexpr NumberPattern kSectionNumber = "###0";
inline constexpr ListColumn kDirectColumns[] = {
    WholeNumber(1, kSectionNumber), Number(3, "  ####0.0"), Number(4, " ##########0"),
    Number(6, "  ####0.0"),         Typed(8, 10),           Typed(9, 10)};
inline constexpr ListColumn kRectangleColumns[] = {
    WholeNumber(1, kSectionNumber), Number(3, "  ##0.0"), Number(4, "  ##0.0"), Number(5, "  #0.00"),
    Number(6, "  ####0.0"),         Number(7, "  #0.00"), Typed(8, 10),         Typed(9, 10)};
inline constexpr ListColumn kPipeColumns[] = {
    WholeNumber(1, kSectionNumber), Sign("  P-"), Number(3, "####0"), Number(4, " ###0.0"),
    Number(7, "  #0.00"),           Typed(8, 10), Typed(9, 10)};
/// A shape of plates: four sizes behind the sign of the shape.
constexpr std::array<ListColumn, 9> PlateColumns(std::string_view sign) {
  return {WholeNumber(1, kSectionNumber),
          Sign(sign),
          Number(3, " ####0"),
          Number(4, " ####0"),
          Number(5, " ###0.0"),
          Number(6, " ###0.0"),
          Number(7, "  #0.00"),
          Typed(8, 10),
          Typed(9, 10)};
}
inline constexpr std::array kHColumns = PlateColumns("  H-");
inline constexpr std::array kBoxColumns = PlateColumns("  B-");
inline constexpr std::array kChannelColumns = PlateColumns("  ［-");
inline constexpr std::array kAngleColumns = PlateColumns("  Ｌ-");

/// The sections that stand under one head: bit t of `types` stands for TYPE t.
struct SectionBlock {
  unsigned types;
  ListBlock block;
};
constexpr unsigned Type(unsigned type) {
  return 1U << type;
}
constexpr bool ShowsType(const SectionBlock& block, int type) {
  return type >= 0 && type < 32 && (block.types >> type & 1U) != 0;
}
inline constexpr std::array<std::string_view, 2> kPlateUnits = {
    "        (mm)  (mm)   (mm)   (mm)          (t/cm2)   (t/cm2)",
    "        (mm)  (mm)   (mm)   (mm)          (N/mm2)   (N/mm2)"};
constexpr ListBlock PlateBlock(std::string_view names, std::span<const ListColumn> columns) {
  return InEveryModel({names, kPlateUnits}, columns);
}
inline constexpr SectionBlock kSections[] = {
    {Type(0), InEveryModel({"MATE     A         J          As       E         G      ［直接入力］",
                            {"       (cm2)     (cm4)      (cm2)   (t/cm2)   (t/cm2)",
                             "       (cm2)     (cm4)      (cm2)   (N/mm2)   (N/mm2)"}},
                           kDirectColumns)},
    {Type(1) | Type(7) | Type(8),
     InEveryModel({"MATE    B      D      κ      As     φ       E         G      ［ＢｘＤ入力］",
                   {"      (cm)   (cm)           (cm2)          (t/cm2)   (t/cm2)",
                    "      (cm)   (cm)           (cm2)          (N/mm2)   (N/mm2)"}},
                  kRectangleColumns)},
    {Type(2),
     PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［Ｈ形鋼(強軸)］", kHColumns)},
    {Type(3),
     PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［□形鋼(強軸)］", kBoxColumns)},
    {Type(4), InEveryModel({"MATE      D     T      φ       E         G      ［○形鋼］",
                            {"        (mm)  (mm)           (t/cm2)   (t/cm2)",
                             "        (mm)  (mm)           (N/mm2)   (N/mm2)"}},
                           kPipeColumns)},
    {Type(5),
     PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［Ｈ形鋼(弱軸)］", kHColumns)},
    {Type(6),
     PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［□形鋼(弱軸)］", kBoxColumns)},
    {Type(9), PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［溝形鋼(強軸)］",
                         kChannelColumns)},
    {Type(10), PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［溝形鋼(弱軸)］",
                          kChannelColumns)},
    {Type(11), PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［山形鋼(強軸)］",
                          kAngleColumns)},
    {Type(12), PlateBlock("MATE      H     B     t1     t2     φ       E         G      ［山形鋼(弱軸)］",
                          kAngleColumns)},
};

// Loads. Cell 1 is the load case.
struct LoadBlock {
  std::string_view key, title;
  ListBlock block;
};
inline constexpr ListColumn kNodalColumns[] = {WholeNumber(2, " ###0"), Typed(3, 10), Typed(4, 10),
                                               Typed(5, 10)};
inline constexpr ListColumn kElementLoadColumns[] = {WholeNumber(2, " ###0"), Typed(3, 10),
                                                     WholeNumber(4, "   #0"), Number(5, "   #0.00"),
                                                     Number(6, "  #0.0"),     WholeNumber(7, "   0")};
inline constexpr ListColumn kCmqColumns[] = {
    WholeNumber(2, " ###0"), Typed(3, 10), Typed(4, 10), Typed(5, 10), Typed(6, 10), Typed(7, 10),
    WholeNumber(8, "   0")};
inline constexpr ListColumn kTemperatureColumns[] = {
    WholeNumber(2, " ###0"),   Number(3, "  ##0.0"),  Number(4, "  ###0.0"), Number(5, "  ###0.0"),
    Number(6, "  #0.0000000"), Number(7, "  ###0.0"), WholeNumber(8, "  #0")};
inline constexpr LoadBlock kLoads[] = {
    {"PLOD",
     " NODAL POINT LOADS",
     {{" NODE      F-X       F-Y       M-Z",
       {"           (t)       (t)      (t*m)", "          (kN)      (kN)     (kN*m)"}},
      {" NODE      F-Z       M-X       M-Y",
       {"           (t)     (t*m)      (t*m)", "          (kN)    (kN*m)     (kN*m)"}},
      kNodalColumns}},
    {"ELOD", " ELEMENT LOADS",
     InEveryModel({" ELEM      P     TYPE    Ly     K   MG",
                   {"       (t / t*m)         (m)          ", "       (kN/kN*m)         (m)          "}},
                  kElementLoadColumns)},
    {"CLOD", " CMQ LOADS",
     InEveryModel({" ELEM     Ci        Mo        Cj        Qi        Qj     MG",
                   {"        (t*m)     (t*m)     (t*m)      (t)       (t)       ",
                    "       (kN*m)    (kN*m)    (kN*m)     (kN)      (kN)       "}},
                  kCmqColumns)},
    {"TLOD", " TEMP LOADS",
     InEveryModel({" ELEM    Y1     T1      T2        α        To     J",
                   {"        (cm)   (ﾟC)    (ﾟC)     (1/ﾟC)     (ﾟC)     ",
                    "        (cm)   (ﾟC)    (ﾟC)     (1/ﾟC)     (ﾟC)     "}},
                  kTemperatureColumns)},
};

}  // namespace zorlan::input_list

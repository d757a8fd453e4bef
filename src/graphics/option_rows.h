// The rows of the option sets as data: default text, what each field is, and what it may be. The dialogs show
// a widget for every field by it, and the draw routines read the fields by it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "graphics/figure_options.h"
#include "graphics/plot_target.h"

namespace zorlan {

/// What a field of a row is.
enum class OptionPart : std::uint8_t {
  Name,     // of the row; not edited
  Lower,    // of a ratio class: its lower bound, included; not edited
  Upper,    // its upper bound, or empty for none; not edited
  Font,     // "ＭＳ ゴシック(8pt)"
  Width,    // "1dot"; of the node: the size of its circle
  Style,    // "実線" ...
  Colour,   // "&H0000FF"
  Visible,  // "ON", "OFF"
  Mark,     // "1": a mark around the number, "0": none
};

/// Which option of a figure a row sets: a text, a line, or a class of ratios by its index.
using OptionTarget = std::variant<TextOption FigureOptions::*, LineOption FigureOptions::*, std::size_t>;

/// A row: its default, its fields in order, and what it sets. A field that is empty in the default isn't
/// offered, apart from an upper bound.
struct OptionRow {
  std::string_view text;
  std::span<const OptionPart> parts;
  OptionTarget target;
  std::string_view markCaption{};  // beside the check box of the mark
};

inline constexpr std::array kTextParts = {OptionPart::Name, OptionPart::Font, OptionPart::Colour,
                                          OptionPart::Visible};
inline constexpr std::array kMarkedTextParts = {OptionPart::Name, OptionPart::Font, OptionPart::Colour,
                                                OptionPart::Visible, OptionPart::Mark};
inline constexpr std::array kLineParts = {OptionPart::Name, OptionPart::Width, OptionPart::Style,
                                          OptionPart::Colour, OptionPart::Visible};
inline constexpr std::array kClassParts = {OptionPart::Lower, OptionPart::Upper,  OptionPart::Width,
                                           OptionPart::Style, OptionPart::Colour, OptionPart::Visible};

inline constexpr std::string_view kElementMark = "要素番号に○をつける", kSectionMark = "断面番号に□をつける";

inline constexpr std::array kModelRows = {
    OptionRow{"節点番号,ＭＳ ゴシック(8pt),&H000000,ON", kTextParts, &FigureOptions::nodeNumber},
    OptionRow{"要素番号,ＭＳ ゴシック(8pt),,ON,0", kMarkedTextParts, &FigureOptions::elementNumber,
              kElementMark},
    OptionRow{"節点,1dot,,&H000000,ON", kLineParts, &FigureOptions::node},
    OptionRow{"要素,1dot,実線,&H0000FF,ON", kLineParts, &FigureOptions::element},
    OptionRow{"節点荷重,1dot,実線,&H0000FF,ON", kLineParts, &FigureOptions::nodalLoad},
    OptionRow{"要素荷重,1dot,実線,&H0000FF,ON", kLineParts, &FigureOptions::elementLoad},
    OptionRow{"節点荷重,ＭＳ ゴシック(8pt),,ON", kTextParts, &FigureOptions::loadValue},
    OptionRow{"断面番号,ＭＳ ゴシック(8pt),,ON,1", kMarkedTextParts, &FigureOptions::sectionNumber,
              kSectionMark},
};

inline constexpr std::array kDesignRows = {
    OptionRow{"節点番号,ＭＳ ゴシック(8pt),&H000000,ON", kTextParts, &FigureOptions::nodeNumber},
    OptionRow{"要素番号,ＭＳ ゴシック(8pt),,ON,0", kMarkedTextParts, &FigureOptions::elementNumber,
              kElementMark},
    OptionRow{"節点,1dot,,&H000000,ON", kLineParts, &FigureOptions::node},
    OptionRow{"要素,1dot,実線,&H000000,ON", kLineParts, &FigureOptions::element},
    OptionRow{"1.0,,1dot,実線,&H0000FF,ON", kClassParts, std::size_t{0}},
    OptionRow{"0.9,1.0,1dot,実線,&H00FFFF,ON", kClassParts, std::size_t{1}},
    OptionRow{"0.5,0.9,1dot,実線,&H00FF00,ON", kClassParts, std::size_t{2}},
    OptionRow{"0.3,0.5,1dot,実線,&HFF0000,ON", kClassParts, std::size_t{3}},
    OptionRow{"0.0,0.3,1dot,実線,&H000000,ON", kClassParts, std::size_t{4}},
    OptionRow{"0.0,,1dot,実線,&H000000,ON", kClassParts, std::size_t{5}},
    OptionRow{"断面番号,ＭＳ ゴシック(8pt),,OFF,0", kMarkedTextParts, &FigureOptions::sectionNumber,
              kSectionMark},
};

inline constexpr std::array kAnalysisRows = {
    OptionRow{"節点番号,ＭＳ ゴシック(8pt),&H000000,OFF", kTextParts, &FigureOptions::nodeNumber},
    OptionRow{"要素番号,ＭＳ ゴシック(8pt),,OFF,0", kMarkedTextParts, &FigureOptions::elementNumber,
              kElementMark},
    OptionRow{"節点,1dot,,&H000000,ON", kLineParts, &FigureOptions::node},
    OptionRow{"要素,1dot,実線,&H000000,ON", kLineParts, &FigureOptions::element},
    OptionRow{"変位,1dot,実線,&HFF0000,ON", kLineParts, &FigureOptions::displacement},
    OptionRow{"軸力,ＭＳ ゴシック(8pt),&H000000,ON", kTextParts, &FigureOptions::axialValue},
    OptionRow{"せん断力,1dot,実線,&HFF0000,ON", kLineParts, &FigureOptions::shear},
    OptionRow{"せん断力量,ＭＳ ゴシック(8pt),&H000000,ON", kTextParts, &FigureOptions::shearValue},
    OptionRow{"ﾓｰﾒﾝﾄ,1dot,実線,&H0000FF,ON", kLineParts, &FigureOptions::moment},
    OptionRow{"ﾓｰﾒﾝﾄ量,ＭＳ ゴシック(8pt),&H000000,ON", kTextParts, &FigureOptions::momentValue},
    OptionRow{"断面番号,ＭＳ ゴシック(8pt),,OFF,0", kMarkedTextParts, &FigureOptions::sectionNumber,
              kSectionMark},
};

// What the dialogs say and their combos offer.
inline constexpr std::string_view kResetQuestion = "設定を初期化してよろしいですか？";
inline constexpr std::array<std::string_view, 2> kVisibleChoices = {"ON", "OFF"};
inline constexpr std::array<std::string_view, 5> kStyleChoices = {"実線", "鎖線", "点線", "一点鎖線",
                                                                  "二点鎖線"};
inline constexpr std::array<std::string_view, 10> kWidthChoices = {"1dot", "2dot", "3dot", "4dot", "5dot",
                                                                   "6dot", "7dot", "8dot", "9dot", "10dot"};
/// The choices of a field; none for one that is typed, picked in a dialog of its own or not edited.
std::span<const std::string_view> OptionChoices(OptionPart part);

/// Heading of a column of fields in a dialog; empty: none.
std::string_view OptionHeading(OptionPart part);

/// Whether the dialog offers the field `n` (from 1) of a row.
bool IsOffered(const OptionRow& row, int n);

/// Whether a text can stand in a row's place: as many fields, the same name, and every field readable.
bool IsOptionRow(const OptionRow& row, std::string_view text);

/// The n-th field of a row, from 1; empty beyond the last.
std::string OptionField(std::string_view row, int n);
/// The row as it is written: colours and widths that are read in more than one form in their own.
std::string WrittenOptionRow(const OptionRow& row, std::string_view text);
/// The fields of a row, and the row of fields.
std::vector<std::string> OptionFields(std::string_view row);
std::string JoinOptionFields(std::span<const std::string> fields);

// Fields and their values. A field that can't be meant is nothing.

std::string OptionColourText(Rgb colour);  // "&H" and six hexadecimal digits
std::optional<Rgb> OptionColour(std::string_view field);
std::string OptionWidthText(int dots);
std::optional<int> OptionWidth(std::string_view field);  // 1 to 100
std::optional<LineStyle> OptionStyle(std::string_view field);
struct OptionFont {
  std::string face;
  double points = 0;
};
std::string OptionFontText(std::string_view face, double points);
std::optional<OptionFont> OptionFontOf(std::string_view field);
inline constexpr double kSmallestOptionFont = 1, kLargestOptionFont = 100;  // points

}  // namespace zorlan

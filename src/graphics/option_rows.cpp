#include "graphics/option_rows.h"

#include <algorithm>
#include <charconv>

#include "base/number.h"
#include "base/text.h"

namespace zorlan {
namespace {

constexpr std::string_view kColourMark = "&H", kWidthUnit = "dot", kFontOpen = "(", kFontClose = "pt)";
constexpr int kLargestWidth = 100;  // dots

/// A whole number of nothing but digits.
std::optional<int> Digits(std::string_view text, int base = 10) {
  int value = 0;
  const char* const end = text.data() + text.size();
  if (text.empty() || text[0] == '-') return std::nullopt;
  const std::from_chars_result result = std::from_chars(text.data(), end, value, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

bool IsNumber(std::string_view text) {
  return text.find_first_not_of("0123456789.") == std::string_view::npos && ReadFinite(text).has_value();
}

bool CanBe(OptionPart part, std::string_view field) {
  switch (part) {
    case OptionPart::Name:
      return true;  // compared with the row's own
    case OptionPart::Lower:
      return IsNumber(field);
    case OptionPart::Upper:
      return field.empty() || IsNumber(field);
    case OptionPart::Font:
      return OptionFontOf(field).has_value();
    case OptionPart::Width:
      return OptionWidth(field).has_value();
    case OptionPart::Style:
      return OptionStyle(field).has_value();
    case OptionPart::Colour:
      return OptionColour(field).has_value();
    case OptionPart::Visible:
      return std::find(kVisibleChoices.begin(), kVisibleChoices.end(), field) != kVisibleChoices.end();
    case OptionPart::Mark:
      return field == "0" || field == "1";
  }
  return false;
}

}  // namespace

std::span<const std::string_view> OptionChoices(OptionPart part) {
  switch (part) {
    case OptionPart::Visible:
      return kVisibleChoices;
    case OptionPart::Style:
      return kStyleChoices;
    case OptionPart::Width:
      return kWidthChoices;
    default:
      return {};
  }
}

std::string_view OptionHeading(OptionPart part) {
  switch (part) {
    case OptionPart::Lower:
      return "以上";
    case OptionPart::Upper:
      return "未満";
    case OptionPart::Font:
      return "文字";
    case OptionPart::Width:
      return "太さ";
    case OptionPart::Style:
      return "線種";
    case OptionPart::Colour:
      return "色";
    case OptionPart::Visible:
      return "表示";
    default:
      return {};
  }
}

bool IsOffered(const OptionRow& row, int n) {
  if (n < 1 || n > static_cast<int>(row.parts.size())) return false;
  const OptionPart part = row.parts[static_cast<std::size_t>(n) - 1];
  if (part == OptionPart::Name || part == OptionPart::Lower || part == OptionPart::Upper) return false;
  return !OptionField(row.text, n).empty();
}

bool IsOptionRow(const OptionRow& row, std::string_view text) {
  const std::vector<std::string> fields = OptionFields(text), defaults = OptionFields(row.text);
  if (fields.size() != defaults.size()) return false;
  for (std::size_t n = 0; n < fields.size(); ++n) {
    if (row.parts[n] == OptionPart::Name && fields[n] != defaults[n]) return false;
    if (fields[n].empty() && defaults[n].empty()) continue;
    if (!CanBe(row.parts[n], fields[n])) return false;
  }
  return true;
}

std::string WrittenOptionRow(const OptionRow& row, std::string_view text) {
  std::vector<std::string> fields = OptionFields(text);
  for (std::size_t n = 0; n < std::min(fields.size(), row.parts.size()); ++n) {
    if (row.parts[n] == OptionPart::Colour) {
      if (const std::optional<Rgb> colour = OptionColour(fields[n])) fields[n] = OptionColourText(*colour);
    } else if (row.parts[n] == OptionPart::Width) {
      if (const std::optional<int> dots = OptionWidth(fields[n])) fields[n] = OptionWidthText(*dots);
    }
  }
  return JoinOptionFields(fields);
}

std::string OptionField(std::string_view row, int n) {
  const std::vector<std::string> fields = OptionFields(row);
  return n < 1 || n > static_cast<int>(fields.size()) ? std::string()
                                                      : fields[static_cast<std::size_t>(n) - 1];
}

std::vector<std::string> OptionFields(std::string_view row) {
  std::vector<std::string> fields;
  for (std::optional<std::string_view> rest = row; rest;) fields.emplace_back(NoSpc(TakeField(rest)));
  return fields;
}

std::string JoinOptionFields(std::span<const std::string> fields) {
  std::string row;
  for (const std::string& field : fields) {
    if (&field != fields.data()) row += ',';
    row += field;
  }
  return row;
}

std::string OptionColourText(Rgb colour) {
  constexpr std::string_view kHexadecimal = "0123456789ABCDEF";
  std::string text(kColourMark);
  for (int shift = 20; shift >= 0; shift -= 4)
    text += kHexadecimal[(static_cast<std::uint32_t>(colour) >> static_cast<std::uint32_t>(shift)) & 15U];
  return text;
}

std::optional<Rgb> OptionColour(std::string_view field) {
  const std::string text = UpperCase(NoSpc(field));
  if (!text.starts_with(kColourMark) || text.size() > kColourMark.size() + 6) return std::nullopt;
  return Digits(std::string_view(text).substr(kColourMark.size()), 16);
}

std::string OptionWidthText(int dots) {
  return std::to_string(dots) + std::string(kWidthUnit);
}

std::optional<int> OptionWidth(std::string_view field) {
  const std::optional<int> dots = Digits(NoSpc(field.substr(0, field.find(kWidthUnit))));
  return dots && *dots >= 1 && *dots <= kLargestWidth ? dots : std::nullopt;
}

std::optional<LineStyle> OptionStyle(std::string_view field) {
  for (std::size_t style = 0; style < kStyleChoices.size(); ++style)
    if (field == kStyleChoices[style]) return static_cast<LineStyle>(style);
  return std::nullopt;
}

std::string OptionFontText(std::string_view face, double points) {
  return std::string(face).append(kFontOpen).append(RealText(points)).append(kFontClose);
}

std::optional<OptionFont> OptionFontOf(std::string_view field) {
  const std::size_t open = field.rfind(kFontOpen);
  if (open == std::string_view::npos || !field.ends_with(kFontClose)) return std::nullopt;
  const std::size_t first = open + kFontOpen.size(), last = field.size() - kFontClose.size();
  if (last < first || !IsNumber(field.substr(first, last - first))) return std::nullopt;
  const double points = ReadReal(field.substr(first));
  if (points < kSmallestOptionFont || points > kLargestOptionFont) return std::nullopt;
  return OptionFont{std::string(NoSpc(field.substr(0, open))), points};
}

}  // namespace zorlan

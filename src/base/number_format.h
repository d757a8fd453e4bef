// Numbers for print by patterns such as "##0.000". A number is rounded half away from zero on its decimal
// form with 15 significant digits: 2.0005 shows as 2.001, though the binary value nearest to it lies below
// the tie. No locale.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zorlan {

/// A pattern, taken apart once: "#" is a digit where there is one, "0" a digit always, "." the point, "E+00"
/// an exponent of at least so many digits with its sign ("E-00": a minus sign alone). What stands in front of
/// these and behind them stays as it is. A number with more digits before the point than the pattern shows
/// them all. Made of a literal it costs nothing at run time, so tables of columns hold patterns.
struct NumberPattern {
  // Not explicit: a table of columns is a list of texts.
  constexpr NumberPattern(std::string_view pattern);  // NOLINT(google-explicit-constructor)
  constexpr NumberPattern(const char* pattern) : NumberPattern(std::string_view(pattern)) {}  // NOLINT

  constexpr int Width() const { return static_cast<int>(text.size()); }

  std::string_view text, front, back;
  bool blankAround = true;               // front and back hold nothing but blanks
  int places = 0, minIntegers = 0;       // places before the point, and digits that always stand there
  int minDecimals = 0, maxDecimals = 0;  // digits behind the point
  int exponentDigits = 0;                // 0: no exponent
  bool exponentPlus = false;
};

/// The digits of a number as a pattern shows them: point and exponent, no sign, nothing around.
class NumberDigits {
 public:
  /// `magnitude` is 0 or above. An infinite one shows as "INF", one that is no number as "NAN".
  NumberDigits(double magnitude, const NumberPattern& pattern);

  std::string_view Text() const { return small_ == 0 ? std::string_view(large_) : SmallText(); }
  /// Whether no digit but 0 is shown.
  bool IsZero() const { return zero_; }

 private:
  static constexpr std::size_t kRoom = 32;
  std::string_view SmallText() const { return {buffer_.data() + (kRoom - small_), small_}; }
  bool TryFixed(double magnitude, const NumberPattern& pattern);
  bool TryExponent(double magnitude, const NumberPattern& pattern);

  std::array<char, kRoom> buffer_;  // its last `small_` characters are the text
  std::size_t small_ = 0;
  std::string large_;  // the text that the buffer can't take
  bool zero_ = false;
};

/// The number by the pattern. The minus sign stands in front of the first digit, and not before a number that
/// shows as 0.
std::string FormatNumber(double value, const NumberPattern& pattern);

/// The same digits by the exact road alone, which every number could take: the measure of the short one.
std::string ExactDigits(double magnitude, const NumberPattern& pattern);

constexpr NumberPattern::NumberPattern(std::string_view pattern) : text(pattern) {
  constexpr std::string_view kDigits = "#0";
  const std::size_t first = pattern.find_first_of("#0.");
  std::size_t at = first == std::string_view::npos ? pattern.size() : first;
  front = pattern.substr(0, at);
  for (; at < pattern.size() && kDigits.find(pattern[at]) != std::string_view::npos; ++at) {
    ++places;
    if (pattern[at] == '0' || minIntegers > 0) ++minIntegers;
  }
  if (at < pattern.size() && pattern[at] == '.')
    for (++at; at < pattern.size() && kDigits.find(pattern[at]) != std::string_view::npos; ++at) {
      ++maxDecimals;
      if (pattern[at] == '0') minDecimals = maxDecimals;
    }
  if (at + 2 < pattern.size() && pattern[at] == 'E' && (pattern[at + 1] == '+' || pattern[at + 1] == '-') &&
      pattern[at + 2] == '0') {
    exponentPlus = pattern[at + 1] == '+';
    for (at += 2; at < pattern.size() && pattern[at] == '0'; ++at) ++exponentDigits;
  }
  back = pattern.substr(at);
  blankAround = front.find_first_not_of(' ') == std::string_view::npos &&
                back.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace zorlan

#include "base/number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/digit_pairs.h"

namespace zorlan {
namespace {

constexpr int kSignificantDigits = 15;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// A number of up to 15 digits without an exponent, as nearly all are. Its digits and the power of ten below
/// them are exact, so their quotient is the nearest real. Nothing for any other text.
std::optional<double> PlainDecimal(std::string_view text) {
  constexpr std::array<double, kSignificantDigits + 1> kPowers = {
      1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::int64_t whole = 0;
  std::size_t at = 0, digits = 0, decimals = 0;
  bool point = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      if (++digits > kSignificantDigits) return std::nullopt;
      whole = whole * 10 + (text[at] - '0');
      decimals += point ? 1 : 0;
    } else if (text[at] == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  const bool exponent = at < text.size() && std::string_view("eEdD").find(text[at]) != std::string_view::npos;
  if (digits == 0 || exponent) return std::nullopt;
  return static_cast<double>(whole) / kPowers[decimals];
}

/// Length of the digits, point and digits at the front of `text`; 0 if there is no digit.
std::size_t MantissaLength(std::string_view text) {
  std::size_t at = 0, digits = 0;
  bool point = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at]))
      ++digits;
    else if (text[at] == '.' && !point)
      point = true;
    else
      break;
  }
  return digits == 0 ? 0 : at;
}

/// Length of "E+07" at the front of `text`, 0 if it isn't one.
std::size_t ExponentLength(std::string_view text) {
  if (text.empty() || std::string_view("eEdD").find(text[0]) == std::string_view::npos) return 0;
  std::size_t at = 1;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  const std::size_t firstDigit = at;
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at == firstDigit ? 0 : at;
}

/// Whether "DIGITS.DIGITSe-07" is below 1: by the place of its first digit that counts, and the exponent.
bool IsBelowOne(std::string_view number) {
  const std::string_view mantissa = number.substr(0, number.find('e'));
  const auto point = static_cast<std::ptrdiff_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));
  std::ptrdiff_t exponent = 0;
  if (mantissa.size() < number.size()) {
    const std::string_view digits = number.substr(mantissa.size() + 1);
    if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
      return digits[0] == '-';
  }
  return point - first + exponent <= 0;
}

double Unsigned(std::string_view number) {
  double value = 0;
  const std::from_chars_result result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  return IsBelowOne(number) ? 0.0 : std::numeric_limits<double>::infinity();
}

/// A number above 0 as 15 digits and the power of ten of the first one.
struct Digits15 {
  std::uint64_t digits = 0;  // 1e14 to 1e15 - 1
  int power = 0;
};

constexpr int kLargestExactPower = 22;
constexpr std::array<double, kLargestExactPower + 1> kPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// A real as the sum of two: the rounded product or quotient with a power of ten, and what the rounding took
/// from it.
struct Scaled {
  double value = 0, rest = 0;
};
Scaled Scale(double magnitude, int power) {
  if (power >= 0) {
    const double s = kPowersOfTen[static_cast<std::size_t>(power)], value = magnitude * s;
    return {value, std::fma(magnitude, s, -value)};
  }
  const double s = kPowersOfTen[static_cast<std::size_t>(-power)], value = magnitude / s;
  return {value, std::fma(-value, s, magnitude) / s};
}

/// The digits of a number between about 1e-8 and 1e36, correctly rounded; nothing outside, and where the
/// sixteenth place is too near to a tie to tell. Result files are mostly numbers, and this takes a quarter of
/// the general conversion's time.
std::optional<Digits15> QuickDigits(double magnitude) {
  const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52U) - 1023;
  constexpr double kLog10Of2 = 0.30102999566398120;
  int power = static_cast<int>(std::floor(binary * kLog10Of2));  // or the next one
  if (std::abs(kSignificantDigits - 1 - power) >= kLargestExactPower) return std::nullopt;
  Scaled scaled = Scale(magnitude, kSignificantDigits - 1 - power);
  if (scaled.value >= 1e15) scaled = Scale(magnitude, kSignificantDigits - 1 - ++power);
  if (!(scaled.value >= 1e14)) return std::nullopt;
  auto digits = static_cast<std::uint64_t>(scaled.value);
  // Below 0 when the value was rounded up.
  const double fraction = scaled.value - static_cast<double>(digits) + scaled.rest;
  constexpr double kTooNear = 1e-6;
  if (std::abs(fraction - 0.5) < kTooNear || std::abs(fraction + 0.5) < kTooNear) return std::nullopt;
  if (fraction > 0.5) ++digits;
  if (fraction < -0.5) --digits;
  if (digits == 1000000000000000) {
    digits /= 10;
    ++power;
  }
  return Digits15{digits, power};
}

/// Appends digits in the form of "%.15g": without trailing zeros, with an exponent below 1e-4 and from 1e15
/// on.
void AppendDigits(std::string& out, Digits15 number) {
  std::array<char, kSignificantDigits> text;
  auto head = static_cast<std::uint32_t>(number.digits / 100000000);  // seven digits in front of eight
  auto tail = static_cast<std::uint32_t>(number.digits % 100000000);
  for (std::size_t i = text.size(); i > 7; i -= 2, tail /= 100)
    std::copy_n(kDigitPairs.data() + 2 * (tail % 100), 2, text.data() + i - 2);
  for (std::size_t i = 7; i > 1; i -= 2, head /= 100)
    std::copy_n(kDigitPairs.data() + 2 * (head % 100), 2, text.data() + i - 2);
  text[0] = static_cast<char>('0' + head);
  std::size_t count = text.size();
  while (count > 1 && text[count - 1] == '0') --count;

  const int power = number.power;
  if (power < -4 || power >= kSignificantDigits) {
    out += text[0];
    if (count > 1) out.append(1, '.').append(text.data() + 1, count - 1);
    out += power < 0 ? "e-" : "e+";
    const int size = std::abs(power);
    if (size < 10) out += '0';
    out += std::to_string(size);
  } else if (power < 0) {
    out.append("0.").append(static_cast<std::size_t>(-power - 1), '0').append(text.data(), count);
  } else {
    const auto whole = static_cast<std::size_t>(power) + 1;
    out.append(text.data(), std::min(count, whole));
    if (count > whole)
      out.append(1, '.').append(text.data() + whole, count - whole);
    else
      out.append(whole - count, '0');
  }
}

}  // namespace

double ReadReal(std::string_view text) {
  while (!text.empty() && (text[0] == ' ' || text[0] == '\t')) text.remove_prefix(1);
  if (text.empty()) return 0;
  const bool negative = text[0] == '-';
  if (negative || text[0] == '+') text.remove_prefix(1);
  if (const std::optional<double> plain = PlainDecimal(text)) return negative ? -*plain : *plain;
  const std::size_t mantissa = MantissaLength(text);
  if (mantissa == 0) return 0;
  const std::size_t exponent = ExponentLength(text.substr(mantissa));
  double value = 0;
  if (exponent != 0) {
    std::string number(text.substr(0, mantissa + exponent));  // from_chars knows neither D nor a plus sign
    number[mantissa] = 'e';
    if (number[mantissa + 1] == '+') number.erase(mantissa + 1, 1);
    value = Unsigned(number);
  } else {
    value = Unsigned(text.substr(0, mantissa));
  }
  return negative ? -value : value;
}

std::optional<double> ReadFinite(std::string_view text) {
  if (text.find_first_of("0123456789") == std::string_view::npos) return std::nullopt;
  const double value = ReadReal(text);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

bool IsNumberText(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t mantissa = MantissaLength(text);
  text.remove_prefix(mantissa);
  return mantissa != 0 && ExponentLength(text) == text.size();
}

std::optional<std::int16_t> ReadInt16(std::string_view text) {
  const double whole = std::trunc(ReadReal(text));
  if (!(whole >= -32768 && whole <= 32767)) return std::nullopt;
  return static_cast<std::int16_t>(whole);
}

void AppendReal(std::string& out, double value) {
  if (value == 0) {  // minus zero too
    out += '0';
    return;
  }
  if (const std::optional<Digits15> digits = QuickDigits(std::abs(value))) {
    if (value < 0) out += '-';
    AppendDigits(out, *digits);
    return;
  }
  std::array<char, 32> buffer;
  const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                                    std::chars_format::general, kSignificantDigits);
  out.append(buffer.data(), result.ptr);
}

void AppendPrinted(std::string& out, double value) {
  if (!(value < 0)) out += ' ';
  AppendReal(out, value);
  out += ' ';
}

std::string RealText(double value) {
  std::string text;
  AppendReal(text, value);
  return text;
}

}  // namespace zorlan

#include "base/fixed_real.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/fault.h"

namespace zorlan {
namespace {

/// A positive decimal number: 0.d1d2d3... times 10 to the power of `point`; no zeros at either end.
struct Decimal {
  std::string digits;
  int point = 0;
};

/// The shortest decimal that reads back as the value (`count` 0), or its first `count` digits, rounded.
Decimal DecimalOf(double magnitude, int count) {
  std::array<char, 40> buffer;
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  const std::to_chars_result written =
      count == 0 ? std::to_chars(first, last, magnitude, std::chars_format::scientific)
                 : std::to_chars(first, last, magnitude, std::chars_format::scientific, count - 1);
  const std::string_view text(first, static_cast<std::size_t>(written.ptr - first));
  const std::size_t e = text.find('e');
  Decimal decimal;
  for (const char c : text.substr(0, e))
    if (c != '.') decimal.digits += c;
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  const bool minus = text[e + 1] == '-';
  int exponent = 0;
  std::from_chars(first + e + 2, written.ptr, exponent);
  decimal.point = (minus ? -exponent : exponent) + 1;
  return decimal;
}

std::string Plain(const Decimal& d, std::string_view zero) {
  const int count = static_cast<int>(d.digits.size());
  if (d.point >= count) return d.digits + std::string(static_cast<std::size_t>(d.point - count), '0');
  if (d.point > 0) {
    const auto whole = static_cast<std::size_t>(d.point);
    return d.digits.substr(0, whole) + "." + d.digits.substr(whole);
  }
  return std::string(zero) + "." + std::string(static_cast<std::size_t>(-d.point), '0') + d.digits;
}

/// With `whole` digits in front of the point, and no point if these are all.
std::string WithExponent(const Decimal& d, std::size_t whole) {
  std::string text = d.digits.substr(0, whole);
  if (whole < d.digits.size()) text += "." + d.digits.substr(whole);
  return text + "E" + std::to_string(d.point - static_cast<int>(whole));
}

constexpr int kFarPoint = 30;  // a decimal point so far from the digits is never the shorter form

/// The form of these digits that a reader likes best among those that fit; empty if none does.
std::string BestForm(const Decimal& d, std::size_t room) {
  if (std::abs(d.point) < kFarPoint)
    for (const std::string_view zero : {"0", ""})
      if (std::string text = Plain(d, zero); text.size() <= room) return text;
  for (const std::size_t whole : {std::size_t{1}, d.digits.size()})
    if (std::string text = WithExponent(d, whole); text.size() <= room) return text;
  return {};
}

constexpr int kMostDigits = 17;  // of a 64-bit real

}  // namespace

std::string FixedReal(double value, int width) {
  if (!std::isfinite(value)) throw Fault("数値が範囲を超えています");
  const auto columns = static_cast<std::size_t>(width);
  const std::string sign = value < 0 ? "-" : "";
  std::string text = value == 0 ? "0" : "";
  for (int count = kMostDigits + 1; text.empty(); --count)
    text = BestForm(DecimalOf(std::abs(value), count > kMostDigits ? 0 : count), columns - sign.size());
  text = sign + text;
  return std::string(columns - text.size(), ' ') + text;
}

}  // namespace zorlan

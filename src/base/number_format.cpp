#include "base/number_format.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "base/digit_pairs.h"

namespace zorlan {
namespace {

constexpr int kSignificantDigits = 15;

// All of these are exact.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kLargestPower = 22;

// The short road scales a number to a whole one. Below this limit the 15 digits and the scaling move it by
// less than 6e-5; where its fraction is nearer to one half than the margin, the exact road decides.
constexpr double kScaledLimit = 1e10;
constexpr double kTieMargin = 1e-4;
constexpr int kMostScaledDecimals = 9;

/// Writes the digits of `number` in front of `end`, at least `minDigits` of them; answers their start.
char* WriteDigits(char* end, std::uint64_t number, int minDigits) {
  char* at = end;
  while (number >= 10) {
    at -= 2;
    std::memcpy(at, kDigitPairs.data() + 2 * (number % 100), 2);
    number /= 100;
  }
  if (number > 0) *--at = static_cast<char>('0' + number);
  while (end - at < minDigits) *--at = '0';
  return at;
}

/// Takes the last `count` digits off `number` and writes them in front of `end`; answers their start.
char* WriteDecimals(char* end, std::uint64_t& number, int count) {
  char* at = end;
  for (; count >= 2; count -= 2) {
    at -= 2;
    std::memcpy(at, kDigitPairs.data() + 2 * (number % 100), 2);
    number /= 100;
  }
  if (count == 1) {
    *--at = static_cast<char>('0' + number % 10);
    number /= 10;
  }
  return at;
}

/// The nearest whole number, halves up; nothing where the margin leaves it open or the number is too large.
bool RoundScaled(double scaled, std::uint64_t& whole) {
  if (!(scaled < kScaledLimit)) return false;
  whole = static_cast<std::uint64_t>(scaled);
  const double fraction = scaled - static_cast<double>(whole);
  if (std::fabs(fraction - 0.5) < kTieMargin) return false;
  if (fraction > 0.5) ++whole;
  return true;
}

/// A number above 0 as whole x 10^(exponent - decimals), with one digit and `decimals` more in `whole`;
/// nothing where the margin leaves the last one open or the power of ten isn't exact.
bool Normalise(double magnitude, int decimals, std::uint64_t& whole, int& exponent) {
  const int binary = static_cast<int>((std::bit_cast<std::uint64_t>(magnitude) >> 52U) & 0x7FFU) - 1023;
  exponent = static_cast<int>(std::floor(binary * 0.30102999566398120));  // log10(2): this power, or one more
  if (std::abs(decimals - exponent) >= kLargestPower) return false;
  const auto scaled = [&](int power) {
    return power >= 0 ? magnitude * kPowersOfTen[power] : magnitude / kPowersOfTen[-power];
  };
  double number = scaled(decimals - exponent);
  if (number >= kPowersOfTen[decimals + 1]) number = scaled(decimals - ++exponent);
  if (!(number >= kPowersOfTen[decimals]) || !RoundScaled(number, whole)) return false;
  if (static_cast<double>(whole) >= kPowersOfTen[decimals + 1]) {
    whole /= 10;
    ++exponent;
  }
  return true;
}

/// A number above 0 as 0.ddd... x 10^point, from its 15 significant digits.
struct Decimal {
  explicit Decimal(double magnitude) {
    std::array<char, 32> buffer;
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                          std::chars_format::scientific, kSignificantDigits - 1)
                                .ptr;
    digits += buffer[0];
    digits.append(buffer.data() + 2, kSignificantDigits - 1);
    const char* exponent = buffer.data() + kSignificantDigits + 2;  // behind "d.ddde"
    if (*exponent == '+') ++exponent;
    std::from_chars(exponent, end, point);
    ++point;
  }

  /// Keeps the first `count` digits, rounded half up; a count below 0 leaves nothing.
  void Keep(int count) {
    if (count >= static_cast<int>(digits.size())) return;
    const bool up = count >= 0 && digits[static_cast<std::size_t>(count)] >= '5';
    digits.resize(static_cast<std::size_t>(std::max(count, 0)));
    if (!up) return;
    while (!digits.empty() && digits.back() == '9') digits.pop_back();
    if (digits.empty()) {
      digits = "1";
      ++point;
    } else {
      ++digits.back();
    }
  }

  /// The digit at the place 10^power, 0 outside.
  char At(int power) const {
    const int place = point - 1 - power;
    return place >= 0 && place < static_cast<int>(digits.size()) ? digits[static_cast<std::size_t>(place)]
                                                                 : '0';
  }

  std::string digits;
  int point = 0;
};

/// Integer digits and decimals of `number`, whose digits behind the pattern's last are gone.
void AppendPlaces(std::string& out, const Decimal& number, const NumberPattern& pattern) {
  const int top = number.digits.empty() ? 0 : number.point;
  for (int power = std::max(top, pattern.minIntegers) - 1; power >= 0; --power) out += number.At(power);
  int decimals = pattern.maxDecimals;
  while (decimals > pattern.minDecimals && number.At(-decimals) == '0') --decimals;
  if (decimals > 0) out += '.';
  for (int place = 1; place <= decimals; ++place) out += number.At(-place);
}

void AppendExponent(std::string& out, int exponent, const NumberPattern& pattern) {
  out += 'E';
  if (exponent < 0)
    out += '-';
  else if (pattern.exponentPlus)
    out += '+';
  std::array<char, 8> buffer;
  char* const end = buffer.data() + buffer.size();
  const char* start =
      WriteDigits(end, static_cast<std::uint64_t>(std::abs(exponent)), pattern.exponentDigits);
  out.append(start, static_cast<std::size_t>(end - start));
}

}  // namespace

std::string ExactDigits(double magnitude, const NumberPattern& pattern) {
  if (std::isnan(magnitude)) return "NAN";
  if (std::isinf(magnitude)) return "INF";
  std::string text;
  const bool zero = magnitude == 0;
  Decimal number(zero ? 1 : magnitude);
  if (pattern.exponentDigits == 0) {
    number.Keep(zero ? -1 : number.point + pattern.maxDecimals);
    AppendPlaces(text, number, pattern);
    return text;
  }
  const int places = std::max(pattern.places, 1);
  number.Keep(zero ? -1 : places + pattern.maxDecimals);
  const int exponent = zero ? 0 : number.point - places;
  number.point -= exponent;
  AppendPlaces(text, number, pattern);
  AppendExponent(text, exponent, pattern);
  return text;
}

bool NumberDigits::TryFixed(double magnitude, const NumberPattern& pattern) {
  const int decimals = pattern.maxDecimals;
  std::uint64_t whole = 0;
  if (decimals > kMostScaledDecimals || pattern.minDecimals != decimals || pattern.minIntegers > 10 ||
      !RoundScaled(magnitude * kPowersOfTen[decimals], whole))
    return false;
  zero_ = whole == 0;
  char* const end = buffer_.data() + kRoom;
  char* start = end;
  if (decimals > 0) {
    start = WriteDecimals(end, whole, decimals);
    *--start = '.';
  }
  start = WriteDigits(start, whole, pattern.minIntegers);
  small_ = static_cast<std::size_t>(end - start);
  return true;
}

bool NumberDigits::TryExponent(double magnitude, const NumberPattern& pattern) {
  const int decimals = pattern.maxDecimals;
  if (decimals > kMostScaledDecimals - 1 || pattern.minDecimals != decimals || pattern.places != 1 ||
      pattern.minIntegers != 1 || pattern.exponentDigits > 4)
    return false;
  std::uint64_t whole = 0;
  int exponent = 0;
  if (magnitude != 0 && !Normalise(magnitude, decimals, whole, exponent)) return false;
  char* const end = buffer_.data() + kRoom;
  char* start = WriteDigits(end, static_cast<std::uint64_t>(std::abs(exponent)), pattern.exponentDigits);
  if (exponent < 0 || pattern.exponentPlus) *--start = exponent < 0 ? '-' : '+';
  *--start = 'E';
  start = WriteDigits(start, whole, decimals + 1);
  if (decimals > 0) {
    start[-1] = start[0];
    *start-- = '.';
  }
  small_ = static_cast<std::size_t>(end - start);
  zero_ = whole == 0;
  return true;
}

NumberDigits::NumberDigits(double magnitude, const NumberPattern& pattern) {
  if (pattern.exponentDigits == 0 ? TryFixed(magnitude, pattern) : TryExponent(magnitude, pattern)) return;
  large_ = ExactDigits(magnitude, pattern);
  const std::string_view mantissa = std::string_view(large_).substr(0, large_.find('E'));
  zero_ = std::isfinite(magnitude) && mantissa.find_first_of("123456789") == std::string_view::npos;
}

std::string FormatNumber(double value, const NumberPattern& pattern) {
  const NumberDigits digits(std::fabs(value), pattern);
  std::string text(pattern.front);
  if (value < 0 && !digits.IsZero()) text += '-';
  text += digits.Text();
  text += pattern.back;
  return text;
}

}  // namespace zorlan

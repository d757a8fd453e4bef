#include "analysis/field_format.h"

#include <cmath>

#include "base/text.h"

namespace zorlan {
namespace {

/// Appends the text right-aligned.
void AppendAligned(std::string& out, bool minus, std::string_view text, std::size_t width) {
  const std::size_t length = text.size() + (minus ? 1 : 0);
  if (length < width) out.append(width - length, ' ');
  if (minus) out += '-';
  out += text;
}

/// The digits between what the pattern has around them, its blanks gone; so a sign that stood apart from its
/// number joins it.
std::string WithLiterals(const NumberPattern& pattern, std::string_view digits) {
  std::string text(pattern.front);
  text += digits;
  text += pattern.back;
  if (pattern.exponentDigits != 0) return std::string(NoSpc(text));
  std::erase(text, ' ');
  return text;
}

/// The text without as many decimals as it is too long by.
std::string_view CutDecimals(std::string_view text, std::size_t surplus) {
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return text;
  const std::size_t decimals = text.size() - point - 1;
  return surplus < decimals ? text.substr(0, text.size() - surplus) : text.substr(0, point);
}

}  // namespace

void AppendField(std::string& out, double value, const NumberPattern& pattern) {
  const NumberDigits digits(std::fabs(value), pattern);
  const bool minus = value < 0 && !digits.IsZero();
  const auto width = static_cast<std::size_t>(pattern.Width());
  std::string_view text = digits.Text();
  std::string around;
  if (!pattern.blankAround) text = around = WithLiterals(pattern, text);
  const std::size_t length = text.size() + (minus ? 1 : 0);
  if (length > width && pattern.exponentDigits == 0) text = CutDecimals(text, length - width);
  AppendAligned(out, minus, text, width);
}

std::string FieldFormat(double value, const NumberPattern& pattern) {
  std::string field;
  AppendField(field, value, pattern);
  return field;
}

}  // namespace zorlan

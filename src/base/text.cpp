#include "base/text.h"

namespace zorlan {
namespace {

constexpr bool IsSurrounding(char c) {
  return c == ' ' || c == '\t' || c == '\0';
}

}  // namespace

std::string_view NoSpc(std::string_view text) {
  std::size_t first = 0, end = text.size();
  while (first < end && IsSurrounding(text[first])) ++first;
  while (end > first && IsSurrounding(text[end - 1])) --end;
  return text.substr(first, end - first);
}

std::string_view BeforeEndMark(std::string_view text) {
  return text.substr(0, text.find('\x1A'));
}

std::optional<std::string_view> TakeLine(std::string_view& rest) {
  if (rest.empty()) return std::nullopt;
  std::size_t end = 0;
  while (end < rest.size() && rest[end] != '\r' && rest[end] != '\n') ++end;
  if (end == rest.size()) {
    const std::string_view last = rest;
    rest = {};
    return last;
  }
  const std::string_view line = rest.substr(0, end);
  const bool pair = rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n';
  rest.remove_prefix(end + (pair ? 2 : 1));
  return line;
}

std::string_view TakeField(std::optional<std::string_view>& line) {
  if (!line) return {};
  const std::size_t comma = line->find(',');
  const std::string_view field = line->substr(0, comma);
  if (comma == std::string_view::npos)
    line.reset();
  else
    line->remove_prefix(comma + 1);
  return field;
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return upper;
}

std::string Narrowed(std::string_view text) {
  std::string narrow;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = [&](std::size_t k) {
      return i + k < text.size() ? static_cast<unsigned char>(text[i + k]) : 0U;
    };
    if (byte(0) == 0xE3 && byte(1) == 0x80 && byte(2) == 0x80) {  // U+3000
      narrow += ' ';
      i += 2;
    } else if (byte(0) == 0xEF && (byte(1) == 0xBC || byte(1) == 0xBD)) {  // U+FF00 to U+FF7F
      const unsigned offset = (byte(1) - 0xBCU) * 0x40U + (byte(2) - 0x80U);
      if (offset >= 0x01 && offset <= 0x5E)
        narrow += static_cast<char>(0x20 + offset);
      else
        narrow += text.substr(i, 3);
      i += 2;
    } else {
      narrow += text[i];
    }
  }
  return narrow;
}

}  // namespace zorlan

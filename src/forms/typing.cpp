#include "forms/typing.h"

#include <algorithm>

#include "base/cp932.h"
#include "base/text.h"
#include "forms/table_form.h"

namespace zorlan {
namespace {

/// What a Japanese keyboard gives for the keys of minus and point, beside their full-width forms.
struct Spelling {
  std::string_view typed;
  char means;
};
constexpr Spelling kSpellings[] = {
    {"ー", '-'}, {"−", '-'},      {"‐", '-'},      {"―", '-'},      {"ｰ", '-'},      {"。", '.'},
    {"｡", '.'},  {"\u2011", '-'}, {"\u2012", '-'}, {"\u2013", '-'}, {"\uFE63", '-'},  // dashes of documents
                                                                                      // and of the web
};

/// Takes the first character off a UTF-8 text; a stray byte counts as one.
std::string_view TakeCharacter(std::string_view& rest) {
  std::size_t length = 1;
  while (length < rest.size() && length < 4 && (static_cast<unsigned char>(rest[length]) & 0xC0U) == 0x80)
    ++length;
  const std::string_view character = rest.substr(0, length);
  rest.remove_prefix(length);
  return character;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// "-1,234,567.8" has its commas where thousands end, and nowhere else.
bool HasThousands(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view whole = text.substr(0, text.find('.'));
  const std::size_t first = whole.find(',');
  if (first == std::string_view::npos || first == 0 || first > 3) return false;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    const bool comma = at >= first && (at - first) % 4 == 0;
    if (comma ? whole[at] != ',' : !IsDigit(whole[at])) return false;
  }
  return (whole.size() - first) % 4 == 0 && text.substr(whole.size()).find(',') == std::string_view::npos;
}

}  // namespace

bool MaskAccepts(std::string_view mask, char32_t character) {
  const auto holds = [&](char c) { return mask.find(c) != std::string_view::npos; };
  if (mask == kAnyText) return character >= U' ';
  if (character >= U'0' && character <= U'9') return holds('0');
  if (character == U'-') return holds('-');
  if (character == U'.') return holds('.');
  if (character == U'E' || character == U'e') return holds('e');
  return false;
}

std::string NumberText(std::string_view text) {
  std::string narrow;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string_view character = TakeCharacter(rest);
    const auto* const known = std::ranges::find(kSpellings, character, &Spelling::typed);
    if (known != std::end(kSpellings))
      narrow += known->means;
    else
      narrow += Narrowed(character);
  }
  return narrow;
}

Typed FilterTyped(std::string_view mask, std::string_view text) {
  Typed typed;
  const std::string keys = mask == kAnyText ? WithOwnCharacters(text) : NumberText(text);
  std::string_view rest = keys;
  while (!rest.empty()) {
    const std::string_view character = TakeCharacter(rest);
    const auto first = static_cast<unsigned char>(character.front());
    // Only the plain characters are told apart.
    const char32_t code = first < 0x80 ? static_cast<char32_t>(first) : U'\uFFFD';
    if (MaskAccepts(mask, code))
      typed.text += character;
    else
      typed.refused = true;
  }
  return typed;
}

std::string PastedCell(std::string_view mask, std::string_view text) {
  if (mask == kAnyText) return WithOwnCharacters(NoSpc(text));
  std::string number = NumberText(text);
  number = std::string(NoSpc(number));
  if (HasThousands(number)) std::erase(number, ',');
  return number;
}

std::string_view MaskHint(std::string_view mask) {
  if (mask == kDigits) return "この欄には、数字だけを入力します";
  if (mask == kReal) return "この欄には、数値（数字　－　．　Ｅ）を入力します";
  if (mask == kDecimal) return "この欄には、数値（数字　－　．）を入力します";
  return "この欄には、文字を入力します";
}

}  // namespace zorlan

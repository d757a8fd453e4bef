// What may be typed into a column, and what the keys of a Japanese keyboard mean there.
#pragma once

#include <string>
#include <string_view>

namespace zorlan {

/// Whether a column with this mask takes the character: the filter tests characters, not texts.
bool MaskAccepts(std::string_view mask, char32_t character);

/// A text meant for a number column with its full-width digits, signs, points and letters made half-width.
std::string NumberText(std::string_view text);

/// What of a typed text a column takes.
struct Typed {
  std::string text;      // in half width where the column is for numbers, else in the code page's characters
  bool refused = false;  // a character was swallowed
};
Typed FilterTyped(std::string_view mask, std::string_view text);

/// A pasted cell as a column takes it: without blanks around it; in a number column in half width and without
/// the commas between thousands; in a text column in the code page's own characters.
std::string PastedCell(std::string_view mask, std::string_view text);

/// What the column takes, for the status bar: "数字を入力します".
std::string_view MaskHint(std::string_view mask);

}  // namespace zorlan

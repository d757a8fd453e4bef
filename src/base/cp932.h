// Code page 932 (Shift-JIS with the Microsoft mapping), the encoding of every file of the system, and UTF-8,
// the encoding of every text in memory. Files are converted here, whole, and split afterwards: a second byte
// may be '\'.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// The UTF-8 text of bytes in code page 932. Never fails: 80, A0 and FD to FF become U+0080 and U+F8F0 to
/// U+F8F3, a pair that the code page doesn't define becomes U+30FB (・), as Windows reads them.
std::string Utf8FromCp932(std::string_view bytes);

/// Whether bytes are meant as UTF-8 and not as code page 932: all of them are UTF-8, with characters of three
/// bytes or more, and as code page 932 they are broken, or there are three such characters and they are all
/// everyday ones (signs, kana, the kanji of level 1). A text of code page 932 isn't broken, and is no UTF-8
/// once it has a kana of two bytes or a kanji of level 1 behind a plain character: their first bytes, 81 to
/// 9F, only continue UTF-8. Half-width kana alone pair to characters of two bytes. What is left are rare
/// kanji each with just the right half-width kana behind it, in the whole file and nothing else.
bool IsMeantAsUtf8(std::string_view bytes);

/// A text in code page 932, and what could not be put into it.
struct Cp932Text {
  std::string bytes;
  /// UTF-8 of the first character that the code page lacks, or empty; "?" stands for it in the bytes.
  std::string lost;
};
Cp932Text Cp932FromUtf8(std::string_view text);

/// The text with the characters that other systems write for one of the code page (U+301C for ～, U+2212 for
/// －, and those for ∥ ― ￠ ￡ ￢) as that one: for all that is typed or pasted.
std::string WithOwnCharacters(std::string_view text);

/// The bytes of a text for people and drawing programs to read, which never comes back as data: with its own
/// characters, and "?" for what the code page lacks otherwise.
std::string Cp932ForPrint(std::string_view text);

/// Width of a UTF-8 text in half-width columns: its length in bytes of code page 932, as it is printed.
std::size_t HalfWidth(std::string_view text);

/// The longest front of the text that is no wider than `width` half-width columns.
std::string_view FrontWithin(std::string_view text, std::size_t width);

/// The text with blanks in front, or behind, up to `width` half-width columns; a wider text stays as it is.
std::string PadLeft(std::string_view text, std::size_t width);
std::string PadRight(std::string_view text, std::size_t width);

/// The text in pieces of at most `width` half-width columns, broken between any two characters; a character
/// that is wider on its own is a piece. One piece for an empty text.
std::vector<std::string_view> InPiecesOf(std::string_view text, std::size_t width);

}  // namespace zorlan

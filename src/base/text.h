// Small text helpers that every floor uses. Texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorlan {

/// What ends a line of the system's files.
inline constexpr std::string_view kLineEnd = "\r\n";

/// The text without the blanks, tabs and NUL characters around it; those inside stay, and so do full-width
/// blanks.
std::string_view NoSpc(std::string_view text);

/// What stands ahead of the first byte 1A, with which older systems closed a text: all of a text without one.
std::string_view BeforeEndMark(std::string_view text);

/// Takes the next line off `rest`, without its end (CR LF, LF or CR); nothing when `rest` is empty.
std::optional<std::string_view> TakeLine(std::string_view& rest);

/// Takes the next field off a line, up to the comma behind it, blanks included. Behind the last one the line
/// is nothing, and so are its fields: "a," has two, an empty line has one.
std::string_view TakeField(std::optional<std::string_view>& line);

/// The text with the letters a to z made A to Z.
std::string UpperCase(std::string_view text);

/// The text with the full-width letters, digits and signs (U+FF01 to U+FF5E, U+3000) made half-width.
std::string Narrowed(std::string_view text);

}  // namespace zorlan

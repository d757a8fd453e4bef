// Quoted, comma-delimited items, the form of the settings files. Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// The items of comma-delimited input: items end at a comma or a line end; blanks around an item don't count;
/// an item in double quotes keeps its commas and its blanks, and a quote written twice inside it is one. A
/// quote that isn't closed ends with its line.
std::vector<std::string> DelimitedItems(std::string_view text);

/// The text in double quotes, as DelimitedItems reads it back. A line end becomes a blank.
std::string Quoted(std::string_view text);

}  // namespace zorlan

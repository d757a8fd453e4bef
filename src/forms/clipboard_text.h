// The cells of a clipboard's text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// Walks the text: a tab ends a cell, CR ends a row, LF is dropped; where a text has no CR, LF ends its rows.
/// The walk stops at the end of the text, so nothing stands behind the last line end. A cell that a
/// spreadsheet has put in quotes, because of a tab, a line end or a quote in it, loses them and its line
/// ends.
std::vector<std::vector<std::string>> ClipboardCells(std::string_view text);

/// The text as a box takes it: without its line ends.
std::string WithoutLineEnds(std::string_view text);

}  // namespace zorlan

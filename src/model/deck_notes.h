// What a user should know of a deck that is read all the same. The input check has its own list of messages;
// these stand beside it and hold nothing up.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// What becomes of a table whose section stands more than once: ReadDeck takes the rows of them all; a deck
/// that is split into table files, to be listed or opened, keeps the last.
enum class DeckUse { Read, Listed, Opened };

/// What in the bytes of a deck is read otherwise than it may be meant, a line each in the user's words: text
/// behind the end mark, sections that stand more than once, rows that the table files cut at ten blanks,
/// cells that are no number in full (by line and name of the field; some ten, then how many more), units out
/// of their range. A row with a wrong number of fields, which nobody reads, is left to the input check, and a
/// number out of range to ReadDeck.
std::vector<std::string> DeckNotes(std::string_view bytes, DeckUse use);

}  // namespace zorlan

// From a message of the input check to the table row that it speaks of.
#pragma once

#include <optional>
#include <string_view>

namespace zorlan {

/// A row of a table by what stands in its key column. A page or number of 0: the message doesn't say.
struct MessageRow {
  std::string_view key;  // of the table
  int page = 0;          // load case or group
  int number = 0;        // of the node, element, section or rigid-zone type
  bool operator==(const MessageRow&) const = default;
};

/// The row of a line of `InputErr.txt`; nothing for a line that isn't a message.
std::optional<MessageRow> RowOfMessage(std::string_view line);

}  // namespace zorlan

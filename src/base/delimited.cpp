#include "base/delimited.h"

#include <algorithm>
#include <optional>

#include "base/text.h"

namespace zorlan {
namespace {

/// Takes the next item off a line, with the comma behind it. `more`: there was a comma.
std::string TakeItem(std::string_view& line, bool& more) {
  const std::size_t first = std::min(line.find_first_not_of(" \t"), line.size());
  std::string item;
  std::size_t at = first;
  if (at < line.size() && line[at] == '"') {
    for (++at; at < line.size(); ++at) {
      if (line[at] == '"' && (at + 1 == line.size() || line[at + 1] != '"')) break;
      if (line[at] == '"') ++at;
      item += line[at];
    }
    at = std::min(line.find(',', std::min(at, line.size())), line.size());
  } else {
    at = std::min(line.find(','), line.size());
    item = NoSpc(line.substr(0, at));
  }
  more = at < line.size();
  line.remove_prefix(std::min(at + 1, line.size()));
  return item;
}

}  // namespace

std::vector<std::string> DelimitedItems(std::string_view text) {
  std::vector<std::string> items;
  while (const std::optional<std::string_view> whole = TakeLine(text)) {
    std::string_view line = *whole;
    for (bool more = true; more;) items.push_back(TakeItem(line, more));
  }
  return items;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += c;
    quoted += c == '\r' || c == '\n' ? ' ' : c;
  }
  return quoted + '"';
}

}  // namespace zorlan

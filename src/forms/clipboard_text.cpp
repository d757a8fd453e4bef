#include "forms/clipboard_text.h"

#include <algorithm>
#include <optional>

namespace zorlan {
namespace {

constexpr std::string_view kCellEnds = "\t\r";

/// The content of a cell in quotes at the front of `rest`, which is moved behind it; nothing if these quotes
/// are the text's own.
std::optional<std::string> TakeQuoted(std::string_view& rest) {
  if (!rest.starts_with('"')) return std::nullopt;
  std::string content;
  bool needed = false;
  for (std::size_t at = 1; at < rest.size(); ++at) {
    const bool doubled = rest[at] == '"' && at + 1 < rest.size() && rest[at + 1] == '"';
    if (rest[at] == '"' && !doubled) {
      std::string_view behind = rest.substr(at + 1);
      while (behind.starts_with('\n')) behind.remove_prefix(1);
      const bool ends = behind.empty() || kCellEnds.find(behind.front()) != std::string_view::npos;
      if (!needed || !ends) return std::nullopt;
      rest = behind;
      return content;
    }
    needed = needed || doubled || rest[at] == '\t' || rest[at] == '\r' || rest[at] == '\n';
    if (doubled) ++at;
    content += rest[at] == '\t' ? ' ' : rest[at];
  }
  return std::nullopt;
}

}  // namespace

std::string WithoutLineEnds(std::string_view text) {
  std::string plain(text);
  std::erase_if(plain, [](char c) { return c == '\r' || c == '\n'; });
  return plain;
}

std::vector<std::vector<std::string>> ClipboardCells(std::string_view text) {
  std::string lines(text);
  if (lines.find('\r') == std::string::npos) std::ranges::replace(lines, '\n', '\r');
  std::string_view rest = lines;
  std::vector<std::vector<std::string>> rows;
  bool startsRow = true;
  while (!rest.empty()) {
    if (startsRow) rows.emplace_back();
    std::optional<std::string> quoted = TakeQuoted(rest);
    std::string cell;
    if (quoted) {
      cell = WithoutLineEnds(*quoted);
    } else {
      const std::string_view piece = rest.substr(0, rest.find_first_of(kCellEnds));
      rest.remove_prefix(piece.size());
      cell = WithoutLineEnds(piece);
    }
    // What is left behind the last line end is its LF alone: no cell of another row.
    if (rest.empty() && startsRow && cell.empty() && rows.size() > 1) {
      rows.pop_back();
      break;
    }
    rows.back().push_back(std::move(cell));
    startsRow = rest.starts_with('\r');
    if (!rest.empty()) rest.remove_prefix(1);
  }
  return rows;
}

}  // namespace zorlan

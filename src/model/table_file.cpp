#include "model/table_file.h"

#include <set>

#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan {

std::vector<TableRow> TableRows;
int TableRowCount = 0;

namespace {

constexpr std::string_view kTenBlanks = "          ";

std::set<std::string> Given;  // paths of the table files that the work folder was given

/// The text as a cell keeps it: without blanks around it, and with a 0 in front of a bare point if its value
/// is not 0.
std::string CellText(std::string_view text) {
  const std::string_view cell = NoSpc(text);
  if (ReadReal(cell) != 0) {
    if (cell.starts_with(".")) return "0" + std::string(cell);
    if (cell.starts_with("-.")) return "-0" + std::string(cell.substr(1));
  }
  return std::string(cell);
}

TableRow ParseRow(std::string_view key, std::string_view line) {
  TableRow row{std::string(key), {}};
  for (;;) {
    if (line.starts_with("%")) {
      row.cells.emplace_back(NoSpc(line.substr(1)));
      return row;
    }
    const std::size_t comma = line.find(',');
    std::string_view text = line.substr(0, comma);
    const std::size_t blanks = text.find(kTenBlanks);
    if (blanks == 0) return row;
    if (blanks != std::string_view::npos) text = text.substr(0, blanks);
    row.cells.push_back(CellText(text));
    if (comma == std::string_view::npos) return row;
    line.remove_prefix(comma + 1);
  }
}

}  // namespace

std::string SectionLine(const TableName& table) {
  return "@" + std::string(table.key) + "   " + std::string(table.comment);
}

std::vector<TableRow> ParseTable(std::string_view key, std::string_view text) {
  std::vector<TableRow> rows;
  while (const std::optional<std::string_view> line = TakeLine(text)) {
    TableRow row = ParseRow(key, *line);
    if (!row.cells.empty()) rows.push_back(std::move(row));
  }
  return rows;
}

std::string TableText(const std::vector<TableRow>& rows, int count) {
  std::string text;
  for (int r = 0; r < count; ++r) {
    std::string line;
    for (const std::string& cell : rows[static_cast<std::size_t>(r)].cells) {
      line += NoSpc(cell);
      line += ',';
    }
    std::string_view shown = NoSpc(line);
    while (shown.ends_with(',')) shown.remove_suffix(1);
    text += shown;
    text += kLineEnd;
  }
  return text;
}

void TableIO(bool write, std::string_view key) {
  const std::string path = WorkPath + std::string(key);
  if (!write) {
    TableRows.clear();
    if (FileExists(path)) TableRows = ParseTable(key, ReadTextFile(path));
    TableRowCount = static_cast<int>(TableRows.size());
  } else if (TableRowCount < 1) {
    RemoveFile(path);
    NoteTable(key, /*there=*/false);
  } else {
    ReplaceTextFile(path, TableText(TableRows, TableRowCount), Flush::No);
    NoteTable(key, /*there=*/true);
  }
}

void NoteTable(std::string_view key, bool there) {
  const std::string path = WorkPath + std::string(key);
  if (there)
    Given.insert(path);
  else
    Given.erase(path);
}

void ForgetTables() {
  Given.clear();
}

std::vector<std::string> VanishedTables() {
  std::vector<std::string> names;
  for (const TableName& table : kTables) {
    const std::string path = WorkPath + std::string(table.key);
    if (Given.contains(path) && !FileExists(path)) names.emplace_back(table.comment.substr(1));
  }
  return names;
}

}  // namespace zorlan

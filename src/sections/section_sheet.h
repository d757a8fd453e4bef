// The seven section tables as sheets that can be edited: what their columns are, how a file becomes rows and
// rows a file again, what a row must be, and the listing of a sheet. Pure functions. A file's three head
// lines, and what the sheet can't show, pass through as the bytes they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

/// The first five are the steel families, in their order.
enum class SheetKind { H, Box, Pipe, Channel, Angle, Grades, TimberSections };
inline constexpr std::size_t kSheetRows = 10000;  // that a sheet shows

struct SheetColumn {
  std::string caption;  // lines between LF
  std::string unit;     // "(mm)"; empty: none
  int width = 0;        // half-width characters
  bool text = false;    // a name; else a number
  int limit = 0;        // of a name, in half-width characters
};

struct SectionSheet {
  SheetKind kind = SheetKind::H;
  std::string title;
  std::string file;  // its name, "H.CSV"
  std::vector<SheetColumn> columns;
  std::size_t keyColumns = 1;  // in front, which a row must have
  bool steel = true;           // a first field of value 0 ends the rows
};

SectionSheet SheetOf(SheetKind kind);
bool IsSteel(SheetKind kind);
/// Where a sheet's file lies.
std::string SheetPath(const SectionSheet& sheet);

using SheetRow = std::vector<std::string>;  // UTF-8 cells without blanks around them

/// A file taken apart. Bytes are in code page 932, lines with their ends.
struct SheetText {
  std::string head;  // three lines
  std::vector<SheetRow> rows;
  std::string tail;     // from the line on that ends the rows, or that the sheet has no room for
  std::string notices;  // what is odd about the file, in the user's words, lines between LF
};

/// Takes a file apart; an empty one has the sheet's own head. A row may hold more cells than there are
/// columns: they stay its own.
SheetText ParseSheet(const SectionSheet& sheet, std::string_view bytes);

/// Puts it together again; blank rows are dropped, short ones filled up to the last column.
std::string SheetBytes(const SectionSheet& sheet, const SheetText& text);

/// What is wrong with a row, for a box.
struct SheetFault {
  int row = 1, column = 1;  // from 1
  std::string message;
};
/// The first row that can't be saved.
std::optional<SheetFault> FindSheetFault(const SectionSheet& sheet, const std::vector<SheetRow>& rows);

/// The sheet as a listing, UTF-8 with CR LF: number, then the columns.
std::string SheetListing(const SectionSheet& sheet, const std::vector<SheetRow>& rows);

}  // namespace zorlan

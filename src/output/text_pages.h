// Listings on pages: where every line of a text stands on paper. Lengths are in hundredths of a millimetre,
// from the upper left corner of the sheet: whole numbers, so that whether a line still fits never hangs on
// rounding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

inline constexpr int kUnitsPerMm = 100;

/// The sheet of a paper in mm, portrait: the A sizes of ISO and the B sizes of JIS, 0 to 10. False for an
/// unknown name; the sizes stay as they were then.
bool PaperSize(std::string_view name, int& width, int& height);

/// How a listing is put on pages.
struct PageSetup {
  int paperWidth = 210, paperHeight = 297;  // mm, portrait
  bool landscape = false;
  bool twoColumns = false;  // small print, two columns side by side
  bool pageNumbers = true;
  int firstPage = 1;
};

/// A line in its place: x, y is its upper left corner; wider than `width` it must be made smaller.
struct PlacedLine {
  int x = 0, y = 0, width = 0;
  std::string_view text;
};

struct TextPage {
  std::vector<PlacedLine> lines;
  std::optional<int> number;  // its PageName stands centred on the sheet, its top at numberY
  int numberY = 0;
};

struct TextPages {
  int width = 0, height = 0;  // of the sheet
  int fontHeight = 0;
  std::vector<TextPage> pages;
};

/// What a listing asks of its pages beside the paper.
struct TextStyle {
  std::string_view heading;        // on the first line of the first page; empty: none
  bool breakBeforeSquare = false;  // a line with "■" begins a new page
};

/// What a page is called, at its foot and as a file: "Page-3".
std::string PageName(int number);

/// Lays the lines of a text on pages. A blank line at the top of a column is dropped; a page begins only with
/// a line to stand on it. A text with nothing to place answers one page without number. The pages point into
/// `text` and the style's heading.
TextPages LayOutTextPages(std::string_view text, const TextStyle& style, const PageSetup& setup);

}  // namespace zorlan

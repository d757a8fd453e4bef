#include "output/text_pages.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace zorlan {
namespace {

struct Paper {
  std::string_view name;
  int width, height;  // mm
};

constexpr std::array kPapers = {
    Paper{"A0", 841, 1189}, Paper{"B0", 1030, 1456}, Paper{"A1", 594, 841}, Paper{"B1", 728, 1030},
    Paper{"A2", 420, 594},  Paper{"B2", 515, 728},   Paper{"A3", 297, 420}, Paper{"B3", 364, 515},
    Paper{"A4", 210, 297},  Paper{"B4", 257, 364},   Paper{"A5", 148, 210}, Paper{"B5", 182, 257},
    Paper{"A6", 105, 148},  Paper{"B6", 128, 182},   Paper{"A7", 74, 105},  Paper{"B7", 91, 128},
    Paper{"A8", 52, 74},    Paper{"B8", 64, 91},     Paper{"A9", 37, 52},   Paper{"B9", 45, 64},
    Paper{"A10", 26, 37},   Paper{"B10", 32, 45},
};

constexpr int kTop = 20 * kUnitsPerMm;           // of the first line
constexpr int kBottomMargin = 18 * kUnitsPerMm;  // below the text bottom
constexpr int kNumberDrop = 10 * kUnitsPerMm;    // from the text bottom to a page number
constexpr int kLastNumberDrop = 5 * kUnitsPerMm;
constexpr int kHeadingLines = 2;

/// Print sizes and columns of a sheet.
struct Columns {
  int fontHeight, gap, count, textWidth;
  std::array<int, 2> left;
};

Columns ColumnsOf(bool two, int sheetWidth) {
  constexpr int kMm = kUnitsPerMm;
  if (two) return {200, 40, 2, std::max(0, sheetWidth / 2 - 25 * kMm), {20 * kMm, sheetWidth / 2 + 10 * kMm}};
  return {310, 60, 1, std::max(0, sheetWidth - 30 * kMm), {20 * kMm, 0}};
}

bool IsBlank(std::string_view line) {
  constexpr std::string_view kFullWidthBlank = "　";
  for (line = NoSpc(line); !line.empty(); line = NoSpc(line.substr(kFullWidthBlank.size())))
    if (!line.starts_with(kFullWidthBlank)) return false;
  return true;
}

/// Takes lines one after another and turns columns and pages.
class PageFiller {
 public:
  PageFiller(const PageSetup& setup, TextPages& out)
      : columns_(ColumnsOf(setup.twoColumns, out.width)),
        textBottom_(out.height - kBottomMargin),
        setup_(setup),
        out_(out) {
    out_.fontHeight = columns_.fontHeight;
  }

  bool AtTopOfColumn() const { return count_ == 0; }
  bool OnFirstLine() const { return count_ == 0 && column_ == 0; }

  void Put(std::string_view line, int advance = 1) {
    if (pageDone_) out_.pages.emplace_back();
    pageDone_ = false;
    const int pitch = columns_.fontHeight + columns_.gap;
    const int y = kTop + count_ * pitch;
    out_.pages.back().lines.push_back({columns_.left[column_], y, columns_.textWidth, line});
    count_ += advance;
    if (y + pitch > textBottom_) FinishColumn();
  }

  void FinishPage(int numberDrop = kNumberDrop) {
    TextPage& page = out_.pages.back();
    if (setup_.pageNumbers) page.number = setup_.firstPage + static_cast<int>(out_.pages.size()) - 1;
    page.numberY = textBottom_ + numberDrop;
    pageDone_ = true;
    count_ = 0;
    column_ = 0;
  }

  /// The end of the text: the number of the last page stands nearer to its text.
  void Close() { FinishPage(kLastNumberDrop); }

 private:
  void FinishColumn() {
    count_ = 0;
    if (++column_ == static_cast<std::size_t>(columns_.count)) FinishPage();
  }

  Columns columns_;
  int textBottom_;
  const PageSetup& setup_;
  TextPages& out_;
  bool pageDone_ = true;
  std::size_t column_ = 0;
  int count_ = 0;  // lines of the column
};

}  // namespace

bool PaperSize(std::string_view name, int& width, int& height) {
  for (const Paper& paper : kPapers)
    if (paper.name == name) {
      width = paper.width;
      height = paper.height;
      return true;
    }
  return false;
}

std::string PageName(int number) {
  return "Page-" + std::to_string(number);
}

TextPages LayOutTextPages(std::string_view text, const TextStyle& style, const PageSetup& setup) {
  TextPages result;
  result.width = (setup.landscape ? setup.paperHeight : setup.paperWidth) * kUnitsPerMm;
  result.height = (setup.landscape ? setup.paperWidth : setup.paperHeight) * kUnitsPerMm;
  PageFiller filler(setup, result);
  if (!style.heading.empty()) filler.Put(style.heading, kHeadingLines);
  while (const std::optional<std::string_view> line = TakeLine(text)) {
    if (style.breakBeforeSquare && !filler.OnFirstLine() && line->find("■") != std::string_view::npos)
      filler.FinishPage();
    if (filler.AtTopOfColumn() && IsBlank(*line)) continue;
    filler.Put(*line);
  }
  if (result.pages.empty())
    result.pages.emplace_back();
  else
    filler.Close();
  return result;
}

}  // namespace zorlan

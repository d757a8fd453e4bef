#include "shell/figure_sheets.h"

#include <string>
#include <utility>

#include "graphics/option_figures.h"
#include "graphics/options.h"
#include "output/text_pages.h"
#include "shell/page_setup.h"

namespace zorlan {
namespace {

// Margins in mm: room for binding at the left, for the page number below.
constexpr double kMarginLeft = 20, kMarginTop = 12, kMarginRight = 10, kMarginBottom = 16;
constexpr double kNumberHeight = 3.1, kNumberDrop = 10;  // mm; the drop from the bottom margin's upper edge

constexpr std::string_view kPageControl = "VSPrinter";

/// A sheet that keeps nothing: for a recording alone.
class BlankSheet final : public PlotTarget {
 public:
  explicit BlankSheet(const Surface& sheet) : sheet_(sheet) {}
  Surface TheSurface() const override { return sheet_; }
  void Line(Point, Point, const Pen&) override {}
  void Circle(Point, double, const Pen&, bool) override {}
  void Text(Point, std::string_view, double, double, Rgb) override {}
  void Shade(std::span<const Point>, Rgb) override {}

 private:
  Surface sheet_;
};

void PlotPageNumber(Plot& plot, int number) {
  const Surface& sheet = plot.surface;
  const std::string text = PageName(number);
  const double height = kNumberHeight * kTwipsPerMm;
  plot.Begin();
  plot.DrawLayer = layer::kTitle;
  PlotSetFont(plot, height);
  PlotText(plot, (sheet.width - TextWidth(text, height)) / 2,
           sheet.height - sheet.marginBottom + (kNumberDrop - kNumberHeight) * kTwipsPerMm / 2, text, kBlack);
}

void PlotSheet(Plot& plot, const FigureSheets& sheets, int page, Figure& figure) {
  const int cells = CellCount(sheets.layout);
  for (int cell = 0; cell < cells; ++cell) {
    const auto place = static_cast<std::size_t>(page * cells + cell);
    if (place >= sheets.figures.size()) break;
    ChooseFigure(figure, sheets.figures[place]);
    if (sheets.shown) {
      figure.view = *sheets.shown;
      figure.FigureFlags = kDataUnchanged;
    }
    DrawFrameFigure(plot, kPageControl, figure, {}, sheets.layout, cell);
  }
  if (sheets.pageNumbers) PlotPageNumber(plot, sheets.firstPage + page);
}

}  // namespace

Surface SheetSurface(const PrinterRec& printer) {
  PageSetup setup;
  PaperSize(printer.paper, setup.paperWidth, setup.paperHeight);
  if (printer.orientation == kLandscape) std::swap(setup.paperWidth, setup.paperHeight);
  Surface sheet;
  sheet.page = true;
  sheet.width = setup.paperWidth * kTwipsPerMm;
  sheet.height = setup.paperHeight * kTwipsPerMm;
  sheet.marginLeft = kMarginLeft * kTwipsPerMm;
  sheet.marginTop = kMarginTop * kTwipsPerMm;
  sheet.marginRight = kMarginRight * kTwipsPerMm;
  sheet.marginBottom = kMarginBottom * kTwipsPerMm;
  return sheet;
}

int FigureSheets::PageCount() const {
  const int cells = CellCount(layout);
  return (static_cast<int>(figures.size()) + cells - 1) / cells;
}

FigureSheets SheetsOf(const PrinterRec& printer, std::vector<SelectedFigure> figures, int layout) {
  FigureSheets sheets;
  sheets.figures = std::move(figures);
  sheets.layout = layout;
  sheets.sheet = SheetSurface(printer);
  sheets.pageNumbers = printer.pageNumbers != kNoPageNumbers;
  sheets.firstPage = printer.firstPage;
  return sheets;
}

bool NeedsResults(const SelectedFigure& figure) {
  return SourceOf(figure.kind) == FigureSource::Analysis;
}

void LoadDisplayOptions() {
  LoadModelOptions();
  LoadDesignOptions();
  LoadAnalysisOptions();
}

void ChooseFigure(Figure& figure, const SelectedFigure& choice) {
  figure.DiagramType = choice.kind;
  figure.loadCase = choice.loadCase;
  figure.options = FigureOptionsInForce(choice.kind);
  figure.range = DispOption.range;
  figure.FigureFlags = kRedrawAll;
}

void DrawSheet(PlotTarget& surface, const FigureSheets& sheets, int page, Figure& figure) {
  Plot plot(surface);
  PlotSheet(plot, sheets, page, figure);
}

std::vector<DrawOperation> RecordSheet(const FigureSheets& sheets, int page, Figure& figure) {
  BlankSheet surface(sheets.sheet);
  Plot plot(surface);
  plot.RecordDrawing = true;
  PlotSheet(plot, sheets, page, figure);
  return std::move(plot.drawingList);
}

}  // namespace zorlan

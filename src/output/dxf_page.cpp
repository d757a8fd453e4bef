#include "output/dxf_page.h"

#include "base/fault.h"
#include "base/host.h"
#include "base/text_file.h"
#include "graphics/dxf.h"
#include "graphics/option_figures.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

/// A surface that shows nothing: what it receives is in the drawing list.
class UnseenSurface : public PlotTarget {
 public:
  explicit UnseenSurface(const Surface& surface) : surface_(surface) {}
  Surface TheSurface() const override { return surface_; }
  void Line(Point, Point, const Pen&) override {}
  void Circle(Point, double, const Pen&, bool) override {}
  void Text(Point, std::string_view, double, double, Rgb) override {}
  void Shade(std::span<const Point>, Rgb) override {}

 private:
  Surface surface_;
};

}  // namespace

void DrawFigurePage(Plot& plot, Figure& figure, const FigurePage& page, bool wholeFigure) {
  const FigureOptions options = figure.options;
  const View view = figure.view;
  const int flags = figure.FigureFlags, loadCase = figure.loadCase;
  for (const FigureCell& cell : page) {
    figure.options = FigureOptionsInForce(cell.kind);
    figure.view = view;
    figure.FigureFlags = wholeFigure ? kRedrawAll : kDataUnchanged;
    figure.loadCase = cell.loadCase;
    DrawFrameFigure(plot, "", figure, cell.kind, cell.layout, cell.cell);
  }
  figure.options = options;
  figure.view = view;
  figure.FigureFlags = flags;
  figure.loadCase = loadCase;
}

std::vector<DrawOperation> RecordFigurePage(const Surface& surface, Figure& figure, const FigurePage& page,
                                            bool wholeFigure) {
  UnseenSurface target(surface);
  Plot plot(target);
  plot.RecordDrawing = true;
  DrawFigurePage(plot, figure, page, wholeFigure);
  return std::move(plot.drawingList);
}

std::string DxfPageName(int pageNumber) {
  return "Page-" + std::to_string(pageNumber);
}

std::string DxfPageFault(int pageNumber) {
  return "ページNo=" + std::to_string(pageNumber) + "のDXFファイルは、作成できませんでした";
}

bool WriteDxfPage(int pageNumber, const std::vector<DrawOperation>& drawingList, const std::string& chosen) {
  std::string reason;
  const bool written = [&] {
    if (drawingList.empty()) return false;
    const std::string path = WorkPath + DxfPageName(pageNumber), dxf = path + ".dxf";
    try {
      WriteDrawingList(path + ".tmp", drawingList);
      if (!WriteDXF(path + ".tmp", dxf, &reason)) return false;
      CopyFileOver(dxf, chosen);
      return true;
    } catch (const Fault& fault) {
      reason = fault.what();
      return false;
    }
  }();
  if (!written) Tell(DxfPageFault(pageNumber) + (reason.empty() ? "" : "\n" + reason));
  return written;
}

}  // namespace zorlan

// Figures on sheets of paper: which figure stands in which cell, and the drawing of a sheet on any surface.
#pragma once

#include <optional>
#include <vector>

#include "graphics/drawing_list.h"
#include "graphics/frame_figure.h"
#include "output/batch_print.h"
#include "shell/settings.h"

namespace zorlan {

/// The sheet of these printer settings: paper, orientation and margins, in twips.
Surface SheetSurface(const PrinterRec& printer);

/// What stands on the sheets: the figures fill the cells of a layout (0 to 5) one after another.
struct FigureSheets {
  std::vector<SelectedFigure> figures;
  int layout = 0;
  Surface sheet;
  std::optional<View> shown;  // each figure's window, as the screen has it; nothing: each whole
  bool pageNumbers = false;
  int firstPage = 1;

  int PageCount() const;
};

/// The sheets of these printer settings.
FigureSheets SheetsOf(const PrinterRec& printer, std::vector<SelectedFigure> figures, int layout);

/// Whether a figure is drawn from results of the analysis.
bool NeedsResults(const SelectedFigure& figure);

/// Reads the three option sets of the program's tree.
void LoadDisplayOptions();

/// Makes a figure that of a kind and load case, with its display options and the viewing range in force, to
/// be fitted at its next drawing. Its data stay.
void ChooseFigure(Figure& figure, const SelectedFigure& choice);

/// Draws page `page` (from 0) on a surface that is such a sheet. `figure` has the model and its results.
void DrawSheet(PlotTarget& surface, const FigureSheets& sheets, int page, Figure& figure);

/// What DrawSheet puts on a surface, as a drawing list.
std::vector<DrawOperation> RecordSheet(const FigureSheets& sheets, int page, Figure& figure);

}  // namespace zorlan

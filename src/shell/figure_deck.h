// A figure straight from a deck and the results beside it, for programs without windows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "graphics/frame_figure.h"
#include "shell/figure_sheets.h"

namespace zorlan {

/// The kind of figure that a word of the command line names: "model", "load", "displacement", "axial",
/// "shear", "moment", "steel", "rc".
std::optional<int> FigureKindOf(std::string_view word);
/// All words, with blanks between them.
std::string FigureKindWords();

/// One figure on a sheet of the stored printer settings, without a page number.
FigureSheets SheetOfFigure(const SelectedFigure& choice);

/// Draw the figure of the model in hand on a surface that is such a sheet; write it as a drawing list or as a
/// DXF file. It is made of the deck, the results in the result folder as far as the kind needs them, and the
/// display options of the program's tree. A viewing range in force is told, and results of the model before
/// it was changed: nobody sees here that a part of the model is missing. Throw Fault in the user's words, the
/// deck named: a table at fault, no nodes, a load case that the model hasn't, no results that fit, no design
/// ratios, a drawing that had to stop. What is on the surface then is no figure, and no file is written.
void DrawFigureOfDeck(PlotTarget& surface, const SelectedFigure& choice);
void WriteFigureList(const SelectedFigure& choice, const std::string& path);
void WriteFigureDxf(const SelectedFigure& choice, const std::string& path);

}  // namespace zorlan

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

/// The figure of the model in hand, ready to be drawn: its deck, the results of its result folder as far as
/// the kind needs them, and the display options of the program's tree. Throws Fault in the user's words: a
/// deck without nodes, no results or no design ratios, a load case that the model hasn't. A viewing range in
/// force is told: nobody sees here that a part of the model is missing.
Figure FigureOfDeck(const SelectedFigure& choice);

/// One figure on a sheet of the stored printer settings, without a page number.
FigureSheets SheetOfFigure(const SelectedFigure& choice);

/// Draw the figure on a surface that is such a sheet; write it as a drawing list or as a DXF file. False when
/// the drawing had to stop, which the user was told: what is on the surface then is no figure, and no file is
/// written. Throw Fault.
bool DrawFigureOfDeck(PlotTarget& surface, const SelectedFigure& choice);
bool WriteFigureList(const SelectedFigure& choice, const std::string& path);
bool WriteFigureDxf(const SelectedFigure& choice, const std::string& path);

}  // namespace zorlan

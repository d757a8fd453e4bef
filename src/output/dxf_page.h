// Figure pages: drawn cell by cell on any surface, and exported as DXF files by way of a drawing list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graphics/frame_figure.h"
#include "output/batch_print.h"

namespace zorlan {

/// Draws the figures of a page on the plot's surface, each in its cell with the options in force for its
/// kind. `figure` lends its model, viewing range and, where `wholeFigure` is false, its window. What was
/// chosen in it stays.
void DrawFigurePage(Plot& plot, Figure& figure, const FigurePage& page, bool wholeFigure = true);

/// The operations that a page of this surface receives.
std::vector<DrawOperation> RecordFigurePage(const Surface& surface, Figure& figure, const FigurePage& page,
                                            bool wholeFigure = true);

/// For the dialog that asks for a DXF file: its filter, in the pairs of a name and its pattern, and the name
/// that it proposes.
inline constexpr std::string_view kDxfFilter = "DXFﾌｧｲﾙ(*.dxf)|*.dxf|全てのﾌｧｲﾙ(*.*)|*.*";
std::string DxfPageName(int pageNumber);

/// The words for a page that could not be exported.
std::string DxfPageFault(int pageNumber);

/// Writes the drawing list of a page into the work folder, translates it there and copies the DXF file over
/// `chosen`. A page with nothing drawn, and what can't be written, is told to the user and answers false;
/// `chosen` is as it was then.
bool WriteDxfPage(int pageNumber, const std::vector<DrawOperation>& drawingList, const std::string& chosen);

}  // namespace zorlan

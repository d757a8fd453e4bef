// A page of figures as a DXF file, by way of its drawing list in the work folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graphics/drawing_list.h"

namespace zorlan {

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

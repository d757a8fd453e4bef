// The drawing list: what a figure's surface received, one operation a text line. The DXF export reads it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "graphics/plot_target.h"

namespace zorlan {

/// One operation. Positions and lengths are in twips, y downward, with the offsets of the cell.
struct DrawOperation {
  enum class Kind : std::uint8_t { Line, Circle, Text, TextRotated };
  Kind kind = Kind::Line;
  std::string layer;             // as the line has it: a text's ends in "_TXT"
  double x = 0, y = 0;           // first point, centre, left upper corner of a text
  double x2 = 0, y2 = 0;         // second point of a line
  double radius = 0;             // of a circle
  std::string text;              // of a text, UTF-8
  double width = 0, height = 0;  // of a text
  double angle = 0;              // of a rotated text, degrees counter-clockwise
  Rgb colour = kBlack;

  bool operator==(const DrawOperation&) const = default;
};

/// "LINE, MODEL, 0, 0, 1440, 0, 255". The fields stand with ", " between them, numbers in their plain form. A
/// text keeps its commas; control characters in it stand as blanks, so that no text ends a line.
std::string OperationLine(const DrawOperation& operation);

/// The whole list as the file has it, lines ending in CR LF.
std::string DrawingListText(const std::vector<DrawOperation>& operations);

/// Writes the list as a text file of the system, in place of an older one. Characters that the code page
/// lacks stand as they are printed (Cp932ForPrint). Throws FileFault.
void WriteDrawingList(const std::string& path, const std::vector<DrawOperation>& operations);

}  // namespace zorlan

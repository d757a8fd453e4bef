// DXF files of release 12 from drawing lists: a sequence of pairs, a group code line and a value line, in the
// sections HEADER, TABLES and ENTITIES. The page's y runs downward, the drawing's upward.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/text_file.h"
#include "graphics/plot_target.h"

namespace zorlan {

inline constexpr int kMaxDxfLayers = 1000;

/// A DXF file in the making.
struct DxfFile {
  std::string text;  // the pairs so far, UTF-8, lines ending in CR LF

  // Of the list's first pass. Extents in the page's sense, y downward.
  double xmin = 1E+10, ymin = 1E+10, xmax = -1E+10, ymax = -1E+10;
  int layers = 0;
  std::array<std::string, kMaxDxfLayers> LayerNames;
  std::array<int, kMaxDxfLayers> LayerColours{};  // colour numbers of DXF

  // The window: a square about the middle of the extents, as large as the larger of them. Every y of the file
  // is PageBottom - y, so the drawing's y is 0 at the lower edge of the window.
  double left = 0, right = 0, top = 0, PageBottom = 0;
};

/// A group code and its value, a line each.
void WriteDXFPair(DxfFile& dxf, int code, std::string_view value);
/// The same for a number, in its plain form without blanks.
void WriteDXFPair(DxfFile& dxf, int code, double value);

/// Extents and layers of a drawing list (UTF-8), then the window. Throws Fault: a line of the list that can't
/// be read, or a layer too many.
void ReadDXFExtents(DxfFile& dxf, std::string_view list);

/// The sections. Those that read the list throw Fault for a line of it that can't be read.
void WriteDXFHeader(DxfFile& dxf);
void WriteDXFTables(DxfFile& dxf);
void WriteDXFEntities(DxfFile& dxf, std::string_view list);

/// Entities, from places on the page. A colour is a colour number (RGB).
void WriteDXFLine(DxfFile& dxf, std::string_view layer, double x1, double y1, double x2, double y2,
                  Rgb colour);
void WriteDXFCircle(DxfFile& dxf, std::string_view layer, double x, double y, double radius, Rgb colour);

/// Which place of a text's box its point is.
enum class DxfTextPoint { LeftTop, LeftBottom };
/// A text turned by `angle` degrees counter-clockwise about its point. From a lower left corner it is fitted
/// into its `width`, since readers' fonts are wider than ours; elsewhere they derive the width from the
/// height. They hold no text of more than 255 bytes: a longer one ends there.
void WriteDXFText(DxfFile& dxf, std::string_view layer, double x, double y, std::string_view text,
                  double width, double height, double angle, Rgb colour,
                  DxfTextPoint point = DxfTextPoint::LeftTop);

/// The colour number of DXF for an RGB value: only red 1, only green 3, only blue 5, all three 2, red and
/// blue 6, green and blue 4, any other (black, yellow) 7. Any amount of a colour counts.
int ColourToACI(Rgb colour);

/// The DXF file of a drawing list, both as UTF-8 text. An empty list gives extents of 1E+10 and -1E+10 and no
/// entity. Throws Fault.
std::string DxfOfList(std::string_view list);

/// Writes such a text as a file in code page 932, in place of an older one; what the code page lacks stands
/// as it is printed (Cp932ForPrint). Throws FileFault.
void WriteDxfText(const std::string& dxfFile, std::string_view dxf, Flush flush = Flush::Yes);

/// Translates a drawing list in a file into a DXF file in code page 932, written safely in place of an older
/// one. False, with the reason in `reason` where one is asked for, when a section or a file failed: an older
/// DXF file is still there then.
bool WriteDXF(const std::string& listFile, const std::string& dxfFile, std::string* reason = nullptr);

}  // namespace zorlan

#include "graphics/dxf.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "graphics/list_reader.h"

namespace zorlan {
namespace {

using Kind = DrawOperation::Kind;

constexpr std::string_view kNoFlags = "     0";
constexpr std::size_t kLongestText = 255;  // bytes
constexpr double kPi = 3.14159;  // these digits and no more: a sheet that is exported again stays as it was

struct LineType {
  std::string_view name, description, length;
  std::array<std::string_view, 6> elements;  // up to the first empty one
};
constexpr std::array kLineTypes = {
    LineType{"CONTINUOUS", "実線", "0.0", {}},
    LineType{"HIDDEN", "_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _", "0.375", {"0.25", "-0.125"}},
    LineType{"CENTER", "____ _ ____", "2.0", {"1.25", "-0.25", "0.25", "-0.25"}},
    LineType{"CENTER2", "________ _ ________ _ ________ _ ________", "2.3", {"2.0", "-0.1", "0.1", "-0.1"}},
    LineType{"PHANTOM2",
             "________ _ _ ________ _ _ ________ _ _ ________",
             "2.5",
             {"2.0", "-0.1", "0.1", "-0.1", "0.1", "-0.1"}},
};

/// A text style: fixed height (0.0: each text has its own), the height last used, and its two fonts.
struct TextStyle {
  std::string_view name, height, lastHeight, font, bigFont;
};
constexpr std::array kTextStyles = {
    TextStyle{"STANDARD", "0.0", "2.5", "TXT", ""},
    TextStyle{"STYLE1", "300", "300", "TXT", "BIGFONT"},
    TextStyle{"STYLE2", "0.0", "2.5", "Arial", "ＭＳ Ｐゴシック"},
};
// The count that stands above the styles is a limit for readers, not a promise: it has always been 2.
constexpr std::string_view kStyleCount = "     2";

void TakeIn(DxfFile& dxf, double x, double y) {
  dxf.xmin = std::min(dxf.xmin, x);
  dxf.xmax = std::max(dxf.xmax, x);
  dxf.ymin = std::min(dxf.ymin, y);
  dxf.ymax = std::max(dxf.ymax, y);
}

void TakeIn(DxfFile& dxf, const DrawOperation& operation) {
  const double x = operation.x, y = operation.y;
  switch (operation.kind) {
    case Kind::Line:
      TakeIn(dxf, x, y);
      TakeIn(dxf, operation.x2, operation.y2);
      return;
    case Kind::Circle:
      TakeIn(dxf, x - operation.radius, y - operation.radius);
      TakeIn(dxf, x + operation.radius, y + operation.radius);
      return;
    case Kind::Text:
    case Kind::TextRotated:
      TakeIn(dxf, x, y);
      TakeIn(dxf, x + operation.width, y + operation.height);
      return;
  }
}

void AddLayer(DxfFile& dxf, const DrawOperation& operation) {
  const auto begin = dxf.LayerNames.begin(), end = begin + dxf.layers;
  if (std::find(begin, end, operation.layer) != end) return;
  if (dxf.layers == kMaxDxfLayers)
    throw Fault("レイヤーの数が " + std::to_string(kMaxDxfLayers) + " を超えています");
  const auto place = static_cast<std::size_t>(dxf.layers++);
  dxf.LayerNames[place] = operation.layer;
  dxf.LayerColours[place] = ColourToACI(operation.colour);
}

void SetWindow(DxfFile& dxf) {
  const double half = std::max(dxf.xmax - dxf.xmin, dxf.ymax - dxf.ymin) / 2;
  const double cx = (dxf.xmin + dxf.xmax) / 2, cy = (dxf.ymin + dxf.ymax) / 2;
  dxf.left = cx - half;
  dxf.right = cx + half;
  dxf.top = cy - half;
  dxf.PageBottom = cy + half;
}

/// The operations of a list in order.
template <class Use>
void ForEachOperation(std::string_view list, Use use) {
  while (const std::optional<std::string_view> line = TakeLine(list))
    if (const std::optional<DrawOperation> operation = ReadOperation(*line)) use(*operation);
}

/// A point by its three pairs: `code`, `code` + 10, `code` + 20. `y` is the drawing's, upward.
void WritePoint(DxfFile& dxf, int code, double x, double y) {
  WriteDXFPair(dxf, code, x);
  WriteDXFPair(dxf, code + 10, y);
  WriteDXFPair(dxf, code + 20, 0.0);
}

void WriteVariable(DxfFile& dxf, std::string_view name, double x, double y, bool inSpace) {
  WriteDXFPair(dxf, 9, name);
  WriteDXFPair(dxf, 10, x);
  WriteDXFPair(dxf, 20, y);
  if (inSpace) WriteDXFPair(dxf, 30, 0.0);
}

void BeginEntity(DxfFile& dxf, std::string_view type, std::string_view layer, Rgb colour) {
  WriteDXFPair(dxf, 0, type);
  WriteDXFPair(dxf, 8, layer);
  WriteDXFPair(dxf, 62, ColourToACI(colour));
}

void WriteLineTypes(DxfFile& dxf) {
  WriteDXFPair(dxf, 0, "TABLE");
  WriteDXFPair(dxf, 2, "LTYPE");
  WriteDXFPair(dxf, 70, static_cast<double>(kLineTypes.size()));
  for (const LineType& type : kLineTypes) {
    const auto last = std::find(type.elements.begin(), type.elements.end(), std::string_view());
    WriteDXFPair(dxf, 0, "LTYPE");
    WriteDXFPair(dxf, 2, type.name);
    WriteDXFPair(dxf, 70, kNoFlags);
    WriteDXFPair(dxf, 3, type.description);
    WriteDXFPair(dxf, 72, "    65");
    WriteDXFPair(dxf, 73, static_cast<double>(last - type.elements.begin()));
    WriteDXFPair(dxf, 40, type.length);
    for (auto element = type.elements.begin(); element != last; ++element) WriteDXFPair(dxf, 49, *element);
  }
  WriteDXFPair(dxf, 0, "ENDTAB");
}

void WriteLayers(DxfFile& dxf) {
  WriteDXFPair(dxf, 0, "TABLE");
  WriteDXFPair(dxf, 2, "LAYER");
  WriteDXFPair(dxf, 70, dxf.layers);
  for (int layer = 0; layer < dxf.layers; ++layer) {
    WriteDXFPair(dxf, 0, "LAYER");
    WriteDXFPair(dxf, 2, dxf.LayerNames[static_cast<std::size_t>(layer)]);
    WriteDXFPair(dxf, 70, kNoFlags);
    WriteDXFPair(dxf, 62, dxf.LayerColours[static_cast<std::size_t>(layer)]);
    WriteDXFPair(dxf, 6, kLineTypes[0].name);
  }
  WriteDXFPair(dxf, 0, "ENDTAB");
}

void WriteTextStyles(DxfFile& dxf) {
  WriteDXFPair(dxf, 0, "TABLE");
  WriteDXFPair(dxf, 2, "STYLE");
  WriteDXFPair(dxf, 70, kStyleCount);
  for (const TextStyle& style : kTextStyles) {
    WriteDXFPair(dxf, 0, "STYLE");
    WriteDXFPair(dxf, 2, style.name);
    WriteDXFPair(dxf, 70, kNoFlags);
    WriteDXFPair(dxf, 40, style.height);
    WriteDXFPair(dxf, 41, "1.0");
    WriteDXFPair(dxf, 50, "0.0");
    WriteDXFPair(dxf, 71, kNoFlags);
    WriteDXFPair(dxf, 42, style.lastHeight);
    WriteDXFPair(dxf, 3, style.font);
    WriteDXFPair(dxf, 4, style.bigFont);
  }
  WriteDXFPair(dxf, 0, "ENDTAB");
}

/// A rotated text: its point, the left upper corner, is moved down along the turned y to the left lower one.
void WriteRotatedText(DxfFile& dxf, const DrawOperation& text) {
  const double a = text.angle * kPi / 180;
  WriteDXFText(dxf, text.layer, text.x + text.height * std::sin(a), text.y + text.height * std::cos(a),
               text.text, text.width, text.height, text.angle, text.colour, DxfTextPoint::LeftBottom);
}

}  // namespace

void WriteDXFPair(DxfFile& dxf, int code, std::string_view value) {
  dxf.text.append(std::to_string(code)).append(kLineEnd);
  for (const char c : value)
    dxf.text += static_cast<unsigned char>(c) < ' ' ? ' ' : c;  // a pair is two lines
  dxf.text.append(kLineEnd);
}

void WriteDXFPair(DxfFile& dxf, int code, double value) {
  WriteDXFPair(dxf, code, RealText(value == 0 ? 0.0 : value));  // no minus sign on a zero
}

void ReadDXFExtents(DxfFile& dxf, std::string_view list) {
  ForEachOperation(list, [&](const DrawOperation& operation) {
    TakeIn(dxf, operation);
    AddLayer(dxf, operation);
  });
  SetWindow(dxf);
}

void WriteDXFHeader(DxfFile& dxf) {
  WriteDXFPair(dxf, 0, "SECTION");
  WriteDXFPair(dxf, 2, "HEADER");
  WriteDXFPair(dxf, 9, "$ACADVER");
  WriteDXFPair(dxf, 1, "AC1009");
  // Nothing drawn: the extents stay what they began as, which tells readers that there are none.
  const bool empty = dxf.xmin > dxf.xmax;
  WriteVariable(dxf, "$EXTMIN", dxf.xmin, empty ? dxf.ymin : dxf.PageBottom - dxf.ymax, true);
  WriteVariable(dxf, "$EXTMAX", dxf.xmax, empty ? dxf.ymax : dxf.PageBottom - dxf.ymin, true);
  WriteVariable(dxf, "$LIMMIN", dxf.left, empty ? dxf.top : 0, false);
  WriteVariable(dxf, "$LIMMAX", dxf.right, empty ? dxf.PageBottom : dxf.PageBottom - dxf.top, false);
  WriteDXFPair(dxf, 9, "$MENU");
  WriteDXFPair(dxf, 1, "acad");
  // Tells readers outside Japan how the texts are coded.
  WriteDXFPair(dxf, 9, "$DWGCODEPAGE");
  WriteDXFPair(dxf, 3, "ANSI_932");
  WriteDXFPair(dxf, 0, "ENDSEC");
}

void WriteDXFTables(DxfFile& dxf) {
  WriteDXFPair(dxf, 0, "SECTION");
  WriteDXFPair(dxf, 2, "TABLES");
  WriteLineTypes(dxf);
  WriteLayers(dxf);
  WriteTextStyles(dxf);
  WriteDXFPair(dxf, 0, "ENDSEC");
}

void WriteDXFEntities(DxfFile& dxf, std::string_view list) {
  WriteDXFPair(dxf, 0, "SECTION");
  WriteDXFPair(dxf, 2, "ENTITIES");
  ForEachOperation(list, [&](const DrawOperation& o) {
    switch (o.kind) {
      case Kind::Line:
        return WriteDXFLine(dxf, o.layer, o.x, o.y, o.x2, o.y2, o.colour);
      case Kind::Circle:
        return WriteDXFCircle(dxf, o.layer, o.x, o.y, o.radius, o.colour);
      case Kind::Text:
        return WriteDXFText(dxf, o.layer, o.x, o.y, o.text, o.width, o.height, 0, o.colour);
      case Kind::TextRotated:
        return WriteRotatedText(dxf, o);
    }
  });
  WriteDXFPair(dxf, 0, "ENDSEC");
}

void WriteDXFLine(DxfFile& dxf, std::string_view layer, double x1, double y1, double x2, double y2,
                  Rgb colour) {
  BeginEntity(dxf, "LINE", layer, colour);
  WritePoint(dxf, 10, x1, dxf.PageBottom - y1);
  WritePoint(dxf, 11, x2, dxf.PageBottom - y2);
}

void WriteDXFCircle(DxfFile& dxf, std::string_view layer, double x, double y, double radius, Rgb colour) {
  BeginEntity(dxf, "CIRCLE", layer, colour);
  WritePoint(dxf, 10, x, dxf.PageBottom - y);
  WriteDXFPair(dxf, 40, radius);
}

void WriteDXFText(DxfFile& dxf, std::string_view layer, double x, double y, std::string_view text,
                  double width, double height, double angle, Rgb colour, DxfTextPoint point) {
  const std::string_view front = FrontWithin(text, kLongestText);
  const double a = angle * kPi / 180, bottom = dxf.PageBottom - y;
  // Readers fit a text between two points of its base line alone, and not between points of its top.
  const bool fitted = point == DxfTextPoint::LeftBottom && width > 0 && front.size() == text.size();
  constexpr double kLeft = 0, kFit = 5;
  constexpr double kBaseLine = 0, kTop = 3;  // of the capitals
  BeginEntity(dxf, "TEXT", layer, colour);
  WritePoint(dxf, 10, x, bottom);
  WriteDXFPair(dxf, 40, height);
  WriteDXFPair(dxf, 1, front);
  WriteDXFPair(dxf, 50, angle);
  WriteDXFPair(dxf, 7, "STYLE2");
  WriteDXFPair(dxf, 72, fitted ? kFit : kLeft);
  WriteDXFPair(dxf, 11, fitted ? x + width * std::cos(a) : x);
  WriteDXFPair(dxf, 21, fitted ? bottom + width * std::sin(a) : bottom);
  WriteDXFPair(dxf, 73, point == DxfTextPoint::LeftTop ? kTop : kBaseLine);
}

int ColourToACI(Rgb colour) {
  const bool red = (colour & 0x0000FF) != 0, green = (colour & 0x00FF00) != 0,
             blue = (colour & 0xFF0000) != 0;
  if (red && green && blue) return 2;
  if (red && green) return 7;
  if (red && blue) return 6;
  if (green && blue) return 4;
  if (red) return 1;
  if (green) return 3;
  return blue ? 5 : 7;
}

std::string DxfOfList(std::string_view list) {
  DxfFile dxf;
  ReadDXFExtents(dxf, list);
  WriteDXFHeader(dxf);
  WriteDXFTables(dxf);
  WriteDXFEntities(dxf, list);
  WriteDXFPair(dxf, 0, "EOF");
  return std::move(dxf.text);
}

void WriteDxfText(const std::string& dxfFile, std::string_view dxf, Flush flush) {
  ReplaceBytes(dxfFile, Cp932ForPrint(dxf), flush);
}

bool WriteDXF(const std::string& listFile, const std::string& dxfFile, std::string* reason) try {
  WriteDxfText(dxfFile, DxfOfList(ReadTextFile(listFile)), Flush::No);
  return true;
} catch (const Fault& fault) {
  if (reason != nullptr) *reason = fault.what();
  return false;
}

}  // namespace zorlan

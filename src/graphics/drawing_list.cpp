#include "graphics/drawing_list.h"

#include <array>

#include "base/cp932.h"
#include "base/number.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

constexpr std::array<std::string_view, 4> kKeywords = {"LINE", "CIRCLE", "TEXT", "TEXTR"};

void AppendField(std::string& line, double value) {
  line += ", ";
  AppendReal(line, value);
}

/// No text ends a line. A comma in it stays: the fields behind the text are counted from the line's end.
void AppendTextField(std::string& line, std::string_view text) {
  line += ", ";
  for (const char c : text) line += static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? ' ' : c;
}

}  // namespace

std::string OperationLine(const DrawOperation& operation) {
  using Kind = DrawOperation::Kind;
  std::string line(kKeywords[static_cast<std::size_t>(operation.kind)]);
  line += ", ";
  line += operation.layer;
  AppendField(line, operation.x);
  AppendField(line, operation.y);
  switch (operation.kind) {
    case Kind::Line:
      AppendField(line, operation.x2);
      AppendField(line, operation.y2);
      break;
    case Kind::Circle:
      AppendField(line, operation.radius);
      break;
    case Kind::Text:
    case Kind::TextRotated:
      AppendTextField(line, operation.text);
      AppendField(line, operation.width);
      AppendField(line, operation.height);
      if (operation.kind == Kind::TextRotated) AppendField(line, operation.angle);
      break;
  }
  AppendField(line, operation.colour);
  return line;
}

std::string DrawingListText(const std::vector<DrawOperation>& operations) {
  std::string text;
  for (const DrawOperation& operation : operations) text += OperationLine(operation) + "\r\n";
  return text;
}

void WriteDrawingList(const std::string& path, const std::vector<DrawOperation>& operations) {
  ReplaceBytes(path, Cp932ForPrint(DrawingListText(operations)), Flush::No);
}

}  // namespace zorlan

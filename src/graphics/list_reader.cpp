#include "graphics/list_reader.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "base/fault.h"
#include "base/number.h"
#include "base/text.h"

namespace zorlan {
namespace {

using Kind = DrawOperation::Kind;

/// The fields of a kind of line: layer first, then what the others are.
struct LineForm {
  std::string_view keyword;
  Kind kind;
  int before;     // fields ahead of the text, or all of them where there is none
  int after = 0;  // fields behind the text; 0: no text
};
constexpr std::array kForms = {
    LineForm{"LINE", Kind::Line, 6},             // layer, x1, y1, x2, y2, colour
    LineForm{"CIRCLE", Kind::Circle, 5},         // layer, x, y, radius, colour
    LineForm{"TEXT", Kind::Text, 3, 3},          // layer, x, y, text, width, height, colour
    LineForm{"TEXTR", Kind::TextRotated, 3, 4},  // layer, x, y, text, width, height, angle, colour
};

std::vector<std::string_view> SplitAtCommas(std::string_view line) {
  std::vector<std::string_view> fields;
  for (std::optional<std::string_view> rest = line; rest;) fields.push_back(TakeField(rest));
  return fields;
}

[[noreturn]] void Refuse(std::string_view line) {
  throw Fault("描画リストの行を読めません：" + std::string(line));
}

double Number(std::string_view field, std::string_view line) {
  const std::optional<double> value = ReadFinite(NoSpc(field));
  if (!value) Refuse(line);
  return *value;
}

Rgb Colour(std::string_view field, std::string_view line) {
  const double value = Number(field, line);
  if (std::abs(value) > std::numeric_limits<Rgb>::max()) Refuse(line);
  return static_cast<Rgb>(value);
}

/// From the first character of one field to the last of another: the commas between them included.
std::string_view Joined(const std::vector<std::string_view>& fields, std::size_t first, std::size_t last) {
  const char* const begin = fields[first].data();
  return {begin, static_cast<std::size_t>(fields[last].data() + fields[last].size() - begin)};
}

const LineForm* FormOf(std::string_view keyword) {
  const std::string name = UpperCase(NoSpc(keyword));
  for (const LineForm& form : kForms)
    if (form.keyword == name) return &form;
  return nullptr;
}

}  // namespace

std::optional<DrawOperation> ReadOperation(std::string_view line) {
  const std::vector<std::string_view> fields = SplitAtCommas(line);
  const LineForm* const form = FormOf(fields[0]);
  if (form == nullptr) return std::nullopt;
  const bool hasText = form->after > 0;
  const std::size_t count = fields.size() - 1;
  const auto before = static_cast<std::size_t>(form->before), after = static_cast<std::size_t>(form->after);
  if (hasText ? count < before + 1 + after : count != before) Refuse(line);

  DrawOperation operation;
  operation.kind = form->kind;
  operation.layer = NoSpc(fields[1]);
  if (operation.layer.empty()) Refuse(line);
  operation.x = Number(fields[2], line);
  operation.y = Number(fields[3], line);
  if (hasText) {
    const std::size_t behind = fields.size() - after;
    operation.text = NoSpc(Joined(fields, before + 1, behind - 1));
    operation.width = Number(fields[behind], line);
    operation.height = Number(fields[behind + 1], line);
    if (form->kind == Kind::TextRotated) operation.angle = Number(fields[behind + 2], line);
  } else if (form->kind == Kind::Line) {
    operation.x2 = Number(fields[4], line);
    operation.y2 = Number(fields[5], line);
  } else {
    operation.radius = Number(fields[4], line);
  }
  operation.colour = Colour(fields.back(), line);
  return operation;
}

}  // namespace zorlan

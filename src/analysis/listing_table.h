// What the tables of a listing are made of: lines, rows of number fields, and headings that depend on the
// model.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "analysis/field_format.h"
#include "base/text.h"
#include "model/model_rec.h"

namespace zorlan {

/// Place of the frame's text, or the grid's, in a pair of headings.
inline std::size_t KindPlace(const ModelRec& model) {
  return model.ModelCode == kPlaneGrid ? 1 : 0;
}

inline void AppendLine(std::string& out, std::string_view line) {
  out += line;
  out += kLineEnd;
}

/// Numbers of any kind as the values of a row.
template <class... Numbers>
std::array<double, sizeof...(Numbers)> Reals(Numbers... numbers) {
  return {static_cast<double>(numbers)...};
}

/// The fields of a row from left to right, without its end. As many values as patterns.
inline void AppendFields(std::string& out, std::span<const NumberPattern> patterns,
                         std::span<const double> values) {
  for (std::size_t i = 0; i < values.size(); ++i) AppendField(out, values[i], patterns[i]);
}

}  // namespace zorlan

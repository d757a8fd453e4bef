// The storeys of a same-displacement frame: what both roads' eliminations leave of the layers' own equations.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "analysis/equations.h"

namespace zorlan {

/// Told as a long computation goes on, every few million multiplications: share done, 0 to 1.
using Progress = std::function<void(double share)>;
inline constexpr std::size_t kWorkBetweenTells = std::size_t{1} << 23;  // multiplications

/// Condensed stiffness of the layers, t/m: row h, column k at h * layers + k, and their load terms, both from
/// 0.
struct LayerSystem {
  std::vector<double> stiffness;
  CaseTable loads;
  std::vector<bool> held;  // layers that are no pivots and stay at 0; empty: none
};

/// Displacements of the layers, a row each: Gauss elimination, row by row, of the upper triangle. A pivot of
/// 0.001 t/m or less answers nothing, and `fault` names the layer.
std::optional<CaseTable> SolveLayers(LayerSystem system, NoStiffness& fault, const Progress& progress);

}  // namespace zorlan

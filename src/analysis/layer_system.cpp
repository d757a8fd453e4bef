#include "analysis/layer_system.h"

#include <algorithm>
#include <cmath>

#include "analysis/row_reduction.h"

namespace zorlan {
namespace {

constexpr double kLayerPivot = 0.001;  // t/m; quite unlike the pivot limits of the nodes, on purpose

}  // namespace

std::optional<CaseTable> SolveLayers(LayerSystem system, NoStiffness& fault, const Progress& progress) {
  const int layers = system.loads.Equations(), cases = system.loads.Cases();
  const auto row = [&](int h) { return system.stiffness.data() + static_cast<std::ptrdiff_t>(h) * layers; };
  const auto held = [&](int h) { return !system.held.empty() && system.held[static_cast<std::size_t>(h)]; };
  std::size_t work = 0;
  for (int h = 0; h < layers; ++h) {
    if (held(h)) continue;
    work += static_cast<std::size_t>(layers - h) * static_cast<std::size_t>(layers - h + cases);
    if (work >= kWorkBetweenTells) {
      work = 0;
      progress(static_cast<double>(h) / layers);
    }
    const double p = row(h)[h];
    if (std::abs(p) <= kLayerPivot) {
      fault = {h + 1, h + 1, NoStiffness::What::Layer};
      return std::nullopt;
    }
    for (int j = h; j < layers; ++j) row(h)[j] /= p;
    for (int c = 0; c < cases; ++c) system.loads[h][c] /= p;
    for (int r = h + 1; r < layers; ++r) {
      const double f = row(r)[h];
      if (f == 0) continue;
      const double* const pivot = row(h) + h;
      ReduceRow(row(r) + h, &pivot, &f, 1, static_cast<std::size_t>(layers - h));
      SubtractProducts(system.loads[r], &f, system.loads[h], 1, cases);
    }
  }
  for (int h = layers - 1; h >= 0; --h) {
    if (held(h)) std::fill_n(system.loads[h], cases, 0.0);
    for (int k = h + 1; k < layers && !held(h); ++k)
      SubtractProducts(system.loads[h], row(h) + k, system.loads[k], 1, cases);
  }
  return std::move(system.loads);
}

}  // namespace zorlan

// The inner loop of every elimination: one row less multiples of pivot rows.
#pragma once

#include <array>
#include <cstddef>

namespace zorlan {

/// row[j] -= f[0] p[0][j], then f[1] p[1][j], then f[2] p[2][j], for j from 0 to width - 1: the same values,
/// to the last bit, as three separate sweeps. `pivots` of them, 1 to 3, are used.
void ReduceRow(double* row, const double* const* p, const double* f, int pivots, std::size_t width);

/// ReduceRow of three rows by the same three pivot rows, which are read once: f[3 r + k] is row r's factor of
/// pivot k.
void ReduceThreeRows(double* const* rows, const double* const* p, const double* f, std::size_t width);

/// One step of a back substitution: x -= the coefficients of `count` equations (1 to 3) times their
/// displacements, which lie a row of cases behind each other.
inline void SubtractProducts(double* x, const double* coefficients, const double* displacements, int count,
                             int cases) {
  if (cases == 1) {  // too short for the vectors
    for (int k = 0; k < count; ++k) *x -= coefficients[k] * displacements[k];
    return;
  }
  std::array<const double*, 3> p{};
  for (int k = 0; k < count; ++k)
    p[static_cast<std::size_t>(k)] = displacements + static_cast<std::ptrdiff_t>(k) * cases;
  ReduceRow(x, p.data(), coefficients, count, static_cast<std::size_t>(cases));
}

}  // namespace zorlan

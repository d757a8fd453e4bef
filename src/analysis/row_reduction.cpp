#include "analysis/row_reduction.h"

// The loops are element by element and free of fused operations, so every width of vector gives the same
// bits; the system's loader picks the widest that the processor has. (The sanitizers' and the fuzzer's builds
// have no such loader.)
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) && \
    defined(__gnu_linux__)
#define ZORLAN_VECTOR_CLONES __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define ZORLAN_VECTOR_CLONES
#endif

// Tells the compiler that the rows of the loop behind it are different rows.
#if defined(__GNUC__) && !defined(__clang__)
#define ZORLAN_ROWS_APART _Pragma("GCC ivdep")
#else
#define ZORLAN_ROWS_APART
#endif

namespace zorlan {

ZORLAN_VECTOR_CLONES
void ReduceRow(double* __restrict row, const double* const* p, const double* f, int pivots,
               std::size_t width) {
  const double* __restrict p0 = p[0];
  const double f0 = f[0];
  if (pivots == 1) {
    for (std::size_t j = 0; j < width; ++j) row[j] -= f0 * p0[j];
    return;
  }
  const double* __restrict p1 = p[1];
  const double f1 = f[1];
  if (pivots == 2) {
    for (std::size_t j = 0; j < width; ++j) row[j] = row[j] - f0 * p0[j] - f1 * p1[j];
    return;
  }
  const double* __restrict p2 = p[2];
  const double f2 = f[2];
  for (std::size_t j = 0; j < width; ++j) row[j] = row[j] - f0 * p0[j] - f1 * p1[j] - f2 * p2[j];
}

ZORLAN_VECTOR_CLONES
void ReduceThreeRows(double* const* rows, const double* const* p, const double* f, std::size_t width) {
  double* __restrict a = rows[0];
  double* __restrict b = rows[1];
  double* __restrict c = rows[2];
  const double* __restrict p0 = p[0];
  const double* __restrict p1 = p[1];
  const double* __restrict p2 = p[2];
  const double a0 = f[0], a1 = f[1], a2 = f[2];
  const double b0 = f[3], b1 = f[4], b2 = f[5];
  const double c0 = f[6], c1 = f[7], c2 = f[8];
  ZORLAN_ROWS_APART
  for (std::size_t j = 0; j < width; ++j) {
    const double q0 = p0[j], q1 = p1[j], q2 = p2[j];
    a[j] = a[j] - a0 * q0 - a1 * q1 - a2 * q2;
    b[j] = b[j] - b0 * q0 - b1 * q1 - b2 * q2;
    c[j] = c[j] - c0 * q0 - c1 * q1 - c2 * q2;
  }
}

}  // namespace zorlan

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

}  // namespace zorlan

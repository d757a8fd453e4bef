// The fast loops against the plain ones, bit for bit: they may be reordered for the machine, not for the
// result.
#include "analysis/row_reduction.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace zorlan {
namespace {

using Row = std::vector<double>;

/// One row less one multiple of another, each step rounded.
void PlainSweep(Row& row, const Row& pivot, double f) {
  for (std::size_t j = 0; j < row.size(); ++j) {
    const volatile double product = f * pivot[j];  // no fused operation
    row[j] = row[j] - product;
  }
}

class RandomRows {
 public:
  explicit RandomRows(std::uint32_t seed) : random_(seed) {}
  /// Numbers of many magnitudes, with exact zeros among them.
  double Number() {
    const double mantissa = static_cast<double>(random_()) / 4294967296.0 - 0.5;
    return random_() % 8 == 0 ? 0 : std::ldexp(mantissa, static_cast<int>(random_() % 80) - 40);
  }
  Row Numbers(std::size_t count) {
    Row row(count);
    for (double& value : row) value = Number();
    return row;
  }

 private:
  std::mt19937 random_;
};

void ExpectSameBits(const Row& actual, const Row& expected, std::size_t width) {
  for (std::size_t j = 0; j < width; ++j)
    EXPECT_EQ(std::bit_cast<std::uint64_t>(actual[j]), std::bit_cast<std::uint64_t>(expected[j]))
        << "width " << width << " place " << j;
}

TEST(RowReduction, OfARowIsTheSameToTheLastBitAsSeparateSweeps) {
  RandomRows random(11);
  for (std::size_t width = 0; width < 70; ++width)
    for (int pivots = 1; pivots <= 3; ++pivots) {
      const std::array<Row, 3> p = {random.Numbers(width), random.Numbers(width), random.Numbers(width)};
      const Row f = random.Numbers(3);
      Row row = random.Numbers(width), expected = row;
      for (std::size_t k = 0; k < static_cast<std::size_t>(pivots); ++k) PlainSweep(expected, p[k], f[k]);
      const double* const pointers[] = {p[0].data(), p[1].data(), p[2].data()};
      ReduceRow(row.data(), pointers, f.data(), pivots, width);
      ExpectSameBits(row, expected, width);
    }
}

TEST(RowReduction, OfThreeRowsIsTheSameToTheLastBitAsOneByOne) {
  RandomRows random(12);
  for (std::size_t width = 0; width < 70; ++width) {
    const std::array<Row, 3> p = {random.Numbers(width), random.Numbers(width), random.Numbers(width)};
    const Row f = random.Numbers(9);
    std::array<Row, 3> rows = {random.Numbers(width), random.Numbers(width), random.Numbers(width)};
    std::array<Row, 3> expected = rows;
    for (std::size_t r = 0; r < 3; ++r)
      for (std::size_t k = 0; k < 3; ++k) PlainSweep(expected[r], p[k], f[3 * r + k]);
    const double* const pointers[] = {p[0].data(), p[1].data(), p[2].data()};
    double* const targets[] = {rows[0].data(), rows[1].data(), rows[2].data()};
    ReduceThreeRows(targets, pointers, f.data(), width);
    for (std::size_t r = 0; r < 3; ++r) ExpectSameBits(rows[r], expected[r], width);
  }
}

TEST(RowReduction, LeavesWhatIsBehindTheWidthAlone) {
  Row row = {1, 2, 3, 4, 5};
  const Row p = {1, 1, 1, 1, 1};
  const double* const pointers[] = {p.data()};
  const double f = 1;
  ReduceRow(row.data(), pointers, &f, 1, 3);
  EXPECT_EQ(row, (Row{0, 1, 2, 4, 5}));
}

}  // namespace
}  // namespace zorlan

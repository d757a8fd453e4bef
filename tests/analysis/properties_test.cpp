// What holds for every sound model, tried on random ones. The seed stands in the name of what fails.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/random_models.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

constexpr double kRounding = 1e-9;  // of the largest value of the kind
constexpr int kSeeds = 25;

std::vector<RandomShape> Shapes() {
  std::vector<RandomShape> shapes;
  for (const ModelKind kind : {kPlaneFrame, kSameDisplacementFrame, kPlaneGrid})
    for (const auto& [columns, storeys] : {std::pair(2, 2), {4, 4}, {3, 9}, {7, 4}, {6, 9}, {12, 5}})
      for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) shapes.push_back({kind, columns, storeys, seed});
  return shapes;
}

double Largest(const std::vector<double>& values) {
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value));
  return largest;
}
std::vector<double> Values(const CaseTable& table) {
  if (table.Empty()) return {};
  return {table[0], table[table.Equations() - 1] + table.Cases()};
}
double LargestDifference(const std::vector<double>& a, const std::vector<double>& b) {
  EXPECT_EQ(a.size(), b.size());
  double largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) largest = std::max(largest, std::abs(a[i] - b[i]));
  return largest;
}

TEST(EveryModel, HasTheSameDisplacementsReactionsAndForcesOnBothRoads) {
  for (const RandomShape& shape : Shapes()) {
    const ModelRec model = RandomModel(shape).Model();
    const SolvedModel file = Solve(model, SolverRoad::File), memory = Solve(model, SolverRoad::InMemory);
    ASSERT_FALSE(file.instability || memory.instability) << shape.Name();
    EXPECT_LE(LargestDifference(Values(file.displacements), Values(memory.displacements)),
              kRounding * Largest(Values(memory.displacements)))
        << shape.Name();
    EXPECT_LE(LargestDifference(file.forces, memory.forces), kRounding * Largest(memory.forces))
        << shape.Name();
  }
}

}  // namespace
}  // namespace zorlan::test

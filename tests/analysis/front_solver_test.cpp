#include <gtest/gtest.h>
#include "support/model_builder.h"
#include "support/solved_model.h"
namespace zorlan::test {
namespace {
TEST(FrontSolver, ASlotTakenAgainKeepsNothingOfItsFormerNode) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 3);
  b.Node(0, 0, kClamped);
  b.Node(6, 4);
  b.Node(6, 2);
  b.Node(6, 0, kClamped);
  b.Element(2, 1);
  b.Element(3, 4);
  b.Element(4, 5);
  b.NodalLoad(1, 1, 0, 0);
  b.NodalLoad(3, 1, 0, 0);
  const SolvedModel s = Solve(b.model, SolverRoad::File);
  ASSERT_FALSE(s.instability);
  EXPECT_NEAR(s.U(1, 0), 27.0 / 3 / 200, 1e-9);
  EXPECT_NEAR(s.U(3, 0), 64.0 / 3 / 200, 1e-9);
}
}  // namespace
}  // namespace zorlan::test

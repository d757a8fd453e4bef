// Beams, frames, trusses and grids whose displacements an engineer knows by heart, on both in-program roads.
#include <gtest/gtest.h>

#include <cmath>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

constexpr double kE = 2e6, kEA = 20000, kEI = 200;  // t/m2, t, t*m2
constexpr double kStiff = 1e10;                     // EA in t: no axial deformation to speak of

/// A builder with the section of these values.
ModelBuilder Plain(ModelKind kind = kPlaneFrame, double EA = kEA) {
  ModelBuilder b(kind);
  b.Section(kE, EA / kE, kEI / kE);
  return b;
}

struct Value {
  int row, d;  // node row, equation 0 to 2
  double expected;
};
struct ClosedForm {
  const char* name;
  ModelBuilder built;
  std::vector<Value> values;
};

std::vector<ClosedForm> ClosedForms() {
  std::vector<ClosedForm> forms;

  ModelBuilder cantilever = Plain();  // P L^3/3EI, P L^2/2EI
  cantilever.Node(0, 0, kClamped);
  cantilever.Node(3, 0);
  cantilever.Element(1, 2);
  cantilever.NodalLoad(2, 8, -1, 0);
  forms.push_back(
      {"cantilever", cantilever, {{2, 0, 8 * 3 / kEA}, {2, 1, -27 / (3 * kEI)}, {2, 2, -9 / (2 * kEI)}}});

  ModelBuilder upright = Plain();  // turned by a right angle, the support last, the member from top to base
  upright.Node(0, 3);
  upright.Node(0, 0, kClamped);
  upright.Element(1, 2);
  upright.NodalLoad(1, 1, 0, 0);
  forms.push_back({"upright cantilever", upright, {{1, 0, 27 / (3 * kEI)}, {1, 2, -9 / (2 * kEI)}}});

  ModelBuilder fixed = Plain();  // P L^3/192EI
  fixed.Node(0, 0, kClamped);
  fixed.Node(2, 0);
  fixed.Node(4, 0, kClamped);
  fixed.Element(1, 2);
  fixed.Element(2, 3);
  fixed.NodalLoad(2, 0, -3, 0);
  forms.push_back({"fixed beam, point load", fixed, {{2, 1, -3 * 64 / (192 * kEI)}, {2, 2, 0}}});

  ModelBuilder simple = Plain();  // free to turn at both ends: 5 w l^4/384EI, w l^3/24EI
  simple.Node(0, 0, kHinged);
  simple.Node(2, 0);
  simple.Node(4, 0, kRolling);
  simple.Element(1, 2);
  simple.Element(3, 2);
  simple.ElementLoad(1, -1);
  simple.ElementLoad(2, -1, 0, 0, 1);  // runs to the left: loaded by the vertical
  forms.push_back({"simple beam, uniform load",
                   simple,
                   {{2, 1, -5 * 256 / (384 * kEI)}, {1, 2, -64 / (24 * kEI)}, {3, 2, 64 / (24 * kEI)}}});

  ModelBuilder propped = Plain();  // w l^3/48EI at the end that may turn
  propped.Node(0, 0, kClamped);
  propped.Node(4, 0, {1, 1, 0});
  propped.Element(1, 2, 1, 0, 0);
  propped.ElementLoad(1, -1);
  forms.push_back({"propped cantilever, uniform load", propped, {{2, 2, 64 / (48 * kEI)}}});

  ModelBuilder hinge = Plain();  // two cantilevers joined by a pin, P on the joint: each takes half
  hinge.Node(0, 0, kClamped);
  hinge.Node(3, 0);
  hinge.Node(6, 0, kClamped);
  hinge.Element(1, 2, 1, 0, 1);
  hinge.Element(2, 3, 1, 0, 0);
  hinge.NodalLoad(2, 0, -2, 0);
  forms.push_back({"pinned joint", hinge, {{2, 1, -27 / (3 * kEI)}, {2, 2, 9 / (2 * kEI)}}});

  ModelBuilder prop = Plain();  // the tip on a spring of 300 t/m: P/(3EI/L^3 + k)
  prop.Node(0, 0, kClamped);
  prop.Node(3, 0, {0, 2, 0});
  prop.Element(1, 2);
  prop.Spring(2, 0, 3, 0);
  prop.NodalLoad(2, 0, -1, 0);
  forms.push_back({"sprung tip", prop, {{2, 1, -1 / (3 * kEI / 27 + 300)}}});

  ModelBuilder turning = Plain();  // a bar's end on a rotation spring of 50 t*m/rad alone: M/k
  turning.Node(0, 0, kHinged);
  turning.Node(3, 0, {0, 1, 2});
  turning.Element(1, 2, 1, 1, 1);
  turning.Spring(2, 0, 0, 5000);
  turning.NodalLoad(2, 0, 0, 2);
  forms.push_back({"rotation spring", turning, {{2, 2, 2. / 50}}});

  ModelBuilder truss = Plain();  // two bars at 3-4-5, P at the top: N = P/(2 * 0.8), v = N L/(EA * 0.8)
  truss.Node(-3, 0, kHinged);
  truss.Node(3, 0, kHinged);
  truss.Node(0, 4);
  truss.Element(1, 3, 1, 1, 1);
  truss.Element(3, 2, 1, 1, 1);
  truss.NodalLoad(3, 0, -8, 0);
  forms.push_back({"two-bar truss", truss, {{3, 0, 0}, {3, 1, -8 / 1.6 * 5 / (kEA * 0.8)}, {3, 2, 0}}});

  // Fixed portal, h = 3, l = 6, k = (I/l)/(I/h) = 1/2: sway stiffness 24EI/h^3 (1 + 6k)/(4 + 6k).
  ModelBuilder portal = Plain(kPlaneFrame, kStiff);
  portal.Node(0, 0, kClamped);
  portal.Node(0, 3);
  portal.Node(6, 3);
  portal.Node(6, 0, kClamped);
  portal.Element(1, 2);
  portal.Element(2, 3);
  portal.Element(3, 4);
  portal.NodalLoad(2, 1, 0, 0);
  const double sway = 27 / (24 * kEI) * 7 / 4;
  forms.push_back({"portal", portal, {{2, 0, sway}, {3, 0, sway}}});

  ModelBuilder heated = Plain();  // free to grow: α ΔT L
  heated.Node(0, 0, kClamped);
  heated.Node(3, 0);
  heated.Element(1, 2);
  heated.TemperatureLoad(1, 10, 30, 30, 1e-5, 10);
  forms.push_back({"heated bar", heated, {{2, 0, 1e-5 * 20 * 3}, {2, 1, 0}, {2, 2, 0}}});

  ModelBuilder bowed = Plain();  // warm above: free curvature κ = α δ/h, θ = -κ L, v = -κ L^2/2
  bowed.Node(0, 0, kClamped);
  bowed.Node(3, 0);
  bowed.Element(1, 2);
  bowed.TemperatureLoad(1, 10, 20, 0, 1e-5, 10);
  forms.push_back({"bowed by heat", bowed, {{2, 0, 0}, {2, 1, -1e-3 * 4.5}, {2, 2, -1e-3 * 3}}});

  ModelBuilder outrigger = Plain(kPlaneGrid);  // along Y: w' = θx
  outrigger.Node(0, 0, kClamped);
  outrigger.Node(0, 3);
  outrigger.Element(1, 2);
  outrigger.NodalLoad(2, -1, 0, 0);
  forms.push_back(
      {"grid cantilever along Y", outrigger, {{2, 0, -27 / (3 * kEI)}, {2, 1, -9 / (2 * kEI)}, {2, 2, 0}}});

  ModelBuilder balcony = Plain(kPlaneGrid);  // along X: w' = -θy
  balcony.Node(0, 0, kClamped);
  balcony.Node(3, 0);
  balcony.Element(1, 2);
  balcony.NodalLoad(2, -1, 0, 0);
  forms.push_back(
      {"grid cantilever along X", balcony, {{2, 0, -27 / (3 * kEI)}, {2, 1, 0}, {2, 2, 9 / (2 * kEI)}}});

  ModelBuilder cross = Plain(kPlaneGrid);  // beams of 4 and 6 m share the load by 48EI/L^3
  cross.Node(-2, 0, {1, 0, 0});
  cross.Node(2, 0, {1, 0, 0});
  cross.Node(0, -3, {1, 0, 0});
  cross.Node(0, 3, {1, 0, 0});
  cross.Node(0, 0);
  for (int end = 1; end <= 4; ++end) cross.Element(end, 5);
  cross.NodalLoad(5, -10, 0, 0);
  forms.push_back({"grid of two beams", cross, {{5, 0, -10 / (48 * kEI * (1. / 64 + 1. / 216))}, {5, 1, 0}}});
  return forms;
}

TEST(ClosedForms, AreMetOnBothRoads) {
  for (const ClosedForm& form : ClosedForms())
    for (const SolverRoad road : kRoads) {
      const SolvedModel s = Solve(form.built.model, road);
      ASSERT_FALSE(s.instability) << form.name;
      for (const Value& v : form.values)
        EXPECT_NEAR(s.U(v.row, v.d), v.expected, 1e-6 * std::abs(v.expected) + 1e-13)
            << form.name << ", node " << v.row << ", equation " << v.d
            << (road == SolverRoad::File ? ", file road" : ", in memory");
    }
}

}  // namespace
}  // namespace zorlan::test

// The seven member force values: end forces on the member, and the moment at its middle.
#include "analysis/member_forces.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/model_builder.h"
#include "support/solved_model.h"

namespace zorlan::test {
namespace {

using Seven = std::array<double, kForcesPerElement>;

/// One member between clamped nodes. EA = 20000 t, EI = 200 t*m2.
ModelBuilder Held(double xi, double yi, double xj, double yj, int II = 0, int JJ = 0,
                  ModelKind kind = kPlaneFrame) {
  ModelBuilder b(kind);
  b.Section(2e6, 0.01, 1e-4);
  b.Node(xi, yi, kClamped);
  b.Node(xj, yj, kClamped);
  b.Element(1, 2, 1, II, JJ);
  return b;
}
ModelBuilder Loaded(ModelBuilder b, double P, int MG = 0) {
  b.ElementLoad(1, P, 0, 0, MG);
  return b;
}
ModelBuilder Heated(ModelBuilder b, double T1, double T2, int J = 0) {
  b.TemperatureLoad(1, 10, T1, T2, 1e-5, 10, J);
  return b;
}
ModelBuilder WithCmq(ModelBuilder b, int MG = 0) {
  b.CmqLoad(1, 3, 5, -2, 6, 7, MG);
  return b;
}
ModelBuilder FreeAtJ(ModelBuilder b) {
  b.model.Node[2].code = kLoose;
  return b;
}

struct ForceCase {
  const char* name;
  ModelBuilder built;
  Seven expected;  // N(I) Q(I) M(I) N(J) Q(J) M(J) M(C)
};

// w = -3 on 4 m: w l^2/12 = 4, w l^2/8 = 6, w l/2 = 6.
std::vector<ForceCase> ForceCases() {
  return {
      {"fixed beam", Loaded(Held(0, 0, 4, 0), -3), {0, 6, 4, 0, 6, -4, 2}},
      {"simple beam", Loaded(Held(0, 0, 4, 0, 1, 1), -3), {0, 6, 0, 0, 6, 0, 6}},
      {"pin at J", Loaded(Held(0, 0, 4, 0, 0, 1), -3), {0, 7.5, 6, 0, 4.5, 0, 3}},
      {"pin at I", Loaded(Held(0, 0, 4, 0, 1, 0), -3), {0, 4.5, 0, 0, 7.5, -6, 3}},
      {"cantilever", FreeAtJ(Loaded(Held(0, 0, 4, 0), -3)), {0, 12, 24, 0, 0, 0, -6}},
      // The member runs against the load's span: its lower side is the upper one.
      {"vertical, to the left", Loaded(Held(4, 0, 0, 0), -3, 1), {0, -6, -4, 0, -6, 4, -2}},
      {"own axes, to the left", Loaded(Held(4, 0, 0, 0), -3), {0, 6, 4, 0, 6, -4, 2}},
      {"vertical, on a slope", Loaded(Held(0, 0, 4, 3), -3, 1), {3.6, 4.8, 4, 3.6, 4.8, -4, 2}},
      {"horizontal, upwards", Loaded(Held(0, 0, 0, 4), 3, 2), {0, 6, 4, 0, 6, -4, 2}},
      {"horizontal, downwards", Loaded(Held(0, 4, 0, 0), 3, 2), {0, -6, -4, 0, -6, 4, -2}},
      // ΔT = 20: EA α ΔT = 4, compression when held.
      {"heated, held", Heated(Held(0, 0, 4, 0), 30, 30), {4, 0, 0, -4, 0, 0, 0}},
      {"heated, held, pinned", Heated(Held(0, 0, 4, 0, 1, 1), 30, 30), {4, 0, 0, -4, 0, 0, 0}},
      {"heated, free", FreeAtJ(Heated(Held(0, 0, 4, 0), 30, 30)), {0, 0, 0, 0, 0, 0, 0}},
      {"heated without axial force", Heated(Held(0, 0, 4, 0), 30, 30, 1), {0, 0, 0, 0, 0, 0, 0}},
      {"CMQ", WithCmq(Held(0, 0, 4, 0)), {0, -6.25, -3, 0, -6.75, 2, 7.5}},
      {"CMQ, global, on a slope", WithCmq(Held(0, 0, 3, 4), 1), {-4.8, -3.8, -3, -5.6, -4, 2, 7.5}},
      {"CMQ, pinned", WithCmq(Held(0, 0, 4, 0, 1, 1)), {0, -6, 0, 0, -7, 0, 5}},
      {"grid beam along Y", Loaded(Held(0, 0, 0, 4, 0, 0, kPlaneGrid), -3), {0, 6, 4, 0, 6, -4, 2}},
      {"grid cantilever",
       FreeAtJ(Loaded(Held(0, 0, 3, 4, 0, 0, kPlaneGrid), -3)),
       {0, 15, 37.5, 0, 0, 0, -9.375}},
      {"grid CMQ: moments as typed",
       WithCmq(Held(0, 0, 4, 0, 0, 0, kPlaneGrid)),
       {0, -5.75, 3, 0, -7.25, -2, 2.5}},
  };
}

TEST(MemberForces, AreThoseOfTheTextbookOnBothRoads) {
  for (const ForceCase& c : ForceCases())
    for (const SolverRoad road : kRoads) {
      const SolvedModel s = Solve(c.built.model, road);
      for (int p = 1; p <= kForcesPerElement; ++p)
        EXPECT_NEAR(s.F(1, p), c.expected[static_cast<std::size_t>(p - 1)], 1e-9)
            << c.name << ", position " << p;
    }
}

// The gradient's end moments enter the load terms and bend the structure, but aren't added to the member's
// own: a cantilever that bows freely shows them with their sign turned, a held beam shows none.
TEST(MemberForces, LeaveTheEndMomentsOfATemperatureGradientOut) {
  for (const SolverRoad road : kRoads) {
    const SolvedModel free = Solve(FreeAtJ(Heated(Held(0, 0, 4, 0), 20, 0)).model, road);
    const SolvedModel held = Solve(Heated(Held(0, 0, 4, 0), 20, 0).model, road);
    const Seven ofFree = {0, 0, 0.2, 0, 0, -0.2, -0.2}, ofHeld = {0, 0, 0, 0, 0, 0, 0};
    for (int p = 1; p <= kForcesPerElement; ++p) {
      EXPECT_NEAR(free.F(1, p), ofFree[static_cast<std::size_t>(p - 1)], 1e-9) << "position " << p;
      EXPECT_NEAR(held.F(1, p), ofHeld[static_cast<std::size_t>(p - 1)], 1e-9) << "position " << p;
    }
  }
}

TEST(MemberForces, OfATrussMemberWithInertiaAreItsAxialForceAndItsOwnLoad) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kHinged);
  b.Node(4, 0, kRolling);
  b.Element(1, 2, 1, 1, 1);
  b.ElementLoad(1, -3);
  b.NodalLoad(2, 10, 0, 0);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    const Seven expected = {-10, 6, 0, 10, 6, 0, 6};  // N(J) - N(I) above 0: tension
    for (int p = 1; p <= kForcesPerElement; ++p)
      EXPECT_NEAR(s.F(1, p), expected[static_cast<std::size_t>(p - 1)], 1e-9) << "position " << p;
  }
}

TEST(MemberForces, HaveNoNInAGridWhateverTheLoads) {
  const ModelBuilder slanted = Held(0, 0, 3, 4, 0, 0, kPlaneGrid);
  for (const ModelBuilder& b : {Loaded(slanted, -3, 0), Loaded(slanted, -3, 1), Loaded(slanted, -3, 2),
                                WithCmq(slanted, 0), WithCmq(slanted, 1), Heated(slanted, 40, 20)})
    for (const SolverRoad road : kRoads)
      for (const int p : {1, 4}) EXPECT_EQ(Solve(b.model, road).F(1, p), 0);
}

TEST(MemberForces, OfACaseThatIsNotThereAreLeftOut) {
  ModelBuilder b = Held(0, 0, 4, 0);
  b.ElementLoad(1, -3, 0, 0, 0, 2);
  b.CmqLoad(1, 1, 1, 1, 1, 1, 0, 0);
  b.TemperatureLoad(1, 10, 40, 20, 1e-5, 0, 0, -1);
  b.ElementLoad(9, -3);
  for (const double force : Solve(b.model, SolverRoad::File).forces) EXPECT_EQ(force, 0);
}

// Loads and stiffness are doubled, so the displacements are the plain frame's; the forces are the plain
// section's.
TEST(MemberForces, AreThePlainSectionsInAMagnifiedFrame) {
  ModelBuilder b;
  b.Section(2e6, 0.01, 1e-4);
  b.Node(0, 0, kClamped);
  b.Node(4, 0);
  b.Element(1, 2);
  b.NodalLoad(2, 0, -1, 0);
  b.Magnification(-1, 5, 2);
  for (const SolverRoad road : kRoads) {
    const SolvedModel s = Solve(b.model, road);
    EXPECT_NEAR(s.F(1, 3), 4, 1e-9);
    EXPECT_NEAR(s.R(1, 2), 8, 1e-9);
  }
}

TEST(MidspanMoments, StartAnewFromTheLoadsAndCloseWithTheEndMoments) {
  ModelBuilder b = Loaded(Held(0, 0, 4, 0), -3);
  b.CmqLoad(1, 9, 5, 9, 9, 9);
  b.TemperatureLoad(1, 10, 40, 20, 1e-5, 0);
  std::vector<double> forces = {1, 2, 3, 4, 5, 7, 1000};
  AddLoadForces(b.model, CollectMembers(b.model), AddedForces::MidspanAlone, forces);
  EXPECT_EQ(forces, (std::vector<double>{1, 2, 3, 4, 5, 7, 6 + 5 - 0.5 * (3 - 7)}));
}

}  // namespace
}  // namespace zorlan::test

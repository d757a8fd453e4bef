// Structures with closed solutions. Units t, m; E = 2e7, A = 0.01, I = 2e-4, so EI = 4000 and EA = 2e5.
#include "companion/solver.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace zorlan::companion::test {
namespace {

constexpr double kEI = 4000, kEA = 2e5;

struct Frame {
  Frame() {
    deck.materials = {{2e7, 0.3}, {7e12, 0.3}};
    deck.sections = {{0.01, 0, 2e-4}, {0.25, 0, 0.0052}};
  }
  int Node(double x, double z) {
    deck.nodes.push_back({x, z});
    deck.loads.resize(deck.nodes.size());
    return static_cast<int>(deck.nodes.size()) - 1;
  }
  int Beam(int I, int J, EndCode endI = EndCode::Rigid, EndCode endJ = EndCode::Rigid, int section = 0) {
    companion::Beam beam;
    beam.nodeI = I;
    beam.nodeJ = J;
    beam.endI = endI;
    beam.endJ = endJ;
    beam.material = beam.section = section;
    deck.beams.push_back(beam);
    return static_cast<int>(deck.beams.size()) - 1;
  }
  int Hold(int node, std::array<double, 3> direction, double prescribed = 0,
           Boundary::Code code = Boundary::Code::Roller, double stiffness = 0) {
    const bool rotation = direction[2] != 0;
    deck.boundaries.push_back({node, rotation ? Boundary::Kind::Rotation : Boundary::Kind::Displacement, code,
                               prescribed, stiffness, direction});
    return static_cast<int>(deck.boundaries.size()) - 1;
  }
  void Pin(int node) {
    Hold(node, {1, 0, 0});
    Hold(node, {0, 1, 0});
  }
  void Clamp(int node) {
    Pin(node);
    Hold(node, {0, 0, 1});
  }
  Solution Solved() {
    Unstable unstable;
    std::optional<Solution> solution = Solve(deck, unstable);
    EXPECT_TRUE(solution) << "node " << unstable.node << " direction " << unstable.direction;
    return solution.value_or(Solution{std::vector<std::array<double, 3>>(deck.nodes.size()),
                                      std::vector<std::array<double, 6>>(deck.beams.size()),
                                      std::vector<double>(deck.boundaries.size())});
  }
  Unstable Instability() {
    Unstable unstable{-1, -1};
    EXPECT_FALSE(Solve(deck, unstable));
    return unstable;
  }
  Deck deck;
};

void ExpectForces(const std::array<double, 6>& actual, const std::array<double, 6>& expected) {
  for (std::size_t k = 0; k < 6; ++k) EXPECT_NEAR(actual[k], expected[k], 1e-10) << "place " << k;
}

TEST(CompanionSolver, BendsACantileverUnderATipLoad) {
  Frame f;
  const int wall = f.Node(0, 0), tip = f.Node(3, 0);
  f.Beam(wall, tip);
  f.Clamp(wall);
  f.deck.loads[1] = {5, -2, 0};
  const Solution s = f.Solved();
  EXPECT_NEAR(s.displacements[1][0], 5 * 3 / kEA, 1e-15);
  EXPECT_NEAR(s.displacements[1][1], -2 * 27 / (3 * kEI), 1e-15);
  EXPECT_NEAR(s.displacements[1][2], -2 * 9 / (2 * kEI), 1e-15);
  ExpectForces(s.endForces[0], {-5, 2, 6, 5, -2, 0});
  EXPECT_NEAR(s.boundaryForces[0], -5, 1e-12);
  EXPECT_NEAR(s.boundaryForces[1], 2, 1e-12);
  EXPECT_NEAR(s.boundaryForces[2], 6, 1e-12);
}

TEST(CompanionSolver, AddsTheShearDeformationOfAShearArea) {
  Frame f;
  f.deck.sections[0].shearArea = 0.004;
  const int wall = f.Node(0, 0), tip = f.Node(0, 3);
  f.Beam(wall, tip);
  f.Clamp(wall);
  f.deck.loads[1] = {2, 0, 0};
  const double G = 2e7 / (2 * 1.3);
  EXPECT_NEAR(f.Solved().displacements[1][0], 2 * 27 / (3 * kEI) + 2 * 3 / (G * 0.004), 1e-15);
}

TEST(CompanionSolver, TakesEndActionsAsTheForcesThatHoldTheLoadedEnds) {
  Frame f;  // uniform load 2 downward over 6 m, clamped and propped: 3/8 of it on the prop
  const int wall = f.Node(0, 0), prop = f.Node(6, 0);
  Beam& beam = f.deck.beams[static_cast<std::size_t>(f.Beam(wall, prop))];
  beam.actionI = {0, 6, 6};
  beam.actionJ = {0, 6, -6};
  f.Clamp(wall);
  const int held = f.Hold(prop, {0, 1, 0});
  const Solution s = f.Solved();
  EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(held)], 4.5, 1e-12);
  ExpectForces(s.endForces[0], {0, 7.5, 9, 0, 4.5, 0});
}

TEST(CompanionSolver, ReleasesTheMomentOfAPin) {
  Frame f;  // a beam hinged to its wall on a spring of 50 at its other end
  const int wall = f.Node(0, 0), end = f.Node(4, 0);
  f.Beam(wall, end, EndCode::Pin);
  f.Clamp(wall);
  const int spring = f.Hold(end, {0, 1, 0}, 0, Boundary::Code::Spring, 50);
  f.deck.loads[1] = {0, -3, 0};
  const Solution s = f.Solved();
  EXPECT_NEAR(s.displacements[1][1], -3.0 / 50, 1e-14);
  EXPECT_NEAR(s.displacements[0][2], 0, 1e-14);
  EXPECT_NEAR(s.displacements[1][2], -3.0 / 50 / 4, 1e-14);
  EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(spring)], 3, 1e-12);
  ExpectForces(s.endForces[0], {0, 0, 0, 0, 0, 0});
}

struct Sense {
  const char* name;
  Boundary::Code code;
  double direction, prescribed;
  double displacement;  // of the node upward
};
// A support moves against its direction, the other rigid elements along it.
const Sense kSenses[] = {
    {"forced, upward", Boundary::Code::Forced, 1, 0.01, 0.01},
    {"forced, downward", Boundary::Code::Forced, -1, 0.01, -0.01},
    {"support below the node", Boundary::Code::Support, -1, 0.01, 0.01},
    {"support above the node", Boundary::Code::Support, 1, 0.01, -0.01},
    {"roller", Boundary::Code::Roller, 1, -0.01, -0.01},
};

TEST(CompanionSolver, MovesANodeByThePrescribedDisplacement) {
  for (const Sense& c : kSenses) {
    Frame f;
    const int wall = f.Node(0, 0), tip = f.Node(2, 0);
    f.Beam(wall, tip);
    f.Clamp(wall);
    const int held = f.Hold(tip, {0, c.direction, 0}, c.prescribed, c.code);
    const Solution s = f.Solved();
    EXPECT_NEAR(s.displacements[1][1], c.displacement, 1e-15) << c.name;
    EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(held)] * c.direction, 3 * kEI / 8 * c.displacement,
                1e-11)
        << c.name;
  }
}

TEST(CompanionSolver, MovesTheFootOfASpring) {
  Frame f;  // tip stiffness 3EI/L^3 = 1500 on a spring of 500 whose foot sinks by 1 cm
  const int wall = f.Node(0, 0), tip = f.Node(2, 0);
  f.Beam(wall, tip);
  f.Clamp(wall);
  const int spring = f.Hold(tip, {0, -1, 0}, 0.01, Boundary::Code::Spring, 500);
  const Solution s = f.Solved();
  EXPECT_NEAR(s.displacements[1][1], -0.01 * 500 / 2000, 1e-15);
  EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(spring)], 3.75, 1e-12);
}

TEST(CompanionSolver, SlidesAnInclinedRollerAlongItsPlaneAlone) {
  Frame f;  // a bar without bending that leans against a plane of 30 degrees
  f.deck.sections[0].I = 0;
  const int foot = f.Node(0, 0), top = f.Node(3, 0);
  f.Beam(foot, top);
  f.Pin(foot);
  const double nx = -0.5, nz = std::sqrt(3) / 2;
  const int roller = f.Hold(top, {nx, nz, 0});
  f.deck.loads[1] = {0, -2, 0};
  const Solution s = f.Solved();
  // Upright the plane gives 2, so F = 2 / nz, and pushes the bar by F nx.
  EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(roller)], 2 / nz, 1e-12);
  EXPECT_NEAR(s.endForces[0][3], 2 / nz * nx, 1e-12);
  EXPECT_NEAR(s.displacements[1][0], 2 / nz * nx * 3 / kEA, 1e-16);
  EXPECT_NEAR(nx * s.displacements[1][0] + nz * s.displacements[1][1], 0, 1e-17);
}

// The roller's plane rises by 30 degrees, so cosines that aren't exact enter every equation. The beam below
// slides on a plane of its own and is pulled along by nothing but its own load.
TEST(CompanionSolver, LeavesExactZerosWhereNothingActs) {
  Frame f;
  const int pin = f.Node(0, 0), middle = f.Node(4, 0), roller = f.Node(8, 0);
  f.Beam(pin, middle);
  f.Beam(middle, roller);
  f.Pin(pin);
  const int plane = f.Hold(roller, {-0.5, std::sqrt(0.75), 0});
  f.deck.loads[1] = {30, 0, 0};
  const int wall = f.Node(0, 5), slide = f.Node(6, 5);
  f.Beam(wall, slide);
  f.Clamp(wall);
  f.Hold(slide, {std::sqrt(0.5), std::sqrt(0.5), 0});
  f.Hold(slide, {0, 0, 1});
  f.deck.loads[4] = {7, 0, 0};
  const Solution s = f.Solved();
  const std::array<double, 6> pulled = {-30, 0, 0, 30, 0, 0}, idle = {};
  EXPECT_NEAR(s.endForces[0][0], pulled[0], 1e-12);
  EXPECT_NEAR(s.endForces[0][3], pulled[3], 1e-12);
  for (const std::size_t place : {1, 2, 4, 5}) EXPECT_EQ(s.endForces[0][place], 0) << place;
  EXPECT_EQ(s.endForces[1], idle);
  EXPECT_EQ(s.boundaryForces[static_cast<std::size_t>(plane)], 0);
}

TEST(CompanionSolver, JoinsTheNodesOfALinkAlongXWhateverTheirHeights) {
  Frame f;  // two columns of 3 m and 4 m: 12EI/H^3... as cantilevers 3EI/H^3
  const int base1 = f.Node(0, 0), head1 = f.Node(0, 3), base2 = f.Node(5, 0), head2 = f.Node(5, 4);
  f.Beam(base1, head1);
  f.Beam(base2, head2);
  const int link = f.Beam(head1, head2, EndCode::Link, EndCode::Link, 1);
  f.Clamp(base1);
  f.Clamp(base2);
  f.deck.loads[1] = {6, 0, 0};
  const Solution s = f.Solved();
  const double k1 = 3 * kEI / 27, k2 = 3 * kEI / 64;
  EXPECT_NEAR(s.displacements[1][0], 6 / (k1 + k2), 1e-15);
  EXPECT_DOUBLE_EQ(s.displacements[3][0], s.displacements[1][0]);
  EXPECT_NEAR(s.displacements[3][1], 0, 1e-17);
  // The link pushes head 2 with k2 u, which it gets from node head 1.
  const double L = std::sqrt(26), push = 6 * k2 / (k1 + k2);
  EXPECT_NEAR(s.endForces[static_cast<std::size_t>(link)][0], push * 5 / L, 1e-12);
  EXPECT_NEAR(s.endForces[static_cast<std::size_t>(link)][1], -push * 1 / L, 1e-12);
}

TEST(CompanionSolver, HoldsAWholeGroupByOneSupportAndSharesTheForceOut) {
  Frame f;
  const int a = f.Node(0, 3), b = f.Node(4, 3), base = f.Node(4, 0);
  f.Beam(base, b);
  const int link = f.Beam(a, b, EndCode::Link, EndCode::Link, 1),
            ring = f.Beam(b, a, EndCode::Link, EndCode::Link, 1);
  f.Clamp(base);
  f.Hold(a, {0, 1, 0});
  const int held = f.Hold(a, {1, 0, 0});
  f.deck.loads[1] = {7, 0, 0};
  const Solution s = f.Solved();
  EXPECT_NEAR(s.displacements[1][0], 0, 1e-17);
  EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(held)], -7, 1e-12);
  EXPECT_NEAR(s.endForces[static_cast<std::size_t>(link)][0], -7, 1e-12);
  EXPECT_EQ(s.endForces[static_cast<std::size_t>(ring)][0], 0);  // says nothing new
}

/// A cantilever of 5 m: 1 m rigid, 3 m flexible, 1 m rigid. The tip sinks by the flexible part's bending.
TEST(CompanionSolver, KeepsFourteenDigitsThroughRigidZones) {
  for (const EndCode wallEnd : {EndCode::Rigid, EndCode::Pin}) {
    Frame f;
    const int wall = f.Node(0, 0), face = f.Node(1, 0), face2 = f.Node(4, 0), tip = f.Node(5, 0);
    f.Beam(wall, face, wallEnd, EndCode::Rigid, 1);
    f.Beam(face, face2);
    f.Beam(face2, tip, EndCode::Rigid, EndCode::Rigid, 1);
    f.Clamp(wall);
    f.deck.loads[3] = {0, -2, 0};
    if (wallEnd == EndCode::Pin) {
      // On a rotational spring in place of the clamp's moment: everything turns by M / k more.
      EXPECT_EQ(f.Instability().direction, 1);
      continue;
    }
    const Solution s = f.Solved();
    // Tip: the integral of M m / EI over the flexible part, M = 2 s, m = s from 1 m to 4 m before the tip.
    const double sag = 2 * (64 - 1) / (3 * kEI);
    EXPECT_NEAR(s.displacements[3][1] / -sag, 1, 1e-13);
    ExpectForces(s.endForces[1], {0, 2, 8, 0, -2, -2});
    ExpectForces(s.endForces[0], {0, 2, 10, 0, -2, -8});
  }
}

TEST(CompanionSolver, TurnsARigidZoneAboutItsPin) {
  Frame f;  // a simple beam of 5 m whose first metre is rigid behind the pin, moment 3 at the far end
  const int pin = f.Node(0, 0), face = f.Node(1, 0), far = f.Node(5, 0);
  f.Beam(pin, face, EndCode::Pin, EndCode::Rigid, 1);
  f.Beam(face, far);
  f.Clamp(pin);
  f.Hold(far, {0, 1, 0});
  f.deck.loads[2] = {0, 0, 3};
  const Solution s = f.Solved();
  // Far end: the integral of (3 x / 5)(x / 5) / EI from 1 to 5.
  EXPECT_NEAR(s.displacements[2][2], 3 * (125 - 1) / kEI / 75, 1e-16);
  EXPECT_NEAR(s.endForces[0][2], 0, 1e-12);
}

// A wall of 0.6 m by 15 m: its EI is a hundredth of that of the stated helper section.
TEST(CompanionSolver, HoldsARigidZoneRigidBesideTheStiffestWall) {
  Frame f;
  const double EA = 2.3e6 * 9, EI = 2.3e6 * 168.75;
  f.deck.materials[0].E = 2.3e6;
  f.deck.sections[0] = {9, 0, 168.75};
  const int wall = f.Node(0, 0), face = f.Node(3, 0), face2 = f.Node(5, 0), tip = f.Node(8, 0);
  f.Beam(wall, face, EndCode::Rigid, EndCode::Rigid, 1);
  f.Beam(face, face2);
  f.Beam(face2, tip, EndCode::Rigid, EndCode::Rigid, 1);
  f.Clamp(wall);
  f.deck.loads[3] = {7, -2, 0};
  const Solution s = f.Solved();
  // M = 2 s and m = s from 3 m to 5 m before the tip.
  EXPECT_NEAR(s.displacements[3][1] / (-2.0 * (125 - 27) / (3 * EI)), 1, 1e-6);
  EXPECT_NEAR(s.displacements[3][0] / (7 * 2 / EA), 1, 1e-6);
  for (const auto& [place, force] : {std::pair(0, -7.0), std::pair(1, 2.0), std::pair(2, 16.0)})
    EXPECT_NEAR(s.boundaryForces[static_cast<std::size_t>(place)], force, 1e-11);
}

TEST(CompanionSolver, TakesOnlyTheHelperMaterialForRigid) {
  Frame f;
  f.deck.materials[1].nu = 0.25;
  const int wall = f.Node(0, 0), tip = f.Node(3, 0);
  f.Beam(wall, tip, EndCode::Rigid, EndCode::Rigid, 1);
  f.Clamp(wall);
  f.deck.loads[1] = {0, -2, 0};
  EXPECT_NEAR(f.Solved().displacements[1][1] / (-2.0 * 27 / (3 * 7e12 * 0.0052)), 1, 1e-13);
}

TEST(CompanionSolver, LeavesARotationThatNothingHoldsAtZero) {
  Frame f;
  const int a = f.Node(0, 0), b = f.Node(4, 0), top = f.Node(2, 2);
  f.Beam(a, top, EndCode::Pin, EndCode::Pin);
  f.Beam(b, top, EndCode::Pin, EndCode::Pin);
  f.Pin(a);
  f.Pin(b);
  f.deck.loads[2] = {0, -2, 5};  // the moment meets nothing
  const Solution s = f.Solved();
  EXPECT_NEAR(s.endForces[0][0], std::sqrt(2), 1e-12);
  EXPECT_EQ(s.displacements[2][2], 0);
}

TEST(CompanionSolver, NamesTheFarthestNodeOfAFreeMotion) {
  Frame sway;  // a portal on rollers
  const int a = sway.Node(0, 0), b = sway.Node(0, 3), c = sway.Node(4, 3), d = sway.Node(4, 0);
  sway.Beam(a, b);
  sway.Beam(b, c);
  sway.Beam(d, c);
  sway.Hold(a, {0, 1, 0});
  sway.Hold(d, {0, 1, 0});
  EXPECT_EQ(sway.Instability().direction, 0);
  EXPECT_EQ(sway.Instability().node, a);

  Frame lever;  // on a single pin: the far end of the longer arm
  const int left = lever.Node(-1, 0), pin = lever.Node(0, 0), right = lever.Node(3, 0);
  lever.Beam(left, pin);
  lever.Beam(pin, right);
  lever.Pin(pin);
  EXPECT_EQ(lever.Instability().node, right);
  EXPECT_EQ(lever.Instability().direction, 1);

  Frame loose;  // a node that nothing meets
  const int held = loose.Node(0, 0), alone = loose.Node(1, 0);
  loose.Clamp(held);
  EXPECT_EQ(loose.Instability().node, alone);
  EXPECT_EQ(loose.Instability().direction, 0);
}

TEST(CompanionSolver, TellsAChainOfAThousandBeamsFromAFreeOne) {
  Frame f;
  for (int n = 0; n <= 1000; ++n) f.Node(0.1 * n, 0);
  for (int n = 0; n < 1000; ++n) f.Beam(n, n + 1);
  f.Pin(0);
  EXPECT_EQ(f.Instability().node, 1000);
  f.Hold(0, {0, 0, 1});
  f.deck.loads[1000] = {0, -1e-3, 0};
  EXPECT_NEAR(f.Solved().displacements[1000][1] / (-1e-3 * 1e6 / (3 * kEI)), 1, 1e-6);
}

TEST(CompanionSolver, RefusesSupportsThatContradictEachOther) {
  Frame f;
  const int a = f.Node(0, 0), b = f.Node(3, 0);
  f.Beam(a, b);
  f.Clamp(a);
  f.Hold(b, {0, 1, 0}, 0.01);
  f.Hold(b, {0, 1, 0}, 0.01);  // twice the same is no contradiction
  EXPECT_NEAR(f.Solved().displacements[1][1], 0.01, 1e-16);
  f.Hold(b, {0, -1, 0}, 0.01);
  Unstable unstable;
  try {
    Solve(f.deck, unstable);
    ADD_FAILURE();
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "NODE =2 の支持条件に矛盾があります");
  }
}

TEST(CompanionSolver, SolvesAStructureWithoutAnyFreeUnknown) {
  Frame f;
  const int a = f.Node(0, 0), b = f.Node(4, 0);
  f.Beam(a, b);
  f.Clamp(a);
  f.Clamp(b);
  f.deck.boundaries[4].prescribed = -0.02;  // b sinks: 12EI/L^3 and 6EI/L^2
  const Solution s = f.Solved();
  ExpectForces(s.endForces[0],
               {0, 12 * kEI / 64 * 0.02, 6 * kEI / 16 * 0.02, 0, -12 * kEI / 64 * 0.02, 6 * kEI / 16 * 0.02});
}

TEST(CompanionSolver, ReportsNumbersOutOfRange) {
  Frame f;
  const int a = f.Node(0, 0), b = f.Node(3, 0);
  f.Beam(a, b);
  f.Clamp(a);
  f.deck.materials[0].E = 1e-300;
  f.deck.loads[1] = {0, 1e300, 0};
  Unstable unstable;
  EXPECT_THROW(Solve(f.deck, unstable), Fault);
}

}  // namespace
}  // namespace zorlan::companion::test

// Regular structures of any size as test models: their decks, and their displacements by a way of computing
// that shares nothing with the program's engine.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zorlan::bench {

/// A structure with everything counted from 0. Metres, kN, kN*m, kN/m; sections in cm2 and cm4.
struct Frame {
  struct Node {
    double x = 0, y = 0;
    std::array<bool, 3> fixed{};
  };
  struct Element {
    int i = 0, j = 0, section = 0;
  };
  struct Section {
    double area = 0, inertia = 0;
  };
  struct NodalLoad {
    int loadCase = 0, node = 0;
    std::array<double, 3> force{};
  };
  /// Uniform load on a whole element: vertical, downward positive.
  struct BeamLoad {
    int loadCase = 0, element = 0;
    double p = 0;
  };

  std::string name;
  int kind = 1;  // 1 plane frame, 2 with groups of equal horizontal displacement, 3 plane grid
  int cases = 1;
  double E = 205000;  // N/mm2
  std::vector<Node> nodes;
  std::vector<Element> elements;
  std::vector<Section> sections;
  std::vector<NodalLoad> nodalLoads;
  std::vector<BeamLoad> beamLoads;
  std::vector<std::vector<int>> groups;
};

/// A frame of bays 6 m by storeys 3.5 m on fixed bases, beams and columns divided into equal parts; nodes
/// storey by storey from below, or by narrow waves when members are divided. In every case a load on the left
/// end of each floor and, as far as a thousand rows reach, a uniform load on the beams.
Frame RegularFrame(int bays, int storeys, int cases, int columnParts = 1, int beamParts = 1);

/// A grid of beams 2 m apart, its edge held down.
Frame RegularGrid(int nodesX, int nodesY, int cases);

/// The frame with every floor's nodes in one group.
Frame WithFloorGroups(Frame frame);

/// The frame with its nodes in a random order, the same in every run.
Frame Shuffled(Frame frame, std::uint32_t seed);

/// Greatest difference of the places of an element's two nodes, plus 1.
int HalfBand(const Frame& frame);

/// The deck, UTF-8 with CR LF.
std::string DeckText(const Frame& frame);

/// Displacements in m and rad, case after case, node after node, three each: a sparse factorization, refined
/// with residuals in extended precision.
std::vector<double> IndependentDisplacements(const Frame& frame);

/// The structures of the bench: regular frames that grow, with 1 and with 20 cases, then a badly numbered
/// frame, a grid, and a frame with floor groups.
std::vector<Frame> BenchFrames();

}  // namespace zorlan::bench

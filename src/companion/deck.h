// The input deck of the companion solver: a plane structure of beams and boundary elements under one load
// case, in fixed columns (docs/file-formats.md). Units are the writer's, consistent; the system writes t, m,
// rad.
//
// The deck's plane is X and Z, Z upward, and its axis Y points away from the viewer: rotations and moments
// about Y are clockwise. In the records below they are counter-clockwise, as a plane's right angle turns X
// into Z.
#pragma once

#include <array>
#include <string_view>
#include <vector>

namespace zorlan::companion {

struct Node {
  double x = 0, z = 0;
};

struct Material {
  double E = 0, nu = 0;
  bool operator==(const Material&) const = default;
};
/// The material of rigid zones: a beam of it counts as rigid.
inline constexpr Material kRigidMaterial{7e12, 0.3};

/// A shear area or an inertia of kNone or below is none: no shear deformation, no bending.
struct Section {
  double A = 0, shearArea = 0, I = 0;
};
inline constexpr double kNone = 1e-14;

enum class EndCode { Rigid, Pin, Link };

/// Actions at a beam's end in the beam's axes: along it, across it (x turned by +90 degrees), moment. The
/// forces that hold the loaded end.
using EndAction = std::array<double, 3>;

/// A beam from node I to node J. One with links at its ends is a link: its nodes share the displacement along
/// X.
struct Beam {
  int nodeI = 0, nodeJ = 0;  // from 0
  int material = 0, section = 0;
  EndCode endI = EndCode::Rigid, endJ = EndCode::Rigid;
  EndAction actionI{}, actionJ{};
  bool IsLink() const { return endI == EndCode::Link; }
};

/// Holds a node along its direction, or about it. The prescribed value p is, with u the node's displacement
/// along the direction: Forced and Roller u = p; Support -u = p; Spring: the displacement of the spring's
/// foot, so that the spring's force on the node along the direction is -stiffness (u - p).
struct Boundary {
  enum class Kind { Displacement, Rotation };
  enum class Code { Forced = 0, Support = 1, Spring = 2, Roller = 4 };
  int node = 0;  // from 0
  Kind kind = Kind::Displacement;
  Code code = Code::Support;
  double prescribed = 0, stiffness = 0;
  std::array<double, 3> direction{};  // unit vector over x, z, rotation
};

struct Deck {
  std::vector<Node> nodes;
  std::vector<Material> materials;
  std::vector<Section> sections;
  std::vector<Beam> beams;
  std::vector<Boundary> boundaries;
  std::vector<std::array<double, 3>> loads;  // by node: along X, along Z, moment
};

/// A row of a table by its place, from 0.
template <class Row>
const Row& At(const std::vector<Row>& table, int place) {
  return table[static_cast<std::size_t>(place)];
}

/// Young's modulus of a beam as it is computed. The stated one of a rigid zone is only a few thousand times
/// that of a long wall, whose digits would feel it; a billion times as much is felt nowhere, and the unknowns
/// of a rigid zone are its own (kinematics.h).
inline double ModulusOf(const Material& material) {
  constexpr double kRigidity = 1e9;
  return material == kRigidMaterial ? kRigidity * material.E : material.E;
}

/// The deck of a file's bytes. Throws Fault with the line and what is wrong there, for anything that is not
/// such a deck.
Deck ReadDeck(std::string_view bytes);

}  // namespace zorlan::companion

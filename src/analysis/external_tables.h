// One load case of a model as the companion program sees it: the translation tables. Nodes, materials,
// sections and beams have deck numbers of their own, from 1 in the order of their table; the tables map them
// back. t, m, rad.
//
// The deck's plane is X and Z with Z upward, so its third axis Y points away from the viewer and it counts
// rotations and moments clockwise: the model's, counter-clockwise, change sign on the way there and on the
// way back.
#pragma once

#include <array>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// Deck node r is node row r; the helper nodes stand behind.
struct ExtNode {
  int number = 0;
  int modelNumber = 0;  // 0: a helper node
  double X = 0, Y = 0;
};

struct ExtMaterial {
  int number = 0;
  int modelSection = 0;  // section number; 0: the helper material
  double E = 0, nu = 0;
};

struct ExtSection {
  int number = 0;
  int modelSection = 0;         // section number; 0: the helper section
  double A = 0, As = 0, I = 0;  // As is the effective shear area: the shear area by its shape factor
};

/// End codes of a beam. A link's ends are pins, and its two nodes share their displacement along X.
enum ExtEndCode { kExtRigid = 0, kExtPin = 1, kExtLink = 9 };

struct ExtBeam {
  int number = 0;
  int modelElement = 0;  // element number; 0: a helper beam
  int nodeI = 0;
  int endI = kExtRigid;
  int loadI = 0;  // number of the pair of load rows that acts at this end, 0 none
  int nodeJ = 0;
  int endJ = kExtRigid;
  int loadJ = 0;
  int material = 0, section = 0;
  int twin = 0;  // the other half of a divided beam: from the first half its number, from the second minus
                 // its number
};

/// End actions at one end of a beam, in the eight columns of a load row: along the beam, across it, and the
/// moment stand in the places 0, 2 and 4. The forces that hold the loaded end fixed.
using ExtLoad = std::array<double, 8>;

struct ExtNodalLoad {
  int node = 0, modelNode = 0;  // deck number and node number
  double FX = 0, FY = 0, MZ = 0;
};

/// What a boundary element holds.
enum ExtBoundaryKind { kExtDisplacement = 1, kExtRotation = 2 };

struct ExtBoundaryElement {
  int node = 0;
  int kind = kExtDisplacement;
  int code = 0;                       // the support code: 0 forced, 1 fixed, 2 spring, 4 inclined roller
  double prescribed = 0;              // m, rad
  double stiffness = 0;               // of a spring, t/m or t*m/rad
  double cosine = 0;                  // of the direction against the element's own axis: -1 or 1
  std::array<double, 3> direction{};  // of the boundary line in the deck's axes
  double magnification = 1;           // of the node; a spring's reaction is told without it
};

/// Where an element's end forces come from.
struct ExtElement {
  int beamI = 0, beamJ = 0;   // the beams that hold its ends, or their outermost flexible parts
  double armI = 0, armJ = 0;  // lengths of the rigid zones between them and the element's ends, m
};

/// A node that a forced displacement moves in this case.
struct ExtMovedNode {
  int row = 0;
  std::array<std::int16_t, 3> code{};  // the node's codes, with 3 or 23 where it is moved
};

struct ExternalTables {
  std::vector<ExtNode> ExtNodes;
  std::vector<ExtMaterial> ExtMaterials;
  std::vector<ExtSection> ExtSections;
  std::vector<ExtBeam> ExtBeams;
  std::vector<ExtLoad> ExtLoads;  // two a loaded beam: the first half's end I, the second half's end J
  std::vector<ExtNodalLoad> ExtNodalLoads;
  std::vector<ExtBoundaryElement> ExtBoundary;
  std::vector<ExtElement> elements;  // by element row, from 0
  std::vector<int> supportRows;      // nodes with a code that is not 0 or a forced displacement in this case
  std::vector<ExtMovedNode> movedNodes;
};

/// Codes that a node gets where a forced displacement moves it: its reaction is then the sum of the member
/// end forces that meet it.
inline constexpr std::int16_t kMovedCode = 3, kMovedSpringCode = 23;
bool IsMoved(const NodeRec& node);

/// The tables of a load case (from 1) of a plane frame, model kinds 1 and 2. Throws Fault: a grid, and what
/// CollectMembers throws, a rigid zone that leaves no flexible part, a load that its formula can't take.
ExternalTables BuildExternalTables(const ModelRec& model, int loadCase);

/// The tolerance of frame magnification ranges that the in-program solver takes for a model of this size.
double MagnificationTolerance(const ModelRec& model);

}  // namespace zorlan

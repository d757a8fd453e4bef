// How the displacements of a structure follow from its free unknowns: supports and links hold exactly, by
// elimination, and no stiffness stands in for them.
//
// A node that hangs on a beam more than a thousand times stiffer than all else that meets it (the face of a
// rigid zone) is carried by it: its unknowns are its displacements relative to the rigid motion of the beam's
// other end. The stiff beam then strains by these unknowns alone, so that its stiffness meets nothing that it
// could drown.
#pragma once

#include <array>
#include <vector>

#include "companion/deck.h"
#include "companion/linear_form.h"

namespace zorlan::companion {

/// A support or link as an equation between the displacements of nodes.
struct Constraint {
  struct Term {
    int node, dof;
    double factor;
  };
  std::vector<Term> terms;  // their sum is prescribed
  int boundary = -1;        // place in the deck's table that it comes from, or -1
  int link = -1;
};

class Kinematics {
 public:
  /// Throws Fault that names the node at which supports contradict each other.
  explicit Kinematics(const Deck& deck);

  /// Number of free unknowns.
  int Unknowns() const { return static_cast<int>(owner_.size()); }
  /// A node's displacement along X (0), Z (1), or its rotation (2), by the free unknowns.
  LinearForm Displacement(int node, int dof) const;
  /// Displacements of a beam's ends (X, Z, rotation of I, then of J) less a rigid motion of the whole beam:
  /// what strains it.
  std::array<LinearForm, 6> Straining(int beam) const;
  /// The constraints that hold, those left out that say nothing new.
  const std::vector<Constraint>& Constraints() const { return constraints_; }
  /// Node and direction that an unknown belongs to.
  struct Owner {
    int node, dof;
  };
  const Owner& OwnerOf(int unknown) const { return owner_[static_cast<std::size_t>(unknown)]; }

 private:
  void ChooseCarriers();
  bool CanCarry(int beam, int child) const;
  void Join(const Beam& link, int place);
  void Hold(const Boundary& element, int place);
  void NumberUnknowns();
  int Variable(int node, int dof) const;
  LinearForm ByVariables(int node, int dof) const;
  LinearForm Resolved(const LinearForm& form) const;

  const Deck& deck_;
  std::vector<int> carrier_;  // of each node: the beam that carries it, or -1
  std::vector<int>
      linkedWith_;  // of each node: one that shares its displacement along X, up to the group's first
  std::vector<Constraint> constraints_;
  // Variables: three a node. One that a constraint has eliminated hangs on others.
  std::vector<bool> eliminated_;
  std::vector<LinearForm> eliminatedForm_;
  std::vector<int> unknown_;  // of each variable, -1 none
  std::vector<Owner> owner_;
};

}  // namespace zorlan::companion

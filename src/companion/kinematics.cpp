#include "companion/kinematics.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <tuple>

#include "base/fault.h"

namespace zorlan::companion {
namespace {

constexpr double kCarrierRatio = 1000;
constexpr double kSameDirection = 1e-9;  // directions that differ by less are one, given in ten columns

/// The first of a node's set, with the way there made short.
int FirstOf(std::vector<int>& parent, int node) {
  while (parent[static_cast<std::size_t>(node)] != node) {
    int& up = parent[static_cast<std::size_t>(node)];
    up = parent[static_cast<std::size_t>(up)];
    node = up;
  }
  return node;
}

std::vector<int> EachOnItsOwn(std::size_t count) {
  std::vector<int> parent(count);
  std::iota(parent.begin(), parent.end(), 0);
  return parent;
}

}  // namespace

Kinematics::Kinematics(const Deck& deck)
    : deck_(deck),
      carrier_(deck.nodes.size(), -1),
      linkedWith_(EachOnItsOwn(deck.nodes.size())),
      eliminated_(3 * deck.nodes.size()),
      eliminatedForm_(3 * deck.nodes.size()),
      unknown_(3 * deck.nodes.size(), -1) {
  ChooseCarriers();
  for (std::size_t b = 0; b < deck.beams.size(); ++b)
    if (deck.beams[b].IsLink()) Join(deck.beams[b], static_cast<int>(b));
  for (std::size_t n = 0; n < linkedWith_.size(); ++n)
    linkedWith_[n] = FirstOf(linkedWith_, static_cast<int>(n));
  for (std::size_t b = 0; b < deck.boundaries.size(); ++b)
    if (deck.boundaries[b].code != Boundary::Code::Spring) Hold(deck.boundaries[b], static_cast<int>(b));
  NumberUnknowns();
}

/// A beam carries its child rigidly, or turns about a pin at the other end.
bool Kinematics::CanCarry(int beam, int child) const {
  const Beam& b = At(deck_.beams, beam);
  return (b.nodeI == child ? b.endI : b.endJ) == EndCode::Rigid;
}

void Kinematics::ChooseCarriers() {
  const std::size_t count = deck_.nodes.size();
  std::vector<double> others(count), largest(count);  // so that no small one is lost in a sum
  std::vector<int> stiffest(count, -1);
  std::vector<bool> held(count);
  for (std::size_t b = 0; b < deck_.beams.size(); ++b) {
    const Beam& beam = deck_.beams[b];
    const Node &I = At(deck_.nodes, beam.nodeI), &J = At(deck_.nodes, beam.nodeJ);
    const double stiffness = ModulusOf(At(deck_.materials, beam.material)) *
                             At(deck_.sections, beam.section).A / std::hypot(J.x - I.x, J.z - I.z);
    for (const int node : {beam.nodeI, beam.nodeJ}) {
      const auto n = static_cast<std::size_t>(node);
      if (beam.IsLink()) held[n] = true;
      others[n] += std::min(stiffness, largest[n]);
      if (stiffness <= largest[n]) continue;
      largest[n] = stiffness;
      stiffest[n] = static_cast<int>(b);
    }
  }
  for (const Boundary& element : deck_.boundaries) held[static_cast<std::size_t>(element.node)] = true;

  std::vector<int> tree = EachOnItsOwn(count);  // carriers never close a ring
  for (std::size_t n = 0; n < count; ++n) {
    const int child = static_cast<int>(n);
    if (held[n] || !(others[n] > 0) || largest[n] < kCarrierRatio * others[n] ||
        !CanCarry(stiffest[n], child))
      continue;
    const Beam& beam = At(deck_.beams, stiffest[n]);
    const int parent = beam.nodeI == child ? beam.nodeJ : beam.nodeI;
    const int root = FirstOf(tree, parent);
    if (root == child) continue;
    tree[n] = root;
    carrier_[n] = stiffest[n];
  }
}

/// One displacement along X for both nodes of a link.
void Kinematics::Join(const Beam& link, int place) {
  const int I = FirstOf(linkedWith_, link.nodeI), J = FirstOf(linkedWith_, link.nodeJ);
  if (I == J) return;
  linkedWith_[static_cast<std::size_t>(std::max(I, J))] = std::min(I, J);
  constraints_.push_back({{{link.nodeJ, 0, 1}, {link.nodeI, 0, -1}}, -1, place});
}

int Kinematics::Variable(int node, int dof) const {
  return 3 * (dof == 0 ? At(linkedWith_, node) : node) + dof;
}

/// Takes the variable with the largest factor out of a support's equation.
void Kinematics::Hold(const Boundary& element, int place) {
  Constraint constraint;
  LinearForm form;  // = 0
  form.constant = element.code == Boundary::Code::Support ? element.prescribed : -element.prescribed;
  for (int dof = 0; dof < 3; ++dof) {
    const double factor = element.direction[static_cast<std::size_t>(dof)];
    if (factor == 0) continue;
    constraint.terms.push_back({element.node, dof, factor});
    form.AddTerm(Variable(element.node, dof), factor);
  }
  form = Resolved(form);
  const auto largest =
      std::max_element(form.terms.begin(), form.terms.end(),
                       [](const auto& a, const auto& b) { return std::abs(a.factor) < std::abs(b.factor); });
  if (largest == form.terms.end() || std::abs(largest->factor) < kSameDirection) {
    if (std::abs(form.constant) > kSameDirection * (1 + std::abs(element.prescribed)))
      throw Fault("NODE =" + std::to_string(element.node + 1) + " の支持条件に矛盾があります");
    return;
  }
  const int variable = largest->variable;
  const Real factor = largest->factor;
  form.terms.erase(largest);
  LinearForm& eliminated = eliminatedForm_[static_cast<std::size_t>(variable)];
  eliminated.Add(form, -1 / factor);
  eliminated_[static_cast<std::size_t>(variable)] = true;
  constraint.boundary = place;
  constraints_.push_back(constraint);
}

/// The form by variables that are not eliminated. An eliminated one hangs on such as were free when it went,
/// so what it hangs on may be gone by now in turn.
LinearForm Kinematics::Resolved(const LinearForm& form) const {
  LinearForm result = form;
  for (;;) {
    const auto gone = std::find_if(
        result.terms.begin(), result.terms.end(),
        [&](const LinearForm::Term& term) { return eliminated_[static_cast<std::size_t>(term.variable)]; });
    if (gone == result.terms.end()) return result;
    const LinearForm::Term term = *gone;
    result.terms.erase(gone);
    result.Add(eliminatedForm_[static_cast<std::size_t>(term.variable)], term.factor);
  }
}

void Kinematics::NumberUnknowns() {
  for (int node = 0; node < static_cast<int>(deck_.nodes.size()); ++node)
    for (int dof = 0; dof < 3; ++dof) {
      const int variable = 3 * node + dof;
      if (Variable(node, dof) != variable || eliminated_[static_cast<std::size_t>(variable)]) continue;
      unknown_[static_cast<std::size_t>(variable)] = Unknowns();
      owner_.push_back({node, dof});
    }
}

/// A displacement before supports are looked at. A carried node moves with the rigid motion of the beam that
/// carries it and by its own variables; a stiff chain is short, as each beam in it is a thousand times
/// stiffer than the one before.
LinearForm Kinematics::ByVariables(int node, int dof) const {
  LinearForm form = LinearForm::Of(Variable(node, dof));
  const int carrier = At(carrier_, node);
  if (carrier < 0) return form;
  const Beam& beam = At(deck_.beams, carrier);
  const bool childAtI = beam.nodeI == node;
  const int parent = childAtI ? beam.nodeJ : beam.nodeI;
  const bool turnsAboutParent = (childAtI ? beam.endJ : beam.endI) == EndCode::Pin;
  if (dof == 2) {
    if (!turnsAboutParent) form.Add(ByVariables(parent, 2), 1);
    return form;
  }
  const Node &own = At(deck_.nodes, node), &other = At(deck_.nodes, parent);
  const Real arm = dof == 0 ? -(Real(own.z) - other.z) : Real(own.x) - other.x;
  form.Add(ByVariables(parent, dof), 1);
  form.Add(turnsAboutParent ? LinearForm::Of(3 * node + 2) : ByVariables(parent, 2), arm);
  return form;
}

LinearForm Kinematics::Displacement(int node, int dof) const {
  LinearForm byVariables = Resolved(ByVariables(node, dof));
  for (LinearForm::Term& term : byVariables.terms)
    term.variable = unknown_[static_cast<std::size_t>(term.variable)];
  return byVariables;
}

std::array<LinearForm, 6> Kinematics::Straining(int beam) const {
  const Beam& b = At(deck_.beams, beam);
  std::array<LinearForm, 6> ends;
  for (const auto& [child, parentEnd, first] :
       {std::tuple(b.nodeI, b.endJ, std::size_t{0}), std::tuple(b.nodeJ, b.endI, std::size_t{3})}) {
    if (At(carrier_, child) != beam) continue;
    // About a pin the rigid motion takes up the child's whole rotation.
    const int own = parentEnd == EndCode::Pin ? 2 : 3;
    for (int dof = 0; dof < own; ++dof)
      ends[first + static_cast<std::size_t>(dof)] =
          LinearForm::Of(unknown_[static_cast<std::size_t>(3 * child + dof)]);
    return ends;
  }
  for (int dof = 0; dof < 3; ++dof) {
    ends[static_cast<std::size_t>(dof)] = Displacement(b.nodeI, dof);
    ends[static_cast<std::size_t>(3 + dof)] = Displacement(b.nodeJ, dof);
  }
  return ends;
}

}  // namespace zorlan::companion

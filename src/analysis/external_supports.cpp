#include "analysis/external_supports.h"

#include <array>
#include <cmath>
#include <numbers>
#include <optional>

#include "analysis/members.h"

namespace zorlan {
namespace {

/// The axes of a node's three directions in the deck: along X, upward, and the rotation's, which points at
/// the viewer, so that a rotation about it is counter-clockwise.
constexpr std::array<std::array<double, 3>, 3> kAxes{{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}};

std::array<double, 3> Along(std::size_t dof, double cosine) {
  std::array<double, 3> direction{};
  for (std::size_t k = 0; k < 3; ++k)
    if (kAxes[dof][k] != 0) direction[k] = cosine * kAxes[dof][k];
  return direction;
}

/// What a case does with a node: m, rad; t/m, t*m/rad.
struct NodeSupport {
  std::array<double, 3> moved{}, spring{};
  bool listed = false;  // among the forced displacements
};

std::vector<NodeSupport> CollectNodeSupports(const ModelRec& model, int loadCase) {
  std::vector<NodeSupport> supports(static_cast<std::size_t>(model.NodeCount) + 1);
  const NumberMap nodes(model.Node, model.NodeCount);
  for (int r = 1; r <= model.SpecCount; ++r) {
    const SpecRec& spec = model.Spec[r];
    const int row = nodes.Row(spec.node);
    if (row == 0 || spec.loadCase != loadCase) continue;
    NodeSupport& support = supports[static_cast<std::size_t>(row)];
    support.moved[0] += spec.S1 / kCmPerM;
    support.moved[1] += spec.S2 / kCmPerM;
    support.moved[2] += spec.S3;
    support.listed = true;
  }
  for (const NodeSpring& spring : CollectSprings(model))
    for (std::size_t d = 0; d < 3; ++d)
      supports[static_cast<std::size_t>(spring.row)].spring[d] += spring.k[d];
  return supports;
}

/// The element of one direction of a node, or none where nothing holds it.
std::optional<ExtBoundaryElement> HeldDirection(const NodeRec& node, std::size_t dof,
                                                const NodeSupport& support, double magnification) {
  ExtBoundaryElement element;
  element.kind = dof == 2 ? kExtRotation : kExtDisplacement;
  element.magnification = magnification;
  element.code = node.code[dof];
  if (element.code != kFixed && element.code != kSpring) element.code = kFree;
  element.prescribed = support.moved[dof];
  element.cosine = -1;
  if (element.code == kSpring) {
    element.prescribed = -support.moved[dof];
    element.stiffness = support.spring[dof] * magnification;
    if (element.stiffness == 0) return std::nullopt;
  } else if (element.code == kFree) {
    element.cosine = 1;
    if (support.moved[dof] == 0) return std::nullopt;
  }
  element.direction = Along(dof, element.cosine);
  return element;
}

/// Along the normal of the rolling plane; the support moves by the forced displacement's part along it.
ExtBoundaryElement Roller(const NodeRec& node, const NodeSupport& support, double magnification) {
  const double normal = (node.rollerAngle + 90) * std::numbers::pi / 180;
  ExtBoundaryElement element;
  element.code = kInclinedRoller;
  element.prescribed = support.moved[0] * std::cos(normal) + support.moved[1] * std::sin(normal);
  element.cosine = 1;
  element.direction = {std::cos(normal), 0, std::sin(normal)};
  element.magnification = magnification;
  return element;
}

}  // namespace

ExternalSupports CollectSupports(const ModelRec& model, int loadCase) {
  const double tolerance = MagnificationTolerance(model);
  const std::vector<NodeSupport> supports = CollectNodeSupports(model, loadCase);
  ExternalSupports result;
  for (int row = 1; row <= model.NodeCount; ++row) {
    const NodeRec& node = model.Node[row];
    const NodeSupport& support = supports[static_cast<std::size_t>(row)];
    const double magnification = MagnificationAt(model, node.X, tolerance);
    const auto add = [&](ExtBoundaryElement element) {
      element.node = row;
      result.boundary.push_back(element);
    };
    const bool rolls =
        model.RollerFlag == 1 && (node.code[0] == kInclinedRoller || node.code[1] == kInclinedRoller);
    if (rolls) add(Roller(node, support, magnification));
    ExtMovedNode moved{row, node.code};
    for (std::size_t dof = 0; dof < 3; ++dof) {
      const std::optional<ExtBoundaryElement> element = HeldDirection(node, dof, support, magnification);
      if (!element || (rolls && dof < 2 && element->code == kFree)) continue;
      add(*element);
      if (support.moved[dof] != 0) moved.code[dof] = element->code == kSpring ? kMovedSpringCode : kMovedCode;
    }
    if (moved.code != node.code) result.movedNodes.push_back(moved);
    if (support.listed || node.code != std::array<std::int16_t, 3>{}) result.rows.push_back(row);
  }
  return result;
}

}  // namespace zorlan

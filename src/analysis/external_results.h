// From the companion program's printed output, FT999.OUT, back to the model's nodes and elements. The columns
// are told in docs/file-formats.md.
#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "analysis/external_tables.h"
#include "model/model_rec.h"

namespace zorlan {

/// What is printed, by place in the tables, with rotations and moments counter-clockwise again.
struct ExternalOutput {
  std::vector<std::array<double, 3>> displacements;  // by node: U, V, θ
  std::vector<std::array<double, 6>> endForces;      // by beam: N, Q, M on the member at I, then at J
  std::vector<double> boundaryForces;                // by boundary element: on the node along its direction
};

/// Throws Fault for an output that is not complete, or not that of these tables.
ExternalOutput ParseExternalOutput(std::string_view text, const ExternalTables& tables);

/// The complete end forces of an element at its nodes, across its rigid zones: N, Q, M of I, then of J.
/// Helper beams don't count.
std::array<double, 6> ElementEndForces(const ExtElement& element, const ExternalOutput& output);

/// The reactions of a node row from its boundary elements: R1, R2, R3. A roller's force is resolved into two;
/// a spring's is told without the magnification, as the in-program solver tells it.
std::array<double, 3> BoundaryReactions(int row, const ExternalTables& tables, const ExternalOutput& output);

}  // namespace zorlan

// The option sets as the plain values that the draw routines read.
#pragma once

#include "graphics/figure_options.h"
#include "graphics/options.h"

namespace zorlan {

// An empty colour is black, an empty style "実線".
FigureOptions FigureOptionsOf(const ModelOptions& options);
FigureOptions FigureOptionsOf(const DesignOptions& options);
FigureOptions FigureOptionsOf(const AnalysisOptions& options);

/// Those of the sets in force for a kind of figure (FigureKind): the model figure and the load check have the
/// model set, displacements and forces the analysis set, the ratio figures the design set.
FigureOptions FigureOptionsInForce(int kind);

}  // namespace zorlan

// The loads of one case on the figure: the figure `荷重ﾁｪｯｸ図`.
#pragma once

#include "graphics/frame_figure.h"
#include "graphics/labels.h"

namespace zorlan {

/// Arrows and values of the loads of figure.loadCase on the members, of every type.
void DrawElementForceData(Plot& plot, const Figure& figure, LabelField& labels);
/// Arrows and values of its nodal loads.
void DrawNodalForceData(Plot& plot, const Figure& figure, LabelField& labels);

}  // namespace zorlan

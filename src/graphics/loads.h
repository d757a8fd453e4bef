// The loads of one case on the figure: the figure `荷重ﾁｪｯｸ図`.
#pragma once

#include "graphics/frame_figure.h"
#include "graphics/labels.h"
#include "graphics/load_arrows.h"

namespace zorlan {

/// All loads of figure.loadCase with their values; false when one of the routines below ended by a fault,
/// which the user has been told then.
bool DrawLoads(Plot& plot, const Figure& figure, LabelField& labels);

/// The arrows of the loads on members, of every type; their values and where they lie go to `drawn`.
void DrawElementForceData(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn);
/// The arrows of nodal loads.
void DrawNodalForceData(Plot& plot, const Figure& figure, LabelField& labels, DrawnLoads& drawn);

}  // namespace zorlan

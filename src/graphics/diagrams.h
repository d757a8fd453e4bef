// The result diagrams of one load case on a figure that PrepareFigure has made ready; the frame is drawn
// already. DrawFrameFigure calls them by kind, with DrawLayer set, inside its fault handler.
#pragma once

#include "graphics/frame_figure.h"
#include "graphics/labels.h"

namespace zorlan {

void DrawDisplacementData(Plot& plot, const Figure& figure, LabelField& labels);
void DrawNormalData(Plot& plot, const Figure& figure, LabelField& labels);
void DrawNormalShearData(Plot& plot, const Figure& figure, LabelField& labels);
void DrawMomentData(Plot& plot, const Figure& figure, LabelField& labels);
/// The members in the pens of their ratios' classes, in place of the plain members.
void DrawRatioData(Plot& plot, const Figure& figure, LabelField& labels);

}  // namespace zorlan

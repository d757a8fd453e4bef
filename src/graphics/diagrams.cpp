#include "graphics/diagrams.h"

namespace zorlan {

void DrawDisplacementData(Plot&, const Figure&, LabelField&) {}
void DrawNormalData(Plot&, const Figure&, LabelField&) {}
void DrawNormalShearData(Plot&, const Figure&, LabelField&) {}
void DrawMomentData(Plot&, const Figure&, LabelField&) {}
void DrawRatioData(Plot&, const Figure&, LabelField&) {}

}  // namespace zorlan

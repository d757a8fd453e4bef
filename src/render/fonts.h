// The two faces of the program: a gothic whose full-width characters are exactly twice as wide as its
// half-width ones, for tables, listings and figures, and its proportional sister for menus and labels.
#pragma once

#include <QFont>

namespace zorlan {

/// Makes both faces known and lets the face names that users' settings may hold stand for them. Call it once,
/// after the application object and before the first font. Answers whether the fixed face keeps 1:2: without
/// it columns would wander.
bool InstallFonts();

/// In points for the screen; `FixedFontOfHeight` in the painter's units, unhinted, for pages and figures.
QFont FixedFont(double points);
QFont LabelFont(double points);
QFont FixedFontOfHeight(int height);

}  // namespace zorlan

// The windows of figures as the commands open them, and what they ask of one another.
#pragma once

#include <string_view>
#include <vector>

#include "shell/figure_sheets.h"
#include "shell/windows.h"

namespace zorlan {

class MainWindow;
class frmPrnText;
template <class FormClass>
class FormToShow;
struct MenuFacts;
enum class OptionSet;

/// Shows a figure of this kind (FigureKind) of the model in hand, in the window for its kind.
void OpenFigure(MainWindow& window, int kind);

/// Shows the model figure of its own accord: no box tells what is wrong with the data.
void OpenModelFigure(MainWindow& window);

/// Shows the model figure with tables as they are typed.
void DrawTyped(MainWindow& window, const std::vector<TypedTable>& typed);

/// Marks a node ("NODE") or member ("ELEM") in the model figure, where it is open.
void MarkInFigure(MainWindow& window, std::string_view key, int number);

/// The page preview, whose figures lead to their options.
FormToShow<frmPrnText> PreviewToShow(MainWindow& window);

/// The figures' buttons follow the menu.
void FollowMenu(MainWindow& window, const MenuFacts& facts);

/// The data of all figures are stale.
void DropFigureData(MainWindow& window);

/// The dialogs of display options and viewing range; open figures follow them.
void OpenOptions(MainWindow& window, OptionSet set);
void OpenRange(MainWindow& window);

/// "一括表示出力": the choice of figures and cases, and their pages.
void PrintFigures(MainWindow& window);
/// The pages of a figure as its window shows it: of cases to be chosen where it has any.
void PrintFigure(MainWindow& window, int kind, int loadCase);

}  // namespace zorlan

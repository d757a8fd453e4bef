// The forms of the tables with one row: title, subtitle, control data, units; and `AddNum`, which asks for a
// number. What they hold is a value; what they do to the model stands at the end, and speaks through host.h.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

// InpTITL, InpSUBT

inline constexpr std::size_t kMaxTitleWidth = 72;  // half-width characters

/// Why a title can't be taken, for a box; empty if it can.
std::string TitleFault(std::string_view title);
/// What of a title won't be seen everywhere, for a line below its box: what the files take for their own
/// signs. Empty if nothing.
std::string_view TitleWarning(std::string_view title);

/// The title of a table ("TITL" or "SUBT") as its form shows it: the whole line, commas and all, as the
/// deck takes it. Throws FileFault.
std::string LoadTitle(std::string_view key);
/// Writes it as one row of one cell. Throws FileFault; the table is as it was.
void SaveTitle(std::string_view key, std::string_view title);

// Drop-downs and option groups

/// A field whose value is chosen from a list.
struct ChoiceField {
  std::string_view title;
  std::span<const std::string_view> choices;
};
inline constexpr int kNotChosen = -1;

/// "...の入力は省略できません！！！"
std::string NotChosenMessage(std::string_view title);

// InpCONT

enum class ControlField { Model, LoadCases, List, Rollers };
inline constexpr std::size_t kControlFields = 4;

/// A field of the control data: its list, and the value that its first choice means.
struct ControlChoice : ChoiceField {
  int firstValue = 0;
};
const ControlChoice& ControlChoiceOf(ControlField field);

/// The drop-downs' list indexes, in the order of the table's cells.
struct ControlEntry {
  std::array<int, kControlFields> index = {kNotChosen, kNotChosen, kNotChosen, kNotChosen};

  int& operator[](ControlField field) { return index[static_cast<std::size_t>(field)]; }
  int operator[](ControlField field) const { return index[static_cast<std::size_t>(field)]; }
  bool operator==(const ControlEntry&) const = default;
};

/// The entry of the table's cells; a value outside of a list is not chosen. Missing cells read 0.
ControlEntry ControlOfCells(const std::vector<std::string>& cells);
std::vector<std::string> CellsOfControl(const ControlEntry& entry);

/// A choice, and what follows from it: a plane grid has no inclined rollers.
void Choose(ControlEntry& entry, ControlField field, int index);
bool MayChooseRollers(const ControlEntry& entry);

/// The notes beside the model and beside the loads; empty: none.
std::string_view ModelNote(const ControlEntry& entry);
std::string_view LoadNote(const ControlEntry& entry);

/// The first drop-down left empty.
std::optional<ControlField> MissingChoice(const ControlEntry& entry);
/// Model and number of load cases are chosen: the tables that wait for them can be entered.
bool TablesCanBeEntered(const ControlEntry& entry);

/// Where a table of element loads is cut for this number of load cases: how many rows stay, those in front of
/// the first of a higher case.
int RowsWithinCases(const std::vector<std::vector<std::string>>& rows, int loadCases);

// InpUNIT

enum class UnitField { Input, Output, Force };
inline constexpr std::string_view kFactorTitle = "ＳＩ単位変換係数";

/// The list of a field; that of the force unit follows the output units (0 or 1).
ChoiceField UnitChoiceOf(UnitField field, int outputUnits);

struct UnitEntry {
  std::array<int, 3> index = {kNotChosen, kNotChosen, kNotChosen};
  std::string factor;  // as typed; 0 means 9.80665

  int& operator[](UnitField field) { return index[static_cast<std::size_t>(field)]; }
  int operator[](UnitField field) const { return index[static_cast<std::size_t>(field)]; }
  bool operator==(const UnitEntry&) const = default;
};

/// The entry of the table's cells; a missing factor reads 0, as in the deck.
UnitEntry UnitOfCells(const std::vector<std::string>& cells);
std::vector<std::string> CellsOfUnit(const UnitEntry& entry);

/// kN per t: what the factor means. Nothing if it is no factor at all (below 0, or beyond the range of a
/// real).
std::optional<double> FactorOf(const UnitEntry& entry);
/// The first field left empty.
std::optional<UnitField> MissingChoice(const UnitEntry& entry);
/// Why the entry can't be taken, for a box; empty if it can.
std::string UnitFault(const UnitEntry& entry);

// AddNum

inline constexpr std::string_view kAddMode = "Add", kCancelled = "Abote";
/// The dialog's title: "Add" adds to the selected cells, without it the number is put into them.
std::string_view AddNumTitle(std::string_view mode);

// The model in hand

/// The control data of the model in hand: the table, or before it was ever committed the state of a new
/// model. Throws FileFault.
ControlEntry LoadControl();
/// The same for the units.
UnitEntry LoadUnit();
/// Whether the table is there.
bool HasTable(std::string_view key);

/// The header of InpModel follows, as far as the entry is chosen: forms, menus and figures read it.
void TakeControl(const ControlEntry& entry);
void TakeUnit(const UnitEntry& entry);

/// The number of load cases was changed: the results are those of other cases, and all files FT* of the
/// analysis folder go. Answers whether there were any. Throws FileFault.
bool DropResultsOfOtherCases();
/// Cuts the table ELOD at the first row of a case beyond the count. Throws FileFault.
void CutElementLoads(int loadCases);

/// Writes the table, marks the model changed, and the header follows. Throws FileFault; the table is as it
/// was then.
void SaveControl(const ControlEntry& entry);
void SaveUnit(const UnitEntry& entry);

}  // namespace zorlan

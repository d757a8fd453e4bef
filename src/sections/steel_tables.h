// The steel section tables: five files in one folder, read once, on the first look-up, and looked up by the
// name that a section's dimensions form. A supplement (H-2.CSV beside H.CSV) is merged into its table first.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sections/steel_families.h"
#include "sections/steel_table_text.h"

namespace zorlan {

/// Where the tables lie, with a closing separator; empty: there are none. Set before the first look-up.
extern std::string SteelTableFolder;

/// Merges the supplements there are and reads all five tables; a second call does nothing. A missing file
/// leaves its family empty. What can't be read or saved is told to the user; a merge that can't be saved
/// serves in memory, and its supplement stays for another time.
void LoadSectionTables();

/// Makes the next look-up read the tables anew: after another folder was set, or a table was edited. Ends the
/// life of every row handed out before.
void ForgetSectionTables();

/// The rows of a family in the order of the file; reads it if need be.
const std::vector<SteelRow>& SteelRows(SteelFamily family);

/// The row of a section, the first of its name; null if there is none. `dimensions` are those of the name, in
/// mm once multiplied by `scale`; a family takes as many of them as its name has. Costs a hash, not a scan.
const SteelRow* FindSteelRow(SteelFamily family, std::span<const double> dimensions, double scale);

/// The row's values with lengths of `mmPerUnit` mm: 1000 answers in m, m2, m3, m4.
SteelSection SteelSectionIn(double mmPerUnit, SteelFamily family, const SteelRow& row);

/// Looks a section up by its family word and its dimensions in mm (times `scale`). With the scale 1 the
/// values are those of the table (mm, cm, cm2, cm3, cm4); otherwise they are in the unit of the dimensions, m
/// for 1000.
std::optional<SteelSection> FindSection(std::string_view familyWord, std::span<const double> dimensions,
                                        double scale = 1);

/// Where a family's table, its supplement and what a merge leaves behind lie: SteelTablePath(SteelFamily::H,
/// "-2.CSV") is the supplement of H.
std::string SteelTablePath(SteelFamily family, std::string_view ending = ".CSV");

/// Saves a table over `path` and keeps the former file: writes `temporary`, deletes an old backup, makes the
/// file the `backup`, gives the temporary file its name. The backup is a copy, so at no moment is there no
/// table. Throws FileFault; the former file is then still there, and no temporary one.
void ReplaceTableFile(const std::string& path, const std::string& temporary, const std::string& backup,
                      std::string_view bytes);

}  // namespace zorlan

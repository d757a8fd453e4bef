// The input data list: the table files of the work folder as one readable text, which the user reads or
// prints before an analysis. It shows what the forms last wrote, so it reads the tables and not the model
// records.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "model/table_file.h"

namespace zorlan {

/// The rows of each table by its key; a table that has none may be missing.
using ModelTables = std::map<std::string, std::vector<TableRow>, std::less<>>;

/// The list of these tables, lines with CR LF: title, control data, units, nodes with springs and groups,
/// magnification, elements, rigid zones, sections by shape, loads by case, with an empty line between; what
/// has nothing to show is left out. Numbers are rounded half away from zero; one wider than its column is
/// shown whole. An empty cell counts as 0 where a number is formatted, and stays blank where cells are shown
/// as typed.
std::string InputListText(const ModelTables& tables);

/// Writes the list of the model in hand to `TmpFile.inp` in the work folder. Throws FileFault.
void MakeInputList();

}  // namespace zorlan

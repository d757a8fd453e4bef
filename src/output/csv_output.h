// The analysis results as three comma-separated files for a spreadsheet: displacements, member forces,
// reactions.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "analysis/result_files.h"

namespace zorlan {

/// The entry of the dialog that a refusal is about.
enum class CsvEntry { None, Folder, Name };

struct CsvResult {
  bool written = false;
  CsvEntry focus = CsvEntry::None;   // where the user has to go on
  std::array<std::string, 3> paths;  // of displacements, member forces, reactions
};

/// The base name that the dialog proposes: the deck's name without ".INP".
std::string CsvBaseName();

/// Writes `name`_D.CSV, `name`_S.CSV and `name`_R.CSV into a folder, for the model in hand and its results in
/// AnalysisPath; without FT022A the reactions are their headings alone. Results that don't fit the model are
/// a failure. Tells the user of the end, good or bad. After a failure every file that was there is still
/// whole.
CsvResult WriteCsvFiles(std::string_view folder, std::string_view name);

/// The two heading lines of each file; forces by ForceIndex. UTF-8 with CR LF.
std::string CsvDisplacementHeading();
std::string CsvForceHeading(int forceIndex);
std::string CsvReactionHeading(int forceIndex);

/// The lines of one row of results, a case each: the number, the case, the values as they are.
void AppendCsvLines(std::string& out, int number, const ResultTable& values, int index);

}  // namespace zorlan

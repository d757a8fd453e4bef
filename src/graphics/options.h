// How the figures look: three option sets, in memory while the program runs and in files of the program's
// folder (AppPath) between runs. A row of a set is one text of comma-separated fields; what a field means
// stands in the forms of the rows (option_rows.h).
//
// MODELEST.PRM   the rows of the model set, then the two rows of the viewing range
// DESGNEST.PRM   the mark of the version, then the rows of the design set
// LOADEST1.PRM   the rows of the analysis set, heights of displacement, axial force and moment, decimals of
//                axial force, shear and moment, height of shear, the two colours, the flag
// LOADEST.PRM    the older form of it: without height of shear and colours, with or without the flag; a
//                file of this name that holds the newer values is read for them
//
// A value is a line, texts in double quotes. What a file lacks, or what can't be meant, is the default; a
// viewing range is taken whole or not at all.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "graphics/option_rows.h"
#include "graphics/plot_target.h"
#include "graphics/view.h"

namespace zorlan {

template <std::size_t N>
using OptionRows = std::array<std::string, N>;

struct ModelOptions {
  OptionRows<kModelRows.size()> rows;
  ViewingRange range;
  bool operator==(const ModelOptions&) const = default;
};

struct DesignOptions {
  OptionRows<kDesignRows.size()> rows;
  bool operator==(const DesignOptions&) const = default;
};

/// What the heights (from 0, cm) and the decimals of the diagrams may be.
inline constexpr float kLargestDiagramHeight = 1000;
inline constexpr int kMostDiagramDecimals = 9;

struct AnalysisOptions {
  OptionRows<kAnalysisRows.size()> rows;
  float HeightDisplacement = 1, HeightNormal = 1, HeightMoment = 1;  // cm
  std::string DecimalsNormal = "2", DecimalsShear = "2", DecimalsMoment = "2";
  float HeightShear = 1;                                                 // cm
  Rgb tension = ColourOf(0, 0, 255), compression = ColourOf(255, 0, 0);  // of the axial force diagram
  bool ScaleOverAllCases = true;
  bool operator==(const AnalysisOptions&) const = default;
};

extern ModelOptions DispOption;
extern AnalysisOptions DispOptionAna;
extern DesignOptions DispOptionDesgn;

/// The sets as they come with the program.
ModelOptions DefaultModelOptions();
DesignOptions DefaultDesignOptions();
AnalysisOptions DefaultAnalysisOptions();
void SetDefaultModelOptions();
void SetDefaultDesignOptions();
void SetDefaultAnalysisOptions();

/// Read a set from its file at start-up; without a file that can be read it is the default, and nothing is
/// written. A file larger than any of ours (base/settings_file.h) isn't read. Never fails. LoadDesignOptions
/// removes a file without a mark of a version. LoadAnalysisOptions turns LOADEST.PRM, when there is one, into
/// LOADEST1.PRM; it stays if that can't be written.
void LoadModelOptions();
void LoadDesignOptions();
void LoadAnalysisOptions();

/// Write a set to its file. Throws FileFault; the older file is still there then. SaveAnalysisOptions removes
/// LOADEST.PRM, whose values these replace.
void SaveModelOptions();
void SaveDesignOptions();
void SaveAnalysisOptions();

// The files' texts

ModelOptions ParseModelOptions(std::string_view text);
std::string ModelOptionsText(const ModelOptions& options);

/// Whether the text begins with a mark of a version: "Ver3", or "Ver2" of older files.
bool IsDesignOptions(std::string_view text);
DesignOptions ParseDesignOptions(std::string_view text);
std::string DesignOptionsText(const DesignOptions& options);

AnalysisOptions ParseAnalysisOptions(std::string_view text);
std::string AnalysisOptionsText(const AnalysisOptions& options);
/// The older form: behind the decimals stands the flag or nothing; a text with more values there has them in
/// the newer form. What it lacks is the default, but the height of shear is the last height read. A text
/// without a single row of the set is none of ours: the answer is `newer` then.
AnalysisOptions ParseOlderAnalysisOptions(std::string_view text, const AnalysisOptions& newer);

}  // namespace zorlan

// The four result files of an analysis: text, real after real, in t, m and rad.
//
// FT021   displacements: case, node row, the node's three equations
// FT022   reactions: case, supported node in the order of FT022A, its number and three reactions
// FT022A  cases, number of supported nodes, their numbers
// FT031   member forces: case, element row, the seven values N(I) Q(I) M(I) N(J) Q(J) M(J) M(C)
//
// A reader splits at blanks, commas and line ends; a number that ends with its file is a number cut off.
// Folders are texts with a closing separator.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan {

inline constexpr int kForcesPerElement = 7;

/// Place of a value in FT031, counted from 0: case and element row from 1, position 1 to 7.
constexpr std::size_t ForcePlace(int loadCase, int elements, int elementRow, int position) {
  return (static_cast<std::size_t>(loadCase - 1) * static_cast<std::size_t>(elements) +
          static_cast<std::size_t>(elementRow - 1)) *
             kForcesPerElement +
         static_cast<std::size_t>(position - 1);
}

/// How many values a result file has.
constexpr std::size_t ValueCount(int cases, int rows, int places) {
  return cases <= 0 ? 0
                    : static_cast<std::size_t>(cases) * static_cast<std::size_t>(rows) *
                          static_cast<std::size_t>(places);
}

/// The values of a result file: load case from 1, index of the row (of nodes, supports, elements) from 0,
/// places of a row.
struct ResultTable {
  std::span<const double> values;
  int cases = 0, rows = 0, places = 0;

  const double* Row(int loadCase, int index) const {
    return values.data() + ValueCount(loadCase - 1, rows, places) + ValueCount(1, index, places);
  }
};

/// Reactions of all cases. Reaction d (0 to 2) of support s (from 0) in case c (from 1) stands at ((c-1)
/// supports + s) 3 + d.
struct Reactions {
  int cases = 0;
  std::vector<int> nodes;      // numbers of the supported nodes, in the order of the files
  std::vector<double> values;  // t, t*m

  ResultTable Table() const { return {values, cases, static_cast<int>(nodes.size()), 3}; }
};

/// What may follow the numbers that are read from a file.
enum class Behind { Anything, Nothing };

/// Numbers of a result file, which must hold at least `count` of them. Throws Fault: missing file, early end,
/// no number, more numbers where nothing may follow.
std::vector<double> ReadReals(const std::string& path, std::size_t count, Behind behind = Behind::Anything);

/// What the user is told of results that are missing or don't fit the model.
inline constexpr std::string_view kNoFittingResults =
    "入力データに合う解析結果がありません。静解析を行ってください";

/// FT022A and FT022 of a folder. Throws as above, also for numbers behind the last that FT022A asks for.
Reactions ReadReactions(const std::string& folder);
/// The same; those of another number of load cases are a Fault.
Reactions ReadReactions(const std::string& folder, int cases);

/// Writes FT021 (a real a line).
void WriteDisplacements(const std::string& folder, std::span<const double> values);
/// Writes FT031 (a real a line).
void WriteForces(const std::string& folder, std::span<const double> values);

/// How a record of FT022 is grouped: one line of four numbers, or four lines (as the merge writes it).
enum class ReactionLines { One, Four };
/// Writes FT022 and FT022A.
void WriteReactions(const std::string& folder, const Reactions& reactions, ReactionLines lines);

}  // namespace zorlan

// What the batch program makes of a deck, as files, and their comparison with the ones that were read by eye.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorlan::test {

/// File names and their bytes.
using FileSet = std::map<std::string, std::string>;

/// A deck and the folder with what it gives.
struct GoldenCase {
  std::string name;    // the folder below tests/golden
  std::string deck;    // path
  std::string folder;  // with a closing separator
};

/// The decks of tests/golden itself: every folder there that has a model.inp.
std::vector<GoldenCase> DecksOfTheirOwn();
/// The models of the sample projects: every deck in a project of data/DATA.
std::vector<GoldenCase> SampleModels();

/// Runs check, input-list, analyze and csv on the deck, as model.inp in a folder of its own:
///   check.txt, input-list.txt                          standard output, UTF-8
///   model.out, model_D.CSV, model_S.CSV, model_R.CSV   after a good analysis; code page 932, CR LF
///   check-failure.txt, analyze-failure.txt             the messages of a command that can't do its work
FileSet FilesOf(const GoldenCase& golden);

/// The files of the folder but for the deck and origin.md.
FileSet FilesRead(const GoldenCase& golden);

/// A text as a person sees it: a file of the product in UTF-8.
std::string Shown(const std::string& name, const std::string& bytes);

/// The first line in which two texts differ, both ways; nothing if they are the same to the byte.
std::optional<std::string> FirstDifference(std::string_view expected, std::string_view actual);

}  // namespace zorlan::test

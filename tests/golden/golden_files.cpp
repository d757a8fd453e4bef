#include "golden/golden_files.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "base/cp932.h"
#include "base/text_file.h"
#include "batch/batch_program.h"

namespace zorlan::test {
namespace {

namespace fs = std::filesystem;

const fs::path kGolden = NativePath(ZORLAN_SOURCE_DIR "/tests/golden");
const fs::path kProjects = NativePath(ZORLAN_SOURCE_DIR "/data/DATA");
constexpr const char* kSamples = "samples";
constexpr const char* kDeck = "model.inp";

GoldenCase CaseOf(const fs::path& name, const fs::path& deck) {
  return {PathText(name), PathText(deck), FolderText(PathText(kGolden / name))};
}

void SortByName(std::vector<GoldenCase>& cases) {
  std::ranges::sort(cases, {}, &GoldenCase::name);
}

/// The line that begins at `at`, without its end; moves behind it.
std::string_view LineAt(std::string_view text, std::size_t& at) {
  const std::size_t end = std::min(text.find('\n', at), text.size());
  const std::string_view line = text.substr(at, end - at);
  at = std::min(end + 1, text.size());
  return line;
}

}  // namespace

std::vector<GoldenCase> DecksOfTheirOwn() {
  std::vector<GoldenCase> cases;
  for (const fs::directory_entry& entry : fs::directory_iterator(kGolden))
    if (fs::exists(entry.path() / kDeck))
      cases.push_back(CaseOf(entry.path().filename(), entry.path() / kDeck));
  SortByName(cases);
  return cases;
}

std::vector<GoldenCase> SampleModels() {
  std::vector<GoldenCase> cases;
  for (const fs::directory_entry& project : fs::directory_iterator(kProjects)) {
    if (!project.is_directory()) continue;
    for (const fs::directory_entry& entry : fs::directory_iterator(project.path()))
      if (entry.path().extension() == ".inp")
        cases.push_back(CaseOf(kSamples / project.path().filename() / entry.path().stem(), entry.path()));
  }
  SortByName(cases);
  return cases;
}

FileSet FilesOf(const GoldenCase& golden) {
  const BatchProgram program;
  program.File(kDeck, ReadBytes(golden.deck));
  FileSet files;
  const auto run = [&](std::vector<std::string> words, const std::string& failure) {
    const BatchResult result = program.Run(words);
    EXPECT_EQ(result.signal, 0) << golden.name << ": " << words.front();
    if (result.exitCode != 0 && !result.err.empty()) files[failure] = result.err;
    return result;
  };
  files["check.txt"] = run({"check", kDeck}, "check-failure.txt").out;
  files["input-list.txt"] = run({"input-list", kDeck}, "input-list-failure.txt").out;
  if (run({"analyze", kDeck}, "analyze-failure.txt").exitCode != 0) return files;
  run({"csv", kDeck, "--folder", "."}, "csv-failure.txt");
  for (const char* const name : {"model.out", "model_D.CSV", "model_S.CSV", "model_R.CSV"})
    files[name] = program.Bytes(name);
  return files;
}

FileSet FilesRead(const GoldenCase& golden) {
  const std::set<std::string> others = {kDeck, "origin.md"};
  FileSet files;
  if (!FolderExists(golden.folder)) return files;
  for (const std::string& name : BatchProgram::Names(golden.folder))
    if (!others.contains(name)) files[name] = ReadBytes(golden.folder + name);
  return files;
}

std::string Shown(const std::string& name, const std::string& bytes) {
  return name.ends_with(".txt") ? bytes : Utf8FromCp932(bytes);
}

std::optional<std::string> FirstDifference(std::string_view expected, std::string_view actual) {
  std::size_t e = 0, a = 0;
  for (int number = 1; e < expected.size() || a < actual.size(); ++number) {
    const bool expectedEnds = e == expected.size(), actualEnds = a == actual.size();
    const std::string_view left = LineAt(expected, e), right = LineAt(actual, a);
    if (left == right && expectedEnds == actualEnds) continue;
    const auto shown = [](bool ends, std::string_view line) {
      return ends ? std::string("nothing more") : "|" + std::string(line) + "|";
    };
    return "line " + std::to_string(number) + "\n  expected " + shown(expectedEnds, left) + "\n  is       " +
           shown(actualEnds, right);
  }
  if (expected.size() != actual.size()) return "the end of the last line";
  return std::nullopt;
}

}  // namespace zorlan::test

// Whole files: every deck gives, to the byte, what was read by eye (README.md beside this file says how).
// With ZORLAN_RENEW_GOLDEN set to "all", or to a part of the names of the cases, what differs is written into
// the folders instead; the difference is then to be read.
#include "golden/golden_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "base/text_file.h"

namespace zorlan::test {
namespace {

bool IsRenewed(const GoldenCase& golden) {
  const char* const renew = std::getenv("ZORLAN_RENEW_GOLDEN");
  return renew != nullptr &&
         (std::string_view(renew) == "all" || golden.name.find(renew) != std::string::npos);
}

void Renew(const GoldenCase& golden, const FileSet& expected, const FileSet& actual) {
  MakeFolder(golden.folder);
  for (const auto& [name, bytes] : expected)
    if (!actual.contains(name)) RemoveFile(golden.folder + name);
  for (const auto& [name, bytes] : actual)
    if (!expected.contains(name) || expected.at(name) != bytes) ReplaceBytes(golden.folder + name, bytes);
}

/// Where the files of a failed case are kept.
std::string KeptFolder(const GoldenCase& golden) {
  return FolderText(ZORLAN_BINARY_DIR "/golden/" + golden.name);
}

void Compare(const GoldenCase& golden, const FileSet& expected, const FileSet& actual) {
  for (const auto& [name, bytes] : expected)
    EXPECT_TRUE(actual.contains(name)) << golden.name << " doesn't give " << name << " any more";
  for (const auto& [name, bytes] : actual) {
    const auto read = expected.find(name);
    if (read != expected.end() && read->second == bytes) continue;
    MakeFolder(KeptFolder(golden));
    ReplaceBytes(KeptFolder(golden) + name, bytes);
    ADD_FAILURE() << golden.folder << name << "\n"
                  << (read == expected.end()
                          ? "nobody has read this file yet"
                          : *FirstDifference(Shown(name, read->second), Shown(name, bytes)))
                  << "\nThe actual file is " << KeptFolder(golden) << name;
  }
}

void Check(const std::vector<GoldenCase>& cases) {
  EXPECT_FALSE(cases.empty());
  for (const GoldenCase& golden : cases) {
    const FileSet expected = FilesRead(golden), actual = FilesOf(golden);
    if (IsRenewed(golden))
      Renew(golden, expected, actual);
    else
      Compare(golden, expected, actual);
  }
}

TEST(Golden, EveryDeckGivesTheFilesThatWereRead) {
  Check(DecksOfTheirOwn());
}

TEST(Golden, EverySampleModelGivesTheFilesThatWereRead) {
  Check(SampleModels());
}

TEST(Golden, EveryFolderSaysWhatItIsForAndWhatWasCheckedByHand) {
  for (const std::vector<GoldenCase>& cases : {DecksOfTheirOwn(), SampleModels()})
    for (const GoldenCase& golden : cases)
      EXPECT_TRUE(FileExists(golden.folder + "origin.md")) << golden.folder;
}

/// The texts of a list in tests/texts.
std::vector<std::string> TextsOfList(const std::string& name) {
  std::vector<std::string> texts;
  const std::string list = ReadBytes(ZORLAN_SOURCE_DIR "/tests/texts/" + name + ".txt");
  std::string_view rest = list;
  while (const std::optional<std::string_view> line = TakeLine(rest))
    if (line->starts_with("|")) texts.emplace_back(line->substr(1, line->size() - 2));
  return texts;
}

// Not in any file: the box after a check without a finding, and the three texts that no test of the check
// reaches.
constexpr std::string_view kInNoFile[] = {
    "エラーはありませんでした。",
    "エラーチェック",
    "強制変位データ　　　： Ｘ方向バネ支持設定が未定義エラー　　",
    "強制変位データ　　　： Ｙ方向バネ支持設定が未定義エラー　　",
    "強制変位データ　　　： 回転バネ支持設定が未定義エラー　　",
};

TEST(Golden, EveryTextOfCheckListAndListingOccursInSomeFile) {
  std::string all;
  for (const GoldenCase& golden : DecksOfTheirOwn())
    for (const auto& [name, bytes] : FilesRead(golden)) all += Shown(name, bytes);
  for (const char* const list : {"input_check", "input_list", "listing"})
    for (const std::string& text : TextsOfList(list))
      EXPECT_TRUE(std::ranges::find(kInNoFile, text) != std::end(kInNoFile) ||
                  all.find(text) != std::string::npos)
          << list << ": |" << text << "|";
}

TEST(Golden, ADifferenceIsShownByItsFirstLine) {
  EXPECT_EQ(FirstDifference("a\nb\n", "a\nb\n"), std::nullopt);
  EXPECT_EQ(FirstDifference("a\nb\nc\n", "a\nB\nC\n"), "line 2\n  expected |b|\n  is       |B|");
  EXPECT_EQ(FirstDifference("a\n", "a\nb\n"), "line 2\n  expected nothing more\n  is       |b|");
  EXPECT_EQ(FirstDifference("a\n\n", "a\n"), "line 2\n  expected ||\n  is       nothing more");
  EXPECT_EQ(FirstDifference("a\n", "a"), "the end of the last line");
}

}  // namespace
}  // namespace zorlan::test

// The manual that the build makes of docs/manual.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/text_file.h"

namespace zorlan {
namespace {

std::vector<std::string> ChapterTitles() {
  std::vector<std::string> titles;
  for (const auto& entry :
       std::filesystem::directory_iterator(NativePath(ZORLAN_SOURCE_DIR "/docs/manual"))) {
    const std::string text = ReadBytes(PathText(entry.path()));
    titles.push_back(text.substr(2, text.find('\n') - 2));  // behind "# "
  }
  return titles;
}

std::string Without(std::string text, std::string_view what) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what))
    text.erase(at, what.size());
  return text;
}

TEST(Manual, HasEveryChapterInItsPagesAndInItsContents) {
  ASSERT_TRUE(FileExists(ZORLAN_MANUAL));
  FILE* const pipe = ::popen("pdftotext -layout '" ZORLAN_MANUAL "' - 2> /dev/null", "r");
  ASSERT_NE(pipe, nullptr);
  std::string text;
  std::array<char, 4096> piece{};
  while (const std::size_t got = std::fread(piece.data(), 1, piece.size(), pipe))
    text.append(piece.data(), got);
  ::pclose(pipe);
  if (text.empty()) GTEST_SKIP() << "pdftotext is not there";
  text = Without(text, " ");
  const std::vector<std::string> titles = ChapterTitles();
  EXPECT_GE(titles.size(), 11U);
  for (const std::string& title : titles) {
    const std::size_t first = text.find(Without(title, " "));
    ASSERT_NE(first, std::string::npos) << title;
    EXPECT_NE(text.find(Without(title, " "), first + 1), std::string::npos) << title;
  }
}

TEST(Manual, LiesWhereTheHelpEntryOfThisBuildLooksForIt) {
  const std::filesystem::path folder = NativePath(ZORLAN_MANUAL).parent_path();
  EXPECT_EQ(PathText(NativePath(ZORLAN_MANUAL).filename()), "マニュアル.pdf");
  for (const char* const seed : {"DATA", "鋼材TABLE", "木材TABLE"})
    EXPECT_TRUE(FolderExists(PathText(folder / NativePath(seed)))) << seed;
}

}  // namespace
}  // namespace zorlan

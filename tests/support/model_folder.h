// A documents folder of a test's own, with the model in hand inside it, and what tests ask of its files.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/cp932.h"
#include "base/fault.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan::test {

/// The text with each LF made CR LF.
inline std::string CrLf(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

/// Makes a folder tree and points the globals of the model in hand at it.
class ModelFolderTest : public testing::Test {
 protected:
  ModelFolderTest() {
    WorkPath = Root() + "WK/";
    AnalysisPath = Root() + "AN/";
    DataPath = Root() + "DATA/";
    ProjectName = "試験.zor/";
    ModelFile = "model.inp";
    for (const std::string& folder : {WorkPath, AnalysisPath, DataPath + ProjectName}) MakeFolder(folder);
    RawModel = InpModel = CalcModel = ModelRec();
  }

  const std::string& Root() const { return folder_.Path(); }

  /// Writes a text, given with LF, as a file of the system: code page 932, CR LF.
  static void Write(const std::string& path, std::string_view text) {
    ReplaceBytes(path, Cp932FromUtf8(CrLf(text)).bytes, Flush::No);
  }
  /// A table file of the work folder; the deck of the model in hand.
  static void WriteTable(const std::string& key, std::string_view text) { Write(WorkPath + key, text); }
  static void WriteDeck(std::string_view text) { Write(DeckPath(), text); }

  /// The text of a file, with LF for CR LF; a line end that isn't CR LF fails the test.
  static std::string Read(const std::string& path) {
    const std::string text = ReadTextFile(path);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
      EXPECT_FALSE(text[i] == '\r' || (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')))
          << path << " has a line end of its own at byte " << i;
      result += text[i];
    }
    return result;
  }
  static std::string ReadTable(const std::string& key) { return Read(WorkPath + key); }

  /// A folder that nothing can be written into, for any user: its parent is a file.
  std::string BlockedFolder() const {
    ReplaceBytes(Root() + "file", "");
    return Root() + "file/folder/";
  }
  /// Makes a folder that is there and that nobody can look into.
  static void LinkToItself(const std::string& folder) {
    std::filesystem::create_symlink(NativePath(folder), NativePath(folder));
  }

 private:
  TemporaryFolder folder_;
};

/// Runs `action` and answers the words of the Fault that it throws, "" without one.
template <class Action>
std::string FaultOf(Action action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return {};
}

}  // namespace zorlan::test

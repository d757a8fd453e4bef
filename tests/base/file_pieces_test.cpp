// Large files, read and written in pieces.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/fault.h"
#include "base/text_file.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

/// Larger than any piece, and no two pieces the same.
std::string ManyBytes() {
  std::string bytes;
  for (int i = 0; bytes.size() < 3'000'000; ++i) bytes += std::to_string(i) + "\r\n";
  return bytes;
}

class FilePieces : public testing::Test {
 protected:
  std::string Path(const char* name) const { return folder_.Path() + name; }

 private:
  TemporaryFolder folder_;
};

TEST_F(FilePieces, WhatIsWrittenInPiecesIsReadAndCopiedWhole) {
  const std::string bytes = ManyBytes();
  FileWriter file(Path("a"));
  for (std::size_t at = 0; at < bytes.size(); at += 1000) {
    file.Buffer() += bytes.substr(at, 1000);
    file.Drain();
  }
  file.Commit();
  EXPECT_TRUE(ReadBytes(Path("a")) == bytes);
  CopyFileOver(Path("a"), Path("b"));
  EXPECT_TRUE(ReadBytes(Path("b")) == bytes);
}

TEST_F(FilePieces, AReaderGoesThroughTheFileAndStaysAtItsEnd) {
  ReplaceBytes(Path("a"), "abcde");
  FileReader file(Path("a"));
  EXPECT_EQ(file.Size(), 5U);
  char room[3];
  EXPECT_EQ(file.Read(room, 3), 3U);
  EXPECT_EQ(std::string(room, 3), "abc");
  EXPECT_EQ(file.Read(room, 3), 2U);
  EXPECT_EQ(std::string(room, 2), "de");
  EXPECT_EQ(file.Read(room, 3), 0U);
  EXPECT_EQ(file.Read(room, 3), 0U);
}

TEST_F(FilePieces, AMissingFileIsNamed) {
  try {
    FileReader file(Path("none"));
    ADD_FAILURE() << "no fault";
  } catch (const FileFault& fault) {
    EXPECT_THAT(fault.what(), testing::HasSubstr(Path("none")));
  }
}

TEST_F(FilePieces, ATextThatMayBeMissingIsReadWhereItCanBe) {
  ReplaceBytes(Path("a"), "one");
  MakeFolder(Path("folder"));
  EXPECT_EQ(ReadTextFileIfAny(Path("a")), "one");
  ReplaceBytes(Path("closed"), "one\r\n\x1A\x1A");
  EXPECT_EQ(ReadTextFile(Path("closed")), "one\r\n");
  EXPECT_EQ(ReadTextFileIfAny(Path("closed")), "one\r\n");
  EXPECT_EQ(ReadTextFileIfAny(Path("none")), std::nullopt);
  EXPECT_EQ(ReadTextFileIfAny(Path("folder")), std::nullopt);
}

TEST_F(FilePieces, AWriterContinuesAFile) {
  ReplaceBytes(Path("a"), "one ");
  FileWriter file(Path("a"), FileWriter::Start::Continued);
  file.Buffer() += "two";
  file.Commit();
  EXPECT_EQ(ReadBytes(Path("a")), "one two");
}

TEST_F(FilePieces, AWriterStartsTheFileThatIsNotThere) {
  FileWriter file(Path("a"), FileWriter::Start::Continued);
  file.Buffer() += "one";
  file.Commit();
  EXPECT_EQ(ReadBytes(Path("a")), "one");
}

TEST_F(FilePieces, WithoutCommitAContinuedFileIsWhatItWas) {
  ReplaceBytes(Path("a"), "one ");
  {
    FileWriter file(Path("a"), FileWriter::Start::Continued);
    file.Buffer() += ManyBytes();
    file.Drain();
  }
  EXPECT_EQ(ReadBytes(Path("a")), "one ");
}

TEST_F(FilePieces, WithoutCommitANewFileLeavesTheOldOneAndNothingBesideIt) {
  ReplaceBytes(Path("a"), "one");
  {
    FileWriter file(Path("a"));
    file.Buffer() += ManyBytes();
    file.Drain();
  }
  EXPECT_EQ(ReadBytes(Path("a")), "one");
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(NativePath(Path(""))))
    files += entry.exists() ? 1 : 0;
  EXPECT_EQ(files, 1);
}

TEST_F(FilePieces, TryingAPathLeavesWhatIsThere) {
  ReplaceBytes(Path("a"), "one");
  EXPECT_TRUE(CanWriteFile(Path("a")));
  EXPECT_EQ(ReadBytes(Path("a")), "one");
  EXPECT_TRUE(CanWriteFile(Path("b")));
  EXPECT_FALSE(FileExists(Path("b")));
  EXPECT_FALSE(CanWriteFile(Path("none/b")));
  EXPECT_FALSE(CanWriteFile(Path("a/b")));
  EXPECT_FALSE(CanWriteFile(Path("")));
}

TEST_F(FilePieces, ClearingAFolderRemovesItsFilesAndLinksAndKeepsItsFolders) {
  MakeFolder(Path("folder/inner"));
  ReplaceBytes(Path("folder/inner/a"), "one");
  ReplaceBytes(Path("folder/b"), "two");
  std::filesystem::create_symlink(NativePath(Path("folder/none")), NativePath(Path("folder/link")));
  RemoveFilesIn(Path("folder/"));
  ASSERT_EQ(EntriesOf(Path("folder")).size(), 1U);
  EXPECT_EQ(ReadBytes(Path("folder/inner/a")), "one");
}

TEST_F(FilePieces, AMissingFolderIsEmpty) {
  EXPECT_TRUE(EntriesOf(Path("none/")).empty());
  RemoveFilesIn(Path("none/"));
  EXPECT_FALSE(FolderExists(Path("none")));
}

TEST_F(FilePieces, AFolderThatCannotBeLookedIntoIsNoEmptyOne) {
  ReplaceBytes(Path("file"), "");
  std::filesystem::create_symlink(NativePath(Path("loop")), NativePath(Path("loop")));
  for (const char* const name : {"file", "loop/"}) {
    try {
      RemoveFilesIn(Path(name));
      ADD_FAILURE() << name << " counts as cleared";
    } catch (const FileFault& fault) {
      EXPECT_THAT(fault.what(), testing::HasSubstr(Path(name)));
    }
  }
}

}  // namespace
}  // namespace zorlan

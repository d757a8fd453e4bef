#include "shell/folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/fault.h"
#include "shell/folder_tree.h"
#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

class FoldersTest : public ShellTest {
 protected:
  std::string In(const std::string& name) const { return Account() + name; }
  void Link(const std::string& to, const std::string& from) const {
    fs::create_directories(NativePath(In(from)).parent_path());
    fs::create_symlink(NativePath(In(to)), NativePath(In(from)));
  }
  std::vector<std::string> NamesIn(const std::string& folder, Leaves leaves = Leaves::Decks) const {
    std::vector<std::string> names;
    for (const TreeNode& node : ListFolder(In(folder), leaves)) {
      constexpr std::string_view kKinds = "FPM";  // folder, project, model
      names.push_back(kKinds[static_cast<std::size_t>(node.kind)] + (":" + node.name));
    }
    return names;
  }
};

TEST_F(FoldersTest, NameIsFoundCaseAsideTheExactOneFirst) {
  Write(In("a/H.csv"), "");
  Write(In("a/h.CSV"), "");
  EXPECT_EQ(FindName(In("a"), "h.CSV"), "h.CSV");
  EXPECT_EQ(FindName(In("a"), "H.CSV"), "H.csv");
  EXPECT_EQ(FindName(In("a"), "B.CSV"), std::nullopt);
  EXPECT_EQ(FindName(In("none"), "H.CSV"), std::nullopt);
}

// Typed names take the code page's own characters; another program may have named the folder.
TEST_F(FoldersTest, ANameOfForeignCharactersIsFoundByItsOwnOnes) {
  Write(In("a/案〜１.inp"), "");
  EXPECT_EQ(FindName(In("a"), "案～１.INP"), "案〜１.inp");
  EXPECT_EQ(FindName(In("a"), "案-１.inp"), std::nullopt);
}

TEST_F(FoldersTest, PathInAFolderIsThatOfTheNameItHas) {
  Write(In("a/H.csv"), "");
  EXPECT_EQ(PathIn(In("a/"), "H.CSV"), In("a/H.csv"));
  EXPECT_EQ(PathIn(In("a/"), "BOX.CSV"), In("a/BOX.CSV"));
  EXPECT_EQ(PathIn(In("none/"), "H.CSV"), In("none/H.CSV"));
}

TEST_F(FoldersTest, WhatADeadProgramWasWritingIsRemovedAndNothingElse) {
  const pid_t dead = ::fork();
  if (dead == 0) ::_exit(0);
  ::waitpid(dead, nullptr, 0);
  const std::string abandoned = "m.inp.~" + std::to_string(dead);
  const std::string ours = "m.inp.~" + std::to_string(::getpid());
  for (const std::string& name :
       {std::string("m.inp"), abandoned, ours, std::string("m.~12a"), std::string("m.~")})
    Write(In("p.zor/" + name), "");
  EXPECT_TRUE(IsUnfinishedFile(abandoned));
  EXPECT_FALSE(IsUnfinishedFile("m.inp"));
  EXPECT_THAT(NamesIn("p.zor"), ElementsAre("M:m.inp"));
  RemoveAbandonedFiles(In("p.zor"));
  EXPECT_THAT(Listing(In("p.zor")), ElementsAre("m.inp", ours, "m.~", "m.~12a"));
  RemoveAbandonedFiles(In("none"));
}

TEST_F(FoldersTest, LastNameIsThatOfTheFolderItself) {
  EXPECT_EQ(LastName("/a/架構.zor/"), "架構.zor");
  EXPECT_EQ(LastName("/a/架構.zor"), "架構.zor");
  EXPECT_EQ(LastName("/a/b//"), "b");
  EXPECT_EQ(LastName(""), "");
}

TEST_F(FoldersTest, TreeIsCopiedWithItsSubFolders) {
  Write(In("from/1"), "a");
  Write(In("from/s/2"), "b");
  Write(In("from/s/t/3"), "c");
  fs::create_directories(NativePath(In("from/empty")));
  CopyTree(In("from"), In("to"));
  EXPECT_EQ(Contents(In("to/")), Contents(In("from/")));
}

TEST_F(FoldersTest, CopyOfATreeDoesNotFollowLinksToFolders) {
  Write(In("from/1"), "a");
  Link("from", "from/again");
  CopyTree(In("from"), In("to"));
  EXPECT_THAT(Listing(In("to")), ElementsAre("1"));
}

TEST_F(FoldersTest, MissingTreeIsNothingToCopy) {
  CopyTree(In("none"), In("to"));
  EXPECT_FALSE(FolderExists(In("to")));
}

TEST_F(FoldersTest, DeletedTreeIsGoneWithAllInIt) {
  Write(In("a.zor/1"), "");
  Write(In("a.zor/m.ANA/FT031"), "");
  DeleteTree(In("a.zor/"), /*removeTop=*/true);
  EXPECT_FALSE(FolderExists(In("a.zor")));
}

TEST_F(FoldersTest, TopMayStay) {
  Write(In("a.zor/1"), "");
  Write(In("a.zor/m.ANA/FT031"), "");
  DeleteTree(In("a.zor/"), /*removeTop=*/false);
  EXPECT_TRUE(FolderExists(In("a.zor")));
  EXPECT_THAT(Listing(In("a.zor")), IsEmpty());
}

TEST_F(FoldersTest, DeletionNeverFollowsALinkOutOfTheTree) {
  Write(In("other/precious"), "1");
  Write(In("file"), "2");
  Write(In("a.zor/m.inp"), "");
  Link("other", "a.zor/m.ANA");
  Link("file", "a.zor/n.inp");
  DeleteTree(In("a.zor"), /*removeTop=*/true);
  EXPECT_FALSE(FolderExists(In("a.zor")));
  EXPECT_EQ(Read(In("other/precious")), "1");
  EXPECT_EQ(Read(In("file")), "2");
}

TEST_F(FoldersTest, TreeThatIsALinkLosesTheLinkAlone) {
  Write(In("other.zor/precious"), "1");
  Link("other.zor", "a.zor");
  DeleteTree(In("a.zor/"), /*removeTop=*/false);
  EXPECT_TRUE(fs::is_symlink(NativePath(In("a.zor"))));
  DeleteTree(In("a.zor/"), /*removeTop=*/true);
  EXPECT_FALSE(fs::exists(fs::symlink_status(NativePath(In("a.zor")))));
  EXPECT_EQ(Read(In("other.zor/precious")), "1");
}

TEST_F(FoldersTest, NothingThereIsNothingToDelete) {
  DeleteTree(In("none"), /*removeTop=*/true);
  DeleteTree(In("none"), /*removeTop=*/false);
  Write(In("file"), "");
  EXPECT_THAT(FaultOf([&] { DeleteTree(In("file/in"), /*removeTop=*/true); }),
              testing::AnyOf("", HasSubstr("file")));
}

TEST_F(FoldersTest, PathLiesInAFolderByWhateverName) {
  Write(In("a.zor/m.inp"), "");
  Link("a.zor", "link");
  EXPECT_TRUE(LiesIn(In("a.zor/m.inp"), In("a.zor/")));
  EXPECT_TRUE(LiesIn(In("link/m.inp"), In("a.zor")));
  EXPECT_TRUE(LiesIn(In("a.zor/m.inp"), In("a.zor/m.inp")));
  EXPECT_FALSE(LiesIn(In("a.zorro/m.inp"), In("a.zor")));
  EXPECT_FALSE(LiesIn(In("a.zor"), In("a.zor/m.inp")));
  EXPECT_FALSE(LiesIn(In("a.zor"), ""));
}

TEST_F(FoldersTest, ProjectHasItsDecksAsLeavesBehindItsFolders) {
  for (const char* const file :
       {"p.zor/b.inp", "p.zor/A.INP", "p.zor/c.inp.bak", "p.zor/b.out", "p.zor/b.ANA/FT031", "p.zor/d.ana/x",
        "p.zor/控え/x", "p.zor/.hidden.inp", "p.zor/b.inp.~new"})
    Write(In(file), "");
  EXPECT_THAT(NamesIn("p.zor"), ElementsAre("F:控え", "M:A.INP", "M:b.inp", "M:c.inp.bak"));
}

TEST_F(FoldersTest, FolderShowsItsSubFoldersAndProjectsAndNoFiles) {
  for (const char* const file :
       {"d/q.ZOR/m.inp", "d/a.b.zor/m.inp", "d/other/x", "d/loose.inp", "d/.cache/x"})
    Write(In(file), "");
  EXPECT_THAT(NamesIn("d"), ElementsAre("P:a.b.zor", "F:other", "P:q.ZOR"));
}

TEST_F(FoldersTest, FolderThatIsOnlyHalfCopiedIsNotShown) {
  Write(In("d/p.zor.~new/m.inp"), "");
  EXPECT_THAT(NamesIn("d"), IsEmpty());
}

TEST_F(FoldersTest, FolderWithATitleFileIsAModelOfTheOlderRelease) {
  Write(In("d/旧/ft077"), "");
  Write(In("d/大/FT077"), "");
  Write(In("d/空/ft001"), "");
  EXPECT_THAT(NamesIn("d", Leaves::OldModels), ElementsAre("F:空", "M:大", "M:旧"));
  EXPECT_THAT(NamesIn("d"), ElementsAre("F:大", "F:旧", "F:空"));
}

TEST_F(FoldersTest, FolderThatCannotBeListedIsEmpty) {
  EXPECT_THAT(NamesIn("none"), IsEmpty());
  Write(In("file"), "");
  EXPECT_THAT(NamesIn("file"), IsEmpty());
}

TEST_F(FoldersTest, NodesCarryTheirPaths) {
  Write(In("p.zor/b.inp"), "");
  Write(In("p.zor/s/x"), "");
  const std::vector<TreeNode> nodes = ListFolder(In("p.zor"));
  ASSERT_EQ(nodes.size(), 2U);
  EXPECT_EQ(nodes[0].path, In("p.zor/s/"));
  EXPECT_EQ(nodes[1].path, In("p.zor/b.inp"));
}

TEST(Drives, AreTheRootAndWhatIsMountedForTheUser) {
  const std::vector<Drive> drives = DrivesOf(
      "proc /proc proc rw 0 0\n"
      "/dev/sda2 / ext4 rw 0 0\n"
      "/dev/sda1 /boot/efi vfat rw 0 0\n"
      "/dev/sdb1 /media/山田/USB\\040盤 vfat rw 0 0\n"
      "/dev/sdc1 /run/media/u/disk ext4 rw 0 0\n"
      "/dev/sr0 /media/cdrom iso9660 ro 0 0\n"
      "server:/share /srv/共有 nfs4 rw 0 0\n"
      "x /mnt/y strange rw 0 0\n"
      "x /mnt/y strange rw 0 0\n"
      "broken");
  EXPECT_THAT(drives, ElementsAre(Drive{"/", "HD"}, Drive{"/media/山田/USB 盤/", "FD"},
                                  Drive{"/run/media/u/disk/", "HD"}, Drive{"/media/cdrom/", "CD"},
                                  Drive{"/srv/共有/", "NET"}, Drive{"/mnt/y/", "Unknown"}));
}

TEST(Drives, HaveTheRootAtLeast) {
  EXPECT_THAT(DrivesOf(""), ElementsAre(Drive{"/", "HD"}));
  EXPECT_EQ(ListDrives().front(), (Drive{"/", "HD"}));
}

}  // namespace
}  // namespace zorlan::test

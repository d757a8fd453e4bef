#include "shell/project_copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/shell_folder.h"

namespace zorlan::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ProjectCopiesTest : public ShellTest {
 protected:
  ProjectCopiesTest() {
    StartWithModel();
    Write(Sample() + "門形.out", "listing");
    Write(Sample() + "門形.ANA/FT031", "1");
    MakeFolder(Store());
  }
  std::string Store() const { return Account() + "控え/"; }

  /// Chooses a folder in the next folder dialog and presses OK.
  void OnFolder(std::string folder) {
    folderDialogs.push_back([this, folder = std::move(folder)](FolderDialog& dialog) {
      headings.push_back(dialog.heading);
      starts.push_back(dialog.folder);
      dialog.folder = folder;
      AcceptFolder(dialog);
    });
  }
  void OnName(std::string name) {
    nameDialogs.push_back([this, name = std::move(name)](NameDialog& dialog) {
      named = dialog;
      dialog.name = name;
      AcceptName(dialog);
    });
  }

  std::vector<std::string> headings, starts;
  NameDialog named;
};

TEST_F(ProjectCopiesTest, BackupTakesTheFilesAndLeavesTheResultFoldersBehind) {
  OnFolder(Sample());
  OnFolder(Store());
  OnName("例題控え");
  BackUpProject();
  EXPECT_THAT(told, IsEmpty());
  EXPECT_THAT(headings, ElementsAre("コピー元のフォルダ", "コピー先の指定"));
  EXPECT_EQ(named.folder, Store());
  EXPECT_EQ(named.name, "例題－１");
  EXPECT_THAT(Listing(Store()),
              ElementsAre("例題控え.zor/", "例題控え.zor/門形.inp", "例題控え.zor/門形.out"));
  EXPECT_EQ(Read(Store() + "例題控え.zor/門形.inp"), CrLf(kPortal));
}

TEST_F(ProjectCopiesTest, RestoreGoesToTheDataPath) {
  Write(Store() + "物件.zor/a.inp", kPortal);
  OnFolder(Store() + "物件.zor");
  OnName("物件");
  RestoreProject();
  EXPECT_THAT(headings, ElementsAre("コピー元のフォルダ"));
  EXPECT_EQ(named.folder, Data());
  EXPECT_EQ(named.command, "リストア");
  EXPECT_EQ(Read(Data() + "物件.zor/a.inp"), CrLf(kPortal));
}

TEST_F(ProjectCopiesTest, CancelledDialogsTouchNothing) {
  const auto before = Contents(Account());
  BackUpProject();
  OnFolder(Sample());
  BackUpProject();
  OnFolder(Sample());
  OnFolder(Store());
  BackUpProject();
  RestoreProject();
  DeleteProject();
  EXPECT_EQ(Contents(Account()), before);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(ProjectCopiesTest, SourceMustBeAProject) {
  OnFolder(Data());
  BackUpProject();
  OnFolder(Data() + "無い.zor");
  BackUpProject();
  EXPECT_THAT(told, ElementsAre("プロジェクト DATA フォルダを指定して下さい！！！",
                                "プロジェクト 無い.zor フォルダを指定して下さい！！！"));
}

TEST_F(ProjectCopiesTest, DestinationMustBeThere) {
  OnFolder(Sample());
  OnFolder(Account() + "無い");
  BackUpProject();
  EXPECT_THAT(told, ElementsAre(Account() + "無い/ が見つかりません！！！"));
}

TEST_F(ProjectCopiesTest, ExistingProjectIsReplacedOnConsent) {
  Write(Store() + "控.zor/old.inp", "old");
  Write(Store() + "控.zor/old.ANA/FT031", "old");
  OnFolder(Sample());
  OnFolder(Store());
  OnName("控");
  answers = {Answer::Ok};
  BackUpProject();
  EXPECT_THAT(
      told, ElementsAre(
                "既に同名のプロジェクトが存在します。既存プロジェクトを削除後、バックアップを行いますか？"));
  EXPECT_THAT(Listing(Store()), ElementsAre("控.zor/", "控.zor/門形.inp", "控.zor/門形.out"));
}

TEST_F(ProjectCopiesTest, ExistingProjectStaysWithoutConsent) {
  Write(Store() + "控.zor/old.inp", "old");
  const auto before = Contents(Account());
  OnFolder(Sample());
  OnFolder(Store());
  OnName("控");
  answers = {Answer::Cancel};
  BackUpProject();
  EXPECT_EQ(Contents(Account()), before);
}

TEST_F(ProjectCopiesTest, ProjectIsNeverCopiedOntoItself) {
  const auto before = Contents(Account());
  OnFolder(Sample());
  OnName("例題－１");
  answers = {Answer::Ok};
  RestoreProject();
  EXPECT_THAT(told, ElementsAre("コピー元とコピー先が同じフォルダです！！！"));
  EXPECT_EQ(Contents(Account()), before);
}

TEST_F(ProjectCopiesTest, NameIsChecked) {
  for (const char* const name : {" ", "a/b", "../x"}) {
    OnFolder(Sample());
    OnFolder(Store());
    OnName(name);
    BackUpProject();
  }
  EXPECT_THAT(told, ElementsAre("プロジェクト名は省略できません！！！",
                                "プロジェクト名に使用できない文字が含まれています！！！",
                                "プロジェクト名に使用できない文字が含まれています！！！"));
  EXPECT_THAT(Listing(Store()), IsEmpty());
}

TEST_F(ProjectCopiesTest, CopyThatFailsLeavesTheOldProject) {
  Write(Store() + "控.zor/old.inp", "old");
  // A file that can't be read, for any user.
  std::filesystem::create_symlink("/proc/self/mem", NativePath(Sample() + "x.inp"));
  OnFolder(Sample());
  OnFolder(Store());
  OnName("控");
  answers = {Answer::Ok};
  BackUpProject();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_THAT(told[1], HasSubstr("関数名： CopyProject"));
  EXPECT_THAT(Listing(Store()), ElementsAre("控.zor/", "控.zor/old.inp"));
}

TEST_F(ProjectCopiesTest, UnfinishedCopyOfAKilledRunIsReplaced) {
  Write(Store() + "控.zor.~new/half.inp", "half");
  OnFolder(Sample());
  OnFolder(Store());
  OnName("控");
  BackUpProject();
  EXPECT_THAT(Listing(Store()), ElementsAre("控.zor/", "控.zor/門形.inp", "控.zor/門形.out"));
}

TEST_F(ProjectCopiesTest, DeletionAsksWithTheFullPath) {
  Write(Data() + "旧.ZOR/a.inp", kPortal);
  Write(Data() + "旧.ZOR/a.ANA/FT031", "1");
  OnFolder(Data() + "旧.ZOR/");
  answers = {Answer::Yes};
  DeleteProject();
  EXPECT_THAT(headings, ElementsAre("プロジェクトフォルダ"));
  EXPECT_THAT(told, ElementsAre(Data() + "旧.ZOR を削除してもいいですか？"));
  EXPECT_FALSE(FolderExists(Data() + "旧.ZOR"));
  EXPECT_TRUE(ModelIsOpen) << "the model in hand lies elsewhere";
}

TEST_F(ProjectCopiesTest, DeclinedDeletionTouchesNothing) {
  const auto before = Contents(Account());
  OnFolder(Sample());
  answers = {Answer::No};
  DeleteProject();
  EXPECT_EQ(Contents(Account()), before);
}

TEST_F(ProjectCopiesTest, FolderThatIsNoProjectIsNeverDeleted) {
  OnFolder(Data());
  DeleteProject();
  EXPECT_THAT(told, ElementsAre("プロジェクト DATA フォルダを指定して下さい！！！"));
  // A window that judged otherwise is stopped all the same.
  folderDialogs.push_back([this](FolderDialog& dialog) {
    dialog.folder = Data();
    dialog.accepted = true;
  });
  answers = {Answer::Yes};
  DeleteProject();
  EXPECT_EQ(told.back(), "プロジェクトフォルダを指定してください");
  EXPECT_TRUE(FileExists(Sample() + "門形.inp"));
}

TEST_F(ProjectCopiesTest, DeletingTheProjectOfTheModelInHandForgetsIt) {
  OnFolder(Sample());
  answers = {Answer::Yes};
  DeleteProject();
  EXPECT_FALSE(ModelIsOpen);
  EXPECT_EQ(ProjectName + ModelFile, "");
  EXPECT_THAT(Listing(WorkPath), IsEmpty());
  EXPECT_THAT(done, ElementsAre("unload"));
}

TEST_F(ProjectCopiesTest, ProjectThatIsALinkLosesTheLinkAlone) {
  Write(Account() + "本体.zor/precious.inp", "1");
  std::filesystem::create_symlink(NativePath(Account() + "本体.zor"), NativePath(Data() + "借.zor"));
  OnFolder(Data() + "借.zor");
  answers = {Answer::Yes};
  DeleteProject();
  EXPECT_FALSE(FolderExists(Data() + "借.zor"));
  EXPECT_EQ(Read(Account() + "本体.zor/precious.inp"), "1");
}

TEST_F(ProjectCopiesTest, LinksInsideADeletedProjectAreNotFollowed) {
  Write(Account() + "other/precious", "1");
  std::filesystem::create_symlink(NativePath(Account() + "other"), NativePath(Sample() + "link"));
  OnFolder(Sample());
  answers = {Answer::Yes};
  DeleteProject();
  EXPECT_FALSE(FolderExists(Sample()));
  EXPECT_EQ(Read(Account() + "other/precious"), "1");
}

}  // namespace
}  // namespace zorlan::test

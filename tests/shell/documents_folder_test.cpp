#include "shell/documents_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "base/text_file.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

TEST(DocumentsFolder, UserDirsNamesTheFolder) {
  struct Case {
    const char* text;
    const char* folder;
  };
  const Case cases[] = {
      {"XDG_DOCUMENTS_DIR=\"$HOME/ドキュメント\"\n", "/home/taro/ドキュメント/"},
      {"XDG_DESKTOP_DIR=\"$HOME/Desktop\"\nXDG_DOCUMENTS_DIR=\"/srv/docs/\"\n", "/srv/docs/"},
      {"  XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\"\"  \n", "/home/taro/My \"Docs\"/"},
      {"# XDG_DOCUMENTS_DIR=\"/srv/docs\"\n", ""},
      {"XDG_DOCUMENTS_DIR=\"relative\"\n", ""},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(DocumentsFolderFrom(c.text, "/home/taro"), c.folder) << c.text;
}

class WithHome : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv("HOME", home_.Path().substr(0, home_.Path().size() - 1).c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
  }
  TemporaryFolder home_;
};
using DocumentsFolderOfAUser = WithHome;

TEST_F(DocumentsFolderOfAUser, IsDocumentsBelowHomeAndNothingIsCreated) {
  EXPECT_EQ(DocumentsFolder(), home_.Path() + "Documents/");
  EXPECT_FALSE(FolderExists(home_.Path() + "Documents"));
}

TEST_F(DocumentsFolderOfAUser, IsTheOneThatTheDesktopSettingsName) {
  MakeFolder(home_.Path() + ".config");
  ReplaceBytes(home_.Path() + ".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/書類\"\n");
  EXPECT_EQ(DocumentsFolder(), home_.Path() + "書類/");
}

TEST(DocumentsFolder, HoldsTheProgramsTree) {
  EXPECT_EQ(ProgramTree("/home/taro/Documents"), "/home/taro/Documents/Quellwerk/ZORLAN_V6/");
}

TEST(Version, HasTwoDigitsBehindThePoint) {
  EXPECT_EQ(VersionText(), "Version 6.00 [Rev.0]");
}

TEST(InstallFolder, LiesBesideTheFolderOfTheProgram) {
  const TemporaryFolder prefix;
  MakeFolder(prefix.Path() + "share/zorlan");
  EXPECT_EQ(InstallFolderOf(prefix.Path() + "bin/zorlan", "/home/me/zorlan/data"),
            prefix.Path() + "share/zorlan/");
}

TEST(InstallFolder, IsTheSourcesFolderForAProgramThatIsNotInstalled) {
  const TemporaryFolder prefix;
  EXPECT_EQ(InstallFolderOf(prefix.Path() + "bin/zorlan", "/home/me/zorlan/data"), "/home/me/zorlan/data/");
}

}  // namespace
}  // namespace zorlan

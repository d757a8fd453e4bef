#include "base/settings_file.h"

#include <gtest/gtest.h>

#include "base/text_file.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

class SettingsFile : public testing::Test {
 protected:
  std::string Path(const char* name) const { return folder_.Path() + name; }
  TemporaryFolder folder_;
};

TEST_F(SettingsFile, ItsTextIsReadFromTheCodePage) {
  ReplaceTextFile(Path("a"), "\"節点\"\r\n");
  EXPECT_EQ(ReadSettingsFile(Path("a")), "\"節点\"\r\n");
}

TEST_F(SettingsFile, WithoutOneThereIsNoText) {
  MakeFolder(Path("folder"));
  EXPECT_EQ(ReadSettingsFile(Path("none")), std::nullopt);
  EXPECT_EQ(ReadSettingsFile(Path("folder")), std::nullopt);
}

TEST_F(SettingsFile, OneThatIsTooLargeIsNoneOfOurs) {
  ReplaceBytes(Path("a"), std::string(65536, 'x'));
  EXPECT_EQ(ReadSettingsFile(Path("a")).value_or("").size(), 65536U);
  ReplaceBytes(Path("a"), std::string(65537, 'x'));
  EXPECT_EQ(ReadSettingsFile(Path("a")), std::nullopt);
  EXPECT_TRUE(ReadSettingsFile(Path("a"), 100'000).has_value());
}

}  // namespace
}  // namespace zorlan

#include "output/dxf_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/host.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A heading and a member.
const std::vector<DrawOperation> kList = {
    {.kind = DrawOperation::Kind::Text,
     .layer = "TITLE_TXT",
     .text = "タイトル：梁",
     .width = 900,
     .height = 160},
    {.layer = "MODEL", .x2 = 4000, .text = {}},
};

class DxfPage : public testing::Test {
 protected:
  void SetUp() override {
    AppPath = folder_.Path();
    WorkPath = folder_.Path() + "WK/";
    MakeFolder(WorkPath);
    Host host;
    host.message = [this](std::string_view text, std::string_view) { messages_.emplace_back(text); };
    InstallHost(std::move(host));
  }
  void TearDown() override { InstallHost({}); }

  TemporaryFolder folder_;
  std::vector<std::string> messages_;
};

TEST_F(DxfPage, IsWrittenByWayOfTheWorkFolder) {
  const std::string chosen = folder_.Path() + "図.dxf";
  ASSERT_TRUE(WriteDxfPage(3, kList, chosen));
  EXPECT_THAT(ReadTextFile(WorkPath + "Page-3.tmp"), HasSubstr("LINE, MODEL, "));
  EXPECT_EQ(ReadBytes(WorkPath + "Page-3.dxf"), ReadBytes(chosen));
  EXPECT_THAT(ReadTextFile(chosen), HasSubstr("タイトル：梁"));
  EXPECT_THAT(messages_, IsEmpty());
}

TEST_F(DxfPage, PageWithNothingDrawnIsTold) {
  EXPECT_FALSE(WriteDxfPage(7, {}, folder_.Path() + "a.dxf"));
  EXPECT_THAT(messages_, ElementsAre("ページNo=7のDXFファイルは、作成できませんでした"));
  EXPECT_FALSE(FileExists(folder_.Path() + "a.dxf"));
}

TEST_F(DxfPage, PlaceThatTakesNoFileIsToldWithItsReason) {
  EXPECT_FALSE(WriteDxfPage(1, kList, folder_.Path() + "missing/a.dxf"));
  ASSERT_EQ(messages_.size(), 1U);
  EXPECT_THAT(messages_[0], StartsWith("ページNo=1のDXFファイルは、作成できませんでした\n"));
  EXPECT_THAT(messages_[0], HasSubstr("missing/a.dxf"));
}

TEST_F(DxfPage, FailureLeavesTheOlderFileAsItWas) {
  ReplaceBytes(folder_.Path() + "a.dxf", "older");
  RemoveFilesIn(WorkPath);
  std::filesystem::remove(WorkPath);
  EXPECT_FALSE(WriteDxfPage(1, kList, folder_.Path() + "a.dxf"));
  EXPECT_EQ(ReadBytes(folder_.Path() + "a.dxf"), "older");
}

TEST_F(DxfPage, ProposesItsNameByTheNumber) {
  EXPECT_EQ(DxfPageName(12), "Page-12");
}

}  // namespace
}  // namespace zorlan

// The listings that others have worked out for models beside the source tree.
#include "analysis/analysis_listing.h"
#include "analysis/analysis_state.h"
#include "model/deck.h"
#include "support/model_folder.h"
#include "support/shared_cases.h"

namespace zorlan {
namespace {

using ListingOfSharedCases = test::ModelFolderTest;

TEST_F(ListingOfSharedCases, IsTheExpectedOneToTheLastDigitWhereTheCasesAreThere) {
  const std::vector<std::string> folders = test::CaseFolders("reports");
  if (folders.empty()) GTEST_SKIP() << "no shared cases beside the source tree";
  for (const std::string& report : folders) {
    const std::string name = std::filesystem::path(report).parent_path().filename().string();
    const std::string results = report + "../../analysis/" + name + "/";
    CopyFileOver(report + "model.inp", DeckPath());
    MakeFolder(ResultFolder());
    for (const char* const file : {"FT021", "FT022", "FT022A", "FT031"})
      CopyFileOver(results + file, ResultFolder() + file);
    ReadDeck(DeckPath(), /*checkMode=*/false);
    AnalysisError.clear();
    DSYSOUT1();
    DSYSOUT2();
    EXPECT_EQ(AnalysisError + AnalysisErrorDetail, "") << name;
    EXPECT_TRUE(test::SameLines(Read(AnalysisPath + "FT100"), ReadBytes(report + "listing.txt"))) << name;
  }
}

}  // namespace
}  // namespace zorlan

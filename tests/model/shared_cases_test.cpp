// The models beside the source tree (../shared/cases), where they are there: their check and their input data
// list, written out by another hand.
#include <filesystem>

#include "model/deck.h"
#include "model/input_list.h"
#include "model/model_state.h"
#include "support/model_folder.h"

namespace zorlan {
namespace {

namespace fs = std::filesystem;

/// The folders of one kind of cases; none without the shared tree.
std::vector<std::string> CaseFolders(const std::string& kind) {
  std::vector<std::string> folders;
  for (const char* shared : {"/../shared/cases/", "/../../shared/cases/"}) {
    std::error_code none;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(ZORLAN_SOURCE_DIR + std::string(shared) + kind, none))
      folders.push_back(entry.path().string() + "/");
  }
  std::sort(folders.begin(), folders.end());
  return folders;
}

class SharedCases : public test::ModelFolderTest {
 protected:
  void SetUp() override {
    if (CaseFolders("reports").empty()) GTEST_SKIP() << "no shared cases beside the source tree";
  }
};

TEST_F(SharedCases, TheInputCheckFindsWhatIsListed) {
  for (const std::string& folder : CaseFolders("reports")) {
    ReadDeck(folder + "model.inp");
    EXPECT_EQ(Read(WorkPath + "InputErr.txt"), ReadBytes(folder + "check.txt")) << folder;
  }
}

TEST_F(SharedCases, TheInputCheckFindsNothingInTheModelsOfTheAnalysis) {
  for (const std::string& folder : CaseFolders("analysis")) {
    ReadDeck(folder + "model.inp");
    EXPECT_EQ(Read(WorkPath + "InputErr.txt"), "") << folder;
  }
}

TEST_F(SharedCases, TheInputDataListIsTheSameButForChannelsAndAngles) {
  for (const std::string& folder : CaseFolders("reports")) {
    CopyFileOver(folder + "model.inp", DeckPath());
    LoadDeck();
    // The lists leave TYPE 9 to 12 out; ours shows them, so they are taken out of the table.
    TableIO(/*write=*/false, "SECT");
    std::erase_if(TableRows,
                  [](const TableRow& row) { return row.cells.size() > 1 && std::stoi(row.cells[1]) > 8; });
    TableRowCount = static_cast<int>(TableRows.size());
    TableIO(/*write=*/true, "SECT");
    MakeInputList();
    EXPECT_EQ(Read(WorkPath + "TmpFile.inp"), ReadBytes(folder + "input-list.txt")) << folder;
  }
}

TEST_F(SharedCases, ADeckSplitAndJoinedIsTheSameDeck) {
  for (const std::string& folder : CaseFolders("analysis")) {
    CopyFileOver(folder + "model.inp", DeckPath());
    LoadDeck();
    SaveDeck();
    EXPECT_EQ(ReadBytes(DeckPath()), ReadBytes(folder + "model.inp")) << folder;
  }
}

}  // namespace
}  // namespace zorlan

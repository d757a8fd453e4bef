// Any bytes as a deck: read with the input check, split into tables, listed and joined again, and, if the
// model is small, analysed. Whatever the bytes are, all of it ends with an answer or a Fault.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "analysis/static_analysis.h"
#include "base/fault.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/input_list.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

constexpr int kMaxAnalysedNodes = 40, kMaxAnalysedElements = 60;  // so an input takes milliseconds

/// The folders of the run, in a place of its own that goes with the process.
class Folders {
 public:
  Folders() {
    path_ = PathText(std::filesystem::temp_directory_path() / "zorlan-fuzz-XXXXXX");
    if (::mkdtemp(path_.data()) == nullptr) std::abort();
    DataPath = FolderText(path_);
    ProjectName.clear();
    ModelFile = "model.inp";
    WorkPath = FolderText(DataPath + "WK");
    AnalysisPath = FolderText(DataPath + "AN");
    MakeFolder(WorkPath);
    MakeFolder(AnalysisPath);
  }
  ~Folders() {
    std::error_code ignored;  // the system clears what is left
    std::filesystem::remove_all(path_, ignored);
  }
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;

 private:
  std::string path_;
};

template <class Step>
void Try(Step step) try {
  step();
} catch (const Fault&) {  // words for the user are a good end
}

void RunDeck(std::string_view bytes) {
  static const Folders folders;
  ReplaceBytes(DeckPath(), bytes, Flush::No);
  bool small = false;
  Try([&] {
    ReadDeck(DeckPath(), /*checkMode=*/true);
    small = CalcModel.NodeCount <= kMaxAnalysedNodes && CalcModel.ElemCount <= kMaxAnalysedElements;
  });
  Try([] {
    LoadDeck();
    MakeInputList();
    SaveDeck(/*deleteTables=*/true, WorkPath + "TmpFile.inp");
  });
  if (small) Try([] { RunStaticAnalysis(); });
}

}  // namespace
}  // namespace zorlan

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zorlan::RunDeck({reinterpret_cast<const char*>(data), size});
  return 0;
}

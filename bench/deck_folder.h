// A temporary folder with the deck of a frame, the model in hand.
#pragma once

#include <stdlib.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/text_file.h"
#include "frames.h"
#include "model/model_state.h"

namespace zorlan::bench {

/// The folder is there as long as it lives; the globals of the model in hand point into it.
class DeckInHand {
 public:
  explicit DeckInHand(const Frame& frame) {
    std::string path = PathText(std::filesystem::temp_directory_path() / "zorlan-bench-XXXXXX");
    if (::mkdtemp(path.data()) == nullptr) std::abort();
    folder_ = FolderText(path);
    SetModelInHand(folder_ + "frame.inp");
    WorkPath = FolderText(folder_ + "WK");
    AnalysisPath = FolderText(folder_ + "AN");
    MakeFolder(WorkPath);
    MakeFolder(AnalysisPath);
    ReplaceTextFile(DeckPath(), DeckText(frame), Flush::No);
  }
  ~DeckInHand() { std::filesystem::remove_all(NativePath(folder_)); }
  DeckInHand(const DeckInHand&) = delete;
  DeckInHand& operator=(const DeckInHand&) = delete;

  const std::string& Folder() const { return folder_; }

 private:
  std::string folder_;
};

/// Divided members, 4866 nodes, 4960 elements.
inline Frame LargeFrame(int cases) {
  return RegularFrame(5, 20, cases, 8, 40);
}

}  // namespace zorlan::bench

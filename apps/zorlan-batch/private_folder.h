// The folder of one run of the batch program, for the table files and the scratch files: runs side by side
// never meet.
#pragma once

#include <string>

namespace zorlan::batch {

/// Makes the folder with WK and AN in it and points WorkPath and AnalysisPath there; its end removes it all.
class PrivateFolder {
 public:
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

 private:
  std::string path_;
};

}  // namespace zorlan::batch

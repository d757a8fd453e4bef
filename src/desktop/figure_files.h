// The files that a figure of the model in hand is made of, and whether they are still those that were read.
#pragma once

#include <vector>

#include "desktop/shown_file.h"

namespace zorlan {

class FigureFiles {
 public:
  /// Tables and results as they are now.
  void Look();
  bool Changed() const;

 private:
  std::vector<ShownFile> files_;
};

}  // namespace zorlan

// What a figure of the model in hand is made of, its name and its files, and whether it is still the same.
#pragma once

#include <string>
#include <vector>

#include "desktop/shown_file.h"

namespace zorlan {

class FigureFiles {
 public:
  /// Tables and results as they are now.
  void Look();
  bool Changed() const;
  /// They couldn't be read: they count as changed until they are looked at again.
  void Forget() { files_.clear(); }

 private:
  std::string name_;
  std::vector<ShownFile> files_;
};

}  // namespace zorlan

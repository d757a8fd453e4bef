// What the status bar says of the model in hand.
#pragma once

#include <string>

namespace zorlan {

/// Short texts for the user; an empty one has nothing to say.
struct ModelStatus {
  std::string model;    // its name
  std::string saved;    // whether it has unsaved changes
  std::string results;  // whether there are results, and of the model as it stands
  std::string kind;     // structural model and load cases
  std::string units;    // of input and output
};
ModelStatus CurrentModelStatus();

}  // namespace zorlan

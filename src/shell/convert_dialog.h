// The form `ToZOR2`: an old model, the model that it becomes, and the conversion.
#pragma once

#include <string>

#include "shell/projects.h"

namespace zorlan {

/// What the form shows in its two boxes, and the parts behind them.
struct ConvertDialog {
  std::string oldFolder;  // the old model's folder
  ModelPlace target;      // its Deck() is what the second box shows
  std::string subtitle;
};

/// The form as it opens: the old model of last time.
ConvertDialog StartConvertDialog();

/// The buttons beside the boxes: the project dialog in its two modes. The model in hand stays as it is.
void PickOldModel(ConvertDialog& dialog);
void PickTarget(ConvertDialog& dialog);

/// The button that converts: the new model is in hand then. False: told why not.
bool RunConversion(const ConvertDialog& dialog);

}  // namespace zorlan

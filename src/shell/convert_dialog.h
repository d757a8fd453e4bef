// The form `ToZOR2`: an old model, the model that it becomes, and the conversion.
#pragma once

#include <string>

namespace zorlan {

/// What the form shows in its two boxes, and the parts behind them.
struct ConvertDialog {
  std::string oldFolder;                 // the old model's folder
  std::string dataPath, project, model;  // the target, as the globals of the model in hand have them
  std::string subtitle;

  std::string Target() const { return dataPath + project + model; }
};

/// The form as it opens: the old model of last time.
ConvertDialog StartConvertDialog();

/// The buttons beside the boxes: the project dialog in its two modes. The model in hand stays as it is.
void PickOldModel(ConvertDialog& dialog);
void PickTarget(ConvertDialog& dialog);

/// The button that converts: the new model is in hand then. False: told why not.
bool RunConversion(const ConvertDialog& dialog);

}  // namespace zorlan

#include "shell/convert_dialog.h"

#include "base/host.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "shell/command_guard.h"
#include "shell/convert.h"
#include "shell/project_dialog.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

/// Shows the project dialog for a place that isn't the model in hand's.
bool Pick(DialogMode mode, ModelPlace& place) {
  const std::string name = ModelFile;
  ProjectDialog dialog;
  const bool picked = ShowProjectDialog(mode, dialog);
  ModelFile = name;
  if (picked) place = dialog.chosen;
  return picked;
}

}  // namespace

ConvertDialog StartConvertDialog() {
  ModelPlace old;
  LoadVer1Path(old.dataPath, old.project, old.model);
  ConvertDialog dialog;
  dialog.oldFolder = old.Deck();
  return dialog;
}

void PickOldModel(ConvertDialog& dialog) {
  ModelPlace old;
  if (Pick(DialogMode::ConversionSource, old)) dialog.oldFolder = old.Deck();
}

void PickTarget(ConvertDialog& dialog) {
  Pick(DialogMode::ConversionTarget, dialog.target);
}

bool RunConversion(const ConvertDialog& dialog) {
  bool done = false;
  RunCommand("RunConversion", [&] {
    if (dialog.oldFolder.empty() || dialog.target.model.empty()) {
      Tell(dialog.oldFolder.empty() ? "変換元のモデルを指定してください！！！"
                                    : "変換後のモデルを指定してください！！！");
      return;
    }
    // The new model takes the work folder: the one in hand is saved first, if it is to be.
    if (CloseModel() != kModelClosed) return;
    if (!ConvertOldModel(FolderText(dialog.oldFolder), dialog.target.Deck(), dialog.subtitle)) return;
    TheWindows().unloadForms();
    TakeModel(dialog.target);
    ShowTakenModel();
    done = true;
  });
  return done;
}

}  // namespace zorlan

// The project dialog: its modes, its value, what its buttons do, and what its panel shows. The window shows
// `dataPath`, `project` and `model` in its three boxes, lets the user change them, and calls the routines.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/model_rec.h"
#include "shell/projects.h"

namespace zorlan {

enum class DialogMode { Open, SaveNew, Delete, ConversionSource, ConversionTarget, CopySource, SaveAs };

/// A command passes the mode to the dialog as the last character of ModelFile.
struct DialogModeRow {
  DialogMode mode;
  char character;            // 0: none
  std::string_view heading;  // empty: project and model path in 〔〕
};
inline constexpr std::array<DialogModeRow, 7> kDialogModes = {{
    {DialogMode::Open, '\0', ""},
    {DialogMode::SaveNew, '/', "〔モデルの保存〕"},
    {DialogMode::Delete, '\\', "〔モデルの削除〕"},
    {DialogMode::ConversionSource, '*', "〔Ｖｅｒ１．０〕"},
    {DialogMode::ConversionTarget, '@', "〔変換後〕"},
    {DialogMode::CopySource, '&', "〔コピー元モデル〕"},
    {DialogMode::SaveAs, '$', "〔名前を付けて保存〕"},
}};

inline constexpr std::string_view kNoProjectName = "プロジェクト名は省略できません！！！";
inline constexpr std::string_view kBadProjectName = "プロジェクト名に使用できない文字が含まれています！！！";

struct ProjectDialog {
  DialogMode mode = DialogMode::Open;
  std::string heading;
  std::string dataPath;  // the box "データパス", closing separator or not
  std::string project;   // the box of the project's name, without ".zor"
  std::string model;     // the box of the model's name, without ".inp"
  bool accepted = false;
  bool projectAtFault = false;  // not accepted for the project's name, not for the model's
  ModelPlace chosen;            // what was accepted
};

/// Takes the mode off ModelFile and fills the boxes from the model in hand, or with an old model from
/// Ver1DataPath.Ini. The mode's character alone leaves the model's box empty.
ProjectDialog StartProjectDialog();

/// The button "ＯＫ": checks the names and does what the mode says. True: the dialog closes; false: the user
/// was told why not, or has declined, and it stays. Reports errors itself.
bool AcceptProjectDialog(ProjectDialog& dialog);

/// Shows the dialog in a mode and answers whether it was accepted. ModelFile is empty after a cancel.
bool ShowProjectDialog(DialogMode mode, ProjectDialog& dialog);

/// Removes the listing and the result folder that stand beside a model. Throws FileFault.
void RemoveStoredResults(const ModelPlace& place);

/// The message about a deck that can't be opened.
void TellCannotOpen();

/// Whether a name can be given to a project or a model: nothing in it that a file system, the
/// settings files or the result folder's name can't take.
bool IsUsableName(std::string_view name);

/// A deck as it is picked for the dialog's boxes: "架構.zor" -> "架構", "model.inp" -> "model".
std::string ProjectBoxText(std::string_view folderName);
std::string ModelBoxText(std::string_view fileName);

/// What the panel and the picture show of a deck.
struct ModelInformation {
  std::vector<std::string> lines;  // empty: the deck can't be looked at
  ModelRec model;                  // nodes and elements for the picture; empty if the deck can't be read
};
/// Looks at a deck; the model in hand stays as it is. A deck that can't be read through has its file's lines
/// and the reason.
ModelInformation InformationOf(const std::string& deckPath);
/// The information of the dialog's boxes.
ModelInformation InformationOf(const ProjectDialog& dialog);

}  // namespace zorlan

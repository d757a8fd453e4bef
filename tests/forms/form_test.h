// A table editor on a work folder of the test's own, with every box recorded.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "base/host.h"
#include "forms/table_editor.h"
#include "support/model_folder.h"

namespace zorlan::test {

class FormTest : public ModelFolderTest {
 protected:
  FormTest() {
    ModelChanged = false;
    Host host;
    host.message = [this](std::string_view text, std::string_view title) {
      told.push_back(std::string(title) + "|" + std::string(text));
    };
    host.question = [this](std::string_view text, std::string_view title, Buttons) {
      told.push_back(std::string(title) + "|" + std::string(text));
      if (answers.empty()) return Answer::No;
      const Answer answer = answers.front();
      answers.pop_front();
      return answer;
    };
    InstallHost(host);
  }
  ~FormTest() override { InstallHost({}); }

  /// A form of a setting, loaded from the work folder.
  static TableEditor Open(std::string_view name, const FormSetting& setting = {}) {
    TableEditor editor(*FindTableForm(name), setting);
    editor.Load();
    return editor;
  }
  /// Types rows from row 1 of a page: cells separated by tab, rows by LF.
  static void Fill(TableEditor& editor, std::string_view rows, int page = 1) {
    editor.Paste({page, 1, 1}, rows);
  }
  CommitEnd Commit(TableEditor& editor) { return editor.Commit(fault); }
  /// The table's file, or "(none)".
  static std::string Table(const std::string& key) {
    return FileExists(WorkPath + key) ? ReadTable(key) : "(none)";
  }

  std::vector<std::string> told;
  std::deque<Answer> answers;
  std::optional<CellPlace> fault;
};

inline constexpr FormSetting kFrame{kPlaneFrame, 3, false, false};
inline constexpr FormSetting kFrameWithRollers{kPlaneFrame, 3, true, false};
inline constexpr FormSetting kGrid{kPlaneGrid, 3, false, false};
inline constexpr FormSetting kFrameInSi{kPlaneFrame, 3, false, true};
inline constexpr FormSetting kGridInSi{kPlaneGrid, 3, false, true};

}  // namespace zorlan::test

// `frmKozaiSentaku`: the chooser for the steel sections of a family.
#pragma once

#include <QDialog>
#include <string>
#include <string_view>

namespace zorlan {

class SectionList;

class frmKozaiSentaku : public QDialog {
  Q_OBJECT
 public:
  /// `familyWord` is "H", "BOX", "PIPE", "MIZO" or "YAMA"; `name` is the section to begin with.
  frmKozaiSentaku(std::string_view familyWord, const std::string& name, QWidget* parent);

  /// The name of the chosen section, "H-400x200x8x13".
  std::string Chosen() const;

 private:
  SectionList* list_;
};

/// Lets the user choose; empty if it was cancelled. The caller splits the name (sections/section_choice.h).
std::string ChooseSteelSection(std::string_view familyWord, const std::string& name, QWidget* parent);

}  // namespace zorlan

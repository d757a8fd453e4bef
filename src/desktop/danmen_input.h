// `frmDanmenInput`: the section entry of the table SECT. Thirteen kinds of section; those of the tables are
// chosen from a list, and every size can be typed.
#pragma once

#include <array>
#include <QDialog>
#include <string>
#include <vector>

#include "sections/section_choice.h"

class QComboBox;
class QLabel;
class QListWidget;
class QStackedWidget;

namespace zorlan {

class NumberBox;
class SectionList;

class frmDanmenInput : public QDialog {
  Q_OBJECT
 public:
  frmDanmenInput(const SectionEntry& entry, QWidget* parent);

  const SectionEntry& Entry() const { return entry_; }

 private:
  QWidget* FieldPanel();
  void ShowKind();
  void ShowFields();
  void ShowName();
  void TakeField(std::size_t field, const std::string& text);

  SectionEntry entry_;
  QListWidget* kinds_;
  QStackedWidget* source_;  // the list, or the word that there is none
  SectionList* list_;
  QLabel *noList_, *name_, *timberTitle_, *timberName_, *speciesTitle_;
  std::array<QLabel*, 4> labels_{};
  std::array<NumberBox*, 4> fields_{};
  QComboBox* species_;
};

/// Shows the section entry on a row of the table: its cells from the number on. False: it was cancelled, and
/// the cells are as they were.
bool EnterSection(std::vector<std::string>& cells, QWidget* parent);

}  // namespace zorlan

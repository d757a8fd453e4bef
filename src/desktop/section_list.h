// A list of sections to choose from, with a box that narrows it down.
#pragma once

#include <QWidget>
#include <string>

#include "sections/section_choice.h"

class QLineEdit;
class QTableView;

namespace zorlan {

class ChoiceModel;

class SectionList : public QWidget {
  Q_OBJECT
 public:
  explicit SectionList(QWidget* parent = nullptr);

  /// Shows a list, nothing chosen.
  void ShowChoices(ChoiceList list);
  /// Goes to a section; where the list lacks it nothing is chosen.
  void GoTo(const std::string& name);
  /// The name of the chosen section; empty if there is none.
  std::string Chosen() const;

  QTableView* Table() { return table_; }

 signals:
  void picked(const std::string& name);  // by the user
  void decided();                        // by a double click

 private:
  void Narrow(const QString& text);

  QLineEdit* search_;
  QTableView* table_;
  ChoiceModel* model_;
};

}  // namespace zorlan

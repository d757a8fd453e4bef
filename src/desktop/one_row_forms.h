// The windows of the tables with one row: `InpTITL`, `InpSUBT`, `InpCONT`, `InpUNIT`. Their rules are in
// forms/small_forms.h. Closing commits; Enter and Esc close.
#pragma once

#include <array>
#include <QFormLayout>
#include <string>
#include <string_view>

#include "desktop/form.h"
#include "forms/small_forms.h"

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;

namespace zorlan {

class NumberBox;

/// What the four have in common.
class OneRowForm : public Form {
  Q_OBJECT
 public:
  bool NeedsItsSize() const override { return true; }

 protected:
  OneRowForm(const char* name, const char* caption);

  /// Commits what was changed. False: it was told what is wrong, and the field at fault has the focus.
  virtual bool Save() = 0;
  bool Commit() final;
  void keyPressEvent(QKeyEvent* event) override;

  QFormLayout* rows_;
};

/// `InpTITL` and `InpSUBT`.
class TitleForm : public OneRowForm {
  Q_OBJECT
 public:
  /// `key` is "TITL" or "SUBT".
  explicit TitleForm(std::string_view key);
  bool IsChanged() const override;

 protected:
  bool Save() override;

 private:
  void ShowWidth();

  std::string key_, loaded_;
  QLineEdit* title_;
  QLabel *width_, *warning_;
};

class InpCONT : public OneRowForm {
  Q_OBJECT
 public:
  InpCONT();
  bool IsChanged() const override { return entry_ != loaded_; }

 protected:
  bool Save() override;

 private:
  QComboBox*& Box(ControlField field) { return boxes_[static_cast<std::size_t>(field)]; }
  void AddBox(ControlField field, const char* name);
  void Take(ControlField field, int index);
  void ShowEntry();

  ControlEntry loaded_, entry_;
  std::array<QComboBox*, kControlFields> boxes_{};
  QLabel *modelNote_, *loadNote_, *dropped_;
};

class InpUNIT : public OneRowForm {
  Q_OBJECT
 public:
  InpUNIT();
  bool IsChanged() const override { return Entry() != loaded_; }

 protected:
  bool Save() override;

 private:
  QButtonGroup* AddGroup(UnitField field, const char* name);
  void Take(UnitField field, int index);
  UnitEntry Entry() const;
  void FocusOn(UnitField field);

  UnitEntry loaded_;
  QButtonGroup *input_, *output_;
  NumberBox* factor_;
  QComboBox* force_;
};

/// Shows the form of this name, a new one if it isn't open. Throws FileFault for a table that can't be read.
void OpenOneRowForm(FormArea& forms, std::string_view name);

}  // namespace zorlan

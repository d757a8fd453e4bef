#include "desktop/kozai_sentaku.h"

#include <QBoxLayout>
#include <QPushButton>
#include <QTableView>

#include "desktop/dialog_buttons.h"
#include "desktop/section_list.h"
#include "render/qt_text.h"

namespace zorlan {

frmKozaiSentaku::frmKozaiSentaku(std::string_view familyWord, const std::string& name, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("frmKozaiSentaku"));
  ChoiceList list;
  if (const std::optional<SteelFamily> family = FamilyOf(familyWord)) list = SteelChoices(*family);
  setWindowTitle(QStringLiteral("鋼材断面の選択　") + ToQt(list.caption));
  list_ = new SectionList;
  list_->ShowChoices(std::move(list));
  auto* const buttons = OkCancelButtons();
  QPushButton* const ok = buttons->button(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &frmKozaiSentaku::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmKozaiSentaku::reject);
  connect(list_, &SectionList::decided, this, &frmKozaiSentaku::accept);
  connect(list_, &SectionList::picked, ok, [ok] { ok->setEnabled(true); });
  auto* const column = new QVBoxLayout(this);
  column->addWidget(list_, 1);
  column->addWidget(buttons);
  list_->GoTo(name);
  ok->setEnabled(!Chosen().empty());
  list_->Table()->setFocus();
}

std::string frmKozaiSentaku::Chosen() const {
  return list_->Chosen();
}

std::string ChooseSteelSection(std::string_view familyWord, const std::string& name, QWidget* parent) {
  frmKozaiSentaku dialog(familyWord, name, parent);
  return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : std::string();
}

}  // namespace zorlan

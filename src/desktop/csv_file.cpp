#include "desktop/csv_file.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "base/text_file.h"
#include "desktop/busy.h"
#include "desktop/dialog_buttons.h"
#include "desktop/own_characters.h"
#include "model/model_state.h"
#include "output/csv_output.h"
#include "render/qt_text.h"

namespace zorlan {

frmCsvFile::frmCsvFile(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmCsvFile"));
  setWindowTitle(QStringLiteral("解析結果のＣＳＶ出力"));
  folder_ = new QLineEdit(ToQt(DataPath + ProjectName));
  folder_->setObjectName(QStringLiteral("folder"));
  folder_->setMinimumWidth(420);
  auto* const browse = new QPushButton(QStringLiteral("参照..."));
  browse->setObjectName(QStringLiteral("browse"));
  connect(browse, &QPushButton::clicked, this, &frmCsvFile::Browse);
  name_ = new QLineEdit(ToQt(CsvBaseName()));
  name_->setObjectName(QStringLiteral("name"));
  KeepOwnCharacters(*name_);
  auto* const folderRow = new QHBoxLayout;
  folderRow->addWidget(folder_, 1);
  folderRow->addWidget(browse);
  auto* const rows = new QFormLayout;
  rows->addRow(QStringLiteral("出力先フォルダ"), folderRow);
  rows->addRow(QStringLiteral("ファイル名"), name_);
  auto* const note = new QLabel(
      QStringLiteral("ファイル名の後に _D.CSV（変位）、_S.CSV（部材力）、_R.CSV（反力）が付きます"));
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &frmCsvFile::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmCsvFile::reject);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(rows);
  column->addWidget(note);
  column->addWidget(buttons);
}

void frmCsvFile::Browse() {
  const QString folder =
      QFileDialog::getExistingDirectory(this, QStringLiteral("出力先フォルダ"), folder_->text());
  if (!folder.isEmpty()) folder_->setText(ToQt(FolderText(FromQt(folder))));
}

void frmCsvFile::accept() {
  SetBusy(true);
  const CsvResult result = WriteCsvFiles(FromQt(folder_->text()), FromQt(name_->text()));
  SetBusy(false);
  if (result.focus == CsvEntry::Folder) folder_->setFocus();
  if (result.focus == CsvEntry::Name) name_->setFocus();
  if (result.written) QDialog::accept();
}

}  // namespace zorlan

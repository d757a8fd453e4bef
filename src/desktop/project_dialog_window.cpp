#include "desktop/project_dialog_window.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>

#include "base/text_file.h"
#include "desktop/dialog_buttons.h"
#include "desktop/dialog_place.h"
#include "desktop/folder_tree_view.h"
#include "desktop/model_picture.h"
#include "desktop/own_characters.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/node_picking.h"

namespace zorlan {
namespace {

constexpr int kLookAfter = 150;  // ms
constexpr double kPanelPoints = 10;
constexpr auto kPlaceName = "frmProject";

QLineEdit* Box(const char* name) {
  auto* const box = new QLineEdit;
  box->setObjectName(QString::fromLatin1(name));
  box->setMinimumWidth(260);
  return box;
}

}  // namespace

ProjectDialogWindow::ProjectDialogWindow(ProjectDialog& dialog, QWidget* parent)
    : QDialog(parent), dialog_(dialog) {
  setObjectName(QStringLiteral("frmProject"));
  setWindowTitle(QStringLiteral("プロジェクトとモデル"));
  Build();
  ShowBoxes();
  tree_->Reveal(StartPath(dialog_));
  connect(tree_, &FolderTreeView::picked, this, &ProjectDialogWindow::Pick);
  connect(tree_, &FolderTreeView::opened, this, [this](const TreeNode& node) {
    Pick(node);
    accept();
  });
  for (QLineEdit* const box : {project_, model_}) KeepOwnCharacters(*box);
  for (QLineEdit* const box : {dataPath_, project_, model_})
    connect(box, &QLineEdit::textEdited, this, [this] {
      TakeBoxes();
      lookSoon_.start(kLookAfter);
    });
  lookSoon_.setSingleShot(true);
  connect(&lookSoon_, &QTimer::timeout, this, &ProjectDialogWindow::ShowInformation);
  ShowInformation();
  RestoreDialog(*this, kPlaceName, QSize(860, 560));
  const bool saves = dialog_.mode == DialogMode::SaveNew || dialog_.mode == DialogMode::SaveAs;
  if (saves)
    (project_->text().isEmpty() ? project_ : model_)->setFocus();
  else
    tree_->setFocus();
}

void ProjectDialogWindow::Build() {
  heading_ = new QLabel(ToQt(dialog_.heading));
  heading_->setObjectName(QStringLiteral("heading"));
  heading_->setTextFormat(Qt::PlainText);
  tree_ = new FolderTreeView(dialog_.mode == DialogMode::ConversionSource ? Leaves::OldModels : Leaves::Decks,
                             true);
  dataPath_ = Box("dataPath");
  project_ = Box("project");
  model_ = Box("model");
  information_ = new QLabel;
  information_->setObjectName(QStringLiteral("information"));
  information_->setFont(FixedFont(kPanelPoints));
  information_->setTextFormat(Qt::PlainText);
  information_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  information_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  information_->setFocusPolicy(Qt::NoFocus);
  information_->setWordWrap(true);
  information_->setMinimumHeight(information_->fontMetrics().lineSpacing() * 13);
  picture_ = new ModelPicture;

  auto* const boxes = new QFormLayout;
  boxes->addRow(QStringLiteral("データパス"), dataPath_);
  boxes->addRow(QStringLiteral("プロジェクト名"), project_);
  boxes->addRow(QStringLiteral("モデル名"), model_);
  auto* const panel = new QGroupBox(QStringLiteral("モデル情報"));
  auto* const panelRow = new QHBoxLayout(panel);
  panelRow->addWidget(information_, 1);
  panelRow->addWidget(picture_, 1);
  auto* const right = new QWidget;
  auto* const rightColumn = new QVBoxLayout(right);
  rightColumn->setContentsMargins(0, 0, 0, 0);
  rightColumn->addLayout(boxes);
  rightColumn->addWidget(panel, 1);
  auto* const halves = new QSplitter;
  halves->addWidget(tree_);
  halves->addWidget(right);
  halves->setChildrenCollapsible(false);
  halves->setSizes({360, 500});
  halves->setStretchFactor(1, 1);
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &ProjectDialogWindow::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &ProjectDialogWindow::reject);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(heading_);
  column->addWidget(halves, 1);
  column->addWidget(buttons);
}

void ProjectDialogWindow::Pick(const TreeNode& node) {
  TakeBoxes();
  PickNode(dialog_, node);
  ShowBoxes();
  ShowInformation();
}

void ProjectDialogWindow::TakeBoxes() {
  dialog_.dataPath = FromQt(dataPath_->text());
  dialog_.project = FromQt(project_->text());
  dialog_.model = FromQt(model_->text());
}

void ProjectDialogWindow::ShowBoxes() {
  dataPath_->setText(ToQt(dialog_.dataPath));
  project_->setText(ToQt(dialog_.project));
  model_->setText(ToQt(dialog_.model));
  heading_->setText(ToQt(HeadingOf(dialog_)));
}

void ProjectDialogWindow::ShowInformation() {
  const ModelInformation information = InformationOf(dialog_);
  QString text;
  for (const std::string& line : information.lines) text += ToQt(line) + QLatin1Char('\n');
  information_->setText(text);
  picture_->Show(information.model);
}

void ProjectDialogWindow::accept() {
  TakeBoxes();
  if (AcceptProjectDialog(dialog_)) return QDialog::accept();
  QLineEdit* const atFault = dialog_.projectAtFault ? project_ : model_;
  atFault->setFocus();
  atFault->selectAll();
}

void ProjectDialogWindow::done(int result) {
  KeepDialog(*this, kPlaceName);
  QDialog::done(result);
}

}  // namespace zorlan

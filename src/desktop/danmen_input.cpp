#include "desktop/danmen_input.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTableView>

#include "desktop/dialog_buttons.h"
#include "desktop/number_box.h"
#include "desktop/section_list.h"
#include "forms/table_form.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "sections/timber_tables.h"

namespace zorlan {
namespace {

constexpr double kListPoints = 10.5;
constexpr int kListPadding = 28;  // pixels beside the longest kind
constexpr int kFieldWidth = 110;  // pixels

}  // namespace

frmDanmenInput::frmDanmenInput(const SectionEntry& entry, QWidget* parent) : QDialog(parent), entry_(entry) {
  setObjectName(QStringLiteral("frmDanmenInput"));
  setWindowTitle(QStringLiteral("断面性能入力"));
  kinds_ = new QListWidget;
  kinds_->setObjectName(QStringLiteral("kinds"));
  kinds_->setFont(FixedFont(kListPoints));  // the names line up
  kinds_->setSpacing(2);
  for (int type = 0; type < kSectionKinds; ++type)
    kinds_->addItem(QStringLiteral("%1  ").arg(type, 2) + ToQt(SectionKindOf(type).entry));
  kinds_->setFixedWidth(kinds_->sizeHintForColumn(0) + kListPadding);
  list_ = new SectionList;
  list_->ShowChoices(SteelChoices(SteelFamily::H));  // the widest: the window keeps its size
  noList_ = new QLabel(QStringLiteral("この種別は、下の欄に数値を入力します"));
  noList_->setObjectName(QStringLiteral("noList"));
  noList_->setAlignment(Qt::AlignCenter);
  source_ = new QStackedWidget;
  source_->addWidget(list_);
  source_->addWidget(noList_);
  source_->setMinimumWidth(list_->sizeHint().width());

  auto* const right = new QVBoxLayout;
  right->addWidget(source_, 1);
  right->addWidget(FieldPanel());
  auto* const upper = new QHBoxLayout;
  upper->addWidget(kinds_);
  upper->addLayout(right, 1);
  auto* const buttons = OkCancelButtons();
  connect(buttons, &QDialogButtonBox::accepted, this, &frmDanmenInput::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &frmDanmenInput::reject);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(upper, 1);
  column->addWidget(buttons);

  kinds_->setCurrentRow(entry_.type);
  connect(kinds_, &QListWidget::currentRowChanged, this, [this](int type) {
    ChangeType(entry_, type);
    ShowKind();
  });
  connect(list_, &SectionList::picked, this, [this](const std::string& name) {
    TakeChoice(entry_, name);
    ShowFields();
  });
  connect(list_, &SectionList::decided, this, &frmDanmenInput::accept);
  ShowKind();
  kinds_->setFocus();
}

QWidget* frmDanmenInput::FieldPanel() {
  auto* const panel = new QWidget;
  auto* const grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 4, 0, 0);
  name_ = new QLabel;
  name_->setObjectName(QStringLiteral("name"));
  grid->addWidget(new QLabel(QStringLiteral("断面")), 0, 0);
  grid->addWidget(name_, 0, 1, 1, 4);
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const int at = static_cast<int>(i) + 1;
    labels_[i] = new QLabel;
    fields_[i] = new NumberBox(kReal);
    fields_[i]->setObjectName(QStringLiteral("P%1").arg(at));
    fields_[i]->setAlignment(Qt::AlignRight);
    fields_[i]->setFixedWidth(kFieldWidth);
    labels_[i]->setBuddy(fields_[i]);
    grid->addWidget(labels_[i], 1, at);
    grid->addWidget(fields_[i], 2, at);
    connect(fields_[i], &QLineEdit::textEdited, this,
            [this, i](const QString& text) { TakeField(i, FromQt(text)); });
  }
  timberTitle_ = new QLabel(QStringLiteral("木材断面名称"));
  timberName_ = new QLabel;
  timberName_->setObjectName(QStringLiteral("timberName"));
  speciesTitle_ = new QLabel(QStringLiteral("樹種名称"));
  species_ = new QComboBox;
  species_->setObjectName(QStringLiteral("species"));
  species_->addItem(QString());
  for (const TimberGradeRec& grade : TimberGrades()) species_->addItem(ToQt(grade.name));
  if (species_->findText(ToQt(entry_.species)) < 0) species_->addItem(ToQt(entry_.species));
  connect(species_, &QComboBox::currentTextChanged, this,
          [this](const QString& text) { entry_.species = FromQt(text); });
  grid->addWidget(timberTitle_, 3, 0);
  grid->addWidget(timberName_, 3, 1);
  grid->addWidget(speciesTitle_, 3, 2);
  grid->addWidget(species_, 3, 3, 1, 2);
  grid->setColumnStretch(5, 1);
  // What a kind has no use for keeps its room, so that the window stays as it is.
  for (QWidget* const widget : panel->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
  return panel;
}

void frmDanmenInput::ShowKind() {
  const SectionKind& kind = SectionKindOf(entry_.type);
  const bool steel = kind.source == SectionSource::Steel, timber = kind.source == SectionSource::Timber;
  source_->setCurrentWidget(steel || timber ? static_cast<QWidget*>(list_) : noList_);
  if (steel) list_->ShowChoices(SteelChoices(kind.family));
  if (timber) list_->ShowChoices(TimberChoices());
  list_->GoTo(timber ? entry_.timberSection : NameOfEntry(entry_));
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const bool used = kind.fields[i] != "-";
    labels_[i]->setText(used ? QStringLiteral("P%1 : ").arg(i + 1) + ToQt(kind.fields[i]) : QString());
    fields_[i]->setVisible(used);
  }
  for (QWidget* const widget : {static_cast<QWidget*>(timberTitle_), static_cast<QWidget*>(timberName_),
                                static_cast<QWidget*>(speciesTitle_), static_cast<QWidget*>(species_)})
    widget->setVisible(timber);
  ShowFields();
}

void frmDanmenInput::ShowFields() {
  for (std::size_t i = 0; i < fields_.size(); ++i) fields_[i]->setText(ToQt(entry_.P[i]));
  const QSignalBlocker quiet(species_);
  species_->setCurrentIndex(species_->findText(ToQt(entry_.species)));
  ShowName();
}

void frmDanmenInput::ShowName() {
  const std::string name = NameOfEntry(entry_);
  name_->setText(ToQt(name.empty() ? SectionKindOf(entry_.type).shape : std::string_view(name)));
  timberName_->setText(ToQt(entry_.timberSection));
}

void frmDanmenInput::TakeField(std::size_t field, const std::string& text) {
  entry_.P[field] = text;
  // A timber section is computed by its name where it has one: typed sizes are no longer that section's.
  if (field < SectionKindOf(entry_.type).Sizes()) entry_.timberSection.clear();
  ShowName();
}

bool EnterSection(std::vector<std::string>& cells, QWidget* parent) {
  frmDanmenInput dialog(EntryOfCells(cells), parent);
  if (dialog.exec() != QDialog::Accepted) return false;
  PutEntry(dialog.Entry(), cells);
  return true;
}

}  // namespace zorlan

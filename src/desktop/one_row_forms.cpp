#include "desktop/one_row_forms.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "base/cp932.h"
#include "base/host.h"
#include "desktop/number_box.h"
#include "desktop/own_characters.h"
#include "model/model_state.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

constexpr double kTitlePoints = 10.5;
constexpr int kTitleMargin = 24;  // pixels beside the title's 72 columns
constexpr std::string_view kFactorMask = "0.e-";

/// A drop-down that the wheel doesn't turn: a choice here can end results. Typed characters choose the entry
/// that they are, or else the first that begins with them, wherever the choice stands: 2 is never 20.
class StillBox : public QComboBox {
 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int EntryOf(const QString& keys) const;

  QString typed_;
  QElapsedTimer sinceKey_;
};

int StillBox::EntryOf(const QString& keys) const {
  const int whole = findText(keys, Qt::MatchFixedString);
  if (whole >= 0) return whole;
  for (int i = 0; i < count(); ++i)
    if (itemText(i).trimmed().startsWith(keys, Qt::CaseInsensitive)) return i;
  return -1;
}

void StillBox::keyPressEvent(QKeyEvent* event) {
  const QString key = event->text();
  const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (command || key.isEmpty() || !key.front().isPrint() || key.front().isSpace())
    return QComboBox::keyPressEvent(event);
  if (!sinceKey_.isValid() || sinceKey_.hasExpired(QApplication::keyboardInputInterval())) typed_.clear();
  sinceKey_.start();
  typed_ += key;
  if (EntryOf(typed_) < 0) typed_ = key;
  if (const int entry = EntryOf(typed_); entry >= 0) setCurrentIndex(entry);
}

void FillBox(QComboBox& box, const ChoiceField& field, int index) {
  const QSignalBlocker quiet(box);
  box.clear();
  for (const std::string_view choice : field.choices) box.addItem(ToQt(choice));
  box.setCurrentIndex(index);
}

/// A line or more of small print that keeps its room while it is empty.
QLabel* NoteLabel(const char* name, int lines) {
  auto* const label = new QLabel;
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setMinimumHeight(static_cast<int>(QFontMetricsF(label->font()).lineSpacing() * lines + 1));
  return label;
}

/// Open table forms, menus and status bar follow the header of the model in hand.
void HeaderChanged() {
  TheWindows().followControl();
  TheWindows().refresh();
}

bool IsOpen(const std::string& form) {
  const std::vector<std::string> open = TheWindows().openForms();
  return std::ranges::find(open, form) != open.end();
}

}  // namespace

OneRowForm::OneRowForm(const char* name, const char* caption) : Form(name) {
  setWindowTitle(QString::fromUtf8(caption));
  auto* const column = new QVBoxLayout(this);
  rows_ = new QFormLayout;
  rows_->setHorizontalSpacing(12);
  column->addLayout(rows_);
  column->addStretch();
  auto* const closing = new QPushButton(QStringLiteral("閉じる"));
  closing->setObjectName(QStringLiteral("close"));
  closing->setStatusTip(QStringLiteral("入力した内容を登録して閉じます"));
  connect(closing, &QPushButton::clicked, this, &OneRowForm::CloseForm);
  auto* const row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(closing);
  column->addLayout(row);
}

bool OneRowForm::Commit() {
  try {
    return Save();
  } catch (const std::exception& fault) {
    Tell(fault.what());
    return false;
  }
}

void OneRowForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    CloseForm();
  else
    Form::keyPressEvent(event);
}

TitleForm::TitleForm(std::string_view key)
    : OneRowForm(key == "TITL" ? "InpTITL" : "InpSUBT", key == "TITL" ? "タイトル" : "サブタイトル"),
      key_(key),
      loaded_(LoadTitle(key)) {
  title_ = new QLineEdit(ToQt(loaded_));
  title_->setObjectName(QStringLiteral("title"));
  KeepOwnCharacters(*title_);
  title_->setFont(FixedFont(kTitlePoints));
  const QFontMetricsF metrics(title_->font());
  title_->setMinimumWidth(static_cast<int>(metrics.horizontalAdvance(QLatin1Char('0')) * kMaxTitleWidth) +
                          kTitleMargin);
  width_ = NoteLabel("width", 1);
  width_->setAlignment(Qt::AlignRight);
  warning_ = NoteLabel("warning", 1);
  auto* const below = new QHBoxLayout;
  below->addWidget(warning_, 1);
  below->addWidget(width_);
  rows_->addRow(windowTitle(), title_);
  rows_->addRow(QString(), below);
  connect(title_, &QLineEdit::textChanged, this, &TitleForm::ShowWidth);
  connect(title_, &QLineEdit::textChanged, this, &TitleForm::NoteEdit);
  ShowWidth();
  SetFirst(title_);
}

bool TitleForm::IsChanged() const {
  return FromQt(title_->text()) != loaded_;
}

void TitleForm::ShowWidth() {
  const std::string title = FromQt(title_->text());
  const std::size_t width = HalfWidth(title);
  width_->setText(QStringLiteral("半角 %1 / %2 文字").arg(width).arg(kMaxTitleWidth));
  QFont font = width_->font();
  font.setBold(width > kMaxTitleWidth);
  width_->setFont(font);
  warning_->setText(ToQt(TitleWarning(title)));
}

bool TitleForm::Save() {
  const std::string title = FromQt(title_->text());
  if (title == loaded_) return true;
  if (const std::string fault = TitleFault(title); !fault.empty()) {
    Tell(fault);
    title_->setFocus();
    return false;
  }
  SaveTitle(key_, title);
  loaded_ = title;
  TheWindows().refresh();
  return true;
}

InpCONT::InpCONT() : OneRowForm("InpCONT", "コントロール"), loaded_(LoadControl()), entry_(loaded_) {
  modelNote_ = NoteLabel("modelNote", 2);
  loadNote_ = NoteLabel("loadNote", 1);
  dropped_ = NoteLabel("dropped", 1);
  AddBox(ControlField::Model, "model");
  rows_->addRow(QString(), modelNote_);
  AddBox(ControlField::LoadCases, "loadCases");
  rows_->addRow(QString(), loadNote_);
  AddBox(ControlField::List, "list");
  AddBox(ControlField::Rollers, "rollers");
  rows_->addRow(QString(), dropped_);
  ShowEntry();
  SetFirst(Box(ControlField::Model));
}

void InpCONT::AddBox(ControlField field, const char* name) {
  auto* const box = new StillBox;
  box->setObjectName(QString::fromLatin1(name));
  FillBox(*box, ControlChoiceOf(field), entry_[field]);
  connect(box, &QComboBox::currentIndexChanged, this, [this, field](int index) { Take(field, index); });
  rows_->addRow(ToQt(ControlChoiceOf(field).title), box);
  Box(field) = box;
}

void InpCONT::Take(ControlField field, int index) {
  Choose(entry_, field, index);
  try {
    if (field == ControlField::LoadCases && DropResultsOfOtherCases())
      dropped_->setText(QStringLiteral("荷重ケースの数が変わったため、解析結果を削除しました"));
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
  ShowEntry();
  NoteEdit();
  if (!TablesCanBeEntered(entry_)) return;
  TakeControl(entry_);
  HeaderChanged();
}

void InpCONT::ShowEntry() {
  QComboBox* const rollers = Box(ControlField::Rollers);
  const QSignalBlocker quiet(rollers);
  rollers->setCurrentIndex(entry_[ControlField::Rollers]);
  rollers->setEnabled(MayChooseRollers(entry_));
  modelNote_->setText(ToQt(ModelNote(entry_)));
  loadNote_->setText(ToQt(LoadNote(entry_)));
}

bool InpCONT::Save() {
  if (const std::optional<ControlField> missing = MissingChoice(entry_)) {
    Tell(NotChosenMessage(ControlChoiceOf(*missing).title));
    Box(*missing)->setFocus();
    return false;
  }
  if (entry_ == loaded_ && HasTable("CONT")) return true;
  const bool otherCases = entry_[ControlField::LoadCases] != loaded_[ControlField::LoadCases];
  if (otherCases && IsOpen("InpELOD") && !TheWindows().closeForm("InpELOD")) return false;
  SaveControl(entry_);
  if (otherCases) CutElementLoads(InpModel.MaxLoadCase);
  loaded_ = entry_;
  HeaderChanged();
  return true;
}

InpUNIT::InpUNIT() : OneRowForm("InpUNIT", "単位"), loaded_(LoadUnit()) {
  input_ = AddGroup(UnitField::Input, "input");
  output_ = AddGroup(UnitField::Output, "output");
  factor_ = new NumberBox(kFactorMask);
  factor_->setObjectName(QStringLiteral("factor"));
  factor_->setAlignment(Qt::AlignRight);
  factor_->setText(ToQt(loaded_.factor));
  rows_->addRow(ToQt(kFactorTitle), factor_);
  force_ = new StillBox;
  force_->setObjectName(QStringLiteral("force"));
  FillBox(*force_, UnitChoiceOf(UnitField::Force, loaded_[UnitField::Output]), loaded_[UnitField::Force]);
  connect(force_, &QComboBox::currentIndexChanged, this,
          [this](int index) { Take(UnitField::Force, index); });
  rows_->addRow(ToQt(UnitChoiceOf(UnitField::Force, 0).title), force_);
  connect(factor_, &QLineEdit::textChanged, this, &InpUNIT::NoteEdit);
  QAbstractButton* const chosen = input_->checkedButton();
  SetFirst(chosen != nullptr ? chosen : input_->button(0));
}

QButtonGroup* InpUNIT::AddGroup(UnitField field, const char* name) {
  auto* const group = new QButtonGroup(this);
  auto* const row = new QHBoxLayout;
  const ChoiceField choices = UnitChoiceOf(field, 0);
  int index = 0;
  for (const std::string_view choice : choices.choices) {
    auto* const button = new QRadioButton(ToQt(choice));
    button->setObjectName(QStringLiteral("%1%2").arg(QLatin1String(name)).arg(index));
    button->setChecked(loaded_[field] == index);
    group->addButton(button, index++);
    row->addWidget(button);
  }
  row->addStretch();
  connect(group, &QButtonGroup::idToggled, this, [this, field](int id, bool on) {
    if (on) Take(field, id);
  });
  rows_->addRow(ToQt(choices.title), row);
  return group;
}

UnitEntry InpUNIT::Entry() const {
  UnitEntry entry;
  entry[UnitField::Input] = input_->checkedId();
  entry[UnitField::Output] = output_->checkedId();
  entry[UnitField::Force] = force_->currentIndex();
  entry.factor = FromQt(factor_->text());
  return entry;
}

void InpUNIT::Take(UnitField field, int index) {
  if (field == UnitField::Output)
    FillBox(*force_, UnitChoiceOf(UnitField::Force, index), force_->currentIndex());
  TakeUnit(Entry());
  HeaderChanged();
}

void InpUNIT::FocusOn(UnitField field) {
  if (field == UnitField::Force)
    force_->setFocus();
  else
    (field == UnitField::Input ? input_ : output_)->button(0)->setFocus();
}

bool InpUNIT::Save() {
  const UnitEntry entry = Entry();
  if (const std::string fault = UnitFault(entry); !fault.empty()) {
    Tell(fault);
    if (const std::optional<UnitField> missing = MissingChoice(entry))
      FocusOn(*missing);
    else
      factor_->setFocus();
    return false;
  }
  if (entry == loaded_) return true;
  SaveUnit(entry);
  loaded_ = entry;
  HeaderChanged();
  return true;
}

void OpenOneRowForm(FormArea& forms, std::string_view name) {
  FormToShow<Form>(forms, std::string(name), [&]() -> std::unique_ptr<Form> {
    if (name == "InpCONT") return std::make_unique<InpCONT>();
    if (name == "InpUNIT") return std::make_unique<InpUNIT>();
    return std::make_unique<TitleForm>(name.substr(3));
  }).Show();
}

}  // namespace zorlan

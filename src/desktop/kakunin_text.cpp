#include "desktop/kakunin_text.h"

#include <algorithm>
#include <exception>
#include <QBoxLayout>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QWheelEvent>

#include "base/host.h"
#include "base/text_file.h"
#include "desktop/own_characters.h"
#include "desktop/save_file.h"
#include "forms/message_row.h"
#include "model/model_state.h"
#include "output/print_flag.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "shell/windows.h"

namespace zorlan {
namespace {

// At 96 dots an inch 10.5 points are 14 pixels: half-width characters are a whole number of them wide.
constexpr double kPoints = 10.5, kSmallest = 6, kLargest = 36, kZoomStep = 0.75;
constexpr int kLinesAtOnce = 3000;          // some hundredths of a second
constexpr int kColumns = 110, kLines = 34;  // of the first size

/// The text of a file, LF alone between lines; "" without the file.
QString TextOf(const std::string& path) {
  if (path.empty() || !FileExists(path)) return {};
  QString text = ToQt(ReadTextFile(path));
  text.remove(QLatin1Char('\r'));
  return text;
}

/// Where a copy of a shown file may be kept: the work folder is emptied at the end.
std::string ProposedPath(const std::string& path) {
  return path.starts_with(WorkPath) ? DataPath + ProjectName + path.substr(WorkPath.size()) : path;
}

}  // namespace

frmKakuninText::frmKakuninText() : Form("frmKakuninText"), points_(kPoints) {
  heading_ = new QLabel;
  heading_->setObjectName(QStringLiteral("heading"));
  text_ = new QPlainTextEdit;
  text_->setObjectName(QStringLiteral("text"));
  text_->setReadOnly(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->viewport()->installEventFilter(this);
  search_ = new QLineEdit;
  search_->setObjectName(QStringLiteral("search"));
  KeepOwnCharacters(*search_);
  search_->setPlaceholderText(QStringLiteral("検索"));
  search_->setClearButtonEnabled(true);
  search_->setMaximumWidth(220);
  found_ = new QLabel;
  note_ = new QLabel;
  note_->setObjectName(QStringLiteral("note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->hide();
  auto* const save = new QPushButton(QStringLiteral("保存"));
  save->setObjectName(QStringLiteral("save"));
  save->setToolTip(QStringLiteral("別のファイルに保存します"));
  auto* const closing = new QPushButton(QStringLiteral("閉じる"));
  closing->setObjectName(QStringLiteral("close"));

  auto* const row = new QHBoxLayout;
  row->addWidget(heading_);
  row->addStretch();
  row->addWidget(found_);
  row->addWidget(search_);
  row->addWidget(save);
  row->addWidget(closing);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addLayout(row);
  column->addWidget(note_);
  column->addWidget(text_, 1);

  connect(search_, &QLineEdit::returnPressed, this, [this] { Search(false); });
  connect(save, &QPushButton::clicked, this, &frmKakuninText::Save);
  connect(closing, &QPushButton::clicked, this, &frmKakuninText::CloseForm);
  const auto key = [this](const QKeySequence& keys, auto action) {
    auto* const shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
  };
  key(QKeySequence::Find, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  key(QKeySequence(Qt::Key_F3), [this] { Search(false); });
  key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { Search(true); });
  text_->setUndoRedoEnabled(false);
  loadMore_.setInterval(0);
  connect(&loadMore_, &QTimer::timeout, this, [this] { LoadLines(kLinesAtOnce); });
  SetZoom(kPoints);
  SetFirst(text_);
}

void frmKakuninText::ShowListing(int flag, const std::string& path) {
  const bool same = path == file_.Path() && !path.empty();
  const QString heading = ToQt(ReaderHeading(flag));
  heading_->setText(heading);
  messages_ = flag == kPrintCheckRead;
  text_->setToolTip(messages_ ? QStringLiteral("Enter またはダブルクリックで、入力表のその行へ移ります")
                              : QString());
  setWindowTitle(heading.trimmed() + QStringLiteral("　") + ToQt(path.substr(path.rfind('/') + 1)));
  file_.Look(path);
  Load(same);
}

void frmKakuninText::Renew() {
  if (!file_.Changed()) return;
  file_.Look(file_.Path());
  Load(/*keepPlace=*/true);
}

void frmKakuninText::Load(bool keepPlace) {
  QString text, note;
  try {
    text = TextOf(file_.Path());
    if (!file_.Path().empty() && !FileExists(file_.Path()))
      note = QFileInfo(ToQt(file_.Path())).fileName() + QStringLiteral(" はありません");
  } catch (const std::exception& fault) {
    note = ToQt(fault.what());
    file_.Forget();
  }
  ShowText(text, note, keepPlace);
}

void frmKakuninText::ShowText(const QString& text, const QString& note, bool keepPlace) {
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
  const int line = text_->verticalScrollBar()->value(), column = text_->horizontalScrollBar()->value();
  found_->clear();
  whole_ = text;
  loaded_ = 0;
  text_->clear();
  LoadLines(keepPlace ? line + kLinesAtOnce : kLinesAtOnce);
  if (loaded_ < whole_.size()) loadMore_.start();
  if (!keepPlace) return;
  text_->verticalScrollBar()->setValue(line);
  text_->horizontalScrollBar()->setValue(column);
}

void frmKakuninText::LoadLines(int count) {
  qsizetype end = loaded_;
  for (int line = 0; line < count && end < whole_.size(); ++line) {
    const qsizetype newLine = whole_.indexOf(QLatin1Char('\n'), end);
    end = newLine < 0 ? whole_.size() : newLine + 1;
  }
  QTextCursor cursor(text_->document());
  cursor.movePosition(QTextCursor::End);
  cursor.insertText(whole_.mid(loaded_, end - loaded_));
  if (loaded_ == 0) text_->moveCursor(QTextCursor::Start);
  loaded_ = end;
  if (loaded_ < whole_.size()) return;
  loadMore_.stop();
  whole_.clear();
  loaded_ = 0;
}

void frmKakuninText::Search(bool backwards) {
  const QString wanted = search_->text();
  if (wanted.isEmpty()) return;
  while (loadMore_.isActive()) LoadLines(kLinesAtOnce);
  const QTextDocument::FindFlags direction =
      backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  bool found = text_->find(wanted, direction);
  found_->clear();
  if (!found) {
    QTextCursor cursor = text_->textCursor();
    const QTextCursor before = cursor;
    cursor.movePosition(backwards ? QTextCursor::End : QTextCursor::Start);
    text_->setTextCursor(cursor);
    found = text_->find(wanted, direction);
    if (!found) text_->setTextCursor(before);
    found_->setText(found ? QStringLiteral("先頭に戻りました") : QStringLiteral("見つかりません"));
  }
  if (found) text_->centerCursor();
}

void frmKakuninText::Save() {
  Renew();
  try {
    const std::string shown = ReadBytes(file_.Path());  // another program may write it behind the dialog
    const QString target =
        AskSaveFile(this, QStringLiteral("保存"), ToQt(ProposedPath(file_.Path())), {}, {});
    if (target.isEmpty()) return;
    ReplaceBytes(FromQt(target), shown);
    Tell("保存しました");
  } catch (const std::exception& fault) {
    Tell(fault.what());
  }
}

void frmKakuninText::SetZoom(double points) {
  points_ = std::clamp(points, kSmallest, kLargest);
  text_->setFont(FixedFont(points_));
}

QSize frmKakuninText::sizeHint() const {
  const QFontMetricsF metrics(FixedFont(kPoints));
  return {static_cast<int>(metrics.horizontalAdvance(QLatin1Char('0')) * kColumns),
          static_cast<int>(metrics.lineSpacing() * kLines)};
}

void frmKakuninText::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  if (control && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Semicolon))
    SetZoom(points_ + kZoomStep);  // the plus sign of a Japanese keyboard is on the semicolon
  else if (control && event->key() == Qt::Key_Minus)
    SetZoom(points_ - kZoomStep);
  else if (control && event->key() == Qt::Key_0)
    SetZoom(kPoints);
  else if (messages_ && text_->hasFocus() &&
           (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    ShowRowOfMessage();
  else if (event->key() == Qt::Key_Escape && search_->hasFocus())
    text_->setFocus();
  else
    Form::keyPressEvent(event);
}

void frmKakuninText::ShowRowOfMessage() {
  const std::string line = FromQt(text_->textCursor().block().text());
  const std::optional<MessageRow> row = RowOfMessage(line);
  if (row) TheWindows().showRow(std::string(row->key), row->page, row->number);
}

bool frmKakuninText::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_->viewport() && event->type() == QEvent::Wheel) {
    const auto* const wheel = static_cast<QWheelEvent*>(event);
    if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
      SetZoom(points_ + (wheel->angleDelta().y() > 0 ? kZoomStep : -kZoomStep));
      return true;
    }
  }
  if (messages_ && watched == text_->viewport() && event->type() == QEvent::MouseButtonDblClick) {
    ShowRowOfMessage();
    return true;
  }
  return Form::eventFilter(watched, event);
}

}  // namespace zorlan

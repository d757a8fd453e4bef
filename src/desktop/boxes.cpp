#include "desktop/boxes.h"

#include <algorithm>
#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QIcon>
#include <QMessageBox>
#include <QString>
#include <span>

#include "render/qt_text.h"

namespace zorlan {
namespace {

/// An hourglass over a box that waits for the user would be a lie.
class ArrowShown {
 public:
  ArrowShown() : over_(QApplication::overrideCursor() != nullptr) {
    if (over_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~ArrowShown() {
    if (over_) QApplication::restoreOverrideCursor();
  }
  ArrowShown(const ArrowShown&) = delete;
  ArrowShown& operator=(const ArrowShown&) = delete;

 private:
  bool over_;
};

QMessageBox::StandardButton Run(QMessageBox::Icon icon, std::string_view text, std::string_view title,
                                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton enter) {
  const ArrowShown arrow;
  QMessageBox box(icon, ToQt(title), ToQt(text), buttons, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(enter);
  for (QAbstractButton* const button : box.buttons()) button->setIcon(QIcon());  // words are enough
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

bool Holds(std::string_view text, std::span<const std::string_view> words) {
  return std::ranges::any_of(
      words, [&](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

/// A box tells of a success, of the program's own failure, or, most of them, of what the user has to mend.
QMessageBox::Icon IconOf(std::string_view text, std::string_view title) {
  constexpr std::string_view kSuccesses[] = {"保存しました", "作成しました", "エラーはありませんでした"};
  constexpr std::string_view kFailures[] = {"エラーが発生しました", "解析失敗"};
  if (Holds(title, kFailures)) return QMessageBox::Critical;
  return Holds(text, kSuccesses) ? QMessageBox::Information : QMessageBox::Warning;
}

bool SomethingWouldBeLost(std::string_view text) {
  constexpr std::string_view kWords[] = {"削除", "上書き", "破棄", "失われ"};
  return Holds(text, kWords);
}

}  // namespace

void ShowBox(std::string_view text, std::string_view title) {
  Run(IconOf(text, title), text, title, QMessageBox::Ok, QMessageBox::Ok);
}

Answer AskBox(std::string_view text, std::string_view title, Buttons buttons) {
  const bool loss = SomethingWouldBeLost(text);
  switch (buttons) {
    case Buttons::YesNo: {
      const QMessageBox::StandardButton enter = loss ? QMessageBox::No : QMessageBox::Yes;
      const auto answer = Run(QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No, enter);
      return answer == QMessageBox::Yes ? Answer::Yes : Answer::No;
    }
    case Buttons::YesNoCancel: {
      const auto answer = Run(QMessageBox::Question, text, title,
                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
      if (answer == QMessageBox::Yes) return Answer::Yes;
      return answer == QMessageBox::No ? Answer::No : Answer::Cancel;
    }
    case Buttons::OkCancel: {
      const QMessageBox::StandardButton enter = loss ? QMessageBox::Cancel : QMessageBox::Ok;
      const auto answer =
          Run(QMessageBox::Question, text, title, QMessageBox::Ok | QMessageBox::Cancel, enter);
      return answer == QMessageBox::Ok ? Answer::Ok : Answer::Cancel;
    }
  }
  return Answer::Cancel;
}

}  // namespace zorlan

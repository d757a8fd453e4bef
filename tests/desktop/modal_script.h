// Answers modal windows in the order of a script, from inside their own event loops. A window that the script
// doesn't expect is closed and makes the test fail.
#pragma once

#include <deque>
#include <functional>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

namespace zorlan::test {

class ModalScript : public QObject {
 public:
  ModalScript();
  ~ModalScript() override;

  using Act = std::function<void(QWidget& window)>;

  /// The next modal window is named `window`, or is a message box that holds this text; `act` ends it.
  void Expect(const QString& window, Act act);
  /// The next modal window is a box with this text, which this button answers: "はい", "いいえ",
  /// "キャンセル", "OK".
  void ExpectBox(const QString& text, const QString& button);

  /// From now on every window that isn't expected is closed without a word.
  void RejectOthers() { rejectOthers_ = true; }

  /// Every box that was seen, "title|text".
  const QStringList& Seen() const { return seen_; }
  bool Done() const { return steps_.empty(); }

 private:
  struct Step {
    QString window;
    Act act;
  };
  void Tick();

  std::deque<Step> steps_;
  QStringList seen_;
  QTimer timer_;
  QPointer<QWidget> acting_;
  QList<QPointer<QWidget>> answered_;
  int idle_ = 0;
  bool rejectOthers_ = false;
};

}  // namespace zorlan::test

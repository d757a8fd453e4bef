#include "desktop/modal_script.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>

namespace zorlan::test {
namespace {

constexpr int kIdleTicks = 400;  // two seconds

/// What a step names a window by: its object name, or a box's text.
QString NameOf(const QWidget& window) {
  if (const auto* const box = qobject_cast<const QMessageBox*>(&window)) return box->text();
  return window.objectName();
}

/// A button's caption without its mnemonic: "はい(&Y)" is "はい".
QString CaptionOf(const QAbstractButton& button) {
  QString caption = button.text();
  caption.truncate(caption.contains(QLatin1Char('(')) ? caption.indexOf(QLatin1Char('(')) : caption.size());
  return caption.remove(QLatin1Char('&'));
}

void Press(QWidget& window, const QString& button) {
  for (QAbstractButton* const candidate : window.findChildren<QAbstractButton*>())
    if (CaptionOf(*candidate) == button) {
      QTest::mouseClick(candidate, Qt::LeftButton);
      return;
    }
  ADD_FAILURE() << "no button " << button.toStdString();
  static_cast<QDialog&>(window).reject();
}

}  // namespace

ModalScript::ModalScript() {
  connect(&timer_, &QTimer::timeout, this, &ModalScript::Tick);
  timer_.start(5);
}

ModalScript::~ModalScript() {
  for (const Step& step : steps_) ADD_FAILURE() << "never shown: " << step.window.toStdString();
}

void ModalScript::Expect(const QString& window, Act act) {
  steps_.push_back({window, std::move(act)});
}

void ModalScript::ExpectBox(const QString& text, const QString& button) {
  Expect(text, [button](QWidget& window) { Press(window, button); });
}

void ModalScript::Tick() {
  QWidget* const window = QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible() || acting_ == window) return;
  if (!window->isActiveWindow()) {
    window->activateWindow();
    return;
  }
  const QString name = NameOf(*window);
  if (name == QLatin1String("busyBox") || name == QLatin1String("printBox"))
    return;  // they end by themselves
  const bool expected = !steps_.empty() && name.contains(steps_.front().window);
  // A dialog that was answered may stay: it closes soon, shows a box, or has refused the answer. It is given
  // up when nothing comes of it.
  const bool answered = answered_.contains(window);
  if (!expected && answered && ++idle_ < kIdleTicks) return;
  idle_ = 0;
  if (!answered) {
    seen_ << window->windowTitle() + QLatin1Char('|') + name;
    answered_ << window;
  }
  if (!expected) {
    if (!rejectOthers_)
      ADD_FAILURE() << "unexpected: " << seen_.back().toStdString()
                    << (steps_.empty() ? "" : " in place of " + steps_.front().window.toStdString());
    if (auto* const dialog = qobject_cast<QDialog*>(window)) dialog->reject();
    return;
  }
  const Act act = steps_.front().act;
  steps_.pop_front();
  acting_ = window;
  // From the event loop, so that this timer goes on while the act waits for a window that it opens.
  QTimer::singleShot(0, window, [this, window, act] {
    acting_ = nullptr;
    act(*window);
  });
}

}  // namespace zorlan::test

#include "desktop/busy.h"

#include <memory>
#include <QApplication>
#include <QBoxLayout>
#include <QCursor>
#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr int kShowAfter = 1000;  // ms: a box says what is going on
constexpr int kStopAfter = 3000;  // ms: it can be stopped
constexpr int kPaintEvery = 40;   // ms

/// The box over a running command. It is modal, so nothing else can be begun behind it.
class BusyBox : public QDialog {
 public:
  BusyBox() : QDialog(QApplication::activeWindow()) {
    setObjectName(QStringLiteral("busyBox"));
    setWindowTitle(ToQt(kApplicationTitle));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    what_ = new QLabel;
    what_->setMinimumWidth(320);
    bar_ = new QProgressBar;
    stop_ = new QPushButton(QStringLiteral("中止"));
    stop_->setObjectName(QStringLiteral("stop"));
    stop_->setEnabled(false);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(what_);
    column->addWidget(bar_);
    column->addWidget(stop_, 0, Qt::AlignRight);
    connect(stop_, &QPushButton::clicked, this, [this] { stopped_ = true; });
  }

  /// `share` below 0: nobody knows how far.
  void Show(const QString& what, double share, bool canStop) {
    what_->setText(what);
    bar_->setRange(0, share < 0 ? 0 : 100);
    if (share >= 0) bar_->setValue(static_cast<int>(share * 100));
    stop_->setEnabled(canStop);
    if (!isVisible()) show();
  }
  bool Stopped() const { return stopped_; }

  void reject() override {  // Esc
    if (stop_->isEnabled()) stopped_ = true;
  }

 private:
  QLabel* what_;
  QProgressBar* bar_;
  QPushButton* stop_;
  bool stopped_ = false;
};

struct BusyState {
  int depth = 0;
  QElapsedTimer since, painted;
  std::unique_ptr<BusyBox> box;
};

BusyState& State() {
  static BusyState state;
  return state;
}

void Begin() {
  State().since.start();
  State().painted.start();
}

/// Lets the windows paint; input goes to the box alone, once it is there.
void Pump(const QString& what, double share) {
  BusyState& state = State();
  const qint64 passed = state.since.elapsed();
  if (passed >= kShowAfter) {
    if (!state.box) state.box = std::make_unique<BusyBox>();
    state.box->Show(what, share, passed >= kStopAfter);
  }
  QApplication::processEvents(state.box ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

bool StopAsked() {
  return State().box && State().box->Stopped();
}

ProgramEnd EndOf(QProcess& process) {
  ProgramEnd end;
  if (process.error() == QProcess::FailedToStart) {
    end.reason = FromQt(process.errorString());
    return end;
  }
  const bool killed = process.exitStatus() == QProcess::CrashExit;
  end.how = killed ? ProgramEnd::How::Killed : ProgramEnd::How::Exited;
  end.code = process.exitCode();
  return end;
}

}  // namespace

void SetBusy(bool busy) {
  BusyState& state = State();
  if (busy) {
    if (state.depth++ == 0) Begin();
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else if (state.depth > 0) {
    QApplication::restoreOverrideCursor();
    if (--state.depth == 0) state.box.reset();
  }
}

void ShowProgress(std::string_view what, double share) {
  BusyState& state = State();
  if (state.depth == 0 || state.painted.elapsed() < kPaintEvery) return;
  Pump(ToQt(what), share);
  if (StopAsked()) throw UserStop();
  state.painted.restart();
}

ProgramEnd RunAndWait(const std::string& program, const std::string& folder) {
  SetBusy(true);
  Begin();  // the wait has its own seconds
  QProcess process;
  process.setWorkingDirectory(ToQt(folder));
  process.setStandardInputFile(QProcess::nullDevice());
  process.setProcessChannelMode(QProcess::MergedChannels);
  QEventLoop loop;
  QTimer tick;
  QObject::connect(&tick, &QTimer::timeout, &loop, &QEventLoop::quit);
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  process.start(ToQt(program), QStringList());
  tick.start(kPaintEvery);
  bool stopped = false;
  while (process.state() != QProcess::NotRunning && !stopped) {
    loop.exec(State().box ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    if (process.state() == QProcess::NotRunning) break;
    Pump(QStringLiteral("解析プログラムの終了を待っています"), -1);
    process.readAll();  // what it prints is for nobody, but must not fill the pipe
    stopped = StopAsked();
  }
  if (stopped) {
    process.kill();
    process.waitForFinished();
  }
  const ProgramEnd end = stopped ? ProgramEnd{ProgramEnd::How::Cancelled, 0, std::string()} : EndOf(process);
  SetBusy(false);
  return end;
}

bool IsBusy() {
  return State().depth > 0;
}

void EndBusy() {
  while (IsBusy()) SetBusy(false);
}

}  // namespace zorlan

#include "desktop/busy.h"

#include <signal.h>
#include <sys/stat.h>

#include <cerrno>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include "analysis/external_road.h"
#include "base/number.h"
#include "desktop/desktop_test.h"

namespace zorlan::test {
namespace {

class BusyTest : public testing::Test {
 protected:
  /// A program of one shell script.
  std::string Program(const std::string& script) const {
    const std::string path = folder_.Path() + "program";
    ReplaceBytes(path, "#!/bin/sh\n" + script + "\n");
    ::chmod(path.c_str(), 0700);
    return path;
  }
  const std::string& Folder() const { return folder_.Path(); }

  /// Presses the stop button as soon as it can be pressed.
  void StopWhenPossible() {
    QObject::connect(&stopper_, &QTimer::timeout, [this] {
      auto* const box = QApplication::activeModalWidget();
      if (box == nullptr) return;
      auto* const stop = box->findChild<QPushButton*>(QStringLiteral("stop"));
      if (stop == nullptr || !stop->isEnabled()) return;
      stopper_.stop();
      QTest::mouseClick(stop, Qt::LeftButton);
    });
    stopper_.start(20);
  }

 private:
  TemporaryFolder folder_;
  QTimer stopper_;
};

TEST_F(BusyTest, AProgramRunsInItsFolderAndItsExitCodeIsTold) {
  const ProgramEnd end = RunAndWait(Program("pwd > where; exit 3"), Folder());
  EXPECT_EQ(end.how, ProgramEnd::How::Exited);
  EXPECT_EQ(end.code, 3);
  EXPECT_EQ(ReadBytes(Folder() + "where"), Folder().substr(0, Folder().size() - 1) + "\n");
}

TEST_F(BusyTest, AProgramThatIsKilledIsToldFromOneThatEnds) {
  EXPECT_EQ(RunAndWait(Program("kill -9 $$"), Folder()).how, ProgramEnd::How::Killed);
}

TEST_F(BusyTest, AProgramThatIsNotThereHasAReason) {
  const ProgramEnd end = RunAndWait(Folder() + "nothing", Folder());
  EXPECT_EQ(end.how, ProgramEnd::How::NotStarted);
  EXPECT_NE(end.reason, "");
}

TEST_F(BusyTest, MuchOutputDoesNotStopAProgram) {
  EXPECT_EQ(RunAndWait(Program("head -c 1000000 /dev/zero"), Folder()).how, ProgramEnd::How::Exited);
}

TEST_F(BusyTest, TheUserCanStopAWaitAndTheProgramIsEnded) {
  StopWhenPossible();
  int ticks = 0;
  QTimer painter;  // stands for the windows that go on painting
  QObject::connect(&painter, &QTimer::timeout, [&ticks] { ++ticks; });
  painter.start(50);
  const ProgramEnd end = RunAndWait(Program("echo $$ > pid; exec sleep 60"), Folder());
  EXPECT_EQ(end.how, ProgramEnd::How::Cancelled);
  EXPECT_GT(ticks, 20);
  const auto process = static_cast<pid_t>(ReadReal(ReadBytes(Folder() + "pid")));
  EXPECT_EQ(::kill(process, 0), -1);
  EXPECT_EQ(errno, ESRCH);
  EXPECT_FALSE(IsBusy());
}

TEST_F(BusyTest, TheUserCanStopACommandThatShowsItsProgress) {
  StopWhenPossible();
  SetBusy(true);
  QElapsedTimer passed;
  passed.start();
  const auto work = [&passed] {
    while (passed.elapsed() < 30000) {
      ShowProgress("応力解析", 0.5);
      QTest::qSleep(5);
    }
  };
  EXPECT_THROW(work(), UserStop);
  EndBusy();
  EXPECT_FALSE(IsBusy());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(BusyTest, AQuickCommandShowsNothingButTheHourglass) {
  SetBusy(true);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  for (int i = 0; i < 20; ++i) {
    ShowProgress("応力解析", i / 20.0);
    QTest::qSleep(10);
  }
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  SetBusy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

class CompanionTest : public DesktopTest {
 protected:
  /// A companion solver of one shell script.
  void InstallCompanion(const std::string& script) {
    ProgramFolder = Documents() + "program/";
    MakeFolder(ProgramFolder);
    ReplaceBytes(ProgramFolder + "anaZorlan", "#!/bin/sh\n" + script + "\n");
    ::chmod((ProgramFolder + "anaZorlan").c_str(), 0700);
  }

  /// A cantilever whose roller settles: the companion's work.
  void OpenSettling() {
    ReplaceTextFile(
        Sample("沈下.inp"),
        "@CONT\r\n1,1,0\r\n@UNIT\r\n1,1,9.80665,0\r\n@NODE\r\n1,0,0,1,1,1\r\n2,4,0,0,1,0\r\n@ELEM\r\n"
        "1,1,2,0,0,1,0\r\n@SECT\r\n1,0,100,10000,50,0,1,205000,79000\r\n@SPEC\r\n2,1,0,-1,0\r\n");
    Window().OpenDeck(ToQt(Sample("沈下.inp")));
  }
};

TEST_F(CompanionTest, TheUserStopsAHangingCompanionAndNoResultIsLeft) {
  OpenSettling();
  InstallCompanion("echo $$ > \"$(dirname \"$0\")/pid\"; exec sleep 60");
  int ticks = 0;
  QString said;
  QTimer stopper;  // it also stands for the windows that go on painting
  QObject::connect(&stopper, &QTimer::timeout, [&] {
    ++ticks;
    const auto* const box = QApplication::activeModalWidget();
    auto* const stop = box == nullptr ? nullptr : box->findChild<QPushButton*>(QStringLiteral("stop"));
    if (stop == nullptr || !stop->isEnabled()) return;
    said = box->findChild<QLabel*>()->text();
    QTest::mouseClick(stop, Qt::LeftButton);
  });
  stopper.start(50);
  Script().ExpectBox(QStringLiteral("中止"), QStringLiteral("OK"));
  Choose("mnuAnalysisStatic(0)");
  EXPECT_GT(ticks, 20);
  EXPECT_EQ(said, QStringLiteral("解析プログラムの終了を待っています"));
  const auto companion = static_cast<pid_t>(ReadReal(ReadBytes(ProgramFolder + "pid")));
  EXPECT_EQ(::kill(companion, 0), -1);
  EXPECT_FALSE(Entry("mnuAnalysisStatic(3)")->isEnabled());
  EXPECT_FALSE(FileExists(AnalysisPath + "FT031"));
  EXPECT_FALSE(FileExists(Sample("沈下.ANA/FT031")));
  EXPECT_FALSE(FileExists(Sample("沈下.out")));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(Child<QLabel>(&Window(), "statusResults")->text(), QStringLiteral("解析結果なし"));
}

TEST_F(CompanionTest, AfterAStopTheNextRunIsWhole) {
  OpenSettling();
  InstallCompanion("exec sleep 60");
  QTimer stopper;
  QObject::connect(&stopper, &QTimer::timeout, [] {
    const auto* const box = QApplication::activeModalWidget();
    auto* const stop = box == nullptr ? nullptr : box->findChild<QPushButton*>(QStringLiteral("stop"));
    if (stop != nullptr && stop->isEnabled()) QTest::keyClick(stop, Qt::Key_Space);
  });
  stopper.start(50);
  Script().ExpectBox(QStringLiteral("中止"), QStringLiteral("OK"));
  Choose("mnuAnalysisStatic(0)");
  stopper.stop();
  InstallCompanion("exec '" ZORLAN_COMPANION "'");
  Choose("mnuAnalysisStatic(0)");
  EXPECT_TRUE(FileExists(Sample("沈下.ANA/FT031")));
  EXPECT_TRUE(Entry("mnuAnalysisStatic(3)")->isEnabled());
  EXPECT_NE(OpenForm("frmKakuninText"), nullptr);
}

}  // namespace
}  // namespace zorlan::test

#include <sys/stat.h>

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QUrl>

#include <set>

#include "desktop/desktop_test.h"
#include "desktop/main_menu.h"
#include "shell/recent_models.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;

TEST_F(DesktopTest, TheMenuBarHasEveryEntryUnderItsNameAndCaption) {
  for (const MenuRow& row : kMenu) {
    const QAction* const action = Entry(ControlName(row).c_str());
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(FromQt(action->text()), row.caption);
  }
  QStringList bar;
  for (const QAction* const action : Window().menuBar()->actions()) bar << action->text();
  EXPECT_EQ(
      bar.join(QLatin1Char('|')),
      QStringLiteral("ﾌｧｲﾙ(&F)|編集(&E)|ﾃﾞｰﾀ(&D)|解析(&A)|断面算定(&A)|荷重・応力図表示(&V)|鋼材ﾃｰﾌﾞﾙ(&K)|"
                     "木材ﾃｰﾌﾞﾙ(&M)|ｳｨﾝﾄﾞｳ(&W)|ﾍﾙﾌﾟ(&H)"));
}

TEST_F(DesktopTest, EveryEntryIsWalkedOnceWithoutAModelAndWithResults) {
  Script().RejectOthers();
  std::set<Command> chosen;
  for (const bool model : {false, true}) {
    if (model) {
      OpenSample(QStringLiteral("鉄骨ラーメン"));
      Choose("mnuAnalysisStatic(0)");
    }
    for (const MenuRow& row : kMenu) {
      QAction* const action = Entry(ControlName(row).c_str());
      if (row.command == Command::None || row.command == Command::Exit || !action->isEnabled()) continue;
      action->trigger();
      chosen.insert(row.command);
      QApplication::processEvents();
      // Both put the model away, even when the dialog is cancelled.
      if (model && (row.command == Command::New || row.command == Command::Open))
        OpenSample(QStringLiteral("鉄骨ラーメン"));
    }
  }
  const std::set<Needs> never = {Needs::TableForm, Needs::UndoStep, Needs::RedoStep, Needs::SteelDesign,
                                 Needs::ConcreteDesign};
  for (const MenuRow& row : kMenu) {
    const bool leaf = row.command != Command::None && row.command != Command::Exit;
    if (leaf && !never.contains(row.needs)) {
      EXPECT_TRUE(chosen.contains(row.command)) << row.caption;
    }
  }
  Choose("mnuFileItem(10)");
  EXPECT_FALSE(Window().isVisible());
}

TEST_F(DesktopTest, ResultEntriesFollowTheFiles) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  EXPECT_FALSE(Entry("mnuAnalysisStatic(1)")->isEnabled());
  EXPECT_FALSE(Entry("mnuDesignS")->isEnabled());
  Choose("mnuAnalysisStatic(0)");
  EXPECT_TRUE(Entry("mnuAnalysisStatic(1)")->isEnabled());
  EXPECT_TRUE(Entry("mnuAnalysisStatic(3)")->isEnabled());
  EXPECT_TRUE(Entry("mnuDesignS")->isEnabled());
  EXPECT_FALSE(Entry("mnuDesignPrnItem(0)")->isEnabled());
}

TEST_F(DesktopTest, TheCloseBoxOfTheFrameHasNoEffect) {
  Window().close();
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(DesktopTest, ADeckGivenByItsPathIsOpened) {
  Window().OpenDeck(ToQt(Sample("格子梁.inp")));
  EXPECT_THAT(Caption(), HasSubstr("格子梁.inp"));
}

TEST_F(DesktopTest, ASecondStartHandsItsDeckToTheRunningProgram) {
  ReplaceBytes(AppPath + "open.txt", Sample("格子梁.inp"));  // what the second start leaves
  EXPECT_TRUE(QTest::qWaitFor([] { return !FileExists(AppPath + "open.txt"); }));
  EXPECT_THAT(Caption(), HasSubstr("格子梁.inp"));
}

TEST_F(DesktopTest, ADroppedDeckIsOpened) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(ToQt(Sample("連続梁.inp")))});
  QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Window(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Window(), &drop);
  QApplication::processEvents();
  EXPECT_THAT(Caption(), HasSubstr("連続梁.inp"));
}

TEST_F(DesktopTest, AnythingElseThanADeckIsNotTakenFromADrop) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QStringLiteral("/etc/passwd"))});
  QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(&Window(), &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(DesktopTest, RecentModelsAreOfferedAndOpened) {
  Window().OpenDeck(ToQt(Sample("格子梁.inp")));
  Window().OpenDeck(ToQt(Sample("連続梁.inp")));
  const auto* const recent = Child<QMenu>(&Window(), "mnuRecent");
  ASSERT_EQ(recent->actions().size(), 2);
  EXPECT_THAT(FromQt(recent->actions().at(0)->text()), HasSubstr("連続梁.inp"));
  recent->actions().at(1)->trigger();
  EXPECT_THAT(Caption(), HasSubstr("格子梁.inp"));
}

TEST_F(DesktopTest, AMaximizedChildLeavesTheCaptionAsItIs) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  const std::string caption = Caption();
  Window().Forms().activeSubWindow()->showMaximized();
  QApplication::processEvents();
  EXPECT_EQ(Caption(), caption);
}

TEST_F(DesktopTest, WindowsComeUpWhereTheyWereLeft) {
  Window().setGeometry(40, 50, 700, 540);  // within the screen
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  const QRect reader(150, 40, 500, 300);
  OpenForm("frmKakuninText")->parentWidget()->setGeometry(reader);
  Choose("mnuFileItem(10)");
  Stop();
  Start();
  EXPECT_EQ(Window().geometry().topLeft(), QPoint(40, 50));
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(1)");
  EXPECT_EQ(OpenForm("frmKakuninText")->parentWidget()->geometry(), reader);
}

TEST_F(DesktopTest, ANewWindowLeavesTheInputMenuInSight) {
  Window().resize(1000, 700);
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuFileItem(9)");  // the preview asks for nearly all of this width
  const QRect menu = OpenForm("frmInputMenu")->parentWidget()->geometry();
  const QRect preview = OpenForm("frmPrnText")->parentWidget()->geometry();
  EXPECT_FALSE(menu.intersects(preview));
  EXPECT_LE(preview.right(), Window().Forms().width());
}

TEST_F(DesktopTest, TheManualNeedsAProgramThatTheFileAssociationsName) {
  const QByteArray path = qgetenv("PATH");
  const std::string programs = Documents() + "programs/", query = programs + "xdg-mime";
  MakeFolder(programs);
  qputenv("PATH", QByteArray::fromStdString(programs));
  EXPECT_FALSE(TheWindows().hasPdfViewer());
  const auto answer = [&](const std::string& words) {
    ReplaceBytes(query, "#!/bin/sh\n[ \"$*\" = \"query default application/pdf\" ] && echo " + words + "\n");
    ::chmod(query.c_str(), 0700);
  };
  answer("");
  EXPECT_FALSE(TheWindows().hasPdfViewer());
  answer("reader.desktop");
  EXPECT_TRUE(TheWindows().hasPdfViewer());
  qputenv("PATH", path);
}

TEST_F(DesktopTest, AProgramThatWasKilledComesUpCleanAndTheSavedDeckIsWhole) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  const std::string deck = ReadBytes(Sample("鉄骨ラーメン.inp"));
  // What a killed program leaves: table files in the work folder, results in the analysis folder.
  ReplaceBytes(WorkPath + "NODE", "1, 2, 3\r\n");
  ReplaceBytes(AnalysisPath + "FT031", "1\r\n");
  Stop();
  ReplaceBytes(WorkPath + "NODE", "1, 2, 3\r\n");
  ReplaceBytes(AnalysisPath + "FT031", "1\r\n");
  Start();
  EXPECT_FALSE(FileExists(WorkPath + "NODE"));
  EXPECT_FALSE(FileExists(AnalysisPath + "FT031"));
  EXPECT_EQ(ReadBytes(Sample("鉄骨ラーメン.inp")), deck);
}

}  // namespace
}  // namespace zorlan::test

// Every window once, with typical content: none is larger than a small screen, and ZORLAN_PICTURES=FOLDER
// keeps a picture of each for a person to look at.
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>

#include "desktop/boxes.h"
#include "desktop/busy.h"
#include "desktop/desktop_test.h"
#include "desktop/figure_view.h"
#include "desktop/kozai_sentaku.h"
#include "desktop/model.h"
#include "desktop/remark.h"
#include "desktop/splash.h"
#include "sections/steel_tables.h"
#include "shell/commands.h"
#include "shell/project_copies.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

class PicturesTest : public DesktopTest {
 protected:
  /// Looks at a window, named `name` in the folder of pictures.
  static void Look(QWidget& window, const char* name) {
    if (QApplication::activeWindow() == nullptr) {  // behind a dialog that has ended
      window.window()->activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(window.window()));
    }
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    EXPECT_LE(window.width(), 1280) << name;
    EXPECT_LE(window.height(), 720) << name;
    const QString folder = qEnvironmentVariable("ZORLAN_PICTURES");
    if (folder.isEmpty()) return;
    const int percent = qRound(window.devicePixelRatioF() * 100);
    EXPECT_TRUE(
        window.grab().save(QStringLiteral("%1/%2-%3.png").arg(folder, QLatin1String(name)).arg(percent)));
  }
  /// Expects a modal window, looks at it and presses a button.
  void LookAtModal(const char* window, const char* picture, const char* button = "cancel") {
    Script().Expect(QString::fromUtf8(window), [picture, button](QWidget& dialog) {
      Look(dialog, picture);
      Click(dialog, button);
    });
  }
  /// Looks at a child window in its frame.
  void LookAtForm(const char* form, const char* picture) { Look(*OpenForm(form)->parentWidget(), picture); }
  /// Types a text into a cell of a table form, and looks at it with the box open.
  void LookAtBox(const char* form, std::pair<int, int> cell, const char* text, const char* picture) {
    auto* const grid = Child<QTableView>(OpenForm(form), "grid");
    grid->setCurrentIndex(grid->model()->index(cell.first - 1, cell.second - 1));
    QInputMethodEvent typed;
    typed.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(grid, &typed);
    Look(*OpenForm(form), picture);
    QTest::keyClick(grid, Qt::Key_Left);
  }
  static void LookAndReject(QWidget& dialog, const char* picture) {
    Look(dialog, picture);
    static_cast<QDialog&>(dialog).reject();
  }
  void SetUp() override { Window().resize(1280, 720); }
};

TEST_F(PicturesTest, TheMainWindowReaderAndPreviewFitASmallScreen) {
  Look(Window(), "main-empty");
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Look(Window(), "main-model");
  Choose("mnuAnalysisStatic(0)");
  Look(Window(), "reader");
  OpenForm("frmKakuninText")->CloseForm();
  Choose("mnuAnalysisStatic(2)");
  Look(Window(), "preview");
  Child<QComboBox>(OpenForm("frmPrnText"), "zoom")->setCurrentText(QStringLiteral("全体表示"));
  Look(Window(), "preview-whole");
  Choose("mnuWindowItem(1)");
  Look(Window(), "tiled");
}

TEST_F(PicturesTest, FiguresFitASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Look(Window(), "main-figure");
  OpenForm("frmInputMenu")->CloseForm();
  Choose("mnuAnalysisStatic(0)");
  OpenForm("frmKakuninText")->CloseForm();
  auto* const figure = qobject_cast<Model*>(OpenForm("Model"));
  qobject_cast<QMdiSubWindow*>(figure->parentWidget())->showMaximized();
  Look(Window(), "figure-model");
  struct Figure {
    const char *control, *picture;
  };
  for (const Figure& shown :
       {Figure{"mnuViewModel", "figure-loads"}, Figure{"mnuViewDiagramDisplacement", "figure-displacement"},
        Figure{"mnuViewDiagramNormal", "figure-axial"}, Figure{"mnuViewDiagramShear", "figure-shear"},
        Figure{"mnuViewDiagramMoment", "figure-moment"}}) {
    Choose(shown.control);
    Look(Window(), shown.picture);
  }
  emit figure->View().clicked(Pick{Pick::What::Element, 6, 7});
  Look(Window(), "figure-picked");
  ReplaceTextFile(
      AnalysisPath + "SIG_S",
      "1.2\r\n0.3\r\n0.1\r\n0.95\r\n0\r\n0\r\n0.6\r\n0\r\n0\r\n0.4\r\n0\r\n0\r\n0.2\r\n0\r\n0\r\n");
  Choose("mnuDesignModelItem(0)");
  qobject_cast<QMdiSubWindow*>(OpenForm("ModelS")->parentWidget())->showMaximized();
  Look(Window(), "figure-steel");
}

TEST_F(PicturesTest, WindowsSideBySideFitASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  for (const char* const entry : {"mnuDataItem(5)", "mnuDataItem(6)", "mnuDataItem(4)"}) Choose(entry);
  Choose("mnuWindowItem(0)");
  Look(Window(), "cascade");
  QTest::keyClick(Child<QTableView>(OpenForm("InpNODE"), "grid"), Qt::Key_R, Qt::ControlModifier);
  Look(Window(), "table-and-figure");
  Window().Forms().BringToFront(OpenForm("Model"));
  for (int i = 0; i < 4; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  Look(Window(), "figure-tool");
}

TEST_F(PicturesTest, DialogsOfTheFiguresFitASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  OpenForm("frmKakuninText")->CloseForm();
  LookAtModal("frmModelOption", "options-model");
  Choose("minViewOption(0)");
  Script().Expect(QStringLiteral("frmAnalysisOption"), [this](QWidget& dialog) {
    Look(dialog, "options-results");
    LookAtModal("fontSize", "font-size");
    auto* const font = Child<QPushButton>(&dialog, "row1field2");
    QTimer::singleShot(0, font, [font] { font->click(); });
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return Script().Done() && QApplication::activeModalWidget() == &dialog; }));
    Click(dialog, "cancel");
  });
  Choose("minViewOption(1)");
  Choose("mnuDesignModelItem(0)");
  LookAtModal("frmDesignOption", "options-design");
  qobject_cast<Model*>(OpenForm("ModelS"))->Use(Tool::Options);
  auto* const figure = qobject_cast<Model*>(OpenForm("Model"));
  LookAtModal("SetLimit1", "range");
  figure->Use(Tool::Range);
  figure->findChild<QAction*>(QStringLiteral("figure-define"))->trigger();
  emit figure->View().clicked(Pick{Pick::What::Element, 6, 7});
  Look(Window(), "definition");
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    Click(dialog, "all2");
    Click(dialog, "all5");
    Click(dialog, "layout5");
    Look(dialog, "pages-choice");
    Click(dialog, "ok");
  });
  Choose("mnuViewPrnAll");
  Child<QComboBox>(OpenForm("frmPrnText"), "zoom")->setCurrentText(QStringLiteral("全体表示"));
  qobject_cast<QMdiSubWindow*>(OpenForm("frmPrnText")->parentWidget())->showMaximized();
  Look(Window(), "preview-figures");
  RemoveFile(AnalysisPath + "FT031");
  Choose("mnuWindowItem(0)");
  Look(Window(), "preview-empty");
}

TEST_F(PicturesTest, DialogsOfTheFileMenuFitASmallScreen) {
  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    auto* const tree = Child<QTreeWidget>(&dialog, "tree");
    for (const QTreeWidgetItem* const item :
         tree->findItems(QStringLiteral("鉄骨ラーメン.inp"), Qt::MatchExactly | Qt::MatchRecursive))
      tree->setCurrentItem(const_cast<QTreeWidgetItem*>(item));
    Look(dialog, "project-open");
    Click(dialog, "ok");
  });
  ProjectName = "例題－１.zor/";
  Choose("mnuFileItem(1)");
  LookAtModal("frmProject", "project-save-as");
  Choose("mnuFileItem(3)");
  LookAtModal("frmProject", "project-delete");
  Choose("mnuFileItem(4)");
  LookAtModal("frmFolder", "folder");
  Choose("mnuProjectItem(0)");
  LookAtModal("ToZOR2", "convert", "close");
  Choose("mnuFileItem(7)");
  LookAtModal("frmPrinterSet", "printer");
  Choose("mnuFileItem(8)");
  NameDialog name;
  name.command = "バックアップ";
  name.folder = DefaultDataPath;
  name.name = "例題－１の写し";
  LookAtModal("frmName", "name");
  TheWindows().nameDialog(name);
}

TEST_F(PicturesTest, OneRowFormsFitASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuDataItem(0)");
  auto* const title = Child<QLineEdit>(OpenForm("InpTITL"), "title");
  LookAtForm("InpTITL", "title");
  title->setText(
      QStringLiteral("二層二スパン鉄骨ラーメンの応力解析・断面算定, 柱脚固定 % @ 第三案の再検討用"));
  LookAtForm("InpTITL", "title-long");
  OpenForm("InpTITL")->Unload();
  Choose("mnuDataItem(2)");
  LookAtForm("InpCONT", "control");
  Child<QComboBox>(OpenForm("InpCONT"), "model")->setCurrentIndex(1);
  Child<QComboBox>(OpenForm("InpCONT"), "loadCases")->setCurrentIndex(19);
  Child<QComboBox>(OpenForm("InpCONT"), "rollers")->setCurrentIndex(1);
  LookAtForm("InpCONT", "control-rollers");
  Child<QComboBox>(OpenForm("InpCONT"), "model")->setCurrentIndex(2);
  LookAtForm("InpCONT", "control-grid");
  OpenForm("InpCONT")->Unload();
  Choose("mnuDataItem(3)");
  LookAtForm("InpUNIT", "unit");
  LookAtModal("AddNum", "add-num");
  TheWindows().addNum("Add");
}

TEST_F(PicturesTest, InputHelpFitsASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuDataItem(3)");
  Choose("mnuRemark");
  Look(Window(), "help-beside");
  for (const char* const form : {"InpNODE", "InpSECT", "InpELOD", "InpTITL"}) {
    OpenInputHelp(Window().Forms(), form);
    LookAtForm("frmREMARK", (std::string("help-") + form).c_str());
  }
}

TEST_F(PicturesTest, SectionTablesFitASmallScreen) {
  for (const auto& [entry, picture] :
       {std::pair("H_Table", "table-h"), std::pair("YAMA_TABLE", "table-yama")}) {
    Choose(entry);
    LookAtForm("frmEditKozaiTable", picture);
  }
  Look(Window(), "table-in-window");
  ReplaceTextFile(SteelTableFolder + "PIPE.CSV", "a\r\nb\r\nc\r\n1,1,1,1,1,1,1\r\n2,x\r\n0\r\n1\r\n");
  Choose("PIPE_Table");
  LookAtForm("frmEditKozaiTable", "table-notices");
  OpenForm("frmEditKozaiTable")->Unload();
  for (const auto& [entry, picture] :
       {std::pair("Kijyun_Table", "table-grades"), std::pair("Danmen_Table", "table-timber")}) {
    Choose(entry);
    LookAtForm("frmEditMokuzaiTable", picture);
  }
  Click(*OpenForm("frmEditMokuzaiTable"), "print");
  Look(Window(), "table-print");
}

TEST_F(PicturesTest, SectionChoiceFitsASmallScreen) {
  LookAtModal("frmKozaiSentaku", "chooser");
  ChooseSteelSection("BOX", "BOX-400x200x9", &Window());
  const std::pair<std::vector<std::string>, const char*> kRows[] = {
      {{"1", "0", "120.5", "23500", "", "60"}, "section-direct"},
      {{"1", "2", "400", "200", "8", "13"}, "section-h"},
      {{"1", "7", "38", "140", "1.2", "5320", "1", "9.6", "0.6", "206", "D．Fir-L 1級"}, "section-timber"},
      {{"1", "11"}, "section-angle"}};
  for (const auto& [cells, picture] : kRows) {
    LookAtModal("frmDanmenInput", picture);
    std::vector<std::string> row = cells;
    TheWindows().sectionEntry(row);
  }
}

TEST_F(PicturesTest, OtherDialogsFitASmallScreen) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  LookAtModal("frmCsvFile", "csv");
  Choose("mnuAnalysisStatic(3)");
  ShowText(kPrintListing, /*preview=*/true);
  LookAtModal("frmPrinterSet2", "printer2");
  Click(*OpenForm("frmPrnText"), "setUp");
  Script().Expect(QStringLiteral("frmVersion"), [](QWidget& dialog) { LookAndReject(dialog, "version"); });
  Choose("mnuHelpItem(1)");
  Script().Expect(QStringLiteral("frmSplash"), [](QWidget& dialog) { LookAndReject(dialog, "splash"); });
  ShowSplash();
  Script().Expect(QStringLiteral("エラーは"), [](QWidget& box) { LookAndReject(box, "message"); });
  Choose("mnuTestNodeCheck");
  Script().Expect(QStringLiteral("保存して"), [](QWidget& box) { LookAndReject(box, "question"); });
  ModelChanged = true;
  Choose("mnuFileItem(10)");
}

TEST_F(PicturesTest, TableFormsFitASmallScreen) {
  const std::pair<const char*, const char*> forms[] = {
      {"mnuDataItem(4)", "InpNODE"},  {"mnuDataItem(5)", "InpELEM"},  {"mnuDataItem(6)", "InpSECT"},
      {"mnuLoad(0)", "InpPLOD"},      {"mnuLoad(1)", "InpELOD"},      {"mnuLoad(2)", "InpCLOD"},
      {"mnuLoad(3)", "InpTLOD"},      {"mnuDataItem(8)", "InpSPRG"},  {"mnuDataItem(9)", "InpSPEC"},
      {"mnuDataItem(10)", "InpRIGD"}, {"mnuDataItem(11)", "InpALFA"}, {"mnuDataItem(12)", "InpDISP"}};
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  for (const auto& [entry, name] : forms) {
    Choose(entry);
    Look(*OpenForm(name), name);
    OpenForm(name)->CloseForm();
  }
  for (const char* const entry : {"mnuDataItem(4)", "mnuDataItem(5)", "mnuDataItem(6)"}) Choose(entry);
  Look(Window(), "tables");
  Choose("mnuWindowItem(1)");
  Look(Window(), "tables-tiled");
  const auto leave = [this] {
    Window().Forms().UnloadAll();
    ModelChanged = false;
  };
  leave();
  OpenSample(QStringLiteral("斜面に載る渡り廊下"));
  Choose("mnuDataItem(4)");
  LookAtBox("InpNODE", {1, 4}, "4", "InpNODE-rollers");
  leave();
  OpenSample(QStringLiteral("格子梁"));
  Choose("mnuLoad(1)");
  LookAtBox("InpELOD", {1, 2}, "-1.25", "InpELOD-grid");
  leave();
  OpenSample(QStringLiteral("木造トラス"));
  Choose("mnuDataItem(6)");
  LookAtBox("InpSECT", {3, 11}, "樹種の長い名前（甲種構造材）２級", "InpSECT-timber");
  LookAtBox("InpSECT", {3, 3}, "-123456.789E-12", "InpSECT-wide");
  Look(Window(), "InpSECT-status");
  leave();
}

}  // namespace
}  // namespace zorlan::test

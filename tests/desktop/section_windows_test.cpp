// The windows of the section tables, the chooser and the section entry, by keys and clicks.
#include <filesystem>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>

#include "desktop/desktop_test.h"
#include "desktop/kozai_sentaku.h"
#include "desktop/section_table_window.h"
#include "desktop/table_view.h"
#include "sections/steel_tables.h"
#include "sections/timber_tables.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class SectionWindowsTest : public DesktopTest {
 protected:
  SectionTableWindow* Open(const char* entry) {
    Choose(entry);
    auto* const steel = OpenForm("frmEditKozaiTable");
    return static_cast<SectionTableWindow*>(steel != nullptr ? steel : OpenForm("frmEditMokuzaiTable"));
  }
  static void Go(SectionTableWindow* form, int row, int column) { form->View().GoTo({1, row, column}); }
  static std::string Cell(SectionTableWindow* form, int row, int column) {
    const auto* const model = form->View().model();
    return FromQt(model->data(model->index(row - 1, column - 1), Qt::DisplayRole).toString());
  }
  /// Types where the focus is: in the grid, and then in the box that it opens.
  static void Keys(SectionTableWindow* form, const QString& text, Qt::Key end = Qt::Key_Return) {
    form->View().setFocus();
    for (const QChar key : text) QTest::keyClicks(form->window()->focusWidget(), key);
    QTest::keyClick(form->window()->focusWidget(), end);
  }
  static std::string Steel(const char* file) { return SteelTableFolder + file; }
  /// A pipe table of a few rows.
  static void WritePipes(std::string_view rows) {
    ReplaceTextFile(Steel("PIPE.CSV"), "○ 表\r\n列\r\n単位\r\n" + std::string(rows));
    ForgetSectionTables();
  }
};

TEST_F(SectionWindowsTest, EachFamilyHasItsSheetAndTheWindowItsTitle) {
  struct Family {
    const char *entry, *title, *first;
  };
  const Family kFamilies[] = {{"H_Table", "Ｈ形鋼 断面性能テーブル", "100"},
                              {"BOX_Table", "□形鋼管 断面性能テーブル", "40"},
                              {"PIPE_Table", "○形鋼管 断面性能テーブル", "21.7"},
                              {"MIZO_TABLE", "溝形鋼 断面性能テーブル", "75"},
                              {"YAMA_TABLE", "山形鋼 断面性能テーブル", "20"}};
  for (const Family& family : kFamilies) {
    SectionTableWindow* const form = Open(family.entry);
    EXPECT_EQ(FromQt(form->windowTitle()), family.title);
    EXPECT_EQ(Cell(form, 1, 1), family.first);
  }
  EXPECT_EQ(Window().Forms().Names().size(), 1U);
  EXPECT_TRUE(OpenForm("frmEditKozaiTable")->CloseForm());
}

TEST_F(SectionWindowsTest, AnAddedSectionIsSavedFoundAndTheFormerFileKept) {
  WritePipes("100,4.5,1,2,3,4\r\n");
  const std::string before = ReadBytes(Steel("PIPE.CSV"));
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 2, 1);
  Keys(form, "200.5", Qt::Key_Tab);
  Keys(form, "6", Qt::Key_Tab);
  Keys(form, "36.7");
  Click(*form, "save");
  EXPECT_EQ(ReadTextFile(Steel("PIPE.CSV")), "○ 表\r\n列\r\n単位\r\n100,4.5,1,2,3,4\r\n200.5,6,36.7,,,\r\n");
  EXPECT_EQ(ReadBytes(Steel("PIPE.CSV_bak")), before);
  EXPECT_FALSE(FileExists(Steel("PIPE.CSV_$$$")));
  const double sizes[] = {200.5, 6};
  ASSERT_TRUE(FindSection("PIPE", sizes));
  EXPECT_EQ(FindSection("PIPE", sizes)->A, 36.7);
  EXPECT_TRUE(form->CloseForm());  // nothing is asked
}

TEST_F(SectionWindowsTest, RowsAreInsertedFromCopiedCellsAndDeletedAndUndone) {
  WritePipes("1,1,1,1,1,1\r\n2,2,2,2,2,2\r\n");
  SectionTableWindow* const form = Open("PIPE_Table");
  QGuiApplication::clipboard()->setText(QStringLiteral("8\t80\r\n9\t90\r\n"));
  Go(form, 2, 1);
  Click(*form, "insertCopied");
  EXPECT_EQ(Cell(form, 2, 1), "8");
  EXPECT_EQ(Cell(form, 3, 2), "90");
  EXPECT_EQ(Cell(form, 4, 1), "2");
  Go(form, 1, 1);
  Choose("mnuEditItem(4)");  // delete the row
  EXPECT_EQ(Cell(form, 1, 1), "8");
  Choose("mnuUndo");
  EXPECT_EQ(Cell(form, 1, 1), "1");
  Choose("mnuUndo");  // the insertion was one step
  EXPECT_EQ(Cell(form, 2, 1), "2");
  EXPECT_EQ(Cell(form, 3, 1), "");
  Choose("mnuRedo");
  EXPECT_EQ(Cell(form, 3, 1), "9");
  form->Unload();
}

TEST_F(SectionWindowsTest, TheClipboardWorksByItsKeys) {
  WritePipes("1,11,1,1,1,1\r\n2,22,2,2,2,2\r\n");
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 1, 1);
  QTest::keyClick(&form->View(), Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(&Window(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), "1\t11");
  EXPECT_EQ(Cell(form, 1, 2), "");
  Go(form, 3, 1);
  QTest::keyClick(&Window(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(form, 3, 2), "11");
  form->Unload();
}

TEST_F(SectionWindowsTest, LeavingWithChangesAsksAndSavesOrDropsOrStays) {
  WritePipes("1,1,1,1,1,1\r\n");
  const std::string before = ReadBytes(Steel("PIPE.CSV"));
  SectionTableWindow* form = Open("PIPE_Table");
  Go(form, 2, 1);
  Keys(form, "5");
  Go(form, 2, 2);
  Keys(form, "5");
  const QString question = QStringLiteral("データが変更されています\n保存しますか");
  Script().ExpectBox(question, QStringLiteral("キャンセル"));
  EXPECT_FALSE(form->CloseForm());
  Script().ExpectBox(question, QStringLiteral("いいえ"));
  EXPECT_TRUE(form->CloseForm());
  EXPECT_EQ(ReadBytes(Steel("PIPE.CSV")), before);
  QApplication::processEvents();
  form = Open("PIPE_Table");
  Go(form, 1, 1);
  Keys(form, "9");
  Script().ExpectBox(question, QStringLiteral("はい"));
  EXPECT_TRUE(form->CloseForm());
  EXPECT_THAT(ReadTextFile(Steel("PIPE.CSV")), HasSubstr("\r\n9,1,1,1,1,1\r\n"));
}

TEST_F(SectionWindowsTest, CancelAsksBeforeItDropsChanges) {
  WritePipes("1,1,1,1,1,1\r\n");
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 1, 1);
  Keys(form, "9");
  const QString question = QStringLiteral("データが変更されています\n破棄されますが、良いですか");
  Script().ExpectBox(question, QStringLiteral("いいえ"));
  Click(*form, "cancel");
  EXPECT_EQ(OpenForm("frmEditKozaiTable"), form);
  EXPECT_EQ(Cell(form, 1, 1), "9");
  Script().ExpectBox(question, QStringLiteral("はい"));
  Click(*form, "cancel");
  EXPECT_EQ(OpenForm("frmEditKozaiTable"), nullptr);
  EXPECT_THAT(ReadTextFile(Steel("PIPE.CSV")), HasSubstr("\r\n1,1,1,1,1,1\r\n"));
}

TEST_F(SectionWindowsTest, ABadRowIsToldWithItsCellAndNothingIsSaved) {
  WritePipes("1,1,1,1,1,1\r\n");
  const std::string before = ReadBytes(Steel("PIPE.CSV"));
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 4, 3);
  Keys(form, "5");
  Script().ExpectBox(QStringLiteral("Ｄは省略できません！！！"), QStringLiteral("OK"));
  Click(*form, "save");
  EXPECT_EQ(form->View().Current(), (CellPlace{1, 4, 1}));
  EXPECT_EQ(ReadBytes(Steel("PIPE.CSV")), before);
  EXPECT_FALSE(FileExists(Steel("PIPE.CSV_bak")));
  form->Unload();
}

TEST_F(SectionWindowsTest, AFailedSaveIsToldAndTheChangesStay) {
  WritePipes("1,1,1,1,1,1\r\n");
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 1, 1);
  Keys(form, "9");
  MakeFolder(Steel("PIPE.CSV_$$$"));  // the temporary file can't be written
  Script().ExpectBox(QStringLiteral("PIPE.CSV_$$$"), QStringLiteral("OK"));
  Click(*form, "save");
  EXPECT_EQ(Cell(form, 1, 1), "9");
  EXPECT_THAT(ReadTextFile(Steel("PIPE.CSV")), HasSubstr("\r\n1,1,1,1,1,1\r\n"));
  Script().ExpectBox(QStringLiteral("保存しますか"), QStringLiteral("いいえ"));
  EXPECT_TRUE(form->CloseForm());
}

TEST_F(SectionWindowsTest, AForeignFileAndAMissingOneAreTold) {
  ReplaceBytes(Steel("PIPE.CSV"), "a\r\nb\r\nc\r\nこれは表ではない\r\n");
  ForgetSectionTables();
  Script().ExpectBox(QStringLiteral("PIPE.CSV の 1 行は"), QStringLiteral("OK"));
  SectionTableWindow* form = Open("PIPE_Table");
  EXPECT_THAT(FromQt(Child<QLabel>(form, "notice")->text()),
              StartsWith("1 行が、先頭の値が 0 の行から後ろにあります"));
  EXPECT_TRUE(form->CloseForm());
  QApplication::processEvents();
  RemoveFile(Steel("PIPE.CSV"));
  ForgetSectionTables();
  form = Open("PIPE_Table");
  EXPECT_EQ(FromQt(Child<QLabel>(form, "notice")->text()), "ファイルがありません。保存すると作られます");
  Go(form, 1, 1);
  Keys(form, "5");
  Go(form, 1, 2);
  Keys(form, "1");
  Click(*form, "save");
  EXPECT_THAT(ReadTextFile(Steel("PIPE.CSV")), StartsWith("○形鋼管 断面性能テーブル\r\nＤ,t,断面積"));
  EXPECT_TRUE(form->CloseForm());
}

TEST_F(SectionWindowsTest, ATableThatCannotBeReadIsReportedAndNotOpened) {
  WritePipes("1,1,1,1,1,1\r\n");
  RemoveFile(Steel("PIPE.CSV"));
  std::filesystem::create_symlink("/proc/self/mem", NativePath(Steel("PIPE.CSV")));  // there, and unreadable
  ForgetSectionTables();
  Script().ExpectBox(QStringLiteral("鋼材テーブルを読み込めません"), QStringLiteral("OK"));
  Script().ExpectBox(QStringLiteral("関数名： frmEditKozaiTable"), QStringLiteral("OK"));
  Choose("PIPE_Table");
  EXPECT_EQ(OpenForm("frmEditKozaiTable"), nullptr);
}

TEST_F(SectionWindowsTest, ThePrintedSheetIsAListingInThePreview) {
  WritePipes("101.6,4.2,12.85,153,3.45,30.1\r\n");
  Click(*Open("PIPE_Table"), "print");
  EXPECT_NE(OpenForm("frmPrnText"), nullptr);
  EXPECT_THAT(ReadTextFile(WorkPath + "TmpFile"),
              HasSubstr("\r\n    1 101.6   4.2  12.85     153    3.45    30.1\r\n"));
}

TEST_F(SectionWindowsTest, TimberHasTwoTabsAndNamesByInputMethod) {
  SectionTableWindow* const form = Open("Kijyun_Table");
  EXPECT_EQ(FromQt(form->windowTitle()), "木造（トラス） 断面算定用テーブル");
  EXPECT_EQ(Cell(form, 2, 1), "D．Fir-L 1級");
  const int last = static_cast<int>(TimberGrades().size());
  Go(form, last + 1, 1);
  QInputMethodEvent name;
  name.setCommitString(QStringLiteral("すぎ １級"));
  QApplication::sendEvent(&form->View(), &name);
  QTest::keyClick(form->window()->focusWidget(), Qt::Key_Tab);
  Go(form, last + 1, 3);
  Keys(form, "17.5");
  QTest::keyClick(&form->View(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Cell(form, 1, 1), "204");
  EXPECT_EQ(Child<QTabBar>(form, "tabs")->currentIndex(), 1);
  Click(*form, "save");  // the sheet behind as well
  ASSERT_NE(FindTimberGrade("すぎ １級"), nullptr);
  EXPECT_EQ(FindTimberGrade("すぎ １級")->Fc, 17.5);
  EXPECT_TRUE(FileExists(TimberTableFolder + "材種.CSV_bak"));
  EXPECT_FALSE(FileExists(TimberTableFolder + "断面.CSV_bak"));
  EXPECT_TRUE(form->CloseForm());
}

TEST_F(SectionWindowsTest, AnotherModelLeavesTheTableOpenAndTheEndAsks) {
  WritePipes("1,1,1,1,1,1\r\n");
  SectionTableWindow* const form = Open("PIPE_Table");
  Go(form, 1, 1);
  Keys(form, "9");
  Choose("mnuFileItem(0)");
  EXPECT_EQ(OpenForm("frmEditKozaiTable"), form);
  Script().ExpectBox(QStringLiteral("保存しますか"), QStringLiteral("キャンセル"));
  Choose("mnuFileItem(10)");
  EXPECT_TRUE(Window().isVisible());
  Script().ExpectBox(QStringLiteral("保存しますか"), QStringLiteral("いいえ"));
  Choose("mnuFileItem(10)");
  EXPECT_FALSE(Window().isVisible());
}

TEST_F(SectionWindowsTest, TheChooserAnswersTheNameOfTheSection) {
  Script().Expect(QStringLiteral("frmKozaiSentaku"), [](QWidget& dialog) {
    EXPECT_EQ(FromQt(dialog.windowTitle()), "鋼材断面の選択　Ｈ形鋼");
    auto* const table = Child<QTableView>(&dialog, "choices");
    EXPECT_FALSE(Child<QPushButton>(&dialog, "ok")->isEnabled());
    QTest::keyClicks(Child<QLineEdit>(&dialog, "search"), "400x200x8");
    EXPECT_EQ(table->model()->rowCount(), 1);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Down);
    QTest::keyClick(table, Qt::Key_Return);
  });
  EXPECT_EQ(ChooseSteelSection("H", "", &Window()), "H-400x200x8x13");
  Script().Expect(QStringLiteral("frmKozaiSentaku"),
                  [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_EQ(ChooseSteelSection("YBOX", "", &Window()), "");
}

TEST_F(SectionWindowsTest, ADoubleClickChooses) {
  Script().Expect(QStringLiteral("frmKozaiSentaku"), [](QWidget& dialog) {
    auto* const table = Child<QTableView>(&dialog, "choices");
    const QPoint second = table->visualRect(table->model()->index(1, 1)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, second);
  });
  EXPECT_EQ(ChooseSteelSection("PIPE", "", &Window()), "PIPE-27.2x2");
}

TEST_F(SectionWindowsTest, TheSectionEntryFillsTheRowFromItsList) {
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    auto* const kinds = Child<QListWidget>(&dialog, "kinds");
    EXPECT_TRUE(kinds->hasFocus());
    EXPECT_EQ(kinds->count(), 13);
    EXPECT_EQ(kinds->currentRow(), 1);
    QTest::keyClick(kinds, Qt::Key_Down);  // TYPE 2
    QTest::keyClicks(Child<QLineEdit>(&dialog, "search"), "400x200x8x13");
    auto* const table = Child<QTableView>(&dialog, "choices");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(FromQt(Child<QLineEdit>(&dialog, "P4")->text()), "13");
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "name")->text()), "H-400x200x8x13");
    QTest::keyClick(table, Qt::Key_Return);
  });
  std::vector<std::string> cells = {"1", "1", "30", "60", "", "", "1.0", "2100", "810", "", ""};
  EXPECT_TRUE(TheWindows().sectionEntry(cells));
  EXPECT_EQ(cells,
            (std::vector<std::string>{"1", "2", "400", "200", "8", "13", "1.0", "2100", "810", "", ""}));
}

TEST_F(SectionWindowsTest, TheSectionEntryTakesTimberWithItsSpeciesAndDropsTheNameOfTypedSizes) {
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    auto* const kinds = Child<QListWidget>(&dialog, "kinds");
    kinds->setCurrentRow(7);
    auto* const table = Child<QTableView>(&dialog, "choices");
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Down);
    QTest::keyClick(table, Qt::Key_Down);
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "timberName")->text()), "206");
    auto* const species = Child<QComboBox>(&dialog, "species");
    species->setFocus();
    QTest::keyClick(species, Qt::Key_Down);
    QTest::keyClick(species, Qt::Key_Return);
  });
  std::vector<std::string> cells = {"5"};
  EXPECT_TRUE(TheWindows().sectionEntry(cells));
  EXPECT_EQ(cells,
            (std::vector<std::string>{"5", "7", "38", "140", "", "", "", "", "", "206", "D．Fir-L 特級"}));
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    Type(Child<QLineEdit>(&dialog, "P2"), QStringLiteral("150"));
    EXPECT_EQ(FromQt(Child<QLabel>(&dialog, "timberName")->text()), "");
    Click(dialog, "ok");
  });
  EXPECT_TRUE(TheWindows().sectionEntry(cells));
  EXPECT_EQ(cells[3], "150");
  EXPECT_EQ(cells[9], "");
}

TEST_F(SectionWindowsTest, ACancelledSectionEntryLeavesTheRow) {
  Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
    Child<QListWidget>(&dialog, "kinds")->setCurrentRow(0);
    Type(Child<QLineEdit>(&dialog, "P1"), QStringLiteral("7"));
    EXPECT_FALSE(Child<QLineEdit>(&dialog, "P3")->isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  std::vector<std::string> cells = {"1", "2", "400", "200", "8", "13"};
  const std::vector<std::string> before = cells;
  EXPECT_FALSE(TheWindows().sectionEntry(cells));
  EXPECT_EQ(cells, before);
}

}  // namespace
}  // namespace zorlan::test

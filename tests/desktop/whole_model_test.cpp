// A two-storey frame typed from nothing: every table by keys, saved, checked, analysed. The results are those
// of the batch program for the same deck.
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "batch/batch_program.h"
#include "desktop/table_form_test.h"
#include "shell/projects.h"

namespace zorlan::test {
namespace {

// One bay of 6 m, two storeys of 3.5 m, fixed at the foot; box columns, H beams with rigid ends. Dead load on
// the beams, an earthquake from the left, and warmth with an uneven roof load.
constexpr std::string_view kDeck =
    "@TITL   %タイトル\n二層ラーメン\n\n"
    "@CONT   %コントロールデータ\n1,3,0,0\n\n"
    "@UNIT   %単位\n1,0,9.80665,0\n\n"
    "@NODE   %節点データ\n"
    "1,0,0,1,1,1\n2,6,0,1,1,1\n3,0,3.5,0,0,0\n4,6,3.5,0,0,0\n5,0,7,0,0,0\n6,6,7,0,0,0\n\n"
    "@ELEM   %要素データ\n"
    "1,1,3,0,0,1\n2,2,4,0,0,1\n3,3,5,0,0,1\n4,4,6,0,0,1\n5,3,4,0,0,2,1\n6,5,6,0,0,2,1\n\n"
    "@SECT   %断面性能データ\n1,3,300,300,12,12,1,205000,79000\n2,2,400,200,8,13,1,205000,79000\n\n"
    "@PLOD   %節点荷重データ\n2,3,40\n2,5,65.5\n\n"
    "@ELOD   %部材荷重データ\n1,5,-25,0,0,1.0,1\n1,6,-18.5,0,0,1.0,1\n\n"
    "@CLOD   %ＣＭＱ荷重データ\n3,6,30,20,-10,25,15\n\n"
    "@TLOD   %温度荷重データ\n3,5,20,25,5,0.000012,20\n\n"
    "@RIGD   %剛域データ\n1,0.025,0.03\n\n";

class WholeModelTest : public TableFormTest {
 protected:
  void TypeControl() {
    Choose("mnuDataItem(0)");
    QInputMethodEvent title;
    title.setCommitString(QStringLiteral("二層ラーメン"));
    QApplication::sendEvent(Focus(), &title);
    Press(Qt::Key_Return);
    Choose("mnuDataItem(2)");
    Form* const control = OpenForm("InpCONT");
    Child<QComboBox>(control, "model")->setFocus();
    Write("1");
    Child<QComboBox>(control, "loadCases")->setFocus();
    Write("3");
    Child<QComboBox>(control, "list")->setFocus();
    Write("0");
    EXPECT_TRUE(control->CloseForm());
    Choose("mnuDataItem(3)");
    Form* const units = OpenForm("InpUNIT");
    Child<QRadioButton>(units, "output0")->setFocus();
    Press(Qt::Key_Space);
    EXPECT_TRUE(units->CloseForm());
  }
  /// Types the rows of a table from its first cell on, and closes it by Esc.
  void TypeTable(const char* entry, const char* form, std::initializer_list<const char*> rows) {
    OpenTable(entry, form);
    TypeRows(rows);
    CloseByKey(form);
  }
  /// The column's section is typed, the beam's is chosen from the table of H sections.
  void TypeSections() {
    OpenTable("mnuDataItem(6)", "InpSECT");
    TypeRow("1 3 300 300 12 12 1 205000 79000");
    Write("2");
    Press(Qt::Key_Tab);
    Script().Expect(QStringLiteral("frmDanmenInput"), [](QWidget& dialog) {
      for (int type = 0; type < 2; ++type)
        QTest::keyClick(Child<QListWidget>(&dialog, "kinds"), Qt::Key_Down);
      QTest::keyClicks(Child<QLineEdit>(&dialog, "search"), "400x200x8x13");
      auto* const choices = Child<QTableView>(&dialog, "choices");
      choices->setFocus();
      QTest::keyClick(choices, Qt::Key_Down);
      QTest::keyClick(choices, Qt::Key_Return);
    });
    Press(Qt::Key_F4);
    for (int column = 2; column < 7; ++column) Press(Qt::Key_Right);
    TypeRow("1 205000 79000");
    CloseByKey("InpSECT");
  }
  void TypeRows(std::initializer_list<const char*> rows) {
    for (const char* const row : rows) TypeRow(row);
  }
  void CloseByKey(const char* form) {
    Press(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(OpenForm(form), nullptr) << form;
  }
};

TEST_F(WholeModelTest, ATwoStoreyFrameIsTypedSavedCheckedAndAnalysed) {
  Choose("mnuFileItem(0)");
  TypeControl();
  TypeTable("mnuDataItem(4)", "InpNODE",
            {"1 0 0 1 1 1", "2 6 0 1 1 1", "3 0 3.5 0 0 0", "4 6 3.5 0 0 0", "5 0 7 0 0 0", "6 6 7 0 0 0"});
  TypeTable("mnuDataItem(5)", "InpELEM",
            {"1 1 3 0 0 1", "2 2 4 0 0 1", "3 3 5 0 0 1", "4 4 6 0 0 1", "5 3 4 0 0 2 1", "6 5 6 0 0 2 1"});
  TypeSections();
  TypeTable("mnuDataItem(10)", "InpRIGD", {"1 0.025 0.03"});
  OpenTable("mnuLoad(0)", "InpPLOD");
  Press(Qt::Key_PageDown, Qt::ControlModifier);
  TypeRows({"3 40", "5 65.5"});
  CloseByKey("InpPLOD");
  TypeTable("mnuLoad(1)", "InpELOD", {"5 -25 0 0 _ 1", "6 -18.5 0 0 _ 1"});
  OpenTable("mnuLoad(2)", "InpCLOD");
  for (int page = 1; page < 3; ++page) Press(Qt::Key_PageDown, Qt::ControlModifier);
  TypeRows({"6 30 20 -10 25 15"});
  CloseByKey("InpCLOD");
  OpenTable("mnuLoad(3)", "InpTLOD");
  for (int page = 1; page < 3; ++page) Press(Qt::Key_PageDown, Qt::ControlModifier);
  TypeRows({"5 20 25 5 0.000012 20"});
  CloseByKey("InpTLOD");

  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "project")->setText(QStringLiteral("例題－１"));
    QTest::keyClicks(Child<QLineEdit>(&dialog, "model"), QStringLiteral("frame"));
    Click(dialog, "ok");
  });
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(ReadTextFile(Sample("frame.inp")), CrLf(kDeck));

  Script().ExpectBox(QStringLiteral("エラーはありませんでした。"), QStringLiteral("OK"));
  Press(Qt::Key_F9);
  Press(Qt::Key_F5);
  ASSERT_TRUE(Results.forces);

  const BatchProgram batch;
  batch.File("frame.inp", ReadBytes(Sample("frame.inp")));
  ASSERT_EQ(batch.Run({"analyze", "frame.inp"}).exitCode, 0);
  for (const char* const file :
       {"frame.ANA/FT021", "frame.ANA/FT022", "frame.ANA/FT022A", "frame.ANA/FT031", "frame.out"})
    EXPECT_TRUE(ReadBytes(Sample(file)) == batch.Bytes(file)) << file;
  EXPECT_THAT(ReadTextFile(Sample("frame.out")), testing::HasSubstr("二層ラーメン"));
}

}  // namespace
}  // namespace zorlan::test

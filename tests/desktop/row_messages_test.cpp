// Every message of the row checks, provoked by keys: a row is typed, the form is asked to close and stays,
// the message shown, the cursor on the cell at fault.
#include "desktop/table_form_test.h"

namespace zorlan::test {
namespace {

struct TypedRow {
  const char* control;  // the model's control row
  const char* entry;
  const char* form;
  const char* row;  // cells separated by blanks, "_" for a blank one
  const char* message;
  int column;
};

constexpr const char* kFrame = "1,3,0,0";
constexpr const char* kRollers = "1,3,0,1";
constexpr const char* kGrid = "3,3,0,0";

const TypedRow kRows[] = {
    {kFrame, "mnuDataItem(4)", "InpNODE", "0 1", "節点番号が入力範囲外です", 1},
    {kFrame, "mnuDataItem(4)", "InpNODE", "100000", "節点番号が入力範囲外です", 1},
    {kGrid, "mnuDataItem(4)", "InpNODE", "1 0 0 0 3", "０：自由　１：拘束　２：バネ支支持　のみ入力可能です",
     5},
    {kRollers, "mnuDataItem(4)", "InpNODE", "1 0 0 3",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 4},
    {kRollers, "mnuDataItem(4)", "InpNODE", "1 0 0 4 4 5 30",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 6},
    {kFrame, "mnuDataItem(4)", "InpNODE", "1 0 0 4 4", "０：自由　１：拘束　２：バネ支持  のみ入力可能です",
     4},
    {kRollers, "mnuDataItem(4)", "InpNODE", "1 0 0 4 1 0 -30",
     "傾斜ﾛｰﾗ支持の場合は、(U=4, V=4, θ=0) または (U=4, V=4, θ=1) を指定してください", 5},
    {kFrame, "mnuDataItem(5)", "InpELEM", "0", "要素番号が入力範囲外です", 1},
    {kFrame, "mnuDataItem(5)", "InpELEM", "1 1 2 0 2", "節点条件は、０：剛　１：ピン　のみ入力可能です", 5},
    {kFrame, "mnuDataItem(6)", "InpSECT", "0 1", "断面番号が入力範囲外です", 1},
    {kFrame, "mnuDataItem(6)", "InpSECT", "1 13", "鋼材のﾀｲﾌﾟ番号は、０～１２のみ入力可能です", 2},
    {kFrame, "mnuLoad(0)", "InpPLOD", "0 1", "節点番号が入力範囲外です", 1},
    {kFrame, "mnuLoad(1)", "InpELOD", "1 2.5 19", "荷重タイプが入力範囲外です", 3},
    {kGrid, "mnuLoad(1)", "InpELOD", "1 2.5 0 0 1 1", "平面格子解析の場合、ＭＧ＝０（部材座標系）のみ", 6},
    {kFrame, "mnuLoad(1)", "InpELOD", "1 2.5 10 0 1 2", "ＭＧが入力範囲外です", 6},
    {kFrame, "mnuLoad(2)", "InpCLOD", "1 0 0 0 0 0 2", "ＭＧが入力範囲外です", 7},
    {kFrame, "mnuLoad(3)", "InpTLOD", "1 0 0 0 0 0 2", "Ｊが入力範囲外です", 7},
    {kFrame, "mnuDataItem(8)", "InpSPRG", "0 5", "節点番号が入力範囲外です", 1},
    {kFrame, "mnuDataItem(9)", "InpSPEC", "1 _ 5", "荷重ケースは省略できません", 2},
    {kFrame, "mnuDataItem(9)", "InpSPEC", "1 4 5", "荷重ケースが入力範囲外です", 2},
    {kFrame, "mnuDataItem(10)", "InpRIGD", "0 .1", "剛域タイプ番号が入力範囲外です", 1},
    {kFrame, "mnuDataItem(10)", "InpRIGD", "1 1 0", "λｉが入力範囲外です", 2},
    {kFrame, "mnuDataItem(10)", "InpRIGD", "1 0 1", "λｊが入力範囲外です", 3},
    {kFrame, "mnuDataItem(10)", "InpRIGD", "1 .5 .5", "λｉ＋λｊ＜１", 3},
    {kFrame, "mnuDataItem(11)", "InpALFA", "1 _ 2", "Ｘ２は省略できません", 2},
    {kFrame, "mnuDataItem(11)", "InpALFA", "1 2", "倍率αは省略できません", 3},
    {"2,3,0,0", "mnuDataItem(12)", "InpDISP", "0", "節点番号が入力範囲外です", 1},
};

/// These are met in a row above one with a key.
const TypedRow kKeylessRows[] = {
    {kFrame, "mnuDataItem(4)", "InpNODE", "_ 1", "節点番号は省略できません", 1},
    {kFrame, "mnuDataItem(5)", "InpELEM", "_ 1", "要素番号は省略できません", 1},
    {kFrame, "mnuDataItem(6)", "InpSECT", "_ 1", "断面番号は省略できません", 1},
    {kFrame, "mnuDataItem(10)", "InpRIGD", "_ 0", "剛域タイプ番号は省略できません", 1},
    {kFrame, "mnuDataItem(11)", "InpALFA", "_ 6 2", "Ｘ１は省略できません", 1},
};

class RowMessagesTest : public TableFormTest {
 protected:
  void ExpectRefusal(const TypedRow& typed, bool above) {
    SCOPED_TRACE(std::string(typed.form) + " " + typed.row);
    OpenModel(typed.control);
    OpenTable(typed.entry, typed.form);
    TypeRow(typed.row);
    if (above) TypeRow("1 0 1");
    Script().ExpectBox(QString::fromUtf8(typed.message) + QStringLiteral("！！！"), QStringLiteral("OK"));
    Table().CloseForm();
    ASSERT_NE(OpenForm(typed.form), nullptr);
    EXPECT_EQ(FromQt(Script().Seen().back()),
              std::string(Table().Editor().Form().caption) + "|" + typed.message + "！！！");
    EXPECT_EQ(At(), (CellPlace{1, 1, typed.column}));
    EXPECT_EQ(TableFile(std::string(typed.form).substr(3)), "(none)");
    Table().Unload();
  }
};

TEST_F(RowMessagesTest, ABadRowIsRefusedWithItsMessage) {
  for (const TypedRow& typed : kRows) ExpectRefusal(typed, /*above=*/false);
}

TEST_F(RowMessagesTest, ARowWithoutItsNumberIsRefused) {
  for (const TypedRow& typed : kKeylessRows) ExpectRefusal(typed, /*above=*/true);
}

TEST_F(RowMessagesTest, AWeakBoxIsAskedAbout) {
  OpenModel(kFrame);
  OpenTable("mnuDataItem(6)", "InpSECT");
  TypeRow("1 6 200 100 6 6 1 2100 810");
  Script().ExpectBox(
      QStringLiteral(
          "1行目 □-200x100x6x6\n は弱軸指定のため、X,Yの断面性能が入替わり、強軸になります\n良いですか？"),
      QStringLiteral("いいえ"));
  Table().CloseForm();
  ASSERT_NE(OpenForm("InpSECT"), nullptr);
  Script().ExpectBox(QStringLiteral(" は弱軸指定のため、X,Yの断面性能が入替わり、強軸になります"),
                     QStringLiteral("はい"));
  Table().CloseForm();
  EXPECT_EQ(TableFile("SECT"), "1,6,200,100,6,6,1,2100,810\r\n");
}

}  // namespace
}  // namespace zorlan::test

// Every message of the row check, provoked by one row, and where the cursor goes.
#include "forms/form_test.h"

namespace zorlan::test {
namespace {

struct RowCase {
  const char* name;
  const char* form;
  FormSetting setting;
  const char* row;      // cells separated by tab
  const char* message;  // empty: the row passes
  int column = 0;
};

const RowCase kRows[] = {
    {"key blank", "InpNODE", kFrame, "\t0\t0", "節点番号は省略できません", 1},
    {"key 0", "InpNODE", kFrame, "0\t0\t0", "節点番号が入力範囲外です", 1},
    {"key 100000", "InpNODE", kFrame, "100000", "節点番号が入力範囲外です", 1},
    {"key 1", "InpNODE", kFrame, "1", ""},
    {"key 99999", "InpNODE", kFrame, "99999", ""},
    {"element without number", "InpELEM", kFrame, "\t1\t2", "要素番号は省略できません", 1},
    {"element 0", "InpELEM", kFrame, "0\t1\t2", "要素番号が入力範囲外です", 1},
    {"section without number", "InpSECT", kFrame, "\t1", "断面番号は省略できません", 1},
    {"section 100000", "InpSECT", kFrame, "100000\t1", "断面番号が入力範囲外です", 1},
    {"zone without number", "InpRIGD", kFrame, "\t0.1", "剛域タイプ番号は省略できません", 1},
    {"zone 0", "InpRIGD", kFrame, "0\t0.1", "剛域タイプ番号が入力範囲外です", 1},
    {"load on no node", "InpPLOD", kFrame, "\t1", "節点番号は省略できません", 1},
    {"load on no element", "InpCLOD", kFrame, "\t1", "要素番号は省略できません", 1},
    {"spring on no node", "InpSPRG", kFrame, "\t1", "節点番号は省略できません", 1},
    {"group node 0", "InpDISP", kFrame, "0", "節点番号が入力範囲外です", 1},

    {"grid: W 3", "InpNODE", kGrid, "1\t0\t0\t3\t0\t0",
     "０：自由　１：拘束　２：バネ支支持　のみ入力可能です", 4},
    {"grid: θx 4", "InpNODE", kGrid, "1\t0\t0\t0\t4\t0",
     "０：自由　１：拘束　２：バネ支支持　のみ入力可能です", 5},
    {"grid: θy 3", "InpNODE", kGrid, "1\t0\t0\t0\t0\t3",
     "０：自由　１：拘束　２：バネ支支持　のみ入力可能です", 6},
    {"grid: 0, 1, 2", "InpNODE", kGrid, "1\t0\t0\t0\t1\t2", ""},
    {"rollers: U 3", "InpNODE", kFrameWithRollers, "1\t0\t0\t3\t0\t0",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 4},
    {"rollers: V 5", "InpNODE", kFrameWithRollers, "1\t0\t0\t0\t5\t0",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 5},
    {"rollers: θ 5, angle 30", "InpNODE", kFrameWithRollers, "1\t0\t0\t4\t4\t5\t30",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 6},
    {"rollers: θ 4", "InpNODE", kFrameWithRollers, "1\t0\t0\t0\t0\t4", ""},
    {"no rollers: U 4", "InpNODE", kFrame, "1\t0\t0\t4\t4\t0",
     "０：自由　１：拘束　２：バネ支持  のみ入力可能です", 4},
    {"no rollers: V 3", "InpNODE", kFrame, "1\t0\t0\t0\t3\t0",
     "０：自由　１：拘束　２：バネ支持  のみ入力可能です", 5},
    {"no rollers: θ 3", "InpNODE", kFrame, "1\t0\t0\t0\t0\t3",
     "０：自由　１：拘束　２：バネ支持  のみ入力可能です", 6},
    {"angle: U not 4", "InpNODE", kFrameWithRollers, "1\t0\t0\t1\t4\t0\t30",
     "傾斜ﾛｰﾗ支持の場合は、(U=4, V=4, θ=0) または (U=4, V=4, θ=1) を指定してください", 4},
    {"angle: V not 4", "InpNODE", kFrameWithRollers, "1\t0\t0\t4\t1\t0\t30",
     "傾斜ﾛｰﾗ支持の場合は、(U=4, V=4, θ=0) または (U=4, V=4, θ=1) を指定してください", 5},
    {"angle: θ 2", "InpNODE", kFrameWithRollers, "1\t0\t0\t4\t4\t2\t30",
     "傾斜ﾛｰﾗ支持の場合は、(U=4, V=4, θ=0) または (U=4, V=4, θ=1) を指定してください", 6},
    {"angle: 4, 4, 1", "InpNODE", kFrameWithRollers, "1\t0\t0\t4\t4\t1\t30", ""},
    {"rollers: U no roller, θ 5, angle 30", "InpNODE", kFrameWithRollers, "1\t0\t0\t1\t4\t5\t30",
     "０：自由　１：拘束　２：バネ支持  ４．傾斜ﾛｰﾗ支持　のみ入力可能です", 6},
    {"angle 0 asks for no codes", "InpNODE", kFrameWithRollers, "1\t0\t0\t1\t1\t1\t0", ""},

    {"end I 2", "InpELEM", kFrame, "1\t1\t2\t2\t0\t1", "節点条件は、０：剛　１：ピン　のみ入力可能です", 4},
    {"end J 2", "InpELEM", kFrame, "1\t1\t2\t0\t2\t1", "節点条件は、０：剛　１：ピン　のみ入力可能です", 5},
    {"pins", "InpELEM", kFrame, "1\t1\t2\t1\t1\t1\t0", ""},

    {"TYPE 13", "InpSECT", kFrame, "1\t13", "鋼材のﾀｲﾌﾟ番号は、０～１２のみ入力可能です", 2},
    {"TYPE 12", "InpSECT", kFrame, "1\t12", ""},

    {"load TYPE 19", "InpELOD", kFrame, "1\t2\t19", "荷重タイプが入力範囲外です", 3},
    {"load TYPE 18", "InpELOD", kFrame, "1\t2\t18\t0\t1\t1", ""},
    {"grid: MG 1", "InpELOD", kGrid, "1\t2\t0\t0\t1\t1", "平面格子解析の場合、ＭＧ＝０（部材座標系）のみ", 6},
    {"grid: MG 0", "InpELOD", kGrid, "1\t2\t0\t0\t1\t0", ""},
    {"TYPE 9: MG 3", "InpELOD", kFrame, "1\t2\t9\t0\t1\t3", "ＭＧが入力範囲外です", 6},
    {"TYPE 9: MG 2", "InpELOD", kFrame, "1\t2\t9\t0\t1\t2", ""},
    {"TYPE 10: MG 2", "InpELOD", kFrame, "1\t2\t10\t0\t1\t2", "ＭＧが入力範囲外です", 6},
    {"TYPE 15: MG 2", "InpELOD", kFrame, "1\t2\t15\t0\t1\t2", "ＭＧが入力範囲外です", 6},
    {"TYPE 16: MG 2", "InpELOD", kFrame, "1\t2\t16\t0\t1\t2", ""},
    {"TYPE 17: MG 2", "InpELOD", kFrame, "1\t2\t17\t0\t1\t2", ""},
    {"TYPE 18: MG 2", "InpELOD", kFrame, "1\t2\t18\t0\t1\t2", "ＭＧが入力範囲外です", 6},
    {"CMQ: MG 2", "InpCLOD", kFrame, "1\t0\t0\t0\t0\t0\t2", "ＭＧが入力範囲外です", 7},
    {"CMQ: MG 1", "InpCLOD", kFrame, "1\t0\t0\t0\t0\t0\t1", ""},
    {"temperature: J 2", "InpTLOD", kFrame, "1\t0\t0\t0\t0\t0\t2", "Ｊが入力範囲外です", 7},
    {"temperature: J 1", "InpTLOD", kFrame, "1\t0\t0\t0\t0\t0\t1", ""},

    {"λi 1", "InpRIGD", kFrame, "1\t1\t0", "λｉが入力範囲外です", 2},
    {"λi below 0", "InpRIGD", kFrame, "1\t-0.1\t0", "λｉが入力範囲外です", 2},
    {"λj 1", "InpRIGD", kFrame, "1\t0\t1", "λｊが入力範囲外です", 3},
    {"λi + λj 1", "InpRIGD", kFrame, "1\t0.5\t0.5", "λｉ＋λｊ＜１", 3},
    {"λi + λj below 1", "InpRIGD", kFrame, "1\t0.5\t0.4", ""},

    {"no case", "InpSPEC", kFrame, "1", "荷重ケースは省略できません", 2},
    {"case 0", "InpSPEC", kFrame, "1\t0", "荷重ケースが入力範囲外です", 2},
    {"case 4 of 3", "InpSPEC", kFrame, "1\t4", "荷重ケースが入力範囲外です", 2},
    {"case 3 of 3", "InpSPEC", kFrame, "1\t3", ""},

    {"no X1", "InpALFA", kFrame, "\t6\t1.5", "Ｘ１は省略できません", 1},
    {"no X2", "InpALFA", kFrame, "0\t\t1.5", "Ｘ２は省略できません", 2},
    {"no factor", "InpALFA", kFrame, "0\t6\t", "倍率αは省略できません", 3},
    {"X1 0 is a place", "InpALFA", kFrame, "0\t6\t1.5", ""},
    {"X1 below 0", "InpALFA", kFrame, "-6\t6\t1.5", ""},

    // What the table's file would not give back as it was typed.
    {"a comma", "InpSECT", kFrame, "1\t7\t1\t1\t1\t1\t1\t1\t1\ta,b", "「,」と「%」は入力できません", 10},
    {"a comment", "InpSECT", kFrame, "1\t7\t1\t1\t1\t1\t1\t1\t1\ta\t5%", "「,」と「%」は入力できません", 11},
    {"words", "InpNODE", kFrame, "1\tabc", "Ｘ座標が数値ではありません", 2},
    {"two signs", "InpNODE", kFrame, "1\t0\t1-2", "Ｙ座標が数値ではありません", 3},
    {"beyond all reals", "InpNODE", kFrame, "1\t1e400", "Ｘ座標が数値ではありません", 2},
    {"half a number of a thing", "InpELEM", kFrame, "1\t1.5", "Ｉ端は整数で入力してください", 2},
    {"words left of a wrong code", "InpNODE", kFrame, "1\tabc\t0\t3", "Ｘ座標が数値ではありません", 2},
    {"words right of a wrong code", "InpELEM", kFrame, "1\t1\t2\t2\t0\tabc",
     "節点条件は、０：剛　１：ピン　のみ入力可能です", 4},
    {"words in a wrong ratio", "InpRIGD", kFrame, "1\t1.5x", "λｉが入力範囲外です", 2},
    {"a whole number with a point", "InpELEM", kFrame, "1\t2.0\t3", ""},
    {"exponents", "InpNODE", kFrame, "1\t1.5E+01\t-.5e1", ""},
    {"ten blanks", "InpSECT", kFrame, "1\t7\t1\t1\t1\t1\t1\t1\t1\ta          b",
     "空白を１０文字以上続けて入力できません", 10},
    {"beyond the code page", "InpSECT", kFrame, "1\t7\t1\t1\t1\t1\t1\t1\t1\t木材𠮷",
     "文字 「𠮷」 はシフトＪＩＳで表せないため、保存できません", 10},
};

using RowCheckTest = FormTest;

TEST_F(RowCheckTest, EachMessageHasItsRowAndItsColumn) {
  for (const RowCase& c : kRows) {
    TableEditor editor = Open(c.form, c.setting);
    Fill(editor, c.row);
    const std::optional<RowFault> found = editor.FaultOf(1, 1);
    EXPECT_EQ(found ? found->message : "", c.message) << c.name;
    EXPECT_EQ(found ? found->place.column : 0, c.column) << c.name;
  }
}

TEST_F(RowCheckTest, ARefusedRowIsToldUnderTheFormsCaptionAndStays) {
  WriteTable("RIGD", "9,0.2,0.2\n");
  TableEditor editor = Open("InpRIGD");
  Fill(editor, "1\t0.1\t0.1\r2\t0.5\t0.5");
  EXPECT_EQ(Commit(editor), CommitEnd::Refused);
  EXPECT_THAT(told, testing::ElementsAre("剛域データ|λｉ＋λｊ＜１！！！"));
  EXPECT_EQ(fault, (CellPlace{1, 2, 3}));
  EXPECT_EQ(editor.Text({1, 2, 2}), "0.5");
  EXPECT_TRUE(editor.Changed());
  EXPECT_FALSE(ModelChanged);
  EXPECT_EQ(Table("RIGD"), "9,0.2,0.2\n") << "nothing is half-committed";
}

TEST_F(RowCheckTest, TheFirstFailureFromTheLeftIsShown) {
  TableEditor editor = Open("InpELEM");
  Fill(editor, "0\t1\t2\t5\t5");
  EXPECT_EQ(editor.FaultOf(1, 1)->place.column, 1);
}

TEST_F(RowCheckTest, ANumberWithWordsBehindItHoldsUpNoCommitWhereTheTableCameWithIt) {
  WriteTable("NODE", "1,12kN,3,1,1,1.0x\n2,0,0\n");
  WriteTable("ELEM", "1,1.5,2,0,0,1\n");
  TableEditor nodes = Open("InpNODE");
  nodes.InsertRow(1, 1);
  nodes.SetText({1, 3, 2}, "4");
  answers = {Answer::Yes};
  EXPECT_EQ(Commit(nodes), CommitEnd::Written);
  EXPECT_EQ(Table("NODE"), "1,12kN,3,1,1,1.0x\n2,4,0\n");
  TableEditor elements = Open("InpELEM");
  elements.SetText({1, 1, 6}, "2");
  EXPECT_EQ(Commit(elements), CommitEnd::Written);
  nodes.SetText({1, 3, 2}, "13kN");
  EXPECT_EQ(nodes.FaultOf(1, 3)->message, "Ｘ座標が数値ではありません");
  nodes.SetText({1, 3, 2}, "0");
  nodes.SetText({1, 3, 3}, "12kN");
  EXPECT_EQ(nodes.FaultOf(1, 3)->place.column, 3) << "typed into another column";
}

TEST_F(RowCheckTest, ABlankRowPasses) {
  const TableEditor editor = Open("InpNODE");
  EXPECT_FALSE(editor.FaultOf(1, 5));
}

TEST_F(RowCheckTest, TheNearestFaultIsFoundOnItsPageFirst) {
  TableEditor editor = Open("InpCLOD", kFrame);
  Fill(editor, "1\t2\r0\t2\r1\t2\r1\t2\r1\t2\r1\t2\r0\t2", 2);
  EXPECT_EQ(editor.NearestFault({2, 3, 1})->place, (CellPlace{2, 2, 1}));
  EXPECT_EQ(editor.NearestFault({2, 6, 1})->place, (CellPlace{2, 7, 1}));
  EXPECT_EQ(editor.NearestFault({1, 1, 1})->place, (CellPlace{2, 2, 1}));
  editor.SetText({2, 2, 1}, "1");
  editor.SetText({2, 7, 1}, "1");
  EXPECT_FALSE(editor.NearestFault({1, 1, 1}));
}

}  // namespace
}  // namespace zorlan::test

#include "forms/message_row.h"

#include <gtest/gtest.h>

namespace zorlan {
namespace {

struct MessageCase {
  const char* line;
  MessageRow row;
};
const MessageCase kMessages[] = {
    {"節点データ　　　　　： 節点二重定義エラー　　節点番号＝12", {"NODE", 0, 12}},
    {"節点データ　　　　　： 節点データにエラー　　　　7,0,0", {"NODE", 0, 7}},
    {"要素データ　要素番号 5： 指定の節点番号(9)が存在しません ", {"ELEM", 0, 5}},
    {"要素データ　　　　　： 指定の断面番号が未定義です　　　要素番号＝4　　断面番号＝8", {"ELEM", 0, 4}},
    {"要素データ　　　　　： 部材長＝０です　　　　　　3,1,1,0,0,1", {"ELEM", 0, 3}},
    {"断面性能データ　　　： 断面性能二重定義エラー　　断面番号＝2", {"SECT", 0, 2}},
    {"節点荷重データ　　　： 未定義の節点に荷重入力があります　　荷重ケース番号=2   節点番号＝30",
     {"PLOD", 2, 30}},
    {"節点荷重データ　　　： 荷重ケース番号が指定範囲外です    荷重ケース番号=4", {"PLOD", 4, 0}},
    {"節点荷重データ　　　： 節点荷重データにエラー　　2,7", {"PLOD", 2, 7}},
    {"部材荷重データ　　　： 部材荷重データにエラー　　1,6,2", {"ELOD", 1, 6}},
    {"要素荷重データ　　　： 未定義の要素に荷重入力があります　　荷重ケース番号=1   要素番号＝6",
     {"ELOD", 1, 6}},
    {"同一変形データ　　　　　： 指定の節点番号(14)が存在しません", {"DISP", 0, 14}},
    {"支点ばねデータ　　　： 指定の節点が未定義エラー　　9,1,0,0", {"SPRG", 0, 9}},
    {"フレーム倍率データ ： フレーム倍率データにエラー0,6", {"ALFA", 0, 0}},
    {"剛域データ　　　　　： 剛域データにエラー　　　　", {"RIGD", 0, 0}},
    {"節点荷重データ　　　： 節点荷重データにエラー　　3", {"PLOD", 3, 0}},
};

TEST(MessageRow, AMessageNamesItsRow) {
  for (const MessageCase& c : kMessages) EXPECT_EQ(RowOfMessage(c.line), c.row) << c.line;
}

TEST(MessageRow, OtherLinesNameNone) {
  EXPECT_FALSE(RowOfMessage(""));
  EXPECT_FALSE(RowOfMessage("1,0,0"));
}

}  // namespace
}  // namespace zorlan

#include "sections/section_choice.h"

#include <gmock/gmock.h>

#include "sections/table_folder.h"

namespace zorlan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SectionChoiceTest : public TableFolder {
 protected:
  SectionChoiceTest() {
    Write("H.CSV", std::string(kHead) + "400,200,8,13,14,83.37,23500,1740,16.8,4.56,1170,174\r\n");
    Write("BOX.CSV", std::string(kHead) + "400,200,9,102.7,21300,7270,14.4,8.42,1070,727\r\n");
    Write("PIPE.CSV", std::string(kHead) + "101.6,4.2,12.85,153,3.45,30.1\r\n");
    Write("断面.CSV", std::string(kHead) +
                          "206,2x6,0.96,0.84,0.84,38,140,8.6893,0.6402,40.41,10.97,10.97,124.13,33.69\r\n");
  }
  static SectionEntry Entry(int type) {
    SectionEntry entry;
    entry.type = type;
    return entry;
  }
};

TEST_F(SectionChoiceTest, SteelIsListedBySizeAreaAndMoments) {
  const ChoiceList list = SteelChoices(SteelFamily::H);
  EXPECT_EQ(list.caption, "Ｈ形鋼");
  EXPECT_THAT(list.heads, ElementsAre("番号", "鋼材断面サイズ", "断面積(cm2)", "Ｉｘ(cm4)", "Ｉｙ(cm4)"));
  ASSERT_EQ(list.rows.size(), 1U);
  EXPECT_THAT(list.rows[0], ElementsAre("1", "H-400x200x8x13", "83.4", "23500.0", "1740.0"));
  EXPECT_THAT(list.names, ElementsAre("H-400x200x8x13"));
}

TEST_F(SectionChoiceTest, APipeHasOneMomentForBothAxes) {
  EXPECT_THAT(SteelChoices(SteelFamily::Pipe).rows[0],
              ElementsAre("1", "PIPE-101.6x4.2", "12.9", "153.0", "153.0"));
}

TEST_F(SectionChoiceTest, TimberIsListedInThousandsAndMillions) {
  const ChoiceList list = TimberChoices();
  EXPECT_THAT(list.heads, ElementsAre("番号", "断面名称", "断面ｻｲｽﾞ(mm)", "断面積(10^3mm2)", "Ix(10^6mm4)",
                                      "Iy(10^6mm4)"));
  ASSERT_EQ(list.rows.size(), 1U);
  EXPECT_THAT(list.rows[0], ElementsAre("1", "206", "38x140", "5.320", "8.69", "0.64"));
}

TEST_F(SectionChoiceTest, AMissingTableLeavesTheListEmpty) {
  EXPECT_THAT(SteelChoices(SteelFamily::Angle).rows, IsEmpty());
  EXPECT_EQ(SteelChoices(SteelFamily::Angle).caption, "山形鋼");
}

TEST(SizesOfName, StandBetweenTheCrosses) {
  EXPECT_THAT(SizesOfName("H-400x200x8x13"), ElementsAre("400", "200", "8", "13"));
  EXPECT_THAT(SizesOfName("PIPE-101.6x4.2"), ElementsAre("101.6", "4.2"));
  EXPECT_THAT(SizesOfName(""), IsEmpty());
}

TEST_F(SectionChoiceTest, AChoiceFillsTheFields) {
  SectionEntry entry = Entry(5);
  TakeChoice(entry, "H-400x200x8x13");
  EXPECT_THAT(entry.P, ElementsAre("400", "200", "8", "13"));
  EXPECT_EQ(NameOfEntry(entry), "H-400x200x8x13");
  entry = Entry(4);
  TakeChoice(entry, "PIPE-101.6x4.2");
  EXPECT_THAT(entry.P, ElementsAre("101.6", "4.2", "", ""));
  EXPECT_EQ(NameOfEntry(entry), "PIPE-101.6x4.2");
}

TEST_F(SectionChoiceTest, ABoxOfOneThicknessHasItInBothFields) {
  SectionEntry entry = Entry(3);
  TakeChoice(entry, "BOX-400x200x9");
  EXPECT_THAT(entry.P, ElementsAre("400", "200", "9", "9"));
  EXPECT_EQ(NameOfEntry(entry), "BOX-400x200x9");
}

TEST_F(SectionChoiceTest, ATimberChoiceFillsSizesAndName) {
  SectionEntry entry = Entry(7);
  entry.P = {"", "", "1.2", "5320"};
  TakeChoice(entry, "206");
  EXPECT_THAT(entry.P, ElementsAre("38", "140", "1.2", "5320"));
  EXPECT_EQ(entry.timberSection, "206");
  EXPECT_EQ(NameOfEntry(entry), "木-38x140");
  TakeChoice(entry, "なし");
  EXPECT_EQ(entry.timberSection, "206");
}

TEST(SectionEntry, FieldsStayWhereTheyMeanTheSame) {
  SectionEntry entry;
  entry.type = 2;
  entry.P = {"400", "200", "8", "13"};
  ChangeType(entry, 5);  // the weak axis
  EXPECT_EQ(entry.P[0], "400");
  ChangeType(entry, 3);  // another family
  EXPECT_THAT(entry.P, ElementsAre("", "", "", ""));
}

TEST(SectionEntry, OnlyTimberHasTimberNames) {
  SectionEntry entry;
  entry.type = 7;
  entry.timberSection = "206";
  entry.species = "S･P･F 1級";
  ChangeType(entry, 8);
  EXPECT_EQ(entry.timberSection, "206");
  ChangeType(entry, 1);
  EXPECT_EQ(entry.timberSection, "");
  EXPECT_EQ(entry.species, "");
}

TEST(SectionEntry, GoesIntoTheRowAndLeavesTheRest) {
  std::vector<std::string> cells = {"3", "2", "400", "200", "8", "13", "1.5", "2100", "810"};
  SectionEntry entry = EntryOfCells(cells);
  EXPECT_EQ(entry.type, 2);
  EXPECT_THAT(entry.P, ElementsAre("400", "200", "8", "13"));
  entry.P[0] = "450";
  PutEntry(entry, cells);
  EXPECT_THAT(cells, ElementsAre("3", "2", "450", "200", "8", "13", "1.5", "2100", "810", "", ""));
  EXPECT_EQ(EntryOfCells({"1", "99"}).type, 0);
  EXPECT_EQ(EntryOfCells({}), SectionEntry());
}

TEST(SectionKinds, StandInTheOrderOfTheirTypes) {
  EXPECT_EQ(SectionKindOf(0).entry, "直接入力");
  EXPECT_EQ(SectionKindOf(4).entry, "○形鋼　　　　入力");
  EXPECT_EQ(SectionKindOf(6).entry, "□形鋼（弱軸）入力");
  EXPECT_EQ(SectionKindOf(12).entry, "山形鋼（弱軸）入力");
  EXPECT_EQ(SectionKindOf(12).Sizes(), 4U);
  EXPECT_EQ(SectionKindOf(7).Sizes(), 2U);
  EXPECT_EQ(SectionKindOf(1).Sizes(), 0U);
}

}  // namespace
}  // namespace zorlan

#include "sections/timber_tables.h"

#include <gmock/gmock.h>

#include "sections/table_folder.h"

namespace zorlan {
namespace {

using testing::IsEmpty;

class TimberTablesTest : public TableFolder {};

constexpr std::string_view kGrades =
    "D．Fir-L 1級,DFir1級,22.2,16.2,24.6,2.4,11700\r\n"
    ",DFir2級,1,1,1,1,1\r\n"
    "\r\n"
    "  S･P･F 2級 , SPF2級 ,17.4,11.4,21.6,1.8,9600\r\n";

TEST_F(TimberTablesTest, AGradeAnswersItsStrengths) {
  Write("材種.CSV", std::string(kHead) + std::string(kGrades));
  const TimberGradeRec* grade = FindTimberGrade("D．Fir-L 1級");
  ASSERT_NE(grade, nullptr);
  EXPECT_EQ(grade->shortName, "DFir1級");
  EXPECT_EQ(grade->Fc, 22.2);
  EXPECT_EQ(grade->Ft, 16.2);
  EXPECT_EQ(grade->Fb, 24.6);
  EXPECT_EQ(grade->Fs, 2.4);
  EXPECT_EQ(grade->E, 11700);
}

TEST_F(TimberTablesTest, ALineWithAnEmptyFirstFieldIsSkippedAndTheLinesAfterItAreRead) {
  Write("材種.CSV", std::string(kHead) + std::string(kGrades));
  ASSERT_EQ(TimberGrades().size(), 2U);
  EXPECT_EQ(TimberGrades()[1].name, "S･P･F 2級");
  EXPECT_EQ(TimberGrades()[1].shortName, "SPF2級");
}

TEST_F(TimberTablesTest, NamesAreComparedAfterTrimming) {
  Write("材種.CSV", std::string(kHead) + std::string(kGrades));
  EXPECT_NE(FindTimberGrade("S･P･F 2級"), nullptr);
  EXPECT_NE(FindTimberGrade("  S･P･F 2級"), nullptr);
  EXPECT_NE(FindTimberGrade(std::string("S･P･F 2級 \0", sizeof "S･P･F 2級 ")), nullptr);
  EXPECT_EQ(FindTimberGrade("S･P･F  2級"), nullptr);
  EXPECT_EQ(FindTimberGrade(""), nullptr);
}

TEST_F(TimberTablesTest, ASectionAnswersItsFourteenFields) {
  Write("断面.CSV",
        std::string(kHead) + "2-206,2x206,0.96,0.84,0.85,76,140,17.3,5.1,40.4,21.9,21.8,248,134\r\n");
  const TimberSectionRec* section = FindTimberSection("2-206");
  ASSERT_NE(section, nullptr);
  EXPECT_EQ(section->shortName, "2x206");
  EXPECT_EQ(section->sizeCompression, 0.96);
  EXPECT_EQ(section->sizeTension, 0.84);
  EXPECT_EQ(section->sizeBending, 0.85);
  EXPECT_EQ(section->thickness, 76);
  EXPECT_EQ(section->width, 140);
  EXPECT_EQ(section->Ix, 17.3);
  EXPECT_EQ(section->Iy, 5.1);
  EXPECT_EQ(section->ix, 40.4);
  EXPECT_EQ(section->iy, 21.9);
  EXPECT_EQ(section->iStrut, 21.8);
  EXPECT_EQ(section->Zx, 248);
  EXPECT_EQ(section->Zy, 134);
}

TEST_F(TimberTablesTest, TheFirstOfTwoSectionsOfOneNameAnswers) {
  Write("断面.CSV", std::string(kHead) + "a,first\r\na,second\r\n");
  EXPECT_EQ(FindTimberSection("a")->shortName, "first");
  EXPECT_EQ(TimberSections().size(), 2U);
}

TEST_F(TimberTablesTest, MissingFilesLeaveTheTablesEmpty) {
  EXPECT_TRUE(TimberGrades().empty());
  EXPECT_TRUE(TimberSections().empty());
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(TimberTablesTest, TablesAreReadOnceUntilTheyAreForgotten) {
  Write("断面.CSV", std::string(kHead) + "a,first\r\n");
  LoadTimberTables();
  Write("断面.CSV", std::string(kHead) + "b,other\r\n");
  LoadTimberTables();
  EXPECT_NE(FindTimberSection("a"), nullptr);
  ForgetTimberTables();
  EXPECT_EQ(FindTimberSection("a"), nullptr);
  EXPECT_NE(FindTimberSection("b"), nullptr);
}

TEST(ParseTimberSections, TakesAnythingForAFileWithoutFalling) {
  EXPECT_TRUE(ParseTimberSections("").empty());
  EXPECT_TRUE(ParseTimberSections("a\nb\nc").empty());
  const auto records = ParseTimberSections("a\nb\nc\nx,,y,1e999,,,,,,,,,,,,,,,,,,\nz");
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].sizeCompression, 0);
  EXPECT_EQ(records[1].Zy, 0);
}

}  // namespace
}  // namespace zorlan

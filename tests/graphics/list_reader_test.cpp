#include "graphics/list_reader.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace zorlan {
namespace {

using Kind = DrawOperation::Kind;

TEST(DrawingListReader, ReadsALine) {
  const DrawOperation line = ReadOperation("LINE, MODEL, 1, 2.5, -3, 1e3, 255").value();
  EXPECT_EQ(line.kind, Kind::Line);
  EXPECT_EQ(line.layer, "MODEL");
  EXPECT_EQ(line.x, 1);
  EXPECT_EQ(line.y, 2.5);
  EXPECT_EQ(line.x2, -3);
  EXPECT_EQ(line.y2, 1000);
  EXPECT_EQ(line.colour, 255);
}

TEST(DrawingListReader, ReadsACircle) {
  const DrawOperation circle = ReadOperation("CIRCLE, KAJYU, 10, 20, 5, 16711680").value();
  EXPECT_EQ(circle.kind, Kind::Circle);
  EXPECT_EQ(circle.x, 10);
  EXPECT_EQ(circle.y, 20);
  EXPECT_EQ(circle.radius, 5);
  EXPECT_EQ(circle.colour, 0xFF0000);
}

TEST(DrawingListReader, ReadsAText) {
  const DrawOperation text = ReadOperation("TEXT, TITLE_TXT, 10, 20, タイトル：例, 130, 20, 0").value();
  EXPECT_EQ(text.kind, Kind::Text);
  EXPECT_EQ(text.layer, "TITLE_TXT");
  EXPECT_EQ(text.text, "タイトル：例");
  EXPECT_EQ(text.width, 130);
  EXPECT_EQ(text.height, 20);
}

TEST(DrawingListReader, ReadsARotatedText) {
  const DrawOperation text = ReadOperation("TEXTR, MOMENT_TXT, 10, 20, 12.34, 50, 20, 90, 8").value();
  EXPECT_EQ(text.kind, Kind::TextRotated);
  EXPECT_EQ(text.text, "12.34");
  EXPECT_EQ(text.angle, 90);
  EXPECT_EQ(text.colour, 8);
}

TEST(DrawingListReader, TrimsFieldsAndTakesKeywordsInAnyCase) {
  const DrawOperation line = ReadOperation("  line ,MODEL ,1,2,3,   4,0").value();
  EXPECT_EQ(line.kind, Kind::Line);
  EXPECT_EQ(line.layer, "MODEL");
  EXPECT_EQ(line.y2, 4);
}

TEST(DrawingListReader, KeepsATextWithCommasWhole) {
  EXPECT_EQ(ReadOperation("TEXT, TITLE_TXT, 1, 2, A, B,, C, 130, 20, 0")->text, "A, B,, C");
  EXPECT_EQ(ReadOperation("TEXTR, TITLE_TXT, 1, 2, ,, 130, 20, 90, 0")->text, ",");
}

TEST(DrawingListReader, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(ReadOperation("TEXT, TITLE_TXT, 1, 2, , 0, 20, 0")->text, "");
}

TEST(DrawingListReader, PassesOverLinesWithoutAKeyword) {
  for (const char* const line : {"", " ", ",", "LINES, MODEL, 1, 2, 3, 4, 0", "\x01\x02", "節点, 1"})
    EXPECT_FALSE(ReadOperation(line).has_value()) << line;
}

TEST(DrawingListReader, RefusesAnOperationThatCannotBeMeant) {
  for (const char* const line : {
           "LINE",
           "LINE, MODEL, 1, 2, 3, 4",        // cut short
           "LINE, MODEL, 1, 2, 3, 4, 0, 5",  // too long
           "LINE, , 1, 2, 3, 4, 0",          // no layer
           "LINE, MODEL, 1, , 3, 4, 0",
           "LINE, MODEL, 1, nan, 3, 4, 0",    // no numbers
           "LINE, MODEL, 1, 1e999, 3, 4, 0",  // beyond a real
           "LINE, MODEL, 1, 2, 3, 4, 99999999999",
           "CIRCLE, MODEL, 1, 2",                     //
           "TEXT, TITLE_TXT, 1, 2, 130, 20, 0",       // the text is missing
           "TEXT, TITLE_TXT, 1, 2, 荷重, 幅, 20, 0",  //
           "TEXTR, TITLE_TXT, 1, 2, 130, 20, 90, 0",
       })
    EXPECT_THROW(ReadOperation(line), Fault) << line;
}

TEST(DrawingListReader, ReadsBackWhatTheListWriterWrites) {
  const DrawOperation operations[] = {
      {.kind = Kind::Line,
       .layer = "MODEL",
       .x = 0.5,
       .y = -1,
       .x2 = 1e-7,
       .y2 = 12345.678,
       .text = {},
       .colour = 0xFFFFFF},
      {.kind = Kind::Circle, .layer = "KAJYU", .x = 1, .y = 2, .radius = 3, .text = {}, .colour = 1},
      {.kind = Kind::Text,
       .layer = "TITLE_TXT",
       .x = 1,
       .y = 2,
       .text = "荷重ﾁｪｯｸ図",
       .width = 9,
       .height = 2},
      {.kind = Kind::TextRotated,
       .layer = "DISP_TXT",
       .x = 1,
       .y = 2,
       .text = "1 2",
       .width = 9,
       .height = 2,
       .angle = -33.5},
  };
  for (const DrawOperation& operation : operations)
    EXPECT_EQ(ReadOperation(OperationLine(operation)), operation) << OperationLine(operation);
}

}  // namespace
}  // namespace zorlan

#include "render/text_page_painter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <string>

#include "base/text_file.h"
#include "render/fonts.h"
#include "render/qt_text.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using testing::HasSubstr;

/// The columns of an image that hold ink: first and last; -1 without any.
std::pair<int, int> InkedColumns(const QImage& image) {
  std::pair<int, int> inked(-1, -1);
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < image.height(); ++y)
      if (qGray(image.pixel(x, y)) < 128) {
        if (inked.first < 0) inked.first = x;
        inked.second = x;
        break;
      }
  return inked;
}

/// A sheet of 100 x 20 mm at 10 dots a mm with one text of 5 mm in a box from 10 mm, `width` mm wide.
QImage Painted(const char* text, int width) {
  QImage image(1000, 200, QImage::Format_Grayscale8);
  image.fill(Qt::white);
  QPainter painter(&image);
  UsePageUnits(painter, 254);
  TextInBox(painter, 1000, 500, width * kUnitsPerMm, 500, text);
  return image;
}

TEST(Fonts, FullWidthIsTwiceHalfWidth) {
  EXPECT_TRUE(InstallFonts());
}

TEST(TextInBox, TextThatFitsHasItsFullHeight) {
  // Ten half-width characters of 5 mm are 25 mm long.
  const auto [first, last] = InkedColumns(Painted("HHHHHHHHHH", 80));
  EXPECT_NEAR(first, 100, 10);
  EXPECT_NEAR(last, 350, 10);
}

TEST(TextInBox, TextThatIsTooWideIsMadeSmallerToItsBox) {
  const auto [first, last] = InkedColumns(Painted("HHHHHHHHHH", 15));
  EXPECT_NEAR(first, 100, 10);
  EXPECT_LE(last, 250);
  EXPECT_GE(last, 235);
}

TEST(TextInBox, AKanjiIsAsWideAsTwoLetters) {
  EXPECT_NEAR(InkedColumns(Painted("節点節点節H", 80)).second,
              InkedColumns(Painted("HHHHHHHHHHH", 80)).second, 1);
}

/// What a tool of the system says about a file; nothing where the tool is not there.
std::string Asked(const char* tool, const QStringList& arguments) {
  if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty()) return {};
  QProcess process;
  process.start(QString::fromLatin1(tool), arguments);
  process.waitForFinished();
  return process.readAllStandardOutput().toStdString();
}

class PdfTest : public testing::Test {
 protected:
  /// Writes 72 lines, one more than an upright A4 sheet holds, and answers what `tool` says about the file.
  std::string AskedAbout(const char* tool, const PageSetup& setup, bool intoText) {
    std::string text = "節点 ｱｲｳ (t･m) No.1\r\n";
    for (int i = 2; i <= 72; ++i) text += std::to_string(i) + "\r\n";
    ReplaceBytes(folder_.Path() + "a.pdf",
                 TextPagesPdf(LayOutTextPages(text, {"<<解析結果ファイル>>", false}, setup)));
    QStringList arguments{ToQt(folder_.Path() + "a.pdf")};
    if (intoText) arguments << QStringLiteral("-");
    return Asked(tool, arguments);
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(PdfTest, JapaneseTextCanBeSearched) {
  const std::string text = AskedAbout("pdftotext", {}, true);
  if (text.empty()) GTEST_SKIP() << "pdftotext is not there";
  EXPECT_THAT(text, HasSubstr("解析結果ファイル"));
  EXPECT_THAT(text, HasSubstr("節点 ｱｲｳ"));
  EXPECT_THAT(text, HasSubstr("Page-2"));
}

TEST_F(PdfTest, FontsAreEmbedded) {
  const std::string fonts = AskedAbout("pdffonts", {}, false);
  if (fonts.empty()) GTEST_SKIP() << "pdffonts is not there";
  EXPECT_THAT(fonts, HasSubstr("IPAGothic"));
  EXPECT_THAT(fonts, HasSubstr("yes"));
}

TEST_F(PdfTest, SheetsHaveTheirSizeToThePoint) {
  struct {
    PageSetup setup;
    const char* size;
  } cases[3] = {{{}, "595 x 842 pts"}, {{}, "842 x 595 pts"}, {{}, "729 x 1032 pts"}};
  cases[1].setup.landscape = true;
  cases[2].setup.paperWidth = 257;  // the Japanese B4
  cases[2].setup.paperHeight = 364;
  for (const auto& sheet : cases) {
    const std::string information = AskedAbout("pdfinfo", sheet.setup, false);
    if (information.empty()) GTEST_SKIP() << "pdfinfo is not there";
    EXPECT_THAT(information, HasSubstr(sheet.size));
  }
}

}  // namespace
}  // namespace zorlan

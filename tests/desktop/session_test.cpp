#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include "desktop/desktop_test.h"

namespace zorlan::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(DesktopTest, TheFirstStartMakesTheTreeAndOpensNoModel) {
  EXPECT_TRUE(FileExists(Sample("鉄骨ラーメン.inp")));
  EXPECT_TRUE(FileExists(AppPath + "PrinterInf.Ini"));
  EXPECT_EQ(Child<QLabel>(&Window(), "statusModel")->text(), QStringLiteral("モデルなし"));
  EXPECT_FALSE(Entry("mnuAnalysisStatic(0)")->isEnabled());
}

TEST_F(DesktopTest, AWholeSessionFromOpeningToExit) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  EXPECT_THAT(Caption(), HasSubstr("<< 例題－１.zor/鉄骨ラーメン.inp >>"));
  EXPECT_NE(OpenForm("frmInputMenu"), nullptr);

  Choose("mnuAnalysisStatic(0)");
  Form* const reader = OpenForm("frmKakuninText");
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(Child<QLabel>(reader, "heading")->text(), QStringLiteral("<<解析結果ファイル>> "));
  EXPECT_FALSE(Child<QPlainTextEdit>(reader, "text")->toPlainText().isEmpty());
  EXPECT_EQ(Child<QLabel>(&Window(), "statusResults")->text(), QStringLiteral("解析結果あり"));

  Choose("mnuAnalysisStatic(2)");
  Form* const preview = OpenForm("frmPrnText");
  ASSERT_NE(preview, nullptr);
  EXPECT_FALSE(Child<QPushButton>(preview, "dxf")->isEnabled());
  const std::string pdf = Documents() + "結果.pdf";
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(pdf));
  Click(*preview, "pdf");
  EXPECT_THAT(ReadBytes(pdf), StartsWith("%PDF"));

  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) {
    Child<QLineEdit>(&dialog, "model")->setText(QStringLiteral("写し"));
    Click(dialog, "ok");
  });
  Choose("mnuFileItem(3)");
  EXPECT_TRUE(FileExists(Sample("写し.inp")));
  EXPECT_TRUE(FileExists(Sample("写し.out")));
  EXPECT_TRUE(FileExists(Sample("写し.ANA/FT031")));
  EXPECT_THAT(Caption(), HasSubstr("写し.inp"));

  Script().Expect(QStringLiteral("frmProject"), [](QWidget& dialog) { Click(dialog, "ok"); });
  Script().ExpectBox(QStringLiteral("を削除してよろしいですか？"), QStringLiteral("はい"));
  Choose("mnuFileItem(4)");
  EXPECT_FALSE(FileExists(Sample("写し.inp")));
  EXPECT_FALSE(FolderExists(Sample("写し.ANA")));
  EXPECT_TRUE(FileExists(Sample("鉄骨ラーメン.ANA/FT031")));
  EXPECT_THAT(Caption(), EndsWith("<< NewData >>"));

  Choose("mnuFileItem(10)");
  EXPECT_FALSE(Window().isVisible());
}

}  // namespace
}  // namespace zorlan::test

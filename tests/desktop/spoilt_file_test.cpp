// Files that are gone, changed or can't be read while a window shows them.
#include <filesystem>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

#include "base/fault.h"
#include "desktop/desktop_test.h"
#include "desktop/preview_pages.h"
#include "shell/commands.h"
#include "shell/windows.h"

namespace zorlan::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// In the place of a file comes one that is there and can't be read, for the superuser either.
void Spoil(const std::string& path) {
  RemoveFile(path);
  std::filesystem::create_symlink("/proc/self/mem", path);
}

class SpoiltFileTest : public DesktopTest {
 protected:
  std::string File() const { return Documents() + "梁.out"; }
  Form* Show(TextWindow where, const std::string& text) {
    ReplaceTextFile(File(), text);
    ShowText(kPrintListing, where == TextWindow::Preview, File());
    return where == TextWindow::Preview ? Preview() : Reader();
  }
  Form* Preview() { return OpenForm("frmPrnText"); }
  Form* Reader() { return OpenForm("frmKakuninText"); }
  static std::string NoteOf(const Form* form) { return FromQt(Child<QLabel>(form, "note")->text()); }
  std::string TextRead() { return FromQt(Child<QPlainTextEdit>(Reader(), "text")->toPlainText()); }
  int Pages() { return Child<QSpinBox>(Preview(), "page")->maximum(); }
  /// Some command without effect: open windows look at their files behind it.
  void AnyCommand() { Choose("mnuWindowItem(0)"); }
};

// The preview

TEST_F(SpoiltFileTest, AListingThatCannotBeReadAnyMoreEmptiesItsPreviewAndSaysWhy) {
  Form* const preview = Show(TextWindow::Preview, "一行目\r\n");
  EXPECT_EQ(Pages(), 1);
  Spoil(File());
  AnyCommand();
  preview->grab();  // painted without a page
  EXPECT_EQ(Pages(), 0);
  EXPECT_THAT(NoteOf(preview), HasSubstr("梁.out"));
  EXPECT_TRUE(Child<QLabel>(preview, "note")->isVisible());
  EXPECT_FALSE(Child<QPushButton>(preview, "print")->isEnabled());
}

TEST_F(SpoiltFileTest, NoButtonOfThePreviewTakesAListingThatCannotBeRead) {
  for (const char* const button : {"print", "pdf", "copy"}) {
    Form* const preview = Show(TextWindow::Preview, "一行目\r\n");
    EXPECT_EQ(Pages(), 1);
    QApplication::clipboard()->clear();
    Spoil(File());
    Click(*preview, button);  // no dialog comes
    preview->grab();
    EXPECT_EQ(Pages(), 0) << button;
    EXPECT_THAT(NoteOf(preview), HasSubstr("梁.out")) << button;
    EXPECT_EQ(QApplication::clipboard()->text(), QString());
  }
}

TEST_F(SpoiltFileTest, AListingThatCanBeReadAgainIsBackInItsPreview) {
  Form* const preview = Show(TextWindow::Preview, "一行目\r\n");
  Spoil(File());
  AnyCommand();
  ReplaceTextFile(File(), "二行目\r\n");
  AnyCommand();
  EXPECT_EQ(Pages(), 1);
  EXPECT_THAT(NoteOf(preview), IsEmpty());
}

TEST_F(SpoiltFileTest, AListingThatCannotBeReadOpensAnEmptyPreview) {
  Spoil(File());
  ShowText(kPrintListing, /*preview=*/true, File());
  ASSERT_NE(Preview(), nullptr);
  EXPECT_EQ(Pages(), 0);
  EXPECT_THAT(NoteOf(Preview()), HasSubstr("梁.out"));
}

TEST_F(SpoiltFileTest, PagesThatAreNotThereAreNeitherPaintedNorRead) {
  ReplaceTextFile(File(), "一行目\r\n");
  ListingPages pages(kPrintListing, File());
  pages.Renew();
  pages.LayOut();
  ASSERT_EQ(pages.Count(), 1);
  QImage image(10, 10, QImage::Format_RGB32);
  QPainter painter(&image);
  for (const int page : {-1, 1, 1000}) {
    pages.Paint(painter, page);
    EXPECT_EQ(pages.Text(page), QString()) << page;
  }
  EXPECT_THAT(FromQt(pages.Text(0)), HasSubstr("一行目\n"));
}

TEST_F(SpoiltFileTest, TheScratchFileOfTheScanGoesFromTheProgramsFolderOrIsPassedOver) {
  ReplaceTextFile(File(), "一行目\r\n");
  ReplaceBytes(AppPath + "Dum.txt", "old");
  ListingPages pages(kPrintListing, File());
  pages.Renew();
  pages.LayOut();
  EXPECT_FALSE(FileExists(AppPath + "Dum.txt"));
  MakeFolder(AppPath + "Dum.txt");
  ReplaceBytes(AppPath + "Dum.txt/kept", "");  // a folder that can't be removed
  pages.LayOut();
  EXPECT_EQ(pages.Count(), 1);
}

// The reader

TEST_F(SpoiltFileTest, AListingThatIsGoneIsNotSaved) {
  Form* const reader = Show(TextWindow::Reader, "一行目\r\n");
  RemoveFile(File());
  Script().ExpectBox(QStringLiteral("梁.out"), QStringLiteral("OK"));
  Click(*reader, "save");
  EXPECT_TRUE(Script().Done());
  EXPECT_THAT(Script().Seen().join(QLatin1Char(' ')).toStdString(), Not(HasSubstr("保存しました")));
  EXPECT_EQ(TextRead(), "");
}

TEST_F(SpoiltFileTest, AListingThatCannotBeReadIsNotSaved) {
  Form* const reader = Show(TextWindow::Reader, "一行目\r\n");
  Spoil(File());
  Script().ExpectBox(QStringLiteral("梁.out"), QStringLiteral("OK"));
  Click(*reader, "save");
  EXPECT_TRUE(Script().Done());
  EXPECT_THAT(NoteOf(reader), HasSubstr("梁.out"));
}

TEST_F(SpoiltFileTest, WhatIsSavedIsWhatIsShown) {
  Form* const reader = Show(TextWindow::Reader, "1.00\r\n");
  ReplaceTextFile(File(), "2.00\r\n");
  const std::string copy = Documents() + "写し.txt";
  Script().Expect(QStringLiteral("QFileDialog"), [&](QWidget& dialog) {
    EXPECT_EQ(TextRead(), "2.00\n");
    ReplaceTextFile(File(), "3.00\r\n");  // by another program, behind the dialog
    ChooseFile(copy)(dialog);
  });
  Script().ExpectBox(QStringLiteral("保存しました"), QStringLiteral("OK"));
  Click(*reader, "save");
  EXPECT_EQ(ReadTextFile(copy), "2.00\r\n");
}

TEST_F(SpoiltFileTest, TheReaderNeverHasOneFilesTextUnderAnothersHeading) {
  Form* const reader = Show(TextWindow::Reader, "一行目\r\n");
  const std::string other = Documents() + "DSNS";
  Spoil(other);
  ShowText(kPrintSteelDesign, /*preview=*/false, other);
  EXPECT_EQ(Child<QLabel>(reader, "heading")->text(), QStringLiteral("<<Ｓ断面算定>> "));
  EXPECT_EQ(TextRead(), "");
  EXPECT_THAT(NoteOf(reader), HasSubstr("DSNS"));
  EXPECT_TRUE(Child<QLabel>(reader, "note")->isVisible());
  ShowText(kPrintListing, /*preview=*/false, File());
  EXPECT_EQ(TextRead(), "一行目\n");
  EXPECT_FALSE(Child<QLabel>(reader, "note")->isVisible());
}

// Several windows

/// A form that can't be renewed.
class FaultyForm : public Form {
 public:
  explicit FaultyForm(const char* name) : Form(name) {}
  void Renew() override { throw Fault(FromQt(objectName()) + " が読めません"); }
};

TEST_F(SpoiltFileTest, OneFormsFaultKeepsNoOtherStaleAndTheFirstIsTold) {
  Window().Forms().Show(std::make_unique<FaultyForm>("first"));
  Window().Forms().Show(std::make_unique<FaultyForm>("second"));
  Show(TextWindow::Reader, "一行目\r\n");
  ReplaceTextFile(File(), "二行目\r\n");
  Script().ExpectBox(QStringLiteral("first が読めません"), QStringLiteral("OK"));
  AnyCommand();
  EXPECT_EQ(TextRead(), "二行目\n");
  EXPECT_TRUE(Script().Done());
}

// Figures

TEST_F(SpoiltFileTest, PagesOfFiguresSayWhatCannotBeReadAndComeBack) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  Script().Expect(QStringLiteral("frmSelctLC"), [](QWidget& dialog) {
    Click(dialog, "all1");
    Click(dialog, "ok");
  });
  Choose("mnuViewPrnAll");
  ASSERT_NE(Preview(), nullptr);
  EXPECT_EQ(Pages(), 5);
  OpenForm("Model")->CloseForm();  // it would tell of the table too
  const std::string nodes = ReadTextFile(WorkPath + "NODE");
  Spoil(WorkPath + "NODE");
  AnyCommand();
  Preview()->grab();
  EXPECT_EQ(Pages(), 0);
  EXPECT_THAT(NoteOf(Preview()), HasSubstr("NODE"));
  AnyCommand();
  EXPECT_THAT(NoteOf(Preview()), HasSubstr("NODE"));
  ReplaceTextFile(WorkPath + "NODE", nodes);
  AnyCommand();
  EXPECT_EQ(Pages(), 5);
  EXPECT_THAT(NoteOf(Preview()), IsEmpty());
}

}  // namespace
}  // namespace zorlan::test

// Reader, preview, printing and their forms.
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>

#include "base/cp932.h"
#include "desktop/desktop_test.h"
#include "desktop/page_view.h"
#include "shell/commands.h"
#include "shell/settings.h"

namespace zorlan::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class ListingsTest : public DesktopTest {
 protected:
  /// Shows a text of its own in the reader or the preview.
  Form* Show(int flag, bool preview, const std::string& text) {
    const std::string path = Documents() + "text";
    ReplaceTextFile(path, text);
    ShowText(flag, preview, path);
    Form* const form = OpenForm(preview ? "frmPrnText" : "frmKakuninText");
    EXPECT_NE(form, nullptr);
    return form;
  }
  static std::string Numbered(int lines) {
    std::string text;
    for (int i = 1; i <= lines; ++i) text += "行 " + std::to_string(i) + "\r\n";
    return text;
  }
};

TEST_F(ListingsTest, TheReaderShowsTheTextUnderItsHeading) {
  Form* const reader = Show(kPrintSteelDesign, false, "一行目\r\n  二行目\r\n");
  EXPECT_EQ(Child<QLabel>(reader, "heading")->text(), QStringLiteral("<<Ｓ断面算定>> "));
  EXPECT_EQ(Child<QPlainTextEdit>(reader, "text")->toPlainText(), QStringLiteral("一行目\n  二行目\n"));
}

TEST_F(ListingsTest, AMissingFileIsAnEmptyTextAndAnEmptyPreviewThatNamesIt) {
  ShowText(kPrintListing, /*preview=*/false, Documents() + "nothing");
  EXPECT_EQ(Child<QPlainTextEdit>(OpenForm("frmKakuninText"), "text")->toPlainText(), QString());
  EXPECT_EQ(Child<QLabel>(OpenForm("frmKakuninText"), "note")->text(),
            QStringLiteral("nothing はありません"));
  ShowText(kPrintListing, /*preview=*/true, Documents() + "nothing");
  EXPECT_EQ(Child<QSpinBox>(OpenForm("frmPrnText"), "page")->maximum(), 0);
  EXPECT_EQ(Child<QLabel>(OpenForm("frmPrnText"), "note")->text(), QStringLiteral("nothing はありません"));
  EXPECT_FALSE(Child<QPushButton>(OpenForm("frmPrnText"), "print")->isEnabled());
}

TEST_F(ListingsTest, TheReaderFindsWordsAndGoesOnFromTheTop) {
  Form* const reader = Show(kPrintCheck, false, Numbered(500));
  auto* const text = Child<QPlainTextEdit>(reader, "text");
  QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
  auto* const search = Child<QLineEdit>(reader, "search");
  ASSERT_TRUE(search->hasFocus());
  QTest::keyClicks(search, QStringLiteral("400"));
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(text->textCursor().blockNumber(), 399);
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(text->textCursor().blockNumber(), 399);
}

TEST_F(ListingsTest, TheSearchReachesTheEndOfALongTextAtOnce) {
  Form* const reader = Show(kPrintCheck, false, Numbered(20000));
  auto* const search = Child<QLineEdit>(reader, "search");
  QTest::keyClicks(search, QStringLiteral("19999"));
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(Child<QPlainTextEdit>(reader, "text")->textCursor().blockNumber(), 19998);
}

TEST_F(ListingsTest, TheReaderSavesACopyByteByByte) {
  Form* const reader = Show(kPrintCheck, false, "節点\r\n");
  const std::string copy = Documents() + "写し.txt";
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(copy));
  Script().ExpectBox(QStringLiteral("保存しました"), QStringLiteral("OK"));
  Click(*reader, "save");
  EXPECT_EQ(ReadTextFile(copy), "節点\r\n");
}

TEST_F(ListingsTest, AnOpenPreviewFollowsItsFileAndKeepsPageAndZoom) {
  Form* const preview = Show(kPrintOther, true, Numbered(200));
  auto* const page = Child<QSpinBox>(preview, "page");
  auto* const zoom = Child<QComboBox>(preview, "zoom");
  zoom->setCurrentText(QStringLiteral("50%"));
  page->setValue(2);
  ReplaceTextFile(Documents() + "text", Numbered(300));  // 71 lines a page: five pages
  Choose("mnuWindowItem(0)");                            // any command
  EXPECT_EQ(page->maximum(), 5);
  EXPECT_EQ(page->value(), 2);
  EXPECT_EQ(Child<PageView>(preview, "pages")->Page(), 1);
  EXPECT_EQ(zoom->currentText(), QStringLiteral("50%"));
  ReplaceTextFile(Documents() + "text", Numbered(10));
  Choose("mnuWindowItem(0)");
  EXPECT_EQ(page->maximum(), 1);
  EXPECT_EQ(page->value(), 1);
  RemoveFile(Documents() + "text");
  Choose("mnuWindowItem(0)");
  EXPECT_FALSE(Child<QPushButton>(preview, "print")->isEnabled());
}

TEST_F(ListingsTest, ACheckLeavesAnOpenInputListAsItIs) {
  OpenSample(QStringLiteral("連続梁"));
  Choose("mnuFileItem(9)");
  Form* const preview = OpenForm("frmPrnText");
  Click(*preview, "copy");
  const QString list = QApplication::clipboard()->text();
  Script().ExpectBox(QStringLiteral("エラーはありませんでした。"), QStringLiteral("OK"));
  Choose("mnuTestNodeCheck");
  Click(*preview, "copy");
  EXPECT_EQ(QApplication::clipboard()->text(), list);
}

TEST_F(ListingsTest, AnOpenReaderFollowsItsFileAndKeepsItsPlace) {
  Form* const reader = Show(kPrintCheck, false, Numbered(20000));
  auto* const text = Child<QPlainTextEdit>(reader, "text");
  ASSERT_TRUE(QTest::qWaitFor([&] { return text->document()->blockCount() > 15000; }));
  text->verticalScrollBar()->setValue(12000);
  ReplaceTextFile(Documents() + "text", "新しい\r\n" + Numbered(19999));
  Choose("mnuWindowItem(0)");
  EXPECT_EQ(text->verticalScrollBar()->value(), 12000);
  EXPECT_EQ(text->document()->firstBlock().text(), QStringLiteral("新しい"));
}

TEST_F(ListingsTest, AnOpenListingIsThatOfTheLastAnalysis) {
  OpenSample(QStringLiteral("連続梁"));
  Choose("mnuAnalysisStatic(0)");
  Choose("mnuAnalysisStatic(2)");
  auto* const pdf = Child<QPushButton>(OpenForm("frmPrnText"), "pdf");
  EXPECT_TRUE(pdf->isEnabled());
  ReplaceTextFile(WorkPath + "ELEM", "");  // nothing can be analysed now, and the listing goes
  Script().ExpectBox(QStringLiteral("要素データの入力がありません"), QStringLiteral("OK"));
  Choose("mnuAnalysisStatic(0)");
  EXPECT_FALSE(FileExists(Sample("連続梁.out")));
  EXPECT_FALSE(pdf->isEnabled());
  EXPECT_EQ(Child<QPlainTextEdit>(OpenForm("frmKakuninText"), "text")->toPlainText(), QString());
}

// Members pinned where they fall: rounding hides it from the solver.
TEST_F(ListingsTest, WhatCannotBeTrustedIsToldBeforeItsListingOpens) {
  const std::string deck = Sample("崩れる梁.inp");
  ReplaceTextFile(deck,
                  "@CONT\r\n1,1,0,0\r\n@UNIT\r\n1,1,9.80665,0\r\n@NODE\r\n1,0,0,1,1,0\r\n2,3,0.7,0,0,0\r\n"
                  "3,7,1.9,0,1,0\r\n4,9,4.1,0,0,0\r\n@ELEM\r\n1,1,2,0,1,1\r\n2,2,3,1,0,1\r\n3,3,4,0,0,1\r\n"
                  "@SECT\r\n1,0,100,20000,0,0,1,205000,79000\r\n@PLOD\r\n1,2,0,-10,0\r\n1,4,0,-10,0\r\n");
  Window().OpenDeck(ToQt(deck));
  bool listingOpen = true;
  Script().Expect(QStringLiteral("釣り合いが失われています"), [&](QWidget& box) {
    listingOpen = OpenForm("frmKakuninText") != nullptr;
    static_cast<QDialog&>(box).accept();
  });
  Choose("mnuAnalysisStatic(0)");
  EXPECT_FALSE(listingOpen);
  EXPECT_NE(OpenForm("frmKakuninText"), nullptr);
  const auto* const results = Child<QLabel>(&Window(), "statusResults");
  EXPECT_EQ(FromQt(results->text()), "解析結果は信頼できません");
  OpenSample(QStringLiteral("連続梁"));
  EXPECT_EQ(FromQt(results->text()), "解析結果なし");
  Window().OpenDeck(ToQt(deck));
  EXPECT_EQ(FromQt(results->text()), "解析結果は信頼できません") << "it stands beside the results";
}

TEST_F(ListingsTest, EscClosesTheReader) {
  Form* const reader = Show(kPrintCheck, false, "a\r\n");
  QTest::keyClick(Child<QPlainTextEdit>(reader, "text"), Qt::Key_Escape);
  QApplication::processEvents();
  EXPECT_EQ(OpenForm("frmKakuninText"), nullptr);
}

TEST_F(ListingsTest, ThePageFieldAndTheKeysGoToAPage) {
  Form* const preview = Show(kPrintOther, true, Numbered(200));  // 71 lines a page: three pages
  auto* const page = Child<QSpinBox>(preview, "page");
  auto* const view = Child<PageView>(preview, "pages");
  EXPECT_EQ(page->maximum(), 3);
  page->setValue(3);
  EXPECT_EQ(view->Page(), 2);
  QTest::keyClick(view, Qt::Key_PageUp);
  EXPECT_EQ(page->value(), 2);
  QTest::keyClick(view, Qt::Key_Home);
  EXPECT_EQ(page->value(), 1);
  QTest::keyClick(view, Qt::Key_End);
  EXPECT_EQ(page->value(), 3);
}

TEST_F(ListingsTest, ZoomByListAndByKeys) {
  Form* const preview = Show(kPrintOther, true, Numbered(10));
  auto* const zoom = Child<QComboBox>(preview, "zoom");
  auto* const view = Child<PageView>(preview, "pages");
  EXPECT_EQ(zoom->currentText(), QStringLiteral("100%"));
  QTest::keyClick(view, Qt::Key_Plus);
  EXPECT_EQ(zoom->currentText(), QStringLiteral("125%"));
  EXPECT_EQ(view->Zoom(), 1.25);
  zoom->setCurrentText(QStringLiteral("全体表示"));
  EXPECT_EQ(view->Zoom(), 0);
}

TEST_F(ListingsTest, ThePageGoesToTheClipboardAsTextAndPicture) {
  Form* const preview = Show(kPrintOther, true, "NODE   XX\r\n   1  0.0\r\n");
  Click(*preview, "copy");
  const QMimeData* const copied = QApplication::clipboard()->mimeData();
  EXPECT_EQ(copied->text(), QStringLiteral("NODE   XX\n   1  0.0\n"));
  EXPECT_TRUE(copied->hasImage());
}

TEST_F(ListingsTest, PrintingWithoutAPrinterGoesToAFileOfTheUsersChoice) {
  Form* const preview = Show(kPrintOther, true, Numbered(100));
  const std::string file = Documents() + "印刷.pdf";
  Script().Expect(QString(), [file](QWidget& window) {
    auto& dialog = dynamic_cast<QPrintDialog&>(window);
    dialog.printer()->setOutputFileName(ToQt(file));
    dialog.done(QDialog::Accepted);
  });
  Click(*preview, "print");
  EXPECT_THAT(ReadBytes(file), StartsWith("%PDF"));
}

TEST_F(ListingsTest, ThePreviewTakesTheKeysThatAMenuEntryHasToo) {
  OpenSample(QStringLiteral("連続梁"));  // with it Ctrl+P prints the input list
  Form* const preview = Show(kPrintOther, true, Numbered(100));
  for (const char* const focus : {"pages", "page", "zoom"}) {
    Script().Expect(QString(), [](QWidget& window) {
      EXPECT_NE(dynamic_cast<QPrintDialog*>(&window), nullptr);
      static_cast<QDialog&>(window).reject();
    });
    auto* const widget = Child<QWidget>(preview, focus);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(Script().Done()) << focus;
  }
  EXPECT_NE(FromQt(preview->windowTitle()).find("text"), std::string::npos);
  QApplication::clipboard()->clear();
  Child<QWidget>(preview, "pages")->setFocus();
  QTest::keyClick(Child<QWidget>(preview, "pages"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_THAT(FromQt(QApplication::clipboard()->text()), HasSubstr("行 1\n"));
}

TEST_F(ListingsTest, TheSettingsOfThePreviewAreKeptAndThePagesFollowThem) {
  Form* const preview = Show(kPrintOther, true, Numbered(200));
  Script().Expect(QStringLiteral("frmPrinterSet2"), [](QWidget& dialog) {
    Child<QComboBox>(&dialog, "paper")->setCurrentText(QStringLiteral("A3"));
    Child<QRadioButton>(&dialog, "横")->setChecked(true);
    Child<QSpinBox>(&dialog, "firstPage")->setValue(12);
    Click(dialog, "ok");
  });
  Click(*preview, "setUp");
  EXPECT_EQ(PrinterSettings.paper, "A3");
  EXPECT_EQ(PrinterSettings.orientation, kLandscape);
  EXPECT_EQ(PrinterSettings.firstPage, 12);
  EXPECT_THAT(ReadTextFile(AppPath + "PrinterInf.Ini"), HasSubstr("\"A3\"\r\n2\r\n"));
  EXPECT_EQ(Child<QSpinBox>(preview, "page")->maximum(), 1);  // two long columns take it all
}

TEST_F(ListingsTest, CancelledSettingsChangeNothing) {
  const PrinterRec before = PrinterSettings;
  Script().Expect(QStringLiteral("frmPrinterSet"), [](QWidget& dialog) {
    Child<QComboBox>(&dialog, "paper")->setCurrentText(QStringLiteral("A1"));
    Click(dialog, "cancel");
  });
  Choose("mnuFileItem(8)");
  EXPECT_EQ(PrinterSettings, before);
}

TEST_F(ListingsTest, ThePrinterFormOffersTheFourPapers) {
  Script().Expect(QStringLiteral("frmPrinterSet"), [](QWidget& dialog) {
    const auto* const paper = Child<QComboBox>(&dialog, "paper");
    QStringList papers;
    for (int i = 0; i < paper->count(); ++i) papers << paper->itemText(i);
    EXPECT_EQ(papers.join(QLatin1Char(' ')), QStringLiteral("A4 A3 B4 A1"));
    Click(dialog, "ok");
  });
  Choose("mnuFileItem(8)");
}

TEST_F(ListingsTest, ThirtyThousandLinesOpenAtOnceInBoth) {
  Show(kPrintOther, true, Numbered(30000));
  EXPECT_EQ(Child<QSpinBox>(OpenForm("frmPrnText"), "page")->maximum(), 423);  // 30000 / 71
  Form* const reader = Show(kPrintOther, false, Numbered(30000));
  auto* const text = Child<QPlainTextEdit>(reader, "text");
  EXPECT_EQ(text->textCursor().blockNumber(), 0);
  EXPECT_TRUE(QTest::qWaitFor([text] { return text->blockCount() == 30001; }));
}

TEST_F(ListingsTest, ALongPdfFileCanBeStoppedAndLeavesNothing) {
  Form* const preview = Show(kPrintOther, true, Numbered(400000));
  QTimer stopper;
  QObject::connect(&stopper, &QTimer::timeout, [&stopper] {
    const auto* const box = QApplication::activeModalWidget();
    auto* const stop = box == nullptr ? nullptr : box->findChild<QPushButton*>(QStringLiteral("stop"));
    if (stop == nullptr || !stop->isEnabled()) return;
    stopper.stop();
    QTest::mouseClick(stop, Qt::LeftButton);
  });
  stopper.start(20);
  Script().Expect(QStringLiteral("QFileDialog"), ChooseFile(Documents() + "長い.pdf"));
  Click(*preview, "pdf");
  EXPECT_FALSE(stopper.isActive()) << "it was over before it could be stopped";
  EXPECT_FALSE(FileExists(Documents() + "長い.pdf"));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ListingsTest, TheInputCheckShowsItsMessagesInTheReader) {
  ReplaceTextFile(Sample("誤り.inp"),
                  "@CONT\r\n1,1,0\r\n@NODE\r\n1,0,0,1,1,1\r\n1,0,4,0,0,0\r\n@ELEM\r\n1,1,1,0,0,1,0\r\n");
  Window().OpenDeck(ToQt(Sample("誤り.inp")));
  Choose("mnuTestNodeCheck");
  ASSERT_NE(OpenForm("frmKakuninText"), nullptr);
  EXPECT_EQ(Child<QLabel>(OpenForm("frmKakuninText"), "heading")->text(),
            QStringLiteral("<<エラーチェック>>"));
  EXPECT_THAT(FromQt(Child<QPlainTextEdit>(OpenForm("frmKakuninText"), "text")->toPlainText()),
              HasSubstr("節点二重定義エラー"));
}

TEST_F(ListingsTest, AModelWithoutFaultsGivesTheBoxAlone) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Script().ExpectBox(QStringLiteral("エラーはありませんでした。"), QStringLiteral("OK"));
  Choose("mnuTestNodeCheck");
  EXPECT_EQ(OpenForm("frmKakuninText"), nullptr);
}

TEST_F(ListingsTest, TheCsvDialogWritesThreeFiles) {
  OpenSample(QStringLiteral("鉄骨ラーメン"));
  Choose("mnuAnalysisStatic(0)");
  const std::string folder = Documents();
  Script().Expect(QStringLiteral("frmCsvFile"), [](QWidget& dialog) {
    EXPECT_EQ(Child<QLineEdit>(&dialog, "name")->text(), QStringLiteral("鉄骨ラーメン"));
    Child<QLineEdit>(&dialog, "folder")->clear();
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("出力先フォルダを指定してください"), QStringLiteral("OK"));
  Script().Expect(QStringLiteral("frmCsvFile"), [folder](QWidget& dialog) {
    EXPECT_TRUE(Child<QLineEdit>(&dialog, "folder")->hasFocus());
    Child<QLineEdit>(&dialog, "folder")->setText(ToQt(folder));
    Click(dialog, "ok");
  });
  Script().ExpectBox(QStringLiteral("CSVファイルを作成しました"), QStringLiteral("OK"));
  Choose("mnuAnalysisStatic(3)");
  for (const char* const ending : {"_D.CSV", "_S.CSV", "_R.CSV"})
    EXPECT_TRUE(FileExists(folder + "鉄骨ラーメン" + ending)) << ending;
}

}  // namespace
}  // namespace zorlan::test

#include "desktop/print_job.h"

#include <functional>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>
#include <QWindow>

#include "desktop/busy.h"
#include "desktop/desktop_test.h"
#include "desktop/preview_pages.h"
#include "shell/commands.h"

namespace zorlan::test {
namespace {

/// Three pages, and what happens while one is painted.
class WatchedPages final : public PreviewPages {
 public:
  explicit WatchedPages(std::function<void(int page)> during) : during_(std::move(during)) {}
  QString Caption() const override { return {}; }
  void LayOut() override {}
  int Count() const override { return 3; }
  QSize Sheet() const override { return {2100, 2970}; }
  void Paint(QPainter&, int page) override {
    painted.push_back(page);
    during_(page);
  }
  std::string Pdf(const std::function<void(double)>&) override { return {}; }
  QString FileName() const override { return {}; }
  QString Text(int) const override { return {}; }

  std::vector<int> painted;

 private:
  std::function<void(int page)> during_;
};

class PrintJobTest : public DesktopTest {
 protected:
  PrintJobTest() {
    ReplaceTextFile(Documents() + "text", "一行目\r\n");
    ShowText(kPrintOther, /*preview=*/true, Documents() + "text");
  }
  Form* Preview() { return OpenForm("frmPrnText"); }
  QProgressDialog* Box() { return Preview()->findChild<QProgressDialog*>(QStringLiteral("printBox")); }
  void Print(WatchedPages& pages) {
    QPrinter printer;
    printer.setOutputFileName(ToQt(Documents() + "print.pdf"));
    PrintPages(printer, pages, Preview());
  }
};

TEST_F(PrintJobTest, EscInTheWindowWhileTheFirstPageIsPaintedClosesNothing) {
  WatchedPages pages([this](int page) {
    if (page != 0) return;
    EXPECT_TRUE(Box()->isVisible());
    EXPECT_TRUE(IsBusy());  // no command begins
    QTest::keyClick(Window().windowHandle(), Qt::Key_Escape);
  });
  Script().ExpectBox(QStringLiteral("印刷処理を中止しますか？"),
                     QStringLiteral("いいえ"));  // the box took it
  Print(pages);
  ASSERT_NE(Preview(), nullptr);
  EXPECT_TRUE(Preview()->isVisible());
  EXPECT_EQ(pages.painted, (std::vector{0, 1, 2}));
  EXPECT_FALSE(IsBusy());
}

TEST_F(PrintJobTest, EscInItsBoxAsksAndTheBoxStays) {
  WatchedPages pages([this](int page) {
    EXPECT_TRUE(Box()->isVisible()) << page;
    if (page == 0) QTest::keyClick(Box(), Qt::Key_Escape);
    if (page == 1) Box()->close();
  });
  for (int n = 0; n < 2; ++n)
    Script().ExpectBox(QStringLiteral("印刷処理を中止しますか？"), QStringLiteral("いいえ"));
  Print(pages);
  EXPECT_EQ(pages.painted, (std::vector{0, 1, 2}));
  EXPECT_TRUE(Script().Done());
}

TEST_F(PrintJobTest, APrintThatFailsLeavesNeitherBoxNorHourglass) {
  WatchedPages pages([](int) { throw std::runtime_error("no more paper"); });
  EXPECT_THROW(Print(pages), std::runtime_error);
  EXPECT_FALSE(IsBusy());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace zorlan::test

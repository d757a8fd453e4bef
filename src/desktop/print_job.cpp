#include "desktop/print_job.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDialog>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>

#include "base/fault.h"
#include "base/host.h"
#include "desktop/busy.h"
#include "desktop/preview_pages.h"
#include "output/text_pages.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"
#include "shell/settings.h"

namespace zorlan {
namespace {

QPrinter::DuplexMode DuplexOf(std::int16_t duplex) {
  if (duplex == kLongEdge) return QPrinter::DuplexLongSide;
  return duplex == kShortEdge ? QPrinter::DuplexShortSide : QPrinter::DuplexNone;
}

/// The box over a running print: cancelling it asks. It is there from the first page on and modal to the
/// last, so that nothing can take the pages away.
class PrintBox : public QProgressDialog {
 public:
  PrintBox(int pages, QWidget* parent) : QProgressDialog(parent) {
    setObjectName(QStringLiteral("printBox"));
    setWindowTitle(ToQt(kApplicationTitle));
    setWindowModality(Qt::ApplicationModal);
    setRange(0, pages);
    setCancelButtonText(QStringLiteral("キャンセル"));
    setAutoReset(false);
    // The base closes at once; here the user is asked first.
    disconnect(this, &QProgressDialog::canceled, this, &QProgressDialog::cancel);
    connect(this, &QProgressDialog::canceled, this, [this] { asked_ = true; });
  }
  void ShowPage(int page) {
    setLabelText(QStringLiteral("%1 ページを印刷しています").arg(page));
    setValue(std::max(0, page - 1));
    show();
    QCoreApplication::processEvents();
  }
  void reject() override { asked_ = true; }
  /// Whether the user has cancelled and, asked, stands by it.
  bool BrokenOff() {
    if (!asked_) return false;
    asked_ = false;
    return TheHost().question("印刷処理を中止しますか？", kApplicationTitle, Buttons::YesNo) == Answer::Yes;
  }

 private:
  bool asked_ = false;
};

}  // namespace

void SetUpPrinterOf(QPrinter& printer, const PrinterRec& settings, const PreviewPages& pages) {
  if (!settings.name.empty()) printer.setPrinterName(ToQt(settings.name));
  printer.setFullPage(true);
  printer.setDocName(ToQt(kJobTitle));
  printer.setColorMode(settings.colourMode == kColour ? QPrinter::Color : QPrinter::GrayScale);
  printer.setDuplex(DuplexOf(settings.duplex));
  SetSheet(printer, QSizeF(pages.Sheet()) / kUnitsPerMm);
}

void PrintPages(QPrinter& printer, PreviewPages& pages, QWidget* parent) {
  printer.setFullPage(true);
  const int count = pages.Count();
  const bool range = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  const int first = range ? printer.fromPage() : 1;
  const int last = range ? std::min(printer.toPage(), count) : count;
  const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
  QPainter painter;
  if (!painter.begin(&printer))
    throw Fault("プリンタ「" + FromQt(printer.printerName()) + "」に印刷できません");
  UsePageUnits(painter, printer.resolution());
  const BusyWhile busy;
  PrintBox box((last - first + 1) * copies, parent);
  bool fresh = true;
  for (int copy = 0; copy < copies; ++copy)
    for (int page = first; page <= last; ++page) {
      box.ShowPage(copy * (last - first + 1) + page - first + 1);
      if (box.BrokenOff()) {
        printer.abort();
        return;
      }
      if (!fresh && !printer.newPage()) throw Fault("印刷の途中で、プリンタが応答しなくなりました");
      fresh = false;
      pages.Paint(painter, page - 1);
    }
}

}  // namespace zorlan

#include "desktop/prn_text.h"

#include <algorithm>
#include <exception>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>

#include "base/host.h"
#include "base/text_file.h"
#include "desktop/busy.h"
#include "desktop/print_job.h"
#include "desktop/printer_set.h"
#include "model/model_state.h"
#include "output/print_flag.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"
#include "shell/page_setup.h"

namespace zorlan {
namespace {

struct ZoomRow {
  const char* caption;
  double zoom;  // 0: the whole sheet
};
constexpr ZoomRow kZooms[] = {{"200%", 2},   {"175%", 1.75}, {"150%", 1.5}, {"125%", 1.25}, {"100%", 1},
                              {"75%", 0.75}, {"50%", 0.5},   {"25%", 0.25}, {"全体表示", 0}};
constexpr int kFirstZoom = 4;

constexpr double kClipboardDpi = 200;
constexpr int kButtonRoom = 12;  // pixels beside a caption

QPushButton* Button(const char* caption, const char* name, const char* tip) {
  auto* const button = new QPushButton(QString::fromUtf8(caption));
  button->setObjectName(QString::fromLatin1(name));
  button->setToolTip(QString::fromUtf8(tip));
  button->setMinimumWidth(button->sizeHint().width() + kButtonRoom);
  return button;
}

/// A page's lines as text, its columns kept.
QString TextOfPage(const TextPage& page) {
  QString text;
  for (const PlacedLine& line : page.lines) text += ToQt(line.text) + QLatin1Char('\n');
  return text;
}

}  // namespace

frmPrnText::frmPrnText(const SystemPrinters& printers) : Form("frmPrnText"), printers_(printers) {
  Build();
}

void frmPrnText::Build() {
  view_ = new PageView;
  zoom_ = new QComboBox;
  zoom_->setObjectName(QStringLiteral("zoom"));
  zoom_->setToolTip(QStringLiteral("表示倍率 (Ctrl+ホイール)"));
  for (const ZoomRow& row : kZooms) zoom_->addItem(QString::fromUtf8(row.caption));
  page_ = new QSpinBox;
  page_->setObjectName(QStringLiteral("page"));
  page_->setKeyboardTracking(false);
  page_->setMinimumWidth(72);
  count_ = new QLabel;
  print_ = Button("印刷", "print", "プリンタで印刷します (Ctrl+P)");
  pdf_ = Button("ＰＤＦファイル出力", "pdf", "全ページをＰＤＦファイルに書き出します");
  auto* const dxf = Button("ＤＸＦファイル出力", "dxf", "図のページをＤＸＦファイルに書き出します");
  dxf->setEnabled(false);
  auto* const options = Button("表示属性設定", "options", "図の色や文字の大きさを設定します");
  options->setEnabled(false);
  copy_ = Button("クリップボードへコピー", "copy", "表示ページを文字と画像でコピーします (Ctrl+C)");
  auto* const setUp = Button("プリンタ設定", "setUp", "用紙と向き、頁番号を設定します");
  auto* const closing = Button("閉じる", "close", "プレビューを閉じます (Esc)");

  auto* const row = new QHBoxLayout;
  row->addWidget(zoom_);
  row->addSpacing(8);
  row->addWidget(new QLabel(QStringLiteral("表示ページ")));
  row->addWidget(page_);
  row->addWidget(count_);
  row->addStretch();
  for (QPushButton* const button : {print_, pdf_, dxf, options, copy_, setUp, closing})
    row->addWidget(button);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addLayout(row);
  column->addWidget(view_, 1);
  SetFirst(view_);

  connect(zoom_, &QComboBox::currentIndexChanged, this, &frmPrnText::SetZoomOf);
  connect(view_, &PageView::zoomAsked, this, [this](int steps) {
    zoom_->setCurrentIndex(std::clamp(zoom_->currentIndex() - steps, 0, zoom_->count() - 1));
  });
  connect(view_, &PageView::pageChanged, this, [this](int page) {
    const QSignalBlocker quiet(page_);
    page_->setValue(page + 1);
  });
  connect(page_, &QSpinBox::valueChanged, this, [this](int number) { view_->GoTo(number - 1); });
  connect(print_, &QPushButton::clicked, this, &frmPrnText::Print);
  connect(pdf_, &QPushButton::clicked, this, &frmPrnText::WritePdf);
  connect(copy_, &QPushButton::clicked, this, &frmPrnText::CopyPage);
  connect(setUp, &QPushButton::clicked, this, &frmPrnText::SetUpPrinter);
  connect(closing, &QPushButton::clicked, this, &frmPrnText::CloseForm);
  const auto key = [this](const QKeySequence& keys, void (frmPrnText::*action)()) {
    auto* const shortcut = new QShortcut(keys, view_);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, action);
  };
  key(QKeySequence::Copy, &frmPrnText::CopyPage);
  key(QKeySequence::Print, &frmPrnText::Print);
  zoom_->setCurrentIndex(kFirstZoom);
}

void frmPrnText::ShowListing(int flag, const std::string& path) {
  const bool same = flag == flag_ && path == file_.Path() && !path.empty();
  flag_ = flag;
  file_.Look(path);
  setWindowTitle(QStringLiteral("印刷プレビュー　") + ToQt(path.substr(path.rfind('/') + 1)));
  ReadFile();
  LayOut(same ? PageView::Place::Kept : PageView::Place::First);
}

void frmPrnText::Renew() {
  // The input list's scratch file also takes the deck of a check: the list stays as it was made.
  if (flag_ == kPrintInputList || !file_.Changed()) return;
  file_.Look(file_.Path());
  ReadFile();
  LayOut();
}

void frmPrnText::ReadFile() {
  pages_ = {};  // they point into the text
  text_ = FileExists(file_.Path()) ? ReadTextFile(file_.Path()) : std::string();
}

void frmPrnText::LayOut(PageView::Place place) {
  pages_ = LayOutTextPages(text_, StyleOfFlag(flag_), PageSetupOf(PrinterSettings));
  RemoveFile(WorkPath + "Dum.txt");  // the scan's scratch file of former releases
  if (!FileExists(file_.Path())) pages_.pages.clear();
  const int count = static_cast<int>(pages_.pages.size());
  view_->SetPages(
      count, pages_.width, pages_.height,
      [this](QPainter& painter, int page) { PaintTextPage(painter, pages_, page); }, place);
  {
    const QSignalBlocker quiet(page_);
    page_->setRange(std::min(1, count), count);
    page_->setValue(view_->Page() + 1);
  }
  count_->setText(QStringLiteral("/ %1").arg(count));
  for (QWidget* const widget : {static_cast<QWidget*>(page_), static_cast<QWidget*>(print_),
                                static_cast<QWidget*>(pdf_), static_cast<QWidget*>(copy_)})
    widget->setEnabled(count > 0);
}

void frmPrnText::SetZoomOf(int row) {
  view_->SetZoom(kZooms[row].zoom);
}

void frmPrnText::Print() {
  if (pages_.pages.empty()) return;
  QPrinter printer(QPrinter::HighResolution);
  SetUpPrinterOf(printer, PrinterSettings, pages_);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(QStringLiteral("印刷"));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  dialog.setMinMax(1, static_cast<int>(pages_.pages.size()));
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    PrintTextPages(printer, pages_, this);
  } catch (const std::exception& fault) {
    ReportError("frmPrnText", fault.what());
  }
}

void frmPrnText::WritePdf() {
  if (pages_.pages.empty()) return;
  const QFileInfo listing(ToQt(file_.Path()));
  const QString proposed = ToQt(DataPath + ProjectName) + listing.completeBaseName() + QStringLiteral(".pdf");
  const QString target = QFileDialog::getSaveFileName(this, QStringLiteral("ＰＤＦファイル出力"), proposed,
                                                      QStringLiteral("ＰＤＦ (*.pdf)"));
  if (target.isEmpty()) return;
  const bool named = target.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
  std::string failure;
  SetBusy(true);
  try {
    const std::string pdf =
        TextPagesPdf(pages_, [](double share) { ShowProgress("ＰＤＦファイル出力", share); });
    ReplaceBytes(FromQt(named ? target : target + QStringLiteral(".pdf")), pdf);
  } catch (const UserStop&) {
    // Nothing was written; the user knows.
  } catch (const std::exception& fault) {
    failure = fault.what();
  }
  EndBusy();
  if (!failure.empty()) Tell(failure);
}

void frmPrnText::CopyPage() {
  if (pages_.pages.empty()) return;
  const int page = view_->Page();
  constexpr double kDotsPerUnit = kClipboardDpi / (25.4 * kUnitsPerMm);
  QImage image(static_cast<int>(pages_.width * kDotsPerUnit), static_cast<int>(pages_.height * kDotsPerUnit),
               QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  UsePageUnits(painter, kClipboardDpi);
  PaintTextPage(painter, pages_, page);
  painter.end();
  auto* const copied = new QMimeData;
  copied->setText(TextOfPage(pages_.pages[static_cast<std::size_t>(page)]));
  copied->setImageData(image);
  QApplication::clipboard()->setMimeData(copied);
}

void frmPrnText::SetUpPrinter() {
  frmPrinterSet2 dialog(printers_, this);
  if (dialog.exec() == QDialog::Accepted) LayOut();
}

QSize frmPrnText::sizeHint() const {
  return {960, 680};
}

}  // namespace zorlan

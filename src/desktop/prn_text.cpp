#include "desktop/prn_text.h"

#include <algorithm>
#include <exception>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSpinBox>

#include "base/host.h"
#include "base/text_file.h"
#include "desktop/busy.h"
#include "desktop/dialog_buttons.h"
#include "desktop/flow_row.h"
#include "desktop/print_job.h"
#include "desktop/printer_set.h"
#include "desktop/save_file.h"
#include "model/model_state.h"
#include "output/batch_print.h"
#include "output/dxf_page.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"

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

/// The filter in the toolkit's own form: a name with its pattern in brackets.
QString DxfFilter() {
  const QStringList parts = ToQt(kDxfFilter).split(QLatin1Char('|'));
  QStringList names;
  for (qsizetype i = 0; i < parts.size(); i += 2) names.append(parts[i]);
  return names.join(QLatin1String(";;"));
}

}  // namespace

frmPrnText::frmPrnText(const SystemPrinters& printers) : Form("frmPrnText"), printers_(printers) {
  Build();
}

frmPrnText::~frmPrnText() {
  RemoveSelection();
}

void frmPrnText::Build() {
  view_ = new PageView;
  zoom_ = new QComboBox;
  zoom_->setObjectName(QStringLiteral("zoom"));
  zoom_->setToolTip(QStringLiteral("表示倍率 (Ctrl+ホイール)"));
  zoom_->installEventFilter(this);
  for (const ZoomRow& row : kZooms) zoom_->addItem(QString::fromUtf8(row.caption));
  page_ = new QSpinBox;
  page_->setObjectName(QStringLiteral("page"));
  page_->setKeyboardTracking(false);
  page_->setMinimumWidth(72);
  count_ = new QLabel;
  print_ = CommandButton("印刷", "print", "プリンタで印刷します (Ctrl+P)");
  pdf_ = CommandButton("ＰＤＦファイル出力", "pdf", "全ページをＰＤＦファイルに書き出します");
  dxf_ = CommandButton("ＤＸＦファイル出力", "dxf", "図のページをＤＸＦファイルに書き出します");
  options_ = CommandButton("表示属性設定", "options", "図の色や文字の大きさを設定します");
  copy_ = CommandButton("クリップボードへコピー", "copy", "表示ページを文字と画像でコピーします (Ctrl+C)");
  auto* const setUp = CommandButton("プリンタ設定", "setUp", "用紙と向き、頁番号を設定します");
  auto* const closing = CommandButton("閉じる", "close", "プレビューを閉じます (Esc)");

  auto* const pages = new QWidget;
  auto* const pageRow = new QHBoxLayout(pages);
  pageRow->setContentsMargins(4, 0, 8, 0);
  pageRow->addWidget(new QLabel(QStringLiteral("表示ページ")));
  pageRow->addWidget(page_);
  pageRow->addWidget(count_);
  auto* const row = new FlowRow;
  row->addWidget(zoom_);
  row->addWidget(pages);
  for (QPushButton* const button : {print_, pdf_, dxf_, options_, copy_, setUp, closing})
    row->addWidget(button);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  note_ = new QLabel;
  note_->setObjectName(QStringLiteral("note"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  column->addLayout(row);
  column->addWidget(note_);
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
  connect(dxf_, &QPushButton::clicked, this, &frmPrnText::WriteDxf);
  connect(options_, &QPushButton::clicked, this, [this] {
    if (const std::optional<int> kind = pages_->KindOn(view_->Page())) emit optionsAsked(*kind);
  });
  connect(copy_, &QPushButton::clicked, this, &frmPrnText::CopyPage);
  connect(setUp, &QPushButton::clicked, this, &frmPrnText::SetUpPrinter);
  connect(closing, &QPushButton::clicked, this, &frmPrnText::CloseForm);
  zoom_->setCurrentIndex(kFirstZoom);
}

void frmPrnText::ShowListing(int flag, const std::string& path) {
  const auto* const shown = dynamic_cast<const ListingPages*>(pages_.get());
  const bool same = shown != nullptr && shown->IsOf(flag, path);
  auto pages = std::make_unique<ListingPages>(flag, path);
  pages->Renew();
  ShowPages(std::move(pages), same ? PageView::Place::Kept : PageView::Place::First);
}

void frmPrnText::ShowFigures(std::unique_ptr<FigurePreview> pages) {
  ShowPages(std::move(pages), PageView::Place::First);
}

void frmPrnText::ShowPages(std::unique_ptr<PreviewPages> pages, PageView::Place place) {
  pages_ = std::move(pages);
  LayOut(place);
}

void frmPrnText::Renew() {
  if (pages_ != nullptr && pages_->Renew()) LayOut();
}

void frmPrnText::FollowOptions() {
  view_->viewport()->update();
}

void frmPrnText::LayOut(PageView::Place place) {
  pages_->LayOut();
  setWindowTitle(QStringLiteral("印刷プレビュー　") + pages_->Caption());
  note_->setText(pages_->Note());
  note_->setVisible(!note_->text().isEmpty());
  const int count = Count();
  const QSize sheet = pages_->Sheet();
  // As it will be printed; who has no printer hasn't chosen either, and a PDF is in colour.
  view_->SetGrey(!PrinterSettings.name.empty() && PrinterSettings.colourMode != kColour);
  view_->SetPages(
      count, sheet.width(), sheet.height(),
      [this](QPainter& painter, int page) { pages_->Paint(painter, page); }, place);
  {
    const QSignalBlocker quiet(page_);
    page_->setRange(std::min(1, count), count);
    page_->setValue(view_->Page() + 1);
  }
  count_->setText(QStringLiteral("/ %1").arg(count));
  for (QWidget* const widget : {static_cast<QWidget*>(page_), static_cast<QWidget*>(print_),
                                static_cast<QWidget*>(pdf_), static_cast<QWidget*>(copy_)})
    widget->setEnabled(count > 0);
  for (QPushButton* const button : {dxf_, options_}) button->setEnabled(pages_->KindOn(0).has_value());
}

void frmPrnText::SetZoomOf(int row) {
  view_->SetZoom(kZooms[row].zoom);
}

void frmPrnText::Print() {
  Renew();
  if (Count() == 0) return;
  QPrinter printer(QPrinter::HighResolution);
  SetUpPrinterOf(printer, PrinterSettings, *pages_);
  QPrintDialog dialog(&printer, this);
  dialog.setWindowTitle(QStringLiteral("印刷"));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                    QAbstractPrintDialog::PrintCollateCopies);
  dialog.setMinMax(1, Count());
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    PrintPages(printer, *pages_, this);
  } catch (const std::exception& fault) {
    ReportError("frmPrnText", fault.what());
  }
}

void frmPrnText::WritePdf() {
  Renew();
  if (Count() == 0) return;
  const QString proposed = ToQt(DataPath + ProjectName) + pages_->FileName() + QStringLiteral(".pdf");
  const QString target = AskSaveFile(this, QStringLiteral("ＰＤＦファイル出力"), proposed,
                                     QStringLiteral("ＰＤＦ (*.pdf)"), QStringLiteral(".pdf"));
  if (target.isEmpty()) return;
  std::string failure;
  SetBusy(true);
  try {
    const std::string pdf = pages_->Pdf([](double share) { ShowProgress("ＰＤＦファイル出力", share); });
    ReplaceBytes(FromQt(target), pdf);
    SayWritten(target);
  } catch (const UserStop&) {
    // Nothing was written; the user knows.
  } catch (const std::exception& fault) {
    failure = fault.what();
  }
  EndBusy();
  if (!failure.empty()) Tell(failure);
}

void frmPrnText::WriteDxf() {
  Renew();
  if (Count() == 0) return;
  const int page = view_->Page();
  const QString proposed =
      ToQt(DataPath + ProjectName) + ToQt(DxfPageName(pages_->Number(page))) + QStringLiteral(".dxf");
  const QString target =
      AskSaveFile(this, QStringLiteral("ＤＸＦファイル出力"), proposed, DxfFilter(), QStringLiteral(".dxf"));
  if (target.isEmpty()) return;
  SetBusy(true);
  if (pages_->WriteDxf(page, FromQt(target))) SayWritten(target);
  EndBusy();
}

void frmPrnText::SayWritten(const QString& file) {
  Say(QStringLiteral("%1 に書き出しました").arg(QFileInfo(file).fileName()));
}

void frmPrnText::CopyPage() {
  Renew();
  if (Count() == 0) return;
  const int page = view_->Page();
  constexpr double kDotsPerUnit = kClipboardDpi / (25.4 * kUnitsPerMm);
  QImage image((QSizeF(pages_->Sheet()) * kDotsPerUnit).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  UsePageUnits(painter, kClipboardDpi);
  pages_->Paint(painter, page);
  painter.end();
  auto* const copied = new QMimeData;
  if (const QString text = pages_->Text(page); !text.isEmpty()) copied->setText(text);
  copied->setImageData(image);
  QApplication::clipboard()->setMimeData(copied);
}

void frmPrnText::SetUpPrinter() {
  frmPrinterSet2 dialog(printers_, this);
  if (dialog.exec() == QDialog::Accepted) LayOut();
}

bool frmPrnText::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {  // the menus have entries with these keys
    event->setAccepted(ActionOf(*static_cast<QKeyEvent*>(event)) != nullptr);
    return true;
  }
  return Form::event(event);
}

void frmPrnText::keyPressEvent(QKeyEvent* event) {
  if (const Action action = ActionOf(*event))
    (this->*action)();
  else
    Form::keyPressEvent(event);
}

/// The list of zooms would look for a row that begins with the key's letter.
bool frmPrnText::eventFilter(QObject* watched, QEvent* event) {
  const bool ours = watched == zoom_ && event->type() == QEvent::KeyPress &&
                    ActionOf(*static_cast<QKeyEvent*>(event)) != nullptr;
  if (ours) keyPressEvent(static_cast<QKeyEvent*>(event));
  return ours || Form::eventFilter(watched, event);
}

frmPrnText::Action frmPrnText::ActionOf(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) return &frmPrnText::CopyPage;
  return key.matches(QKeySequence::Print) ? &frmPrnText::Print : nullptr;
}

QSize frmPrnText::sizeHint() const {
  return Form::sizeHint().expandedTo({960, 680});
}

}  // namespace zorlan

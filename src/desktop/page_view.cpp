#include "desktop/page_view.h"

#include <algorithm>
#include <cmath>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QScrollBar>
#include <QWheelEvent>

#include "output/text_pages.h"

namespace zorlan {
namespace {

constexpr int kGap = 14;  // pixels around a sheet
constexpr double kUnitsPerInch = 25.4 * kUnitsPerMm;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
  setObjectName(QStringLiteral("pages"));
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setBackgroundRole(QPalette::Mid);
}

void PageView::SetPages(int count, int width, int height, PaintPage paint, Place place) {
  const bool kept = place == Place::Kept && count_ > 0;
  const double top = kept ? verticalScrollBar()->value() / SheetStep() : 0;
  const int page = kept ? std::clamp(page_, 0, std::max(0, count - 1)) : 0;
  count_ = count;
  width_ = width;
  height_ = height;
  paint_ = std::move(paint);
  FitScrollBars();
  verticalScrollBar()->setValue(static_cast<int>(std::lround(top * SheetStep())));
  page_ = page;  // near the end it needn't be the one in the middle of the window
  viewport()->update();
  emit pageChanged(page_);
}

double PageView::Scale() const {
  if (width_ == 0 || height_ == 0) return 1;
  if (zoom_ > 0) return zoom_ * logicalDpiX() / kUnitsPerInch;
  const QSize room = viewport()->size();
  return std::max(
      1e-4, std::min(double(room.width() - 2 * kGap) / width_, double(room.height() - 2 * kGap) / height_));
}

double PageView::SheetStep() const {
  return height_ * Scale() + kGap;
}

void PageView::SetZoom(double zoom) {
  // What stands at the top of the window stays there.
  const double top = count_ > 0 ? verticalScrollBar()->value() / SheetStep() : 0;
  zoom_ = zoom;
  FitScrollBars();
  verticalScrollBar()->setValue(static_cast<int>(std::lround(top * SheetStep())));
  viewport()->update();
}

void PageView::FitScrollBars() {
  const QSize room = viewport()->size();
  const int width = static_cast<int>(std::ceil(width_ * Scale())) + 2 * kGap;
  const int height = static_cast<int>(std::ceil(count_ * SheetStep())) + kGap;
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setSingleStep(40);
  horizontalScrollBar()->setRange(0, std::max(0, width - room.width()));
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setSingleStep(40);
  verticalScrollBar()->setRange(0, std::max(0, height - room.height()));
}

void PageView::GoTo(int page) {
  if (count_ == 0) return;
  const int wanted = std::clamp(page, 0, count_ - 1);
  verticalScrollBar()->setValue(static_cast<int>(std::lround(wanted * SheetStep())));
  viewport()->update();
  if (page_ == wanted) return;
  // Near the end the page can't come to the top of the window; it is in sight all the same.
  page_ = wanted;
  emit pageChanged(page_);
}

void PageView::NotePage() {
  if (count_ == 0) return;
  const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
  const int page = std::clamp(static_cast<int>(middle / SheetStep()), 0, count_ - 1);
  if (page == page_) return;
  page_ = page;
  emit pageChanged(page_);
}

void PageView::paintEvent(QPaintEvent* event) {
  if (count_ == 0) return;
  if (!grey_) {
    QPainter painter(viewport());
    return PaintSheets(painter, event->rect());
  }
  const QRect part = event->rect();
  const double dots = devicePixelRatioF();
  QImage image(part.size() * dots, QImage::Format_RGB32);
  image.setDevicePixelRatio(dots);
  image.fill(viewport()->palette().color(viewport()->backgroundRole()));
  QPainter painter(&image);
  painter.translate(-part.topLeft());
  PaintSheets(painter, part);
  painter.end();
  QPainter(viewport()).drawImage(part.topLeft(), image.convertToFormat(QImage::Format_Grayscale8));
}

void PageView::SetGrey(bool grey) {
  grey_ = grey;
  viewport()->update();
}

void PageView::PaintSheets(QPainter& painter, const QRect& part) {
  const double scale = Scale();
  const double sheetWidth = width_ * scale, sheetHeight = height_ * scale;
  const double left =
      std::max(double(kGap), (viewport()->width() - sheetWidth) / 2) - horizontalScrollBar()->value();
  const double scrolled = verticalScrollBar()->value();
  const int first = std::max(0, static_cast<int>((scrolled + part.top() - kGap) / SheetStep()));
  for (int page = first; page < count_; ++page) {
    const double top = kGap + page * SheetStep() - scrolled;
    if (top > part.bottom()) break;
    const QRectF sheet(left, top, sheetWidth, sheetHeight);
    painter.fillRect(sheet.translated(3, 3), palette().color(QPalette::Dark));
    painter.fillRect(sheet, Qt::white);
    painter.save();
    painter.setClipRect(sheet);
    painter.translate(sheet.topLeft());
    painter.scale(scale, scale);
    paint_(painter, page);
    painter.restore();
  }
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  FitScrollBars();
  NotePage();
}

void PageView::scrollContentsBy(int, int) {
  viewport()->update();
  NotePage();
}

void PageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QAbstractScrollArea::wheelEvent(event);
    return;
  }
  emit zoomAsked(event->angleDelta().y() > 0 ? 1 : -1);
  event->accept();
}

void PageView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      return GoTo(page_ + 1);
    case Qt::Key_PageUp:
      return GoTo(page_ - 1);
    case Qt::Key_Home:
      return GoTo(0);
    case Qt::Key_End:
      return GoTo(count_ - 1);
    case Qt::Key_Plus:
    case Qt::Key_Semicolon:  // where a Japanese keyboard has the plus sign
      emit zoomAsked(1);
      return;
    case Qt::Key_Minus:
      emit zoomAsked(-1);
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace zorlan

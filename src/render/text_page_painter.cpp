#include "render/text_page_painter.h"

#include <algorithm>
#include <cmath>
#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPagedPaintDevice>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPointF>
#include <QSizeF>

#include "render/fonts.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

constexpr double kUnitsPerInch = 25.4 * kUnitsPerMm;

/// The font of this height, or of the smaller one in which the text is no wider than `width`.
QFont FittingFont(const QString& text, int width, int height) {
  QFont font = FixedFontOfHeight(height);
  const double natural = QFontMetricsF(font).horizontalAdvance(text);
  if (natural <= width) return font;
  font.setPixelSize(std::max(1, static_cast<int>(std::floor(height * width / natural))));
  return font;
}

void DrawAt(QPainter& painter, const QFont& font, double x, double y, const QString& text) {
  painter.setFont(font);
  painter.drawText(QPointF(x, y + QFontMetricsF(font).ascent()), text);
}

}  // namespace

void UsePageUnits(QPainter& painter, double dotsPerInch) {
  const double scale = dotsPerInch / kUnitsPerInch;
  painter.scale(scale, scale);
}

void TextInBox(QPainter& painter, int x, int y, int width, int height, std::string_view text) {
  const QString line = ToQt(text);
  DrawAt(painter, FittingFont(line, width, height), x, y, line);
}

void PaintTextPage(QPainter& painter, const TextPages& pages, int page) {
  const TextPage& content = pages.pages[static_cast<std::size_t>(page)];
  painter.setPen(Qt::black);
  for (const PlacedLine& line : content.lines)
    TextInBox(painter, line.x, line.y, line.width, pages.fontHeight, line.text);
  if (!content.number) return;
  const QString number = ToQt(PageName(*content.number));
  const QFont font = FixedFontOfHeight(pages.fontHeight);
  const double width = QFontMetricsF(font).horizontalAdvance(number);
  DrawAt(painter, font, (pages.width - width) / 2, content.numberY, number);
}

void SetSheet(QPagedPaintDevice& device, const QSizeF& sheet) {
  const bool landscape = sheet.width() > sheet.height();
  // By its size in mm: the library's own B sizes are not the Japanese ones.
  const QPageSize size(landscape ? sheet.transposed() : sheet, QPageSize::Millimeter, QString(),
                       QPageSize::ExactMatch);
  const QPageLayout layout(size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
  device.setPageLayout(layout);
}

void SetSheet(QPagedPaintDevice& device, const TextPages& pages) {
  SetSheet(device, QSizeF(double(pages.width) / kUnitsPerMm, double(pages.height) / kUnitsPerMm));
}

std::string TextPagesPdf(const TextPages& pages, const std::function<void(double share)>& pageDone) {
  if (pages.pages.empty()) return {};
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setResolution(kPageResolution);
    writer.setTitle(ToQt(kJobTitle));
    SetSheet(writer, pages);
    QPainter painter(&writer);
    UsePageUnits(painter, kPageResolution);
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
      if (page > 0) writer.newPage();
      PaintTextPage(painter, pages, static_cast<int>(page));
      if (pageDone) pageDone(static_cast<double>(page + 1) / static_cast<double>(pages.pages.size()));
    }
  }
  return bytes.toStdString();
}

}  // namespace zorlan

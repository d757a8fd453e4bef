// Listing pages on Qt's painter: the same on the screen, on a printer and in a PDF file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "output/text_pages.h"

class QPagedPaintDevice;
class QPainter;
class QSizeF;

namespace zorlan {

/// Sets the painter to the units of a page, hundredths of a millimetre, for a device of this resolution.
void UsePageUnits(QPainter& painter, double dotsPerInch);

/// Writes one line with its upper left corner at x, y, in the fixed face of this height; a line wider than
/// `width` is made smaller until it fits. Page units.
void TextInBox(QPainter& painter, int x, int y, int width, int height, std::string_view text);

/// Draws a page, counted from 0. The painter is in page units.
void PaintTextPage(QPainter& painter, const TextPages& pages, int page);

/// The resolution of all paged devices, so that they round alike.
inline constexpr int kPageResolution = 1200;

/// The job's title.
inline constexpr std::string_view kJobTitle = "ZORLAN For Windows";

/// Sets a paged device to a sheet in mm, or to that of these pages, without margins.
void SetSheet(QPagedPaintDevice& device, const QSizeF& sheet);
void SetSheet(QPagedPaintDevice& device, const TextPages& pages);

/// The pages as a PDF file: its bytes. An empty `pages.pages` answers nothing. `pageDone` is told the share
/// of the pages done, 0 to 1, behind each of them.
std::string TextPagesPdf(const TextPages& pages, const std::function<void(double share)>& pageDone = {});

}  // namespace zorlan

#include "desktop/preview_pages.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <QFileInfo>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include "base/fault.h"
#include "base/text_file.h"
#include "desktop/hush.h"
#include "graphics/ratio_files.h"
#include "model/model_state.h"
#include "output/dxf_page.h"
#include "output/print_flag.h"
#include "render/figure_painter.h"
#include "render/qt_text.h"
#include "render/text_page_painter.h"
#include "shell/page_setup.h"

namespace zorlan {
namespace {

constexpr double kUnitsPerTwip = kUnitsPerMm / kTwipsPerMm;

/// Paints a sheet's picture on dots: at the places of the dots themselves, so that thin lines stay sharp, and
/// no more of it than the window shows.
void PaintOnDots(QPainter& painter, const FigurePicture& picture, const QSizeF& sheet) {
  // Not the device's transform: that of a widget also has its place in the window. The combined one ends in
  // the dots of the screen, the viewport and what is drawn count its pixels.
  const double ratio = painter.device()->devicePixelRatioF();
  const QTransform toPixels = painter.combinedTransform() * QTransform::fromScale(1 / ratio, 1 / ratio);
  const QRectF whole = toPixels.mapRect(QRectF(QPointF(), sheet));
  const QRect part = whole.intersected(QRectF(painter.viewport())).toAlignedRect();
  if (part.isEmpty()) return;
  QImage image((QSizeF(part.size()) * ratio).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  PictureStyle style = SheetStyle(toPixels.m11() * ratio * kUnitsPerTwip);
  style.origin = (whole.topLeft() - part.topLeft()) * ratio;
  PaintPicture(image, picture, style);
  image.setDevicePixelRatio(ratio);
  painter.save();
  painter.setWorldTransform(QTransform());
  painter.drawImage(part.topLeft(), image);
  painter.restore();
}

QString NameOf(const ShownFile& file) {
  return ToQt(file.Path().substr(file.Path().rfind('/') + 1));
}

/// Of the model in hand, which may have no name yet.
QString ModelName() {
  return ModelFile.empty() ? QStringLiteral("NewData") : ToQt(ModelBaseName());
}

}  // namespace

bool PreviewPages::Renew() {
  if (!HasChanged()) return false;
  try {
    note_ = Read();
  } catch (const std::exception& fault) {
    Clear();
    note_ = OneLine(ToQt(fault.what()));
  }
  return true;
}

ListingPages::ListingPages(int flag, const std::string& path) : flag_(flag) {
  file_.Look(path);
  file_.Forget();
}

bool ListingPages::HasChanged() const {
  // The input list's scratch file also takes the deck of a check: the list stays as it was made.
  return file_.Changed() && (flag_ != kPrintInputList || !read_);
}

QString ListingPages::Read() {
  ShownFile file = file_;
  file.Look(file_.Path());
  const bool there = FileExists(file.Path());
  std::string text = there ? ReadTextFile(file.Path()) : std::string();
  Clear();
  text_ = std::move(text);
  file_ = file;
  there_ = there;
  read_ = true;
  if (there_ || file_.Path().empty()) return {};
  return NameOf(file_) + QStringLiteral(" はありません");
}

void ListingPages::Clear() {
  pages_ = {};  // before the text that it points into
  text_.clear();
  there_ = false;
  file_.Forget();
}

QString ListingPages::Caption() const {
  if (flag_ == kPrintInputList) return QStringLiteral("入力ファイル　") + ModelName();
  return NameOf(file_);
}

void ListingPages::LayOut() {
  pages_ = LayOutTextPages(text_, StyleOfFlag(flag_), PageSetupOf(PrinterSettings));
  if (!there_) pages_.pages.clear();
  try {
    RemoveFile(AppPath + "Dum.txt");  // the scan's scratch file of former releases
  } catch (const Fault&) {
    // It is in nobody's way.
  }
}

void ListingPages::Paint(QPainter& painter, int page) {
  if (page < 0 || page >= Count()) return;
  PaintTextPage(painter, pages_, page);
}

std::string ListingPages::Pdf(const std::function<void(double share)>& pageDone) {
  return TextPagesPdf(pages_, pageDone);
}

QString ListingPages::FileName() const {
  if (flag_ == kPrintInputList) return ModelName() + QStringLiteral("_入力");  // beside that of its results
  return QFileInfo(ToQt(file_.Path())).completeBaseName();
}

QString ListingPages::Text(int page) const {
  QString text;
  if (page < 0 || page >= Count()) return text;
  for (const PlacedLine& line : pages_.pages[static_cast<std::size_t>(page)].lines)
    text += ToQt(line.text) + QLatin1Char('\n');
  return text;
}

FigurePreview::FigurePreview(Figure figure, std::vector<SelectedFigure> figures, int layout,
                             std::optional<View> shown)
    : figure_(std::move(figure)),
      chosen_(std::move(figures)),
      sheets_(SheetsOf(PrinterSettings, chosen_, layout)) {
  sheets_.shown = shown;
  files_.Look();
  RecordSheet(sheets_, 0,
              figure_);  // what there is to tell of the model is told here, and not while painting
}

QString FigurePreview::Caption() const {
  return ToQt(figure_.model.name);
}

void FigurePreview::LayOut() {
  const std::optional<View> shown = sheets_.shown;
  sheets_ = SheetsOf(PrinterSettings, std::move(sheets_.figures), sheets_.layout);
  sheets_.shown = shown;
}

/// Reads what the figures chosen are drawn from; answers why there is nothing to draw.
std::optional<std::string_view> FigurePreview::ReadData() {
  FigureModel& model = figure_.model;
  model = ReadFigureTables();
  if (model.nodes.empty()) return "表示するモデルがありません";
  if (std::ranges::any_of(chosen_, NeedsResults) && !LoadFigureResults(model, AnalysisPath))
    return kNoFittingResults;
  const auto ratios = std::ranges::find_if(
      chosen_, [](const SelectedFigure& figure) { return SourceOf(figure.kind) == FigureSource::Design; });
  if (ratios != chosen_.end() && !LoadFigureRatios(model, ratios->kind, AnalysisPath))
    return "断面算定の結果がありません";
  sheets_.figures = chosen_;
  std::erase_if(sheets_.figures, [&](const SelectedFigure& figure) {
    return HasLoadCase(figure.kind) && figure.loadCase > model.maxLoadCase;
  });
  if (sheets_.figures.empty()) return "選択した荷重ケースがありません";
  return std::nullopt;
}

QString FigurePreview::Read() {
  files_.Look();
  const Hush hush;  // nobody has asked for the figures now
  sheets_.figures.clear();
  const std::optional<std::string_view> lacking = ReadData();
  if (!lacking) RecordSheet(sheets_, 0, figure_);
  return OneLine(ToQt(lacking.value_or(hush.Message())));
}

void FigurePreview::Clear() {
  sheets_.figures.clear();
  files_.Forget();
}

QSize FigurePreview::Sheet() const {
  return {static_cast<int>(std::lround(sheets_.sheet.width * kUnitsPerTwip)),
          static_cast<int>(std::lround(sheets_.sheet.height * kUnitsPerTwip))};
}

void FigurePreview::Paint(QPainter& painter, int page) {
  const Hush hush;  // no box may come up under an open painter
  FigurePicture picture(sheets_.sheet);
  DrawSheet(picture, sheets_, page, figure_);
  if (painter.paintEngine()->type() == QPaintEngine::Raster) {
    PaintOnDots(painter, picture, Sheet());
    return;
  }
  PictureStyle style;
  style.scale = kUnitsPerTwip;
  style.dot = kUnitsPerTwip * kTwipsPerPaperDot;
  PaintPicture(painter, picture, style);
}

std::string FigurePreview::Pdf(const std::function<void(double share)>& pageDone) {
  std::vector<FigurePicture> pages;
  for (int page = 0; page < Count(); ++page) {
    pages.emplace_back(sheets_.sheet);
    DrawSheet(pages.back(), sheets_, page, figure_);
    pageDone(double(page + 1) / (Count() + 1));
  }
  return PicturesPdf(pages);
}

QString FigurePreview::FileName() const {
  return ToQt(figure_.model.name);
}

std::optional<int> FigurePreview::KindOn(int page) const {
  const auto first = static_cast<std::size_t>(page * CellCount(sheets_.layout));
  if (page < 0 || first >= sheets_.figures.size()) return std::nullopt;
  return sheets_.figures[first].kind;
}

bool FigurePreview::WriteDxf(int page, const std::string& path) {
  return WriteDxfPage(Number(page), RecordSheet(sheets_, page, figure_), path);
}

}  // namespace zorlan

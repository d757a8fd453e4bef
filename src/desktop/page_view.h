// Pages under one another on a grey desk, as the preview shows them: zoom, scrolling, the page in sight.
#pragma once

#include <functional>
#include <QAbstractScrollArea>

class QPainter;
class QRect;

namespace zorlan {

class PageView : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit PageView(QWidget* parent = nullptr);

  /// Draws page `page`, from 0, with the painter in page units (output/text_pages.h).
  using PaintPage = std::function<void(QPainter& painter, int page)>;

  /// Shows `count` sheets of this size in page units, from the first one on; or, as far as there are as many
  /// sheets, the place that is in the window now.
  enum class Place { First, Kept };
  void SetPages(int count, int width, int height, PaintPage paint, Place place = Place::First);

  /// 1: as large as on paper; 0: the whole sheet in the window.
  void SetZoom(double zoom);
  double Zoom() const { return zoom_; }

  /// Shows the sheets without colours.
  void SetGrey(bool grey);

  /// The page in sight, from 0.
  int Page() const { return page_; }
  void GoTo(int page);

 signals:
  void pageChanged(int page);
  /// Ctrl and the wheel, or the keys + and -: one step larger or smaller.
  void zoomAsked(int steps);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  /// Pixels of the widget a page unit.
  double Scale() const;
  double SheetStep() const;  // from one sheet's top to the next one's, in pixels
  void FitScrollBars();
  /// The sheets of a part of the window.
  void PaintSheets(QPainter& painter, const QRect& part);
  void NotePage();

  int count_ = 0, width_ = 0, height_ = 0;
  double zoom_ = 1;
  int page_ = 0;
  bool grey_ = false;
  PaintPage paint_;
};

}  // namespace zorlan

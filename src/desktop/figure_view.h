// A figure on the screen: drawn by the figure's own routines, moved and enlarged by mouse and keys, picked.
#pragma once

#include <functional>
#include <optional>
#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QTimer>
#include <QWidget>

#include "graphics/frame_figure.h"
#include "graphics/picking.h"
#include "render/figure_picture.h"

class QRubberBand;

namespace zorlan {

class FigureView : public QWidget {
  Q_OBJECT
 public:
  explicit FigureView(QWidget* parent = nullptr);

  /// What is shown. Call Redraw after a change.
  Figure& TheFigure() { return figure_; }
  const Figure& TheFigure() const { return figure_; }

  /// Draws the figure anew, with these FigureFlags. Its messages come now, and not again while it is moved.
  void Redraw(int flags);

  // As the keys and the wheel do.
  static constexpr double kZoomStep = 1.25;
  void ZoomBy(double factor);           // about the middle
  void Pan(double right, double down);  // pixels
  void ShowAll();

  /// What the left button does: it picks what is clicked and, drawn, frames a part to be enlarged; or it
  /// moves the figure.
  enum class Hand { Pick, Move };
  void SetHand(Hand hand);

  /// What is marked as picked.
  void Mark(std::optional<Pick> pick);
  /// Moves the figure, no further than it must, so that what is marked is in sight.
  void Reveal();
  const std::optional<Pick>& Marked() const { return marked_; }
  /// Whether the whole figure is in sight because nobody has moved it.
  bool IsFitted() const { return fitted_; }
  /// Where the marked thing lies, in pixels of the widget.
  std::optional<QPointF> MarkedPlace() const;

  QSize sizeHint() const override { return {860, 560}; }
  /// Low: in a small window the lines of tools above it come first.
  QSize minimumSizeHint() const override { return {160, 1}; }

 signals:
  /// A click, with what lies under it.
  void clicked(const std::optional<zorlan::Pick>& pick);
  /// A double click on what is picked; anywhere else it shows all.
  void opened(const zorlan::Pick& pick);
  /// Enter on what is picked.
  void entered(const zorlan::Pick& pick);
  /// N and M: the next (1) or former (-1) node or member.
  void walked(zorlan::Pick::What what, int step);
  /// PageUp and PageDown: so many load cases on.
  void caseAsked(int steps);
  /// The figure lies elsewhere in the widget.
  void moved();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  void Draw();
  /// The view has changed: what is kept serves until the figure is drawn anew.
  void Moved();
  void ShowHand();
  std::optional<Pick> PickUnder(const QPointF& place) const;
  void PaintMark(QPainter& painter) const;

  Figure figure_;
  FigurePicture picture_{Surface{}};  // of the figure as it was drawn last
  QImage kept_;                       // on dots
  View keptView_;                     // the view that it was drawn with
  bool fitted_ = true;                // the window follows the widget's size until the user moves it
  QTimer rest_;                       // the figure is drawn anew when it has come to rest
  double drawTime_ = 0;               // ms of the last drawing

  Hand hand_ = Hand::Pick;
  bool space_ = false;             // the space bar is held: the left button moves
  std::optional<QPointF> grip_;    // where the figure is held while it is moved
  std::optional<QPoint> pressed_;  // where the left button went down
  QRubberBand* frame_ = nullptr;
  std::optional<Pick> marked_;
};

}  // namespace zorlan

#include "desktop/figure_view.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QWheelEvent>
#include <utility>

#include "desktop/hush.h"
#include "render/figure_painter.h"

namespace zorlan {
namespace {

constexpr double kNotch = 120;         // of a wheel
constexpr double kKeyStep = 0.125;     // of the widget's side, an arrow key
constexpr double kQuick = 12;          // ms: what is drawn within these is drawn at once while it moves
constexpr int kRest = 80;              // ms
constexpr auto kControl = "PICTURE1";  // a surface of the screen
const QColor kMarkColour(0xff, 0x8c, 0x00);

Point ToTwips(const QPointF& pixels) {
  return {pixels.x() * kTwipsPerPixel, pixels.y() * kTwipsPerPixel};
}
QPointF ToPixels(const Point& twips) {
  return {twips.x / kTwipsPerPixel, twips.y / kTwipsPerPixel};
}

}  // namespace

FigureView::FigureView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("figure"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(false);
  setAttribute(Qt::WA_OpaquePaintEvent);
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] {
    const Hush hush;
    figure_.FigureFlags = kDataUnchanged;
    Draw();
  });
}

void FigureView::Redraw(int flags) {
  figure_.FigureFlags = flags;
  if ((flags & kFitWindow) != 0) fitted_ = true;
  Draw();
}

void FigureView::Draw() {
  rest_.stop();
  QElapsedTimer time;
  time.start();
  Surface surface;
  surface.width = std::max(1, width()) * kTwipsPerPixel;
  surface.height = std::max(1, height()) * kTwipsPerPixel;
  picture_.Clear(surface);
  Plot plot(picture_);
  DrawFrameFigure(plot, kControl, figure_);
  figure_.FigureFlags = kDataUnchanged;

  const double dots = devicePixelRatioF();
  const QSize size = (QSizeF(this->size()) * dots).toSize();
  if (kept_.size() != size) kept_ = QImage(size, QImage::Format_RGB32);
  kept_.setDevicePixelRatio(1);
  kept_.fill(Qt::white);
  PaintPicture(kept_, picture_, ScreenStyle(dots));
  kept_.setDevicePixelRatio(dots);
  keptView_ = figure_.view;
  drawTime_ = static_cast<double>(time.nsecsElapsed()) / 1e6;
  update();
  emit moved();
}

void FigureView::Moved() {
  fitted_ = false;
  if (drawTime_ < kQuick) {
    const Hush hush;
    figure_.FigureFlags = kDataUnchanged;
    Draw();
    return;
  }
  rest_.start(kRest);
  update();
  emit moved();
}

void FigureView::ZoomBy(double factor) {
  ZoomAbout(figure_.view, ToTwips(QPointF(width() / 2.0, height() / 2.0)), factor);
  Moved();
}

void FigureView::Pan(double right, double down) {
  MoveBy(figure_.view, right * kTwipsPerPixel, down * kTwipsPerPixel);
  Moved();
}

void FigureView::ShowAll() {
  const Hush hush;
  Redraw(kRedrawAll);
}

void FigureView::SetHand(Hand hand) {
  hand_ = hand;
  ShowHand();
}

void FigureView::ShowHand() {
  if (grip_)
    setCursor(Qt::ClosedHandCursor);
  else if (space_ || hand_ == Hand::Move)
    setCursor(Qt::OpenHandCursor);
  else
    unsetCursor();
}

void FigureView::Mark(std::optional<Pick> pick) {
  marked_ = std::move(pick);
  update();
}

std::optional<QPointF> FigureView::MarkedPlace() const {
  if (!marked_) return std::nullopt;
  const auto index = static_cast<std::size_t>(marked_->index);
  const auto node = [this](std::size_t n) { return ToPixels(figure_.view.ToFigure(figure_.place[n])); };
  if (marked_->what == Pick::What::Node)
    return index < figure_.place.size() ? std::optional(node(index)) : std::nullopt;
  if (index >= figure_.model.elements.size()) return std::nullopt;
  const FigureElement& element = figure_.model.elements[index];
  if (element.rowI < 0 || element.rowJ < 0) return std::nullopt;
  return (node(static_cast<std::size_t>(element.rowI)) + node(static_cast<std::size_t>(element.rowJ))) / 2;
}

void FigureView::Reveal() {
  static constexpr double kEdge = 40;  // pixels
  const std::optional<QPointF> place = MarkedPlace();
  if (!place) return;
  const auto way = [](double at, double size) {
    const double edge = std::min(kEdge, size / 4);
    return std::clamp(at, edge, size - edge) - at;
  };
  const double right = way(place->x(), width()), down = way(place->y(), height());
  if (right != 0 || down != 0) Pan(right, down);
}

void FigureView::PaintMark(QPainter& painter) const {
  constexpr double kRing = 8, kBand = 6;  // pixels
  const std::optional<QPointF> place = MarkedPlace();
  if (!place) return;
  painter.setRenderHint(QPainter::Antialiasing);
  if (marked_->what == Pick::What::Node) {
    painter.setPen(QPen(kMarkColour, 2.5));
    painter.drawEllipse(*place, kRing, kRing);
    return;
  }
  const FigureElement& element = figure_.model.elements[static_cast<std::size_t>(marked_->index)];
  const auto [i, j] = figure_.EndsOf(element);
  QColor band = kMarkColour;
  band.setAlpha(150);
  painter.setPen(QPen(band, kBand, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(ToPixels(i), ToPixels(j));
}

void FigureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const View& now = figure_.view;
  const double scale = keptView_.Vvkei / now.Vvkei;
  // Where the upper left corner of what is kept has come to.
  const QPointF corner = ToPixels(now.ToFigure({keptView_.Vxmin, keptView_.Vymax}));
  const bool still = scale == 1 && corner.manhattanLength() < 0.01;
  if (kept_.isNull() || !still) painter.fillRect(rect(), Qt::white);
  if (!kept_.isNull()) {
    painter.save();
    if (!still) {
      painter.translate(scale == 1 ? QPointF(corner.toPoint()) : corner);
      painter.scale(scale, scale);
    }
    painter.drawImage(QPointF(), kept_);
    painter.restore();
  }
  PaintMark(painter);
}

void FigureView::resizeEvent(QResizeEvent*) {
  if (kept_.isNull()) return;  // nothing was drawn yet
  const Hush hush;
  if (!fitted_) KeepCentre(figure_.view, width() * kTwipsPerPixel, height() * kTwipsPerPixel);
  figure_.FigureFlags = fitted_ ? kRedrawAll : kDataUnchanged;
  Draw();
}

void FigureView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kNotch;
  if (notches != 0) {
    ZoomAbout(figure_.view, ToTwips(event->position()), std::pow(kZoomStep, notches));
    Moved();
  }
  event->accept();
}

void FigureView::mousePressEvent(QMouseEvent* event) {
  const bool moves = event->button() == Qt::MiddleButton ||
                     (event->button() == Qt::LeftButton && (space_ || hand_ == Hand::Move));
  if (moves) {
    grip_ = event->position();
    ShowHand();
  } else if (event->button() == Qt::LeftButton) {
    pressed_ = event->position().toPoint();
  }
}

void FigureView::mouseMoveEvent(QMouseEvent* event) {
  if (grip_) {
    const QPointF step = event->position() - *grip_;
    grip_ = event->position();
    Pan(step.x(), step.y());
    return;
  }
  if (!pressed_) return;
  const QPoint place = event->position().toPoint();
  if (frame_ == nullptr) {
    if ((place - *pressed_).manhattanLength() < QApplication::startDragDistance()) return;
    frame_ = new QRubberBand(QRubberBand::Rectangle, this);
    frame_->show();
  }
  frame_->setGeometry(QRect(*pressed_, place).normalized());
}

void FigureView::mouseReleaseEvent(QMouseEvent* event) {
  if (grip_ && (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) == 0) {
    grip_.reset();
    ShowHand();
    return;
  }
  if (!pressed_ || event->button() != Qt::LeftButton) return;
  const QPoint from = *pressed_;
  pressed_.reset();
  if (frame_ == nullptr) {
    emit clicked(PickUnder(event->position()));
    return;
  }
  const QRect framed = frame_->geometry();
  frame_->deleteLater();
  frame_ = nullptr;
  if (framed.width() < 2 || framed.height() < 2) return;
  ZoomToRectangle(figure_.view, ToTwips(from), ToTwips(event->position()), width() * kTwipsPerPixel,
                  height() * kTwipsPerPixel);
  Moved();
}

void FigureView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (const std::optional<Pick> pick = PickUnder(event->position()))
    emit opened(*pick);
  else
    ShowAll();
}

std::optional<Pick> FigureView::PickUnder(const QPointF& place) const {
  return figure_.place.empty() ? std::nullopt : PickAt(figure_, ToTwips(place));
}

void FigureView::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Semicolon:  // where a Japanese keyboard has the plus sign
      return ZoomBy(kZoomStep);
    case Qt::Key_Minus:
      return ZoomBy(1 / kZoomStep);
    case Qt::Key_Left:
      return Pan(width() * kKeyStep, 0);
    case Qt::Key_Right:
      return Pan(-width() * kKeyStep, 0);
    case Qt::Key_Up:
      return Pan(0, height() * kKeyStep);
    case Qt::Key_Down:
      return Pan(0, -height() * kKeyStep);
    case Qt::Key_Home:
      return ShowAll();
    case Qt::Key_PageDown:
      emit caseAsked(1);
      return;
    case Qt::Key_PageUp:
      emit caseAsked(-1);
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (marked_) emit entered(*marked_);
      return;
    case Qt::Key_N:
    case Qt::Key_M:
      if (event->modifiers() & ~Qt::ShiftModifier) return QWidget::keyPressEvent(event);
      emit walked(event->key() == Qt::Key_N ? Pick::What::Node : Pick::What::Element,
                  event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
      return;
    case Qt::Key_Space:
      space_ = true;
      return ShowHand();
    default:
      QWidget::keyPressEvent(event);
  }
}

void FigureView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return QWidget::keyReleaseEvent(event);
  if (event->isAutoRepeat()) return;
  space_ = false;
  ShowHand();
}

}  // namespace zorlan

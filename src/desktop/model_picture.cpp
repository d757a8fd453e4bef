#include "desktop/model_picture.h"

#include <algorithm>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <utility>

#include "desktop/hush.h"
#include "graphics/option_figures.h"
#include "graphics/plot.h"
#include "render/figure_painter.h"

namespace zorlan {
namespace {

/// A picture without its texts: they would be too many for its size.
class Drawing final : public PlotTarget {
 public:
  explicit Drawing(const Surface& surface) : picture_(surface) {}
  const FigurePicture& Picture() const { return picture_; }

  Surface TheSurface() const override { return picture_.TheSurface(); }
  void Line(Point from, Point to, const Pen& pen) override { picture_.Line(from, to, pen); }
  void Circle(Point centre, double radius, const Pen& pen, bool filled) override {
    picture_.Circle(centre, radius, pen, filled);
  }
  void Text(Point, std::string_view, double, double, Rgb) override {}
  void Shade(std::span<const Point> polygon, Rgb colour) override { picture_.Shade(polygon, colour); }

 private:
  FigurePicture picture_;
};

}  // namespace

ModelPicture::ModelPicture(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 120);
}

void ModelPicture::Show(const ModelRec& model) {
  figure_.model = FigureModelOf(model);
  figure_.options = FigureOptionsInForce(kModelFigure);
  for (TextOption* const number :
       {&figure_.options.nodeNumber, &figure_.options.elementNumber, &figure_.options.sectionNumber})
    number->visible = false;
  update();
}

void ModelPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (!figure_.model.nodes.empty()) {
    Surface surface;
    surface.width = std::max(1, width()) * kTwipsPerPixel;
    surface.height = std::max(1, height()) * kTwipsPerPixel;
    Drawing drawing(surface);
    Plot plot(drawing);
    figure_.FigureFlags = kRedrawAll;
    {
      const Hush hush;  // the panel beside it tells what there is to tell
      DrawFrameFigure(plot, "PICTURE1", figure_);
    }
    QImage image((QSizeF(size()) * devicePixelRatioF()).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    PaintPicture(image, drawing.Picture(), ScreenStyle(devicePixelRatioF()));
    image.setDevicePixelRatio(devicePixelRatioF());
    painter.drawImage(QPointF(), image);
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace zorlan

#include "desktop/model_picture.h"

#include <algorithm>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <unordered_map>

namespace zorlan {
namespace {

constexpr double kMargin = 16;  // pixels
constexpr double kNodeRadius = 2.2;
constexpr int kCrowded = 400;  // more nodes than this are drawn without dots

/// From metres into pixels, y upwards, as large as the widget allows.
class Fit {
 public:
  Fit(const ModelRec& model, const QSizeF& room) {
    double left = model.Node[1].X, right = left, bottom = model.Node[1].Y, top = bottom;
    for (int n = 2; n <= model.NodeCount; ++n) {
      left = std::min(left, model.Node[n].X);
      right = std::max(right, model.Node[n].X);
      bottom = std::min(bottom, model.Node[n].Y);
      top = std::max(top, model.Node[n].Y);
    }
    const double width = std::max(right - left, 1e-9), height = std::max(top - bottom, 1e-9);
    scale_ = std::min((room.width() - 2 * kMargin) / width, (room.height() - 2 * kMargin) / height);
    if (right == left && top == bottom) scale_ = 0;
    middle_ = QPointF((left + right) / 2, (bottom + top) / 2);
    centre_ = QPointF(room.width() / 2, room.height() / 2);
  }
  QPointF operator()(const NodeRec& node) const {
    return {centre_.x() + (node.X - middle_.x()) * scale_, centre_.y() - (node.Y - middle_.y()) * scale_};
  }

 private:
  double scale_ = 1;
  QPointF middle_, centre_;
};

bool IsSupported(const NodeRec& node) {
  return std::ranges::any_of(node.code, [](std::int16_t code) { return code != kFree; });
}

}  // namespace

ModelPicture::ModelPicture(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 120);
}

void ModelPicture::Show(ModelRec model) {
  model_ = std::move(model);
  update();
}

void ModelPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  if (model_.NodeCount < 1) return;
  painter.setRenderHint(QPainter::Antialiasing);
  const Fit fit(model_, size());
  std::unordered_map<int, QPointF> places;
  for (int n = 1; n <= model_.NodeCount; ++n) places.emplace(model_.Node[n].number, fit(model_.Node[n]));
  painter.setPen(QPen(palette().color(QPalette::Text), 1.4));
  for (int e = 1; e <= model_.ElemCount; ++e) {
    const auto i = places.find(model_.Elem[e].I), j = places.find(model_.Elem[e].J);
    if (i != places.end() && j != places.end()) painter.drawLine(i->second, j->second);
  }
  painter.setPen(Qt::NoPen);
  for (int n = 1; n <= model_.NodeCount; ++n) {
    const bool supported = IsSupported(model_.Node[n]);
    if (!supported && model_.NodeCount > kCrowded) continue;
    painter.setBrush(supported ? QColor(0x1f, 0x4e, 0x79) : palette().color(QPalette::Text));
    const QPointF place = fit(model_.Node[n]);
    if (supported)
      painter.drawRect(QRectF(place.x() - 3, place.y() - 3, 6, 6));
    else
      painter.drawEllipse(place, kNodeRadius, kNodeRadius);
  }
}

}  // namespace zorlan

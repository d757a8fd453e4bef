// A small picture of a model: its figure without numbers.
#pragma once

#include <QWidget>

#include "graphics/frame_figure.h"
#include "model/model_rec.h"

namespace zorlan {

class ModelPicture : public QWidget {
  Q_OBJECT
 public:
  explicit ModelPicture(QWidget* parent = nullptr);

  /// Shows the figure of a model; of an empty one nothing.
  void Show(const ModelRec& model);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Figure figure_;
};

}  // namespace zorlan

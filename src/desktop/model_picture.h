// A small picture of a model: its elements and nodes.
#pragma once

#include <QWidget>

#include "model/model_rec.h"

namespace zorlan {

class ModelPicture : public QWidget {
  Q_OBJECT
 public:
  explicit ModelPicture(QWidget* parent = nullptr);

  /// Shows the nodes and elements of a model; of an empty one nothing.
  void Show(ModelRec model);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ModelRec model_;
};

}  // namespace zorlan

// What every program with the desktop's windows does before the first of them.
#pragma once

#include <QApplication>

namespace zorlan {

/// The application object. What an event's handler throws is reported there and goes no further: the toolkit
/// can't carry it.
class Application : public QApplication {
  Q_OBJECT
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

/// Faces, drawings, the toolkit's own words in Japanese, and the host's table. Tells the user when the fixed
/// face is missing.
void SetUpApplication(QApplication& application);

}  // namespace zorlan

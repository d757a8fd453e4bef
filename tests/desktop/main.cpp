#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "desktop/application.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir runtime;
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  zorlan::Application application(argc, argv);
  QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
  zorlan::SetUpApplication(application);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

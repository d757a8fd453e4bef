#include <gtest/gtest.h>

#include <QGuiApplication>

#include "render/fonts.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  zorlan::InstallFonts();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}

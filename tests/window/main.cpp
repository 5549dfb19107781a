#include "vemoview/window/SceneView.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  SceneView::useFormatByDefault();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}

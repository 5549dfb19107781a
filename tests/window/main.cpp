#include "vemoview/window/SceneView.h"

#include <QApplication>
#include <gtest/gtest.h>

/// With sanitizers: X's keyboard library copies parts of texts that have no end
/// (strndup), which the strict checks of strings take for an error.
extern "C" [[gnu::visibility("default")]] const char*
__asan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "interceptor_via_lib:libxkbcommon-x11\n";
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  vemo::SceneView::useFormatByDefault();
  // Never destroyed: it would unload drivers, whose leaks had no names then.
  static const auto& application = *new QApplication(argc, argv);
  static_cast<void>(application);
  return RUN_ALL_TESTS();
}

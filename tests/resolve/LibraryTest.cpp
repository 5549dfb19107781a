#include "support/SceneBuilder.h"
#include <vemo/resolve/SceneResolver.h>

#include <gtest/gtest.h>
#include <link.h>
#include <string_view>

namespace vemo {

namespace {

std::vector<std::string> loadedLibraries() {
  std::vector<std::string> names;
  dl_iterate_phdr(
      [](dl_phdr_info* library, std::size_t, void* list) {
        static_cast<std::vector<std::string>*>(list)->emplace_back(library->dlpi_name);
        return 0;
      },
      &names);
  return names;
}

/// A process that uses the library loads everything that the library needs.
TEST(ResolveLibraryTest, NeedsNeitherRenderingNorOpenGL) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  ASSERT_EQ(resolveScene(scene.node()).canvases.size(), 1U);
  bool isResolveLoaded = false;
  for (const std::string& name : loadedLibraries()) {
    isResolveLoaded = isResolveLoaded || name.find("libvemo_resolve") != std::string::npos;
    for (const std::string_view unwanted : {"Rendering", "GL", "Qt", "X11"}) {
      EXPECT_EQ(name.find(unwanted), std::string::npos) << name;
    }
  }
  EXPECT_TRUE(isResolveLoaded);
}

}  // namespace

}  // namespace vemo

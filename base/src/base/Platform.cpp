#include <vemo/base/Platform.h>

#include <memory>

namespace vemo {

namespace {

std::unique_ptr<OS::FileSystem>& instance() {
  // The holder is never destroyed: at-exit handlers use its content.
  static auto& holder = *new std::unique_ptr<OS::FileSystem>;
  return holder;
}

}  // namespace

OS::FileSystem& Platform::filesystem() {
  if (!instance()) {
    instance() = std::make_unique<OS::FileSystem>();
  }
  return *instance();
}

void Platform::reset() {
  instance().reset();
}

}  // namespace vemo

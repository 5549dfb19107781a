#include "support/SmallStack.h"

#include <cstddef>
#include <future>
#include <pthread.h>
#include <stdexcept>

namespace vemo {

namespace {

// A sanitizer needs more for the same calls.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t STACK_SIZE = std::size_t{2} << 20;
#else
constexpr std::size_t STACK_SIZE = std::size_t{256} << 10;
#endif

void* run(void* task) {
  (*static_cast<std::packaged_task<void()>*>(task))();
  return nullptr;
}

}  // namespace

void runOnSmallStack(const std::function<void()>& work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, STACK_SIZE);
  pthread_t thread{};
  std::packaged_task<void()> task(work);
  const int error = pthread_create(&thread, &attributes, run, &task);
  pthread_attr_destroy(&attributes);
  if (error != 0) {
    throw std::runtime_error("cannot start a thread");
  }
  pthread_join(thread, nullptr);
  task.get_future().get();
}

}  // namespace vemo

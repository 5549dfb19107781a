// How results are written when calls of the system fail or are interrupted, as no file can make them.

#include "OutputFile.h"
#include "output/ExitCode.h"
#include "output/ResultStream.h"
#include "support/TemporaryFolder.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace vemo {

namespace {

/// Standard output is a full pipe.
class FullPipe {
 public:
  FullPipe() : _former(dup(STDOUT_FILENO)) {
    EXPECT_EQ(pipe2(_ends, O_CLOEXEC), 0);
    fcntl(_ends[1], F_SETFL, O_NONBLOCK);
    const std::string block(4096, '-');
    while (write(_ends[1], block.data(), block.size()) > 0) {
      _size += block.size();
    }
    fcntl(_ends[1], F_SETFL, 0);
    dup2(_ends[1], STDOUT_FILENO);
    close(_ends[1]);
  }
  FullPipe(const FullPipe&) = delete;
  FullPipe& operator=(const FullPipe&) = delete;
  ~FullPipe() { close(_ends[0]); }

  /// Ends the writing, and reads what was written.
  std::string readAll() {
    std::string text;
    char block[4096];
    for (ssize_t count = 0; (count = read(_ends[0], block, sizeof block)) > 0;) {
      text.append(block, static_cast<std::size_t>(count));
    }
    return text.substr(_size);
  }
  void restore() const {
    dup2(_former, STDOUT_FILENO);
    close(_former);
  }

 private:
  int _former;
  int _ends[2] = {};
  std::size_t _size = 0;
};

TEST(ResultTest, GoesOnAfterAnInterruption) {
  struct sigaction former {};
  struct sigaction ignoring {};
  // A handler, without which a write is not interrupted, and no restart.
  ignoring.sa_handler = [](int) {};
  sigaction(SIGUSR1, &ignoring, &former);
  FullPipe pipe;
  std::string failure;
  std::atomic<bool> isDone = false;
  std::thread writer([&] {
    try {
      ResultStream out;
      out << "result";
      out.finish();
    } catch (const Failure& error) {
      failure = error.what();
    }
    pipe.restore();
    isDone = true;
  });
  for (int i = 0; i < 100; ++i) {
    pthread_kill(writer.native_handle(), SIGUSR1);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_FALSE(isDone) << "it waits for a reader";
  const std::string text = pipe.readAll();
  writer.join();
  sigaction(SIGUSR1, &former, nullptr);
  EXPECT_EQ(failure, "");
  EXPECT_EQ(text, "result");
}

TEST(ResultTest, IsNotAFileThatCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_THROW(copyToStandardOutput(folder.path()), Failure);
}

}  // namespace

}  // namespace vemo

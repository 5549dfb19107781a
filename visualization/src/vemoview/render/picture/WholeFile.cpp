#include "vemoview/render/picture/WholeFile.h"

#include "platform/AtomicFile.h"
#include <vemo/render/RenderErrors.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace vemo {

namespace {

namespace fs = std::filesystem;

void writeStraight(const fs::path& path, std::span<const std::uint8_t> bytes) {
  const std::unique_ptr<std::FILE, decltype(&std::fclose)> file(std::fopen(path.c_str(), "wbe"),
                                                                &std::fclose);
  if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0) {
    throw OS::FileWriteError(path, std::generic_category().message(errno));
  }
}

void writeAtOnce(const fs::path& path, std::span<const std::uint8_t> bytes) {
  OS::AtomicFile file(path);
  file.write(bytes.data(), bytes.size(), 0);
  file.commit();
}

}  // namespace

void writeWholeFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
  try {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
      writeStraight(path, bytes);
    } else {
      writeAtOnce(path, bytes);
    }
  } catch (const OS::FileWriteError& error) {
    throw PictureWriteError(error.what());
  }
}

}  // namespace vemo

#include "Fuzzing.h"

#include "base/MemoryReserve.h"
#include "support/Databases.h"
#include "support/Files.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/io/FileError.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sys/mman.h>
#include <unistd.h>
#include <xxhash.h>

// In place of the library's: all bytes have the same hash. What is changed in a
// database or a stream is not found out before it is read.
#define SHARED extern "C" __attribute__((visibility("default")))

SHARED XXH64_hash_t XXH3_64bits(const void* /*bytes*/, std::size_t /*size*/) {
  return 0;
}

SHARED XXH64_hash_t XXH3_64bits_digest(const XXH3_state_t* /*state*/) {
  return 0;
}

namespace vemo {

void require(bool condition, const std::string& text) {
  if (!condition) {
    std::cerr << text << '\n';
    std::abort();
  }
}

void requireRoundTrip(const lum::Node& node) {
  const std::string difference = lum::firstDifference(node, *throughStreams(node));
  require(difference.empty(), "Not the same after a round trip: " + difference);
}

std::wstring putIntoFile(std::string_view bytes) {
  static const int file = memfd_create("input", MFD_CLOEXEC);
  require(ftruncate(file, 0) == 0 &&
              pwrite(file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
          "no file in memory");
  return wide("/proc/self/fd/" + std::to_string(file));
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  // Each import would set memory aside, which sanitizers make slow.
  static const OS::MemoryReserve reserve;
  Logger::getSingleton().setFlags(0);
  Findings::getSingleton().setSink(
      [](const Finding& finding) { require(!finding.text.empty(), "A finding without a text"); });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    readInput({reinterpret_cast<const char*>(data), size});
  } catch (const lum::io::FileError& error) {
    require(error.what()[0] != '\0', "An error without a text");
  } catch (const Exception& exception) {
    require(!findingOf(exception).text.empty(), "An exception without a text");
  } catch (const Error& error) {
    require(!findingOf(error).text.empty(), "An error without a text");
  }
  return 0;
}

}  // namespace vemo

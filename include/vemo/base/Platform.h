#pragma once

#include <vemo/base/Export.h>
#include <vemo/base/FileSystem.h>

namespace vemo {

/// Services of the operating system. They may be used at any time, also in at-exit
/// handlers and after `reset`, by one thread at a time.
class VEMO_BASE_EXPORT Platform {
 public:
  Platform() = delete;

  /// Created by the first call, and by the first call after `reset`.
  static OS::FileSystem& filesystem();

  /// Releases the services and what they cached, such as the folder for
  /// temporary files. Invalidates references returned by `filesystem`.
  static void reset();
};

}  // namespace vemo

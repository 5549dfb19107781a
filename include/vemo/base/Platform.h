#pragma once

#include <vemo/base/Export.h>
#include <vemo/base/FileSystem.h>

namespace vemo {

/// The operating system's services. They may be used at any time, also by
/// at-exit functions and after `reset`; from one thread at a time.
class VEMO_BASE_EXPORT Platform {
 public:
  Platform() = delete;

  /// Made at the first call, and at the first call after `reset`.
  static OS::FileSystem& filesystem();

  /// Lets the services go, with what they found out about the system: where
  /// temporary files go is asked anew afterwards. References that `filesystem`
  /// gave end here.
  static void reset();
};

}  // namespace vemo

#pragma once

#include <vemo/resolve/Export.h>

#include <stdexcept>

namespace vemo {

/// A scene whose drawing would take more memory or time than it should. The text is for
/// a user.
class VEMO_RESOLVE_EXPORT SceneTooLarge : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~SceneTooLarge() override;
};

}  // namespace vemo

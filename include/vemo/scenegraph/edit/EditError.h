#pragma once

#include <vemo/scenegraph/Export.h>

#include <stdexcept>

namespace lum {

/// A change that a scene does not allow: something it does not have, or a value that
/// cannot be used. The text is for a user. The scene is unchanged.
class VEMO_SCENEGRAPH_EXPORT EditError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~EditError() override;
};

}  // namespace lum

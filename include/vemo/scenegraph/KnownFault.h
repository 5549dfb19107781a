#pragma once

#include <vemo/scenegraph/Export.h>

namespace lum {

/// Of a node: whether a finding says that some of its values could not be read, and what follows from that.
/// Its consequences are then not another finding. Not stored.
class VEMO_SCENEGRAPH_EXPORT KnownFault {
 public:
  bool isFaultKnown() const { return _isFaultKnown; }
  void setFaultKnown(bool isKnown) { _isFaultKnown = isKnown; }

 protected:
  ~KnownFault() = default;

 private:
  bool _isFaultKnown = false;
};

}  // namespace lum

#pragma once

namespace vemo {

class QxElement;
class SceneFileReader;

/// Warns that the file holds an element that is not shown. The reader may be
/// null.
void warnNotShown(const QxElement& element, SceneFileReader* reader);

}  // namespace vemo

#pragma once

namespace vemo {

class QxElement;
class SceneFileReader;

/// Reports the elements, attributes and texts of the scene description, and the
/// entries of the archive, that were not read.
void reportUnreadContent(const QxElement& description, SceneFileReader& reader);

}  // namespace vemo

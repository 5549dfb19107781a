#pragma once

#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneParts.h>

#include <map>

namespace lum {
class SDBReader;
}

namespace vemo {

/// The parts that an archive's items were read from.
SceneParts listParts(const SceneFileReader& reader, const std::map<int, lum::PolyDataNode*>& nodesByElement);

/// Empties the geometry that is not wanted.
/// @return all parts
SceneParts keepParts(lum::Node& graph, const PartFilter& wants);

/// Lets the reader read only the parts that are wanted.
/// @param parts receives all parts while nodes are read; it must outlive the reader
void filterParts(lum::SDBReader& reader, const PartFilter& wants, SceneParts& parts);

}  // namespace vemo

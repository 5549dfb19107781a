#pragma once

#include <vemo/import/SceneAudit.h>

#include <functional>
#include <span>

namespace vemo {

class QxElement;
class ZipFileReader;

/// Lists what became of each element, attribute and text of a scene description.
void listOutcomesOf(const QxElement& description, std::span<const Finding> findings,
                    const std::function<void(const LedgerRow&)>& list);

/// Of each entry of the archive.
void listOutcomesOf(const ZipFileReader& archive, std::span<const Finding> findings,
                    const std::function<void(const LedgerRow&)>& list);

}  // namespace vemo

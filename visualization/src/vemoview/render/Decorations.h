#pragma once

#include "vemoview/render/CameraBook.h"
#include "vemoview/render/VisibleDrawables.h"

/// Puts those drawables into a renderer that have no geometry of their own.
void addDecorations(const std::vector<VisibleDrawable>& drawables, const CameraBook& cameras,
                    vtkRenderer& renderer);

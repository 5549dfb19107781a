#pragma once

#include "vemoview/render/Piece.h"

class vtkPlaneCollection;
class vtkRenderer;

/// Puts what draws a piece into a renderer. The planes cut it if its appearance
/// says so.
void addActors(const Piece& piece, vtkPlaneCollection& planes, vtkRenderer& renderer);

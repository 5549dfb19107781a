#pragma once

#include "vemoview/render/Piece.h"

class PropGroup;
class vtkPlaneCollection;

/// Puts what draws a piece into a group. The planes cut it if its appearance
/// says so.
void addActors(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group);

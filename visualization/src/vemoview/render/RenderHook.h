#pragma once

#include <functional>

class vtkRenderer;

/// Calls a function each time before a renderer draws, when its size and its
/// camera are known, and keeps the function as long as the renderer lives. It
/// must not own the renderer.
void beforeEachRender(vtkRenderer& renderer, std::function<void(vtkRenderer&)> function);

#pragma once

#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>

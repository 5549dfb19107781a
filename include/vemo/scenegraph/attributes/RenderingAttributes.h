#pragma once

#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>

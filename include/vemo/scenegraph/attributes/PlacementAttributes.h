#pragma once

#include <vemo/scenegraph/attributes/OrientationAttributes.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>

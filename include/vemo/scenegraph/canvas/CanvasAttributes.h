#pragma once

#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/BaseCanvasAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>

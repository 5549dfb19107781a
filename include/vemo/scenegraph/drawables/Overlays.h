#pragma once

#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

#pragma once

#include <vemo/scenegraph/coloring/ColorAttributes.h>

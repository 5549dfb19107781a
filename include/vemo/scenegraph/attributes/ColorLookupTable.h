#pragma once

#include <vemo/scenegraph/coloring/ColorLookupTable.h>

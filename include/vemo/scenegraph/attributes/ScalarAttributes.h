#pragma once

#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

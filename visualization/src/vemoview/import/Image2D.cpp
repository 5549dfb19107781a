#include "vemoview/import/Image2D.h"

Image2D::~Image2D() = default;

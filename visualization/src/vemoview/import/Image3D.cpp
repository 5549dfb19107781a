#include "vemoview/import/Image3D.h"

Image3D::~Image3D() = default;

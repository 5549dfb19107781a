#include "vemoview/import/VectorGlyphs.h"

VectorGlyphs::~VectorGlyphs() = default;

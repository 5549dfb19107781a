#include "vemoview/import/Streamlines.h"

Streamlines::~Streamlines() = default;

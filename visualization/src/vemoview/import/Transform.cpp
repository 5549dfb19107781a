#include "vemoview/import/Transform.h"

Transform::~Transform() = default;

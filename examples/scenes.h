#pragma once

#include "SceneWriter.h"

namespace examples {

/// A wing with elliptic load in a uniform stream, coloured by its pressure, and
/// streamlines coloured by speed.
SceneWriter makeWing();
/// Six modes in which a drum's membrane swings.
SceneWriter makeDrum();
/// Where the electron of a hydrogen atom in the state 4d(z2) may be found.
SceneWriter makeOrbital();

}  // namespace examples

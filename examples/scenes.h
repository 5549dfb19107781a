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
/// The propellers of a twin-screw ship, coloured by their load.
SceneWriter makePropeller();
/// The waves of an earthquake on their ways through the Earth, which is cut open.
SceneWriter makeEarth();
/// The ions of rock salt in their lattice.
SceneWriter makeCrystal();
/// Light behind two round holes: as a relief, and as on a photograph.
SceneWriter makeDiffraction();

}  // namespace examples

// Writes the example scenes:
//   make_examples [FOLDER]
#include "scenes.h"

#include <exception>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  try {
    examples::makeWing().save(folder + "/wing.zip");
    examples::makeDrum().save(folder + "/drum.zip");
    examples::makeOrbital().save(folder + "/orbital.zip");
    examples::makePropeller().save(folder + "/propeller.zip");
    examples::makeEarth().save(folder + "/earth.zip");
    examples::makeCrystal().save(folder + "/crystal.zip");
    examples::makeDiffraction().save(folder + "/diffraction.zip");
  } catch (const std::exception& error) {
    std::cerr << "make_examples: " << error.what() << '\n';
    return 1;
  }
  return 0;
}

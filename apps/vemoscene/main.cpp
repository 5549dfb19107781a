#include "CommandLine.h"

int main(int argc, char** argv) {
  return static_cast<int>(vemo::runCommandLine(argc, argv));
}

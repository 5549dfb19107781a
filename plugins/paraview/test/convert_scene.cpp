// Converts an archive into a database: what the program does, without its libraries.

#include <vemo/base/WidePath.h>
#include <vemo/import/SceneConverter.h>

int main(int, char** arguments) {
  int failures = 0;
  vemo::SceneConverter converter(vemo::toWidePath(arguments[1]), vemo::toWidePath(arguments[2]));
  converter.setWriteFailureObserver([&failures](const std::string&) { ++failures; });
  converter.run();
  return failures;
}

#pragma once

#include <pybind11/pybind11.h>
#include <string>
#include <string_view>

namespace vemo::python {

// Texts of scenes are mostly UTF-8. Other bytes become lone surrogates, and the same bytes
// again on the way back, as Python has it for names of files.

pybind11::str toPython(std::string_view text);
std::string fromPython(const pybind11::str& text);

/// None for an empty text, or for 0.
pybind11::object toOptional(std::string_view text);
pybind11::object toOptional(int number);

}  // namespace vemo::python

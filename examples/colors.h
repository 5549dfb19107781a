#pragma once

#include <string>
#include <vector>

namespace examples {

/// So many colours (RRGGBBAA), in equal steps through the given ones.
std::vector<std::string> blend(const std::vector<std::string>& colors, int count);

/// Blue over light grey to red: for values that have a natural middle.
std::vector<std::string> divergingColors();
/// Blue over green and yellow to red: for values of which every part counts.
std::vector<std::string> spectralColors();
/// Dark violet over magenta and orange to yellow: for values from little to much.
std::vector<std::string> sequentialColors();

}  // namespace examples

#include "scenegraph/inspect/ArrayRange.h"

#include <vtkDataArray.h>
#include <vtkFloatArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace lum {

namespace {

/// One after the other. The comparisons leave out infinities and NaN; they begin
/// with VTK's limits, to have its ranges of enormous values too.
void addValues(std::span<const float> values, std::span<float> least, std::span<float> greatest) {
  using Limits = std::numeric_limits<float>;
  std::size_t component = 0;
  for (const float value : values) {
    if (value < least[component] && value >= Limits::lowest()) {
      least[component] = value;
    }
    if (value > greatest[component] && value <= Limits::max()) {
      greatest[component] = value;
    }
    component = component + 1 < least.size() ? component + 1 : 0;
  }
}

/// Ranges of twelve values in a row, each of its own: as many as are whole tuples of
/// one or three components, and vectors of the processor. NaN are left out.
class TwelveRanges {
 public:
  static constexpr std::size_t LANES = 12;

  TwelveRanges() {
    _least.fill(Vector{} + VTK_FLOAT_MAX);
    _greatest.fill(Vector{} + VTK_FLOAT_MIN);
  }

  /// As many as are whole blocks.
  void add(std::span<const float> values) {
    // Local variables stay in registers.
    auto least = _least;
    auto greatest = _greatest;
    auto negativeZeros = _negativeZeros;
    for (std::size_t i = 0; i + LANES <= values.size(); i += LANES) {
      for (std::size_t part = 0; part < least.size(); ++part) {
        Vector value;
        Bits bits;
        std::memcpy(&value, &values[i + part * VECTOR_SIZE], sizeof value);
        std::memcpy(&bits, &value, sizeof bits);
        least[part] = value < least[part] ? value : least[part];
        greatest[part] = value > greatest[part] ? value : greatest[part];
        negativeZeros |= bits == std::numeric_limits<std::int32_t>::min();
      }
    }
    _least = least;
    _greatest = greatest;
    _negativeZeros = negativeZeros;
  }

  /// False if there are infinite values, or zeros of both signs may decide.
  bool addTo(std::span<float> least, std::span<float> greatest) const {
    bool isSound = true;
    for (std::size_t lane = 0; lane < LANES; ++lane) {
      const float low = _least[lane / VECTOR_SIZE][lane % VECTOR_SIZE];
      const float high = _greatest[lane / VECTOR_SIZE][lane % VECTOR_SIZE];
      isSound = isSound && !std::isinf(low) && !std::isinf(high) && _negativeZeros[lane % VECTOR_SIZE] == 0;
      const std::size_t component = lane % least.size();
      least[component] = std::min(least[component], low);
      greatest[component] = std::max(greatest[component], high);
    }
    return isSound;
  }

 private:
  static constexpr std::size_t VECTOR_SIZE = 4;
  using Vector [[gnu::vector_size(VECTOR_SIZE * sizeof(float))]] = float;
  using Bits [[gnu::vector_size(VECTOR_SIZE * sizeof(float))]] = std::int32_t;

  std::array<Vector, LANES / VECTOR_SIZE> _least;
  std::array<Vector, LANES / VECTOR_SIZE> _greatest;
  Bits _negativeZeros{};
};

template <std::size_t COMPONENTS>
std::vector<ValueRange> rangesOf(vtkFloatArray& array) {
  std::span values(array.GetPointer(0), static_cast<std::size_t>(array.GetNumberOfValues()));
  std::array<float, COMPONENTS> least;
  std::array<float, COMPONENTS> greatest;
  least.fill(VTK_FLOAT_MAX);
  greatest.fill(VTK_FLOAT_MIN);
  TwelveRanges blocks;
  blocks.add(values);
  if (blocks.addTo(least, greatest)) {
    values = values.last(values.size() % TwelveRanges::LANES);
  } else {
    least.fill(VTK_FLOAT_MAX);
    greatest.fill(VTK_FLOAT_MIN);
  }
  addValues(values, least, greatest);
  std::vector<ValueRange> ranges;
  for (std::size_t component = 0; component < COMPONENTS; ++component) {
    ranges.push_back({least[component], greatest[component]});
  }
  return ranges;
}

std::vector<ValueRange> rangesOfAny(vtkDataArray& array) {
  std::vector<ValueRange> ranges;
  for (int component = 0; component < array.GetNumberOfComponents(); ++component) {
    std::array<double, 2> range{1.0, 0.0};
    array.GetFiniteRange(range.data(), component);
    ranges.push_back({range[0], range[1]});
  }
  return ranges;
}

}  // namespace

std::vector<ValueRange> finiteRanges(vtkDataArray& array) {
  auto* const floats = vtkFloatArray::FastDownCast(&array);
  const int components = array.GetNumberOfComponents();
  return floats != nullptr && components == 1   ? rangesOf<1>(*floats)
         : floats != nullptr && components == 3 ? rangesOf<3>(*floats)
                                                : rangesOfAny(array);
}

}  // namespace lum

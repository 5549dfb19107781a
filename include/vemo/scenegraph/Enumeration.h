#pragma once

#include <cstdint>
#include <span>

namespace lum {

/// The display names of an enumeration's values, indexed by value.
using EnumeratorNames = std::span<const char* const>;

/// NAMES, for an enumeration that LUM_ENUM declares.
template <class Enum>
struct EnumeratorsOf;

}  // namespace lum

// Puts `macro` before each of up to 64 arguments in parentheses.
#define LUM_FOR_EACH(macro, ...) __VA_OPT__(LUM_RESCAN(LUM_FOR_FIRST(macro, __VA_ARGS__)))
#define LUM_FOR_FIRST(macro, first, ...) \
  macro first __VA_OPT__(LUM_FOR_REST LUM_NO_ARGUMENTS(macro, __VA_ARGS__))
#define LUM_FOR_REST() LUM_FOR_FIRST
#define LUM_NO_ARGUMENTS ()
// Each scan of the text expands one more LUM_FOR_FIRST.
#define LUM_RESCAN(...) LUM_RESCAN_16(LUM_RESCAN_16(LUM_RESCAN_16(LUM_RESCAN_16(__VA_ARGS__))))
#define LUM_RESCAN_16(...) LUM_RESCAN_4(LUM_RESCAN_4(LUM_RESCAN_4(LUM_RESCAN_4(__VA_ARGS__))))
#define LUM_RESCAN_4(...) LUM_RESCAN_1(LUM_RESCAN_1(LUM_RESCAN_1(LUM_RESCAN_1(__VA_ARGS__))))
#define LUM_RESCAN_1(...) __VA_ARGS__

#define LUM_ENUMERATOR(enumerator, name) enumerator,
#define LUM_ENUMERATOR_NAME(enumerator, name) name,

/// Declares, in the namespace lum, an enumeration that fields may have, with
/// the display names of its values:
///
///     LUM_ENUM(ScaleMode, (LINEAR, "linear"), (LOG10, "logarithmic"))
///
/// Values count from 0 and are stored in files: append new enumerators, never
/// reorder them.
#define LUM_ENUM(Enum, ...)                                                                 \
  enum class Enum : std::int32_t { LUM_FOR_EACH(LUM_ENUMERATOR, __VA_ARGS__) };             \
  template <>                                                                               \
  struct EnumeratorsOf<Enum> {                                                              \
    static constexpr const char* LIST[] = {LUM_FOR_EACH(LUM_ENUMERATOR_NAME, __VA_ARGS__)}; \
    static constexpr EnumeratorNames NAMES{LIST};                                           \
  };

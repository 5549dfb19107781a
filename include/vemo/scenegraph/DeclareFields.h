#pragma once

#include <vemo/scenegraph/Field.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

// How a class of nodes declares its fields. A declaration makes the member and
// lists the field: there is no way to have one without the other.
//
//     class LineAttributes final : public Attributes {
//       LUM_NODE(LineAttributes, Attributes)
//       LUM_VALUE(double, LineWidth, _lineWidth, 1.0)
//     };
//
// The field is named after the member, without its underscore. Fields are
// listed in the order of their declarations, the order in files: a new one
// goes to the end. A declaration leaves the class at "private:".

namespace lum {

/// More than any class declares itself.
inline constexpr int MAX_OWN_FIELDS = 64;

/// Overloads for these are counted: the call with the greatest finds the latest.
template <int COUNT>
struct FieldCount : FieldCount<COUNT - 1> {
  static constexpr int VALUE = COUNT;
};
template <>
struct FieldCount<0> {
  static constexpr int VALUE = 0;
};

template <int INDEX>
using FieldIndex = std::integral_constant<int, INDEX>;

/// Whether a member is named after its accessors: _lineWidth after LineWidth.
constexpr bool isNamedAfter(std::string_view member, std::string_view accessor) {
  constexpr int TO_LOWER_CASE = 'a' - 'A';
  return member.size() == accessor.size() + 1 && member[0] == '_' &&
         member[1] == accessor[0] + TO_LOWER_CASE && member.substr(2) == accessor.substr(1);
}

}  // namespace lum

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are types and names.

/// Declares the name of a node class and its base class. The name is never destroyed: nodes
/// may live until the very end of the process.
#define LUM_NODE(Class, Base)                                  \
 public:                                                       \
  using Superclass = Base;                                     \
  using Superclass::Superclass;                                \
  static const std::string& getClassName() {                   \
    static const std::string& name = *new std::string(#Class); \
    return name;                                               \
  }                                                            \
  const std::string& className() const override {              \
    return getClassName();                                     \
  }                                                            \
  LUM_FIELDS_AFTER(Base)

/// For base classes with fields but no name.
#define LUM_FIELDS_AFTER(Base)                                                                      \
 private:                                                                                           \
  static ::lum::FieldCount<0> countFields(::lum::FieldCount<0>);                                    \
  void listField(::lum::FieldList&, ::lum::FieldIndex<-1>) {}                                       \
                                                                                                    \
 public:                                                                                            \
  void listFields(::lum::FieldList& fields) override {                                              \
    Base::listFields(fields);                                                                       \
    constexpr int COUNT = decltype(countFields(::lum::FieldCount<::lum::MAX_OWN_FIELDS>()))::VALUE; \
    [&]<int... INDEX>(std::integer_sequence<int, INDEX...>) {                                       \
      (listField(fields, ::lum::FieldIndex<INDEX>()), ...);                                         \
    }                                                                                               \
    (std::make_integer_sequence<int, COUNT>());                                                     \
  }

/// Lists a member. The further argument is its FieldValue.
#define LUM_LIST(member, ...)                                                                          \
 private:                                                                                              \
  static_assert(#member[0] == '_', "Members begin with an underscore");                                \
  static constexpr int INDEX_OF##member =                                                              \
      decltype(countFields(::lum::FieldCount<::lum::MAX_OWN_FIELDS>()))::VALUE;                        \
  static_assert(INDEX_OF##member < ::lum::MAX_OWN_FIELDS);                                             \
  static ::lum::FieldCount<INDEX_OF##member + 1> countFields(::lum::FieldCount<INDEX_OF##member + 1>); \
  void listField(::lum::FieldList& fields, ::lum::FieldIndex<INDEX_OF##member>) {                      \
    fields.add(&#member[1], __VA_ARGS__);                                                              \
  }

/// A field with accessors of its own: LUM_FIELD(bool, _visibility, true).
#define LUM_FIELD(Type, member, ...) \
  LUM_LIST(member, &(member))        \
  Type member __VA_OPT__(= __VA_ARGS__);

/// A field with its accessors: LUM_VALUE(double, LineWidth, _lineWidth, 1.0)
/// declares getLineWidth, setLineWidth and the member with its default.
#define LUM_VALUE(Type, Name, member, ...)                                                     \
  static_assert(::lum::isNamedAfter(#member, #Name), "The member of LineWidth is _lineWidth"); \
                                                                                               \
 public:                                                                                       \
  const Type& get##Name() const {                                                              \
    return member;                                                                             \
  }                                                                                            \
  void set##Name(const Type& value) {                                                          \
    assign(member, value);                                                                     \
  }                                                                                            \
  LUM_FIELD(Type, member __VA_OPT__(, ) __VA_ARGS__)

/// The same for an enumeration (LUM_ENUM), which is kept as its number.
#define LUM_ENUMERATION(Enum, Name, member, initial)                                           \
  static_assert(::lum::isNamedAfter(#member, #Name), "The member of LineWidth is _lineWidth"); \
                                                                                               \
 public:                                                                                       \
  Enum get##Name() const {                                                                     \
    return static_cast<Enum>(member);                                                          \
  }                                                                                            \
  void set##Name(Enum value) {                                                                 \
    assign(member, static_cast<std::int32_t>(value));                                          \
  }                                                                                            \
  LUM_LIST(member, ::lum::EnumerationField{&(member), &::lum::EnumeratorsOf<Enum>::NAMES})     \
  std::int32_t member = static_cast<std::int32_t>(initial);

/// A node that this one owns: LUM_OWNED(Palette, Palette, _palette) declares
/// getPalette, which makes it when it is first asked for, and hasPalette, null
/// when there is none.
#define LUM_OWNED(Class, Name, member)                                                         \
  static_assert(::lum::isNamedAfter(#member, #Name), "The member of LineWidth is _lineWidth"); \
                                                                                               \
 public:                                                                                       \
  Class& get##Name() {                                                                         \
    return member.ensure(*this);                                                               \
  }                                                                                            \
  Class* has##Name() const {                                                                   \
    return member.get();                                                                       \
  }                                                                                            \
  LUM_FIELD(::lum::Owned<Class>, member)

// NOLINTEND(bugprone-macro-parentheses)

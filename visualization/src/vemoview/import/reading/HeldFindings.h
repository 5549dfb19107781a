#pragma once

#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemo {

class ReadingContext;

/// Holds back what is found about the values of some attributes and vectors of the item being read, if they
/// cannot be read: one fault is one finding, and what it leads to may be more severe than the fault itself.
/// What is neither released nor described in time is dropped, unless an exception ends the reading.
class HeldFindings {
 public:
  using Names = std::initializer_list<std::string_view>;

  /// Until the object is destroyed. The names must outlive it; a null context is accepted.
  HeldFindings(ReadingContext* context, Names names);
  ~HeldFindings();
  HeldFindings(const HeldFindings&) = delete;
  HeldFindings& operator=(const HeldFindings&) = delete;

  /// The text of a finding about what follows from one of these values, such as "the item is hidden". It
  /// begins with what is wrong with the value, which is then no finding of its own. Further ones that cannot
  /// be read are faults of their own.
  /// @param otherwise the text if all of them could be read
  std::string describe(Names names, const std::string& consequence, const std::string& otherwise = {});

  /// Reports that one of these values hides something because it cannot be read, if that is so.
  /// @param consequence as "the item is hidden"
  /// @return whether it is
  bool reportHidden(Names names, const std::string& consequence);

  /// Reports the others. Nothing more is held back.
  void release();

 private:
  friend class ReadingContext;

  using List = std::vector<std::pair<std::string_view, Finding>>;

  List::iterator find(Names names);
  /// Whether the finding is held from now on.
  bool hold(const Finding& finding);
  void stop();

  ReadingContext* _context;
  int _exceptions = std::uncaught_exceptions();
  HeldFindings* _outer = nullptr;
  /// How many items are being read.
  std::size_t _depth = 0;
  std::vector<std::string_view> _names;
  /// With the names that they are about.
  List _held;
};

}  // namespace vemo

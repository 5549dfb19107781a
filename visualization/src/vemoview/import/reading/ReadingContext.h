#pragma once

#include "scenegraph/UnlistedFindings.h"
#include <vemo/base/InternalError.h>
#include <vemo/base/Progress.h>
#include <vemo/import/ElementPlace.h>
#include <vemo/import/Exception.h>
#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemo {

class HeldFindings;

/// Which item of a scene is being read or converted, and what was found: errors
/// and findings name the item.
class ReadingContext {
 public:
  /// Of each kind; one more says that others are not listed.
  static constexpr std::size_t MAX_FINDINGS = 1000;
  /// The same when all findings are asked for: a few bytes of a description give a finding.
  static constexpr std::size_t MAX_AUDIT_FINDINGS = MOST_FINDINGS_OF_A_CODE;

  /// What a finding that is not listed is about.
  struct Mark {
    FindingCode code;
    std::string entry;
    std::string attribute;
    int element;
  };

  /// An item takes about as long as so many bytes of an entry: the unit of progress.
  static constexpr std::uint64_t BYTES_PER_ITEM = 1024;

  /// Marks an item as being read or converted, from construction to destruction:
  /// `const ReadingContext::ItemScope scope(context, element.getName(), element.getPlace());`
  /// The name must outlive the scope. A null context is accepted.
  class ItemScope {
   public:
    ItemScope(ReadingContext* context, std::string_view name, const ElementPlace& place = {});
    ~ItemScope();
    ItemScope(const ItemScope&) = delete;
    ItemScope& operator=(const ItemScope&) = delete;

   private:
    ReadingContext* _context;
    int _exceptions;
  };

  /// Marks an attribute of the item as being read; it must outlive the scope.
  class AttributeScope {
   public:
    AttributeScope(ReadingContext* context, std::string_view attribute);
    ~AttributeScope();
    AttributeScope(const AttributeScope&) = delete;
    AttributeScope& operator=(const AttributeScope&) = delete;

   private:
    ReadingContext* _context;
    int _exceptions;
  };

  /// In its lifetime `attempt` throws failures, also where they are collected. A null
  /// context is accepted.
  class ThrowingScope {
   public:
    explicit ThrowingScope(ReadingContext* context);
    ~ThrowingScope();
    ThrowingScope(const ThrowingScope&) = delete;
    ThrowingScope& operator=(const ThrowingScope&) = delete;

   private:
    ReadingContext* _context;
    bool _collectedFaults;
  };

  /// Items advance it when they are read and when they are converted.
  ProgressMeter& getProgress() { return _progress; }
  void setProgress(ProgressReport report) { _progress = ProgressMeter(std::move(report)); }
  /// How many were read, and converted.
  std::uint64_t countItems() const { return _itemCount; }

  /// Counts the data that are ignored or left out, with a finding: what then seems to be
  /// missing may only be that.
  void noteLoss() { ++_lossCount; }
  std::size_t countLosses() const { return _lossCount; }

  /// The items being read, outermost first, as "scene/wing/pressure".
  std::string getItemPath() const;

  /// A very long name is shortened: names in untrusted files may be as long as the file.
  static std::string shortened(std::string_view name);
  /// The same in quotation marks, for texts.
  static std::string quoted(std::string_view name) { return '"' + shortened(name) + '"'; }
  /// The part of a path for a name, shortened, and escaped as in the paths of nodes.
  static std::string pathPart(std::string_view name);

  /// Appends the part to a path. If the path is very long already, "..."
  /// replaces all further parts.
  static void extendPath(std::string& path, const std::string& part);

  /// In its lifetime only failures, and what is found about the content of entries, are reported, if the
  /// items that are read are not used.
  class UnusedScope {
   public:
    UnusedScope(ReadingContext& context, bool areUnused)
        : _context(context), _former(std::exchange(context._areItemsUnused, areUnused)) {}
    ~UnusedScope() { _context._areItemsUnused = _former; }
    UnusedScope(const UnusedScope&) = delete;
    UnusedScope& operator=(const UnusedScope&) = delete;

   private:
    ReadingContext& _context;
    bool _former;
  };

  /// From now on, `attempt` collects failures instead of throwing them, and findings that are
  /// not listed leave a mark.
  void collectFaults() { _collectsFaults = true; }
  /// From now on, failures are also reported to the sink, and more findings of a kind. Those
  /// that are not are counted.
  void reportAll() { _reportsAll = true; }
  /// Reports how many findings were not listed.
  void reportUnlisted();
  std::size_t countFaults() const { return _faultCount; }
  /// Throws the first collected failure, if there is one.
  void throwFirstFault() const;

  /// Calls the function. A failure in the file is thrown or collected, with the
  /// item in which it occurred. Returns whether there was none.
  template <class Function>
  bool attempt(Function&& function) {
    if (!_collectsFaults) {
      function();
      return true;
    }
    try {
      function();
      return true;
    } catch (...) {
      keepCurrentException();
      return false;
    }
  }

  /// Calls the function. Failures are thrown with the item in which they
  /// occurred.
  template <class Function>
  void callAndLocateFailures(Function&& function) {
    try {
      function();
    } catch (Exception& exception) {
      addPlaceTo(exception);
      throw;
    } catch (Error& error) {
      addPlaceTo(error);
      throw;
    }
  }

  /// Adds the item that was being read when an exception was thrown (to an Error
  /// as properties "itemPath", "sceneLine" and "attribute").
  void addPlaceTo(Exception& exception) const;
  void addPlaceTo(Error& error) const;

  /// Keeps the finding, with the item being read, and reports it to the sink.
  /// The attribute defaults to the one being read.
  void report(FindingCode code, const std::string& text, const std::string& entry = {},
              const std::string& attribute = {});
  /// The same for another place.
  void report(Finding finding);
  /// The same for an earlier item, which this one replaces: the line of this one is
  /// added to the text.
  /// @param path of the earlier item; by default that of this one
  void reportReplaced(FindingCode code, const std::string& text, const ElementPlace& earlier,
                      const std::string& entry = {}, const std::string& path = {});
  const std::vector<Finding>& getFindings() const { return _findings; }
  /// Leaves a mark of what only follows from something else that is reported, if failures are
  /// collected, too.
  void keepConsequence(FindingCode code, const std::string& entry = {});
  const std::vector<Mark>& getMarks() const { return _marks; }

 private:
  friend class HeldFindings;

  struct Item {
    std::string_view name;
    ElementPlace element;
    /// Empty unless one is being read.
    std::string_view attribute{};
  };
  struct Place {
    std::string itemPath;
    ElementPlace element;
    std::string attribute;
  };

  Place getPlace() const;
  /// Records the place of an exception that leaves a scope, unless an inner
  /// scope has done so.
  void noteFailure(int formerExceptions);
  /// The place of the exception being handled.
  Place getFailurePlace() const;
  /// Whether it says what becomes of an item that is not used.
  bool isOfUnused(const Finding& finding) const;
  /// Whether it is about a value that has been reported as unreadable: what follows
  /// from that is not reported, too, unless something is lost.
  bool isConsequence(const Finding& finding) const;
  /// Rethrows it if it is not about the file.
  void keepCurrentException();
  void keepFault(Finding fault);
  std::size_t getLimit() const { return _reportsAll ? MAX_AUDIT_FINDINGS : MAX_FINDINGS; }
  /// Counts a finding. One beyond the limit leaves a mark, if failures are collected.
  bool isListed(const Finding& finding);

  ProgressMeter _progress;
  std::uint64_t _itemCount = 0;
  std::vector<Item> _items;
  /// The place of the exception that is unwinding the scopes.
  Place _failure;
  bool _collectsFaults = false;
  bool _reportsAll = false;
  std::exception_ptr _firstFault;
  std::size_t _faultCount = 0;
  std::size_t _lossCount = 0;
  std::vector<Finding> _findings;
  std::vector<Mark> _marks;
  /// Attributes with values that could not be read, by the numbers of their elements.
  std::set<std::pair<int, std::string>> _unreadable;
  bool _areItemsUnused = false;
  /// The innermost that is still held back; null if there is none.
  HeldFindings* _held = nullptr;
  std::map<FindingCode, std::size_t> _counts;
};

/// Calls the function through `ReadingContext::attempt`, or directly without a
/// context.
template <class Function>
bool attempt(ReadingContext* context, Function&& function) {
  if (context != nullptr) {
    return context->attempt(function);
  }
  function();
  return true;
}

inline std::size_t countLosses(const ReadingContext* context) {
  return context != nullptr ? context->countLosses() : 0;
}

/// 0 without a context.
inline std::size_t countFaults(const ReadingContext* context) {
  return context != nullptr ? context->countFaults() : 0;
}

/// For conversion, which a host may start without a context: the finding then
/// names no item.
void report(ReadingContext* context, FindingCode code, const std::string& text);
/// For what only follows from something else that is reported.
void keepConsequence(ReadingContext* context, FindingCode code);

}  // namespace vemo

#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace vemo {

class Error;
class Exception;

/// Which item of a scene is being read or converted, and what was found: errors
/// and findings name the item.
class VEMO_IMPORT_EXPORT ReadingContext {
 public:
  /// Of each kind; one more says that others are not listed.
  static constexpr std::size_t MAX_FINDINGS = 1000;

  /// Marks an item as being read or converted, from construction to destruction:
  /// `const ReadingContext::ItemScope scope(context, element.getName(), element.getLine());`
  /// A null context is accepted.
  class VEMO_IMPORT_EXPORT ItemScope {
   public:
    ItemScope(ReadingContext* context, const std::string& name, int line = 0);
    ~ItemScope();
    ItemScope(const ItemScope&) = delete;
    ItemScope& operator=(const ItemScope&) = delete;

   private:
    ReadingContext* _context;
    int _exceptions;
  };

  /// The items being read, outermost first, as "scene/wing/pressure".
  std::string getItemPath() const;

  /// The part of a path for a name, which is shortened when it is very long.
  static std::string pathPart(const std::string& name);

  /// Appends the part to a path, unless that is very long already: then "..."
  /// stands for all further parts.
  static void extendPath(std::string& path, const std::string& part);

  /// From now on, what is attempted reports its failures and goes on, and all
  /// findings are kept.
  void collectFaults() { _collectsFaults = true; }

  /// Calls the function. A failure in the file is thrown, or reported, with the
  /// item that it happened in. Returns whether there was none.
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
      reportCurrentException();
      return false;
    }
  }

  /// Adds the item that was being read when an exception was thrown (to an Error
  /// as properties "itemPath" and "sceneLine").
  void addPlaceTo(Exception& exception) const;
  void addPlaceTo(Error& error) const;

  /// Keeps the finding, with the item being read, and reports it.
  void report(FindingCode code, const std::string& text, const std::string& entry = {},
              const std::string& attribute = {});
  /// The same for another place.
  void report(Finding finding);
  const std::vector<Finding>& getFindings() const { return _findings; }

 private:
  struct Item {
    std::string name;
    int line;
  };
  struct Place {
    std::string itemPath;
    int line = 0;
  };

  Place getPlace() const;
  /// Throws it again if it is not about the file.
  void reportCurrentException();

  std::vector<Item> _items;
  /// Where the exception was thrown that is unwinding the items.
  Place _failure;
  bool _collectsFaults = false;
  std::vector<Finding> _findings;
  std::map<FindingCode, std::size_t> _counts;
};

/// Calls the function as the context attempts it; without one, plainly.
template <class Function>
bool attempt(ReadingContext* context, Function&& function) {
  if (context != nullptr) {
    return context->attempt(function);
  }
  function();
  return true;
}

/// For conversion, which a host may start without a context: the finding then
/// names no item.
VEMO_IMPORT_EXPORT void report(ReadingContext* context, FindingCode code, const std::string& text);

}  // namespace vemo

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

  /// Adds the item that was being read when an exception was thrown (to an Error
  /// as properties "itemPath" and "sceneLine").
  void addPlaceTo(Exception& exception) const;
  void addPlaceTo(Error& error) const;

  /// Keeps the finding, with the item being read, and reports it.
  void report(FindingCode code, const std::string& text, const std::string& entry = {});
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

  std::vector<Item> _items;
  /// Where the exception was thrown that is unwinding the items.
  Place _failure;
  std::vector<Finding> _findings;
  std::map<FindingCode, std::size_t> _counts;
};

/// For conversion, which a host may start without a context: the finding then
/// names no item.
VEMO_IMPORT_EXPORT void report(ReadingContext* context, FindingCode code, const std::string& text);

}  // namespace vemo

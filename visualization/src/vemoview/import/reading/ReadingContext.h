#pragma once

#include <vemo/import/Export.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vemo {

class Error;
class Exception;

/// Something in a scene file that is left out or replaced by a default, and
/// where.
struct SceneWarning {
  std::string text;
  /// The archive entry concerned; empty when there is none.
  std::string entry;
  /// As "scene/wing/pressure".
  std::string itemPath;
  /// Of the scene description; 0 when unknown.
  int line = 0;
};

/// Which item of a scene is being read, and what has been warned about: errors
/// and warnings name the item.
class VEMO_IMPORT_EXPORT ReadingContext {
 public:
  /// Once there are this many warnings, one more says that others are left out.
  static constexpr std::size_t MAX_WARNINGS = 1000;

  /// Marks an item as being read, from construction to destruction:
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

  /// Stores the warning, with the item being read, and logs it.
  void addWarning(const std::string& text, const std::string& entry = {});
  const std::vector<SceneWarning>& getWarnings() const { return _warnings; }

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
  std::vector<SceneWarning> _warnings;
};

}  // namespace vemo

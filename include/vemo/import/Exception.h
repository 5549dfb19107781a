#pragma once

#include <vemo/import/Export.h>

#include <string>

namespace vemo {

/// Base class of errors in scene files. The message is for the user and
/// may hold "<br>" as a line break. The place of the error has its own fields,
/// which are filled in where it is thrown and on its way out. A field that is
/// already set is kept, so that the innermost place wins.
class VEMO_IMPORT_EXPORT Exception {
 public:
  explicit Exception(std::string message);
  Exception(const Exception&) = default;
  Exception(Exception&&) = default;
  Exception& operator=(const Exception&) = default;
  Exception& operator=(Exception&&) = default;
  virtual ~Exception();

  const std::string& getMessage() const { return _message; }

  /// Why, where the message leaves it open; empty when unknown.
  const std::string& getCause() const { return _cause; }
  void setCause(const std::string& cause) { _cause = cause; }

  /// The archive entry concerned; empty when unknown.
  const std::string& getEntry() const { return _entry; }
  void setEntry(const std::string& entry);

  /// The item that was being read, as "scene/wing/pressure"; empty when
  /// unknown.
  const std::string& getItemPath() const { return _itemPath; }
  void setItemPath(const std::string& itemPath);

  /// The line of the scene description, from 1; 0 when unknown.
  int getLine() const { return _line; }
  void setLine(int line);

  /// The attribute that was being read, or the child element that is a value;
  /// empty when unknown.
  const std::string& getAttribute() const { return _attribute; }
  void setAttribute(const std::string& attribute);

  /// The known fields in words: "item scene/wing, attribute 'points', line 3 of
  /// the scene description, entry 'p.bin'"; empty without any.
  std::string getPlace() const;

 private:
  std::string _message;
  std::string _cause;
  std::string _entry;
  std::string _itemPath;
  std::string _attribute;
  int _line = 0;
};

/// An archive entry is missing, has a bad size or cannot be read, or the
/// archive file itself cannot be read.
class VEMO_IMPORT_EXPORT IOException : public Exception {
 public:
  using Exception::Exception;
  ~IOException() override;
};

/// The system fails to read the archive file, as from a faulty disk; it tells the cause. What is in
/// the file is not known to be at fault.
class VEMO_IMPORT_EXPORT UnreadableException : public IOException {
 public:
  /// @param error the system's number
  UnreadableException(const std::string& message, int error);
  ~UnreadableException() override;

  int getError() const { return _error; }

 private:
  int _error;
};

/// The archive file does not exist.
class VEMO_IMPORT_EXPORT FileNotFoundException : public Exception {
 public:
  using Exception::Exception;
  ~FileNotFoundException() override;
};

/// The file is not a readable zip archive.
class VEMO_IMPORT_EXPORT ZipException : public Exception {
 public:
  using Exception::Exception;
  ~ZipException() override;
};

/// The database that an archive is converted to cannot be written; the archive is
/// not the cause. The message names the path and the cause.
class VEMO_IMPORT_EXPORT OutputException : public Exception {
 public:
  using Exception::Exception;
  ~OutputException() override;
};

/// The scene description cannot be parsed.
class VEMO_IMPORT_EXPORT XMLException : public Exception {
 public:
  using Exception::Exception;
  ~XMLException() override;
};

/// A text is not a number in the radix asked for; the message is that text.
class VEMO_IMPORT_EXPORT NumberFormatException : public Exception {
 public:
  using Exception::Exception;
  ~NumberFormatException() override;
};

/// An element's version is newer than this reader understands; the message is
/// empty.
class VEMO_IMPORT_EXPORT FutureVersionException : public Exception {
 public:
  explicit FutureVersionException(std::string message = {});
  ~FutureVersionException() override;
};

}  // namespace vemo

#pragma once

#include <vemo/import/Export.h>

#include <string>

namespace vemo {

/// Root of the errors that a scene file causes. The message is the user's and
/// may hold "<br>" as a line break. Where the error happened travels in fields
/// of its own: whoever throws, or lets the exception pass, adds what it knows.
/// A field that is set already stays, so that the innermost place wins.
class VEMO_IMPORT_EXPORT Exception {
 public:
  explicit Exception(std::string message);
  Exception(const Exception&) = default;
  Exception(Exception&&) = default;
  Exception& operator=(const Exception&) = default;
  Exception& operator=(Exception&&) = default;
  virtual ~Exception();

  const std::string& getMessage() const { return _message; }

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

  /// What is known of the place, in words: "item scene/wing, line 3 of the
  /// scene description, entry 'p.bin'"; empty when nothing is.
  std::string getPlace() const;

 private:
  std::string _message;
  std::string _entry;
  std::string _itemPath;
  int _line = 0;
};

/// An archive entry is missing, has a bad size or cannot be read, or the
/// archive file itself cannot be read.
class VEMO_IMPORT_EXPORT IOException : public Exception {
 public:
  using Exception::Exception;
  ~IOException() override;
};

/// The archive file does not exist.
class VEMO_IMPORT_EXPORT FileNotFoundException : public Exception {
 public:
  using Exception::Exception;
  ~FileNotFoundException() override;
};

/// The file is no zip archive that can be read.
class VEMO_IMPORT_EXPORT ZipException : public Exception {
 public:
  using Exception::Exception;
  ~ZipException() override;
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

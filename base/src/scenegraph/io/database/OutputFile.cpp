#include "scenegraph/io/database/OutputFile.h"

namespace lum::io {

namespace {

constexpr std::size_t BUFFER_SIZE = std::size_t{1} << 18;

}  // namespace

void OutputFile::write(const void* data, std::size_t size) {
  const auto* bytes = static_cast<const char*>(data);
  if (size < BUFFER_SIZE - _buffer.size()) {
    _buffer.append(bytes, size);
    return;
  }
  flush();
  _file.write(bytes, size, _written);
  _written += size;
}

void OutputFile::fill(std::size_t size) {
  const std::string zeros(size, '\0');
  write(zeros.data(), zeros.size());
}

void OutputFile::writeFirst(const std::string& bytes) {
  flush();
  _file.write(bytes.data(), bytes.size(), 0);
}

void OutputFile::flush() {
  _file.write(_buffer.data(), _buffer.size(), _written);
  _written += _buffer.size();
  _buffer.clear();
}

void OutputFile::commit() {
  flush();
  _file.commit();
}

}  // namespace lum::io

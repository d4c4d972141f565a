#pragma once
// Writes lines to a new or emptied file, each followed by CR LF, through one
// large buffer; long stretches go to the file directly.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "objectfile/posix_file.h"

namespace korvane {

inline constexpr std::size_t kLineWriteBufferSize = std::size_t{1} << 20;

class LineWriter {
 public:
  // Creates the file or cuts it to nothing; throws RuntimeFailure if it cannot.
  explicit LineWriter(const std::string& path);
  // Without close(), hands on what is buffered as far as it goes and closes
  // quietly: what was written before a failure stays in the file.
  ~LineWriter();
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  void writeLine(std::string_view text);
  // Bytes that already hold their line ends, such as a run of a source.
  void writeBytes(std::string_view bytes);
  // Writes out the buffer and closes; every failure on the way throws.
  void close();

 private:
  void flush();

  PosixFile m_file;
  std::unique_ptr<char[]> m_buffer;
  std::size_t m_used = 0;
  bool m_failed = false;
  bool m_closed = false;
};

}  // namespace korvane

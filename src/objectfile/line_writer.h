#pragma once
// Writes lines as a file's new content, each followed by CR LF, through one
// large buffer; long stretches go to the file directly. The target takes the
// new content only at close(): until then it is as it was (FileReplacement).

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "objectfile/file.h"

namespace korvane {

inline constexpr std::size_t kLineWriteBufferSize = std::size_t{1} << 20;

class LineWriter {
 public:
  // Throws RuntimeFailure for a target that cannot be written.
  explicit LineWriter(const std::string& path);
  LineWriter(const LineWriter&) = delete;
  LineWriter& operator=(const LineWriter&) = delete;

  void writeLine(std::string_view text);
  // Bytes that already hold their line ends, such as a run of a source.
  void writeBytes(std::string_view bytes);
  // Writes out the buffer and puts the content in the target's place; every
  // failure on the way throws. Without it the target keeps its old content.
  void close();

 private:
  void flush();

  FileReplacement m_file;
  std::unique_ptr<char[]> m_buffer;
  std::size_t m_used = 0;
};

}  // namespace korvane

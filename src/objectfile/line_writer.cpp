#include "objectfile/line_writer.h"

#include <cstring>

namespace korvane {
namespace {
constexpr std::string_view kLineEnd = "\r\n";
}

LineWriter::LineWriter(const std::string& path)
    : m_file(FileReplacement::begin(path)),
      m_buffer(std::make_unique_for_overwrite<char[]>(kLineWriteBufferSize)) {}

void LineWriter::writeLine(std::string_view text) {
  if (m_used + text.size() + kLineEnd.size() > kLineWriteBufferSize) {
    flush();
    // A line longer than the whole buffer goes out directly.
    if (text.size() + kLineEnd.size() > kLineWriteBufferSize) {
      m_file.writeAll(text.data(), text.size());
      text = {};
    }
  }
  if (!text.empty()) std::memcpy(m_buffer.get() + m_used, text.data(), text.size());
  m_used += text.size();
  std::memcpy(m_buffer.get() + m_used, kLineEnd.data(), kLineEnd.size());
  m_used += kLineEnd.size();
}

void LineWriter::writeBytes(std::string_view bytes) {
  if (m_used + bytes.size() <= kLineWriteBufferSize) {
    std::memcpy(m_buffer.get() + m_used, bytes.data(), bytes.size());
    m_used += bytes.size();
    return;
  }
  flush();
  if (bytes.size() < kLineWriteBufferSize) {
    std::memcpy(m_buffer.get(), bytes.data(), bytes.size());
    m_used = bytes.size();
    return;
  }
  m_file.writeAll(bytes.data(), bytes.size());
}

void LineWriter::close() {
  flush();
  m_file.commit();
}

void LineWriter::flush() {
  if (m_used == 0) return;
  // A failed write is never tried again, so the buffer is spent either way.
  const std::size_t used = m_used;
  m_used = 0;
  m_file.writeAll(m_buffer.get(), used);
}

}  // namespace korvane

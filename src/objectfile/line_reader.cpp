#include "objectfile/line_reader.h"

#include <cstring>
#include <memory>

#include "objectfile/posix_file.h"

namespace korvane {

void readLines(const std::string& path, const LineSink& onLine) {
  PosixFile file = PosixFile::openForReading(path);
  auto buffer = std::make_unique_for_overwrite<char[]>(kLineReadBufferSize);
  // The start of a line that runs on into the next buffer.
  std::string carried;
  // A CR closed the last buffer: an LF opening the next one belongs to it.
  bool lfMayFollow = false;

  while (std::size_t count = file.readSome(buffer.get(), kLineReadBufferSize)) {
    const char* position = buffer.get();
    const char* const end = position + count;
    if (lfMayFollow && *position == '\n') ++position;
    lfMayFollow = false;

    while (position != end) {
      auto* cr = static_cast<const char*>(std::memchr(position, '\r', end - position));
      if (cr == nullptr) {
        carried.append(position, end);
        break;
      }
      if (carried.empty()) {
        onLine(std::string_view(position, cr - position));
      } else {
        carried.append(position, cr);
        onLine(carried);
        carried.clear();
      }
      position = cr + 1;
      if (position == end) {
        lfMayFollow = true;
      } else if (*position == '\n') {
        ++position;
      }
    }
  }
  // A last line without a line end; after a line end nothing is carried.
  if (!carried.empty()) onLine(carried);
}

}  // namespace korvane

namespace korvane {

bool firstLineEndIsBareLF(const std::string& path) {
  PosixFile file = PosixFile::openForReading(path);
  char buffer[64 * 1024];
  while (std::size_t count = file.readSome(buffer, sizeof buffer)) {
    for (std::size_t i = 0; i < count; ++i) {
      if (buffer[i] == '\r') return false;
      if (buffer[i] == '\n') return true;
    }
  }
  return false;
}

}  // namespace korvane

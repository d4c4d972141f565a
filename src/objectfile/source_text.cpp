#include "objectfile/source_text.h"

#include <algorithm>
#include <cstring>

#include "objectfile/file.h"
#include "runtime/failure.h"
#include "text/byte_scan.h"

namespace korvane {
namespace {

// Counting the line ends of each piece right after it arrives finds it still
// in the processor's cache.
constexpr std::size_t kReadPiece = std::size_t{256} << 10;

void takeCounts(detail::LineEndCounter& counter, SourceText& text) {
  text.carriageReturns = counter.carriageReturns();
  text.bareLineFeed = counter.bareLineFeed();
  text.loneCarriageReturn = counter.loneCarriageReturn();
  text.lineEndAnchors = counter.takeAnchors();
}

}  // namespace

void readSource(const std::string& path, SourceText& text) {
  text = SourceText{};
  File file = File::openForReading(path);
  // The size is only a first guess: the file may grow while it is read.
  const std::uint64_t size = file.size();
  std::size_t capacity = size > 0 ? static_cast<std::size_t>(size) + 1 : kReadPiece;
  text.bytes = std::make_unique_for_overwrite<char[]>(capacity);
  detail::LineEndCounter counter;
  try {
    for (;;) {
      if (text.size == capacity) {
        std::size_t grown = capacity + std::max(capacity / 2, kReadPiece);
        auto bigger = std::make_unique_for_overwrite<char[]>(grown);
        std::memcpy(bigger.get(), text.bytes.get(), text.size);
        text.bytes = std::move(bigger);
        capacity = grown;
      }
      std::size_t count =
          file.readSome(text.bytes.get() + text.size, std::min(kReadPiece, capacity - text.size));
      if (count == 0) break;
      counter.add(text.bytes.get() + text.size, text.bytes.get() + text.size + count);
      text.size += count;
    }
  } catch (const RuntimeFailure&) {
    // The lines that ended before the failure count as read; the one it cut
    // does not. No CR stands behind the last one, so the counts hold.
    const char* bytes = text.bytes.get();
    const char* lastEnd = detail::findLastCarriageReturn(bytes, bytes + text.size);
    std::size_t keep = lastEnd ? static_cast<std::size_t>(lastEnd - bytes) + 1 : 0;
    if (keep > 0 && keep < text.size && bytes[keep] == '\n') ++keep;
    text.size = keep;
    takeCounts(counter, text);
    throw;
  }
  takeCounts(counter, text);
}

SourceText sourceOf(std::string_view bytes) {
  SourceText text;
  text.bytes = std::make_unique_for_overwrite<char[]>(bytes.size() + 1);
  std::memcpy(text.bytes.get(), bytes.data(), bytes.size());
  text.size = bytes.size();
  detail::LineEndCounter counter;
  counter.add(bytes.data(), bytes.data() + bytes.size());
  takeCounts(counter, text);
  return text;
}

}  // namespace korvane

#include "objectfile/line_store.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "objectfile/source_text.h"
#include "runtime/failure.h"
#include "text/byte_scan.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace korvane {

namespace {

// Room for the few lines that the rewriting inserts, ahead of a loaded source.
constexpr std::size_t kGapSlack = 64;
// Offsets below this fit an entry of 4 bytes, with its top bit for the area.
constexpr std::uint64_t kNarrowLimit = std::uint64_t{1} << 31;
constexpr std::size_t kLengthBytes = sizeof(std::uint64_t);
constexpr std::size_t kMaxLines = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
// Lines looked at together: a search starts small, since its hit is often
// near, and a write takes large runs.
constexpr std::size_t kFirstSearchRun = 8;
constexpr std::size_t kLongestSearchRun = 4096;
constexpr std::size_t kWriteRun = 65536;

// Where each line of bytes starts, by the reading rules: after each CR, or
// after the LF of a CR LF; a line end at the very end opens no line.
template <class Entry>
std::size_t findLineStarts(const char* bytes, std::size_t size, Entry* starts) {
  if (size == 0) return 0;
  std::size_t count = 0;
  starts[count++] = 0;
  auto lineEndAt = [&](std::size_t cr) {
    std::size_t next = cr + 1;
    if (next < size && bytes[next] == '\n') ++next;
    if (next < size) starts[count++] = static_cast<Entry>(next);
  };
  std::size_t p = 0;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  for (; size - p >= 16; p += 16) {
    auto mask = static_cast<unsigned>(
        _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + p)), cr)));
    for (; mask != 0; mask &= mask - 1) lineEndAt(p + static_cast<std::size_t>(__builtin_ctz(mask)));
  }
#endif
  for (; p < size; ++p) {
    if (bytes[p] == '\r') lineEndAt(p);
  }
  return count;
}

}  // namespace

struct LineStore::Impl {
  std::unique_ptr<char[]> source;
  std::size_t sourceSize = 0;
  // Added texts, each behind its length.
  std::string appended;

  // Gap buffer: slots [0, gapStart) and [gapEnd, capacity) are the lines.
  // Each slot holds a line's offset, its top bit set for the appended area.
  bool wide = false;
  std::unique_ptr<std::uint32_t[]> narrow;
  std::unique_ptr<std::uint64_t[]> wideSlots;
  std::size_t capacity = 0;
  std::size_t gapStart = 0;
  std::size_t gapEnd = 0;

  std::size_t count() const { return gapStart + (capacity - gapEnd); }
  std::uint64_t areaBit() const { return wide ? std::uint64_t{1} << 63 : kNarrowLimit; }
  std::uint64_t slot(std::size_t s) const { return wide ? wideSlots[s] : narrow[s]; }
  void setSlot(std::size_t s, std::uint64_t value) {
    if (wide) {
      wideSlots[s] = value;
    } else {
      narrow[s] = static_cast<std::uint32_t>(value);
    }
  }
  std::uint64_t entry(std::size_t index) const {
    return slot(index < gapStart ? index : gapEnd + (index - gapStart));
  }
  bool isAppended(std::uint64_t entry) const { return (entry & areaBit()) != 0; }
  std::uint64_t offsetOf(std::uint64_t entry) const { return entry & (areaBit() - 1); }

  std::string_view text(std::uint64_t entry) const {
    const std::uint64_t offset = offsetOf(entry);
    if (isAppended(entry)) {
      std::uint64_t length = 0;
      std::memcpy(&length, appended.data() + offset - kLengthBytes, kLengthBytes);
      return std::string_view(appended.data() + offset, length);
    }
    // A source line runs up to its CR, or to the end of the source.
    const char* start = source.get() + offset;
    const std::size_t rest = sourceSize - offset;
    const void* cr = std::memchr(start, '\r', rest);
    return std::string_view(start, cr ? static_cast<const char*>(cr) - start : rest);
  }

  void allocate(std::size_t slots) {
    if (wide) {
      wideSlots = std::make_unique_for_overwrite<std::uint64_t[]>(slots);
    } else {
      narrow = std::make_unique_for_overwrite<std::uint32_t[]>(slots);
    }
    capacity = slots;
  }

  void moveSlots(std::size_t to, std::size_t from, std::size_t n) {
    if (n == 0) return;
    if (wide) {
      std::memmove(&wideSlots[to], &wideSlots[from], n * sizeof(std::uint64_t));
    } else {
      std::memmove(&narrow[to], &narrow[from], n * sizeof(std::uint32_t));
    }
  }

  void moveGap(std::size_t position) {
    if (position < gapStart) {
      const std::size_t n = gapStart - position;
      moveSlots(gapEnd - n, position, n);
      gapStart -= n;
      gapEnd -= n;
    } else if (position > gapStart) {
      const std::size_t n = position - gapStart;
      moveSlots(gapStart, gapEnd, n);
      gapStart += n;
      gapEnd += n;
    }
  }

  // Makes room for one entry, with the gap at position. Nothing changes if
  // the memory cannot be had.
  void reserveOne(std::size_t position) {
    if (gapStart == gapEnd) {
      const std::size_t n = count();
      Impl grown;
      grown.wide = wide;
      grown.allocate(std::max<std::size_t>(kGapSlack, n + n / 2));
      for (std::size_t i = 0; i < n; ++i)
        grown.setSlot(i < position ? i : grown.capacity - (n - i), entry(i));
      grown.gapStart = position;
      grown.gapEnd = grown.capacity - (n - position);
      std::swap(narrow, grown.narrow);
      std::swap(wideSlots, grown.wideSlots);
      capacity = grown.capacity;
      gapStart = grown.gapStart;
      gapEnd = grown.gapEnd;
      return;
    }
    moveGap(position);
  }

  // From 4-byte to 8-byte entries, once the offsets outgrow the first.
  void widen() {
    auto slots = std::make_unique_for_overwrite<std::uint64_t[]>(capacity);
    for (std::size_t s = 0; s < capacity; ++s) {
      if (s >= gapStart && s < gapEnd) continue;
      const std::uint64_t value = narrow[s];
      slots[s] = (value & kNarrowLimit ? std::uint64_t{1} << 63 : 0) | (value & (kNarrowLimit - 1));
    }
    wideSlots = std::move(slots);
    narrow.reset();
    wide = true;
  }

  void insert(std::string_view text, std::size_t position) {
    if (count() >= kMaxLines) throw RuntimeFailure(failure_number::OutOfMemory);
    // The text may be a line of this store's own appended area, which moves
    // when it grows.
    std::string copy;
    if (!appended.empty() && text.data() >= appended.data() &&
        text.data() < appended.data() + appended.size()) {
      copy.assign(text);
      text = copy;
    }
    const std::size_t offset = appended.size() + kLengthBytes;
    if (!wide && offset + text.size() >= kNarrowLimit) widen();
    reserveOne(position);
    appended.reserve(offset + text.size());
    const std::uint64_t length = text.size();
    appended.append(reinterpret_cast<const char*>(&length), kLengthBytes);
    appended.append(text);
    setSlot(gapStart++, areaBit() | offset);
  }

  // The last line of a run of source lines from first on: each stands in
  // the source behind the one before, so the run is one stretch of bytes.
  std::size_t sourceRun(std::size_t first, std::size_t longest) const {
    const std::size_t limit = std::min(count(), first + longest);
    std::size_t last = first;
    std::uint64_t previous = entry(first);
    while (last + 1 < limit) {
      const std::uint64_t next = entry(last + 1);
      if (isAppended(next) || next <= previous) break;
      previous = next;
      ++last;
    }
    return last;
  }

  // Whether lines first..last are exactly a stretch of the source, each
  // followed by CR LF: then that stretch is written as it stands.
  std::string_view wholeRun(std::size_t first, std::size_t last) const {
    const char* begin = source.get() + offsetOf(entry(first));
    const std::string_view lastLine = text(entry(last));
    const char* end = lastLine.data() + lastLine.size();
    if (source.get() + sourceSize - end < 2 || end[0] != '\r' || end[1] != '\n') return {};
    // Each line between adds one CR; a line removed since adds its own.
    const detail::CarriageReturns crs = detail::countCarriageReturns(begin, end);
    if (crs.count != last - first || !crs.allFollowedByLineFeed) return {};
    return std::string_view(begin, static_cast<std::size_t>(end + 2 - begin));
  }
};

LineStore::LineStore() : m_impl(std::make_unique<Impl>()) {}
LineStore::~LineStore() = default;
LineStore::LineStore(LineStore&&) noexcept = default;
LineStore& LineStore::operator=(LineStore&&) noexcept = default;

void LineStore::Clear() {
  *m_impl = Impl{};
}

void LineStore::AddItem(std::string_view text) {
  m_impl->insert(text, m_impl->count());
}

void LineStore::AddItem(std::string_view text, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) > m_impl->count()) {
    throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
  m_impl->insert(text, static_cast<std::size_t>(index));
}

void LineStore::RemoveItem(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= m_impl->count()) {
    throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
  m_impl->moveGap(static_cast<std::size_t>(index));
  ++m_impl->gapEnd;
}

std::int32_t LineStore::ListCount() const {
  return static_cast<std::int32_t>(m_impl->count());
}

std::string_view LineStore::List(std::int32_t index) const {
  if (index < 0) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  if (static_cast<std::size_t>(index) >= m_impl->count()) return {};
  const std::string_view line = m_impl->text(m_impl->entry(static_cast<std::size_t>(index)));
  return line.empty() ? std::string_view() : line;
}

void LineStore::Load(SourceText&& text) {
  Clear();
  const char* bytes = text.bytes.get();
  const std::size_t size = text.size;
  const bool lastLineOpen = size > 0 && bytes[size - 1] != '\r' &&
                            !(bytes[size - 1] == '\n' && size >= 2 && bytes[size - 2] == '\r');
  const std::size_t lines = text.carriageReturns + (lastLineOpen ? 1 : 0);
  if (lines > kMaxLines) throw RuntimeFailure(failure_number::OutOfMemory);
  Impl& impl = *m_impl;
  impl.wide = size >= kNarrowLimit;
  impl.allocate(kGapSlack + lines);
  // The gap stands in front: the edits of a save come near the head of a file.
  std::size_t found = impl.wide ? findLineStarts(bytes, size, &impl.wideSlots[kGapSlack])
                                : findLineStarts(bytes, size, &impl.narrow[kGapSlack]);
  impl.gapStart = 0;
  impl.gapEnd = kGapSlack + (lines - found);
  if (found != lines) impl.moveSlots(impl.gapEnd, kGapSlack, found);
  impl.source = std::move(text.bytes);
  impl.sourceSize = size;
  text = SourceText{};
}

std::optional<LineStore::Hit> LineStore::Find(std::int32_t from, std::string_view pattern,
                                              TextSearch find) const {
  const Impl& impl = *m_impl;
  const std::size_t count = impl.count();
  std::size_t runLength = kFirstSearchRun;
  for (std::size_t first = static_cast<std::size_t>(std::max(from, 0)); first < count;) {
    const std::uint64_t entry = impl.entry(first);
    if (impl.isAppended(entry)) {
      const std::string_view line = impl.text(entry);
      if (const char* hit = find(line.data(), line.data() + line.size(), pattern)) {
        return Hit{static_cast<std::int32_t>(first), static_cast<std::size_t>(hit - line.data())};
      }
      ++first;
      continue;
    }
    const std::size_t last = impl.sourceRun(first, runLength);
    runLength = std::min(runLength * 2, kLongestSearchRun);
    const char* base = impl.source.get();
    const std::string_view lastLine = impl.text(impl.entry(last));
    const char* const end = lastLine.data() + lastLine.size();
    std::size_t line = first;
    for (const char* from = base + impl.offsetOf(entry); const char* hit = find(from, end, pattern);) {
      while (line < last && base + impl.offsetOf(impl.entry(line + 1)) <= hit) ++line;
      const char* lineStart = base + impl.offsetOf(impl.entry(line));
      // A pattern holds no line end, so a hit is within a line; with a CR
      // ahead of it, it lies in the text of a line removed since.
      if (line == last ||
          std::memchr(lineStart, '\r', static_cast<std::size_t>(hit - lineStart)) == nullptr) {
        return Hit{static_cast<std::int32_t>(line), static_cast<std::size_t>(hit - lineStart)};
      }
      from = base + impl.offsetOf(impl.entry(line + 1));
    }
    first = last + 1;
  }
  return std::nullopt;
}

void LineStore::Overwrite(std::int32_t index, std::size_t offset, std::string_view bytes) {
  const std::string_view line = List(index);
  if (offset > line.size() || bytes.size() > line.size() - offset) {
    throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
  // The view points into memory that this store owns and never shares.
  std::memcpy(const_cast<char*>(line.data()) + offset, bytes.data(), bytes.size());
}

void LineStore::ForEachPiece(const PieceSink& onPiece) const {
  const Impl& impl = *m_impl;
  const std::size_t count = impl.count();
  for (std::size_t first = 0; first < count;) {
    const std::uint64_t entry = impl.entry(first);
    if (impl.isAppended(entry)) {
      onPiece(impl.text(entry), true);
      ++first;
      continue;
    }
    const std::size_t last = impl.sourceRun(first, kWriteRun);
    std::string_view run = impl.wholeRun(first, last);
    // Most often only the source's last line lacks its CR LF.
    std::size_t written = last + 1;
    if (run.empty() && last > first) {
      run = impl.wholeRun(first, last - 1);
      written = last;
    }
    if (!run.empty()) {
      onPiece(run, false);
    } else {
      written = first;
    }
    for (std::size_t line = written; line <= last; ++line) onPiece(impl.text(impl.entry(line)), true);
    first = last + 1;
  }
}

}  // namespace korvane

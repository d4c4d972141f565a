#include "objectfile/line_store.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "runtime/failure.h"

namespace korvane {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20;

struct Entry {
  const char* data;
  std::size_t size;
};

}  // namespace

struct LineStore::Impl {
  // Texts, back to back. Blocks never move, so an entry's pointer stays valid
  // until Clear.
  std::vector<std::unique_ptr<char[]>> blocks;
  char* free = nullptr;
  std::size_t freeLeft = 0;

  // Gap buffer: entries [0, gapStart) and [gapEnd, capacity) are the lines.
  std::unique_ptr<Entry[]> entries;
  std::size_t capacity = 0;
  std::size_t gapStart = 0;
  std::size_t gapEnd = 0;

  std::size_t count() const { return gapStart + (capacity - gapEnd); }

  const Entry& at(std::size_t i) const { return i < gapStart ? entries[i] : entries[gapEnd + (i - gapStart)]; }

  const char* keep(std::string_view text) {
    if (text.empty()) return nullptr;
    if (text.size() > freeLeft) {
      if (text.size() * 2 > kBlockSize) {
        // A long line gets a block of its own; the current block's rest stays in use.
        auto block = std::make_unique_for_overwrite<char[]>(text.size());
        std::memcpy(block.get(), text.data(), text.size());
        blocks.push_back(std::move(block));
        return blocks.back().get();
      }
      blocks.push_back(std::make_unique_for_overwrite<char[]>(kBlockSize));
      free = blocks.back().get();
      freeLeft = kBlockSize;
    }
    char* start = free;
    std::memcpy(start, text.data(), text.size());
    free += text.size();
    freeLeft -= text.size();
    return start;
  }

  void moveGap(std::size_t position) {
    if (position < gapStart) {
      std::size_t n = gapStart - position;
      std::memmove(&entries[gapEnd - n], &entries[position], n * sizeof(Entry));
      gapStart -= n;
      gapEnd -= n;
    } else if (position > gapStart) {
      std::size_t n = position - gapStart;
      std::memmove(&entries[gapStart], &entries[gapEnd], n * sizeof(Entry));
      gapStart += n;
      gapEnd += n;
    }
  }

  // Makes room for one entry, with the gap at position. The index grows by
  // half its size and is not zero-filled: with millions of lines, touching
  // memory that is overwritten at once costs as much as the copy itself.
  void reserveOne(std::size_t position) {
    if (gapStart < gapEnd) {
      moveGap(position);
      return;
    }
    std::size_t n = count();
    std::size_t grownCapacity = std::max<std::size_t>(64, n + n / 2);
    auto grown = std::make_unique_for_overwrite<Entry[]>(grownCapacity);
    moveGap(position);
    std::size_t tail = n - position;
    if (position > 0) std::memcpy(grown.get(), entries.get(), position * sizeof(Entry));
    if (tail > 0) std::memcpy(grown.get() + grownCapacity - tail, entries.get() + gapEnd, tail * sizeof(Entry));
    entries = std::move(grown);
    capacity = grownCapacity;
    gapStart = position;
    gapEnd = grownCapacity - tail;
  }

  void insert(std::string_view text, std::size_t position) {
    if (count() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
      throw RuntimeFailure(failure_number::OutOfMemory);
    }
    reserveOne(position);  // may throw, before anything changed
    const char* data = keep(text);
    entries[gapStart++] = Entry{data, text.size()};
  }
};

LineStore::LineStore() : m_impl(std::make_unique<Impl>()) {}
LineStore::~LineStore() = default;
LineStore::LineStore(LineStore&&) noexcept = default;
LineStore& LineStore::operator=(LineStore&&) noexcept = default;

void LineStore::Clear() { *m_impl = Impl{}; }

void LineStore::AddItem(std::string_view text) { m_impl->insert(text, m_impl->count()); }

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

std::int32_t LineStore::ListCount() const { return static_cast<std::int32_t>(m_impl->count()); }

std::string_view LineStore::List(std::int32_t index) const {
  if (index < 0) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  if (static_cast<std::size_t>(index) >= m_impl->count()) return {};
  const Entry& entry = m_impl->at(static_cast<std::size_t>(index));
  return entry.size == 0 ? std::string_view() : std::string_view(entry.data, entry.size);
}

}  // namespace korvane

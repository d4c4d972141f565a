#include "objectfile/line_store.h"

#include <algorithm>
#include <cstring>

#include "objectfile/source_text.h"
#include "runtime/failure.h"
#include "text/byte_scan.h"

namespace korvane {

namespace {

constexpr std::size_t kLengthBytes = sizeof(std::uint64_t);
constexpr std::size_t kAnchorEvery = detail::LineEndCounter::kAnchorEvery;

// Room for n more, growing by half at least, so that adding one at a time
// stays linear and a failing allocation comes before anything changes.
template <class Container>
void makeRoom(Container& container, std::size_t n) {
  if (container.capacity() - container.size() < n) {
    container.reserve(std::max(container.size() + n, container.capacity() + container.capacity() / 2));
  }
}

}  // namespace

struct LineStore::Impl {
  // The source as read. Its line ends never change: edits in place write no
  // CR or LF.
  std::unique_ptr<char[]> source;
  std::size_t sourceSize = 0;
  std::vector<std::uint64_t> anchors;
  bool loneCarriageReturn = false;
  // Added texts, each behind its length, and where each text starts.
  std::string appended;
  std::vector<std::uint64_t> appendedStarts;

  struct Piece {
    bool added;
    // A source run: the number of its first line in the source, and the
    // stretch from its first line's start to its last line's text end.
    // An added run: its first entry in appendedStarts.
    std::size_t first;
    std::size_t count;
    std::uint64_t begin;
    std::uint64_t end;
    // The lines of this piece and all pieces before it.
    std::size_t upTo;
  };
  std::vector<Piece> pieces;

  // The last source line found: loops over the lines go one by one.
  mutable std::size_t knownLine = 0;
  mutable std::uint64_t knownStart = 0;

  std::size_t count() const { return pieces.empty() ? 0 : pieces.back().upTo; }

  // The piece that holds line index (below count), and the line's place in it.
  std::pair<std::size_t, std::size_t> locate(std::size_t index) const {
    const auto piece = std::upper_bound(pieces.begin(), pieces.end(), index,
                                        [](std::size_t i, const Piece& p) { return i < p.upTo; });
    return {static_cast<std::size_t>(piece - pieces.begin()), index - (piece->upTo - piece->count)};
  }

  std::uint64_t afterLineEnd(std::uint64_t cr) const {
    ++cr;
    if (cr < sourceSize && source[cr] == '\n') ++cr;
    return cr;
  }
  // A line starts after a CR, or after the LF of a CR LF.
  std::uint64_t endBefore(std::uint64_t start) const {
    return source[start - 1] == '\n' ? start - 2 : start - 1;
  }

  std::uint64_t sourceLineStart(std::size_t n) const {
    const std::size_t anchor = n / kAnchorEvery;
    std::size_t line = anchor * kAnchorEvery;
    std::uint64_t start = anchor == 0 ? 0 : afterLineEnd(anchors[anchor - 1]);
    if (knownLine <= n && knownLine > line) {
      line = knownLine;
      start = knownStart;
    }
    for (const char* base = source.get(); line < n; ++line) {
      const void* cr = std::memchr(base + start, '\r', sourceSize - start);
      start = afterLineEnd(static_cast<std::uint64_t>(static_cast<const char*>(cr) - base));
    }
    knownLine = n;
    knownStart = start;
    return start;
  }

  std::string_view addedLine(std::size_t entry) const {
    const std::uint64_t start = appendedStarts[entry];
    std::uint64_t length = 0;
    std::memcpy(&length, appended.data() + start - kLengthBytes, kLengthBytes);
    return std::string_view(appended.data() + start, length);
  }

  std::string_view line(std::size_t index) const {
    const auto [p, k] = locate(index);
    const Piece& piece = pieces[p];
    if (piece.added) return addedLine(piece.first + k);
    const std::uint64_t start = k == 0 ? piece.begin : sourceLineStart(piece.first + k);
    const char* text = source.get() + start;
    const void* cr = std::memchr(text, '\r', piece.end - start);
    return std::string_view(
        text, cr ? static_cast<std::size_t>(static_cast<const char*>(cr) - text) : piece.end - start);
  }

  void recount(std::size_t from) {
    std::size_t upTo = from == 0 ? 0 : pieces[from - 1].upTo;
    for (std::size_t p = from; p < pieces.size(); ++p) {
      upTo += pieces[p].count;
      pieces[p].upTo = upTo;
    }
  }

  // Cuts piece p in two ahead of its line k (0 < k < count); the second part
  // is piece p + 1.
  void split(std::size_t p, std::size_t k) {
    Piece tail = pieces[p];
    tail.first += k;
    tail.count -= k;
    if (!tail.added) tail.begin = sourceLineStart(tail.first);
    pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(p) + 1, tail);
    Piece& head = pieces[p];
    head.count = k;
    if (!head.added) head.end = endBefore(tail.begin);
  }

  // Drops the first line of piece p, which holds more than one.
  void dropFirst(Piece& piece) {
    ++piece.first;
    --piece.count;
    if (!piece.added) piece.begin = sourceLineStart(piece.first);
  }

  void insert(std::string_view text, std::size_t position) {
    // The text may be a line of this store's own appended area, which moves
    // when it grows.
    std::string copy;
    if (!appended.empty() && text.data() >= appended.data() &&
        text.data() < appended.data() + appended.size()) {
      copy.assign(text);
      text = copy;
    }
    const std::uint64_t start = appended.size() + kLengthBytes;
    makeRoom(appended, kLengthBytes + text.size());
    makeRoom(appendedStarts, 1);
    makeRoom(pieces, 2);
    const std::uint64_t length = text.size();
    appended.append(reinterpret_cast<const char*>(&length), kLengthBytes);
    appended.append(text);
    const std::size_t entry = appendedStarts.size();
    appendedStarts.push_back(start);

    std::size_t p = pieces.size();
    if (position < count()) {
      const auto [at, k] = locate(position);
      p = at;
      if (k > 0) split(p++, k);
    }
    // Texts added one behind the other share a piece.
    if (p > 0 && pieces[p - 1].added && pieces[p - 1].first + pieces[p - 1].count == entry) {
      ++pieces[p - 1].count;
    } else {
      pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(p), Piece{true, entry, 1, 0, 0, 0});
    }
    recount(p > 0 ? p - 1 : 0);
  }

  void remove(std::size_t index) {
    auto [p, k] = locate(index);
    if (pieces[p].count == 1) {
      pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(p));
    } else if (k + 1 == pieces[p].count) {
      Piece& piece = pieces[p];
      --piece.count;
      if (!piece.added) piece.end = endBefore(sourceLineStart(piece.first + k));
    } else {
      if (k > 0) split(p++, k);
      dropFirst(pieces[p]);
    }
    recount(p > 0 ? p - 1 : 0);
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

void LineStore::AddItem(std::string_view text, Index index) {
  if (index < 0 || static_cast<std::size_t>(index) > m_impl->count()) {
    throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
  m_impl->insert(text, static_cast<std::size_t>(index));
}

void LineStore::RemoveItem(Index index) {
  if (index < 0 || static_cast<std::size_t>(index) >= m_impl->count()) {
    throw RuntimeFailure(failure_number::InvalidProcedureCall);
  }
  m_impl->remove(static_cast<std::size_t>(index));
}

LineStore::Index LineStore::ListCount() const {
  return static_cast<Index>(m_impl->count());
}

std::string_view LineStore::List(Index index) const {
  if (index < 0) throw RuntimeFailure(failure_number::InvalidProcedureCall);
  if (static_cast<std::size_t>(index) >= m_impl->count()) return {};
  const std::string_view line = m_impl->line(static_cast<std::size_t>(index));
  return line.empty() ? std::string_view() : line;
}

void LineStore::Load(SourceText&& text) {
  Clear();
  const char* bytes = text.bytes.get();
  const std::size_t size = text.size;
  const bool endsInCrLf = size >= 2 && bytes[size - 1] == '\n' && bytes[size - 2] == '\r';
  const bool lastLineOpen = size > 0 && bytes[size - 1] != '\r' && !endsInCrLf;
  const std::size_t lines = text.carriageReturns + (lastLineOpen ? 1 : 0);
  Impl& impl = *m_impl;
  if (lines > 0) {
    const std::uint64_t end = lastLineOpen ? size : size - (endsInCrLf ? 2 : 1);
    impl.pieces.push_back(Impl::Piece{false, 0, lines, 0, end, lines});
  }
  impl.anchors = std::move(text.lineEndAnchors);
  impl.loneCarriageReturn = text.loneCarriageReturn;
  impl.source = std::move(text.bytes);
  impl.sourceSize = size;
  text = SourceText{};
}

std::optional<LineStore::Hit> LineStore::Find(Index from, std::string_view pattern, TextSearch find) const {
  const Impl& impl = *m_impl;
  const auto start = static_cast<std::size_t>(std::max(from, Index{0}));
  if (start >= impl.count()) return std::nullopt;
  const char* const base = impl.source.get();
  for (auto [p, k] = impl.locate(start); p < impl.pieces.size(); ++p, k = 0) {
    const Impl::Piece& piece = impl.pieces[p];
    const std::size_t before = piece.upTo - piece.count;
    if (piece.added) {
      for (; k < piece.count; ++k) {
        const std::string_view line = impl.addedLine(piece.first + k);
        if (const char* hit = find(line.data(), line.data() + line.size(), pattern)) {
          return Hit{static_cast<Index>(before + k), static_cast<std::size_t>(hit - line.data())};
        }
      }
      continue;
    }
    // A pattern holds no line end, so a hit lies within one line of the run.
    const char* runStart = base + (k == 0 ? piece.begin : impl.sourceLineStart(piece.first + k));
    const char* hit = find(runStart, base + piece.end, pattern);
    if (!hit) continue;
    const char* cr = detail::findLastCarriageReturn(runStart, hit);
    const char* lineStart = cr ? base + impl.afterLineEnd(static_cast<std::uint64_t>(cr - base)) : runStart;
    const std::size_t line = before + k + detail::countCarriageReturns(runStart, lineStart);
    return Hit{static_cast<Index>(line), static_cast<std::size_t>(hit - lineStart)};
  }
  return std::nullopt;
}

std::vector<LineStore::Index> LineStore::EditLinesHolding(std::string_view pattern, TextSearch find,
                                                          const LineEditor& edit) {
  Impl& impl = *m_impl;
  std::vector<Index> left;
  char* const base = impl.source.get();
  for (const Impl::Piece& piece : impl.pieces) {
    const std::size_t before = piece.upTo - piece.count;
    if (piece.added) {
      for (std::size_t k = 0; k < piece.count; ++k) {
        const std::string_view line = impl.addedLine(piece.first + k);
        const char* hit = find(line.data(), line.data() + line.size(), pattern);
        char* text = impl.appended.data() + (line.data() - impl.appended.data());
        if (hit && !edit(std::span<char>(text, line.size()), static_cast<std::size_t>(hit - line.data()))) {
          left.push_back(static_cast<Index>(before + k));
        }
      }
      continue;
    }
    char* const end = base + piece.end;
    // Lines are counted only for a line the editor leaves.
    const char* counted = base + piece.begin;
    std::size_t countedLines = before;
    for (char* from = base + piece.begin;;) {
      const char* hit = find(from, end, pattern);
      if (!hit) break;
      char* lineStart = from;
      if (const char* cr = detail::findLastCarriageReturn(from, hit)) {
        lineStart = base + impl.afterLineEnd(static_cast<std::uint64_t>(cr - base));
      }
      const void* cr = std::memchr(hit, '\r', static_cast<std::size_t>(end - hit));
      char* lineEnd = cr ? const_cast<char*>(static_cast<const char*>(cr)) : end;
      if (!edit(std::span<char>(lineStart, lineEnd), static_cast<std::size_t>(hit - lineStart))) {
        countedLines += detail::countCarriageReturns(counted, lineStart);
        counted = lineStart;
        left.push_back(static_cast<Index>(countedLines));
      }
      if (lineEnd == end) break;
      from = base + impl.afterLineEnd(static_cast<std::uint64_t>(lineEnd - base));
    }
  }
  return left;
}

void LineStore::ForEachPiece(const PieceSink& onPiece) const {
  const Impl& impl = *m_impl;
  const char* const base = impl.source.get();
  for (const Impl::Piece& piece : impl.pieces) {
    if (piece.added) {
      for (std::size_t k = 0; k < piece.count; ++k) onPiece(impl.addedLine(piece.first + k), true);
      continue;
    }
    const char* runStart = base + piece.begin;
    const char* const end = base + piece.end;
    // A line that ends in a CR alone is written with CR LF: the run breaks there.
    if (impl.loneCarriageReturn) {
      for (const char* p = runStart;
           const void* found = std::memchr(p, '\r', static_cast<std::size_t>(end - p));) {
        const char* cr = static_cast<const char*>(found);
        p = base + impl.afterLineEnd(static_cast<std::uint64_t>(cr - base));
        if (p == cr + 1) {
          onPiece(std::string_view(runStart, static_cast<std::size_t>(cr - runStart)), true);
          runStart = p;
        }
      }
    }
    const bool crLfBehind = piece.end + 1 < impl.sourceSize && *end == '\r' && end[1] == '\n';
    if (crLfBehind) {
      onPiece(std::string_view(runStart, static_cast<std::size_t>(end + 2 - runStart)), false);
    } else {
      onPiece(std::string_view(runStart, static_cast<std::size_t>(end - runStart)), true);
    }
  }
}

}  // namespace korvane

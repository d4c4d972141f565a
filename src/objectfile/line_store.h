#pragma once
// The ordered, indexable list of text lines behind lstDataLOD0 and lstDataLOD1.
// Lines hold no terminator.
//
// Made for sources of millions of lines and lines of hundreds of megabytes: a
// source's bytes are kept as they were read, and the store is a short list of
// pieces: runs of lines that stand back to back in the source, and runs of
// texts added later, which go into an append-only area behind their lengths.
// No index entry is kept per source line: a line is found from the nearest
// of the CRs the reading noted every few lines. Searches run over whole
// pieces, and a piece whose lines all end in CR LF is written as it stands.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

struct SourceText;

class LineStore {
 public:
  // Wide enough for any number of lines that memory holds: a source of
  // more than 2^31 short lines is still a store, not a failure.
  using Index = std::int64_t;

  LineStore();
  ~LineStore();
  LineStore(LineStore&&) noexcept;
  LineStore& operator=(LineStore&&) noexcept;

  // Removes all lines.
  void Clear();
  // Appends the text as a new last line.
  void AddItem(std::string_view text);
  // Inserts the text at index (0..ListCount; ListCount appends). Any other
  // index is failure 5 and changes nothing.
  void AddItem(std::string_view text, Index index);
  // Removes the line at index (0..ListCount-1). Any other index is failure 5
  // and changes nothing.
  void RemoveItem(Index index);
  Index ListCount() const;
  // The line at index; at or beyond ListCount, the empty string. A negative
  // index is failure 5. The view stays valid until the store is changed.
  std::string_view List(Index index) const;

  // Replaces the lines by those of a whole source: CR and CR LF end a line, a
  // lone LF stays in it, a line end at the very end opens no further line.
  void Load(SourceText&& text);

  // Searches from line `from` on with find (a search over [begin, end) for
  // pattern, which holds no CR or LF); the first line that holds a hit, and
  // where in it.
  using TextSearch = const char* (*)(const char* begin, const char* end, std::string_view pattern);
  struct Hit {
    Index index;
    std::size_t offset;
  };
  std::optional<Hit> Find(Index from, std::string_view pattern, TextSearch find) const;

  // Hands each line that holds pattern, in order, to edit in place: its bytes
  // and where its first hit stands. The editor keeps the length and writes
  // no CR or LF; it returns false for a line it leaves as it is, and the
  // indexes of those lines come back.
  using LineEditor = std::function<bool(std::span<char> line, std::size_t offset)>;
  std::vector<Index> EditLinesHolding(std::string_view pattern, TextSearch find, const LineEditor& edit);

  // Hands on all lines in order, as pieces to be written: runs of whole lines
  // each already followed by CR LF, or lines whose CR LF is still to come.
  using PieceSink = std::function<void(std::string_view bytes, bool lineEndToCome)>;
  void ForEachPiece(const PieceSink& onPiece) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace korvane

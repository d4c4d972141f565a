#pragma once
// The ordered, indexable list of text lines behind lstDataLOD0 and lstDataLOD1.
// Lines hold no terminator.
//
// Made for sources of millions of lines and lines of hundreds of megabytes: a
// source's bytes are kept as they were read, its lines are found once by
// their CRs, and the index holds only where each line starts (4 bytes a line,
// 8 for sources of 2 GB and more). Texts added later go into an append-only
// area behind a length. The index is a gap buffer that starts with its gap in
// front, so that the rewriting's replaces near the head of a file move little.
// Runs of lines that still stand back to back with their CR LF are searched
// and written as one piece.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

struct SourceText;

class LineStore {
 public:
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
  void AddItem(std::string_view text, std::int32_t index);
  // Removes the line at index (0..ListCount-1). Any other index is failure 5
  // and changes nothing.
  void RemoveItem(std::int32_t index);
  std::int32_t ListCount() const;
  // The line at index; at or beyond ListCount, the empty string. A negative
  // index is failure 5. The view stays valid until the store is changed.
  std::string_view List(std::int32_t index) const;

  // Replaces the lines by those of a whole source: CR and CR LF end a line, a
  // lone LF stays in it, a line end at the very end opens no further line.
  // More lines than an index can count is failure 7 and leaves the store empty.
  void Load(SourceText&& text);

  // Searches from line `from` on with find (a search over [begin, end) for
  // pattern, which holds no CR or LF); the first line that holds a hit, and
  // where in it.
  using TextSearch = const char* (*)(const char* begin, const char* end, std::string_view pattern);
  struct Hit {
    std::int32_t index;
    std::size_t offset;
  };
  std::optional<Hit> Find(std::int32_t from, std::string_view pattern, TextSearch find) const;

  // Writes bytes over the line at index from offset on, in place: no CR, and
  // not beyond the end of the line.
  void Overwrite(std::int32_t index, std::size_t offset, std::string_view bytes);

  // Hands on all lines in order, as pieces to be written: runs of whole lines
  // each already followed by CR LF, or one line whose CR LF is still to come.
  using PieceSink = std::function<void(std::string_view bytes, bool lineEndToCome)>;
  void ForEachPiece(const PieceSink& onPiece) const;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace korvane

#pragma once
// The ordered, indexable list of text lines behind lstDataLOD0 and lstDataLOD1.
// Lines hold no terminator. Sized for sources of millions of lines: the texts
// live back to back in large blocks, and the index is a gap buffer, so that a
// scan that replaces lines front to back (insert at i, remove at i + 1) moves
// each index entry only once.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

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

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace korvane

#pragma once
// Searches over large stretches of text, sixteen bytes at a time where the
// processor allows: the stores hold whole files, and a scan that looked at
// every byte on its own would cost more than reading the file.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane::detail {

// The first occurrence of needle (not empty) in [begin, end), or nullptr.
const char* findText(const char* begin, const char* end, std::string_view needle);

// Writes replacement (as long as needle) over each occurrence of needle in
// [begin, end), from left to right: an occurrence that overlaps one already
// replaced is not one.
void replaceEach(char* begin, char* end, std::string_view needle, std::string_view replacement);

// The first place where [begin, end) holds keyword once upper-cased (only a
// to z fold; keyword is upper-case ASCII, not empty), or nullptr.
const char* findKeyword(const char* begin, const char* end, std::string_view keyword);

// The first CR or LF in [begin, end), or nullptr.
const char* findLineEnd(const char* begin, const char* end);

// The last CR in [begin, end), or nullptr. Its callers look back from a place
// inside a line, so the walk is short.
const char* findLastCarriageReturn(const char* begin, const char* end);

// Counts the CRs of a text that arrives in pieces, whether an LF stands
// anywhere without a CR in front of it, and whether a CR stands anywhere
// without an LF behind it (a CR at the very end does not count). Every
// kAnchorEvery-th CR is noted by its position, so that a line far into the
// text can be found without counting from its start.
class LineEndCounter {
 public:
  static constexpr std::size_t kAnchorEvery = 32;

  void add(const char* begin, const char* end);
  std::size_t carriageReturns() const { return m_carriageReturns; }
  bool bareLineFeed() const { return m_bareLineFeed; }
  bool loneCarriageReturn() const { return m_loneCarriageReturn; }
  // Where CR number kAnchorEvery * (k + 1), counted from 1, stands.
  std::vector<std::uint64_t> takeAnchors() { return std::move(m_anchors); }

 private:
  std::size_t m_carriageReturns = 0;
  std::uint64_t m_seen = 0;
  std::vector<std::uint64_t> m_anchors;
  bool m_bareLineFeed = false;
  bool m_loneCarriageReturn = false;
  bool m_lastWasCarriageReturn = false;
};

// How many CRs [begin, end) holds.
std::size_t countCarriageReturns(const char* begin, const char* end);

}  // namespace korvane::detail

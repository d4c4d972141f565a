#pragma once
// Searches over large stretches of text, sixteen bytes at a time where the
// processor allows: the stores hold whole files, and a scan that looked at
// every byte on its own would cost more than reading the file.

#include <cstddef>
#include <string_view>

namespace korvane::detail {

// The first occurrence of needle (not empty) in [begin, end), or nullptr.
const char* findText(const char* begin, const char* end, std::string_view needle);

// The first place where [begin, end) holds keyword once upper-cased (only a
// to z fold; keyword is upper-case ASCII, not empty), or nullptr.
const char* findKeyword(const char* begin, const char* end, std::string_view keyword);

// The first CR or LF in [begin, end), or nullptr.
const char* findLineEnd(const char* begin, const char* end);

// Counts the CRs of a text that arrives in pieces, and whether an LF stands
// anywhere without a CR in front of it.
class LineEndCounter {
 public:
  void add(const char* begin, const char* end);
  std::size_t carriageReturns() const { return m_carriageReturns; }
  bool bareLineFeed() const { return m_bareLineFeed; }

 private:
  std::size_t m_carriageReturns = 0;
  bool m_bareLineFeed = false;
  bool m_lastWasCarriageReturn = false;
};

// Whether every CR of [begin, end) is followed by an LF, and how many CRs it holds.
struct CarriageReturns {
  std::size_t count = 0;
  bool allFollowedByLineFeed = true;
};
CarriageReturns countCarriageReturns(const char* begin, const char* end);

}  // namespace korvane::detail

#pragma once
// Finding one text in another in time linear in both, however the two are
// made: a delimiter or search text may be thousands of characters long.

#include <cstddef>
#include <string_view>
#include <vector>

namespace korvane::detail {

class TextFinder {
 public:
  // The pattern must outlive the finder.
  explicit TextFinder(std::string_view pattern);

  // The 0-based offset of the first occurrence at or behind from, npos if none.
  std::size_t find(std::string_view text, std::size_t from = 0) const;

 private:
  std::string_view m_pattern;
  // For each prefix of the pattern, the length of its longest proper border;
  // empty for short patterns, which the library search handles well.
  std::vector<std::size_t> m_border;
};

}  // namespace korvane::detail

#include "text/text_search.h"

namespace korvane::detail {
namespace {

// Up to this length the library search is quick in every case.
constexpr std::size_t kShortPattern = 16;

}  // namespace

TextFinder::TextFinder(std::string_view pattern) : m_pattern(pattern) {
  if (pattern.size() <= kShortPattern) return;
  m_border.assign(pattern.size() + 1, 0);
  std::size_t border = 0;
  for (std::size_t i = 1; i < pattern.size(); ++i) {
    while (border > 0 && pattern[i] != pattern[border]) border = m_border[border];
    if (pattern[i] == pattern[border]) ++border;
    m_border[i + 1] = border;
  }
}

std::size_t TextFinder::find(std::string_view text, std::size_t from) const {
  if (m_border.empty()) return text.find(m_pattern, from);
  std::size_t matched = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    while (matched > 0 && text[i] != m_pattern[matched]) matched = m_border[matched];
    if (text[i] == m_pattern[matched]) ++matched;
    if (matched == m_pattern.size()) return i + 1 - matched;
  }
  return std::string_view::npos;
}

}  // namespace korvane::detail

#include "text/byte_scan.h"

#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace korvane::detail {
namespace {

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
char upperAscii(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
bool holdsKeywordAt(const char* text, std::string_view keyword) {
  for (std::size_t k = 0; k < keyword.size(); ++k) {
    if (upperAscii(text[k]) != keyword[k]) return false;
  }
  return true;
}

#if defined(__SSE2__)
constexpr std::size_t kLane = 16;

__m128i load(const char* p) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
unsigned maskOf(__m128i lanes) {
  return static_cast<unsigned>(_mm_movemask_epi8(lanes));
}
// The bits of a 16-lane mask, without the library call that __builtin_popcount
// becomes on processors the build may not assume to count bits themselves.
std::size_t bitsOf(unsigned mask) {
  mask -= (mask >> 1) & 0x5555u;
  mask = (mask & 0x3333u) + ((mask >> 2) & 0x3333u);
  mask = (mask + (mask >> 4)) & 0x0F0Fu;
  return (mask + (mask >> 8)) & 0x1Fu;
}

// Compares lanes with one character of a keyword, letters in either case.
struct FoldedByte {
  explicit FoldedByte(char c)
      : fold(_mm_set1_epi8(isLetter(c) ? 0x20 : 0)),
        target(_mm_set1_epi8(static_cast<char>(isLetter(c) ? (c | 0x20) : c))) {}
  __m128i matches(__m128i lanes) const { return _mm_cmpeq_epi8(_mm_or_si128(lanes, fold), target); }
  __m128i fold;
  __m128i target;
};
#endif

}  // namespace

const char* findText(const char* begin, const char* end, std::string_view needle) {
  const std::size_t n = needle.size();
  if (static_cast<std::size_t>(end - begin) < n) return nullptr;
  const char* const lastStart = end - n;
  const char* p = begin;
#if defined(__SSE2__)
  // Candidates are where the first and the last byte both match.
  const __m128i first = _mm_set1_epi8(needle.front());
  const __m128i last = _mm_set1_epi8(needle.back());
  for (; lastStart - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    unsigned mask =
        maskOf(_mm_and_si128(_mm_cmpeq_epi8(load(p), first), _mm_cmpeq_epi8(load(p + n - 1), last)));
    for (; mask != 0; mask &= mask - 1) {
      const char* candidate = p + __builtin_ctz(mask);
      if (std::memcmp(candidate, needle.data(), n) == 0) return candidate;
    }
  }
#endif
  for (; p <= lastStart; ++p) {
    if (*p == needle.front() && std::memcmp(p, needle.data(), n) == 0) return p;
  }
  return nullptr;
}

const char* findKeyword(const char* begin, const char* end, std::string_view keyword) {
  const std::size_t n = keyword.size();
  if (static_cast<std::size_t>(end - begin) < n) return nullptr;
  const char* const lastStart = end - n;
  const char* p = begin;
#if defined(__SSE2__)
  const FoldedByte first(keyword.front());
  const FoldedByte last(keyword.back());
  for (; lastStart - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    unsigned mask = maskOf(_mm_and_si128(first.matches(load(p)), last.matches(load(p + n - 1))));
    for (; mask != 0; mask &= mask - 1) {
      const char* candidate = p + __builtin_ctz(mask);
      if (holdsKeywordAt(candidate, keyword)) return candidate;
    }
  }
#endif
  for (; p <= lastStart; ++p) {
    if (holdsKeywordAt(p, keyword)) return p;
  }
  return nullptr;
}

const char* findLineEnd(const char* begin, const char* end) {
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    const __m128i lanes = load(p);
    unsigned mask = maskOf(_mm_or_si128(_mm_cmpeq_epi8(lanes, cr), _mm_cmpeq_epi8(lanes, lf)));
    if (mask != 0) return p + __builtin_ctz(mask);
  }
#endif
  for (; p != end; ++p) {
    if (*p == '\r' || *p == '\n') return p;
  }
  return nullptr;
}

void LineEndCounter::add(const char* begin, const char* end) {
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  unsigned bare = 0;
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    const __m128i lanes = load(p);
    const unsigned crMask = maskOf(_mm_cmpeq_epi8(lanes, cr));
    const unsigned lfMask = maskOf(_mm_cmpeq_epi8(lanes, lf));
    m_carriageReturns += bitsOf(crMask);
    bare |= lfMask & ~((crMask << 1) | (m_lastWasCarriageReturn ? 1u : 0u));
    m_lastWasCarriageReturn = (crMask >> (kLane - 1)) != 0;
  }
  if (bare != 0) m_bareLineFeed = true;
#endif
  for (; p != end; ++p) {
    if (*p == '\r') ++m_carriageReturns;
    if (*p == '\n' && !m_lastWasCarriageReturn) m_bareLineFeed = true;
    m_lastWasCarriageReturn = *p == '\r';
  }
}

CarriageReturns countCarriageReturns(const char* begin, const char* end) {
  CarriageReturns result;
  bool pending = false;  // a CR closed the last group and waits for its LF
  const char* p = begin;
#if defined(__SSE2__)
  const __m128i cr = _mm_set1_epi8('\r');
  const __m128i lf = _mm_set1_epi8('\n');
  unsigned lonely = 0;
  for (; end - p >= static_cast<std::ptrdiff_t>(kLane); p += kLane) {
    const __m128i lanes = load(p);
    const unsigned crMask = maskOf(_mm_cmpeq_epi8(lanes, cr));
    const unsigned lfMask = maskOf(_mm_cmpeq_epi8(lanes, lf));
    result.count += bitsOf(crMask);
    if (pending && (lfMask & 1u) == 0) lonely = 1;
    lonely |= crMask & ~(lfMask >> 1) & 0x7FFFu;
    pending = (crMask >> (kLane - 1)) != 0;
  }
  if (lonely != 0) result.allFollowedByLineFeed = false;
#endif
  for (; p != end; ++p) {
    if (pending && *p != '\n') result.allFollowedByLineFeed = false;
    pending = *p == '\r';
    if (pending) ++result.count;
  }
  if (pending) result.allFollowedByLineFeed = false;
  return result;
}

}  // namespace korvane::detail
